// SPDX-License-Identifier: Apache-2.0
//
// Random location models and physics objects of a case, and damage to them.

#ifndef VELTO_TESTING_RANDOM_MODEL_H
#define VELTO_TESTING_RANDOM_MODEL_H

#include <memory>
#include <string>

#include "data_access/OrvLocationModel.h"

#include "embedded/memory/Case.h"
#include "testing/Random.h"

namespace velto::testing {

/// A location model of one or two parts: bodies, face uses and composites, some without a place in
/// some mesh, that refer to zones of the restart meshes as they should.
std::shared_ptr<const OrvLocationModel> randomModel(const base::CaseTables& tables, Random& random);

/// Gives a case of restart meshes such a model, always if none can be built from its zones and else
/// sometimes; a case without restart mesh may get one without parts.
void addSoundModel(memory::Case& made, Random& random);

/// Settings of physics objects that lie where every restart mesh has something, or of none.
void addSoundPhysics(memory::Case& made, Random& random);

/// One random thing done to the location model, or to the settings, of a case; each tells in a few
/// words what it was.
std::string damageModel(memory::Case& damaged, Random& random);
std::string damageSettings(memory::Case& damaged, Random& random);

/// One thing done to the location model that no file can hold: lists of a part that lack an object
/// or have a wrong one, bodies of one name, uses without relative name.
std::string confuseModel(memory::Case& damaged, Random& random);

}  // namespace velto::testing

#endif  // VELTO_TESTING_RANDOM_MODEL_H
