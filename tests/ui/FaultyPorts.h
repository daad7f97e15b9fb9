#pragma once

#include <new>

#include "base/RuntimeError.h"
#include "doubles/Doubles.h"
#include "doubles/MemoryFiles.h"
#include "doubles/RecordingEditorForm.h"
#include "doubles/TextComparison.h"
#include "gral/PlotWindows.h"
#include "gral/sinks/RecorderDevice.h"
#include "platform/FunctionForms.h"
#include "platform/InputForm.h"
#include "session/Session.h"
#include "ui/MainPanels.h"
#include "ui/OutputModel.h"

/// Doubles of all ports that answer every question and of which one call can be made to fail.
namespace vk {

/// Counts the calls of one port; the one with the armed number fails, once.
class PortFault {
 public:
  /// `call` from 1; the error 7 comes as the exception of exhausted memory.
  void arm(int call, int error) { left_ = call, error_ = error, fired_ = false; }
  bool fired() const { return fired_; }
  void pass() {
    if (left_ == 0 || --left_ > 0) return;
    fired_ = true;
    if (error_ == kOutOfMemory) throw std::bad_alloc();
    throw RuntimeError(error_);
  }

 private:
  int left_ = 0, error_ = 0;
  bool fired_ = false;
};

/// The faults, by port.
struct Faults {
  PortFault files, dialogs, window, input, output, functions, clock, sound, process, random, plots, printer,
      editor, panels, clipboard, textPrinter;

  std::vector<std::pair<const char*, PortFault*>> all() {
    return {{"files", &files},         {"dialogs", &dialogs},
            {"window", &window},       {"input", &input},
            {"output", &output},       {"functions", &functions},
            {"clock", &clock},         {"sound", &sound},
            {"process", &process},     {"random", &random},
            {"plots", &plots},         {"printer", &printer},
            {"editor", &editor},       {"panels", &panels},
            {"clipboard", &clipboard}, {"textPrinter", &textPrinter}};
  }
};

class FaultyFiles : public MemoryFiles {
 public:
  explicit FaultyFiles(PortFault& fault) : fault_(fault) {}
  bool FileExists(const std::string& path) override { return fault_.pass(), MemoryFiles::FileExists(path); }
  std::int64_t size(const std::string& path) override { return fault_.pass(), MemoryFiles::size(path); }
  std::string readAll(const std::string& path) override { return fault_.pass(), MemoryFiles::readAll(path); }
  void writeAll(const std::string& path, std::string_view bytes) override {
    fault_.pass(), MemoryFiles::writeAll(path, bytes);
  }
  bool canWrite(const std::string& path) override { return fault_.pass(), MemoryFiles::canWrite(path); }
  std::string programFolder() override { return fault_.pass(), MemoryFiles::programFolder(); }
  std::string documentsFolder() override { return fault_.pass(), MemoryFiles::documentsFolder(); }
  std::string currentFolder() override { return fault_.pass(), MemoryFiles::currentFolder(); }
  bool isWritableFolder(const std::string& folder) override {
    return fault_.pass(), MemoryFiles::isWritableFolder(folder);
  }
  std::vector<std::string> drives() override { return fault_.pass(), MemoryFiles::drives(); }
  std::vector<std::string> subfolders(const std::string& folder) override {
    return fault_.pass(), MemoryFiles::subfolders(folder);
  }

 private:
  PortFault& fault_;
};

/// A user who always names the same file and presses the same button.
class FaultyDialogs : public Dialogs {
 public:
  explicit FaultyDialogs(PortFault& fault) : fault_(fault) {}
  std::string file;
  int button = 1;
  std::vector<std::string> boxes;

  int Get_Msg(const MessageRequest&) override { return fault_.pass(), button; }
  void plainBox(const WindowText&, const WindowText& text) override {
    fault_.pass(), boxes.emplace_back(text.bytes());
  }
  std::optional<std::string> fileDialog(const FileRequest&) override { return fault_.pass(), file; }

 private:
  PortFault& fault_;
};

class FaultyWindow : public RecordingMainWindow {
 public:
  explicit FaultyWindow(PortFault& fault) : fault_(fault) {}
  void setMenuEnabled(Control control, bool on) override {
    fault_.pass(), RecordingMainWindow::setMenuEnabled(control, on);
  }
  void setMenuVisible(Control control, bool on) override {
    fault_.pass(), RecordingMainWindow::setMenuVisible(control, on);
  }
  void setMenuChecked(Control control, bool on) override {
    fault_.pass(), RecordingMainWindow::setMenuChecked(control, on);
  }
  void setMenuCaption(Control control, const WindowText& text) override {
    fault_.pass(), RecordingMainWindow::setMenuCaption(control, text);
  }
  void setPanel(int panel, const WindowText& text) override {
    fault_.pass(), RecordingMainWindow::setPanel(panel, text);
  }
  void setCaption(const WindowText& text) override { fault_.pass(), RecordingMainWindow::setCaption(text); }
  void refresh() override { fault_.pass(); }
  void toFront() override { fault_.pass(); }
  void setBackground(Int16 picture) override { fault_.pass(), RecordingMainWindow::setBackground(picture); }

 private:
  PortFault& fault_;
};

/// A user who leaves the fields of every form as they are, except those told beforehand, and presses "&Esegui".
class FaultyInput : public InputForm {
 public:
  explicit FaultyInput(PortFault& fault) : fault_(fault) {}
  std::vector<std::string> fields;

  bool InpShow(InputTables& tables, Form) override {
    fault_.pass();
    int i = 0;
    for (const std::string& field : fields) tables.InpValues[++i] = Cp437Text(field);
    return true;
  }

 private:
  PortFault& fault_;
};

class FaultyOutput : public OutputModel {
 public:
  explicit FaultyOutput(PortFault& fault) : fault_(fault) {}
  void OutShow(const OutputRequest& request) override { OutputModel::OutShow(request), fault_.pass(); }
  void CharLocate(int row, int col) override { fault_.pass(), OutputModel::CharLocate(row, col); }
  void print(const Cp437Text& text) override { fault_.pass(), OutputModel::print(text); }
  void CharFrame(int row1, int col1, int row2, int col2, int style, const Cp437Text& title) override {
    fault_.pass(), OutputModel::CharFrame(row1, col1, row2, col2, style, title);
  }
  void refresh() override { fault_.pass(); }
  void setSaveRoutine(std::function<void()> routine) override {
    fault_.pass(), OutputModel::setSaveRoutine(std::move(routine));
  }
  void setDetail(OutputDetail detail) override { fault_.pass(), OutputModel::setDetail(std::move(detail)); }

 private:
  PortFault& fault_;
};

/// A user who chooses the line b*x+c, and the first function of the file.
class FaultyForms : public FunctionForms {
 public:
  FaultyForms(PortFault& fault, Session& session) : fault_(fault), session_(session) {}
  int outer = 1;

  bool selectFunction() override {
    fault_.pass();
    session_.analysis.fun.InnerIndex = 2;
    session_.analysis.fun.OuterIndex = outer;
    return true;
  }
  int chooseLoadedFunction() override { return fault_.pass(), 1; }
  void refillSelection() override { fault_.pass(); }
  void refillLoadList() override { fault_.pass(); }

 private:
  PortFault& fault_;
  Session& session_;
};

class FaultyClock : public Clock {
 public:
  explicit FaultyClock(PortFault& fault) : fault_(fault) {}
  float timer() override { return fault_.pass(), 0.0F; }

 private:
  PortFault& fault_;
};

class FaultySound : public Sound {
 public:
  explicit FaultySound(PortFault& fault) : fault_(fault) {}
  void tone(int, int) override { fault_.pass(); }
  void beep() override { fault_.pass(); }

 private:
  PortFault& fault_;
};

class FaultyProcess : public Process {
 public:
  explicit FaultyProcess(PortFault& fault) : fault_(fault) {}
  bool start(const std::string&) override { return fault_.pass(), true; }
  bool show(const std::string&, const std::string&) override { return fault_.pass(), true; }

 private:
  PortFault& fault_;
};

class FaultyRandom : public CyclingRandom {
 public:
  explicit FaultyRandom(PortFault& fault)
      : CyclingRandom({0.5F, 0.75F, 0.25F, 0.875F, 0.375F}), fault_(fault) {}
  float next() override { return fault_.pass(), CyclingRandom::next(); }
  void seed(float number) override { fault_.pass(), CyclingRandom::seed(number); }

 private:
  PortFault& fault_;
};

/// A window or a printer of which any drawing operation can fail.
class FaultyDevice : public RecorderDevice {
 public:
  template <class Metrics>
  FaultyDevice(PortFault& fault, const Metrics& metrics) : RecorderDevice(metrics), fault_(fault) {}

 private:
  void line(const TwipPoint& a, const TwipPoint& b) override { fault_.pass(), RecorderDevice::line(a, b); }
  double advance(bool symbol, unsigned char code) override {
    return fault_.pass(), RecorderDevice::advance(symbol, code);
  }
  double lineHeight(bool symbol) override { return fault_.pass(), RecorderDevice::lineHeight(symbol); }
  void polyline(std::span<const PixelPoint> points) override {
    fault_.pass(), RecorderDevice::polyline(points);
  }
  void text(const TextRun& run) override { fault_.pass(), RecorderDevice::text(run); }
  void clip(const PixelRect* region) override { fault_.pass(), RecorderDevice::clip(region); }
  void formChanged() override { fault_.pass(); }
  void turned(Int16) override { fault_.pass(); }
  void endDocument() override { fault_.pass(), RecorderDevice::endDocument(); }

  PortFault& fault_;
};

class FaultyPlots : public PlotWindows {
 public:
  explicit FaultyPlots(PortFault& fault) : fault_(fault) {}
  PlotWindow& create() override {
    fault_.pass();
    windows_.push_back(std::make_unique<Window>(fault_));
    return *windows_.back();
  }
  PlotWindow* active() override { return fault_.pass(), windows_.empty() ? nullptr : windows_.back().get(); }
  int made() const override { return static_cast<int>(windows_.size()); }
  void closeSince(int made) override { windows_.resize(static_cast<std::size_t>(made)); }
  void closeAll() override { windows_.clear(); }

 private:
  class Window : public PlotWindow {
   public:
    explicit Window(PortFault& fault) : fault_(fault), form_(fault, FormMetrics{}) {}
    Device& device() override { return form_; }
    void setClickRoutine(std::function<void()>) override { fault_.pass(); }
    void copyPicture() override { fault_.pass(); }

   private:
    PortFault& fault_;
    FaultyDevice form_;
  };

  PortFault& fault_;
  std::vector<std::unique_ptr<Window>> windows_;
};

class FaultyEditorForm : public RecordingEditorForm {
 public:
  explicit FaultyEditorForm(PortFault& fault) : fault_(fault) {}
  void showEditor(const WindowText& title, const PlainText& shown, EditControl which) override {
    RecordingEditorForm::showEditor(title, shown, which), fault_.pass();
  }
  void focusEditor() override { fault_.pass(); }
  PlainText editorText() override { return fault_.pass(), RecordingEditorForm::editorText(); }

 private:
  PortFault& fault_;
};

class FaultyPanelView : public PanelView {
 public:
  explicit FaultyPanelView(PortFault& fault) : fault_(fault) {}
  void showPanel(Panel) override { fault_.pass(); }
  void hidePanel(Panel) override { fault_.pass(); }
  void syncPanel(Panel) override { fault_.pass(); }

 private:
  PortFault& fault_;
};

class FaultyClipboard : public RecordingClipboard {
 public:
  explicit FaultyClipboard(PortFault& fault) : fault_(fault) {}
  void clear() override { fault_.pass(), RecordingClipboard::clear(); }
  void setText(const PlainText& text) override { fault_.pass(), RecordingClipboard::setText(text); }
  void setGrid(const CharGrid& shown) override { fault_.pass(), RecordingClipboard::setGrid(shown); }
  ClipboardText text() override { return fault_.pass(), RecordingClipboard::text(); }

 private:
  PortFault& fault_;
};

/// The printer of texts and character screens.
class FaultyTextPrinter : public RecordingPrinter {
 public:
  explicit FaultyTextPrinter(PortFault& fault) : fault_(fault) {}
  bool present() override { return fault_.pass(), RecordingPrinter::present(); }
  Int16 Orientation() override { return fault_.pass(), RecordingPrinter::Orientation(); }
  void setOrientation(Int16 wanted) override { fault_.pass(), RecordingPrinter::setOrientation(wanted); }
  Twips Width() override { return fault_.pass(), RecordingPrinter::Width(); }
  Twips Height() override { return fault_.pass(), RecordingPrinter::Height(); }
  void printText(const PlainText& printed, const std::string& fontFace, double size) override {
    fault_.pass(), RecordingPrinter::printText(printed, fontFace, size);
  }
  void printGrid(const CharGrid& printed, const GridPlace& where) override {
    fault_.pass(), RecordingPrinter::printGrid(printed, where);
  }
  void EndDoc() override { fault_.pass(), RecordingPrinter::EndDoc(); }

 private:
  PortFault& fault_;
};

}  // namespace vk
