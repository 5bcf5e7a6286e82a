// SPDX-License-Identifier: Apache-2.0
//
// What it costs to resolve physics regions, by regions and by the size of the location model, in
// regions per second. Beside it stand the reading of the regions from the settings, a query of each
// region, and one bare lookup in the model for each.

#include <benchmark/benchmark.h>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "velto/PhysicsRegionResolver.h"

#include "data_access/location_models.h"

#include "embedded/memory/LocationModelWriter.h"
#include "embedded/memory/MemoryProvider.h"

namespace {

using namespace velto;

/// Bodies in one part, each with ten face uses and a zone inside. Of the regions a tenth are
/// domains of one body, a tenth subdomains, a twentieth boundaries on a zone inside a body, a
/// twentieth boundaries on a composite, the rest boundaries on two face uses of one body.
class Plant {
 public:
  Plant(int regions, int bodies) : bodies_(bodies) {
    memory::LocationModelWriter model;
    model.part("part");
    for (int body = 0; body < bodies; ++body) {
      addBody(model, body);
    }
    served_->tables.locationModel = model.take();
    for (int region = 0; region < regions; ++region) {
      addRegion(region);
    }
  }

  std::unique_ptr<memory::MemoryProvider> makeProvider() const {
    auto provider = std::make_unique<memory::MemoryProvider>(served_);
    provider->startReading("plant", dataClassCase);
    provider->setMeshId(1);
    provider->setTarget(targetRestart);
    provider->setPartitionId(-1);
    return provider;
  }

 private:
  static constexpr int kUses = 10;          // of a body
  static constexpr int kZones = kUses + 2;  // of a body: cells, inside, around

  static std::string useName(int body, int use) {
    return "wall " + std::to_string(use) + " of " + std::to_string(body);
  }

  int addZone(OrvZoneCategory category, int zone, const std::string& name) {
    base::MeshTables& mesh = served_->mesh();
    mesh.zoneIds[category].push_back(zone);
    mesh.zones[zone].texts[zoneName] = name;
    return zone;
  }

  void addBody(memory::LocationModelWriter& model, int body) {
    const std::string number = std::to_string(body);
    const int zone = body * kZones + 1;
    const int cells = addZone(zoneCategoryCell, zone, "cells " + number);
    const int inside = addZone(zoneCategoryFace, zone + 1, "inside " + number);
    const int id = model.body("body " + number, {cells, inside});
    std::vector<int> uses;
    for (int use = 0; use < kUses; ++use) {
      const int wall = addZone(zoneCategoryFace, zone + 2 + use, useName(body, use));
      uses.push_back(
          model.use(id, model.face("face " + useName(body, use)), 0, {wall}, useName(body, use)));
    }
    model.composite({"hull " + number, {}, {}, uses});
  }

  void addRegion(int region) {
    const int body = region % bodies_;
    const std::string number = std::to_string(body);
    const std::string name = "region " + std::to_string(region);
    switch (region % 20) {
      case 0:
      case 1:
        locate("domains/" + name, "body " + number);
        break;
      case 2:
      case 3:
        locate("subdomains/" + name, "body " + number);
        break;
      case 4:
        locate("boundaries/inside " + std::to_string((region - 4) % bodies_), "inside");
        break;
      case 5:
        locate("boundaries/" + name, "hull " + number);
        break;
      default:
        locate("boundaries/" + name,
               useName(body, region % kUses) + "," + useName(body, (region + 1) % kUses));
    }
  }

  void locate(const std::string& object, const std::string& location) {
    served_->setSetting(object + "/location", location);
  }

  int bodies_;
  std::shared_ptr<memory::Case> served_ = std::make_shared<memory::Case>();
};

std::unique_ptr<memory::MemoryProvider> providerOf(const benchmark::State& state) {
  return Plant(static_cast<int>(state.range(0)), static_cast<int>(state.range(1))).makeProvider();
}

void reportRegions(benchmark::State& state) {
  state.SetItemsProcessed(state.range(0) * static_cast<std::int64_t>(state.iterations()));
}

void resolve(benchmark::State& state) {
  const auto provider = providerOf(state);
  PhysicsRegionResolver resolver(provider.get());
  for ([[maybe_unused]] const auto& iteration : state) {
    if (!resolver.resolveUsing(provider.get())) {
      state.SkipWithError("not resolved");
    }
  }
  reportRegions(state);
}

void readSettings(benchmark::State& state) {
  const auto provider = providerOf(state);
  for ([[maybe_unused]] const auto& iteration : state) {
    const PhysicsRegionResolver resolver(provider.get());
    benchmark::DoNotOptimize(resolver.getErrors().empty());
  }
  reportRegions(state);
}

std::vector<std::string> regionNames(const PhysicsRegionResolver& resolver) {
  std::vector<std::string> names;
  resolver.regionsOfType(names, "");
  return names;
}

void query(benchmark::State& state) {
  const auto provider = providerOf(state);
  PhysicsRegionResolver resolver(provider.get());
  resolver.resolveUsing(provider.get());
  const std::vector<std::string> names = regionNames(resolver);
  std::vector<int> ids;
  for ([[maybe_unused]] const auto& iteration : state) {
    for (const std::string& name : names) {
      resolver.zoneSides(name, ids);
      benchmark::DoNotOptimize(ids.data());
    }
    resolver.clearErrors();
  }
  reportRegions(state);
}

/// For each region the first name of its location, tried as the place of a boundary.
void findOnce(benchmark::State& state) {
  const auto provider = providerOf(state);
  const PhysicsRegionResolver resolver(provider.get());
  const std::vector<std::string> names = regionNames(resolver);
  std::vector<std::string> locations(names.size());
  for (std::size_t i = 0; i < names.size(); ++i) {
    resolver.regionLocation(names[i], locations[i]);
    locations[i] = locations[i].substr(0, locations[i].find(','));
  }
  const OrvLocationModel& model = *provider->getLocationModel();
  std::vector<int> parts;
  model.getParts(parts);
  for ([[maybe_unused]] const auto& iteration : state) {
    for (const std::string& location : locations) {
      benchmark::DoNotOptimize(findPlace(model, parts.front(), location, kSurfacePlaces).id);
    }
  }
  reportRegions(state);
}

void sizes(benchmark::internal::Benchmark* benchmark) {
  benchmark->ArgNames({"regions", "bodies"})
      ->Args({100, 100})
      ->Args({100, 10000})
      ->Args({1000, 10000})
      ->Args({10000, 10000})
      ->Unit(benchmark::kMillisecond);
}

BENCHMARK(resolve)->Apply(sizes);
BENCHMARK(readSettings)->Apply(sizes);
BENCHMARK(query)->Apply(sizes);
BENCHMARK(findOnce)->Apply(sizes);

}  // namespace

BENCHMARK_MAIN();
