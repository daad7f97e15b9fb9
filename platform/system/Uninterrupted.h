#pragma once

#include <cerrno>

namespace vk {

/// Makes a call of the system, again and again while a signal breaks it off. `call` gives -1, with `errno`, where it
/// fails.
template <class Call>
auto uninterrupted(const Call& call) {
  auto result = call();
  while (result == -1 && errno == EINTR) result = call();
  return result;
}

}  // namespace vk
