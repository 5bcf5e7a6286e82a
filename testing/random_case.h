// SPDX-License-Identifier: Apache-2.0
//
// Random small cases: sound ones, and damage to them, for tests, benchmarks and fuzz seeds.

#ifndef VELTO_TESTING_RANDOM_CASE_H
#define VELTO_TESTING_RANDOM_CASE_H

#include <string>

#include "embedded/memory/Case.h"
#include "testing/Random.h"

namespace velto::testing {

/// A case of one to three meshes with restart, post and partitioned post targets, each of up to
/// five node, face and cell zones. Sizes, links, the relation between zones and the lists of the
/// families go together, so that a check has nothing to say but that there are several kinds of
/// target, that a restart mesh has no physics objects, and that a mesh without cells has no types
/// of them; polyhedral zones are in the mesh that is walked first, and only if it is walked once,
/// since a checker keeps the kinds of its last walk. The families hold values for the zones that
/// they list. There is a location model, or one can be built, and where there are physics objects
/// they lie in it.
memory::Case randomSoundCase(Random& random);

/// What damage and misbehaviour may make of sizes, counts and ranges: anything, or what a walk over
/// all elements and a buffer for each list can stand.
enum class Sizes { any, small };

/// Does one random thing to a case that a file may have wrong, and tells in a few words what it
/// was: sizes and ranges, lists of zones, names, types, links, relations between zones, families
/// and what they hold, whole records and meshes, objects of the location model, physics objects.
/// Some of it is harmless. Made of the same draws and the same case, damage is the same.
std::string damage(memory::Case& damaged, Random& random, Sizes sizes = Sizes::any);

/// True if all sizes, ids and ranges of a case are small, and none of its lists can get a negative
/// length, whatever small size its zone gets.
bool isSmall(const memory::Case& looked);

}  // namespace velto::testing

#endif  // VELTO_TESTING_RANDOM_CASE_H
