// SPDX-License-Identifier: Apache-2.0
//
// The columns of the tables.

#include "embedded/store/Layout.h"

#include "embedded/base/CaseError.h"

namespace velto::store::layout {

using base::Family;
using Type = Column::Type;

NumberType typeOf(Array array) {
  switch (array) {
    case Array::nodeCoordinates:
    case Array::field:
      return NumberType::float64;
    case Array::faceNodeCounts:
    case Array::cellNodeCounts:
    case Array::cellFaceCounts:
      return NumberType::int16;
    case Array::cellTypes:
    case Array::cellPartitions:
      return NumberType::int32;
    default:
      return NumberType::uint64;
  }
}

std::string datasetName(Array array, std::int32_t field) {
  const std::string name = kArrayNames.at(static_cast<std::size_t>(array));
  return array == Array::field ? name + std::to_string(field) : name;
}

Array valuesOf(Family family) {
  switch (family) {
    case Family::faceNodes:
      return Array::faceNodeIds;
    case Family::cellNodes:
      return Array::cellNodeIds;
    case Family::cellFaces:
      return Array::cellFaceIds;
    case Family::nodeCoordinates:
      return Array::nodeCoordinates;
    case Family::faceCell0:
      return Array::faceCell0;
    case Family::faceCell1:
      return Array::faceCell1;
    case Family::faceShadows:
      return Array::faceShadows;
    case Family::faceTree:
      return Array::treeParents;
    case Family::cellTypes:
      return Array::cellTypes;
    case Family::cellPartitions:
      return Array::cellPartitions;
  }
  throw base::CaseError("unknown family");
}

Array countsOf(Family family) {
  switch (family) {
    case Family::faceNodes:
      return Array::faceNodeCounts;
    case Family::cellNodes:
      return Array::cellNodeCounts;
    case Family::cellFaces:
      return Array::cellFaceCounts;
    default:
      throw base::CaseError(std::string(base::familyName(family)) + " have no counts");
  }
}

// Rows lie in files as they lie in memory: no gaps, no padding.
static_assert(sizeof(TextRef) == 16);
static_assert(sizeof(ZoneRows) == 48);
static_assert(sizeof(FieldRow) == 32);
static_assert(sizeof(ZoneRow) == 104);
static_assert(sizeof(ListRow) == 24);
static_assert(sizeof(SettingRow) == 48);
static_assert(sizeof(NamedRow) == 40);
static_assert(sizeof(AttributeRow) == 40);
static_assert(sizeof(ObjectRow) == 32);
static_assert(sizeof(ObjectListRow) == 24);

const TableType& zoneRowsTable() {
  static const TableType kTable = {
      {{"array", offsetof(ZoneRows, array), Type::enumeration, kArrayNames.data()},
       {"zone", offsetof(ZoneRows, zone), Type::int32},
       {"field", offsetof(ZoneRows, field), Type::int32},
       {"isUniform", offsetof(ZoneRows, isUniform), Type::int32},
       {"value", offsetof(ZoneRows, value), Type::int64},
       {"first", offsetof(ZoneRows, first), Type::uint64},
       {"rows", offsetof(ZoneRows, rows), Type::uint64},
       {"checksum", offsetof(ZoneRows, checksum), Type::uint64}},
      sizeof(ZoneRows)};
  return kTable;
}

const TableType& fieldTable() {
  static const TableType kTable = {
      {{"phase", offsetof(FieldRow, phase), Type::int32},
       {"category", offsetof(FieldRow, category), Type::int32},
       {"valuesPerEntity", offsetof(FieldRow, valuesPerEntity), Type::uint64},
       {"name", offsetof(FieldRow, name), Type::text}},
      sizeof(FieldRow)};
  return kTable;
}

const TableType& zoneTable() {
  constexpr std::size_t kSizes = offsetof(ZoneRow, sizes);
  constexpr std::size_t kFaceInfo = offsetof(ZoneRow, faceInfo);
  constexpr std::size_t kCellInfo = offsetof(ZoneRow, cellInfo);
  static const TableType kTable = {{{"zone", offsetof(ZoneRow, zone), Type::int32},
                                    {"known", offsetof(ZoneRow, known), Type::int32},
                                    {"firstId", kSizes, Type::uint64},
                                    {"lastId", kSizes + 8, Type::uint64},
                                    {"elements", kSizes + 16, Type::uint64},
                                    {"dimension", kSizes + 24, Type::uint64},
                                    {"faceShape", kFaceInfo, Type::int32},
                                    {"faceChild", kFaceInfo + 4, Type::int32},
                                    {"faceParent0", kFaceInfo + 8, Type::int32},
                                    {"faceParent1", kFaceInfo + 12, Type::int32},
                                    {"faceShadow", kFaceInfo + 16, Type::int32},
                                    {"faceType", kFaceInfo + 20, Type::int32},
                                    {"cellShape", kCellInfo, Type::int32},
                                    {"cellChild", kCellInfo + 4, Type::int32},
                                    {"name", offsetof(ZoneRow, name), Type::text},
                                    {"typeName", offsetof(ZoneRow, typeName), Type::text}},
                                   sizeof(ZoneRow)};
  return kTable;
}

const TableType& listTable() {
  static const TableType kTable = {
      {{"list", offsetof(ListRow, list), Type::enumeration, kListNames.data()},
       {"key", offsetof(ListRow, key), Type::int32},
       {"first", offsetof(ListRow, first), Type::uint64},
       {"count", offsetof(ListRow, count), Type::uint64}},
      sizeof(ListRow)};
  return kTable;
}

const TableType& settingTable() {
  static const TableType kTable = {{{"path", offsetof(SettingRow, path), Type::text},
                                    {"key", offsetof(SettingRow, key), Type::text},
                                    {"value", offsetof(SettingRow, value), Type::text}},
                                   sizeof(SettingRow)};
  return kTable;
}

const TableType& namedTable() {
  static const TableType kTable = {{{"id", offsetof(NamedRow, id), Type::int64},
                                    {"name", offsetof(NamedRow, name), Type::text},
                                    {"description", offsetof(NamedRow, description), Type::text}},
                                   sizeof(NamedRow)};
  return kTable;
}

const TableType& attributeTable() {
  static const TableType kTable = {{{"isVariable", offsetof(AttributeRow, isVariable), Type::int32},
                                    {"id", offsetof(AttributeRow, id), Type::int32},
                                    {"name", offsetof(AttributeRow, name), Type::text},
                                    {"value", offsetof(AttributeRow, value), Type::text}},
                                   sizeof(AttributeRow)};
  return kTable;
}

const TableType& objectTable() {
  static const TableType kTable = {
      {{"kind", offsetof(ObjectRow, kind), Type::enumeration, kKindNames.data()},
       {"owner", offsetof(ObjectRow, owner), Type::int32},
       {"face", offsetof(ObjectRow, face), Type::int32},
       {"side", offsetof(ObjectRow, side), Type::int32},
       {"name", offsetof(ObjectRow, name), Type::text}},
      sizeof(ObjectRow)};
  return kTable;
}

const TableType& objectListTable() {
  static const TableType kTable = {{{"object", offsetof(ObjectListRow, object), Type::int32},
                                    {"key", offsetof(ObjectListRow, key), Type::int32},
                                    {"first", offsetof(ObjectListRow, first), Type::uint64},
                                    {"count", offsetof(ObjectListRow, count), Type::uint64}},
                                   sizeof(ObjectListRow)};
  return kTable;
}

}  // namespace velto::store::layout
