// SPDX-License-Identifier: Apache-2.0
//
// Random tables of zones to build location models from, and models that refuse at random.

#ifndef VELTO_TESTS_LOCATION_MODEL_RANDOM_ZONES_H
#define VELTO_TESTS_LOCATION_MODEL_RANDOM_ZONES_H

#include <cstdint>
#include <vector>

#include "testing/Random.h"
#include "tests/location_model/builder_run.h"

namespace velto::testing {

struct RandomBuild {
  CasePtr served;
  std::vector<ModelRefusal> refusals;

  /// Hands the refusals to the script of a run.
  Preparation preparation() const;
};

/// Up to six cell zones and twelve face zones with names, types, links, children and families that
/// go together or do not. Most builds go through.
RandomBuild randomBuild(Random& random);
RandomBuild randomBuild(std::uint64_t seed);

}  // namespace velto::testing

#endif  // VELTO_TESTS_LOCATION_MODEL_RANDOM_ZONES_H
