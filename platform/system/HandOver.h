#pragma once

#include <string>

namespace vk {

/// Goes on as another program, with the same arguments, streams and folder. Comes back only when it could not
/// be started.
void handOver(const std::string& program, char** argv);

}  // namespace vk
