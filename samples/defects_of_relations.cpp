// SPDX-License-Identifier: Apache-2.0
//
// Defects in what zones say of each other: which of them bound which, and how their cells are told.

#include "embedded/base/shapes.h"
#include "samples/defect_lists.h"

namespace velto::samples {

const std::vector<Defect>& defectsOfRelations() {
  static const std::vector<Defect> kDefects = {
      {"unbounded-cell-zone", "No face zone is said to bound the cell zone.", "box", true,
       "checkMeshConnectivity : No face zones bound cell zone [9]",
       [](memory::Case& damaged) { recordOf(damaged, "fluid").boundingFaceZones.clear(); }},
      {"bounding-zone-missing", "A face zone that bounds the cell zone is not there.", "box", true,
       "checkMeshConnectivity : Cell zone [9] is bounded by a Face zone [99] that doesn't exist.",
       [](memory::Case& damaged) {
         recordOf(damaged, "fluid").boundingFaceZones.push_back(kNoSuchZone);
       }},
      {"post-bounding-zones", "A post mesh says which face zones bound its cell zone.", "post",
       true, "checkMeshConnectivity : Cell zone [8] is bounded by Face zones in ORV Post mesh (1).",
       [](memory::Case& damaged) {
         recordOf(damaged, "fluid").boundingFaceZones = {zoneNamed(onlyMesh(damaged), "inlet")};
       }},
      {"side-zone-missing", "The cell zone beside a face zone is not there.", "box", true,
       "checkMeshConnectivity : Face zone [3] bounds Cell zone [99] that doesn't exist.",
       [](memory::Case& damaged) { recordOf(damaged, "inlet").sideCellZones[0] = {kNoSuchZone}; }},
      {"post-side-zones", "A post mesh says which cell zone lies beside a face zone.", "post", true,
       "checkMeshConnectivity : Face zone [2] found to bound cell zones in a ORV Post mesh (1).",
       [](memory::Case& damaged) {
         recordOf(damaged, "inlet").sideCellZones[0] = {zoneNamed(onlyMesh(damaged), "fluid")};
       }},
      {"untold-cells", "The cells of a post mesh list neither nodes nor faces.", "post", true,
       "checkCellZoneConnectivityTypes : Cell zone [8] with  unexpected connectivity in ORV Post mesh (1).",
       [](memory::Case& damaged) { onlyArrays(damaged).cellNodes = {}; }},
      {"polyhedra-type", "Cells that list their faces are called hexahedra.", "polyhedra", false,
       "checkCellZoneConnectivityTypes : Polyhedral cell zone (9) doesn't have correct type.",
       [](memory::Case& damaged) {
         recordOf(damaged, "bricks").cellInfo[cellZoneCellType] = base::cellShapeHexahedron;
       }},
  };
  return kDefects;
}

}  // namespace velto::samples
