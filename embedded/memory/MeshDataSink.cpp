// SPDX-License-Identifier: Apache-2.0
//
// MeshDataSink: each array becomes a slice of its own.

#include "embedded/memory/MeshDataSink.h"

namespace velto::memory {

using base::Family;
using base::VariableKey;

namespace {

template <class Value>
Slice<Value> copied(const Value* values, std::size_t n) {
  return Slice<Value>(n == 0 ? std::vector<Value>() : std::vector<Value>(values, values + n));
}

}  // namespace

void MeshDataSink::begin(Family family, const std::vector<int>& zones) {
  for (const int zone : zones) {
    list(family, zone);
  }
}

void MeshDataSink::list(Family family, int zone) {
  switch (family) {
    case Family::faceNodes:
    case Family::cellNodes:
    case Family::cellFaces:
      data_.counted(family)[zone];
      break;
    case Family::faceCell0:
    case Family::faceCell1:
    case Family::faceShadows:
      data_.faceIds(family)[zone];
      break;
    case Family::nodeCoordinates:
      data_.nodeCoordinates[zone];
      break;
    case Family::cellTypes:
      data_.cellTypes[zone];
      break;
    case Family::cellPartitions:
      data_.cellPartitions[zone];
      break;
    case Family::faceTree:
      data_.treeParentZones.push_back(zone);
      break;
  }
}

void MeshDataSink::writeUniformCount(Family family, int zone, short count) {
  data_.counted(family)[zone].uniform = count;
}

void MeshDataSink::writeCounts(Family family, int zone, const short* counts, std::size_t n) {
  data_.counted(family)[zone].counts = copied(counts, n);
}

void MeshDataSink::writeIds(Family family, int zone, const std::uint64_t* ids, std::size_t n) {
  if (family == Family::faceNodes || family == Family::cellNodes || family == Family::cellFaces) {
    data_.counted(family)[zone].ids = copied(ids, n);
  } else {
    data_.faceIds(family)[zone] = copied(ids, n);
  }
}

void MeshDataSink::writeCoordinates(int zone, const double* values, std::size_t n) {
  data_.nodeCoordinates[zone] = copied(values, n);
}

void MeshDataSink::writeUniformCellType(int zone, int type) {
  data_.cellTypes[zone].uniform = type;
}

void MeshDataSink::writeCellTypes(int zone, const int* types, std::size_t n) {
  data_.cellTypes[zone].types = copied(types, n);
}

void MeshDataSink::setPartitionInfo(int zone, int info) { data_.cellPartitions[zone].info = info; }

void MeshDataSink::writeCellPartitions(int zone, const int* partitions, std::size_t n) {
  data_.cellPartitions[zone].partitions = copied(partitions, n);
}

void MeshDataSink::writeElemIds(int zone, const std::size_t* ids, std::size_t n) {
  data_.elementIds[zone] = copied(ids, n);
}

void MeshDataSink::setTreeChildZones(const std::vector<int>& zones) {
  data_.treeChildZones = zones;
}

void MeshDataSink::declareVariables(short phase, OrvZoneCategory category,
                                    const std::vector<std::string>& names) {
  for (const std::string& name : names) {
    data_.variable({phase, category, name});
  }
}

void MeshDataSink::beginVariable(const VariableKey& key, const std::vector<int>& zones,
                                 std::size_t valuesPerEntity) {
  VariableData& held = data_.variable(key);
  held.valuesPerEntity = valuesPerEntity;
  for (const int zone : zones) {
    held.zones[zone];
  }
}

void MeshDataSink::writeVariable(const VariableKey& key, int zone, const double* values,
                                 std::size_t n) {
  data_.variable(key).zones[zone] = copied(values, n);
}

}  // namespace velto::memory
