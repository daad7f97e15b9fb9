#pragma once

#include <QListWidget>
#include <QPushButton>

#include "base/EncodedText.h"
#include "platform/FontSpec.h"
#include "ui/qt/forms/ModalLoop.h"
#include "ui/qt/forms/Windows.h"

namespace vk {

/// What the two forms share by which the user chooses functions: lists of code page 437 texts, the buttons
/// `CmdAcc` and `CmdRin`, and a modal showing beside the main window.
class FunctionForm : public QWidget {
 protected:
  /// `font` is that of everything but the lists and texts of functions.
  FunctionForm(const char* name, const char* caption, const Windows& windows, const FontSpec& font);

  /// A list with room for `columns` characters.
  QListWidget* makeList(const char* name, const char* meaning, int columns);
  /// Makes both buttons; the last controls to be made are the last that Tab comes to.
  void makeButtons();
  /// Runs a selection handler; what it throws ends the showing.
  template <class Handler>
  void handle(Handler&& handler) {
    loop_.handle(handler);
  }
  /// Shows the form with the focus on `first` until a button ends it; true for "&Accetta". The window's own
  /// close control is "&Rinuncia".
  bool runModal(QWidget& first);

  void closeEvent(QCloseEvent* event) override;

  static constexpr int kSpace = 12;  ///< pixels between the controls; twice as much at the edges
  QPushButton* CmdAcc_ = nullptr;
  QPushButton* CmdRin_ = nullptr;

 private:
  QPushButton* makeButton(const char* name, const WindowText& caption, bool accepts);
  void end(bool accepted);

  const Windows& windows_;
  ModalLoop loop_;
  bool accepted_ = false;
};

/// Puts code page 437 texts into a list, in place of what it holds.
void fillList(QListWidget& list, const std::vector<std::string>& texts);

}  // namespace vk
