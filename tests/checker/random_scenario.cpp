// SPDX-License-Identifier: Apache-2.0
//
// Random scenarios: drawn, and run with both checkers.

#include "tests/checker/random_scenario.h"

#include <limits>
#include <memory>
#include <new>
#include <set>
#include <stdexcept>
#include <utility>

#include "embedded/base/OrvBaseState.h"
#include "embedded/base/OrvLocationModelState.h"
#include "testing/capture.h"
#include "testing/random_case.h"
#include "testing/random_model.h"
#include "testing/random_script.h"
#include "tests/checker/PlainChecker.h"
#include "tests/checker/checker_access.h"

namespace velto::testing {

namespace {

using Limits = std::numeric_limits<int>;

std::vector<std::uint64_t> randomSeeds(std::size_t count, Random& random) {
  std::vector<std::uint64_t> seeds(count);
  for (std::uint64_t& seed : seeds) {
    seed = random.next();
  }
  return seeds;
}

/// The first run has a verbosity of its own, later ones mostly that of the run before.
void drawOptions(ScenarioRun& run, bool isFirst, Random& random) {
  if (isFirst || random.chance(30)) {
    run.verbosity = random.pick<int>({0, 1, 1, 2, 2, 3, 3, 4, -1, Limits::min(), Limits::max()});
  }
  if (random.chance(isFirst ? 60 : 20)) {
    run.checkLevel = random.pick<int>({2, 2, 2, 2, 2, 2, 2, 2, 3, Limits::max()});
  } else if (random.chance(6)) {
    run.checkLevel = random.pick<int>({-1, 0, 0, 1, Limits::min()});
  }
  if (random.chance(6)) {
    run.meshId = random.between(-2, 4);
  }
  if (random.chance(6)) {
    run.partitionId = random.between(-2, 3);
  }
  if (random.chance(8)) {
    run.target = random.pick<std::string>({"restart", "post", "ppost", "Restart", "", "post "});
  }
}

const std::string& readableFile() {
  static const TemporaryFile kFile;
  return kFile.path();
}

std::string missingFile() { return ::testing::TempDir() + "velto_checker_no_such_file"; }

/// Takes the steps that seeds stand for, and writes them down unless `steps` is null.
template <class Step>
void takeSteps(const std::vector<std::uint64_t>& seeds, Texts* steps, const Step& step) {
  for (const std::uint64_t seed : seeds) {
    Random ofStep(seed);
    const std::string text = step(ofStep);
    if (steps != nullptr) {
      steps->push_back(text);
    }
  }
}

/// Calls without the queries that a build may make in any number: between the question for the
/// model and what comes after the build, and the mesh id up to the end of the check.
Transcript comparable(const Transcript& calls) {
  static const std::set<std::string> kOfABuild = {"getFaceZoneInfo",
                                                  "getCellZoneInfo",
                                                  "getZoneSizeInfo",
                                                  "getZoneStringInfo",
                                                  "getFaceZoneType",
                                                  "getCellFaceZoneIds",
                                                  "getFaceCellZone0Ids",
                                                  "getFaceCellZone1Ids",
                                                  "getFaceZoneProp",
                                                  "getSolverType",
                                                  "getMeshId"};
  Transcript kept;
  bool isInBuild = false;
  bool isInCheck = false;
  for (const std::string& call : calls) {
    const std::string operation = operationOf(call);
    if (operation == "getLocationModel") {
      isInBuild = true;
      isInCheck = true;
    }
    isInBuild = isInBuild && operation != "getSettings" && operation != "hasWarning";
    isInCheck = isInCheck && operation != "hasWarning";
    const bool isLeftOut =
        (isInBuild && kOfABuild.count(operation) > 0) || (isInCheck && operation == "getMeshId");
    if (!isLeftOut) {
      kept.push_back(call);
    }
  }
  return kept;
}

/// What the walk of a run does about location models. What a model refuses may bring a build about.
ModelWalk walkOf(const ScenarioRun& run, const memory::Case& served) {
  if (run.noLM) {
    return ModelWalk::asksNoModel;
  }
  const OrvLocationModel* model = served.tables.locationModel.get();
  const bool hasParts = model != nullptr && !OrvLocationModel::State::of(*model).parts.empty();
  return hasParts && run.refusalSeeds.empty() ? ModelWalk::asksModel : ModelWalk::buildsModel;
}

/// Ends a run with an exception before its deep checks go through more elements than there is time
/// and room for.
class SmallProvider : public ScriptedProvider {
 public:
  using ScriptedProvider::ScriptedProvider;

 protected:
  void onCall(const std::string& call) override {
    ScriptedProvider::onCall(call);
    const std::string operation = operationOf(call);
    if (operation == "beginFaceNodes") {
      isDeep_ = true;
    } else if (operation == "setMeshId") {
      isDeep_ = false;
    }
    if (isDeep_ && asksForTooMuch(operation, call)) {
      throw std::length_error(call);
    }
  }

 private:
  static constexpr std::uint64_t kMost = 300;

  bool asksForTooMuch(const std::string& operation, const std::string& call) {
    const base::CaseCore& core = base::coreOf(*this);
    const auto mesh = core.tables.meshes.find(core.selection);
    if (mesh == core.tables.meshes.end()) {
      return false;
    }
    if (operation == "getMeshSize") {
      const auto& sizes = mesh->second.sizes;
      return call != callText(operation, meshDimension) &&
             call != callText(operation, meshNodeCount) &&
             (sizes[meshFaceCount].value_or(0) > kMost || sizes[meshCellCount].value_or(0) > kMost);
    }
    if (operation != "getZoneSizeInfo") {
      return false;
    }
    const auto& zones = mesh->second.zones;
    const auto zone = zones.find(std::stoi(call.substr(operation.size() + 1)));
    if (zone == zones.end()) {
      return false;
    }
    const auto size = [&](std::size_t key) { return zone->second.sizes[key].value_or(0); };
    if (call == callText(operation, zone->first, zoneElementCount)) {
      return size(zoneElementCount) > kMost;
    }
    return size(zoneLastId) >= size(zoneFirstId) && size(zoneLastId) - size(zoneFirstId) > kMost;
  }

  bool isDeep_ = false;
};

/// The runs of a scenario, what they open, and the calls on that.
class Stage {
 public:
  explicit Stage(const Scenario& scenario) : scenario_(scenario) {}

  /// Runs all of it with a subject that is made with this stage's providers.
  template <class Subject>
  std::vector<Judgement> play() {
    std::vector<Judgement> judgements;
    {
      Subject subject([this](const std::string&) { return makeProvider(); });
      for (const ScenarioRun& run : scenario_) {
        run_ = &run;
        setOptions(subject.checker);
        LocationModelScript script(&calls_);
        refuseAsIn(run, script);
        const bool isMissing = run.file == FileKind::isMissing;
        judgements.push_back(subject.check(isMissing ? missingFile() : readableFile()));
        judgements.back().calls = comparable(calls_);
        calls_.clear();
        if (judgements.back().isCut) {
          break;
        }
      }
    }
    Transcript& last = judgements.back().calls;
    last.insert(last.end(), calls_.begin(), calls_.end());
    return judgements;
  }

 private:
  template <class Checker>
  void setOptions(Checker& checker) const {
    checker.setNoLM(run_->noLM);
    if (run_->verbosity) {
      checker.setVerbosity(*run_->verbosity);
    }
    if (run_->checkLevel) {
      checker.setCheckLevel(*run_->checkLevel);
    }
    if (run_->meshId) {
      checker.setMeshId(*run_->meshId);
    }
    if (run_->partitionId) {
      checker.setPartitionId(*run_->partitionId);
    }
    if (run_->target) {
      checker.setTarget(*run_->target);
    }
  }

  OrvFileProvider* makeProvider() {
    if (run_->file == FileKind::hasNoFormat) {
      return nullptr;
    }
    const cases::CasePtr served = makeCase(*run_);
    const std::string name = "provider " + std::to_string(++made_);
    auto provider = std::make_unique<SmallProvider>(served, &calls_, name);
    if (run_->file == FileKind::isRefused) {
      provider->refuseToRead("no such thing");
    }
    misbehaveAsIn(*run_, *provider, *served);
    return provider.release();
  }

  const Scenario& scenario_;
  const ScenarioRun* run_ = nullptr;
  Transcript calls_;
  int made_ = 0;
};

/// What checkCase answers, and the lists behind it.
template <class Checker>
Judgement judgedBy(Checker& checker, const std::string& fileName) {
  Judgement result;
  try {
    result.good = checker.checkCase(fileName);
  } catch (const std::bad_alloc&) {
    result.isCut = true;
  } catch (const std::length_error&) {
    result.isCut = true;
  }
  result.errors = checker.getErrors();
  result.warnings = checker.getWarnings();
  return result;
}

NodeLists nodeListsOf(OrvChecker& checker) {
  const checker_access::NodeTables faces = checker_access::faceNodeTables(checker);
  const checker_access::NodeTables cells = checker_access::cellNodeTables(checker);
  return {faces.ids, faces.counts, cells.ids, cells.counts};
}

/// Collects what the checker records, as it records it.
class Collector : public CheckListener {
 public:
  void onStep(const CheckPlace& /*place*/, const std::string& /*step*/) override {}
  void onLeftOut(const CheckPlace& /*place*/, const std::string& /*step*/,
                 CheckOmission /*reason*/) override {}

  void onFinding(const CheckPlace& /*place*/, CheckSeverity severity, const std::string& step,
                 const std::string& message) override {
    (severity == CheckSeverity::error ? errors : warnings).push_back(step + " : " + message);
  }

  Texts errors;
  Texts warnings;
};

struct CheckerSubject {
  explicit CheckerSubject(TestFactory::ProviderMaker maker) : factory(std::move(maker)) {
    checker.setListener(&collector);
  }

  Judgement check(const std::string& fileName) {
    const StreamCapture streams;
    Judgement result = judgedBy(checker, fileName);
    EXPECT_EQ(collector.errors, result.errors);
    EXPECT_EQ(collector.warnings, result.warnings);
    result.out = streams.out();
    result.err = streams.err();
    result.cellZoneConnectivityTypes = checker_access::cellZoneConnectivityTypes(checker);
    result.cellsFromFacesMode = checker_access::cellsFromFacesMode(checker);
    if (!result.isCut) {
      result.nodeLists = nodeListsOf(checker);
    }
    return result;
  }

  TestFactory factory;
  Collector collector;
  OrvChecker checker;
};

struct PlainSubject {
  explicit PlainSubject(PlainChecker::ProviderMaker maker) : checker(std::move(maker)) {}

  Judgement check(const std::string& fileName) {
    Judgement result = judgedBy(checker, fileName);
    result.out = checker.takeOut();
    result.err = checker.takeErr();
    result.cellZoneConnectivityTypes = checker.cellZoneConnectivityTypes();
    result.cellsFromFacesMode = checker.cellsFromFacesMode();
    if (!result.isCut) {
      result.nodeLists = {checker.faceNodeIds(), checker.faceNodeCounts(), checker.cellNodeIds(),
                          checker.cellNodeCounts()};
    }
    return result;
  }

  PlainChecker checker;
};

}  // namespace

Scenario randomScenario(Random& random) {
  Scenario scenario(random.chance(65) ? 1 : 2 + random.below(2));
  const std::uint64_t firstSeed = random.next();
  for (ScenarioRun& run : scenario) {
    const bool isFirst = &run == &scenario.front();
    run.caseSeed = isFirst || random.chance(30) ? firstSeed : random.next();
    if (random.chance(scenario.size() == 1 ? 1 : 6)) {
      run.file =
          random.pick<FileKind>({FileKind::isMissing, FileKind::hasNoFormat, FileKind::isRefused});
    }
    run.damageSeeds = randomSeeds(random.pick<std::size_t>({0, 0, 1, 1, 1, 2, 2, 3, 4, 6}), random);
    run.misbehaviourSeeds = randomSeeds(random.chance(60) ? 0 : 1 + random.below(3), random);
    run.confusionSeeds = randomSeeds(random.chance(85) ? 0 : 1 + random.below(2), random);
    run.refusalSeeds = randomSeeds(random.chance(75) ? 0 : 1 + random.below(2), random);
    run.noLM = random.chance(15);
    drawOptions(run, isFirst, random);
  }
  return scenario;
}

Scenario randomScenario(std::uint64_t seed) {
  Random random(seed);
  return randomScenario(random);
}

cases::CasePtr makeCase(const ScenarioRun& run, Texts* steps) {
  Random random = run.caseBytes.empty() ? Random(run.caseSeed)
                                        : Random(run.caseBytes.data(), run.caseBytes.size());
  auto made = std::make_shared<memory::Case>(randomSoundCase(random));
  takeSteps(run.damageSeeds, steps, [&](Random& ofStep) { return damage(*made, ofStep); });
  takeSteps(run.confusionSeeds, steps, [&](Random& ofStep) { return confuseModel(*made, ofStep); });
  return made;
}

void misbehaveAsIn(const ScenarioRun& run, ScriptedProvider& provider, const memory::Case& served,
                   Texts* steps) {
  takeSteps(run.misbehaviourSeeds, steps, [&](Random& ofStep) {
    return misbehave(provider, served, walkOf(run, served), ofStep);
  });
}

void refuseAsIn(const ScenarioRun& run, LocationModelScript& script, Texts* steps) {
  takeSteps(run.refusalSeeds, steps, [&](Random& ofStep) { return misbehave(script, ofStep); });
}

std::vector<Judgement> judge(const Scenario& scenario) {
  return Stage(scenario).play<CheckerSubject>();
}

std::vector<Judgement> judgePlainly(const Scenario& scenario) {
  return Stage(scenario).play<PlainSubject>();
}

bool isJudgedDifferently(const Scenario& scenario) {
  return judgePlainly(scenario) != judge(scenario);
}

}  // namespace velto::testing
