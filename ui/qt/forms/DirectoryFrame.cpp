#include "ui/qt/forms/DirectoryFrame.h"

#include <QAbstractItemView>
#include <QBoxLayout>
#include <QKeyEvent>
#include <QStyle>

#include "platform/Texts.h"
#include "ui/qt/widgets/AccessButton.h"
#include "ui/qt/widgets/HelpKey.h"
#include "ui/qt/widgets/TextConversion.h"

namespace vk {
namespace {

constexpr int kPathRole = Qt::UserRole;
constexpr int kSpace = 14;
constexpr int kListWidth = 250;
constexpr int kListHeight = 250;
constexpr int kLabelWidth = 290;
constexpr int kRowSpace = 4;

}  // namespace

FolderList::FolderList(QWidget* parent) : QListWidget(parent) {
  setObjectName("Dir1");
  setAccessibleName("Cartelle");
  setTextElideMode(Qt::ElideMiddle);
  setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  // The toolkit's own size is that of some of its pictures, and higher than a row.
  const int icon = style()->pixelMetric(QStyle::PM_SmallIconSize);
  setIconSize(QSize(icon, icon));
  connect(this, &QListWidget::itemClicked, this, [this](QListWidgetItem* item) { enter(item); });
}

void FolderList::addFolder(const QString& name, const std::string& path, int depth) {
  const QIcon icon = style()->standardIcon(depth < 0 ? QStyle::SP_DirIcon : QStyle::SP_DirOpenIcon);
  auto* item = new QListWidgetItem(icon, name, this);
  // Names in other scripts need taller letters; rows have one height, and the width of the list.
  item->setSizeHint(QSize(1, fontMetrics().lineSpacing() + kRowSpace));
  item->setData(kPathRole, fromFileName(path));
  item->setToolTip(fromFileName(path));
}

void FolderList::showFolder(const std::string& folder, const std::vector<std::string>& inside) {
  clear();
  std::string path = "/";
  addFolder("/", path, 0);
  int depth = 1;
  for (std::size_t start = 1; start < folder.size(); ++depth) {
    const std::size_t end = std::min(folder.find('/', start), folder.size());
    path = folder.substr(0, end);
    addFolder(QString(2 * depth, ' ') + fromFileName(folder.substr(start, end - start)), path, depth);
    start = end + 1;
  }
  setCurrentRow(count() - 1);
  for (const std::string& name : inside) {
    addFolder(QString(2 * depth, ' ') + fromFileName(name), joinPath(path, name), -1);
  }
  scrollToItem(currentItem());
}

void FolderList::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) return enter(currentItem());
  QListWidget::keyPressEvent(event);
}

void FolderList::enter(const QListWidgetItem* item) {
  if (item != nullptr && entered) entered(toFileName(item->data(kPathRole).toString()));
}

FraDir::FraDir(QWidget* parent, DirectoryPanel& panel, const QFont& font, EventRunner run,
               std::function<void(int)> button)
    : QFrame(parent),
      panel_(panel),
      run_(std::move(run)),
      Drive1_(new QComboBox(this)),
      Dir1_(new FolderList(this)) {
  setObjectName("FraDir");
  setManualTopic(*this, ManualTopic::kFolders);
  setAccessibleName("Directory di Lavoro");
  setFrameStyle(QFrame::StyledPanel | QFrame::Raised);
  setAutoFillBackground(true);
  setFont(font);
  Drive1_->setObjectName("Drive1");
  Drive1_->setAccessibleName("Volume");
  Drive1_->setFixedWidth(kListWidth);
  Drive1_->view()->setTextElideMode(Qt::ElideMiddle);
  buildRows(font);
  buildButtons(std::move(button));
  arrange();
  setFocusProxy(Drive1_);
  connect(Drive1_, &QComboBox::currentIndexChanged, this, [this](int index) {
    // Settings made by the program are no choice of the user.
    if (!syncing_ && index >= 0) handle([&] { panel_.selectDrive(index); });
  });
  Dir1_->entered = [this](const std::string& folder) { handle([&] { panel_.enterFolder(folder); }); };
  hide();
}

void FraDir::buildRows(const QFont& font) {
  for (std::size_t row = 0; row < LblWrkDir_.size(); ++row) {
    auto* label = new ClickLabel(this);
    label->setObjectName(QString("LblWrkDir(%1)").arg(row));
    label->setFont(font);
    label->setAutoFillBackground(true);
    label->setMargin(8);
    label->setFixedSize(kLabelWidth, 2 * label->fontMetrics().lineSpacing() + 16);
    label->clicked = [this, row] { handle([&] { panel_.clickRow(static_cast<int>(row)); }); };
    LblWrkDir_[row] = label;
  }
}

void FraDir::buildButtons(std::function<void(int)> button) {
  const std::array<WindowText, 2> kCaptions{kGiveUpButton, kExecuteButton};
  for (std::size_t i = 0; i < kCaptions.size(); ++i) {
    CmdWrkDir_[i] = new AccessButton(fromCaption(kCaptions[i]), this);
    CmdWrkDir_[i]->setObjectName(QString("CmdWrkDir(%1)").arg(i));
    CmdWrkDir_[i]->setAutoDefault(true);
    connect(CmdWrkDir_[i], &QPushButton::clicked, this,
            [this, button, i] { run_([&] { button(static_cast<int>(i)); }); });
  }
}

void FraDir::arrange() {
  Dir1_->setFixedSize(kListWidth, kListHeight);
  auto* places = new QVBoxLayout;
  places->setSpacing(kSpace);
  places->addWidget(Drive1_);
  places->addWidget(Dir1_);
  auto* rows = new QVBoxLayout;
  rows->setSpacing(kSpace);
  for (ClickLabel* label : LblWrkDir_) rows->addWidget(label);
  rows->addStretch();
  auto* buttons = new QHBoxLayout;
  buttons->setSpacing(kSpace);
  for (QPushButton* button : CmdWrkDir_) buttons->addWidget(button);
  rows->addLayout(buttons);
  auto* columns = new QHBoxLayout(this);
  columns->setContentsMargins(2 * kSpace, 2 * kSpace, 2 * kSpace, 2 * kSpace);
  columns->setSpacing(2 * kSpace);
  columns->addLayout(places);
  columns->addLayout(rows);
}

void FraDir::handle(const std::function<void()>& change) {
  run_(change);
  sync();
}

void FraDir::syncDrives() {
  syncing_ = true;
  if (Drive1_->count() != static_cast<int>(panel_.drives().size())) Drive1_->clear();
  for (std::size_t i = 0; i < panel_.drives().size(); ++i) {
    const int row = static_cast<int>(i);
    if (row == Drive1_->count()) Drive1_->addItem(QString());
    Drive1_->setItemText(row, fromFileName(panel_.driveName(row)));
    Drive1_->setItemData(row, fromFileName(panel_.drives()[i]), Qt::ToolTipRole);
  }
  Drive1_->setCurrentIndex(panel_.drive());
  Drive1_->setToolTip(Drive1_->currentData(Qt::ToolTipRole).toString());
  syncing_ = false;
}

void FraDir::sync() {
  syncDrives();
  Dir1_->showFolder(panel_.folder(), panel_.subfolders());
  for (std::size_t row = 0; row < LblWrkDir_.size(); ++row) {
    const bool highlighted = static_cast<int>(row) == panel_.highlighted();
    ClickLabel* label = LblWrkDir_[row];
    label->setName(fromFileName(panel_.caption(static_cast<int>(row))));
    label->setBackgroundRole(highlighted ? QPalette::Highlight : QPalette::Window);
    label->setForegroundRole(highlighted ? QPalette::HighlightedText : QPalette::WindowText);
  }
}

}  // namespace vk
