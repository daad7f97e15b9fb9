#include "commands/DataCommands.h"

#include <utility>

#include "data/DataFiles.h"
#include "session/FileSelection.h"
#include "session/Msg.h"

namespace vk {
namespace {

constexpr const char* kReadData = "VOR_KEL: Lettura File Dati";
constexpr int kFewestPoints = 2;

void tell(Dialogs& dialogs, const std::string& text) {
  dialogs.Get_Msg({.caption = kReadData, .text = text, .icon = kExclamation, .captions = {"&Continua"}});
}

void tellErrors(const Session& session, Dialogs& dialogs, OutputWindow& output, const std::string& name,
                const std::string& errors) {
  if (session.settings.ShowErrors != kFalse) {
    output.OutShow(reportRequest(std::string(kReadData) + " - ERRORI", errors));
  } else {
    tell(dialogs, "Errori nella Lettura del File Dati: " + name + "!");
  }
}

/// The figures and differences drawn so far describe the data before.
void forgetFigures(Session& session) {
  session.figures.GraphText.fill("");
  session.figures.DiffText.clear();
}

/// False when the command ends without the refresh of the display.
bool readDataFile(Session& session, Files& files, Dialogs& dialogs, OutputWindow& output,
                  MainWindow& window) {
  std::string name;
  if (!pickFileToRead(session, files, dialogs, kReadData, kDataKind, name)) return true;
  DataReading reading = readData(files, name);
  session.ErrFlag = toFlag(!reading.errors.empty());
  if (session.ErrFlag != 0) {
    tellErrors(session, dialogs, output, name, reading.errors);
    return true;
  }
  if (!acceptCounts(dialogs, reading.declaredCount, reading.data.NumPnt)) return false;
  LoadDataFile(session.loaded, name, std::move(reading.data));
  forgetFigures(session);
  addRecentFile(session, window, kDataKind, name, name);
  window.setMenuEnabled(Control::MenDatSav, true);
  return true;
}

}  // namespace

void MenDatLet(Session& session, Files& files, Dialogs& dialogs, OutputWindow& output, MainWindow& window) {
  if (readDataFile(session, files, dialogs, output, window)) Msg(session, window);
}

bool acceptCounts(Dialogs& dialogs, Int16 declaredCount, Int16 validCount) {
  if (declaredCount != validCount) tell(dialogs, "Numero Dati Dichiarati Diverso da Numero Dati Trovati!");
  if (validCount >= kFewestPoints) return true;
  tell(dialogs, "Il File Contiene Meno di 2 Dati!");
  return false;
}

void MenDatSav(Session& session, Files& files, Dialogs& dialogs) {
  std::string name;
  if (!pickFileToSave(session, files, dialogs, "VOR_KEL: Salva con Nome File Dati", kDataKind, name)) return;
  files.writeAll(name, dataFileText(session.loaded.data));
}

void MenGraLetFil(Session& session, Files& files, Dialogs& dialogs, MainWindow& window) {
  std::string name;
  if (!pickFileToRead(session, files, dialogs, "VOR_KEL: Lettura File Grafico", kGraphicKind, name)) return;
  session.loaded.GraFile = name;
  session.loaded.GraDefined = kTrue;
  addRecentFile(session, window, kGraphicKind, name, name);
  Msg(session, window);
}

}  // namespace vk
