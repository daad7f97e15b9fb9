#pragma once

#include <cmath>

#include "gral/PlanePoint.h"

namespace vk {

/// A box in space as it is seen in Usr, in parallel projection: its edges, and the corner that they leave.
/// The centre of its floor stands on (Xoc, Yoc); `theta` turns it about the vertical and `phi` raises the
/// viewer, in degrees; Vx, Vy, Vz are its edge lengths in Usr units.
struct BoxProjection {
  double st, ct, sp, cp;  ///< sine and cosine of theta and phi
  PlanePoint ex, ey, ez;  ///< a unit along each edge
  PlanePoint xEdge, yEdge, zEdge;
  PlanePoint corner;

  BoxProjection(double Xoc, double Yoc, double theta, double phi, double Vx, double Vy, double Vz)
      : st(std::sin(theta * kRadians)),
        ct(std::cos(theta * kRadians)),
        sp(std::sin(phi * kRadians)),
        cp(std::cos(phi * kRadians)),
        ex{st, ct * cp},
        ey{ct, cp * st},
        ez{0, sp},
        xEdge(Vx * ex),
        yEdge(Vy * ey),
        zEdge(Vz * ez),
        corner(PlanePoint{Xoc, Yoc} - 0.5 * xEdge - 0.5 * yEdge) {}

  static constexpr double kRadians = 3.1415926 / 180;
};

}  // namespace vk
