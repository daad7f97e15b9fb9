#pragma once

#include <optional>
#include <string>
#include <vector>

#include "analysis/DerivedQuantities.h"
#include "batch/Json.h"

namespace vk {

/// What a fit has found, of which quantities are computed.
struct FittedValues {
  const ParameterSet& par;
  std::optional<CovarianceMatrix> covariance;  ///< of the free parameters
  bool refined = false;                        ///< the errors can also be scaled ...
  std::optional<double> reducedChiSquare;      ///< ... by this, where there is a degree of freedom
};

/// The quantities that `fit` is to compute of the fitted parameters.
class DerivedTable {
 public:
  DerivedTable() = default;
  /// Each word is "name=formula". One that is not, a name that comes twice, and a bad formula of the
  /// parameters raise `UsageError`. With `trace` the compiler's reports are told.
  DerivedTable(const std::vector<std::string>& words, const ParameterSet& par, bool trace);

  bool empty() const { return rows_.empty(); }
  /// Computes all of them. What cannot be computed is told on the error stream; false then.
  bool compute(const FittedValues& fitted, EvaluationListener& listener);

  /// The table as a terminal shows it.
  std::string screen() const;
  /// A list of objects; what could not be computed is null.
  Json report() const;

  /// A quantity; what could not be computed of the result is missing.
  struct Row {
    std::string name, text;  ///< code page 437
    Formula formula;
    QuantityValue result;
  };
  const std::vector<Row>& rows() const { return rows_; }
  /// The error as the scatter of the points has it; missing where it is not known.
  std::optional<double> scaledError(const Row& row) const;

 private:
  std::vector<Row> rows_;
  bool refined_ = false;
  std::optional<double> scale_;
};

}  // namespace vk
