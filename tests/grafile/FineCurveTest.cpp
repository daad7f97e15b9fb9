#include "grafile/FineCurve.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <cmath>
#include <limits>

#include "doubles/Tolerances.h"

namespace vk {
namespace {

using Function = double (*)(double);

FineCurve sampled(const CurveRange& range, Function function) {
  return sampleFinely(range, [&](std::span<const double> x) {
    std::vector<double> y;
    for (const double place : x) y.push_back(function(place));
    return y;
  });
}

double widestStep(const FineCurve& curve, double from, double to) {
  double widest = 0;
  for (std::size_t i = 1; i < curve.x.size(); ++i) {
    if (curve.x[i - 1] >= from && curve.x[i] <= to) widest = std::max(widest, curve.x[i] - curve.x[i - 1]);
  }
  return widest;
}

TEST(FineCurve, HasFourHundredPlacesWhereItIsStraight) {
  const FineCurve line = sampled({-1, 7, 3, 1}, [](double x) { return 2 * x - 1; });
  ASSERT_EQ(line.x.size(), 400U);
  EXPECT_EQ(line.x.front(), -1);
  EXPECT_EQ(line.x.back(), 7);
  EXPECT_EQ(line.y.front(), -3);
  EXPECT_TRUE(std::ranges::is_sorted(line.x));
}

TEST(FineCurve, IsFinerWhereItBends) {
  // A peak 2 mm wide and 10 cm high.
  const auto peak = [](double x) { return std::exp(-x * x / (2 * 1E-4)); };
  const FineCurve curve = sampled({-0.5, 0.5, 20, 10}, peak);
  EXPECT_NEAR(widestStep(curve, 0.2, 0.5), 1. / 399, kThroughScales);
  EXPECT_LE(widestStep(curve, -0.001, 0.001), 1. / 399 / 8 + 1E-12);
  EXPECT_LT(curve.x.size(), 800U);
  for (std::size_t i = 1; i < curve.x.size(); ++i) {
    const double middle = (curve.x[i - 1] + curve.x[i]) / 2;
    EXPECT_NEAR((curve.y[i - 1] + curve.y[i]) / 2, peak(middle), 0.01) << middle;
  }
}

TEST(FineCurve, FindsItsEnds) {
  const FineCurve root = sampled({-1, 1, 10, 10}, [](double x) {
    return x < 0.3 ? std::numeric_limits<double>::quiet_NaN() : std::sqrt(x - 0.3);
  });
  const auto first = std::ranges::find_if(root.y, [](double y) { return std::isfinite(y); });
  EXPECT_NEAR(root.x[static_cast<std::size_t>(first - root.y.begin())], 0.3, 2. / 399 / 32);
}

TEST(FineCurve, FindsGapsOfAnyWidth) {
  // The widths are 200 and a fifth of the places that it begins with.
  for (const double end : {0.5, -0.4985}) {
    static double gapEnd;
    gapEnd = end;
    const FineCurve gap = sampled({-1, 1, 10, 10}, [](double x) {
      return x > -0.4995 && x < gapEnd ? std::numeric_limits<double>::quiet_NaN() : x;
    });
    const auto first = std::ranges::find_if_not(gap.y, [](double y) { return std::isfinite(y); });
    const auto behind = std::find_if(first, gap.y.end(), [](double y) { return std::isfinite(y); });
    ASSERT_NE(behind, gap.y.end()) << end;
    EXPECT_NEAR(*(first - 1), -0.4995, 2. / 399 / 32) << end;
    EXPECT_NEAR(*behind, end, 2. / 399 / 32) << end;
  }
}

TEST(FineCurve, EndsAtNoise) {
  for (const double width : {10.0, 1000.0}) {
    const FineCurve noise = sampled({0, 1, width, 10}, [](double x) { return std::sin(x * x * 1E9); });
    EXPECT_GT(noise.x.size(), 10000U) << width;
    EXPECT_LE(noise.x.size(), 20000U) << width;
  }
}

}  // namespace
}  // namespace vk
