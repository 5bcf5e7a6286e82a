// SPDX-License-Identifier: Apache-2.0
//
// ForwardingConsumer: every call to the target.

#include "testing/ForwardingConsumer.h"

#include <utility>

namespace velto::testing {

// --- The base, the file, brackets ----------------------------------------------------------------

void ForwardingConsumer::setBaseOption(bool option) {
  tell("setBaseOption", option);
  target()->setBaseOption(option);
}

std::uint64_t ForwardingConsumer::getZoneCount(OrvZoneCategory category) {
  tell("getZoneCount", category);
  return target()->getZoneCount(category);
}

void ForwardingConsumer::getZoneIds(OrvZoneCategory category, std::vector<int>& ids) {
  tell("getZoneIds", category);
  target()->getZoneIds(category, ids);
}

void ForwardingConsumer::setSolverType(std::string solverType) {
  tell("setSolverType", solverType);
  target()->setSolverType(std::move(solverType));
}

void ForwardingConsumer::setFileName(const std::string& path, OrvDataClass dataClass) {
  tell("setFileName", path, dataClass);
  target()->setFileName(path, dataClass);
}

void ForwardingConsumer::getFileVersion(OrvDataClass dataClass, int& major, int& minor,
                                        int& patch) {
  tell("getFileVersion", dataClass);
  target()->getFileVersion(dataClass, major, minor, patch);
}

void ForwardingConsumer::writeStandardSettings(
    std::vector<std::pair<std::string, std::string>> entries, OrvDataClass dataClass) {
  tell("writeStandardSettings", entries, dataClass);
  target()->writeStandardSettings(std::move(entries), dataClass);
}

void ForwardingConsumer::setMode(int mode) {
  tell("setMode", mode);
  target()->setMode(mode);
}

void ForwardingConsumer::setCompression(unsigned int level) {
  tell("setCompression", level);
  target()->setCompression(level);
}

void ForwardingConsumer::startWriting(OrvDataClass dataClass) {
  tell("startWriting", dataClass);
  target()->startWriting(dataClass);
}

void ForwardingConsumer::endWriting(OrvDataClass dataClass) {
  tell("endWriting", dataClass);
  target()->endWriting(dataClass);
}

void ForwardingConsumer::writeSettings(
    const std::vector<std::pair<std::string, std::string>>& entries, OrvDataClass dataClass,
    const std::string& path) {
  tell("writeSettings", entries, dataClass, path);
  target()->writeSettings(entries, dataClass, path);
}

void ForwardingConsumer::writeMeshAttributes() {
  tell("writeMeshAttributes");
  target()->writeMeshAttributes();
}

void ForwardingConsumer::writeElemIds(int zoneId, const std::size_t* ids, std::size_t count) {
  tell("writeElemIds", zoneId, bufferOf(ids, count));
  target()->writeElemIds(zoneId, ids, count);
}

// --- Nodes ---------------------------------------------------------------------------------------

void ForwardingConsumer::beginNodes(const std::vector<int>& zoneIds) {
  tell("beginNodes", zoneIds);
  target()->beginNodes(zoneIds);
}

void ForwardingConsumer::beginNodeCoordinates(const std::vector<int>& zoneIds) {
  tell("beginNodeCoordinates", zoneIds);
  target()->beginNodeCoordinates(zoneIds);
}

void ForwardingConsumer::writeNodeCoordinates(int zoneId, const double* values, std::size_t n) {
  tell("writeNodeCoordinates", zoneId, bufferOf(values, n));
  target()->writeNodeCoordinates(zoneId, values, n);
}

void ForwardingConsumer::endNodeCoordinates() {
  tell("endNodeCoordinates");
  target()->endNodeCoordinates();
}

void ForwardingConsumer::endNodes() {
  tell("endNodes");
  target()->endNodes();
}

// --- Faces ---------------------------------------------------------------------------------------

void ForwardingConsumer::beginFaces(const std::vector<int>& zoneIds) {
  tell("beginFaces", zoneIds);
  target()->beginFaces(zoneIds);
}

void ForwardingConsumer::beginFaceNodes(const std::vector<int>& zoneIds) {
  tell("beginFaceNodes", zoneIds);
  target()->beginFaceNodes(zoneIds);
}

void ForwardingConsumer::beginFaceNodeCounts() {
  tell("beginFaceNodeCounts");
  target()->beginFaceNodeCounts();
}

void ForwardingConsumer::writeUniformFaceNodeCount(int zoneId, short count) {
  tell("writeUniformFaceNodeCount", zoneId, count);
  target()->writeUniformFaceNodeCount(zoneId, count);
}

void ForwardingConsumer::writeFaceNodeCounts(int zoneId, const short* counts, std::size_t n) {
  tell("writeFaceNodeCounts", zoneId, bufferOf(counts, n));
  target()->writeFaceNodeCounts(zoneId, counts, n);
}

void ForwardingConsumer::endFaceNodeCounts() {
  tell("endFaceNodeCounts");
  target()->endFaceNodeCounts();
}

void ForwardingConsumer::beginFaceNodeIds() {
  tell("beginFaceNodeIds");
  target()->beginFaceNodeIds();
}

void ForwardingConsumer::writeFaceNodeIds(int zoneId, const std::uint64_t* ids, std::size_t n) {
  tell("writeFaceNodeIds", zoneId, bufferOf(ids, n));
  target()->writeFaceNodeIds(zoneId, ids, n);
}

void ForwardingConsumer::endFaceNodeIds() {
  tell("endFaceNodeIds");
  target()->endFaceNodeIds();
}

void ForwardingConsumer::endFaceNodes() {
  tell("endFaceNodes");
  target()->endFaceNodes();
}

void ForwardingConsumer::beginFaceCell0(const std::vector<int>& zoneIds) {
  tell("beginFaceCell0", zoneIds);
  target()->beginFaceCell0(zoneIds);
}

void ForwardingConsumer::writeFaceCell0(int zoneId, const std::uint64_t* cellIds, std::size_t n) {
  tell("writeFaceCell0", zoneId, bufferOf(cellIds, n));
  target()->writeFaceCell0(zoneId, cellIds, n);
}

void ForwardingConsumer::endFaceCell0() {
  tell("endFaceCell0");
  target()->endFaceCell0();
}

void ForwardingConsumer::beginFaceCell1(const std::vector<int>& zoneIds) {
  tell("beginFaceCell1", zoneIds);
  target()->beginFaceCell1(zoneIds);
}

void ForwardingConsumer::writeFaceCell1(int zoneId, const std::uint64_t* cellIds, std::size_t n) {
  tell("writeFaceCell1", zoneId, bufferOf(cellIds, n));
  target()->writeFaceCell1(zoneId, cellIds, n);
}

void ForwardingConsumer::endFaceCell1() {
  tell("endFaceCell1");
  target()->endFaceCell1();
}

void ForwardingConsumer::endFaces() {
  tell("endFaces");
  target()->endFaces();
}

// --- Cells ---------------------------------------------------------------------------------------

void ForwardingConsumer::beginCells(const std::vector<int>& zoneIds) {
  tell("beginCells", zoneIds);
  target()->beginCells(zoneIds);
}

void ForwardingConsumer::beginCellTypes(const std::vector<int>& zoneIds,
                                        const std::vector<int>& uniformTypes) {
  tell("beginCellTypes", zoneIds, uniformTypes);
  target()->beginCellTypes(zoneIds, uniformTypes);
}

void ForwardingConsumer::writeCellTypes(int zoneId, const int* types, std::size_t n) {
  tell("writeCellTypes", zoneId, bufferOf(types, n));
  target()->writeCellTypes(zoneId, types, n);
}

void ForwardingConsumer::endCellTypes() {
  tell("endCellTypes");
  target()->endCellTypes();
}

void ForwardingConsumer::beginCellNodes(const std::vector<int>& zoneIds) {
  tell("beginCellNodes", zoneIds);
  target()->beginCellNodes(zoneIds);
}

void ForwardingConsumer::beginCellNodeCounts() {
  tell("beginCellNodeCounts");
  target()->beginCellNodeCounts();
}

void ForwardingConsumer::writeCellNodeCounts(int zoneId, const short* counts, std::size_t n) {
  tell("writeCellNodeCounts", zoneId, bufferOf(counts, n));
  target()->writeCellNodeCounts(zoneId, counts, n);
}

void ForwardingConsumer::writeUniformCellNodeCount(int zoneId, short count) {
  tell("writeUniformCellNodeCount", zoneId, count);
  target()->writeUniformCellNodeCount(zoneId, count);
}

void ForwardingConsumer::endCellNodeCounts() {
  tell("endCellNodeCounts");
  target()->endCellNodeCounts();
}

void ForwardingConsumer::beginCellNodeIds() {
  tell("beginCellNodeIds");
  target()->beginCellNodeIds();
}

void ForwardingConsumer::writeCellNodeIds(int zoneId, const std::uint64_t* ids, std::size_t n) {
  tell("writeCellNodeIds", zoneId, bufferOf(ids, n));
  target()->writeCellNodeIds(zoneId, ids, n);
}

void ForwardingConsumer::endCellNodeIds() {
  tell("endCellNodeIds");
  target()->endCellNodeIds();
}

void ForwardingConsumer::endCellNodes() {
  tell("endCellNodes");
  target()->endCellNodes();
}

void ForwardingConsumer::beginCellPartitions(const std::vector<int>& zoneIds, int partitionInfo) {
  tell("beginCellPartitions", zoneIds, partitionInfo);
  target()->beginCellPartitions(zoneIds, partitionInfo);
}

void ForwardingConsumer::writeCellPartitions(int zoneId, const int* partitions, std::size_t n) {
  tell("writeCellPartitions", zoneId, bufferOf(partitions, n));
  target()->writeCellPartitions(zoneId, partitions, n);
}

void ForwardingConsumer::endCellPartitions() {
  tell("endCellPartitions");
  target()->endCellPartitions();
}

void ForwardingConsumer::endCells() {
  tell("endCells");
  target()->endCells();
}

// --- Field data ----------------------------------------------------------------------------------

void ForwardingConsumer::addPhases(const std::vector<std::string>& names,
                                   std::vector<short>& phaseIds) {
  tell("addPhases", names);
  target()->addPhases(names, phaseIds);
}

void ForwardingConsumer::setPhaseAttribute(short phaseId, const std::string& name,
                                           const std::string& value) {
  tell("setPhaseAttribute", phaseId, name, value);
  target()->setPhaseAttribute(phaseId, name, value);
}

void ForwardingConsumer::beginPhase(short phaseId) {
  tell("beginPhase", phaseId);
  target()->beginPhase(phaseId);
}

void ForwardingConsumer::addVariable(const std::string& name, int& variableId) {
  tell("addVariable", name);
  target()->addVariable(name, variableId);
}

void ForwardingConsumer::declareVariables(OrvZoneCategory category,
                                          const std::vector<std::string>& names,
                                          const std::vector<int>& variableIds) {
  tell("declareVariables", category, names, variableIds);
  target()->declareVariables(category, names, variableIds);
}

void ForwardingConsumer::beginVariableZones(OrvZoneCategory category) {
  tell("beginVariableZones", category);
  target()->beginVariableZones(category);
}

void ForwardingConsumer::setVariableAttribute(int variableId, const std::string& name,
                                              const std::string& value) {
  tell("setVariableAttribute", variableId, name, value);
  target()->setVariableAttribute(variableId, name, value);
}

void ForwardingConsumer::beginVariable(OrvZoneCategory category, const std::string& name,
                                       const std::vector<int>& zoneIds,
                                       std::size_t valuesPerEntity) {
  tell("beginVariable", category, name, zoneIds, valuesPerEntity);
  target()->beginVariable(category, name, zoneIds, valuesPerEntity);
}

void ForwardingConsumer::writeVariable(int zoneId, const double* values, std::size_t n) {
  tell("writeVariable", zoneId, bufferOf(values, n));
  target()->writeVariable(zoneId, values, n);
}

void ForwardingConsumer::endVariable() {
  tell("endVariable");
  target()->endVariable();
}

void ForwardingConsumer::endVariableZones() {
  tell("endVariableZones");
  target()->endVariableZones();
}

void ForwardingConsumer::endPhase() {
  tell("endPhase");
  target()->endPhase();
}

void ForwardingConsumer::setPhaseDescription(short phaseId, const std::string& text) {
  tell("setPhaseDescription", phaseId, text);
  target()->setPhaseDescription(phaseId, text);
}

void ForwardingConsumer::setVariableDescription(int variableId, const std::string& text) {
  tell("setVariableDescription", variableId, text);
  target()->setVariableDescription(variableId, text);
}

}  // namespace velto::testing
