#pragma once

#include "commands/CommandDispatch.h"
#include "commands/CommandTable.h"
#include "doubles/ControlNames.h"
#include "doubles/Doubles.h"
#include "doubles/MemoryFiles.h"
#include "doubles/RecordingEditorForm.h"
#include "doubles/RecordingPlots.h"
#include "doubles/RecordingReport.h"
#include "doubles/ScriptedDialogs.h"
#include "doubles/ScriptedForms.h"
#include "doubles/TestPorts.h"
#include "session/Session.h"
#include "ui/Editor.h"
#include "ui/MainPanels.h"

namespace vk {

/// Panels of the main window without a window.
class RecordingPanelView : public PanelView {
 public:
  std::vector<std::string> calls;
  void showPanel(Panel panel) override { note("show", panel); }
  void hidePanel(Panel panel) override { note("hide", panel); }
  void syncPanel(Panel panel) override {
    if (failure != 0) throw RuntimeError(failure);
    note("sync", panel);
  }
  int failure = 0;  ///< run-time error that the showing of a panel's content raises

 private:
  void note(const char* what, Panel panel) {
    calls.push_back(std::string(what) + (panel == Panel::kDirectory ? " FraDir" : " FraGra"));
  }
};

class MainModTest : public testing::Test {
 protected:
  MainModTest() {
    panels.setView(view);
    editor.setForm(editorForm);
  }
  void start() {
    dialogs.press(1);
    mainMod.StartUp([this] { atShowing(); });
    dialogs.messages.clear();
    sound.tones.clear();
  }
  void readData() {
    files.content["/dati/a.dat"] = "x\r\ny\r\n3\r\n0 1 .1\r\n1 3 .1\r\n2 5.1 .1\r\n";
    dialogs.pick("/dati/a.dat");
    mainMod.run(Control::MenDatLet);
  }
  void chooseLine() {
    functions.select(2, 1);
    mainMod.run(Control::MenFunSel);
  }
  bool on(Control control) { return window.menuEnabled.at(control); }
  void expectBox(const std::string& title, const std::string& text) {
    ASSERT_EQ(dialogs.boxes.size(), 1u);
    EXPECT_EQ(dialogs.boxes[0], (ScriptedDialogs::Box{title, text}));
    dialogs.boxes.clear();
  }

  Session session;
  MemoryFiles files;
  ScriptedDialogs dialogs;
  RecordingMainWindow window;
  ScriptedInputForm input;
  RecordingOutput output;
  ScriptedFunctionForms functions{session};
  UnexpectedForms forms;
  StillClock clock;
  RecordingSound sound;
  RecordingProcess process;
  CyclingRandom random{{0.5F, 0.75F, 0.25F, 0.875F, 0.375F}};
  RecordingPanelView view;
  MainPanels panels{session, files, window};
  RecordingClipboard clipboard;
  RecordingPrinter printer;
  RecordingEditorForm editorForm;
  Editor editor{session, {files, dialogs, window, output, clipboard, printer, sound}};
  RecordingPlotWindows plots;
  RecordingReport report;
  RecorderDevice figurePrinter{PrinterMetrics{}};
  std::function<void()> atShowing = [] {};
  MainMod mainMod{session,
                  {files, dialogs, window, input, output, functions, forms, clock, sound, process, random,
                   editor, panels, plots, report, [this]() -> Device& { return figurePrinter; }}};
};

}  // namespace vk
