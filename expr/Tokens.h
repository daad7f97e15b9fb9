#pragma once

#include <string>
#include <vector>

#include "expr/CompilerReport.h"
#include "expr/TracedText.h"

/// The text form between an expression and its code. An operand is "@@NN" and a function "##NN", NN being two
/// decimal digits; parentheses, operators and commas stand for themselves.
namespace vk {

/// Characters of an entry of the name table, which limits names.
inline constexpr int kNameWidth = 4;
/// Characters of an operand or function token.
inline constexpr std::size_t kTokenWidth = 4;

/// What the walk over an expression collects. The caller fills `nameTable` with the names and `values` with
/// the values of named constants; literals are added to both.
struct TokenText {
  std::string nameTable;           ///< entries of `kNameWidth`: variables, parameters, constants, literals
  std::vector<TracedText> values;  ///< of the named constants, then the literals
  int literals = 0;                ///< number of literals
  int lastOperand = -1;            ///< number of the last operand, counted from 0
  std::string operandMap;          ///< a byte for each operand: its index in the name table
  bool mapFits = true;             ///< false when an index does not fit into its byte
  TracedText tokens;
};

/// The digits of an operand or function number, at least two.
std::string numberDigits(int number);

/// Where the name or number ends that begins at `begin` in a text without blanks.
std::size_t endOfOperand(const std::string& text, std::size_t begin);

/// The expression without blanks, in parentheses, signs turned into operators, function names into tokens.
TracedText prepareExpression(const TracedText& expression);

/// Walks over the prepared expression. A name that is too long or not in the table is a fault, and the walk goes on.
void tokenise(const TracedText& prepared, TokenText& into, CompilerReport& report);

/// Where in the tokens the first one stands that may not follow the one before it; npos without one. Counts no
/// parentheses.
std::size_t ungrammaticalToken(const std::string& tokens);

}  // namespace vk
