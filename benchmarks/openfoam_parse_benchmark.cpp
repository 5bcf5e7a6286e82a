// SPDX-License-Identifier: Apache-2.0
//
// How fast a polyMesh folder is read, in bytes on disk per second: one file of a box of a million
// cells at a time, and beside each a pass that only takes its bytes from the disk.

#include <array>
#include <benchmark/benchmark.h>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "formats/openfoam/FoamHeader.h"
#include "formats/openfoam/Scanner.h"
#include "formats/openfoam/read_lists.h"
#include "formats/openfoam/read_poly_mesh.h"
#include "testing/PolyMeshWriter.h"

namespace {

namespace foam = velto::openfoam;

constexpr std::int64_t kCellsAlongAxis = 100;
constexpr std::size_t kRawBlock = 1024 * std::size_t{1024};

struct Form {
  const char* name;
  bool binary;
  bool gzip;
  int labelBits;
};

constexpr std::array<Form, 4> kForms = {{{"text", false, false, 32},
                                         {"text_gz", false, true, 32},
                                         {"binary32", true, false, 32},
                                         {"binary64", true, false, 64}}};
constexpr std::array<const char*, 3> kFiles = {"points", "faces", "owner"};

// The folders that are measured; they vanish with the program.
class Folders {
 public:
  Folders() : root_(std::filesystem::temp_directory_path() / "velto_openfoam_benchmark") {
    velto::testing::BoxMesh mesh =
        velto::testing::makeBox(kCellsAlongAxis, kCellsAlongAxis, kCellsAlongAxis);
    for (double& coordinate : mesh.points) {
      coordinate = coordinate * 1.2345678 - 7.6543;  // so that text needs all of its six digits
    }
    for (const Form& form : kForms) {
      velto::testing::WriteOptions options;
      options.binary = form.binary;
      options.gzip = form.gzip;
      options.labelBits = form.labelBits;
      options.digits = 6;
      velto::testing::writePolyMesh(folder(form), mesh, options);
    }
  }
  ~Folders() {
    std::error_code ignored;
    std::filesystem::remove_all(root_, ignored);
  }
  Folders(const Folders&) = delete;
  Folders& operator=(const Folders&) = delete;

  std::string folder(const Form& form) const { return (root_ / form.name).string(); }

  std::string file(const Form& form, const std::string& name) const {
    return folder(form) + "/" + name + (form.gzip ? ".gz" : "");
  }

 private:
  std::filesystem::path root_;
};

const Folders& folders() {
  static const Folders kFolders;
  return kFolders;
}

// A benchmark's arguments: the index of a form and, but for whole folders, that of a file.
const Form& formOf(const benchmark::State& state) {
  return kForms[static_cast<std::size_t>(state.range(0))];
}

std::string fileOf(const benchmark::State& state) {
  return kFiles[static_cast<std::size_t>(state.range(1))];
}

void report(benchmark::State& state, const std::string& label, std::uint64_t bytes) {
  state.SetLabel(label);
  state.SetBytesProcessed(static_cast<std::int64_t>(bytes) *
                          static_cast<std::int64_t>(state.iterations()));
}

// The least that any reader has to do: the bytes, in blocks of 1 MiB.
void rawPass(benchmark::State& state) {
  const std::string path = folders().file(formOf(state), fileOf(state));
  std::vector<char> block(kRawBlock);
  for ([[maybe_unused]] const auto& iteration : state) {
    const std::unique_ptr<std::FILE, int (*)(std::FILE*)> file(std::fopen(path.c_str(), "rb"),
                                                               &std::fclose);
    std::setvbuf(file.get(), nullptr, _IONBF, 0);
    while (std::fread(block.data(), 1, block.size(), file.get()) > 0) {
      benchmark::ClobberMemory();
    }
  }
  report(state, formOf(state).name + ("/" + fileOf(state)), std::filesystem::file_size(path));
}

void readOneFile(benchmark::State& state) {
  const std::string name = fileOf(state);
  const std::string path = folders().file(formOf(state), name);
  for ([[maybe_unused]] const auto& iteration : state) {
    foam::PolyMesh mesh;
    foam::Scanner scanner(path);
    foam::FileForm form = foam::readHeader(scanner, true);
    if (name == "points") {
      foam::readPoints(scanner, form, mesh.points);
    } else if (name == "faces") {
      foam::readFaces(scanner, form, mesh.faceNodeCounts, mesh.faceNodeIds);
    } else {
      foam::readLabels(scanner, form, {"cell label", "cell labels"}, 0, mesh.owner);
    }
    benchmark::DoNotOptimize(mesh);
  }
  report(state, formOf(state).name + ("/" + name), std::filesystem::file_size(path));
}

void readWholeFolder(benchmark::State& state) {
  const std::string folder = folders().folder(formOf(state));
  std::uint64_t bytes = 0;
  for ([[maybe_unused]] const auto& iteration : state) {
    foam::PolyMesh mesh =
        foam::readPolyMesh(folder, [&](std::uint64_t, std::uint64_t total) { bytes = total; });
    benchmark::DoNotOptimize(mesh);
  }
  report(state, formOf(state).name, bytes);
}

BENCHMARK(rawPass)->ArgsProduct({{0, 1, 2, 3}, {0, 1, 2}})->Unit(benchmark::kMillisecond);
BENCHMARK(readOneFile)->ArgsProduct({{0, 1, 2, 3}, {0, 1, 2}})->Unit(benchmark::kMillisecond);
BENCHMARK(readWholeFolder)->DenseRange(0, 3)->Unit(benchmark::kMillisecond);

}  // namespace

BENCHMARK_MAIN();
