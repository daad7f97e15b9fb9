#include <algorithm>
#include <array>
#include <new>
#include <string>
#include <vector>

#include "gral/sinks/DisplayList.h"
#include "memory/ScarceMemory.h"

namespace vk {
namespace {

void drawAll(DisplayList& list, const Picture& picture) {
  static constexpr std::array kCorners{PixelPoint{1, 2}, PixelPoint{3, 4}, PixelPoint{5, 6}};
  list.polyline(kCorners);
  list.line({1, 2}, {3, 4});
  list.text(TextRun());
  list.picture(picture, {7, 8});
}

TEST(OutOfMemoryOfADrawing, LeavesOutAPrimitiveAsAWhole) {
  const Picture picture{2, 1, 15, {0xFF000000, 0xFFFF0000}};
  DisplayList whole;
  drawAll(whole, picture);
  const std::vector<std::string> good = whole.lines();
  long request = 1;
  for (;; ++request) {
    DisplayList list;
    bool failed = false;
    try {
      const ScarceMemory scarce({request});
      drawAll(list, picture);
    } catch (const std::bad_alloc&) {
      failed = true;
    }
    if (!failed) break;
    const std::vector<std::string> lines = list.lines();
    ASSERT_LT(lines.size(), good.size());
    EXPECT_TRUE(std::equal(lines.begin(), lines.end(), good.begin())) << request;
  }
  EXPECT_GT(request, static_cast<long>(good.size()));
}

}  // namespace
}  // namespace vk
