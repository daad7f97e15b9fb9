#include "base/Guard.h"

#include <gtest/gtest.h>

#include <new>

#include "tests/base/OptimisedGuard.h"

namespace vk {
namespace {

TEST(Guard, DropsTheFailingStatementAndGoesOn) {
  bool failed = false;
  int x = 1;
  guard(failed, [&] { x = Array<int>(2)[5]; });
  EXPECT_EQ(x, 1);
  EXPECT_TRUE(failed);
  guard(failed, [&] { x = 2; });
  EXPECT_EQ(x, 2);
  EXPECT_TRUE(failed);
  EXPECT_TRUE(guard([&] { x = 3; }));
}

TEST(Guard, ACallThatFailsLeavesWhatTheVariableHadInOptimisedCode) {
  Array<Int16> numbers(2);
  numbers[1] = 300;
  EXPECT_EQ(numberOr(numbers, 1, 7), 300);
  EXPECT_EQ(numberOr(numbers, 5, 7), 7);
}

TEST(Guard, TakesExhaustedMemoryLikeAnyRunTimeError) {
  EXPECT_FALSE(guard([] { throw std::bad_alloc(); }));
}

TEST(AtEnd, RunsHoweverTheBlockIsLeft) {
  int x = 1;
  guard([&] {
    const AtEnd back([&] { x = 3; });
    x = 2;
    throw RuntimeError(kOverflow);
  });
  EXPECT_EQ(x, 3);
}

}  // namespace
}  // namespace vk
