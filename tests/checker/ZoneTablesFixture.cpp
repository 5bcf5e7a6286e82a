// SPDX-License-Identifier: Apache-2.0
//
// ZoneTablesFixture: tables, and a piece of the output.

#include "tests/checker/ZoneTablesFixture.h"

namespace velto::testing {

using base::ZoneRecord;

cases::CasePtr withZones(OrvZoneCategory category, std::uint64_t nmax,
                         const std::vector<Zone>& zones) {
  cases::CasePtr made = cases::oneHex();
  base::MeshTables& mesh = made->mesh();
  mesh.sizes[static_cast<std::size_t>(base::countOf(category))] = nmax;
  mesh.zoneIds[category].clear();
  for (const Zone& zone : zones) {
    mesh.zoneIds[category].push_back(zone.id);
    ZoneRecord record;
    record.sizes = {zone.start, zone.end, zone.count, 3};
    record.texts[zoneName] = "zone " + std::to_string(zone.id);
    record.faceInfo[faceZoneFaceType] = 4;
    record.faceInfo[faceZoneType] = 3;
    record.cellInfo[cellZoneCellType] = 4;
    mesh.zones[zone.id] = record;
  }
  for (const int faceZone : mesh.zoneIds[zoneCategoryFace]) {
    mesh.zones[faceZone].sideCellZones = {};
  }
  for (const int cellZone : mesh.zoneIds[zoneCategoryCell]) {
    mesh.zones[cellZone].boundingFaceZones = mesh.zoneIds[zoneCategoryFace];
  }
  return made;
}

std::string ZoneTablesFixture::shown(int verbosity, const cases::CasePtr& served,
                                     const std::string& begin, const std::string& end) {
  serve(served);
  checker.setVerbosity(verbosity);
  const std::string out = check().out;
  const std::size_t first = out.find(begin);
  return first == std::string::npos ? out : out.substr(first, out.find(end, first) - first);
}

}  // namespace velto::testing
