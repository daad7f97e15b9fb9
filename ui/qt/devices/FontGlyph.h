#pragma once

#include <QRawFont>

namespace vk {

/// A letter of a font.
struct FontGlyph {
  QRawFont font;
  quint32 number;
};

}  // namespace vk
