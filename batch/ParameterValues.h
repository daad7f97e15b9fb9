#pragma once

#include <string>
#include <vector>

#include "batch/Assignment.h"

namespace vk {

struct Session;

/// A variable of the command line with its two numbers.
struct EnteredValue {
  Assignment assignment;
  double second = 0;  ///< for a fit 1 free or 0 constant; for a propagation the error
};

/// The comma list of the names, in their order, without that of the independent variable.
std::string parameterNames(const std::vector<EnteredValue>& values);

// Every parameter of the model needs its value, and every value its parameter; else `UsageError`. Where two
// parameters bear one name, the first value goes to the first.

/// Enters the starting values of a fit; at least one parameter must be free, else `UsageError`. A constant one that
/// does not stand in the formula is told.
void enterStart(Session& session, const std::vector<EnteredValue>& values);
/// Enters values and errors for a propagation. The independent variable may be left out and is 0 without error then.
void enterErrors(Session& session, const std::vector<EnteredValue>& values);

}  // namespace vk
