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
    ADD_FAILURE() << "unexpected question: " << request.caption.bytes() << ": " << request.text.bytes();
    return 1;
  }
  const int button = answers_.front();
  answers_.pop_front();
  EXPECT_LE(button, static_cast<int>(request.captions.size()))
      << "no such button in: " << request.text.bytes();
  return button;
}

void ScriptedDialogs::plainBox(const WindowText& title, const WindowText& text) {
  boxes.push_back({std::string(title.bytes()), std::string(text.bytes())});
  if (--expectedBoxes_ < 0) {
    expectedBoxes_ = 0;
    ADD_FAILURE() << "unexpected box: " << title.bytes() << ": " << text.bytes();
  }
}

std::optional<std::string> ScriptedDialogs::fileDialog(const FileRequest& request) {
  fileRequests.push_back(request);
  if (names_.empty()) {
    ADD_FAILURE() << "unexpected file dialog: " << request.caption.bytes();
    return std::nullopt;
  }
  auto name = names_.front();
  names_.pop_front();
  return name;
}

}  // namespace vk
