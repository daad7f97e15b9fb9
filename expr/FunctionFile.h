#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "base/Int16.h"
#include "expr/CompiledExpression.h"

namespace vk {

/// The functions of the function file read last, at most 10; index 0 is the first.
struct FunctionFile {
  struct Entry {
    std::string parameters;     ///< comma list
    std::string definition;     ///< formula in x
    std::string description;    ///< free text
    CompiledExpression code{};  ///< of the definition; as of a failure where it was not compiled
  };
  std::vector<Entry> entries;
  Int16 DescriptionWidth;  ///< longest description, at most 56
};

/// How closely a function file is looked at.
struct FunctionFileChecks {
  bool compile = true;  ///< each function is compiled
  bool trace = true;    ///< the report shows each function, and the compiler's report on it
};

/// A function that compiles in a sense that nobody means, as "2x" for 2.
struct DoubtfulFunction {
  int number = 0;    ///< from 1
  int line = 0;      ///< of the file, from 1, where the first fault stands
  std::string text;  ///< the formula and, below its places, what is wrong; lines ended by CR LF
};

/// A function file, parsed.
struct ParsedFunctionFile {
  FunctionFile file;
  std::vector<DoubtfulFunction> doubtful;  ///< in their order, as far as they were compiled
  std::string report;                      ///< lines ended by CR LF
  bool ok = false;  ///< whole records, at least one, and all functions good as far as they were compiled
};

/// Parses the bytes of a function file, whose texts become those of code page 437: three records for each function, "&"
/// at the end joins lines, "%" and "#" begin comments.
ParsedFunctionFile parseFunctionFile(std::string_view text, FunctionFileChecks checks = {});

}  // namespace vk
