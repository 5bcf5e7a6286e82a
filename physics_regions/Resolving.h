// SPDX-License-Identifier: Apache-2.0
//
// PhysicsRegionResolver::Resolving: what one resolving works with.

#ifndef VELTO_PHYSICS_REGIONS_RESOLVING_H
#define VELTO_PHYSICS_REGIONS_RESOLVING_H

#include <initializer_list>
#include <map>
#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

#include "velto/PhysicsRegionResolver.h"

#include "data_access/OrvProvider.h"
#include "data_access/location_models.h"

namespace velto {

/// Fills the resolved half of a table, which has been cleared. Operations that can fail answer
/// false, and the resolving ends with the first of them.
class PhysicsRegionResolver::Resolving {
 public:
  /// `parts` are those of the model, in its order.
  Resolving(RegionTable& table, const OrvLocationModel& model, std::vector<int> parts,
            OrvProvider& mesh)
      : table_(table), model_(model), parts_(std::move(parts)), mesh_(mesh) {}

  bool run();

 private:
  enum class CellZoneGroup { listsNodes, other };

  /// A region that has a location.
  struct Region {
    int id;
    RegionKind kind;
    const std::string& name;
    const std::string& location;
  };

  bool groupCellZones();
  std::vector<Region> regionsOf(std::initializer_list<RegionKind> kinds) const;

  // What a location names
  bool lookUp(const Region& region, std::vector<int>& ids);
  void addMembers(int composite, RegionKind kind, std::vector<int>& ids) const;
  void joinBulkZone(const Region& boundary);

  // Domains and subdomains
  bool resolveVolume(const Region& region);
  void addBodyZones(const Region& region, int body, std::vector<int>& bulk);
  void addBodyBoundary(const Region& region, int body);
  void nameBulkZones(const std::vector<int>& bulk);
  void joinDomain(const Region& subdomain);

  // Boundaries
  bool resolveBoundary(const Region& region);
  void addZoneSides(int faceUse, std::vector<int>& sides) const;

  RegionTable& table_;
  const OrvLocationModel& model_;
  std::vector<int> parts_;
  OrvProvider& mesh_;

  std::unordered_map<int, CellZoneGroup> cellZones_;
  std::map<int, int> domainByBody_;
  std::map<int, int> domainByFaceUse_;
  /// The domain or subdomain that met a bulk zone last.
  std::map<int, int> regionByBulkZone_;
  /// The last bulk zone of each name.
  std::map<std::string, int> bulkZoneByName_;
};

}  // namespace velto

#endif  // VELTO_PHYSICS_REGIONS_RESOLVING_H
