#include "ui/qt/FileDialog.h"

#include <QDir>
#include <QFileDialog>
#include <QHeaderView>
#include <QTreeView>

#include "platform/Files.h"
#include "ui/qt/Text8.h"

namespace vk {
namespace {

constexpr QSize kFirstSize(700, 440);

/// The toolkit's form of a filter: its label, and the pattern in a last pair of parentheses that is not shown.
/// "*.*" means every file, also one without a point in its name; so does the pattern of an empty extension.
QString toolkitFilter(const FileFilter& filter) {
  const bool all = filter.pattern == "*.*" || filter.pattern == "*.";
  return fromWindowText(filter.label) + " (" + (all ? QString("*") : fromWindowText(filter.pattern)) + ")";
}

void setTexts(QFileDialog& dialog, bool save) {
  dialog.setLabelText(QFileDialog::LookIn, "Cerca in:");
  dialog.setLabelText(QFileDialog::FileName, "&Nome file:");
  dialog.setLabelText(QFileDialog::FileType, "Tipo di file:");
  dialog.setLabelText(QFileDialog::Accept, save ? "&Salva" : "&Apri");
  dialog.setLabelText(QFileDialog::Reject, "A&nnulla");
}

void setFilters(QFileDialog& dialog, const std::vector<FileFilter>& filters, int selected) {
  QStringList names;
  for (const FileFilter& filter : filters) names << toolkitFilter(filter);
  dialog.setOption(QFileDialog::HideNameFilterDetails);
  dialog.setNameFilters(names);
  if (selected >= 1 && selected <= names.size()) dialog.selectNameFilter(names[selected - 1]);
}

/// Names, sizes and dates of the files, each in full. The toolkit's column of kinds is hidden: it guesses
/// another program's kind from extensions as common as ours.
void setColumns(QFileDialog& dialog) {
  auto* list = dialog.findChild<QTreeView*>("treeView");
  if (!list) return;
  constexpr int kSizes = 1, kKinds = 2, kDates = 3;
  list->hideColumn(kKinds);
  QHeaderView* header = list->header();
  header->setStretchLastSection(false);
  header->setSectionResizeMode(0, QHeaderView::Stretch);
  header->setSectionResizeMode(kSizes, QHeaderView::ResizeToContents);
  header->setSectionResizeMode(kDates, QHeaderView::ResizeToContents);
}

/// The extension of the pattern that is selected in the dialog; none for all files.
std::string selectedExtension(const QFileDialog& dialog, const std::vector<FileFilter>& filters) {
  for (const FileFilter& filter : filters) {
    if (filter.pattern == "*.*") continue;
    if (dialog.selectedNameFilter().startsWith(fromWindowText(filter.label)))
      return GetExtensionName(filter.pattern);
  }
  return {};
}

}  // namespace

std::vector<FileFilter> splitFilter(const std::string& filter) {
  std::vector<std::string> parts(1);
  for (const char c : filter) {
    if (c == '|') {
      parts.emplace_back();
    } else {
      parts.back() += c;
    }
  }
  std::vector<FileFilter> filters;
  for (std::size_t i = 0; i + 1 < parts.size(); i += 2) filters.push_back({parts[i], parts[i + 1]});
  return filters;
}

std::optional<std::string> askFileName(const FileRequest& request, QWidget* owner) {
  const std::vector<FileFilter> filters = splitFilter(request.filter);
  QFileDialog dialog(owner, fromWindowText(request.caption));
  dialog.setObjectName("FileDialog");
  dialog.setAccessibleName(dialog.windowTitle());
  // Dialogs of a desktop insist on files that exist, or ask before they overwrite; both questions are ours.
  dialog.setOption(QFileDialog::DontUseNativeDialog);
  dialog.setOption(QFileDialog::DontConfirmOverwrite);
  dialog.setAcceptMode(request.save ? QFileDialog::AcceptSave : QFileDialog::AcceptOpen);
  dialog.setFileMode(QFileDialog::AnyFile);
  dialog.resize(kFirstSize);
  setTexts(dialog, request.save);
  setColumns(dialog);
  setFilters(dialog, filters, request.filterIndex);
  const QDir folder(fromFileName(request.folder));
  if (!request.folder.empty() && folder.exists()) dialog.setDirectory(folder);
  if (!request.proposedName.empty()) dialog.selectFile(fromFileName(request.proposedName));

  if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty()) return std::nullopt;
  std::string name = toFileName(dialog.selectedFiles().first());
  const std::string extension = selectedExtension(dialog, filters);
  if (request.save && GetExtensionName(name).empty() && !extension.empty()) name += "." + extension;
  return name;
}

}  // namespace vk
