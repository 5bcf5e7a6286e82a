// SPDX-License-Identifier: Apache-2.0
//
// What random physics objects bring about in a resolver, thing by thing.

#ifndef VELTO_TESTS_PHYSICS_REGIONS_REGIONS_REACHED_H
#define VELTO_TESTS_PHYSICS_REGIONS_REGIONS_REACHED_H

#include <set>
#include <string>

#include "tests/physics_regions/random_regions.h"
#include "tests/physics_regions/regions_watch.h"

namespace velto::testing {

/// In words: messages without the names in them, and what a table, a result or the calls show.
using Things = std::set<std::string>;

/// What a run of many cases should bring about.
const Things& thingsToReach();

/// What one case brought about.
Things thingsReached(const RandomRegions& drawn, const Watched& watched);

}  // namespace velto::testing

#endif  // VELTO_TESTS_PHYSICS_REGIONS_REGIONS_REACHED_H
