#pragma once

#include <limits>
#include <string>
#include <vector>

namespace vk {

/// The number of an option. Raises `UsageError` for another text, and for a number beyond `most` on either side.
double parseNumber(const char* option, const std::string& text,
                   double most = std::numeric_limits<double>::max());

/// False for a text that would not count as one name in a list of names.
bool isOneName(const std::string& name);

/// What stands before and behind the "=" of a word, as it was typed.
struct NamedText {
  std::string name;
  std::string text;
};

/// Raises `UsageError`, which tells what is expected, where the "=" is missing or the name is none or more than one.
NamedText parseNamedText(const std::string& argument, const char* expected);

/// "name=value" of a command line.
struct Assignment {
  std::string name;  ///< code page 437
  double value = 0;
};

/// Raises `UsageError` for a second value of a name of code page 437.
[[noreturn]] void refuseSecondValue(const std::string& name);

/// Raises `UsageError` where the "=" is missing, the name is none or more than one, or the value is no number.
Assignment parseAssignment(const std::string& argument);
/// The same for each of the arguments; no name may come twice.
std::vector<Assignment> parseAssignments(const std::vector<std::string>& arguments);

}  // namespace vk
