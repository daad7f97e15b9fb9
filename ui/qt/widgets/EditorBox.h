#pragma once

#include <QPlainTextEdit>
#include <functional>
#include <string>
#include <string_view>

namespace vk {

/// A text control of the editor. It shows 8-bit text of code page 437 and gives every byte back; only characters
/// of that code page come in, however they are entered.
class EditorBox : public QPlainTextEdit {
 public:
  explicit EditorBox(QWidget* form);

  /// Text that stands behind `EditorForm`, lines ended by CR LF.
  void load(std::string_view text);
  std::string bytes() const;
  std::string SelText() const;
  /// Puts a text in at the start of the selection; the caret stays there, before it.
  void insertBefore(std::string_view text);

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
