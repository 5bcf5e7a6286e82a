// SPDX-License-Identifier: Apache-2.0
//
// MappedZones: the zones of a family that a copy carries, under their ids on both sides.

#ifndef VELTO_COPIER_MAPPED_ZONES_H
#define VELTO_COPIER_MAPPED_ZONES_H

#include <cstddef>
#include <map>
#include <vector>

namespace velto {

/// Position i of both lists speaks of one zone. Zones that the map lacks are left out.
struct MappedZones {
  MappedZones(const std::vector<int>& listed, const std::map<int, int>& zoneMap) {
    for (const int zone : listed) {
      const auto mapped = zoneMap.find(zone);
      if (mapped != zoneMap.end()) {
        source.push_back(zone);
        destination.push_back(mapped->second);
      }
    }
  }

  std::size_t size() const { return source.size(); }

  std::vector<int> source;
  std::vector<int> destination;
};

}  // namespace velto

#endif  // VELTO_COPIER_MAPPED_ZONES_H
