// SPDX-License-Identifier: Apache-2.0
//
// PlainChecker: the log, the walk over meshes, targets and partitions, the file as a whole.

#include "tests/checker/PlainChecker.h"

#include <algorithm>
#include <cstdio>
#include <utility>

#include "data_access/OrvVersion.h"

namespace velto::testing {

namespace {

/// A text without a prefix, if it begins with that.
std::string without(const std::string& prefix, const std::string& text) {
  return text.rfind(prefix, 0) == 0 ? text.substr(prefix.size()) : text;
}

bool isReadable(const std::string& fileName) {
  std::FILE* file = std::fopen(fileName.c_str(), "r");
  if (file == nullptr) {
    return false;
  }
  std::fclose(file);
  return true;
}

std::string takeText(std::ostringstream& stream) {
  std::string text = stream.str();
  stream.str("");
  return text;
}

}  // namespace

PlainChecker::PlainChecker(ProviderMaker makeProvider) : makeProvider_(std::move(makeProvider)) {}

PlainChecker::~PlainChecker() { release(); }

void PlainChecker::release() {
  delete static_cast<OrvFileIO*>(provider_);
  provider_ = nullptr;
}

void PlainChecker::setTarget(const std::string& word) {
  target_ = word == "restart" ? 0 : word == "post" ? 1 : word == "ppost" ? 2 : -1;
}

std::string PlainChecker::takeOut() { return takeText(out_); }

std::string PlainChecker::takeErr() { return takeText(err_); }

// --- Log ----------------------------------------------------------------------------------------

void PlainChecker::addError(const std::string& message) {
  if (verbosity_ >= 1) {
    err_ << "Error: " << currentStep_ << ": " << message << "\n";
  }
  errors_.push_back(currentStep_ + " : " + message);
}

void PlainChecker::addWarning(const std::string& message) {
  if (verbosity_ >= 1) {
    err_ << "Warning: " << currentStep_ << ": " << message << "\n";
  }
  warnings_.push_back(currentStep_ + " : " + message);
}

void PlainChecker::displayStep(const std::string& step, const std::string& detail) {
  currentStep_ = step;
  if (verbosity_ >= 3) {
    out_ << "- " << step << " - " << detail << "\n";
  }
}

bool PlainChecker::checkORVErrors() {
  if (provider_->hasWarning()) {
    for (const std::string& text : provider_->getWarnings(true, true)) {
      addWarning("ORV - " + without("Warning:\n\t", text));
    }
  }
  if (!provider_->hasError()) {
    return true;
  }
  for (const std::string& text : provider_->getErrors(true, true)) {
    addError("ORV - " + without("Error:\n\t", text));
  }
  return false;
}

std::string PlainChecker::location() {
  const int target = provider_->getTarget();
  const std::string name = target == 0   ? "ORV Restart"
                           : target == 1 ? "ORV Post"
                           : target == 2 ? "ORV Partitioned Post"
                                         : "Unknown";
  std::string text = name + " mesh (" + std::to_string(provider_->getMeshId()) + ")";
  if (target == 2) {
    text += " and partition (" + std::to_string(provider_->getPartitionId()) + ")";
  }
  return text;
}

// --- Walk ---------------------------------------------------------------------------------------

bool PlainChecker::checkCase(const std::string& fileName) {
  release();
  if (!openCase(fileName) || !checkVersion()) {
    return false;
  }
  checkSolverType();
  if (!checkORVErrors()) {
    return false;
  }
  checkTopologyModel();
  std::vector<int> meshes;
  provider_->getMeshIds(meshes, dataClassCase);
  std::set<int> met;
  for (const int mesh : meshes) {
    if (!(meshId_ > 0 && meshId_ != mesh) && !walkMesh(mesh, met)) {
      return false;
    }
  }
  displayStep("checkCase", "availableTargets");
  if (met.size() > 1) {
    addWarning("ORV file with multiple target types - support is limited");
  }
  checkORVErrors();
  return errors_.empty();
}

bool PlainChecker::openCase(const std::string& fileName) {
  if (!isReadable(fileName)) {
    addError("Error: No such file / unreadable");
    return false;
  }
  provider_ = makeProvider_(fileName);
  if (provider_ == nullptr) {
    addError("Not a ORV file (cannot setup provider)");
    return false;
  }
  provider_->setBaseOption(true);
  if (!provider_->startReading(fileName, dataClassCase)) {
    addError("Error reading ORV file");
    checkORVErrors();
    return false;
  }
  return true;
}

bool PlainChecker::walkMesh(int mesh, std::set<int>& met) {
  std::vector<int> targets;
  provider_->getTargets(targets, mesh, dataClassCase);
  std::vector<int> partitions;
  provider_->getPartitionIds(partitions, mesh, dataClassCase);
  if (partitions.empty()) {
    partitions.push_back(-1);
  }
  if (verbosity_ > 1) {
    out_ << "Processing mesh : " << mesh << "\n";
  }
  for (const int target : targets) {
    met.insert(target);  // before the filter: what it passes over was met all the same
    if (target_ != -1 && target_ != target) {
      continue;
    }
    if (!walkTarget(mesh, target, partitions)) {
      return false;
    }
  }
  return true;
}

bool PlainChecker::walkTarget(int mesh, int target, const std::vector<int>& partitions) {
  if (verbosity_ > 1) {
    out_ << "Processing target : " << target << "\n";
  }
  for (const int partition : partitions) {
    if (target == 2) {
      if (partitionId_ != -1 && partitionId_ != partition) {
        continue;
      }
      if (verbosity_ > 1) {
        out_ << "Processing partition : " << partition << "\n";
      }
    }
    provider_->setMeshId(mesh);
    provider_->setTarget(static_cast<OrvTargetCategory>(target));
    provider_->setPartitionId(partition);
    if (!checkORVErrors() || !checkSelected()) {
      return false;
    }
  }
  return true;
}

bool PlainChecker::checkSelected() {
  if (checkLevel_ < 1) {
    return true;
  }
  if (!checkMeshSize() || !checkMeshConnectivity()) {
    return false;
  }
  checkPhysicsToMeshMap();
  if (!checkORVErrors()) {
    return false;
  }
  checkCellZoneConnectivityTypes();
  if (!checkORVErrors()) {
    return false;
  }
  checkNodeZones();
  if (!checkORVErrors()) {
    return false;
  }
  checkFaceZones();
  if (!checkORVErrors()) {
    return false;
  }
  checkCellZones();
  return checkORVErrors() && checkConnectivity();
}

bool PlainChecker::checkConnectivity() {
  if (checkLevel_ < 2) {
    return true;
  }
  checkFaceConnectivity();
  if (!checkORVErrors()) {
    return false;
  }
  checkCellConnectivity();
  if (!checkORVErrors()) {
    return false;
  }
  checkCellsFromFaces();
  if (!checkORVErrors()) {
    return false;
  }
  checkFacesShadowZones();
  return checkORVErrors();
}

// --- File as a whole ----------------------------------------------------------------------------

bool PlainChecker::checkVersion() {
  displayStep("checkVersion", "getFileVersion");
  int major = 0;
  int minor = 0;
  int patch = 0;
  provider_->getFileVersion(dataClassCase, major, minor, patch);
  if (verbosity_ > 1) {
    out_ << "Version: " << major << "." << minor << "." << patch << "\n";
  }
  if (major <= 0) {
    addError("ORV version number invalid");
    return false;
  }
  const int ownMajor = static_cast<int>(OrvVersion::getMajor());
  if (major > ownMajor) {
    addWarning("ORV Major version number is newer - compatibility might be limited");
    return false;
  }
  if (major == ownMajor) {
    compareVersions(minor, patch);
  }
  return checkORVErrors();
}

void PlainChecker::compareVersions(int minor, int patch) {
  const int ownMinor = static_cast<int>(OrvVersion::getMinor());
  const int ownPatch = static_cast<int>(OrvVersion::getPatch());
  if (minor > ownMinor) {
    addWarning("ORV Minor version number is newer - compatibility might be limited");
  }
  if (minor == ownMinor && patch > ownPatch) {
    addWarning("ORV patch version number is newer - compatibility might be limited");
  }
}

void PlainChecker::checkSolverType() {
  displayStep("checkSolverType", "getSolverType");
  const std::string type = provider_->getSolverType();
  if (type == "ORV_GENERIC") {
    addWarning("File with undefined / ORV_GENERIC solver type");
  } else if (type.empty()) {
    addError("Empty solver type");
  } else if (type.substr(0, 6) != "VELTO_") {
    addWarning("File with unknown solver type");
  }
}

bool PlainChecker::checkMeshSize() {
  displayStep("checkMeshSize", "getMeshSize");
  const std::uint64_t dimension = meshSize(meshDimension);
  if (dimension != 2 && dimension != 3) {
    addError("Invalid mesh dimension");
    return false;
  }
  const std::uint64_t nodes = meshSize(meshNodeCount);
  const std::uint64_t faces = meshSize(meshFaceCount);
  const std::uint64_t cells = meshSize(meshCellCount);
  if (verbosity_ > 1) {
    out_ << "Size: nodes " << nodes << " faces " << faces << " cells " << cells << "\n";
  }
  if (nodes == 0 && (faces != 0 || cells != 0)) {
    addError("The mesh has cell/faces but no nodes");
  }
  return true;
}

// --- Queries ------------------------------------------------------------------------------------

std::uint64_t PlainChecker::meshSize(OrvMeshSizeType key) const {
  std::uint64_t value = 0;
  provider_->getMeshSize(key, value);
  return value;
}

std::uint64_t PlainChecker::zoneSize(int zone, OrvZoneSizeType key) const {
  std::uint64_t value = 0;
  provider_->getZoneSizeInfo(zone, key, value);
  return value;
}

std::string PlainChecker::zoneText(int zone, OrvZoneStringInfoType key) const {
  std::string text;
  provider_->getZoneStringInfo(zone, key, text);
  return text;
}

std::vector<int> PlainChecker::zonesOf(OrvZoneCategory category) const {
  std::vector<int> zones;
  provider_->getZoneIds(category, zones);
  return zones;
}

bool standsIn(const std::vector<int>& list, int value) {
  return std::find(list.begin(), list.end(), value) != list.end();
}

}  // namespace velto::testing
