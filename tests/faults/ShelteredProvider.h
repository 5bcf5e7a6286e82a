// SPDX-License-Identifier: Apache-2.0
//
// ShelteredProvider: a provider in whose virtual operations no allocation fails.

#ifndef VELTO_TESTS_FAULTS_SHELTERED_PROVIDER_H
#define VELTO_TESTS_FAULTS_SHELTERED_PROVIDER_H

#include <cstddef>
#include <cstdint>
#include <string>
#include <utility>
#include <vector>

#include "testing/ForwardingProvider.h"
#include "tests/faults/failing_memory.h"

namespace velto::testing {

/// Passes every call to its target, which outlives it. The operations that are not virtual have no
/// shelter.
class ShelteredProvider : public ForwardingProvider {
 public:
  /// Not `isClosed`: there is no shelter at all.
  ShelteredProvider(OrvFileProvider& target, bool isClosed)
      : ForwardingProvider(target), isClosed_(isClosed) {}

  void setBaseOption(bool option) override {
    const Shelter shelter(isClosed_);
    ForwardingProvider::setBaseOption(option);
  }
  std::uint64_t getZoneCount(OrvZoneCategory category) override {
    const Shelter shelter(isClosed_);
    return ForwardingProvider::getZoneCount(category);
  }
  void getZoneIds(OrvZoneCategory category, std::vector<int>& ids) override {
    const Shelter shelter(isClosed_);
    ForwardingProvider::getZoneIds(category, ids);
  }
  void setSolverType(std::string solverType) override {
    const Shelter shelter(isClosed_);
    ForwardingProvider::setSolverType(std::move(solverType));
  }
  bool startReading(const std::string& fileName, OrvDataClass dataClass) override {
    const Shelter shelter(isClosed_);
    return ForwardingProvider::startReading(fileName, dataClass);
  }
  void setFileName(const std::string& path, OrvDataClass dataClass) override {
    const Shelter shelter(isClosed_);
    ForwardingProvider::setFileName(path, dataClass);
  }
  void getFileVersion(OrvDataClass dataClass, int& major, int& minor, int& patch) override {
    const Shelter shelter(isClosed_);
    ForwardingProvider::getFileVersion(dataClass, major, minor, patch);
  }
  void getSettingsKeys(OrvDataClass dataClass, std::vector<std::string>& keys) override {
    const Shelter shelter(isClosed_);
    ForwardingProvider::getSettingsKeys(dataClass, keys);
  }
  void getSettingsValue(OrvDataClass dataClass, const std::string& key, std::string& value,
                        const std::string& path) override {
    const Shelter shelter(isClosed_);
    ForwardingProvider::getSettingsValue(dataClass, key, value, path);
  }
  void getMeshIds(std::vector<int>& ids, OrvDataClass dataClass) override {
    const Shelter shelter(isClosed_);
    ForwardingProvider::getMeshIds(ids, dataClass);
  }
  void getTargets(std::vector<int>& categories, int meshId, OrvDataClass dataClass) override {
    const Shelter shelter(isClosed_);
    ForwardingProvider::getTargets(categories, meshId, dataClass);
  }
  void getPartitionIds(std::vector<int>& ids, int meshId, OrvDataClass dataClass) override {
    const Shelter shelter(isClosed_);
    ForwardingProvider::getPartitionIds(ids, meshId, dataClass);
  }
  void beginNodeCoordinates(std::vector<int>& zoneIds) override {
    const Shelter shelter(isClosed_);
    ForwardingProvider::beginNodeCoordinates(zoneIds);
  }
  std::size_t readNodeCoordinates(int zoneId, double* values, std::size_t n) override {
    const Shelter shelter(isClosed_);
    return ForwardingProvider::readNodeCoordinates(zoneId, values, n);
  }
  void endNodeCoordinates() override {
    const Shelter shelter(isClosed_);
    ForwardingProvider::endNodeCoordinates();
  }
  void beginFaceNodes(std::vector<int>& zoneIds) override {
    const Shelter shelter(isClosed_);
    ForwardingProvider::beginFaceNodes(zoneIds);
  }
  void beginFaceNodeCounts() override {
    const Shelter shelter(isClosed_);
    ForwardingProvider::beginFaceNodeCounts();
  }
  bool getUniformFaceNodeCount(int zoneId, short& count) override {
    const Shelter shelter(isClosed_);
    return ForwardingProvider::getUniformFaceNodeCount(zoneId, count);
  }
  void readFaceNodeCounts(int zoneId, short* counts, std::size_t n) override {
    const Shelter shelter(isClosed_);
    ForwardingProvider::readFaceNodeCounts(zoneId, counts, n);
  }
  void endFaceNodeCounts() override {
    const Shelter shelter(isClosed_);
    ForwardingProvider::endFaceNodeCounts();
  }
  void beginFaceNodeIds() override {
    const Shelter shelter(isClosed_);
    ForwardingProvider::beginFaceNodeIds();
  }
  void readFaceNodeIds(int zoneId, std::uint64_t* ids, std::size_t n) override {
    const Shelter shelter(isClosed_);
    ForwardingProvider::readFaceNodeIds(zoneId, ids, n);
  }
  void endFaceNodeIds() override {
    const Shelter shelter(isClosed_);
    ForwardingProvider::endFaceNodeIds();
  }
  void endFaceNodes() override {
    const Shelter shelter(isClosed_);
    ForwardingProvider::endFaceNodes();
  }
  void beginFaceCell0(std::vector<int>& zoneIds) override {
    const Shelter shelter(isClosed_);
    ForwardingProvider::beginFaceCell0(zoneIds);
  }
  std::uint64_t getFaceCell0(std::uint64_t faceId) override {
    const Shelter shelter(isClosed_);
    return ForwardingProvider::getFaceCell0(faceId);
  }
  void readFaceCell0(int zoneId, std::uint64_t* cellIds, std::size_t n) override {
    const Shelter shelter(isClosed_);
    ForwardingProvider::readFaceCell0(zoneId, cellIds, n);
  }
  void endFaceCell0() override {
    const Shelter shelter(isClosed_);
    ForwardingProvider::endFaceCell0();
  }
  void beginFaceCell1(std::vector<int>& zoneIds) override {
    const Shelter shelter(isClosed_);
    ForwardingProvider::beginFaceCell1(zoneIds);
  }
  std::uint64_t getFaceCell1(std::uint64_t faceId) override {
    const Shelter shelter(isClosed_);
    return ForwardingProvider::getFaceCell1(faceId);
  }
  void readFaceCell1(int zoneId, std::uint64_t* cellIds, std::size_t n) override {
    const Shelter shelter(isClosed_);
    ForwardingProvider::readFaceCell1(zoneId, cellIds, n);
  }
  void endFaceCell1() override {
    const Shelter shelter(isClosed_);
    ForwardingProvider::endFaceCell1();
  }
  void beginFaceShadows(std::vector<int>& zoneIds) override {
    const Shelter shelter(isClosed_);
    ForwardingProvider::beginFaceShadows(zoneIds);
  }
  std::uint64_t getFaceShadow(std::uint64_t faceId) override {
    const Shelter shelter(isClosed_);
    return ForwardingProvider::getFaceShadow(faceId);
  }
  void endFaceShadows() override {
    const Shelter shelter(isClosed_);
    ForwardingProvider::endFaceShadows();
  }
  void beginFaceTree(std::vector<int>& parentZoneIds, std::vector<int>& childZoneIds) override {
    const Shelter shelter(isClosed_);
    ForwardingProvider::beginFaceTree(parentZoneIds, childZoneIds);
  }
  void endFaceTree() override {
    const Shelter shelter(isClosed_);
    ForwardingProvider::endFaceTree();
  }
  void beginCellTypes(std::vector<int>& zoneIds) override {
    const Shelter shelter(isClosed_);
    ForwardingProvider::beginCellTypes(zoneIds);
  }
  bool getUniformCellType(int zoneId, int& type) override {
    const Shelter shelter(isClosed_);
    return ForwardingProvider::getUniformCellType(zoneId, type);
  }
  int getCellType(std::uint64_t cellId) override {
    const Shelter shelter(isClosed_);
    return ForwardingProvider::getCellType(cellId);
  }
  std::size_t readCellTypes(int zoneId, int* types, std::size_t n) override {
    const Shelter shelter(isClosed_);
    return ForwardingProvider::readCellTypes(zoneId, types, n);
  }
  void endCellTypes() override {
    const Shelter shelter(isClosed_);
    ForwardingProvider::endCellTypes();
  }
  void beginCellNodes(std::vector<int>& zoneIds) override {
    const Shelter shelter(isClosed_);
    ForwardingProvider::beginCellNodes(zoneIds);
  }
  void beginCellNodeCounts() override {
    const Shelter shelter(isClosed_);
    ForwardingProvider::beginCellNodeCounts();
  }
  bool getUniformCellNodeCount(int zoneId, short& count) override {
    const Shelter shelter(isClosed_);
    return ForwardingProvider::getUniformCellNodeCount(zoneId, count);
  }
  void readCellNodeCounts(int zoneId, short* counts, std::size_t n) override {
    const Shelter shelter(isClosed_);
    ForwardingProvider::readCellNodeCounts(zoneId, counts, n);
  }
  void endCellNodeCounts() override {
    const Shelter shelter(isClosed_);
    ForwardingProvider::endCellNodeCounts();
  }
  void beginCellNodeIds() override {
    const Shelter shelter(isClosed_);
    ForwardingProvider::beginCellNodeIds();
  }
  void readCellNodeIds(int zoneId, std::uint64_t* ids, std::size_t n) override {
    const Shelter shelter(isClosed_);
    ForwardingProvider::readCellNodeIds(zoneId, ids, n);
  }
  void endCellNodeIds() override {
    const Shelter shelter(isClosed_);
    ForwardingProvider::endCellNodeIds();
  }
  void endCellNodes() override {
    const Shelter shelter(isClosed_);
    ForwardingProvider::endCellNodes();
  }
  void beginCellFaces(std::vector<int>& zoneIds) override {
    const Shelter shelter(isClosed_);
    ForwardingProvider::beginCellFaces(zoneIds);
  }
  void beginCellFaceCounts() override {
    const Shelter shelter(isClosed_);
    ForwardingProvider::beginCellFaceCounts();
  }
  bool getUniformCellFaceCount(int zoneId, short& count) override {
    const Shelter shelter(isClosed_);
    return ForwardingProvider::getUniformCellFaceCount(zoneId, count);
  }
  void readCellFaceCounts(int zoneId, short* counts, std::size_t n) override {
    const Shelter shelter(isClosed_);
    ForwardingProvider::readCellFaceCounts(zoneId, counts, n);
  }
  void endCellFaceCounts() override {
    const Shelter shelter(isClosed_);
    ForwardingProvider::endCellFaceCounts();
  }
  void beginCellFaceIds() override {
    const Shelter shelter(isClosed_);
    ForwardingProvider::beginCellFaceIds();
  }
  void readCellFaceIds(int zoneId, std::uint64_t* ids, std::size_t n) override {
    const Shelter shelter(isClosed_);
    ForwardingProvider::readCellFaceIds(zoneId, ids, n);
  }
  void endCellFaceIds() override {
    const Shelter shelter(isClosed_);
    ForwardingProvider::endCellFaceIds();
  }
  void endCellFaces() override {
    const Shelter shelter(isClosed_);
    ForwardingProvider::endCellFaces();
  }
  void beginCellPartitions(std::vector<int>& zoneIds) override {
    const Shelter shelter(isClosed_);
    ForwardingProvider::beginCellPartitions(zoneIds);
  }
  int getCellPartitionInfo(int zoneId) override {
    const Shelter shelter(isClosed_);
    return ForwardingProvider::getCellPartitionInfo(zoneId);
  }
  void readCellPartitions(int zoneId, int* partitions, std::size_t n) override {
    const Shelter shelter(isClosed_);
    ForwardingProvider::readCellPartitions(zoneId, partitions, n);
  }
  void endCellPartitions() override {
    const Shelter shelter(isClosed_);
    ForwardingProvider::endCellPartitions();
  }
  void beginPhase(short phaseId) override {
    const Shelter shelter(isClosed_);
    ForwardingProvider::beginPhase(phaseId);
  }
  bool getPhaseAttributeNames(short phaseId, std::vector<std::string>& names) override {
    const Shelter shelter(isClosed_);
    return ForwardingProvider::getPhaseAttributeNames(phaseId, names);
  }
  bool getPhaseAttribute(short phaseId, const std::string& name, std::string& value) override {
    const Shelter shelter(isClosed_);
    return ForwardingProvider::getPhaseAttribute(phaseId, name, value);
  }
  void getVariableNames(OrvZoneCategory category, std::vector<std::string>& names) override {
    const Shelter shelter(isClosed_);
    ForwardingProvider::getVariableNames(category, names);
  }
  bool getVariableAttributeNames(int variableId, std::vector<std::string>& names) override {
    const Shelter shelter(isClosed_);
    return ForwardingProvider::getVariableAttributeNames(variableId, names);
  }
  bool getVariableAttribute(int variableId, const std::string& name, std::string& value) override {
    const Shelter shelter(isClosed_);
    return ForwardingProvider::getVariableAttribute(variableId, name, value);
  }
  std::size_t beginVariable(OrvZoneCategory category, const std::string& name,
                            std::vector<int>& zoneIds) override {
    const Shelter shelter(isClosed_);
    return ForwardingProvider::beginVariable(category, name, zoneIds);
  }
  std::size_t readVariable(int zoneId, double* values, std::size_t n) override {
    const Shelter shelter(isClosed_);
    return ForwardingProvider::readVariable(zoneId, values, n);
  }
  void endVariable() override {
    const Shelter shelter(isClosed_);
    ForwardingProvider::endVariable();
  }
  void endPhase() override {
    const Shelter shelter(isClosed_);
    ForwardingProvider::endPhase();
  }
  bool getPhaseDescription(short phaseId, std::string& text) override {
    const Shelter shelter(isClosed_);
    return ForwardingProvider::getPhaseDescription(phaseId, text);
  }
  bool getVariableDescription(int variableId, std::string& text) override {
    const Shelter shelter(isClosed_);
    return ForwardingProvider::getVariableDescription(variableId, text);
  }

 private:
  bool isClosed_;
};

}  // namespace velto::testing

#endif  // VELTO_TESTS_FAULTS_SHELTERED_PROVIDER_H
