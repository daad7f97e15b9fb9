#pragma once

#include <QWidget>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "commands/CommandDispatch.h"
#include "expr/Compiler.h"
#include "platform/system/SystemClock.h"
#include "platform/system/SystemFiles.h"
#include "platform/system/SystemRandom.h"
#include "session/Session.h"
#include "ui/Editor.h"
#include "ui/InputEngine.h"
#include "ui/MainPanels.h"
#include "ui/qt/forms/EditorForm.h"
#include "ui/qt/forms/ImportWindow.h"
#include "ui/qt/forms/InputForm.h"
#include "ui/qt/forms/MainForm.h"
#include "ui/qt/forms/MessageForm.h"
#include "ui/qt/forms/Windows.h"
#include "ui/qt/ports/QtClipboard.h"
#include "ui/qt/ports/QtDialogs.h"
#include "ui/qt/ports/QtFunctionForms.h"
#include "ui/qt/ports/QtOutput.h"
#include "ui/qt/ports/QtPaper.h"
#include "ui/qt/ports/QtPlotWindow.h"
#include "ui/qt/ports/QtPrinter.h"
#include "ui/qt/ports/QtReportWindow.h"
#include "ui/qt/widgets/DesktopServices.h"
#include "ui/qt/widgets/EventPump.h"
#include "ui/qt/widgets/HelpKey.h"

namespace vk {

/// The desktop program: one session, its forms, and the wires between them.
class Application {
 public:
  /// `files` is the disk, `process` starts other programs; `quit` ends the event loop with an exit code.
  /// While `hasPrinter` says no, all that is printed goes to PDF files.
  Application(Files& files, Process& process, std::function<void(int)> quit,
              std::function<bool()> hasPrinter = systemHasPrinter);

  /// Shows the main window and the welcome; the program is ready afterwards.
  void StartUp();
  /// Reads files in turn, up to the first that is not read.
  void open(const std::vector<std::string>& names);
  /// Work begins that is known to take long.
  void showWaitCursor() { pump_.showWaitCursor(); }
  /// Unloads every form, in the order in which they were made, and ends the program.
  void unload();

  Session& session() { return session_; }
  MainMod& mainMod() { return mainMod_; }
  Vor_Kel& window() { return window_; }
  FrmOut& output() { return output_.form(); }
  QtPrinter& printer() { return printer_; }
  /// The forms beside the main window, in the order of their making.
  const std::vector<QWidget*>& forms() const { return forms_; }

 private:
  EventRunner runner();
  Device& figurePrinter();
  void showMainWindow();

  Session session_;
  const DesktopSettings& settings_ = session_.settings;
  Files& files_;
  std::function<void(int)> quit_;
  EventPump pump_;
  Windows windows_;
  SystemClock clock_;
  QtSound sound_;
  SystemRandom random_;
  QtClipboard clipboard_{settings_.FontEdit};
  QtDialogs dialogs_{windows_, message_};
  QtPrinter printer_;
  SelectFunction select_{session_};
  LoadFunction load_{session_.loaded.catalogue.file};
  InpMod input_{dialogs_, sound_, [](const std::string& definition) { return compile(definition).ok; }};

  // The forms, in the order of their making.
  Vor_Kel window_{pump_};
  Sel_Fun selectForm_{select_, windows_, settings_.FontLabel};
  Loa_Fun loadForm_{load_, windows_, settings_.FontLabel};
  QtOutput output_{{settings_.FontEdit, settings_.FontLabel, windows_, printer_, clipboard_, runner()},
                   pump_};
  InpFrm inputForm_{input_, windows_, window_};
  Editor editor_{session_, {files_, dialogs_, window_, output_, clipboard_, printer_, sound_}};
  FrmEdi editForm_{editor_, {settings_.FontEdit, settings_.FontLabel, windows_, sound_, runner()}};
  FrmImp importForm_{windows_, settings_.FontLabel};
  FrmMsg message_{windows_, settings_.FontLabel};
  std::vector<QWidget*> forms_;
  QtGraphics graphics_;
  QtPaper paper_{printer_};
  std::optional<PrinterDevice> figurePrinter_;  ///< none before the first figure
  QtPlotWindows plots_{graphics_, pump_, runner()};

  QtReportWindow report_{{settings_.FontEdit, settings_.FontLabel, windows_, graphics_, printer_,
                          [this]() -> Device& { return figurePrinter(); }, runner()}};

  QtFunctionForms functions_{selectForm_, loadForm_};
  MainPanels panels_{session_, files_, window_};
  MainMod mainMod_;
  HelpKey helpKey_{[this](ManualTopic topic) { mainMod_.help(topic); }};
};

}  // namespace vk
