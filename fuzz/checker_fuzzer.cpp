// SPDX-License-Identifier: Apache-2.0
//
// Fuzzes OrvChecker: random cases, damage and misbehaviour, judged as the plain checker does.

#include <algorithm>

#include "fuzz/fuzzing.h"
#include "testing/Random.h"
#include "tests/checker/random_scenario.h"

namespace velto::testing {
namespace {

/// The first bytes say what is done in which order, the others what the first case is.
constexpr std::size_t kScenarioBytes = 128;

Scenario scenarioOf(const std::uint8_t* data, std::size_t size) {
  const std::size_t first = std::min(size, kScenarioBytes);
  Random random(data, first);
  Scenario scenario = randomScenario(random);
  const std::uint64_t seed = scenario.front().caseSeed;
  for (ScenarioRun& run : scenario) {
    if (run.caseSeed == seed) {
      run.caseBytes.assign(data + first, data + size);
    }
  }
  return scenario;
}

}  // namespace
}  // namespace velto::testing

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const velto::testing::Scenario scenario = velto::testing::scenarioOf(data, size);
  if (isJudgedDifferently(scenario)) {
    velto::fuzzing::found(describeDifference(scenario));
  }
  return 0;
}
