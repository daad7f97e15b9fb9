#pragma once

#include "platform/Dialogs.h"

namespace vk {

/// A user who presses the first button of everything and closes every box. For random input, where nobody can
/// say beforehand what is asked.
class CountingDialogs : public Dialogs {
 public:
  int boxes = 0;

  int Get_Msg(const MessageRequest&) override { return 1; }
  void plainBox(const WindowText&, const WindowText&) override { ++boxes; }
  std::optional<std::string> fileDialog(const FileRequest&) override { return std::nullopt; }
};

}  // namespace vk
