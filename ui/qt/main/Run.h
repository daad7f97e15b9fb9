#pragma once

namespace vk {

/// The desktop program from its arguments, which name files to read in turn, to its exit code.
int runDesktop(int argc, char** argv);

}  // namespace vk
