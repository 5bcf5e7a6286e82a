// SPDX-License-Identifier: Apache-2.0
//
// Defects of the file as a whole: targets, version, solver type, sizes of a mesh.

#include "samples/defect_lists.h"

namespace velto::samples {

namespace {

/// A second mesh of the same nodes and cells, as a viewer needs it.
void addPostTarget(memory::Case& damaged) {
  const base::MeshKey restart;
  const base::MeshKey post = {restart.mesh, targetPost, restart.partition};
  damaged.mesh(post) = damaged.mesh(restart);
  damaged.arrays(post) = damaged.arrays(restart);
  for (auto& zone : damaged.mesh(post).zones) {
    zone.second.boundingFaceZones.clear();
    zone.second.sideCellZones = {};
  }
  damaged.arrays(post).faceCell0 = {};
  damaged.arrays(post).faceCell1 = {};
}

void removeNodes(memory::Case& damaged) {
  onlyMesh(damaged).sizes[meshNodeCount] = 0;
  dropZones(damaged, zoneCategoryNode);
}

}  // namespace

const std::vector<Defect>& defectsOfFiles() {
  static const std::vector<Defect> kDefects = {
      {"two-targets", "The mesh comes as a restart and as a post target.", "box-cells", false,
       "checkCase : ORV file with multiple target types - support is limited", addPostTarget},
      {"no-version", "The file does not say in which version it was written.", "box", true,
       "checkVersion : ORV version number invalid",
       [](memory::Case& damaged) { damaged.tables.version.reset(); }},
      {"newer-major", "The file was written in the next major version.", "box", false,
       "checkVersion : ORV Major version number is newer - compatibility might be limited",
       [](memory::Case& damaged) { ++damaged.tables.version->major; }},
      {"newer-minor", "The file was written in the next minor version.", "box", false,
       "checkVersion : ORV Minor version number is newer - compatibility might be limited",
       [](memory::Case& damaged) { ++damaged.tables.version->minor; }},
      {"newer-patch", "The file was written in the next patch version.", "box", false,
       "checkVersion : ORV patch version number is newer - compatibility might be limited",
       [](memory::Case& damaged) { ++damaged.tables.version->patch; }},
      {"no-solver-type", "The case does not say which solver it is for.", "box", true,
       "checkSolverType : Empty solver type",
       [](memory::Case& damaged) { damaged.tables.solverType.clear(); }},
      {"generic-solver-type", "The case was written without a solver in mind.", "box", false,
       "checkSolverType : File with undefined / ORV_GENERIC solver type",
       [](memory::Case& damaged) { damaged.tables.solverType = "ORV_GENERIC"; }},
      {"unknown-solver-type", "The case is for a solver that nobody knows.", "box", false,
       "checkSolverType : File with unknown solver type",
       [](memory::Case& damaged) { damaged.tables.solverType = "HOMEMADE"; }},
      {"one-dimensional", "The mesh has one dimension.", "box", true,
       "checkMeshSize : Invalid mesh dimension",
       [](memory::Case& damaged) { onlyMesh(damaged).sizes[meshDimension] = 1; }},
      {"no-nodes", "The mesh has faces and cells and no nodes.", "post", true,
       "checkMeshSize : The mesh has cell/faces but no nodes", removeNodes},
  };
  return kDefects;
}

}  // namespace velto::samples
