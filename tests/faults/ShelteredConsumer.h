// SPDX-License-Identifier: Apache-2.0
//
// ShelteredConsumer: a consumer in whose virtual operations no allocation fails.

#ifndef VELTO_TESTS_FAULTS_SHELTERED_CONSUMER_H
#define VELTO_TESTS_FAULTS_SHELTERED_CONSUMER_H

#include <cstddef>
#include <cstdint>
#include <string>
#include <utility>
#include <vector>

#include "testing/ForwardingConsumer.h"
#include "tests/faults/failing_memory.h"

namespace velto::testing {

/// Passes every call to its target, which outlives it. The operations that are not virtual have no
/// shelter.
class ShelteredConsumer : public ForwardingConsumer {
 public:
  /// Not `isClosed`: there is no shelter at all.
  ShelteredConsumer(OrvFileConsumer& target, bool isClosed)
      : ForwardingConsumer(target), isClosed_(isClosed) {}

  void setBaseOption(bool option) override {
    const Shelter shelter(isClosed_);
    ForwardingConsumer::setBaseOption(option);
  }
  std::uint64_t getZoneCount(OrvZoneCategory category) override {
    const Shelter shelter(isClosed_);
    return ForwardingConsumer::getZoneCount(category);
  }
  void getZoneIds(OrvZoneCategory category, std::vector<int>& ids) override {
    const Shelter shelter(isClosed_);
    ForwardingConsumer::getZoneIds(category, ids);
  }
  void setSolverType(std::string solverType) override {
    const Shelter shelter(isClosed_);
    ForwardingConsumer::setSolverType(std::move(solverType));
  }
  void setFileName(const std::string& path, OrvDataClass dataClass) override {
    const Shelter shelter(isClosed_);
    ForwardingConsumer::setFileName(path, dataClass);
  }
  void getFileVersion(OrvDataClass dataClass, int& major, int& minor, int& patch) override {
    const Shelter shelter(isClosed_);
    ForwardingConsumer::getFileVersion(dataClass, major, minor, patch);
  }
  void writeStandardSettings(std::vector<std::pair<std::string, std::string>> entries,
                             OrvDataClass dataClass) override {
    const Shelter shelter(isClosed_);
    ForwardingConsumer::writeStandardSettings(std::move(entries), dataClass);
  }
  void setMode(int mode) override {
    const Shelter shelter(isClosed_);
    ForwardingConsumer::setMode(mode);
  }
  void setCompression(unsigned int level) override {
    const Shelter shelter(isClosed_);
    ForwardingConsumer::setCompression(level);
  }
  void startWriting(OrvDataClass dataClass) override {
    const Shelter shelter(isClosed_);
    ForwardingConsumer::startWriting(dataClass);
  }
  void endWriting(OrvDataClass dataClass) override {
    const Shelter shelter(isClosed_);
    ForwardingConsumer::endWriting(dataClass);
  }
  void writeSettings(const std::vector<std::pair<std::string, std::string>>& entries,
                     OrvDataClass dataClass, const std::string& path) override {
    const Shelter shelter(isClosed_);
    ForwardingConsumer::writeSettings(entries, dataClass, path);
  }
  void writeMeshAttributes() override {
    const Shelter shelter(isClosed_);
    ForwardingConsumer::writeMeshAttributes();
  }
  void writeElemIds(int zoneId, const std::size_t* ids, std::size_t count) override {
    const Shelter shelter(isClosed_);
    ForwardingConsumer::writeElemIds(zoneId, ids, count);
  }
  void beginNodes(const std::vector<int>& zoneIds) override {
    const Shelter shelter(isClosed_);
    ForwardingConsumer::beginNodes(zoneIds);
  }
  void beginNodeCoordinates(const std::vector<int>& zoneIds) override {
    const Shelter shelter(isClosed_);
    ForwardingConsumer::beginNodeCoordinates(zoneIds);
  }
  void writeNodeCoordinates(int zoneId, const double* values, std::size_t n) override {
    const Shelter shelter(isClosed_);
    ForwardingConsumer::writeNodeCoordinates(zoneId, values, n);
  }
  void endNodeCoordinates() override {
    const Shelter shelter(isClosed_);
    ForwardingConsumer::endNodeCoordinates();
  }
  void endNodes() override {
    const Shelter shelter(isClosed_);
    ForwardingConsumer::endNodes();
  }
  void beginFaces(const std::vector<int>& zoneIds) override {
    const Shelter shelter(isClosed_);
    ForwardingConsumer::beginFaces(zoneIds);
  }
  void beginFaceNodes(const std::vector<int>& zoneIds) override {
    const Shelter shelter(isClosed_);
    ForwardingConsumer::beginFaceNodes(zoneIds);
  }
  void beginFaceNodeCounts() override {
    const Shelter shelter(isClosed_);
    ForwardingConsumer::beginFaceNodeCounts();
  }
  void writeUniformFaceNodeCount(int zoneId, short count) override {
    const Shelter shelter(isClosed_);
    ForwardingConsumer::writeUniformFaceNodeCount(zoneId, count);
  }
  void writeFaceNodeCounts(int zoneId, const short* counts, std::size_t n) override {
    const Shelter shelter(isClosed_);
    ForwardingConsumer::writeFaceNodeCounts(zoneId, counts, n);
  }
  void endFaceNodeCounts() override {
    const Shelter shelter(isClosed_);
    ForwardingConsumer::endFaceNodeCounts();
  }
  void beginFaceNodeIds() override {
    const Shelter shelter(isClosed_);
    ForwardingConsumer::beginFaceNodeIds();
  }
  void writeFaceNodeIds(int zoneId, const std::uint64_t* ids, std::size_t n) override {
    const Shelter shelter(isClosed_);
    ForwardingConsumer::writeFaceNodeIds(zoneId, ids, n);
  }
  void endFaceNodeIds() override {
    const Shelter shelter(isClosed_);
    ForwardingConsumer::endFaceNodeIds();
  }
  void endFaceNodes() override {
    const Shelter shelter(isClosed_);
    ForwardingConsumer::endFaceNodes();
  }
  void beginFaceCell0(const std::vector<int>& zoneIds) override {
    const Shelter shelter(isClosed_);
    ForwardingConsumer::beginFaceCell0(zoneIds);
  }
  void writeFaceCell0(int zoneId, const std::uint64_t* cellIds, std::size_t n) override {
    const Shelter shelter(isClosed_);
    ForwardingConsumer::writeFaceCell0(zoneId, cellIds, n);
  }
  void endFaceCell0() override {
    const Shelter shelter(isClosed_);
    ForwardingConsumer::endFaceCell0();
  }
  void beginFaceCell1(const std::vector<int>& zoneIds) override {
    const Shelter shelter(isClosed_);
    ForwardingConsumer::beginFaceCell1(zoneIds);
  }
  void writeFaceCell1(int zoneId, const std::uint64_t* cellIds, std::size_t n) override {
    const Shelter shelter(isClosed_);
    ForwardingConsumer::writeFaceCell1(zoneId, cellIds, n);
  }
  void endFaceCell1() override {
    const Shelter shelter(isClosed_);
    ForwardingConsumer::endFaceCell1();
  }
  void endFaces() override {
    const Shelter shelter(isClosed_);
    ForwardingConsumer::endFaces();
  }
  void beginCells(const std::vector<int>& zoneIds) override {
    const Shelter shelter(isClosed_);
    ForwardingConsumer::beginCells(zoneIds);
  }
  void beginCellTypes(const std::vector<int>& zoneIds,
                      const std::vector<int>& uniformTypes) override {
    const Shelter shelter(isClosed_);
    ForwardingConsumer::beginCellTypes(zoneIds, uniformTypes);
  }
  void writeCellTypes(int zoneId, const int* types, std::size_t n) override {
    const Shelter shelter(isClosed_);
    ForwardingConsumer::writeCellTypes(zoneId, types, n);
  }
  void endCellTypes() override {
    const Shelter shelter(isClosed_);
    ForwardingConsumer::endCellTypes();
  }
  void beginCellNodes(const std::vector<int>& zoneIds) override {
    const Shelter shelter(isClosed_);
    ForwardingConsumer::beginCellNodes(zoneIds);
  }
  void beginCellNodeCounts() override {
    const Shelter shelter(isClosed_);
    ForwardingConsumer::beginCellNodeCounts();
  }
  void writeCellNodeCounts(int zoneId, const short* counts, std::size_t n) override {
    const Shelter shelter(isClosed_);
    ForwardingConsumer::writeCellNodeCounts(zoneId, counts, n);
  }
  void writeUniformCellNodeCount(int zoneId, short count) override {
    const Shelter shelter(isClosed_);
    ForwardingConsumer::writeUniformCellNodeCount(zoneId, count);
  }
  void endCellNodeCounts() override {
    const Shelter shelter(isClosed_);
    ForwardingConsumer::endCellNodeCounts();
  }
  void beginCellNodeIds() override {
    const Shelter shelter(isClosed_);
    ForwardingConsumer::beginCellNodeIds();
  }
  void writeCellNodeIds(int zoneId, const std::uint64_t* ids, std::size_t n) override {
    const Shelter shelter(isClosed_);
    ForwardingConsumer::writeCellNodeIds(zoneId, ids, n);
  }
  void endCellNodeIds() override {
    const Shelter shelter(isClosed_);
    ForwardingConsumer::endCellNodeIds();
  }
  void endCellNodes() override {
    const Shelter shelter(isClosed_);
    ForwardingConsumer::endCellNodes();
  }
  void beginCellPartitions(const std::vector<int>& zoneIds, int partitionInfo) override {
    const Shelter shelter(isClosed_);
    ForwardingConsumer::beginCellPartitions(zoneIds, partitionInfo);
  }
  void writeCellPartitions(int zoneId, const int* partitions, std::size_t n) override {
    const Shelter shelter(isClosed_);
    ForwardingConsumer::writeCellPartitions(zoneId, partitions, n);
  }
  void endCellPartitions() override {
    const Shelter shelter(isClosed_);
    ForwardingConsumer::endCellPartitions();
  }
  void endCells() override {
    const Shelter shelter(isClosed_);
    ForwardingConsumer::endCells();
  }
  void addPhases(const std::vector<std::string>& names, std::vector<short>& phaseIds) override {
    const Shelter shelter(isClosed_);
    ForwardingConsumer::addPhases(names, phaseIds);
  }
  void setPhaseAttribute(short phaseId, const std::string& name,
                         const std::string& value) override {
    const Shelter shelter(isClosed_);
    ForwardingConsumer::setPhaseAttribute(phaseId, name, value);
  }
  void beginPhase(short phaseId) override {
    const Shelter shelter(isClosed_);
    ForwardingConsumer::beginPhase(phaseId);
  }
  void addVariable(const std::string& name, int& variableId) override {
    const Shelter shelter(isClosed_);
    ForwardingConsumer::addVariable(name, variableId);
  }
  void declareVariables(OrvZoneCategory category, const std::vector<std::string>& names,
                        const std::vector<int>& variableIds) override {
    const Shelter shelter(isClosed_);
    ForwardingConsumer::declareVariables(category, names, variableIds);
  }
  void beginVariableZones(OrvZoneCategory category) override {
    const Shelter shelter(isClosed_);
    ForwardingConsumer::beginVariableZones(category);
  }
  void setVariableAttribute(int variableId, const std::string& name,
                            const std::string& value) override {
    const Shelter shelter(isClosed_);
    ForwardingConsumer::setVariableAttribute(variableId, name, value);
  }
  void beginVariable(OrvZoneCategory category, const std::string& name,
                     const std::vector<int>& zoneIds, std::size_t valuesPerEntity) override {
    const Shelter shelter(isClosed_);
    ForwardingConsumer::beginVariable(category, name, zoneIds, valuesPerEntity);
  }
  void writeVariable(int zoneId, const double* values, std::size_t n) override {
    const Shelter shelter(isClosed_);
    ForwardingConsumer::writeVariable(zoneId, values, n);
  }
  void endVariable() override {
    const Shelter shelter(isClosed_);
    ForwardingConsumer::endVariable();
  }
  void endVariableZones() override {
    const Shelter shelter(isClosed_);
    ForwardingConsumer::endVariableZones();
  }
  void endPhase() override {
    const Shelter shelter(isClosed_);
    ForwardingConsumer::endPhase();
  }
  void setPhaseDescription(short phaseId, const std::string& text) override {
    const Shelter shelter(isClosed_);
    ForwardingConsumer::setPhaseDescription(phaseId, text);
  }
  void setVariableDescription(int variableId, const std::string& text) override {
    const Shelter shelter(isClosed_);
    ForwardingConsumer::setVariableDescription(variableId, text);
  }

 private:
  bool isClosed_;
};

}  // namespace velto::testing

#endif  // VELTO_TESTS_FAULTS_SHELTERED_CONSUMER_H
