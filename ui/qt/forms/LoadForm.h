/// Form Loa_Fun: the choice of a function of a file.
#pragma once

#include <QPlainTextEdit>

#include "ui/LoadFunction.h"
#include "ui/qt/forms/FunctionForm.h"

namespace vk {

/// The load form: the functions of the file read, with definition and parameters of the selected one.
class Loa_Fun : public FunctionForm {
 public:
  Loa_Fun(LoadFunction& engine, const Windows& windows, const FontSpec& font);

  /// Fills the list from the engine and selects its first entry.
  void refill();
  /// Shows the form modally; the chosen entry from 1, or 0 for "&Rinuncia".
  int ask();

 private:
  void arrange();
  void changed();

  LoadFunction& engine_;
  QListWidget* LstFun_;
  QPlainTextEdit* TxtDef_;
  QPlainTextEdit* TxtPar_;
};

}  // namespace vk
