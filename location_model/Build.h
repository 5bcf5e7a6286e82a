// SPDX-License-Identifier: Apache-2.0
//
// LocationModelBuilder::Build: what one call of build works with.

#ifndef VELTO_LOCATION_MODEL_BUILD_H
#define VELTO_LOCATION_MODEL_BUILD_H

#include <cstdint>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <unordered_set>
#include <vector>

#include "velto/LocationModelBuilder.h"

#include "data_access/OrvLocationModel.h"
#include "data_access/OrvProvider.h"

#include "location_model/FaceZoneSides.h"

namespace velto {

/// Operations that can fail record why and answer false; the build ends with the first of them.
class LocationModelBuilder::Build {
 public:
  Build(const LocationModelBuilder& builder, OrvProvider& provider, OrvLocationModel& model)
      : builder_(builder), provider_(provider), model_(model) {}

  bool run();

 private:
  struct Body {
    int cellZone = 0;
    int id = 0;
  };

  /// A face zone on its way to a face, for one body.
  struct FaceDraft {
    int zone = 0;
    int body = 0;
    int type = faceZoneTypeNone;
    bool isTwoSided = false;
    bool isSide0 = false;  ///< Whether the body gets a use for that side.
    bool isSide1 = false;
    std::string zoneName;
    std::string name;  ///< Of the face.
    int face = 0;      ///< 0 until it is known.
    bool isSharedWithShadow = false;
  };

  // LocationModelBuilder.cpp: the tables with which a build begins, and the walk over the bodies
  bool readZones();
  bool readLeafCellZones();
  void listFamilies();
  bool fail(const std::string& message) const;
  std::string nameOf(int zone) const;
  int faceZoneInfo(int zone, OrvFaceZoneInfoType key, int preloaded) const;

  // build_bodies.cpp
  bool addBody(int cellZone, Body& body);
  void absorbInterior(int cellZone, std::vector<int>& bodyZones);
  bool isInside(int faceZone, int cellZone, std::uint64_t first, std::uint64_t last) const;
  bool isFirstFaceWithin(int faceZone, std::uint64_t first, std::uint64_t last) const;

  // build_faces.cpp
  bool addFaces(const Body& body);
  bool refuseTooManyZones(const FaceZoneSides::TooMany& tooMany) const;
  bool addFace(const Body& body, const SidesOfZone& sides);
  bool isPeriodic(const FaceDraft& draft) const;
  void keepStoredSides(FaceDraft& draft) const;
  bool joinLinkedPair(FaceDraft& draft) const;
  bool findOrCreateFace(FaceDraft& draft);
  bool addUses(const FaceDraft& draft);
  bool addUseOfSide0(const FaceDraft& draft, bool isTaken0, bool isTaken1);
  bool addUseOfSide1(const FaceDraft& draft, bool isTaken1);
  bool createUse(const FaceDraft& draft, int side, int& use);

  const LocationModelBuilder& builder_;
  OrvProvider& provider_;
  OrvLocationModel& model_;

  std::vector<int> leafFaceZones_;
  std::vector<int> leafCellZones_;
  std::unordered_set<int> cellNodeZones_;
  std::vector<int> cell0Zones_;  ///< Face zones that store side-0 cells, ascending.
  std::vector<int> cell1Zones_;
  std::optional<FaceZoneSides> sides_;  ///< Read when the first body has its zones.

  int part_ = 0;
  std::set<int> absorbedFaceZones_;
  std::map<int, int> faceByFaceZone_;
  /// The use that was made last of a side 0, or of the other half of a linked pair.
  int lastUse_ = 0;
};

}  // namespace velto

#endif  // VELTO_LOCATION_MODEL_BUILD_H
