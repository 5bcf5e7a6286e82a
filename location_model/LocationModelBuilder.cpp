// SPDX-License-Identifier: Apache-2.0
//
// LocationModelBuilder: the error list, and the frame of a build.
//
//   readZones        face and cell zones that have no child; no model without them
//   listFamilies     zones whose cells list their nodes; face zones that store cells
//   for each leaf cell zone
//     addBody        the body, and the interior face zones that it takes in
//     addFaces       faces and face uses of the other face zones beside it

#include "velto/LocationModelBuilder.h"

#include <algorithm>

#include "data_access/families.h"

#include "location_model/Build.h"

namespace velto {

LocationModelBuilder::LocationModelBuilder() = default;
LocationModelBuilder::LocationModelBuilder(const LocationModelBuilder& other) = default;
LocationModelBuilder& LocationModelBuilder::operator=(const LocationModelBuilder& other) = default;
LocationModelBuilder::~LocationModelBuilder() = default;

const std::vector<std::string>& LocationModelBuilder::getErrors() const { return errors; }

void LocationModelBuilder::addError(const std::string& message) const {
  errors.push_back("Unable to build location model: " + message);
}

bool LocationModelBuilder::build(OrvProvider* provider, OrvLocationModel* model) const {
  if (provider == nullptr) {
    addError("The provider is null.");
    return false;
  }
  if (model == nullptr) {
    addError("The location model is null.");
    return false;
  }
  return Build(*this, *provider, *model).run();
}

// --- One build ----------------------------------------------------------------------------------

bool LocationModelBuilder::Build::run() {
  if (!readZones()) {
    return false;
  }
  listFamilies();
  // There is one part, whatever the mesh, of a kind that is 3.
  model_.createPart(3, "P", part_);
  return std::all_of(leafCellZones_.begin(), leafCellZones_.end(), [this](int cellZone) {
    Body body;
    return addBody(cellZone, body) && addFaces(body);
  });
}

bool LocationModelBuilder::Build::readZones() {
  std::vector<int> faceZones;
  provider_.getZoneIds(zoneCategoryFace, faceZones);
  if (faceZones.empty()) {
    builder_.addError("There are no face zones defined in the mesh model.");
    return false;
  }
  std::copy_if(faceZones.begin(), faceZones.end(), std::back_inserter(leafFaceZones_),
               [this](int zone) { return faceZoneInfo(zone, faceZoneChild, 0) == 0; });
  return readLeafCellZones();
}

bool LocationModelBuilder::Build::readLeafCellZones() {
  std::vector<int> cellZones;
  provider_.getZoneIds(zoneCategoryCell, cellZones);
  if (cellZones.empty()) {
    builder_.addError("There are no cell zones defined in the mesh model.");
    return false;
  }
  std::copy_if(cellZones.begin(), cellZones.end(), std::back_inserter(leafCellZones_),
               [this](int zone) {
                 int child = 0;
                 provider_.getCellZoneInfo(zone, cellZoneChild, child);
                 return child == 0;
               });
  return true;
}

void LocationModelBuilder::Build::listFamilies() {
  std::vector<int> cellNodeZones;
  // Kept: the family stays open; only its list is wanted. Parents among the zones do no harm, since
  // only leaves are looked up.
  provider_.beginCellNodes(cellNodeZones);
  cellNodeZones_.insert(cellNodeZones.begin(), cellNodeZones.end());
  cell0Zones_ = listZones(provider_, kFaceCell0);
  std::sort(cell0Zones_.begin(), cell0Zones_.end());
  cell1Zones_ = listZones(provider_, kFaceCell1);
  std::sort(cell1Zones_.begin(), cell1Zones_.end());
}

bool LocationModelBuilder::Build::fail(const std::string& message) const {
  builder_.addError(message);
  return false;
}

std::string LocationModelBuilder::Build::nameOf(int zone) const {
  std::string name;
  provider_.getZoneStringInfo(zone, zoneName, name);
  return name;
}

int LocationModelBuilder::Build::faceZoneInfo(int zone, OrvFaceZoneInfoType key,
                                              int preloaded) const {
  int value = preloaded;
  provider_.getFaceZoneInfo(zone, key, value);
  return value;
}

}  // namespace velto
