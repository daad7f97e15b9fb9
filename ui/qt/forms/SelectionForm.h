/// Form Sel_Fun: the choice of a function of the catalogue.
#pragma once

#include <QLineEdit>

#include "ui/SelectFunction.h"
#include "ui/qt/forms/FunctionForm.h"

namespace vk {

/// The selection form: lists of f and g and the text of the composite.
class Sel_Fun : public FunctionForm {
 public:
  Sel_Fun(SelectFunction& engine, const Windows& windows, const FontSpec& font);

  /// Fills both lists from the engine.
  void refill();
  /// Shows the form modally; true for "&Accetta".
  bool ask();

 private:
  void arrange();
  void changed();

  SelectFunction& engine_;
  QListWidget* LstOut_;
  QListWidget* LstInn_;
  QLineEdit* TxtFun_;
  bool syncing_ = false;
};

}  // namespace vk
