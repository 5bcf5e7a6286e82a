// SPDX-License-Identifier: Apache-2.0
//
// PlainChecker: the physics objects of the settings.

#include <algorithm>
#include <string>

#include "data_access/OrvLocationModel.h"

#include "tests/checker/PlainChecker.h"
#include "tests/location_model/PlainBuilder.h"

namespace velto::testing {

namespace {

using Texts = std::vector<std::string>;

bool hasParts(const OrvLocationModel* model) {
  std::vector<int> parts;
  if (model != nullptr) {
    model->getParts(parts);
  }
  return !parts.empty();
}

void append(Texts& list, const Texts& more) { list.insert(list.end(), more.begin(), more.end()); }

}  // namespace

bool PlainChecker::isSet(const std::string& path) const {
  return provider_->getSettings(dataClassCase, path, 1).isValid();
}

Texts PlainChecker::namesAt(const std::string& path) const {
  return provider_->getSettings(dataClassCase, path, 1);
}

void PlainChecker::checkPhysicsToMeshMap() {
  const std::string step = "checkPhysicsToMeshMapUsingTopologyModel";
  if (provider_->getTarget() != targetRestart) {
    displayStep(step, "N/A for ORV Post or ORV Partitioned Post mesh.");
    return;
  }
  if (noLM_) {
    displayStep(step, "Skipping location model checks at user request.");
    return;
  }
  displayStep(step, "init");
  const OrvLocationModel* model = provider_->getLocationModel();
  OrvLocationModel built;
  bool isValid = hasParts(model);
  if (!isValid) {
    displayStep(step, "No location model exists, trying to build.");
    PlainBuilder builder;
    if (!builder.build(provider_, &built)) {
      for (const std::string& error : builder.getErrors()) {
        addError(error);
      }
      addError("Failed to build location model.");
      return;
    }
    model = &built;
  }
  const bool hasPhysics =
      isSet("domains") || isSet("boundaries") || isSet("subdomains") || isSet("interfaces");
  if (!isValid && !hasParts(model)) {
    addWarning("Unable to obtain a valid location model.");
    if (hasPhysics) {
      addError(
          "Physics objects are available in the settings, without a location model, the locations of these objects will be invalid.");
      return;
    }
  }
  checkPhysicsAgainst(*model, hasPhysics);
}

void PlainChecker::checkPhysicsAgainst(const OrvLocationModel& model, bool hasPhysics) {
  Names names;
  if (!checkLocationModel(model, names)) {
    return;
  }
  if (!hasPhysics) {
    addWarning("No Physics Model - skipped");
    return;
  }
  checkPhysicsModel(names);
}

bool PlainChecker::checkPhysicsModel(const Names& names) {
  const Texts domains = namesAt("domains");
  const Texts boundaries = namesAt("boundaries");
  const Texts subdomains = namesAt("subdomains");
  const Texts interfaces = namesAt("interfaces");
  Texts volumes = names.bodies;
  append(volumes, names.bodyComposites);
  Texts surfaces = names.faceUses;
  append(surfaces, names.bulkZones);
  append(surfaces, names.faceUseComposites);
  const bool required = false;
  const bool optional = true;
  displayStep("checkDomain", "Checking Physics - Domains");
  for (const std::string& name : domains) {
    if (!checkAttribute("domains", name, "location", volumes, required)) {
      return false;
    }
  }
  displayStep("checkSubdomain", "Checking Physics - Subdomains");
  for (const std::string& name : subdomains) {
    if (!checkAttribute("subdomains", name, "location", volumes, required) ||
        !checkAttribute("subdomains", name, "domain", domains, optional)) {
      return false;
    }
  }
  displayStep("checkBoundary", "Checking Physics - Boundaries");
  for (const std::string& name : boundaries) {
    if (!checkAttribute("boundaries", name, "location", surfaces, required) ||
        !checkAttribute("boundaries", name, "domain", domains, optional)) {
      return false;
    }
  }
  displayStep("checkInterface", "Checking Physics - Interfaces");
  for (const std::string& name : interfaces) {
    if (!checkAttribute("interfaces", name, "boundariesSide1", boundaries, required) ||
        !checkAttribute("interfaces", name, "boundariesSide1", boundaries, required) ||
        !checkAttribute("interfaces", name, "domainsSide1", domains, optional) ||
        !checkAttribute("interfaces", name, "domainsSide2", domains, optional)) {
      return false;
    }
  }
  return true;
}

/// A name counts once for each time that it stands among the valid ones.
bool PlainChecker::checkAttribute(const std::string& kind, const std::string& name,
                                  const std::string& attribute, Texts valid, bool optional) {
  const OrvVariant entry =
      provider_->getSettings(dataClassCase, kind + "/" + name + "/" + attribute, 1);
  if (!entry.isValid()) {
    const std::string word = optional ? "optional" : "required";
    addWarning(name + "' ORV physics model doesn't include " + word + " '" + attribute +
               "' setting.");
    return optional;
  }
  for (const std::string& value : entry.asStringVector()) {
    const auto found = std::find(valid.begin(), valid.end(), value);
    if (found == valid.end()) {
      return failForUnknown(attribute, name);
    }
    valid.erase(found);
  }
  return true;
}

bool PlainChecker::failForUnknown(const std::string& attribute, const std::string& name) {
  addError("The attribute '" + attribute + "' of '" + name +
           "' references locations that don't exist in the location model.");
  return false;
}

}  // namespace velto::testing
