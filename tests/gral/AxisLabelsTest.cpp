#include "gral/AxisLabels.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <random>

#include "GralFixture.h"
#include "base/NumberText.h"
#include "base/Text.h"

namespace vk {
namespace {

using Shown = std::vector<std::string>;

constexpr double kEnoughRoom = std::numeric_limits<double>::infinity();

class AxisLabels : public GralFixture {
 protected:
  /// Chooses between the ends in so many intervals; what the axis shows is left in `shown` and `title`.
  void choose(double from, double to, int n, double room = kEnoughRoom, const std::string& oldTitle = "x") {
    const auto plain = [&](double a, double b) {
      Array<std::string> labels;
      double longest = 0;
      drawing.Makescale(a, b, labels, n, false, longest, false);
      return labels;
    };
    const AxisText text = chooseLabels({from, to, static_cast<double>(n), room}, oldTitle, plain);
    shown.clear();
    for (int k = 0; k <= text.labels.upper(); ++k) shown.push_back(text.labels[k]);
    title = text.title;
  }

  Shown shown;
  std::string title;
};

TEST_F(AxisLabels, ThatCanBeReadStay) {
  choose(0, 1, 4, 5, " tempo ");
  EXPECT_EQ(shown, (Shown{"0.00", "0.25", "0.50", "0.75", "1.00"}));
  EXPECT_EQ(title, " tempo ");
  choose(0, 9999999, 1);
  EXPECT_EQ(shown, (Shown{"0", "9999999"}));
  choose(-0.0005, 0.0005, 2);
  EXPECT_EQ(shown, (Shown{"-0.0005", "0.0000", "0.0005"}));
  EXPECT_EQ(title, "x");
}

TEST_F(AxisLabels, OfSmallNumbersAreDividedByAPowerOfAThousand) {
  choose(0, 12E-6, 6);
  EXPECT_EQ(shown, (Shown{"0", "2", "4", "6", "8", "10", "12"}));
  EXPECT_EQ(title, "x (10^{-6})");
  choose(-2E-5, 4E-5, 3, kEnoughRoom, "  ");
  EXPECT_EQ(shown, (Shown{"-20", "0", "20", "40"}));
  EXPECT_EQ(title, "(10^{-6})");
}

TEST_F(AxisLabels, WithMoreThanSevenDigitsAreDividedByAPowerOfAThousand) {
  choose(5E8, 1.4E9, 3);
  EXPECT_EQ(shown, (Shown{"0.5", "0.8", "1.1", "1.4"}));
  EXPECT_EQ(title, "x (10^{9})");
  choose(-1E7, 0, 2, kEnoughRoom, " ");
  EXPECT_EQ(shown, (Shown{"-10", "-5", "0"}));
  EXPECT_EQ(title, "(10^{6})");
  choose(0, 1E300, 2);
  EXPECT_EQ(shown, (Shown{"0.0", "0.5", "1.0"}));
  EXPECT_EQ(title, "x (10^{300})");
}

TEST_F(AxisLabels, OfALateClockAreDifferencesFromTheFirstValue) {
  choose(1700000000, 1700000600, 6, 8, " t ");
  EXPECT_EQ(shown, (Shown{"0", "100", "200", "300", "400", "500", "600"}));
  EXPECT_EQ(title, "t - 1700000000");
  choose(1000000, 1000000.00012, 4, kEnoughRoom, "");
  EXPECT_EQ(shown, (Shown{"0", "30", "60", "90", "120"}));
  EXPECT_EQ(title, "- 1000000 (10^{-6})");
}

TEST_F(AxisLabels, ThatStandTooCloseAreShortenedByAUnitWhereThatHelps) {
  choose(10000, 20000, 5, 5);
  EXPECT_EQ(shown, (Shown{"10", "12", "14", "16", "18", "20"}));
  EXPECT_EQ(title, "x (10^{3})");
}

TEST_F(AxisLabels, ThatStandTooCloseAreThinnedOutWhereAUnitDoesNotHelp) {
  choose(0, 1000, 10, 3);
  EXPECT_EQ(shown, (Shown{"0", "", "200", "", "400", "", "600", "", "800", "", "1000"}));
  EXPECT_EQ(title, "x");
  choose(0, 1000, 10, 1.5);
  EXPECT_EQ(shown, (Shown{"0", "", "", "300", "", "", "600", "", "", "900", ""}));
  choose(0, 1000, 10, 0.1);
  EXPECT_EQ(shown, (Shown{"0", "", "", "", "", "", "", "", "", "", ""})) << "the first always";
}

TEST_F(AxisLabels, ThatStandTooCloseAndWouldMisleadAreThinnedOutInTheirUnit) {
  choose(0, 12E-6, 24, 1.2);
  for (std::size_t k = 0; k <= 24; ++k) EXPECT_EQ(shown[k].empty(), k % 4 != 0) << k;
  EXPECT_EQ((Shown{shown[0], shown[4], shown[20], shown[24]}), (Shown{"0.0", "2.0", "10.0", "12.0"}));
  EXPECT_EQ(title, "x (10^{-6})");
}

TEST_F(AxisLabels, ThatStandTooCloseAndWouldMisleadAreThinnedOutAsDifferences) {
  choose(1699999400, 1700000600, 24, 2);
  for (std::size_t k = 0; k <= 24; ++k) EXPECT_EQ(shown[k].empty(), k % 3 != 0) << k;
  EXPECT_EQ((Shown{shown[0], shown[3], shown[24]}), (Shown{"0", "150", "1200"}));
  EXPECT_EQ(title, "x - 1699999400");
}

TEST_F(AxisLabels, AreCloseBelowHalfACharacter) {
  choose(10, 12, 2, 2.5);
  EXPECT_EQ(shown, (Shown{"10", "11", "12"}));
  choose(10, 12, 2, 2.49);
  EXPECT_EQ(shown, (Shown{"10", "", "12"}));
}

TEST_F(AxisLabels, OfABrokenStepAreThinnedOutToThoseThatAreTrue) {
  // A step of .0333 is a thousandth off at the end.
  choose(0, 1, 30);
  EXPECT_EQ(shown[0], "0.0000");
  EXPECT_EQ(shown[1], "");
  EXPECT_GE(std::ranges::count_if(shown, [](const std::string& label) { return !label.empty(); }), 3);
  EXPECT_EQ(title, "x");
}

TEST_F(AxisLabels, OfAnAxisWithoutLengthAreOne) {
  choose(5, 5, 2);
  EXPECT_EQ(shown, (Shown{"5", "", ""}));
  choose(0, 0, 2);
  EXPECT_EQ(shown, (Shown{"0", "", ""}));
  choose(0, 1E-320, 2);
  EXPECT_EQ(shown.size(), 3U);
}

/// The number in front of which a text stands, 0 where it does not.
double numberBehind(const std::string& text, const std::string& mark) {
  const int at = position(text, mark);
  return at == 0 ? 0 : scanNumber(mid(text, at + length(mark)));
}

TEST_F(AxisLabels, NeverMislead) {
  std::mt19937 random(2024);
  const auto uniform = [&] { return std::uniform_real_distribution<>(0, 1)(random); };
  int plain = 0, inUnits = 0, differences = 0, thin = 0;
  for (int i = 0; i < 5000; ++i) {
    const double step =
        static_cast<double>(1 + random() % 9) * std::pow(10, static_cast<int>(random() % 16) - 8);
    const double from = step * std::floor((uniform() - 0.5) * std::pow(10, 1 + 6 * uniform()));
    const int n = 1 + static_cast<int>(random() % 20);
    const double room = random() % 2 == 0 ? kEnoughRoom : 1 + 9 * uniform();
    choose(from, from + n * step, n, room);
    const double unit = std::pow(10.0, numberBehind(title, "10^{"));
    const double less = numberBehind(title, " - ");
    int before = -1;
    for (int k = 0; k <= n; ++k) {
      const std::string& label = shown[static_cast<std::size_t>(k)];
      if (label.empty()) continue;
      if (before < 0) {
        EXPECT_NEAR(scanNumber(label) * unit + less, from, 0.0101 * step * n) << from << ' ' << step;
      }
      if (before >= 0) {
        const double gap = step * (k - before);
        EXPECT_NEAR(scanNumber(label) * unit + less, from + k * step, 0.0101 * gap) << from << ' ' << step;
        const double halves = (length(label) + length(shown[static_cast<std::size_t>(before)])) / 2.0;
        EXPECT_GE((k - before) * room, halves + 0.49);
      }
      before = k;
    }
    ++(less != 0 ? differences : unit != 1 ? inUnits : before == n ? plain : thin);
  }
  for (const int kind : {plain, inUnits, differences, thin}) EXPECT_GT(kind, 100);
}

}  // namespace
}  // namespace vk
