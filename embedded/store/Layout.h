// SPDX-License-Identifier: Apache-2.0
//
// The names, tables and arrays of a store file, as docs/store-layout.md describes them.

#ifndef VELTO_EMBEDDED_STORE_LAYOUT_H
#define VELTO_EMBEDDED_STORE_LAYOUT_H

#include <array>
#include <cstdint>
#include <string>

#include "embedded/base/Family.h"
#include "embedded/store/Hdf5.h"

namespace velto::store::layout {

/// Of the root's attribute "format".
inline constexpr const char* kFormat = "ORV case store";

/// Version of this layout. A reader takes any minor version of its major one: a minor version only
/// adds columns, datasets and groups that an older reader may pass over.
inline constexpr std::int64_t kMajor = 1;
inline constexpr std::int64_t kMinor = 0;

// --- Texts --------------------------------------------------------------------------------------

/// A text in a table: where it lies in the "texts" beside the table. A length of -1 stands for a
/// text that was never set.
struct TextRef {
  std::uint64_t first = 0;
  std::int64_t length = -1;
};

// --- Arrays -------------------------------------------------------------------------------------

/// The arrays of a mesh, one dataset each. The values stand in files and are never renumbered.
enum class Array : std::int32_t {
  nodeCoordinates = 0,
  faceNodeCounts = 1,
  faceNodeIds = 2,
  cellNodeCounts = 3,
  cellNodeIds = 4,
  cellFaceCounts = 5,
  cellFaceIds = 6,
  faceCell0 = 7,
  faceCell1 = 8,
  faceShadows = 9,
  cellTypes = 10,
  cellPartitions = 11,
  elementIds = 12,
  treeParents = 13,   ///< Lists zones only; has no dataset.
  treeChildren = 14,  ///< The same.
  field = 15,         ///< The values of one variable; one dataset for each row of "fields".
};

/// The names of the arrays, which are those of their datasets. A field's has its number behind it.
inline constexpr std::array<const char*, 17> kArrayNames = {
    "nodeCoordinates", "faceNodeCounts", "faceNodeIds", "cellNodeCounts", "cellNodeIds",
    "cellFaceCounts",  "cellFaceIds",    "faceCell0",   "faceCell1",      "faceShadows",
    "cellTypes",       "cellPartitions", "elementIds",  "treeParents",    "treeChildren",
    "field",           nullptr};

/// The type of an array's numbers.
NumberType typeOf(Array array);

/// The name of an array's dataset; `field` is the number of the variable and 0 otherwise.
std::string datasetName(Array array, std::int32_t field);

/// The array that holds the lists of a counted family, or what a family has one of an element.
Array valuesOf(base::Family family);

/// The array that holds the counts of a counted family.
Array countsOf(base::Family family);

/// Which rows of a dataset belong to a zone; one row of "arrays". The rows of an array stand in the
/// order in which its family lists the zones.
struct ZoneRows {
  Array array = Array::nodeCoordinates;
  std::int32_t zone = 0;
  std::int32_t field = 0;      ///< Position in "fields"; 0 for what is no field.
  std::int32_t isUniform = 0;  ///< 1: all elements have `value`, and there are no rows.
  std::int64_t value = 0;      ///< The uniform count or type; of cell partitions their info.
  std::uint64_t first = 0;     ///< First row.
  std::uint64_t rows = 0;      ///< Number of rows.
  std::uint64_t checksum = 0;  ///< XXH3 of the rows, little-endian; 0 if there are none.
};
const TableType& zoneRowsTable();

/// A variable on one kind of zone; one row of "fields".
struct FieldRow {
  std::int32_t phase = 0;
  std::int32_t category = 0;
  std::uint64_t valuesPerEntity = 1;
  TextRef name;
};
const TableType& fieldTable();

// --- Zones --------------------------------------------------------------------------------------

/// What the tables hold of a zone; one row of "zones". A value counts only if its bit in `known` is
/// set: bit i for the i-th of the values, in their order here.
struct ZoneRow {
  std::int32_t zone = 0;
  std::int32_t known = 0;
  std::array<std::uint64_t, 4> sizes{};    ///< Bits 0 to 3: first id, last id, elements, dimension.
  std::array<std::int32_t, 6> faceInfo{};  ///< Bits 4 to 9, in the order of OrvFaceZoneInfoType.
  std::array<std::int32_t, 2> cellInfo{};  ///< Bits 10 and 11, in the order of OrvCellZoneInfoType.
  TextRef name;
  TextRef typeName;
};
const TableType& zoneTable();

/// Lists of integers, kept one after the other in "listValues"; one row of "lists".
enum class List : std::int32_t {
  zoneIds = 0,            ///< The zones of a category; `key` is the category.
  properties = 1,         ///< Of a face zone; `key` is the zone, as below.
  boundingFaceZones = 2,  ///< Of a cell zone.
  side0CellZones = 3,     ///< Of a face zone.
  side1CellZones = 4,
};
inline constexpr std::array<const char*, 6> kListNames = {
    "zoneIds", "properties", "boundingFaceZones", "side0CellZones", "side1CellZones", nullptr};

struct ListRow {
  List list = List::zoneIds;
  std::int32_t key = 0;
  std::uint64_t first = 0;
  std::uint64_t count = 0;
};
const TableType& listTable();

// --- Settings, phases and variables -------------------------------------------------------------

/// One row of "entries" of the group "settings".
struct SettingRow {
  TextRef path;
  TextRef key;
  TextRef value;
};
const TableType& settingTable();

/// One row of "phases" and of "variables" of the group "results".
struct NamedRow {
  std::int64_t id = 0;
  TextRef name;
  TextRef description;
};
const TableType& namedTable();

/// One row of "attributes" of the group "results".
struct AttributeRow {
  std::int32_t isVariable = 0;  ///< 0: of a phase.
  std::int32_t id = 0;
  TextRef name;
  TextRef value;
};
const TableType& attributeTable();

// --- Location model -----------------------------------------------------------------------------

/// The objects of a location model; one row of "objects", in the order of their ids, which count up
/// from 1. What `owner`, `face` and `side` mean goes by the kind.
enum class Kind : std::int32_t {
  part = 0,       ///< `side` is the kind that createPart was given.
  body = 1,       ///< `owner` is the part.
  face = 2,       ///< `owner` is the part.
  faceUse = 3,    ///< `owner` is the body, on `side` of `face`.
  composite = 4,  ///< `owner` is the part.
};
inline constexpr std::array<const char*, 6> kKindNames = {"part",    "body",      "face",
                                                          "faceUse", "composite", nullptr};

struct ObjectRow {
  Kind kind = Kind::part;
  std::int32_t owner = 0;
  std::int32_t face = 0;
  std::int32_t side = 0;
  TextRef name;
};
const TableType& objectTable();

/// Integers of an object, kept one after the other in "listValues"; one row of "lists". Of a body
/// its zones and of a face use its zone sides, for the mesh `key`; of a composite its bodies, faces
/// and face uses, with `key` 0, 1 and 2.
struct ObjectListRow {
  std::int32_t object = 0;
  std::int32_t key = 0;
  std::uint64_t first = 0;
  std::uint64_t count = 0;
};
const TableType& objectListTable();

}  // namespace velto::store::layout

#endif  // VELTO_EMBEDDED_STORE_LAYOUT_H
