#pragma once

#include <optional>
#include <string>

#include "analysis/ParameterSet.h"
#include "expr/Formula.h"
#include "numeric/CovarianceMatrix.h"

/// Quantities computed of fitted parameters, as a half life of a decay constant.
namespace vk {

/// The definition, for the compiler, of a formula whose variables are the parameters, in their order.
std::string quantityDefinition(const std::string& formula, const ParameterSet& par);

/// The first parameter in the formula that shares its name with another one, so that nobody can tell which is meant;
/// 0 where there is none.
int ambiguousParameter(const CompiledExpression& quantity, const ParameterSet& par);

/// A quantity with its standard deviation; missing is what cannot be computed.
struct QuantityValue {
  std::optional<double> value;
  std::optional<double> error;
};

/// Computes a quantity at `ParValues`, and its error to first order of `covariance`, that of the free parameters.
/// Constant ones are exact. Without a covariance there is no error, nor where correlations leave of it but rounding.
QuantityValue quantityOf(Formula& quantity, const ParameterSet& par,
                         const std::optional<CovarianceMatrix>& covariance, EvaluationListener& listener);

}  // namespace vk
