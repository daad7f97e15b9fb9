#include "ui/qt/ports/FileDialog.h"

#include <QDir>
#include <QFileDialog>
#include <QFileSystemModel>
#include <QHeaderView>
#include <QLocale>
#include <QSortFilterProxyModel>
#include <QTreeView>

#include "platform/Files.h"
#include "ui/qt/widgets/HelpKey.h"
#include "ui/qt/widgets/TextConversion.h"

namespace vk {
namespace {

constexpr QSize kFirstSize(700, 440);

constexpr const char* kAllFiles = "*.*";

/// Columns of the list of files.
enum FileColumn : int { kNames, kSizes, kKinds, kDates };

/// The folders, and of the files those that a filter of ours lets through: all of them, or those of one
/// extension in any case. The toolkit's own patterns cannot say "without extension", and take some signs of a
/// name for theirs.
class FilesOfAKind : public QSortFilterProxyModel {
 public:
  using QSortFilterProxyModel::QSortFilterProxyModel;

  void setPattern(const std::string& pattern) {
    all_ = pattern == kAllFiles;
    extension_ = fromText(WindowText(GetExtensionName(pattern)));
    invalidateFilter();
  }
  /// The order of the disk: folders apart from files, sizes and dates by their values.
  void sort(int column, Qt::SortOrder order) override { sourceModel()->sort(column, order); }

  /// Sizes and dates are written the Italian way on every machine.
  QVariant data(const QModelIndex& index, int role) const override {
    const QModelIndex item = mapToSource(index);
    const bool text = role == Qt::DisplayRole && item.isValid();
    if (text && item.column() == kSizes && !disk()->isDir(item)) {
      return italian_.formattedDataSize(disk()->size(item));
    }
    if (text && item.column() == kDates) {
      return italian_.toString(disk()->lastModified(item), QLocale::ShortFormat);
    }
    return QSortFilterProxyModel::data(index, role);
  }

 protected:
  bool filterAcceptsRow(int row, const QModelIndex& folder) const override {
    const QModelIndex item = disk()->index(row, 0, folder);
    if (all_ || disk()->isDir(item)) return true;
    const QString extension = fromText(WindowText(GetExtensionName(toFileName(disk()->fileName(item)))));
    return extension.compare(extension_, Qt::CaseInsensitive) == 0;
  }

 private:
  const QFileSystemModel* disk() const { return qobject_cast<const QFileSystemModel*>(sourceModel()); }

  const QLocale italian_{QLocale::Italian, QLocale::Italy};
  bool all_ = true;
  QString extension_;
};

void setTexts(QFileDialog& dialog, bool save) {
  dialog.setLabelText(QFileDialog::LookIn, "Cerca in:");
  dialog.setLabelText(QFileDialog::FileName, "&Nome file:");
  dialog.setLabelText(QFileDialog::FileType, "Tipo di file:");
  dialog.setLabelText(QFileDialog::Accept, save ? "&Salva" : "&Apri");
  dialog.setLabelText(QFileDialog::Reject, "A&nnulla");
}

/// The filter that is selected in the dialog; none when it offers none.
const FileFilter* selectedFilter(const QFileDialog& dialog, const std::vector<FileFilter>& filters) {
  for (const FileFilter& filter : filters) {
    if (dialog.selectedNameFilter().startsWith(fromText(WindowText(filter.label)))) return &filter;
  }
  return nullptr;
}

/// `filters` must live as long as the dialog.
void setFilters(QFileDialog& dialog, const std::vector<FileFilter>& filters, int selected) {
  QStringList names;
  // The toolkit looks for a pattern in the last parentheses, which are not shown; it lets everything through.
  for (const FileFilter& filter : filters) names << fromText(WindowText(filter.label)) + " (*)";
  dialog.setOption(QFileDialog::HideNameFilterDetails);
  dialog.setNameFilters(names);
  if (selected >= 1 && selected <= names.size()) dialog.selectNameFilter(names[selected - 1]);

  auto* files = new FilesOfAKind(&dialog);
  dialog.setProxyModel(files);
  const auto follow = [&dialog, &filters, files] {
    if (const FileFilter* filter = selectedFilter(dialog, filters)) files->setPattern(filter->pattern);
  };
  QObject::connect(&dialog, &QFileDialog::filterSelected, files, follow);
  follow();
}

/// Names, sizes and dates of the files, each in full. The toolkit's column of kinds is hidden: it guesses
/// another program's kind from extensions as common as ours.
void setColumns(QFileDialog& dialog) {
  auto* list = dialog.findChild<QTreeView*>("treeView");
  if (!list) return;
  list->hideColumn(kKinds);
  QHeaderView* header = list->header();
  header->setStretchLastSection(false);
  header->setSectionResizeMode(kNames, QHeaderView::Stretch);
  header->setSectionResizeMode(kSizes, QHeaderView::ResizeToContents);
  header->setSectionResizeMode(kDates, QHeaderView::ResizeToContents);
}

}  // namespace

std::vector<FileFilter> splitFilter(const WindowText& filter) {
  std::vector<std::string> parts(1);
  for (const char c : filter.bytes()) {
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
  QFileDialog dialog(owner, fromText(request.caption));
  dialog.setObjectName("FileDialog");
  setManualTopic(dialog, ManualTopic::kFileChoice);
  dialog.setAccessibleName(dialog.windowTitle());
  // Dialogs of a desktop insist on files that exist, or ask before they overwrite; both questions are ours.
  dialog.setOption(QFileDialog::DontUseNativeDialog);
  dialog.setOption(QFileDialog::DontConfirmOverwrite);
  dialog.setAcceptMode(request.save ? QFileDialog::AcceptSave : QFileDialog::AcceptOpen);
  dialog.setFileMode(QFileDialog::AnyFile);
  dialog.resize(kFirstSize);
  setTexts(dialog, request.save);
  setFilters(dialog, filters, request.filterIndex);
  setColumns(dialog);
  const QDir folder(fromFileName(request.folder));
  if (!request.folder.empty() && folder.exists()) dialog.setDirectory(folder);
  if (!request.proposedName.empty()) dialog.selectFile(fromFileName(request.proposedName));

  if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty()) return std::nullopt;
  const std::string name = toFileName(dialog.selectedFiles().first());
  const FileFilter* filter = selectedFilter(dialog, filters);
  if (!request.save || filter == nullptr || filter->pattern == kAllFiles) return name;
  const std::string extension = GetExtensionName(filter->pattern);
  return GetExtensionName(name).empty() && !extension.empty() ? name + "." + extension : name;
}

}  // namespace vk
