#include "expr/Tokens.h"

#include <algorithm>
#include <array>
#include <vector>

#include "base/Rounding.h"
#include "base/Text.h"
#include "expr/CmpMod.h"
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

/// The text with `replacement` at these places, each for so many characters; the places rise.
std::string replacedAt(const std::string& text, const std::vector<std::size_t>& places, std::size_t count,
                       const std::string& replacement) {
  std::string result;
  std::size_t done = 0;
  for (const std::size_t place : places) {
    result.append(text, done, place - done);
    result += replacement;
    done = place + count;
  }
  result.append(text, done);
  return result;
}

/// Every "NAME(" becomes "##NN(". QUIRK: what stands before the name does not matter, so a name that ends like
/// a function is torn apart: XSIN(2) becomes X##07(2).
void markFunctions(std::string& expression) {
  std::string capitals = upper(expression);
  for (int number = 0; number < kFunctionCount; ++number) {
    const std::string name(functionOf(number).name);
    std::vector<std::size_t> places;
    for (std::size_t at = 0; (at = capitals.find(name + "(", at)) != std::string::npos; at += name.size()) {
      places.push_back(at);
    }
    if (places.empty()) continue;
    const std::string token = "##" + numberDigits(number);
    expression = replacedAt(expression, places, name.size(), token);
    capitals = replacedAt(capitals, places, name.size(), token);
  }
}

/// True when the sign at `at` belongs to the exponent of the number that begins at `begin`.
bool isExponentSign(const std::string& text, std::size_t begin, std::size_t at) {
  return (text[at] == '+' || text[at] == '-') && isOneOf(text[begin], kNumberStarts) &&
         upper(text[at - 1]) == 'E';
}

/// QUIRK: only operators, commas and ")" end a name or number; "(" and "#" are swallowed.
std::size_t endOfToken(const std::string& text, std::size_t begin) {
  std::size_t at = begin + 1;
  while (at < text.size() && (!isOneOf(text[at], kTokenEnds) || isExponentSign(text, begin, at))) ++at;
  return at;
}

class Walk {
 public:
  Walk(TokenText& into, Report& report) : into_(into), report_(report) {}

  bool over(const std::string& text) {
    for (std::size_t at = 0; at < text.size();) {
      const std::size_t end = isOneOf(text[at], kSelfStanding) ? copyFrom(text, at) : endOfToken(text, at);
      if (!isOneOf(text[at], kSelfStanding)) addOperand(text.substr(at, end - at));
      at = end;
    }
    return good_;
  }

 private:
  std::size_t copyFrom(const std::string& text, std::size_t at) {
    const std::size_t width = text[at] == '#' ? kTokenWidth : 1;
    into_.tokens += text.substr(at, width);
    return at + width;
  }

  void addOperand(const std::string& token) {
    ++into_.lastOperand;
    if (isOneOf(token[0], kNumberStarts)) {
      addNumber(upper(token));
    } else {
      addName(token);
    }
  }

  std::string operandToken() const { return "@@" + numberDigits(into_.lastOperand); }

  void addMapByte(int index) {
    if (index > kLargestIndex) into_.mapFits = false;
    into_.operandMap += static_cast<char>(index & kLargestIndex);
  }

  // QUIRK: no literal is refused; one that is no number has the value of its numeric prefix.
  void addNumber(const std::string& number) {
    ++into_.literals;
    into_.nameTable += operandToken();
    into_.values += (into_.values.empty() ? "" : ",") + number;
    addMapByte(length(into_.nameTable) / kNameWidth);
    into_.tokens += operandToken();
  }

  void addName(std::string name) {
    if (length(name) > kNameWidth) {
      fail("* ERR. " + name + " Espressione Variabile Errata");
      name = left(name, kNameWidth);
    }
    // QUIRK: a hit counts wherever it begins, also across two entries; half an index goes to the even one.
    const int found = position(into_.nameTable, name + repeat(kNameWidth - length(name), ' '));
    if (found == 0) {
      fail("* ERR. Variabile " + name + " NON definita");
      return;
    }
    addMapByte(static_cast<int>(roundHalfEven((found - 1.0) / kNameWidth + 1)));
    into_.tokens += operandToken();
  }

  void fail(const std::string& line) {
    report_.line(line);
    good_ = false;
  }

  TokenText& into_;
  Report& report_;
  bool good_ = true;
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

std::string prepareExpression(const std::string& expression) {
  std::string text = "(" + StripBlanks(expression) + ")";
  ReplaceAll(text, "(+", "(");
  ReplaceAll(text, ",+", ",");
  ReplaceAll(text, "(-", "(0-");
  ReplaceAll(text, ",-", ",0-");
  markFunctions(text);
  return text;
}

bool tokenise(const std::string& prepared, TokenText& into, Report& report) {
  return Walk(into, report).over(prepared);
}

bool isGrammatical(const std::string& tokens) {
  std::string_view allowed = "(#@";
  for (std::size_t at = 0; at < tokens.size();) {
    const char c = tokens[at];
    if (!isOneOf(c, allowed)) return false;
    const auto* row = std::find_if(kGrammar.begin(), kGrammar.end(),
                                   [c](const GrammarRow& r) { return isOneOf(c, r.tokens); });
    allowed = row->next;
    at += row->advance;
  }
  return true;
}

}  // namespace vk
