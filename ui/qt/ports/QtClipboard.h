#pragma once

#include "platform/Clipboard.h"
#include "platform/FontSpec.h"

namespace vk {

/// The clipboard of the desktop.
class QtClipboard : public Clipboard {
 public:
  /// Grids are copied as pictures in this font.
  explicit QtClipboard(const FontSpec& font) : font_(font) {}
  void clear() override;
  void setText(const PlainText& text) override;
  void setGrid(const CharGrid& grid) override;
  ClipboardText text() override;

 private:
  const FontSpec& font_;
};

}  // namespace vk
