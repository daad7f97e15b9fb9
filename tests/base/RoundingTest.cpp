#include "base/Rounding.h"

#include <cmath>

#include "doubles/ErrorOf.h"

namespace vk {
namespace {

TEST(Rounding, GoesToTheEvenNeighbour) {
  EXPECT_EQ(toInt16(2.5), 2);
  EXPECT_EQ(toInt16(3.5), 4);
  EXPECT_EQ(toInt16(-2.5), -2);
  EXPECT_EQ(errorOf([] { toInt16(32767.6); }), kOverflow);
  EXPECT_EQ(errorOf([] { toInt32(std::nan("")); }), kOverflow);
  EXPECT_EQ(Int(-1.5), -2);
}

}  // namespace
}  // namespace vk
