// SPDX-License-Identifier: Apache-2.0
//
// Slice: a run of values that keeps what it lies in alive.

#ifndef VELTO_EMBEDDED_MEMORY_SLICE_H
#define VELTO_EMBEDDED_MEMORY_SLICE_H

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <utility>
#include <vector>

#include "embedded/memory/IdList.h"

namespace velto::memory {

/// Values of one zone: a vector of its own, or a part of one that several zones share. Copies share
/// the values, which are not changed any more.
template <class Value>
class Slice {
 public:
  Slice() = default;

  /// Takes over a vector.
  explicit Slice(std::vector<Value> values)
      : Slice(std::make_shared<const std::vector<Value>>(std::move(values))) {}

  /// All of a shared vector.
  explicit Slice(std::shared_ptr<const std::vector<Value>> owner)
      : owner_(std::move(owner)), data_(owner_->data()), size_(owner_->size()) {}

  /// The part of a shared vector that begins at `first` and has `size` values; where the vector
  /// ends earlier, so does the slice.
  Slice(std::shared_ptr<const std::vector<Value>> owner, std::size_t first, std::size_t size)
      : owner_(std::move(owner)) {
    const std::size_t begin = std::min(first, owner_->size());
    data_ = owner_->data() + begin;
    size_ = std::min(size, owner_->size() - begin);
  }

  /// @name Values
  /// @{

  /// The values, one after the other; valid as long as any copy of the slice.
  const Value* data() const { return data_; }
  /// Number of values.
  std::size_t size() const { return size_; }
  /// The first value.
  const Value* begin() const { return data_; }
  /// Behind the last value.
  const Value* end() const { return data_ + size_; }

  /// @}

  /// Copies at most `n` values; returns how many.
  std::size_t copyTo(Value* values, std::size_t n) const {
    const std::size_t copied = std::min(n, size_);
    std::copy_n(data_, copied, values);
    return copied;
  }

 private:
  std::shared_ptr<const std::vector<Value>> owner_;
  const Value* data_ = nullptr;
  std::size_t size_ = 0;
};

/// Ids of one zone. They stand in 32 or in 64 bits each, as their owner holds them.
template <>
class Slice<std::uint64_t> {
 public:
  Slice() = default;

  /// Takes over a vector.
  explicit Slice(std::vector<std::uint64_t> ids) : Slice(IdList(std::move(ids))) {}

  /// Takes over a list.
  explicit Slice(IdList ids) : Slice(std::make_shared<const IdList>(std::move(ids))) {}

  /// All of a shared list.
  explicit Slice(const std::shared_ptr<const IdList>& owner) : Slice(owner, 0, owner->size()) {}

  /// The part of a shared list that begins at `first` and has `size` ids; where the list ends
  /// earlier, so does the slice.
  Slice(std::shared_ptr<const IdList> owner, std::size_t first, std::size_t size)
      : owner_(std::move(owner)) {
    const std::size_t begin = std::min(first, owner_->size());
    size_ = std::min(size, owner_->size() - begin);
    owner_->visit([&](const auto* ids, std::size_t) { pointTo(ids + begin); });
  }

  /// The ids where they stand in 64 bits, else null.
  const std::uint64_t* data() const { return wide_; }
  /// The ids where they stand in 32 bits, else null.
  const std::uint32_t* narrow() const { return narrow_; }
  /// Number of ids.
  std::size_t size() const { return size_; }
  /// The id at a place below size().
  std::uint64_t operator[](std::size_t place) const {
    return narrow_ != nullptr ? narrow_[place] : wide_[place];
  }
  /// The first id.
  IdIterator<Slice> begin() const { return {*this, 0}; }
  /// Behind the last id.
  IdIterator<Slice> end() const { return {*this, size_}; }

  /// Copies at most `n` ids; returns how many.
  std::size_t copyTo(std::uint64_t* ids, std::size_t n) const {
    const std::size_t copied = std::min(n, size_);
    if (narrow_ != nullptr) {
      std::copy_n(narrow_, copied, ids);
    } else {
      std::copy_n(wide_, copied, ids);
    }
    return copied;
  }

 private:
  void pointTo(const std::uint64_t* ids) { wide_ = ids; }
  void pointTo(const std::uint32_t* ids) { narrow_ = ids; }

  std::shared_ptr<const IdList> owner_;
  const std::uint64_t* wide_ = nullptr;
  const std::uint32_t* narrow_ = nullptr;
  std::size_t size_ = 0;
};

}  // namespace velto::memory

#endif  // VELTO_EMBEDDED_MEMORY_SLICE_H
