// SPDX-License-Identifier: Apache-2.0
//
// PlainChecker: bodies, face uses and composites of the location model.

#include <limits>
#include <string>

#include "data_access/OrvLocationModel.h"

#include "tests/checker/PlainChecker.h"

namespace velto::testing {

namespace {

std::string inBrackets(int id) { return "(" + std::to_string(id) + ")"; }

/// The least id is its own opposite.
constexpr int kNoOpposite = std::numeric_limits<int>::min();

}  // namespace

void PlainChecker::checkTopologyModel() {
  displayStep("checkTopologyModel", "Checking for location model.");
  const OrvLocationModel* model = provider_->getLocationModel();
  if (model == nullptr) {
    return;
  }
  std::vector<int> parts;
  model->getParts(parts);
  if (parts.empty()) {
    return;
  }
  displayStep("checkTopologyModel", "Location Model exists");
  if (noLM_) {
    displayStep("checkTopologyModel", "Skipping location model checks at user request.");
  } else if (!provider_->hasTarget(targetRestart)) {
    addWarning("Found a location model in a file that doesn't contain a ORV Restart mesh.");
  }
}

bool PlainChecker::checkLocationModel(const OrvLocationModel& model, Names& names) {
  names.cellZones = zonesOf(zoneCategoryCell);
  names.faceZones = zonesOf(zoneCategoryFace);
  std::vector<int> parts;
  model.getParts(parts);
  for (const int part : parts) {
    std::vector<int> bodies;
    if (model.getPartBodies(part, bodies) && !checkBodies(model, bodies, names)) {
      return false;
    }
    std::vector<int> faceUses;
    if (model.getPartFaceUses(part, faceUses) && !checkFaceUses(model, faceUses, names)) {
      return false;
    }
    if (!checkComposites(model, part, bodies, faceUses, names)) {
      return false;
    }
  }
  return true;
}

bool PlainChecker::checkBodies(const OrvLocationModel& model, const std::vector<int>& bodies,
                               Names& names) {
  for (const int body : bodies) {
    std::vector<int> zones;
    if (!model.getBodyZones(body, provider_->getMeshId(), zones)) {
      continue;  // it has no place in this mesh
    }
    std::string name;
    if (!model.getBodyName(body, name) || name.empty()) {
      addError("Location Model contains an unnamed body " + inBrackets(body) + ".");
      return false;
    }
    for (const int zone : zones) {
      if (!checkBodyZone(zone, name, names)) {
        return false;
      }
    }
    names.bodies.push_back(name);
  }
  return true;
}

bool PlainChecker::checkBodyZone(int zone, const std::string& body, Names& names) {
  const std::string start = "Body (" + body + ") refers to ";
  if (standsIn(names.faceZones, zone)) {
    OrvFaceZoneType type = faceZoneTypeNone;
    provider_->getFaceZoneType(zone, type);
    if (type != faceZoneTypeInterior) {
      addError(start + "a face zone " + inBrackets(zone) + " that isn't of type 'interior'.");
      return false;
    }
    const std::string name = zoneText(zone, zoneName);
    if (name.empty()) {
      addError(start + "an interior face zone " + inBrackets(zone) + " that isn't named.");
      return false;
    }
    names.bulkZones.push_back(name);
    return true;
  }
  if (!standsIn(names.cellZones, zone)) {
    addError(start + "a zone " + inBrackets(zone) +
             " that isn't a valid cell zone or a valid face zone or doesn't exit at all.");
    return false;
  }
  return true;
}

bool PlainChecker::checkFaceUses(const OrvLocationModel& model, const std::vector<int>& faceUses,
                                 Names& names) {
  for (const int faceUse : faceUses) {
    std::vector<int> sides;
    if (!model.getFaceUseZoneSides(faceUse, provider_->getMeshId(), sides)) {
      continue;
    }
    std::string name;
    if (!model.getFaceUseName(faceUse, name) || name.empty()) {
      name.clear();
      if (!model.getFaceUseRelativeName(faceUse, name) || name.empty()) {
        addError("Location Model contains an unnamed face use " + inBrackets(faceUse) + ".");
        return false;
      }
    }
    for (const int side : sides) {
      const int zone = side < 0 && side != kNoOpposite ? -side : side;
      if (!standsIn(names.faceZones, zone)) {
        addError("Location Model contains a face use (" + name + ") that refers to a face zone (" +
                 std::to_string(zone) + "that doesn't exist in the mesh " +
                 inBrackets(provider_->getMeshId()));
        return false;
      }
    }
    names.faceUses.push_back(name);
  }
  return true;
}

bool PlainChecker::failForMember(const std::string& composite, const std::string& kind, int id) {
  addError("Location Model contains a composite (" + composite + ") that refers to a " + kind +
           " " + inBrackets(id) + " that doesn't exist in the Location Model.");
  return false;
}

bool PlainChecker::checkComposites(const OrvLocationModel& model, int part,
                                   const std::vector<int>& bodies, const std::vector<int>& faceUses,
                                   Names& names) {
  std::vector<int> composites;
  if (!model.getPartComposites(part, composites)) {
    return true;
  }
  for (const int composite : composites) {
    std::string name;
    if (!model.getCompositeName(composite, name) || name.empty()) {
      addError("Location Model contains an unnamed composite " + inBrackets(composite) + ".");
      return false;
    }
    const std::string start =
        "Location Model contains a composite (" + name + ") that refers to a ";
    const std::string end = " that doesn't exist in the Location Model.";
    std::vector<int> itsBodies;
    std::vector<int> itsFaces;
    std::vector<int> itsFaceUses;
    if (model.resolveComposite(composite, itsBodies, itsFaces, itsFaceUses)) {
      for (const int body : itsBodies) {
        if (!standsIn(bodies, body)) {
          return failForMember(name, "body", body);
        }
      }
      for (const int faceUse : itsFaceUses) {
        if (!standsIn(faceUses, faceUse)) {
          return failForMember(name, "face use", faceUse);
        }
      }
    }
    if (!itsBodies.empty()) {
      names.bodyComposites.push_back(name);
    }
    if (!itsFaceUses.empty()) {
      names.faceUseComposites.push_back(name);
    }
  }
  return true;
}

}  // namespace velto::testing
