#include "doubles/ScriptedDialogs.h"

#include <gtest/gtest.h>

namespace vk {

ScriptedDialogs::~ScriptedDialogs() {
  if (!answers_.empty()) ADD_FAILURE() << answers_.size() << " answers to Get_Msg left over";
  if (!names_.empty()) ADD_FAILURE() << names_.size() << " answers to the file dialog left over";
  if (expectedBoxes_ > 0) ADD_FAILURE() << expectedBoxes_ << " expected boxes did not come";
}

int ScriptedDialogs::Get_Msg(const MessageRequest& request) {
  messages.push_back(request);
  if (answers_.empty()) {
    ADD_FAILURE() << "unexpected question: " << request.caption << ": " << request.text;
    return 1;
  }
  const int button = answers_.front();
  answers_.pop_front();
  EXPECT_LE(button, static_cast<int>(request.captions.size())) << "no such button in: " << request.text;
  return button;
}

void ScriptedDialogs::plainBox(const std::string& title, const std::string& text) {
  boxes.push_back({title, text});
  if (--expectedBoxes_ < 0) {
    expectedBoxes_ = 0;
    ADD_FAILURE() << "unexpected box: " << title << ": " << text;
  }
}

std::optional<std::string> ScriptedDialogs::fileDialog(const FileRequest& request) {
  fileRequests.push_back(request);
  if (names_.empty()) {
    ADD_FAILURE() << "unexpected file dialog: " << request.caption;
    return std::nullopt;
  }
  auto name = names_.front();
  names_.pop_front();
  return name;
}

}  // namespace vk
