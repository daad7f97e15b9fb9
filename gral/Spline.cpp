#include "gral/Spline.h"

#include "base/CheckedMath.h"

namespace vk {
namespace {

constexpr double kLargestSlope = 9.9E29;

}  // namespace

void SplineDerivatives(const Array<double>& t, const Array<double>& v, int n, double yp1, double ypn,
                       Array<double>& d2) {
  using checked::divide;
  const auto slope = [&](int i) { return divide(v[i] - v[i - 1], t[i] - t[i - 1]); };
  Array<double> u(n);
  d2.dim(n);
  if (yp1 <= kLargestSlope) {
    d2[1] = -0.5;
    u[1] = divide(3, t[2] - t[1]) * (slope(2) - yp1);
  }
  for (int i = 2; i < n; ++i) {
    const double sig = divide(t[i] - t[i - 1], t[i + 1] - t[i - 1]);
    const double p = sig * d2[i - 1] + 2;
    d2[i] = divide(sig - 1, p);
    u[i] = divide(divide(6 * (slope(i + 1) - slope(i)), t[i + 1] - t[i - 1]) - sig * u[i - 1], p);
  }
  double qn = 0, un = 0;
  if (ypn <= kLargestSlope) {
    qn = 0.5;
    un = divide(3, t[n] - t[n - 1]) * (ypn - slope(n));
  }
  d2[n] = divide(un - qn * u[n - 1], qn * d2[n - 1] + 1);
  for (int k = n - 1; k >= 1; --k) d2[k] = d2[k] * d2[k + 1] + u[k];
}

void SplineControlPoints(const Array<double>& t, const Array<double>& p, const Array<double>& d2,
                         Array<double>& c1, Array<double>& c2, int n) {
  c1.dim(n);
  c2.dim(n);
  for (int k = 1; k < n; ++k) {
    const double h = t[k + 1] - t[k];
    const double q = d2[k] * h * h / 2;
    const double r = p[k + 1] - p[k] - h * h / 6 * (2 * d2[k] + d2[k + 1]);
    c1[k] = p[k] + r / 3;
    c2[k] = c1[k] + (q + r) / 3;
  }
}

}  // namespace vk
