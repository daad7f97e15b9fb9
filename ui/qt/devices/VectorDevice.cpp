#include "ui/qt/devices/VectorDevice.h"

#include <QImage>
#include <QPainter>
#include <cmath>

#include "gral/sinks/FloodPictures.h"
#include "gral/sinks/SvgWriter.h"
#include "ui/qt/devices/PdfPage.h"
#include "ui/qt/devices/PngFile.h"

namespace vk {

VectorDevice::VectorDevice(QtLetters& letters)
    : Device(FormMetrics{{0, 0}, kPixelRatio}, *this, letters), fonts_(letters) {
  Cls();
}

DrawingFiles VectorDevice::files() const {
  return {*this, area(), kPixelRatio, fonts_};
}

std::string VectorDevice::svg(const FigureSheet& sheet) const {
  return files().svg(sheet);
}

std::string VectorDevice::pdf(const FigureSheet& sheet) const {
  return files().pdf(sheet);
}

std::string VectorDevice::png(const FigureSheet& sheet) const {
  return files().png(sheet);
}

void DrawingFiles::drawOn(DrawingSink& sink) const {
  replayAsVectors(list, sink, letters, {static_cast<double>(pixelRatio), 1});
}

std::string DrawingFiles::svg(const FigureSheet& sheet) const {
  SvgWriter writer(pixelRatio, letters);
  drawOn(writer);
  return writer.document(sheet);
}

std::string DrawingFiles::pdf(const FigureSheet& sheet) const {
  PdfPage page(size, pixelRatio, letters, sheet);
  drawOn(page);
  return page.document();
}

std::string DrawingFiles::png(const FigureSheet& sheet) const {
  const double pixelsPerTwip = sheet.dpi / kTwipsPerInch;
  const DrawingPlace place = sheet.placeFor(size);
  const auto pixels = [&](double twips) { return static_cast<int>(std::lround(twips * pixelsPerTwip)); };
  QImage image(pixels(place.sheet.width), pixels(place.sheet.height), QImage::Format_ARGB32_Premultiplied);
  image.fill(sheet.transparent ? Qt::transparent : Qt::white);
  {
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.scale(pixelsPerTwip, pixelsPerTwip);
    painter.translate(place.corner.x, place.corner.y);
    painter.scale(place.scale, place.scale);
    PainterSink sink(painter, letters, kNominalTwipsPerPixel / pixelRatio, kNominalTwipsPerPixel);
    sink.keepGround();
    drawOn(sink);
  }
  return pngOf(sheet.transparent ? image : image.convertToFormat(QImage::Format_RGB32), sheet.dpi);
}

}  // namespace vk
