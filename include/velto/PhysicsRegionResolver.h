// SPDX-License-Identifier: Apache-2.0
//
// PhysicsRegionResolver: tells where the named physics objects of a case lie.

#ifndef VELTO_PHYSICS_REGION_RESOLVER_H
#define VELTO_PHYSICS_REGION_RESOLVER_H

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "velto/RegionTable.h"
#include "velto/export.h"

#include "data_access/fwd.h"

namespace velto {

/// Answers, for the domains, subdomains, boundaries and interfaces of a case's settings, which
/// bodies, face uses, cell zones and zone sides they come to.
///
///     velto::PhysicsRegionResolver resolver(provider);   // names and locations
///     if (resolver.resolveUsing(provider)) {             // looks them up
///       std::vector<int> sides;
///       if (resolver.zoneSides("inlet", sides)) { ... }
///     }
///
/// A location is a text of names with commas between them. Of domains and subdomains each name is
/// a body or a composite of bodies, of boundaries a face use or a composite of face uses; a
/// boundary inside a body bears the name of its face zone. A name that no part of the location
/// model knows counts for nothing.
///
///     kind         settings below                  comes to
///     domain       domains/<name>/                 bodies, cell zones, bulk zones, zone sides
///     subdomain    subdomains/<name>/              the same, and a domain
///     boundary     boundaries/<name>/              face uses, zone sides, a domain; or a bulk zone
///     interface    interfaces/<name>/              the boundaries on its two sides
///
/// An object without location, or an interface without two boundaries, is no region; OrvChecker is
/// what complains of it. Of several objects of one name the one that is read last answers to it;
/// domains are read first, then subdomains, boundaries and interfaces.
///
/// Queries empty their output first and answer false, with the reason among the errors, where there
/// is nothing. A resolver serves one thread at a time, queries included: they add to the errors.
class VELTO_EXPORT PhysicsRegionResolver {
 public:
  /// Reads names and locations from the settings of the case; `provider` is not kept. Without a
  /// provider there are no regions.
  explicit PhysicsRegionResolver(const OrvProvider* provider);
  PhysicsRegionResolver(const PhysicsRegionResolver&) = delete;
  PhysicsRegionResolver& operator=(const PhysicsRegionResolver&) = delete;
  ~PhysicsRegionResolver();

  /// @name Resolving
  /// @{

  /// Looks up all locations in a location model, and the zones of what they name in the mesh,
  /// target and partition that are selected on `provider`. Can be called again, with another model
  /// or mesh; each time starts afresh.
  ///
  /// False, with an error, if there is no mesh or no model with parts: what was resolved before
  /// stays. False and nothing resolved if a location names something of the wrong sort, such as a
  /// body as the place of a boundary, which a line on standard error tells; or if cells of a zone
  /// that is no cell zone of the mesh list nodes.
  ///
  /// REQUIRES: no family of bulk reads is open on `provider`, whose list of zones with cell nodes
  /// is asked for. Time goes with the names in the locations, and with the bodies, face uses and
  /// zones that they come to.
  bool resolveUsing(const OrvLocationModel* model, const OrvProvider* provider);

  /// The same with the location model of `modelSource`. A case that has none needs one that
  /// LocationModelBuilder made.
  bool resolveUsing(const OrvProvider* modelSource, const OrvProvider* provider);

  /// The same with the location model of the case itself.
  bool resolveUsing(const OrvProvider* provider);

  /// @}
  /// @name What a region comes to; after resolving
  /// @{

  /// Bodies of a domain or subdomain, ascending.
  bool bodies(const std::string& region, std::vector<int>& bodyIds) const;

  /// Face uses of a boundary, in the order of its location.
  bool faceUses(const std::string& region, std::vector<int>& faceUseIds) const;

  /// Face zones inside bodies: that a domain or subdomain takes in, or that a boundary lies on.
  bool bulkZones(const std::string& region, std::vector<int>& zoneIds) const;

  /// Sides of face zones that bound a domain or subdomain, or that a boundary consists of: +id is
  /// side 0 of face zone id, -id is side 1.
  bool zoneSides(const std::string& region, std::vector<int>& sides) const;

  /// Cell zones of a domain or subdomain: those whose cells list their nodes, and all others.
  bool cellZones(const std::string& region, std::vector<int>& cellNodeZones,
                 std::vector<int>& otherZones) const;

  /// The domain that a subdomain or boundary lies in; of a boundary inside a body the subdomain, if
  /// that takes the body in as well. Before resolving, of a domain, the last subdomain or boundary
  /// that names it.
  bool bounding(const std::string& region, std::string& domain) const;

  /// The boundaries of a domain, in the order of the settings; false without an error if there are
  /// none. Before resolving there are none, unless objects share names.
  bool boundedBy(const std::string& region, std::vector<std::string>& boundaries) const;

  /// @}
  /// @name What the settings say; at once
  /// @{

  /// The location of a domain, subdomain or boundary, as it stands in the settings.
  bool regionLocation(const std::string& region, std::string& location) const;

  /// The boundary on a side of an interface: `side` 0 is "boundariesSide1", 1 is "boundariesSide2".
  /// Any other side gives false without an error.
  bool sideOf(const std::string& region, unsigned short side, std::string& boundary) const;

  /// Whether a region is of a type: "domain", "boundary", "subdomain" or "interface".
  bool regionIsOfType(const std::string& region, const std::string& type) const;

  /// The names of all regions of a type, or of all with an empty `type`, in byte order. False if
  /// the case has no regions at all or there is no such type.
  bool regionsOfType(std::vector<std::string>& regions, std::string type) const;

  /// @}
  /// @name Errors
  /// @{

  /// The errors of queries and of resolving, oldest first. The reference stays valid as long as the
  /// resolver does.
  const std::vector<std::string>& getErrors() const;
  /// Empties the list; regions stay as they are.
  void clearErrors() const;

  /// @}

 private:
  class Resolving;

  void addError(const std::string& message) const;

  // region_queries.cpp
  bool fail(const std::string& message) const;
  std::optional<int> findRegion(const std::string& region) const;

  mutable std::vector<std::string> errors;
  std::unique_ptr<RegionTable> table;
};

}  // namespace velto

#endif  // VELTO_PHYSICS_REGION_RESOLVER_H
