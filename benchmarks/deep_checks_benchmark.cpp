// SPDX-License-Identifier: Apache-2.0
//
// What the deep checks cost over the reading that they cannot do without: boxes of 1 and 8 million
// hexahedra, in memory and in the store. Each check stands beside a pass that makes the same calls
// on the provider and looks at nothing. `peak_MB` is the most that was allocated at a time beyond
// what the provider held before.

#include <algorithm>
#include <atomic>
#include <benchmark/benchmark.h>
#include <cstdint>
#include <cstdlib>
#include <malloc.h>
#include <memory>
#include <new>
#include <string>
#include <vector>

#include "velto/OrvChecker.h"

#include "data_access/OrvFactory.h"
#include "data_access/OrvFileProvider.h"
#include "data_access/families.h"

#include "embedded/memory/MemoryProvider.h"
#include "embedded/memory/load_case.h"
#include "embedded/store/StoreProvider.h"
#include "embedded/store/save_case.h"
#include "samples/samples.h"
#include "testing/TempFolder.h"
#include "testing/TestFactory.h"

// --- Memory -------------------------------------------------------------------------------------

namespace {

std::atomic<std::size_t> allocated{0};
std::atomic<std::size_t> peak{0};

}  // namespace

void* operator new(std::size_t size) {
  void* block = std::malloc(size);
  if (block == nullptr) {
    throw std::bad_alloc();
  }
  const std::size_t now = allocated += malloc_usable_size(block);
  peak = std::max(peak.load(), now);
  return block;
}

void operator delete(void* block) noexcept {
  allocated -= malloc_usable_size(block);
  std::free(block);
}

void operator delete(void* block, std::size_t) noexcept { operator delete(block); }

namespace {

using namespace velto;

// --- Cases --------------------------------------------------------------------------------------

enum Place : std::int64_t { inMemory, inStore };

/// A sample of a size at a place; the last one that was asked for is kept.
class Served {
 public:
  static const Served& of(const std::string& sample, const benchmark::State& state) {
    static std::unique_ptr<Served> last;
    const auto cells = static_cast<std::uint64_t>(state.range(0));
    const auto place = static_cast<Place>(state.range(1));
    if (last == nullptr || last->sample_ != sample || last->cells_ != cells ||
        last->place_ != place) {
      last.reset();
      last = std::make_unique<Served>(sample, cells, place);
    }
    return *last;
  }

  Served(const std::string& sample, std::uint64_t cells, Place place)
      : sample_(sample), cells_(cells), place_(place) {
    const samples::Sample made = samples::findSample(sample)->make(cells);
    if (place == inMemory) {
      case_ = memory::loadCase(made.tables, made.arrays);
    } else {
      store::saveCase(made.tables, made.arrays, file(), 0);
    }
  }

  /// A file that can be opened, whatever it holds.
  std::string file() const {
    return place_ == inMemory ? "/dev/null" : folder_.path(sample_ + ".orv");
  }

  OrvFileProvider* makeProvider() const {
    if (place_ == inMemory) {
      return new memory::MemoryProvider(case_);
    }
    return new store::StoreProvider();
  }

 private:
  std::string sample_;
  std::uint64_t cells_;
  Place place_;
  std::shared_ptr<const memory::Case> case_;
  testing::TempFolder folder_;
};

// --- A check by itself --------------------------------------------------------------------------

using Check = bool (OrvChecker::*)();

/// An explicit instantiation may name private members.
template <class Tag, Check kCheck>
struct Grant {
  friend Check checkOf(Tag) { return kCheck; }
};
struct FaceConnectivity {
  friend Check checkOf(FaceConnectivity);
};
struct CellConnectivity {
  friend Check checkOf(CellConnectivity);
};
struct FaceCounts {
  friend Check checkOf(FaceCounts);
};
struct NodesOfPairs {
  friend Check checkOf(NodesOfPairs);
};
struct Shadows {
  friend Check checkOf(Shadows);
};
template struct Grant<FaceConnectivity, &OrvChecker::checkFaceConnectivity>;
template struct Grant<CellConnectivity, &OrvChecker::checkCellConnectivity>;
template struct Grant<FaceCounts, &OrvChecker::checkCellsFromFaces_facenode>;
template struct Grant<NodesOfPairs, &OrvChecker::checkCellsFromFaces_cellnode>;
template struct Grant<Shadows, &OrvChecker::checkFacesShadowZones>;

void report(benchmark::State& state, std::size_t before) {
  state.SetItemsProcessed(state.range(0) * static_cast<std::int64_t>(state.iterations()));
  state.counters["peak_MB"] = static_cast<double>(peak - before) / 1e6;
}

/// The case stays open, as it was left by a run at level 1.
template <class Tag>
void check(benchmark::State& state, const char* sample) {
  const Served& served = Served::of(sample, state);
  const testing::TestFactory factory([&](const std::string&) { return served.makeProvider(); });
  OrvChecker checker;
  checker.setVerbosity(0);
  checker.checkCase(served.file());
  const Check run = checkOf(Tag{});
  (checker.*run)();  // what the provider reads once and keeps is there now
  const std::size_t before = peak = allocated.load();
  for ([[maybe_unused]] const auto& iteration : state) {
    if (!(checker.*run)() || !checker.getErrors().empty()) {
      state.SkipWithError("the case is not sound");
    }
  }
  report(state, before);
}

/// Runs `calls` on the open case.
template <class Calls>
void callOnly(benchmark::State& state, const char* sample, const Calls& calls) {
  const Served& served = Served::of(sample, state);
  const std::unique_ptr<OrvFileIO> owner(served.makeProvider());
  auto& source = dynamic_cast<OrvFileProvider&>(*owner);
  source.startReading(served.file(), dataClassCase);
  calls(source);
  const std::size_t before = peak = allocated.load();
  for ([[maybe_unused]] const auto& iteration : state) {
    calls(source);
  }
  report(state, before);
}

// --- The same calls without any judgement -------------------------------------------------------

std::uint64_t sizeOf(OrvProvider& source, int zone, OrvZoneSizeType key) {
  std::uint64_t size = 0;
  source.getZoneSizeInfo(zone, key, size);
  return size;
}

/// The lists of a family, each read into a zeroed buffer of its own.
void readLists(OrvProvider& source, const CountedReadFamily& family) {
  std::vector<int> zones;
  (source.*family.begin)(zones);
  (source.*family.beginCounts)();
  std::vector<std::int64_t> lengths;
  for (const int zone : zones) {
    const std::uint64_t elements = sizeOf(source, zone, zoneElementCount);
    short uniform = 0;
    if ((source.*family.getUniformCount)(zone, uniform)) {
      lengths.push_back(uniformListLength(uniform, elements));
    } else {
      std::vector<short> counts(elements);
      (source.*family.readCounts)(zone, counts.data(), counts.size());
      lengths.push_back(summedListLength(counts.data(), counts.size()));
    }
  }
  (source.*family.endCounts)();
  (source.*family.beginIds)();
  for (std::size_t i = 0; i < zones.size(); ++i) {
    std::vector<std::uint64_t> ids(static_cast<std::size_t>(lengths[i]));
    (source.*family.readIds)(zones[i], ids.data(), ids.size());
    benchmark::DoNotOptimize(ids.data());
    benchmark::ClobberMemory();
  }
  (source.*family.endIds)();
  (source.*family.end)();
}

void askSides(OrvProvider& source) {
  std::vector<int> zones;
  std::uint64_t sum = 0;
  source.beginFaceCell0(zones);
  for (const int zone : zones) {
    const std::uint64_t last = sizeOf(source, zone, zoneLastId);
    for (std::uint64_t face = sizeOf(source, zone, zoneFirstId); face <= last; ++face) {
      sum += source.getFaceCell0(face);
    }
  }
  source.endFaceCell0();
  source.beginFaceCell1(zones);
  for (const int zone : zones) {
    const std::uint64_t last = sizeOf(source, zone, zoneLastId);
    for (std::uint64_t face = sizeOf(source, zone, zoneFirstId); face <= last; ++face) {
      sum += source.getFaceCell1(face);
    }
  }
  source.endFaceCell1();
  benchmark::DoNotOptimize(sum);
}

void askShadows(OrvProvider& source) {
  std::vector<int> zones;
  std::uint64_t sum = 0;
  source.beginFaceShadows(zones);
  for (const int zone : zones) {
    const std::uint64_t last = sizeOf(source, zone, zoneLastId);
    for (std::uint64_t face = sizeOf(source, zone, zoneFirstId); face <= last; ++face) {
      sum += source.getFaceShadow(face);
    }
  }
  source.endFaceShadows();
  benchmark::DoNotOptimize(sum);
}

// --- The benchmarks -----------------------------------------------------------------------------

void faceConnectivity(benchmark::State& state) { check<FaceConnectivity>(state, "box"); }
void faceConnectivityReadOnly(benchmark::State& state) {
  callOnly(state, "box", [](OrvProvider& source) { readLists(source, kFaceNodes); });
}
void facesFromCounts(benchmark::State& state) { check<FaceCounts>(state, "box"); }
void facesFromCountsCallsOnly(benchmark::State& state) { callOnly(state, "box", askSides); }
void cellConnectivity(benchmark::State& state) { check<CellConnectivity>(state, "box-cells"); }
void cellConnectivityReadOnly(benchmark::State& state) {
  callOnly(state, "box-cells", [](OrvProvider& source) { readLists(source, kCellNodes); });
}
void nodesOfPairs(benchmark::State& state) { check<NodesOfPairs>(state, "box-cells"); }
void polyhedra(benchmark::State& state) { check<CellConnectivity>(state, "polyhedra"); }
void polyhedraReadOnly(benchmark::State& state) {
  callOnly(state, "polyhedra", [](OrvProvider& source) { readLists(source, kCellFaces); });
}
void shadows(benchmark::State& state) { check<Shadows>(state, "periodic"); }
void shadowsCallsOnly(benchmark::State& state) { callOnly(state, "periodic", askShadows); }

void sizesAndPlaces(benchmark::internal::Benchmark* row) {
  row->ArgNames({"cells", "store"})->Unit(benchmark::kMillisecond);
  row->ArgsProduct({{1000000, 8000000}, {inMemory, inStore}});
}

BENCHMARK(faceConnectivity)->Apply(sizesAndPlaces);
BENCHMARK(faceConnectivityReadOnly)->Apply(sizesAndPlaces);
BENCHMARK(facesFromCounts)->Apply(sizesAndPlaces);
BENCHMARK(facesFromCountsCallsOnly)->Apply(sizesAndPlaces);
BENCHMARK(cellConnectivity)->Apply(sizesAndPlaces);
BENCHMARK(cellConnectivityReadOnly)->Apply(sizesAndPlaces);
BENCHMARK(nodesOfPairs)->Apply(sizesAndPlaces);
BENCHMARK(polyhedra)->Apply(sizesAndPlaces);
BENCHMARK(polyhedraReadOnly)->Apply(sizesAndPlaces);
BENCHMARK(shadows)->Apply(sizesAndPlaces);
BENCHMARK(shadowsCallsOnly)->Apply(sizesAndPlaces);

}  // namespace

BENCHMARK_MAIN();
