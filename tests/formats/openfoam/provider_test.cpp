// SPDX-License-Identifier: Apache-2.0
//
// An OpenFOAM mesh as the contract shows it.

#include <gtest/gtest.h>

#include "embedded/base/shapes.h"
#include "formats/openfoam/OpenFoamProvider.h"
#include "formats/openfoam/case_from_poly_mesh.h"
#include "testing/PolyMeshWriter.h"
#include "testing/TempFolder.h"
#include "tests/formats/openfoam/describe_case.h"
#include "tests/formats/openfoam/shapes_mesh.h"

namespace velto::openfoam {
namespace {

using testing::BoxMesh;
using testing::makeBox;
using testing::writePolyMesh;

struct Provider : ::testing::Test {
  /// Writes the mesh, opens it and expects no message.
  void open(const BoxMesh& mesh) {
    writePolyMesh(temp.path("polyMesh"), mesh);
    ASSERT_TRUE(provider.startReading(temp.path("polyMesh"), dataClassCase));
    EXPECT_EQ(provider.getErrors(true, true), std::vector<std::string>());
  }

  void expectNoWarnings() {
    EXPECT_EQ(provider.getWarnings(true, true), std::vector<std::string>());
  }

  testing::TempFolder temp;
  OpenFoamProvider provider;
};

TEST_F(Provider, ShowsPointsFacesPatchesAndCellsAsZones) {
  open(makeBox(2, 1, 1));
  expectNoWarnings();
  EXPECT_EQ(
      describeTables(provider),
      "sizes 3 12 11 2\nnode 1 'nodes' [1, 12] 12\nface 2 'interior' [1, 1] 1: type 2 'interior', shape 4, cells 9 | 9, shadow 0\nface 3 'xMin' [2, 2] 1: type 100 'patch', shape 4, cells 9 | -, shadow 0\nface 4 'xMax' [3, 3] 1: type 100 'patch', shape 4, cells 9 | -, shadow 0\nface 5 'yMin' [4, 5] 2: type 3 'wall', shape 4, cells 9 | -, shadow 0\nface 6 'yMax' [6, 7] 2: type 3 'wall', shape 4, cells 9 | -, shadow 0\nface 7 'zMin' [8, 9] 2: type 3 'wall', shape 4, cells 9 | -, shadow 0\nface 8 'zMax' [10, 11] 2: type 3 'wall', shape 4, cells 9 | -, shadow 0\ncell 9 'cells' [1, 2] 2: shape 4, bounded by 2 3 4 5 6 7 8\n");
  EXPECT_EQ(describeCellTypes(provider, 9), "uniform 4");
}

TEST_F(Provider, PutsTheOwnerOnSideZeroAndTheNeighbourOnSideOne) {
  open(makeBox(2, 1, 1));
  EXPECT_EQ(describeFaces(provider, 2), "(2 5 11 8) 1 2\n");
  EXPECT_EQ(describeFaces(provider, 4), "(3 6 12 9) 2 0\n");
}

TEST_F(Provider, IsARestartMeshOfTheLibrarysOwnVersionAndSolverType) {
  open(makeBox(1, 1, 1));
  std::vector<int> list;
  provider.getMeshIds(list, dataClassCase);
  EXPECT_EQ(list, std::vector<int>{1});
  provider.getTargets(list, 1, dataClassCase);
  EXPECT_EQ(list, std::vector<int>{targetRestart});
  provider.getPartitionIds(list, 1, dataClassCase);
  EXPECT_EQ(list, std::vector<int>());
  int major = 0;
  int minor = -1;
  int patch = -1;
  provider.getFileVersion(dataClassCase, major, minor, patch);
  EXPECT_EQ((std::vector<int>{major, minor, patch}), (std::vector<int>{1, 0, 0}));
  EXPECT_EQ(provider.getSolverType(), "VELTO_GENERIC");
  std::string units;
  provider.getMeshUnits(units);
  EXPECT_EQ(units, "m");
}

TEST_F(Provider, HandsOverTheCoordinates) {
  open(makeBox(1, 1, 1));
  std::vector<int> zones;
  provider.beginNodeCoordinates(zones);
  EXPECT_EQ(zones, std::vector<int>{1});
  std::vector<double> values(24);
  EXPECT_EQ(provider.readNodeCoordinates(1, values.data(), values.size()), 24U);
  provider.endNodeCoordinates();
  EXPECT_EQ(values, makeBox(1, 1, 1).points);
}

TEST_F(Provider, MakesAZoneOfEachCellZoneAndOfTheRest) {
  BoxMesh mesh = makeBox(4, 1, 1);
  mesh.cellZones = {{"rotor", {1, 2}, {}, false}, {"inletDuct", {0}, {}, false}};
  open(mesh);
  expectNoWarnings();
  const std::string tables = describeTables(provider);
  EXPECT_EQ(
      tables.substr(tables.find("cell ")),
      "cell 19 'rotor' [2, 3] 2: shape 4, bounded by 2 3 4 8 11 14 17\ncell 20 'inletDuct' [1, 1] 1: shape 4, bounded by 2 5 7 10 13 16\ncell 21 'default' [4, 4] 1: shape 4, bounded by 4 6 9 12 15 18\n");
}

TEST_F(Provider, LeavesOutCellZonesWithoutCellsAndKeepsTheirNames) {
  BoxMesh mesh = makeBox(2, 1, 1);
  mesh.cellZones = {{"rotor", {}, {}, false}, {"stator", {1}, {}, false}};
  open(mesh);
  expectNoWarnings();
  const std::string tables = describeTables(provider);
  EXPECT_EQ(
      tables.substr(tables.find("cell ")),
      "cell 13 'stator' [2, 2] 1: shape 4, bounded by 2 4 6 8 10 12\ncell 14 'default' [1, 1] 1: shape 4, bounded by 2 3 5 7 9 11\n");
  EXPECT_EQ(provider.getSettings(dataClassCase, "openfoam/cellZones/rotor/cells", 1).asString(),
            "0");
  EXPECT_FALSE(provider.getSettings(dataClassCase, "openfoam/cellZones/stator/cells", 1).isValid());
}

TEST_F(Provider, HasNoFaceZonesWithoutFaces) {
  BoxMesh mesh;
  mesh.faceOffsets = {0};
  mesh.patches = {{"inlet", "patch", 0, 0, {{"inGroups", "1(all)"}}}};
  open(mesh);
  expectNoWarnings();
  EXPECT_EQ(describeTables(provider), "sizes 3 0 0 0\n");
  EXPECT_EQ(provider.getSettings(dataClassCase, "openfoam/boundary/inlet/type", 1).asString(),
            "patch");
  EXPECT_EQ(provider.getSettings(dataClassCase, "openfoam/boundary/inlet/inGroups", 1).asString(),
            "1(all)");
}

TEST_F(Provider, RenumbersCellsWhoseZonesAreNoRanges) {
  BoxMesh mesh = makeBox(3, 1, 1);
  mesh.cellZones = {{"ends", {0, 2}, {}, false}};
  open(mesh);
  expectNoWarnings();
  const std::string tables = describeTables(provider);
  EXPECT_EQ(
      tables.substr(tables.find("cell ")),
      "cell 14 'ends' [1, 2] 2: shape 4, bounded by 2 3 4 5 6 8 10 12\ncell 15 'default' [3, 3] 1: shape 4, bounded by 2 3 7 9 11 13\n");
  // Cell 0 keeps id 1, cell 2 becomes 2, and cell 1 in the middle becomes 3.
  EXPECT_EQ(describeFaces(provider, 2), "(2 6 14 10) 1 3\n");
  EXPECT_EQ(describeFaces(provider, 3), "(3 7 15 11) 3 2\n");
}

TEST_F(Provider, TakesInternalFacesOfFaceZonesOutOfTheInterior) {
  BoxMesh mesh = makeBox(4, 1, 1);
  mesh.faceZones = {{"fan", {1}, {false}, true}};
  open(mesh);
  expectNoWarnings();
  const std::string tables = describeTables(provider);
  EXPECT_EQ(
      tables.substr(tables.find("face "), tables.find("face 4") - tables.find("face ")),
      "face 2 'interior' [1, 2] 2: type 2 'interior', shape 4, cells 10 | 10, shadow 0\nface 3 'fan' [3, 3] 1: type 2 'interior', shape 4, cells 10 | 10, shadow 0\n");
  EXPECT_EQ(describeFaces(provider, 2), "(2 7 17 12) 1 2\n(4 9 19 14) 3 4\n");
  EXPECT_EQ(describeFaces(provider, 3), "(3 8 18 13) 2 3\n");
  EXPECT_EQ(provider.getFaceCell0(3), 0U) << "no family is open";
}

TEST_F(Provider, LeavesBoundaryFacesOfFaceZonesInTheirPatches) {
  BoxMesh mesh = makeBox(2, 1, 1);
  mesh.faceZones = {{"lid", {1, 2}, {}, false}};
  open(mesh);
  expectNoWarnings();
  std::vector<int> zones;
  provider.getZoneIds(zoneCategoryFace, zones);
  EXPECT_EQ(zones, (std::vector<int>{2, 3, 4, 5, 6, 7, 8}));
  EXPECT_EQ(
      provider.getSettings(dataClassCase, "openfoam/faceZones/lid/boundaryFaces", 1).asString(),
      "2");
}

TEST_F(Provider, LinksTheHalvesOfACyclicPair) {
  BoxMesh mesh = makeBox(2, 1, 1);
  mesh.patches[0].type = "cyclic";
  mesh.patches[0].extra = {{"neighbourPatch", "xMax"}, {"transform", "translational"}};
  mesh.patches[1].type = "cyclic";
  mesh.patches[1].extra = {{"neighbourPatch", "xMin"}};
  open(mesh);
  expectNoWarnings();
  const std::string tables = describeTables(provider);
  EXPECT_EQ(
      tables.substr(tables.find("face 3"), tables.find("face 5") - tables.find("face 3")),
      "face 3 'xMin' [2, 2] 1: type 12 'cyclic', shape 4, cells 9 | -, shadow 4\nface 4 'xMax' [3, 3] 1: type 8 'cyclic', shape 4, cells 9 | -, shadow 3\n");
  std::vector<int> zones;
  provider.beginFaceShadows(zones);
  EXPECT_EQ(zones, (std::vector<int>{3, 4}));
  EXPECT_EQ(provider.getFaceShadow(2), 3U);
  EXPECT_EQ(provider.getFaceShadow(3), 2U);
  provider.endFaceShadows();
  EXPECT_EQ(provider.getSettings(dataClassCase, "openfoam/boundary/xMin/transform", 1).asString(),
            "translational");
}

TEST_F(Provider, LinksACyclicPatchWithoutItsOtherHalfToNoZone) {
  BoxMesh mesh = makeBox(1, 1, 1);
  mesh.patches[0].type = "cyclic";
  mesh.patches[0].extra = {{"neighbourPatch", "elsewhere"}};
  open(mesh);
  int shadow = 0;
  provider.getFaceZoneInfo(2, faceZoneShadow, shadow);
  EXPECT_EQ(shadow, -1);
  std::vector<int> zones;
  provider.beginFaceShadows(zones);
  EXPECT_EQ(zones, std::vector<int>());
  provider.endFaceShadows();
}

TEST_F(Provider, LeavesACyclicPatchOfBothHalvesUnlinked) {
  BoxMesh mesh = makeBox(1, 1, 1);
  mesh.patches[0].type = "cyclic";
  open(mesh);
  expectNoWarnings();
  int shadow = 7;
  provider.getFaceZoneInfo(2, faceZoneShadow, shadow);
  EXPECT_EQ(shadow, 7) << "not set";
}

TEST_F(Provider, TellsTheShapesOfCellsFromTheirFaces) {
  open(testing::shapesMesh());
  expectNoWarnings();
  EXPECT_EQ(
      describeTables(provider),
      "sizes 3 11 14 3\nnode 1 'nodes' [1, 11] 11\nface 2 'interior' [1, 2] 2: type 2 'interior', shape 4, cells 4 | 4, shadow 0\nface 3 'walls' [3, 14] 12: type 3 'wall', shape 0, cells 4 | -, shadow 0\ncell 4 'cells' [1, 3] 3: shape 0, bounded by 2 3\n");
  EXPECT_EQ(describeCellTypes(provider, 4), "4 6 5");
}

TEST_F(Provider, ServesProcessorFoldersAsPartitions) {
  writePolyMesh(temp.path("case/processor0/constant/polyMesh"), makeBox(1, 1, 1));
  writePolyMesh(temp.path("case/processor1/constant/polyMesh"), makeBox(2, 1, 1));
  ASSERT_TRUE(provider.startReading(temp.path("case"), dataClassCase));
  std::vector<int> partitions;
  provider.getPartitionIds(partitions, 1, dataClassCase);
  EXPECT_EQ(partitions, (std::vector<int>{0, 1}));
  std::uint64_t cells = 0;
  provider.getMeshSize(meshCellCount, cells);
  EXPECT_EQ(cells, 1U) << "the first partition is selected";
  provider.setPartitionId(1);
  provider.getMeshSize(meshCellCount, cells);
  EXPECT_EQ(cells, 2U);
}

TEST_F(Provider, LeavesOutProcessorsThatGotNothing) {
  BoxMesh nothing;
  nothing.faceOffsets = {0};
  writePolyMesh(temp.path("case/processor0/constant/polyMesh"), makeBox(1, 1, 1));
  writePolyMesh(temp.path("case/processor1/constant/polyMesh"), nothing);
  writePolyMesh(temp.path("case/processor2/constant/polyMesh"), makeBox(2, 1, 1));
  ASSERT_TRUE(provider.startReading(temp.path("case"), dataClassCase));
  std::vector<int> partitions;
  provider.getPartitionIds(partitions, 1, dataClassCase);
  EXPECT_EQ(partitions, (std::vector<int>{0, 2}));
  EXPECT_EQ(provider.getSettings(dataClassCase, "openfoam/processor1/cells", 1).asString(), "0");
  EXPECT_FALSE(provider.getSettings(dataClassCase, "openfoam/processor0/cells", 1).isValid());
}

TEST_F(Provider, RefusesWhatCannotBeReadWithOneErrorAndServesNothing) {
  writePolyMesh(temp.path("polyMesh"), makeBox(1, 1, 1));
  std::filesystem::remove(temp.path("polyMesh/owner"));
  EXPECT_FALSE(provider.startReading(temp.path("polyMesh"), dataClassCase));
  EXPECT_EQ(
      provider.getErrors(true, true),
      std::vector<std::string>{
          "Error:\n\t" + temp.path("polyMesh/owner") +
          ": no such file (nor owner.gz); a polyMesh folder holds points, faces, owner, neighbour and boundary"});
  std::vector<int> meshes{7};
  provider.getMeshIds(meshes, dataClassCase);
  EXPECT_EQ(meshes, std::vector<int>());
}

TEST_F(Provider, HasNoResults) {
  writePolyMesh(temp.path("polyMesh"), makeBox(1, 1, 1));
  EXPECT_FALSE(provider.startReading(temp.path("polyMesh"), dataClassResults));
  EXPECT_EQ(provider.getErrors(true, true),
            std::vector<std::string>{"Error:\n\t" + temp.path("polyMesh") +
                                     ": results of OpenFOAM cases cannot be read, only the mesh"});
}

TEST(BoundaryType, GoesByThePatchType) {
  EXPECT_EQ(boundaryTypeOf("wall"), base::boundaryWall);
  EXPECT_EQ(boundaryTypeOf("mappedWall"), base::boundaryWall);
  EXPECT_EQ(boundaryTypeOf("patch"), base::boundaryPatch);
  EXPECT_EQ(boundaryTypeOf("somethingNew"), base::boundaryPatch);
  EXPECT_EQ(boundaryTypeOf("symmetry"), base::boundarySymmetry);
  EXPECT_EQ(boundaryTypeOf("symmetryPlane"), base::boundarySymmetry);
  EXPECT_EQ(boundaryTypeOf("empty"), base::boundaryEmpty);
  EXPECT_EQ(boundaryTypeOf("wedge"), base::boundaryWedge);
  EXPECT_EQ(boundaryTypeOf("cyclic"), base::boundaryPeriodic);
  EXPECT_EQ(boundaryTypeOf("processor"), base::boundaryProcessor);
  EXPECT_EQ(boundaryTypeOf("processorCyclic"), base::boundaryProcessor);
  EXPECT_EQ(boundaryTypeOf("cyclicAMI"), base::boundaryCoupled);
  EXPECT_EQ(boundaryTypeOf("mappedPatch"), base::boundaryCoupled);
  EXPECT_EQ(boundaryTypeOf("nonConformalCyclic"), base::boundaryCoupled);
}

}  // namespace
}  // namespace velto::openfoam
