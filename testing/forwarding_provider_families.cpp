// SPDX-License-Identifier: Apache-2.0
//
// ForwardingProvider: the families of bulk calls.

#include "testing/ForwardingProvider.h"

namespace velto::testing {

// --- Node coordinates ----------------------------------------------------------------------------

void ForwardingProvider::beginNodeCoordinates(std::vector<int>& zoneIds) {
  tellWithList(zoneIds, "beginNodeCoordinates");
  target()->beginNodeCoordinates(zoneIds);
  answer(zoneIds, "beginNodeCoordinates");
}

std::size_t ForwardingProvider::readNodeCoordinates(int zoneId, double* values, std::size_t n) {
  tell("readNodeCoordinates", zoneId, n);
  std::size_t delivered = target()->readNodeCoordinates(zoneId, values, n);
  answer(delivered, "readNodeCoordinates", zoneId, n);
  return delivered;
}

void ForwardingProvider::endNodeCoordinates() {
  tell("endNodeCoordinates");
  target()->endNodeCoordinates();
}

// --- Face nodes ----------------------------------------------------------------------------------

void ForwardingProvider::beginFaceNodes(std::vector<int>& zoneIds) {
  tellWithList(zoneIds, "beginFaceNodes");
  target()->beginFaceNodes(zoneIds);
  answer(zoneIds, "beginFaceNodes");
}

void ForwardingProvider::beginFaceNodeCounts() {
  tell("beginFaceNodeCounts");
  target()->beginFaceNodeCounts();
}

bool ForwardingProvider::getUniformFaceNodeCount(int zoneId, short& count) {
  tell("getUniformFaceNodeCount", zoneId);
  const bool isUniform = target()->getUniformFaceNodeCount(zoneId, count);
  return answerUniform(isUniform, count, "getUniformFaceNodeCount", zoneId);
}

void ForwardingProvider::readFaceNodeCounts(int zoneId, short* counts, std::size_t n) {
  tell("readFaceNodeCounts", zoneId, n);
  target()->readFaceNodeCounts(zoneId, counts, asked(n, "readFaceNodeCounts", zoneId));
}

void ForwardingProvider::endFaceNodeCounts() {
  tell("endFaceNodeCounts");
  target()->endFaceNodeCounts();
}

void ForwardingProvider::beginFaceNodeIds() {
  tell("beginFaceNodeIds");
  target()->beginFaceNodeIds();
}

void ForwardingProvider::readFaceNodeIds(int zoneId, std::uint64_t* ids, std::size_t n) {
  tell("readFaceNodeIds", zoneId, n);
  target()->readFaceNodeIds(zoneId, ids, asked(n, "readFaceNodeIds", zoneId));
}

void ForwardingProvider::endFaceNodeIds() {
  tell("endFaceNodeIds");
  target()->endFaceNodeIds();
}

void ForwardingProvider::endFaceNodes() {
  tell("endFaceNodes");
  target()->endFaceNodes();
}

// --- The cells beside a face, shadow faces, face tree --------------------------------------------

void ForwardingProvider::beginFaceCell0(std::vector<int>& zoneIds) {
  tellWithList(zoneIds, "beginFaceCell0");
  target()->beginFaceCell0(zoneIds);
  answer(zoneIds, "beginFaceCell0");
}

std::uint64_t ForwardingProvider::getFaceCell0(std::uint64_t faceId) {
  tell("getFaceCell0", faceId);
  return answerElement(target()->getFaceCell0(faceId), "getFaceCell0", faceId);
}

void ForwardingProvider::readFaceCell0(int zoneId, std::uint64_t* cellIds, std::size_t n) {
  tell("readFaceCell0", zoneId, n);
  target()->readFaceCell0(zoneId, cellIds, asked(n, "readFaceCell0", zoneId));
}

void ForwardingProvider::endFaceCell0() {
  tell("endFaceCell0");
  target()->endFaceCell0();
}

void ForwardingProvider::beginFaceCell1(std::vector<int>& zoneIds) {
  tellWithList(zoneIds, "beginFaceCell1");
  target()->beginFaceCell1(zoneIds);
  answer(zoneIds, "beginFaceCell1");
}

std::uint64_t ForwardingProvider::getFaceCell1(std::uint64_t faceId) {
  tell("getFaceCell1", faceId);
  return answerElement(target()->getFaceCell1(faceId), "getFaceCell1", faceId);
}

void ForwardingProvider::readFaceCell1(int zoneId, std::uint64_t* cellIds, std::size_t n) {
  tell("readFaceCell1", zoneId, n);
  target()->readFaceCell1(zoneId, cellIds, asked(n, "readFaceCell1", zoneId));
}

void ForwardingProvider::endFaceCell1() {
  tell("endFaceCell1");
  target()->endFaceCell1();
}

void ForwardingProvider::beginFaceShadows(std::vector<int>& zoneIds) {
  tellWithList(zoneIds, "beginFaceShadows");
  target()->beginFaceShadows(zoneIds);
  answer(zoneIds, "beginFaceShadows");
}

std::uint64_t ForwardingProvider::getFaceShadow(std::uint64_t faceId) {
  tell("getFaceShadow", faceId);
  return answerElement(target()->getFaceShadow(faceId), "getFaceShadow", faceId);
}

void ForwardingProvider::endFaceShadows() {
  tell("endFaceShadows");
  target()->endFaceShadows();
}

void ForwardingProvider::beginFaceTree(std::vector<int>& parentZoneIds,
                                       std::vector<int>& childZoneIds) {
  tellWithList(parentZoneIds, "beginFaceTree");
  target()->beginFaceTree(parentZoneIds, childZoneIds);
  answer(parentZoneIds, "beginFaceTree");
}

void ForwardingProvider::endFaceTree() {
  tell("endFaceTree");
  target()->endFaceTree();
}

// --- Cell types ----------------------------------------------------------------------------------

void ForwardingProvider::beginCellTypes(std::vector<int>& zoneIds) {
  tellWithList(zoneIds, "beginCellTypes");
  target()->beginCellTypes(zoneIds);
  answer(zoneIds, "beginCellTypes");
}

bool ForwardingProvider::getUniformCellType(int zoneId, int& type) {
  tell("getUniformCellType", zoneId);
  const bool isUniform = target()->getUniformCellType(zoneId, type);
  return answerUniform(isUniform, type, "getUniformCellType", zoneId);
}

int ForwardingProvider::getCellType(std::uint64_t cellId) {
  tell("getCellType", cellId);
  return answerElement(target()->getCellType(cellId), "getCellType", cellId);
}

std::size_t ForwardingProvider::readCellTypes(int zoneId, int* types, std::size_t n) {
  tell("readCellTypes", zoneId, n);
  std::size_t delivered = target()->readCellTypes(zoneId, types, n);
  answer(delivered, "readCellTypes", zoneId, n);
  return delivered;
}

void ForwardingProvider::endCellTypes() {
  tell("endCellTypes");
  target()->endCellTypes();
}

// --- Cell nodes ----------------------------------------------------------------------------------

void ForwardingProvider::beginCellNodes(std::vector<int>& zoneIds) {
  tellWithList(zoneIds, "beginCellNodes");
  target()->beginCellNodes(zoneIds);
  answer(zoneIds, "beginCellNodes");
}

void ForwardingProvider::beginCellNodeCounts() {
  tell("beginCellNodeCounts");
  target()->beginCellNodeCounts();
}

bool ForwardingProvider::getUniformCellNodeCount(int zoneId, short& count) {
  tell("getUniformCellNodeCount", zoneId);
  const bool isUniform = target()->getUniformCellNodeCount(zoneId, count);
  return answerUniform(isUniform, count, "getUniformCellNodeCount", zoneId);
}

void ForwardingProvider::readCellNodeCounts(int zoneId, short* counts, std::size_t n) {
  tell("readCellNodeCounts", zoneId, n);
  target()->readCellNodeCounts(zoneId, counts, asked(n, "readCellNodeCounts", zoneId));
}

void ForwardingProvider::endCellNodeCounts() {
  tell("endCellNodeCounts");
  target()->endCellNodeCounts();
}

void ForwardingProvider::beginCellNodeIds() {
  tell("beginCellNodeIds");
  target()->beginCellNodeIds();
}

void ForwardingProvider::readCellNodeIds(int zoneId, std::uint64_t* ids, std::size_t n) {
  tell("readCellNodeIds", zoneId, n);
  target()->readCellNodeIds(zoneId, ids, asked(n, "readCellNodeIds", zoneId));
}

void ForwardingProvider::endCellNodeIds() {
  tell("endCellNodeIds");
  target()->endCellNodeIds();
}

void ForwardingProvider::endCellNodes() {
  tell("endCellNodes");
  target()->endCellNodes();
}

// --- Cell faces ----------------------------------------------------------------------------------

void ForwardingProvider::beginCellFaces(std::vector<int>& zoneIds) {
  tellWithList(zoneIds, "beginCellFaces");
  target()->beginCellFaces(zoneIds);
  answer(zoneIds, "beginCellFaces");
}

void ForwardingProvider::beginCellFaceCounts() {
  tell("beginCellFaceCounts");
  target()->beginCellFaceCounts();
}

bool ForwardingProvider::getUniformCellFaceCount(int zoneId, short& count) {
  tell("getUniformCellFaceCount", zoneId);
  const bool isUniform = target()->getUniformCellFaceCount(zoneId, count);
  return answerUniform(isUniform, count, "getUniformCellFaceCount", zoneId);
}

void ForwardingProvider::readCellFaceCounts(int zoneId, short* counts, std::size_t n) {
  tell("readCellFaceCounts", zoneId, n);
  target()->readCellFaceCounts(zoneId, counts, asked(n, "readCellFaceCounts", zoneId));
}

void ForwardingProvider::endCellFaceCounts() {
  tell("endCellFaceCounts");
  target()->endCellFaceCounts();
}

void ForwardingProvider::beginCellFaceIds() {
  tell("beginCellFaceIds");
  target()->beginCellFaceIds();
}

void ForwardingProvider::readCellFaceIds(int zoneId, std::uint64_t* ids, std::size_t n) {
  tell("readCellFaceIds", zoneId, n);
  target()->readCellFaceIds(zoneId, ids, asked(n, "readCellFaceIds", zoneId));
}

void ForwardingProvider::endCellFaceIds() {
  tell("endCellFaceIds");
  target()->endCellFaceIds();
}

void ForwardingProvider::endCellFaces() {
  tell("endCellFaces");
  target()->endCellFaces();
}

// --- Cell partitions -----------------------------------------------------------------------------

void ForwardingProvider::beginCellPartitions(std::vector<int>& zoneIds) {
  tellWithList(zoneIds, "beginCellPartitions");
  target()->beginCellPartitions(zoneIds);
  answer(zoneIds, "beginCellPartitions");
}

int ForwardingProvider::getCellPartitionInfo(int zoneId) {
  tell("getCellPartitionInfo", zoneId);
  return target()->getCellPartitionInfo(zoneId);
}

void ForwardingProvider::readCellPartitions(int zoneId, int* partitions, std::size_t n) {
  tell("readCellPartitions", zoneId, n);
  target()->readCellPartitions(zoneId, partitions, asked(n, "readCellPartitions", zoneId));
}

void ForwardingProvider::endCellPartitions() {
  tell("endCellPartitions");
  target()->endCellPartitions();
}

}  // namespace velto::testing
