// SPDX-License-Identifier: Apache-2.0
//
// ForwardingConsumer: every call to the target.

#include "testing/ForwardingConsumer.h"

#include <utility>

#include "embedded/base/OrvBaseState.h"

namespace velto::testing {

ForwardingConsumer::ForwardingConsumer(OrvFileConsumer& target) : target_(target) {
  OrvBase::State::of(*this).core = OrvBase::State::of(target).core;
}

void ForwardingConsumer::onCall(const std::string&) {}

// --- The base, the file, brackets ----------------------------------------------------------------

void ForwardingConsumer::setBaseOption(bool option) {
  tell("setBaseOption", option);
  target_.setBaseOption(option);
}

std::uint64_t ForwardingConsumer::getZoneCount(OrvZoneCategory category) {
  tell("getZoneCount", category);
  return target_.getZoneCount(category);
}

void ForwardingConsumer::getZoneIds(OrvZoneCategory category, std::vector<int>& ids) {
  tell("getZoneIds", category);
  target_.getZoneIds(category, ids);
}

void ForwardingConsumer::setSolverType(std::string solverType) {
  tell("setSolverType", solverType);
  target_.setSolverType(std::move(solverType));
}

void ForwardingConsumer::setFileName(const std::string& path, OrvDataClass dataClass) {
  tell("setFileName", path, dataClass);
  target_.setFileName(path, dataClass);
}

void ForwardingConsumer::getFileVersion(OrvDataClass dataClass, int& major, int& minor,
                                        int& patch) {
  tell("getFileVersion", dataClass);
  target_.getFileVersion(dataClass, major, minor, patch);
}

void ForwardingConsumer::writeStandardSettings(
    std::vector<std::pair<std::string, std::string>> entries, OrvDataClass dataClass) {
  tell("writeStandardSettings", entries, dataClass);
  target_.writeStandardSettings(std::move(entries), dataClass);
}

void ForwardingConsumer::setMode(int mode) {
  tell("setMode", mode);
  target_.setMode(mode);
}

void ForwardingConsumer::setCompression(unsigned int level) {
  tell("setCompression", level);
  target_.setCompression(level);
}

void ForwardingConsumer::startWriting(OrvDataClass dataClass) {
  tell("startWriting", dataClass);
  target_.startWriting(dataClass);
}

void ForwardingConsumer::endWriting(OrvDataClass dataClass) {
  tell("endWriting", dataClass);
  target_.endWriting(dataClass);
}

void ForwardingConsumer::writeSettings(
    const std::vector<std::pair<std::string, std::string>>& entries, OrvDataClass dataClass,
    const std::string& path) {
  tell("writeSettings", entries, dataClass, path);
  target_.writeSettings(entries, dataClass, path);
}

void ForwardingConsumer::writeMeshAttributes() {
  tell("writeMeshAttributes");
  target_.writeMeshAttributes();
}

void ForwardingConsumer::writeElemIds(int zoneId, const std::size_t* ids, std::size_t count) {
  tell("writeElemIds", zoneId, bufferOf(ids, count));
  target_.writeElemIds(zoneId, ids, count);
}

// --- Nodes ---------------------------------------------------------------------------------------

void ForwardingConsumer::beginNodes(const std::vector<int>& zoneIds) {
  tell("beginNodes", zoneIds);
  target_.beginNodes(zoneIds);
}

void ForwardingConsumer::beginNodeCoordinates(const std::vector<int>& zoneIds) {
  tell("beginNodeCoordinates", zoneIds);
  target_.beginNodeCoordinates(zoneIds);
}

void ForwardingConsumer::writeNodeCoordinates(int zoneId, const double* values, std::size_t n) {
  tell("writeNodeCoordinates", zoneId, bufferOf(values, n));
  target_.writeNodeCoordinates(zoneId, values, n);
}

void ForwardingConsumer::endNodeCoordinates() {
  tell("endNodeCoordinates");
  target_.endNodeCoordinates();
}

void ForwardingConsumer::endNodes() {
  tell("endNodes");
  target_.endNodes();
}

// --- Faces ---------------------------------------------------------------------------------------

void ForwardingConsumer::beginFaces(const std::vector<int>& zoneIds) {
  tell("beginFaces", zoneIds);
  target_.beginFaces(zoneIds);
}

void ForwardingConsumer::beginFaceNodes(const std::vector<int>& zoneIds) {
  tell("beginFaceNodes", zoneIds);
  target_.beginFaceNodes(zoneIds);
}

void ForwardingConsumer::beginFaceNodeCounts() {
  tell("beginFaceNodeCounts");
  target_.beginFaceNodeCounts();
}

void ForwardingConsumer::writeUniformFaceNodeCount(int zoneId, short count) {
  tell("writeUniformFaceNodeCount", zoneId, count);
  target_.writeUniformFaceNodeCount(zoneId, count);
}

void ForwardingConsumer::writeFaceNodeCounts(int zoneId, const short* counts, std::size_t n) {
  tell("writeFaceNodeCounts", zoneId, bufferOf(counts, n));
  target_.writeFaceNodeCounts(zoneId, counts, n);
}

void ForwardingConsumer::endFaceNodeCounts() {
  tell("endFaceNodeCounts");
  target_.endFaceNodeCounts();
}

void ForwardingConsumer::beginFaceNodeIds() {
  tell("beginFaceNodeIds");
  target_.beginFaceNodeIds();
}

void ForwardingConsumer::writeFaceNodeIds(int zoneId, const std::uint64_t* ids, std::size_t n) {
  tell("writeFaceNodeIds", zoneId, bufferOf(ids, n));
  target_.writeFaceNodeIds(zoneId, ids, n);
}

void ForwardingConsumer::endFaceNodeIds() {
  tell("endFaceNodeIds");
  target_.endFaceNodeIds();
}

void ForwardingConsumer::endFaceNodes() {
  tell("endFaceNodes");
  target_.endFaceNodes();
}

void ForwardingConsumer::beginFaceCell0(const std::vector<int>& zoneIds) {
  tell("beginFaceCell0", zoneIds);
  target_.beginFaceCell0(zoneIds);
}

void ForwardingConsumer::writeFaceCell0(int zoneId, const std::uint64_t* cellIds, std::size_t n) {
  tell("writeFaceCell0", zoneId, bufferOf(cellIds, n));
  target_.writeFaceCell0(zoneId, cellIds, n);
}

void ForwardingConsumer::endFaceCell0() {
  tell("endFaceCell0");
  target_.endFaceCell0();
}

void ForwardingConsumer::beginFaceCell1(const std::vector<int>& zoneIds) {
  tell("beginFaceCell1", zoneIds);
  target_.beginFaceCell1(zoneIds);
}

void ForwardingConsumer::writeFaceCell1(int zoneId, const std::uint64_t* cellIds, std::size_t n) {
  tell("writeFaceCell1", zoneId, bufferOf(cellIds, n));
  target_.writeFaceCell1(zoneId, cellIds, n);
}

void ForwardingConsumer::endFaceCell1() {
  tell("endFaceCell1");
  target_.endFaceCell1();
}

void ForwardingConsumer::endFaces() {
  tell("endFaces");
  target_.endFaces();
}

// --- Cells ---------------------------------------------------------------------------------------

void ForwardingConsumer::beginCells(const std::vector<int>& zoneIds) {
  tell("beginCells", zoneIds);
  target_.beginCells(zoneIds);
}

void ForwardingConsumer::beginCellTypes(const std::vector<int>& zoneIds,
                                        const std::vector<int>& uniformTypes) {
  tell("beginCellTypes", zoneIds, uniformTypes);
  target_.beginCellTypes(zoneIds, uniformTypes);
}

void ForwardingConsumer::writeCellTypes(int zoneId, const int* types, std::size_t n) {
  tell("writeCellTypes", zoneId, bufferOf(types, n));
  target_.writeCellTypes(zoneId, types, n);
}

void ForwardingConsumer::endCellTypes() {
  tell("endCellTypes");
  target_.endCellTypes();
}

void ForwardingConsumer::beginCellNodes(const std::vector<int>& zoneIds) {
  tell("beginCellNodes", zoneIds);
  target_.beginCellNodes(zoneIds);
}

void ForwardingConsumer::beginCellNodeCounts() {
  tell("beginCellNodeCounts");
  target_.beginCellNodeCounts();
}

void ForwardingConsumer::writeCellNodeCounts(int zoneId, const short* counts, std::size_t n) {
  tell("writeCellNodeCounts", zoneId, bufferOf(counts, n));
  target_.writeCellNodeCounts(zoneId, counts, n);
}

void ForwardingConsumer::writeUniformCellNodeCount(int zoneId, short count) {
  tell("writeUniformCellNodeCount", zoneId, count);
  target_.writeUniformCellNodeCount(zoneId, count);
}

void ForwardingConsumer::endCellNodeCounts() {
  tell("endCellNodeCounts");
  target_.endCellNodeCounts();
}

void ForwardingConsumer::beginCellNodeIds() {
  tell("beginCellNodeIds");
  target_.beginCellNodeIds();
}

void ForwardingConsumer::writeCellNodeIds(int zoneId, const std::uint64_t* ids, std::size_t n) {
  tell("writeCellNodeIds", zoneId, bufferOf(ids, n));
  target_.writeCellNodeIds(zoneId, ids, n);
}

void ForwardingConsumer::endCellNodeIds() {
  tell("endCellNodeIds");
  target_.endCellNodeIds();
}

void ForwardingConsumer::endCellNodes() {
  tell("endCellNodes");
  target_.endCellNodes();
}

void ForwardingConsumer::beginCellPartitions(const std::vector<int>& zoneIds, int partitionInfo) {
  tell("beginCellPartitions", zoneIds, partitionInfo);
  target_.beginCellPartitions(zoneIds, partitionInfo);
}

void ForwardingConsumer::writeCellPartitions(int zoneId, const int* partitions, std::size_t n) {
  tell("writeCellPartitions", zoneId, bufferOf(partitions, n));
  target_.writeCellPartitions(zoneId, partitions, n);
}

void ForwardingConsumer::endCellPartitions() {
  tell("endCellPartitions");
  target_.endCellPartitions();
}

void ForwardingConsumer::endCells() {
  tell("endCells");
  target_.endCells();
}

// --- Field data ----------------------------------------------------------------------------------

void ForwardingConsumer::addPhases(const std::vector<std::string>& names,
                                   std::vector<short>& phaseIds) {
  tell("addPhases", names);
  target_.addPhases(names, phaseIds);
}

void ForwardingConsumer::setPhaseAttribute(short phaseId, const std::string& name,
                                           const std::string& value) {
  tell("setPhaseAttribute", phaseId, name, value);
  target_.setPhaseAttribute(phaseId, name, value);
}

void ForwardingConsumer::beginPhase(short phaseId) {
  tell("beginPhase", phaseId);
  target_.beginPhase(phaseId);
}

void ForwardingConsumer::addVariable(const std::string& name, int& variableId) {
  tell("addVariable", name);
  target_.addVariable(name, variableId);
}

void ForwardingConsumer::declareVariables(OrvZoneCategory category,
                                          const std::vector<std::string>& names,
                                          const std::vector<int>& variableIds) {
  tell("declareVariables", category, names, variableIds);
  target_.declareVariables(category, names, variableIds);
}

void ForwardingConsumer::beginVariableZones(OrvZoneCategory category) {
  tell("beginVariableZones", category);
  target_.beginVariableZones(category);
}

void ForwardingConsumer::setVariableAttribute(int variableId, const std::string& name,
                                              const std::string& value) {
  tell("setVariableAttribute", variableId, name, value);
  target_.setVariableAttribute(variableId, name, value);
}

void ForwardingConsumer::beginVariable(OrvZoneCategory category, const std::string& name,
                                       const std::vector<int>& zoneIds,
                                       std::size_t valuesPerEntity) {
  tell("beginVariable", category, name, zoneIds, valuesPerEntity);
  target_.beginVariable(category, name, zoneIds, valuesPerEntity);
}

void ForwardingConsumer::writeVariable(int zoneId, const double* values, std::size_t n) {
  tell("writeVariable", zoneId, bufferOf(values, n));
  target_.writeVariable(zoneId, values, n);
}

void ForwardingConsumer::endVariable() {
  tell("endVariable");
  target_.endVariable();
}

void ForwardingConsumer::endVariableZones() {
  tell("endVariableZones");
  target_.endVariableZones();
}

void ForwardingConsumer::endPhase() {
  tell("endPhase");
  target_.endPhase();
}

void ForwardingConsumer::setPhaseDescription(short phaseId, const std::string& text) {
  tell("setPhaseDescription", phaseId, text);
  target_.setPhaseDescription(phaseId, text);
}

void ForwardingConsumer::setVariableDescription(int variableId, const std::string& text) {
  tell("setVariableDescription", variableId, text);
  target_.setVariableDescription(variableId, text);
}

}  // namespace velto::testing
