#pragma once

#include <QMenuBar>

namespace vk {

/// The menu bar of the main window: a grey menu has no access key.
class TopMenuBar : public QMenuBar {
 public:
  using QMenuBar::QMenuBar;

 protected:
  bool event(QEvent* event) override;
};

}  // namespace vk
