#include "ui/qt/devices/ScreenDevice.h"

#include <algorithm>

#include "base/CodePage.h"
#include "gral/sinks/FloodPictures.h"

namespace vk {
namespace {

/// So many pixels to a nominal one make letters look smooth after the reduction.
constexpr int kFinePixels = 4;

int pixelRatioFor(int screenRatio) {
  return screenRatio * std::max(2, kFinePixels / screenRatio);
}

/// The primitives on a form as they were when its picture was taken.
class FormDrawing : public PictureSource {
 public:
  FormDrawing(const DisplayList& list, int pixelRatio, QtLetters& letters)
      : list_(list), pixelRatio_(pixelRatio), letters_(letters) {}
  void drawOn(DrawingSink& sink) const override {
    replayAsVectors(list_, sink, letters_, {static_cast<double>(pixelRatio_), 1});
  }
  double twipsPerPixel() const override { return kNominalTwipsPerPixel / pixelRatio_; }

 private:
  DisplayList list_;
  int pixelRatio_;
  QtLetters& letters_;
};

}  // namespace

ScreenDevice::ScreenDevice(QtLetters& letters, int screenRatio)
    : ScreenParts{RasterSink(pixelRatioFor(screenRatio), letters), {}},
      TeeSink(rasterSink_, list_),
      Device(FormMetrics{{0, 0}, pixelRatioFor(screenRatio)}, *this, letters),
      screenRatio_(screenRatio),
      pixelRatio_(pixelRatioFor(screenRatio)),
      fonts_(letters) {
  Cls();
}

Picture ScreenDevice::image() {
  Picture picture = raster().reduced(reduction());
  picture.twipsPerPixel = kNominalTwipsPerPixel / screenRatio_;
  picture.source = std::make_shared<FormDrawing>(list_, pixelRatio_, fonts_);
  return picture;
}

DrawingFiles ScreenDevice::files() const {
  return {list_, area(), pixelRatio_, fonts_};
}

FigureSheet ScreenDevice::sheet() const {
  return {.words = {toUtf8(Caption(), CodePage::kWindows1252), {}}};
}

std::string ScreenDevice::svg() const {
  return files().svg(sheet());
}

std::string ScreenDevice::pdf() const {
  return files().pdf(sheet());
}

// What was drawn before can no longer be seen.
void ScreenDevice::clear(const SheetSize& size, Colour background) {
  list_.reset();
  TeeSink::clear(size, background);
}

void ScreenDevice::formChanged() {
  if (onFormChanged) onFormChanged();
}

void ScreenDevice::refresh() {
  if (onRefresh) onRefresh();
}

}  // namespace vk
