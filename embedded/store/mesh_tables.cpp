// SPDX-License-Identifier: Apache-2.0
//
// The sizes and zones of one mesh.

#include "embedded/store/case_tables.h"

namespace velto::store {

using base::CaseError;
using base::MeshKey;
using base::MeshTables;
using base::ZoneRecord;
using layout::List;
using layout::ListRow;
using layout::ZoneRow;

namespace {

/// The attributes of the sizes, in the order of OrvMeshSizeType.
constexpr std::array<const char*, 5> kSizeNames = {"dimension", "nodes", "other", "faces", "cells"};

/// Fills the values of a row and their bits from what is known of them.
template <class Values, class Known>
void put(ZoneRow& row, Values& values, const Known& known, unsigned firstBit) {
  for (std::size_t i = 0; i < known.size(); ++i) {
    if (known.at(i)) {
      values.at(i) = *known.at(i);
      row.known |= 1 << (firstBit + i);
    }
  }
}

template <class Values, class Known>
void take(const ZoneRow& row, const Values& values, Known& known, unsigned firstBit) {
  for (std::size_t i = 0; i < known.size(); ++i) {
    if ((row.known & (1 << (firstBit + i))) != 0) {
      known.at(i) = values.at(i);
    }
  }
}

constexpr unsigned kSizeBit = 0;
constexpr unsigned kFaceInfoBit = 4;
constexpr unsigned kCellInfoBit = 10;

ZoneRow rowOf(int id, const ZoneRecord& zone, TextWriter& texts) {
  ZoneRow row;
  row.zone = id;
  put(row, row.sizes, zone.sizes, kSizeBit);
  put(row, row.faceInfo, zone.faceInfo, kFaceInfoBit);
  put(row, row.cellInfo, zone.cellInfo, kCellInfoBit);
  row.name = texts.add(zone.texts[zoneName]);
  row.typeName = texts.add(zone.texts[zoneTypeName]);
  return row;
}

ZoneRecord recordOf(const ZoneRow& row, const TextReader& texts) {
  ZoneRecord zone;
  take(row, row.sizes, zone.sizes, kSizeBit);
  take(row, row.faceInfo, zone.faceInfo, kFaceInfoBit);
  take(row, row.cellInfo, zone.cellInfo, kCellInfoBit);
  zone.texts[zoneName] = texts.optional(row.name);
  zone.texts[zoneTypeName] = texts.optional(row.typeName);
  return zone;
}

/// The list of a zone that a row speaks of, or null if there is no such list.
std::vector<int>* listOf(ZoneRecord& zone, List list) {
  switch (list) {
    case List::properties:
      return &zone.properties;
    case List::boundingFaceZones:
      return &zone.boundingFaceZones;
    case List::side0CellZones:
      return &zone.sideCellZones[0];
    case List::side1CellZones:
      return &zone.sideCellZones[1];
    case List::zoneIds:
      break;
  }
  return nullptr;
}

void addLists(std::vector<ListRow>& rows, ListWriter& lists, int id, ZoneRecord zone) {
  for (const List list :
       {List::properties, List::boundingFaceZones, List::side0CellZones, List::side1CellZones}) {
    const std::vector<int>& values = *listOf(zone, list);
    if (!values.empty()) {
      lists.add(rows, {list, id}, values);
    }
  }
}

}  // namespace

void writeMeshTables(Group& mesh, const MeshKey& key, const MeshTables& tables, TextWriter& texts) {
  mesh.setNumbers("mesh", {key.mesh});
  mesh.setNumbers("target", {key.target});
  mesh.setNumbers("partition", {key.partition});
  for (std::size_t i = 0; i < tables.sizes.size(); ++i) {
    if (tables.sizes.at(i)) {
      mesh.setCount(kSizeNames.at(i), *tables.sizes.at(i));
    }
  }
  if (tables.units) {
    mesh.setText("units", *tables.units);
  }
  std::vector<ZoneRow> zones;
  std::vector<ListRow> rows;
  ListWriter lists;
  for (const auto& category : tables.zoneIds) {
    lists.add(rows, {List::zoneIds, category.first}, category.second);
  }
  for (const int id : tables.sortedZones()) {
    const ZoneRecord& zone = tables.zones.at(id);
    zones.push_back(rowOf(id, zone, texts));
    addLists(rows, lists, id, zone);
  }
  writeRows(mesh, "zones", layout::zoneTable(), zones);
  writeRows(mesh, "lists", layout::listTable(), rows);
  lists.write(mesh);
}

MeshKey readMeshKey(const Group& mesh) {
  const auto number = [&mesh](const char* name) {
    const auto values = mesh.numbers(name);
    if (!values || values->size() != 1) {
      throw CaseError(mesh.where(name) + ": one number is expected");
    }
    return toInt(values->front(), mesh.where(name));
  };
  return {number("mesh"), static_cast<OrvTargetCategory>(number("target")), number("partition")};
}

MeshTables readMeshTables(const Group& mesh, const TextReader& texts) {
  MeshTables tables;
  for (std::size_t i = 0; i < tables.sizes.size(); ++i) {
    tables.sizes.at(i) = mesh.count(kSizeNames.at(i));
  }
  tables.units = mesh.text("units");
  for (const auto& row : readRows<ZoneRow>(mesh, "zones", layout::zoneTable())) {
    tables.zones[row.zone] = recordOf(row, texts);
  }
  const ListReader lists(mesh);
  for (const auto& row : readRows<ListRow>(mesh, "lists", layout::listTable())) {
    if (row.list == List::zoneIds) {
      tables.zoneIds[static_cast<OrvZoneCategory>(row.key)] = lists.list(row);
      continue;
    }
    const auto zone = tables.zones.find(row.key);
    std::vector<int>* list = zone == tables.zones.end() ? nullptr : listOf(zone->second, row.list);
    if (list == nullptr) {
      throw CaseError(mesh.where("lists") + ": a list of zone " + std::to_string(row.key) +
                      " belongs to nothing");
    }
    *list = lists.list(row);
  }
  return tables;
}

}  // namespace velto::store
