// SPDX-License-Identifier: Apache-2.0
//
// CaseProvider: the read side of any case that comes as tables and arrays.

#ifndef VELTO_EMBEDDED_BASE_CASE_PROVIDER_H
#define VELTO_EMBEDDED_BASE_CASE_PROVIDER_H

#include <map>
#include <memory>
#include <string>
#include <vector>

#include "data_access/OrvFileProvider.h"

#include "embedded/base/CaseTables.h"
#include "embedded/base/ElementReader.h"
#include "embedded/base/MeshArrays.h"

namespace velto::base {

/// Follows the protocol of the contract for the memory case, the store and every format: a subclass
/// only opens its file and hands over what it found.
///
/// Border of the two error worlds: what open() or an array source throws becomes a pending error
/// here. A zone that holds fewer values than it announces gives a pending warning and leaves the
/// rest of the caller's buffer as it was.
class CaseProvider : public OrvFileProvider {
 public:
  /// The arrays of each mesh, target and partition; never null.
  using ArraysByMesh = std::map<MeshKey, std::shared_ptr<MeshArrays>>;

  bool startReading(const std::string& fileName, OrvDataClass dataClass) override;
  void setFileName(const std::string& path, OrvDataClass dataClass) override;
  void getFileVersion(OrvDataClass dataClass, int& major, int& minor, int& patch) override;

  void getSettingsKeys(OrvDataClass dataClass, std::vector<std::string>& keys) override;
  void getSettingsValue(OrvDataClass dataClass, const std::string& key, std::string& value,
                        const std::string& path) override;
  void getMeshIds(std::vector<int>& ids, OrvDataClass dataClass) override;
  void getTargets(std::vector<int>& categories, int meshId, OrvDataClass dataClass) override;
  void getPartitionIds(std::vector<int>& ids, int meshId, OrvDataClass dataClass) override;

  void beginNodeCoordinates(std::vector<int>& zoneIds) override;
  std::size_t readNodeCoordinates(int zoneId, double* values, std::size_t n) override;
  void endNodeCoordinates() override;

  void beginFaceNodes(std::vector<int>& zoneIds) override;
  void beginFaceNodeCounts() override;
  bool getUniformFaceNodeCount(int zoneId, short& count) override;
  void readFaceNodeCounts(int zoneId, short* counts, std::size_t n) override;
  void endFaceNodeCounts() override;
  void beginFaceNodeIds() override;
  void readFaceNodeIds(int zoneId, std::uint64_t* ids, std::size_t n) override;
  void endFaceNodeIds() override;
  void endFaceNodes() override;

  void beginFaceCell0(std::vector<int>& zoneIds) override;
  std::uint64_t getFaceCell0(std::uint64_t faceId) override;
  void readFaceCell0(int zoneId, std::uint64_t* cellIds, std::size_t n) override;
  void endFaceCell0() override;
  void beginFaceCell1(std::vector<int>& zoneIds) override;
  std::uint64_t getFaceCell1(std::uint64_t faceId) override;
  void readFaceCell1(int zoneId, std::uint64_t* cellIds, std::size_t n) override;
  void endFaceCell1() override;

  void beginFaceShadows(std::vector<int>& zoneIds) override;
  std::uint64_t getFaceShadow(std::uint64_t faceId) override;
  void endFaceShadows() override;
  void beginFaceTree(std::vector<int>& parentZoneIds, std::vector<int>& childZoneIds) override;
  void endFaceTree() override;

  void beginCellTypes(std::vector<int>& zoneIds) override;
  bool getUniformCellType(int zoneId, int& type) override;
  int getCellType(std::uint64_t cellId) override;
  std::size_t readCellTypes(int zoneId, int* types, std::size_t n) override;
  void endCellTypes() override;

  void beginCellNodes(std::vector<int>& zoneIds) override;
  void beginCellNodeCounts() override;
  bool getUniformCellNodeCount(int zoneId, short& count) override;
  void readCellNodeCounts(int zoneId, short* counts, std::size_t n) override;
  void endCellNodeCounts() override;
  void beginCellNodeIds() override;
  void readCellNodeIds(int zoneId, std::uint64_t* ids, std::size_t n) override;
  void endCellNodeIds() override;
  void endCellNodes() override;

  void beginCellFaces(std::vector<int>& zoneIds) override;
  void beginCellFaceCounts() override;
  bool getUniformCellFaceCount(int zoneId, short& count) override;
  void readCellFaceCounts(int zoneId, short* counts, std::size_t n) override;
  void endCellFaceCounts() override;
  void beginCellFaceIds() override;
  void readCellFaceIds(int zoneId, std::uint64_t* ids, std::size_t n) override;
  void endCellFaceIds() override;
  void endCellFaces() override;

  void beginCellPartitions(std::vector<int>& zoneIds) override;
  int getCellPartitionInfo(int zoneId) override;
  void readCellPartitions(int zoneId, int* partitions, std::size_t n) override;
  void endCellPartitions() override;

  void beginPhase(short phaseId) override;
  bool getPhaseAttributeNames(short phaseId, std::vector<std::string>& names) override;
  bool getPhaseAttribute(short phaseId, const std::string& name, std::string& value) override;
  void getVariableNames(OrvZoneCategory category, std::vector<std::string>& names) override;
  bool getVariableAttributeNames(int variableId, std::vector<std::string>& names) override;
  bool getVariableAttribute(int variableId, const std::string& name, std::string& value) override;
  std::size_t beginVariable(OrvZoneCategory category, const std::string& name,
                            std::vector<int>& zoneIds) override;
  std::size_t readVariable(int zoneId, double* values, std::size_t n) override;
  void endVariable() override;
  void endPhase() override;
  bool getPhaseDescription(short phaseId, std::string& text) override;
  bool getVariableDescription(int variableId, std::string& text) override;

 protected:
  CaseProvider() = default;

  /// Opens the file and calls serve() or serveResults() with what it holds. Throws CaseError if it
  /// cannot be read.
  virtual void open(const std::string& fileName, OrvDataClass dataClass) = 0;

  /// Takes over a case. The first mesh, target and partition are selected.
  void serve(CaseTables tables, ArraysByMesh arrays);

  /// Adds phases, variables and their values to the case that is served, or serves them alone if
  /// there is none.
  void serveResults(CaseTables tables, ArraysByMesh arrays);

 private:
  /// The arrays of the selected mesh, or null; and those that hold its field data.
  MeshArrays* arrays();
  MeshArrays* resultArrays();

  void listZones(Family family, std::vector<int>& zoneIds);
  bool uniformCount(Family family, int zoneId, short& count);
  void readCounts(Family family, int zoneId, short* counts, std::size_t n);
  void readIds(Family family, int zoneId, std::uint64_t* ids, std::size_t n);
  void warnOfShortRead(const std::string& what, std::size_t delivered, std::size_t n);

  std::vector<ZoneRange> rangesOf(const std::vector<int>& zoneIds);
  void openElements(Family family, std::vector<int>& zoneIds);

  ArraysByMesh arrays_;
  ArraysByMesh resultArrays_;                // of a results file; empty if the case holds its own
  ElementReader<std::uint64_t> elementIds_;  // face cells and shadows, whichever family is open
  ElementReader<int> elementTypes_;
  VariableKey variable_;  // the phase, and the variable, that are open
};

}  // namespace velto::base

#endif  // VELTO_EMBEDDED_BASE_CASE_PROVIDER_H
