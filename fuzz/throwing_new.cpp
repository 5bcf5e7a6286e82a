// SPDX-License-Identifier: Apache-2.0
//
// Allocation that throws where a claim is too large. The address sanitizer's own ends the program.

#include <cstddef>
#include <cstdlib>
#include <new>

namespace {

/// More than any case of a few hundred bytes needs.
constexpr std::size_t kMost = std::size_t{256} << 20U;

void* tryToAllocate(std::size_t size) {
  return size > kMost ? nullptr : std::malloc(size == 0 ? 1 : size);
}

void* allocate(std::size_t size) {
  void* const memory = tryToAllocate(size);
  if (memory == nullptr) {
    throw std::bad_alloc();
  }
  return memory;
}

}  // namespace

void* operator new(std::size_t size) { return allocate(size); }
void* operator new[](std::size_t size) { return allocate(size); }
void* operator new(std::size_t size, const std::nothrow_t& /*tag*/) noexcept {
  return tryToAllocate(size);
}
void* operator new[](std::size_t size, const std::nothrow_t& /*tag*/) noexcept {
  return tryToAllocate(size);
}
void operator delete(void* memory) noexcept { std::free(memory); }
void operator delete[](void* memory) noexcept { std::free(memory); }
void operator delete(void* memory, const std::nothrow_t& /*tag*/) noexcept { std::free(memory); }
void operator delete[](void* memory, const std::nothrow_t& /*tag*/) noexcept { std::free(memory); }
void operator delete(void* memory, std::size_t /*size*/) noexcept { std::free(memory); }
void operator delete[](void* memory, std::size_t /*size*/) noexcept { std::free(memory); }
