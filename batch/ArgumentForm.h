#pragma once

#include <string>
#include <vector>

#include "batch/Assignment.h"
#include "platform/InputForm.h"
#include "session/Session.h"

namespace vk {

/// A variable of the command line with the two numbers that the form of the parameters asks for.
struct EnteredValue {
  Assignment assignment;
  std::string second;  ///< for a fit "1" free or "0" constant; for a propagation the error
};

/// The comma list of the names, in their order, without that of the independent variable.
std::string parameterNames(const std::vector<EnteredValue>& values);

/// The input form of the parameters, filled in from the command line instead of by hand.
///
/// Every parameter of the model needs its value, and every value its parameter; else `UsageError`. Where two
/// parameters bear one name, the first value goes to the first. For a propagation the independent variable may
/// be left out and is 0 without error then.
class ArgumentForm : public InputForm {
 public:
  ArgumentForm(Session& session, std::vector<EnteredValue> values)
      : session_(session), values_(std::move(values)) {}
  void InpShow(InputTables& tables, Form caller) override;

 private:
  EnteredValue takeValue(int variable);

  Session& session_;
  std::vector<EnteredValue> values_;
};

/// Enters the starting values of a fit; at least one parameter must be free, else `UsageError`.
void enterStart(Session& session, const std::vector<EnteredValue>& values);

}  // namespace vk
