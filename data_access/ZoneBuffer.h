// SPDX-License-Identifier: Apache-2.0
//
// ZoneBuffer: room for the data of one zone, out of memory that all zones of a walk share.

#ifndef VELTO_DATA_ACCESS_ZONE_BUFFER_H
#define VELTO_DATA_ACCESS_ZONE_BUFFER_H

#include <algorithm>
#include <cstddef>
#include <limits>
#include <memory>
#include <new>
#include <type_traits>

namespace velto {

/// The memory of one walk over zones. It is as large as the largest list of a zone so far: to take
/// fresh memory for each list costs more than to read the list.
class ZoneMemory {
 public:
  /// At least `size` bytes, whose content is not defined; what was handed out before is void.
  /// Throws std::bad_alloc.
  void* take(std::size_t size) {
    if (size > size_) {
      memory_.reset();
      size_ = 0;
      // NOLINTNEXTLINE(modernize-make-unique): that would fill it with zeros.
      memory_.reset(new std::max_align_t[size / sizeof(std::max_align_t) + 1]);
      size_ = size;
    }
    return memory_.get();
  }

 private:
  std::unique_ptr<std::max_align_t[]> memory_;
  std::size_t size_ = 0;
};

/// Values that are all zero until they are read over. The next buffer on the same memory ends it.
template <class Value>
class ZoneBuffer {
 public:
  /// Throws std::bad_alloc for a size that cannot be had, such as a list length that wrapped.
  ZoneBuffer(ZoneMemory& memory, std::size_t size) : size_(size) {
    static_assert(std::is_arithmetic_v<Value>);
    if (size > std::numeric_limits<std::size_t>::max() / 2 / sizeof(Value)) {
      throw std::bad_alloc();
    }
    if (size != 0) {
      values_ = static_cast<Value*>(memory.take(size * sizeof(Value)));
      std::fill_n(values_, size, Value{});
    }
  }

  /// Null if there is no value.
  Value* data() { return values_; }
  /// Number of values, as the constructor was told.
  std::size_t size() const { return size_; }

 private:
  std::size_t size_;
  Value* values_ = nullptr;
};

}  // namespace velto

#endif  // VELTO_DATA_ACCESS_ZONE_BUFFER_H
