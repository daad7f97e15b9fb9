#pragma once

#include <string>
#include <vector>

#include "base/Int16.h"
#include "platform/Files.h"
#include "session/FileSettings.h"

namespace vk {

/// The working directory panel `FraDir` without its widgets: four rows of folders, a drive list and a folder
/// list that follow the selected row: the volume of its folder, the way to it and what is inside. Row 0 is the
/// folder for all files, rows 1 to 3 those for the kinds.
class DirectoryPanel {
 public:
  DirectoryPanel(FileSettings& settings, Files& files) : settings_(settings), files_(files) {}

  /// The panel opens: row 0 is selected.
  void open() { clickRow(-1); }

  /// A click on `LblWrkDir(row)`; -1 selects row 0 as if none had been selected before.
  void clickRow(int row);

  /// The user enters a folder in `Dir1`. One that cannot be read changes nothing.
  void enterFolder(const std::string& folder);

  /// The same by entry `index` of the drive list.
  void selectDrive(int index);

  /// "&Esegui": the session's three folders take rows 1 to 3.
  void accept();

  /// Caption of a label: its title, a line end, a blank and the folder.
  const std::string& caption(int row) const { return captions_[static_cast<std::size_t>(row)]; }
  /// Row of the label in the highlight colours.
  int highlighted() const { return highlighted_; }

  /// Where the user can start from: the volumes, and behind them the folder of the examples where there is one.
  const std::vector<std::string>& drives() const { return drives_; }
  /// What entry `index` of the drive list is called: its path, or "Esempi".
  const std::string& driveName(int index) const;
  int drive() const { return drive_; }
  /// What `Dir1` shows: a folder, the folders above it from the root, and those inside it.
  const std::string& folder() const { return folder_; }
  const std::vector<std::string>& subfolders() const { return subfolders_; }

 private:
  void writeCaptions();
  void showRow(const std::string& folder);
  void showFolder(const std::string& folder);
  int driveOf(const std::string& folder) const;
  void storeFolder();

  FileSettings& settings_;
  Files& files_;
  std::array<std::string, 4> captions_;
  int highlighted_ = 0;
  Int16 lastRow_ = -1;
  std::vector<std::string> drives_;
  std::string examples_;
  int drive_ = 0;
  std::string folder_;
  std::vector<std::string> subfolders_;
};

}  // namespace vk
