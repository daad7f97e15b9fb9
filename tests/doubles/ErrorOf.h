#pragma once

#include "base/RuntimeError.h"

namespace vk {

/// The number of the run-time error that a statement raises; 0 when it raises none.
template <class Statement>
int errorOf(Statement&& statement) {
  try {
    statement();
  } catch (const RuntimeError& error) {
    return error.number();
  }
  return 0;
}

}  // namespace vk
