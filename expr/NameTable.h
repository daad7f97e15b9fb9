#pragma once

#include <string>
#include <vector>

#include "expr/CompilerReport.h"
#include "expr/TracedText.h"

namespace vk {

/// The items, each padded on the right to `width`; a longer one is cut, which is a fault of this kind.
std::string BuildNameTable(const std::vector<TracedText>& items, int width, CompileFaultKind tooLong,
                           CompilerReport& report);

/// Checks that each name, cut to `width`, is a letter followed by letters, digits and "_".
void CheckNames(const std::vector<TracedText>& names, int width, CompilerReport& report);

}  // namespace vk
