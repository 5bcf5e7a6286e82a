// SPDX-License-Identifier: Apache-2.0
//
// PlainCopier: the rules of OrvCopier a second time, as plainly as they read.

#ifndef VELTO_TESTS_COPIER_PLAIN_COPIER_H
#define VELTO_TESTS_COPIER_PLAIN_COPIER_H

#include <cstddef>
#include <cstdint>
#include <map>
#include <string>
#include <vector>

#include "data_access/OrvConsumer.h"
#include "data_access/OrvFileConsumer.h"
#include "data_access/OrvFileProvider.h"
#include "data_access/OrvProvider.h"

namespace velto::testing {

/// Does what OrvCopier does, with the same operations, one step after the other and each family
/// written out: random cases compare the two.
class PlainCopier {
 public:
  explicit PlainCopier(const std::string& applicationName = "Generic");

  void setSource(OrvProvider* provider);
  void setDestination(OrvConsumer* consumer);
  void setDestination(OrvFileFormatType format, const std::string& caseFile,
                      const std::string& resultsFile);
  void setDestinationSolverFormat(const std::string& format);
  void setCompression(unsigned int level);
  void setMode(bool mode);

  void copyMeshSizeToDestination(bool meshSize);
  void copyMeshUnitsToDestination(bool meshUnits);
  void copyZoneTopologyToDestination(bool zoneTopology);
  void copyNodeCoordinatesToDestination(bool nodeCoordinates);
  void copyCellsToDestination(bool cells, bool cellNodes, bool cellTypes);
  void copyCellPartitionsToDestination(bool cellPartitions);
  void copyFacesToDestination(bool faces, bool faceNodes, bool faceParents);
  void copyLocationModelToDestination(bool locationModel);
  void copySettingsToDestination(bool settings);
  void setVerbose(bool value);

  bool addElemIds(int zoneId, const std::vector<std::size_t>& ids);
  const std::size_t* getElemIds(int zoneId, std::size_t& count, bool& found) const;
  bool removeElemIds(int zoneId);

  bool copy();
  bool copyCase(bool bracketWriting);
  bool copyResults();

 private:
  void writeProgress(const std::string& line) const;
  void copyElemIds(OrvZoneCategory category);

  // PlainCopier.cpp
  void copyCellMesh();
  void copyFaceMesh();
  void copyMeshSize();
  void copyMeshUnits();
  void copyLocationModel();
  void copySettings();
  void copySettingsKey(const std::string& key);

  // plain_mesh_movers.cpp
  void copyZoneTopology();
  void copyZoneTable(OrvZoneCategory category, const std::vector<int>& ids);
  void copyNodeCoordinates();
  void copyNodeZone(int id, bool isListed);
  void copyCellNodes();
  void copyFaceNodes();
  void copyCellTypes();
  void copyCellPartitions();
  void copyFaceCell0();
  void copyFaceCell1();

  // plain_results_mover.cpp
  void copyPhaseVariables();
  void copyPhase(short from, short to, OrvFileProvider* fileSource,
                 OrvFileConsumer* fileDestination);
  void copyCategory(short to, OrvZoneCategory category, OrvFileProvider* fileSource,
                    OrvFileConsumer* fileDestination);
  void copyVariableTexts(int from, int to, OrvFileProvider* fileSource,
                         OrvFileConsumer* fileDestination);
  void copyVariable(OrvZoneCategory category, const std::string& name);

  bool isMapped(int id) const { return zoneMap_.count(id) > 0; }
  std::uint64_t elementCount(int id) const;

  /// Leaves the ids that are mapped; gives what they are mapped to.
  std::vector<int> filter(std::vector<int>& ids) const;

  std::map<int, int> zoneMap_;
  std::map<int, std::vector<std::size_t>> elemIdTable_;
  OrvProvider* source_ = nullptr;
  OrvConsumer* destination_ = nullptr;
  bool meshSizeEnabled_ = true;
  bool meshUnitsEnabled_ = true;
  bool zoneTopologyEnabled_ = true;
  bool nodeCoordinatesEnabled_ = true;
  bool cellsEnabled_ = true;
  bool cellNodesEnabled_ = true;
  bool cellTypesEnabled_ = true;
  bool cellPartitionsEnabled_ = false;
  bool facesEnabled_ = true;
  bool faceNodesEnabled_ = true;
  bool faceParentsEnabled_ = true;
  bool locationModelEnabled_ = true;
  bool settingsEnabled_ = false;
  bool verbose_ = false;
  std::string destinationSolverFormat_ = "VELTO_GENERIC";
  std::string applicationName_;
};

}  // namespace velto::testing

#endif  // VELTO_TESTS_COPIER_PLAIN_COPIER_H
