#include "expr/Tokens.h"

#include <algorithm>
#include <array>
#include <vector>

#include "base/Rounding.h"
#include "base/Text.h"
#include "expr/Opcodes.h"

namespace vk {
namespace {

constexpr std::string_view kSelfStanding = "-#()^*/+,";
constexpr std::string_view kTokenEnds = "^)*/+-,";
constexpr std::string_view kNumberStarts = ".0123456789";
// A byte of the operand map ends here.
constexpr int kLargestIndex = 255;

bool isOneOf(char c, std::string_view set) {
  return set.find(c) != std::string_view::npos;
}

/// Every "NAME(" becomes "##NN(". QUIRK: what stands before the name does not matter, so a name that ends like
/// a function is torn apart: XSIN(2) becomes X##07(2).
void markFunctions(TracedText& expression) {
  std::string capitals = upper(expression.text());
  for (int number = 0; number < kFunctionCount; ++number) {
    const std::string_view name = functionOf(number).name;
    std::vector<std::size_t> places;
    for (std::size_t at = 0; (at = capitals.find(name, at)) != std::string::npos;) {
      const std::size_t end = at + name.size();
      const bool called = end < capitals.size() && capitals[end] == '(';
      if (called) places.push_back(at);
      at = called ? end : at + 1;
    }
    if (places.empty()) continue;
    const std::string token = "##" + numberDigits(number);
    expression.replaceAt(places, name.size(), token);
    capitals = upper(expression.text());
  }
}

/// True when the sign at `at` belongs to the exponent of the number that begins at `begin`.
bool isExponentSign(const std::string& text, std::size_t begin, std::size_t at) {
  return (text[at] == '+' || text[at] == '-') && isOneOf(text[begin], kNumberStarts) &&
         upper(text[at - 1]) == 'E';
}

class Walk {
 public:
  Walk(TokenText& into, CompilerReport& report) : into_(into), report_(report) {}

  void over(const TracedText& text) {
    for (std::size_t at = 0; at < text.size();) {
      const bool standsForItself = isOneOf(text[at], kSelfStanding);
      const std::size_t end = standsForItself ? copyFrom(text, at) : endOfOperand(text.text(), at);
      if (!standsForItself) addOperand(text, at, end);
      at = end;
    }
  }

 private:
  std::size_t copyFrom(const TracedText& text, std::size_t at) {
    const std::size_t end = std::min(at + (text[at] == '#' ? kTokenWidth : 1), text.size());
    into_.tokens.append(text, at, end);
    return end;
  }

  void addOperand(const TracedText& text, std::size_t begin, std::size_t end) {
    ++into_.lastOperand;
    if (isOneOf(text[begin], kNumberStarts)) {
      addNumber(text.part(begin, end).inCapitals());
    } else {
      addName(text.text().substr(begin, end - begin), text.placeOf(begin, end - begin));
    }
  }

  std::string operandToken() const { return "@@" + numberDigits(into_.lastOperand); }

  void addMapByte(int index) {
    if (index > kLargestIndex) into_.mapFits = false;
    into_.operandMap += static_cast<char>(index & kLargestIndex);
  }

  // QUIRK: no literal is refused; one that is no number has the value of its numeric prefix.
  void addNumber(const TracedText& number) {
    ++into_.literals;
    into_.nameTable += operandToken();
    into_.values.push_back(number);
    addMapByte(length(into_.nameTable) / kNameWidth);
    into_.tokens.append(operandToken(), number.placeOf(0, 1).first);
  }

  void addName(std::string name, Place place) {
    if (length(name) > kNameWidth) {
      report_.fault(CompileFaultKind::kOperandTooLong, place, kErrorMark,
                    name + " Espressione Variabile Errata");
      name = left(name, kNameWidth);
    }
    // QUIRK: a hit counts wherever it begins, also across two entries; half an index goes to the even one.
    const int found = position(into_.nameTable, name + repeat(kNameWidth - length(name), ' '));
    if (found == 0) {
      report_.fault(CompileFaultKind::kUnknownName, place, kErrorMark, "Variabile " + name + " NON definita");
      return;
    }
    addMapByte(static_cast<int>(roundHalfEven((found - 1.0) / kNameWidth + 1)));
    into_.tokens.append(operandToken(), place.first);
  }

  TokenText& into_;
  CompilerReport& report_;
};

/// What may follow a token, by its first character, and how far the next one is.
struct GrammarRow {
  std::string_view tokens;
  std::string_view next;
  std::size_t advance;
};

constexpr std::array kGrammar{
    GrammarRow{"(", "#@(", 1},         GrammarRow{")", ")-+*/^,", 1},
    GrammarRow{"#", "(", kTokenWidth}, GrammarRow{"@", ")-+*/^,", kTokenWidth},
    GrammarRow{"-+*^/,", "(#@", 1},
};

}  // namespace

std::string numberDigits(int number) {
  return (number < 10 ? "0" : "") + std::to_string(number);
}

// QUIRK: only operators, commas and ")" end a name or number; "(" and "#" are swallowed.
std::size_t endOfOperand(const std::string& text, std::size_t begin) {
  std::size_t at = begin + 1;
  while (at < text.size() && (!isOneOf(text[at], kTokenEnds) || isExponentSign(text, begin, at))) ++at;
  return at;
}

TracedText prepareExpression(const TracedText& expression) {
  const TracedText bare = expression.withoutBlanks();
  TracedText text;
  text.reserve(bare.size() + 2);
  text.append("(", bare.placeOf(0, 1).first);
  text.append(bare, 0, bare.size());
  text.append(")", bare.placeOf(bare.size() - 1, 1).first);
  text.replaceAll("(+", "(");
  text.replaceAll(",+", ",");
  text.replaceAll("(-", "(0-");
  text.replaceAll(",-", ",0-");
  markFunctions(text);
  return text;
}

void tokenise(const TracedText& prepared, TokenText& into, CompilerReport& report) {
  Walk(into, report).over(prepared);
}

std::size_t ungrammaticalToken(const std::string& tokens) {
  std::string_view allowed = "(#@";
  for (std::size_t at = 0; at < tokens.size();) {
    const char c = tokens[at];
    if (!isOneOf(c, allowed)) return at;
    const auto* row = std::find_if(kGrammar.begin(), kGrammar.end(),
                                   [c](const GrammarRow& r) { return isOneOf(c, r.tokens); });
    allowed = row->next;
    at += row->advance;
  }
  return std::string::npos;
}

}  // namespace vk
