// A line search with its function evaluations, which cost next to nothing here.
#include "numeric/LineSearch.h"

#include <benchmark/benchmark.h>

#include <cmath>
#include <stdexcept>

namespace vk {
namespace {

template <class Function>
double searchFrom(double x, double relacc, Function function) {
  LineSearchState state;
  Int16 itest = kSearchBeginAt;
  double f = function(x);
  while (true) {
    LineSearch(state, itest, x, f, 20, 1E-6, relacc, 0.5);
    if (itest != kSearchEvaluate) return x;
    f = function(x);
  }
}

void parabola(benchmark::State& state) {
  double x = 0;
  for (auto _ : state) {
    x = searchFrom(0, 0.1, [](double at) { return (at - 0.7) * (at - 0.7); });
    benchmark::ClobberMemory();
  }
  if (std::abs(x - 0.7) > 1E-9) throw std::runtime_error("the minimum was missed");
}
BENCHMARK(parabola);

void farMinimum(benchmark::State& state) {
  double x = 0;
  for (auto _ : state) {
    x = searchFrom(0, 1E-6, [](double at) { return std::sqrt(1 + (at + 9) * (at + 9)); });
    benchmark::ClobberMemory();
  }
  if (std::abs(x + 9) > 1E-3) throw std::runtime_error("the minimum was missed");
}
BENCHMARK(farMinimum);

}  // namespace
}  // namespace vk
