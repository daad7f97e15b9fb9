#pragma once

#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>

#include "ui/SelectFunction.h"
#include "ui/qt/ModalLoop.h"
#include "ui/qt/Windows.h"

namespace vk {

/// A list of code page 437 texts, each character in a cell of its own.
void fillList(QListWidget& list, const std::vector<std::string>& texts);

/// The selection form: lists of f and g and the text of the composite.
class Sel_Fun : public QWidget {
 public:
  Sel_Fun(SelectFunction& engine, const Windows& windows);

  /// Fills both lists from the engine.
  void refill();
  /// Shows the form modally; true for "&Accetta".
  bool ask();

 protected:
  void closeEvent(QCloseEvent* event) override;

 private:
  void arrange();
  void changed();
  void end(bool accepted);

  SelectFunction& engine_;
  const Windows& windows_;
  ModalLoop loop_;
  QListWidget* LstOut_;
  QListWidget* LstInn_;
  QLineEdit* TxtFun_;
  QPushButton* CmdAcc_;
  QPushButton* CmdRin_;
  bool accepted_ = false;
  bool syncing_ = false;
};

}  // namespace vk
