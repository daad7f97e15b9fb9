#pragma once

#include "base/RuntimeError.h"

namespace vk {

/// What the program says of a file that this user may not open.
inline constexpr const char* kAccessDenied = "accesso negato";

/// What it says of a folder in the place of a file.
inline constexpr const char* kIsFolder = "e` una cartella";

/// The run-time error for an error number of the system, as a write gives it.
RuntimeError systemError(int error);

}  // namespace vk
