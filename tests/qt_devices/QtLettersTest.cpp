#include <QPainterPath>
#include <QRawFont>
#include <clocale>

#include "DevicesFixture.h"

namespace vk {
namespace {

class Letters : public DevicesFixture {};

TEST_F(Letters, OfTheTextFontAreFoundForAllPrintableCodes) {
  for (int code = 33; code < 256; ++code) {
    const auto c = static_cast<unsigned char>(code);
    const bool unused =
        code == 127 || code == 129 || code == 141 || code == 143 || code == 144 || code == 157;
    if (unused || code == 173) continue;  // no sign, and the soft hyphen
    EXPECT_GT(letters().advance(false, c), 0.1) << code;
    EXPECT_LT(letters().advance(false, c), 1.2) << code;
  }
}

TEST_F(Letters, OfTheSymbolLayoutHaveGreekWidths) {
  for (const char c : std::string("abgdezhqiklmnxoprstufcywABGDEZHQIKLMNXOPRSTUFCYW")) {
    EXPECT_GT(letters().advance(true, static_cast<unsigned char>(c)), 0.15) << c;
  }
  EXPECT_NE(letters().advance(true, 'm'), letters().advance(false, 'm'));
}

TEST_F(Letters, ControlCodesHaveNoWidth) {
  for (unsigned char code = 0; code < 32; ++code) EXPECT_EQ(letters().advance(false, code), 0);
}

TEST_F(Letters, BothLayoutsShareTheBaseLine) {
  EXPECT_EQ(letters().ascent(true), letters().ascent(false));
  EXPECT_EQ(letters().lineHeight(true), letters().lineHeight(false));
  EXPECT_GT(letters().ascent(false), 0.7);
  EXPECT_GT(letters().lineHeight(false), letters().ascent(false));
}

TEST_F(Letters, WidthsGrowExactlyWithTheSize) {
  ImageDevice image(letters());
  image.setFontSize(7);
  const double width = image.TextWidth("Vor");
  image.setFontSize(21);
  EXPECT_NEAR(image.TextWidth("Vor"), 3 * width, 1E-9);
  VectorDevice vectors(letters());
  vectors.setFontSize(21);
  EXPECT_EQ(vectors.TextWidth("Vor"), image.TextWidth("Vor"));
  EXPECT_EQ(vectors.TextHeight(""), image.TextHeight("abc"));
}

TEST_F(Letters, MasksAreKeptAndTurned) {
  const GlyphMask upright = letters().glyph(false, 'l', 40, 0, {});
  const GlyphMask turned = letters().glyph(false, 'l', 40, 90, {});
  EXPECT_GT(upright.height, 2 * upright.width);
  EXPECT_GT(turned.width, 2 * turned.height);
  EXPECT_EQ(upright.pixels, letters().glyph(false, 'l', 40, 0, {}).pixels);
}

TEST_F(Letters, KeepShapesOfAnySizesInBoundedMemory) {
  constexpr std::size_t kMost = 16U << 20;
  QtLetters own;
  std::size_t most = 0;
  for (int size = 100; size < 700; ++size) {
    EXPECT_GT(own.glyph(false, 'W', size, 0, {0, 0, 1000, 1000}).pixels.size(), 1000U);
    most = std::max(most, own.keptBytes());
  }
  EXPECT_LE(most, kMost);
  EXPECT_GT(most, kMost / 2);
}

/// True where a letter of this size in pixels is black, seen from the corner of its cell.
bool insideLetter(QtLetters& letters, char letter, double pixels, double angle, double x, double y) {
  QFont font(QString::fromStdString(letters.face(false, static_cast<unsigned char>(letter))));
  font.setPixelSize(1000);
  font.setHintingPreference(QFont::PreferNoHinting);
  const QRawFont raw = QRawFont::fromFont(font);
  const QPainterPath outline =
      raw.pathForGlyph(raw.glyphIndexesForString(QString(QLatin1Char(letter))).front());
  QTransform turn;
  turn.rotate(-angle);
  turn.scale(pixels / 1000, pixels / 1000);
  turn.translate(0, letters.ascent(false) * 1000);
  return outline.contains(turn.inverted().map(QPointF(x, y)));
}

TEST_F(Letters, LargeLetterIsDrawnAsFarAsItIsSeen) {
  constexpr double kPixels = 32767 * 20.0 * 4 / 15;
  for (const double angle : {0.0, 90.0, 30.0}) {
    for (const PixelRect seen :
         {PixelRect{0, 0, 3000, 2000}, PixelRect{60000, 90000, 63000, 92000},
          PixelRect{98000, -100000, 101000, -98000}, PixelRect{40000, 44000, 80000, 44100},
          PixelRect{20000, 120000, 20100, 160000}}) {
      const GlyphMask mask = letters().glyph(false, 'A', kPixels, angle, seen);
      ASSERT_LE(mask.width, seen.x2 - seen.x1);
      ASSERT_LE(mask.height, seen.y2 - seen.y1);
      int wrong = 0;
      for (int y = seen.y1 + 7; y < seen.y2; y += 97) {
        for (int x = seen.x1 + 7; x < seen.x2; x += 97) {
          const int column = x - mask.left, row = y - mask.top;
          const bool within = column >= 0 && column < mask.width && row >= 0 && row < mask.height;
          const bool black =
              within && mask.pixels[static_cast<std::size_t>(row) * static_cast<std::size_t>(mask.width) +
                                    static_cast<std::size_t>(column)] != 0;
          const bool expected = insideLetter(letters(), 'A', kPixels, angle, x + 0.5, y + 0.5);
          // Outlines are told in steps of their own: beside the edge either is right.
          if (black != expected && insideLetter(letters(), 'A', kPixels, angle, x - 40, y) == expected &&
              insideLetter(letters(), 'A', kPixels, angle, x + 40, y) == expected) {
            ++wrong;
          }
        }
      }
      EXPECT_EQ(wrong, 0) << angle << " degrees, from " << seen.x1 << ", " << seen.y1;
    }
  }
}

TEST_F(Letters, ALetterLargerThanThePageIsNotKept) {
  const std::size_t before = letters().keptBytes();
  ImageDevice image(letters());
  drawOn(image, [](GralCls& g) { g.GralWPrint(5, 5, 1, 0, 32767, "A"); });
  EXPECT_EQ(letters().keptBytes(), before);
}

TEST_F(Letters, LeaveTheDecimalPointAlone) {
  EXPECT_STREQ(std::localeconv()->decimal_point, ".");
}

}  // namespace
}  // namespace vk
