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
/// families go together, so that a check at level 1 has nothing to say but that there are several
/// kinds of target, and that a restart mesh has no physics objects; polyhedral zones are in the
/// mesh that is walked first, and only if it is walked once, since a checker keeps the kinds of its
/// last walk. The families list their zones; they hold no values. There is a location model, or one
/// can be built, and where there are physics objects they lie in it.
memory::Case randomSoundCase(Random& random);

/// Does one random thing to a case that a file may have wrong, and tells in a few words what it
/// was: sizes and ranges, lists of zones, names, types, links, relations between zones, families,
/// whole records and meshes, objects of the location model, physics objects. Some of it is
/// harmless. Made of the same draws and the same case, damage is the same.
std::string damage(memory::Case& damaged, Random& random);

}  // namespace velto::testing

#endif  // VELTO_TESTING_RANDOM_CASE_H
