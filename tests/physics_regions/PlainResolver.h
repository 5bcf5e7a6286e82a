// SPDX-License-Identifier: Apache-2.0
//
// PlainResolver: how physics regions are resolved, written down as plainly as possible, for
// comparison.

#ifndef VELTO_TESTS_PHYSICS_REGIONS_PLAIN_RESOLVER_H
#define VELTO_TESTS_PHYSICS_REGIONS_PLAIN_RESOLVER_H

#include <string>
#include <vector>

#include "velto/RegionTable.h"

#include "data_access/fwd.h"

namespace velto::testing {

/// The rules of PhysicsRegionResolver a second time, one after the other and without any care for
/// speed.
///
/// What domains and boundaries have in common is written twice, and every list is searched from its
/// start. It stays like that, so that random cases tell when something that the resolver shares or
/// leaves out changes an entry of the table, a message, or a call. It was written from the rules;
/// to take over code of the resolver would take over its mistakes.
class PlainResolver {
 public:
  // As those of PhysicsRegionResolver.
  explicit PlainResolver(const OrvProvider* provider);
  bool resolveUsing(const OrvLocationModel* model, const OrvProvider* provider);
  bool resolveUsing(const OrvProvider* modelSource, const OrvProvider* provider);
  bool resolveUsing(const OrvProvider* provider);
  bool bodies(const std::string& region, std::vector<int>& bodyIds) const;
  bool faceUses(const std::string& region, std::vector<int>& faceUseIds) const;
  bool bulkZones(const std::string& region, std::vector<int>& zoneIds) const;
  bool zoneSides(const std::string& region, std::vector<int>& sides) const;
  bool cellZones(const std::string& region, std::vector<int>& cellNodeZones,
                 std::vector<int>& otherZones) const;
  bool bounding(const std::string& region, std::string& domain) const;
  bool boundedBy(const std::string& region, std::vector<std::string>& boundaries) const;
  bool regionLocation(const std::string& region, std::string& location) const;
  bool sideOf(const std::string& region, unsigned short side, std::string& boundary) const;
  bool regionIsOfType(const std::string& region, const std::string& type) const;
  bool regionsOfType(std::vector<std::string>& regions, const std::string& type) const;
  const std::vector<std::string>& getErrors() const { return errors_; }
  void clearErrors() const { errors_.clear(); }

  const RegionTable& table() const { return table_; }

 private:
  struct Run;

  void readDomains(const OrvProvider& provider, int& nextId);
  void readSubdomains(const OrvProvider& provider, int& nextId);
  void readBoundaries(const OrvProvider& provider, int& nextId);
  void readInterfaces(const OrvProvider& provider, int& nextId);
  void noteDomain(const std::string& domain, int id);
  bool isBoundary(const std::string& name) const;

  void clearResolved();
  bool abandon(const std::string& line);
  bool listZones(Run& run);
  bool resolveVolume(Run& run, int region);
  bool findBodies(Run& run, int region, std::vector<int>& found);
  void takeZones(Run& run, int region, int body, std::vector<int>& bulk);
  void takeBoundary(Run& run, int region, int body);
  void findDomainOfSubdomain(Run& run, int region);
  bool resolveBoundary(Run& run, int region);
  bool findFaceUses(Run& run, int region, std::vector<int>& found);
  void takeBulkZoneByName(Run& run, int region);

  bool fail(const std::string& message) const;

  // plain_queries.cpp
  bool isKnown(const std::string& region) const;

  mutable std::vector<std::string> errors_;
  RegionTable table_;
};

}  // namespace velto::testing

#endif  // VELTO_TESTS_PHYSICS_REGIONS_PLAIN_RESOLVER_H
