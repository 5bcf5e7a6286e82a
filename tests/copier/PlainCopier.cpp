// SPDX-License-Identifier: Apache-2.0
//
// PlainCopier: setup, element ids, the order of the steps, location model and settings.

#include "tests/copier/PlainCopier.h"

#include <chrono>
#include <ctime>
#include <iomanip>
#include <iostream>
#include <memory>
#include <sstream>
#include <utility>

#include "velto/LocationModelBuilder.h"

#include "data_access/OrvFactory.h"
#include "data_access/OrvFileIO.h"
#include "data_access/OrvLocationModel.h"

namespace velto::testing {

// --- Setup --------------------------------------------------------------------------------------

PlainCopier::PlainCopier(const std::string& applicationName) : applicationName_(applicationName) {}

void PlainCopier::setSource(OrvProvider* provider) { source_ = provider; }

void PlainCopier::setDestination(OrvConsumer* consumer) {
  destination_ = consumer;
  if (!applicationName_.empty()) {
    destination_->setApplicationName(applicationName_);
  }
}

void PlainCopier::setDestination(OrvFileFormatType format, const std::string& caseFile,
                                 const std::string& resultsFile) {
  destination_ = getDataConsumer(format);
  if (!applicationName_.empty()) {
    destination_->setApplicationName(applicationName_);
  }
  auto* const file = dynamic_cast<OrvFileIO*>(destination_);
  if (file != nullptr) {
    file->setFileName(caseFile, dataClassCase);
    file->setFileName(resultsFile, dataClassResults);
  }
}

void PlainCopier::setDestinationSolverFormat(const std::string& format) {
  destinationSolverFormat_ = format;
}

void PlainCopier::setCompression(unsigned int level) { destination_->setCompression(level); }

void PlainCopier::setMode(bool mode) {
  if (mode) {
    destination_->setMode(1);
  }
}

void PlainCopier::copyMeshSizeToDestination(bool meshSize) { meshSizeEnabled_ = meshSize; }

void PlainCopier::copyMeshUnitsToDestination(bool meshUnits) { meshUnitsEnabled_ = meshUnits; }

void PlainCopier::copyZoneTopologyToDestination(bool zoneTopology) {
  zoneTopologyEnabled_ = zoneTopology;
}

void PlainCopier::copyNodeCoordinatesToDestination(bool nodeCoordinates) {
  nodeCoordinatesEnabled_ = nodeCoordinates;
}

void PlainCopier::copyCellsToDestination(bool cells, bool cellNodes, bool cellTypes) {
  cellsEnabled_ = cells;
  cellNodesEnabled_ = cellNodes;
  cellTypesEnabled_ = cellTypes;
}

void PlainCopier::copyCellPartitionsToDestination(bool cellPartitions) {
  cellPartitionsEnabled_ = cellPartitions;
}

void PlainCopier::copyFacesToDestination(bool faces, bool faceNodes, bool faceParents) {
  facesEnabled_ = faces;
  faceNodesEnabled_ = faceNodes;
  faceParentsEnabled_ = faceParents;
}

void PlainCopier::copyLocationModelToDestination(bool locationModel) {
  locationModelEnabled_ = locationModel;
}

void PlainCopier::copySettingsToDestination(bool settings) { settingsEnabled_ = settings; }

void PlainCopier::setVerbose(bool value) { verbose_ = value; }

// --- Element ids --------------------------------------------------------------------------------

bool PlainCopier::addElemIds(int zoneId, const std::vector<std::size_t>& ids) {
  elemIdTable_[zoneId] = ids;
  return true;
}

const std::size_t* PlainCopier::getElemIds(int zoneId, std::size_t& count, bool& found) const {
  found = false;
  for (const auto& entry : zoneMap_) {
    if (entry.second == zoneId) {
      const auto stored = elemIdTable_.find(entry.first);
      if (stored == elemIdTable_.end()) {
        return nullptr;
      }
      found = true;
      count = stored->second.size();
      return stored->second.empty() ? nullptr : &stored->second.front();
    }
  }
  return nullptr;
}

bool PlainCopier::removeElemIds(int zoneId) {
  elemIdTable_.erase(zoneId);
  return true;
}

void PlainCopier::copyElemIds(OrvZoneCategory category) {
  std::vector<int> ids;
  source_->getZoneIds(category, ids);
  for (const int id : ids) {
    if (!isMapped(id)) {
      continue;
    }
    const int mapped = zoneMap_.at(id);
    std::size_t count = 0;
    bool found = false;
    const std::size_t* const list = getElemIds(mapped, count, found);
    if (found) {
      destination_->writeElemIds(mapped, list, count);
    }
  }
}

// --- The order of the steps ---------------------------------------------------------------------

void PlainCopier::writeProgress(const std::string& line) const {
  if (verbose_) {
    std::cout << line << std::endl;
  }
}

bool PlainCopier::copy() {
  if (!copyCase(true)) {
    return false;
  }
  if (!copyResults()) {
    return false;
  }
  writeProgress("Copy complete");
  return true;
}

bool PlainCopier::copyCase(bool bracketWriting) {
  if (source_ == nullptr || destination_ == nullptr) {
    return false;
  }
  if (bracketWriting) {
    destination_->startWriting(dataClassCase);
  }
  destination_->setMeshId(1);
  destination_->setSolverType(destinationSolverFormat_);
  writeProgress("Writing mesh");
  if (meshSizeEnabled_ || meshUnitsEnabled_) {
    if (meshSizeEnabled_) {
      writeProgress("  Copying problem size");
      copyMeshSize();
    }
    if (meshUnitsEnabled_) {
      writeProgress("  Copying mesh units");
      copyMeshUnits();
    }
    writeProgress("  Writing mesh attibutes");
    destination_->writeMeshAttributes();
  }
  if (zoneTopologyEnabled_) {
    writeProgress("  Copying zone toplogy");
    copyZoneTopology();
  }
  if (nodeCoordinatesEnabled_) {
    writeProgress("  Writing node mesh");
    copyNodeCoordinates();
  }
  if (cellsEnabled_) {
    copyCellMesh();
  }
  if (facesEnabled_) {
    copyFaceMesh();
  }
  if (locationModelEnabled_) {
    writeProgress("  Writing location model");
    copyLocationModel();
  }
  writeProgress("  Mesh written");
  if (settingsEnabled_) {
    copySettings();
  }
  if (bracketWriting) {
    destination_->endWriting(dataClassCase);
  }
  return true;
}

void PlainCopier::copyCellMesh() {
  writeProgress("  Writing cell mesh");
  std::vector<int> cellZones;
  destination_->getZoneIds(zoneCategoryCell, cellZones);
  destination_->beginCells(cellZones);
  if (cellNodesEnabled_) {
    writeProgress("    Writing cell nodes");
    copyCellNodes();
  }
  if (cellTypesEnabled_) {
    writeProgress("    Writing cell types");
    copyCellTypes();
  }
  if (cellPartitionsEnabled_) {
    writeProgress("    Writing cell partitions");
    copyCellPartitions();
  }
  destination_->endCells();
}

void PlainCopier::copyFaceMesh() {
  writeProgress("  Writing face mesh");
  std::vector<int> faceZones;
  destination_->getZoneIds(zoneCategoryFace, faceZones);
  destination_->beginFaces(faceZones);
  if (faceNodesEnabled_) {
    writeProgress("    Writing face nodes");
    copyFaceNodes();
  }
  if (faceParentsEnabled_) {
    writeProgress("    Writing face parents");
    copyFaceCell0();
    copyFaceCell1();
  }
  destination_->endFaces();
}

bool PlainCopier::copyResults() {
  if (source_ == nullptr || destination_ == nullptr) {
    return false;
  }
  destination_->startWriting(dataClassResults);
  destination_->setSolverType(destinationSolverFormat_);
  writeProgress("Copying problem size");
  copyMeshSize();
  writeProgress("Copying zone topology");
  copyZoneTopology();
  if (zoneMap_.empty()) {
    writeProgress("Skipping results as no mesh written");
    return true;
  }
  writeProgress("Writing results");
  writeProgress("  Writing phase variables");
  copyPhaseVariables();
  destination_->endWriting(dataClassResults);
  writeProgress("  Results written");
  return true;
}

// --- Sizes and units, location model, settings --------------------------------------------------

void PlainCopier::copyMeshSize() {
  for (const OrvMeshSizeType key :
       {meshDimension, meshNodeCount, meshOtherCount, meshFaceCount, meshCellCount}) {
    std::uint64_t value = 0;
    source_->getMeshSize(key, value);
    destination_->setMeshSize(key, value);
  }
}

void PlainCopier::copyMeshUnits() {
  std::string units;
  source_->getMeshUnits(units);
  destination_->setMeshUnits(units);
}

void PlainCopier::copyLocationModel() {
  const OrvLocationModel* const model = source_->getLocationModel();
  std::vector<int> parts;
  if (model != nullptr) {
    model->getParts(parts);
  }
  if (!parts.empty()) {
    destination_->setLocationModel(model);
    return;
  }
  OrvLocationModel built;
  auto builder = std::make_unique<LocationModelBuilder>();
  builder->build(source_, &built);
  std::vector<int> builtParts;
  built.getParts(builtParts);
  builder.reset();
  if (!builtParts.empty()) {
    destination_->setLocationModel(&built);
  }
}

void PlainCopier::copySettings() {
  std::vector<std::string> keys;
  source_->getSettingsKeys(dataClassCase, keys);
  writeProgress("Writing settings");
  for (const std::string& key : keys) {
    copySettingsKey(key);
  }
  writeProgress("  Settings written");
  const std::time_t now = std::chrono::system_clock::to_time_t(std::chrono::system_clock::now());
  std::tm local = {};
  localtime_r(&now, &local);
  std::ostringstream time;
  time << std::put_time(&local, "%c");
  std::vector<std::pair<std::string, std::string>> entries;
  entries.emplace_back("Time", time.str());
  entries.emplace_back("Source Format", source_->getSolverType());
  entries.emplace_back("Destination Format", destination_->getSolverType());
  destination_->writeStandardSettings(entries, dataClassCase);
  writeProgress("  Standard Settings written");
}

void PlainCopier::copySettingsKey(const std::string& key) {
  try {
    std::string value;
    source_->getSettingsValue(dataClassCase, key, value, OrvBase::_defaultSettingsPath);
    const std::string solverType = destination_->getSolverType();
    std::string destinationKey = solverType + "/" + key;
    if (key.find(solverType) == 0) {
      destinationKey = key;
    }
    destination_->writeSettings({{destinationKey, value}}, dataClassCase,
                                OrvBase::_defaultSettingsPath);
  } catch (...) {
    std::cout << "Warning: Unable to write settings for '" << key << std::endl;
  }
}

}  // namespace velto::testing
