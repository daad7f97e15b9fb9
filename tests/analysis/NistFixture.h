#pragma once

#include <gtest/gtest.h>

#include "doubles/Places.h"
#include "platform/system/SystemFiles.h"
#include "tests/analysis/NistCase.h"

namespace vk {

inline void PrintTo(const NistFormula& formula, std::ostream* out) {
  *out << formula.problem;
}

/// A problem of the NIST/ITL Statistical Reference Datasets, nonlinear regression, as published.
class NistTest : public testing::TestWithParam<NistFormula> {
 protected:
  FitCase fitFrom(const std::vector<double>& start, double error) const {
    return nistCase(problem, GetParam().formula, start, error);
  }

  const NistProblem problem =
      parseNist(SystemFiles().readAll(sourcePath("tests/numeric/nist/" + GetParam().problem + ".dat")));
};

/// For the tests of a suite to be run for all problems.
inline auto nistProblems() {
  return testing::ValuesIn(nistFormulas());
}
inline std::string nistName(const testing::TestParamInfo<NistFormula>& instance) {
  return instance.param.problem;
}

}  // namespace vk
