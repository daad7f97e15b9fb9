#include "ui/qt/devices/VectorDevice.h"

#include "gral/sinks/FloodPictures.h"
#include "gral/sinks/SvgWriter.h"
#include "ui/qt/devices/PdfPage.h"

namespace vk {

VectorDevice::VectorDevice(QtLetters& letters)
    : Device(FormMetrics{{0, 0}, kPixelRatio}, *this, letters), fonts_(letters) {
  Cls();
}

std::string VectorDevice::svg() const {
  return svgOf(*this, kPixelRatio, fonts_);
}

std::string VectorDevice::pdf() const {
  return pdfOf(*this, area(), kPixelRatio, fonts_);
}

std::string svgOf(const DisplayList& list, int pixelRatio, QtLetters& letters) {
  SvgWriter writer(pixelRatio, letters);
  replayAsVectors(list, writer, letters, {static_cast<double>(pixelRatio), 1});
  return writer.document();
}

std::string pdfOf(const DisplayList& list, const SheetSize& size, int pixelRatio, QtLetters& letters) {
  PdfPage page(size, pixelRatio, letters);
  replayAsVectors(list, page, letters, {static_cast<double>(pixelRatio), 1});
  return page.document();
}

}  // namespace vk
