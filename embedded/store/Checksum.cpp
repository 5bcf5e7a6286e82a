// SPDX-License-Identifier: Apache-2.0
//
// Checksum: libxxhash, on x86 with the widest vectors that the machine has.

#include "embedded/store/Checksum.h"

#include <new>
#include <xxhash.h>
#if defined(__x86_64__)
#include <xxh_x86dispatch.h>  // gives XXH3_64bits_update another meaning
#endif

namespace velto::store {

Checksum::Checksum() : state_(XXH3_createState()) {
  if (state_ == nullptr) {
    throw std::bad_alloc();
  }
  restart();
}

Checksum::~Checksum() { XXH3_freeState(state_); }

void Checksum::restart() { XXH3_64bits_reset(state_); }

void Checksum::add(const void* bytes, std::size_t size) { XXH3_64bits_update(state_, bytes, size); }

std::uint64_t Checksum::value() const { return XXH3_64bits_digest(state_); }

}  // namespace velto::store
