// SPDX-License-Identifier: Apache-2.0
//
// ArrayEncoder: arrays in the appended part of a file, as they are or packed by zlib.

#ifndef VELTO_FORMATS_VTU_ARRAY_ENCODER_H
#define VELTO_FORMATS_VTU_ARRAY_ENCODER_H

#include <cstddef>
#include <cstdint>
#include <type_traits>
#include <vector>

#include "formats/vtu/OutputFile.h"

namespace velto::vtu {

/// Writes one array after the other. A plain array is its number of bytes and its values. A packed
/// one is cut into blocks: their number, the size of a block, that of the last if it is shorter,
/// what each came to, and the blocks. All numbers have 64 bits.
class ArrayEncoder {
 public:
  /// `level` is 0 for plain, up to 9. `total` is the bytes of all arrays, for progress.
  ArrayEncoder(OutputFile& file, unsigned level, std::uint64_t total);

  /// An array of `bytes` bytes begins; its values follow, and the end.
  void begin(std::uint64_t bytes);
  void put(const void* values, std::size_t bytes);
  template <class Value>
  void put(Value value) {
    static_assert(std::is_arithmetic_v<Value>, "one number");
    put(&value, sizeof(value));
  }
  void end();

 private:
  void endBlock();

  OutputFile& file_;
  unsigned level_;
  std::uint64_t total_;
  std::uint64_t done_ = 0;
  std::uint64_t left_ = 0;             // bytes of this array that are still to come
  std::uint64_t headAt_ = 0;           // where its head stands
  std::vector<std::uint64_t> packed_;  // what its blocks came to
  std::vector<unsigned char> block_;
  std::vector<unsigned char> output_;
};

}  // namespace velto::vtu

#endif  // VELTO_FORMATS_VTU_ARRAY_ENCODER_H
