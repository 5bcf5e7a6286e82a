// SPDX-License-Identifier: Apache-2.0
//
// Claims of the tables against the length of the arrays.

#include "embedded/store/claims.h"

#include "embedded/base/CaseError.h"

namespace velto::store {

namespace {

[[noreturn]] void refuse(const std::string& where, const std::string& what, std::uint64_t claimed,
                         std::uint64_t rows) {
  throw base::CaseError(where + ": " + std::to_string(claimed) + " " + what +
                        " are claimed, but the arrays hold " + std::to_string(rows) +
                        " numbers in all");
}

}  // namespace

void requireJustified(const std::string& where, const base::MeshTables& tables,
                      std::uint64_t rows) {
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
  }
}

}  // namespace velto::store
