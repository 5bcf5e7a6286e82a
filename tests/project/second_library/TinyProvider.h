// SPDX-License-Identifier: Apache-2.0
//
// TinyProvider: the read side of the tiny library.

#ifndef VELTO_TESTS_PROJECT_SECOND_LIBRARY_TINY_PROVIDER_H
#define VELTO_TESTS_PROJECT_SECOND_LIBRARY_TINY_PROVIDER_H

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "data_access/OrvFileProvider.h"

namespace velto::tiny {

/// Serves one tetrahedron: a node zone, a face zone and a cell zone. Its file is a text of one
/// number, the dimension that the mesh is said to have; a text without one cannot be read.
class TinyProvider : public OrvFileProvider {
 public:
  static constexpr int kNodeZone = 1;
  static constexpr int kFaceZone = 2;
  static constexpr int kCellZone = 3;

  bool startReading(const std::string& fileName, OrvDataClass dataClass) override;
  bool getPhaseDescription(short, std::string&) override { return false; }
  bool getVariableDescription(int, std::string&) override { return false; }

  void setFileName(const std::string&, OrvDataClass) override {}
  void getFileVersion(OrvDataClass, int& major, int& minor, int& patch) override;

  void getSettingsKeys(OrvDataClass, std::vector<std::string>& keys) override { keys.clear(); }
  void getSettingsValue(OrvDataClass, const std::string&, std::string&,
                        const std::string&) override {}

  void getMeshIds(std::vector<int>& ids, OrvDataClass) override { ids = {1}; }
  void getTargets(std::vector<int>& categories, int, OrvDataClass) override {
    categories = {targetRestart};
  }
  void getPartitionIds(std::vector<int>& ids, int, OrvDataClass) override { ids.clear(); }

  void beginNodeCoordinates(std::vector<int>& zoneIds) override { zoneIds = {kNodeZone}; }
  std::size_t readNodeCoordinates(int zoneId, double* values, std::size_t n) override;
  void endNodeCoordinates() override {}

  void beginFaceNodes(std::vector<int>& zoneIds) override { zoneIds = {kFaceZone}; }
  void beginFaceNodeCounts() override {}
  bool getUniformFaceNodeCount(int zoneId, short& count) override;
  void readFaceNodeCounts(int, short*, std::size_t) override {}
  void endFaceNodeCounts() override {}
  void beginFaceNodeIds() override {}
  void readFaceNodeIds(int zoneId, std::uint64_t* ids, std::size_t n) override;
  void endFaceNodeIds() override {}
  void endFaceNodes() override {}

  void beginFaceCell0(std::vector<int>& zoneIds) override { zoneIds = {kFaceZone}; }
  std::uint64_t getFaceCell0(std::uint64_t) override { return 1; }
  void readFaceCell0(int zoneId, std::uint64_t* cellIds, std::size_t n) override;
  void endFaceCell0() override {}
  void beginFaceCell1(std::vector<int>& zoneIds) override { zoneIds.clear(); }
  std::uint64_t getFaceCell1(std::uint64_t) override { return 0; }
  void readFaceCell1(int, std::uint64_t*, std::size_t) override {}
  void endFaceCell1() override {}

  void beginFaceShadows(std::vector<int>& zoneIds) override { zoneIds.clear(); }
  std::uint64_t getFaceShadow(std::uint64_t) override { return 0; }
  void endFaceShadows() override {}
  void beginFaceTree(std::vector<int>& parentZoneIds, std::vector<int>& childZoneIds) override;
  void endFaceTree() override {}

  void beginCellTypes(std::vector<int>& zoneIds) override { zoneIds = {kCellZone}; }
  bool getUniformCellType(int zoneId, int& type) override;
  int getCellType(std::uint64_t cellId) override;
  std::size_t readCellTypes(int, int*, std::size_t) override { return 0; }
  void endCellTypes() override {}

  void beginCellNodes(std::vector<int>& zoneIds) override { zoneIds.clear(); }
  void beginCellNodeCounts() override {}
  bool getUniformCellNodeCount(int, short&) override { return false; }
  void readCellNodeCounts(int, short*, std::size_t) override {}
  void endCellNodeCounts() override {}
  void beginCellNodeIds() override {}
  void readCellNodeIds(int, std::uint64_t*, std::size_t) override {}
  void endCellNodeIds() override {}
  void endCellNodes() override {}

  void beginCellFaces(std::vector<int>& zoneIds) override { zoneIds.clear(); }
  void beginCellFaceCounts() override {}
  bool getUniformCellFaceCount(int, short&) override { return false; }
  void readCellFaceCounts(int, short*, std::size_t) override {}
  void endCellFaceCounts() override {}
  void beginCellFaceIds() override {}
  void readCellFaceIds(int, std::uint64_t*, std::size_t) override {}
  void endCellFaceIds() override {}
  void endCellFaces() override {}

  void beginCellPartitions(std::vector<int>& zoneIds) override { zoneIds.clear(); }
  int getCellPartitionInfo(int) override { return 0; }
  void readCellPartitions(int, int*, std::size_t) override {}
  void endCellPartitions() override {}

  void beginPhase(short) override {}
  bool getPhaseAttributeNames(short, std::vector<std::string>&) override { return false; }
  bool getPhaseAttribute(short, const std::string&, std::string&) override { return false; }
  void getVariableNames(OrvZoneCategory, std::vector<std::string>& names) override {
    names.clear();
  }
  bool getVariableAttributeNames(int, std::vector<std::string>&) override { return false; }
  bool getVariableAttribute(int, const std::string&, std::string&) override { return false; }
  std::size_t beginVariable(OrvZoneCategory, const std::string&,
                            std::vector<int>& zoneIds) override;
  std::size_t readVariable(int, double*, std::size_t) override { return 0; }
  void endVariable() override {}
  void endPhase() override {}
};

}  // namespace velto::tiny

#endif  // VELTO_TESTS_PROJECT_SECOND_LIBRARY_TINY_PROVIDER_H
