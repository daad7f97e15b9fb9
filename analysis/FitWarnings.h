#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "analysis/RefinedFit.h"

/// What a fit and its true minimum say about one another and about the data, and the texts for it.
namespace vk {

/// What speaks against the figures of a fit.
enum class FitWarningKind {
  kChiSquareHigh,    ///< a larger chi-square has a probability below 0.1 %
  kChiSquareLow,     ///< a larger chi-square has a probability above 99.9 %
  kCorrelationHigh,  ///< two parameters with a correlation over 98 %, of either sign
  kErrorAboveValue,  ///< a parameter is smaller than its error, of either sign
  kFitOffMinimum,    ///< the fit ended more than 0.1 errors from the minimum
  kFitErrorWrong,    ///< the error of the fit is off by more than a factor of 1.5
  kErrorsInvented,   ///< all errors of y are 1, as where nobody knows them
};

/// A warning with the names of its parameters, code page 437. For correlations these are pairs, "A-k"; what concerns
/// all parameters has none.
struct FitWarning {
  FitWarningKind kind;
  std::vector<std::string> parameters{};

  bool operator==(const FitWarning&) const = default;
};

/// The warnings, in the order of their kinds. `fit` and `refined` come from these data; either may have failed, and
/// what it takes is left out then. Parameters are measured in units of `scaledError` where all errors of y are equal,
/// since their size is often a guess there, else of `error`.
std::vector<FitWarning> fitWarnings(const DataSet& data, const FitResult& fit, const RefinedFit& refined);

/// All errors of y are 1.
bool haveInventedErrors(const DataSet& data);

/// How a thing is called. Italian in ASCII, with "`" for an accent.
struct FitText {
  std::string_view word;      ///< for programs; it never changes
  std::string_view line;      ///< a few words
  std::string_view sentence;  ///< what it means for the user
};

const FitText& textOf(FitWarningKind kind);
const FitText& textOf(LeastSquaresEnd end);
const FitText& textOf(XErrors xErrors);

}  // namespace vk
