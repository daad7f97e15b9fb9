#pragma once

#include <QObject>
#include <functional>

#include "platform/ManualPages.h"

class QWidget;

namespace vk {

/// Tells what the manual says of a window, or of a part of one.
void setManualTopic(QWidget& widget, ManualTopic topic);

/// The topic of the part of the program that holds this widget: its own, else that of what is around it, else that of
/// the window above which it stands.
ManualTopic manualTopic(const QWidget& widget);

/// The key F1, wherever in the program it is pressed.
class HelpKey : public QObject {
 public:
  /// `pressed` gets the topic of what has the focus.
  explicit HelpKey(std::function<void(ManualTopic)> pressed);

 protected:
  bool eventFilter(QObject* target, QEvent* event) override;

 private:
  std::function<void(ManualTopic)> pressed_;
};

}  // namespace vk
