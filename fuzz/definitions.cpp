#include <cstdint>

#include "fuzz/DefinitionProbe.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  vk::DefinitionProbe().probe(std::string(reinterpret_cast<const char*>(data), size));
  return 0;
}
