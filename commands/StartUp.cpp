#include "commands/StartUp.h"

#include "commands/CommandTable.h"
#include "expr/Catalogue.h"
#include "session/Session.h"

namespace vk {
namespace {

constexpr const char* kWelcomeCaption = "VOR_KEL Versione Windows 98";
constexpr const char* kWelcome =
    "La versione 1.0 di VOR_KEL per Windows 98 e` una versione preliminare"
    " che offre praticamente la stessa funzionalita` della versione 3.6"
    " sviluppata per l'ambiente DOS.\r"
    "Si pregano gli utenti di segnalare i difetti di"
    " funzionamento che dovessero essere riscontrati.\r"
    "La guida si trova nella cartella della documentazione (docs).\r"
    "VOR_KEL e` opera di chi lo usa e di chi lo sviluppa.";

}  // namespace

std::string workingFolder(Files& files) {
  if (std::string folder = files.programFolder(); files.isWritableFolder(folder)) return folder;
  if (files.startedAtTerminal()) return files.currentFolder();
  std::string documents = files.documentsFolder();
  return files.isWritableFolder(documents) ? documents : files.currentFolder();
}

void setFirstFolders(Session& session, Files& files) {
  const std::string folder = workingFolder(files);
  session.files.DataDir = session.files.FunDir = session.files.GraDir = folder;
  session.files.WorkDir.fill(folder);
}

void setFirstMenus(MainWindow& window) {
  for (const Command& command : commandTable()) {
    window.setMenuEnabled(command.control, command.enabled());
    window.setMenuVisible(command.control, command.visible());
    if (command.kind == CommandKind::kCheck) window.setMenuChecked(command.control, false);
  }
}

void prepareWindow(const Session& session, MainWindow& window) {
  for (int panel = 1; panel <= 5; ++panel) {
    window.setPanel(panel, kStartPanels[static_cast<std::size_t>(panel) - 1]);
  }
  setFirstMenus(window);
  window.setBackground(session.settings.BackImage);
  window.setCaption(kProgramTitle);
}

void welcome(Ports& ports) {
  ports.dialogs.Get_Msg(
      {.caption = kWelcomeCaption, .text = kWelcome, .icon = kInformation, .captions = {kContinueButton}});
}

void fillCatalogue(Session& session, FunctionForms& forms) {
  BuildCatalogue(session.loaded.catalogue);
  forms.refillSelection();
}

}  // namespace vk
