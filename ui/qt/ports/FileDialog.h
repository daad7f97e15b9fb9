#pragma once

#include <QString>
#include <QWidget>
#include <optional>
#include <string>
#include <vector>

#include "platform/Dialogs.h"

namespace vk {

/// One entry of a filter text "label|pattern|label|pattern|".
struct FileFilter {
  std::string label, pattern;
  bool operator==(const FileFilter&) const = default;
};
std::vector<FileFilter> splitFilter(const WindowText& filter);

/// The file dialog, modal. It takes any name, of a file that exists or not, and asks nothing by itself.
std::optional<std::string> askFileName(const FileRequest& request, QWidget* owner);

}  // namespace vk
