// SPDX-License-Identifier: Apache-2.0
//
// Random misbehaviour of a ScriptedProvider: messages out of the blue, and answers that change.

#ifndef VELTO_TESTING_RANDOM_SCRIPT_H
#define VELTO_TESTING_RANDOM_SCRIPT_H

#include <string>

#include "embedded/memory/Case.h"
#include "testing/Random.h"
#include "testing/ScriptedProvider.h"

namespace velto::testing {

/// Makes a provider of `served` do one random thing while it is read, and tells in a few words what
/// it will be: it posts warnings and errors at some call, answers a list or its version otherwise,
/// changes its tables, or moves the selection. Two providers of the same case that get the same
/// draws misbehave in the same way. The calls are those of a checker.
std::string misbehave(ScriptedProvider& provider, const memory::Case& served, Random& random);

}  // namespace velto::testing

#endif  // VELTO_TESTING_RANDOM_SCRIPT_H
