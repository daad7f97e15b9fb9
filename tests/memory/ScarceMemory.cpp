#include "memory/ScarceMemory.h"

#include <algorithm>
#include <cstdlib>
#include <new>

namespace {

long requestsLeft = 0;  // until the one that fails; from then on 0
bool requestFailed = false;

}  // namespace

/// All memory of this test program comes from here; nothing in it runs side by side.
void* operator new(std::size_t size, const std::nothrow_t&) noexcept {
  if (requestsLeft > 0 && --requestsLeft == 0) {
    requestFailed = true;
    return nullptr;
  }
  return std::malloc(std::max<std::size_t>(size, 1));
}

void* operator new(std::size_t size) {
  void* memory = operator new(size, std::nothrow);
  if (memory == nullptr) throw std::bad_alloc();
  return memory;
}

void* operator new[](std::size_t size) {
  return operator new(size);
}

void operator delete(void* memory) noexcept {
  std::free(memory);
}

void operator delete(void* memory, std::size_t) noexcept {
  std::free(memory);
}

void operator delete[](void* memory) noexcept {
  std::free(memory);
}

void operator delete[](void* memory, std::size_t) noexcept {
  std::free(memory);
}

namespace vk {

ScarceMemory::ScarceMemory(long request) {
  requestFailed = false;
  requestsLeft = request;
}

ScarceMemory::~ScarceMemory() {
  requestsLeft = 0;
}

bool ScarceMemory::failed() const {
  return requestFailed;
}

}  // namespace vk
