// SPDX-License-Identifier: Apache-2.0
//
// Random picks: numbers on an edge, and zones and meshes of a case.

#ifndef VELTO_TESTING_RANDOM_PICK_H
#define VELTO_TESTING_RANDOM_PICK_H

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "embedded/base/CaseTables.h"
#include "embedded/base/call_text.h"
#include "testing/Random.h"

namespace velto::testing {

/// Numbers that are next to where a table, or what is worked out from it, changes its mind: small
/// ones, and those around 2^31, 2^32, 2^63 and 2^64.
const std::vector<std::uint64_t>& edgeSizes();
const std::vector<int>& edgeIds();

OrvZoneCategory anyCategory(Random& random);

/// Any zone of a category, of a mesh that may have none.
int anyZone(const base::MeshTables& mesh, OrvZoneCategory category, Random& random);

/// Any zone of a mesh.
int anyZone(const base::MeshTables& mesh, Random& random);

/// What may stand in a link or a list: a zone that is there, of the category or another, or none.
int anyLink(const base::MeshTables& mesh, OrvZoneCategory category, Random& random);

/// The key of any mesh of a case.
/// REQUIRES: there is one.
base::MeshKey anyMesh(const base::CaseTables& tables, Random& random);

/// A version of a file, mostly next to the library's own.
base::FileVersion anyVersion(Random& random);

/// "mesh 1 target 0 partition -1", for texts about a mesh.
std::string meshText(const base::MeshKey& key);

/// "3.4.5".
std::string versionText(const base::FileVersion& version);

/// A value that may not be there.
template <class Value>
std::string valueText(const std::optional<Value>& value) {
  return value ? base::argumentText(*value) : "nothing";
}

}  // namespace velto::testing

#endif  // VELTO_TESTING_RANDOM_PICK_H
