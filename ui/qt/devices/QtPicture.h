#pragma once

#include <QImage>

#include "gral/DeviceTypes.h"

namespace vk {

/// The picture as an image of the toolkit that shares its pixels: good as long as the picture lives.
inline QImage imageOf(const Picture& picture, QImage::Format format = QImage::Format_RGB32) {
  return QImage(reinterpret_cast<const uchar*>(picture.pixels.data()), picture.width, picture.height, format);
}
/// The same where pixels may be missing.
inline QImage imageWithHoles(const Picture& picture) {
  return imageOf(picture, QImage::Format_ARGB32_Premultiplied);
}

}  // namespace vk
