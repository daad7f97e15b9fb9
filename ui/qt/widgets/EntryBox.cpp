#include "ui/qt/widgets/EntryBox.h"

#include <QKeyEvent>

#include "base/CodePage.h"
#include "ui/qt/widgets/GridPainter.h"
#include "ui/qt/widgets/TextConversion.h"
#include "ui/qt/widgets/Twips.h"

namespace vk {
namespace {

int keyCode(int key) {
  switch (key) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
      return kKeyEnter;
    case Qt::Key_Up:
      return kKeyUp;
    case Qt::Key_Down:
      return kKeyDown;
    default:
      return 0;
  }
}

/// The text without the characters that have no place in code page 437.
QString withoutForeign(const QString& text) {
  QString kept;
  for (const char32_t c : text.toStdU32String()) {
    if (fromUnicode(c, CodePage::kCp437)) kept += QString::fromUcs4(&c, 1);
  }
  return kept;
}

}  // namespace

EntryBox::EntryBox(QWidget* form) : QLineEdit(form) {
  setObjectName("txtGet");
  setFrame(false);
  // The toolkit's own margins, and the step of the box into its field, are taken back: a text stays in its place
  // when the box comes to its field.
  setTextMargins(-3, -4, -4, -1);
  connect(this, &QLineEdit::textEdited, this, &EntryBox::keepToCodePage);
}

void EntryBox::show(const EditBox& box) {
  setVisible(box.visible);
  if (!box.visible) return;
  setGeometry(toPixels(box.place));
  setAlignment((box.flushRight ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignVCenter);
  QPalette colours = palette();
  colours.setColor(QPalette::Base, toColour(box.background));
  colours.setColor(QPalette::Text, toColour(kBlack));
  setPalette(colours);
  const QString shown = fromText(box.text);
  if (text() != shown) setText(shown);
  raise();
}

void EntryBox::keyPressEvent(QKeyEvent* event) {
  const int code = keyCode(event->key());
  if (code != 0 && keyDown && keyDown(code)) {
    event->accept();
  } else {
    QLineEdit::keyPressEvent(event);
  }
}

bool EntryBox::focusNextPrevChild(bool next) {
  return keyDown && keyDown(next ? kKeyDown : kKeyUp);
}

void EntryBox::keepToCodePage(const QString& text) {
  if (!fitsCp437(text)) {
    const QString kept = withoutForeign(text);
    const auto position = withoutForeign(text.left(cursorPosition())).size();
    setText(kept);
    setCursorPosition(static_cast<int>(position));
  }
  if (typed) typed(toCp437(this->text()));
}

}  // namespace vk
