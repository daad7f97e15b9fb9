#pragma once

#include <QPlainTextEdit>
#include <functional>

#include "base/EncodedText.h"

namespace vk {

/// A text control of the editor. It shows 8-bit text and gives every byte back; only characters
/// of that code page come in, however they are entered.
class EditorBox : public QPlainTextEdit {
 public:
  explicit EditorBox(QWidget* form);

  /// Text that stands behind `EditorForm`, lines ended by CR LF.
  void load(const Cp437Text& text);
  Cp437Text bytes() const;
  Cp437Text SelText() const;
  /// Puts a text in at the start of the selection; the caret stays there, before it.
  void insertBefore(const Cp437Text& text);

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
};

}  // namespace vk
