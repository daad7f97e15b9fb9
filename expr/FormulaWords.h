#pragma once

#include <string>
#include <string_view>
#include <vector>

/// What people write in formulas elsewhere, and how it is said here.
namespace vk {

/// What to write instead of the name of a function, of another name, and of a character; empty where it is not known.
/// The case of letters does not count.
std::string functionMeantBy(std::string_view word);
std::string valueMeantBy(std::string_view word);
std::string signMeantBy(char c);

/// The names of the language's functions.
const std::vector<std::string>& functionNames();

}  // namespace vk
