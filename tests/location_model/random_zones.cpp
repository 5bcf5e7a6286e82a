// SPDX-License-Identifier: Apache-2.0
//
// Random tables of zones: drawn zone by zone, then linked, related and damaged.

#include "tests/location_model/random_zones.h"

#include <limits>

#include "embedded/base/zone_relations.h"

namespace velto::testing {

namespace {

constexpr int kAbsent = 77;

/// Draws one case.
class ZoneTables {
 public:
  explicit ZoneTables(Random& random) : random_(random) {}

  CasePtr draw() {
    drawIds();
    drawZones();
    for (const int zone : faceZones_) {
      drawLinks(zone);
    }
    for (const int zone : cellZones_) {
      drawCellZone(zone);
    }
    relate();
    for (const int zone : cellZones_) {
      drawBoundingZones(zone);
    }
    drawLists();
    return case_;
  }

 private:
  base::ZoneRecord& record(int zone) { return case_->zone(zone); }

  void drawIds() {
    std::vector<int> ids;
    for (int id = 1; id <= 20; ++id) {
      ids.push_back(id == 20 ? -4 : id);
    }
    random_.shuffle(ids);
    const std::size_t faceCount = random_.chance(2) ? 0 : 1 + random_.below(12);
    const std::size_t cellCount = random_.chance(2) ? 0 : 1 + random_.below(6);
    const auto middle = ids.begin() + static_cast<std::ptrdiff_t>(faceCount);
    faceZones_.assign(ids.begin(), middle);
    cellZones_.assign(middle, middle + static_cast<std::ptrdiff_t>(cellCount));
  }

  void drawZones() {
    CaseBuilder builder;
    for (const int zone : faceZones_) {
      const std::string name = random_.chance(75)
                                   ? "zone " + std::to_string(zone)
                                   : random_.pick<std::string>({"", "", "a", "F3", "F5"});
      const int type = random_.pick<int>({-1, 2, 2, 2, 3, 3, 3, 8, 8, 8, 12, 12, 14, 14, 20});
      std::vector<memory::FaceLine> faces;
      for (std::size_t count = 1 + random_.below(2); faces.size() < count;) {
        const std::uint64_t cell0 = random_.below(2 * cellZones_.size() + 2);
        const std::uint64_t cell1 = random_.below(2 * cellZones_.size() + 2);
        faces.push_back(beside(cell0, cell1));
      }
      builder.faces(zone, name, type, faces);
    }
    for (const int zone : cellZones_) {
      const std::string name = random_.chance(85)
                                   ? "body " + std::to_string(zone)
                                   : random_.pick<std::string>({"", "", "", "a", "B5"});
      builder.cells(zone, name, cellShapeHexahedron, 1 + random_.below(3));
    }
    builder.solverType(random_.pick<std::string>(
        {"VELTO_DRIFTA", "VELTO_DRIFTA", "VELTO_GENERIC", "velto_drifta", ""}));
    case_ = builder.build();
  }

  /// A zone that may stand in a link.
  int anyLink() {
    return random_.chance(80) && !faceZones_.empty()
               ? random_.pick(faceZones_)
               : random_.pick<int>({0, 0, -1, -4, kAbsent, random_.between(1, 20)});
  }

  void drawLinks(int zone) {
    base::ZoneRecord& face = record(zone);
    if (random_.chance(6)) {
      face.faceInfo[faceZoneChild] = anyLink();
    }
    if (random_.chance(55)) {
      const int shadow = anyLink();
      face.faceInfo[faceZoneShadow] = shadow;
      if (random_.chance(40)) {
        record(shadow).faceInfo[faceZoneShadow] = zone;
      }
    }
    if (random_.chance(25)) {
      face.properties = {random_.pick<int>({faceZonePeriodic, faceZonePeriodic, 3})};
    }
    if (random_.chance(4)) {
      face.faceInfo[faceZoneType].reset();
    }
    if (random_.chance(4)) {
      face.texts[zoneName].reset();
    }
  }

  void drawCellZone(int zone) {
    if (random_.chance(8)) {
      record(zone).cellInfo[cellZoneChild] = random_.pick<int>({-1, zone, kAbsent});
    }
    if (random_.chance(30)) {
      case_->arrays().cellNodes[zone];
    }
    if (random_.chance(4)) {
      record(zone).sizes[random_.pick<std::size_t>({zoneFirstId, zoneLastId})] =
          random_.pick<std::uint64_t>({0, 1, 5, std::numeric_limits<std::uint64_t>::max()});
    }
  }

  /// What one side of a face zone lists; mostly no more than one cell zone.
  std::vector<int> anySide() {
    if (random_.chance(35) || cellZones_.empty()) {
      return {};
    }
    std::vector<int> side = {random_.pick(cellZones_)};
    if (random_.chance(10)) {
      side.push_back(random_.pick<int>({kAbsent, 0, -side[0], side[0], random_.between(1, 20)}));
    }
    if (random_.chance(2)) {
      side.push_back(random_.pick(cellZones_));
    }
    random_.shuffle(side);
    return side;
  }

  void relate() {
    for (const int zone : faceZones_) {
      auto& sides = record(zone).sideCellZones;
      sides[0] = anySide();
      sides[1] = random_.chance(25) ? sides[0] : anySide();
    }
    base::deriveBoundingFaceZones(case_->mesh());
  }

  void drawBoundingZones(int zone) {
    std::vector<int>& bounding = record(zone).boundingFaceZones;
    if (random_.chance(25)) {
      bounding.push_back(anyLink());
    }
    if (random_.chance(25)) {
      random_.shuffle(bounding);
    }
    if (random_.chance(10)) {
      bounding.clear();
    }
  }

  /// Which zones store cells, and zones that are listed twice or not listed.
  void drawLists() {
    for (const int zone : faceZones_) {
      if (random_.chance(25)) {
        case_->arrays().faceCell0.remove(zone);
      }
      if (random_.chance(40)) {
        case_->arrays().faceCell1.remove(zone);
      }
    }
    for (const OrvZoneCategory category : {zoneCategoryFace, zoneCategoryCell}) {
      std::vector<int>& ids = case_->mesh().zoneIds[category];
      if (!ids.empty() && random_.chance(2)) {
        ids.push_back(random_.pick(ids));
      }
      if (!ids.empty() && random_.chance(2)) {
        ids.pop_back();
      }
      if (!ids.empty() && random_.chance(1)) {
        ids.push_back(kAbsent);
      }
    }
    if (random_.chance(4)) {
      record(0).faceInfo[faceZoneType] = random_.pick<int>({-1, 3, 12});
      record(0).properties = {faceZonePeriodic};
    }
  }

  Random& random_;
  CasePtr case_;
  std::vector<int> faceZones_;
  std::vector<int> cellZones_;
};

std::vector<ModelRefusal> anyRefusals(Random& random) {
  std::vector<ModelRefusal> refusals(random.chance(65) ? 0 : 1 + random.below(2));
  for (ModelRefusal& refusal : refusals) {
    refusal.call = random.pick<std::string>(
        {"createBody", "createFace", "createFaceUse", "setBodyZones", "setFaceUseZoneSides",
         "setFaceUseName", "findFace", "getFaceSides", "createPart"});
    refusal.nth = random.between(0, 8);
    refusal.isDenied = random.chance(40);
  }
  return refusals;
}

}  // namespace

Preparation RandomBuild::preparation() const {
  return [this](ScriptedProvider&, LocationModelScript& script) {
    for (const ModelRefusal& refusal : refusals) {
      script.add(refusal);
    }
  };
}

RandomBuild randomBuild(Random& random) {
  RandomBuild drawn;
  drawn.served = ZoneTables(random).draw();
  drawn.refusals = anyRefusals(random);
  return drawn;
}

RandomBuild randomBuild(std::uint64_t seed) {
  Random random(seed);
  return randomBuild(random);
}

}  // namespace velto::testing
