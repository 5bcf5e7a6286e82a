// SPDX-License-Identifier: Apache-2.0
//
// Checksum: the header of xxHash does the work, so that nothing has to be linked.

#include "embedded/store/Checksum.h"

#define XXH_INLINE_ALL
#include <xxhash.h>

namespace velto::store {

struct Checksum::State {
  XXH3_state_t xxh;
};

Checksum::Checksum() : state_(std::make_unique<State>()) { restart(); }
Checksum::~Checksum() = default;

void Checksum::restart() { XXH3_64bits_reset(&state_->xxh); }

void Checksum::add(const void* bytes, std::size_t size) {
  XXH3_64bits_update(&state_->xxh, bytes, size);
}

std::uint64_t Checksum::value() const { return XXH3_64bits_digest(&state_->xxh); }

}  // namespace velto::store
