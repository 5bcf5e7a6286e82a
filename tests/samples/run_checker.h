// SPDX-License-Identifier: Apache-2.0
//
// Runs the checker over a case that stands nowhere, and keeps what it said.

#ifndef VELTO_TESTS_SAMPLES_RUN_CHECKER_H
#define VELTO_TESTS_SAMPLES_RUN_CHECKER_H

#include <functional>
#include <string>
#include <vector>

#include "data_access/fwd.h"

namespace velto::testing {

using Texts = std::vector<std::string>;

struct Findings {
  bool isSound = false;
  Texts errors;
  Texts warnings;
};

/// What a checker of that level has to say of the case that `makeProvider` serves.
Findings runChecker(const std::function<OrvFileProvider*()>& makeProvider, int level);

}  // namespace velto::testing

#endif  // VELTO_TESTS_SAMPLES_RUN_CHECKER_H
