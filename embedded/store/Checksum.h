// SPDX-License-Identifier: Apache-2.0
//
// Checksum: XXH3 with 64 bits, over bytes as they come.

#ifndef VELTO_EMBEDDED_STORE_CHECKSUM_H
#define VELTO_EMBEDDED_STORE_CHECKSUM_H

#include <cstddef>
#include <cstdint>

struct XXH3_state_s;  // of libxxhash

namespace velto::store {

/// The value depends on the bytes alone and not on the pieces in which they came.
class Checksum {
 public:
  Checksum();
  Checksum(const Checksum&) = delete;
  Checksum& operator=(const Checksum&) = delete;
  ~Checksum();

  /// Forgets what came so far.
  void restart();
  void add(const void* bytes, std::size_t size);
  std::uint64_t value() const;

 private:
  XXH3_state_s* state_;
};

}  // namespace velto::store

#endif  // VELTO_EMBEDDED_STORE_CHECKSUM_H
