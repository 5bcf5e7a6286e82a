// SPDX-License-Identifier: Apache-2.0
//
// How the cost of the zone checks grows with the number of zones: a row of bodies with a periodic
// pair each, 10 to 100,000 zones in all, in zones per second. Beside it stands the same pass
// without any judgement, and one that looks links up by searching plain lists.

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

/// The case of a benchmark's argument, made once.
const testing::cases::CasePtr& caseOf(const benchmark::State& state) {
  static std::map<std::int64_t, testing::cases::CasePtr> made;
  testing::cases::CasePtr& found = made[state.range(0)];
  if (found == nullptr) {
    found = testing::cases::rowOfBodies(static_cast<int>(state.range(0)) / kZonesOfABody);
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

void check(benchmark::State& state) {
  const testing::TestFactory factory = serving(caseOf(state));
  for ([[maybe_unused]] const auto& iteration : state) {
    OrvChecker checker;
    checker.setVerbosity(0);
    if (!checker.checkCase(kFile) || !checker.getWarnings().empty()) {
      state.SkipWithError("the case is not sound");
    }
  }
  reportZones(state);
}

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
BENCHMARK(askWithoutJudging)->Arg(10)->Arg(1000)->Arg(100000)->Unit(benchmark::kMillisecond);
BENCHMARK(askAndSearchPlainLists)->Arg(10)->Arg(1000)->Arg(100000)->Unit(benchmark::kMillisecond);

}  // namespace

BENCHMARK_MAIN();
