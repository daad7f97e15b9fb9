#pragma once

#include <ostream>

#include "commands/CommandTable.h"

namespace vk {

/// Failures name controls by their names.
inline std::ostream& operator<<(std::ostream& out, Control control) {
  return out << commandOf(control).name;
}

}  // namespace vk
