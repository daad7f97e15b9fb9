#include "session/ParameterSet.h"

#include "base/Text.h"

namespace vk {
namespace {

constexpr int kFirstParameters = 5;
// Slots before the first parameter: the dependent and the independent variable.
constexpr int kSlotsBefore = 2;

}  // namespace

ParameterSet::ParameterSet() : ParValues(kFirstParameters), ParDeltas(kFirstParameters) {
  FreeValues.dim(kFirstParameters + 1);
  FreeSteps.dim(kFirstParameters + 1);
  FreeIndex.dim(kFirstParameters + 1);
}

std::string ParameterSet::name(int i) const {
  return trim(mid(ParNames, (i - 1 + kSlotsBefore) * kNameSlot + 1, kNameSlot));
}

}  // namespace vk
