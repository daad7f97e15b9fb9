#include "tabulo/Tabulo.h"

#include <QGridLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QTreeWidget>
#include <algorithm>

#include "base/NumberText.h"
#include "ui/qt/widgets/AccessButton.h"
#include "ui/qt/widgets/Fonts.h"
#include "ui/qt/widgets/TextConversion.h"

namespace vk {
namespace {

constexpr int kMargin = 12;
constexpr int kGap = 8;
constexpr QSize kFirstSize(740, 420);
constexpr Qt::Alignment kResultAlignment = Qt::AlignRight | Qt::AlignVCenter;

QTreeWidget* makeList(const char* name, const QString& title, const QStringList& columns, QWidget* parent) {
  auto* list = new QTreeWidget(parent);
  list->setObjectName(name);
  list->setAccessibleName(title);
  list->setHeaderLabels(columns);
  list->headerItem()->setTextAlignment(1, kResultAlignment);
  list->setRootIsDecorated(false);
  list->setAlternatingRowColors(true);
  list->setFont(listFont());
  list->header()->setStretchLastSection(true);
  return list;
}

void addRow(QTreeWidget* list, const Cp437Text& left, const Cp437Text& right) {
  auto* row = new QTreeWidgetItem(list, {fromText(left), fromText(right)});
  row->setTextAlignment(1, kResultAlignment);
  row->setToolTip(0, fromText(left));
}

}  // namespace

Tabulo::Tabulo(Files& files, Process& process)
    : helpKey_([&, this](ManualTopic topic) {
        const WindowText failure = openManual(files, process, topic);
        if (!failure.bytes().empty()) error_->setText(fromText(failure));
      }) {
  setObjectName("Tabulo");
  setManualTopic(*this, ManualTopic::kCalculator);
  setWindowTitle("TABULO");
  setAccessibleName("TABULO: Calcolatrice");
  buildLists();
  buildLine();
  layOut();
  resize(kFirstSize);
  line_->setFocus();
}

void Tabulo::buildLists() {
  history_ = makeList("LstSto", "Risultati precedenti", {"Formula", "Risultato"}, this);
  history_->setColumnWidth(0, 220);
  values_ = makeList("LstVal", "Valori con nome", {"Nome", "Valore"}, this);
  values_->setColumnWidth(0, 55);
  values_->setFixedWidth(270);
  connect(history_, &QTreeWidget::itemActivated, this,
          [this](const QTreeWidgetItem* row) { putBack(row->text(0)); });
  connect(values_, &QTreeWidget::itemActivated, this, [this](const QTreeWidgetItem* row) {
    line_->insert(row->text(0));
    line_->setFocus();
  });
}

void Tabulo::buildLine() {
  line_ = new QLineEdit(this);
  line_->setObjectName("TxtFor");
  line_->setAccessibleName("Formula");
  line_->setFont(listFont());
  line_->setPlaceholderText("per esempio: A=2.5, poi A*SIN(0.3)");
  line_->installEventFilter(this);
  connect(line_, &QLineEdit::returnPressed, this, &Tabulo::calculate);

  error_ = new QLabel(this);
  error_->setObjectName("LblErr");
  error_->setAccessibleName("Errore");
  error_->setWordWrap(true);
  error_->setStyleSheet("color: #a02020");

  calculate_ = new AccessButton("&Calcola", this);
  calculate_->setObjectName("CmdCal");
  connect(calculate_, &AccessButton::clicked, this, &Tabulo::calculate);
  clear_ = new AccessButton("&Azzera", this);
  clear_->setObjectName("CmdAzz");
  connect(clear_, &AccessButton::clicked, this, &Tabulo::clearAll);
}

void Tabulo::layOut() {
  auto* formula = new QLabel("&Formula:", this);
  formula->setBuddy(line_);
  auto* grid = new QGridLayout(this);
  grid->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
  grid->setSpacing(kGap);
  grid->addWidget(history_, 0, 0, 1, 2);
  grid->addWidget(values_, 0, 2, 1, 2);
  grid->addWidget(formula, 1, 0);
  grid->addWidget(line_, 1, 1);
  grid->addWidget(calculate_, 1, 2);
  grid->addWidget(clear_, 1, 3);
  grid->addWidget(error_, 2, 1, 1, 3);
  grid->setColumnStretch(1, 1);
  // Room for two lines of an error, so that the window does not jump.
  grid->setRowMinimumHeight(2, 2 * fontMetrics().lineSpacing());
}

void Tabulo::calculate() {
  const QString text = line_->text();
  line_->setFocus();
  if (calculator_.enter(toCp437(text).bytes())) line_->clear();
  recalled_ = static_cast<int>(calculator_.history().size());
  showState();
}

void Tabulo::clearAll() {
  calculator_.clear();
  recalled_ = 0;
  line_->clear();
  line_->setFocus();
  showState();
}

void Tabulo::putBack(const QString& line) {
  line_->setText(line);
  line_->setFocus();
}

void Tabulo::recall(int step) {
  const auto& history = calculator_.history();
  const int end = static_cast<int>(history.size());
  recalled_ = std::clamp(recalled_ + step, 0, end);
  putBack(recalled_ == end ? QString()
                           : fromText(Cp437Text(history[static_cast<std::size_t>(recalled_)].line)));
}

void Tabulo::showState() {
  history_->clear();
  for (const auto& [line, result] : calculator_.history())
    addRow(history_, Cp437Text(line), Cp437Text(result));
  history_->scrollToBottom();
  values_->clear();
  for (const auto& [name, value] : calculator_.values())
    addRow(values_, Cp437Text(name), Cp437Text(generalText(value)));
  error_->setText(fromText(WindowText(calculator_.error())));
}

bool Tabulo::eventFilter(QObject* watched, QEvent* event) {
  if (watched == line_ && event->type() == QEvent::KeyPress) {
    switch (static_cast<QKeyEvent*>(event)->key()) {
      case Qt::Key_Up:
        recall(-1);
        return true;
      case Qt::Key_Down:
        recall(+1);
        return true;
      case Qt::Key_Escape:
        line_->clear();
        return true;
      default:
        break;
    }
  }
  return QWidget::eventFilter(watched, event);
}

}  // namespace vk
