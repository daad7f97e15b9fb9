#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "base/Colour.h"
#include "gral/PlanePoint.h"
#include "platform/PaperOrientation.h"

/// The values that pass between the graphics library and its devices.
namespace vk {

/// How the inside of a rectangle or ellipse is filled.
enum FillStyles : int {
  kFillSolid = 0,
  kFillTransparent = 1,
  kFillHorizontal = 2,
  kFillVertical = 3,
  kFillUpward = 4,
  kFillDownward = 5,
  kFillCross = 6,
  kFillDiagonalCross = 7,
};

/// How a line of one nominal pixel is drawn.
enum DrawStyles : int {
  kDrawSolid = 0,
  kDrawDash = 1,
  kDrawDot = 2,
  kDrawDashDot = 3,
  kDrawDashDotDot = 4,
  kDrawTransparent = 5,
  kDrawInside = 6,  ///< drawn as solid
};

/// Units of the size of a drawing area.
enum ScaleModes : int { kScaleTwips = 1, kScalePixels = 3 };

/// The printable area of an A4 sheet of 595 x 842 points with margins of 1/6 inch: the page of all drawings where
/// no printer is.
inline constexpr Twips kA4ShortSide{11420};  ///< 20.14 cm
inline constexpr Twips kA4LongSide{16360};   ///< 28.86 cm

/// A pixel of a device, from 0 at the left and the top.
using PixelPoint = PlanePoint<unit::Pixel, std::int32_t>;

/// Size of a drawing area or a sheet in twips.
struct SheetSize {
  double width = 0, height = 0;
};

/// The pixels x1 <= x < x2, y1 <= y < y2.
struct PixelRect {
  std::int32_t x1 = 0, y1 = 0, x2 = 0, y2 = 0;
  bool operator==(const PixelRect&) const = default;
};

/// What a form is made of: its frame, and how many of its pixels make one nominal pixel.
struct FormMetrics {
  SheetSize frame;  ///< both sides together; title and both sides
  int pixelRatio = 1;
};

/// What a printer is made of: the sides of its printable area, and its dots per inch.
struct PrinterMetrics {
  Twips shortSide = kA4ShortSide;
  Twips longSide = kA4LongSide;
  double resolution = 600;
};

/// The description by which a rotated font is made. Members that are not told stay 0.
struct FontRecord {
  std::int32_t height = 0;  ///< in pixels (`TwipsPerPixelY`); negative: of the letters without leading
  std::int32_t width = 0;
  std::int32_t escapement = 0;  ///< tenths of a degree, counter-clockwise
  std::int32_t orientation = 0;
  std::int32_t weight = 0;
  std::array<char, 32> faceName{};  ///< ended by a zero
  bool operator==(const FontRecord&) const = default;
};

/// A text as a device draws it: rotated about the top left corner of its cell.
struct TextRun {
  TwipPoint place;
  PointSize size;
  double angle = 0;  ///< degrees, counter-clockwise
  std::string fontName;
  std::string text;
};

class DrawingSink;

/// What a picture was drawn from: a device without pixels draws it again instead of copying pixels.
class PictureSource {
 public:
  virtual ~PictureSource() = default;
  /// Draws all primitives, as on the form: twips from its corner, pens in nominal pixels.
  virtual void drawOn(DrawingSink& sink) const = 0;
  /// Twips of the pixels of its graphics context.
  virtual double twipsPerPixel() const = 0;
};

/// A picture of pixels of its own.
struct Picture {
  int width = 0;
  int height = 0;
  double twipsPerPixel = kNominalTwipsPerPixel;  ///< natural size
  /// 0xFFRRGGBB, row by row from the top; 0 leaves what is under it.
  std::vector<std::uint32_t> pixels;
  std::shared_ptr<const PictureSource> source{};  ///< where it is known
};

}  // namespace vk
