// SPDX-License-Identifier: Apache-2.0
//
// operator new, counting. Not for programs with threads.

#include "benchmarks/counted_memory.h"

#include <algorithm>
#include <cstdlib>
#include <malloc.h>
#include <new>

namespace velto::benchmarks {

namespace {

std::size_t allocated = 0;
std::size_t peak = 0;

}  // namespace

std::size_t allocatedBytes() { return allocated; }
std::size_t peakBytes() { return peak; }
void forgetPeak() { peak = allocated; }

}  // namespace velto::benchmarks

void* operator new(std::size_t size) {
  void* block = std::malloc(size);
  if (block == nullptr) {
    throw std::bad_alloc();
  }
  using namespace velto::benchmarks;
  allocated += malloc_usable_size(block);
  peak = std::max(peak, allocated);
  return block;
}

void operator delete(void* block) noexcept {
  velto::benchmarks::allocated -= malloc_usable_size(block);
  std::free(block);
}

void operator delete(void* block, std::size_t) noexcept { operator delete(block); }
