#pragma once

#include "platform/FunctionForms.h"
#include "ui/qt/forms/LoadForm.h"
#include "ui/qt/forms/SelectionForm.h"

namespace vk {

/// The two function forms of the desktop.
class QtFunctionForms : public FunctionForms {
 public:
  QtFunctionForms(Sel_Fun& select, Loa_Fun& load) : select_(select), load_(load) {}
  bool selectFunction() override { return select_.ask(); }
  int chooseLoadedFunction() override { return load_.ask(); }
  void refillSelection() override { select_.refill(); }
  void refillLoadList() override { load_.refill(); }

 private:
  Sel_Fun& select_;
  Loa_Fun& load_;
};

}  // namespace vk
