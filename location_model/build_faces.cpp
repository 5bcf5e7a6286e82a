// SPDX-License-Identifier: Apache-2.0
//
// Faces and face uses: what becomes of the face zones beside a body that it has not taken in.
//
//   periodic          a use only on the sides for which the zone stores cells
//   linked pair       two zones of type 3 or 8 that are each other's shadows share one face: the
//                     zone met first holds its side 0, the other its side 1
//   any other         a face of its own, which a second body finds by the name of its zone

#include <algorithm>

#include "data_access/location_models.h"

#include "location_model/Build.h"

namespace velto {

namespace {

bool isPairType(int type) { return type == faceZoneType3 || type == faceZoneType8; }

bool isAmong(const std::vector<int>& ascending, int zone) {
  return std::binary_search(ascending.begin(), ascending.end(), zone);
}

}  // namespace

bool LocationModelBuilder::Build::addFaces(const Body& body) {
  if (!sides_) {
    const std::unordered_set<int> leaves(leafCellZones_.begin(), leafCellZones_.end());
    sides_.emplace(provider_, leafFaceZones_, absorbedFaceZones_, leaves);
  }
  for (const SidesOfZone& sides : sides_->around(body.cellZone)) {
    if (absorbedFaceZones_.count(sides.faceZone) == 0 && !addFace(body, sides)) {
      return false;
    }
  }
  return !sides_->tooMany() || refuseTooManyZones(*sides_->tooMany());
}

bool LocationModelBuilder::Build::refuseTooManyZones(const FaceZoneSides::TooMany& tooMany) const {
  // Kept: no blank between the id and the name, and "mode".
  const std::string zone = std::to_string(tooMany.faceZone);
  const std::string name = nameOf(tooMany.faceZone);
  if (tooMany.onSide0) {
    builder_.addError("Face zone " + zone + "'" + name +
                      "' bounds mode than one cell zone on side 0.");
  }
  if (tooMany.onSide1) {
    builder_.addError("Face zone " + zone + "'" + name +
                      "' bounds mode than one cell zone on side 1.");
  }
  return false;
}

bool LocationModelBuilder::Build::addFace(const Body& body, const SidesOfZone& sides) {
  FaceDraft draft;
  draft.zone = sides.faceZone;
  draft.body = body.id;
  draft.isSide0 = sides.isSide0;
  draft.isSide1 = sides.isSide1;
  draft.zoneName = nameOf(draft.zone);
  draft.type = faceZoneInfo(draft.zone, faceZoneType, faceZoneTypeNone);
  draft.isTwoSided = draft.type == faceZoneTypeInterior || draft.type == faceZoneType14;
  draft.name = draft.isTwoSided ? draft.zoneName : "F" + std::to_string(draft.zone);
  if (isPeriodic(draft)) {
    keepStoredSides(draft);
  } else if (!joinLinkedPair(draft)) {
    return true;
  }
  if (!draft.isSide0 && !draft.isSide1) {
    return true;
  }
  return findOrCreateFace(draft) && addUses(draft);
}

bool LocationModelBuilder::Build::isPeriodic(const FaceDraft& draft) const {
  if (draft.type == faceZoneType12) {
    return true;
  }
  if (draft.type == faceZoneTypeNone) {
    return provider_.getFaceZoneProp(draft.zone, faceZonePeriodic);
  }
  if (draft.type != faceZoneType8) {
    return false;
  }
  const int shadow = faceZoneInfo(draft.zone, faceZoneShadow, 0);
  // Kept: a shadow of 0 is asked for its type like any other.
  if (shadow < 0) {
    return false;
  }
  const int type = faceZoneInfo(shadow, faceZoneType, faceZoneTypeNone);
  return type == faceZoneTypeNone ? provider_.getFaceZoneProp(shadow, faceZonePeriodic)
                                  : type == faceZoneType12;
}

void LocationModelBuilder::Build::keepStoredSides(FaceDraft& draft) const {
  if (draft.type == faceZoneType8 && draft.zoneName.empty() &&
      provider_.getSolverType() == "VELTO_DRIFTA") {
    const int shadow = faceZoneInfo(draft.zone, faceZoneShadow, 0);
    if (shadow != 0) {
      draft.zoneName = nameOf(shadow) + "-shadow";
    }
  }
  draft.isSide0 = draft.isSide0 && isAmong(cell0Zones_, draft.zone);
  draft.isSide1 = draft.isSide1 && isAmong(cell1Zones_, draft.zone);
}

/// False if the zone is half of a pair and has nothing to do on its side 0: no face is made of it.
bool LocationModelBuilder::Build::joinLinkedPair(FaceDraft& draft) const {
  if (!isPairType(draft.type)) {
    return true;
  }
  // Kept: a link below zero is followed too.
  const int partner = faceZoneInfo(draft.zone, faceZoneShadow, 0);
  if (partner == 0 || !isPairType(faceZoneInfo(partner, faceZoneType, faceZoneTypeNone))) {
    return true;
  }
  if (!draft.isSide0) {
    return false;
  }
  draft.isSide1 = false;
  const auto made = faceByFaceZone_.find(partner);
  if (made != faceByFaceZone_.end()) {
    draft.face = made->second;
    draft.isSharedWithShadow = true;
  }
  return true;
}

bool LocationModelBuilder::Build::findOrCreateFace(FaceDraft& draft) {
  // Kept: a face that is found by its name is no face of this zone for its shadow.
  if (draft.face != 0 || model_.findFace(part_, draft.name, draft.face)) {
    return true;
  }
  if (!model_.createFace(part_, draft.name, draft.face)) {
    return fail("Unable to define face '" + draft.name + "'.");
  }
  faceByFaceZone_[draft.zone] = draft.face;
  return true;
}

bool LocationModelBuilder::Build::addUses(const FaceDraft& draft) {
  int use0 = 0;
  int use1 = 0;
  model_.getFaceSides(draft.face, use0, use1);
  if (draft.isSide0 && !addUseOfSide0(draft, use0 != 0, use1 != 0)) {
    return false;
  }
  return !draft.isSide1 || addUseOfSide1(draft, use1 != 0);
}

bool LocationModelBuilder::Build::addUseOfSide0(const FaceDraft& draft, bool isTaken0,
                                                bool isTaken1) {
  if (!isTaken0) {
    if (!createUse(draft, 0, lastUse_)) {
      return false;
    }
    if (!draft.isTwoSided) {
      model_.setFaceUseName(lastUse_, draft.zoneName);
    }
  } else if (!draft.isSharedWithShadow) {
    return fail("Cannot define face use for an invalid face side of '" + draft.name + "'.");
  } else if (!isTaken1) {
    // The other half of a linked pair: its own side 0 is side 1 of the face that they share.
    if (!createUse(draft, 1, lastUse_)) {
      return false;
    }
    if (draft.name != draft.zoneName) {
      model_.setFaceUseName(lastUse_, draft.zoneName);
    }
  }
  // Kept: where both sides are taken no use is made, and the zone goes to the one made last.
  if (!model_.setFaceUseZoneSides(lastUse_, provider_.getMeshId(), {draft.zone})) {
    return fail("Unable to set the correct zone side for face use.");
  }
  return true;
}

bool LocationModelBuilder::Build::addUseOfSide1(const FaceDraft& draft, bool isTaken1) {
  if (isTaken1) {
    return fail("Cannot define face use for an invalid face side of '" + draft.name + "'.");
  }
  int use = 0;
  if (!createUse(draft, 1, use)) {
    return false;
  }
  if (!draft.isTwoSided) {
    model_.setFaceUseName(use, draft.zoneName);
  }
  if (!model_.setFaceUseZoneSides(use, provider_.getMeshId(), {side1Of(draft.zone)})) {
    return fail("Unable to set the correct zone side for face use.");
  }
  return true;
}

bool LocationModelBuilder::Build::createUse(const FaceDraft& draft, int side, int& use) {
  if (model_.createFaceUse(draft.body, draft.face, side, use)) {
    return true;
  }
  return side == 0 ? fail("Unable to define face use on side 0 of '" + draft.name + "'.")
                   : fail("Unable to define face use on side 1 of '" + draft.name + "'.");
}

}  // namespace velto
