#include "batch/Assignment.h"

#include <algorithm>
#include <cmath>

#include "base/NumberText.h"
#include "base/Text.h"
#include "batch/TerminalPorts.h"

namespace vk {
namespace {

/// The compiler gets the names in one list: each must count as one there.
bool isOneName(const std::string& name) {
  return !name.empty() && name.find_first_of(" ,@") == std::string::npos;
}

}  // namespace

double parseNumber(const char* option, const std::string& text, double most) {
  const double value = numberIn(text).value_or(HUGE_VAL);
  if (std::abs(value) <= most) return value;
  throw UsageError(std::string(option) + " \"" + text + "\": si attende un numero");
}

Assignment parseAssignment(const std::string& argument) {
  const int equals = position(argument, "=");
  const std::string name = trim(left(argument, equals - 1));
  const auto value = numberIn(trim(mid(argument, equals + 1)));
  if (equals == 0 || !isOneName(name) || !value) {
    throw UsageError("\"" + argument + "\": si attende NOME=NUMERO");
  }
  return {textOfWord(name), *value};
}

std::vector<Assignment> parseAssignments(const std::vector<std::string>& arguments) {
  std::vector<Assignment> result;
  for (const std::string& argument : arguments) {
    const Assignment next = parseAssignment(argument);
    const auto same = [&](const Assignment& before) { return before.name == next.name; };
    if (std::ranges::any_of(result, same))
      throw UsageError(terminalText(next.name) + ": valore dato piu` di una volta");
    result.push_back(next);
  }
  return result;
}

}  // namespace vk
