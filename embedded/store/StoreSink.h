// SPDX-License-Identifier: Apache-2.0
//
// StoreSink: takes the arrays of one mesh into the datasets of its group.

#ifndef VELTO_EMBEDDED_STORE_STORE_SINK_H
#define VELTO_EMBEDDED_STORE_STORE_SINK_H

#include <map>
#include <memory>
#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

#include "embedded/base/CaseTables.h"
#include "embedded/base/MeshArrays.h"
#include "embedded/store/Layout.h"
#include "embedded/store/RowWriter.h"
#include "embedded/store/tables.h"

namespace velto::store {

/// What all meshes of a file that is written share.
struct WriteSettings {
  unsigned compression = 0;  ///< 0 to 9.
  std::uint64_t room = 0;    ///< Free bytes on the disk.
  Packer packer;
  WriteProgress progress;
};

/// Writes values as they come and keeps, for the tables at the end, which rows belong to whom.
/// Arrays that hold nothing get no dataset.
class StoreSink : public base::MeshArraySink {
 public:
  /// `tables` tell how many elements a zone probably has; both they and `settings` outlive the
  /// sink.
  StoreSink(Group group, const base::MeshKey& key, const base::CaseTables& tables,
            WriteSettings& settings);

  /// Closes the arrays that were written; no more values may come for them. The memory that they
  /// took is free again.
  void closeArrays();

  /// Throws CaseError if the tables claim more than the arrays can speak of: a reader would refuse
  /// the file.
  void requireJustified() const;

  /// Closes the arrays and writes the tables. Returns the parts of the file that hold values.
  const std::vector<FileRange>& finish();

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
  /// One array: which rows are whose, how many will probably come, and who writes them.
  struct ArrayState {
    std::vector<layout::ZoneRows> zones;
    std::unordered_map<int, std::size_t> positions;
    std::uint64_t planned = 0;
    std::unique_ptr<RowWriter> writer;
    bool isClosed = false;
  };
  using ArrayKey = std::pair<layout::Array, std::int32_t>;  // with the number of a field

  struct Field {
    base::VariableKey key;
    std::size_t valuesPerEntity = 1;
  };

  /// The entry of a zone, at the end of its array if it is new.
  layout::ZoneRows& entry(const ArrayKey& key, int zone);
  void write(const ArrayKey& key, int zone, const void* values, std::size_t n);
  std::unique_ptr<RowWriter> makeWriter(const ArrayKey& key);

  std::int32_t fieldNumber(const base::VariableKey& key);

  /// What the tables say of a zone: its elements, and the coordinates of a node in it.
  std::uint64_t elementsOf(int zone) const;
  std::uint64_t dimensionOf(int zone) const;

  void writeArrayTables(TextWriter& texts);

  Group group_;
  base::MeshKey key_;
  const base::CaseTables& tables_;
  WriteSettings& settings_;
  std::map<ArrayKey, ArrayState> arrays_;
  std::vector<Field> fields_;
  std::vector<FileRange> ranges_;
};

}  // namespace velto::store

#endif  // VELTO_EMBEDDED_STORE_STORE_SINK_H
