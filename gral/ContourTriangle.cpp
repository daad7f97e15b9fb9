#include "gral/ContourTriangle.h"

namespace vk {
namespace {

/// Where a level lies on the edge between two corners.
PlanePoint onEdge(const LevelCorner& from, const LevelCorner& to, double level) {
  const double t = (level - from.z) / (to.z - from.z);
  return {from.x + t * (to.x - from.x), from.y + t * (to.y - from.y)};
}

}  // namespace

int LevelIndex(double value, const Array<float>& VLev, int nl) {
  for (int k = 1; k <= nl; ++k) {
    if (static_cast<double>(VLev[k]) > value) return k - 1;
  }
  return nl;
}

LevelTriangle LevelTriangle::of(const LevelCorner& c1, const LevelCorner& c2, const LevelCorner& c3) {
  const bool ordered = c1.z >= c2.z;
  const LevelCorner& high = ordered ? c1 : c2;
  const LevelCorner& low = ordered ? c2 : c1;
  if (c3.z >= high.z) return {low, high, c3};
  if (c3.z >= low.z) return {low, c3, high};
  return {c3, low, high};
}

PlanePoint LevelTriangle::onLongEdge(double level) const {
  return onEdge(bottom, top, level);
}

PlanePoint LevelTriangle::onShortEdge(int k, double level) const {
  return k <= middle.k ? onEdge(bottom, middle, level) : onEdge(top, middle, level);
}

void ContourTriangle(GralCls& drawing, const LevelCorner& c1, const LevelCorner& c2, const LevelCorner& c3,
                     const Array<float>& VLev, const Array<Colour>& CLev) {
  drawLevelSegments(drawing, LevelTriangle::of(c1, c2, c3), VLev, [&CLev](int k) { return CLev[k]; });
}

}  // namespace vk
