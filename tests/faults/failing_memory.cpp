// SPDX-License-Identifier: Apache-2.0
//
// operator new, failing, and the matching operator delete.

#include "tests/faults/failing_memory.h"

#include <cstdlib>
#include <new>

namespace velto::testing {

namespace {

thread_local std::size_t failingNumber = 0;  // 0 for none
thread_local std::size_t count = 0;
thread_local int shelters = 0;
thread_local bool hasThrownAtLast = false;

bool isToFail(bool throws) {
  if (failingNumber == 0 || shelters > 0 || ++count != failingNumber) {
    return false;
  }
  hasThrownAtLast = throws;
  return true;
}

void* allocate(std::size_t size, bool throws) {
  return isToFail(throws) ? nullptr : std::malloc(size);
}

void* allocateAligned(std::size_t size, std::align_val_t alignment, bool throws) {
  const auto step = static_cast<std::size_t>(alignment);
  // The size has to be a multiple of the alignment.
  return isToFail(throws) ? nullptr : std::aligned_alloc(step, (size + step - 1) / step * step);
}

void* orThrow(void* block) {
  if (block == nullptr) {
    throw std::bad_alloc();
  }
  return block;
}

}  // namespace

MemoryFault::MemoryFault(std::size_t nth) {
  failingNumber = nth;
  count = 0;
  hasThrownAtLast = false;
}

MemoryFault::~MemoryFault() { failingNumber = 0; }

bool MemoryFault::hasHappened() { return count >= failingNumber; }

bool MemoryFault::hasThrown() { return hasThrownAtLast; }

Shelter::Shelter(bool isClosed) : isClosed_(isClosed) { shelters += isClosed_ ? 1 : 0; }

Shelter::~Shelter() { shelters -= isClosed_ ? 1 : 0; }

}  // namespace velto::testing

using velto::testing::allocate;
using velto::testing::allocateAligned;
using velto::testing::orThrow;

// A size of 0 asks for a block of its own as well.
void* operator new(std::size_t size) { return orThrow(allocate(size + (size == 0), true)); }
void* operator new[](std::size_t size) { return orThrow(allocate(size + (size == 0), true)); }
void* operator new(std::size_t size, const std::nothrow_t&) noexcept {
  return allocate(size + (size == 0), false);
}
void* operator new[](std::size_t size, const std::nothrow_t&) noexcept {
  return allocate(size + (size == 0), false);
}
void* operator new(std::size_t size, std::align_val_t alignment) {
  return orThrow(allocateAligned(size, alignment, true));
}
void* operator new[](std::size_t size, std::align_val_t alignment) {
  return orThrow(allocateAligned(size, alignment, true));
}
void* operator new(std::size_t size, std::align_val_t alignment, const std::nothrow_t&) noexcept {
  return allocateAligned(size, alignment, false);
}
void* operator new[](std::size_t size, std::align_val_t alignment, const std::nothrow_t&) noexcept {
  return allocateAligned(size, alignment, false);
}

void operator delete(void* block) noexcept { std::free(block); }
void operator delete[](void* block) noexcept { std::free(block); }
void operator delete(void* block, std::size_t) noexcept { std::free(block); }
void operator delete[](void* block, std::size_t) noexcept { std::free(block); }
void operator delete(void* block, const std::nothrow_t&) noexcept { std::free(block); }
void operator delete[](void* block, const std::nothrow_t&) noexcept { std::free(block); }
void operator delete(void* block, std::align_val_t) noexcept { std::free(block); }
void operator delete[](void* block, std::align_val_t) noexcept { std::free(block); }
void operator delete(void* block, std::size_t, std::align_val_t) noexcept { std::free(block); }
void operator delete[](void* block, std::size_t, std::align_val_t) noexcept { std::free(block); }
void operator delete(void* block, std::align_val_t, const std::nothrow_t&) noexcept {
  std::free(block);
}
void operator delete[](void* block, std::align_val_t, const std::nothrow_t&) noexcept {
  std::free(block);
}
