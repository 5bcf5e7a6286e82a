// SPDX-License-Identifier: Apache-2.0
//
// The bytes of a whole file, for tests that change some of them.

#ifndef VELTO_TESTS_STORE_FILE_BYTES_H
#define VELTO_TESTS_STORE_FILE_BYTES_H

#include <cstdint>
#include <fstream>
#include <iterator>
#include <string>

namespace velto::testing {

inline std::string readBytes(const std::string& file) {
  std::ifstream stream(file, std::ios::binary);
  return {std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
}

inline void writeBytes(const std::string& file, const std::string& bytes) {
  std::ofstream(file, std::ios::binary) << bytes;
}

inline void flipBit(std::string& bytes, std::uint64_t at, unsigned bit) {
  bytes.at(at) = static_cast<char>(static_cast<unsigned char>(bytes.at(at)) ^ (1U << bit));
}

/// The same in a file.
inline void flipBitOf(const std::string& file, std::uint64_t at, unsigned bit) {
  std::string bytes = readBytes(file);
  flipBit(bytes, at, bit);
  writeBytes(file, bytes);
}

}  // namespace velto::testing

#endif  // VELTO_TESTS_STORE_FILE_BYTES_H
