// SPDX-License-Identifier: Apache-2.0
//
// The nodes of all faces and of all cells in memory, and where those of each begin: for the one
// check that goes from a face to its cells and compares their nodes.
//
// The tables go by position: the p-th entry is that of the p-th face or cell in the order of the
// listed zones. They are read by id minus 1, which is the same where the zones hold the ids from 1
// upward in that order; nobody checks that here.

#include <cstdint>
#include <string>
#include <vector>

#include "velto/OrvChecker.h"

#include "data_access/OrvFileProvider.h"
#include "data_access/families.h"
#include "data_access/sizes.h"

namespace velto {

/// What the tables of faces and those of cells differ in.
struct OrvChecker::NodeTables {
  const char* step;
  std::string word;  ///< "face" or "cell"
  OrvMeshSizeType total;
  OrvZoneCategory category;
  const CountedReadFamily& family;
  std::vector<std::vector<std::uint64_t>>& ids;
  std::vector<std::uint64_t*>& pointers;
  std::vector<int>& counts;
  std::vector<std::uint64_t>& cutNodes;
};

bool OrvChecker::readFaceNodes() {
  return readNodes({"readFaceNodes", "face", meshFaceCount, zoneCategoryFace, kFaceNodes,
                    faceNodeIds, faceNodePointers, faceNodeCounts, cutFaceNodes});
}

bool OrvChecker::readCellNodes() {
  return readNodes({"readCellNodes", "cell", meshCellCount, zoneCategoryCell, kCellNodes,
                    cellNodeIds, cellNodePointers, cellNodeCounts, cutCellNodes});
}

namespace {

/// The counts of a zone's elements, and the length of its list.
struct ZoneCounts {
  std::vector<short> counts;
  std::int64_t length = 0;
};

ZoneCounts readCounts(OrvProvider& source, const CountedReadFamily& family, int zone) {
  const std::uint64_t elementCount = zoneSizeOf(source, zone, zoneElementCount);
  ZoneCounts zoneCounts;
  if (elementCount == 0) {
    return zoneCounts;
  }
  short uniform = 0;
  if ((source.*family.getUniformCount)(zone, uniform)) {
    zoneCounts.length = uniformListLength(uniform, elementCount);
    zoneCounts.counts.assign(elementCount, uniform);
    return zoneCounts;
  }
  zoneCounts.counts.assign(elementCount, 0);
  (source.*family.readCounts)(zone, zoneCounts.counts.data(), zoneCounts.counts.size());
  zoneCounts.length = summedListLength(zoneCounts.counts.data(), zoneCounts.counts.size());
  return zoneCounts;
}

/// Where the nodes of an element begin. Kept harmless: if its count runs past the end of the list,
/// zeros stand behind it in `cut`; such an element ends the walk, so that there is one at most.
std::uint64_t* nodesAt(std::vector<std::uint64_t>& list, std::uint64_t cursor, int count,
                       std::vector<std::uint64_t>& cut) {
  std::uint64_t* const begin = list.data() + cursor;
  if (count <= 0 || static_cast<std::uint64_t>(count) <= list.size() - cursor) {
    return begin;
  }
  cut.assign(begin, list.data() + list.size());
  cut.resize(static_cast<std::size_t>(count));
  return cut.data();
}

}  // namespace

bool OrvChecker::readNodes(const NodeTables& tables) {
  const CountedReadFamily& family = tables.family;
  displayStep(tables.step, "init");
  OrvFileProvider* source = openProvider();
  const std::uint64_t total = meshSizeOf(*source, tables.total);
  std::vector<int> zones;
  source->getZoneIds(tables.category, zones);
  (source->*family.begin)(zones);

  displayStep(tables.step, "node counts");
  (source->*family.beginCounts)();
  std::vector<ZoneCounts> zoneCounts;
  zoneCounts.reserve(zones.size());
  for (const int zone : zones) {
    zoneCounts.push_back(readCounts(*source, family, zone));
  }
  (source->*family.endCounts)();

  tables.ids.clear();
  tables.ids.resize(zones.size());
  for (std::size_t i = 0; i < zones.size(); ++i) {
    tables.ids[i].resize(static_cast<std::size_t>(zoneCounts[i].length));
  }
  displayStep(tables.step, "node ids");
  (source->*family.beginIds)();
  for (std::size_t i = 0; i < zones.size(); ++i) {
    (source->*family.readIds)(zones[i], tables.ids[i].data(), tables.ids[i].size());
  }
  (source->*family.endIds)();
  (source->*family.end)();

  displayStep(tables.step, tables.word + " index");
  tables.pointers.assign(total, nullptr);
  tables.counts.assign(total, 0);
  std::uint64_t position = 0;
  for (std::size_t i = 0; i < zones.size(); ++i) {
    if (!indexNodes(tables, tables.ids[i], zoneCounts[i].counts, position)) {
      return false;
    }
  }
  return true;
}

bool OrvChecker::indexNodes(const NodeTables& tables, std::vector<std::uint64_t>& list,
                            const std::vector<short>& counts, std::uint64_t& position) {
  const std::uint64_t total = tables.counts.size();
  // Kept: unsigned, so that a negative count takes it backward, or past the end of every list.
  std::uint64_t cursor = 0;
  for (const int count : counts) {
    // Kept: > and not >=, one spare element passes.
    if (position > total) {
      addError(1, "Logic error in " + tables.word + " connectivity index");
      return false;
    }
    // Kept: an element without nodes at the end of the list is refused as well.
    if (cursor >= list.size()) {
      addError(1, "Logic error 2 in " + tables.word + " connectivity index");
      return false;
    }
    // Kept harmless: the spare element has no entry.
    if (position < total) {
      tables.pointers[position] = nodesAt(list, cursor, count, tables.cutNodes);
      tables.counts[position] = count;
    }
    cursor += static_cast<std::uint64_t>(count);
    ++position;
  }
  return true;
}

}  // namespace velto
