// SPDX-License-Identifier: Apache-2.0
//
// RegionTable: the physics regions of a case, and where they were found to lie.

#ifndef VELTO_REGION_TABLE_H
#define VELTO_REGION_TABLE_H

#include <map>
#include <string>
#include <utility>
#include <vector>

#include "velto/export.h"

namespace velto {

/// Kinds of physics regions. The values cross a library boundary and are never renumbered.
enum RegionKind : int {
  regionKindNone = 0,       ///< An unknown word.
  regionKindDomain = 1,     ///< A volume on which equations are solved.
  regionKindBoundary = 2,   ///< A surface around or inside a domain.
  regionKindSubdomain = 3,  ///< A volume within a domain.
  regionKindInterface = 4,  ///< What joins two boundaries.
};

/// What a PhysicsRegionResolver knows. A region is known by its id, a number from 0 on: domains
/// come first, then subdomains, boundaries and interfaces, each kind in the order of the settings.
/// Maps by id hold entries of those regions alone that have something of that sort, and iterate by
/// ascending id.
struct VELTO_EXPORT RegionTable {
  /// @name What the settings say
  /// Stays as it is for the life of a resolver.
  /// @{

  /// The name of every region.
  std::map<int, std::string> regionNames;
  /// In byte order of the names. Of several regions of one name it has the last.
  std::map<std::string, int> regionIds;
  /// The kind of every region.
  std::map<int, RegionKind> regionKinds;
  /// As it stands in the settings: names with commas between them. An interface has none.
  std::map<int, std::string> regionLocations;
  /// The boundaries on side 1 and on side 2 of an interface.
  std::map<int, std::pair<int, int>> interfaceSides;

  /// @}
  /// @name What a location model and a mesh say
  /// Cleared and filled by each resolving.
  /// @{

  /// Before the first resolving: of a domain, the last subdomain or boundary that names it. Then
  /// the other way round: of a subdomain or boundary, the domain that it lies in.
  std::map<int, int> regionDomains;
  /// Face zones inside bodies: of a domain or subdomain those that its bodies take in, of a
  /// boundary those that bear its name.
  std::map<int, std::vector<int>> regionBulkZones;
  /// Bodies of a domain or subdomain, ascending; one that the location names twice stands twice.
  std::map<int, std::vector<int>> regionBodies;
  /// Cell zones of these bodies: those whose cells list their nodes, and all others.
  std::map<int, std::pair<std::vector<int>, std::vector<int>>> regionCellZones;
  /// Face uses of a boundary, in the order of its location.
  std::map<int, std::vector<int>> regionFaceUses;
  /// Zone sides of these face uses; of a domain or subdomain, those around its bodies. +id is side
  /// 0 of face zone id, -id is side 1.
  std::map<int, std::vector<int>> regionZoneSides;

  /// Empties what a resolving fills.
  void clearResolved() {
    regionDomains.clear();
    regionBulkZones.clear();
    regionBodies.clear();
    regionCellZones.clear();
    regionFaceUses.clear();
    regionZoneSides.clear();
  }

  /// @}
};

}  // namespace velto

#endif  // VELTO_REGION_TABLE_H
