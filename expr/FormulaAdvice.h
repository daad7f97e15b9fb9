#pragma once

#include <string>
#include <vector>

#include "expr/Compiler.h"

/// What to tell somebody whose formula is not what was meant: where it is wrong, and what to write instead. The
/// compiler refuses some of these formulas and takes others in another sense, as "2x" for 2.
namespace vk {

enum class AdviceKind {
  kComma,            ///< outside the arguments of a function
  kBehindNumber,     ///< a letter, digit or point, or a parenthesis, directly behind a number
  kDoubleStar,       ///< "**"
  kTwoSigns,         ///< an operator and a sign behind it
  kMissingSign,      ///< two operands without an operator between them
  kMissingValue,     ///< an operator or a parenthesis where an operand must stand
  kNotOpened,        ///< a ")" too many
  kNotClosed,        ///< a "(" too many
  kCharacter,        ///< one that the language has not
  kUnknownFunction,  ///< a name in front of a parenthesis
  kUnknownName,      ///< another name
  kBareFunction,     ///< the name of a function without arguments
  kLongName,         ///< a name of more characters than the language takes
  kArguments,        ///< a wrong number of arguments
  kRefused,          ///< what else the compiler refuses
};

/// A piece of advice on a formula.
struct FormulaAdvice {
  AdviceKind kind;
  int first;         ///< from 0; the length of the formula where its end is at fault
  std::string text;  ///< what is wrong and, where it is known, what was meant; code page 437
};

/// The advice on a formula in which these names have values, in the order of its places; none for a formula that
/// follows the grammar.
std::vector<FormulaAdvice> adviseOn(const std::string& formula, const std::vector<std::string>& names);

/// What people are shown of a formula: the formula, and for each piece of advice a line with a "^" below its place; of
/// many pieces the first twenty, and how many others there are. Lines ended by CR LF; empty without advice.
std::string adviceLines(const std::string& formula, const std::vector<FormulaAdvice>& advice);

/// The same on the expression of a definition "result@variables@parameters@constants@expression" and what the compiler
/// said of it: not empty where the expression was refused. A fault of the names is none of the expression.
std::string adviceLines(const std::string& definition, const Compilation& compiled);

/// What the compiler says of a fault in a definition, in one line.
std::string faultText(const std::string& definition, const CompileFault& fault);

}  // namespace vk
