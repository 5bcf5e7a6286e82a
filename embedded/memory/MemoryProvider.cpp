// SPDX-License-Identifier: Apache-2.0
//
// MemoryProvider: arrays of a case in memory, copied or lent.

#include "embedded/memory/MemoryProvider.h"

#include <algorithm>

namespace velto::memory {

using base::Family;
using base::IdView;
using base::VariableKey;

namespace {

class MemoryArrays : public base::MeshArrays {
 public:
  MemoryArrays(std::shared_ptr<const Case> owner, const MeshData& data)
      : owner_(std::move(owner)), data_(data) {}

  std::vector<int> zones(Family family) override {
    switch (family) {
      case Family::faceNodes:
      case Family::cellNodes:
      case Family::cellFaces:
        return data_.counted(family).zones();
      case Family::faceCell0:
      case Family::faceCell1:
      case Family::faceShadows:
        return data_.faceIds(family).zones();
      case Family::nodeCoordinates:
        return data_.nodeCoordinates.zones();
      case Family::faceTree:
        return data_.treeParentZones;
      case Family::cellTypes:
        return data_.cellTypes.zones();
      case Family::cellPartitions:
        return data_.cellPartitions.zones();
    }
    return {};
  }

  std::vector<int> treeChildZones() override { return data_.treeChildZones; }

  bool uniformCount(Family family, int zone, short& count) override {
    const CountedData* found = data_.counted(family).find(zone);
    if (found == nullptr || !found->uniform) {
      return false;
    }
    count = *found->uniform;
    return true;
  }

  std::size_t readCounts(Family family, int zone, short* counts, std::size_t n) override {
    const CountedData* found = data_.counted(family).find(zone);
    if (found == nullptr) {
      return 0;
    }
    if (found->uniform) {
      std::fill_n(counts, n, *found->uniform);
      return n;
    }
    return found->counts.copyTo(counts, n);
  }

  std::size_t readIds(Family family, int zone, std::uint64_t* ids, std::size_t n) override {
    const Slice<std::uint64_t>* found = idsOf(family, zone);
    return found == nullptr ? 0 : found->copyTo(ids, n);
  }

  IdView viewIds(Family family, int zone) override {
    const Slice<std::uint64_t>* found = idsOf(family, zone);
    return found == nullptr ? IdView{} : IdView{found->data(), found->size(), found->narrow()};
  }

  std::size_t valueCount(Family family, int zone) override {
    switch (family) {
      case Family::nodeCoordinates:
        return sizeOf(data_.nodeCoordinates.find(zone));
      case Family::cellTypes: {
        const CellTypeData* found = data_.cellTypes.find(zone);
        return found == nullptr || found->uniform ? 0 : found->types.size();
      }
      case Family::cellPartitions: {
        const CellPartitionData* found = data_.cellPartitions.find(zone);
        return found == nullptr ? 0 : found->partitions.size();
      }
      default:
        return sizeOf(idsOf(family, zone));
    }
  }

  std::size_t countCount(Family family, int zone) override {
    const CountedData* found = data_.counted(family).find(zone);
    return found == nullptr || found->uniform ? 0 : found->counts.size();
  }

  std::size_t readCoordinates(int zone, double* values, std::size_t n) override {
    const Slice<double>* found = data_.nodeCoordinates.find(zone);
    return found == nullptr ? 0 : found->copyTo(values, n);
  }

  bool uniformCellType(int zone, int& type) override {
    const CellTypeData* found = data_.cellTypes.find(zone);
    if (found == nullptr || !found->uniform) {
      return false;
    }
    type = *found->uniform;
    return true;
  }

  std::size_t readCellTypes(int zone, int* types, std::size_t n) override {
    const CellTypeData* found = data_.cellTypes.find(zone);
    if (found == nullptr) {
      return 0;
    }
    if (found->uniform) {
      std::fill_n(types, n, *found->uniform);
      return n;
    }
    return found->types.copyTo(types, n);
  }

  int partitionInfo(int zone) override {
    const CellPartitionData* found = data_.cellPartitions.find(zone);
    return found == nullptr ? 0 : found->info;
  }

  std::size_t readCellPartitions(int zone, int* partitions, std::size_t n) override {
    const CellPartitionData* found = data_.cellPartitions.find(zone);
    return found == nullptr ? 0 : found->partitions.copyTo(partitions, n);
  }

  std::vector<std::string> variableNames(short phase, OrvZoneCategory category) override {
    std::vector<std::string> names;
    const auto found = data_.variables.find({phase, category});
    if (found != data_.variables.end()) {
      for (const auto& variable : found->second) {
        names.push_back(variable.first);
      }
    }
    return names;
  }

  std::size_t variableZones(const VariableKey& key, std::vector<int>& zones) override {
    const VariableData* found = data_.findVariable(key);
    if (found == nullptr) {
      return 0;
    }
    zones = found->zones.zones();
    return found->valuesPerEntity;
  }

  std::size_t variableValueCount(const VariableKey& key, int zone) override {
    return sizeOf(valuesOf(key, zone));
  }

  std::size_t readVariable(const VariableKey& key, int zone, double* values,
                           std::size_t n) override {
    const Slice<double>* held = valuesOf(key, zone);
    return held == nullptr ? 0 : held->copyTo(values, n);
  }

 private:
  template <class Value>
  static std::size_t sizeOf(const Slice<Value>* found) {
    return found == nullptr ? 0 : found->size();
  }

  const Slice<double>* valuesOf(const VariableKey& key, int zone) const {
    const VariableData* found = data_.findVariable(key);
    return found == nullptr ? nullptr : found->zones.find(zone);
  }

  const Slice<std::uint64_t>* idsOf(Family family, int zone) const {
    switch (family) {
      case Family::faceNodes:
      case Family::cellNodes:
      case Family::cellFaces: {
        const CountedData* found = data_.counted(family).find(zone);
        return found == nullptr ? nullptr : &found->ids;
      }
      case Family::faceCell0:
      case Family::faceCell1:
      case Family::faceShadows:
        return data_.faceIds(family).find(zone);
      default:
        return nullptr;
    }
  }

  const std::shared_ptr<const Case> owner_;
  const MeshData& data_;
};

}  // namespace

base::CaseProvider::ArraysByMesh arraysOf(const std::shared_ptr<const Case>& source) {
  base::CaseProvider::ArraysByMesh arrays;
  for (const auto& mesh : source->data) {
    arrays[mesh.first] = std::make_shared<MemoryArrays>(source, mesh.second);
  }
  return arrays;
}

MemoryProvider::MemoryProvider(std::shared_ptr<const Case> source) : source_(std::move(source)) {}

void MemoryProvider::open(const std::string&, OrvDataClass) {
  serve(source_->tables, arraysOf(source_));
}

}  // namespace velto::memory
