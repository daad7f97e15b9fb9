#pragma once

#include "base/Array.h"
#include "gral/PlanePoint.h"
#include "gral/Plotting.h"

/// Level lines of a triangle: the pieces that contours and surfaces share.
namespace vk {

/// A corner of a triangle: its place, the value there, and the value's level index.
template <class Unit>
struct LevelCorner {
  PlanePoint<Unit> place;
  double z;
  int k;
};

using UsrCorner = LevelCorner<unit::Usr>;
using PixelCorner = LevelCorner<unit::Pixel>;

/// The number of levels at or below a value, found by scanning VLev(1..nl) up to the first level above it:
/// 0 under the first level, nl at or above the last. An array shorter than nl is run-time error 9.
int LevelIndex(double value, const Array<float>& VLev, int nl);

template <class Unit>
struct LevelTriangle {
  using Corner = LevelCorner<Unit>;
  Corner bottom, middle, top;

  /// The corners by their values. Of equal ones the first of the first two counts as the higher, and the
  /// third as higher than either.
  static LevelTriangle of(const Corner& c1, const Corner& c2, const Corner& c3) {
    const bool ordered = c1.z >= c2.z;
    const Corner& high = ordered ? c1 : c2;
    const Corner& low = ordered ? c2 : c1;
    if (c3.z >= high.z) return {low, high, c3};
    if (c3.z >= low.z) return {low, c3, high};
    return {c3, low, high};
  }

  /// The end of a level's segment on the edge from bottom to top. The level lies between the indices of both.
  PlanePoint<Unit> onLongEdge(double level) const { return onEdge(bottom, top, level); }
  /// The other end of level number k, on the edge below or above the middle corner. A level that the middle
  /// corner reaches passes below it.
  PlanePoint<Unit> onShortEdge(int k, double level) const {
    return onEdge(k <= middle.k ? bottom : top, middle, level);
  }

 private:
  static PlanePoint<Unit> onEdge(const Corner& from, const Corner& to, double level) {
    const double t = (level - from.z) / (to.z - from.z);
    return from.place + t * (to.place - from.place);
  }
};

/// Draws the segment of each level between the bottom and the top corner, in Usr and in the colour that
/// `colorOf(k)` gives for level k. The colour of the device is afterwards as before.
template <class ColorOf>
void drawLevelSegments(GralCls& drawing, const LevelTriangle<unit::Usr>& triangle, const Array<float>& VLev,
                       ColorOf colorOf) {
  for (int k = triangle.bottom.k + 1; k <= triangle.top.k; ++k) {
    const UsrPoint P = triangle.onLongEdge(VLev[k]);
    const UsrPoint Q = triangle.onShortEdge(k, VLev[k]);
    const Colour before = drawing.GralDev->ForeColor();
    drawing.GralDev->setForeColor(colorOf(k));
    drawing.GralLine(P.x, P.y, Q.x, Q.y);
    drawing.GralDev->setForeColor(before);
  }
}

/// Draws the level segments of a triangle in Usr, each in the colour CLev(k) of its level.
void ContourTriangle(GralCls& drawing, const UsrCorner& c1, const UsrCorner& c2, const UsrCorner& c3,
                     const Array<float>& VLev, const Array<Colour>& CLev);

}  // namespace vk
