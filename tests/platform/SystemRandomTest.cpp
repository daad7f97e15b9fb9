#include "platform/system/SystemRandom.h"

#include <cmath>

namespace vk {
namespace {

std::vector<float> draw(SystemRandom& random, int count) {
  std::vector<float> numbers;
  for (int i = 0; i < count; ++i) numbers.push_back(random.next());
  return numbers;
}

TEST(SystemRandom, LiesFromZeroToBelowOneAndFillsTheRange) {
  SystemRandom random;
  std::vector<int> hits(10);
  for (const float number : draw(random, 10000)) {
    ASSERT_GE(number, 0);
    ASSERT_LT(number, 1);
    ++hits[static_cast<std::size_t>(number * 10)];
  }
  // Each tenth expects 1000 hits with a spread of 30.
  for (const int count : hits) EXPECT_NEAR(count, 1000, 180);
}

TEST(SystemRandom, TheSameSeedGivesTheSameNumbers) {
  SystemRandom a, b;
  a.seed(12.5F);
  b.seed(12.5F);
  const auto first = draw(a, 5);
  EXPECT_EQ(first, draw(b, 5));
  a.seed(12.75F);
  EXPECT_NE(first, draw(a, 5));
  a.seed(12.5F);
  EXPECT_EQ(first, draw(a, 5));
}

TEST(SystemRandom, WithoutASeedEveryRunDrawsTheSameNumbers) {
  SystemRandom a, b;
  EXPECT_EQ(draw(a, 5), draw(b, 5));
}

TEST(SystemRandom, GivesTheUpperBitsOfTheStandardGenerator) {
  SystemRandom random;
  std::mt19937 standard;
  for (const float number : draw(random, 2000)) ASSERT_EQ(number, std::ldexp(standard() >> 8U, -24));
}

TEST(SystemRandom, GivesAgainWhatItWasGivenBack) {
  SystemRandom a, b;
  const auto numbers = draw(a, 5);
  const std::span<const float> given(numbers);
  a.giveBack(given.last(3));
  EXPECT_EQ(draw(a, 1).front(), numbers[2]);
  a.giveBack(given.first(3));
  EXPECT_EQ(draw(a, 8), draw(b, 8));
}

TEST(SystemRandom, ASeedForgetsWhatWasGivenBack) {
  SystemRandom a, b;
  a.giveBack(draw(a, 3));
  a.seed(7);
  b.seed(7);
  EXPECT_EQ(draw(a, 5), draw(b, 5));
}

}  // namespace
}  // namespace vk
