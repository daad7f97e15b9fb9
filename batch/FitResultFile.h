#pragma once

#include <string>
#include <vector>

#include "numeric/CholeskyFactor.h"
#include "platform/Files.h"

namespace vk {

/// A fitted parameter.
struct FittedParameter {
  std::string name;  ///< code page 437
  double value = 0;
  double error = 0;  ///< standard deviation; 0 for a constant one
};

/// What the file of a result tells of the parameters.
struct FittedParameters {
  std::string file;  ///< its name as a terminal shows it
  std::vector<FittedParameter> parameters;
  CorrelationMatrix correlation;  ///< of all of them, constant ones being independent
  bool converged = true;          ///< false for values that are not those of a minimum
};

/// Reads the object that `fit --json` prints: values and errors of the minimum where it has one, else those of the fit
/// with its linear errors. A file that cannot be read, is no such object, or has no errors raises `UsageError`.
FittedParameters readFitResult(Files& files, const std::string& fileName);

/// The factor of correlations that the file has; impossible ones raise `UsageError`.
CholeskyFactor factorOf(const CorrelationMatrix& correlation, const std::string& file);

}  // namespace vk
