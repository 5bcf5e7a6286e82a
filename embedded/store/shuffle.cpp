// SPDX-License-Identifier: Apache-2.0
//
// The byte shuffle as plain loops that GCC vectorises.
//
// A block of elements goes through an array of its own, one row for each byte of an element. Its
// length is known when this is compiled and nothing else refers to it: that is what makes the inner
// loops byte permutations, several times as fast as the same loops over the whole of the data.
// Compilers that do not see it are still faster than zstd.

#include "embedded/store/shuffle.h"

#include <algorithm>
#include <cstring>
#include <stdexcept>
#include <string>

namespace velto::store {

namespace {

constexpr std::size_t kBlock = 128;  // elements

template <std::size_t Size>
struct Shuffle {
  static void run(const std::byte* from, std::byte* to, std::size_t n) {
    std::byte rows[Size][kBlock];
    std::size_t i = 0;
    for (; i + kBlock <= n; i += kBlock) {
      const std::byte* elements = from + i * Size;
      for (std::size_t j = 0; j < kBlock; ++j) {
        for (std::size_t k = 0; k < Size; ++k) {
          rows[k][j] = elements[j * Size + k];
        }
      }
      for (std::size_t k = 0; k < Size; ++k) {
        std::memcpy(to + k * n + i, rows[k], kBlock);
      }
    }
    for (; i < n; ++i) {
      for (std::size_t k = 0; k < Size; ++k) {
        to[k * n + i] = from[i * Size + k];
      }
    }
  }
};

template <std::size_t Size>
struct Unshuffle {
  static void run(const std::byte* from, std::byte* to, std::size_t n) {
    std::byte rows[Size][kBlock];
    std::size_t i = 0;
    for (; i + kBlock <= n; i += kBlock) {
      for (std::size_t k = 0; k < Size; ++k) {
        std::memcpy(rows[k], from + k * n + i, kBlock);
      }
      std::byte* elements = to + i * Size;
      for (std::size_t j = 0; j < kBlock; ++j) {
        for (std::size_t k = 0; k < Size; ++k) {
          elements[j * Size + k] = rows[k][j];
        }
      }
    }
    for (; i < n; ++i) {
      for (std::size_t k = 0; k < Size; ++k) {
        to[i * Size + k] = from[k * n + i];
      }
    }
  }
};

template <template <std::size_t> class Way>
void runFor(const std::byte* from, std::byte* to, std::size_t size, std::size_t elementSize) {
  std::size_t done = 0;
  switch (elementSize) {
    case 1:
      break;
    case 2:
      Way<2>::run(from, to, size / 2);
      done = size / 2 * 2;
      break;
    case 4:
      Way<4>::run(from, to, size / 4);
      done = size / 4 * 4;
      break;
    case 8:
      Way<8>::run(from, to, size / 8);
      done = size / 8 * 8;
      break;
    default:
      throw std::invalid_argument("elements of " + std::to_string(elementSize) +
                                  " bytes are not shuffled");
  }
  std::copy_n(from + done, size - done, to + done);
}

}  // namespace

void shuffle(const std::byte* from, std::byte* to, std::size_t size, std::size_t elementSize) {
  runFor<Shuffle>(from, to, size, elementSize);
}

void unshuffle(const std::byte* from, std::byte* to, std::size_t size, std::size_t elementSize) {
  runFor<Unshuffle>(from, to, size, elementSize);
}

}  // namespace velto::store
