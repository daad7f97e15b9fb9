#pragma once

#include "base/Array.h"

/// The natural cubic spline behind smooth curves. Arrays run from 1.
namespace vk {

/// An end slope of this size, or any above 9.9E29, asks for a natural end: no curvature there.
inline constexpr double kNaturalEnd = 1E31;

/// Second derivatives d2(1..n) of the cubic spline through (t(i), v(i)), with the slopes yp1 and ypn at its
/// ends: the tridiagonal system solved by elimination. Equal neighbours in t are run-time error 11.
void SplineDerivatives(const Array<double>& t, const Array<double>& v, int n, double yp1, double ypn,
                       Array<double>& d2);

/// The inner control points c1(k), c2(k), k = 1..n-1, of the Bézier curve that is the spline piece from k to
/// k+1: with the slope r and the halved curvature q at its start, both over the interval h,
/// c1 = p + r/3 and c2 = c1 + (q + r)/3.
void SplineControlPoints(const Array<double>& t, const Array<double>& p, const Array<double>& d2,
                         Array<double>& c1, Array<double>& c2, int n);

}  // namespace vk
