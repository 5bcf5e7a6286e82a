// SPDX-License-Identifier: Apache-2.0
//
// copyCase: the steps of a copy of a mesh, its location model and its settings, in their order.

#include <ctime>
#include <iomanip>
#include <iostream>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

#include "velto/LocationModelBuilder.h"
#include "velto/OrvCopier.h"

#include "data_access/OrvLocationModel.h"
#include "data_access/location_models.h"

#include "copier/movers.h"

namespace velto {

using SettingsEntries = std::vector<std::pair<std::string, std::string>>;

bool OrvCopier::copy() {
  if (!copyCase(true) || !copyResults()) {
    return false;
  }
  writeProgress("Copy complete");
  return true;
}

bool OrvCopier::copyCase(bool bracketWriting) {
  if (source == nullptr || destination == nullptr) {
    return false;
  }
  if (bracketWriting) {
    destination->startWriting(dataClassCase);
  }
  ZoneMemory memory;
  destination->setMeshId(1);  // Kept: whichever mesh is selected on the source.
  destination->setSolverType(destinationSolverFormat);

  writeProgress("Writing mesh");
  if (meshSizeEnabled || meshUnitsEnabled) {
    copyMeshAttributes();
  }
  if (zoneTopologyEnabled) {
    writeProgress("  Copying zone toplogy");  // Kept: misspelt.
    copyZoneTopology(source, destination, zoneMap);
  }
  if (nodeCoordinatesEnabled) {
    writeProgress("  Writing node mesh");
    copyNodeCoordinates(memory);
  }
  if (cellsEnabled) {
    copyCellMesh(memory);
  }
  if (facesEnabled) {
    copyFaceMesh(memory);
  }
  if (locationModelEnabled) {
    writeProgress("  Writing location model");
    copyLocationModel();
  }
  writeProgress("  Mesh written");

  if (settingsEnabled) {
    copySettings();
  }
  if (bracketWriting) {
    destination->endWriting(dataClassCase);
  }
  return true;
}

void OrvCopier::copyMeshAttributes() {
  if (meshSizeEnabled) {
    writeProgress("  Copying problem size");
    copyMeshSize(source, destination);
  }
  if (meshUnitsEnabled) {
    writeProgress("  Copying mesh units");
    copyMeshUnits(source, destination);
  }
  writeProgress("  Writing mesh attibutes");  // Kept: misspelt.
  destination->writeMeshAttributes();
}

// --- Cells and faces -----------------------------------------------------------------------------

void OrvCopier::copyCellMesh(ZoneMemory& memory) {
  const Route route = {*source, *destination, zoneMap, memory};
  writeProgress("  Writing cell mesh");
  std::vector<int> zoneIds;
  destination->getZoneIds(zoneCategoryCell, zoneIds);
  destination->beginCells(zoneIds);
  if (cellNodesEnabled) {
    writeProgress("    Writing cell nodes");
    copyCellNodes(route);
  }
  if (cellTypesEnabled) {
    writeProgress("    Writing cell types");
    copyCellTypes(route);
  }
  if (cellPartitionsEnabled) {
    writeProgress("    Writing cell partitions");
    copyCellPartitions(route);
  }
  destination->endCells();
}

void OrvCopier::copyFaceMesh(ZoneMemory& memory) {
  const Route route = {*source, *destination, zoneMap, memory};
  writeProgress("  Writing face mesh");
  std::vector<int> zoneIds;
  destination->getZoneIds(zoneCategoryFace, zoneIds);
  destination->beginFaces(zoneIds);
  if (faceNodesEnabled) {
    writeProgress("    Writing face nodes");
    copyFaceNodes(route);
  }
  if (faceParentsEnabled) {
    writeProgress("    Writing face parents");
    copyFaceParents(route);
  }
  destination->endFaces();
}

// --- Location model ------------------------------------------------------------------------------

void OrvCopier::copyLocationModel() {
  const OrvLocationModel* model = source->getLocationModel();
  if (hasParts(model)) {
    destination->setLocationModel(model);
    return;
  }
  // Kept: what the builder has to say is not heard; the parts that it made decide.
  OrvLocationModel built;
  LocationModelBuilder().build(source, &built);
  if (hasParts(&built)) {
    destination->setLocationModel(&built);
  }
}

// --- Settings ------------------------------------------------------------------------------------

namespace {

/// The local date and time, as the global locale writes them.
std::string currentTime() {
  const std::time_t now = std::time(nullptr);
  std::tm local = {};
  tzset();  // as a change of the time zone asks for
  localtime_r(&now, &local);
  std::ostringstream text;
  text.exceptions(std::ios_base::badbit);  // A lack of memory would cut the text short.
  text << std::put_time(&local, "%c");
  return text.str();
}

/// The key that a setting has below a solver type.
std::string keyBelow(const std::string& solverType, const std::string& key) {
  return key.compare(0, solverType.size(), solverType) == 0 ? key : solverType + "/" + key;
}

/// Copies one setting. Whatever is thrown on the way costs this setting only.
void copySettingsKey(OrvProvider* provider, OrvConsumer* consumer, const std::string& key) {
  try {
    std::string value;
    provider->getSettingsValue(dataClassCase, key, value, OrvBase::_defaultSettingsPath);
    const SettingsEntries entries = {{keyBelow(consumer->getSolverType(), key), value}};
    consumer->writeSettings(entries, dataClassCase, OrvBase::_defaultSettingsPath);
  } catch (...) {
    // Kept: no closing quote, and standard output.
    std::cout << "Warning: Unable to write settings for '" << key << std::endl;
  }
}

}  // namespace

void OrvCopier::copySettings() {
  std::vector<std::string> keys;
  source->getSettingsKeys(dataClassCase, keys);
  writeProgress("Writing settings");
  for (const std::string& key : keys) {
    copySettingsKey(source, destination, key);
  }
  writeProgress("  Settings written");

  const SettingsEntries standard = {{"Time", currentTime()},
                                    {"Source Format", source->getSolverType()},
                                    {"Destination Format", destination->getSolverType()}};
  destination->writeStandardSettings(standard, dataClassCase);
  writeProgress("  Standard Settings written");
}

}  // namespace velto
