#pragma once

#include <ostream>

/// The sections of docs/validation.md, one source for each. They read the sources of the program below the current
/// folder, and write the text below their heading: the figures that matter first, then what they are made of.
namespace vk {

/// Fits of problems with certified results.
void writeCertifiedProblems(std::ostream& page);
/// Errors, correlations, probabilities and bands of fits of simulated data, whose true values are known.
void writeCalibration(std::ostream& page);
/// Errors and correlations of the same fits asked in other ways.
void writeOtherWays(std::ostream& page);
/// Propagated errors by derivatives and by simulation.
void writePropagation(std::ostream& page);
/// Special functions and distributions beside those of MPFR.
void writeFunctions(std::ostream& page);

}  // namespace vk
