// SPDX-License-Identifier: Apache-2.0
//
// ZoneBuffer: room for the data of one zone.

#ifndef VELTO_COPIER_ZONE_BUFFER_H
#define VELTO_COPIER_ZONE_BUFFER_H

#include <cstddef>
#include <vector>

namespace velto {

/// Values that are all zero until they are read over.
template <class Value>
class ZoneBuffer {
 public:
  /// Throws what the allocator throws for a size that cannot be had, such as a list length that
  /// wrapped.
  explicit ZoneBuffer(std::size_t size) : values_(size) {}

  /// Null if there is no value.
  Value* data() { return values_.empty() ? nullptr : values_.data(); }
  std::size_t size() const { return values_.size(); }

 private:
  std::vector<Value> values_;
};

}  // namespace velto

#endif  // VELTO_COPIER_ZONE_BUFFER_H
