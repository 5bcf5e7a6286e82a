// SPDX-License-Identifier: Apache-2.0
//
// ElementReader: one value an element, served by element id from the one zone that was read last.

#ifndef VELTO_EMBEDDED_BASE_ELEMENT_READER_H
#define VELTO_EMBEDDED_BASE_ELEMENT_READER_H

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <utility>
#include <vector>

namespace velto::base {

/// The values of a zone's elements: borrowed from their owner, held in `buffer` where they had to
/// be read, or one value for all of them.
template <class Value>
struct ZoneValues {
  const Value* data = nullptr;
  const std::uint32_t* narrow = nullptr;  ///< In place of `data` where they stand in 32 bits.
  std::size_t size = 0;
  std::vector<Value> buffer;
  std::optional<Value> uniform;
};

/// The id range that a listed zone claims.
struct ZoneRange {
  int zone = 0;
  std::uint64_t first = 0;
  std::uint64_t last = 0;
};

/// Answers for element ids in the order in which callers walk, zone by zone, with one subtraction
/// and one comparison each; a step into another zone costs a binary search and a load.
template <class Value>
class ElementReader {
 public:
  /// Fetches the values of a zone into the given place.
  using Load = std::function<void(int zone, ZoneValues<Value>&)>;

  void open(std::vector<ZoneRange> ranges, Load load) {
    ranges_ = std::move(ranges);
    load_ = std::move(load);
    std::stable_sort(ranges_.begin(), ranges_.end(),
                     [](const ZoneRange& a, const ZoneRange& b) { return a.first < b.first; });
    reach_.clear();
    std::uint64_t reach = 0;
    for (const ZoneRange& range : ranges_) {
      reach = std::max(reach, range.last);
      reach_.push_back(reach);
    }
    forgetZone();
  }

  void close() {
    ranges_.clear();
    reach_.clear();
    forgetZone();
    values_ = {};
  }

  /// The value of an element, Value{} if no listed zone holds it.
  Value get(std::uint64_t id) {
    const std::uint64_t position = id - first_;
    if (position < size_) {
      return at(position);
    }
    return getFromAnotherZone(id);
  }

 private:
  void forgetZone() {
    first_ = 0;
    size_ = 0;
  }

  Value getFromAnotherZone(std::uint64_t id) {
    const auto after =
        std::upper_bound(ranges_.begin(), ranges_.end(), id,
                         [](std::uint64_t wanted, const ZoneRange& r) { return wanted < r.first; });
    for (auto next = static_cast<std::size_t>(after - ranges_.begin()); next > 0; --next) {
      const std::size_t candidate = next - 1;
      if (reach_[candidate] < id) {
        break;
      }
      if (ranges_[candidate].last >= id) {
        return loadAndGet(ranges_[candidate], id);
      }
    }
    return Value{};
  }

  Value loadAndGet(const ZoneRange& range, std::uint64_t id) {
    forgetZone();
    values_.data = nullptr;
    values_.narrow = nullptr;
    values_.size = 0;
    values_.uniform.reset();
    load_(range.zone, values_);
    if (values_.uniform) {
      return *values_.uniform;
    }
    first_ = range.first;
    // A zone may hold more values than its range has ids; those belong to nobody.
    const std::uint64_t behindFirst = range.last - range.first;
    size_ = behindFirst < values_.size ? static_cast<std::size_t>(behindFirst) + 1 : values_.size;
    const std::uint64_t position = id - first_;
    return position < size_ ? at(position) : Value{};
  }

  Value at(std::uint64_t position) const {
    return values_.narrow != nullptr ? static_cast<Value>(values_.narrow[position])
                                     : values_.data[position];
  }

  std::vector<ZoneRange> ranges_;     // by first id
  std::vector<std::uint64_t> reach_;  // largest last id up to each range
  Load load_;
  ZoneValues<Value> values_;
  std::uint64_t first_ = 0;
  std::uint64_t size_ = 0;
};

}  // namespace velto::base

#endif  // VELTO_EMBEDDED_BASE_ELEMENT_READER_H
