// SPDX-License-Identifier: Apache-2.0
//
// StoreArrays: what the file says of its rows is examined once, when it is opened.

#include "embedded/store/StoreArrays.h"

#include <algorithm>
#include <limits>

#include "embedded/base/CaseError.h"
#include "embedded/base/claims.h"

namespace velto::store {

using base::CaseError;
using base::Family;
using base::VariableKey;
using layout::Array;
using layout::ZoneRows;

namespace {

bool isCounts(Array array) {
  return array == Array::faceNodeCounts || array == Array::cellNodeCounts ||
         array == Array::cellFaceCounts;
}

/// The lists that belong to an array of counts.
Array listsOf(Array counts) {
  switch (counts) {
    case Array::faceNodeCounts:
      return Array::faceNodeIds;
    case Array::cellNodeCounts:
      return Array::cellNodeIds;
    default:
      return Array::cellFaceIds;
  }
}

/// Throws unless the row's numbers are within what their types and the layout allow.
void requireSound(const std::string& where, const ZoneRows& rows, std::size_t fields) {
  const bool isField = rows.array == Array::field;
  const bool isKnown = rows.array >= Array::nodeCoordinates && rows.array <= Array::field;
  const bool isNumbered = rows.field >= 0 && static_cast<std::size_t>(rows.field) < fields;
  if (!isKnown || (isField ? !isNumbered : rows.field != 0)) {
    throw CaseError(where + ": a row of zone " + std::to_string(rows.zone) +
                    " belongs to no array");
  }
  const std::int64_t most =
      isCounts(rows.array) ? std::numeric_limits<short>::max() : std::numeric_limits<int>::max();
  const std::int64_t least = isCounts(rows.array) ? 0 : std::numeric_limits<int>::min();
  if (rows.value < least || rows.value > most || (rows.isUniform != 0 && rows.rows != 0)) {
    throw CaseError(where + ": " + layout::datasetName(rows.array, rows.field) + " of zone " +
                    std::to_string(rows.zone) + " has the value " + std::to_string(rows.value) +
                    ", which is out of range");
  }
}

}  // namespace

// --- Opening ------------------------------------------------------------------------------------

StoreArrays::StoreArrays(const Group& group, const TextReader& texts,
                         std::shared_ptr<OpenFile> file)
    : where_(group.where()), file_(std::move(file)) {
  for (const auto& row : readRows<layout::FieldRow>(group, "fields", layout::fieldTable())) {
    fields_.push_back({{static_cast<short>(row.phase), static_cast<OrvZoneCategory>(row.category),
                        texts.text(row.name)},
                       static_cast<std::size_t>(row.valuesPerEntity)});
  }
  for (const auto& rows : readRows<ZoneRows>(group, "arrays", layout::zoneRowsTable())) {
    requireSound(group.where("arrays"), rows, fields_.size());
    addRows(group, rows);
  }
}

void StoreArrays::addRows(const Group& group, const ZoneRows& rows) {
  ArrayState& array = arrays_[{rows.array, rows.field}];
  if (rows.rows > 0) {
    openReader(group, rows, array);
  }
  if (!array.positions.emplace(rows.zone, array.zones.size()).second) {
    throw CaseError(group.where("arrays") + ": " + layout::datasetName(rows.array, rows.field) +
                    " lists zone " + std::to_string(rows.zone) + " twice");
  }
  array.zones.push_back(rows);
  array.isVerified.push_back(false);
  allRows_ += rows.rows;
}

void StoreArrays::openReader(const Group& group, const ZoneRows& rows, ArrayState& array) {
  const std::string name = layout::datasetName(rows.array, rows.field);
  if (array.reader == nullptr) {
    const NumberType type = layout::typeOf(rows.array);
    array.reader = std::make_unique<RowReader>(group.openDataset(name, type), type, file_->raw,
                                               file_->buffers);
  }
  const std::uint64_t there = array.reader->rows();
  if (rows.first > there || rows.rows > there - rows.first) {
    throw CaseError(group.where(name) + ": zone " + std::to_string(rows.zone) + " has " +
                    std::to_string(rows.rows) + " rows from row " + std::to_string(rows.first) +
                    " on, only " + std::to_string(there) + " are there");
  }
}

void StoreArrays::requireJustified(const base::MeshTables& tables) const {
  base::requireJustified(where_, tables, allRows_);
  for (const auto& array : arrays_) {
    for (const ZoneRows& rows : array.second.zones) {
      const std::uint64_t elements = tables.zoneSize(rows.zone, zoneElementCount);
      if (isCounts(array.first.first) && rows.isUniform != 0 &&
          base::claimsTooMuch(elements, static_cast<std::uint64_t>(rows.value), allRows_)) {
        throw CaseError(where_ + ": " + std::to_string(elements) + " elements of zone " +
                        std::to_string(rows.zone) + " claim " + std::to_string(rows.value) +
                        " ids each, but the arrays hold " + std::to_string(allRows_) +
                        " numbers in all");
      }
    }
  }
}

void StoreArrays::requireJustifiedFields(const base::MeshTables& tables) const {
  for (const auto& array : arrays_) {
    if (array.first.first != Array::field) {
      continue;
    }
    const Field& field = fields_[static_cast<std::size_t>(array.first.second)];
    for (const ZoneRows& rows : array.second.zones) {
      const std::uint64_t elements = tables.zoneSize(rows.zone, zoneElementCount);
      if (base::claimsTooMuch(std::max<std::uint64_t>(elements, 1), field.valuesPerEntity,
                              rows.rows)) {
        throw CaseError(where_ + "/fields: " + std::to_string(elements) + " elements of zone " +
                        std::to_string(rows.zone) + " claim " +
                        std::to_string(field.valuesPerEntity) + " values each of " +
                        field.key.name + ", but it holds " + std::to_string(rows.rows));
      }
    }
  }
}

// --- Shared steps -------------------------------------------------------------------------------

const ZoneRows* StoreArrays::ArrayState::find(int zone) const {
  const auto found = positions.find(zone);
  return found == positions.end() ? nullptr : &zones[found->second];
}

const ZoneRows* StoreArrays::find(const ArrayKey& key, int zone) const {
  const auto array = arrays_.find(key);
  return array == arrays_.end() ? nullptr : array->second.find(zone);
}

std::vector<int> StoreArrays::zonesOf(const ArrayKey& key) const {
  std::vector<int> zones;
  const auto array = arrays_.find(key);
  if (array != arrays_.end()) {
    for (const ZoneRows& rows : array->second.zones) {
      zones.push_back(rows.zone);
    }
  }
  return zones;
}

std::size_t StoreArrays::rowsOf(const ArrayKey& key, int zone) const {
  const ZoneRows* rows = find(key, zone);
  return rows == nullptr ? 0 : static_cast<std::size_t>(rows->rows);
}

std::size_t StoreArrays::read(const ArrayKey& key, int zone, void* values, std::size_t n) {
  const auto found = arrays_.find(key);
  const ZoneRows* rows = found == arrays_.end() ? nullptr : found->second.find(zone);
  if (rows == nullptr || rows->rows == 0) {
    return 0;
  }
  ArrayState& array = found->second;
  const auto position = static_cast<std::size_t>(rows - array.zones.data());
  const auto trust =
      array.isVerified[position] ? RowReader::Trust::isVerified : RowReader::Trust::none;
  const std::size_t delivered =
      array.reader->read({rows->first, rows->rows, rows->checksum}, trust, values, n);
  array.isVerified[position] = true;
  return delivered;
}

// --- Families -----------------------------------------------------------------------------------

std::vector<int> StoreArrays::zones(Family family) {
  return zonesOf({layout::valuesOf(family), 0});
}

std::vector<int> StoreArrays::treeChildZones() { return zonesOf({Array::treeChildren, 0}); }

bool StoreArrays::uniformCount(Family family, int zone, short& count) {
  const ZoneRows* rows = find({layout::countsOf(family), 0}, zone);
  if (rows == nullptr || rows->isUniform == 0) {
    return false;
  }
  count = static_cast<short>(rows->value);
  return true;
}

std::size_t StoreArrays::readCounts(Family family, int zone, short* counts, std::size_t n) {
  const Array array = layout::countsOf(family);
  const ZoneRows* rows = find({array, 0}, zone);
  if (rows != nullptr && rows->isUniform != 0) {
    std::fill_n(counts, n, static_cast<short>(rows->value));
    return n;
  }
  const std::size_t delivered = read({array, 0}, zone, counts, n);
  std::int64_t sum = 0;
  for (std::size_t i = 0; i < delivered; ++i) {
    sum += counts[i];
  }
  // The contract adds counts up in 32 bits: a longer list cannot be told by them.
  if (sum < 0 || sum > std::numeric_limits<std::int32_t>::max() ||
      base::claimsTooMuch(static_cast<std::uint64_t>(sum), 1, rowsOf({listsOf(array), 0}, zone))) {
    std::fill_n(counts, delivered, short{0});
    throw CaseError(where_ + "/" + layout::datasetName(array, 0) + ": the counts of zone " +
                    std::to_string(zone) + " add up to " + std::to_string(sum) +
                    ", which no list has");
  }
  return delivered;
}

std::size_t StoreArrays::readIds(Family family, int zone, std::uint64_t* ids, std::size_t n) {
  return read({layout::valuesOf(family), 0}, zone, ids, n);
}

std::size_t StoreArrays::readNarrowIds(Family family, int zone, std::uint32_t* ids, std::size_t n) {
  const auto found = arrays_.find({layout::valuesOf(family), 0});
  const ZoneRows* rows = found == arrays_.end() ? nullptr : found->second.find(zone);
  if (rows == nullptr || rows->rows == 0 || rows->rows > n) {
    return 0;
  }
  const RowRun run{rows->first, rows->rows, rows->checksum};
  return found->second.reader->readNarrow(run, ids) ? static_cast<std::size_t>(run.rows) : 0;
}

std::size_t StoreArrays::valueCount(Family family, int zone) {
  return rowsOf({layout::valuesOf(family), 0}, zone);
}

std::size_t StoreArrays::countCount(Family family, int zone) {
  return rowsOf({layout::countsOf(family), 0}, zone);
}

std::size_t StoreArrays::readCoordinates(int zone, double* values, std::size_t n) {
  return read({Array::nodeCoordinates, 0}, zone, values, n);
}

bool StoreArrays::uniformCellType(int zone, int& type) {
  const ZoneRows* rows = find({Array::cellTypes, 0}, zone);
  if (rows == nullptr || rows->isUniform == 0) {
    return false;
  }
  type = static_cast<int>(rows->value);
  return true;
}

std::size_t StoreArrays::readCellTypes(int zone, int* types, std::size_t n) {
  int uniform = 0;
  if (uniformCellType(zone, uniform)) {
    std::fill_n(types, n, uniform);
    return n;
  }
  return read({Array::cellTypes, 0}, zone, types, n);
}

int StoreArrays::partitionInfo(int zone) {
  const ZoneRows* rows = find({Array::cellPartitions, 0}, zone);
  return rows == nullptr ? 0 : static_cast<int>(rows->value);
}

std::size_t StoreArrays::readCellPartitions(int zone, int* partitions, std::size_t n) {
  return read({Array::cellPartitions, 0}, zone, partitions, n);
}

// --- Field data ---------------------------------------------------------------------------------

std::int32_t StoreArrays::fieldNumber(const VariableKey& key) const {
  const auto found = std::find_if(fields_.begin(), fields_.end(),
                                  [&key](const Field& field) { return field.key == key; });
  return found == fields_.end() ? -1 : static_cast<std::int32_t>(found - fields_.begin());
}

std::vector<std::string> StoreArrays::variableNames(short phase, OrvZoneCategory category) {
  std::vector<std::string> names;
  for (const Field& field : fields_) {
    if (field.key.phase == phase && field.key.category == category) {
      names.push_back(field.key.name);
    }
  }
  return names;
}

std::size_t StoreArrays::variableZones(const VariableKey& key, std::vector<int>& zones) {
  const std::int32_t number = fieldNumber(key);
  if (number < 0) {
    return 0;
  }
  zones = zonesOf({Array::field, number});
  return fields_[static_cast<std::size_t>(number)].valuesPerEntity;
}

std::size_t StoreArrays::variableValueCount(const VariableKey& key, int zone) {
  return rowsOf({Array::field, fieldNumber(key)}, zone);
}

std::size_t StoreArrays::readVariable(const VariableKey& key, int zone, double* values,
                                      std::size_t n) {
  return read({Array::field, fieldNumber(key)}, zone, values, n);
}

}  // namespace velto::store
