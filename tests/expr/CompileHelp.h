#pragma once

#include <string>
#include <vector>

#include "expr/Compiler.h"

namespace vk {

/// A compiled formula with what the compiler said about it.
struct Compiled {
  CompiledExpression expression;
  std::vector<CompileFault> faults;
  Int16 flag;  ///< 0 when it went well
  std::vector<std::string> report;
};

/// The lines of a text whose lines all end in CR LF; one that does not fails the test.
std::vector<std::string> reportLines(const std::string& text);

/// Compiles a definition text.
Compiled compiled(const std::string& definition);

/// "code 4 0 1 | 108 1 0; map 1 1; LastSlot 1", the head of the listing; "failed" when the flag is set.
std::string codeOf(const std::string& definition);

/// Whether the definition compiles.
bool compiles(const std::string& definition);

}  // namespace vk
