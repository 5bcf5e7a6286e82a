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

#include "copier/MappedZones.h"
#include "copier/ZoneBuffer.h"
#include "copier/movers.h"
#include "copier/write_families.h"

namespace velto {

namespace {

// --- Counted families ---------------------------------------------------------------------------

/// The length of each zone's list, by source zone id.
using ListLengths = std::map<int, std::int64_t>;

/// Copies the counts of a zone, and gives the length of its list.
std::int64_t copyCounts(OrvProvider& provider, OrvConsumer& consumer,
                        const CountedWriteFamily& family, int from, int to,
                        std::uint64_t elementCount) {
  short uniform = 0;
  if ((provider.*family.read.getUniformCount)(from, uniform)) {
    (consumer.*family.writeUniformCount)(family.uniformCountUnderSourceId ? from : to, uniform);
    return uniformListLength(uniform, elementCount);
  }
  ZoneBuffer<short> counts(elementCount);
  (provider.*family.read.readCounts)(from, counts.data(), counts.size());
  (consumer.*family.writeCounts)(to, counts.data(), counts.size());
  return summedListLength(counts.data(), counts.size());
}

void copyList(OrvProvider& provider, OrvConsumer& consumer, const CountedWriteFamily& family,
              int from, int to, std::int64_t length) {
  ZoneBuffer<std::uint64_t> ids(static_cast<std::size_t>(length));
  (provider.*family.read.readIds)(from, ids.data(), ids.size());
  (consumer.*family.writeIds)(to, ids.data(), ids.size());
}

/// Copies the family of the zones, which the source has open.
void copyCountedZones(OrvProvider& provider, OrvConsumer& consumer,
                      const CountedWriteFamily& family, const MappedZones& zones) {
  (consumer.*family.begin)(zones.destination);
  (provider.*family.read.beginCounts)();
  (consumer.*family.beginCounts)();
  ListLengths lengths;
  for (std::size_t i = 0; i < zones.size(); ++i) {
    const std::uint64_t elementCount = elementCountOf(provider, zones.source[i]);
    if (elementCount != 0) {
      lengths[zones.source[i]] = copyCounts(provider, consumer, family, zones.source[i],
                                            zones.destination[i], elementCount);
    }
  }
  (provider.*family.read.endCounts)();
  (consumer.*family.endCounts)();

  (provider.*family.read.beginIds)();
  (consumer.*family.beginIds)();
  for (std::size_t i = 0; i < zones.size(); ++i) {
    copyList(provider, consumer, family, zones.source[i], zones.destination[i],
             lengths[zones.source[i]]);
  }
  (provider.*family.read.endIds)();
  (consumer.*family.endIds)();
  (consumer.*family.end)();
}

void copyCounted(OrvProvider& provider, OrvConsumer& consumer, const CountedWriteFamily& family,
                 const ZoneMap& zoneMap) {
  std::vector<int> listed;
  (provider.*family.read.begin)(listed);
  if (!listed.empty()) {
    copyCountedZones(provider, consumer, family, MappedZones(listed, zoneMap));
  }
  (provider.*family.read.end)();
}

// --- Cell types ---------------------------------------------------------------------------------

void copyTypesOfZone(OrvProvider& provider, OrvConsumer& consumer, int from, int to) {
  const std::uint64_t count = elementCountOf(provider, from);
  if (count == 0) {
    return;
  }
  ZoneBuffer<int> types(count);
  if (provider.readCellTypes(from, types.data(), types.size()) != count) {
    std::cerr << "Warning: Inconsistent cell type size for zone '" << from << "'" << std::endl;
    return;
  }
  consumer.writeCellTypes(to, types.data(), types.size());
}

void copyTypesOfZones(OrvProvider& provider, OrvConsumer& consumer, const std::vector<int>& listed,
                      const ZoneMap& zoneMap) {
  // Kept: types have the positions of the whole list, also where zones were left out of it.
  std::vector<int> uniformTypes(listed.size(), 0);
  for (std::size_t i = 0; i < listed.size(); ++i) {
    int type = 0;
    if (zoneMap.count(listed[i]) != 0 && provider.getUniformCellType(listed[i], type)) {
      uniformTypes[i] = type;
    }
  }
  const MappedZones zones(listed, zoneMap);
  consumer.beginCellTypes(zones.destination, uniformTypes);
  // Harmless: the shorter list ends the loop.
  for (std::size_t i = 0; i < zones.size(); ++i) {
    if (uniformTypes[i] == 0) {
      copyTypesOfZone(provider, consumer, zones.source[i], zones.destination[i]);
    }
  }
  consumer.endCellTypes();
}

// --- Cell partitions ----------------------------------------------------------------------------

void copyPartitionsOfZones(OrvProvider& provider, OrvConsumer& consumer, const MappedZones& zones) {
  std::vector<int> info;
  for (const int zone : zones.source) {
    info.push_back(provider.getCellPartitionInfo(zone));
  }
  // Kept: what the first zone says goes for all of them.
  consumer.beginCellPartitions(zones.destination, info.empty() ? 0 : info.front());
  for (std::size_t i = 0; i < zones.size(); ++i) {
    ZoneBuffer<int> partitions(elementCountOf(provider, zones.source[i]));
    provider.readCellPartitions(zones.source[i], partitions.data(), partitions.size());
    consumer.writeCellPartitions(zones.destination[i], partitions.data(), partitions.size());
  }
  consumer.endCellPartitions();
}

// --- Cells beside the faces ---------------------------------------------------------------------

void copySideOfZones(OrvProvider& provider, OrvConsumer& consumer, const SideFamily& side,
                     const MappedZones& zones) {
  (consumer.*side.begin)(zones.destination);
  for (std::size_t i = 0; i < zones.size(); ++i) {
    const std::uint64_t count = elementCountOf(provider, zones.source[i]);
    if (count != 0) {
      ZoneBuffer<std::uint64_t> cells(count);
      (provider.*side.readCells)(zones.source[i], cells.data(), cells.size());
      (consumer.*side.writeCells)(zones.destination[i], cells.data(), cells.size());
    }
  }
  (consumer.*side.end)();
}

}  // namespace

void copyCellNodes(OrvProvider* provider, OrvConsumer* consumer, const ZoneMap& zoneMap) {
  copyCounted(*provider, *consumer, kWriteCellNodes, zoneMap);
}

void copyFaceNodes(OrvProvider* provider, OrvConsumer* consumer, const ZoneMap& zoneMap) {
  copyCounted(*provider, *consumer, kWriteFaceNodes, zoneMap);
}

void copyCellTypes(OrvProvider* provider, OrvConsumer* consumer, const ZoneMap& zoneMap) {
  std::vector<int> listed;
  provider->beginCellTypes(listed);
  if (!listed.empty()) {
    copyTypesOfZones(*provider, *consumer, listed, zoneMap);
  }
  provider->endCellTypes();
}

void copyCellPartitions(OrvProvider* provider, OrvConsumer* consumer, const ZoneMap& zoneMap) {
  std::vector<int> listed;
  provider->beginCellPartitions(listed);
  if (!listed.empty()) {
    copyPartitionsOfZones(*provider, *consumer, MappedZones(listed, zoneMap));
  }
  provider->endCellPartitions();
}

void copyFaceParents(OrvProvider* provider, OrvConsumer* consumer, const ZoneMap& zoneMap) {
  for (const SideFamily& side : kSides) {
    std::vector<int> listed;
    (provider->*side.read.begin)(listed);
    if (!listed.empty()) {
      copySideOfZones(*provider, *consumer, side, MappedZones(listed, zoneMap));
    }
    (provider->*side.read.end)();
  }
}

}  // namespace velto
