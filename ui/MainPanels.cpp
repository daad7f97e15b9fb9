#include "ui/MainPanels.h"

#include "session/Session.h"

namespace vk {
namespace {

constexpr const char* kFoldersCaption = "VOR_KEL: Selezione Directory di Lavoro";
constexpr const char* kFiguresCaption = "VOR_KEL: Impostazioni Grafiche";

}  // namespace

MainPanels::MainPanels(Session& session, Files& files, MainWindow& window)
    : directory_(session.files, files),
      graphics_(session.settings, session.figures),
      session_(session),
      window_(window) {}

void MainPanels::open(Panel panel, const WindowText& caption) {
  PanelClosed = kFalse;
  present_ = panel;
  window_.setCaption(caption);
  view_->showPanel(panel);
  using enum Control;
  for (const Control menu : {MenAda, MenDat, MenFun, MenGra, MenSer}) window_.setMenuEnabled(menu, false);
}

void MainPanels::MenSerImpDir() {
  open(Panel::kDirectory, kFoldersCaption);
  directory_.open();
  view_->syncPanel(Panel::kDirectory);
}

void MainPanels::MenSerImpGra() {
  open(Panel::kGraphics, kFiguresCaption);
  graphics_.open();
  view_->syncPanel(Panel::kGraphics);
}

void MainPanels::CmdWrkDir(int index) {
  if (index == 1) directory_.accept();
  close();
}

void MainPanels::CmdImpGra(int index) {
  if (index == 1) {
    graphics_.accept();
  } else {
    graphics_.cancel();
  }
  window_.setBackground(session_.settings.BackImage);
  close();
}

void MainPanels::shut() {
  if (isOpen()) close();
}

void MainPanels::close() {
  view_->hidePanel(present_);
  PanelClosed = kTrue;
  window_.setMenuEnabled(Control::MenAda, session_.analysis.FunDefined != kFalse);
  using enum Control;
  for (const Control menu : {MenDat, MenFun, MenGra, MenSer}) window_.setMenuEnabled(menu, true);
  window_.setCaption(kProgramTitle);
}

}  // namespace vk
