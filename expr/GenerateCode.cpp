#include "expr/GenerateCode.h"

#include <algorithm>
#include <array>
#include <initializer_list>
#include <optional>
#include <string_view>
#include <vector>

#include "base/Text.h"
#include "expr/FormulaText.h"
#include "expr/Opcodes.h"
#include "expr/Tokens.h"

namespace vk {
namespace {

struct OperatorPair {
  std::string_view signs;
  std::array<int, 2> opcodes;
};

// Tightest first.
constexpr std::array kPrecedence{
    OperatorPair{"^", {kOpPower, kOpPower}},
    OperatorPair{"*/", {kOpTimes, kOpDivide}},
    OperatorPair{"+-", {kOpPlus, kOpMinus}},
};

/// The two digits at an offset; nothing when they are not there.
std::optional<int> digitsAt(std::string_view text, std::size_t at) {
  if (at + 2 > text.size() || !isDigit(text[at]) || !isDigit(text[at + 1])) return std::nullopt;
  return (text[at] - '0') * 10 + (text[at + 1] - '0');
}

class Generator {
 public:
  Generator(const std::string& tokens, std::string& code) : tokens_(tokens), code_(code) {}

  /// False when something could not be reduced. QUIRK: nothing is said about what and where.
  /// QUIRK: text behind the group of the wrapper has no part in the code, so "x)+(2" has the value of x.
  bool run() {
    for (const char c : tokens_) {
      if (c == ')') {
        if (opened_.empty() || !reduceGroup()) return false;
        continue;
      }
      if (c == '(') opened_.push_back(read_.size());
      read_ += c;
    }
    return true;
  }

 private:
  /// Puts in the place of the innermost group what is left of it.
  bool reduceGroup() {
    std::size_t open = opened_.back();
    opened_.pop_back();
    std::vector<std::string> arguments = splitItems(read_.substr(open + 1));
    std::string rest;
    for (std::string& argument : arguments) {
      if (!reduceOperators(argument)) return false;
      rest += argument;
    }
    if (open >= kTokenWidth && read_.compare(open - kTokenWidth, 2, "##") == 0) {
      if (!emitFunction(digitsAt(read_, open - 2), arguments, rest)) return false;
      open -= kTokenWidth;
      rest.resize(std::min(rest.size(), kTokenWidth));
    }
    read_.replace(open, std::string::npos, rest);
    return true;
  }

  bool reduceOperators(std::string& argument) {
    for (const OperatorPair& pair : kPrecedence) {
      for (std::size_t at; (at = argument.find_first_of(pair.signs)) != std::string::npos;) {
        const auto left = digitsAt(argument, at < 2 ? argument.size() : at - 2);
        const auto right = digitsAt(argument, at + 3);
        if (!left || !right) return false;
        emit({pair.opcodes[pair.signs.find(argument[at])], *left, *right});
        argument.erase(at, 1 + kTokenWidth);
      }
    }
    return true;
  }

  bool emitFunction(std::optional<int> number, const std::vector<std::string>& arguments,
                    const std::string& rest) {
    if (!number) return false;
    std::vector<int> operands;
    if (*number == kWrapper) {
      if (!appendOperands(rest, operands)) return false;
    } else {
      for (const std::string& argument : arguments) {
        if (!appendOperands(left(argument, kTokenWidth), operands)) return false;
      }
      if (!hasRightArity(*number, static_cast<int>(operands.size()))) return false;
    }
    if (operands.empty()) return false;
    emit({*number + kFirstFunction, static_cast<int>(operands.size())});
    for (const int operand : operands) emit({operand});
    return true;
  }

  /// The numbers of the operands that stand side by side in the text; false when something else is there.
  static bool appendOperands(const std::string& text, std::vector<int>& operands) {
    if (text.empty()) return false;
    for (std::size_t at = 0; at < text.size(); at += kTokenWidth) {
      const auto operand = digitsAt(text, at + 2);
      if (text.compare(at, 2, "@@") != 0 || !operand) return false;
      operands.push_back(*operand);
    }
    return true;
  }

  // QUIRK: the digits are overwritten by the one just read, so only the first function that is reduced is
  // compared with its own arity. A later one is compared with what is left at its place, or not at all.
  bool hasRightArity(int number, int count) {
    const auto at = static_cast<std::size_t>(number);
    if (at >= arities_.size()) return true;
    arities_ = arities_[at] == '0' ? std::to_string(count) : std::string(1, arities_[at]);
    return arities_ == std::to_string(count);
  }

  void emit(std::initializer_list<int> bytes) {
    for (const int byte : bytes) code_ += static_cast<char>(byte);
  }

  const std::string& tokens_;
  std::string& code_;
  std::string read_;                 // the tokens so far, with what is left of the groups
  std::vector<std::size_t> opened_;  // where in it groups are open
  std::string arities_ = arityDigits();
};

}  // namespace

bool GenerateCode(const std::string& tokens, std::string& code) {
  return Generator(tokens, code).run();
}

}  // namespace vk
