#include "ui/qt/devices/VectorDevice.h"

#include <QBuffer>
#include <QPageSize>
#include <QPdfWriter>

#include "base/RuntimeError.h"
#include "gral/sinks/FloodPictures.h"
#include "gral/sinks/SvgWriter.h"
#include "ui/qt/devices/PainterSink.h"

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
  QByteArray bytes;
  QBuffer buffer(&bytes);
  buffer.open(QIODevice::WriteOnly);
  QPdfWriter writer(&buffer);
  writer.setCreator(QStringLiteral("Vor_Kel"));
  writer.setResolution(static_cast<int>(kTwipsPerInch));
  writer.setPageMargins(QMarginsF(0, 0, 0, 0));
  const QSizeF points(size.width / kTwipsPerPoint, size.height / kTwipsPerPoint);
  writer.setPageSize(QPageSize(points, QPageSize::Point, QString(), QPageSize::ExactMatch));
  QPainter painter;
  if (!painter.begin(&writer)) throw RuntimeError(kDeviceIoError);
  {
    PainterSink sink(painter, letters, kNominalTwipsPerPixel / pixelRatio, kNominalTwipsPerPixel);
    replayAsVectors(list, sink, letters, {static_cast<double>(pixelRatio), 1});
  }
  painter.end();
  return bytes.toStdString();
}

}  // namespace vk
