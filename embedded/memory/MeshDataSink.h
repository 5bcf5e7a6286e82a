// SPDX-License-Identifier: Apache-2.0
//
// MeshDataSink: takes the arrays of one mesh into memory.

#ifndef VELTO_EMBEDDED_MEMORY_MESH_DATA_SINK_H
#define VELTO_EMBEDDED_MEMORY_MESH_DATA_SINK_H

#include <string>
#include <vector>

#include "embedded/base/MeshArrays.h"
#include "embedded/memory/Case.h"

namespace velto::memory {

/// Copies what arrives into a MeshData.
class MeshDataSink : public base::MeshArraySink {
 public:
  const MeshData& data() const { return data_; }

  void begin(base::Family family, const std::vector<int>& zones) override;
  void writeUniformCount(base::Family family, int zone, short count) override;
  void writeCounts(base::Family family, int zone, const short* counts, std::size_t n) override;
  void writeIds(base::Family family, int zone, const std::uint64_t* ids, std::size_t n) override;
  void writeCoordinates(int zone, const double* values, std::size_t n) override;
  void writeUniformCellType(int zone, int type) override;
  void writeCellTypes(int zone, const int* types, std::size_t n) override;
  void setPartitionInfo(int zone, int info) override;
  void writeCellPartitions(int zone, const int* partitions, std::size_t n) override;
  void writeElemIds(int zone, const std::size_t* ids, std::size_t n) override;
  void setTreeChildZones(const std::vector<int>& zones) override;

  void declareVariables(short phase, OrvZoneCategory category,
                        const std::vector<std::string>& names) override;
  void beginVariable(const base::VariableKey& key, const std::vector<int>& zones,
                     std::size_t valuesPerEntity) override;
  void writeVariable(const base::VariableKey& key, int zone, const double* values,
                     std::size_t n) override;

 private:
  /// Lists a zone under a family, with nothing yet.
  void list(base::Family family, int zone);

  MeshData data_;
};

}  // namespace velto::memory

#endif  // VELTO_EMBEDDED_MEMORY_MESH_DATA_SINK_H
