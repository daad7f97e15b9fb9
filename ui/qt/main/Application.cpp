#include "ui/qt/main/Application.h"

#include <QApplication>
#include <filesystem>

#include "ui/PdfProposal.h"
#include "ui/qt/main/Run.h"
#include "ui/qt/widgets/ToolkitSetup.h"

namespace vk {

Application::Application(Files& files, Process& process, std::function<void(int)> quit,
                         std::function<bool()> hasPrinter)
    : files_(files),
      quit_(std::move(quit)),
      printer_(files_, dialogs_, std::move(hasPrinter)),
      forms_{&selectForm_, &loadForm_, &output_.form(), &inputForm_, &editForm_, &importForm_, &message_},
      mainMod_(session_, {files_, dialogs_, window_, inputForm_, output_, functions_, importForm_, clock_,
                          sound_, process, random_, editor_, panels_, plots_, report_,
                          [this]() -> Device& { return figurePrinter(); }}) {
  windows_.add(Form::kMain, &window_);
  windows_.add(Form::kInput, &inputForm_);
  windows_.add(Form::kOutput, &output_.form());
  windows_.add(Form::kEditor, &editForm_);
  windows_.add(Form::kSelect, &selectForm_);
  windows_.add(Form::kLoad, &loadForm_);
  windows_.setActivePlot([this] { return plots_.activeWindow(); });
  printer_.setProposal([this] { return pdfProposal(session_.loaded, session_.files.DataDir); });
  window_.buildPanels(settings_.FontEdit, settings_.FontLabel, panels_, runner());
  panels_.setView(window_);
  editor_.setForm(editForm_);
  window_.command = [this](Control control) { mainMod_.run(control); };
  window_.openFiles = [this](const std::vector<std::string>& names) { open(names); };
  window_.diagnosis = [this] { mainMod_.diagnose(); };
  window_.unload = [this] {
    // A figure that is being drawn needs its window to the end of its command.
    if (mainMod_.isRunning()) return false;
    unload();
    return true;
  };
  window_.turnedToWhileShut = [this](Form holder) { windows_.toFront(holder); };
}

EventRunner Application::runner() {
  return [this](const std::function<void()>& handler) { mainMod_.guarded(handler); };
}

Device& Application::figurePrinter() {
  if (!figurePrinter_) figurePrinter_.emplace(paper_, graphics_.letters());
  return *figurePrinter_;
}

void Application::StartUp() {
  mainMod_.StartUp([this] { showMainWindow(); });
}

void Application::open(const std::vector<std::string>& names) {
  for (const std::string& name : names) {
    if (!mainMod_.open(std::filesystem::absolute(name).lexically_normal().string())) return;
  }
}

void Application::showMainWindow() {
  window_.placeFirst();
  window_.show();
  // The welcome is placed by the window's place and frame, which the window system decides. What the user does
  // meanwhile waits until the welcome has shut the window.
  pump_.awaitShowing(window_);
}

void Application::unload() {
  for (QWidget* form : forms_) form->hide();
  output_.hideAll();
  plots_.closeAll();
  report_.close();
  quit_(0);
}

int runDesktop(int argc, char** argv) {
  QApplication toolkit(argc, argv);
  setUpToolkit(toolkit);
  SystemFiles files;
  QtProcess process;
  bool ended = false;
  int exitCode = 0;
  Application application(files, process, [&](int code) {
    ended = true;
    exitCode = code;
    QCoreApplication::exit(code);
  });
  files.onLongRead = [&] { application.showWaitCursor(); };
  application.StartUp();
  // What begins with "-" is meant for programs that have options.
  std::vector<std::string> names(argv + 1, argv + argc);
  std::erase_if(names, [](const std::string& name) { return name.starts_with('-'); });
  if (!ended) application.open(names);
  return ended ? exitCode : QCoreApplication::exec();
}

}  // namespace vk
