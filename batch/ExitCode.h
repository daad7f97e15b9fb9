#pragma once

#include <functional>
#include <string>

namespace vk {

/// Runs a command and gives its exit code. What it throws is told on the error stream: a `UsageError` as it
/// stands, anything else in one line behind the name of the command. So is an output that could not be written.
/// `command` is read after the run, which may name it.
int exitCodeOf(const std::string& command, const std::function<int()>& run);

}  // namespace vk
