// SPDX-License-Identifier: Apache-2.0
//
// Copying of connectivity: nodes, types and partitions of cells, nodes of faces and the cells on
// both sides.
//
// A family that lists no zone does not reach the destination; it is closed on the source either
// way. The same family is written for the zones of it that are copied, be there any or not.

#include <iostream>
#include <map>
#include <vector>

#include "data_access/ZoneBuffer.h"
#include "data_access/sizes.h"

#include "copier/MappedZones.h"
#include "copier/movers.h"
#include "copier/write_families.h"

namespace velto {

namespace {

// --- Counted families ---------------------------------------------------------------------------

/// The length of each zone's list, by source zone id.
using ListLengths = std::map<int, std::int64_t>;

/// Copies the counts of a zone, and gives the length of its list.
std::int64_t copyCounts(const Route& route, const CountedWriteFamily& family, int from, int to,
                        std::uint64_t elementCount) {
  short uniform = 0;
  if ((route.source.*family.read.getUniformCount)(from, uniform)) {
    (route.destination.*family.writeUniformCount)(family.uniformCountUnderSourceId ? from : to,
                                                  uniform);
    return uniformListLength(uniform, elementCount);
  }
  ZoneBuffer<short> counts(route.memory, elementCount);
  (route.source.*family.read.readCounts)(from, counts.data(), counts.size());
  (route.destination.*family.writeCounts)(to, counts.data(), counts.size());
  return summedListLength(counts.data(), counts.size());
}

void copyList(const Route& route, const CountedWriteFamily& family, int from, int to,
              std::int64_t length) {
  ZoneBuffer<std::uint64_t> ids(route.memory, static_cast<std::size_t>(length));
  (route.source.*family.read.readIds)(from, ids.data(), ids.size());
  (route.destination.*family.writeIds)(to, ids.data(), ids.size());
}

/// Copies the family of the zones, which the source has open.
void copyCountedZones(const Route& route, const CountedWriteFamily& family,
                      const MappedZones& zones) {
  (route.destination.*family.begin)(zones.destination);
  (route.source.*family.read.beginCounts)();
  (route.destination.*family.beginCounts)();
  ListLengths lengths;
  for (std::size_t i = 0; i < zones.size(); ++i) {
    const std::uint64_t elementCount = zoneSizeOf(route.source, zones.source[i], zoneElementCount);
    if (elementCount != 0) {
      lengths[zones.source[i]] =
          copyCounts(route, family, zones.source[i], zones.destination[i], elementCount);
    }
  }
  (route.source.*family.read.endCounts)();
  (route.destination.*family.endCounts)();

  (route.source.*family.read.beginIds)();
  (route.destination.*family.beginIds)();
  for (std::size_t i = 0; i < zones.size(); ++i) {
    copyList(route, family, zones.source[i], zones.destination[i], lengths[zones.source[i]]);
  }
  (route.source.*family.read.endIds)();
  (route.destination.*family.endIds)();
  (route.destination.*family.end)();
}

void copyCounted(const Route& route, const CountedWriteFamily& family) {
  std::vector<int> listed;
  (route.source.*family.read.begin)(listed);
  if (!listed.empty()) {
    copyCountedZones(route, family, MappedZones(listed, route.zoneMap));
  }
  (route.source.*family.read.end)();
}

// --- Cell types ---------------------------------------------------------------------------------

void copyTypesOfZone(const Route& route, int from, int to) {
  const std::uint64_t count = zoneSizeOf(route.source, from, zoneElementCount);
  if (count == 0) {
    return;
  }
  ZoneBuffer<int> types(route.memory, count);
  if (route.source.readCellTypes(from, types.data(), types.size()) != count) {
    std::cerr << "Warning: Inconsistent cell type size for zone '" << from << "'" << std::endl;
    return;
  }
  route.destination.writeCellTypes(to, types.data(), types.size());
}

void copyTypesOfZones(const Route& route, const std::vector<int>& listed) {
  // Kept: types have the positions of the whole list, also where zones were left out of it.
  std::vector<int> uniformTypes(listed.size(), 0);
  for (std::size_t i = 0; i < listed.size(); ++i) {
    int type = 0;
    if (route.zoneMap.count(listed[i]) != 0 && route.source.getUniformCellType(listed[i], type)) {
      uniformTypes[i] = type;
    }
  }
  const MappedZones zones(listed, route.zoneMap);
  route.destination.beginCellTypes(zones.destination, uniformTypes);
  // Harmless: the shorter list ends the loop.
  for (std::size_t i = 0; i < zones.size(); ++i) {
    if (uniformTypes[i] == 0) {
      copyTypesOfZone(route, zones.source[i], zones.destination[i]);
    }
  }
  route.destination.endCellTypes();
}

// --- Cell partitions ----------------------------------------------------------------------------

void copyPartitionsOfZones(const Route& route, const MappedZones& zones) {
  std::vector<int> info;
  for (const int zone : zones.source) {
    info.push_back(route.source.getCellPartitionInfo(zone));
  }
  // Kept: what the first zone says goes for all of them.
  route.destination.beginCellPartitions(zones.destination, info.empty() ? 0 : info.front());
  for (std::size_t i = 0; i < zones.size(); ++i) {
    ZoneBuffer<int> partitions(route.memory,
                               zoneSizeOf(route.source, zones.source[i], zoneElementCount));
    route.source.readCellPartitions(zones.source[i], partitions.data(), partitions.size());
    route.destination.writeCellPartitions(zones.destination[i], partitions.data(),
                                          partitions.size());
  }
  route.destination.endCellPartitions();
}

// --- Cells beside the faces ---------------------------------------------------------------------

void copySideOfZones(const Route& route, const SideWriteFamily& side, const MappedZones& zones) {
  (route.destination.*side.begin)(zones.destination);
  for (std::size_t i = 0; i < zones.size(); ++i) {
    const std::uint64_t count = zoneSizeOf(route.source, zones.source[i], zoneElementCount);
    if (count != 0) {
      ZoneBuffer<std::uint64_t> cells(route.memory, count);
      (route.source.*side.read.readCells)(zones.source[i], cells.data(), cells.size());
      (route.destination.*side.writeCells)(zones.destination[i], cells.data(), cells.size());
    }
  }
  (route.destination.*side.end)();
}

}  // namespace

void copyCellNodes(const Route& route) { copyCounted(route, kWriteCellNodes); }

void copyFaceNodes(const Route& route) { copyCounted(route, kWriteFaceNodes); }

void copyCellTypes(const Route& route) {
  std::vector<int> listed;
  route.source.beginCellTypes(listed);
  if (!listed.empty()) {
    copyTypesOfZones(route, listed);
  }
  route.source.endCellTypes();
}

void copyCellPartitions(const Route& route) {
  std::vector<int> listed;
  route.source.beginCellPartitions(listed);
  if (!listed.empty()) {
    copyPartitionsOfZones(route, MappedZones(listed, route.zoneMap));
  }
  route.source.endCellPartitions();
}

void copyFaceParents(const Route& route) {
  for (const SideWriteFamily& side : kWriteSides) {
    std::vector<int> listed;
    (route.source.*side.read.begin)(listed);
    if (!listed.empty()) {
      copySideOfZones(route, side, MappedZones(listed, route.zoneMap));
    }
    (route.source.*side.read.end)();
  }
}

}  // namespace velto
