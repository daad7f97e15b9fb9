/// Unit CmpMod: the compiler of the formula language.
#pragma once

#include <string>
#include <vector>

#include "expr/CompiledExpression.h"

namespace vk {

/// What is wrong with a definition.
enum class CompileFaultKind {
  kNameTooLong,     ///< of a variable, parameter or constant
  kNameStart,       ///< a name that does not begin with a letter
  kNameCharacter,   ///< a character that no name may have
  kNameMissing,     ///< an empty name; the report passes over it
  kNameTaken,       ///< a name that stands for something else already; the last that is of the names
  kParentheses,     ///< not as many opened as closed
  kOperandTooLong,  ///< a name in the expression
  kUnknownName,     ///< in the expression
  kGrammar,         ///< a sign where it cannot stand
  kNumberTooLong,   ///< a literal or the value of a constant
  kArguments,  ///< a wrong number of arguments, or what else cannot be reduced; the report passes over it
  kTooManyOperands,  ///< for the bytes of the code; the report passes over it
};

/// A fault with its place in the definition, `length` characters from `first` (from 0) on.
struct CompileFault {
  CompileFaultKind kind;
  int first;
  int length;
  std::string text;  ///< for people, as the report has it behind its mark; empty where that has no line
};

/// What came of a compilation.
struct Compilation {
  CompiledExpression code;  ///< its `Code` is empty after a failure, and has the value 0
  std::vector<CompileFault> faults;
  std::string report;  ///< lines ended by CR LF
  bool ok = false;
};

/// Compiles "result@variables@parameters@constants@expression". Nobody reads the name of the result. The others are
/// comma lists of names of at most four characters; behind the names of the constants come "/" and the list of their
/// values. Variables and parameters count from 1, one behind the other. docs/formats.md tells the language of
/// expressions.
Compilation compile(const std::string& definition);

/// True for what is wrong with the lists of names, not with the expression.
bool isOfNames(CompileFaultKind kind);

/// The definition of a function of x with a comma list of parameters.
std::string functionDefinition(const std::string& parameters, const std::string& formula);
/// Compiles it: x is variable 1, the parameters count from 2 on.
Compilation compileFunction(const std::string& parameters, const std::string& definition);

/// The code for people, lines ended by LF: the bytes as "code 4 0 1 | 108 1 0", "map 1 1" and "LastSlot 1",
/// then a line for each instruction with its name and slots, then a line for each value.
std::string listCode(const CompiledExpression& compiled);

}  // namespace vk
