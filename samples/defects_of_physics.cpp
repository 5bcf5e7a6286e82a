// SPDX-License-Identifier: Apache-2.0
//
// Defects of the physics objects in the settings: missing, incomplete, in places that are not
// there.

#include "samples/defect_lists.h"

namespace velto::samples {

const std::vector<Defect>& defectsOfPhysics() {
  static const std::vector<Defect> kDefects = {
      {"no-physics", "The case has a mesh and no settings.", "box", false,
       "checkPhysicsToMeshMapUsingTopologyModel : No Physics Model - skipped",
       [](memory::Case& damaged) { damaged.tables.settings.clear(); }},
      {"no-location", "A boundary does not say where it lies.", "physics", false,
       "checkBoundary : inflow' ORV physics model doesn't include required 'location' setting.",
       [](memory::Case& damaged) {
         damaged.tables.defaultSettings().remove("boundaries/inflow/location");
       }},
      {"no-domain", "A subdomain does not say to which domain it belongs.", "physics", false,
       "checkSubdomain : heating' ORV physics model doesn't include optional 'domain' setting.",
       [](memory::Case& damaged) {
         damaged.tables.defaultSettings().remove("subdomains/heating/domain");
       }},
      {"wrong-location", "A domain spells the name of its body with a capital letter.", "physics",
       true,
       "checkDomain : The attribute 'location' of 'water' references locations that don't exist in the location model.",
       [](memory::Case& damaged) { damaged.setSetting("domains/water/location", "Channel"); }},
  };
  return kDefects;
}

}  // namespace velto::samples
