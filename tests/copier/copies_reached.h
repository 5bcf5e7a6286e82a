// SPDX-License-Identifier: Apache-2.0
//
// What random copies bring about, thing by thing.

#ifndef VELTO_TESTS_COPIER_COPIES_REACHED_H
#define VELTO_TESTS_COPIER_COPIES_REACHED_H

#include <functional>
#include <string>
#include <vector>

#include "testing/call_text.h"
#include "tests/copier/random_copies.h"

namespace velto::testing {

struct Thing {
  std::string name;
  /// Whether a run brought it about.
  std::function<bool(const RandomCopies& drawn, const Transcript& calls)> isReached;
};

using Things = std::vector<Thing>;

/// What many runs should bring about.
Things thingsToReach();

/// Takes off what a run brought about.
void dropReached(const RandomCopies& drawn, const Transcript& calls, Things& missing);

std::vector<std::string> namesOf(const Things& things);

}  // namespace velto::testing

#endif  // VELTO_TESTS_COPIER_COPIES_REACHED_H
