#pragma once

#include <QLabel>
#include <optional>

#include "gral/ReportWindow.h"
#include "ui/qt/devices/QtGraphics.h"
#include "ui/qt/devices/ScreenDevice.h"

namespace vk {

/// The figure of a report, drawn anew for each size of its place. Assistive tools read it in words.
class FigureView : public QLabel {
 public:
  /// The letters are made when the first figure is drawn.
  explicit FigureView(QtGraphics& graphics) : graphics_(graphics) {}

  /// The report outlives the view, or its next call.
  void show(const FigureReport& report);
  /// The figure as it is shown, as pixels and as SVG; empty before the first.
  QImage picture();
  std::string svg() const { return device_ ? device_->svg() : std::string(); }

 protected:
  void resizeEvent(QResizeEvent* event) override;

 private:
  void draw();

  QtGraphics& graphics_;
  const FigureReport* report_ = nullptr;
  std::optional<ScreenDevice> device_;
};

}  // namespace vk
