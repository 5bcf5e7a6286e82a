// SPDX-License-Identifier: Apache-2.0
//
// Slice: a run of values that keeps what it lies in alive.

#ifndef VELTO_EMBEDDED_MEMORY_SLICE_H
#define VELTO_EMBEDDED_MEMORY_SLICE_H

#include <algorithm>
#include <cstddef>
#include <memory>
#include <utility>
#include <vector>

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

  const Value* data() const { return data_; }
  std::size_t size() const { return size_; }
  const Value* begin() const { return data_; }
  const Value* end() const { return data_ + size_; }

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

}  // namespace velto::memory

#endif  // VELTO_EMBEDDED_MEMORY_SLICE_H
