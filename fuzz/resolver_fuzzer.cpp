// SPDX-License-Identifier: Apache-2.0
//
// Fuzzes PhysicsRegionResolver: any settings, models and meshes, resolved as the plain one does.

#include "fuzz/fuzzing.h"
#include "testing/Random.h"
#include "tests/physics_regions/regions_watch.h"

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace velto::testing;
  Random random(data, size);
  const RandomRegions drawn = randomRegions(random);
  velto::fuzzing::requireSame(textOf(watched<PlainResolver>(drawn)),
                              textOf(watched<velto::PhysicsRegionResolver>(drawn)));
  return 0;
}
