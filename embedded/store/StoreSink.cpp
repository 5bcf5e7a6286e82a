// SPDX-License-Identifier: Apache-2.0
//
// StoreSink: every call ends in one entry and one append.

#include "embedded/store/StoreSink.h"

#include <algorithm>

#include "embedded/base/CaseError.h"
#include "embedded/base/claims.h"
#include "embedded/store/case_tables.h"

namespace velto::store {

using base::Family;
using base::VariableKey;
using layout::Array;
using layout::ZoneRows;

namespace {

bool isCounted(Family family) {
  return family == Family::faceNodes || family == Family::cellNodes || family == Family::cellFaces;
}

}  // namespace

StoreSink::StoreSink(Group group, const base::MeshKey& key, const base::CaseTables& tables,
                     WriteSettings& settings)
    : group_(std::move(group)), key_(key), tables_(tables), settings_(settings) {}

// --- Arrays -------------------------------------------------------------------------------------

ZoneRows& StoreSink::entry(const ArrayKey& key, int zone) {
  ArrayState& array = arrays_[key];
  const auto [found, isNew] = array.positions.emplace(zone, array.zones.size());
  if (isNew) {
    ZoneRows rows;
    rows.array = key.first;
    rows.field = key.second;
    rows.zone = zone;
    array.zones.push_back(rows);
  }
  return array.zones[found->second];
}

void StoreSink::write(const ArrayKey& key, int zone, const void* values, std::size_t n) {
  ZoneRows& rows = entry(key, zone);
  ArrayState& array = arrays_[key];
  if (n > 0 && array.isClosed) {
    throw base::CaseError(group_.where(layout::datasetName(key.first, key.second)) + ": zone " +
                          std::to_string(zone) +
                          " came after the array was closed; the arrays of a mesh are written "
                          "before those of the next");
  }
  if (n > 0 && array.writer == nullptr) {
    array.writer = makeWriter(key);
    array.writer->plan(array.planned);
    array.writer->reportTo(settings_.progress);
  }
  const RowRun run = n == 0 ? RowRun{} : array.writer->append(values, n);
  rows.isUniform = 0;
  rows.first = run.first;
  rows.rows = run.rows;
  rows.checksum = run.checksum;
}

std::unique_ptr<RowWriter> StoreSink::makeWriter(const ArrayKey& key) {
  const std::string name = layout::datasetName(key.first, key.second);
  const NumberType type = layout::typeOf(key.first);
  if (settings_.compression == 0) {
    return makeContiguousWriter(group_, name, type, settings_.room);
  }
  const Content content = type == NumberType::float64 ? Content::reals : Content::integers;
  return makePackedWriter(group_, name, type, settings_.packer,
                          zstdLevel(settings_.compression, content));
}

void StoreSink::closeArrays() {
  for (auto& array : arrays_) {
    if (array.second.writer != nullptr) {
      const std::vector<FileRange> ranges = array.second.writer->finish();
      ranges_.insert(ranges_.end(), ranges.begin(), ranges.end());
      array.second.writer.reset();
      array.second.isClosed = true;
    }
  }
}

std::uint64_t StoreSink::elementsOf(int zone) const {
  const auto mesh = tables_.meshes.find(key_);
  if (mesh == tables_.meshes.end()) {
    return 0;
  }
  const std::uint64_t last = mesh->second.zoneSize(zone, zoneLastId);
  const std::uint64_t first = mesh->second.zoneSize(zone, zoneFirstId);
  return last < first || first == 0 ? 0 : last - first + 1;
}

std::uint64_t StoreSink::dimensionOf(int zone) const {
  const auto mesh = tables_.meshes.find(key_);
  const std::uint64_t dimension =
      mesh == tables_.meshes.end() ? 0 : mesh->second.zoneSize(zone, zoneDimension);
  return dimension == 0 ? 3 : dimension;
}

// --- Families -----------------------------------------------------------------------------------

void StoreSink::begin(Family family, const std::vector<int>& zones) {
  const ArrayKey key = {layout::valuesOf(family), 0};
  for (const int zone : zones) {
    entry(key, zone);
    if (isCounted(family)) {
      arrays_[{layout::countsOf(family), 0}].planned += elementsOf(zone);
    } else {
      arrays_[key].planned +=
          elementsOf(zone) * (family == Family::nodeCoordinates ? dimensionOf(zone) : 1);
    }
  }
}

void StoreSink::writeUniformCount(Family family, int zone, short count) {
  const ArrayKey key = {layout::countsOf(family), 0};
  ZoneRows& rows = entry(key, zone);
  rows.isUniform = 1;
  rows.value = count;
  arrays_[key].planned -= elementsOf(zone);
  arrays_[{layout::valuesOf(family), 0}].planned +=
      elementsOf(zone) * static_cast<std::uint64_t>(std::max<short>(count, 0));
}

void StoreSink::writeCounts(Family family, int zone, const short* counts, std::size_t n) {
  write({layout::countsOf(family), 0}, zone, counts, n);
  std::uint64_t ids = 0;
  for (std::size_t i = 0; i < n; ++i) {
    ids += static_cast<std::uint64_t>(std::max<short>(counts[i], 0));
  }
  arrays_[{layout::valuesOf(family), 0}].planned += ids;
}

void StoreSink::writeIds(Family family, int zone, const std::uint64_t* ids, std::size_t n) {
  write({layout::valuesOf(family), 0}, zone, ids, n);
}

void StoreSink::writeCoordinates(int zone, const double* values, std::size_t n) {
  write({Array::nodeCoordinates, 0}, zone, values, n);
}

void StoreSink::writeUniformCellType(int zone, int type) {
  ZoneRows& rows = entry({Array::cellTypes, 0}, zone);
  rows.isUniform = 1;
  rows.value = type;
}

void StoreSink::writeCellTypes(int zone, const int* types, std::size_t n) {
  write({Array::cellTypes, 0}, zone, types, n);
}

void StoreSink::setPartitionInfo(int zone, int info) {
  entry({Array::cellPartitions, 0}, zone).value = info;
}

void StoreSink::writeCellPartitions(int zone, const int* partitions, std::size_t n) {
  write({Array::cellPartitions, 0}, zone, partitions, n);
}

void StoreSink::writeElemIds(int zone, const std::size_t* ids, std::size_t n) {
  static_assert(sizeof(std::size_t) == sizeof(std::uint64_t), "ids are kept with 64 bits");
  write({Array::elementIds, 0}, zone, ids, n);
}

void StoreSink::setTreeChildZones(const std::vector<int>& zones) {
  for (const int zone : zones) {
    entry({Array::treeChildren, 0}, zone);
  }
}

// --- Field data ---------------------------------------------------------------------------------

std::int32_t StoreSink::fieldNumber(const VariableKey& key) {
  const auto found = std::find_if(fields_.begin(), fields_.end(),
                                  [&key](const Field& field) { return field.key == key; });
  const auto number = found - fields_.begin();
  if (found == fields_.end()) {
    fields_.push_back({key, 1});
  }
  return static_cast<std::int32_t>(number);
}

void StoreSink::declareVariables(short phase, OrvZoneCategory category,
                                 const std::vector<std::string>& names) {
  for (const std::string& name : names) {
    fieldNumber({phase, category, name});
  }
}

void StoreSink::beginVariable(const VariableKey& key, const std::vector<int>& zones,
                              std::size_t valuesPerEntity) {
  const std::int32_t number = fieldNumber(key);
  fields_[static_cast<std::size_t>(number)].valuesPerEntity = valuesPerEntity;
  for (const int zone : zones) {
    entry({Array::field, number}, zone);
    arrays_[{Array::field, number}].planned += elementsOf(zone) * valuesPerEntity;
  }
}

void StoreSink::writeVariable(const VariableKey& key, int zone, const double* values,
                              std::size_t n) {
  write({Array::field, fieldNumber(key)}, zone, values, n);
}

// --- The end ------------------------------------------------------------------------------------

void StoreSink::requireJustified() const {
  std::uint64_t rows = 0;
  for (const auto& array : arrays_) {
    for (const ZoneRows& zone : array.second.zones) {
      rows += zone.rows;
    }
  }
  const auto mesh = tables_.meshes.find(key_);
  if (mesh != tables_.meshes.end()) {
    base::requireJustified(group_.where(), mesh->second, rows);
  }
}

const std::vector<FileRange>& StoreSink::finish() {
  closeArrays();
  TextWriter texts;
  const auto mesh = tables_.meshes.find(key_);
  writeMeshTables(group_, key_, mesh == tables_.meshes.end() ? base::MeshTables() : mesh->second,
                  texts);
  writeArrayTables(texts);
  texts.write(group_);
  return ranges_;
}

void StoreSink::writeArrayTables(TextWriter& texts) {
  std::vector<ZoneRows> rows;
  for (const auto& array : arrays_) {
    rows.insert(rows.end(), array.second.zones.begin(), array.second.zones.end());
  }
  writeRows(group_, "arrays", layout::zoneRowsTable(), rows);
  std::vector<layout::FieldRow> fields;
  for (const Field& field : fields_) {
    fields.push_back(
        {field.key.phase, field.key.category, field.valuesPerEntity, texts.add(field.key.name)});
  }
  writeRows(group_, "fields", layout::fieldTable(), fields);
}

}  // namespace velto::store
