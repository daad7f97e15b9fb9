#pragma once

#include <vector>

#include "batch/FitCommand.h"
#include "platform/InputForm.h"
#include "session/Session.h"

namespace vk {

/// The input form of the starting values, filled in from the command line instead of by hand.
///
/// Every parameter of the model needs its value, and every value its parameter; else `UsageError`. Where two
/// parameters bear one name, the first value goes to the first.
class ArgumentForm : public InputForm {
 public:
  ArgumentForm(Session& session, std::vector<StartValue> values)
      : session_(session), values_(std::move(values)) {}
  void InpShow(InputTables& tables, Form caller) override;

 private:
  StartValue takeValue(const std::string& name);

  Session& session_;
  std::vector<StartValue> values_;
};

}  // namespace vk
