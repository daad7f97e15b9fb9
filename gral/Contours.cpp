// Unit GralCls: level lines.

#include "base/CheckedMath.h"
#include "gral/ContourTriangle.h"

namespace vk {

void GralCls::GralContour(double xmin, double xmax, double ymin, double ymax, const Array2<float>& z,
                          Int16 nx, Int16 ny, const Array<float>& VLev, const Array<Colour>& CLev, int nl) {
  const double dx = checked::divide(xmax - xmin, nx - 1);
  const double dy = checked::divide(ymax - ymin, ny - 1);
  const auto corner = [&](double x, double y, int i, int j) {
    return UsrCorner{{x, y}, z(i, j), LevelIndex(z(i, j), VLev, nl)};
  };
  for (int j = 1; j < ny; ++j) {
    const double y0 = ymin + (j - 1) * dy, y1 = y0 + dy;
    UsrCorner A = corner(xmin, y0, 1, j);
    UsrCorner B = corner(xmin, y1, 1, j + 1);
    for (int i = 1; i < nx; ++i) {
      const double x1 = xmin + i * dx;
      const UsrCorner C = corner(x1, y0, i + 1, j);
      const UsrCorner D = corner(x1, y1, i + 1, j + 1);
      ContourTriangle(*this, B, C, A, VLev, CLev);
      ContourTriangle(*this, B, C, D, VLev, CLev);
      A = C;
      B = D;
    }
  }
}

}  // namespace vk
