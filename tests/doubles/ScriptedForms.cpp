#include "doubles/ScriptedForms.h"

#include <gtest/gtest.h>

namespace vk {

ScriptedFunctionForms::~ScriptedFunctionForms() {
  if (!pairs_.empty()) ADD_FAILURE() << pairs_.size() << " answers to the selection form left over";
  if (!entries_.empty()) ADD_FAILURE() << entries_.size() << " answers to the load form left over";
}

bool ScriptedFunctionForms::selectFunction() {
  if (whileOpen) whileOpen();
  if (pairs_.empty()) {
    ADD_FAILURE() << "unexpected selection form";
    return false;
  }
  const Answer answer = pairs_.front();
  pairs_.pop_front();
  if (answer.accepted) {
    session_.analysis.fun.InnerIndex = answer.pair.first;
    session_.analysis.fun.OuterIndex = answer.pair.second;
  }
  return answer.accepted;
}

int ScriptedFunctionForms::chooseLoadedFunction() {
  if (whileOpen) whileOpen();
  if (entries_.empty()) {
    ADD_FAILURE() << "unexpected load form";
    return 0;
  }
  const int entry = entries_.front();
  entries_.pop_front();
  return entry;
}

ScriptedInputForm::~ScriptedInputForm() {
  if (!answers_.empty()) ADD_FAILURE() << answers_.size() << " answers to the input form left over";
}

bool ScriptedInputForm::InpShow(InputTables& tables, Form caller) {
  shown.push_back(tables);
  callers.push_back(caller);
  if (answers_.empty()) ADD_FAILURE() << "unexpected input form: " << tables.caption.bytes();
  if (answers_.empty() || !answers_.front().executed) {
    if (!answers_.empty()) answers_.pop_front();
    return false;
  }
  const std::vector<std::string> fields = answers_.front().fields;
  answers_.pop_front();
  EXPECT_EQ(static_cast<int>(fields.size()), tables.InpFieldCount) << "fields of: " << tables.caption.bytes();
  for (int i = 1; i <= tables.InpFieldCount && i <= static_cast<int>(fields.size()); ++i) {
    tables.InpValues[i] = Cp437Text(fields[static_cast<std::size_t>(i - 1)]);
  }
  return true;
}

}  // namespace vk
