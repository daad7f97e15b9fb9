// Loops over all pixels of large pictures, which are compiled with optimisation, unlike the tests.

#include "Pixels.h"

#include <algorithm>
#include <cstdlib>

namespace vk {
namespace {

constexpr int kClearlyInk = 200, kSomeInk = 60;

int darkness(std::uint32_t pixel) {
  return 255 - static_cast<int>(pixel >> 8 & 0xFF);
}

const QRgb* rowOf(const QImage& image, int y) {
  return reinterpret_cast<const QRgb*>(image.constScanLine(y));
}

const std::uint32_t* rowOf(const Picture& picture, int y) {
  return picture.pixels.data() + static_cast<std::ptrdiff_t>(y) * picture.width;
}

bool darkNearby(const Picture& picture, int x, int y) {
  for (int j = std::max(0, y - 1); j <= std::min(picture.height - 1, y + 1); ++j) {
    const std::uint32_t* row = rowOf(picture, j);
    for (int i = std::max(0, x - 1); i <= std::min(picture.width - 1, x + 1); ++i) {
      if (darkness(row[i]) >= kSomeInk) return true;
    }
  }
  return false;
}

int difference(QRgb a, QRgb b) {
  return std::max(
      {std::abs(qRed(a) - qRed(b)), std::abs(qGreen(a) - qGreen(b)), std::abs(qBlue(a) - qBlue(b))});
}

}  // namespace

Picture pictureOf(const QImage& image) {
  Picture picture;
  picture.width = image.width();
  picture.height = image.height();
  for (int y = 0; y < image.height(); ++y)
    picture.pixels.insert(picture.pixels.end(), rowOf(image, y), rowOf(image, y) + image.width());
  return picture;
}

long inkOf(const Picture& picture) {
  long result = 0;
  for (const std::uint32_t pixel : picture.pixels) result += darkness(pixel);
  return result;
}

int darkPixels(const Picture& picture) {
  return static_cast<int>(std::count_if(picture.pixels.begin(), picture.pixels.end(),
                                        [](std::uint32_t pixel) { return darkness(pixel) >= kClearlyInk; }));
}

int darkPixelsAlone(const Picture& a, const Picture& b) {
  int result = 0;
  for (int y = 0; y < a.height; ++y) {
    const std::uint32_t* row = rowOf(a, y);
    for (int x = 0; x < a.width; ++x) {
      if (darkness(row[x]) >= kClearlyInk && !darkNearby(b, x, y)) ++result;
    }
  }
  return result;
}

QRectF inkBox(const Raster& raster, int ratio) {
  int left = raster.width(), top = raster.height(), right = 0, bottom = 0;
  const std::uint32_t* pixel = raster.pixels().data();
  for (int y = 0; y < raster.height(); ++y) {
    for (int x = 0; x < raster.width(); ++x) {
      if (*pixel++ == 0xFFFFFFFF) continue;
      left = std::min(left, x);
      right = std::max(right, x + 1);
      top = std::min(top, y);
      bottom = std::max(bottom, y + 1);
    }
  }
  const double side = kNominalTwipsPerPixel / ratio;
  return {QPointF(left * side, top * side), QPointF(right * side, bottom * side)};
}

ImageDifference differenceOf(const QImage& a, const QImage& b) {
  ImageDifference result;
  for (int y = 0; y < a.height(); ++y) {
    const QRgb *rowA = rowOf(a, y), *rowB = rowOf(b, y);
    for (int x = 0; x < a.width(); ++x) {
      const int levels = difference(rowA[x], rowB[x]);
      result.mean += levels;
      result.clear += levels > 127 ? 1 : 0;
    }
  }
  const double pixels = static_cast<double>(a.width()) * a.height();
  return {result.mean / pixels, result.clear / pixels};
}

}  // namespace vk
