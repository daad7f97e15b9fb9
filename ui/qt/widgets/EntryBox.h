#pragma once

#include <QLineEdit>
#include <functional>

#include "ui/layout/InputLayout.h"

namespace vk {

/// The edit box `txtGet` of the input form. It knows nothing of fields: keys and the loss of the focus are told
/// to the form. Only characters of code page 437 can be entered.
class EntryBox : public QLineEdit {
 public:
  explicit EntryBox(QWidget* form);

  /// Shows the state of the engine's box.
  void show(const EditBox& box);

  std::function<bool(int keyCode)> keyDown;
  std::function<void(const Cp437Text&)> typed;

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  /// Tab walks through the fields like the arrows, and never on to the buttons.
  bool focusNextPrevChild(bool next) override;

 private:
  void keepToCodePage(const QString& text);
};

}  // namespace vk
