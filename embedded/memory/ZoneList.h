// SPDX-License-Identifier: Apache-2.0
//
// ZoneList: the data of one family, zone by zone, in the order in which the family lists its zones.

#ifndef VELTO_EMBEDDED_MEMORY_ZONE_LIST_H
#define VELTO_EMBEDDED_MEMORY_ZONE_LIST_H

#include <cstddef>
#include <unordered_map>
#include <vector>

namespace velto::memory {

/// A list of zones, each with its data.
template <class Data>
class ZoneList {
 public:
  /// The ids of the zones, in the order of the list.
  const std::vector<int>& zones() const { return zones_; }

  /// The data of a zone; a zone that is not listed yet is added at the end. Throws what the
  /// allocator throws, and leaves the list as it was then.
  Data& operator[](int zone) {
    const auto found = positions_.find(zone);
    return found == positions_.end() ? add(zone) : data_[found->second];
  }

  /// The data of a zone, or null.
  const Data* find(int zone) const {
    const auto found = positions_.find(zone);
    return found == positions_.end() ? nullptr : &data_[found->second];
  }

  /// Takes a zone off the list.
  void remove(int zone) {
    ZoneList left;
    for (const int other : zones_) {
      if (other != zone) {
        left[other] = data_[positions_.at(other)];
      }
    }
    *this = left;
  }

 private:
  Data& add(int zone) {
    const std::size_t position = zones_.size();
    data_.resize(position + 1);  // there may be one that an earlier attempt left
    zones_.push_back(zone);
    try {
      positions_.emplace(zone, position);
    } catch (...) {
      zones_.pop_back();
      throw;
    }
    return data_[position];
  }

  std::vector<int> zones_;
  std::vector<Data> data_;
  std::unordered_map<int, std::size_t> positions_;
};

}  // namespace velto::memory

#endif  // VELTO_EMBEDDED_MEMORY_ZONE_LIST_H
