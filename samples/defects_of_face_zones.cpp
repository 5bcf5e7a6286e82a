// SPDX-License-Identifier: Apache-2.0
//
// Defects in what face zones and cell zones alone have: dimension, types, links to other zones.

#include "samples/defect_lists.h"

namespace velto::samples {

namespace {

constexpr int kNotSet = -1;
constexpr int kInvalid = -2;

template <OrvFaceZoneInfoType Key, int Value>
void setOfTop(memory::Case& damaged) {
  recordOf(damaged, "top").faceInfo[Key] = Value;
}

template <OrvCellZoneInfoType Key, int Value>
void setOfFluid(memory::Case& damaged) {
  recordOf(damaged, "fluid").cellInfo[Key] = Value;
}

}  // namespace

const std::vector<Defect>& defectsOfFaceZones() {
  static const std::vector<Defect> kDefects = {
      {"zone-dimension", "A face zone of a mesh in space is two-dimensional.", "post", true,
       "checkFaceZones : Zone dimension inconsistent with mesh dimension",
       [](memory::Case& damaged) { recordOf(damaged, "top").sizes[zoneDimension] = 2; }},
      {"face-zone-type", "The type of a face zone is -2.", "post", true,
       "checkFaceZones : Invalid face zone type", setOfTop<faceZoneType, kInvalid>},
      {"no-face-type", "A face zone does not say what shape its faces have.", "post", false,
       "checkFaceZones : Face type was not set", setOfTop<faceZoneFaceType, kNotSet>},
      {"face-type", "The shape of the faces of a zone is -2.", "post", true,
       "checkFaceZones : Invalid face type", setOfTop<faceZoneFaceType, kInvalid>},
      {"face-child", "The child of a face zone is not there.", "post", true,
       "checkFaceZones : Face zone child zone id invalid", setOfTop<faceZoneChild, kNoSuchZone>},
      {"face-parent0", "The first parent of a face zone is not there.", "post", true,
       "checkFaceZones : Face zone parent0 zone id invalid",
       setOfTop<faceZoneParent0, kNoSuchZone>},
      {"face-parent1", "The second parent of a face zone is not there.", "post", true,
       "checkFaceZones : Face zone parent1 zone id invalid",
       setOfTop<faceZoneParent1, kNoSuchZone>},
      {"face-shadow", "The shadow of a face zone is not there.", "post", true,
       "checkFaceZones : Face zone shadow zone id invalid", setOfTop<faceZoneShadow, kNoSuchZone>},
      {"one-way-shadow", "One half of a periodic pair does not know the other.", "periodic", true,
       "checkFaceZones : Face zone shadow link is not bilateral",
       [](memory::Case& damaged) { recordOf(damaged, "right").faceInfo[faceZoneShadow] = 0; }},
      {"no-cell-type", "A cell zone that is known by its faces does not say what shape it has.",
       "box", true, "checkCellZones : Cell type was not set - mandatory for a face-node zone",
       setOfFluid<cellZoneCellType, kNotSet>},
      {"no-post-cell-type", "A cell zone that lists its nodes does not say what shape it has.",
       "post", false, "checkCellZones : Cell type was not set",
       setOfFluid<cellZoneCellType, kNotSet>},
      {"cell-type", "The shape of the cells of a zone is -2.", "post", true,
       "checkCellZones : Invalid cell type", setOfFluid<cellZoneCellType, kInvalid>},
      {"cell-child", "The child of a cell zone is not there.", "post", true,
       "checkCellZones : Cell zone child zone id invalid", setOfFluid<cellZoneChild, kNoSuchZone>},
  };
  return kDefects;
}

}  // namespace velto::samples
