#pragma once

#include <CLI/CLI.hpp>
#include <string>

namespace vk {

/// Gives a reader of command lines the words of this program; before anything is added to it.
void speakItalian(CLI::App& app);

/// Puts a command of that reader and its options under the headings of the help.
void nameGroups(CLI::App& command);

/// What is told of words that the reader has refused: unknown commands and options with the nearest known one, before
/// anything else. The last line names the help.
std::string complaintAbout(const CLI::App& app, const CLI::ParseError& error);

}  // namespace vk
