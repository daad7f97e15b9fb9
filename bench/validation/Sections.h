#pragma once

#include <ostream>

/// The sections of docs/validation.md, one source for each. They read the sources of the program below the current folder,
/// and write the text below their heading: the figures that matter first, then what they are made of.
namespace vk {

/// Fits of problems with certified results.
void writeCertifiedProblems(std::ostream& page);
/// Errors, correlations, probabilities and bands of fits of simulated data, whose true values are known.
void writeCalibration(std::ostream& page);

}  // namespace vk
