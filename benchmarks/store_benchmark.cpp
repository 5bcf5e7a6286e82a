// SPDX-License-Identifier: Apache-2.0
//
// What the case store costs over HDF5 alone: a box of hexahedra is read and written through the
// contract, and beside it the same arrays by one bare HDF5 call each. Level 0 is contiguous, the
// others are packed. And what one value costs that is asked for by its id.
//
// Everything is in the page cache. Writing ends with fsync on both sides.

#include <benchmark/benchmark.h>
#include <cstdint>
#include <fcntl.h>
#include <filesystem>
#include <hdf5.h>
#include <memory>
#include <string>
#include <unistd.h>
#include <utility>
#include <vector>

#include "embedded/memory/MemoryProvider.h"
#include "embedded/memory/load_case.h"
#include "embedded/store/StoreProvider.h"
#include "embedded/store/save_case.h"
#include "samples/samples.h"
#include "testing/TempFolder.h"

namespace {

using namespace velto;

constexpr std::int64_t kCells = 8000000;

/// The box in memory, made once.
const std::shared_ptr<memory::Case>& box() {
  static const std::shared_ptr<memory::Case> kBox = [] {
    const samples::Sample sample =
        samples::findSample("box")->make(static_cast<std::uint64_t>(kCells));
    return memory::loadCase(sample.tables, sample.arrays);
  }();
  return kBox;
}

/// The box in a file of a level, written once.
std::string boxFile(unsigned level) {
  static const testing::TempFolder kFolder;
  const std::string file = kFolder.path("box" + std::to_string(level) + ".orv");
  if (!std::filesystem::exists(file)) {
    store::saveCase(box()->tables, memory::arraysOf(box()), file, level);
  }
  return file;
}

/// The bulk datasets of the file, as HDF5 knows them, with the bytes of each.
using Datasets = std::vector<std::pair<std::string, std::size_t>>;

Datasets bulkDatasets(const std::string& file) {
  Datasets datasets;
  const hid_t opened = H5Fopen(file.c_str(), H5F_ACC_RDONLY, H5P_DEFAULT);
  for (const char* name : {"nodeCoordinates", "faceNodeIds", "faceCell0", "faceCell1"}) {
    const std::string path = std::string("/meshes/0/") + name;
    const hid_t dataset = H5Dopen2(opened, path.c_str(), H5P_DEFAULT);
    const hid_t space = H5Dget_space(dataset);
    const auto count = static_cast<std::size_t>(H5Sget_simple_extent_npoints(space));
    datasets.emplace_back(path, count * sizeof(double));
    H5Sclose(space);
    H5Dclose(dataset);
  }
  H5Fclose(opened);
  return datasets;
}

std::size_t allBytes(const Datasets& datasets) {
  std::size_t bytes = 0;
  for (const auto& dataset : datasets) {
    bytes += dataset.second;
  }
  return bytes;
}

void reportBytes(benchmark::State& state) {
  const std::size_t bytes = allBytes(bulkDatasets(boxFile(0)));
  state.SetBytesProcessed(static_cast<std::int64_t>(bytes) *
                          static_cast<std::int64_t>(state.iterations()));
}

/// The type of 64-bit numbers: all bulk arrays of the box have them.
hid_t typeOf(const std::string& path) {
  return path.find("Coordinates") != std::string::npos ? H5T_IEEE_F64LE : H5T_STD_U64LE;
}

// --- Reading ------------------------------------------------------------------------------------

void readWithHdf5(benchmark::State& state) {
  const std::string file = boxFile(0);
  const Datasets datasets = bulkDatasets(file);
  std::vector<std::uint64_t> buffer(allBytes(datasets) / sizeof(std::uint64_t));
  for ([[maybe_unused]] const auto& iteration : state) {
    const hid_t opened = H5Fopen(file.c_str(), H5F_ACC_RDONLY, H5P_DEFAULT);
    for (const auto& dataset : datasets) {
      const hid_t id = H5Dopen2(opened, dataset.first.c_str(), H5P_DEFAULT);
      H5Dread(id, typeOf(dataset.first), H5S_ALL, H5S_ALL, H5P_DEFAULT, buffer.data());
      H5Dclose(id);
    }
    H5Fclose(opened);
  }
  reportBytes(state);
}

/// Reads every array of the box zone by zone.
void readAll(store::StoreProvider& provider, std::vector<std::uint64_t>& buffer) {
  std::vector<int> zones;
  const auto sizeOf = [&provider](int zone) {
    std::uint64_t size = 0;
    provider.getZoneSizeInfo(zone, zoneElementCount, size);
    return static_cast<std::size_t>(size);
  };
  provider.beginNodeCoordinates(zones);
  for (const int zone : zones) {
    provider.readNodeCoordinates(zone, reinterpret_cast<double*>(buffer.data()), 3 * sizeOf(zone));
  }
  provider.endNodeCoordinates();
  provider.beginFaceNodes(zones);
  for (const int zone : zones) {
    provider.readFaceNodeIds(zone, buffer.data(), 4 * sizeOf(zone));
  }
  provider.endFaceNodes();
  provider.beginFaceCell0(zones);
  for (const int zone : zones) {
    provider.readFaceCell0(zone, buffer.data(), sizeOf(zone));
  }
  provider.endFaceCell0();
  provider.beginFaceCell1(zones);
  for (const int zone : zones) {
    provider.readFaceCell1(zone, buffer.data(), sizeOf(zone));
  }
  provider.endFaceCell1();
}

void readThroughProvider(benchmark::State& state) {
  const std::string file = boxFile(static_cast<unsigned>(state.range(0)));
  std::vector<std::uint64_t> buffer(allBytes(bulkDatasets(boxFile(0))) / sizeof(std::uint64_t));
  for ([[maybe_unused]] const auto& iteration : state) {
    store::StoreProvider provider;
    if (!provider.startReading(file, dataClassCase)) {
      state.SkipWithError("the file cannot be read");
    }
    readAll(provider, buffer);
    if (provider.hasError() || provider.hasWarning()) {
      state.SkipWithError("the file cannot be read without messages");
    }
  }
  reportBytes(state);
  state.counters["fileMB"] = static_cast<double>(std::filesystem::file_size(file)) / 1e6;
}

/// What was read once is not compared with its checksum again.
void readAgainThroughProvider(benchmark::State& state) {
  std::vector<std::uint64_t> buffer(allBytes(bulkDatasets(boxFile(0))) / sizeof(std::uint64_t));
  store::StoreProvider provider;
  provider.startReading(boxFile(0), dataClassCase);
  readAll(provider, buffer);
  for ([[maybe_unused]] const auto& iteration : state) {
    readAll(provider, buffer);
  }
  reportBytes(state);
}

// --- Writing ------------------------------------------------------------------------------------

void syncFile(const std::string& file) {
  const int descriptor = ::open(file.c_str(), O_RDONLY);
  ::fsync(descriptor);
  ::close(descriptor);
}

void writeWithHdf5(benchmark::State& state) {
  const testing::TempFolder folder;
  const std::string file = folder.path("raw.h5");
  const Datasets datasets = bulkDatasets(boxFile(0));
  const std::vector<std::uint64_t> buffer(allBytes(datasets) / sizeof(std::uint64_t), 1);
  for ([[maybe_unused]] const auto& iteration : state) {
    const hid_t made = H5Fcreate(file.c_str(), H5F_ACC_TRUNC, H5P_DEFAULT, H5P_DEFAULT);
    const hid_t meshes = H5Gcreate2(made, "/meshes", H5P_DEFAULT, H5P_DEFAULT, H5P_DEFAULT);
    const hid_t mesh = H5Gcreate2(made, "/meshes/0", H5P_DEFAULT, H5P_DEFAULT, H5P_DEFAULT);
    for (const auto& dataset : datasets) {
      const hsize_t rows = dataset.second / sizeof(std::uint64_t);
      const hid_t space = H5Screate_simple(1, &rows, nullptr);
      const hid_t id = H5Dcreate2(made, dataset.first.c_str(), typeOf(dataset.first), space,
                                  H5P_DEFAULT, H5P_DEFAULT, H5P_DEFAULT);
      H5Dwrite(id, typeOf(dataset.first), H5S_ALL, H5S_ALL, H5P_DEFAULT, buffer.data());
      H5Dclose(id);
      H5Sclose(space);
    }
    H5Gclose(mesh);
    H5Gclose(meshes);
    H5Fclose(made);
    syncFile(file);
    std::filesystem::remove(file);
  }
  reportBytes(state);
}

void writeStore(benchmark::State& state) {
  const testing::TempFolder folder;
  const std::string file = folder.path("box.orv");
  const base::CaseProvider::ArraysByMesh arrays = memory::arraysOf(box());
  boxFile(0);
  for ([[maybe_unused]] const auto& iteration : state) {
    store::saveCase(box()->tables, arrays, file, static_cast<unsigned>(state.range(0)));
    std::filesystem::remove(file);
  }
  reportBytes(state);
}

// --- Single values ------------------------------------------------------------------------------

void getFaceCells(benchmark::State& state) {
  store::StoreProvider provider;
  provider.startReading(boxFile(0), dataClassCase);
  OrvProvider& source = provider;
  std::vector<int> zones;
  source.beginFaceCell0(zones);
  std::uint64_t first = 1;
  source.getZoneSizeInfo(zones.front(), zoneFirstId, first);
  constexpr std::uint64_t kFaces = 100000;  // a part that stays in the cache
  source.getFaceCell0(first);
  for ([[maybe_unused]] const auto& iteration : state) {
    std::uint64_t sum = 0;
    for (std::uint64_t face = first; face < first + kFaces; ++face) {
      sum += source.getFaceCell0(face);
    }
    benchmark::DoNotOptimize(sum);
  }
  state.SetItemsProcessed(static_cast<std::int64_t>(kFaces) *
                          static_cast<std::int64_t>(state.iterations()));
}

BENCHMARK(readWithHdf5)->Unit(benchmark::kMillisecond);
BENCHMARK(readThroughProvider)->Arg(0)->Arg(1)->Arg(6)->Unit(benchmark::kMillisecond);
BENCHMARK(readAgainThroughProvider)->Unit(benchmark::kMillisecond);
BENCHMARK(writeWithHdf5)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(writeStore)->Arg(0)->Arg(1)->Arg(6)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(getFaceCells);

}  // namespace

BENCHMARK_MAIN();
