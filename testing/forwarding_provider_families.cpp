// SPDX-License-Identifier: Apache-2.0
//
// ForwardingProvider: the families of bulk calls.

#include "testing/ForwardingProvider.h"

namespace velto::testing {

// --- Node coordinates ----------------------------------------------------------------------------

void ForwardingProvider::beginNodeCoordinates(std::vector<int>& zoneIds) {
  tellWithList(zoneIds, "beginNodeCoordinates");
  target_.beginNodeCoordinates(zoneIds);
  answer(zoneIds, "beginNodeCoordinates");
}

std::size_t ForwardingProvider::readNodeCoordinates(int zoneId, double* values, std::size_t n) {
  tell("readNodeCoordinates", zoneId, n);
  std::size_t delivered = target_.readNodeCoordinates(zoneId, values, n);
  answer(delivered, "readNodeCoordinates", zoneId, n);
  return delivered;
}

void ForwardingProvider::endNodeCoordinates() {
  tell("endNodeCoordinates");
  target_.endNodeCoordinates();
}

// --- Face nodes ----------------------------------------------------------------------------------

void ForwardingProvider::beginFaceNodes(std::vector<int>& zoneIds) {
  tellWithList(zoneIds, "beginFaceNodes");
  target_.beginFaceNodes(zoneIds);
  answer(zoneIds, "beginFaceNodes");
}

void ForwardingProvider::beginFaceNodeCounts() {
  tell("beginFaceNodeCounts");
  target_.beginFaceNodeCounts();
}

bool ForwardingProvider::getUniformFaceNodeCount(int zoneId, short& count) {
  tell("getUniformFaceNodeCount", zoneId);
  const bool isUniform = target_.getUniformFaceNodeCount(zoneId, count);
  return answerUniform(isUniform, count, "getUniformFaceNodeCount", zoneId);
}

void ForwardingProvider::readFaceNodeCounts(int zoneId, short* counts, std::size_t n) {
  tell("readFaceNodeCounts", zoneId, n);
  target_.readFaceNodeCounts(zoneId, counts, asked(n, "readFaceNodeCounts", zoneId));
}

void ForwardingProvider::endFaceNodeCounts() {
  tell("endFaceNodeCounts");
  target_.endFaceNodeCounts();
}

void ForwardingProvider::beginFaceNodeIds() {
  tell("beginFaceNodeIds");
  target_.beginFaceNodeIds();
}

void ForwardingProvider::readFaceNodeIds(int zoneId, std::uint64_t* ids, std::size_t n) {
  tell("readFaceNodeIds", zoneId, n);
  target_.readFaceNodeIds(zoneId, ids, asked(n, "readFaceNodeIds", zoneId));
}

void ForwardingProvider::endFaceNodeIds() {
  tell("endFaceNodeIds");
  target_.endFaceNodeIds();
}

void ForwardingProvider::endFaceNodes() {
  tell("endFaceNodes");
  target_.endFaceNodes();
}

// --- The cells beside a face, shadow faces, face tree --------------------------------------------

void ForwardingProvider::beginFaceCell0(std::vector<int>& zoneIds) {
  tellWithList(zoneIds, "beginFaceCell0");
  target_.beginFaceCell0(zoneIds);
  answer(zoneIds, "beginFaceCell0");
}

std::uint64_t ForwardingProvider::getFaceCell0(std::uint64_t faceId) {
  tell("getFaceCell0", faceId);
  return answerElement(target_.getFaceCell0(faceId), "getFaceCell0", faceId);
}

void ForwardingProvider::readFaceCell0(int zoneId, std::uint64_t* cellIds, std::size_t n) {
  tell("readFaceCell0", zoneId, n);
  target_.readFaceCell0(zoneId, cellIds, asked(n, "readFaceCell0", zoneId));
}

void ForwardingProvider::endFaceCell0() {
  tell("endFaceCell0");
  target_.endFaceCell0();
}

void ForwardingProvider::beginFaceCell1(std::vector<int>& zoneIds) {
  tellWithList(zoneIds, "beginFaceCell1");
  target_.beginFaceCell1(zoneIds);
  answer(zoneIds, "beginFaceCell1");
}

std::uint64_t ForwardingProvider::getFaceCell1(std::uint64_t faceId) {
  tell("getFaceCell1", faceId);
  return answerElement(target_.getFaceCell1(faceId), "getFaceCell1", faceId);
}

void ForwardingProvider::readFaceCell1(int zoneId, std::uint64_t* cellIds, std::size_t n) {
  tell("readFaceCell1", zoneId, n);
  target_.readFaceCell1(zoneId, cellIds, asked(n, "readFaceCell1", zoneId));
}

void ForwardingProvider::endFaceCell1() {
  tell("endFaceCell1");
  target_.endFaceCell1();
}

void ForwardingProvider::beginFaceShadows(std::vector<int>& zoneIds) {
  tellWithList(zoneIds, "beginFaceShadows");
  target_.beginFaceShadows(zoneIds);
  answer(zoneIds, "beginFaceShadows");
}

std::uint64_t ForwardingProvider::getFaceShadow(std::uint64_t faceId) {
  tell("getFaceShadow", faceId);
  return answerElement(target_.getFaceShadow(faceId), "getFaceShadow", faceId);
}

void ForwardingProvider::endFaceShadows() {
  tell("endFaceShadows");
  target_.endFaceShadows();
}

void ForwardingProvider::beginFaceTree(std::vector<int>& parentZoneIds,
                                       std::vector<int>& childZoneIds) {
  tellWithList(parentZoneIds, "beginFaceTree");
  target_.beginFaceTree(parentZoneIds, childZoneIds);
  answer(parentZoneIds, "beginFaceTree");
}

void ForwardingProvider::endFaceTree() {
  tell("endFaceTree");
  target_.endFaceTree();
}

// --- Cell types ----------------------------------------------------------------------------------

void ForwardingProvider::beginCellTypes(std::vector<int>& zoneIds) {
  tellWithList(zoneIds, "beginCellTypes");
  target_.beginCellTypes(zoneIds);
  answer(zoneIds, "beginCellTypes");
}

bool ForwardingProvider::getUniformCellType(int zoneId, int& type) {
  tell("getUniformCellType", zoneId);
  const bool isUniform = target_.getUniformCellType(zoneId, type);
  return answerUniform(isUniform, type, "getUniformCellType", zoneId);
}

int ForwardingProvider::getCellType(std::uint64_t cellId) {
  tell("getCellType", cellId);
  return answerElement(target_.getCellType(cellId), "getCellType", cellId);
}

std::size_t ForwardingProvider::readCellTypes(int zoneId, int* types, std::size_t n) {
  tell("readCellTypes", zoneId, n);
  std::size_t delivered = target_.readCellTypes(zoneId, types, n);
  answer(delivered, "readCellTypes", zoneId, n);
  return delivered;
}

void ForwardingProvider::endCellTypes() {
  tell("endCellTypes");
  target_.endCellTypes();
}

// --- Cell nodes ----------------------------------------------------------------------------------

void ForwardingProvider::beginCellNodes(std::vector<int>& zoneIds) {
  tellWithList(zoneIds, "beginCellNodes");
  target_.beginCellNodes(zoneIds);
  answer(zoneIds, "beginCellNodes");
}

void ForwardingProvider::beginCellNodeCounts() {
  tell("beginCellNodeCounts");
  target_.beginCellNodeCounts();
}

bool ForwardingProvider::getUniformCellNodeCount(int zoneId, short& count) {
  tell("getUniformCellNodeCount", zoneId);
  const bool isUniform = target_.getUniformCellNodeCount(zoneId, count);
  return answerUniform(isUniform, count, "getUniformCellNodeCount", zoneId);
}

void ForwardingProvider::readCellNodeCounts(int zoneId, short* counts, std::size_t n) {
  tell("readCellNodeCounts", zoneId, n);
  target_.readCellNodeCounts(zoneId, counts, asked(n, "readCellNodeCounts", zoneId));
}

void ForwardingProvider::endCellNodeCounts() {
  tell("endCellNodeCounts");
  target_.endCellNodeCounts();
}

void ForwardingProvider::beginCellNodeIds() {
  tell("beginCellNodeIds");
  target_.beginCellNodeIds();
}

void ForwardingProvider::readCellNodeIds(int zoneId, std::uint64_t* ids, std::size_t n) {
  tell("readCellNodeIds", zoneId, n);
  target_.readCellNodeIds(zoneId, ids, asked(n, "readCellNodeIds", zoneId));
}

void ForwardingProvider::endCellNodeIds() {
  tell("endCellNodeIds");
  target_.endCellNodeIds();
}

void ForwardingProvider::endCellNodes() {
  tell("endCellNodes");
  target_.endCellNodes();
}

// --- Cell faces ----------------------------------------------------------------------------------

void ForwardingProvider::beginCellFaces(std::vector<int>& zoneIds) {
  tellWithList(zoneIds, "beginCellFaces");
  target_.beginCellFaces(zoneIds);
  answer(zoneIds, "beginCellFaces");
}

void ForwardingProvider::beginCellFaceCounts() {
  tell("beginCellFaceCounts");
  target_.beginCellFaceCounts();
}

bool ForwardingProvider::getUniformCellFaceCount(int zoneId, short& count) {
  tell("getUniformCellFaceCount", zoneId);
  const bool isUniform = target_.getUniformCellFaceCount(zoneId, count);
  return answerUniform(isUniform, count, "getUniformCellFaceCount", zoneId);
}

void ForwardingProvider::readCellFaceCounts(int zoneId, short* counts, std::size_t n) {
  tell("readCellFaceCounts", zoneId, n);
  target_.readCellFaceCounts(zoneId, counts, asked(n, "readCellFaceCounts", zoneId));
}

void ForwardingProvider::endCellFaceCounts() {
  tell("endCellFaceCounts");
  target_.endCellFaceCounts();
}

void ForwardingProvider::beginCellFaceIds() {
  tell("beginCellFaceIds");
  target_.beginCellFaceIds();
}

void ForwardingProvider::readCellFaceIds(int zoneId, std::uint64_t* ids, std::size_t n) {
  tell("readCellFaceIds", zoneId, n);
  target_.readCellFaceIds(zoneId, ids, asked(n, "readCellFaceIds", zoneId));
}

void ForwardingProvider::endCellFaceIds() {
  tell("endCellFaceIds");
  target_.endCellFaceIds();
}

void ForwardingProvider::endCellFaces() {
  tell("endCellFaces");
  target_.endCellFaces();
}

// --- Cell partitions -----------------------------------------------------------------------------

void ForwardingProvider::beginCellPartitions(std::vector<int>& zoneIds) {
  tellWithList(zoneIds, "beginCellPartitions");
  target_.beginCellPartitions(zoneIds);
  answer(zoneIds, "beginCellPartitions");
}

int ForwardingProvider::getCellPartitionInfo(int zoneId) {
  tell("getCellPartitionInfo", zoneId);
  return target_.getCellPartitionInfo(zoneId);
}

void ForwardingProvider::readCellPartitions(int zoneId, int* partitions, std::size_t n) {
  tell("readCellPartitions", zoneId, n);
  target_.readCellPartitions(zoneId, partitions, asked(n, "readCellPartitions", zoneId));
}

void ForwardingProvider::endCellPartitions() {
  tell("endCellPartitions");
  target_.endCellPartitions();
}

}  // namespace velto::testing
