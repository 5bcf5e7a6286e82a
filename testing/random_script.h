// SPDX-License-Identifier: Apache-2.0
//
// Random misbehaviour of a ScriptedProvider: messages out of the blue, and answers that change.

#ifndef VELTO_TESTING_RANDOM_SCRIPT_H
#define VELTO_TESTING_RANDOM_SCRIPT_H

#include <string>

#include "embedded/memory/Case.h"
#include "testing/Random.h"
#include "testing/ScriptedLocationModel.h"
#include "testing/ScriptedProvider.h"

namespace velto::testing {

/// What the walk of a checker does about location models. A build may ask the queries that are not
/// virtual as often as it likes, so nothing hangs on their number where there is one, and what they
/// answer stays the same.
enum class ModelWalk { asksNoModel, asksModel, buildsModel };

/// Makes a provider of `served` do one random thing while it is read, and tells in a few words what
/// it will be: it posts warnings and errors at some call, answers a list, its version or a value of
/// a family otherwise, delivers less than it has, changes its tables, or moves the selection. Two
/// providers of the same case that get the same draws misbehave in the same way. The calls are
/// those of a checker.
std::string misbehave(ScriptedProvider& provider, const memory::Case& served, ModelWalk walk,
                      Random& random);

/// Has location models refuse some call, or deny what they did.
std::string misbehave(LocationModelScript& script, Random& random);

}  // namespace velto::testing

#endif  // VELTO_TESTING_RANDOM_SCRIPT_H
