#include "ui/DirectoryPanel.h"

#include "base/Guard.h"
#include "platform/InstalledFolders.h"

namespace vk {
namespace {

constexpr std::array<const char*, 4> kTitles{
    " Tutti i File:", " File Dati:", " File Funzioni:", " File Grafici:"};

bool liesIn(const std::string& folder, const std::string& place) {
  if (!folder.starts_with(place)) return false;
  return place.ends_with('/') || folder.size() == place.size() || folder[place.size()] == '/';
}

}  // namespace

void DirectoryPanel::clickRow(int row) {
  if (row == -1) {
    row = 0;
    lastRow_ = -1;
    drives_ = files_.drives();
    examples_ = examplesFolder(files_);
    if (!examples_.empty()) drives_.push_back(examples_);
  }
  if (row != lastRow_) highlighted_ = row;
  writeCaptions();
  showRow(settings_.WorkDir[static_cast<std::size_t>(row)]);
  settings_.WorkRow = row;
  lastRow_ = row;
}

const std::string& DirectoryPanel::driveName(int index) const {
  static const std::string kExamples = "Esempi";
  const std::string& drive = drives_.at(static_cast<std::size_t>(index));
  return drive == examples_ ? kExamples : drive;
}

void DirectoryPanel::writeCaptions() {
  for (std::size_t row = 0; row < kTitles.size(); ++row) {
    captions_[row] = kTitles[row] + std::string("\n ") + settings_.WorkDir[row];
  }
}

void DirectoryPanel::showRow(const std::string& folder) {
  // A row that holds no folder leaves the folder list where it is.
  if (folder.empty() || guard([&] { showFolder(folder); })) return;
  // Of a folder that has gone there is the way to it; what the row before showed lies elsewhere.
  folder_ = folder;
  drive_ = driveOf(folder);
  subfolders_.clear();
}

void DirectoryPanel::showFolder(const std::string& folder) {
  subfolders_ = files_.subfolders(folder);
  folder_ = folder;
  drive_ = driveOf(folder);
}

int DirectoryPanel::driveOf(const std::string& folder) const {
  std::size_t best = 0;
  for (std::size_t i = 1; i < drives_.size(); ++i) {
    if (liesIn(folder, drives_[i]) && drives_[i].size() > drives_[best].size()) best = i;
  }
  return static_cast<int>(best);
}

void DirectoryPanel::enterFolder(const std::string& folder) {
  if (guard([&] { showFolder(folder); })) storeFolder();
}

void DirectoryPanel::storeFolder() {
  const auto row = static_cast<std::size_t>(settings_.WorkRow);
  if (folder_ == settings_.WorkDir[row]) return;
  settings_.WorkDir[row] = folder_;
  if (row == 0) {
    settings_.WorkDir.fill(folder_);
  } else {
    settings_.WorkDir[0].clear();
  }
  writeCaptions();
}

void DirectoryPanel::selectDrive(int index) {
  enterFolder(drives_.at(static_cast<std::size_t>(index)));
}

void DirectoryPanel::accept() {
  settings_.DataDir = settings_.WorkDir[1];
  settings_.FunDir = settings_.WorkDir[2];
  settings_.GraDir = settings_.WorkDir[3];
}

}  // namespace vk
