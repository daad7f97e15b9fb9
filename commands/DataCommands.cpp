#include "commands/DataCommands.h"

#include <utility>

#include "base/FileText.h"
#include "base/Text.h"
#include "base/TextLines.h"
#include "commands/DisplayRefresh.h"
#include "commands/FilePicking.h"
#include "data/DataFiles.h"
#include "data/foreign/Choices.h"
#include "data/foreign/ForeignFile.h"
#include "session/Session.h"

namespace vk {
namespace {

const WindowText kReadData = kReadCaption + WindowText(kDataWord);
constexpr const char* kSaveData = "VOR_KEL: Salva con Nome File Dati";
const WindowText kReadGraphic = kReadCaption + WindowText(kGraphicWord);
constexpr const char* kDataFileErrors = "Errori nella Lettura del File Dati: ";
constexpr const char* kCountsDiffer = "Numero Dati Dichiarati Diverso da Numero Dati Trovati!";
constexpr const char* kTooFewData = "Il File Contiene Meno di 2 Dati!";

constexpr int kFewestPoints = 2;

void tell(Dialogs& dialogs, const WindowText& text) {
  dialogs.Get_Msg({.caption = kReadData, .text = text, .icon = kExclamation, .captions = {kContinueButton}});
}

/// Why the text is perhaps none of a data file, and the way out; empty where nothing is known.
std::string likelyCauseLines(const std::string& text) {
  constexpr int kWidth = 78;
  const LikelyCause cause = likelyCause(readForeign(text));
  const std::string told = inWindowWords(cause.text) + (cause.cured ? kWindowCure : "");
  std::string lines;
  for (const std::string& line : wrapped(gridTextOfUtf8(told), kWidth)) lines.append(line).append(kCrLf);
  return cause.text.empty() ? "" : lines;
}

void tellErrors(const Session& session, Ports& ports, const std::string& name, const std::string& errors,
                const std::string& text) {
  if (session.settings.ShowErrors != kFalse) {
    ports.output.OutShow(reportRequest(kReadData + kErrorListSuffix,
                                       Cp437Text(errors + likelyCauseLines(text)), ManualTopic::kDataErrors));
  } else {
    tell(ports.dialogs, WindowText(kDataFileErrors + name + "!"));
  }
}

/// The figures and differences drawn so far describe the data before.
void forgetFigures(Session& session) {
  session.figures.GraphText.fill("");
  session.figures.DiffText.clear();
}

/// False when the command ends without the refresh of the display.
bool readDataFile(Session& session, Ports& ports) {
  std::string name;
  if (!pickFileToRead(session, ports, kReadData, kDataKind, name)) return true;
  const std::string text = ports.files.readAll(name);
  DataReading reading = parseLines(text);
  session.ErrFlag = toFlag(!reading.errors.empty());
  if (session.ErrFlag != 0) {
    tellErrors(session, ports, name, reading.errors, text);
    return true;
  }
  if (!acceptCounts(ports.dialogs, reading.declaredCount, reading.data.NumPnt)) return false;
  LoadDataFile(session.loaded, name, std::move(reading.data));
  forgetFigures(session);
  addRecentFile(session, ports.window, kDataKind, name, name);
  ports.window.setMenuEnabled(Control::MenDatSav, true);
  return true;
}

}  // namespace

void MenDatLet(Session& session, Ports& ports) {
  if (readDataFile(session, ports)) Msg(session, ports.window);
}

void compareCounts(Dialogs& dialogs, Int16 declaredCount, Int16 validCount) {
  if (declaredCount != validCount) tell(dialogs, kCountsDiffer);
}

bool acceptCounts(Dialogs& dialogs, Int16 declaredCount, Int16 validCount) {
  compareCounts(dialogs, declaredCount, validCount);
  if (validCount >= kFewestPoints) return true;
  tell(dialogs, kTooFewData);
  return false;
}

void MenDatSav(Session& session, Ports& ports) {
  std::string name;
  saveDataText(session, ports, dataFileText(session.loaded.data), name);
}

bool saveDataText(Session& session, const FilePorts& ports, const std::string& text, std::string& name) {
  if (!pickFileToSave(session, ports, kSaveData, kDataKind, name)) return false;
  ports.files.writeAll(name, text);
  return true;
}

void MenGraLetFil(Session& session, Ports& ports) {
  std::string name;
  if (!pickFileToRead(session, ports, kReadGraphic, kGraphicKind, name)) return;
  session.loaded.GraFile = name;
  session.loaded.GraDefined = kTrue;
  addRecentFile(session, ports.window, kGraphicKind, name, name);
  Msg(session, ports.window);
}

}  // namespace vk
