#include "batch/Assignment.h"

#include "base/NumberText.h"
#include "base/Text.h"
#include "batch/TerminalPorts.h"

namespace vk {

Assignment parseAssignment(const std::string& argument) {
  const int equals = position(argument, "=");
  const std::string name = trim(left(argument, equals - 1));
  const std::string text = trim(mid(argument, equals + 1));
  if (equals == 0 || name.empty() || !isNumeric(text)) {
    throw UsageError("\"" + argument + "\": si attende NOME=NUMERO");
  }
  return {name, text, scanNumber(text)};
}

std::vector<Assignment> parseAssignments(const std::vector<std::string>& arguments) {
  std::vector<Assignment> result;
  for (const std::string& argument : arguments) result.push_back(parseAssignment(argument));
  return result;
}

}  // namespace vk
