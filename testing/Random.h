// SPDX-License-Identifier: Apache-2.0
//
// Random: numbers that are the same on every machine, for random cases that a seed brings back.

#ifndef VELTO_TESTING_RANDOM_H
#define VELTO_TESTING_RANDOM_H

#include <cstddef>
#include <cstdint>
#include <random>
#include <utility>
#include <vector>

namespace velto::testing {

/// The standard says what the engine gives but not what its distributions make of that, so the
/// arithmetic is done here. Two draws never belong into one expression whose order is free, such as
/// the arguments of a call.
class Random {
 public:
  explicit Random(std::uint64_t seed) : engine_(seed) {}

  /// Any number.
  std::uint64_t next() { return engine_(); }

  /// From 0 up to, and without, `count`; 0 if that is 0.
  std::size_t below(std::size_t count) {
    const std::uint64_t drawn = next();
    return count == 0 ? 0 : static_cast<std::size_t>(drawn % count);
  }

  /// From `lowest` to `highest`, both included.
  /// REQUIRES: the range is not empty and shorter than 2^31.
  int between(int lowest, int highest) {
    return lowest + static_cast<int>(below(static_cast<std::size_t>(highest - lowest) + 1));
  }

  /// True in so many of a hundred draws.
  bool chance(int percent) { return between(0, 99) < percent; }

  /// One of `values`.
  /// REQUIRES: there is one.
  template <class Value>
  const Value& pick(const std::vector<Value>& values) {
    return values[below(values.size())];
  }

  template <class Value>
  void shuffle(std::vector<Value>& values) {
    for (std::size_t left = values.size(); left > 1; --left) {
      std::swap(values[left - 1], values[below(left)]);
    }
  }

 private:
  std::mt19937_64 engine_;
};

}  // namespace velto::testing

#endif  // VELTO_TESTING_RANDOM_H
