// SPDX-License-Identifier: Apache-2.0
//
// The location model: its objects have names, and refer to zones and objects that exist.
//
//   checkTopologyModel    whether the file holds a model, and a mesh that it can be about
//   checkLocationModel    bodies, face uses and composites of each part, against the zones of the
//                         selected mesh; stops at the first defect
//
// The names that are found on the way are where physics objects can lie.

#include <string>
#include <vector>

#include "velto/OrvChecker.h"

#include "data_access/OrvFileProvider.h"
#include "data_access/location_models.h"

#include "checker/IdList.h"

namespace velto {

bool OrvChecker::checkTopologyModel() {
  displayStep("checkTopologyModel", "Checking for location model.");
  const OrvFileProvider* source = openProvider();
  if (!hasParts(source->getLocationModel())) {
    return true;
  }
  displayStep("checkTopologyModel", "Location Model exists");
  if (noLM) {
    displayStep("checkTopologyModel", "Skipping location model checks at user request.");
    leaveOut(place, currentStep, CheckOmission::noLocationModel);
    return true;
  }
  if (!source->hasTarget(targetRestart)) {
    addWarning(1, "Found a location model in a file that doesn't contain a " +
                      targetName(targetRestart) + " mesh.");
  }
  return true;
}

bool OrvChecker::checkLocationModel(const OrvLocationModel* model,
                                    std::vector<std::string>& bodyNames,
                                    std::vector<std::string>& faceUseNames,
                                    std::vector<std::string>& bulkZoneNames,
                                    std::vector<std::string>& bodyCompositeNames,
                                    std::vector<std::string>& faceUseCompositeNames) {
  const IdList cellZones = zonesOf(*openProvider(), zoneCategoryCell);
  const IdList faceZones = zonesOf(*openProvider(), zoneCategoryFace);
  std::vector<int> parts;
  model->getParts(parts);
  for (const int part : parts) {
    std::vector<int> bodies;
    if (model->getPartBodies(part, bodies) &&
        !checkBodies(*model, bodies, cellZones, faceZones, bodyNames, bulkZoneNames)) {
      return false;
    }
    std::vector<int> faceUses;
    if (model->getPartFaceUses(part, faceUses) &&
        !checkFaceUses(*model, faceUses, faceZones, faceUseNames)) {
      return false;
    }
    std::vector<int> composites;
    // Kept: a composite is compared with the objects of its own part, not of the model.
    if (model->getPartComposites(part, composites) &&
        !checkComposites(*model, composites, IdList(bodies), IdList(faceUses), bodyCompositeNames,
                         faceUseCompositeNames)) {
      return false;
    }
  }
  return true;
}

bool OrvChecker::checkBodies(const OrvLocationModel& model, const std::vector<int>& bodies,
                             const IdList& cellZones, const IdList& faceZones,
                             std::vector<std::string>& bodyNames,
                             std::vector<std::string>& bulkZoneNames) {
  for (const int body : bodies) {
    std::vector<int> zones;
    if (!model.getBodyZones(body, openProvider()->getMeshId(), zones)) {
      continue;
    }
    std::string name;
    if (!model.getBodyName(body, name) || name.empty()) {
      addError(1, "Location Model contains an unnamed body (" + std::to_string(body) + ").");
      return false;
    }
    for (const int zone : zones) {
      if (!checkBodyZone(name, zone, cellZones, faceZones, bulkZoneNames)) {
        return false;
      }
    }
    bodyNames.push_back(name);
  }
  return true;
}

bool OrvChecker::checkBodyZone(const std::string& body, int zone, const IdList& cellZones,
                               const IdList& faceZones, std::vector<std::string>& bulkZoneNames) {
  const OrvFileProvider* source = openProvider();
  if (!faceZones.contains(zone)) {
    if (!cellZones.contains(zone)) {
      // Kept: "exit".
      addError(1,
               "Body (" + body + ") refers to a zone (" + std::to_string(zone) +
                   ") that isn't a valid cell zone or a valid face zone or doesn't exit at all.");
      return false;
    }
    return true;
  }
  OrvFaceZoneType type = faceZoneTypeNone;
  source->getFaceZoneType(zone, type);
  if (type != faceZoneTypeInterior) {
    addError(1, "Body (" + body + ") refers to a face zone (" + std::to_string(zone) +
                    ") that isn't of type 'interior'.");
    return false;
  }
  std::string name;
  source->getZoneStringInfo(zone, zoneName, name);
  if (name.empty()) {
    addError(1, "Body (" + body + ") refers to an interior face zone (" + std::to_string(zone) +
                    ") that isn't named.");
    return false;
  }
  bulkZoneNames.push_back(name);
  return true;
}

namespace {

/// The name of a face use, or else its relative name; empty if it has neither.
std::string nameOfFaceUse(const OrvLocationModel& model, int faceUse) {
  std::string name;
  if (model.getFaceUseName(faceUse, name) && !name.empty()) {
    return name;
  }
  std::string relative;
  return model.getFaceUseRelativeName(faceUse, relative) ? relative : "";
}

}  // namespace

bool OrvChecker::checkFaceUses(const OrvLocationModel& model, const std::vector<int>& faceUses,
                               const IdList& faceZones, std::vector<std::string>& faceUseNames) {
  const OrvFileProvider* source = openProvider();
  for (const int faceUse : faceUses) {
    std::vector<int> sides;
    if (!model.getFaceUseZoneSides(faceUse, source->getMeshId(), sides)) {
      continue;
    }
    const std::string name = nameOfFaceUse(model, faceUse);
    if (name.empty()) {
      addError(1, "Location Model contains an unnamed face use (" + std::to_string(faceUse) + ").");
      return false;
    }
    for (const int side : sides) {
      const int zone = zoneOfSide(side);
      if (!faceZones.contains(zone)) {
        const int mesh = source->getMeshId();
        // Kept: nothing closes the bracket of the zone, and no full stop ends the text.
        addError(1, "Location Model contains a face use (" + name +
                        ") that refers to a face zone (" + std::to_string(zone) +
                        "that doesn't exist in the mesh (" + std::to_string(mesh) + ")");
        return false;
      }
    }
    faceUseNames.push_back(name);
  }
  return true;
}

bool OrvChecker::checkComposites(const OrvLocationModel& model, const std::vector<int>& composites,
                                 const IdList& bodies, const IdList& faceUses,
                                 std::vector<std::string>& bodyCompositeNames,
                                 std::vector<std::string>& faceUseCompositeNames) {
  for (const int composite : composites) {
    std::string name;
    if (!model.getCompositeName(composite, name) || name.empty()) {
      addError(1,
               "Location Model contains an unnamed composite (" + std::to_string(composite) + ").");
      return false;
    }
    std::vector<int> itsBodies;
    std::vector<int> itsFaces;
    std::vector<int> itsFaceUses;
    if (model.resolveComposite(composite, itsBodies, itsFaces, itsFaceUses)) {
      for (const int body : itsBodies) {
        if (!bodies.contains(body)) {
          addError(1, "Location Model contains a composite (" + name + ") that refers to a body (" +
                          std::to_string(body) + ") that doesn't exist in the Location Model.");
          return false;
        }
      }
      for (const int faceUse : itsFaceUses) {
        if (!faceUses.contains(faceUse)) {
          addError(1, "Location Model contains a composite (" + name +
                          ") that refers to a face use (" + std::to_string(faceUse) +
                          ") that doesn't exist in the Location Model.");
          return false;
        }
      }
    }
    // Kept: a composite that cannot be resolved keeps the names that it got.
    if (!itsBodies.empty()) {
      bodyCompositeNames.push_back(name);
    }
    if (!itsFaceUses.empty()) {
      faceUseCompositeNames.push_back(name);
    }
  }
  return true;
}

}  // namespace velto
