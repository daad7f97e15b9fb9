#include "batch/Assignment.h"

#include <algorithm>
#include <cmath>

#include "base/NumberText.h"
#include "base/Text.h"
#include "batch/TerminalPorts.h"

namespace vk {
namespace {

constexpr const char* kAssignment = "NOME=NUMERO";

UsageError notExpected(const std::string& argument, const char* expected) {
  return UsageError("\"" + argument + "\": si attende " + expected);
}

}  // namespace

double parseNumber(const char* option, const std::string& text, double most) {
  const double value = numberIn(text).value_or(HUGE_VAL);
  if (std::abs(value) <= most) return value;
  throw UsageError(std::string(option) + " \"" + text + "\": si attende un numero");
}

// The compiler gets the names in such a list.
bool isOneName(const std::string& name) {
  return !name.empty() && name.find_first_of(" ,@") == std::string::npos;
}

NamedText parseNamedText(const std::string& argument, const char* expected) {
  const int equals = position(argument, "=");
  NamedText result{trim(left(argument, equals - 1)), trim(mid(argument, equals + 1))};
  if (equals == 0 || !isOneName(result.name)) throw notExpected(argument, expected);
  return result;
}

void refuseSecondValue(const std::string& name) {
  throw UsageError(terminalText(name) + ": valore dato piu` di una volta");
}

Assignment parseAssignment(const std::string& argument) {
  const auto [name, text] = parseNamedText(argument, kAssignment);
  const auto value = numberIn(text);
  if (!value) throw notExpected(argument, kAssignment);
  return {textOfWord(name), *value};
}

std::vector<Assignment> parseAssignments(const std::vector<std::string>& arguments) {
  std::vector<Assignment> result;
  for (const std::string& argument : arguments) {
    const Assignment next = parseAssignment(argument);
    const auto same = [&](const Assignment& before) { return before.name == next.name; };
    if (std::ranges::any_of(result, same)) refuseSecondValue(next.name);
    result.push_back(next);
  }
  return result;
}

}  // namespace vk
