// SPDX-License-Identifier: Apache-2.0
//
// How the cost of a check at level 1 grows with the number of zones: a row of bodies with a
// periodic pair each, 10 to 100,000 zones in all, in zones per second; with and without the
// location model, which is built, and the physics objects on it. Beside it stand the zone checks
// without any judgement, and with links looked up by searching plain lists.

#include <algorithm>
#include <benchmark/benchmark.h>
#include <cstdint>
#include <list>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "velto/OrvChecker.h"

#include "data_access/OrvFactory.h"
#include "data_access/OrvFileProvider.h"

#include "embedded/memory/MemoryProvider.h"
#include "testing/TestFactory.h"
#include "testing/cases.h"

namespace {

using namespace velto;

constexpr const char* kFile = "/dev/null";  // any file that can be opened
constexpr int kZonesOfABody = 5;

/// A domain for each body, and boundaries of it.
void describePhysics(memory::Case& row, int bodies) {
  for (int body = 1; body <= bodies; ++body) {
    const std::string number = std::to_string(body);
    row.setSetting("domains/body " + number + "/location", "body " + number);
    for (const char* const kind : {"bottom", "top", "sides"}) {
      const std::string name = std::string(kind) + " of " + number;
      row.setSetting("boundaries/" + name + "/location", name);
      row.setSetting("boundaries/" + name + "/domain", "body " + number);
    }
  }
}

/// The case of a benchmark's argument, made once.
const testing::cases::CasePtr& caseOf(const benchmark::State& state) {
  static std::map<std::int64_t, testing::cases::CasePtr> made;
  testing::cases::CasePtr& found = made[state.range(0)];
  if (found == nullptr) {
    const int bodies = static_cast<int>(state.range(0)) / kZonesOfABody;
    found = testing::cases::rowOfBodies(bodies);
    describePhysics(*found, bodies);
  }
  return found;
}

testing::TestFactory serving(const testing::cases::CasePtr& served) {
  return testing::TestFactory(
      [served](const std::string&) { return new memory::MemoryProvider(served); });
}

void reportZones(benchmark::State& state) {
  state.SetItemsProcessed(state.range(0) * static_cast<std::int64_t>(state.iterations()));
}

void checkCases(benchmark::State& state, bool noLocationModel) {
  const testing::TestFactory factory = serving(caseOf(state));
  for ([[maybe_unused]] const auto& iteration : state) {
    OrvChecker checker;
    checker.setVerbosity(0);
    checker.setNoLM(noLocationModel);
    if (!checker.checkCase(kFile) || !checker.getWarnings().empty()) {
      state.SkipWithError("the case is not sound");
    }
  }
  reportZones(state);
}

void check(benchmark::State& state) { checkCases(state, false); }
void checkZonesOnly(benchmark::State& state) { checkCases(state, true); }

/// Zones as the checker asks for them; `look` sees each link and the list that it has to be in.
template <class Look>
void askAll(OrvProvider& source, const Look& look) {
  const auto idsOf = [&](OrvZoneCategory category) {
    std::vector<int> ids;
    source.getZoneIds(category, ids);
    return ids;
  };
  const std::vector<int> nodeZones = idsOf(zoneCategoryNode);
  const std::vector<int> faceZones = idsOf(zoneCategoryFace);
  const std::vector<int> cellZones = idsOf(zoneCategoryCell);
  const auto askRelation = [&](void (OrvBase::*query)(int, std::list<int>&), int zone,
                               const std::vector<int>& known) {
    std::list<int> related;
    (source.*query)(zone, related);
    benchmark::DoNotOptimize(source.hasWarning() || source.hasError());
    for (const int other : related) {
      look(other, known);
    }
  };
  for (const int zone : cellZones) {
    askRelation(&OrvBase::getCellFaceZoneIds, zone, faceZones);
  }
  for (const int zone : faceZones) {
    askRelation(&OrvBase::getFaceCellZone0Ids, zone, cellZones);
    askRelation(&OrvBase::getFaceCellZone1Ids, zone, cellZones);
  }
  std::uint64_t size = 0;
  std::string text;
  int info = 0;
  for (const std::vector<int>* zones : {&nodeZones, &faceZones, &cellZones}) {
    for (const int zone : *zones) {
      for (const OrvZoneSizeType key : {zoneFirstId, zoneLastId, zoneElementCount}) {
        source.getZoneSizeInfo(zone, key, size);
      }
      source.getZoneStringInfo(zone, zoneName, text);
    }
  }
  for (const int zone : faceZones) {
    source.getZoneSizeInfo(zone, zoneDimension, size);
    source.getZoneStringInfo(zone, zoneName, text);
    source.getZoneStringInfo(zone, zoneTypeName, text);
    for (const OrvFaceZoneInfoType key :
         {faceZoneFaceType, faceZoneType, faceZoneChild, faceZoneParent0, faceZoneParent1}) {
      source.getFaceZoneInfo(zone, key, info);
    }
    int shadow = 0;
    source.getFaceZoneInfo(zone, faceZoneShadow, shadow);
    if (shadow != 0) {
      look(shadow, faceZones);
      source.getFaceZoneInfo(shadow, faceZoneShadow, info);
    }
  }
  for (const int zone : cellZones) {
    source.getZoneSizeInfo(zone, zoneDimension, size);
    source.getZoneStringInfo(zone, zoneName, text);
    source.getZoneStringInfo(zone, zoneName, text);
    source.getCellZoneInfo(zone, cellZoneCellType, info);
    source.getCellZoneInfo(zone, cellZoneChild, info);
  }
}

template <class Look>
void askOnly(benchmark::State& state, const Look& look) {
  const testing::TestFactory factory = serving(caseOf(state));
  for ([[maybe_unused]] const auto& iteration : state) {
    const std::unique_ptr<OrvFileIO> file(getDataProvider(kFile));
    auto* source = dynamic_cast<OrvFileProvider*>(file.get());
    source->startReading(kFile, dataClassCase);
    source->setMeshId(1);
    source->setTarget(targetRestart);
    source->setPartitionId(-1);
    askAll(*source, look);
  }
  reportZones(state);
}

void askWithoutJudging(benchmark::State& state) {
  askOnly(state, [](int zone, const std::vector<int>&) { benchmark::DoNotOptimize(zone); });
}

void askAndSearchPlainLists(benchmark::State& state) {
  askOnly(state, [](int zone, const std::vector<int>& known) {
    benchmark::DoNotOptimize(std::find(known.begin(), known.end(), zone));
  });
}

BENCHMARK(check)->Arg(10)->Arg(1000)->Arg(100000)->Unit(benchmark::kMillisecond);
BENCHMARK(checkZonesOnly)->Arg(10)->Arg(1000)->Arg(100000)->Unit(benchmark::kMillisecond);
BENCHMARK(askWithoutJudging)->Arg(10)->Arg(1000)->Arg(100000)->Unit(benchmark::kMillisecond);
BENCHMARK(askAndSearchPlainLists)->Arg(10)->Arg(1000)->Arg(100000)->Unit(benchmark::kMillisecond);

}  // namespace

BENCHMARK_MAIN();
