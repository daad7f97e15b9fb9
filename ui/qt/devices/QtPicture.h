#pragma once

#include <QImage>

#include "platform/DeviceTypes.h"

namespace vk {

/// The picture as an image of the toolkit that shares its pixels: good as long as the picture lives.
inline QImage imageOf(const Picture& picture) {
  return QImage(reinterpret_cast<const uchar*>(picture.pixels.data()), picture.width, picture.height,
                QImage::Format_RGB32);
}

}  // namespace vk
