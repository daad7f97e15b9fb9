#include "ui/qt/devices/PngFile.h"

#include <QBuffer>
#include <cmath>

#include "base/Length.h"

namespace vk {

std::string pngOf(QImage image, double dotsPerInch) {
  constexpr double kInchesPerMeter = 100 / kCmPerInch;
  const int dotsPerMeter = static_cast<int>(std::lround(dotsPerInch * kInchesPerMeter));
  image.setDotsPerMeterX(dotsPerMeter);
  image.setDotsPerMeterY(dotsPerMeter);
  QByteArray bytes;
  QBuffer buffer(&bytes);
  buffer.open(QIODevice::WriteOnly);
  image.save(&buffer, "PNG");
  return bytes.toStdString();
}

}  // namespace vk
