// SPDX-License-Identifier: Apache-2.0
//
// ListCheck: whether the ids that the zones of a family list are ids of the mesh.

#ifndef VELTO_CHECKER_LIST_CHECK_H
#define VELTO_CHECKER_LIST_CHECK_H

#include <cstddef>
#include <cstdint>

#include "data_access/ZoneBuffer.h"
#include "data_access/families.h"

namespace velto {

/// How many of `n` ids are below 1 or above `bound`. Runs at the speed of memory.
std::uint64_t countOutside(const std::uint64_t* ids, std::size_t n, std::uint64_t bound);

/// The lists of one family, zone by zone. It holds one zone's list at a time; the caller opens and
/// closes the family and its passes.
class ListCheck {
 public:
  /// `word` names what the ids stand for, a "node" or a "face"; `bound` is the largest valid id.
  /// With `showsEach` each bad id is a line on standard error.
  ListCheck(OrvProvider& source, const CountedReadFamily& family, const char* word,
            std::uint64_t bound, bool showsEach)
      : source_(source), family_(family), word_(word), bound_(bound), showsEach_(showsEach) {}

  /// The length of a zone's list, 0 for a zone without elements. REQUIRES: the count pass is open.
  std::int64_t lengthOf(int zone);

  /// Reads a zone's list, be it empty, and counts its bad ids. REQUIRES: the id pass is open.
  /// Throws std::bad_alloc for a length that cannot be had.
  std::uint64_t countBadIds(int zone, std::int64_t length);

 private:
  void showBadIds(int zone, const std::uint64_t* ids, std::size_t n) const;

  OrvProvider& source_;
  const CountedReadFamily& family_;
  const char* word_;
  std::uint64_t bound_;
  bool showsEach_;
  ZoneMemory memory_;
};

}  // namespace velto

#endif  // VELTO_CHECKER_LIST_CHECK_H
