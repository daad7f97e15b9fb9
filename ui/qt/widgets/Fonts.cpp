#include "ui/qt/widgets/Fonts.h"

#include <cmath>

#include "ui/qt/widgets/TextConversion.h"
#include "ui/qt/widgets/Twips.h"

namespace vk {
namespace {

constexpr const char* kFixedFace = "Liberation Mono";
constexpr const char* kTextFace = "Liberation Sans";
constexpr int kGridPoints = 10;

bool isFixed(const std::string& face) {
  return face == "Courier New" || face == "Terminal" || face == "terminal" || face == "Fixedsys";
}

QFont makeFont(const QString& face, int points, bool fixed) {
  QFont font(face, points);
  font.setStyleHint(fixed ? QFont::Monospace : QFont::SansSerif);
  font.setFixedPitch(fixed);
  font.setKerning(!fixed);
  return font;
}

/// Whole pixels, so that a cell begins where a pixel begins.
Twips wholePixels(double pixels) {
  return toTwips(static_cast<int>(std::ceil(pixels - 0.01)));
}

}  // namespace

QString systemFace(const std::string& face) {
  if (isFixed(face)) return kFixedFace;
  return face == "Arial" ? QString(kTextFace) : fromText(WindowText(face));
}

QFont toolkitFont(const FontSpec& font) {
  QFont result = makeFont(systemFace(font.face), font.size, isFixed(font.face));
  result.setBold(font.bold);
  return result;
}

QFont listFont() {
  return makeFont(kFixedFace, kGridPoints, true);
}

QFont formFont() {
  return makeFont(kFixedFace, kGridPoints, true);
}

QFont formButtonFont() {
  return makeFont(kFixedFace, kGridPoints, true);
}

Twips FontMeasure::width(std::string_view text) const {
  // The characters of a grid stand in cells, whatever single glyphs measure.
  if (texts_ == Texts::kGrid)
    return static_cast<double>(text.size()) * wholePixels(metrics_.horizontalAdvance('A'));
  return wholePixels(metrics_.horizontalAdvance(fromText(WindowText(std::string(text)))));
}

Twips FontMeasure::height() const {
  return wholePixels(metrics_.height());
}

CellSize cellOf(const QFont& font) {
  return cellOf(FontMeasure(font, FontMeasure::Texts::kGrid));
}

}  // namespace vk
