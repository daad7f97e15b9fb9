#pragma once

#include "tests/analysis/FitFixture.h"
#include "tests/numeric/NistProblem.h"

namespace vk {

/// A certified problem to be fitted from these values of all its parameters, with the same error for each point.
inline FitCase nistCase(const NistProblem& problem, const std::string& formula,
                        const std::vector<double>& start, double error) {
  FitCase fit(formula, problem.names());
  fit.data(problem.x, problem.y, std::vector<double>(problem.x.size(), error));
  fit.start(start);
  return fit;
}

}  // namespace vk
