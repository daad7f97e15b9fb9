/// Form Vor_Kel: the main window.
#pragma once

#include <QAction>
#include <QLabel>
#include <QMainWindow>
#include <QMimeData>
#include <QPixmap>
#include <array>
#include <functional>
#include <map>
#include <string>
#include <vector>

#include "commands/CommandTable.h"
#include "platform/FontSpec.h"
#include "platform/MainWindow.h"
#include "ui/MainPanels.h"
#include "ui/qt/forms/DirectoryFrame.h"
#include "ui/qt/forms/GraphicFrame.h"
#include "ui/qt/widgets/EventPump.h"
#include "ui/qt/widgets/NameLabel.h"

namespace vk {

/// The client area of the main window: a background picture under the panels.
class Backdrop : public QWidget {
 public:
  explicit Backdrop(QWidget* parent);
  void setPicture(int picture);
  int picture() const { return picture_; }

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  int picture_ = 0;
  QPixmap painted_;  ///< in the window's size: every turn to another window paints this one again
};

/// The main window: menus from the table of commands, a status bar of five panels, a picture, two panels.
class Vor_Kel : public QMainWindow, public MainWindow, public PanelView {
 public:
  explicit Vor_Kel(EventPump& pump);

  /// Makes the panels' frames. What a control does goes through `run`.
  void buildPanels(const FontSpec& window, const FontSpec& label, MainPanels& panels, const EventRunner& run);
  /// Gives the client area its first size and centres the window on the screen.
  void placeFirst();

  /// Runs the command of a control.
  std::function<void(Control)> command;
  /// The user asks for more than the last fit showed, by F2.
  std::function<void()> diagnosis;
  /// Files were dropped on the window: their full names.
  std::function<void(const std::vector<std::string>&)> openFiles;
  /// The window is being closed: ends the program, or gives false and it stays.
  std::function<bool()> unload;
  /// The user turns to the window while this form holds it shut.
  std::function<void(Form)> turnedToWhileShut;

  void setMenuEnabled(Control control, bool enabled) override;
  void setMenuVisible(Control control, bool visible) override;
  void setMenuChecked(Control control, bool checked) override;
  void setMenuCaption(Control control, const WindowText& caption) override;
  void setPanel(int panel, const WindowText& text) override;
  void setCaption(const WindowText& caption) override;
  void shut(Form holder) override;
  void release(Form holder) override;
  void refresh() override;
  void toFront() override;
  void setBackground(Int16 picture) override { backdrop_->setPicture(picture); }

  void showPanel(Panel panel) override;
  void hidePanel(Panel panel) override;
  void syncPanel(Panel panel) override;

 protected:
  bool event(QEvent* event) override;
  void dragEnterEvent(QDragEnterEvent* event) override;
  void dropEvent(QDropEvent* event) override;
  void closeEvent(QCloseEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  void buildMenus();
  void addMenu(const Command& entry);
  void addEntry(const Command& entry);
  void buildStatusBar();
  void explainShortened(QMenu* menu);
  void keepButtonsReachable();
  QFrame* frame(Panel panel) const;
  void placePanel(QFrame* frame);
  void followHolders();
  bool isOpenFor(const QMimeData& dropped) const;
  void applyMenuStates();

  EventPump& pump_;
  Backdrop* backdrop_;
  std::map<Control, QAction*> actions_;  ///< of a menu, its own entry
  std::map<Control, bool> menuEnabled_;  ///< as commands want it
  std::vector<Form> holders_;            ///< who holds the window shut
  std::array<NameLabel*, 5> panels_{};
  FraDir* FraDir_ = nullptr;
  FraGra* FraGra_ = nullptr;
};

}  // namespace vk
