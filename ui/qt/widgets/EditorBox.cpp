#include "ui/qt/widgets/EditorBox.h"

#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QMimeData>
#include <QTextBlock>

#include "ui/qt/widgets/TextConversion.h"

namespace vk {
namespace {

constexpr int kTabColumns = 8;
/// Beside it, border and scroll bar leave just room for the columns of the form's size.
constexpr double kTextMargin = 2;

/// True for a key that enters a character, and not a command.
bool entersText(const QKeyEvent& event) {
  const QString text = event.text();
  return !text.isEmpty() && text.at(0).category() != QChar::Other_Control;
}

}  // namespace

EditorBox::EditorBox(QWidget* form) : QPlainTextEdit(form) {
  setLineWrapMode(NoWrap);
  document()->setDocumentMargin(kTextMargin);
}

void EditorBox::setTextFont(const QFont& font) {
  setFont(font);
  setTabStopDistance(kTabColumns * QFontMetricsF(font).horizontalAdvance('A'));
}

void EditorBox::load(const PlainText& text) {
  isUtf8_ = text.isUtf8();
  setPlainText(fromLines(text));
}

PlainText EditorBox::bytes() const {
  // The raw text: the plain one has blanks in place of hard blanks.
  return toLines(document()->toRawText(), isUtf8_);
}

PlainText EditorBox::SelText() const {
  return toLines(textCursor().selectedText(), isUtf8_);
}

void EditorBox::insertBefore(const PlainText& text) {
  QTextCursor caret = textCursor();
  const int start = caret.selectionStart();
  caret.setPosition(start);
  caret.beginEditBlock();  // undone by itself, not with what was typed before it
  caret.insertText(fromLines(text));
  caret.endEditBlock();
  caret.setPosition(start);
  setTextCursor(caret);
}

QString EditorBox::take(const QString& text) {
  if (isUtf8_) return withLineFeeds(text);
  const TakenText taken = takeForCp437(text);
  if (!taken.complete && refused) refused();
  return taken.text;
}

void EditorBox::keyPressEvent(QKeyEvent* event) {
  if (event->matches(QKeySequence::InsertLineSeparator)) {
    textCursor().insertBlock();
    return ensureCursorVisible();
  }
  if (!entersText(*event)) return QPlainTextEdit::keyPressEvent(event);
  const QString taken = take(event->text());
  if (taken.isEmpty()) return;
  QKeyEvent entered(event->type(), event->key(), event->modifiers(), taken, event->isAutoRepeat());
  QPlainTextEdit::keyPressEvent(&entered);
}

void EditorBox::inputMethodEvent(QInputMethodEvent* event) {
  event->setCommitString(take(event->commitString()), event->replacementStart(), event->replacementLength());
  QPlainTextEdit::inputMethodEvent(event);
}

QMimeData* EditorBox::createMimeDataFromSelection() const {
  auto* content = new QMimeData;
  content->setText(fromLines(SelText()));
  return content;
}

void EditorBox::insertFromMimeData(const QMimeData* source) {
  textCursor().insertText(take(source->text()));
  ensureCursorVisible();
}

}  // namespace vk
