// SPDX-License-Identifier: Apache-2.0
//
// IdList: a list of ids that takes 32 bits for each as long as all of them fit.

#ifndef VELTO_EMBEDDED_MEMORY_ID_LIST_H
#define VELTO_EMBEDDED_MEMORY_ID_LIST_H

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <iterator>
#include <limits>
#include <utility>
#include <vector>

namespace velto::memory {

/// Walks over a list by place and gives ids by value, since the list may hold them in fewer bits.
template <class List>
class IdIterator {
 public:
  using iterator_category = std::random_access_iterator_tag;
  using value_type = std::uint64_t;
  using difference_type = std::ptrdiff_t;
  using pointer = const std::uint64_t*;
  using reference = std::uint64_t;

  IdIterator() = default;
  IdIterator(const List& list, std::size_t place) : list_(&list), place_(place) {}

  std::uint64_t operator*() const { return (*list_)[place_]; }
  std::uint64_t operator[](std::ptrdiff_t n) const { return *(*this + n); }

  IdIterator& operator+=(std::ptrdiff_t n) {
    place_ += static_cast<std::size_t>(n);
    return *this;
  }
  IdIterator& operator-=(std::ptrdiff_t n) { return *this += -n; }
  IdIterator& operator++() { return *this += 1; }
  IdIterator& operator--() { return *this += -1; }
  IdIterator operator++(int) {
    const IdIterator before = *this;
    ++*this;
    return before;
  }
  IdIterator operator--(int) {
    const IdIterator before = *this;
    --*this;
    return before;
  }
  friend IdIterator operator+(IdIterator it, std::ptrdiff_t n) { return it += n; }
  friend IdIterator operator+(std::ptrdiff_t n, IdIterator it) { return it += n; }
  friend IdIterator operator-(IdIterator it, std::ptrdiff_t n) { return it -= n; }
  friend std::ptrdiff_t operator-(IdIterator a, IdIterator b) {
    return static_cast<std::ptrdiff_t>(a.place_ - b.place_);
  }
  friend bool operator==(IdIterator a, IdIterator b) { return a.place_ == b.place_; }
  friend bool operator!=(IdIterator a, IdIterator b) { return a.place_ != b.place_; }
  friend bool operator<(IdIterator a, IdIterator b) { return a.place_ < b.place_; }
  friend bool operator>(IdIterator a, IdIterator b) { return b < a; }
  friend bool operator<=(IdIterator a, IdIterator b) { return !(b < a); }
  friend bool operator>=(IdIterator a, IdIterator b) { return !(a < b); }

 private:
  const List* list_ = nullptr;
  std::size_t place_ = 0;
};

/// Ids in 32 bits, or all of them in 64 from the first one on that needs more: half the memory, and
/// half the time to fill it, for every mesh of less than 4 thousand million elements.
class IdList {
 public:
  using value_type = std::uint64_t;
  using const_iterator = IdIterator<IdList>;
  using iterator = const_iterator;

  IdList() = default;
  // NOLINTNEXTLINE(google-explicit-constructor): the same ids, in as many bits as they have there.
  IdList(std::vector<std::uint64_t> ids) : isWide_(true), wide_(std::move(ids)) {}

  std::size_t size() const { return isWide_ ? wide_.size() : narrow_.size(); }
  bool empty() const { return size() == 0; }
  std::uint64_t operator[](std::size_t place) const {
    return isWide_ ? wide_[place] : narrow_[place];
  }
  std::uint64_t front() const { return (*this)[0]; }
  std::uint64_t back() const { return (*this)[size() - 1]; }
  const_iterator begin() const { return {*this, 0}; }
  const_iterator end() const { return {*this, size()}; }

  /// Gives `use(const std::uint32_t*, size)` or `use(const std::uint64_t*, size)` all ids, for
  /// loops over many of them.
  template <class Use>
  decltype(auto) visit(Use use) const {
    return isWide_ ? use(wide_.data(), wide_.size()) : use(narrow_.data(), narrow_.size());
  }

  void reserve(std::size_t size) { isWide_ ? wide_.reserve(size) : narrow_.reserve(size); }
  /// Cuts the list, or appends the same id until it is so long.
  void resize(std::size_t size, std::uint64_t id) {
    if (size > this->size()) {
      append(size - this->size(), id);
    } else {
      isWide_ ? wide_.resize(size) : narrow_.resize(size);
    }
  }
  void add(std::uint64_t id) { append(&id, 1); }

  void append(const std::uint64_t* ids, std::size_t n) {
    if (!isWide_ && !allFit(ids, n)) {
      widen(n);
    }
    if (isWide_) {
      wide_.insert(wide_.end(), ids, ids + n);
    } else {
      narrow_.insert(narrow_.end(), ids, ids + n);
    }
  }

  void append(const std::uint32_t* ids, std::size_t n) {
    if (isWide_) {
      wide_.insert(wide_.end(), ids, ids + n);
    } else {
      narrow_.insert(narrow_.end(), ids, ids + n);
    }
  }

  /// Appends the same id `n` times.
  void append(std::size_t n, std::uint64_t id) {
    if (!isWide_ && !allFit(&id, 1)) {
      widen(n);
    }
    if (isWide_) {
      wide_.insert(wide_.end(), n, id);
    } else {
      narrow_.insert(narrow_.end(), n, static_cast<std::uint32_t>(id));
    }
  }

  /// Gives each id what `change` makes of it.
  template <class Change>
  void transform(Change change) {
    for (std::size_t i = 0; i < size(); ++i) {
      const std::uint64_t id = change((*this)[i]);
      if (!isWide_ && !allFit(&id, 1)) {
        widen(0);
      }
      if (isWide_) {
        wide_[i] = id;
      } else {
        narrow_[i] = static_cast<std::uint32_t>(id);
      }
    }
  }

  friend bool operator==(const IdList& a, const IdList& b) {
    bool same = a.size() == b.size();
    for (std::size_t i = 0; same && i < a.size(); ++i) {
      same = a[i] == b[i];
    }
    return same;
  }

 private:
  static bool allFit(const std::uint64_t* ids, std::size_t n) {
    std::uint64_t bits = 0;
    for (std::size_t i = 0; i < n; ++i) {
      bits |= ids[i];
    }
    return bits <= std::numeric_limits<std::uint32_t>::max();
  }

  /// Goes over to 64 bits, with room for `more` ids and for as many as there was room for.
  void widen(std::size_t more) {
    std::vector<std::uint64_t> wide;
    wide.reserve(std::max(narrow_.capacity(), narrow_.size() + more));
    wide.assign(narrow_.begin(), narrow_.end());
    wide_ = std::move(wide);
    narrow_ = {};
    isWide_ = true;
  }

  bool isWide_ = false;
  std::vector<std::uint32_t> narrow_;
  std::vector<std::uint64_t> wide_;
};

}  // namespace velto::memory

#endif  // VELTO_EMBEDDED_MEMORY_ID_LIST_H
