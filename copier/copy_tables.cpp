// SPDX-License-Identifier: Apache-2.0
//
// Copying of tables: sizes and units of the mesh, ranges, shapes and names of its zones.

#include <string>
#include <vector>

#include "copier/movers.h"

namespace velto {

void copyMeshSize(OrvProvider* provider, OrvConsumer* consumer) {
  for (const OrvMeshSizeType key :
       {meshDimension, meshNodeCount, meshOtherCount, meshFaceCount, meshCellCount}) {
    std::uint64_t value = 0;
    provider->getMeshSize(key, value);
    consumer->setMeshSize(key, value);
  }
}

void copyMeshUnits(OrvProvider* provider, OrvConsumer* consumer) {
  std::string units;
  provider->getMeshUnits(units);
  consumer->setMeshUnits(units);
}

namespace {

void copyCellZoneInfo(OrvProvider& provider, int from, OrvConsumer& consumer, int to) {
  int type = 0;
  provider.getCellZoneInfo(from, cellZoneCellType, type);
  consumer.setCellZoneInfo(to, cellZoneCellType, type);
}

void copyFaceZoneInfo(OrvProvider& provider, int from, OrvConsumer& consumer, int to) {
  for (const OrvFaceZoneInfoType key : {faceZoneFaceType, faceZoneType}) {
    int value = 0;
    provider.getFaceZoneInfo(from, key, value);
    consumer.setFaceZoneInfo(to, key, value);
  }
}

/// Carries the tables of the zones `from[i]` to the zones `to[i]`.
void copyZoneTable(OrvZoneCategory category, OrvProvider* provider, const std::vector<int>& from,
                   OrvConsumer* consumer, const std::vector<int>& to) {
  if (from.size() != to.size()) {
    return;
  }
  for (std::size_t i = 0; i < from.size(); ++i) {
    for (const OrvZoneSizeType key : {zoneFirstId, zoneLastId, zoneDimension}) {
      std::uint64_t value = 0;
      provider->getZoneSizeInfo(from[i], key, value);
      consumer->setZoneSizeInfo(to[i], key, value);
    }
    if (category == zoneCategoryCell) {
      copyCellZoneInfo(*provider, from[i], *consumer, to[i]);
    } else if (category == zoneCategoryFace) {
      copyFaceZoneInfo(*provider, from[i], *consumer, to[i]);
    }
    std::string name;
    provider->getZoneStringInfo(from[i], zoneName, name);
    consumer->setZoneStringInfo(to[i], zoneName, name);
  }
}

}  // namespace

// Kept: element counts, links between zones and zone properties stay behind.
void copyZoneTopology(OrvProvider* provider, OrvConsumer* consumer, ZoneMap& zoneMap) {
  for (const OrvZoneCategory category : {zoneCategoryNode, zoneCategoryFace, zoneCategoryCell}) {
    std::vector<int> sourceIds;
    provider->getZoneIds(category, sourceIds);
    std::vector<int> destinationIds;
    for (const int zone : sourceIds) {
      destinationIds.push_back(zone);
      zoneMap[zone] = destinationIds.back();
    }
    consumer->setZoneIds(category, destinationIds);
    copyZoneTable(category, provider, sourceIds, consumer, destinationIds);
  }
}

}  // namespace velto
