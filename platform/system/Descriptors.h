#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace vk {

/// The number of the open file that the path names, as "/dev/stdout" and "/dev/fd/1" do, also through links; nothing
/// for any other path. A look at the disk that fails is an error as those of `writeSafely`: whoever took the path for
/// that of a file would write over what was printed before.
std::optional<int> descriptorOf(const std::string& path);

/// All bytes that are left of what the process has open under this number. A read that breaks off, or more than `limit`
/// bytes, is run-time error 57.
std::string readFromDescriptor(int descriptor, std::size_t limit);

/// Writes to what the process has open under this number, where it stands: what was written before and what others
/// write after stays. Errors as those of `writeSafely`.
void writeToDescriptor(int descriptor, std::string_view bytes);

}  // namespace vk
