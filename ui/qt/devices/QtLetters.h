#pragma once

#include <memory>
#include <optional>

#include "gral/sinks/RasterSink.h"

namespace vk {

struct FontGlyph;

/// Widths and shapes of letters from the fonts of the system: a sans-serif face for "Arial", and for the
/// Symbol layout whatever font has the sign. Needs the toolkit's application object.
///
/// Widths grow exactly with the size, so that a text is set alike on every device.
class QtLetters : public GlyphSource {
 public:
  QtLetters();
  ~QtLetters() override;

  double advance(bool symbol, unsigned char code) override;
  double lineHeight(bool symbol) override;
  double ascent(bool symbol) override;
  double kerning(bool symbol, unsigned char code, unsigned char next) override;
  const GlyphMask& glyph(bool symbol, unsigned char code, double pixels, double angle,
                         const PixelRect& seen) override;
  /// What the shapes that are kept for the next time take.
  std::size_t keptBytes() const;

  /// What draws a letter: its font in a size of whole pixels, and its number there. Nothing for one without a shape.
  std::optional<FontGlyph> fontGlyph(bool symbol, unsigned char code, int pixels);
  /// The face of the system in which a letter is found.
  std::string face(bool symbol, unsigned char code) const;

 private:
  struct Tables;
  std::unique_ptr<Tables> tables_;
};

}  // namespace vk
