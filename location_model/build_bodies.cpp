// SPDX-License-Identifier: Apache-2.0
//
// Bodies: one for each leaf cell zone, with the interior face zones that lie inside it.

#include <list>

#include "location_model/Build.h"

namespace velto {

bool LocationModelBuilder::Build::addBody(int cellZone, Body& body) {
  body.cellZone = cellZone;
  std::string name = nameOf(cellZone);
  if (name.empty()) {
    name = "B" + std::to_string(cellZone);
  }
  if (!model_.createBody(part_, name, body.id)) {
    // Kept: this message alone has no prefix and no full stop.
    builder_.errors.push_back("Unable to define body '" + name + "'");
    return false;
  }
  std::vector<int> bodyZones = {cellZone};
  // A zone whose cells list their nodes takes in nothing.
  if (cellNodeZones_.count(cellZone) == 0) {
    absorbInterior(cellZone, bodyZones);
  }
  if (!model_.setBodyZones(body.id, provider_.getMeshId(), bodyZones)) {
    return fail("Unable to set the zones associated with the body '" + name + "'.");
  }
  return true;
}

void LocationModelBuilder::Build::absorbInterior(int cellZone, std::vector<int>& bodyZones) {
  std::uint64_t first = 0;
  std::uint64_t last = 0;
  provider_.getZoneSizeInfo(cellZone, zoneFirstId, first);
  provider_.getZoneSizeInfo(cellZone, zoneLastId, last);
  std::list<int> bounding;
  provider_.getCellFaceZoneIds(cellZone, bounding);
  for (const int faceZone : bounding) {
    if (isInside(faceZone, cellZone, first, last)) {
      absorbedFaceZones_.insert(faceZone);
      bodyZones.push_back(faceZone);
    }
  }
}

bool LocationModelBuilder::Build::isInside(int faceZone, int cellZone, std::uint64_t first,
                                           std::uint64_t last) const {
  OrvFaceZoneType type = faceZoneTypeNone;
  provider_.getFaceZoneType(faceZone, type);
  if (type != faceZoneTypeInterior) {
    return false;
  }
  std::list<int> side0;
  provider_.getFaceCellZone0Ids(faceZone, side0);
  std::list<int> side1;
  provider_.getFaceCellZone1Ids(faceZone, side1);
  if (side0.empty() || side1.empty()) {
    return isFirstFaceWithin(faceZone, first, last);
  }
  // Kept: only the front of each list is looked at.
  return side0.front() == cellZone && side1.front() == cellZone;
}

/// Kept: the first face decides for the whole zone.
bool LocationModelBuilder::Build::isFirstFaceWithin(int faceZone, std::uint64_t first,
                                                    std::uint64_t last) const {
  std::uint64_t face = 0;
  provider_.getZoneSizeInfo(faceZone, zoneFirstId, face);
  std::vector<int> zones;
  provider_.beginFaceCell0(zones);
  const std::uint64_t cell0 = provider_.getFaceCell0(face);
  provider_.endFaceCell0();
  provider_.beginFaceCell1(zones);
  const std::uint64_t cell1 = provider_.getFaceCell1(face);
  provider_.endFaceCell1();
  return first <= cell0 && cell0 <= last && first <= cell1 && cell1 <= last;
}

}  // namespace velto
