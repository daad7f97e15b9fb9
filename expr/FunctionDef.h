#pragma once

#include <string>

#include "base/Int16.h"

namespace vk {

/// The choice of the current model function f[g(x)].
struct FunctionDef {
  Int16 InnerIndex;          ///< g in the catalogue, from 1; 0 when no function is set
  Int16 OuterIndex;          ///< f in the catalogue, from 1
  std::string FunctionText;  ///< display text, code page 437
};

/// Characters of a name in a field of parameter names, where it stands at the right.
inline constexpr int kNameSlot = 5;

}  // namespace vk
