// SPDX-License-Identifier: Apache-2.0
//
// OrvCopier: what it is told, the lists of element ids, and the log.

#include "velto/OrvCopier.h"

#include <iostream>

#include "data_access/OrvConsumer.h"
#include "data_access/OrvFactory.h"
#include "data_access/OrvFileConsumer.h"
#include "data_access/OrvProvider.h"

namespace velto {

OrvCopier::OrvCopier(const std::string& name) : applicationName(name) {}
OrvCopier::OrvCopier(const OrvCopier& other) = default;
OrvCopier& OrvCopier::operator=(const OrvCopier& other) = default;
OrvCopier::~OrvCopier() = default;

// --- Source and destination ----------------------------------------------------------------------

void OrvCopier::setSource(OrvProvider* provider) { source = provider; }

void OrvCopier::setDestination(OrvConsumer* consumer) {
  destination = consumer;
  if (!applicationName.empty()) {
    destination->setApplicationName(applicationName);
  }
}

void OrvCopier::setDestination(OrvFileFormatType format, const std::string& caseFile,
                               const std::string& resultsFile) {
  setDestination(getDataConsumer(format));
  if (auto* files = dynamic_cast<OrvFileIO*>(destination)) {
    files->setFileName(caseFile, dataClassCase);
    files->setFileName(resultsFile, dataClassResults);
  }
}

void OrvCopier::setDestinationSolverFormat(const std::string& format) {
  destinationSolverFormat = format;
}

void OrvCopier::setCompression(unsigned int level) { destination->setCompression(level); }

void OrvCopier::setMode(bool mode) {
  if (mode) {
    destination->setMode(1);
  }
}

// --- Switches ------------------------------------------------------------------------------------

void OrvCopier::copyMeshSizeToDestination(bool meshSize) { meshSizeEnabled = meshSize; }

void OrvCopier::copyMeshUnitsToDestination(bool meshUnits) { meshUnitsEnabled = meshUnits; }

void OrvCopier::copyZoneTopologyToDestination(bool zoneTopology) {
  zoneTopologyEnabled = zoneTopology;
}

void OrvCopier::copyNodeCoordinatesToDestination(bool nodeCoordinates) {
  nodeCoordinatesEnabled = nodeCoordinates;
}

void OrvCopier::copyCellsToDestination(bool cells, bool cellNodes, bool cellTypes) {
  cellsEnabled = cells;
  cellNodesEnabled = cellNodes;
  cellTypesEnabled = cellTypes;
}

void OrvCopier::copyCellPartitionsToDestination(bool cellPartitions) {
  cellPartitionsEnabled = cellPartitions;
}

void OrvCopier::copyFacesToDestination(bool faces, bool faceNodes, bool faceParents) {
  facesEnabled = faces;
  faceNodesEnabled = faceNodes;
  faceParentsEnabled = faceParents;
}

void OrvCopier::copyLocationModelToDestination(bool locationModel) {
  locationModelEnabled = locationModel;
}

void OrvCopier::copySettingsToDestination(bool settings) { settingsEnabled = settings; }

void OrvCopier::setVerbose(bool value) { verbose = value; }

// --- Element ids ---------------------------------------------------------------------------------
//
// Lists are stored by source zone and asked for by destination zone. Zones keep their ids in a
// copy, so the source zone of a destination zone is the one under its own id in zoneMap.

bool OrvCopier::addElemIds(int zoneId, const std::vector<std::size_t>& ids) {
  elemIdTable[zoneId] = ids;
  return true;
}

const std::size_t* OrvCopier::getElemIds(int zoneId, std::size_t& count, bool& found) const {
  found = false;
  const auto stored = elemIdTable.find(zoneId);
  if (zoneMap.count(zoneId) == 0 || stored == elemIdTable.end()) {
    return nullptr;
  }
  found = true;
  count = stored->second.size();
  return stored->second.empty() ? nullptr : stored->second.data();
}

bool OrvCopier::removeElemIds(int zoneId) {
  elemIdTable.erase(zoneId);
  return true;
}

void OrvCopier::copyElemIds(OrvZoneCategory category) {
  std::vector<int> zoneIds;
  source->getZoneIds(category, zoneIds);
  for (const int zoneId : zoneIds) {
    const auto mapped = zoneMap.find(zoneId);
    if (mapped == zoneMap.end()) {
      continue;
    }
    std::size_t count = 0;
    bool found = false;
    const std::size_t* ids = getElemIds(mapped->second, count, found);
    if (found) {
      destination->writeElemIds(mapped->second, ids, count);
    }
  }
}

// --- Log -----------------------------------------------------------------------------------------

void OrvCopier::writeProgress(const std::string& line) const {
  if (verbose) {
    std::cout << line << std::endl;
  }
}

}  // namespace velto
