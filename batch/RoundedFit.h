#pragma once

#include <string>

#include "batch/FitFindings.h"

/// What a fit has found as people publish it: values and errors rounded together (`roundedValue`). They are those of
/// the true minimum where it was wanted and reached, else those of the fit with its linearised errors. UTF-8; empty
/// without either.
namespace vk {

/// A line for each parameter and derived quantity: "A = 473 +- 12 = 4.73(12)E2". The lines of constant parameters say
/// so.
std::string roundedLines(const FitFindings& findings);

/// A table for LaTeX with the package siunitx: values, correlations of the free parameters, chi-square. A comment names
/// the file.
std::string latexTable(const FitFindings& findings, const std::string& file);

}  // namespace vk
