#pragma once

#include <QPlainTextEdit>
#include <functional>

#include "base/EncodedText.h"

namespace vk {

/// A text control of the editor. It gives every byte back. Into 8-bit text only characters of its code page come,
/// however they are entered, into UTF-8 all.
class EditorBox : public QPlainTextEdit {
 public:
  explicit EditorBox(QWidget* form);

  /// Text that stands behind `EditorForm`, lines ended by CR LF.
  void load(const PlainText& text);
  PlainText bytes() const;
  PlainText SelText() const;
  /// Puts a text in at the start of the selection; the caret stays there, before it.
  void insertBefore(const PlainText& text);

  /// The font, which gives the tab stops.
  void setTextFont(const QFont& font);

  /// Called when characters were refused.
  std::function<void()> refused;

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void inputMethodEvent(QInputMethodEvent* event) override;
  QMimeData* createMimeDataFromSelection() const override;
  void insertFromMimeData(const QMimeData* source) override;

 private:
  QString take(const QString& text);

  bool isUtf8_ = false;
};

}  // namespace vk
