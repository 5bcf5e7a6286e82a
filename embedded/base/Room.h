// SPDX-License-Identifier: Apache-2.0
//
// Room: memory for the values of one zone after the other.

#ifndef VELTO_EMBEDDED_BASE_ROOM_H
#define VELTO_EMBEDDED_BASE_ROOM_H

#include <cstddef>
#include <memory>

namespace velto::base {

/// Memory that is used again and never cleared.
template <class Value>
class Room {
 public:
  /// Place for `n` values, which hold nothing yet; what it held before is void.
  Value* take(std::size_t n) {
    if (n > size_) {
      release();
      values_.reset(new Value[n]);  // NOLINT(modernize-make-unique): that would fill it with zeros.
      size_ = n;
    }
    return values_.get();
  }

  /// Gives the memory back.
  void release() {
    values_.reset();
    size_ = 0;
  }

 private:
  std::unique_ptr<Value[]> values_;
  std::size_t size_ = 0;
};

}  // namespace velto::base

#endif  // VELTO_EMBEDDED_BASE_ROOM_H
