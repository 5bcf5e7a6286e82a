// SPDX-License-Identifier: Apache-2.0
//
// IdRange: the ids of a zone's elements, from the first to the last.

#ifndef VELTO_CHECKER_ID_RANGE_H
#define VELTO_CHECKER_ID_RANGE_H

#include <cstdint>

#include "data_access/sizes.h"

namespace velto {

/// The ids from `first` to `last`, both of them included; none if the first is above the last.
///
///     for (const std::uint64_t face : rangeOf(source, zone)) { ... }
struct IdRange {
  std::uint64_t first = 0;
  std::uint64_t last = 0;

  bool contains(std::uint64_t id) const { return id >= first && id <= last; }

  class Iterator {
   public:
    explicit Iterator(std::uint64_t id) : id_(id) {}
    std::uint64_t operator*() const { return id_; }
    Iterator& operator++() {
      ++id_;
      return *this;
    }
    bool operator!=(const Iterator& other) const { return id_ != other.id_; }

   private:
    std::uint64_t id_;
  };

  // Kept harmless: the end wraps to 0 behind the largest id, so that such a range ends as well.
  Iterator begin() const { return Iterator(first); }
  Iterator end() const { return Iterator(first > last ? first : last + 1); }
};

/// The range that a zone of the selected mesh claims.
inline IdRange rangeOf(const OrvBase& source, int zone) {
  return {zoneSizeOf(source, zone, zoneFirstId), zoneSizeOf(source, zone, zoneLastId)};
}

}  // namespace velto

#endif  // VELTO_CHECKER_ID_RANGE_H
