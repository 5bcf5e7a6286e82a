// SPDX-License-Identifier: Apache-2.0
//
// PhysicsRegionResolver: its errors, and the regions that the settings describe.
//
//   kind          below         needs                                takes
//   domain        domains       location
//   subdomain     subdomains    location                             domain
//   boundary      boundaries    location                             domain
//   interface     interfaces    boundariesSide1, boundariesSide2
//
// The kinds are read in this order, so that the names which one refers to are known by then. What
// lacks something that it needs is no region and takes no id.

#include "velto/PhysicsRegionResolver.h"

#include "data_access/OrvProvider.h"

namespace velto {

namespace {

/// Enters the regions of one case into a table.
class RegionReader {
 public:
  RegionReader(const OrvProvider& provider, RegionTable& table)
      : provider_(provider), table_(table) {}

  void read() {
    readLocated("domains", regionKindDomain);
    readLocated("subdomains", regionKindSubdomain);
    readLocated("boundaries", regionKindBoundary);
    readInterfaces();
  }

 private:
  std::vector<std::string> namesOf(const std::string& kind) const {
    return provider_.getSettings(dataClassCase, kind, 1);
  }

  std::string valueOf(const std::string& kind, const std::string& name,
                      const char* attribute) const {
    return provider_.getSettings(dataClassCase, kind + "/" + name + "/" + attribute, 1).asString();
  }

  void readLocated(const std::string& objects, RegionKind kind) {
    for (const std::string& name : namesOf(objects)) {
      const std::string location = valueOf(objects, name, "location");
      if (location.empty()) {
        continue;
      }
      const int id = enter(name, kind);
      table_.regionLocations[id] = location;
      if (kind != regionKindDomain) {
        tellDomain(valueOf(objects, name, "domain"), id);
      }
    }
  }

  void tellDomain(const std::string& name, int region) {
    const std::optional<int> domain = find(name, regionKindDomain);
    if (!name.empty() && domain) {
      // Kept: the key is the domain until the first resolving, and the last region that names it
      // stays.
      table_.regionDomains[*domain] = region;
    }
  }

  void readInterfaces() {
    for (const std::string& name : namesOf("interfaces")) {
      const std::string name1 = valueOf("interfaces", name, "boundariesSide1");
      const std::string name2 = valueOf("interfaces", name, "boundariesSide2");
      if (name1.empty() || name2.empty()) {
        continue;
      }
      const std::optional<int> side1 = find(name1, regionKindBoundary);
      const std::optional<int> side2 = find(name2, regionKindBoundary);
      if (side1 && side2) {
        table_.interfaceSides[enter(name, regionKindInterface)] = {*side1, *side2};
      }
    }
  }

  int enter(const std::string& name, RegionKind kind) {
    table_.regionIds[name] = nextId_;
    table_.regionNames[nextId_] = name;
    table_.regionKinds[nextId_] = kind;
    return nextId_++;
  }

  std::optional<int> find(const std::string& name, RegionKind kind) const {
    const auto found = table_.regionIds.find(name);
    return found != table_.regionIds.end() && table_.regionKinds.at(found->second) == kind
               ? std::optional<int>(found->second)
               : std::nullopt;
  }

  const OrvProvider& provider_;
  RegionTable& table_;
  int nextId_ = 0;
};

}  // namespace

PhysicsRegionResolver::PhysicsRegionResolver(const OrvProvider* provider)
    : table(std::make_unique<RegionTable>()) {
  if (provider != nullptr) {
    RegionReader(*provider, *table).read();
  }
}

PhysicsRegionResolver::~PhysicsRegionResolver() = default;

const std::vector<std::string>& PhysicsRegionResolver::getErrors() const { return errors; }

void PhysicsRegionResolver::clearErrors() const { errors.clear(); }

void PhysicsRegionResolver::addError(const std::string& message) const {
  errors.push_back(message);
}

}  // namespace velto
