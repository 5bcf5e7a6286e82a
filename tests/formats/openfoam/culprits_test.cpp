// SPDX-License-Identifier: Apache-2.0
//
// Each defect of a mesh that can be read gets a pending warning that names it.

#include <cmath>
#include <functional>
#include <gtest/gtest.h>

#include "formats/openfoam/OpenFoamProvider.h"
#include "testing/PolyMeshWriter.h"
#include "testing/TempFolder.h"

namespace velto::openfoam {
namespace {

using testing::BoxMesh;
using testing::makeBox;

/// The warnings of a mesh, without prefix and folder, one a line.
std::string warningsOf(const BoxMesh& mesh, const testing::WriteOptions& options = {}) {
  testing::TempFolder temp;
  writePolyMesh(temp.path("m"), mesh, options);
  OpenFoamProvider provider;
  EXPECT_TRUE(provider.startReading(temp.path("m"), dataClassCase));
  EXPECT_FALSE(provider.hasError());
  const std::string prefix = "Warning:\n\t" + temp.path("m") + "/";
  std::string text;
  for (const std::string& warning : provider.getWarnings(true, true)) {
    EXPECT_EQ(warning.substr(0, prefix.size()), prefix);
    text += warning.substr(prefix.size()) + "\n";
  }
  return text;
}

testing::WriteOptions withoutNote() {
  testing::WriteOptions options;
  options.note = false;
  return options;
}

struct Row {
  const char* name;
  std::function<void(BoxMesh&)> damage;
  const char* expected;

  friend std::ostream& operator<<(std::ostream& out, const Row& row) { return out << row.name; }
};

// The sound mesh: 2 x 1 x 1 cells, 12 points, 1 internal face, patches of 1, 1, 2, 2, 2, 2 faces.
const Row kRows[] = {
    {"Sound", [](BoxMesh&) {}, ""},
    {"NanCoordinate", [](BoxMesh& mesh) { mesh.points[3 * 5 + 1] = std::nan(""); },
     "points: point 5 is (0.250000 nan 0.000000), finite numbers are expected\n"},
    {"InfiniteCoordinate", [](BoxMesh& mesh) { mesh.points[0] = -HUGE_VAL; },
     "points: point 0 is (-inf 0.000000 0.000000), finite numbers are expected\n"},
    {"NodeLabelTooLarge", [](BoxMesh& mesh) { mesh.faceNodes[4 * 3 + 2] = 12; },
     "faces: face 3, node 2: label 12 is out of range, allowed are 0 to 11\n"},
    {"NodeLabelNegative", [](BoxMesh& mesh) { mesh.faceNodes[0] = -1; },
     "faces: face 0, node 0: label -1 is out of range, allowed are 0 to 11\n"},
    {"OwnerBeyondTheCells", [](BoxMesh& mesh) { mesh.owner[4] = 5; },
     "owner: face 4: label 5 is out of range, allowed are 0 to 1\n"},
    {"OwnerFarBeyondTheCells", [](BoxMesh& mesh) { mesh.owner[4] = 2147483647; },
     "owner: face 4: label 2147483647 is out of range, allowed are 0 to 1\n"},
    {"OwnerNegative", [](BoxMesh& mesh) { mesh.owner[4] = -3; },
     "owner: face 4: label -3 is out of range, allowed are 0 to 1\n"},
    {"NeighbourBeyondTheCells", [](BoxMesh& mesh) { mesh.neighbour[0] = 9; },
     "neighbour: face 0: label 9 is out of range, allowed are 0 to 1\n"},
    {"OneCellOnBothSides", [](BoxMesh& mesh) { mesh.neighbour[0] = 0; },
     "neighbour: face 0: label 0 is the face's owner too, two cells are expected\n"},
    {"PatchesOverlap", [](BoxMesh& mesh) { mesh.patches[2].firstFace = 2; },
     "boundary: line 16, patch yMin: startFace is 2, patch xMax ends at 3, startFace 3 is expected\nboundary: line 17, patch yMax: startFace is 5, patch yMin ends at 4, startFace 4 is expected\n"},
    {"PatchesLeaveAGap",
     [](BoxMesh& mesh) {
       mesh.patches[2].firstFace = 4;
       mesh.patches[2].faceCount = 1;
     },
     "boundary: line 16, patch yMin: startFace is 4, patch xMax ends at 3, startFace 3 is expected\n"},
    {"PatchesReachPastTheLastFace", [](BoxMesh& mesh) { mesh.patches[5].faceCount = 3; },
     "boundary: line 19, patch zMax: startFace 9 and nFaces 3 reach past the last face, the mesh has 11 faces\n"},
    {"PatchesEndEarly", [](BoxMesh& mesh) { mesh.patches.pop_back(); },
     "boundary: 2 faces from 9 on are in no patch, patch zMin ends at 9\n"},
    {"PatchesWithoutFacesBetweenOthers",
     [](BoxMesh& mesh) {
       mesh.patches.insert(mesh.patches.begin() + 1, {"none", "patch", 0, 2, {}});
       mesh.patches.push_back({"nothing", "patch", 0, 0, {}});
       mesh.patches.push_back({"nobody", "patch", 0, 11, {}});
       mesh.patches.push_back({"late", "patch", 0, 5, {}});
     },
     ""},
    {"APatchWithoutFacesInsideAnother",
     [](BoxMesh& mesh) {
       mesh.patches.push_back({"none", "patch", 0, 6, {}});
     },
     "boundary: line 20, patch none: startFace is 6, patch yMax ends at 7, startFace 7 is expected\n"},
    {"AnInternalFaceTooFew", [](BoxMesh& mesh) { mesh.neighbour.clear(); },
     "boundary: line 14, patch xMin: startFace is 1, the internal faces end at 0, startFace 0 is expected\n"},
    {"PatchesOfOneName",
     [](BoxMesh& mesh) {
       mesh.patches[2].name = "xMin";
       mesh.patches[4].name = "xMin";
     },
     "boundary: line 16, patch xMin: line 14 has a patch of this name already\nboundary: line 18, patch xMin: line 14 has a patch of this name already\n"},
    {"CyclicWithoutItsOtherHalf",
     [](BoxMesh& mesh) {
       mesh.patches[0].type = "cyclic";
       mesh.patches[0].extra = {{"neighbourPatch", "elsewhere"}};
     },
     "boundary: line 14, patch xMin: neighbourPatch elsewhere is no patch\n"},
    {"CyclicThatIsNotNamedInReturn",
     [](BoxMesh& mesh) {
       mesh.patches[0].type = "cyclic";
       mesh.patches[0].extra = {{"neighbourPatch", "xMax"}};
     },
     "boundary: line 14, patch xMin: neighbourPatch xMax does not name it in return\n"},
    {"CyclicOfUnequalHalves",
     [](BoxMesh& mesh) {
       mesh.patches[1].type = "cyclic";
       mesh.patches[1].extra = {{"neighbourPatch", "yMin"}};
       mesh.patches[2].type = "cyclic";
       mesh.patches[2].extra = {{"neighbourPatch", "xMax"}};
     },
     "boundary: line 15, patch xMax: nFaces is 1, that of its other half yMin is 2\nboundary: line 16, patch yMin: nFaces is 2, that of its other half xMax is 1\n"},
    {"CellLabelOutOfRange",
     [](BoxMesh& mesh) {
       mesh.cellZones = {{"a", {0, 2}, {}, false}, {"b", {-1}, {}, false}};
     },
     "cellZones: zone a, entry 1: label 2 is out of range, allowed are 0 to 1\ncellZones: zone b, entry 0: label -1 is out of range, allowed are 0 to 1\n"},
    {"CellInTwoZones",
     [](BoxMesh& mesh) {
       mesh.cellZones = {{"a", {0, 1}, {}, false}, {"b", {1}, {}, false}};
     },
     "cellZones: zone b, entry 0: cell 1 is in a zone already\n"},
    {"FaceInTwoZones",
     [](BoxMesh& mesh) {
       mesh.faceZones = {{"a", {0}, {}, false}, {"b", {0}, {}, false}};
     },
     "faceZones: zone b, entry 0: face 0 is in a zone already\n"},
};

class Culprits : public ::testing::TestWithParam<Row> {};

TEST_P(Culprits, AreNamed) {
  BoxMesh mesh = makeBox(2, 1, 1);
  GetParam().damage(mesh);
  EXPECT_EQ(warningsOf(mesh, withoutNote()), GetParam().expected);
}

INSTANTIATE_TEST_SUITE_P(Kinds, Culprits, ::testing::ValuesIn(kRows),
                         [](const auto& row) { return std::string(row.param.name); });

TEST(CulpritsOfAKind, AreNamedTenTimesAndThenCounted) {
  BoxMesh mesh = makeBox(2, 1, 1);
  for (std::size_t i = 0; i < 12; ++i) {
    mesh.faceNodes[i] = 99;
  }
  std::string expected;
  for (int i = 0; i < 10; ++i) {
    expected += "faces: face " + std::to_string(i / 4) + ", node " + std::to_string(i % 4) +
                ": label 99 is out of range, allowed are 0 to 11\n";
  }
  EXPECT_EQ(warningsOf(mesh, withoutNote()),
            expected + "faces: 12 node labels out of range in all\n");
}

TEST(CulpritsOfCells, NamesCellsOfFewerThanFourFaces) {
  BoxMesh mesh = makeBox(2, 1, 1);
  // All faces but three of cell 1 are given to cell 0.
  int left = 2;
  for (std::size_t face = 1; face < mesh.owner.size(); ++face) {
    if (mesh.owner[face] == 1 && --left < 0) {
      mesh.owner[face] = 0;
    }
  }
  EXPECT_EQ(warningsOf(mesh, withoutNote()),
            "owner: cell 1 has 3 faces, at least 4 are expected\n");
}

TEST(CulpritsOfFaces, NamesFacesOfFewerThanThreeNodes) {
  BoxMesh mesh = makeBox(1, 1, 1);
  mesh.faceNodes.resize(mesh.faceNodes.size() - 2);
  mesh.faceOffsets.back() -= 2;
  EXPECT_EQ(warningsOf(mesh), "faces: face 5 has 2 nodes, at least 3 are expected\n");
}

TEST(CulpritsOfTheNote, SaysWhereItDiffers) {
  BoxMesh mesh = makeBox(2, 1, 1);
  mesh.cellCount = 3;
  EXPECT_EQ(warningsOf(mesh), "owner: the note in the header says nCells:3, the files hold 2\n");
}

TEST(NeighbourPadding, IsNoCulprit) {
  testing::WriteOptions options;
  options.padNeighbour = true;
  EXPECT_EQ(warningsOf(makeBox(2, 2, 2), options), "");
}

}  // namespace
}  // namespace velto::openfoam
