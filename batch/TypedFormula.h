#pragma once

#include <string>

#include "expr/CompiledExpression.h"
#include "expr/FunctionFile.h"

namespace vk {

/// The compiled formula of a definition "result@variables@parameters@constants@formula" that somebody has typed. One
/// that does not compile, or does so in a sense that nobody means, as "2x" for 2, raises `UsageError` with the formula
/// and, below its place, what is wrong. With `trace` the compiler's report comes first, on the error stream.
CompiledExpression compileTyped(const std::string& definition, bool trace);

/// Lines of advice (`adviceLines`) in UTF-8, without an end of the last one.
std::string doubtLines(const std::string& lines);

/// What is told of a function of a file that passes in a sense that nobody means: its line and number, and below them
/// the formula with what is wrong; without an end of the last line.
std::string doubtText(const DoubtfulFunction& function);

}  // namespace vk
