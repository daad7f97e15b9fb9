#include "base/Array2.h"

namespace vk {
namespace {

int failure(const auto& operation) {
  try {
    operation();
    return 0;
  } catch (const RuntimeError& error) {
    return error.number();
  }
}

TEST(Array2, HoldsEachPairOfIndicesByItself) {
  Array2<int> values(2, 3);
  EXPECT_EQ(values.upper1(), 2);
  EXPECT_EQ(values.upper2(), 3);
  for (int i = 0; i <= 2; ++i) {
    for (int j = 0; j <= 3; ++j) {
      EXPECT_EQ(values(i, j), 0);
      values(i, j) = 10 * i + j;
    }
  }
  for (int i = 0; i <= 2; ++i) {
    for (int j = 0; j <= 3; ++j) EXPECT_EQ(values(i, j), 10 * i + j);
  }
}

TEST(Array2, RefusesIndicesOutside) {
  const Array2<float> values(2, 3);
  EXPECT_EQ(failure([&] { values(3, 0); }), 9);
  EXPECT_EQ(failure([&] { values(0, 4); }), 9);
  EXPECT_EQ(failure([&] { values(-1, 0); }), 9);
  EXPECT_EQ(failure([&] { values(0, -1); }), 9);
  EXPECT_EQ(failure([] { Array2<float>()(0, 0); }), 9);
  EXPECT_EQ(failure([] { Array2<float>(-1, 2); }), 9);
  EXPECT_EQ(failure([] { Array2<float>(2, -1); }), 9);
}

}  // namespace
}  // namespace vk
