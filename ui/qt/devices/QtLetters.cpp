#include "ui/qt/devices/QtLetters.h"

#include <QFont>
#include <QFontDatabase>
#include <QImage>
#include <QPainter>
#include <QPainterPath>
#include <QRawFont>
#include <array>
#include <cmath>
#include <map>
#include <tuple>

#include "base/CodePage.h"

namespace vk {
namespace {

/// Letters are measured and drawn from their outlines at this size, where hinting plays no part.
constexpr int kOutlineSize = 1000;
constexpr std::size_t kKeptMasks = 5000;

constexpr const char* kFaces[] = {"Liberation Sans", "Arimo",          "Arial",     "Helvetica",
                                  "DejaVu Sans",     "Noto Sans Math", "FreeSerif", "Noto Sans Symbols2",
                                  "Noto Sans"};

struct Letter {
  double advance = 0;
  QPainterPath outline;
  int font = 0;
};

std::vector<QRawFont> systemFonts() {
  std::vector<QRawFont> fonts;
  const QStringList families = QFontDatabase::families();
  for (const char* face : kFaces) {
    if (!families.contains(QLatin1String(face))) continue;
    QFont font{QString::fromLatin1(face)};
    font.setPixelSize(kOutlineSize);
    font.setHintingPreference(QFont::PreferNoHinting);
    fonts.push_back(QRawFont::fromFont(font));
  }
  if (fonts.empty()) {
    QFont font;
    font.setPixelSize(kOutlineSize);
    fonts.push_back(QRawFont::fromFont(font));
  }
  return fonts;
}

Letter letterOf(const std::vector<QRawFont>& fonts, char32_t character) {
  Letter letter;
  for (std::size_t i = 0; i < fonts.size(); ++i) {
    if (!fonts[i].supportsCharacter(static_cast<uint>(character))) continue;
    const QString text = QString::fromUcs4(&character, 1);
    const QList<quint32> glyphs = fonts[i].glyphIndexesForString(text);
    if (glyphs.isEmpty()) continue;
    letter.font = static_cast<int>(i);
    letter.advance = fonts[i].advancesForGlyphIndexes(glyphs).value(0).x() / kOutlineSize;
    letter.outline = fonts[i].pathForGlyph(glyphs.front());
    break;
  }
  return letter;
}

GlyphMask maskOf(const QPainterPath& outline, double ascent, double pixels, double angle) {
  QTransform turn;
  turn.rotate(-angle);
  turn.scale(pixels / kOutlineSize, pixels / kOutlineSize);
  turn.translate(0, ascent * kOutlineSize);
  const QPainterPath shape = turn.map(outline);
  const QRect box = shape.boundingRect().toAlignedRect().adjusted(-1, -1, 1, 1);
  QImage image(box.size(), QImage::Format_Grayscale8);
  image.fill(0);
  QPainter painter(&image);
  painter.translate(-box.topLeft());
  painter.fillPath(shape, Qt::white);
  painter.end();
  GlyphMask mask{box.left(), box.top(), box.width(), box.height(), {}};
  mask.pixels.reserve(static_cast<std::size_t>(box.width()) * static_cast<std::size_t>(box.height()));
  for (int y = 0; y < box.height(); ++y) {
    const uchar* row = image.constScanLine(y);
    for (int x = 0; x < box.width(); ++x) mask.pixels.push_back(row[x] >= 128);
  }
  return mask;
}

}  // namespace

struct QtLetters::Tables {
  std::vector<QRawFont> fonts = systemFonts();
  std::array<std::array<Letter, 256>, 2> letters;
  using Key = std::tuple<bool, unsigned char, long, long>;
  std::map<Key, GlyphMask> masks;

  const Letter& letter(bool symbol, unsigned char code) const { return letters[symbol ? 1 : 0][code]; }
};

QtLetters::QtLetters() : tables_(std::make_unique<Tables>()) {
  for (const bool symbol : {false, true}) {
    for (std::size_t code = 32; code < 256; ++code) {
      const char c = static_cast<char>(static_cast<unsigned char>(code));
      const char32_t character = toUnicode(c, symbol ? CodePage::kSymbol : CodePage::kWindows1252);
      tables_->letters[symbol ? 1 : 0][code] = letterOf(tables_->fonts, character);
    }
  }
}

QtLetters::~QtLetters() = default;

double QtLetters::advance(bool symbol, unsigned char code) {
  return tables_->letter(symbol, code).advance;
}

// Both layouts have the line of the first font, so that their letters stand on one base line.
double QtLetters::lineHeight(bool) {
  const QRawFont& font = tables_->fonts.front();
  return (font.ascent() + font.descent()) / kOutlineSize;
}

double QtLetters::ascent(bool) {
  return tables_->fonts.front().ascent() / kOutlineSize;
}

const GlyphMask& QtLetters::glyph(bool symbol, unsigned char code, double pixels, double angle) {
  constexpr double kSizeSteps = 16, kAngleSteps = 10;
  const Tables::Key key{symbol, code, std::lround(pixels * kSizeSteps), std::lround(angle * kAngleSteps)};
  const auto found = tables_->masks.find(key);
  if (found != tables_->masks.end()) return found->second;
  if (tables_->masks.size() >= kKeptMasks) tables_->masks.clear();
  const QPainterPath& outline = tables_->letter(symbol, code).outline;
  return tables_->masks[key] = maskOf(outline, ascent(symbol), pixels, angle);
}

std::string QtLetters::face(bool symbol, unsigned char code) const {
  const auto font = static_cast<std::size_t>(tables_->letter(symbol, code).font);
  return tables_->fonts[font].familyName().toStdString();
}

}  // namespace vk
