// SPDX-License-Identifier: Apache-2.0
//
// HiddenSource: a provider that has no file, whatever stands behind it.

#ifndef VELTO_TESTS_COPIER_HIDDEN_SOURCE_H
#define VELTO_TESTS_COPIER_HIDDEN_SOURCE_H

#include <cstddef>
#include <cstdint>
#include <string>
#include <utility>
#include <vector>

#include "data_access/OrvProvider.h"

#include "embedded/base/OrvBaseState.h"

namespace velto::testing {

/// Passes every call to its target, which outlives it, and shares its state; a cast to the file
/// classes fails.
class HiddenSource : public OrvProvider {
 public:
  explicit HiddenSource(OrvProvider& target) : target_(target) {
    State::of(*this).core = State::of(target).core;
  }
  virtual ~HiddenSource() = default;

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
  void getSettingsKeys(OrvDataClass dataClass, std::vector<std::string>& keys) override {
    target_.getSettingsKeys(dataClass, keys);
  }
  void getSettingsValue(OrvDataClass dataClass, const std::string& key, std::string& value,
                        const std::string& path) override {
    target_.getSettingsValue(dataClass, key, value, path);
  }
  void getMeshIds(std::vector<int>& ids, OrvDataClass dataClass) override {
    target_.getMeshIds(ids, dataClass);
  }
  void getTargets(std::vector<int>& categories, int meshId, OrvDataClass dataClass) override {
    target_.getTargets(categories, meshId, dataClass);
  }
  void getPartitionIds(std::vector<int>& ids, int meshId, OrvDataClass dataClass) override {
    target_.getPartitionIds(ids, meshId, dataClass);
  }
  void beginNodeCoordinates(std::vector<int>& zoneIds) override {
    target_.beginNodeCoordinates(zoneIds);
  }
  std::size_t readNodeCoordinates(int zoneId, double* values, std::size_t n) override {
    return target_.readNodeCoordinates(zoneId, values, n);
  }
  void endNodeCoordinates() override { target_.endNodeCoordinates(); }
  void beginFaceNodes(std::vector<int>& zoneIds) override { target_.beginFaceNodes(zoneIds); }
  void beginFaceNodeCounts() override { target_.beginFaceNodeCounts(); }
  bool getUniformFaceNodeCount(int zoneId, short& count) override {
    return target_.getUniformFaceNodeCount(zoneId, count);
  }
  void readFaceNodeCounts(int zoneId, short* counts, std::size_t n) override {
    target_.readFaceNodeCounts(zoneId, counts, n);
  }
  void endFaceNodeCounts() override { target_.endFaceNodeCounts(); }
  void beginFaceNodeIds() override { target_.beginFaceNodeIds(); }
  void readFaceNodeIds(int zoneId, std::uint64_t* ids, std::size_t n) override {
    target_.readFaceNodeIds(zoneId, ids, n);
  }
  void endFaceNodeIds() override { target_.endFaceNodeIds(); }
  void endFaceNodes() override { target_.endFaceNodes(); }
  void beginFaceCell0(std::vector<int>& zoneIds) override { target_.beginFaceCell0(zoneIds); }
  std::uint64_t getFaceCell0(std::uint64_t faceId) override { return target_.getFaceCell0(faceId); }
  void readFaceCell0(int zoneId, std::uint64_t* cellIds, std::size_t n) override {
    target_.readFaceCell0(zoneId, cellIds, n);
  }
  void endFaceCell0() override { target_.endFaceCell0(); }
  void beginFaceCell1(std::vector<int>& zoneIds) override { target_.beginFaceCell1(zoneIds); }
  std::uint64_t getFaceCell1(std::uint64_t faceId) override { return target_.getFaceCell1(faceId); }
  void readFaceCell1(int zoneId, std::uint64_t* cellIds, std::size_t n) override {
    target_.readFaceCell1(zoneId, cellIds, n);
  }
  void endFaceCell1() override { target_.endFaceCell1(); }
  void beginFaceShadows(std::vector<int>& zoneIds) override { target_.beginFaceShadows(zoneIds); }
  std::uint64_t getFaceShadow(std::uint64_t faceId) override {
    return target_.getFaceShadow(faceId);
  }
  void endFaceShadows() override { target_.endFaceShadows(); }
  void beginFaceTree(std::vector<int>& parentZoneIds, std::vector<int>& childZoneIds) override {
    target_.beginFaceTree(parentZoneIds, childZoneIds);
  }
  void endFaceTree() override { target_.endFaceTree(); }
  void beginCellTypes(std::vector<int>& zoneIds) override { target_.beginCellTypes(zoneIds); }
  bool getUniformCellType(int zoneId, int& type) override {
    return target_.getUniformCellType(zoneId, type);
  }
  int getCellType(std::uint64_t cellId) override { return target_.getCellType(cellId); }
  std::size_t readCellTypes(int zoneId, int* types, std::size_t n) override {
    return target_.readCellTypes(zoneId, types, n);
  }
  void endCellTypes() override { target_.endCellTypes(); }
  void beginCellNodes(std::vector<int>& zoneIds) override { target_.beginCellNodes(zoneIds); }
  void beginCellNodeCounts() override { target_.beginCellNodeCounts(); }
  bool getUniformCellNodeCount(int zoneId, short& count) override {
    return target_.getUniformCellNodeCount(zoneId, count);
  }
  void readCellNodeCounts(int zoneId, short* counts, std::size_t n) override {
    target_.readCellNodeCounts(zoneId, counts, n);
  }
  void endCellNodeCounts() override { target_.endCellNodeCounts(); }
  void beginCellNodeIds() override { target_.beginCellNodeIds(); }
  void readCellNodeIds(int zoneId, std::uint64_t* ids, std::size_t n) override {
    target_.readCellNodeIds(zoneId, ids, n);
  }
  void endCellNodeIds() override { target_.endCellNodeIds(); }
  void endCellNodes() override { target_.endCellNodes(); }
  void beginCellFaces(std::vector<int>& zoneIds) override { target_.beginCellFaces(zoneIds); }
  void beginCellFaceCounts() override { target_.beginCellFaceCounts(); }
  bool getUniformCellFaceCount(int zoneId, short& count) override {
    return target_.getUniformCellFaceCount(zoneId, count);
  }
  void readCellFaceCounts(int zoneId, short* counts, std::size_t n) override {
    target_.readCellFaceCounts(zoneId, counts, n);
  }
  void endCellFaceCounts() override { target_.endCellFaceCounts(); }
  void beginCellFaceIds() override { target_.beginCellFaceIds(); }
  void readCellFaceIds(int zoneId, std::uint64_t* ids, std::size_t n) override {
    target_.readCellFaceIds(zoneId, ids, n);
  }
  void endCellFaceIds() override { target_.endCellFaceIds(); }
  void endCellFaces() override { target_.endCellFaces(); }
  void beginCellPartitions(std::vector<int>& zoneIds) override {
    target_.beginCellPartitions(zoneIds);
  }
  int getCellPartitionInfo(int zoneId) override { return target_.getCellPartitionInfo(zoneId); }
  void readCellPartitions(int zoneId, int* partitions, std::size_t n) override {
    target_.readCellPartitions(zoneId, partitions, n);
  }
  void endCellPartitions() override { target_.endCellPartitions(); }
  void beginPhase(short phaseId) override { target_.beginPhase(phaseId); }
  bool getPhaseAttributeNames(short phaseId, std::vector<std::string>& names) override {
    return target_.getPhaseAttributeNames(phaseId, names);
  }
  bool getPhaseAttribute(short phaseId, const std::string& name, std::string& value) override {
    return target_.getPhaseAttribute(phaseId, name, value);
  }
  void getVariableNames(OrvZoneCategory category, std::vector<std::string>& names) override {
    target_.getVariableNames(category, names);
  }
  bool getVariableAttributeNames(int variableId, std::vector<std::string>& names) override {
    return target_.getVariableAttributeNames(variableId, names);
  }
  bool getVariableAttribute(int variableId, const std::string& name, std::string& value) override {
    return target_.getVariableAttribute(variableId, name, value);
  }
  std::size_t beginVariable(OrvZoneCategory category, const std::string& name,
                            std::vector<int>& zoneIds) override {
    return target_.beginVariable(category, name, zoneIds);
  }
  std::size_t readVariable(int zoneId, double* values, std::size_t n) override {
    return target_.readVariable(zoneId, values, n);
  }
  void endVariable() override { target_.endVariable(); }
  void endPhase() override { target_.endPhase(); }

 private:
  OrvProvider& target_;
};

}  // namespace velto::testing

#endif  // VELTO_TESTS_COPIER_HIDDEN_SOURCE_H
