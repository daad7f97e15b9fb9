#pragma once

#include <string>
#include <string_view>

/// The choices that overrule a guess, as the terminal and the window call them: each has its own names, and the
/// library's messages use those of the terminal.
namespace vk {

enum class Choice { kEncoding, kSeparator, kDecimal, kHeader, kColumns, kErrors, kEvery, kAverage };

/// The caption of its field in the window.
const char* fieldOf(Choice choice);

/// A message of the library with the captions of the fields in place of the options.
std::string inWindowWords(std::string message);

/// Behind the cause of a file that an import makes readable: the way to it.
inline constexpr const char* kTerminalCure = ": vor_kel_batch import ";  // and the file
inline constexpr const char* kWindowCure = ": trascinarlo sulla finestra principale";

}  // namespace vk
