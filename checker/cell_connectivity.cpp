// SPDX-License-Identifier: Apache-2.0
//
// The lists that cell zones hold themselves: whether the nodes, and the faces, are those of the
// mesh. Zones whose cells are known by their faces hold none.
//
//                     cell-node pass            cell-face pass
//   zones             of kind connectivityCellNode, connectivityCellFace
//   ids               of nodes                  of faces
//
// A zone is looked at if it is of the pass's kind, is listed and has cells. One is held at a time.

#include <algorithm>
#include <cstdint>
#include <string>
#include <utility>
#include <vector>

#include "velto/OrvChecker.h"

#include "data_access/OrvFileProvider.h"
#include "data_access/families.h"
#include "data_access/sizes.h"

#include "checker/IdList.h"
#include "checker/ListCheck.h"
#include "checker/connectivity_kinds.h"

namespace velto {

struct OrvChecker::CellPass {
  int kind;
  const CountedReadFamily& family;
  std::string word;  ///< What the ids stand for.
  std::uint64_t bound;
  bool namesCounts;  ///< Whether the counts are a step of their own.
};

bool OrvChecker::checkCellConnectivity() {
  displayStep("checkCellConnectivity", "init");
  OrvFileProvider* source = openProvider();
  const std::uint64_t nodes = meshSizeOf(*source, meshNodeCount);
  const std::uint64_t faces = meshSizeOf(*source, meshFaceCount);
  std::vector<int> zones;
  source->getZoneIds(zoneCategoryCell, zones);
  checkListsOfCells({connectivityCellNode, kCellNodes, "node", nodes, true}, zones);
  // Kept: the counts of faces are read under the label of the step before.
  checkListsOfCells({connectivityCellFace, kCellFaces, "face", faces, false}, zones);
  const auto& kinds = cellZoneConnectivityTypes;
  if (std::find(kinds.begin(), kinds.end(), connectivityInconsistent) != kinds.end()) {
    addError(1, "Cell-zones: Inconsistency in cell zone definitions");
  }
  return true;
}

void OrvChecker::checkListsOfCells(const CellPass& pass, const std::vector<int>& zones) {
  OrvFileProvider* source = openProvider();
  std::vector<int> ids;
  (source->*pass.family.begin)(ids);
  const IdList listed(std::move(ids));
  ListCheck lists(*source, pass.family, pass.word.c_str(), pass.bound, verbosity > 2);

  if (pass.namesCounts) {
    displayStep("checkCellConnectivity", pass.word + " counts");
  }
  (source->*pass.family.beginCounts)();
  std::vector<std::int64_t> lengths(zones.size(), 0);
  for (std::size_t i = 0; i < zones.size(); ++i) {
    if (kindOfCellZone(i) == pass.kind && listed.contains(zones[i])) {
      lengths[i] = lists.lengthOf(zones[i]);
    }
  }
  (source->*pass.family.endCounts)();

  displayStep("checkCellConnectivity", pass.word + " ids");
  (source->*pass.family.beginIds)();
  // Kept: counted in 32 bits, unlike the nodes of faces, so that 2^32 bad ids are none.
  std::uint32_t bad = 0;
  for (std::size_t i = 0; i < zones.size(); ++i) {
    // Kept: a list without ids is not read, unlike that of a face zone.
    if (lengths[i] != 0) {
      bad += static_cast<std::uint32_t>(lists.countBadIds(zones[i], lengths[i]));
    }
  }
  (source->*pass.family.endIds)();
  if (bad != 0) {
    addError(1, "Cell " + pass.word + " ids out of " + pass.word + " id range");
  }
  (source->*pass.family.end)();
}

}  // namespace velto
