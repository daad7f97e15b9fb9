#pragma once

#include "ui_qt/Desktop.h"

namespace vk {

/// The desktop behind its welcome, with the controls of the main window by their names.
class MainFormFixture : public Desktop {
 protected:
  void SetUp() override { start(); }
  template <class Control>
  Control* at(const QString& name) {
    return control<Control>(&window(), name);
  }
  void click(const QString& name) { QTest::mouseClick(at<QWidget>(name), Qt::LeftButton); }
  void choose(const QString& control) {
    user.choose(control);
    act();
  }
  int visiblePicture() {
    for (int i = 0; i < 3; ++i) {
      if (at<QLabel>(QString("Image1(%1)").arg(i))->isVisible()) return i;
    }
    return -1;
  }
  int windowPicture() { return dynamic_cast<Backdrop*>(window().centralWidget())->picture(); }
};

}  // namespace vk
