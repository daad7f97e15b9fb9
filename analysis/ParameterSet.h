#pragma once

#include <span>
#include <string>
#include <vector>

#include "analysis/CorrelatedErrors.h"
#include "base/Array.h"
#include "base/Int16.h"
#include "expr/FunctionDef.h"

namespace vk {

/// The tables of the parameters of the current model function.
struct ParameterSet {
  ParameterSet();

  /// Name of parameter i without its blanks; i = 0 gives the independent variable, i = -1 the dependent one.
  std::string name(int i) const;

  /// Fixed-width names, 5 characters a slot, blanks on the left: the dependent variable, the independent
  /// variable, then the parameters.
  std::string ParNames;
  Int16 ParNameWidth;  ///< length of the longest name
  Int16 ParCount;

  /// Values 0..ParCount; element 0 is the independent variable, used for error propagation only.
  Array<double> ParValues;
  /// Second numbers 0..ParCount: for a fit 0 means constant, anything else free; for error propagation the
  /// error (positive: standard deviation, negative: maximum error). A fit leaves the errors here.
  Array<double> ParDeltas;
  /// For a propagation: those of the errors, all of them standard deviations, that are not independent; as a rule none.
  CorrelatedErrors correlated;

  // The tables below are 0..ParCount+1, used from 1.
  Array<double> FreeValues;  ///< values of the free parameters
  Array<double> FreeSteps;   ///< their starting steps, which a fit lowers
  /// Permutation of the parameters: the free ones from the front, the constant ones from the back.
  Array<Int16> FreeIndex;
  Int16 FreeCount;
};

/// Takes over values and second numbers of the variables from `first` on (0 the independent variable, 1 the first
/// parameter), and sorts the parameters. The errors are independent then.
void StoreParameters(ParameterSet& par, std::span<const double> values, std::span<const double> seconds,
                     int first);

/// Sorts the parameters by their second numbers into free ones, with starting values and steps, and constant ones.
void classifyParameters(ParameterSet& par);

/// The values of the free parameters, in their order.
std::vector<double> freeValues(const ParameterSet& par);

/// Writes the free parameters' values to their places among all parameters.
void storeFreeValues(ParameterSet& par, std::span<const double> X);

}  // namespace vk
