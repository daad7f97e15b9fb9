#pragma once

#include <type_traits>

#include "commands/CommandDispatch.h"
#include "doubles/RecordingReport.h"
#include "doubles/TestPorts.h"
#include "session/Session.h"
#include "ui/Editor.h"
#include "ui/FaultyPorts.h"
#include "ui/MainPanels.h"

namespace vk {

/// The whole program below the toolkit, on ports of which each call can be made to fail; files and dialogs are the
/// test's own.
template <class TheFiles, class TheDialogs>
class FaultyDesktop {
 public:
  void run(Control control) { mainMod.run(control); }

  Faults faults;
  Session session;
  TheFiles files = made(faults.files);
  TheDialogs dialogs{faults.dialogs};
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

 protected:
  FaultyDesktop() {
    panels.setView(view);
    editor.setForm(editorForm);
  }

  /// Fits a line to the data that have been read, and shows the figures.
  void fitAndDraw() {
    run(Control::MenFunSel);
    input.fields = {"1", "1", "1", "1"};
    run(Control::MenAdaPar);
    for (const Control control : {Control::MenGraDatVis, Control::MenGraFunVis, Control::MenGraDifVis})
      run(control);
  }

 private:
  /// Real files have no fault of their own: what fails below them are calls of the system.
  static TheFiles made(PortFault& fault) {
    if constexpr (std::is_constructible_v<TheFiles, PortFault&>) {
      return TheFiles(fault);
    } else {
      return TheFiles();
    }
  }
};

}  // namespace vk
