#pragma once

#include <optional>

namespace vk {

/// True when the process belongs to a terminal, wherever its streams lead. A console at which a whole desktop was
/// started is none for the programs of that desktop.
bool belongsToTerminal();

/// True when the standard error stream is a terminal that a person looks at.
bool errorStreamIsTerminal();

/// How many columns the terminal behind the standard output has; nothing where it is none or does not tell.
std::optional<int> terminalColumns();

/// From here on the program ends without a word where the reader of its output has gone, as other programs of a pipe
/// do, whatever it has inherited.
void endWithReader();

}  // namespace vk
