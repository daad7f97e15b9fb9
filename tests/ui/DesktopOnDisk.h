#pragma once

#include "commands/CommandDispatch.h"
#include "doubles/RecordingReport.h"
#include "doubles/TemporaryFolder.h"
#include "doubles/TestPorts.h"
#include "platform/system/SystemFiles.h"
#include "session/Session.h"
#include "ui/Editor.h"
#include "ui/FaultyPorts.h"

namespace vk {

/// A user who answers every question in the same way, and keeps what he was told.
class ToldDialogs : public FaultyDialogs {
 public:
  using FaultyDialogs::FaultyDialogs;
  int Get_Msg(const MessageRequest& request) override {
    boxes.emplace_back(request.text.bytes());
    return button;
  }
};

/// The program below the toolkit, with data, a function and its figures, on a folder in memory.
class DesktopOnDisk {
 public:
  DesktopOnDisk();

  void run(Control control) { mainMod.run(control); }

  TemporaryFolder folder{folderInMemory()};
  Faults faults;  // nothing but the disk fails
  Session session;
  SystemFiles files;
  ToldDialogs dialogs{faults.dialogs};
  FaultyWindow window{faults.window};
  FaultyInput input{faults.input};
  FaultyOutput output{faults.output};
  FaultyForms functions{faults.functions, session};
  UnexpectedForms forms;
  FaultyClock clock{faults.clock};
  FaultySound sound{faults.sound};
  FaultyProcess process{faults.process};
  FaultyRandom random{faults.random};
  FaultyPanelView view{faults.panels};
  MainPanels panels{session, files, window};
  FaultyClipboard clipboard{faults.clipboard};
  FaultyTextPrinter textPrinter{faults.textPrinter};
  FaultyEditorForm editorForm{faults.editor};
  Editor editor{session, {files, dialogs, window, output, clipboard, textPrinter, sound}};
  FaultyPlots plots{faults.plots};
  RecordingReport report;
  FaultyDevice printer{faults.printer, PrinterMetrics{}};
  MainMod mainMod{session,
                  {files, dialogs, window, input, output, functions, forms, clock, sound, process, random,
                   editor, panels, plots, report, [this]() -> Device& { return printer; }}};
};

inline DesktopOnDisk::DesktopOnDisk() {
  panels.setView(view);
  editor.setForm(editorForm);
  mainMod.StartUp([] {});
  session.files.DataDir = session.files.FunDir = session.files.GraDir = folder.path();
  dialogs.file = folder.make("A.DAT", "x\r\ny\r\n3\r\n0 1 .1\r\n1 3 .1\r\n2 5.1 .1\r\n");
  run(Control::MenDatLet);
  run(Control::MenFunSel);
  input.fields = {"1", "1", "1", "1"};
  run(Control::MenAdaPar);
  for (const Control control : {Control::MenGraDatVis, Control::MenGraFunVis, Control::MenGraDifVis})
    run(control);
}

}  // namespace vk
