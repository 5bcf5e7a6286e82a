// SPDX-License-Identifier: Apache-2.0
//
// Boxes written in every form and read again.

#include <cstddef>
#include <functional>
#include <gtest/gtest.h>
#include <limits>
#include <string>
#include <vector>

#include "formats/openfoam/read_poly_mesh.h"
#include "testing/PolyMeshWriter.h"
#include "tests/formats/openfoam/FolderTest.h"

namespace velto::openfoam {
namespace {

using testing::BoxMesh;
using testing::BoxPatch;
using testing::BoxZone;
using testing::WriteOptions;

struct Option {
  const char* name;
  std::function<void(WriteOptions&)> set;
};

void setNothing(WriteOptions&) {}

// Each test combines one of these with one of the forms below.
const std::vector<Option>& options() {
  static const std::vector<Option> kOptions = {
      {"Usual", setNothing},
      {"NoVersion", [](WriteOptions& o) { o.version = false; }},
      {"NoArch", [](WriteOptions& o) { o.arch = false; }},
      {"NoNote", [](WriteOptions& o) { o.note = false; }},
      {"BareHeader", [](WriteOptions& o) { o.version = o.arch = o.note = false; }},
      {"Comments", [](WriteOptions& o) { o.comments = true; }},
      {"NoCounts", [](WriteOptions& o) { o.counts = o.equalInBraces = false; }},
      {"OneLine", [](WriteOptions& o) { o.oneLine = true; }},
      {"OneLineComments", [](WriteOptions& o) { o.oneLine = o.comments = true; }},
      {"NoBraces", [](WriteOptions& o) { o.equalInBraces = false; }},
      {"EmptyAsZero", [](WriteOptions& o) { o.emptyAsZero = true; }},
      {"EmptyAsZeroNoArch", [](WriteOptions& o) { o.emptyAsZero = !(o.arch = false); }},
      {"FaceList", [](WriteOptions& o) { o.compactFaces = false; }},
      {"FaceListNoArch", [](WriteOptions& o) { o.compactFaces = o.arch = false; }},
      {"PaddedNeighbour", [](WriteOptions& o) { o.padNeighbour = true; }},
      {"FlipsAsWords", [](WriteOptions& o) { o.flipsAsWords = true; }},
      {"GzippedPoints", [](WriteOptions& o) { o.gzipFiles = {"points"}; }},
      {"GzippedFacesNoArch",
       [](WriteOptions& o) {
         o.gzipFiles = {"faces"};
         o.arch = false;
       }},
      {"GzippedBoundaryAndZones",
       [](WriteOptions& o) {
         o.gzipFiles = {"boundary", "cellZones", "faceZones"};
       }},
      {"Gzipped", [](WriteOptions& o) { o.gzip = true; }},
      {"GzippedNoArch", [](WriteOptions& o) { o.gzip = !(o.arch = false); }},
  };
  return kOptions;
}

const std::vector<Option>& forms() {
  static const std::vector<Option> kForms = {
      {"Text", setNothing},
      {"Binary32", [](WriteOptions& o) { o.binary = true; }},
      {"Binary64",
       [](WriteOptions& o) {
         o.binary = true;
         o.labelBits = 64;
       }},
      {"Binary32Float",
       [](WriteOptions& o) {
         o.binary = true;
         o.scalarBits = 32;
       }},
      {"Binary64Float",
       [](WriteOptions& o) {
         o.binary = true;
         o.labelBits = 64;
         o.scalarBits = 32;
       }},
  };
  return kForms;
}

BoxMesh boxWithZones(std::int64_t nx, std::int64_t ny, std::int64_t nz) {
  BoxMesh mesh = testing::makeBox(nx, ny, nz);
  mesh.patches[0].extra = {{"inGroups", "1(inflow)"}, {"transform", "{ x 1; }"}};
  const std::int64_t last = mesh.cellCount - 1;
  mesh.cellZones = {{"some", {0, last, -1, last + 100}, {}, false}, {"none", {}, {}, false}};
  mesh.faceZones = {{"oriented", {2, 0, 1}, {true, false, true}, true},
                    {"equal", {7, 7}, {false, false}, true},
                    {"empty", {}, {}, true},
                    {"plain", {3}, {}, false}};
  return mesh;
}

std::vector<ElementZone> zonesOf(const std::vector<BoxZone>& zones) {
  std::vector<ElementZone> result;
  result.reserve(zones.size());
  for (const BoxZone& zone : zones) {
    result.push_back(
        {zone.name, zone.labels, {zone.flipMap.begin(), zone.flipMap.end()}, zone.oriented, 0});
  }
  return result;
}

std::vector<std::uint64_t> idsOf(const std::vector<std::int64_t>& labels) {
  std::vector<std::uint64_t> ids;
  ids.reserve(labels.size());
  for (const std::int64_t label : labels) {
    ids.push_back(static_cast<std::uint64_t>(label) + 1);
  }
  return ids;
}

// What reading a box that was written with `options` should give.
PolyMesh expectedMesh(const BoxMesh& box, const WriteOptions& options) {
  PolyMesh mesh;
  mesh.points = box.points;
  for (std::size_t i = 0; i + 1 < box.faceOffsets.size(); ++i) {
    mesh.faceNodeCounts.push_back(
        static_cast<std::int16_t>(box.faceOffsets[i + 1] - box.faceOffsets[i]));
  }
  mesh.faceNodeIds = idsOf(box.faceNodes);
  mesh.owner = idsOf(box.owner);
  mesh.neighbour = idsOf(box.neighbour);
  if (options.padNeighbour) {
    mesh.neighbour.resize(box.owner.size(), 0);
  }
  for (const BoxPatch& patch : box.patches) {
    Patch expected;
    expected.name = patch.name;
    expected.type = patch.type;
    expected.faceCount = static_cast<std::uint64_t>(patch.faceCount);
    expected.firstFace = static_cast<std::uint64_t>(patch.firstFace);
    expected.entries = {{"type", patch.type}};
    expected.entries.insert(expected.entries.end(), patch.extra.begin(), patch.extra.end());
    expected.entries.emplace_back("nFaces", std::to_string(patch.faceCount));
    expected.entries.emplace_back("startFace", std::to_string(patch.firstFace));
    mesh.patches.push_back(expected);
  }
  mesh.cellZones = zonesOf(box.cellZones);
  mesh.faceZones = zonesOf(box.faceZones);
  if (options.note) {
    mesh.note = Note{static_cast<std::uint64_t>(box.pointCount()),
                     static_cast<std::uint64_t>(box.cellCount),
                     static_cast<std::uint64_t>(box.faceCount()), box.neighbour.size()};
  }
  return mesh;
}

class RoundTrip : public FolderTest,
                  public ::testing::WithParamInterface<std::tuple<std::size_t, std::size_t>> {
 protected:
  WriteOptions chosen() const {
    WriteOptions chosen;
    forms()[std::get<0>(GetParam())].set(chosen);
    options()[std::get<1>(GetParam())].set(chosen);
    return chosen;
  }
};

TEST_P(RoundTrip, KeepsABoxWithZones) {
  const BoxMesh box = boxWithZones(3, 2, 2);
  testing::writePolyMesh(folder_, box, chosen());
  EXPECT_EQ(describe(read()), describe(expectedMesh(box, chosen())));
}

TEST_P(RoundTrip, KeepsASingleCell) {
  const BoxMesh box = testing::makeBox(1, 1, 1);
  testing::writePolyMesh(folder_, box, chosen());
  EXPECT_EQ(describe(read()), describe(expectedMesh(box, chosen())));
}

TEST_P(RoundTrip, KeepsAnEmptyMesh) {
  BoxMesh box;
  box.faceOffsets = {0};
  testing::writePolyMesh(folder_, box, chosen());
  EXPECT_EQ(describe(read()), describe(expectedMesh(box, chosen())));
}

// Large enough for several windows of each file.
TEST_P(RoundTrip, KeepsABoxOfManyWindows) {
  const BoxMesh box = testing::makeBox(37, 31, 29);
  testing::writePolyMesh(folder_, box, chosen());
  const PolyMesh expected = expectedMesh(box, chosen());
  const PolyMesh mesh = read();
  EXPECT_TRUE(mesh.points == expected.points);
  EXPECT_TRUE(mesh.faceNodeCounts == expected.faceNodeCounts);
  EXPECT_TRUE(mesh.faceNodeIds == expected.faceNodeIds);
  EXPECT_TRUE(mesh.owner == expected.owner);
  EXPECT_TRUE(mesh.neighbour == expected.neighbour);
}

INSTANTIATE_TEST_SUITE_P(AllForms, RoundTrip,
                         ::testing::Combine(::testing::Range<std::size_t>(0, forms().size()),
                                            ::testing::Range<std::size_t>(0, options().size())),
                         [](const auto& row) {
                           return std::string(forms()[std::get<0>(row.param)].name) +
                                  options()[std::get<1>(row.param)].name;
                         });

using UnusualMeshes = FolderTest;

TEST_F(UnusualMeshes, KeepLabelsOfSixtyFourBits) {
  BoxMesh box = testing::makeBox(1, 1, 1);
  box.owner = {std::numeric_limits<std::int64_t>::max(),
               std::numeric_limits<std::int64_t>::min(),
               -1,
               1LL << 40,
               0,
               5};
  for (const bool binary : {false, true}) {
    WriteOptions options;
    options.binary = binary;
    options.labelBits = 64;
    testing::writePolyMesh(folder_, box, options);
    const std::vector<std::uint64_t> expected = {
        0x8000000000000000U, 0x8000000000000001U, 0, (1ULL << 40) + 1, 1, 6};
    EXPECT_EQ(read().owner, expected);
  }
}

TEST_F(UnusualMeshes, KeepFacesOfAllSizes) {
  BoxMesh box = testing::makeBox(1, 1, 1);
  box.faceOffsets = {0};
  box.faceNodes.clear();
  for (const std::int64_t size : {0, 1, 99, 100, 101, 32767}) {
    for (std::int64_t i = 0; i < size; ++i) {
      box.faceNodes.push_back(i % 8);
    }
    box.faceOffsets.push_back(box.faceOffsets.back() + size);
  }
  for (const auto& [binary, compact] : {std::pair(false, true), {true, true}, {true, false}}) {
    WriteOptions options;
    options.binary = binary;
    options.compactFaces = compact;
    testing::writePolyMesh(folder_, box, options);
    const PolyMesh mesh = read();
    const std::vector<std::int16_t> expected = {0, 1, 99, 100, 101, 32767};
    EXPECT_EQ(mesh.faceNodeCounts, expected);
    EXPECT_EQ(mesh.faceNodeIds, idsOf(box.faceNodes));
  }
}

}  // namespace
}  // namespace velto::openfoam
