#pragma once

#include "base/Array.h"
#include "gral/PlanePoint.h"
#include "gral/Plotting.h"

/// Level lines of a triangle: the pieces that contours and surfaces share.
namespace vk {

/// A corner of a triangle: its place, the value there, and the value's level index.
struct LevelCorner {
  double x, y, z;
  int k;
};

/// The number of levels at or below a value, found by scanning VLev(1..nl) up to the first level above it:
/// 0 under the first level, nl at or above the last. An array shorter than nl is run-time error 9.
int LevelIndex(double value, const Array<float>& VLev, int nl);

struct LevelTriangle {
  LevelCorner bottom, middle, top;

  /// The corners by their values. Of equal ones the first of the first two counts as the higher, and the
  /// third as higher than either.
  static LevelTriangle of(const LevelCorner& c1, const LevelCorner& c2, const LevelCorner& c3);

  /// The end of a level's segment on the edge from bottom to top. The level lies between the indices of both.
  PlanePoint onLongEdge(double level) const;
  /// The other end of level number k, on the edge below or above the middle corner. A level that the middle
  /// corner reaches passes below it.
  PlanePoint onShortEdge(int k, double level) const;
};

/// Draws the segment of each level between the bottom and the top corner, in Usr and in the colour that
/// `colorOf(k)` gives for level k. The colour of the device is afterwards as before.
template <class ColorOf>
void drawLevelSegments(GralCls& drawing, const LevelTriangle& triangle, const Array<float>& VLev,
                       ColorOf colorOf) {
  for (int k = triangle.bottom.k + 1; k <= triangle.top.k; ++k) {
    const PlanePoint P = triangle.onLongEdge(VLev[k]);
    const PlanePoint Q = triangle.onShortEdge(k, VLev[k]);
    const Colour before = drawing.GralDev->ForeColor();
    drawing.GralDev->setForeColor(colorOf(k));
    drawing.GralLine(P.x, P.y, Q.x, Q.y);
    drawing.GralDev->setForeColor(before);
  }
}

/// Draws the level segments of a triangle in Usr, each in the colour CLev(k) of its level.
void ContourTriangle(GralCls& drawing, const LevelCorner& c1, const LevelCorner& c2, const LevelCorner& c3,
                     const Array<float>& VLev, const Array<Colour>& CLev);

}  // namespace vk
