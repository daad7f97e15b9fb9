/// Form FraDir: the working directory panel of the main window.
#pragma once

#include <QComboBox>
#include <QFrame>
#include <QListWidget>
#include <QPushButton>
#include <array>
#include <functional>

#include "ui/DirectoryPanel.h"
#include "ui/qt/forms/Windows.h"
#include "ui/qt/widgets/ClickLabel.h"

namespace vk {

/// The folder list `Dir1`: the folders from the root down to the present one, and those inside it. A click
/// enters a folder; the second click of a double one must not enter another.
class FolderList : public QListWidget {
 public:
  explicit FolderList(QWidget* parent);
  void showFolder(const std::string& folder, const std::vector<std::string>& inside);
  std::function<void(const std::string&)> entered;

 protected:
  void mouseDoubleClickEvent(QMouseEvent*) override {}
  void keyPressEvent(QKeyEvent* event) override;

 private:
  void addFolder(const QString& name, const std::string& path, int depth);
  void enter(const QListWidgetItem* item);
};

/// The working directory panel of the main window.
class FraDir : public QFrame {
 public:
  /// `button` gets the index of the pressed button.
  FraDir(QWidget* parent, DirectoryPanel& panel, const QFont& font, EventRunner run,
         std::function<void(int)> button);

  /// Shows what stands in the engine.
  void sync();

 private:
  void buildRows(const QFont& font);
  void buildButtons(std::function<void(int)> button);
  void arrange();
  void syncDrives();
  void handle(const std::function<void()>& change);

  DirectoryPanel& panel_;
  EventRunner run_;
  QComboBox* Drive1_;
  FolderList* Dir1_;
  std::array<ClickLabel*, 4> LblWrkDir_{};
  std::array<QPushButton*, 2> CmdWrkDir_{};
  bool syncing_ = false;
};

}  // namespace vk
