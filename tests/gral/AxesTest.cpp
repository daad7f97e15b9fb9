#include <cmath>

#include "GralFixture.h"
#include "base/RuntimeError.h"
#include "gral/ScaleLabels.h"

namespace vk {
namespace {

class Scales : public GralFixture {
 protected:
  std::vector<std::string> labels(double from, double to, double n, bool logarithmic = false,
                                  bool vertical = false) {
    Array<std::string> texts;
    drawing.Makescale(from, to, texts, n, logarithmic, longest, vertical);
    std::vector<std::string> result;
    for (int k = 0; k <= texts.upper(); ++k) result.push_back(texts[k]);
    return result;
  }
  double longest = 0;
};

using Labels = std::vector<std::string>;

TEST_F(Scales, FractionsHaveTheDecimalsOfTheStep) {
  EXPECT_EQ(labels(0, 1, 4), (Labels{"0.00", "0.25", "0.50", "0.75", "1.00"}));
  EXPECT_EQ(longest, 4);
  EXPECT_EQ(labels(-1, 1, 4), (Labels{"-1.0", "-0.5", "0.0", "0.5", "1.0"}));
  EXPECT_EQ(longest, 4);
}

TEST_F(Scales, WholeStepsHaveNoPoint) {
  EXPECT_EQ(labels(0, 100, 5), (Labels{"0", "20", "40", "60", "80", "100"}));
  EXPECT_EQ(longest, 3);
}

TEST_F(Scales, ReversedAxisCountsDown) {
  EXPECT_EQ(labels(1, 0, 2), (Labels{"1.0", "0.5", "0.0"}));
}

TEST_F(Scales, StepIsRoundedToFourDecimals) {
  EXPECT_EQ(labels(0, 1, 3), (Labels{"0.0000", "0.3333", "0.6666", "0.9999"}));
}

TEST_F(Scales, WholeStepFromAFractionKeepsItsShortText) {
  EXPECT_EQ(labels(0.5, 2.5, 2), (Labels{".5", "1.5", "2.5"}));
}

// QUIRK: the label with index 0 keeps its width.
TEST_F(Scales, VerticalLabelsArePaddedFromIndexOne) {
  EXPECT_EQ(labels(0, 100, 5, false, true), (Labels{"0", " 20", " 40", " 60", " 80", "100"}));
  EXPECT_EQ(labels(-1, 1, 4, false, true), (Labels{"-1.0", "-0.5", " 0.0", " 0.5", " 1.0"}));
}

TEST_F(Scales, DecadesArePowersOfTenWithTheSignKeptFirst) {
  EXPECT_EQ(labels(-2, 3, 5, true),
            (Labels{"10^{-2}", "10^{-1}", "10^{ 0}", "10^{ 1}", "10^{ 2}", "10^{ 3}"}));
  EXPECT_EQ(longest, 0.75 * 2 + 2);
}

TEST_F(Scales, NegativeExponentsArePaddedBehindTheSign) {
  EXPECT_EQ(labels(-10, 0, 2, true), (Labels{"10^{-10}", "10^{- 5}", "10^{  0}"}));
  EXPECT_EQ(longest, 0.75 * 3 + 2);
  EXPECT_EQ(labels(0, 100, 2, true, true), (Labels{"10^{  0}", "10^{ 50}", "10^{100}"}));
}

TEST_F(Scales, FractionalExponentsHaveALeadingZero) {
  EXPECT_EQ(labels(-0.5, 0.5, 2, true), (Labels{"10^{-0.5}", "10^{   0}", "10^{ 0.5}"}));
}

TEST_F(Scales, WithoutIntervalsFail) {
  try {
    labels(0, 1, 0);
    FAIL();
  } catch (const RuntimeError& error) {
    EXPECT_EQ(error.number(), 11);
  }
}

TEST_F(Scales, NumbersInExponentFormAreNotFilled) {
  EXPECT_EQ(fillDecimals("1.5E+16", 2), "1.5E+16");
  EXPECT_EQ(decimalsOf("1.5E+16"), 0);
  EXPECT_EQ(labels(0, 3E16, 2), (Labels{"0", "1.5E+16", "3E+16"}));
}

TEST_F(Scales, NumberIsRoundedInPlaceToFourDecimals) {
  const std::tuple<double, double, const char*> cases[] = {
      {0.25, 0.25, ".25"}, {-0.5, -0.5, "-.5"},         {3, 3, "3"},
      {0, 0, "0"},         {0.00004, 0, "0"},           {0.00005, 0.0001, ".0001"},
      {-0.00004, 0, "0"},  {1.23456, 1.2346, "1.2346"}, {-1.23454, -1.2345, "-1.2345"}};
  for (const auto& [value, rounded, text] : cases) {
    double x = value;
    std::string xx;
    drawing.basnum2str(x, xx);
    EXPECT_EQ(x, rounded) << value;
    EXPECT_EQ(xx, text) << value;
  }
}

TEST_F(Scales, ShiftRotatesSixteenBits) {
  EXPECT_EQ(drawing.Shift(1, 1), 2);
  EXPECT_EQ(drawing.Shift(0x4000, 1), -32768);
  EXPECT_EQ(drawing.Shift(0x4001, 1), -32766);
  EXPECT_EQ(drawing.Shift(-32768, 1), 1);
  EXPECT_EQ(drawing.Shift(-2, 1), -3);
  EXPECT_EQ(drawing.Shift(-1, 5), -1);
  EXPECT_EQ(drawing.Shift(0, 3), 0);
  for (int ish = 0; ish < 16; ++ish) {
    for (const int inn : {1, 2, 0x1234, 0x7FFF, -1, -2, -32768, -12345}) {
      const auto bits = static_cast<std::uint16_t>(inn);
      const auto turned = static_cast<std::uint16_t>((bits << ish) | (ish == 0 ? 0 : bits >> (16 - ish)));
      EXPECT_EQ(drawing.Shift(inn, ish), static_cast<std::int16_t>(turned)) << inn << " by " << ish;
    }
  }
}

/// Ticks of 3 mm make labels of 17.008 points, whose lines are 391.18 twips high and digits 204 wide.
constexpr double kPoints = 2 * 3 * 72 / 25.4;
constexpr double kHalfLine = 1.15 * kPoints * 20 / 2;

class Axes : public GralFixture {
 protected:
  std::vector<std::string> lines() {
    std::vector<std::string> result;
    for (const std::string& line : drawn()) {
      if (line.rfind("text", 0) != 0) result.push_back(line);
    }
    return result;
  }
  void expectAt(const TextRun& run, double x, double y) {
    EXPECT_NEAR(run.place.x, x, 0.02) << run.text;
    EXPECT_NEAR(run.place.y, y, 0.02) << run.text;
  }
};

TEST_F(Axes, HorizontalAxisHasTicksUpward) {
  drawing.GralOaxis(2, 12, 2, 4, 3, false, false, "");
  EXPECT_EQ(lines(),
            (std::vector<std::string>{
                "line 1134.375,3397.5 1134.375,3227.625 tw", "line 1134.375,3397.5 2552.344,3397.5 tw",
                "line 2552.344,3397.5 2552.344,3227.625 tw", "line 2552.344,3397.5 3970.312,3397.5 tw",
                "line 3970.312,3397.5 3970.312,3227.625 tw", "line 3970.312,3397.5 5388.281,3397.5 tw",
                "line 5388.281,3397.5 5388.281,3227.625 tw", "line 5388.281,3397.5 6806.25,3397.5 tw",
                "line 6806.25,3397.5 6806.25,3227.625 tw", "refresh"}));
}

TEST_F(Axes, HorizontalLabelsAreCentredBelowTheTicks) {
  drawing.GralOaxis(2, 12, 2, 4, 3, false, true, "");
  const auto firsts = firstLetters(letters(), {"2.0", "4.5", "7.0", "9.5", "12.0"});
  ASSERT_EQ(firsts.size(), 5U);
  // yl = 2 - 0.3 - 0.6 cm; "2.0" is 204 + 102 + 204 twips wide, less 1
  const double y = (8 - 1.1) * 566.25 - kHalfLine;
  expectAt(firsts[0], 1134.375 - 509 / 2.0, y);
  expectAt(firsts[2], 1134.375 + 2 * 1417.96875 - 509 / 2.0, y);
  expectAt(firsts[4], 1134.375 + 4 * 1417.96875 - 713 / 2.0, y);
  for (const TextRun& run : firsts) {
    EXPECT_NEAR(run.size.value(), kPoints, 1E-5);
    EXPECT_EQ(run.angle, 0);
  }
}

TEST_F(Axes, HorizontalTitleIsCentredBelowTheLabels) {
  drawing.GralOaxis(2, 12, 2, 4, 3, false, false, "xx");
  const auto firsts = firstLetters(letters(), {"xx"});
  // yt = 2 - 0.6 - 1.2 cm
  expectAt(firsts[0], 7 * 567.1875 - 407 / 2.0, (8 - 0.2) * 566.25 - kHalfLine);
  EXPECT_NEAR(firsts[0].size.value(), kPoints, 1E-5);
}

TEST_F(Axes, NegativeTickLengthTurnsTicksDownAndLabelsUp) {
  drawing.GralOaxis(2, 12, 2, 1, -3, false, true, "xx");
  const auto runs = letters();
  const auto firsts = firstLetters(runs, {"2", "12", "xx"});
  // yl = 2 + 0.3 + 0.6, yt = 2 + 0.6 + 1.2 cm
  EXPECT_NEAR(firsts[0].place.y, (8 - 2.9) * 566.25 - kHalfLine, 0.02);
  EXPECT_NEAR(firsts[2].place.y, (8 - 3.8) * 566.25 - kHalfLine, 0.02);
  drawing.GralOaxis(2, 12, 2, 1, -3, false, false, "");
  EXPECT_EQ(lines()[0], "line 1134.375,3397.5 1134.375,3567.375 tw");
}

TEST_F(Axes, LogarithmicAxisHasMinorTicksAtTheLogarithms) {
  drawing.GralOaxis(0, 2, 4, 2, 5, true, false, "");
  const std::vector<std::string> all = lines();
  // a major tick, then twice nine minor ticks, a piece of axis, a major tick; the refresh
  ASSERT_EQ(all.size(), 1U + 2 * 11 + 1);
  const double decade = 567.1875;
  for (int k = 0; k < 2; ++k) {
    for (int m = 2; m <= 10; ++m) {
      const auto n = numbersOf(all[static_cast<std::size_t>(1 + 11 * k + m - 2)]);
      EXPECT_NEAR(n[0], decade * (k + std::log(m) / std::log(10.0)), 0.001) << m;
      EXPECT_EQ(n[0], n[2]);
      EXPECT_EQ(n[1], 2265);
      EXPECT_NEAR(n[3], 2265 - 0.6 * 0.5 * 566.25, 0.001);
    }
    const auto last = numbersOf(all[static_cast<std::size_t>(1 + 11 * k + 8)]);
    EXPECT_NEAR(last[0], decade * (k + 1), 0.001);
    const auto major = numbersOf(all[static_cast<std::size_t>(1 + 11 * k + 10)]);
    EXPECT_NEAR(major[3], 2265 - 0.5 * 566.25, 0.001);
  }
}

TEST_F(Axes, LogarithmicLabelsAreExponents) {
  drawing.GralOaxis(-2, 3, 2, 5, 3, true, true, "");
  firstLetters(letters(), {"10-2", "10-1", "10 0", "10 1", "10 2", "10 3"});
}

TEST_F(Axes, LabelSizeIsTwiceTheTickOnAFormAndHalfAsMuchAgainOnAPrinter) {
  drawing.GralOaxis(0, 1, 4, 1, -4, false, true, "");
  EXPECT_NEAR(letters()[0].size.value(), 2 * 4 * 72 / 25.4, 1E-5);
  openPrinter();
  drawing.GralOaxis(0, 1, 4, 1, -4, false, true, "");
  EXPECT_NEAR(lettersOn(printer)[0].size.value(), 1.5 * 4 * 72 / 25.4, 1E-5);
  drawing.GralVaxis(0, 1, 4, 1, 4, false, true, "");
  EXPECT_NEAR(lettersOn(printer)[0].size.value(), 1.5 * 4 * 72 / 25.4, 1E-5);
}

TEST_F(Axes, VerticalAxisHasTicksToTheRight) {
  drawing.GralVaxis(2, 6, 4, 2, 3, false, false, "");
  EXPECT_EQ(lines(), (std::vector<std::string>{
                         "line 2268.75,3397.5 2438.906,3397.5 tw", "line 2268.75,3397.5 2268.75,2265 tw",
                         "line 2268.75,2265 2438.906,2265 tw", "line 2268.75,2265 2268.75,1132.5 tw",
                         "line 2268.75,1132.5 2438.906,1132.5 tw", "refresh"}));
}

TEST_F(Axes, VerticalMinorTicksAreSixTenthsLong) {
  drawing.GralVaxis(2, 3, 4, 1, -5, true, false, "");
  const auto n = numbersOf(lines()[1]);
  EXPECT_NEAR(n[2], (4 - 0.6 * 0.5) * 567.1875, 0.001);
  EXPECT_NEAR(n[1], (8 - 2 - std::log10(2.0)) * 566.25, 0.001);
}

TEST_F(Axes, VerticalLabelsEndLeftOfTheAxis) {
  drawing.GralVaxis(0, 100, 4, 1, 3, false, true, "");
  const auto firsts = firstLetters(letters(), {"0", "100"});
  // right ends at 4 - 0.3 cm
  const double x = 3.7 * 567.1875;
  expectAt(firsts[0], x - 203, 8 * 566.25 - kHalfLine);
  EXPECT_NEAR(firsts[1].place.x, x - 611, 0.02);
}

TEST_F(Axes, VerticalLabelsBeginRightOfTheAxisWhenTicksPointLeft) {
  drawing.GralVaxis(0, 4, 4, 1, -3, false, true, "");
  const auto firsts = firstLetters(letters(), {"0", "4"});
  expectAt(firsts[0], 4.3 * 567.1875, 8 * 566.25 - kHalfLine);
  expectAt(firsts[1], 4.3 * 567.1875, 4 * 566.25 - kHalfLine);
}

TEST_F(Axes, VerticalTitleStandsBeyondTheWidestLabelAndReadsUpward) {
  drawing.GralVaxis(0, 4, 4, 1, 3, false, true, "yy");
  const auto runs = letters();
  const auto firsts = firstLetters(runs, {"0", "4", "yy"});
  const double W = 0.6 * kPoints * 20;
  const double H = 2 * kHalfLine;
  expectAt(firsts[2], (4 - 0.6) * 567.1875 - (W + H) - kHalfLine, 6 * 566.25 + (407) / 2.0);
  EXPECT_EQ(firsts[2].angle, 90);
}

TEST_F(Axes, VerticalTitleReadsDownwardWhenTicksPointLeft) {
  drawing.GralVaxis(0, 4, 4, 1, -3, false, true, "yy");
  const auto firsts = firstLetters(letters(), {"0", "4", "yy"});
  EXPECT_EQ(firsts[2].angle, -90);
  const double W = 0.6 * kPoints * 20;
  expectAt(firsts[2], (4 + 0.6) * 567.1875 + (W + 2 * kHalfLine) + kHalfLine, 6 * 566.25 - 407 / 2.0);
}

TEST_F(Axes, WidestLabelIsMeasuredOverTheRawText) {
  drawing.GralVaxis(0, 1, 4, 1, 3, true, true, "yy");
  const auto runs = letters();
  const auto firsts = firstLetters(runs, {"100", "101", "yy"});
  // "10^{0}": four signs of 0.6 (digits, "^") and two braces of 0.6
  const double W = 6 * 0.6 * kPoints * 20;
  EXPECT_NEAR(firsts[2].place.x, (4 - 0.6) * 567.1875 - (W + 2 * kHalfLine) - kHalfLine, 0.02);
}

TEST_F(Axes, VerticalTitleWithoutLabelsLeavesOneLine) {
  drawing.GralVaxis(0, 4, 4, 1, 3, false, false, "yy");
  const auto firsts = firstLetters(letters(), {"yy"});
  EXPECT_NEAR(firsts[0].place.x, (4 - 0.6) * 567.1875 - 2 * kHalfLine - kHalfLine, 0.02);
}

TEST_F(Axes, VerticalAxisLeavesTheFontSizeOfItsLabels) {
  open(1);
  drawing.GralVaxis(0, 4, 4, 1, 3, false, false, "");
  EXPECT_NEAR(form.FontSize(), kPoints / 2, 1E-5);
}

TEST_F(Axes, BlankTitleIsNotWritten) {
  for (const char* title : {"", "   "}) {
    drawing.GralOaxis(0, 4, 4, 2, 3, false, false, title);
    drawing.GralVaxis(0, 4, 4, 2, 3, false, false, title);
    EXPECT_TRUE(letters().empty());
  }
}

TEST_F(Axes, WithoutIntervalsFailBeforeAnythingIsDrawn) {
  for (const auto axis : {&GralCls::GralOaxis, &GralCls::GralVaxis}) {
    try {
      (drawing.*axis)(0, 1, 2, 0, 3, false, true, "x");
      ADD_FAILURE();
    } catch (const RuntimeError& error) {
      EXPECT_EQ(error.number(), 11);
    }
  }
  EXPECT_TRUE(drawn().empty());
}

TEST_F(Axes, SmallNumbersAreLabelledInAUnitThatTheTitleTells) {
  drawing.GralXMap(2, 14, 0, 12E-6);
  drawing.GralOaxis(0, 12E-6, 2, 4, 3, false, true, " m ");
  firstLetters(letters(), {"0", "3", "6", "9", "12", "m (10-6)"});
  drawing.GralYMap(2, 6, 0, 12E-6);
  drawing.GralVaxis(0, 12E-6, 6E-6, 4, 3, false, true, "");
  firstLetters(letters(), {"0", " 3", " 6", " 9", "12", "(10-6)"});
}

TEST_F(Axes, CrowdedLabelsAreThinnedOutAlikeOnAFormAndOnAPrinter) {
  // Ticks of 4 mm make characters of 4.48 mm, on the printer three quarters of that; a tick every 12 mm.
  const std::vector<std::string> expected{"0", "200", "400", "600", "800", "1000", "x"};
  drawing.GralXMap(2, 14, 0, 1000);
  drawing.GralOaxis(0, 1000, 2, 10, 4, false, true, "x");
  const auto firsts = firstLetters(letters(), expected);
  EXPECT_NEAR(firsts[1].place.x, (2 + 2 * 1.2) * 567.1875 - (3 * 0.6 * firsts[1].size.value() * 20 - 1) / 2,
              1);
  openPrinter();
  drawing.GralXMap(2, 14, 0, 1000);
  drawing.GralOaxis(0, 1000, 2, 10, 4, false, true, "x");
  firstLetters(lettersOn(printer), expected);
}

TEST_F(Axes, WithoutLabelsKeepTheirTitle) {
  drawing.GralXMap(2, 14, 0, 12E-6);
  drawing.GralOaxis(0, 12E-6, 2, 4, 3, false, false, "m");
  firstLetters(letters(), {"m"});
}

TEST_F(Axes, OnAPrinterAreNotRefreshed) {
  openPrinter();
  drawing.GralOaxis(0, 4, 4, 1, 3, false, false, "");
  drawing.GralVaxis(0, 4, 4, 1, 3, false, false, "");
  const auto all = drawnOn(printer);
  EXPECT_EQ(all.size(), 6U);
}

}  // namespace
}  // namespace vk
