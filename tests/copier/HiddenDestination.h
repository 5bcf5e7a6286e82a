// SPDX-License-Identifier: Apache-2.0
//
// HiddenDestination: a consumer that has no file, whatever stands behind it.

#ifndef VELTO_TESTS_COPIER_HIDDEN_DESTINATION_H
#define VELTO_TESTS_COPIER_HIDDEN_DESTINATION_H

#include <cstddef>
#include <cstdint>
#include <string>
#include <utility>
#include <vector>

#include "data_access/OrvConsumer.h"

#include "embedded/base/OrvBaseState.h"

namespace velto::testing {

/// Passes every call to its target, which outlives it, and shares its state; a cast to the file
/// classes fails.
class HiddenDestination : public OrvConsumer {
 public:
  explicit HiddenDestination(OrvConsumer& target) : target_(target) {
    State::of(*this).core = State::of(target).core;
  }
  virtual ~HiddenDestination() = default;

  void setBaseOption(bool option) override { target_.setBaseOption(option); }
  std::uint64_t getZoneCount(OrvZoneCategory category) override {
    return target_.getZoneCount(category);
  }
  void getZoneIds(OrvZoneCategory category, std::vector<int>& ids) override {
    target_.getZoneIds(category, ids);
  }
  void setSolverType(std::string solverType) override {
    target_.setSolverType(std::move(solverType));
  }
  void writeStandardSettings(std::vector<std::pair<std::string, std::string>> entries,
                             OrvDataClass dataClass) override {
    target_.writeStandardSettings(std::move(entries), dataClass);
  }
  void setMode(int mode) override { target_.setMode(mode); }
  void setCompression(unsigned int level) override { target_.setCompression(level); }
  void startWriting(OrvDataClass dataClass) override { target_.startWriting(dataClass); }
  void endWriting(OrvDataClass dataClass) override { target_.endWriting(dataClass); }
  void writeSettings(const std::vector<std::pair<std::string, std::string>>& entries,
                     OrvDataClass dataClass, const std::string& path) override {
    target_.writeSettings(entries, dataClass, path);
  }
  void writeMeshAttributes() override { target_.writeMeshAttributes(); }
  void writeElemIds(int zoneId, const std::size_t* ids, std::size_t count) override {
    target_.writeElemIds(zoneId, ids, count);
  }
  void beginNodes(const std::vector<int>& zoneIds) override { target_.beginNodes(zoneIds); }
  void beginNodeCoordinates(const std::vector<int>& zoneIds) override {
    target_.beginNodeCoordinates(zoneIds);
  }
  void writeNodeCoordinates(int zoneId, const double* values, std::size_t n) override {
    target_.writeNodeCoordinates(zoneId, values, n);
  }
  void endNodeCoordinates() override { target_.endNodeCoordinates(); }
  void endNodes() override { target_.endNodes(); }
  void beginFaces(const std::vector<int>& zoneIds) override { target_.beginFaces(zoneIds); }
  void beginFaceNodes(const std::vector<int>& zoneIds) override { target_.beginFaceNodes(zoneIds); }
  void beginFaceNodeCounts() override { target_.beginFaceNodeCounts(); }
  void writeUniformFaceNodeCount(int zoneId, short count) override {
    target_.writeUniformFaceNodeCount(zoneId, count);
  }
  void writeFaceNodeCounts(int zoneId, const short* counts, std::size_t n) override {
    target_.writeFaceNodeCounts(zoneId, counts, n);
  }
  void endFaceNodeCounts() override { target_.endFaceNodeCounts(); }
  void beginFaceNodeIds() override { target_.beginFaceNodeIds(); }
  void writeFaceNodeIds(int zoneId, const std::uint64_t* ids, std::size_t n) override {
    target_.writeFaceNodeIds(zoneId, ids, n);
  }
  void endFaceNodeIds() override { target_.endFaceNodeIds(); }
  void endFaceNodes() override { target_.endFaceNodes(); }
  void beginFaceCell0(const std::vector<int>& zoneIds) override { target_.beginFaceCell0(zoneIds); }
  void writeFaceCell0(int zoneId, const std::uint64_t* cellIds, std::size_t n) override {
    target_.writeFaceCell0(zoneId, cellIds, n);
  }
  void endFaceCell0() override { target_.endFaceCell0(); }
  void beginFaceCell1(const std::vector<int>& zoneIds) override { target_.beginFaceCell1(zoneIds); }
  void writeFaceCell1(int zoneId, const std::uint64_t* cellIds, std::size_t n) override {
    target_.writeFaceCell1(zoneId, cellIds, n);
  }
  void endFaceCell1() override { target_.endFaceCell1(); }
  void endFaces() override { target_.endFaces(); }
  void beginCells(const std::vector<int>& zoneIds) override { target_.beginCells(zoneIds); }
  void beginCellTypes(const std::vector<int>& zoneIds,
                      const std::vector<int>& uniformTypes) override {
    target_.beginCellTypes(zoneIds, uniformTypes);
  }
  void writeCellTypes(int zoneId, const int* types, std::size_t n) override {
    target_.writeCellTypes(zoneId, types, n);
  }
  void endCellTypes() override { target_.endCellTypes(); }
  void beginCellNodes(const std::vector<int>& zoneIds) override { target_.beginCellNodes(zoneIds); }
  void beginCellNodeCounts() override { target_.beginCellNodeCounts(); }
  void writeCellNodeCounts(int zoneId, const short* counts, std::size_t n) override {
    target_.writeCellNodeCounts(zoneId, counts, n);
  }
  void writeUniformCellNodeCount(int zoneId, short count) override {
    target_.writeUniformCellNodeCount(zoneId, count);
  }
  void endCellNodeCounts() override { target_.endCellNodeCounts(); }
  void beginCellNodeIds() override { target_.beginCellNodeIds(); }
  void writeCellNodeIds(int zoneId, const std::uint64_t* ids, std::size_t n) override {
    target_.writeCellNodeIds(zoneId, ids, n);
  }
  void endCellNodeIds() override { target_.endCellNodeIds(); }
  void endCellNodes() override { target_.endCellNodes(); }
  void beginCellPartitions(const std::vector<int>& zoneIds, int partitionInfo) override {
    target_.beginCellPartitions(zoneIds, partitionInfo);
  }
  void writeCellPartitions(int zoneId, const int* partitions, std::size_t n) override {
    target_.writeCellPartitions(zoneId, partitions, n);
  }
  void endCellPartitions() override { target_.endCellPartitions(); }
  void endCells() override { target_.endCells(); }
  void addPhases(const std::vector<std::string>& names, std::vector<short>& phaseIds) override {
    target_.addPhases(names, phaseIds);
  }
  void setPhaseAttribute(short phaseId, const std::string& name,
                         const std::string& value) override {
    target_.setPhaseAttribute(phaseId, name, value);
  }
  void beginPhase(short phaseId) override { target_.beginPhase(phaseId); }
  void addVariable(const std::string& name, int& variableId) override {
    target_.addVariable(name, variableId);
  }
  void declareVariables(OrvZoneCategory category, const std::vector<std::string>& names,
                        const std::vector<int>& variableIds) override {
    target_.declareVariables(category, names, variableIds);
  }
  void beginVariableZones(OrvZoneCategory category) override {
    target_.beginVariableZones(category);
  }
  void setVariableAttribute(int variableId, const std::string& name,
                            const std::string& value) override {
    target_.setVariableAttribute(variableId, name, value);
  }
  void beginVariable(OrvZoneCategory category, const std::string& name,
                     const std::vector<int>& zoneIds, std::size_t valuesPerEntity) override {
    target_.beginVariable(category, name, zoneIds, valuesPerEntity);
  }
  void writeVariable(int zoneId, const double* values, std::size_t n) override {
    target_.writeVariable(zoneId, values, n);
  }
  void endVariable() override { target_.endVariable(); }
  void endVariableZones() override { target_.endVariableZones(); }
  void endPhase() override { target_.endPhase(); }

 private:
  OrvConsumer& target_;
};

}  // namespace velto::testing

#endif  // VELTO_TESTS_COPIER_HIDDEN_DESTINATION_H
