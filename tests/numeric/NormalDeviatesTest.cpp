#include "numeric/NormalDeviates.h"

#include <cmath>
#include <deque>

namespace vk {
namespace {

/// Gives the numbers of a list.
class ListedNumbers : public UniformSource {
 public:
  ListedNumbers(std::initializer_list<float> numbers) : numbers_(numbers) {}
  ~ListedNumbers() override { EXPECT_TRUE(numbers_.empty()); }
  float next() override {
    const float number = numbers_.at(0);
    numbers_.pop_front();
    return number;
  }
  void giveBack(std::span<const float> numbers) override {
    numbers_.insert(numbers_.begin(), numbers.begin(), numbers.end());
  }

 private:
  std::deque<float> numbers_;
};

TEST(GaussianDeviate, GivesTheSecondNumberOfAPairFirst) {
  ListedNumbers random{0.75F, 0.375F};
  GaussianState state;
  // w1 = 0.5, w2 = -0.25, s = 0.3125
  const double fac = std::sqrt(-2 * std::log(0.3125) / 0.3125);
  EXPECT_EQ(GaussianDeviate(random, state), Evaluation{-0.25 * fac});
  EXPECT_TRUE(state.hasStored);
  EXPECT_EQ(GaussianDeviate(random, state), Evaluation{0.5 * fac});
  EXPECT_FALSE(state.hasStored);
}

TEST(GaussianDeviate, NarrowsItsNumbersToSinglePrecision) {
  const float small = 1e-8F;  // 2*r-1 needs more digits than a single has
  ListedNumbers random{small, 0.5F, 0.75F, 0.5F};
  GaussianState state;
  // w1 = -1 after rounding, so that s = 1 is refused; else s would be below 1.
  const double fac = std::sqrt(-2 * std::log(0.25) / 0.25);
  EXPECT_EQ(GaussianDeviate(random, state), Evaluation{0 * fac});
  EXPECT_EQ(GaussianDeviate(random, state), Evaluation{0.5 * fac});
}

TEST(GaussianDeviate, DrawsAgainOutsideTheUnitCircle) {
  ListedNumbers random{1.0F / 16, 1.0F / 16, 0.75F, 0.75F};
  GaussianState state;
  const double fac = std::sqrt(-2 * std::log(0.5) / 0.5);
  EXPECT_EQ(GaussianDeviate(random, state), Evaluation{0.5 * fac});
}

TEST(Factors, HaveTheBitsOfThoseOfSingleDeviates) {
  std::vector<double> factors, coordinates, expected;
  for (float w = 1.0F / 2; w > 1E-7F; w *= 0.61F) {
    const float numbers[] = {0.25F, 0.5F + w / 2};
    ListedNumbers random{numbers[0], numbers[1]};
    const PointInCircle point = drawInCircle(random);
    EXPECT_EQ(point.s, point.w1 * point.w1 + point.w2 * point.w2);
    factors.push_back(point.s);
    coordinates.push_back(point.w2);
    ListedNumbers again{numbers[0], numbers[1]};
    GaussianState state;
    expected.push_back(GaussianDeviate(again, state).value);
  }
  EXPECT_TRUE(replaceByFactors(factors));
  for (std::size_t i = 0; i < factors.size(); ++i) EXPECT_EQ(coordinates[i] * factors[i], expected[i]);
}

TEST(Factors, AreNoneInTheCentreOfTheCircle) {
  std::vector<double> factors{0.5, 0, 0.25};
  EXPECT_FALSE(replaceByFactors(factors));
}

TEST(GaussianDeviate, FailsInTheLogarithmOfZero) {
  ListedNumbers random{0.5F, 0.5F};
  GaussianState state;
  EXPECT_EQ(GaussianDeviate(random, state).fault, Fault::kDomain);
  EXPECT_FALSE(state.hasStored);
}

}  // namespace
}  // namespace vk
