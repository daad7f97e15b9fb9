#pragma once

#include <QObject>
#include <QPointer>
#include <QWidget>

#include "platform/Dialogs.h"
#include "ui/qt/forms/MessageForm.h"
#include "ui/qt/forms/Windows.h"

namespace vk {

/// Questions to the user as windows.
class QtDialogs : public Dialogs {
 public:
  QtDialogs(const Windows& windows, FrmMsg& message);

  int Get_Msg(const MessageRequest& request) override { return message_.ask(request); }
  void plainBox(const WindowText& title, const WindowText& text) override;
  std::optional<std::string> fileDialog(const FileRequest& request) override;

 private:
  QWidget* inFront() const;
  void noteActivated(const QWindow* activated);

  const Windows& windows_;
  FrmMsg& message_;
  QObject watch_;
  QPointer<QWidget> lastActive_;  ///< the window that the user worked with last; no dialog
};

}  // namespace vk
