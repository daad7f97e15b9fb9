#pragma once

#include <string>

#include "expr/Report.h"

/// The text form between an expression and its code. An operand is "@@NN" and a function "##NN", NN being two
/// decimal digits; parentheses, operators and commas stand for themselves.
namespace vk {

/// Characters of an entry of the name table, which limits names.
inline constexpr int kNameWidth = 4;
/// Characters of an operand or function token.
inline constexpr std::size_t kTokenWidth = 4;

/// What the walk over an expression collects. The caller fills `nameTable` with the names and `values` with
/// the comma list of the values of named constants; literals are added to both.
struct TokenText {
  std::string nameTable;   ///< entries of `kNameWidth`: variables, parameters, constants, literals
  std::string values;      ///< comma list: values of the named constants, then the literals
  int literals = 0;        ///< number of literals
  int lastOperand = -1;    ///< number of the last operand, counted from 0
  std::string operandMap;  ///< a byte for each operand: its index in the name table
  bool mapFits = true;     ///< false when an index does not fit into its byte
  std::string tokens;
};

/// The digits of an operand or function number, at least two.
std::string numberDigits(int number);

/// The expression without blanks, in parentheses, signs turned into operators, function names into tokens.
std::string prepareExpression(const std::string& expression);

/// Walks over the prepared expression. False when a name was too long or is not in the table; each such name
/// has a line of the report, and the walk goes on.
bool tokenise(const std::string& prepared, TokenText& into, Report& report);

/// True when each token may follow the one before it. Counts no parentheses.
bool isGrammatical(const std::string& tokens);

}  // namespace vk
