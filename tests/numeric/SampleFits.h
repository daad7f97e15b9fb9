#pragma once

#include <cmath>

#include "numeric/ModelResiduals.h"
#include "numeric/SampleValues.h"

/// Minimisations of a few models, and what came of them.
namespace vk {

/// The values 1..N of an array.
inline Values toVector(const Array<double>& array) {
  const auto values = array.span(1, array.upper());
  return {values.begin(), values.end()};
}

/// What came of a minimisation.
struct Fit {
  MinimiseResult result;
  Values X, E, F;
  ProgressLog log;
};

/// Minimises the residuals from a start with an accuracy for each parameter.
inline Fit minimise(ModelResiduals& residuals, const Values& start, const Values& accuracy,
                    const MinimiseOptions& options = {}) {
  const int M = residuals.points();
  const int N = static_cast<int>(start.size());
  Array<double> X = fromOne(start);
  Array<double> E = fromOne(accuracy);
  Array<double> F(M);
  MinimiseWork W(M, N);
  Fit fit;
  fit.result = Minimise(residuals, M, N, F, X, E, options, W, fit.log);
  fit.X = toVector(X);
  fit.E = toVector(E);
  fit.F = toVector(F);
  return fit;
}

/// The accuracies that a fit begins with: a hundredth of each value.
inline Values hundredths(const Values& start) {
  Values steps;
  for (double value : start) steps.push_back(value == 0 ? 0.01 : std::abs(value) / 100);
  return steps;
}

inline double line(std::span<const double> p, double x) {
  return p[0] * x + p[1];
}
inline double constant(std::span<const double> p, double) {
  return p[0];
}
inline double square(std::span<const double> p, double x) {
  return (p[0] * x + p[1]) * x + p[2];
}
inline double hyperbola(std::span<const double> p, double x) {
  return p[0] / (1 + p[1] * x);
}
inline double cubed(std::span<const double> p, double x) {
  return p[0] * p[0] * p[0] * x;
}

inline ModelResiduals lineProblem() {
  return {line, kFive, kLineY, kTenths};
}
inline ModelResiduals hyperbolaProblem() {
  return {hyperbola, {0, 1, 2, 3, 4, 5}, {2.1, 1.3, 1.0, 0.8, 0.7, 0.6}, Values(6, 0.1)};
}

inline double decay(std::span<const double> p, double x) {
  return p[0] * std::exp(-p[1] * x) + p[2];
}
inline double bell(std::span<const double> p, double x) {
  const double z = (x - p[1]) / p[2];
  return p[0] * std::exp(-z * z / 2);
}

/// Points of a model with deviations up to 1.7 errors, always the same ones.
inline ModelResiduals noisy(const ModelResiduals::Model& model, const Values& parameters, double first,
                            double step, int points, double error) {
  Values x, y;
  unsigned state = 12345;
  for (int j = 0; j < points; ++j) {
    state = state * 1664525U + 1013904223U;
    const double deviation = (static_cast<double>(state >> 8) / 8388608.0 - 1) * 1.7 * error;
    x.push_back(first + step * j);
    y.push_back(model(parameters, x.back()) + deviation);
  }
  return {model, x, y, Values(x.size(), error)};
}

}  // namespace vk
