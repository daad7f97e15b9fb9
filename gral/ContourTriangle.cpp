#include "gral/ContourTriangle.h"

namespace vk {

int LevelIndex(double value, const Array<float>& VLev, int nl) {
  for (int k = 1; k <= nl; ++k) {
    if (static_cast<double>(VLev[k]) > value) return k - 1;
  }
  return nl;
}

void ContourTriangle(GralCls& drawing, const UsrCorner& c1, const UsrCorner& c2, const UsrCorner& c3,
                     const Array<float>& VLev, const Array<Colour>& CLev) {
  drawLevelSegments(drawing, LevelTriangle<unit::Usr>::of(c1, c2, c3), VLev,
                    [&CLev](int k) { return CLev[k]; });
}

}  // namespace vk
