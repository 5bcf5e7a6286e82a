// SPDX-License-Identifier: Apache-2.0
//
// Cells of every shape, from faces and from nodes, in space and in a plane.

#include "embedded/base/shapes.h"

#include <gtest/gtest.h>

#include "embedded/memory/CaseBuilder.h"
#include "tests/formats/vtu/vtu_cases.h"

namespace velto::testing {
namespace {

using memory::CaseBuilder;
using memory::Slice;

/// The arrays of cells only.
Texts cellsOf(const Written& written) {
  EXPECT_EQ(written.errors(), Texts());
  Texts lines;
  for (const std::string& line : written.lines()) {
    if (line.compare(0, 6, "Cells ") == 0) {
      lines.push_back(line.substr(6));
    }
  }
  return lines;
}

std::vector<double> volumesOf(const Written& written) {
  return volumes(written.file().pieces.at(0));
}

const std::vector<double> kVolumes = {1, 1.0 / 3, 0.5, 1.25 / 6, 1.25};

void expectVolumes(const Written& written) {
  const std::vector<double> found = volumesOf(written);
  ASSERT_EQ(found.size(), kVolumes.size());
  for (std::size_t i = 0; i < found.size(); ++i) {
    EXPECT_NEAR(found[i], kVolumes[i], 1e-12) << "cell " << i + 1;
  }
}

const std::string kPrismFaces =
    "faces Int64: 7 4 3 7 4 0 5 0 4 14 13 12 5 3 15 16 17 7 4 0 12 15 3 4 4 7 17 14 4 12 13 16 15 "
    "4 14 17 16 13";

TEST(ShapesInVtu, ArePutTogetherFromFaces) {
  const Written written(*allShapes());
  const std::string connectivity =
      "connectivity Int64: 0 3 7 4 1 2 6 5 7 4 5 6 8 1 9 5 2 10 6 8 5 6 11 0 3 4 7 12 13 14 15 16 "
      "17";
  EXPECT_EQ(cellsOf(written),
            Texts({connectivity, "offsets Int64: 8 13 19 23 33", "types UInt8: 12 14 13 10 42",
                   kPrismFaces, "faceoffsets Int64: -1 -1 -1 -1 38"}));
  expectVolumes(written);
}

TEST(ShapesInVtu, ComeFromTheNodesOfCells) {
  const Written written(*allShapesByNodes());
  const std::string connectivity =
      "connectivity Int64: 0 1 2 3 4 5 6 7 4 5 6 7 8 1 9 5 2 10 6 5 11 6 8 0 3 4 7 12 13 14 15 16 "
      "17";
  EXPECT_EQ(cellsOf(written),
            Texts({connectivity, "offsets Int64: 8 13 19 23 33", "types UInt8: 12 14 13 10 42",
                   kPrismFaces, "faceoffsets Int64: -1 -1 -1 -1 38"}));
  expectVolumes(written);
}

TEST(ShapesInVtu, AreTheSameWhicheverShapeTheZoneNames) {
  const cases::CasePtr made = allShapes();
  const Texts expected = cellsOf(Written(*made));
  made->zone(4).cellInfo[cellZoneCellType] = base::cellShapePolyhedron;
  made->arrays().cellTypes = {};
  EXPECT_EQ(cellsOf(Written(*made)), expected);
}

TEST(ShapesInVtu, TakeTheShapeOfTheZoneWithoutTypesOfCells) {
  const cases::CasePtr made = cases::postHex();
  made->arrays(cases::kPostMesh).cellTypes = {};
  const Texts expected = {"connectivity Int64: 0 1 2 3 4 5 6 7", "offsets Int64: 8",
                          "types UInt8: 12"};
  EXPECT_EQ(cellsOf(Written(*made)), expected);
  made->zone(3, cases::kPostMesh).cellInfo[cellZoneCellType] = {};
  EXPECT_EQ(cellsOf(Written(*made)), expected);
}

TEST(ShapesInVtu, TellShapesFromTheNumberOfNodesIfNothingElseDoes) {
  const cases::CasePtr made = allShapesByNodes();
  const Texts expected = cellsOf(Written(*made));
  made->arrays().cellTypes = {};
  EXPECT_EQ(cellsOf(Written(*made)), expected);
}

TEST(ShapesInVtu, HaveWedgesThatLookOutwardsWhicheverWayTheyCame) {
  for (const std::vector<std::uint64_t>& nodes :
       {std::vector<std::uint64_t>{2, 10, 6, 3, 11, 7}, {2, 6, 10, 3, 7, 11}}) {
    const cases::CasePtr made = allShapesByNodes();
    std::vector<std::uint64_t> ids(made->arrays().cellNodes[4].ids.begin(),
                                   made->arrays().cellNodes[4].ids.end());
    std::copy(nodes.begin(), nodes.end(), ids.begin() + 13);
    made->arrays().cellNodes[4].ids = Slice<std::uint64_t>(ids);
    const Written written(*made);
    EXPECT_EQ(written.file().pieces.at(0).values("connectivity"),
              Written(*allShapesByNodes()).file().pieces.at(0).values("connectivity"));
    expectVolumes(written);
  }
}

TEST(ShapesInVtu, KeepACellWhoseFacesDoNotClose) {
  const cases::CasePtr made = cases::oneHex();
  made->arrays().faceNodes[2].ids = Slice<std::uint64_t>(std::vector<std::uint64_t>{
      1, 5, 8, 4, 2, 3, 7, 6, 1, 2, 6, 5, 4, 8, 7, 3, 1, 2, 3, 4, 5, 6, 7, 8});
  EXPECT_EQ(cellsOf(Written(*made)),
            Texts({"connectivity Int64: 0 1 2 3 4 5 6 7", "offsets Int64: 8", "types UInt8: 42",
                   "faces Int64: 6 4 0 4 7 3 4 1 2 6 5 4 0 1 5 4 4 3 7 6 2 4 0 1 2 3 4 4 5 6 7",
                   "faceoffsets Int64: 31"}));
}

// --- Planes -------------------------------------------------------------------------------------

CaseBuilder planeBuilder() {
  CaseBuilder builder(2);
  builder.nodes(1, "points", {{0, 0}, {1, 0}, {2, 0}, {2, 1}, {1, 2}, {0, 1}, {3, 0.5}});
  return builder;
}

TEST(PlanesInVtu, HavePolygonsFromLines) {
  const Written written(*planeBuilder()
                             .faces(2, "inside", faceZoneTypeInterior, {{{3, 4}, 1, 2}})
                             .faces(3, "rim", base::boundaryWall,
                                    {{{1, 2}, 1},
                                     {{2, 3}, 1},
                                     {{4, 5}, 1},
                                     {{5, 6}, 1},
                                     {{6, 1}, 1},
                                     {{3, 7}, 2},
                                     {{7, 4}, 2}})
                             .cells(4, "sheet", base::cellShapeMixed, 2)
                             .build());
  EXPECT_EQ(cellsOf(written), Texts({"connectivity Int64: 2 3 4 5 0 1 3 2 6", "offsets Int64: 6 9",
                                     "types UInt8: 7 5"}));
  EXPECT_EQ(volumesOf(written), std::vector<double>({3, 0.5}));
}

TEST(PlanesInVtu, HavePolygonsFromNodes) {
  const Written written(*planeBuilder()
                             .cells(4, "sheet",
                                    std::vector<int>{base::cellShapePolyhedron,
                                                     base::cellShapeTriangle, base::cellShapeMixed})
                             .cellNodes(4, {{1, 2, 3, 4, 6}, {6, 4, 5}, {3, 7, 4}})
                             .build());
  EXPECT_EQ(cellsOf(written), Texts({"connectivity Int64: 0 1 2 3 5 5 3 4 2 6 3",
                                     "offsets Int64: 5 8 11", "types UInt8: 7 5 5"}));
  EXPECT_EQ(volumesOf(written), std::vector<double>({2, 1, 0.5}));
}

TEST(PlanesInVtu, MayLieInSpace) {
  const Written written(
      *CaseBuilder()
           .nodes(1, "points", {{0, 0, 5}, {1, 0, 5}, {1, 1, 5}, {0, 1, 5}})
           .cells(2, "sheet",
                  std::vector<int>{base::cellShapeTriangle, base::cellShapeQuadrilateral})
           .cellNodes(2, {{1, 2, 3}, {1, 2, 3, 4}})
           .build());
  EXPECT_EQ(cellsOf(written),
            Texts({"connectivity Int64: 0 1 2 0 1 2 3", "offsets Int64: 3 7", "types UInt8: 5 9"}));
}

}  // namespace
}  // namespace velto::testing
