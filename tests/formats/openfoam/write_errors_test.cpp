// SPDX-License-Identifier: Apache-2.0
//
// Cases that cannot be written as an OpenFOAM mesh: what is said, and that nothing is left.

#include <cstdint>
#include <functional>
#include <gtest/gtest.h>
#include <limits>
#include <string>
#include <vector>

#include "formats/openfoam/OpenFoamConsumer.h"
#include "testing/PolyMeshWriter.h"
#include "testing/TempFolder.h"
#include "testing/cases.h"
#include "testing/write_case.h"
#include "tests/formats/openfoam/written_mesh.h"

namespace velto::openfoam {
namespace {

using memory::Case;
using memory::Slice;
using testing::TempFolder;
using Ids = std::vector<std::uint64_t>;
using Messages = std::vector<std::string>;

constexpr const char* kNothing = "end of writing: nothing was written because of the error before";
constexpr std::uint64_t kHuge = std::numeric_limits<std::uint64_t>::max();

struct Row {
  const char* name;
  std::function<void(Case&)> damage;
  std::string error;
};

void setIds(Slice<std::uint64_t>& slice, std::size_t at, std::uint64_t value) {
  Ids ids(slice.begin(), slice.end());
  ids.at(at) = value;
  slice = Slice<std::uint64_t>(ids);
}

Ids firstOf(const Slice<std::uint64_t>& slice, std::size_t count) {
  return {slice.begin(), slice.begin() + static_cast<std::ptrdiff_t>(count)};
}

/// The mesh is twoBodies(): face zones 2 "between" (1), 3 "fluid walls" (5), 4 "solid walls" (5),
/// cell zones 5 "fluid" (1) and 6 "solid" (1), 12 nodes.
const std::vector<Row>& rows() {
  static const std::vector<Row> kRows = {
      {"PlaneMesh", [](Case& c) { c.mesh().sizes[meshDimension] = 2; },
       "mesh 1: is of dimension 2, OpenFOAM meshes are of dimension 3"},
      {"NoNodeZones", [](Case& c) { c.mesh().zoneIds[zoneCategoryNode].clear(); },
       "mesh 1: has no nodes"},
      {"NoCellZones", [](Case& c) { c.mesh().zoneIds[zoneCategoryCell].clear(); },
       "mesh 1: has no cells"},
      {"NoFaceZones", [](Case& c) { c.mesh().zoneIds[zoneCategoryFace].clear(); },
       "mesh 1: has no faces"},
      {"NoZones", [](Case& c) { c.tables.meshes.clear(); },
       "there is no restart mesh, which is what an OpenFOAM folder holds"},
      {"ZoneWithoutRange", [](Case& c) { c.zone(3).sizes[zoneLastId].reset(); },
       "zone 3 'fluid walls': has no range of ids"},
      {"RangeThatEndsBeforeItBegins", [](Case& c) { c.zone(3).sizes[zoneFirstId] = 9; },
       "zone 3 'fluid walls': has no range of ids"},
      {"RangeFromNothing", [](Case& c) { c.zone(1).sizes[zoneFirstId] = 0; },
       "zone 1 'points': has no range of ids"},
      {"GapBetweenCellZones",
       [](Case& c) {
         c.zone(6).sizes[zoneFirstId] = 3;
         c.zone(6).sizes[zoneLastId] = 3;
       },
       "zone 6 'solid': begins with cell 3, expected 2"},
      {"CellZonesThatOverlap", [](Case& c) { c.zone(6).sizes[zoneFirstId] = 1; },
       "zone 6 'solid': begins with cell 1, expected 2"},
      {"FaceZoneTwice",
       [](Case& c) {
         c.mesh().zoneIds[zoneCategoryFace] = {2, 3, 4, 4};
       },
       "zone 4 'solid walls': begins with face 7, expected 12"},
      {"NoCoordinates", [](Case& c) { c.arrays().nodeCoordinates.remove(1); },
       "zone 1 'points': has 12 nodes and 0 coordinates, expected 3 for each node"},
      {"CoordinatesOfThePlane",
       [](Case& c) { c.arrays().nodeCoordinates[1] = Slice<double>(std::vector<double>(24)); },
       "zone 1 'points': has 12 nodes and 24 coordinates, expected 3 for each node"},
      {"MoreNodesThanCoordinates", [](Case& c) { c.zone(1).sizes[zoneLastId] = kHuge; },
       "zone 1 'points': has 18446744073709551615 nodes and 36 coordinates, expected 3 for each node"},
      {"NoFaceNodes", [](Case& c) { c.arrays().faceNodes.remove(3); },
       "zone 3 'fluid walls': the nodes of its faces are missing"},
      {"TooFewFaceNodes",
       [](Case& c) {
         auto& ids = c.arrays().faceNodes[3].ids;
         ids = Slice<std::uint64_t>(firstOf(ids, 19));
       },
       "zone 3 'fluid walls': has 5 faces, and numbers of nodes for 4"},
      {"TooManyFaceNodes",
       [](Case& c) {
         auto& ids = c.arrays().faceNodes[3].ids;
         Ids more(ids.begin(), ids.end());
         more.push_back(1);
         ids = Slice<std::uint64_t>(more);
       },
       "zone 3 'fluid walls': has 21 node ids, and 20 by the numbers of nodes of its faces"},
      {"FacesOfTwoNodes", [](Case& c) { c.arrays().faceNodes[3].uniform = 2; },
       "zone 3 'fluid walls': face 2 has 2 nodes, expected 3 or more"},
      {"FacesOfLessThanNoNodes", [](Case& c) { c.arrays().faceNodes[3].uniform = -4; },
       "zone 3 'fluid walls': face 2 has -4 nodes, expected 3 or more"},
      {"CountsOfTooFewFaces",
       [](Case& c) {
         c.arrays().faceNodes[3].uniform.reset();
         c.arrays().faceNodes[3].counts = Slice<short>(std::vector<short>{10, 10});
       },
       "zone 3 'fluid walls': has 5 faces, and numbers of nodes for 2"},
      {"ACountBelowThree",
       [](Case& c) {
         c.arrays().faceNodes[3].uniform.reset();
         c.arrays().faceNodes[3].counts = Slice<short>(std::vector<short>{4, 4, -1, 9, 4});
       },
       "zone 3 'fluid walls': face 4 has -1 nodes, expected 3 or more"},
      {"CountsThatSumToMore",
       [](Case& c) {
         c.arrays().faceNodes[3].uniform.reset();
         c.arrays().faceNodes[3].counts = Slice<short>(std::vector<short>(5, 32767));
       },
       "zone 3 'fluid walls': has 20 node ids, and 163835 by the numbers of nodes of its faces"},
      {"MoreFacesThanArrays", [](Case& c) { c.zone(4).sizes[zoneLastId] = kHuge; },
       "zone 4 'solid walls': has 18446744073709551609 faces, and numbers of nodes for 5"},
      {"NodeZero", [](Case& c) { setIds(c.arrays().faceNodes[3].ids, 9, 0); },
       "zone 3 'fluid walls': face 4 has node 0, the mesh has 12 nodes"},
      {"NodeBeyondTheMesh", [](Case& c) { setIds(c.arrays().faceNodes[4].ids, 19, 13); },
       "zone 4 'solid walls': face 11 has node 13, the mesh has 12 nodes"},
      {"NodeBeyondTheMeshInMixedFaces",
       [](Case& c) {
         c.arrays().faceNodes[4].uniform.reset();
         c.arrays().faceNodes[4].counts = Slice<short>(std::vector<short>{3, 5, 4, 4, 4});
         setIds(c.arrays().faceNodes[4].ids, 3, 99);
       },
       "zone 4 'solid walls': face 8 has node 99, the mesh has 12 nodes"},
      {"NoSide0", [](Case& c) { c.arrays().faceCell0.remove(3); },
       "zone 3 'fluid walls': the cells on side 0 of its faces are missing"},
      {"TooFewCells",
       [](Case& c) {
         c.arrays().faceCell0[3] = Slice<std::uint64_t>(Ids{1, 1, 1});
       },
       "zone 3 'fluid walls': has 5 faces and 3 cells on side 0"},
      {"TooManyCellsOnSide1",
       [](Case& c) {
         c.arrays().faceCell1[2] = Slice<std::uint64_t>(Ids{2, 2});
       },
       "zone 2 'between': has 1 faces and 2 cells on side 1"},
      {"CellBeyondTheMesh", [](Case& c) { setIds(c.arrays().faceCell0[3], 2, 3); },
       "zone 3 'fluid walls': face 4 has cell 3, the mesh has 2 cells"},
      {"HugeCellOnSide1", [](Case& c) { setIds(c.arrays().faceCell1[2], 0, kHuge); },
       "zone 2 'between': face 1 has cell 18446744073709551615, the mesh has 2 cells"},
      {"FaceWithoutCell", [](Case& c) { setIds(c.arrays().faceCell0[4], 1, 0); },
       "zone 4 'solid walls': face 8 has no cell"},
      {"BoundaryFaceWithTwoCells",
       [](Case& c) {
         c.arrays().faceCell1[3] = Slice<std::uint64_t>(Ids{0, 0, 0, 2, 0});
       },
       "zone 3 'fluid walls': face 5 has cells on both sides, and the zone is a boundary"},
      {"InternalFaceWithOneCell", [](Case& c) { c.arrays().faceCell1.remove(2); },
       "zone 2 'between': face 1 has a cell on one side only, and the zone lies inside the mesh"},
      {"OneCellOnBothSides", [](Case& c) { setIds(c.arrays().faceCell1[2], 0, 1); },
       "zone 2 'between': face 1 has cell 1 on both sides"},
      {"CellWithoutFace", [](Case& c) { c.zone(6).sizes[zoneLastId] = 3; },
       "zone 6 'solid': cell 3 has no face"},
      {"FarMoreCellsThanFaces", [](Case& c) { c.zone(6).sizes[zoneLastId] = kHuge; },
       "mesh 1: has 18446744073709551615 cells and only 11 faces"},
      {"TwoMeshes",
       [](Case& c) {
         c.mesh({2, targetRestart, -1}) = c.mesh();
       },
       "there are several meshes, an OpenFOAM folder holds one"},
      {"WholeAndInPartitions",
       [](Case& c) {
         c.mesh({1, targetRestart, 0}) = c.mesh();
       },
       "mesh 1: is there as a whole and in partitions"},
  };
  return kRows;
}

class CaseNotWritten : public ::testing::TestWithParam<Row> {};

TEST_P(CaseNotWritten, LeavesWhatWasThere) {
  const TempFolder temp;
  testing::writePolyMesh(temp.path("old/constant/polyMesh"), testing::makeBox(1, 1, 1));
  const testing::cases::CasePtr damaged = testing::cases::twoBodies();
  GetParam().damage(*damaged);
  const Messages expected = {"end of writing: " + GetParam().error, kNothing};
  EXPECT_EQ(writeInto(*damaged, temp.path("old")), expected);
  EXPECT_EQ(writeInto(*damaged, temp.path("new")), expected);
  EXPECT_EQ(namesIn(temp.path()), "old");
  EXPECT_EQ(namesIn(temp.path("old/constant")), "polyMesh");
  EXPECT_EQ(namesIn(temp.path("old/constant/polyMesh")), "boundary faces neighbour owner points");
}

INSTANTIATE_TEST_SUITE_P(All, CaseNotWritten, ::testing::ValuesIn(rows()),
                         [](const auto& row) { return std::string(row.param.name); });

// --- Names
// ----------------------------------------------------------------------------------------

TEST(FolderNames, NoneIsAnError) {
  EXPECT_EQ(
      writeInto(*testing::cases::oneHex(), ""),
      (Messages{"start of writing: no file name was given for what is to be written", kNothing}));
}

TEST(FolderNames, OfAFileIsAnError) {
  const TempFolder temp;
  testing::writeTextFile(temp.path("file"), "kept\n");
  EXPECT_EQ(
      writeInto(*testing::cases::oneHex(), temp.path("file")),
      (Messages{"start of writing: " + temp.path("file") + ": is a file, a case folder is expected",
                kNothing}));
  EXPECT_EQ(contentOf(temp.path("file")), "kept\n");
}

TEST(FolderNames, BelowAFileIsAnError) {
  const TempFolder temp;
  testing::writeTextFile(temp.path("file"), "kept\n");
  EXPECT_EQ(
      writeInto(*testing::cases::oneHex(), temp.path("file/case")),
      (Messages{"end of writing: " + temp.path("file/case") + ": cannot be made: Not a directory",
                kNothing}));
}

TEST(FolderNames, OfCasesAndMeshesLeadToTheMesh) {
  const TempFolder temp;
  for (const char* name : {"a", "b/", "c/constant", "d/constant/", "e/polyMesh", "f/polyMesh/"}) {
    EXPECT_EQ(writeInto(*testing::cases::oneHex(), temp.path(name)), Messages());
  }
  for (const char* folder : {"a/constant/polyMesh", "b/constant/polyMesh", "c/constant/polyMesh",
                             "d/constant/polyMesh", "e/polyMesh", "f/polyMesh"}) {
    EXPECT_EQ(namesIn(temp.path(folder)), "boundary cellZones faces neighbour owner points");
  }
}

TEST(FolderNames, OfACaseThatIsThereKeepWhatElseIsInIt) {
  const TempFolder temp;
  testing::writePolyMesh(temp.path("case/constant/polyMesh"), testing::makeBox(1, 1, 1));
  testing::writeTextFile(temp.path("case/constant/polyMesh/pointZones"), "old\n");
  testing::writeTextFile(temp.path("case/constant/transportProperties"), "kept\n");
  EXPECT_EQ(writeInto(*testing::cases::oneHex(), temp.path("case"), {"Gzipped", 0, 1}), Messages());
  EXPECT_EQ(namesIn(temp.path("case/constant")), "polyMesh transportProperties");
  EXPECT_EQ(namesIn(temp.path("case/constant/polyMesh")),
            "boundary cellZones.gz faces.gz neighbour.gz owner.gz points.gz");
}

TEST(OpenFoamConsumer, LeavesNothingIfWritingIsNotEnded) {
  const TempFolder temp;
  {
    OpenFoamConsumer consumer;
    consumer.setFileName(temp.path("case"), dataClassCase);
    consumer.startWriting(dataClassCase);
    consumer.setZoneIds(zoneCategoryNode, {1});
  }
  EXPECT_EQ(namesIn(temp.path()), "");
}

TEST(OpenFoamConsumer, WritesASecondTimeAfterAnError) {
  const TempFolder temp;
  OpenFoamConsumer consumer;
  consumer.setFileName(temp.path("case"), dataClassCase);
  const testing::cases::CasePtr damaged = testing::cases::oneHex();
  setIds(damaged->arrays().faceCell0[2], 2, 0);
  testing::writeCase(*damaged, consumer);
  EXPECT_EQ(consumer.getErrors(true, true),
            (Messages{"Error:\n\tend of writing: zone 2 'walls': face 3 has no cell",
                      std::string("Error:\n\t") + kNothing}));
  testing::writeCase(*testing::cases::oneHex(), consumer);
  EXPECT_EQ(consumer.getErrors(true, true), Messages());
  EXPECT_EQ(namesIn(temp.path("case/constant")), "polyMesh");
}

}  // namespace
}  // namespace velto::openfoam
