#pragma once

#include <string>

#include "batch/FitFindings.h"

/// Fits as lines of values that commas separate (RFC 4180, but with bare line feeds), in UTF-8. The columns follow from
/// what was asked for, so all fits of one run have the same ones. A cell is empty where there is nothing to tell;
/// numbers have the digits that bring them back exactly.
namespace vk {

/// The line of names, for fits that are asked for the same as `wanted`.
std::string csvHeader(const FitFindings& wanted);
/// The line of a fit of this file.
std::string csvLine(const std::string& file, const FitFindings& findings);
/// The line of a file without a fit: its status and the reason, for people.
std::string csvLine(const std::string& file, const FitFindings& wanted, const std::string& status,
                    const std::string& reason);

}  // namespace vk
