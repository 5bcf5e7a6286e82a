// SPDX-License-Identifier: Apache-2.0
//
// Copying of the node mesh: coordinates of all node zones.

#include <algorithm>
#include <iostream>
#include <set>
#include <vector>

#include "velto/OrvCopier.h"

#include "data_access/ZoneBuffer.h"
#include "data_access/sizes.h"

#include "copier/MappedZones.h"
#include "copier/movers.h"

namespace velto {

namespace {

/// Whether a zone's values fit its number of nodes; where the table has no dimension, one is found
/// that does.
void judgeDelivered(int zone, std::uint64_t count, std::uint64_t dimension,
                    std::uint64_t delivered) {
  if (dimension == 0) {
    // Kept: integer division, so that a value or two too many are told by the last warning.
    if (delivered / 3 == count) {
      dimension = 3;
    } else if (delivered / 2 == count) {
      dimension = 2;
    } else {
      std::cerr << "Warning: Unable to read coordinates for node zone '" << zone << "'"
                << std::endl;
      return;
    }
    std::cerr << "Warning: Assuming zone '" << zone << "' has dimension " << dimension << std::endl;
  }
  if (dimension * count != delivered) {
    std::cerr << "Warning: Inconsistent size for node zone '" << zone << "'" << std::endl;
  }
}

void copyCoordinatesOfZone(const Route& route, int from, int to) {
  const std::uint64_t count = zoneSizeOf(route.source, from, zoneElementCount);
  const std::uint64_t dimension = zoneSizeOf(route.source, from, zoneDimension);
  ZoneBuffer<double> values(route.memory, count * (dimension == 0 ? 3 : dimension));
  const std::size_t delivered =
      route.source.readNodeCoordinates(from, values.data(), values.size());
  judgeDelivered(from, count, dimension, delivered);
  // Harmless: a claim of more values than there was room for is not followed.
  route.destination.writeNodeCoordinates(to, values.data(), std::min(delivered, values.size()));
}

}  // namespace

void OrvCopier::copyNodeCoordinates(ZoneMemory& memory) {
  std::vector<int> listed;
  source->beginNodeCoordinates(listed);
  if (!listed.empty()) {
    std::vector<int> nodeZones;
    source->getZoneIds(zoneCategoryNode, nodeZones);
    const MappedZones carried(listed, zoneMap);
    const std::set<int> withCoordinates(carried.source.begin(), carried.source.end());

    const Route route = {*source, *destination, zoneMap, memory};
    destination->beginNodes(nodeZones);
    copyElemIds(zoneCategoryNode);
    destination->beginNodeCoordinates(nodeZones);
    for (const int zone : nodeZones) {
      const auto mapped = zoneMap.find(zone);
      if (mapped == zoneMap.end()) {
        continue;  // it has no id in the destination, and no values
      }
      if (withCoordinates.count(zone) != 0) {
        copyCoordinatesOfZone(route, zone, mapped->second);
      } else {
        destination->writeNodeCoordinates(mapped->second, nullptr, 0);
      }
    }
    destination->endNodeCoordinates();
    destination->endNodes();
  }
  source->endNodeCoordinates();
}

}  // namespace velto
