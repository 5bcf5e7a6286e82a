// SPDX-License-Identifier: Apache-2.0
//
// What is packed, how much, and in which pieces. docs/decisions/0009-packing.md has the figures
// that decided it.

#ifndef VELTO_EMBEDDED_STORE_CHUNKS_H
#define VELTO_EMBEDDED_STORE_CHUNKS_H

#include <cstddef>

#include "embedded/store/Layout.h"

namespace velto::store {

/// Bytes of a chunk before it is packed.
constexpr std::size_t kChunkBytes = std::size_t{1} << 18U;

/// Arrays of no more bytes stay contiguous: a list of chunks costs more than packing saves.
constexpr std::size_t kSmallestPackedBytes = 4096;

/// The level of zstd for an array at a compression of 0 to 9, or 0 if it is not packed.
int zstdLevel(layout::Array array, unsigned compression);

}  // namespace velto::store

#endif  // VELTO_EMBEDDED_STORE_CHUNKS_H
