// SPDX-License-Identifier: Apache-2.0
//
// The program's operator new: large blocks get huge pages. A copy fills a block of a hundred
// megabytes once for each array, and taking it in small pages costs more than reading it.

#include <cstdint>
#include <cstdlib>
#include <new>
#include <sys/mman.h>

namespace {

constexpr std::size_t kHugePage = std::size_t{2} << 20;
constexpr std::size_t kLarge = kHugePage / 2;

void* allocate(std::size_t size) {
  if (size < kLarge || size > SIZE_MAX - kHugePage) {
    return std::malloc(size == 0 ? 1 : size);
  }
  const std::size_t whole = (size + kHugePage - 1) / kHugePage * kHugePage;
  void* block = std::aligned_alloc(kHugePage, whole);
  if (block != nullptr) {
    madvise(block, whole, MADV_HUGEPAGE);  // what the system makes of it changes nothing but speed
  }
  return block;
}

}  // namespace

void* operator new(std::size_t size) {
  while (true) {
    if (void* block = allocate(size)) {
      return block;
    }
    const std::new_handler handler = std::get_new_handler();
    if (handler == nullptr) {
      throw std::bad_alloc();
    }
    handler();
  }
}

void operator delete(void* block) noexcept { std::free(block); }
void operator delete(void* block, std::size_t) noexcept { std::free(block); }
