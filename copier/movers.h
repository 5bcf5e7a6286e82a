// SPDX-License-Identifier: Apache-2.0
//
// The movers of a copy: each carries one kind of data, zone by zone, for the zones of a map.

#ifndef VELTO_COPIER_MOVERS_H
#define VELTO_COPIER_MOVERS_H

#include <map>

#include "data_access/OrvConsumer.h"
#include "data_access/OrvProvider.h"
#include "data_access/ZoneBuffer.h"

namespace velto {

/// Source zone id to destination zone id, over the zones of all categories.
using ZoneMap = std::map<int, int>;

/// From where to where data are carried, and for which zones.
struct Route {
  OrvProvider& source;
  OrvConsumer& destination;
  const ZoneMap& zoneMap;
  ZoneMemory& memory;
};

// --- copy_tables.cpp: the tables of a mesh and of its zones -------------------------------------

void copyMeshSize(OrvProvider* provider, OrvConsumer* consumer);
void copyMeshUnits(OrvProvider* provider, OrvConsumer* consumer);

/// Carries the tables of all zones, which enter the map under their own ids.
void copyZoneTopology(OrvProvider* provider, OrvConsumer* consumer, ZoneMap& zoneMap);

// --- copy_connectivity.cpp: what cells and faces are made of ------------------------------------

void copyCellNodes(const Route& route);
void copyCellTypes(const Route& route);
void copyCellPartitions(const Route& route);
void copyFaceNodes(const Route& route);

/// The cells on side 0 of the faces, then those on side 1.
void copyFaceParents(const Route& route);

}  // namespace velto

#endif  // VELTO_COPIER_MOVERS_H
