// SPDX-License-Identifier: Apache-2.0
//
// Random: numbers that are the same on every machine, for random cases that a seed, or a few bytes,
// bring back.

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

  /// Draws from bytes, front to back, so that another byte makes another draw and leaves the rest
  /// as it was: what a fuzzer needs. A choice among 256 or fewer takes one of them, any other draw
  /// eight. What is drawn after the last is always the same. The bytes outlive the object.
  Random(const std::uint8_t* bytes, std::size_t size) : engine_(size), bytes_(bytes), left_(size) {}

  /// Any number.
  std::uint64_t next() { return draw(sizeof(std::uint64_t)); }

  /// From 0 up to, and without, `count`; 0 if that is 0.
  std::size_t below(std::size_t count) {
    const std::uint64_t drawn = draw(count <= 256 ? 1 : sizeof(std::uint64_t));
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
  std::uint64_t draw(std::size_t size) {
    if (left_ == 0) {
      return engine_();
    }
    std::uint64_t number = 0;
    for (; size > 0 && left_ > 0; --size, --left_) {
      number = number << 8U | *bytes_++;
    }
    return number;
  }

  std::mt19937_64 engine_;
  const std::uint8_t* bytes_ = nullptr;
  std::size_t left_ = 0;
};

}  // namespace velto::testing

#endif  // VELTO_TESTING_RANDOM_H
