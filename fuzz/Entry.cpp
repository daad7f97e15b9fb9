#include <cstddef>
#include <cstdint>

#include "fuzz/Input.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  vk::probe({data, size});
  return 0;
}
