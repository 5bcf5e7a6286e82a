// SPDX-License-Identifier: Apache-2.0
//
// Changes to the location model and to the settings of a case, for tests that damage one thing.

#ifndef VELTO_TESTING_CASE_EDITS_H
#define VELTO_TESTING_CASE_EDITS_H

#include <functional>
#include <string>

#include "embedded/base/OrvLocationModelState.h"
#include "embedded/memory/Case.h"

namespace velto::testing {

/// Puts a changed copy in the place of the case's location model; of an empty one if it has none.
void changeModel(memory::Case& changed,
                 const std::function<void(OrvLocationModel::State&)>& change);

/// Removes an entry and all that stands below it.
void removeSetting(memory::Case& changed, const std::string& path);

}  // namespace velto::testing

#endif  // VELTO_TESTING_CASE_EDITS_H
