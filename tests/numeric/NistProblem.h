#pragma once

#include <array>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace vk {

/// A problem of the NIST/ITL Statistical Reference Datasets, nonlinear regression, with one predictor.
struct NistProblem {
  int parameters() const { return static_cast<int>(certified.size()); }
  int points() const { return static_cast<int>(x.size()); }
  /// The comma list b1, b2, ... of the parameters.
  std::string names() const;

  /// How near values of all parameters, from 0, come to the certified ones, by the one that is farthest off.
  /// Digits: those of the relative difference, from 0 to the 11 that are certified.
  double digits(std::span<const double> values) const;
  /// The difference in certified standard deviations; not finite where a value is not.
  double deviationsOff(std::span<const double> values) const;

  std::string name;
  std::array<std::vector<double>, 2> starts;  ///< values of all parameters, the far start first
  std::vector<double> certified;              ///< values at the minimum, 11 digits
  std::vector<double> deviations;             ///< their certified standard deviations
  double sumOfSquares = 0;                    ///< of the residuals at the minimum
  double residualDeviation = 0;               ///< root of `sumOfSquares` / `degreesOfFreedom`
  int degreesOfFreedom = 0;
  std::vector<double> x, y;
};

/// Reads the text of a published file, but for known misprints. std::runtime_error, which names the line, for a text
/// that is not of this format or contradicts itself.
NistProblem parseNist(std::string_view text);

/// The model of a problem in the formula language, with the names of its parameters as published.
struct NistFormula {
  std::string problem;  ///< name of the file without its extension
  std::string formula;
};

/// One for each file in `tests/numeric/nist`, from the lower level of difficulty to the higher.
const std::vector<NistFormula>& nistFormulas();

}  // namespace vk
