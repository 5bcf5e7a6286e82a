// SPDX-License-Identifier: Apache-2.0
//
// What it costs to build a location model, by cell zones and face zones, in face zones per second.
// Beside it stand one pass over the same tables, and the two lists of each face zone read again for
// each cell zone without anything made of them.

#include <benchmark/benchmark.h>
#include <cstdint>
#include <list>
#include <memory>
#include <string>
#include <vector>

#include "velto/LocationModelBuilder.h"

#include "data_access/OrvLocationModel.h"

#include "embedded/base/zone_relations.h"
#include "embedded/memory/MemoryProvider.h"

namespace {

using namespace velto;

constexpr int kInlet = 4;  // a type of one-sided zones that stands for nothing in particular

/// A row of bodies of one cell each. Each has its share of the face zones: an interior zone of its
/// own, one to the next body, the rest on its boundary.
class Row {
 public:
  Row(int cellZones, int faceZones) : bodies_(cellZones), zonesOfABody_(faceZones / cellZones) {
    mesh_.sizes[meshDimension] = 3;
    for (int body = 0; body < bodies_; ++body) {
      addBody(body);
    }
    base::deriveBoundingFaceZones(mesh_);
  }

  std::unique_ptr<memory::MemoryProvider> makeProvider() const {
    auto served = std::make_shared<memory::Case>();
    served->mesh() = mesh_;
    auto provider = std::make_unique<memory::MemoryProvider>(served);
    provider->startReading("row", dataClassCase);
    provider->setMeshId(1);
    provider->setTarget(targetRestart);
    provider->setPartitionId(-1);
    return provider;
  }

 private:
  int cellZone(int body) const { return bodies_ * zonesOfABody_ + 1 + body; }

  void addBody(int body) {
    const std::string name = std::to_string(body);
    base::ZoneRecord& cells = addZone(zoneCategoryCell, cellZone(body), "body " + name);
    cells.cellInfo[cellZoneChild] = 0;
    for (int i = 0; i < zonesOfABody_; ++i) {
      const int zone = body * zonesOfABody_ + 1 + i;
      const bool isToNext = i == 1 && body + 1 < bodies_;
      base::ZoneRecord& faces =
          addZone(zoneCategoryFace, zone, "faces " + std::to_string(i) + " of " + name);
      faces.faceInfo[faceZoneType] = i == 0     ? static_cast<int>(faceZoneTypeInterior)
                                     : isToNext ? static_cast<int>(faceZoneType14)
                                                : kInlet;
      faces.sideCellZones[0] = {cellZone(body)};
      if (i == 0 || isToNext) {
        faces.sideCellZones[1] = {cellZone(i == 0 ? body : body + 1)};
      }
    }
  }

  base::ZoneRecord& addZone(OrvZoneCategory category, int zone, const std::string& name) {
    std::vector<int>& listed = mesh_.zoneIds[category];
    listed.push_back(zone);
    base::ZoneRecord& record = mesh_.zones[zone];
    record.sizes[zoneFirstId] = record.sizes[zoneLastId] = listed.size();
    record.sizes[zoneElementCount] = 1;
    record.texts[zoneName] = name;
    return record;
  }

  int bodies_;
  int zonesOfABody_;
  base::MeshTables mesh_;
};

std::unique_ptr<memory::MemoryProvider> providerOf(const benchmark::State& state) {
  return Row(static_cast<int>(state.range(0)), static_cast<int>(state.range(1))).makeProvider();
}

void reportZones(benchmark::State& state) {
  state.SetItemsProcessed(state.range(1) * static_cast<std::int64_t>(state.iterations()));
}

void build(benchmark::State& state) {
  const auto provider = providerOf(state);
  for ([[maybe_unused]] const auto& iteration : state) {
    OrvLocationModel model;
    const LocationModelBuilder builder;
    if (!builder.build(provider.get(), &model)) {
      state.SkipWithError(builder.getErrors().front().c_str());
    }
  }
  reportZones(state);
}

std::vector<int> zonesOf(OrvBase& source, OrvZoneCategory category) {
  std::vector<int> ids;
  source.getZoneIds(category, ids);
  return ids;
}

void askForSides(OrvBase& source, int faceZone) {
  std::list<int> cellZones;
  source.getFaceCellZone0Ids(faceZone, cellZones);
  benchmark::DoNotOptimize(cellZones.empty());
  std::list<int> others;
  source.getFaceCellZone1Ids(faceZone, others);
  benchmark::DoNotOptimize(others.empty());
}

void askEachZoneOnce(benchmark::State& state) {
  const auto provider = providerOf(state);
  for ([[maybe_unused]] const auto& iteration : state) {
    for (const int zone : zonesOf(*provider, zoneCategoryFace)) {
      askForSides(*provider, zone);
      std::string name;
      provider->getZoneStringInfo(zone, zoneName, name);
      int info = 0;
      for (const OrvFaceZoneInfoType key : {faceZoneChild, faceZoneType, faceZoneShadow}) {
        provider->getFaceZoneInfo(zone, key, info);
      }
      benchmark::DoNotOptimize(info);
    }
  }
  reportZones(state);
}

void askAgainForEachCellZone(benchmark::State& state) {
  const auto provider = providerOf(state);
  const std::vector<int> faceZones = zonesOf(*provider, zoneCategoryFace);
  for ([[maybe_unused]] const auto& iteration : state) {
    for (std::int64_t cellZone = 0; cellZone < state.range(0); ++cellZone) {
      for (const int faceZone : faceZones) {
        askForSides(*provider, faceZone);
      }
    }
  }
  reportZones(state);
}

void sizes(benchmark::internal::Benchmark* benchmark) {
  benchmark->ArgNames({"cellZones", "faceZones"})
      ->Args({10, 100})
      ->Args({100, 1000})
      ->Args({1000, 10000})
      ->Unit(benchmark::kMillisecond);
}

BENCHMARK(build)->Apply(sizes)->Args({10000, 100000});
BENCHMARK(askEachZoneOnce)->Apply(sizes);
BENCHMARK(askAgainForEachCellZone)->Apply(sizes);

}  // namespace

BENCHMARK_MAIN();
