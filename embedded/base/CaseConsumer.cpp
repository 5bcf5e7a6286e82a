// SPDX-License-Identifier: Apache-2.0
//
// CaseConsumer: brackets, settings and connectivity. The field data stand in
// case_consumer_results.cpp.

#include "embedded/base/CaseConsumer.h"

#include "embedded/base/OrvBaseState.h"
#include "embedded/base/Progress.h"

namespace velto::base {

void CaseConsumer::onSink(const std::string& what,
                          const std::function<void(MeshArraySink&)>& operation) {
  reportCheckpoint();
  if (!failed_) {
    failed_ = !guarded(*this, what, [&] { operation(sink(coreOf(*this).selection)); });
  }
}

// --- Files, brackets, settings -------------------------------------------------------------------

void CaseConsumer::setFileName(const std::string& path, OrvDataClass dataClass) {
  fileNames_[dataClass] = path;
}

void CaseConsumer::getFileVersion(OrvDataClass, int& major, int& minor, int& patch) {
  const FileVersion own = ownVersion();
  major = own.major;
  minor = own.minor;
  patch = own.patch;
}

void CaseConsumer::writeStandardSettings(std::vector<std::pair<std::string, std::string>> entries,
                                         OrvDataClass dataClass) {
  writeSettings(entries, dataClass, _defaultSettingsPath);
}

void CaseConsumer::setMode(int mode) { mode_ = mode; }

void CaseConsumer::setCompression(unsigned int level) { compression_ = level; }

void CaseConsumer::startWriting(OrvDataClass dataClass) {
  failed_ = !guarded(*this, "start of writing", [&] { open(dataClass); });
}

void CaseConsumer::endWriting(OrvDataClass dataClass) {
  for (auto& mesh : coreOf(*this).tables.meshes) {
    deriveElementCounts(mesh.second);
    if (mesh.first.target == targetRestart) {
      deriveBoundingFaceZones(mesh.second);
    }
  }
  reportCheckpoint();
  if (!failed_ && guarded(*this, "end of writing", [&] { finish(dataClass); })) {
    return;
  }
  coreOf(*this).messages.addError(
      "end of writing: nothing was written because of the error before");
  failed_ = false;
  abandon();
}

void CaseConsumer::writeSettings(const std::vector<std::pair<std::string, std::string>>& entries,
                                 OrvDataClass dataClass, const std::string& path) {
  Settings& store = coreOf(*this).tables.settings[{dataClass, path}];
  for (const auto& entry : entries) {
    store.set(entry.first, entry.second);
  }
}

void CaseConsumer::writeMeshAttributes() {}

void CaseConsumer::writeElemIds(int zoneId, const std::size_t* ids, std::size_t count) {
  onSink("element ids", [&](MeshArraySink& sink) { sink.writeElemIds(zoneId, ids, count); });
}

// --- Shared steps of the families ----------------------------------------------------------------

void CaseConsumer::begin(Family family, const std::vector<int>& zoneIds) {
  onSink(familyName(family), [&](MeshArraySink& sink) { sink.begin(family, zoneIds); });
}

void CaseConsumer::writeIds(Family family, int zoneId, const std::uint64_t* ids, std::size_t n) {
  onSink(familyName(family), [&](MeshArraySink& sink) { sink.writeIds(family, zoneId, ids, n); });
}

// --- Nodes ---------------------------------------------------------------------------------------

void CaseConsumer::beginNodes(const std::vector<int>&) {}

void CaseConsumer::beginNodeCoordinates(const std::vector<int>& zoneIds) {
  begin(Family::nodeCoordinates, zoneIds);
}

void CaseConsumer::writeNodeCoordinates(int zoneId, const double* values, std::size_t n) {
  onSink("node coordinates",
         [&](MeshArraySink& sink) { sink.writeCoordinates(zoneId, values, n); });
}

void CaseConsumer::endNodeCoordinates() {}
void CaseConsumer::endNodes() {}

// --- Faces ---------------------------------------------------------------------------------------

void CaseConsumer::beginFaces(const std::vector<int>&) {
  const CaseCore& core = coreOf(*this);
  const MeshTables* mesh = core.mesh();
  const bool isForViewers = core.selection.target != targetRestart;
  cellFaces_ = mesh != nullptr && isForViewers && wantsCellFaces()
                   ? CellFaceCollector(*mesh, cellNodeZones_)
                   : CellFaceCollector();
}

void CaseConsumer::beginFaceNodes(const std::vector<int>& zoneIds) {
  begin(Family::faceNodes, zoneIds);
}
void CaseConsumer::beginFaceNodeCounts() {}

void CaseConsumer::writeUniformFaceNodeCount(int zoneId, short count) {
  onSink("face nodes",
         [&](MeshArraySink& sink) { sink.writeUniformCount(Family::faceNodes, zoneId, count); });
}

void CaseConsumer::writeFaceNodeCounts(int zoneId, const short* counts, std::size_t n) {
  onSink("face nodes",
         [&](MeshArraySink& sink) { sink.writeCounts(Family::faceNodes, zoneId, counts, n); });
}

void CaseConsumer::endFaceNodeCounts() {}
void CaseConsumer::beginFaceNodeIds() {}

void CaseConsumer::writeFaceNodeIds(int zoneId, const std::uint64_t* ids, std::size_t n) {
  writeIds(Family::faceNodes, zoneId, ids, n);
}

void CaseConsumer::endFaceNodeIds() {}
void CaseConsumer::endFaceNodes() {}

void CaseConsumer::beginSide(Family family, const std::vector<int>& zoneIds) {
  begin(family, zoneIds);
  const MeshTables* mesh = coreOf(*this).mesh();
  cellZones_ = mesh == nullptr ? CellZoneRanges() : CellZoneRanges(*mesh);
}

void CaseConsumer::writeSide(int side, int zoneId, const std::uint64_t* cellIds, std::size_t n) {
  CaseCore& core = coreOf(*this);
  if (core.selection.target == targetRestart) {
    relateZones(core.tables.meshes[core.selection], cellZones_, zoneId, side, cellIds, n);
  } else if (const MeshTables* mesh = core.mesh()) {
    cellFaces_.add(mesh->zoneSize(zoneId, zoneFirstId), cellIds, n);
  }
  writeIds(side == 0 ? Family::faceCell0 : Family::faceCell1, zoneId, cellIds, n);
}

void CaseConsumer::beginFaceCell0(const std::vector<int>& zoneIds) {
  beginSide(Family::faceCell0, zoneIds);
}

void CaseConsumer::writeFaceCell0(int zoneId, const std::uint64_t* cellIds, std::size_t n) {
  writeSide(0, zoneId, cellIds, n);
}

void CaseConsumer::endFaceCell0() {}

void CaseConsumer::beginFaceCell1(const std::vector<int>& zoneIds) {
  beginSide(Family::faceCell1, zoneIds);
}

void CaseConsumer::writeFaceCell1(int zoneId, const std::uint64_t* cellIds, std::size_t n) {
  writeSide(1, zoneId, cellIds, n);
}

void CaseConsumer::endFaceCell1() {}

void CaseConsumer::endFaces() {
  if (!cellFaces_.isEmpty()) {
    onSink("cell faces", [this](MeshArraySink& sink) { cellFaces_.write(sink); });
  }
  cellFaces_ = {};
}

// --- Cells ---------------------------------------------------------------------------------------

void CaseConsumer::beginCells(const std::vector<int>&) { cellNodeZones_.clear(); }

void CaseConsumer::beginCellTypes(const std::vector<int>& zoneIds,
                                  const std::vector<int>& uniformTypes) {
  begin(Family::cellTypes, zoneIds);
  for (std::size_t i = 0; i < zoneIds.size() && i < uniformTypes.size(); ++i) {
    if (uniformTypes[i] != 0) {
      onSink("cell types",
             [&](MeshArraySink& sink) { sink.writeUniformCellType(zoneIds[i], uniformTypes[i]); });
    }
  }
}

void CaseConsumer::writeCellTypes(int zoneId, const int* types, std::size_t n) {
  onSink("cell types", [&](MeshArraySink& sink) { sink.writeCellTypes(zoneId, types, n); });
}

void CaseConsumer::endCellTypes() {}

void CaseConsumer::beginCellNodes(const std::vector<int>& zoneIds) {
  cellNodeZones_ = zoneIds;
  begin(Family::cellNodes, zoneIds);
}
void CaseConsumer::beginCellNodeCounts() {}

void CaseConsumer::writeUniformCellNodeCount(int zoneId, short count) {
  onSink("cell nodes",
         [&](MeshArraySink& sink) { sink.writeUniformCount(Family::cellNodes, zoneId, count); });
}

void CaseConsumer::writeCellNodeCounts(int zoneId, const short* counts, std::size_t n) {
  onSink("cell nodes",
         [&](MeshArraySink& sink) { sink.writeCounts(Family::cellNodes, zoneId, counts, n); });
}

void CaseConsumer::endCellNodeCounts() {}
void CaseConsumer::beginCellNodeIds() {}

void CaseConsumer::writeCellNodeIds(int zoneId, const std::uint64_t* ids, std::size_t n) {
  writeIds(Family::cellNodes, zoneId, ids, n);
}

void CaseConsumer::endCellNodeIds() {}
void CaseConsumer::endCellNodes() {}

void CaseConsumer::beginCellPartitions(const std::vector<int>& zoneIds, int partitionInfo) {
  begin(Family::cellPartitions, zoneIds);
  onSink("cell partitions", [&](MeshArraySink& sink) {
    for (const int zone : zoneIds) {
      sink.setPartitionInfo(zone, partitionInfo);
    }
  });
}

void CaseConsumer::writeCellPartitions(int zoneId, const int* partitions, std::size_t n) {
  onSink("cell partitions",
         [&](MeshArraySink& sink) { sink.writeCellPartitions(zoneId, partitions, n); });
}

void CaseConsumer::endCellPartitions() {}
void CaseConsumer::endCells() {}

}  // namespace velto::base
