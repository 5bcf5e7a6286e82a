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

#include "embedded/base/Room.h"

namespace velto::base {

/// The values of a zone's elements: borrowed from their owner, in their own type or in 32 bits,
/// held in a room where they had to be read, or one value for all of them.
template <class Value>
struct ZoneValues {
  const Value* data = nullptr;
  const std::uint32_t* narrow = nullptr;  ///< In place of `data`.
  std::size_t size = 0;
  std::optional<Value> uniform;

  Room<Value> room;
  Room<std::uint32_t> narrowRoom;
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
  /// Fetches the values of a zone into the given place; none if it cannot be read, which is not
  /// tried again for each of its elements. False if it has to be, since there is no such zone now.
  using Load = std::function<bool(int zone, ZoneValues<Value>&)>;

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
      return data_[position];
    }
    if (position < narrowSize_) {
      return static_cast<Value>(narrow_[position]);
    }
    return getFromAnotherZone(id);
  }

 private:
  static constexpr std::size_t kNoRange = static_cast<std::size_t>(-1);

  void forgetZone() {
    size_ = 0;
    narrowSize_ = 0;
    held_ = kNoRange;
  }

  /// Apart from get(), which would save registers for it in each call.
  [[gnu::noinline]] Value getFromAnotherZone(std::uint64_t id) {
    const auto after =
        std::upper_bound(ranges_.begin(), ranges_.end(), id,
                         [](std::uint64_t wanted, const ZoneRange& r) { return wanted < r.first; });
    for (auto next = static_cast<std::size_t>(after - ranges_.begin()); next > 0; --next) {
      const std::size_t candidate = next - 1;
      if (reach_[candidate] < id) {
        break;
      }
      if (ranges_[candidate].last >= id) {
        return candidate == held_ ? values_.uniform.value_or(Value{}) : loadAndGet(candidate, id);
      }
    }
    return Value{};
  }

  Value loadAndGet(std::size_t candidate, std::uint64_t id) {
    const ZoneRange& range = ranges_[candidate];
    forgetZone();
    values_.data = nullptr;
    values_.narrow = nullptr;
    values_.size = 0;
    values_.uniform.reset();
    if (!load_(range.zone, values_)) {
      return Value{};
    }
    held_ = candidate;
    if (values_.uniform) {
      return *values_.uniform;
    }
    first_ = range.first;
    data_ = values_.data;
    narrow_ = values_.narrow;
    // A zone may hold more values than its range has ids; those belong to nobody.
    const std::uint64_t behindFirst = range.last - range.first;
    const std::size_t size =
        behindFirst < values_.size ? static_cast<std::size_t>(behindFirst) + 1 : values_.size;
    (narrow_ == nullptr ? size_ : narrowSize_) = size;
    const std::uint64_t position = id - first_;
    if (position >= size) {
      return Value{};
    }
    return narrow_ == nullptr ? data_[position] : static_cast<Value>(narrow_[position]);
  }

  // Of the zone that was read last; one of the sizes is 0.
  std::uint64_t first_ = 0;
  std::uint64_t size_ = 0;
  std::uint64_t narrowSize_ = 0;
  const Value* data_ = nullptr;
  const std::uint32_t* narrow_ = nullptr;

  std::size_t held_ = kNoRange;       // which of the ranges that zone has
  std::vector<ZoneRange> ranges_;     // by first id
  std::vector<std::uint64_t> reach_;  // largest last id up to each range
  Load load_;
  ZoneValues<Value> values_;
};

}  // namespace velto::base

#endif  // VELTO_EMBEDDED_BASE_ELEMENT_READER_H
