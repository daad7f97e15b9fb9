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
/// Shapes are kept as long as they take no more than this together.
constexpr std::size_t kMostKeptBytes = 16U << 20;
/// A larger letter, in pixels of its box, is drawn as far as it is seen, and not kept.
constexpr double kLargeLetter = 512.0 * 512.0;

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

/// The pixels of a part of a shape.
GlyphMask maskOf(const QPainterPath& shape, const QRect& part) {
  GlyphMask mask{part.left(), part.top(), part.width(), part.height(), {}};
  if (part.isEmpty()) return {};
  QImage image(part.size(), QImage::Format_Grayscale8);
  image.fill(0);
  QPainter painter(&image);
  painter.translate(-part.topLeft());
  painter.fillPath(shape, Qt::white);
  painter.end();
  mask.pixels.reserve(static_cast<std::size_t>(part.width()) * static_cast<std::size_t>(part.height()));
  for (int y = 0; y < part.height(); ++y) {
    const uchar* row = image.constScanLine(y);
    for (int x = 0; x < part.width(); ++x) mask.pixels.push_back(row[x] >= 128);
  }
  return mask;
}

}  // namespace

struct QtLetters::Tables {
  std::vector<QRawFont> fonts = systemFonts();
  std::array<std::array<Letter, 256>, 2> letters;
  using Key = std::tuple<bool, unsigned char, long, long>;
  std::map<Key, GlyphMask> masks;
  std::size_t maskBytes = 0;
  GlyphMask unkept;

  const GlyphMask& keep(const Key& key, GlyphMask mask) {
    const std::size_t bytes = sizeof(decltype(masks)::value_type) + mask.pixels.capacity();
    if (maskBytes + bytes > kMostKeptBytes) {
      masks.clear();
      maskBytes = 0;
    }
    maskBytes += bytes;
    return masks[key] = std::move(mask);
  }

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

const GlyphMask& QtLetters::glyph(bool symbol, unsigned char code, double pixels, double angle,
                                  const PixelRect& seen) {
  constexpr double kSizeSteps = 16, kAngleSteps = 10;
  const Tables::Key key{symbol, code, std::lround(pixels * kSizeSteps), std::lround(angle * kAngleSteps)};
  const auto found = tables_->masks.find(key);
  if (found != tables_->masks.end()) return found->second;
  QTransform turn;
  turn.rotate(-angle);
  turn.scale(pixels / kOutlineSize, pixels / kOutlineSize);
  turn.translate(0, ascent(symbol) * kOutlineSize);
  const QPainterPath shape = turn.map(tables_->letter(symbol, code).outline);
  const QRectF box = shape.boundingRect();
  if (box.width() * box.height() > kLargeLetter) {
    const QRectF part(QPointF(seen.x1, seen.y1), QPointF(seen.x2, seen.y2));
    return tables_->unkept = maskOf(shape, (box & part).toAlignedRect());
  }
  return tables_->keep(key, maskOf(shape, box.toAlignedRect().adjusted(-1, -1, 1, 1)));
}

std::size_t QtLetters::keptBytes() const {
  return tables_->maskBytes;
}

std::string QtLetters::face(bool symbol, unsigned char code) const {
  const auto font = static_cast<std::size_t>(tables_->letter(symbol, code).font);
  return tables_->fonts[font].familyName().toStdString();
}

}  // namespace vk
