#include "commands/DisplayRefresh.h"

#include "base/Text.h"
#include "commands/CommandTable.h"
#include "commands/FilePicking.h"
#include "platform/Files.h"
#include "session/Session.h"

namespace vk {
namespace {

constexpr const char* kPanelTitles[] = {"Dati: ", "Fun.: ", "Gra.: ", "Fun.Att.: ", "Par.Var.: "};
constexpr const char* kYes = "SI";
constexpr const char* kNo = "NO";

WindowText fileText(Flag known, const std::string& path) {
  return known != kFalse ? WindowText(trim(FileBaseName(path))) : kNoFile;
}

WindowText yesOrNo(Flag flag) {
  return flag != kFalse ? WindowText(kYes) : kNo;
}

}  // namespace

SessionDisplay sessionDisplay(const Session& session) {
  SessionDisplay shown;
  for (const Command& command : commandTable()) {
    if (command.rule.refreshed == Refreshed::kNever) continue;
    const bool on = command.rule.holds(session);
    if (on || command.rule.refreshed == Refreshed::kBoth) shown.enabled[command.control] = on;
  }
  const LoadedFiles& loaded = session.loaded;
  shown.panels = {kPanelTitles[0] + fileText(loaded.DataDefined, loaded.DataFile),
                  kPanelTitles[1] + fileText(loaded.FunFileRead, loaded.FunFile),
                  kPanelTitles[2] + fileText(loaded.GraDefined, loaded.GraFile),
                  kPanelTitles[3] + yesOrNo(session.analysis.FunDefined),
                  kPanelTitles[4] + yesOrNo(session.analysis.ParVar)};
  return shown;
}

void Msg(const Session& session, MainWindow& window) {
  const SessionDisplay display = sessionDisplay(session);
  for (const auto& [control, enabled] : display.enabled) window.setMenuEnabled(control, enabled);
  int panel = 0;
  for (const WindowText& text : display.panels) window.setPanel(++panel, text);
}

void showSession(const Session& session, MainWindow& window) {
  for (const Command& command : commandTable()) {
    if (command.rule.anew) window.setMenuEnabled(command.control, command.rule.holds(session));
  }
  window.setMenuChecked(Control::MenSerErr, session.settings.ShowErrors != kFalse);
  for (const int kind : {kDataKind, kFunctionKind, kGraphicKind}) {
    const RecentList& list = recentList(session, kind);
    for (int entry = list.RecentCount; entry < list.RecentMax; ++entry) {
      window.setMenuVisible(recentControl(kind, entry), false);
    }
    showRecentFiles(session, window, kind);
  }
  Msg(session, window);
}

std::string FileBaseName(const std::string& path) {
  return GetFileName(path);
}

}  // namespace vk
