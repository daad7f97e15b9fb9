// The fit of a damped oscillation that was compiled, by a kept least-squares library: plain_fit FILE A B C D.

#include <cminpack.h>

#include <cmath>
#include <cstdlib>

#include "bench/plain/Columns.h"

namespace {

/// Weighted residuals of A exp(-B x) sin(C x + D).
int residuals(void* data, int m, int, const double* p, double* f, int) {
  const auto& [x, y, dy] = static_cast<Columns*>(data)->column;
  for (std::size_t i = 0; i < static_cast<std::size_t>(m); ++i) {
    f[i] = (p[0] * std::exp(-p[1] * x[i]) * std::sin(p[2] * x[i] + p[3]) - y[i]) / dy[i];
  }
  return 0;
}

}  // namespace

int main(int argc, char** argv) {
  constexpr int kParameters = 4;
  if (argc < 2 + kParameters) return 2;
  Columns data = readColumns(argv[1]);
  std::array<double, kParameters> p{};
  for (std::size_t k = 0; k < p.size(); ++k) p[k] = std::atof(argv[2 + k]);
  const int m = static_cast<int>(data.column[0].size());
  const int n = kParameters;
  std::vector<double> f(data.column[0].size());
  std::vector<double> work(data.column[0].size() * (kParameters + 1) + 5 * kParameters);
  std::array<int, kParameters> pivots{};
  const int info = lmdif1(residuals, &data, m, n, p.data(), f.data(), 1E-8, pivots.data(), work.data(),
                          static_cast<int>(work.size()));
  for (const double value : p) std::printf("%.9g\n", value);
  return info >= 1 && info <= 4 ? 0 : 1;
}
