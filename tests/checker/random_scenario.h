// SPDX-License-Identifier: Apache-2.0
//
// Random scenarios: a few runs of one checker over random cases, and how checkers judge them.

#ifndef VELTO_TESTS_CHECKER_RANDOM_SCENARIO_H
#define VELTO_TESTS_CHECKER_RANDOM_SCENARIO_H

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "testing/Random.h"
#include "testing/ScriptedLocationModel.h"
#include "tests/checker/CheckerFixture.h"

namespace velto::testing {

/// What checkCase finds behind a file name.
enum class FileKind { isCase, isMissing, hasNoFormat, isRefused };

/// One call of checkCase. All that is random about its case comes from seeds, one for each step, so
/// that steps can be left out. An option that is not there stays as it was.
struct ScenarioRun {
  FileKind file = FileKind::isCase;
  std::uint64_t caseSeed = 0;
  std::vector<std::uint8_t> caseBytes;  // the case is drawn from these if there are any
  std::vector<std::uint64_t> damageSeeds;
  std::vector<std::uint64_t> confusionSeeds;  // what is done to the location model after that
  std::vector<std::uint64_t> misbehaviourSeeds;
  std::vector<std::uint64_t> refusalSeeds;  // of location models
  bool noLM = false;                        // always set, unlike the options below
  std::optional<int> verbosity;
  std::optional<int> checkLevel;
  std::optional<int> meshId;
  std::optional<int> partitionId;
  std::optional<std::string> target;
};

using Scenario = std::vector<ScenarioRun>;

Scenario randomScenario(Random& random);
Scenario randomScenario(std::uint64_t seed);

/// The case of a run, and what its provider does; `steps` gets a line for each damage and each
/// misbehaviour, unless it is null.
cases::CasePtr makeCase(const ScenarioRun& run, Texts* steps = nullptr);
void misbehaveAsIn(const ScenarioRun& run, ScriptedProvider& provider, const memory::Case& served,
                   Texts* steps = nullptr);
void refuseAsIn(const ScenarioRun& run, LocationModelScript& script, Texts* steps = nullptr);

/// The nodes of faces and cells as the deep checks keep them: a list for each zone, and a count for
/// each element of the mesh.
struct NodeLists {
  std::vector<std::vector<std::uint64_t>> faceNodeIds;
  std::vector<int> faceNodeCounts;
  std::vector<std::vector<std::uint64_t>> cellNodeIds;
  std::vector<int> cellNodeCounts;

  friend bool operator==(const NodeLists& a, const NodeLists& b) {
    return a.faceNodeIds == b.faceNodeIds && a.faceNodeCounts == b.faceNodeCounts &&
           a.cellNodeIds == b.cellNodeIds && a.cellNodeCounts == b.cellNodeCounts;
  }
};

/// What a run gave, with the calls that it took and what it leaves for the next. Calls on location
/// models stand among those on the provider; left out are the queries that a build may make in any
/// number.
struct Judgement : CheckResult {
  Transcript calls;
  std::vector<int> cellZoneConnectivityTypes;
  int cellsFromFacesMode = 0;
  NodeLists nodeLists;  // none of a run that was cut short
  bool isCut = false;   // there was no room for what the case claims, or it was too large to try

  friend bool operator==(const Judgement& a, const Judgement& b) {
    return a.good == b.good && a.errors == b.errors && a.warnings == b.warnings && a.out == b.out &&
           a.err == b.err && a.calls == b.calls && a.cellsFromFacesMode == b.cellsFromFacesMode &&
           a.cellZoneConnectivityTypes == b.cellZoneConnectivityTypes &&
           a.nodeLists == b.nodeLists && a.isCut == b.isCut;
  }
};

/// The judgements of the runs, in their order: of OrvChecker, and of PlainChecker. A run that is
/// cut short is the last. Its calls, or those of the last run, end with those of the checker's end.
std::vector<Judgement> judge(const Scenario& scenario);
std::vector<Judgement> judgePlainly(const Scenario& scenario);

/// True if the two do not judge alike.
bool isJudgedDifferently(const Scenario& scenario);

/// The scenario without whatever a difference does not need.
Scenario shrunk(Scenario scenario);

/// What is done in a scenario, line by line, and the first line in which the two judge it
/// differently, with a few before it.
std::string describeDifference(const Scenario& scenario);

}  // namespace velto::testing

#endif  // VELTO_TESTS_CHECKER_RANDOM_SCENARIO_H
