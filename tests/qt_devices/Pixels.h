#pragma once

#include <QImage>
#include <QRectF>

#include "gral/DeviceTypes.h"
#include "gral/sinks/Raster.h"

namespace vk {

/// The picture of an image in 32 bits.
Picture pictureOf(const QImage& image);

/// How dark all pixels are together, 0 to 255 each.
long inkOf(const Picture& picture);

/// How many pixels are clearly dark.
int darkPixels(const Picture& picture);

/// How many pixels are clearly dark in a, while neither they nor those beside them are somewhat dark in b, which is as
/// large.
int darkPixelsAlone(const Picture& a, const Picture& b);

/// The box around everything that is not white, in twips; ratio: pixels to a nominal one.
QRectF inkBox(const Raster& raster, int ratio);

struct ImageDifference {
  double mean = 0, clear = 0;  ///< levels a pixel, share of the pixels that differ by half of all levels
};

/// How two images of 32 bits and one size differ.
ImageDifference differenceOf(const QImage& a, const QImage& b);

}  // namespace vk
