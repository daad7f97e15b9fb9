#include "numeric/LineSearch.h"

#include <array>
#include <cmath>
#include <functional>
#include <limits>

#include "doubles/Tolerances.h"

namespace vk {
namespace {

using Function = std::function<double(double)>;

struct Search {
  int itest = kSearchBeginAt;
  double from = 0;
  int maxfun = 20;
  double absacc = 0.01;
  double relacc = 0.01;
  double xstep = 0.5;
};

struct Outcome {
  std::vector<double> points;  // in the order in which they were asked for
  int itest;
  double x, f;
};

Outcome run(const Function& function, const Search& search = {}) {
  LineSearchState state;
  Int16 itest = search.itest;
  double x = search.from;
  double f = search.itest == kSearchBeginAt ? function(x) : -1E300;
  Outcome outcome{};
  while (true) {
    LineSearch(state, itest, x, f, search.maxfun, search.absacc, search.relacc, search.xstep);
    if (itest != kSearchEvaluate) break;
    outcome.points.push_back(x);
    f = function(x);
  }
  outcome.itest = itest;
  outcome.x = x;
  outcome.f = f;
  return outcome;
}

Function parabola(double minimum) {
  return [=](double x) { return (x - minimum) * (x - minimum); };
}

double level(double) {
  return 1;
}

TEST(LineSearch, FindsTheMinimumOfAParabola) {
  const Outcome outcome = run(parabola(0.7));
  // Downhill to 0.5, a third point as far behind it, then the predicted minimum.
  ASSERT_THAT(outcome.points, testing::Pointwise(testing::DoubleNear(kLastBit), {0.5, 1.0, 0.7}));
  EXPECT_EQ(outcome.itest, kSearchAccurate);
  EXPECT_NEAR(outcome.x, 0.7, kLastBit);
  EXPECT_NEAR(outcome.f, 0, 1E-30);
}

TEST(LineSearch, ReflectsAfterAnUphillStepAndDoublesWhatItAdds) {
  const Outcome outcome = run(parabola(-3));
  // 0.5 is uphill: -0.5. The minimum predicted, -3, is farther than one step: -1.5. Now it is within two.
  EXPECT_THAT(outcome.points, testing::ElementsAre(0.5, -0.5, -1.5, -3));
  EXPECT_EQ(outcome.itest, kSearchAccurate);
  EXPECT_EQ(outcome.x, -3);
  EXPECT_EQ(outcome.f, 0);
}

TEST(LineSearch, ExtendsWithTheDoubledStepWhenTheFirstTwoValuesAreEqual) {
  const Outcome outcome = run(level, {.maxfun = 5});
  EXPECT_THAT(outcome.points, testing::ElementsAre(0.5, 1.5, 3.5, 7.5, 15.5));
  EXPECT_EQ(outcome.itest, kSearchExhausted);
  EXPECT_EQ(outcome.x, 0);
  EXPECT_EQ(outcome.f, 1);
}

TEST(LineSearch, ReflectsAtTheBaseWhenTheValueBehindAnEqualPairIsHigher) {
  const Outcome outcome = run([](double x) { return x > 1 ? 2.0 : 1.0; }, {.maxfun = 3});
  // 0.5 is level with 0; 1.5 is uphill from 0, so -1.5.
  EXPECT_THAT(outcome.points, testing::ElementsAre(0.5, 1.5, -1.5));
}

TEST(LineSearch, EndsAtTheBestPointAfterTwentyValues) {
  const Outcome outcome = run([](double x) { return -x; });
  ASSERT_EQ(outcome.points.size(), 20U);
  EXPECT_EQ(outcome.itest, kSearchExhausted);
  EXPECT_EQ(outcome.x, 262144);
  EXPECT_EQ(outcome.f, -262144);
}

TEST(LineSearch, ExtendsAMonotoneFunctionByDoubling) {
  const Outcome outcome = run([](double x) { return -x; }, {.maxfun = 8});
  EXPECT_THAT(outcome.points, testing::ElementsAre(0.5, 1, 2, 4, 8, 16, 32, 64));
}

TEST(LineSearch, WithoutAValueToSpendEndsAtItsStart) {
  const Outcome outcome = run(parabola(2), {.from = 1.5, .maxfun = 0});
  EXPECT_TRUE(outcome.points.empty());
  EXPECT_EQ(outcome.itest, kSearchExhausted);
  EXPECT_EQ(outcome.x, 1.5);
  EXPECT_EQ(outcome.f, 0.25);
}

TEST(LineSearch, AsksForTheValueAtItsStartWhenItDoesNotHaveIt) {
  const Outcome outcome = run(parabola(0.7), {.itest = kSearchBegin, .from = 0.25});
  ASSERT_FALSE(outcome.points.empty());
  EXPECT_EQ(outcome.points[0], 0.25);
  EXPECT_EQ(outcome.points[1], 0.75);
  EXPECT_NEAR(outcome.x, 0.7, kLastBit);
}

TEST(LineSearch, CountsThreeValuesForTheOneAtItsStart) {
  const Outcome outcome = run([](double x) { return -x; }, {.itest = kSearchBegin, .maxfun = 20});
  EXPECT_EQ(outcome.points.size(), 18U);
  EXPECT_EQ(outcome.itest, kSearchExhausted);
}

TEST(LineSearch, TakesTheAccuracyByItsSize) {
  const Function cosh = [](double x) { return std::cosh(x - 1); };
  const Outcome positive = run(cosh, {.absacc = 0.3, .relacc = 0});
  const Outcome negative = run(cosh, {.absacc = -0.3, .relacc = 0});
  const Outcome none = run(cosh, {.absacc = 0, .relacc = 0});
  EXPECT_EQ(positive.points, negative.points);
  EXPECT_EQ(negative.itest, kSearchAccurate);
  EXPECT_GT(none.points.size(), negative.points.size());
}

TEST(LineSearch, HalvesBetweenTwoEqualPoints) {
  const Function flatBottom = [](double x) { return std::max(0.0, std::abs(x - 2) - 1); };
  const Outcome outcome = run(flatBottom, {.maxfun = 6});
  EXPECT_THAT(outcome.points, testing::ElementsAre(0.5, 1, 2, 1.5, 1.75, 1.625));
  EXPECT_EQ(outcome.f, 0);
}

TEST(LineSearch, EndsWhenTwoEqualPointsCannotBeToldApart) {
  const Function flatBottom = [](double x) { return std::max(0.0, std::abs(x - 2) - 1); };
  const Outcome outcome = run(flatBottom, {.maxfun = 200});
  EXPECT_EQ(outcome.itest, kSearchFlat);
  EXPECT_EQ(outcome.f, 0);
  EXPECT_LT(outcome.points.size(), 100U);
}

// The value f at x comes in while the search is in `state`.
struct Answered {
  Answered(const LineSearchState& before, double position, double value)
      : state(before), x(position), f(value) {
    LineSearch(state, itest, x, f, 20, 1E-9, 1E-9, 0.5);
  }
  LineSearchState state;
  double x, f;
  Int16 itest = kSearchEvaluate;
};

TEST(LineSearch, EndsWhenThePredictionFallsOnAPointItHas) {
  // a = (2, 4), b = (0, 0) of x*x, and the value at 1 comes in: the parabola's minimum is b itself.
  const Answered search({.is = 1, .inc = 1, .d = 1, .xa = 2, .fa = 4, .fb = 0, .xb = 0}, 1, 1);
  EXPECT_EQ(search.itest, kSearchFlat);
  EXPECT_EQ(search.x, 0);
  EXPECT_EQ(search.f, 0);
}

TEST(LineSearch, EndsWhenNoPlaceIsLeftBetweenThePointAndTheBracketsEnd) {
  // A bracket whose far end coincides with the new b, and values on a straight line: nothing is left to halve.
  const Answered search({.is = 2, .inc = 2, .d = 4, .xa = 2, .fa = 2, .fb = 1, .xb = 3}, 4, 0);
  EXPECT_EQ(search.itest, kSearchFlat);
  EXPECT_EQ(search.x, 4);
  EXPECT_EQ(search.f, 0);
}

TEST(LineSearch, PutsAPredictionBetweenTheTwoLowestPointsInPlaceOfTheHigher) {
  // c is not above b, and the prediction 0.5 lies between a = 0 and b = 1.
  const Answered search(
      {.is = 1, .inc = 2, .d = 1, .xa = 0, .fa = 1, .fb = 2, .xb = 1, .xc = -1, .fc = 1.5, .xp = 0.5}, 0.5,
      1.25);
  EXPECT_EQ(search.state.xb, 0.5);
  EXPECT_EQ(search.state.fb, 1.25);
  EXPECT_EQ(search.state.xa, 0);
  EXPECT_EQ(search.state.xc, -1);
}

TEST(LineSearch, ExchangesTheTwoHigherPointsBeforeAPredictionIsTaken) {
  // c is above b, so they change places; the prediction 0.25 lies outside a and the new b and is the lowest.
  const Answered search(
      {.is = 1, .inc = 2, .d = 0, .xa = 0, .fa = 1, .fb = 2, .xb = 1, .xc = -1, .fc = 3, .xp = 0.25}, 0.25,
      0.5);
  EXPECT_EQ(search.state.xa, 0.25);  // the new point
  EXPECT_EQ(search.state.xb, 0);     // the lowest so far
  EXPECT_EQ(search.state.xc, 1);
  EXPECT_EQ(search.state.d, 0);  // the bracket ends there
}

TEST(LineSearch, EndsOnValuesThatAreNoNumbers) {
  const Outcome outcome = run([](double) { return std::numeric_limits<double>::quiet_NaN(); });
  EXPECT_LE(outcome.points.size(), 20U);
  EXPECT_EQ(outcome.itest, kSearchExhausted);
}

TEST(LineSearch, ServesTwoSearchesAtOnceBecauseItNeverCallsTheFunction) {
  struct Running {
    Function function;
    LineSearchState state = {};
    Int16 itest = kSearchBeginAt;
    double x = 0;
    double f = function(0);
  };
  std::array searches{Running{parabola(-3)}, Running{parabola(0.7)}};
  for (int round = 0; round < 20; ++round) {
    for (Running& r : searches) {
      if (r.itest == kSearchAccurate) continue;
      LineSearch(r.state, r.itest, r.x, r.f, 20, 0.01, 0.01, 0.5);
      if (r.itest == kSearchEvaluate) r.f = r.function(r.x);
    }
  }
  EXPECT_EQ(searches[0].x, -3);
  EXPECT_NEAR(searches[1].x, 0.7, kLastBit);
}

}  // namespace
}  // namespace vk
