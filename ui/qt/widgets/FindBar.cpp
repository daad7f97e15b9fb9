#include "ui/qt/widgets/FindBar.h"

#include <QHBoxLayout>
#include <QKeyEvent>

namespace vk {
namespace {

constexpr int kMargin = 6;  // pixels

/// From the caret on, and once more from the other end.
bool findRound(QPlainTextEdit& text, const QString& what, QTextDocument::FindFlags flags) {
  if (text.find(what, flags)) return true;
  QTextCursor end(text.document());
  if (flags.testFlag(QTextDocument::FindBackward)) end.movePosition(QTextCursor::End);
  const QTextCursor found = text.document()->find(what, end, flags);
  if (found.isNull()) return false;
  text.setTextCursor(found);
  return true;
}

}  // namespace

FindBar::FindBar(QWidget* form) : QWidget(form), entry_(new QLineEdit(this)), outcome_(new QLabel(this)) {
  setObjectName("FindBar");
  entry_->setObjectName("TxtFind");
  entry_->setAccessibleName("Cerca");
  outcome_->setObjectName("LblFind");
  auto* row = new QHBoxLayout(this);
  row->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
  row->addWidget(new QLabel("Cerca:", this));
  row->addWidget(entry_, 2);
  row->addWidget(outcome_, 1);
  connect(entry_, &QLineEdit::textEdited, outcome_, &QLabel::clear);
  hide();
}

void FindBar::open(QPlainTextEdit& text) {
  text_ = &text;
  outcome_->clear();
  const QString selected = text.textCursor().selectedText();
  if (!selected.isEmpty() && !selected.contains(QChar::ParagraphSeparator)) entry_->setText(selected);
  show();
  entry_->setFocus();
  entry_->selectAll();
}

void FindBar::close() {
  hide();
  if (text_ != nullptr) text_->setFocus();
}

void FindBar::find(bool backward) {
  if (text_ == nullptr || entry_->text().isEmpty()) return;
  const auto flags = backward ? QTextDocument::FindBackward : QTextDocument::FindFlags();
  outcome_->setText(findRound(*text_, entry_->text(), flags) ? "" : "Non trovato");
}

void FindBar::keyPressEvent(QKeyEvent* event) {
  switch (event->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
      return find(event->modifiers().testFlag(Qt::ShiftModifier));
    case Qt::Key_Escape:
      return close();
    default:
      QWidget::keyPressEvent(event);
  }
}

}  // namespace vk
