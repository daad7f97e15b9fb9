#include <cmath>

#include "GralFixture.h"
#include "base/RuntimeError.h"

namespace vk {
namespace {

class Marks : public GralFixture {
 protected:
  std::vector<std::string> mark(int type) {
    drawing.GralMakeMark(drawing.GralMarkDim, type);
    drawing.GralMark(8, 4);
    return allDrawn();
  }
  static std::vector<std::string> lastOf(const std::vector<std::string>& lines) {
    return {lines.end() - 1, lines.end()};
  }
};

double polygonArea(const std::vector<double>& numbers) {
  double twice = 0;
  const std::size_t count = numbers.size() / 2;
  for (std::size_t i = 0; i < count; ++i) {
    const std::size_t j = (i + 1) % count;
    twice += numbers[2 * i] * numbers[2 * j + 1] - numbers[2 * j] * numbers[2 * i + 1];
  }
  return std::abs(twice) / 2;
}

TEST_F(Marks, TypesOneToFiveAreWhiteSixToTenBlack) {
  for (int type = 1; type <= 10; ++type) {
    form.forget();
    const std::vector<std::string> lines = mark(type);
    ASSERT_EQ(lines.size(), 3U) << type;
    EXPECT_EQ(lines[0], "pen 000000 width 1 solid");
    EXPECT_EQ(lines[1], type <= 5 ? "filling FFFFFF solid" : "filling 000000 solid") << type;
    EXPECT_EQ(lines[2].substr(0, lines[2].find(' ')), type % 5 == 0 ? "circle" : "fill+stroke");
  }
}

// The radius of 10 mm is 567.1875 twips: q = 1005.315, t = 1527.764 twips. The point is at (4537.5, 2265)
// twips, (302.5, 151) pixels.
TEST_F(Marks, HaveTheirShapes) {
  drawing.GralMakeMark(10, 1);
  EXPECT_EQ(lastOf(mark(1)), std::vector<std::string>{"fill+stroke 252,180 302,92 353,180 px"});
  EXPECT_EQ(lastOf(mark(2)), std::vector<std::string>{"fill+stroke 252,122 302,210 353,122 px"});
  EXPECT_EQ(lastOf(mark(3)), std::vector<std::string>{"fill+stroke 269,185 269,117 336,117 336,185 px"});
  EXPECT_EQ(lastOf(mark(4)), std::vector<std::string>{"fill+stroke 255,151 302,104 350,151 302,198 px"});
  EXPECT_EQ(lastOf(mark(5)), std::vector<std::string>{"circle 4537.5,2265 radius 567.188 tw"});
}

TEST_F(Marks, OfTypeElevenAreBlackTrianglesUp) {
  drawing.GralMakeMark(10, 1);
  const std::vector<std::string> up = mark(1), eleven = mark(11);
  EXPECT_EQ(eleven[1], "filling 000000 solid");
  EXPECT_EQ(eleven.back(), up.back());
}

TEST_F(Marks, OfTypeZeroOrBelowDrawNothing) {
  EXPECT_TRUE(mark(0).empty());
  EXPECT_TRUE(mark(-1).empty());
}

TEST_F(Marks, HaveEqualAreasWithinPixelRounding) {
  drawing.GralMakeMark(10, 1);
  const double radius = 567.1875 / 15;
  const double circle = 4 * std::atan(1.0) * radius * radius;
  for (int type = 1; type <= 4; ++type) {
    const double area = polygonArea(numbersOf(mark(type).back()));
    // each side may be off by a pixel over its length
    EXPECT_NEAR(area, circle, 4 * radius) << type;
    EXPECT_NEAR(area / circle, 1, 0.02) << type;
  }
}

TEST_F(Marks, HaveTheirPointAtTheCentreOfMass) {
  drawing.GralMakeMark(20, 1);
  for (int type = 1; type <= 4; ++type) {
    const std::vector<double> n = numbersOf(mark(type).back());
    double x = 0, y = 0;
    for (std::size_t i = 0; i < n.size(); i += 2) {
      x += n[i] * 2 / static_cast<double>(n.size());
      y += n[i + 1] * 2 / static_cast<double>(n.size());
    }
    EXPECT_NEAR(x, 302.5, 0.6) << type;
    EXPECT_NEAR(y, 151, 0.6) << type;
  }
}

// QUIRK: the upward triangle keeps the outline of full marks, black if nothing else is said.
TEST_F(Marks, AreOutlinedInTheColourSaveTheUpwardTriangle) {
  drawing.GralColor(Colour::fromBgr(0x0000FF));
  for (int type = 1; type <= 11; ++type) {
    form.forget();
    const std::string expected = type % 5 == 1 ? "pen 000000 width 1 solid" : "pen FF0000 width 1 solid";
    EXPECT_EQ(mark(type)[0], expected) << type;
  }
}

TEST_F(Marks, FullOnesAndTheUpwardTriangleHaveAColourOfTheirOwn) {
  drawing.GralMarkColor = Colour::fromRgb(0x0072B2);
  form.forget();
  EXPECT_EQ(mark(6)[0], "pen 0072B2 width 1 solid");
  for (int type = 7; type <= 10; ++type) {
    form.forget();
    EXPECT_EQ(mark(type)[1], "filling 0072B2 solid") << type;
  }
  form.forget();
  EXPECT_EQ(mark(5)[1], "filling FFFFFF solid");
}

TEST_F(Marks, RestoreTheSettings) {
  drawing.GralUseTra = false;
  drawing.GralPen(1, 3);
  drawing.GralColor(Colour::fromBgr(0x112233));
  drawing.GralFillColor(Colour::fromBgr(0x445566));
  drawing.GralFillStyle(6);
  for (int type = 0; type <= 10; ++type) {
    mark(type);
    EXPECT_EQ(form.DrawStyle(), 2);
    EXPECT_EQ(form.FillStyle(), 6);
    EXPECT_EQ(form.ForeColor(), Colour::fromBgr(0x112233));
    EXPECT_EQ(form.FillColor(), Colour::fromBgr(0x445566));
  }
}

TEST_F(Marks, AreSolidUnderADashedPen) {
  drawing.GralUseTra = false;
  drawing.GralPen(1, 3);
  EXPECT_EQ(mark(3)[0], "pen 000000 width 1 solid");
}

TEST_F(Marks, FollowThePageScaleOfTheForm) {
  open(1);
  drawing.GralMark(8, 4);
  EXPECT_NEAR(numbersOf(drawn()[0])[2], 0.15 * kTwipsPerCmExact / 2, 0.1);
  open(2);
  drawing.GralMark(8, 4);
  EXPECT_NEAR(numbersOf(drawn()[0])[2], 0.15 * kTwipsPerCmExact, 0.1);
}

TEST_F(Marks, OnPaperDoNotDependOnTheScale) {
  for (const double scale : {0.5, 1.0, 2.0}) {
    openPrinter(scale);
    drawing.GralMark(8, 4);
    EXPECT_NEAR(numbersOf(drawnOn(printer)[0])[2], 0.15 * kTwipsPerCmExact, 0.01) << scale;
  }
}

TEST_F(Marks, AreChosenInSinglePrecisionAnd16Bits) {
  drawing.GralMakeMark(0.1, 2.5);
  EXPECT_EQ(drawing.GralMarkDim, 0.1F);
  EXPECT_EQ(drawing.GralMarkTyp, 2);
  try {
    drawing.GralMakeMark(1, 32768);
    FAIL();
  } catch (const RuntimeError& error) {
    EXPECT_EQ(error.number(), 6);
  }
}

}  // namespace
}  // namespace vk
