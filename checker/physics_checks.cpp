// SPDX-License-Identifier: Apache-2.0
//
// The physics objects of the settings: they are complete, and lie where the location model has
// something of that name.
//
//   kind          attribute         required    each value is one of
//   domains       location          yes         bodies, composites of bodies
//   subdomains    location          yes         the same
//                 domain            no          domains
//   boundaries    location          yes         face uses, interior zones, composites of face uses
//                 domain            no          domains
//   interfaces    boundariesSide1   yes         boundaries
//                 domainsSide1      no          domains
//                 domainsSide2      no          domains
//
// The first fault ends the check of a mesh.

#include <algorithm>
#include <initializer_list>
#include <string>
#include <vector>

#include "velto/LocationModelBuilder.h"
#include "velto/OrvChecker.h"

#include "data_access/OrvFileProvider.h"
#include "data_access/location_models.h"

namespace velto {

namespace {

using Names = std::vector<std::string>;

OrvVariant settingOf(const OrvFileProvider& source, const std::string& path) {
  return source.getSettings(dataClassCase, path, 1);
}

/// All names of some lists, in byte order.
Names sorted(std::initializer_list<Names> lists) {
  Names all;
  for (const Names& list : lists) {
    all.insert(all.end(), list.begin(), list.end());
  }
  std::sort(all.begin(), all.end());
  return all;
}

}  // namespace

bool OrvChecker::checkPhysicsToMeshMapUsingTopologyModel() {
  const std::string step = "checkPhysicsToMeshMapUsingTopologyModel";
  OrvFileProvider* source = openProvider();
  if (source->getTarget() != targetRestart) {
    displayStep(step, "N/A for ORV Post or ORV Partitioned Post mesh.");
    leaveOut(place, step, CheckOmission::notApplicable);
    return true;
  }
  if (noLM) {
    displayStep(step, "Skipping location model checks at user request.");
    leaveOut(place, step, CheckOmission::noLocationModel);
    return true;
  }
  displayStep(step, "init");
  const OrvLocationModel* model = source->getLocationModel();
  if (hasParts(model)) {
    return checkPhysicsAgainst(*model, hasPhysicsObjects());
  }
  displayStep(step, "No location model exists, trying to build.");
  OrvLocationModel built;
  const LocationModelBuilder builder;
  if (!builder.build(source, &built)) {
    for (const std::string& error : builder.getErrors()) {
      addError(1, error);
    }
    addError(1, "Failed to build location model.");
    return false;
  }
  const bool hasPhysics = hasPhysicsObjects();
  if (!hasParts(&built)) {
    addWarning(1, "Unable to obtain a valid location model.");
    if (hasPhysics) {
      addError(
          1,
          "Physics objects are available in the settings, without a location model, the locations of these objects will be invalid.");
      return false;
    }
  }
  return checkPhysicsAgainst(built, hasPhysics);
}

bool OrvChecker::hasPhysicsObjects() const {
  const std::initializer_list<const char*> kinds = {"domains", "boundaries", "subdomains",
                                                    "interfaces"};
  return std::any_of(kinds.begin(), kinds.end(), [this](const char* kind) {
    return settingOf(*openProvider(), kind).isValid();
  });
}

bool OrvChecker::checkPhysicsAgainst(const OrvLocationModel& model, bool hasPhysics) {
  Names bodyNames;
  Names faceUseNames;
  Names bulkZoneNames;
  Names bodyCompositeNames;
  Names faceUseCompositeNames;
  if (!checkLocationModel(&model, bodyNames, faceUseNames, bulkZoneNames, bodyCompositeNames,
                          faceUseCompositeNames)) {
    return false;
  }
  if (!hasPhysics) {
    addWarning(1, "No Physics Model - skipped");
    return true;
  }
  return checkPhysicsModel(bodyNames, faceUseNames, bulkZoneNames, bodyCompositeNames,
                           faceUseCompositeNames);
}

bool OrvChecker::checkPhysicsModel(const Names& bodyNames, const Names& faceUseNames,
                                   const Names& bulkZoneNames, const Names& bodyCompositeNames,
                                   const Names& faceUseCompositeNames) {
  const OrvFileProvider& source = *openProvider();
  Names domains = settingOf(source, "domains");
  const Names boundaries = settingOf(source, "boundaries");
  const Names subdomains = settingOf(source, "subdomains");
  const Names interfaces = settingOf(source, "interfaces");
  const Names volumeLocations = sorted({bodyNames, bodyCompositeNames});
  // The domains are checked in their order, and looked up in byte order from then on.
  if (!checkDomain(domains, volumeLocations)) {
    return false;
  }
  std::sort(domains.begin(), domains.end());
  if (!checkSubdomain(subdomains, domains, volumeLocations)) {
    return false;
  }
  const Names surfaceLocations = sorted({faceUseNames, bulkZoneNames, faceUseCompositeNames});
  return checkBoundary(boundaries, domains, surfaceLocations) &&
         checkInterface(interfaces, domains, sorted({boundaries}));
}

bool OrvChecker::checkDomain(const Names& domains, const Names& volumeLocations) {
  displayStep("checkDomain", "Checking Physics - Domains");
  return std::all_of(domains.begin(), domains.end(), [&](const std::string& name) {
    return checkPhysicsObject("domains", name, "location", volumeLocations, false);
  });
}

bool OrvChecker::checkSubdomain(const Names& subdomains, const Names& domains,
                                const Names& volumeLocations) {
  displayStep("checkSubdomain", "Checking Physics - Subdomains");
  return std::all_of(subdomains.begin(), subdomains.end(), [&](const std::string& name) {
    return checkPhysicsObject("subdomains", name, "location", volumeLocations, false) &&
           checkPhysicsObject("subdomains", name, "domain", domains, true);
  });
}

bool OrvChecker::checkBoundary(const Names& boundaries, const Names& domains,
                               const Names& surfaceLocations) {
  displayStep("checkBoundary", "Checking Physics - Boundaries");
  return std::all_of(boundaries.begin(), boundaries.end(), [&](const std::string& name) {
    return checkPhysicsObject("boundaries", name, "location", surfaceLocations, false) &&
           checkPhysicsObject("boundaries", name, "domain", domains, true);
  });
}

bool OrvChecker::checkInterface(const Names& interfaces, const Names& domains,
                                const Names& boundaries) {
  displayStep("checkInterface", "Checking Physics - Interfaces");
  return std::all_of(interfaces.begin(), interfaces.end(), [&](const std::string& name) {
    // Kept: side 1 is tested twice, and side 2 not at all.
    return checkPhysicsObject("interfaces", name, "boundariesSide1", boundaries, false) &&
           checkPhysicsObject("interfaces", name, "boundariesSide1", boundaries, false) &&
           checkPhysicsObject("interfaces", name, "domainsSide1", domains, true) &&
           checkPhysicsObject("interfaces", name, "domainsSide2", domains, true);
  });
}

bool OrvChecker::checkPhysicsObject(const std::string& kind, const std::string& name,
                                    const std::string& attribute, const Names& validNames,
                                    bool optional) {
  const OrvVariant entry = settingOf(*openProvider(), kind + "/" + name + "/" + attribute);
  if (!entry.isValid()) {
    // Kept: no quote before the name; and a missing required setting is a warning, though it ends
    // the checks.
    if (optional) {
      addWarning(
          1, name + "' ORV physics model doesn't include optional '" + attribute + "' setting.");
    } else {
      addWarning(
          1, name + "' ORV physics model doesn't include required '" + attribute + "' setting.");
    }
    return optional;
  }
  Names values = entry.asStringVector();
  std::sort(values.begin(), values.end());
  // Kept: each name stands for one value only, so that a value which the entry has twice fails.
  auto next = validNames.begin();
  const bool areAllKnown = std::all_of(values.begin(), values.end(), [&](const std::string& value) {
    next = std::lower_bound(next, validNames.end(), value);
    return next != validNames.end() && *next++ == value;
  });
  if (areAllKnown) {
    return true;
  }
  addError(1, "The attribute '" + attribute + "' of '" + name +
                  "' references locations that don't exist in the location model.");
  return false;
}

}  // namespace velto
