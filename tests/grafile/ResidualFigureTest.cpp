#include "grafile/ResidualFigure.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <numeric>

#include "doubles/DrawingLines.h"
#include "doubles/Tolerances.h"
#include "gral/Plotting.h"
#include "gral/sinks/RecorderDevice.h"

namespace vk {
namespace {

constexpr double kNoNumber = std::numeric_limits<double>::quiet_NaN();

/// The lines that record the drawing of a figure on a page of 20 x 15 cm.
std::vector<std::string> drawn(const ResidualFigure& figure, RecorderDevice& form) {
  RecorderDevice printer(PrinterMetrics{Twips(8505), Twips(11340), 300});
  GralCls drawing(printer);
  drawing.GralGrStr(form, "LANDSCAPE", 2);
  drawResiduals(figure, drawing, {0, 0, drawing.XrLog, drawing.YtLog});
  drawing.GralGrEnd();
  return form.lines();
}
std::vector<std::string> drawn(const ResidualFigure& figure) {
  RecorderDevice form;
  return drawn(figure, form);
}

auto beginningWith(const std::vector<std::string>& lines, const std::string& what) {
  return std::ranges::count_if(lines, [&](const std::string& line) { return line.starts_with(what); });
}
/// All letters that were written, in their order.
std::string written(const std::vector<std::string>& lines) {
  std::string letters;
  for (const std::string& line : lines) {
    if (!line.starts_with("text")) continue;
    const auto begin = line.find('\'') + 1;
    letters += line.substr(begin, line.rfind('\'') - begin);
  }
  return letters;
}

const std::vector<double> kX{0, 1, 2, 3, 4, 5}, kPulls{0.3, -1.2, 2.4, 0.1, -2.75, 0.9};

TEST(ResidualFigure, IsToldInWords) {
  EXPECT_EQ(describe({"t", kX, kPulls}),
            "Scarti divisi per i loro errori: 6 punti, 2 oltre 2, il maggiore -2.75 a x = 4");
  EXPECT_EQ(describe({"t", std::vector{.5}, std::vector{0.}}),
            "Scarti divisi per i loro errori: 1 punto, 0 oltre 2, il maggiore 0.00 a x = .5");
  EXPECT_EQ(
      describe({"t", std::vector{1., 2.}, std::vector{kNoNumber, 3.}}),
      "Scarti divisi per i loro errori: 1 punto, 1 oltre 2, il maggiore 3.00 a x = 2, 1 NON calcolabili");
  EXPECT_EQ(describe({"t", std::vector{1.}, std::vector{kNoNumber}}), "Scarti NON Calcolabili");
  EXPECT_EQ(describe({"t", std::vector{1., 2.}, std::vector<double>()}), "Scarti NON Calcolabili");
}

TEST(ResidualFigure, ShowsEachPointAndTellsAxes) {
  const auto lines = drawn({"t (s)", kX, kPulls});
  EXPECT_EQ(beginningWith(lines, "circle"), 6);
  for (const char* text : {"t (s)", "(Mis.-Calc.) / Errore", "Punti"})
    EXPECT_THAT(written(lines), testing::HasSubstr(text));
}

TEST(ResidualFigure, ShowsItsLinesAboveManyPoints) {
  const auto points = [](std::size_t count) {
    const std::vector<double> zeros(count);
    std::vector<double> x(count);
    std::iota(x.begin(), x.end(), 0);
    return drawn({"t", x, zeros});
  };
  const auto lineBehindPoints = [](const std::vector<std::string>& lines) {
    const auto of = [&](const char* what) {
      return std::ranges::find_if(lines, [&](const std::string& line) { return line.starts_with(what); });
    };
    return of("pen 606060") > of("circle");
  };
  const auto few = points(1000), many = points(1001);
  EXPECT_FALSE(lineBehindPoints(few));
  EXPECT_TRUE(lineBehindPoints(many));
  EXPECT_EQ(beginningWith(few, "pen 606060"), beginningWith(many, "pen 606060")) << "once in any case";
}

TEST(ResidualFigure, CountsTheResidualsOfEachHalfErrorInBars) {
  // Of the halves of an error from -3 to 3, five hold a point and one two.
  EXPECT_EQ(beginningWith(drawn({"t", kX, kPulls}), "box"), 5);
}

TEST(ResidualFigure, HoldsResidualsFarBeyondTheirErrors) {
  const auto lines = drawn({"t", kX, std::vector{0.3, -1.2, 47., 0.1, -2.75, 0.9}});
  EXPECT_EQ(beginningWith(lines, "circle"), 6);
  EXPECT_THAT(written(lines), testing::HasSubstr("-50-40-30-20-10  0 10 20 30 40 50"));
}

TEST(ResidualFigure, HasTheSameTicksAtTheTopAsAtTheBottom) {
  constexpr double kLongestTick = 200;  // twips
  std::vector<double> up, down;         // where they stand along x
  for (const std::string& line : drawn({"t", kX, kPulls})) {
    if (!line.starts_with("line ")) continue;
    const std::vector<double> n = numbersOf(line);
    if (n[0] == n[2] && std::abs(n[3] - n[1]) < kLongestTick) (n[3] < n[1] ? up : down).push_back(n[0]);
  }
  EXPECT_GT(up.size(), 8U);
  EXPECT_EQ(up, down);
}

TEST(ResidualFigure, HasItsPointsOnTheLeftAndItsBarsOnTheRight) {
  std::vector<double> ticks, marks, bars;  // along x
  for (const std::string& line : drawn({"t", kX, kPulls})) {
    const std::vector<double> n = numbersOf(line);
    if (line.starts_with("line ") && n[0] == n[2] && n[3] > n[1]) ticks.push_back(n[0]);
    if (line.starts_with("circle ")) marks.push_back(n[0]);
    if (line.starts_with("box ")) bars.push_back(n[0]);
  }
  ASSERT_EQ(marks.size(), kX.size());
  const double left = ticks.front(), right = ticks.back();
  EXPECT_EQ(marks.front(), left);
  EXPECT_NEAR((right - bars.front()) / (right - left), 0.28, kSixDigits);
  EXPECT_NEAR(bars.front() - marks.back(), 0.7 * kTwipsPerInch / kCmPerInch, kThreeDigits);
}

TEST(ResidualFigure, DrawsTheNormalCurveByAThickerPen) {
  EXPECT_EQ(beginningWith(drawn({"t", kX, kPulls}), "pen 000000 width 2 solid"), 1);
}

TEST(ResidualFigure, IsDrawnWhateverTheNumbersAre) {
  const double most = std::numeric_limits<double>::max();
  for (const std::vector<double>& pulls : {std::vector{0., 0.}, {most, -most}, {1E-300, 1E300}}) {
    for (const std::vector<double>& x : {std::vector{7., 7.}, {0., 0.}, {-most, most}, {1, 1 + 1E-15}})
      EXPECT_NO_THROW(drawn({"t", x, pulls}));
  }
  EXPECT_EQ(written(drawn({"t", std::vector{1.}, std::vector{kNoNumber}})), "Scarti NON Calcolabili");
}

}  // namespace
}  // namespace vk
