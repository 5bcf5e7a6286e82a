// SPDX-License-Identifier: Apache-2.0
//
// Arrays from a source to a sink. One buffer of each type serves all zones, so that its memory is
// touched for the first time once.

#include "embedded/base/copy_arrays.h"

#include <cstdint>
#include <string>

#include "embedded/base/CaseError.h"
#include "embedded/base/Room.h"

namespace velto::base {

namespace {

void requireAll(const std::string& what, std::size_t delivered, std::size_t n) {
  if (delivered != n) {
    throw CaseError(what + ": " + std::to_string(delivered) + " values are there, " +
                    std::to_string(n) + " were expected");
  }
}

class MeshCopy {
 public:
  MeshCopy(MeshArrays& from, MeshArraySink& to) : from_(from), to_(to) {}

  void copyCoordinates() {
    for (const int zone : begin(Family::nodeCoordinates)) {
      const std::size_t n = from_.valueCount(Family::nodeCoordinates, zone);
      double* values = values_.take(n);
      requireAll(familyName(Family::nodeCoordinates, zone), from_.readCoordinates(zone, values, n),
                 n);
      to_.writeCoordinates(zone, values, n);
    }
    values_.release();
  }

  void copyCounted(Family family) {
    const std::vector<int> zones = begin(family);
    for (const int zone : zones) {
      short count = 0;
      if (from_.uniformCount(family, zone, count)) {
        to_.writeUniformCount(family, zone, count);
        continue;
      }
      const std::size_t n = from_.countCount(family, zone);
      short* counts = counts_.take(n);
      requireAll(familyName(family, zone), from_.readCounts(family, zone, counts, n), n);
      to_.writeCounts(family, zone, counts, n);
    }
    for (const int zone : zones) {
      copyIds(family, zone);
    }
  }

  void copyFaceIds(Family family) {
    for (const int zone : begin(family)) {
      copyIds(family, zone);
    }
  }

  void copyTree() {
    begin(Family::faceTree);
    const std::vector<int> children = from_.treeChildZones();
    if (!children.empty()) {
      to_.setTreeChildZones(children);
    }
  }

  void copyCellTypes() {
    for (const int zone : begin(Family::cellTypes)) {
      int type = 0;
      if (from_.uniformCellType(zone, type)) {
        to_.writeUniformCellType(zone, type);
        continue;
      }
      const std::size_t n = from_.valueCount(Family::cellTypes, zone);
      int* types = integers_.take(n);
      requireAll(familyName(Family::cellTypes, zone), from_.readCellTypes(zone, types, n), n);
      to_.writeCellTypes(zone, types, n);
    }
  }

  void copyCellPartitions() {
    for (const int zone : begin(Family::cellPartitions)) {
      to_.setPartitionInfo(zone, from_.partitionInfo(zone));
      const std::size_t n = from_.valueCount(Family::cellPartitions, zone);
      int* partitions = integers_.take(n);
      requireAll(familyName(Family::cellPartitions, zone),
                 from_.readCellPartitions(zone, partitions, n), n);
      to_.writeCellPartitions(zone, partitions, n);
    }
  }

  void copyVariable(const VariableKey& key) {
    std::vector<int> zones;
    const std::size_t valuesPerEntity = from_.variableZones(key, zones);
    to_.beginVariable(key, zones, valuesPerEntity);
    for (const int zone : zones) {
      const std::size_t n = from_.variableValueCount(key, zone);
      double* values = values_.take(n);
      requireAll("variable " + key.name + " of zone " + std::to_string(zone),
                 from_.readVariable(key, zone, values, n), n);
      to_.writeVariable(key, zone, values, n);
    }
  }

 private:
  /// Opens a family of the sink over the source's zones, if there are any.
  std::vector<int> begin(Family family) {
    std::vector<int> zones = from_.zones(family);
    if (!zones.empty()) {
      to_.begin(family, zones);
    }
    return zones;
  }

  void copyIds(Family family, int zone) {
    const IdView view = from_.viewIds(family, zone);
    if (view.data != nullptr && view.size > 0) {
      to_.writeIds(family, zone, view.data, view.size);
      return;
    }
    const std::size_t n = from_.valueCount(family, zone);
    std::uint64_t* ids = ids_.take(n);
    requireAll(familyName(family, zone), from_.readIds(family, zone, ids, n), n);
    to_.writeIds(family, zone, ids, n);
  }

  MeshArrays& from_;
  MeshArraySink& to_;
  Room<double> values_;
  Room<std::uint64_t> ids_;
  Room<int> integers_;
  Room<short> counts_;
};

/// Bytes of the values of a family.
std::uint64_t bytesOf(MeshArrays& from, Family family, std::size_t valueSize) {
  std::uint64_t values = 0;
  for (const int zone : from.zones(family)) {
    values += from.valueCount(family, zone);
  }
  return values * valueSize;
}

}  // namespace

std::uint64_t bytesOfMesh(MeshArrays& from) {
  std::uint64_t bytes = bytesOf(from, Family::nodeCoordinates, sizeof(double));
  for (const Family family : {Family::cellNodes, Family::faceNodes, Family::faceCell0,
                              Family::faceCell1, Family::faceShadows, Family::cellFaces}) {
    bytes += bytesOf(from, family, sizeof(std::uint64_t));
  }
  for (const Family family : {Family::cellTypes, Family::cellPartitions}) {
    bytes += bytesOf(from, family, sizeof(int));
  }
  for (const Family family : {Family::cellNodes, Family::faceNodes, Family::cellFaces}) {
    for (const int zone : from.zones(family)) {
      bytes += from.countCount(family, zone) * sizeof(short);
    }
  }
  return bytes;
}

void copyMesh(MeshArrays& from, MeshArraySink& to) {
  MeshCopy copy(from, to);
  copy.copyCoordinates();
  copy.copyCounted(Family::cellNodes);
  copy.copyCellTypes();
  copy.copyCellPartitions();
  copy.copyCounted(Family::faceNodes);
  copy.copyFaceIds(Family::faceCell0);
  copy.copyFaceIds(Family::faceCell1);
  copy.copyFaceIds(Family::faceShadows);
  copy.copyCounted(Family::cellFaces);
  copy.copyTree();
}

void copyResults(MeshArrays& from, const std::vector<Phase>& phases, MeshArraySink& to) {
  MeshCopy copy(from, to);
  for (const Phase& phase : phases) {
    for (const OrvZoneCategory category : {zoneCategoryNode, zoneCategoryFace, zoneCategoryCell}) {
      const std::vector<std::string> names = from.variableNames(phase.id, category);
      if (!names.empty()) {
        to.declareVariables(phase.id, category, names);
      }
      for (const std::string& name : names) {
        copy.copyVariable({phase.id, category, name});
      }
    }
  }
}

}  // namespace velto::base
