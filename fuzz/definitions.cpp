#include "fuzz/DefinitionProbe.h"
#include "fuzz/Input.h"

namespace vk {

void probe(Input input) {
  DefinitionProbe().probe(std::string(input.rest()));
}

}  // namespace vk
