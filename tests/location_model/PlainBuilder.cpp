// SPDX-License-Identifier: Apache-2.0
//
// PlainBuilder: the zones of a mesh, then for each cell zone its body and the faces around it.

#include "tests/location_model/PlainBuilder.h"

#include <algorithm>
#include <list>
#include <utility>

#include "data_access/OrvLocationModel.h"
#include "data_access/OrvProvider.h"

namespace velto::testing {

/// What one build works with.
struct PlainBuilder::Run {
  OrvProvider& provider;
  OrvLocationModel& model;
  std::vector<int> leafFaceZones;
  std::vector<int> leafCellZones;
  std::vector<int> parentCellZones;
  std::vector<int> cellNodeZones;
  std::vector<int> cell0Zones;
  std::vector<int> cell1Zones;
  std::vector<int> absorbedFaceZones;
  std::vector<std::pair<int, int>> faceByFaceZone;
  int part = 0;
  int use = 0;  // the face use that a side 0 made last
};

namespace {

bool stands(int value, const std::vector<int>& list) {
  return std::find(list.begin(), list.end(), value) != list.end();
}

int childOfFaceZone(OrvProvider& provider, int zone) {
  int child = 0;
  provider.getFaceZoneInfo(zone, faceZoneChild, child);
  return child;
}

int childOfCellZone(OrvProvider& provider, int zone) {
  int child = 0;
  provider.getCellZoneInfo(zone, cellZoneChild, child);
  return child;
}

int shadowOf(OrvProvider& provider, int zone) {
  int shadow = 0;
  provider.getFaceZoneInfo(zone, faceZoneShadow, shadow);
  return shadow;
}

int typeOf(OrvProvider& provider, int zone) {
  int type = -1;
  provider.getFaceZoneInfo(zone, faceZoneType, type);
  return type;
}

std::string nameOf(OrvProvider& provider, int zone) {
  std::string name;
  provider.getZoneStringInfo(zone, zoneName, name);
  return name;
}

std::uint64_t sizeOf(OrvProvider& provider, int zone, OrvZoneSizeType key) {
  std::uint64_t size = 0;
  provider.getZoneSizeInfo(zone, key, size);
  return size;
}

std::list<int> cellZonesOnSide0(OrvProvider& provider, int faceZone) {
  std::list<int> zones;
  provider.getFaceCellZone0Ids(faceZone, zones);
  return zones;
}

std::list<int> cellZonesOnSide1(OrvProvider& provider, int faceZone) {
  std::list<int> zones;
  provider.getFaceCellZone1Ids(faceZone, zones);
  return zones;
}

/// The members of `zones` that stand in `leaves`, each once.
std::vector<int> leavesAmong(const std::list<int>& zones, const std::vector<int>& leaves) {
  std::vector<int> found;
  for (const int zone : zones) {
    if (stands(zone, leaves) && !stands(zone, found)) {
      found.push_back(zone);
    }
  }
  return found;
}

bool isInteriorTo(OrvProvider& provider, int faceZone, int cellZone, std::uint64_t first,
                  std::uint64_t last) {
  OrvFaceZoneType type = faceZoneTypeNone;
  provider.getFaceZoneType(faceZone, type);
  if (type != 2) {
    return false;
  }
  const std::list<int> zones0 = cellZonesOnSide0(provider, faceZone);
  const std::list<int> zones1 = cellZonesOnSide1(provider, faceZone);
  if (!zones0.empty() && !zones1.empty()) {
    return zones0.front() == cellZone && zones1.front() == cellZone;
  }
  const std::uint64_t face = sizeOf(provider, faceZone, zoneFirstId);
  std::vector<int> zoneIds;
  provider.beginFaceCell0(zoneIds);
  const std::uint64_t cell0 = provider.getFaceCell0(face);
  provider.endFaceCell0();
  provider.beginFaceCell1(zoneIds);
  const std::uint64_t cell1 = provider.getFaceCell1(face);
  provider.endFaceCell1();
  return first <= cell0 && cell0 <= last && first <= cell1 && cell1 <= last;
}

bool countsAsPeriodic(OrvProvider& provider, int faceZone, int type) {
  if (type == 12) {
    return true;
  }
  if (type == 8) {
    const int shadow = shadowOf(provider, faceZone);
    if (shadow < 0) {
      return false;
    }
    const int shadowType = typeOf(provider, shadow);
    if (shadowType == -1) {
      return provider.getFaceZoneProp(shadow, faceZonePeriodic);
    }
    return shadowType == 12;
  }
  if (type == -1) {
    return provider.getFaceZoneProp(faceZone, faceZonePeriodic);
  }
  return false;
}

}  // namespace

bool PlainBuilder::fail(const std::string& message) {
  errors_.push_back("Unable to build location model: " + message);
  return false;
}

bool PlainBuilder::build(OrvProvider* provider, OrvLocationModel* model) {
  if (provider == nullptr) {
    return fail("The provider is null.");
  }
  if (model == nullptr) {
    return fail("The location model is null.");
  }
  Run run = {*provider, *model, {}, {}, {}, {}, {}, {}, {}, {}};
  std::vector<int> faceZones;
  provider->getZoneIds(zoneCategoryFace, faceZones);
  if (faceZones.empty()) {
    return fail("There are no face zones defined in the mesh model.");
  }
  for (const int zone : faceZones) {
    if (childOfFaceZone(*provider, zone) == 0) {
      run.leafFaceZones.push_back(zone);
    }
  }
  std::vector<int> cellZones;
  provider->getZoneIds(zoneCategoryCell, cellZones);
  if (cellZones.empty()) {
    return fail("There are no cell zones defined in the mesh model.");
  }
  for (const int zone : cellZones) {
    const bool isLeaf = childOfCellZone(*provider, zone) == 0;
    (isLeaf ? run.leafCellZones : run.parentCellZones).push_back(zone);
  }
  provider->beginCellNodes(run.cellNodeZones);
  for (const int parent : run.parentCellZones) {
    const auto found = std::find(run.cellNodeZones.begin(), run.cellNodeZones.end(), parent);
    if (found != run.cellNodeZones.end()) {
      run.cellNodeZones.erase(found);
    }
  }
  provider->beginFaceCell0(run.cell0Zones);
  provider->endFaceCell0();
  provider->beginFaceCell1(run.cell1Zones);
  provider->endFaceCell1();
  model->createPart(3, "P", run.part);
  for (const int cellZone : run.leafCellZones) {
    if (!buildCellZone(run, cellZone)) {
      return false;
    }
  }
  return true;
}

bool PlainBuilder::buildCellZone(Run& run, int cellZone) {
  int body = 0;
  if (!makeBody(run, cellZone, body)) {
    return false;
  }
  for (const int faceZone : run.leafFaceZones) {
    if (stands(faceZone, run.absorbedFaceZones)) {
      continue;
    }
    if (!takeFaceZone(run, cellZone, body, faceZone)) {
      return false;
    }
  }
  return true;
}

// --- Bodies -------------------------------------------------------------------------------------

bool PlainBuilder::makeBody(Run& run, int cellZone, int& body) {
  std::string bodyName = nameOf(run.provider, cellZone);
  if (bodyName.empty()) {
    bodyName = "B" + std::to_string(cellZone);
  }
  if (!run.model.createBody(run.part, bodyName, body)) {
    errors_.push_back("Unable to define body '" + bodyName + "'");
    return false;
  }
  std::vector<int> bodyZones = {cellZone};
  if (!stands(cellZone, run.cellNodeZones)) {
    absorb(run, cellZone, bodyZones);
  }
  if (!run.model.setBodyZones(body, run.provider.getMeshId(), bodyZones)) {
    return fail("Unable to set the zones associated with the body '" + bodyName + "'.");
  }
  return true;
}

void PlainBuilder::absorb(Run& run, int cellZone, std::vector<int>& bodyZones) {
  const std::uint64_t first = sizeOf(run.provider, cellZone, zoneFirstId);
  const std::uint64_t last = sizeOf(run.provider, cellZone, zoneLastId);
  std::list<int> around;
  run.provider.getCellFaceZoneIds(cellZone, around);
  for (const int faceZone : around) {
    if (isInteriorTo(run.provider, faceZone, cellZone, first, last)) {
      run.absorbedFaceZones.push_back(faceZone);
      bodyZones.push_back(faceZone);
    }
  }
}

// --- Faces --------------------------------------------------------------------------------------

bool PlainBuilder::isTooLarge(const FaceZone& zone) {
  const std::string text =
      "Face zone " + std::to_string(zone.id) + "'" + zone.name + "' bounds mode than one cell zone";
  if (zone.side0.size() > 1) {
    fail(text + " on side 0.");
  }
  if (zone.side1.size() > 1) {
    fail(text + " on side 1.");
  }
  return zone.side0.size() > 1 || zone.side1.size() > 1;
}

bool PlainBuilder::takeFaceZone(Run& run, int cellZone, int body, int faceZone) {
  FaceZone zone;
  zone.id = faceZone;
  zone.name = nameOf(run.provider, faceZone);
  zone.side0 = leavesAmong(cellZonesOnSide0(run.provider, faceZone), run.leafCellZones);
  zone.side1 = leavesAmong(cellZonesOnSide1(run.provider, faceZone), run.leafCellZones);
  if (isTooLarge(zone)) {
    return false;
  }
  if (!stands(cellZone, zone.side0)) {
    zone.side0.clear();
  }
  if (!stands(cellZone, zone.side1)) {
    zone.side1.clear();
  }
  if (zone.side0.empty() && zone.side1.empty()) {
    return true;
  }
  zone.type = typeOf(run.provider, faceZone);
  zone.twoSided = zone.type == 2 || zone.type == 14;
  zone.faceName = zone.twoSided ? zone.name : "F" + std::to_string(faceZone);
  const bool periodic = countsAsPeriodic(run.provider, faceZone, zone.type);
  if (periodic) {
    takeAsPeriodic(run, zone);
  } else if (!takeAsLinked(run, zone)) {
    return true;
  }
  if (zone.side0.empty() && zone.side1.empty()) {
    return true;
  }
  if (zone.faceId == 0 && !defineFace(run, zone)) {
    return false;
  }
  int use0 = 0;
  int use1 = 0;
  run.model.getFaceSides(zone.faceId, use0, use1);
  if (!zone.side0.empty() && !useSide0(run, body, zone, use0, use1)) {
    return false;
  }
  return zone.side1.empty() || useSide1(run, body, zone, use1);
}

void PlainBuilder::takeAsPeriodic(Run& run, FaceZone& zone) {
  if (run.provider.getSolverType() == "VELTO_DRIFTA" && zone.type == 8 && zone.name.empty()) {
    const int shadow = shadowOf(run.provider, zone.id);
    if (shadow != 0) {
      zone.name = nameOf(run.provider, shadow) + "-shadow";
    }
  }
  if (!stands(zone.id, run.cell0Zones)) {
    zone.side0.clear();
  }
  if (!stands(zone.id, run.cell1Zones)) {
    zone.side1.clear();
  }
}

bool PlainBuilder::takeAsLinked(Run& run, FaceZone& zone) {
  if (zone.type != 3 && zone.type != 8) {
    return true;
  }
  const int partner = shadowOf(run.provider, zone.id);
  if (partner == 0) {
    return true;
  }
  const int partnerType = typeOf(run.provider, partner);
  if (partnerType != 3 && partnerType != 8) {
    return true;
  }
  if (zone.side0.empty()) {
    return false;
  }
  zone.side1.clear();
  for (const auto& [faceZone, face] : run.faceByFaceZone) {
    if (faceZone == partner) {
      zone.faceId = face;
      zone.sharedWithShadow = true;
    }
  }
  return true;
}

bool PlainBuilder::defineFace(Run& run, FaceZone& zone) {
  if (run.model.findFace(run.part, zone.faceName, zone.faceId)) {
    return true;
  }
  if (!run.model.createFace(run.part, zone.faceName, zone.faceId)) {
    return fail("Unable to define face '" + zone.faceName + "'.");
  }
  run.faceByFaceZone.emplace_back(zone.id, zone.faceId);
  return true;
}

bool PlainBuilder::useSide0(Run& run, int body, const FaceZone& zone, int use0, int use1) {
  if (use0 == 0) {
    if (!run.model.createFaceUse(body, zone.faceId, 0, run.use)) {
      return fail("Unable to define face use on side 0 of '" + zone.faceName + "'.");
    }
    if (!zone.twoSided) {
      run.model.setFaceUseName(run.use, zone.name);
    }
  } else if (!zone.sharedWithShadow) {
    return fail("Cannot define face use for an invalid face side of '" + zone.faceName + "'.");
  } else if (use1 == 0) {
    if (!run.model.createFaceUse(body, zone.faceId, 1, run.use)) {
      return fail("Unable to define face use on side 1 of '" + zone.faceName + "'.");
    }
    if (zone.faceName != zone.name) {
      run.model.setFaceUseName(run.use, zone.name);
    }
  }
  if (!run.model.setFaceUseZoneSides(run.use, run.provider.getMeshId(), {zone.id})) {
    return fail("Unable to set the correct zone side for face use.");
  }
  return true;
}

bool PlainBuilder::useSide1(Run& run, int body, const FaceZone& zone, int use1) {
  if (use1 != 0) {
    return fail("Cannot define face use for an invalid face side of '" + zone.faceName + "'.");
  }
  int use = 0;
  if (!run.model.createFaceUse(body, zone.faceId, 1, use)) {
    return fail("Unable to define face use on side 1 of '" + zone.faceName + "'.");
  }
  if (!zone.twoSided) {
    run.model.setFaceUseName(use, zone.name);
  }
  if (!run.model.setFaceUseZoneSides(use, run.provider.getMeshId(), {-zone.id})) {
    return fail("Unable to set the correct zone side for face use.");
  }
  return true;
}

}  // namespace velto::testing
