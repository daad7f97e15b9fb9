#include "platform/system/HandOver.h"

#include <unistd.h>

namespace vk {

void handOver(const std::string& program, char** argv) {
  ::execv(program.c_str(), argv);
}

}  // namespace vk
