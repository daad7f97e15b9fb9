#include "data/PeakMemory.h"

#include <malloc.h>

#include <algorithm>
#include <cstdlib>
#include <new>

namespace {

std::size_t heldMemory = 0;
std::size_t mostMemoryHeld = 0;

}  // namespace

/// All memory of this test program comes from here; nothing in it runs side by side.
void* operator new(std::size_t size) {
  void* memory = std::malloc(std::max<std::size_t>(size, 1));
  if (memory == nullptr) throw std::bad_alloc();
  heldMemory += malloc_usable_size(memory);
  mostMemoryHeld = std::max(mostMemoryHeld, heldMemory);
  return memory;
}

void operator delete(void* memory) noexcept {
  if (memory != nullptr) heldMemory -= malloc_usable_size(memory);
  std::free(memory);
}

void operator delete(void* memory, std::size_t) noexcept {
  operator delete(memory);
}

namespace vk {

PeakMemory::PeakMemory() : start_(heldMemory) {
  mostMemoryHeld = heldMemory;
}

std::size_t PeakMemory::bytes() const {
  return mostMemoryHeld - start_;
}

}  // namespace vk
