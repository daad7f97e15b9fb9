#include "session/Msg.h"

#include <initializer_list>
#include <utility>

#include "base/Text.h"
#include "platform/Files.h"
#include "session/FileSelection.h"

namespace vk {
namespace {

using enum Control;

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
  void turnOn(std::initializer_list<Control> controls) { set(controls, true); }
  void set(std::initializer_list<Control> controls, bool enabled) {
    for (const Control control : controls) shown_.enabled[control] = enabled;
  }
  bool hasText(std::size_t figure) const { return !trim(session_.figures.GraphText[figure]).empty(); }
  std::string fileText(Flag known, const std::string& path) const {
    return known != kFalse ? trim(FileBaseName(path)) : kNone;
  }

  void followData() {
    const bool data = session_.loaded.DataDefined != kFalse;
    set({MenDatTra, MenDatSav, MenGraDat, MenGraDatVis}, data);
    set({MenGraDatGra}, hasText(1) && data);
    set({MenDatSim}, (session_.analysis.ParVar & session_.analysis.FunDefined) != kFalse);
  }

  void followFigures() {
    const bool drawable = (session_.analysis.ParametersSet & session_.loaded.DataDefined) != kFalse;
    set({MenGraFun, MenGraFunVis, MenGraDif, MenGraDifVis}, drawable);
    set({MenGraFunGra}, hasText(2) && drawable);
    set({MenGraDifGra}, hasText(3) && drawable);
    set({MenGraDifSav}, !trim(session_.figures.DiffText).empty() && drawable);
  }

  void showFiles() {
    shown_.panels[0] = "Dati: " + fileText(session_.loaded.DataDefined, session_.loaded.DataFile);
    shown_.panels[1] = "Fun.: " + fileText(session_.loaded.FunFileRead, session_.loaded.FunFile);
    if (session_.loaded.FunFileRead != kFalse) turnOn({MenFunCar});
    shown_.panels[2] = "Gra.: " + fileText(session_.loaded.GraDefined, session_.loaded.GraFile);
    if (session_.loaded.GraDefined != kFalse) turnOn({MenGraVisFil, MenGraPriFil});
  }

  /// Comes last: a free parameter turns on what the data turned off.
  void showFunction() {
    const bool function = session_.analysis.FunDefined != kFalse;
    shown_.panels[3] = std::string("Fun.Att.: ") + (function ? "SI" : "NO");
    if (function) turnOn({MenAda, MenAdaPar});
    const bool variable = session_.analysis.ParVar != kFalse;
    shown_.panels[4] = std::string("Par.Var.: ") + (variable ? "SI" : "NO");
    if (variable) turnOn({MenGraFun, MenGraDif, MenAdaAda, MenDatSim});
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
  const auto set = [&](std::initializer_list<Control> controls, Flag enabled) {
    for (const Control control : controls) window.setMenuEnabled(control, enabled != kFalse);
  };
  set({MenFunCar}, session.loaded.FunFileRead);
  set({MenGraVisFil, MenGraPriFil}, session.loaded.GraDefined);
  set({MenSerPro}, session.analysis.FunDefined);
  window.setMenuChecked(MenSerErr, session.settings.ShowErrors != kFalse);
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
