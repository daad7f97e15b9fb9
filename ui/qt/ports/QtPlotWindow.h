/// Form GralFrm: the window of a figure.
#pragma once

#include <QWidget>
#include <functional>
#include <memory>
#include <vector>

#include "gral/PlotWindows.h"
#include "ui/qt/devices/QtGraphics.h"
#include "ui/qt/devices/ScreenDevice.h"
#include "ui/qt/forms/Windows.h"
#include "ui/qt/widgets/EventPump.h"

namespace vk {

/// The window `GralFrm`: a bare form that shows one figure. The figure decides its size; a click anywhere is
/// an event, and so are the keys that stand for one; its window control hides it.
class QtPlotWindow : public QWidget, public PlotWindow {
 public:
  /// What all plot windows share; it outlives them.
  struct World {
    QtGraphics& graphics;
    EventPump& pump;
    EventRunner run;  ///< carries the handler of a click
    std::function<void(QtPlotWindow&)> activated;
    /// The place for a window that asks for this one, where another figure may stand.
    std::function<QPoint(QPoint)> freePlace;
  };
  /// `number` counts the windows of the program, from 1.
  QtPlotWindow(const World& world, int number);
  int number() const { return number_; }

  Device& device() override { return device_; }
  void setClickRoutine(std::function<void()> routine) override { click_ = std::move(routine); }
  /// A bitmap in the pixels of the screen, and beside it the same as files: PNG, SVG, PDF.
  void copyPicture() override;

 protected:
  void paintEvent(QPaintEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void changeEvent(QEvent* event) override;
  void closeEvent(QCloseEvent* event) override;

 private:
  void click();
  void followForm();
  void paint(const QRect& wanted);
  /// Asks for a repaint of what has been drawn since the last call; false when nothing has.
  bool showChanged();

  const World& world_;
  int number_;
  ScreenDevice device_;
  std::function<void()> click_;
};

/// The plot windows of the desktop. A hidden one is freed when the next is made.
class QtPlotWindows : public PlotWindows {
 public:
  QtPlotWindows(QtGraphics& graphics, EventPump& pump, EventRunner run);

  PlotWindow& create() override;
  PlotWindow* active() override { return active_; }
  int made() const override { return made_; }
  void closeSince(int made) override;
  void closeAll() override;

  /// The window in front of all plot windows; none when it has been hidden.
  QWidget* activeWindow() { return active_ != nullptr && active_->isVisible() ? active_ : nullptr; }

 private:
  void freeHidden();
  QPoint freePlace(QPoint first) const;

  QtPlotWindow::World world_;
  std::vector<std::unique_ptr<QtPlotWindow>> windows_;
  int made_ = 0;
  QtPlotWindow* active_ = nullptr;
};

}  // namespace vk
