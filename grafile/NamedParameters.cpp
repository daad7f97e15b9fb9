#include <algorithm>

#include "base/NumberText.h"
#include "base/Rounding.h"
#include "base/Text.h"
#include "expr/FormulaText.h"
#include "grafile/NamedParameters.h"

namespace vk {
namespace {

constexpr int kLongestName = 5;
constexpr int kKeyLength = kLongestName + 1;
constexpr std::string_view kNameEnds = "()^*/-+,";
constexpr const char* kVariable = "x";

std::string keyOf(const std::string& name) {
  return "*" + repeat(kLongestName - length(name), ' ') + name;
}

/// Index of a parameter, 0 for an unknown name.
int indexOf(const NamedParameters& parameters, const std::string& name) {
  const auto found = parameters.places.find(keyOf(name));
  return found == parameters.places.end() ? 0 : found->second;
}

/// QUIRK: a name may hold an asterisk, where a key across two names begins; it stands for the first of them.
void addKey(NamedParameters& parameters, const std::string& name) {
  std::string& keys = parameters.ParamNames;
  int at = std::max(0, length(keys) - kLongestName);
  keys += keyOf(name);
  for (; at + kKeyLength <= length(keys); ++at) {
    std::string key = mid(keys, at + 1, kKeyLength);
    if (key.front() == '*') parameters.places.emplace(std::move(key), at / kKeyLength + 1);
  }
}

/// End of the number that begins at `at` in the text: digits and points, and an exponent behind them.
std::size_t endOfNumber(const std::string& text, std::size_t at) {
  while (isDigit(text[at]) || text[at] == '.') ++at;
  if (upper(text[at]) != 'E') return at;
  std::size_t digits = at + 1;
  if (text[digits] == '+' || text[digits] == '-') ++digits;
  if (!isDigit(text[digits])) return at;
  while (isDigit(text[digits])) ++digits;
  return digits;
}

/// The value of a parameter as it can stand behind an operator.
std::string operand(const NamedParameters& parameters, std::string name, Int16& flag, Precision precision) {
  SubstituteName(parameters, name, flag, precision);
  name = trim(name);
  return name.starts_with('-') ? "(" + name + ")" : name;
}

}  // namespace

void DefineParameters(NamedParameters& parameters, const std::string& text) {
  for (const std::string& piece : splitItems(text)) DefineParameter(parameters, piece);
}

void DefineParameter(NamedParameters& parameters, const std::string& text) {
  std::string name = text, value;
  SplitAtMark(name, value, '=');
  if (name.empty() || !isLetter(name[0]) || length(name) > kLongestName || !isNumeric(value)) return;
  const double number = scanNumber(value);
  const float narrowed = toSingle(number);
  int index = indexOf(parameters, name);
  if (index == 0) {
    index = ++parameters.ParamCount;
    parameters.ParamValues.redim(index);
    parameters.ParamDoubles.redim(index);
    addKey(parameters, name);
  }
  parameters.ParamValues[index] = narrowed;
  parameters.ParamDoubles[index] = number;
}

void SubstituteName(const NamedParameters& parameters, std::string& field, Int16& flag, Precision precision) {
  field = trim(field);
  if (field.empty() || field == kVariable || isNumeric(field)) return;
  const bool negative = field.starts_with('-');
  const int index = indexOf(parameters, negative ? field.substr(1) : field);
  if (index == 0) {
    flag = kTrue;
    return;
  }
  const float single = parameters.ParamValues[index];
  const double value = parameters.ParamDoubles[index];
  field = precision == Precision::kSingle ? generalText(negative ? -single : single)
                                          : generalText(negative ? -value : value);
}

void SubstituteExpression(const NamedParameters& parameters, std::string& expression, Int16& flag,
                          Precision precision) {
  // The parentheses are an end for each name and number; they go away again.
  const std::string text = "(" + StripBlanks(expression) + ")";
  std::string out;
  for (std::size_t at = 0; at < text.size();) {
    std::size_t end = at + 1;
    if (isLetter(text[at])) {
      end = text.find_first_of(kNameEnds, at);
      const std::string name = text.substr(at, end - at);
      out += text[end] == '(' ? name : operand(parameters, name, flag, precision);
    } else {
      end = std::max(end, endOfNumber(text, at));
      out += text.substr(at, end - at);
    }
    at = end;
  }
  expression = out.substr(1, out.size() - 2);
}

void ParseFields(const NamedParameters& parameters, const std::string& text, Array<double>& numbers,
                 Array<Int16>& integers, std::string& rest, int numericCount, int integerCount, Int16& flag,
                 Array<double>* doubles) {
  std::string left = text + ",";
  const auto nextField = [&] {
    const auto comma = std::min(left.find(','), left.size());
    std::string field = left.substr(0, comma);
    left.erase(0, comma + 1);
    return field;
  };
  const auto valueOf = [&](std::string field, Precision precision = Precision::kSingle) {
    SubstituteName(parameters, field, flag, precision);
    return scanNumber(field);
  };
  for (int i = 1; i <= numericCount; ++i) {
    const std::string field = nextField();
    numbers[i] = valueOf(field);
    if (doubles) (*doubles)[i] = valueOf(field, Precision::kDouble);
  }
  for (int i = 1; i <= integerCount; ++i) integers[i] = toInt16(valueOf(nextField()));
  if (!left.empty()) left.pop_back();
  rest = left;
}

}  // namespace vk
