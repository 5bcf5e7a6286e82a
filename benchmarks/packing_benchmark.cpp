// SPDX-License-Identifier: Apache-2.0
//
// How well and how fast the arrays of a mesh pack: by kind of array, codec and chunk size, with the
// ratio as a counter and bytes that are not packed per second. Beside it a pass that only copies.
//
// The arrays are those of a box of a million cells, of the same box with scattered numbers and
// moved nodes, and of the polyMesh folders that VELTO_PACKING_MESHES names (with : between them).
// Of a long array some evenly spaced pieces stand for all of it.

#include <algorithm>
#include <benchmark/benchmark.h>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <deque>
#include <filesystem>
#include <iterator>
#include <numeric>
#include <random>
#include <sstream>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>
#include <zlib.h>

#include "embedded/store/packing.h"
#include "embedded/store/shuffle.h"
#include "formats/openfoam/read_poly_mesh.h"
#include "testing/PolyMeshWriter.h"

namespace {

namespace store = velto::store;

constexpr std::int64_t kCellsAlongAxis = 100;
constexpr std::size_t kPiece = 1024 * std::size_t{1024};
constexpr std::size_t kPieces = 8;

using Bytes = std::vector<std::byte>;

struct Mesh {
  std::vector<double> points;
  std::vector<std::int16_t> nodeCounts;  // of faces
  std::vector<std::uint64_t> faceNodes;
  std::vector<std::uint64_t> cells0;
  std::vector<std::uint64_t> cells1;
};

struct Array {
  std::string name;
  std::size_t elementSize = 8;
  bool ids = false;
  Bytes bytes;
};

struct Codec {
  enum class Kind { kCopy, kPlainZstd, kZstd, kDeltaZstd, kZlib };
  std::string name;
  Kind kind = Kind::kCopy;
  int level = 0;
};

Mesh boxMesh() {
  const velto::testing::BoxMesh box =
      velto::testing::makeBox(kCellsAlongAxis, kCellsAlongAxis, kCellsAlongAxis);
  const auto asId = [](std::int64_t label) { return static_cast<std::uint64_t>(label + 1); };
  Mesh mesh;
  mesh.points = box.points;
  mesh.nodeCounts.assign(box.owner.size(), 4);
  std::transform(box.faceNodes.begin(), box.faceNodes.end(), std::back_inserter(mesh.faceNodes),
                 asId);
  std::transform(box.owner.begin(), box.owner.end(), std::back_inserter(mesh.cells0), asId);
  std::transform(box.neighbour.begin(), box.neighbour.end(), std::back_inserter(mesh.cells1), asId);
  return mesh;
}

/// Renumbers ids at random, but none further than a window: as far as a mesher leaves neighbours
/// apart.
void scatter(std::vector<std::uint64_t>& ids, std::uint64_t count, std::mt19937_64& random) {
  constexpr std::uint64_t kWindow = 500;
  std::vector<std::uint64_t> renumbered(count + 1);
  std::iota(renumbered.begin(), renumbered.end(), 0);
  for (std::uint64_t first = 1; first <= count; first += kWindow) {
    const auto begin = renumbered.begin() + static_cast<std::ptrdiff_t>(first);
    const auto size = std::min(kWindow, count + 1 - first);
    std::shuffle(begin, begin + static_cast<std::ptrdiff_t>(size), random);
  }
  for (std::uint64_t& id : ids) {
    id = renumbered[id];
  }
}

Mesh scatteredMesh() {
  std::mt19937_64 random(1);
  std::uniform_real_distribution<double> move(-0.03, 0.03);
  Mesh mesh = boxMesh();
  const std::uint64_t cells = *std::max_element(mesh.cells0.begin(), mesh.cells0.end());
  scatter(mesh.faceNodes, mesh.points.size() / 3, random);
  const std::size_t sides0 = mesh.cells0.size();
  std::vector<std::uint64_t> sides = std::move(mesh.cells0);
  sides.insert(sides.end(), mesh.cells1.begin(), mesh.cells1.end());
  scatter(sides, cells, random);
  const auto middle = sides.begin() + static_cast<std::ptrdiff_t>(sides0);
  mesh.cells0.assign(sides.begin(), middle);
  mesh.cells1.assign(middle, sides.end());
  for (double& coordinate : mesh.points) {
    coordinate += move(random);
  }
  return mesh;
}

Mesh readMesh(const std::string& folder) {
  velto::openfoam::PolyMesh read = velto::openfoam::readPolyMesh(folder);
  return {std::move(read.points), std::move(read.faceNodeCounts), std::move(read.faceNodeIds),
          std::move(read.owner), std::move(read.neighbour)};
}

/// The nodes of all cells, in the order in which the faces of a cell meet them.
std::vector<std::uint64_t> cellNodes(const Mesh& mesh) {
  std::vector<std::vector<std::uint64_t>> nodes;
  const auto add = [&](std::uint64_t cell, const std::uint64_t* first, std::size_t count) {
    nodes.resize(std::max<std::size_t>(nodes.size(), cell));
    std::vector<std::uint64_t>& known = nodes[cell - 1];
    for (std::size_t i = 0; i < count; ++i) {
      if (std::find(known.begin(), known.end(), first[i]) == known.end()) {
        known.push_back(first[i]);
      }
    }
  };
  const std::uint64_t* first = mesh.faceNodes.data();
  for (std::size_t face = 0; face < mesh.cells0.size(); ++face) {
    const auto count = static_cast<std::size_t>(mesh.nodeCounts[face]);
    add(mesh.cells0[face], first, count);
    if (face < mesh.cells1.size()) {
      add(mesh.cells1[face], first, count);
    }
    first += count;
  }
  std::vector<std::uint64_t> all;
  for (const std::vector<std::uint64_t>& known : nodes) {
    all.insert(all.end(), known.begin(), known.end());
  }
  return all;
}

/// A value a node, smooth in space; with noise as large as a part of the whole range.
std::vector<double> field(const Mesh& mesh, double noise) {
  std::mt19937_64 random(2);
  std::normal_distribution<double> deviation(0.0, 1.0);
  std::vector<double> values;
  for (std::size_t i = 0; i + 2 < mesh.points.size(); i += 3) {
    const double* at = &mesh.points[i];
    const double smooth =
        300.0 + 20.0 * std::sin(0.8 * at[0]) * std::cos(0.7 * at[1]) + 5.0 * std::exp(-at[2]);
    values.push_back(smooth + (noise > 0.0 ? noise * deviation(random) : 0.0));
  }
  return values;
}

std::vector<double> roundedToSingle(std::vector<double> values) {
  for (double& value : values) {
    value = static_cast<double>(static_cast<float>(value));
  }
  return values;
}

/// Types of cells of which nine in ten are alike.
std::vector<std::int32_t> mixedTypes(std::size_t count) {
  std::mt19937_64 random(3);
  std::vector<std::int32_t> types(count);
  for (std::int32_t& type : types) {
    type = random() % 10 == 0 ? static_cast<std::int32_t>(random() % 5) : 4;
  }
  return types;
}

template <class Value>
Array sample(const std::string& name, const std::vector<Value>& values) {
  Array array;
  array.name = name;
  array.elementSize = sizeof(Value);
  array.ids = std::is_same_v<Value, std::uint64_t>;
  const std::size_t length = kPiece / sizeof(Value);
  const std::size_t pieces = std::min(kPieces, values.size() / length);
  const auto take = [&](std::size_t first, std::size_t count) {
    const auto* bytes = reinterpret_cast<const std::byte*>(values.data() + first);
    array.bytes.insert(array.bytes.end(), bytes, bytes + count * sizeof(Value));
  };
  for (std::size_t i = 0; i < pieces; ++i) {
    take((values.size() - length) * i / std::max<std::size_t>(pieces - 1, 1), length);
  }
  if (pieces == 0) {
    take(0, values.size());
  }
  return array;
}

void addArrays(std::deque<Array>& arrays, const std::string& name, const Mesh& mesh) {
  arrays.push_back(sample(name + "/face_nodes", mesh.faceNodes));
  arrays.push_back(sample(name + "/cells_0", mesh.cells0));
  arrays.push_back(sample(name + "/cells_1", mesh.cells1));
  arrays.push_back(sample(name + "/cell_nodes", cellNodes(mesh)));
  arrays.push_back(sample(name + "/node_counts", mesh.nodeCounts));
  arrays.push_back(sample(name + "/cell_types", mixedTypes(mesh.cells0.size() / 3)));
  arrays.push_back(sample(name + "/coordinates", mesh.points));
  arrays.push_back(sample(name + "/field_smooth", field(mesh, 0.0)));
  arrays.push_back(sample(name + "/field_noisy", field(mesh, 0.1)));
  arrays.push_back(sample(name + "/field_single", roundedToSingle(field(mesh, 0.1))));
}

/// Packs and unpacks chunks with one codec.
class Coder {
 public:
  explicit Coder(const Codec& codec) : codec_(codec) {}

  void pack(const std::byte* raw, std::size_t size, std::size_t elementSize, Bytes& packed) {
    store::PackedChunk chunk = {raw, size};
    if (codec_.kind == Codec::Kind::kPlainZstd) {
      chunk = packer_.pack(raw, size, 1, codec_.level);
    } else if (codec_.kind == Codec::Kind::kZstd) {
      chunk = packer_.pack(raw, size, elementSize, codec_.level);
    } else if (codec_.kind == Codec::Kind::kDeltaZstd) {
      scratch_.resize(size);
      differences(raw, size);
      chunk = packer_.pack(scratch_.data(), size, elementSize, codec_.level);
    } else if (codec_.kind == Codec::Kind::kZlib) {
      chunk = zlibPack(raw, size, elementSize);
    }
    packed.assign(chunk.data, chunk.data + chunk.size);
  }

  void unpack(const Bytes& packed, std::byte* raw, std::size_t size, std::size_t elementSize) {
    if (codec_.kind == Codec::Kind::kCopy) {
      std::copy(packed.begin(), packed.end(), raw);
    } else if (codec_.kind == Codec::Kind::kZlib) {
      scratch_.resize(size);
      uLongf length = size;
      uncompress(reinterpret_cast<Bytef*>(scratch_.data()), &length,
                 reinterpret_cast<const Bytef*>(packed.data()), packed.size());
      store::unshuffle(scratch_.data(), raw, size, elementSize);
    } else {
      const bool plain = codec_.kind == Codec::Kind::kPlainZstd;
      unpacker_.unpack(packed.data(), packed.size(), raw, size, plain ? 1 : elementSize);
      if (codec_.kind == Codec::Kind::kDeltaZstd) {
        sums(raw, size);
      }
    }
  }

 private:
  void differences(const std::byte* raw, std::size_t size) {
    std::uint64_t before = 0;
    for (std::size_t i = 0; i + 8 <= size; i += 8) {
      std::uint64_t value = 0;
      std::memcpy(&value, raw + i, 8);
      const std::uint64_t difference = value - before;
      std::memcpy(&scratch_[i], &difference, 8);
      before = value;
    }
  }

  static void sums(std::byte* raw, std::size_t size) {
    std::uint64_t sum = 0;
    for (std::size_t i = 0; i + 8 <= size; i += 8) {
      std::uint64_t difference = 0;
      std::memcpy(&difference, raw + i, 8);
      sum += difference;
      std::memcpy(raw + i, &sum, 8);
    }
  }

  store::PackedChunk zlibPack(const std::byte* raw, std::size_t size, std::size_t elementSize) {
    scratch_.resize(size);
    store::shuffle(raw, scratch_.data(), size, elementSize);
    uLongf length = compressBound(size);
    deflated_.resize(length);
    compress2(reinterpret_cast<Bytef*>(deflated_.data()), &length,
              reinterpret_cast<const Bytef*>(scratch_.data()), size, codec_.level);
    return {deflated_.data(), length};
  }

  const Codec& codec_;
  store::Packer packer_;
  store::Unpacker unpacker_;
  Bytes scratch_;
  Bytes deflated_;
};

/// The chunks of one array, packed.
class PackedArray {
 public:
  PackedArray(const Array& array, const Codec& codec, std::size_t chunkSize)
      : array_(array),
        coder_(codec),
        chunkSize_(chunkSize),
        chunks_((array.bytes.size() + chunkSize - 1) / chunkSize),
        unpacked_(array.bytes.size()) {}

  void pack() {
    for (std::size_t i = 0; i < chunks_.size(); ++i) {
      coder_.pack(array_.bytes.data() + i * chunkSize_, sizeOf(i), array_.elementSize, chunks_[i]);
    }
  }

  void unpack() {
    for (std::size_t i = 0; i < chunks_.size(); ++i) {
      coder_.unpack(chunks_[i], unpacked_.data() + i * chunkSize_, sizeOf(i), array_.elementSize);
    }
  }

  void report(benchmark::State& state) const {
    std::size_t packed = 0;
    for (const Bytes& chunk : chunks_) {
      packed += chunk.size();
    }
    const auto size = static_cast<double>(array_.bytes.size());
    state.counters["ratio"] = size / static_cast<double>(packed);
    state.SetBytesProcessed(static_cast<std::int64_t>(array_.bytes.size()) *
                            static_cast<std::int64_t>(state.iterations()));
  }

  bool isRight() const { return unpacked_ == array_.bytes; }

 private:
  std::size_t sizeOf(std::size_t i) const {
    return std::min(chunkSize_, array_.bytes.size() - i * chunkSize_);
  }

  const Array& array_;
  Coder coder_;
  std::size_t chunkSize_;
  std::vector<Bytes> chunks_;
  Bytes unpacked_;
};

void packArray(benchmark::State& state, const Array& array, const Codec& codec,
               std::size_t chunkSize) {
  PackedArray packed(array, codec, chunkSize);
  for ([[maybe_unused]] const auto& iteration : state) {
    packed.pack();
    benchmark::ClobberMemory();
  }
  packed.report(state);
}

void unpackArray(benchmark::State& state, const Array& array, const Codec& codec,
                 std::size_t chunkSize) {
  PackedArray packed(array, codec, chunkSize);
  packed.pack();
  for ([[maybe_unused]] const auto& iteration : state) {
    packed.unpack();
    benchmark::ClobberMemory();
  }
  if (!packed.isRight()) {
    state.SkipWithError("unpacks to other bytes");
  }
  packed.report(state);
}

std::vector<Codec> codecs() {
  using Kind = Codec::Kind;
  std::vector<Codec> made = {{"copy", Kind::kCopy, 0}};
  for (const int level : {1, 2, 3, 4, 5, 7, 9, 12, 15, 16, 17, 19}) {
    made.push_back({"zstd" + std::to_string(level), Kind::kZstd, level});
  }
  for (const int level : {1, 3, 9, 19}) {
    made.push_back({"plain_zstd" + std::to_string(level), Kind::kPlainZstd, level});
  }
  made.push_back({"delta_zstd1", Kind::kDeltaZstd, 1});
  made.push_back({"zlib1", Kind::kZlib, 1});
  made.push_back({"zlib6", Kind::kZlib, 6});
  return made;
}

std::deque<Array> arraysOfAllMeshes() {
  std::deque<Array> arrays;
  addArrays(arrays, "box", boxMesh());
  addArrays(arrays, "scattered", scatteredMesh());
  const char* folders = std::getenv("VELTO_PACKING_MESHES");
  std::istringstream list(folders != nullptr ? folders : "");
  for (std::string folder; std::getline(list, folder, ':');) {
    addArrays(arrays, std::filesystem::path(folder).filename().string(), readMesh(folder));
  }
  return arrays;
}

void registerAll(const std::deque<Array>& arrays, const std::vector<Codec>& codecList) {
  for (const Array& array : arrays) {
    for (const Codec& codec : codecList) {
      if (codec.kind == Codec::Kind::kDeltaZstd && !array.ids) {
        continue;
      }
      for (const std::size_t kib : {64U, 256U, 1024U}) {
        const std::string name =
            "/" + array.name + "/" + codec.name + "/" + std::to_string(kib) + "K";
        const auto add = [&, kib](const std::string& way, auto* run) {
          const auto measure = [&array, &codec, kib, run](benchmark::State& state) {
            run(state, array, codec, kib * 1024);
          };
          benchmark::RegisterBenchmark((way + name).c_str(), measure)
              ->Unit(benchmark::kMillisecond);
        };
        add("pack", &packArray);
        add("unpack", &unpackArray);
      }
    }
  }
}

}  // namespace

int main(int argc, char** argv) {
  const std::deque<Array> arrays = arraysOfAllMeshes();
  const std::vector<Codec> codecList = codecs();
  registerAll(arrays, codecList);
  benchmark::Initialize(&argc, argv);
  benchmark::RunSpecifiedBenchmarks();
}
