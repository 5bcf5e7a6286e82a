// SPDX-License-Identifier: Apache-2.0
//
// The nodes of faces: whether each is a node of the mesh. One zone is held at a time.

#include <cstdint>
#include <vector>

#include "velto/OrvChecker.h"

#include "data_access/OrvFileProvider.h"
#include "data_access/families.h"
#include "data_access/sizes.h"

#include "checker/ListCheck.h"

namespace velto {

bool OrvChecker::checkFaceConnectivity() {
  displayStep("checkFaceConnectivity", "init");
  OrvFileProvider* source = openProvider();
  const std::uint64_t nodes = meshSizeOf(*source, meshNodeCount);
  std::vector<int> faceZones;
  source->getZoneIds(zoneCategoryFace, faceZones);
  std::vector<int> listed;
  source->beginFaceNodes(listed);
  if (listed.size() != faceZones.size()) {
    addWarning(1, "Not all face zones define node connectivity");
  }
  ListCheck lists(*source, kFaceNodes, "node", nodes, verbosity > 2);

  displayStep("checkFaceConnectivity", "node counts");
  source->beginFaceNodeCounts();
  std::vector<std::int64_t> lengths;
  lengths.reserve(listed.size());
  for (const int zone : listed) {
    lengths.push_back(lists.lengthOf(zone));
  }
  source->endFaceNodeCounts();

  displayStep("checkFaceConnectivity", "node ids");
  source->beginFaceNodeIds();
  std::uint64_t bad = 0;
  for (std::size_t i = 0; i < listed.size(); ++i) {
    bad += lists.countBadIds(listed[i], lengths[i]);
  }
  source->endFaceNodeIds();
  bool healthy = checkORVErrors();
  // Kept: bad ids are an error of the file, and leave the result alone.
  if (bad != 0) {
    addError(1, "Face node ids out of node id range");
  }
  source->endFaceNodes();
  healthy = checkORVErrors() && healthy;
  return healthy;
}

}  // namespace velto
