#pragma once

#include <optional>
#include <string>
#include <vector>

#include "analysis/FitWarnings.h"
#include "batch/Json.h"

namespace vk {

/// The word of the status of a fit.
const char* statusName(FitStatus status);

/// Number of parameter i among the free ones, from 1; 0 for a constant one.
int freeNumber(const ParameterSet& par, int i);

/// What a fit began with.
struct FitOrigin {
  std::string dataFile;      ///< as a terminal shows it; empty for data of no file
  std::string functionText;  ///< of the screen, code page 437
  std::string formula;       ///< code page 437
  ParameterSet start;
};

/// The result of a fit as one object. `linearised` are the usual least-squares covariances of the free parameters;
/// missing after a failure. Errors of constant parameters, and what could not be computed, are null.
Json fitReport(const FitOrigin& origin, const FitResult& result,
               const std::optional<CovarianceMatrix>& linearised);

/// The true minimum of the data as one object, with null as above.
Json refinedReport(const DataSet& data, const RefinedFit& refined);

/// The words of the warnings.
Json warningsReport(const std::vector<FitWarning>& warnings);

}  // namespace vk
