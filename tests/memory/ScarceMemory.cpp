#include "memory/ScarceMemory.h"

#include <dlfcn.h>
#include <execinfo.h>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <exception>
#include <new>

namespace {

// Of the thread that asks.
thread_local vk::MemoryFault presentFault{};
thread_local long countedRequests = 0;
thread_local bool requestFailed = false;

const void* imageOf(const void* code) {
  Dl_info image{};
  return dladdr(code, &image) != 0 ? image.dli_fbase : nullptr;
}

/// True when the program itself asks for memory, be it by the standard library. `caller`: where "new" returns to.
bool programAsks(const void* caller) {
  static const int here = 0;
  static const void* const standard = imageOf(reinterpret_cast<const void*>(&std::terminate));
  std::array<void*, 32> calls{};
  const auto end = calls.begin() + backtrace(calls.data(), static_cast<int>(calls.size()));
  const auto outside = std::find_if(std::find(calls.begin(), end, caller), end,
                                    [](const void* call) { return imageOf(call) != standard; });
  return outside != end && imageOf(*outside) == imageOf(&here);
}

bool fails(std::size_t size, const void* caller) {
  if (size < presentFault.least || (presentFault.own && !programAsks(caller))) return false;
  ++countedRequests;
  if (presentFault.request == 0 || countedRequests < presentFault.request ||
      (!presentFault.lasts && countedRequests > presentFault.request))
    return false;
  return requestFailed = true;
}

/// All memory of the test program comes from here; null where a request fails.
void* memoryFor(std::size_t size, const void* caller) {
  return fails(size, caller) ? nullptr : std::malloc(std::max<std::size_t>(size, 1));
}

void* memoryOrError(std::size_t size, const void* caller) {
  void* memory = memoryFor(size, caller);
  if (memory == nullptr) throw std::bad_alloc();
  return memory;
}

}  // namespace

void* operator new(std::size_t size, const std::nothrow_t&) noexcept {
  return memoryFor(size, __builtin_return_address(0));
}

void* operator new(std::size_t size) {
  return memoryOrError(size, __builtin_return_address(0));
}

void* operator new[](std::size_t size) {
  return memoryOrError(size, __builtin_return_address(0));
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

ScarceMemory::ScarceMemory(const MemoryFault& wanted) {
  countedRequests = 0;
  requestFailed = false;
  presentFault = wanted;
}

ScarceMemory::~ScarceMemory() {
  presentFault = {};
}

long ScarceMemory::requests() const {
  return countedRequests;
}

bool ScarceMemory::failed() const {
  return requestFailed;
}

}  // namespace vk
