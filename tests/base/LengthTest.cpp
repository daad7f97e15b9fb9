#include "base/Length.h"

#include <gtest/gtest.h>

#include <concepts>

namespace vk {
namespace {

template <class A, class B>
concept Addable = requires(A a, B b) {
  a + b;
};
template <class A, class B>
concept Comparable = requires(A a, B b) {
  a < b;
};

static_assert(Addable<Twips, Twips> && Comparable<Twips, Twips>);
static_assert(!Addable<Twips, PointSize> && !Comparable<Twips, PointSize>, "units do not mix");
static_assert(!Addable<Twips, double> && !Comparable<Twips, double>, "a bare number has no unit");
static_assert(!std::convertible_to<double, Twips> && std::constructible_from<Twips, double>);
static_assert(!std::convertible_to<Twips, double> && !std::constructible_from<double, Twips>);
static_assert(!std::constructible_from<Twips, Centimetres>);
static_assert(sizeof(Twips) == sizeof(double));

TEST(Lengths, ComputeAsTheirNumbers) {
  const Twips a(0.1), b(0.2);
  EXPECT_EQ((a + b).value(), 0.1 + 0.2);
  EXPECT_EQ((a - b).value(), 0.1 - 0.2);
  EXPECT_EQ((3 * a).value(), 3 * 0.1);
  EXPECT_EQ((b / 3).value(), 0.2 / 3);
  EXPECT_EQ(b / a, 0.2 / 0.1);
  EXPECT_TRUE(a < b && a == Twips(0.1) && Twips() == Twips(0));
}

TEST(Lengths, BecomeThoseOfAnotherUnit) {
  EXPECT_EQ(toTwips(PointSize(12)), Twips(240));
  EXPECT_EQ(toPoints(Twips(240)), PointSize(12));
  EXPECT_EQ(toCentimetres(Twips(1440)), Centimetres(2.54));
}

}  // namespace
}  // namespace vk
