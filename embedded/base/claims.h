// SPDX-License-Identifier: Apache-2.0
//
// How many elements a file may claim, so that what a caller allocates by it is justified.

#ifndef VELTO_EMBEDDED_BASE_CLAIMS_H
#define VELTO_EMBEDDED_BASE_CLAIMS_H

#include <cstdint>
#include <string>

#include "embedded/base/CaseTables.h"

namespace velto::base {

/// Arrays of `rows` numbers speak of no more elements than this: a face names two cells, a cell or
/// face names nodes, and an element has a few coordinates. What is small is never doubted.
inline std::uint64_t mostElements(std::uint64_t rows) {
  constexpr std::uint64_t kNeverDoubted = std::uint64_t{1} << 24U;
  constexpr std::uint64_t kElementsPerRow = 8;
  return rows > kNeverDoubted / kElementsPerRow ? rows * kElementsPerRow : kNeverDoubted;
}

/// Whether `count` elements with `values` numbers each are more than that.
inline bool claimsTooMuch(std::uint64_t count, std::uint64_t values, std::uint64_t rows) {
  return count > 0 && values > mostElements(rows) / count;
}

/// Throws CaseError if a mesh whose arrays have `rows` numbers in all claims more elements, in its
/// sizes, in a zone or in the ranges of ids of all zones of a kind, than they can speak of. Callers
/// walk over such ranges, and ask for each id.
void requireJustified(const std::string& where, const MeshTables& tables, std::uint64_t rows);

}  // namespace velto::base

#endif  // VELTO_EMBEDDED_BASE_CLAIMS_H
