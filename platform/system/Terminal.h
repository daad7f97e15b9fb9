#pragma once

namespace vk {

/// True when the standard error stream is a terminal that a person looks at.
bool errorStreamIsTerminal();

}  // namespace vk
