// SPDX-License-Identifier: Apache-2.0
//
// RegionSummary: the physics regions of a case as the resolver tells of them, with what each name
// of a location was found to be.

#ifndef VELTO_ORV_REGION_SUMMARY_H
#define VELTO_ORV_REGION_SUMMARY_H

#include <array>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "data_access/fwd.h"
#include "data_access/location_models.h"

#include "orv/ModelSummary.h"

namespace velto::orv {

/// A kind of regions in words; the settings have the objects of a kind below the plural.
struct KindOfRegion {
  std::string_view one;
  std::string_view more;
};

inline constexpr KindOfRegion kDomain = {"domain", "domains"};
inline constexpr KindOfRegion kSubdomain = {"subdomain", "subdomains"};
inline constexpr KindOfRegion kBoundary = {"boundary", "boundaries"};
inline constexpr KindOfRegion kInterface = {"interface", "interfaces"};
inline constexpr std::array<KindOfRegion, 4> kKindsOfRegion = {kDomain, kSubdomain, kBoundary,
                                                               kInterface};

/// A name in a location: the first part that knows it has the word.
struct NameInLocation {
  std::string name;
  Place place;   ///< Of kind `none` if no part knows the name.
  int part = 0;  ///< Of the place.
};

/// What the resolver has no entry for is not there, which is not the same as an empty list.
struct Region {
  std::string kind;
  std::string name;
  std::string location;  ///< Empty for an interface.
  std::vector<NameInLocation> names;
  std::string statedDomain;  ///< As the settings have it.
  std::optional<std::string> domain;
  std::vector<std::string> boundaries;  ///< Of a domain.
  std::optional<std::vector<int>> bodies;
  std::optional<std::vector<int>> cellNodeZones;  ///< Whose cells list their nodes.
  std::optional<std::vector<int>> otherCellZones;
  std::optional<std::vector<int>> faceUses;
  std::optional<std::vector<int>> bulkZones;
  std::optional<std::vector<int>> zoneSides;
  std::array<std::string, 2> sides;  ///< The boundaries of an interface.
};

/// Something about a physics object that somebody should know.
struct Finding {
  enum class About {
    object,    ///< The object as a whole.
    place,     ///< A name of its location, which comes to nothing.
    resolving  ///< Why no region could be resolved; such a name, or nothing about an object.
  };

  bool isError = false;
  About about = About::object;
  std::string name;  ///< Of the object, empty if it is not about one.
  std::string text;
};

struct RegionSummary {
  ModelSummary model;  ///< Its errors tell as well why nothing could be resolved.
  bool isResolved = false;
  /// Kind by kind, each in the order of the settings.
  std::vector<Region> regions;
  std::vector<Finding> findings;
  /// Of what the model mentions, to tell a name of a zone from one of an object: zones by name, the
  /// first body that lists a zone, the first face use on one of its sides.
  std::unordered_map<std::string, int> zonesByName;
  std::unordered_map<int, int> bodiesByZone;
  std::unordered_map<int, int> faceUsesByZone;
};

/// Reads the regions of an open case and looks them up in the mesh that is selected on `provider`
/// and in a model. Moves the summary of the model.
RegionSummary readRegions(OrvFileProvider& provider, ModelOfCase& model);

/// Whether a region lies in volumes, as domains and subdomains do.
inline bool isVolume(const Region& region) {
  return region.kind == kDomain.one || region.kind == kSubdomain.one;
}

/// What can stand in its location.
inline const PlaceOrder& placesFor(const Region& region) {
  return isVolume(region) ? kVolumePlaces : kSurfacePlaces;
}

/// Whether a name of a location has come to something.
bool counts(const RegionSummary& summary, const Region& region, const NameInLocation& name);

}  // namespace velto::orv

#endif  // VELTO_ORV_REGION_SUMMARY_H
