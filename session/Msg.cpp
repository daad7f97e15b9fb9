#include "session/Msg.h"

#include <initializer_list>
#include <utility>

#include "base/Text.h"
#include "platform/Files.h"
#include "session/FileSelection.h"

namespace vk {
namespace {

constexpr const char* kNone = "Nessuno";

class Display {
 public:
  explicit Display(const Session& session) : session_(session) {}

  SessionDisplay build() {
    followData();
    followFigures();
    showFiles();
    showFunction();
    return std::move(shown_);
  }

 private:
  void turnOn(std::initializer_list<const char*> controls) { set(controls, true); }
  void set(std::initializer_list<const char*> controls, bool enabled) {
    for (const char* control : controls) shown_.enabled[control] = enabled;
  }
  bool hasText(std::size_t figure) const { return !trim(session_.GraphText[figure]).empty(); }
  std::string fileText(Flag known, const std::string& path) const {
    return known != kFalse ? trim(FileBaseName(path)) : kNone;
  }

  void followData() {
    const bool data = session_.DataDefined != kFalse;
    set({"MenDatTra", "MenDatSav", "MenGraDat", "MenGraDatVis"}, data);
    set({"MenGraDatGra"}, hasText(1) && data);
    set({"MenDatSim"}, (session_.ParVar & session_.FunDefined) != kFalse);
  }

  void followFigures() {
    const bool drawable = (session_.ParametersSet & session_.DataDefined) != kFalse;
    set({"MenGraFun", "MenGraFunVis", "MenGraDif", "MenGraDifVis"}, drawable);
    set({"MenGraFunGra"}, hasText(2) && drawable);
    set({"MenGraDifGra"}, hasText(3) && drawable);
    set({"MenGraDifSav"}, !trim(session_.DiffText).empty() && drawable);
  }

  void showFiles() {
    shown_.panels[0] = "Dati: " + fileText(session_.DataDefined, session_.DataFile);
    shown_.panels[1] = "Fun.: " + fileText(session_.FunFileRead, session_.FunFile);
    if (session_.FunFileRead != kFalse) turnOn({"MenFunCar"});
    shown_.panels[2] = "Gra.: " + fileText(session_.GraDefined, session_.GraFile);
    if (session_.GraDefined != kFalse) turnOn({"MenGraVisFil", "MenGraPriFil"});
  }

  /// Comes last: a free parameter turns on what the data turned off.
  void showFunction() {
    const bool function = session_.FunDefined != kFalse;
    shown_.panels[3] = std::string("Fun.Att.: ") + (function ? "SI" : "NO");
    if (function) turnOn({"MenAda", "MenAdaPar"});
    const bool variable = session_.ParVar != kFalse;
    shown_.panels[4] = std::string("Par.Var.: ") + (variable ? "SI" : "NO");
    if (variable) turnOn({"MenGraFun", "MenGraDif", "MenAdaAda", "MenDatSim"});
  }

  const Session& session_;
  SessionDisplay shown_;
};

}  // namespace

SessionDisplay sessionDisplay(const Session& session) {
  return Display(session).build();
}

void Msg(const Session& session, MainWindow& window) {
  const SessionDisplay display = sessionDisplay(session);
  for (const auto& [control, enabled] : display.enabled) window.setMenuEnabled(control, enabled);
  int panel = 0;
  for (const std::string& text : display.panels) window.setPanel(++panel, text);
}

void showSession(const Session& session, MainWindow& window) {
  const auto set = [&](std::initializer_list<const char*> controls, Flag enabled) {
    for (const char* control : controls) window.setMenuEnabled(control, enabled != kFalse);
  };
  set({"MenFunCar"}, session.FunFileRead);
  set({"MenGraVisFil", "MenGraPriFil"}, session.GraDefined);
  set({"MenSerPro"}, session.FunDefined);
  window.setMenuChecked("MenSerErr", session.ShowErrors != kFalse);
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
