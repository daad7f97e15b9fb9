#pragma once

#include "platform/Dialogs.h"
#include "ui/qt/FrmMsg.h"
#include "ui/qt/Windows.h"

namespace vk {

/// Questions to the user as windows.
class QtDialogs : public Dialogs {
 public:
  QtDialogs(const Windows& windows, FrmMsg& message) : windows_(windows), message_(message) {}

  int Get_Msg(const MessageRequest& request) override { return message_.ask(request); }
  void plainBox(const std::string& title, const std::string& text) override;
  std::optional<std::string> fileDialog(const FileRequest& request) override;

 private:
  QWidget* inFront() const;

  const Windows& windows_;
  FrmMsg& message_;
};

}  // namespace vk
