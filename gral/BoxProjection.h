#pragma once

#include <cmath>

#include "gral/PlanePoint.h"

namespace vk {

/// How a box in space is seen: the Usr point that the centre of its floor stands on, the angles in degrees by which
/// `theta` turns it about the vertical and `phi` raises the viewer, and its edge lengths in Usr units.
struct BoxView {
  double Xoc, Yoc;
  double theta, phi;
  double Vx, Vy, Vz;
};

/// A box in space as it is seen in Usr, in parallel projection: its edges, and the corner that they leave.
struct BoxProjection {
  double st, ct, sp, cp;  ///< sine and cosine of theta and phi
  UsrPoint ex, ey, ez;    ///< a unit along each edge
  UsrPoint xEdge, yEdge, zEdge;
  UsrPoint corner;

  explicit BoxProjection(const BoxView& view)
      : st(std::sin(view.theta * kRadians)),
        ct(std::cos(view.theta * kRadians)),
        sp(std::sin(view.phi * kRadians)),
        cp(std::cos(view.phi * kRadians)),
        ex{st, ct * cp},
        ey{ct, cp * st},
        ez{0, sp},
        xEdge(view.Vx * ex),
        yEdge(view.Vy * ey),
        zEdge(view.Vz * ez),
        corner(UsrPoint{view.Xoc, view.Yoc} - 0.5 * xEdge - 0.5 * yEdge) {}

  static constexpr double kRadians = 3.1415926 / 180;
};

}  // namespace vk
