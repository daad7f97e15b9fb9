#include "tests/base/OptimisedGuard.h"

#include "base/Guard.h"

namespace vk {
namespace {

[[gnu::noinline]] Int16 numberAt(const Array<Int16>& numbers, int index) {
  return numbers[index];
}

}  // namespace

int numberOr(const Array<Int16>& numbers, int index, Int16 before) {
  Int16 number = before;
  guard([&] { number = numberAt(numbers, index); });
  return number;
}

}  // namespace vk
