#include <cmath>

#include "GralFixture.h"
#include "base/RuntimeError.h"

namespace vk {
namespace {

using Interval = std::pair<double, double>;

class Dashes : public GralFixture {
 protected:
  /// A dashed line to the right between two distances in twips from the left edge.
  void dash(double from, double to, std::string& pattern) {
    drawing.GralTraLine(from / kTwipsPerLogX, 4, to / kTwipsPerLogX, 4, pattern);
  }
  /// The stretches that were drawn along x, joined where they touch.
  std::vector<Interval> stretches() {
    constexpr double kTouching = 0.003;
    std::vector<Interval> result;
    for (const std::string& line : drawn()) {
      const std::vector<double> n = numbersOf(line);
      if (!result.empty() && std::abs(result.back().second - n[0]) < kTouching) {
        result.back().second = n[2];
      } else {
        result.emplace_back(n[0], n[2]);
      }
    }
    return result;
  }
};

TEST_F(Dashes, LineEndsInsideAnElement) {
  std::string text = pattern({1, 75, 45});
  dash(0, 100, text);
  EXPECT_EQ(drawn(), std::vector<std::string>{"line 0,2265 75,2265 tw"});
  EXPECT_EQ(text, pattern({0, 20, 75, 25}));
}

TEST_F(Dashes, LineOfExactlyTheFirstElementTogglesAndRotatesWithoutSplit) {
  std::string text = pattern({1, 75, 45});
  dash(0, 75, text);
  EXPECT_EQ(drawn(), std::vector<std::string>{"line 0,2265 75,2265 tw"});
  EXPECT_EQ(text, pattern({0, 45, 75}));
}

TEST_F(Dashes, InterruptedDashGoesOnInTheNextLine) {
  std::string text = pattern({1, 75, 45});
  dash(0, 30, text);
  EXPECT_EQ(text, pattern({1, 45, 45, 30}));
  dash(30, 60, text);
  EXPECT_EQ(text, pattern({1, 15, 45, 60}));
  dash(60, 100, text);
  EXPECT_EQ(text, pattern({0, 20, 75, 25}));
  EXPECT_EQ(stretches(), (std::vector<Interval>{{0, 75}}));
}

TEST_F(Dashes, CompletedElementGoesToTheEndWhole) {
  std::string text = pattern({1, 75, 45, 15, 45});
  dash(0, 50, text);
  EXPECT_EQ(text, pattern({1, 25, 45, 15, 45, 50}));
  dash(50, 75, text);
  EXPECT_EQ(text, pattern({0, 45, 15, 45, 75}));
}

TEST_F(Dashes, ShortSegmentsShowTheDashesOfOneLongLine) {
  constexpr double kLength = 600;
  for (int itra = 2; itra <= 5; ++itra) {
    drawing.GralPen(1, itra);
    std::string text = drawing.GralPenTra;
    dash(0, kLength, text);
    const std::vector<Interval> expected = stretches();
    ASSERT_GT(expected.size(), 3U);
    for (const double segment : {0.15, 0.6, 2.5, 7.3, 10.0}) {
      text = drawing.GralPenTra;
      const int count = static_cast<int>(std::floor(kLength / segment));
      for (int i = 0; i < count; ++i) dash(i * segment, (i + 1) * segment, text);
      if (count * segment < kLength) dash(count * segment, kLength, text);
      const std::vector<Interval> found = stretches();
      ASSERT_EQ(found.size(), expected.size()) << "type " << itra << ", segments of " << segment;
      for (std::size_t i = 0; i < found.size(); ++i) {
        EXPECT_NEAR(found[i].first, expected[i].first, 0.002) << segment;
        EXPECT_NEAR(found[i].second, expected[i].second, 0.002) << segment;
      }
    }
  }
}

TEST_F(Dashes, OfAPatternWithOneTwipElementsKeepTheirRhythm) {
  std::string text = pattern({1, 1, 1});
  for (int i = 0; i < 40; ++i) dash(i * 0.25, (i + 1) * 0.25, text);
  EXPECT_EQ(stretches(), (std::vector<Interval>{{0, 1}, {2, 3}, {4, 5}, {6, 7}, {8, 9}}));
}

TEST_F(Dashes, EveryCodeStaysBetween1And255) {
  drawing.GralPen(8, 5);
  std::string text = drawing.GralPenTra;
  double at = 0;
  for (int i = 1; i <= 400; ++i) {
    const double next = at + 0.37 * (i % 23);
    if (next > at) dash(at, next, text);
    at = next;
    for (std::size_t c = 1; c < text.size(); ++c) ASSERT_NE(text[c], '\0') << "after line " << i;
  }
}

TEST_F(Dashes, CountTheCarriedFractionOnlyForTheirOwnText) {
  std::string text = pattern({1, 75, 45});
  dash(0, 0.4, text);
  std::string other = pattern({1, 15, 45});
  form.forget();
  dash(0, 40, other);
  EXPECT_EQ(drawn(), std::vector<std::string>{"line 0,2265 15,2265 tw"});
}

TEST_F(Dashes, RunInAnyDirection) {
  std::string text = pattern({1, 75, 45});
  drawing.GralTraLine(4, 2, 4, 6, text);
  std::vector<std::string> lines = drawn();
  EXPECT_EQ(lines.front(), "line 2268.75,3397.5 2268.75,3322.5 tw");
  EXPECT_EQ(lines.size(), 19U);
  EXPECT_EQ(lines.back(), "line 2268.75,1237.5 2268.75,1162.5 tw");
}

TEST_F(Dashes, BeginWithTheStateOfTheText) {
  std::string text = pattern({0, 45, 75});
  dash(0, 100, text);
  EXPECT_EQ(drawn(), std::vector<std::string>{"line 45,2265 100,2265 tw"});
  EXPECT_EQ(text, pattern({1, 20, 45, 55}));
}

TEST_F(Dashes, OfALineWithoutLengthFailToTheCaller) {
  std::string text = pattern({1, 75, 45});
  try {
    dash(5, 5, text);
    FAIL();
  } catch (const RuntimeError& error) {
    EXPECT_EQ(error.number(), 11);
  }
  EXPECT_EQ(text, pattern({1, 75, 45}));
}

TEST_F(Dashes, TextsThatAreNoPatternAreRefused) {
  for (const std::string& text :
       {std::string(), pattern({1}), pattern({1, 75}), pattern({1, 75, 0}), pattern({1, 200, 45, 100})}) {
    std::string copy = text;
    EXPECT_THROW(dash(0, 10, copy), RuntimeError);
    EXPECT_EQ(copy, text);
  }
}

TEST_F(Dashes, OfALineFarBeyondThePageAreDrawnWhereTheyCanBeSeen) {
  std::string text = pattern({1, 75, 45});
  dash(-1.2E9, 1.2E9 + 30, text);
  const std::vector<std::string> lines = drawn();
  EXPECT_LT(lines.size(), 20000U);
  EXPECT_EQ(text, pattern({1, 45, 45, 30}));
  bool seen = false;
  for (const std::string& line : lines) {
    const std::vector<double> n = numbersOf(line);
    if (n[0] < -60 || n[0] > 60) continue;
    // the line began 10 million periods to the left of the page
    EXPECT_NEAR(n[0], 0, 0.01);
    EXPECT_NEAR(n[2], 75, 0.01);
    seen = true;
  }
  EXPECT_TRUE(seen);
}

TEST_F(Dashes, OfALineThatPassesFarFromThePageAreNotDrawn) {
  std::string text = pattern({1, 75, 45});
  drawing.GralTraLine(-1E5, 1E5, 1E5, 1E5, text);
  EXPECT_TRUE(drawn().empty());
}

}  // namespace
}  // namespace vk
