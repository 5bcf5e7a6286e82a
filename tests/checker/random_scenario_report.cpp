// SPDX-License-Identifier: Apache-2.0
//
// Random scenarios: the least that still makes a difference, and a text that shows it.

#include <algorithm>
#include <cstddef>
#include <sstream>

#include "tests/checker/random_scenario.h"

namespace velto::testing {

namespace {

// --- Texts --------------------------------------------------------------------------------------

void addLines(Texts& lines, const std::string& what, const Texts& more) {
  for (const std::string& line : more) {
    lines.push_back(what + line);
  }
}

void addLines(Texts& lines, const std::string& what, const std::string& stream) {
  std::istringstream text(stream);
  for (std::string line; std::getline(text, line);) {
    lines.push_back(what + line + (text.eof() ? " (no line end)" : ""));
  }
}

Texts linesOf(const std::vector<Judgement>& judgements) {
  Texts lines;
  int number = 0;
  for (const Judgement& judgement : judgements) {
    const std::string run = "run " + std::to_string(++number) + " ";
    addLines(lines, run + "call     ", judgement.calls);
    addLines(lines, run + "out      ", judgement.out);
    addLines(lines, run + "err      ", judgement.err);
    addLines(lines, run + "error    ", judgement.errors);
    addLines(lines, run + "warning  ", judgement.warnings);
    lines.push_back(run + "result   " + (judgement.good ? "true" : "false"));
    lines.push_back(run + "cut      " + (judgement.isCut ? "true" : "false"));
    lines.push_back(run + "mode     " + std::to_string(judgement.cellsFromFacesMode));
    lines.push_back(run + "kinds    " + base::argumentText(judgement.cellZoneConnectivityTypes));
    const NodeLists& nodes = judgement.nodeLists;
    for (const auto& list : nodes.faceNodeIds) {
      lines.push_back(run + "face ids " + base::argumentText(list));
    }
    lines.push_back(run + "of faces " + base::argumentText(nodes.faceNodeCounts));
    for (const auto& list : nodes.cellNodeIds) {
      lines.push_back(run + "cell ids " + base::argumentText(list));
    }
    lines.push_back(run + "of cells " + base::argumentText(nodes.cellNodeCounts));
  }
  return lines;
}

template <class Value>
void describeOption(std::ostream& out, const char* name, const std::optional<Value>& value) {
  if (value) {
    out << ", " << name << " " << base::argumentText(*value);
  }
}

void describe(std::ostream& out, const ScenarioRun& run) {
  const char* const files[] = {"a case", "a missing file", "a file without format",
                               "a file that is refused"};
  out << files[static_cast<std::size_t>(run.file)];
  describeOption(out, "verbosity", run.verbosity);
  describeOption(out, "check level", run.checkLevel);
  describeOption(out, "mesh", run.meshId);
  describeOption(out, "partition", run.partitionId);
  describeOption(out, "target", run.target);
  out << (run.noLM ? ", without location model" : "");
  out << "\n";
  Texts steps;
  const cases::CasePtr served = makeCase(run, &steps);
  ScriptedProvider provider(served);
  misbehaveAsIn(run, provider, *served, &steps);
  LocationModelScript script;
  refuseAsIn(run, script, &steps);
  for (const std::string& step : steps) {
    out << "  " << step << "\n";
  }
}

// --- Shrinking ----------------------------------------------------------------------------------

template <class Value>
std::vector<std::vector<Value>> withoutOne(const std::vector<Value>& list) {
  std::vector<std::vector<Value>> shorter;
  for (std::size_t i = 0; i < list.size(); ++i) {
    shorter.push_back(list);
    shorter.back().erase(shorter.back().begin() + static_cast<std::ptrdiff_t>(i));
  }
  return shorter;
}

/// The scenarios that leave one thing out.
std::vector<Scenario> smaller(const Scenario& scenario) {
  std::vector<Scenario> all;
  if (scenario.size() > 1) {
    all = withoutOne(scenario);
  }
  for (std::size_t i = 0; i < scenario.size(); ++i) {
    for (const auto seeds : {&ScenarioRun::damageSeeds, &ScenarioRun::confusionSeeds,
                             &ScenarioRun::misbehaviourSeeds, &ScenarioRun::refusalSeeds}) {
      for (const auto& fewer : withoutOne(scenario[i].*seeds)) {
        all.push_back(scenario);
        all.back()[i].*seeds = fewer;
      }
    }
  }
  return all;
}

}  // namespace

Scenario shrunk(Scenario scenario) {
  while (true) {
    const std::vector<Scenario> candidates = smaller(scenario);
    const auto found = std::find_if(candidates.begin(), candidates.end(), isJudgedDifferently);
    if (found == candidates.end()) {
      return scenario;
    }
    scenario = *found;
  }
}

std::string describeDifference(const Scenario& scenario) {
  std::ostringstream out;
  for (const ScenarioRun& run : scenario) {
    describe(out, run);
  }
  const Texts expected = linesOf(judgePlainly(scenario));
  const Texts found = linesOf(judge(scenario));
  std::size_t at = 0;
  while (at < std::min(expected.size(), found.size()) && expected[at] == found[at]) {
    ++at;
  }
  for (std::size_t line = at < 5 ? 0 : at - 5; line < at; ++line) {
    out << "  both     " << expected[line] << "\n";
  }
  out << "  expected " << (at < expected.size() ? expected[at] : "the end") << "\n"
      << "  found    " << (at < found.size() ? found[at] : "the end") << "\n";
  return out.str();
}

}  // namespace velto::testing
