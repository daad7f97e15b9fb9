#include "ui/qt/ports/FigureView.h"

#include <algorithm>
#include <cmath>

#include "base/Guard.h"
#include "gral/NoPrinter.h"
#include "gral/Plotting.h"
#include "ui/qt/devices/QtPicture.h"
#include "ui/qt/widgets/TextConversion.h"
#include "ui/qt/widgets/Twips.h"

namespace vk {
namespace {

constexpr double kNaturalSize = 2;  // of a drawing in a window

}  // namespace

void FigureView::show(const FigureReport& report) {
  report_ = &report;
  setAccessibleName(fromText(report.figureName));
  setAccessibleDescription(fromText(report.figureMeaning));
  draw();
}

/// The page is as large as the view, so that letters keep their size.
void FigureView::draw() {
  if (report_ == nullptr || size().isEmpty()) return;
  const auto [shorter, longer] = std::minmax({width(), height()});
  NoPrinter page({.shortSide = toTwips(shorter), .longSide = toTwips(longer)});
  device_.emplace(graphics_.letters(), std::max(1, static_cast<int>(std::ceil(devicePixelRatioF()))));
  guard([&] {
    GralCls drawing(page);
    drawing.GralGrStr(*device_, width() > height() ? "LANDSCAPE" : "PORTRAIT", kNaturalSize);
    report_->draw(drawing, {0, 0, drawing.XrLog, drawing.YtLog});
    drawing.GralGrEnd();
  });
  setPixmap(QPixmap::fromImage(picture()));
}

QImage FigureView::picture() {
  if (!device_) return {};
  const Picture picture = device_->Image();
  QImage image = imageOf(picture).copy();
  image.setDevicePixelRatio(device_->screenRatio());
  return image;
}

// An error must not leave an event of the toolkit: the figure is drawn at the next size.
void FigureView::resizeEvent(QResizeEvent*) {
  guard([this] { draw(); });
}

}  // namespace vk
