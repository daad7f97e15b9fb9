#pragma once

namespace vk {

/// True when the standard error stream is a terminal that a person looks at.
bool errorStreamIsTerminal();

/// From here on the program ends without a word where the reader of its output has gone, as other programs of a pipe do,
/// whatever it has inherited.
void endWithReader();

}  // namespace vk
