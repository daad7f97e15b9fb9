#include "ui/qt/devices/QtLetters.h"

#include <QFont>
#include <QFontDatabase>
#include <QImage>
#include <QPainter>
#include <QPainterPath>
#include <QRawFont>
#include <array>
#include <cmath>
#include <deque>
#include <map>
#include <optional>
#include <tuple>
#include <utility>

#include "base/CodePage.h"
#include "ui/qt/devices/FontGlyph.h"

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
  std::size_t font = 0;
  std::optional<quint32> glyph;  ///< in that font
  std::optional<QPainterPath> outline;
};

QRawFont outlineFont(QFont font) {
  font.setPixelSize(kOutlineSize);
  font.setHintingPreference(QFont::PreferNoHinting);
  return QRawFont::fromFont(font);
}

/// The faces that the system has. Each is loaded when a letter needs it: most drawings need but the first.
class Faces {
 public:
  Faces() {
    const QStringList families = QFontDatabase::families();
    for (const char* face : kFaces) {
      if (families.contains(QLatin1String(face))) names_.push_back(QString::fromLatin1(face));
    }
    if (names_.empty()) names_.push_back(QFont().family());
  }

  std::size_t count() const { return names_.size(); }
  const QRawFont& font(std::size_t index) {
    while (fonts_.size() <= index) fonts_.push_back(outlineFont(QFont(names_[fonts_.size()])));
    return fonts_[index];
  }

 private:
  std::vector<QString> names_;
  std::deque<QRawFont> fonts_;
};

Letter letterOf(Faces& faces, char32_t character) {
  Letter letter;
  for (std::size_t i = 0; i < faces.count(); ++i) {
    const QRawFont& font = faces.font(i);
    if (!font.supportsCharacter(static_cast<uint>(character))) continue;
    const QList<quint32> glyphs = font.glyphIndexesForString(QString::fromUcs4(&character, 1));
    if (glyphs.isEmpty()) continue;
    letter.font = i;
    letter.advance = font.advancesForGlyphIndexes(glyphs).value(0).x() / kOutlineSize;
    letter.glyph = glyphs.front();
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
  Faces faces;
  std::array<std::array<std::optional<Letter>, 256>, 2> letters;
  using Key = std::tuple<bool, unsigned char, long, long>;
  std::map<Key, GlyphMask> masks;
  std::map<std::pair<std::size_t, int>, QRawFont> sized;
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

  /// Found when it is first asked for; a character below the space has no width and no outline.
  Letter& letter(bool symbol, unsigned char code) {
    std::optional<Letter>& letter = letters[symbol ? 1 : 0][code];
    if (!letter) {
      const auto codePage = symbol ? CodePage::kSymbol : CodePage::kWindows1252;
      letter = code < ' ' ? Letter() : letterOf(faces, toUnicode(static_cast<char>(code), codePage));
    }
    return *letter;
  }

  /// To read an outline takes longer than all else of a letter, and files of vectors need none.
  const QPainterPath& outline(bool symbol, unsigned char code) {
    Letter& read = letter(symbol, code);
    if (!read.outline)
      read.outline = read.glyph ? faces.font(read.font).pathForGlyph(*read.glyph) : QPainterPath();
    return *read.outline;
  }
};

QtLetters::QtLetters() : tables_(std::make_unique<Tables>()) {}

QtLetters::~QtLetters() = default;

double QtLetters::advance(bool symbol, unsigned char code) {
  return tables_->letter(symbol, code).advance;
}

// Both layouts have the line of the first font, so that their letters stand on one base line.
double QtLetters::lineHeight(bool) {
  const QRawFont& font = tables_->faces.font(0);
  return (font.ascent() + font.descent()) / kOutlineSize;
}

double QtLetters::ascent(bool) {
  return tables_->faces.font(0).ascent() / kOutlineSize;
}

double QtLetters::kerning(bool symbol, unsigned char code, unsigned char next) {
  const Letter first = tables_->letter(symbol, code), second = tables_->letter(symbol, next);
  if (!first.glyph || !second.glyph || first.font != second.font) return 0;
  const QList<QPointF> advances =
      tables_->faces.font(first.font)
          .advancesForGlyphIndexes({*first.glyph, *second.glyph},
                                   QRawFont::KernedAdvances | QRawFont::SeparateAdvances);
  return advances.value(0).x() / kOutlineSize - first.advance;
}

std::optional<FontGlyph> QtLetters::fontGlyph(bool symbol, unsigned char code, int pixels) {
  const Letter& letter = tables_->letter(symbol, code);
  if (!letter.glyph) return std::nullopt;
  QRawFont& font = tables_->sized[{letter.font, pixels}];
  if (!font.isValid()) {
    font = tables_->faces.font(letter.font);
    font.setPixelSize(pixels);
  }
  return FontGlyph{font, *letter.glyph};
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
  const QPainterPath shape = turn.map(tables_->outline(symbol, code));
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
  return tables_->faces.font(tables_->letter(symbol, code).font).familyName().toStdString();
}

}  // namespace vk
