// SPDX-License-Identifier: Apache-2.0
//
// Claims of the tables against the length of the arrays.

#include "embedded/base/claims.h"

#include <algorithm>

#include "embedded/base/CaseError.h"

namespace velto::base {

namespace {

[[noreturn]] void refuse(const std::string& where, const std::string& what, std::uint64_t claimed,
                         std::uint64_t rows) {
  throw CaseError(where + ": " + std::to_string(claimed) + " " + what +
                  " are claimed, but the arrays hold " + std::to_string(rows) + " numbers in all");
}

/// The number of ids from the first to the last of a zone.
std::uint64_t idsOf(const MeshTables& tables, int zone) {
  const std::uint64_t first = tables.zoneSize(zone, zoneFirstId);
  const std::uint64_t last = tables.zoneSize(zone, zoneLastId);
  return first > last ? 0 : last - std::max<std::uint64_t>(first, 1) + 1;
}

}  // namespace

void requireJustified(const std::string& where, const MeshTables& tables, std::uint64_t rows) {
  const auto require = [&](std::uint64_t claimed, std::uint64_t values, const std::string& what) {
    if (claimsTooMuch(claimed, values, rows)) {
      refuse(where, what, claimed, rows);
    }
  };
  require(tables.size(meshNodeCount), 1, "nodes");
  require(tables.size(meshFaceCount), 1, "faces");
  require(tables.size(meshCellCount), 1, "cells");
  for (const int zone : tables.sortedZones()) {
    const std::uint64_t dimension = tables.zoneSize(zone, zoneDimension);
    require(tables.zoneSize(zone, zoneElementCount), dimension == 0 ? 3 : dimension,
            "elements of zone " + std::to_string(zone));
    require(idsOf(tables, zone), 1, "ids of zone " + std::to_string(zone));
  }
  for (const auto& category : tables.zoneIds) {
    std::uint64_t ids = 0;
    for (const int zone : category.second) {
      ids += idsOf(tables, zone);
      require(ids, 1, "ids of the zones up to " + std::to_string(zone));
    }
  }
}

}  // namespace velto::base
