// SPDX-License-Identifier: Apache-2.0
//
// What the deep checks cost over the reading that they cannot do without: boxes of 1 and 8 million
// hexahedra, in memory and in the store. Each check stands beside a pass that makes the same calls
// on the provider and looks at nothing. `peak_MB` is the most that was allocated at a time beyond
// what the provider held before.

#include <benchmark/benchmark.h>
#include <cstdint>
#include <malloc.h>
#include <memory>
#include <string>
#include <vector>

#include "velto/OrvChecker.h"

#include "data_access/OrvFactory.h"
#include "data_access/OrvFileProvider.h"
#include "data_access/families.h"
#include "data_access/sizes.h"

#include "benchmarks/counted_memory.h"
#include "embedded/memory/MemoryProvider.h"
#include "embedded/memory/load_case.h"
#include "embedded/store/StoreProvider.h"
#include "embedded/store/save_case.h"
#include "samples/samples.h"
#include "testing/TempFolder.h"
#include "testing/TestFactory.h"
#include "tests/checker/checker_access.h"

namespace {

using namespace velto;
namespace checker_access = testing::checker_access;

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

using Check = bool (*)(OrvChecker&);

void report(benchmark::State& state, std::size_t before) {
  state.SetItemsProcessed(state.range(0) * static_cast<std::int64_t>(state.iterations()));
  state.counters["peak_MB"] = static_cast<double>(benchmarks::peakBytes() - before) / 1e6;
}

/// The case stays open, as it was left by a run at level 1.
void check(benchmark::State& state, const char* sample, Check run) {
  const Served& served = Served::of(sample, state);
  const testing::TestFactory factory([&](const std::string&) { return served.makeProvider(); });
  OrvChecker checker;
  checker.setVerbosity(0);
  checker.checkCase(served.file());
  const std::size_t before = benchmarks::allocatedBytes();
  run(checker);  // now there is what the provider reads once and keeps
  benchmarks::forgetPeak();
  for ([[maybe_unused]] const auto& iteration : state) {
    if (!run(checker) || !checker.getErrors().empty()) {
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
  const std::size_t before = benchmarks::allocatedBytes();
  calls(source);
  benchmarks::forgetPeak();
  for ([[maybe_unused]] const auto& iteration : state) {
    calls(source);
  }
  report(state, before);
}

// --- The same calls without any judgement -------------------------------------------------------

/// The lists of a family, each read into a zeroed buffer of its own.
void readLists(OrvProvider& source, const CountedReadFamily& family) {
  std::vector<int> zones;
  (source.*family.begin)(zones);
  (source.*family.beginCounts)();
  std::vector<std::int64_t> lengths;
  for (const int zone : zones) {
    const std::uint64_t elements = zoneSizeOf(source, zone, zoneElementCount);
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

/// A question for each element of the zones that a family lists.
template <class Ask>
void askEach(OrvProvider& source, const ReadFamily& family, const Ask& ask) {
  std::vector<int> zones;
  std::uint64_t sum = 0;
  (source.*family.begin)(zones);
  for (const int zone : zones) {
    const std::uint64_t last = zoneSizeOf(source, zone, zoneLastId);
    for (std::uint64_t id = zoneSizeOf(source, zone, zoneFirstId); id <= last; ++id) {
      sum += ask(id);
    }
  }
  (source.*family.end)();
  benchmark::DoNotOptimize(sum);
}

void askSides(OrvProvider& source) {
  askEach(source, kFaceCell0, [&](std::uint64_t face) { return source.getFaceCell0(face); });
  askEach(source, kFaceCell1, [&](std::uint64_t face) { return source.getFaceCell1(face); });
}

void askShadows(OrvProvider& source) {
  const ReadFamily shadows = {&OrvProvider::beginFaceShadows, &OrvProvider::endFaceShadows};
  askEach(source, shadows, [&](std::uint64_t face) { return source.getFaceShadow(face); });
}

// --- The benchmarks -----------------------------------------------------------------------------

void faceConnectivity(benchmark::State& state) {
  check(state, "box", checker_access::checkFaceConnectivity);
}
void faceConnectivityReadOnly(benchmark::State& state) {
  callOnly(state, "box", [](OrvProvider& source) { readLists(source, kFaceNodes); });
}
void faceCounts(benchmark::State& state) { check(state, "box", checker_access::checkFaceCounts); }
void faceCountsCallsOnly(benchmark::State& state) { callOnly(state, "box", askSides); }
void cellConnectivity(benchmark::State& state) {
  check(state, "box-cells", checker_access::checkCellConnectivity);
}
void cellConnectivityReadOnly(benchmark::State& state) {
  callOnly(state, "box-cells", [](OrvProvider& source) { readLists(source, kCellNodes); });
}
void nodesOfPairs(benchmark::State& state) {
  check(state, "box-cells", checker_access::checkFaceNodes);
}
void polyhedra(benchmark::State& state) {
  check(state, "polyhedra", checker_access::checkCellConnectivity);
}
void polyhedraReadOnly(benchmark::State& state) {
  callOnly(state, "polyhedra", [](OrvProvider& source) { readLists(source, kCellFaces); });
}
void shadows(benchmark::State& state) {
  check(state, "periodic", checker_access::checkFacesShadowZones);
}
void shadowsCallsOnly(benchmark::State& state) { callOnly(state, "periodic", askShadows); }

void sizesAndPlaces(benchmark::internal::Benchmark* row) {
  row->ArgNames({"cells", "store"})->Unit(benchmark::kMillisecond);
  row->ArgsProduct({{1000000, 8000000}, {inMemory, inStore}});
}

BENCHMARK(faceConnectivity)->Apply(sizesAndPlaces);
BENCHMARK(faceConnectivityReadOnly)->Apply(sizesAndPlaces);
BENCHMARK(faceCounts)->Apply(sizesAndPlaces);
BENCHMARK(faceCountsCallsOnly)->Apply(sizesAndPlaces);
BENCHMARK(cellConnectivity)->Apply(sizesAndPlaces);
BENCHMARK(cellConnectivityReadOnly)->Apply(sizesAndPlaces);
BENCHMARK(nodesOfPairs)->Apply(sizesAndPlaces);
BENCHMARK(polyhedra)->Apply(sizesAndPlaces);
BENCHMARK(polyhedraReadOnly)->Apply(sizesAndPlaces);
BENCHMARK(shadows)->Apply(sizesAndPlaces);
BENCHMARK(shadowsCallsOnly)->Apply(sizesAndPlaces);

}  // namespace

int main(int argc, char** argv) {
  // Every large block is fresh, as it is in a program that checks one case; otherwise those of the
  // smaller meshes alone would be had for nothing after the first round.
  mallopt(M_MMAP_THRESHOLD, 1 << 20);
  benchmark::Initialize(&argc, argv);
  if (benchmark::ReportUnrecognizedArguments(argc, argv)) {
    return 1;
  }
  benchmark::RunSpecifiedBenchmarks();
  return 0;
}
