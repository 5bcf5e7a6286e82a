// SPDX-License-Identifier: Apache-2.0
//
// ForwardingConsumer: passes every call to another consumer; the base of decorators.

#ifndef VELTO_TESTING_FORWARDING_CONSUMER_H
#define VELTO_TESTING_FORWARDING_CONSUMER_H

#include <cstddef>
#include <cstdint>
#include <string>
#include <utility>
#include <vector>

#include "data_access/OrvFileConsumer.h"

#include "testing/Forwarding.h"

namespace velto::testing {

/// A decorator overrides an operation, or listens: it then hears of every virtual call as a line
/// before the target gets it, buffers with their values ("writeFaceCell0(2, [1, 1])").
class ForwardingConsumer : public Forwarding<OrvFileConsumer> {
 public:
  explicit ForwardingConsumer(OrvFileConsumer& target) : Forwarding(target) {}

  void setBaseOption(bool option) override;
  std::uint64_t getZoneCount(OrvZoneCategory category) override;
  void getZoneIds(OrvZoneCategory category, std::vector<int>& ids) override;
  void setSolverType(std::string solverType) override;
  void setFileName(const std::string& path, OrvDataClass dataClass) override;
  void getFileVersion(OrvDataClass dataClass, int& major, int& minor, int& patch) override;
  void writeStandardSettings(std::vector<std::pair<std::string, std::string>> entries,
                             OrvDataClass dataClass) override;
  void setMode(int mode) override;
  void setCompression(unsigned int level) override;
  void startWriting(OrvDataClass dataClass) override;
  void endWriting(OrvDataClass dataClass) override;
  void writeSettings(const std::vector<std::pair<std::string, std::string>>& entries,
                     OrvDataClass dataClass, const std::string& path) override;
  void writeMeshAttributes() override;
  void writeElemIds(int zoneId, const std::size_t* ids, std::size_t count) override;
  void beginNodes(const std::vector<int>& zoneIds) override;
  void beginNodeCoordinates(const std::vector<int>& zoneIds) override;
  void writeNodeCoordinates(int zoneId, const double* values, std::size_t n) override;
  void endNodeCoordinates() override;
  void endNodes() override;
  void beginFaces(const std::vector<int>& zoneIds) override;
  void beginFaceNodes(const std::vector<int>& zoneIds) override;
  void beginFaceNodeCounts() override;
  void writeUniformFaceNodeCount(int zoneId, short count) override;
  void writeFaceNodeCounts(int zoneId, const short* counts, std::size_t n) override;
  void endFaceNodeCounts() override;
  void beginFaceNodeIds() override;
  void writeFaceNodeIds(int zoneId, const std::uint64_t* ids, std::size_t n) override;
  void endFaceNodeIds() override;
  void endFaceNodes() override;
  void beginFaceCell0(const std::vector<int>& zoneIds) override;
  void writeFaceCell0(int zoneId, const std::uint64_t* cellIds, std::size_t n) override;
  void endFaceCell0() override;
  void beginFaceCell1(const std::vector<int>& zoneIds) override;
  void writeFaceCell1(int zoneId, const std::uint64_t* cellIds, std::size_t n) override;
  void endFaceCell1() override;
  void endFaces() override;
  void beginCells(const std::vector<int>& zoneIds) override;
  void beginCellTypes(const std::vector<int>& zoneIds,
                      const std::vector<int>& uniformTypes) override;
  void writeCellTypes(int zoneId, const int* types, std::size_t n) override;
  void endCellTypes() override;
  void beginCellNodes(const std::vector<int>& zoneIds) override;
  void beginCellNodeCounts() override;
  void writeCellNodeCounts(int zoneId, const short* counts, std::size_t n) override;
  void writeUniformCellNodeCount(int zoneId, short count) override;
  void endCellNodeCounts() override;
  void beginCellNodeIds() override;
  void writeCellNodeIds(int zoneId, const std::uint64_t* ids, std::size_t n) override;
  void endCellNodeIds() override;
  void endCellNodes() override;
  void beginCellPartitions(const std::vector<int>& zoneIds, int partitionInfo) override;
  void writeCellPartitions(int zoneId, const int* partitions, std::size_t n) override;
  void endCellPartitions() override;
  void endCells() override;
  void addPhases(const std::vector<std::string>& names, std::vector<short>& phaseIds) override;
  void setPhaseAttribute(short phaseId, const std::string& name, const std::string& value) override;
  void beginPhase(short phaseId) override;
  void addVariable(const std::string& name, int& variableId) override;
  void declareVariables(OrvZoneCategory category, const std::vector<std::string>& names,
                        const std::vector<int>& variableIds) override;
  void beginVariableZones(OrvZoneCategory category) override;
  void setVariableAttribute(int variableId, const std::string& name,
                            const std::string& value) override;
  void beginVariable(OrvZoneCategory category, const std::string& name,
                     const std::vector<int>& zoneIds, std::size_t valuesPerEntity) override;
  void writeVariable(int zoneId, const double* values, std::size_t n) override;
  void endVariable() override;
  void endVariableZones() override;
  void endPhase() override;
  void setPhaseDescription(short phaseId, const std::string& text) override;
  void setVariableDescription(int variableId, const std::string& text) override;
};

}  // namespace velto::testing

#endif  // VELTO_TESTING_FORWARDING_CONSUMER_H
