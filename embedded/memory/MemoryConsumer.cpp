// SPDX-License-Identifier: Apache-2.0
//
// MemoryConsumer: arrays that arrive are copied into a MeshData.

#include "embedded/memory/MemoryConsumer.h"

#include <algorithm>

#include "embedded/base/OrvBaseState.h"

namespace velto::memory {

using base::Family;
using base::VariableKey;

namespace {

template <class Value>
Slice<Value> copied(const Value* values, std::size_t n) {
  return Slice<Value>(n == 0 ? std::vector<Value>() : std::vector<Value>(values, values + n));
}

}  // namespace

class MemoryConsumer::Sink : public base::MeshArraySink {
 public:
  const MeshData& data() const { return data_; }

  void begin(Family family, const std::vector<int>& zones) override {
    for (const int zone : zones) {
      list(family, zone);
    }
  }

  void writeUniformCount(Family family, int zone, short count) override {
    data_.counted(family)[zone].uniform = count;
  }

  void writeCounts(Family family, int zone, const short* counts, std::size_t n) override {
    data_.counted(family)[zone].counts = copied(counts, n);
  }

  void writeIds(Family family, int zone, const std::uint64_t* ids, std::size_t n) override {
    if (family == Family::faceNodes || family == Family::cellNodes || family == Family::cellFaces) {
      data_.counted(family)[zone].ids = copied(ids, n);
    } else {
      data_.faceIds(family)[zone] = copied(ids, n);
    }
  }

  void writeCoordinates(int zone, const double* values, std::size_t n) override {
    data_.nodeCoordinates[zone] = copied(values, n);
  }

  void writeUniformCellType(int zone, int type) override { data_.cellTypes[zone].uniform = type; }

  void writeCellTypes(int zone, const int* types, std::size_t n) override {
    data_.cellTypes[zone].types = copied(types, n);
  }

  void setPartitionInfo(int info) override {
    for (const int zone : data_.cellPartitions.zones()) {
      data_.cellPartitions[zone].info = info;
    }
  }

  void writeCellPartitions(int zone, const int* partitions, std::size_t n) override {
    data_.cellPartitions[zone].partitions = copied(partitions, n);
  }

  void writeElemIds(int zone, const std::size_t* ids, std::size_t n) override {
    data_.elementIds[zone] = copied(ids, n);
  }

  void declareVariables(short phase, OrvZoneCategory category,
                        const std::vector<std::string>& names) override {
    for (const std::string& name : names) {
      data_.variable({phase, category, name});
    }
  }

  void beginVariable(const VariableKey& key, const std::vector<int>& zones,
                     std::size_t valuesPerEntity) override {
    VariableData& held = data_.variable(key);
    held.valuesPerEntity = valuesPerEntity;
    for (const int zone : zones) {
      held.zones[zone];
    }
  }

  void writeVariable(const VariableKey& key, int zone, const double* values,
                     std::size_t n) override {
    data_.variable(key).zones[zone] = copied(values, n);
  }

 private:
  /// Lists a zone under a family, with nothing yet.
  void list(Family family, int zone) {
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

  MeshData data_;
};

MemoryConsumer::MemoryConsumer() = default;
MemoryConsumer::~MemoryConsumer() = default;

base::MeshArraySink& MemoryConsumer::sink(const base::MeshKey& key) {
  std::unique_ptr<Sink>& held = sinks_[key];
  if (!held) {
    held = std::make_unique<Sink>();
  }
  return *held;
}

void MemoryConsumer::open(OrvDataClass) {}
void MemoryConsumer::finish(OrvDataClass) {}

std::shared_ptr<Case> MemoryConsumer::takeCase() const {
  auto taken = std::make_shared<Case>();
  taken->tables = base::coreOf(*this).tables;
  taken->tables.version = base::ownVersion();
  for (const auto& entry : sinks_) {
    taken->data[entry.first] = entry.second->data();
  }
  return taken;
}

}  // namespace velto::memory
