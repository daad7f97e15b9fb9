#include "ui/qt/forms/ImportWindow.h"

#include <QCloseEvent>
#include <QHeaderView>
#include <QShortcut>
#include <QVBoxLayout>
#include <algorithm>

#include "data/foreign/Choices.h"
#include "platform/Texts.h"
#include "ui/qt/widgets/AccessButton.h"
#include "ui/qt/widgets/Fonts.h"
#include "ui/qt/widgets/HelpKey.h"
#include "ui/qt/widgets/TextConversion.h"
#include "ui/qt/widgets/Twips.h"

namespace vk {
namespace {

constexpr QSize kFirstSize(820, 640);
constexpr int kBetween = 8;
constexpr int kMostColumns = 64;  // of the table: nobody looks at more
constexpr int kMostHeaderLines = 9999;
constexpr int kMostJoined = 32767;
constexpr int kFewestJoined = 2;
constexpr int kLeastColumn = 60, kWidestColumn = 220;
constexpr int kLeastHeight = 90;

constexpr const char* kTableCaption = "File ";
constexpr const char* kFieldsCaption = "Lettura";
constexpr const char* kPointsCaption = "File Dati";
constexpr const char* kFoundOut = "auto: ";

QString shown(const std::string& text) {
  return QString::fromStdString(text);
}

QLabel* label(const QString& text, QWidget* field) {
  auto* result = new QLabel(text);
  result->setTextFormat(Qt::PlainText);
  result->setBuddy(field);
  return result;
}

/// Leaves the height of a field to the shares of the form.
void shareHeight(QWidget& field) {
  field.setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Ignored);
  field.setMinimumHeight(kLeastHeight);
}

}  // namespace

FrmImp::FrmImp(const Windows& windows, const FontSpec& font)
    : QWidget(nullptr, kOwnedWindow | Qt::WindowMaximizeButtonHint),
      windows_(windows),
      FraLin_(new QGroupBox),
      TabLin_(new QTableWidget) {
  setObjectName("FrmImp");
  setManualTopic(*this, ManualTopic::kImport);
  setFont(toolkitFont(font));
  setWindowTitle(kImportCaption);
  setAccessibleName(kImportCaption);
  setWindowModality(Qt::ApplicationModal);
  buildTable();
  auto* column = new QVBoxLayout(this);
  column->setSpacing(kBetween);
  column->addWidget(FraLin_, 4);
  column->addWidget(buildFields());
  column->addWidget(buildPoints(), 3);
  column->addWidget(buildButtons());
  connect(new QShortcut(Qt::Key_Escape, this), &QShortcut::activated, this, [this] { loop_.finish(); });
  resize(kFirstSize);
}

void FrmImp::buildTable() {
  FraLin_->setObjectName("FraLin");
  TabLin_->setObjectName("TabLin");
  TabLin_->setAccessibleName("Prime Linee del File");
  TabLin_->setFont(listFont());
  TabLin_->setEditTriggers(QAbstractItemView::NoEditTriggers);
  TabLin_->setTabKeyNavigation(false);
  TabLin_->setWordWrap(false);
  TabLin_->horizontalHeader()->setMinimumSectionSize(kLeastColumn);
  TabLin_->horizontalHeader()->setMaximumSectionSize(kWidestColumn);
  shareHeight(*TabLin_);
  TabLin_->verticalHeader()->setDefaultSectionSize(cellOf(listFont()).height / 15 + 6);
  auto* inside = new QVBoxLayout(FraLin_);
  inside->addWidget(TabLin_);
}

QComboBox* FrmImp::makeList(TableImport::Field field) {
  auto* list = new QComboBox;
  list->setObjectName(QString("LstImp(%1)").arg(field));
  list->setAccessibleName(TableImport::caption(field));
  list->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
  list->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
  connect(list, &QComboBox::currentIndexChanged, this,
          [this, field](int entry) { change([&] { engine_.choose(field, entry); }); });
  LstImp_.at(static_cast<std::size_t>(field)) = list;
  return list;
}

QSpinBox* FrmImp::makeCount(const char* name, const QString& meaning, int least) {
  auto* count = new QSpinBox;
  count->setObjectName(name);
  count->setAccessibleName(meaning);
  count->setMinimum(least);
  return count;
}

QWidget* FrmImp::buildFields() {
  auto* frame = new QGroupBox(kFieldsCaption);
  auto* grid = new QGridLayout(frame);
  const auto put = [&](int row, int column, const QString& caption, QWidget* field) {
    grid->addWidget(label(caption, field), row, 2 * column, Qt::AlignRight | Qt::AlignVCenter);
    grid->addWidget(field, row, 2 * column + 1);
    grid->setColumnStretch(2 * column + 1, 1);
  };
  using T = TableImport;
  const auto list = [&](int row, int column, T::Field field) {
    put(row, column, T::caption(field), makeList(field));
  };
  list(0, 0, T::kEncoding);
  list(0, 1, T::kSeparator);
  list(0, 2, T::kDecimal);
  TxtInt_ = makeCount("TxtInt", fieldOf(Choice::kHeader), -1);
  TxtInt_->setMaximum(kMostHeaderLines);
  put(0, 3, fieldOf(Choice::kHeader), TxtInt_);
  put(1, 0, fieldOf(Choice::kColumns) + QString(": ") + T::caption(T::kX), makeList(T::kX));
  list(1, 1, T::kY);
  list(1, 2, T::kDx);
  list(1, 3, T::kDy);
  list(2, 0, T::kThinning);
  TxtRid_ = makeCount("TxtRid", "n", kFewestJoined);
  TxtRid_->setMaximum(kMostJoined);
  put(2, 1, "n", TxtRid_);
  TxtErr_ = new QLineEdit;
  TxtErr_->setObjectName("TxtErr");
  TxtErr_->setAccessibleName("Valore di dy");
  put(2, 3, "Valore di dy", TxtErr_);
  connect(TxtInt_, &QSpinBox::valueChanged, this, [this](int lines) {
    change([&] { engine_.setHeaderLines(lines < 0 ? std::nullopt : std::optional(lines)); });
  });
  connect(TxtRid_, &QSpinBox::valueChanged, this, [this](int n) { change([&] { engine_.setThinning(n); }); });
  connect(TxtErr_, &QLineEdit::textChanged, this,
          [this](const QString& text) { change([&] { engine_.setErrorValue(text.toStdString()); }); });
  return frame;
}

QWidget* FrmImp::buildPoints() {
  auto* frame = new QGroupBox(kPointsCaption);
  TxtPun_ = new QPlainTextEdit;
  TxtPun_->setObjectName("TxtPun");
  TxtPun_->setAccessibleName(kPointsCaption);
  TxtPun_->setReadOnly(true);
  TxtPun_->setTabChangesFocus(true);
  TxtPun_->setFont(listFont());
  TxtPun_->setLineWrapMode(QPlainTextEdit::NoWrap);
  shareHeight(*TxtPun_);
  LblRis_ = new QLabel;
  LblRis_->setObjectName("LblRis");
  LblRis_->setTextFormat(Qt::PlainText);
  LblRis_->setWordWrap(true);
  LblRis_->setTextInteractionFlags(Qt::TextSelectableByMouse);
  auto* inside = new QVBoxLayout(frame);
  inside->addWidget(TxtPun_, 1);
  inside->addWidget(LblRis_);
  return frame;
}

QWidget* FrmImp::buildButtons() {
  auto* row = new QWidget;
  auto* inside = new QHBoxLayout(row);
  inside->setContentsMargins(0, 0, 0, 0);
  inside->addStretch();
  const auto add = [&](const char* name, const WindowText& caption, auto action) {
    auto* button = new AccessButton(fromCaption(caption));
    button->setObjectName(name);
    button->setAutoDefault(true);
    connect(button, &QPushButton::clicked, this, action);
    inside->addWidget(button);
    inside->addStretch();
    return button;
  };
  CmdSal_ = add("CmdSal", kImportButton, [this] { loop_.handle([this] { save(); }); });
  CmdRin_ = add("CmdRin", kGiveUpButton, [this] { loop_.finish(); });
  return row;
}

void FrmImp::show(const std::string& name, std::string bytes,
                  const std::function<bool(const std::string& text)>& save) {
  save_ = save;
  engine_.open(std::move(bytes));
  FraLin_->setTitle(kTableCaption + fromCaption(WindowText(name)));
  syncing_ = true;
  TxtInt_->setValue(-1);
  TxtRid_->setValue(kFewestJoined);
  TxtErr_->setText("1");
  syncing_ = false;
  sync();
  placeForm();
  QWidget::show();
  raise();
  activateWindow();
  (CmdSal_->isEnabled() ? static_cast<QWidget*>(CmdSal_) : LstImp_.front())->setFocus();
  loop_.run(*this);
}

void FrmImp::placeForm() {
  if (testAttribute(Qt::WA_Moved)) return;
  const Size whole = toTwips(size()) + windows_.frame();
  const Rect owner = windows_.place(Form::kMain);
  windows_.settle(*this, Form::kMain,
                  {owner.left + (owner.width - whole.width) / 2,
                   owner.top + (owner.height - whole.height) / 2, whole.width, whole.height});
}

void FrmImp::change(const std::function<void()>& what) {
  if (syncing_) return;
  loop_.handle([&] {
    what();
    sync();
  });
}

void FrmImp::sync() {
  syncing_ = true;
  syncFields();
  syncTable();
  syncing_ = false;
  TxtPun_->setPlainText(shown(engine_.firstPoints()));
  LblRis_->setText(shown(engine_.message()));
  CmdSal_->setEnabled(engine_.isUnderstood());
}

void FrmImp::syncFields() {
  for (int i = 0; i < TableImport::kFields; ++i) {
    const auto field = static_cast<TableImport::Field>(i);
    QComboBox* list = LstImp_.at(static_cast<std::size_t>(i));
    list->clear();
    for (const std::string& entry : engine_.entries(field)) list->addItem(shown(entry));
    list->setCurrentIndex(engine_.chosen(field));
    list->setToolTip(list->currentText());
  }
  TxtInt_->setSpecialValueText(kFoundOut + QString::number(engine_.headerLinesFound()));
  TxtRid_->setEnabled(engine_.takesThinning());
  TxtErr_->setEnabled(engine_.takesErrorValue());
}

void FrmImp::syncTable() {
  const std::vector<TableLine> lines = engine_.lines();
  std::size_t columns = 1;
  for (const TableLine& line : lines) columns = std::max(columns, line.cells.size());
  columns = std::min<std::size_t>(columns, kMostColumns);
  TabLin_->clear();
  TabLin_->clearSpans();
  TabLin_->setRowCount(static_cast<int>(lines.size()));
  TabLin_->setColumnCount(static_cast<int>(columns));
  QStringList heads, numbers;
  for (std::size_t i = 0; i < columns; ++i) heads << shown(engine_.columnHead(i));
  for (const TableLine& line : lines) numbers << QString::number(line.number);
  TabLin_->setHorizontalHeaderLabels(heads);
  TabLin_->setVerticalHeaderLabels(numbers);
  for (std::size_t i = 0; i < lines.size(); ++i) fillLine(static_cast<int>(i), lines[i]);
  TabLin_->resizeColumnsToContents();
}

void FrmImp::fillLine(int row, const TableLine& line) {
  const QColor pale = palette().color(QPalette::Disabled, QPalette::Text);
  for (int i = 0; i < std::min(static_cast<int>(line.cells.size()), TabLin_->columnCount()); ++i) {
    const auto column = static_cast<std::size_t>(i);
    auto* cell = new QTableWidgetItem(shown(line.cells[column]));
    if (line.kind != TableLine::Kind::kPoint || !engine_.usesColumn(column)) cell->setForeground(pale);
    cell->setToolTip(shown(line.reason));
    TabLin_->setItem(row, i, cell);
  }
  const bool whole = line.cells.size() == 1 && TabLin_->columnCount() > 1;
  if (whole && line.kind == TableLine::Kind::kAbove) TabLin_->setSpan(row, 0, 1, TabLin_->columnCount());
}

void FrmImp::save() {
  const bool done = save_(engine_.text());
  if (done) {
    loop_.finish();
  } else {
    activateWindow();
  }
}

void FrmImp::closeEvent(QCloseEvent* event) {
  event->ignore();
  loop_.finish();
}

}  // namespace vk
