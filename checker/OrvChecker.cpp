// SPDX-License-Identifier: Apache-2.0
//
// The frame of OrvChecker: options, the log, and the walk.
//
//   checkCase          opens the file, judges it as a whole, walks its meshes, looks at the targets
//     openCase         probe, provider, startReading
//     walkMesh         the targets of one mesh, each with its partitions
//       walkTarget     selects mesh, target and partition
//         checkSelected   the checks of one pass, in their order

#include "velto/OrvChecker.h"

#include <cstdio>
#include <iostream>

#include "data_access/OrvFactory.h"
#include "data_access/OrvFileProvider.h"

namespace velto {

// --- Ownership ----------------------------------------------------------------------------------

/// The slot is what copies share, so that a case that one of them released is released for all.
struct OrvChecker::ProviderSlot {
  OrvFileProvider* provider = nullptr;
};

OrvChecker::OrvChecker() = default;
OrvChecker::OrvChecker(const OrvChecker& other) = default;

// Kept: an assignment does not release the case that its target held.
OrvChecker& OrvChecker::operator=(const OrvChecker& other) = default;

OrvChecker::~OrvChecker() { releaseProvider(); }

OrvFileProvider* OrvChecker::openProvider() const {
  return provider == nullptr ? nullptr : provider->provider;
}

void OrvChecker::releaseProvider() {
  if (OrvFileProvider* released = openProvider()) {
    // Kept harmless: the slot is emptied, so that nobody who shares it releases the case again.
    provider->provider = nullptr;
    delete static_cast<OrvFileIO*>(released);
  }
}

// --- Options and results ------------------------------------------------------------------------

void OrvChecker::setVerbosity(int value) { verbosity = value; }
void OrvChecker::setCheckLevel(int value) { checkLevel = value; }
void OrvChecker::setMeshId(int value) { meshId = value; }
void OrvChecker::setPartitionId(int value) { partitionId = value; }
void OrvChecker::setNoLM(bool value) { noLM = value; }
void OrvChecker::setListener(CheckListener* value) { listener = value; }

void OrvChecker::setTarget(const std::string& word) {
  if (word == "restart") {
    target = targetRestart;
  } else if (word == "post") {
    target = targetPost;
  } else if (word == "ppost") {
    target = targetPartitionedPost;
  } else {
    target = -1;
  }
}

const std::vector<std::string>& OrvChecker::getErrors() const { return errors; }
const std::vector<std::string>& OrvChecker::getWarnings() const { return warnings; }

// --- The log ------------------------------------------------------------------------------------

// Kept: the echo has ": " behind the step, the record " : ". The level is the least verbosity at
// which the message is echoed, not a severity.
void OrvChecker::addError(int level, const std::string& message) {
  if (level <= verbosity) {
    std::cerr << "Error: " << currentStep << ": " << message << std::endl;
  }
  errors.push_back(currentStep + " : " + message);
  tellFinding(CheckSeverity::error, message);
}

void OrvChecker::addWarning(int level, const std::string& message) {
  if (level <= verbosity) {
    std::cerr << "Warning: " << currentStep << ": " << message << std::endl;
  }
  warnings.push_back(currentStep + " : " + message);
  tellFinding(CheckSeverity::warning, message);
}

void OrvChecker::tellFinding(CheckSeverity severity, const std::string& message) {
  if (listener != nullptr) {
    listener->onFinding(place, severity, currentStep, message);
  }
}

void OrvChecker::leaveOut(const CheckPlace& where, const std::string& step, CheckOmission reason) {
  if (listener != nullptr) {
    listener->onLeftOut(where, step, reason);
  }
}

void OrvChecker::leaveOutSteps(std::initializer_list<const char*> steps) {
  for (const char* const step : steps) {
    leaveOut(place, step, CheckOmission::level);
  }
}

void OrvChecker::displayStep(const std::string& step, const std::string& detail) {
  currentStep = step;
  if (listener != nullptr) {
    listener->onStep(place, step);
  }
  if (verbosity < 3) {
    return;
  }
  std::cout << "- " << step;
  if (!detail.empty()) {
    std::cout << " - " << detail;
  }
  std::cout << std::endl;
}

namespace {

/// The text without `prefix`, if it begins with it.
std::string withoutPrefix(const std::string& text, const std::string& prefix) {
  return text.compare(0, prefix.size(), prefix) == 0 ? text.substr(prefix.size()) : text;
}

}  // namespace

bool OrvChecker::checkORVErrors() {
  OrvFileProvider* source = openProvider();
  if (source == nullptr) {
    addError(1, "checkMessageState - internal error - null ref");
    return false;
  }
  if (source->hasWarning()) {
    for (const std::string& text : source->getWarnings(true, true)) {
      const std::string reason = withoutPrefix(text, "Warning:\n\t");
      addWarning(1, "ORV - " + reason);
    }
  }
  if (!source->hasError()) {
    return true;
  }
  for (const std::string& text : source->getErrors(true, true)) {
    const std::string reason = withoutPrefix(text, "Error:\n\t");
    addError(1, "ORV - " + reason);
  }
  return false;
}

std::string OrvChecker::targetName(int category) {
  switch (category) {
    case targetRestart:
      return "ORV Restart";
    case targetPost:
      return "ORV Post";
    case targetPartitionedPost:
      return "ORV Partitioned Post";
    default:
      return "Unknown";
  }
}

std::string OrvChecker::describeLocation() const {
  const OrvFileProvider* source = openProvider();
  const OrvTargetCategory category = source->getTarget();
  std::string location =
      targetName(category) + " mesh (" + std::to_string(source->getMeshId()) + ")";
  if (category == targetPartitionedPost) {
    location += " and partition (" + std::to_string(source->getPartitionId()) + ")";
  }
  return location;
}

// --- The walk -----------------------------------------------------------------------------------

bool OrvChecker::checkCase(const std::string& fileName) {
  place = CheckPlace();
  if (!openCase(fileName)) {
    return false;
  }
  if (!checkVersion(dataClassCase)) {
    return false;
  }
  checkSolverType();
  if (!checkORVErrors()) {
    return false;
  }
  checkTopologyModel();
  std::vector<int> meshIds;
  openProvider()->getMeshIds(meshIds, dataClassCase);
  std::set<int> targetsMet;
  for (const int mesh : meshIds) {
    if (!walkMesh(mesh, targetsMet)) {
      return false;
    }
  }
  place = CheckPlace();
  displayStep("checkCase", "availableTargets");
  if (targetsMet.size() > 1) {
    addWarning(1, "ORV file with multiple target types - support is limited");
  }
  checkORVErrors();
  return errors.empty();
}

bool OrvChecker::openCase(const std::string& fileName) {
  releaseProvider();
  std::FILE* probe = std::fopen(fileName.c_str(), "r");
  if (probe == nullptr) {
    addError(1, "Error: No such file / unreadable");
    return false;
  }
  std::fclose(probe);
  provider = std::make_shared<ProviderSlot>();
  provider->provider = getDataProvider(fileName);
  OrvFileProvider* source = openProvider();
  if (source == nullptr) {
    addError(1, "Not a ORV file (cannot setup provider)");
    return false;
  }
  source->setBaseOption(true);
  if (!source->startReading(fileName, dataClassCase)) {
    addError(1, "Error reading ORV file");
    checkORVErrors();
    return false;
  }
  return true;
}

bool OrvChecker::walkMesh(int mesh, std::set<int>& targetsMet) {
  if (meshId > 0 && meshId != mesh) {
    leaveOut({mesh, -1, -1}, "", CheckOmission::meshFilter);
    return true;
  }
  std::vector<int> categories;
  openProvider()->getTargets(categories, mesh, dataClassCase);
  std::vector<int> partitions;
  openProvider()->getPartitionIds(partitions, mesh, dataClassCase);
  if (partitions.empty()) {
    partitions.push_back(-1);
  }
  if (verbosity > 1) {
    std::cout << "Processing mesh : " << mesh << std::endl;
  }
  for (const int category : categories) {
    // Kept: a target that the filter passes over counts as met.
    targetsMet.insert(category);
    if (target != -1 && target != category) {
      leaveOut({mesh, category, -1}, "", CheckOmission::targetFilter);
      continue;
    }
    if (!walkTarget(mesh, category, partitions)) {
      return false;
    }
  }
  return true;
}

bool OrvChecker::walkTarget(int mesh, int category, const std::vector<int>& partitions) {
  if (verbosity > 1) {
    std::cout << "Processing target : " << category << std::endl;
  }
  for (const int partition : partitions) {
    // Kept: only the partitioned post target is filtered; the others are walked once an entry.
    if (category == targetPartitionedPost) {
      if (partitionId != -1 && partitionId != partition) {
        leaveOut({mesh, category, partition}, "", CheckOmission::partitionFilter);
        continue;
      }
      if (verbosity > 1) {
        std::cout << "Processing partition : " << partition << std::endl;
      }
    }
    place = {mesh, category, partition};
    OrvFileProvider* source = openProvider();
    source->setMeshId(mesh);
    source->setTarget(static_cast<OrvTargetCategory>(category));
    source->setPartitionId(partition);
    if (!checkORVErrors() || !checkSelected()) {
      return false;
    }
  }
  return true;
}

bool OrvChecker::checkSelected() {
  const auto leaveOutDeepSteps = [this] {
    leaveOutSteps({"checkFaceConnectivity", "checkCellConnectivity", "checkCellsFromFaces",
                   "checkFacesShadowZones"});
  };
  if (checkLevel < 1) {
    leaveOutSteps({"checkMeshSize", "checkMeshConnectivity",
                   "checkPhysicsToMeshMapUsingTopologyModel", "checkCellZoneConnectivityTypes",
                   "checkNodeZones", "checkFaceZones", "checkCellZones"});
    leaveOutDeepSteps();
    return true;
  }
  if (!checkMeshSize() || !checkMeshConnectivity() ||
      !passAll({&OrvChecker::checkPhysicsToMeshMapUsingTopologyModel,
                &OrvChecker::checkCellZoneConnectivityTypes, &OrvChecker::checkNodeZones,
                &OrvChecker::checkFaceZones, &OrvChecker::checkCellZones})) {
    return false;
  }
  if (checkLevel < 2) {
    leaveOutDeepSteps();
    return true;
  }
  return passAll({&OrvChecker::checkFaceConnectivity, &OrvChecker::checkCellConnectivity,
                  &OrvChecker::checkCellsFromFaces, &OrvChecker::checkFacesShadowZones});
}

/// Runs checks until the library has an error; what they find themselves ends nothing.
bool OrvChecker::passAll(std::initializer_list<Check> checks) {
  for (const Check check : checks) {
    (this->*check)();
    if (!checkORVErrors()) {
      return false;
    }
  }
  return true;
}

}  // namespace velto
