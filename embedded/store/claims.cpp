// SPDX-License-Identifier: Apache-2.0
//
// Claims of the tables against the length of the arrays.

#include "embedded/store/claims.h"

#include <algorithm>

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
  for (const auto& zone : tables.zones) {
    const std::uint64_t elements = zone.second.sizes[zoneElementCount].value_or(0);
    const std::uint64_t dimension = zone.second.sizes[zoneDimension].value_or(1);
    require(elements, std::max<std::uint64_t>(dimension, 1),
            "elements of zone " + std::to_string(zone.first));
  }
}

}  // namespace velto::store
