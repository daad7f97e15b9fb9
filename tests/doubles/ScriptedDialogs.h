#pragma once

#include <deque>
#include <optional>
#include <string>
#include <vector>

#include "doubles/TextComparison.h"
#include "platform/Dialogs.h"

namespace vk {

/// A user whose answers are written down beforehand. An unexpected question, or an answer left over at the
/// end, fails the test. What was shown is kept for comparison.
class ScriptedDialogs : public Dialogs {
 public:
  ~ScriptedDialogs() override;

  /// Answers the next `Get_Msg` with this button.
  void press(int button) { answers_.push_back(button); }
  /// Expects one more plain box.
  void expectBox() { ++expectedBoxes_; }
  /// Answers the next file dialog with this name; nothing is a cancel.
  void pick(std::optional<std::string> name) { names_.push_back(std::move(name)); }

  int Get_Msg(const MessageRequest& request) override;
  void plainBox(const WindowText& title, const WindowText& text) override;
  std::optional<std::string> fileDialog(const FileRequest& request) override;

  struct Box {
    std::string title;
    std::string text;
    bool operator==(const Box&) const = default;
  };
  std::vector<MessageRequest> messages;
  std::vector<Box> boxes;
  std::vector<FileRequest> fileRequests;

 private:
  std::deque<int> answers_;
  std::deque<std::optional<std::string>> names_;
  int expectedBoxes_ = 0;
};

}  // namespace vk
