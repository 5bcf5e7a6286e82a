// SPDX-License-Identifier: Apache-2.0
//
// StoreArrays: the arrays of one mesh of a store file.

#ifndef VELTO_EMBEDDED_STORE_STORE_ARRAYS_H
#define VELTO_EMBEDDED_STORE_STORE_ARRAYS_H

#include <map>
#include <memory>
#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

#include "embedded/base/CaseTables.h"
#include "embedded/base/MeshArrays.h"
#include "embedded/store/Layout.h"
#include "embedded/store/RowReader.h"
#include "embedded/store/tables.h"

namespace velto::store {

/// What the meshes of an open file share.
struct OpenFile {
  explicit OpenFile(const std::string& file) : raw(file, base::RawFile::Mode::read, file) {}

  base::RawFile raw;
  ReadBuffers buffers;
};

/// Finds a zone's rows in the "arrays" of its mesh and reads them.
class StoreArrays : public base::MeshArrays {
 public:
  /// Throws CaseError if the group speaks of rows that its datasets do not have.
  StoreArrays(const Group& group, const TextReader& texts, std::shared_ptr<OpenFile> file);

  /// Throws CaseError if the tables claim more elements than arrays of this size can speak of: what
  /// a caller allocates by them has to be justified by the file.
  void requireJustified(const base::MeshTables& tables) const;

  /// The same of field data alone, which is all that a results file holds.
  void requireJustifiedFields(const base::MeshTables& tables) const;

  std::vector<int> zones(base::Family family) override;
  std::vector<int> treeChildZones() override;
  bool uniformCount(base::Family family, int zone, short& count) override;
  std::size_t readCounts(base::Family family, int zone, short* counts, std::size_t n) override;
  std::size_t readIds(base::Family family, int zone, std::uint64_t* ids, std::size_t n) override;
  std::size_t readNarrowIds(base::Family family, int zone, std::uint32_t* ids,
                            std::size_t n) override;
  std::size_t valueCount(base::Family family, int zone) override;
  std::size_t countCount(base::Family family, int zone) override;
  std::size_t readCoordinates(int zone, double* values, std::size_t n) override;
  bool uniformCellType(int zone, int& type) override;
  std::size_t readCellTypes(int zone, int* types, std::size_t n) override;
  int partitionInfo(int zone) override;
  std::size_t readCellPartitions(int zone, int* partitions, std::size_t n) override;
  std::vector<std::string> variableNames(short phase, OrvZoneCategory category) override;
  std::size_t variableZones(const base::VariableKey& key, std::vector<int>& zones) override;
  std::size_t variableValueCount(const base::VariableKey& key, int zone) override;
  std::size_t readVariable(const base::VariableKey& key, int zone, double* values,
                           std::size_t n) override;

 private:
  /// One array, with its zones in their order.
  struct ArrayState {
    std::vector<layout::ZoneRows> zones;
    std::unordered_map<int, std::size_t> positions;
    std::unique_ptr<RowReader> reader;  ///< Null if no zone has rows.
    std::vector<bool> isVerified;       ///< Of each zone, once its rows were read and fit.

    const layout::ZoneRows* find(int zone) const;
  };
  using ArrayKey = std::pair<layout::Array, std::int32_t>;  // with the number of a field

  struct Field {
    base::VariableKey key;
    std::size_t valuesPerEntity = 1;
  };

  void addRows(const Group& group, const layout::ZoneRows& rows);
  void openReader(const Group& group, const layout::ZoneRows& rows, ArrayState& array);

  const layout::ZoneRows* find(const ArrayKey& key, int zone) const;
  std::vector<int> zonesOf(const ArrayKey& key) const;
  std::size_t rowsOf(const ArrayKey& key, int zone) const;
  std::size_t read(const ArrayKey& key, int zone, void* values, std::size_t n);

  /// The number of a variable, -1 if there is none.
  std::int32_t fieldNumber(const base::VariableKey& key) const;

  std::string where_;
  std::shared_ptr<OpenFile> file_;
  std::map<ArrayKey, ArrayState> arrays_;
  std::vector<Field> fields_;
  std::uint64_t allRows_ = 0;
};

}  // namespace velto::store

#endif  // VELTO_EMBEDDED_STORE_STORE_ARRAYS_H
