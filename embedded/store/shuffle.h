// SPDX-License-Identifier: Apache-2.0
//
// The byte shuffle: brings bytes of equal significance together, so that numbers pack well.

#ifndef VELTO_EMBEDDED_STORE_SHUFFLE_H
#define VELTO_EMBEDDED_STORE_SHUFFLE_H

#include <cstddef>

namespace velto::store {

/// Puts byte k of element i at k * n + i, where n is the number of whole elements in `size` bytes;
/// bytes behind the last whole element stay where they are. This is what the shuffle filter of HDF5
/// writes.
///
/// REQUIRES: elementSize is 1, 2, 4 or 8; `from` and `to` have `size` bytes each and do not
/// overlap. Errors: std::invalid_argument for another elementSize.
void shuffle(const std::byte* from, std::byte* to, std::size_t size, std::size_t elementSize);

/// Puts the bytes back; REQUIRES and errors as shuffle().
void unshuffle(const std::byte* from, std::byte* to, std::size_t size, std::size_t elementSize);

}  // namespace velto::store

#endif  // VELTO_EMBEDDED_STORE_SHUFFLE_H
