#pragma once

#include <span>

#include "base/Int16.h"
#include "base/RuntimeError.h"
#include "gral/DeviceTypes.h"

namespace vk {

/// The pen that a primitive is drawn with.
struct Pen {
  Colour color = kBlack;
  int width = 1;  ///< `DrawWidth`: nominal pixels on a form, device pixels on a printer
  int style = kDrawSolid;
  bool operator==(const Pen&) const = default;
};

/// The filling of closed figures.
struct Filling {
  Colour color = kBlack;
  int style = kFillTransparent;
  bool operator==(const Filling&) const = default;
};

/// Areas without an outline get one of their own colour, so wide in twips, where they are shown smoothed: they
/// touch one another, and the ground would shine through between two smoothed edges. It stays under a line that
/// is drawn along them.
inline constexpr double kTouchingOutline = kNominalTwipsPerPixel * 2 / 3;

/// Lengths of the device's own line styles, pen down and up in turn, in widths of the pen; none for the styles
/// without dashes.
std::span<const int> dashesOf(int style);

/// What a drawing consists of, one call for one primitive: the end to which a device draws. Pixels are those of
/// the device's graphics context, places are twips from the top left corner of the drawing area. Pen and filling are
/// announced when a primitive uses others than the one before; texts take the colour of the pen.
class DrawingSink {
 public:
  virtual ~DrawingSink() = default;

  /// A new, empty picture of this size.
  virtual void clear(const SheetSize& size, Colour background) = 0;
  virtual void pen(const Pen& pen) = 0;
  virtual void filling(const Filling& filling) = 0;
  /// With the pen, both ends included.
  virtual void line(const TwipPoint& from, const TwipPoint& to) = 0;
  /// The outline of the rectangle between two corners, with the pen.
  virtual void box(const TwipPoint& a, const TwipPoint& b) = 0;
  /// Its inside in a colour, without outline.
  virtual void filledBox(const TwipPoint& a, const TwipPoint& b, Colour color) = 0;
  /// Outline with the pen, inside with the filling.
  virtual void circle(const TwipPoint& centre, Twips radius) = 0;
  /// Straight lines from point to point, two or more, with the pen.
  virtual void polyline(std::span<const PixelPoint> points) = 0;
  /// Curves of third degree through the points 0, 3, 6, ...; the others are control points.
  virtual void bezier(std::span<const PixelPoint> points) = 0;
  /// The closed polygon: its inside with the filling, its outline with the pen, or both.
  virtual void figure(std::span<const PixelPoint> points, bool fill, bool stroke) = 0;
  /// The area around a pixel, up to a colour, with the filling.
  virtual void floodFill(const PixelPoint& start, Colour limit) = 0;
  virtual void text(const TextRun& run) = 0;
  /// Limits what follows; none for no limit.
  virtual void clip(const PixelRect* region) = 0;
  /// In its natural size, with its top left corner there.
  virtual void picture(const Picture& picture, const TwipPoint& corner) = 0;
  /// Shows what was drawn so far.
  virtual void refresh() = 0;

  // What a form or a printer does beside drawing.

  /// Caption, place, size or visibility of the form has changed.
  virtual void formChanged() {}
  /// The picture that the form shows; what has none refuses with run-time error 5.
  virtual Picture image() { throw RuntimeError(kInvalidCall); }
  /// The paper is turned to this `PaperOrientation`.
  virtual void turned(Int16) {}
  /// Ends the document and sends it. A printer that fails is run-time error 482.
  virtual void endDocument() {}
  /// Drops the document that has not ended. Never fails.
  virtual void dropDocument() {}
};

/// How wide letters are. Codes are Windows-1252, or the Symbol layout.
class LetterMetrics {
 public:
  virtual ~LetterMetrics() = default;
  /// Width of a letter, height of a line, and depth of the base line below its top, for a size of 1.
  virtual double advance(bool symbol, unsigned char code) = 0;
  virtual double lineHeight(bool symbol) = 0;
  virtual double ascent(bool symbol) = 0;
  /// What programs that set a text add to the width of a letter before another one.
  virtual double kerning(bool, unsigned char, unsigned char) { return 0; }
};

/// Letter widths that depend on nothing outside the program: those of a common sans-serif face, in steps of
/// a tenth of the size.
class FixedLetterMetrics : public LetterMetrics {
 public:
  double advance(bool symbol, unsigned char code) override;
  double lineHeight(bool symbol) override;
  double ascent(bool symbol) override;
};

/// True for the font with the Greek layout.
bool isSymbolFont(std::string_view name);

}  // namespace vk
