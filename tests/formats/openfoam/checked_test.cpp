// SPDX-License-Identifier: Apache-2.0
//
// What a checker says of OpenFOAM meshes: of a sound one that its folder holds no physics, and of a
// damaged one its own words beside the reader's, which name the place.

#include <filesystem>
#include <functional>
#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "velto/OrvChecker.h"

#include "testing/PolyMeshWriter.h"
#include "testing/TempFolder.h"
#include "testing/capture.h"
#include "tests/formats/openfoam/shapes_mesh.h"

namespace velto::openfoam {
namespace {

using testing::BoxMesh;
using Texts = std::vector<std::string>;

/// What a mesh whose zones give a location model is told: a folder holds no physics settings.
constexpr const char* kNoPhysics =
    "checkPhysicsToMeshMapUsingTopologyModel : No Physics Model - skipped";

struct Judgement {
  Texts errors;
  Texts warnings;
};

constexpr int kZones = 1;
constexpr int kConnectivity = 2;

/// Runs a checker of that level; warnings come without the folder.
Judgement judge(const std::string& folder, int level) {
  const testing::StreamCapture streams;
  OrvChecker checker;
  checker.setCheckLevel(level);
  const bool good = checker.checkCase(folder);
  EXPECT_EQ(good, checker.getErrors().empty());
  Judgement judgement{checker.getErrors(), checker.getWarnings()};
  for (std::string& warning : judgement.warnings) {
    const std::size_t at = warning.find(folder);
    if (at != std::string::npos) {
      warning.erase(at, folder.size() + 1);
    }
  }
  return judgement;
}

Judgement judge(const BoxMesh& mesh, int level) {
  const testing::TempFolder temp;
  testing::WriteOptions options;
  options.note = false;
  writePolyMesh(temp.path("polyMesh"), mesh, options);
  return judge(temp.path("polyMesh"), level);
}

/// A row of four cells: faces 0 to 2 are internal, then patches of 1, 1, 4, 4, 4 and 4 faces.
BoxMesh rowOfFour() { return testing::makeBox(4, 1, 1); }

void makeCyclic(testing::BoxPatch& patch, const std::string& neighbour) {
  patch.type = "cyclic";
  patch.extra = {{"neighbourPatch", neighbour}};
}

// --- Sound meshes -------------------------------------------------------------------------------

struct SoundRow {
  const char* name;
  std::function<void(BoxMesh&)> change;
};

std::ostream& operator<<(std::ostream& out, const SoundRow& row) { return out << row.name; }

const SoundRow kSound[] = {
    {"Row", [](BoxMesh&) {}},
    {"AHexahedronAWedgeAndAPyramid", [](BoxMesh& mesh) { mesh = testing::shapesMesh(); }},
    {"TwoDimensional",
     [](BoxMesh& mesh) { mesh.patches[4].type = mesh.patches[5].type = "empty"; }},
    {"CellZonesThatAreRanges",
     [](BoxMesh& mesh) {
       mesh.cellZones = {{"rotor", {2, 3}, {}, false}, {"stator", {0, 1}, {}, false}};
     }},
    {"ScatteredCellZones",
     [](BoxMesh& mesh) {
       mesh.cellZones = {{"odd", {1, 3}, {}, false}, {"first", {0}, {}, false}};
     }},
    {"ACellZoneWithoutCells",
     [](BoxMesh& mesh) {
       mesh.cellZones = {{"rotor", {}, {}, false}, {"stator", {0, 1}, {}, false}};
     }},
    {"CellZonesWithoutCells",
     [](BoxMesh& mesh) {
       mesh.cellZones = {{"rotor", {}, {}, false}, {"stator", {}, {}, false}};
     }},
    {"FaceZonesInsideTheFlow",
     [](BoxMesh& mesh) {
       mesh.faceZones = {{"fan", {1}, {false}, true}, {"screen", {0, 2}, {}, false}};
     }},
    {"AFaceZoneOnTheBoundary",
     [](BoxMesh& mesh) {
       mesh.faceZones = {{"lid", {5, 6}, {}, false}};
     }},
    {"ACyclicPair",
     [](BoxMesh& mesh) {
       makeCyclic(mesh.patches[0], "xMax");
       makeCyclic(mesh.patches[1], "xMin");
     }},
    {"APatchWithoutFaces",
     [](BoxMesh& mesh) {
       mesh.patches.insert(mesh.patches.begin() + 2, {"none", "patch", 0, 5, {}});
     }},
    {"APatchWithoutFacesThatStartsAtZero",
     [](BoxMesh& mesh) {
       mesh.patches.push_back({"none", "patch", 0, 0, {}});
     }},
    {"APatchWithoutFacesBehindTheLast",
     [](BoxMesh& mesh) {
       mesh.patches.push_back({"none", "patch", 0, mesh.faceCount(), {}});
     }},
    {"PatchesInAnyOrder", [](BoxMesh& mesh) { std::swap(mesh.patches[1], mesh.patches[4]); }},
    {"ARotorInTheMiddle",
     [](BoxMesh& mesh) {
       mesh = testing::makeBox(4, 4, 2);
       mesh.cellZones = {{"rotor", {5, 6, 9, 10, 21, 22, 25, 26}, {}, false}};
     }},
    {"ARotorThatTouchesNoPatch",
     [](BoxMesh& mesh) {
       mesh = testing::makeBox(3, 3, 3);
       mesh.cellZones = {{"rotor", {13}, {}, false}};
     }},
    {"ThreeCellZones",
     [](BoxMesh& mesh) {
       mesh = testing::makeBox(3, 2, 2);
       mesh.cellZones = {{"inlet", {0, 3, 6, 9}, {}, false},
                         {"outlet", {2, 5, 8, 11}, {}, false},
                         {"rotor", {1, 4, 7, 10}, {}, false}};
     }},
    {"ACheckerBoardOfCellZones",
     [](BoxMesh& mesh) {
       mesh = testing::makeBox(2, 2, 2);
       mesh.cellZones = {{"black", {0, 3, 5, 6}, {}, false}, {"white", {7, 4, 2, 1}, {}, false}};
     }},
    {"AFaceZoneAcrossCellZones",
     [](BoxMesh& mesh) {
       mesh = testing::makeBox(3, 3, 1);
       mesh.cellZones = {{"rotor", {4}, {}, false}};
       mesh.faceZones = {{"ring", {8, 5, 3, 7, 11}, {}, false}, {"rest", {0, 1}, {}, false}};
     }},
    {"ACyclicPairAcrossCellZones",
     [](BoxMesh& mesh) {
       mesh = testing::makeBox(4, 2, 1);
       mesh.cellZones = {{"rotor", {0, 1, 4, 6}, {}, false}};
       makeCyclic(mesh.patches[2], "yMax");
       makeCyclic(mesh.patches[3], "yMin");
     }},
    {"TwoDimensionalCellZones",
     [](BoxMesh& mesh) {
       mesh = testing::makeBox(3, 3, 1);
       mesh.cellZones = {{"rotor", {4}, {}, false},
                         {"stator", {0, 1, 2, 3, 5, 6, 7, 8}, {}, false}};
       mesh.patches[4].type = mesh.patches[5].type = "empty";
     }},
};

class SoundMeshes : public ::testing::TestWithParam<SoundRow> {};

TEST_P(SoundMeshes, LackPhysicsOnly) {
  BoxMesh mesh = rowOfFour();
  GetParam().change(mesh);
  const Judgement judgement = judge(mesh, kConnectivity);
  EXPECT_EQ(judgement.errors, Texts());
  EXPECT_EQ(judgement.warnings, Texts{kNoPhysics});
}

INSTANTIATE_TEST_SUITE_P(Checked, SoundMeshes, ::testing::ValuesIn(kSound),
                         [](const auto& row) { return std::string(row.param.name); });

/// What a processor gets that has no share in a mesh.
BoxMesh emptyPart() {
  BoxMesh nothing;
  nothing.faceOffsets = {0};
  nothing.patches = {{"xMin", "patch", 0, 0, {}}, {"xMax", "wall", 0, 0, {}}};
  nothing.cellZones = {{"rotor", {}, {}, false}};
  return nothing;
}

TEST(CheckedPartitions, LackPhysicsOnlyWhereOneIsEmpty) {
  const testing::TempFolder temp;
  writePolyMesh(temp.path("case/processor0/constant/polyMesh"), rowOfFour());
  writePolyMesh(temp.path("case/processor1/constant/polyMesh"), emptyPart());
  const Judgement judgement = judge(temp.path("case"), kConnectivity);
  EXPECT_EQ(judgement.errors, Texts());
  EXPECT_EQ(judgement.warnings, Texts{kNoPhysics});
}

TEST(CheckedPartitions, AreRefusedWhereAllAreEmpty) {
  const testing::TempFolder temp;
  const std::string folder = temp.path("case");
  writePolyMesh(folder + "/processor0/constant/polyMesh", emptyPart());
  EXPECT_EQ(
      judge(folder, kConnectivity).errors,
      (Texts{" : Error reading ORV file",
             " : ORV - " + folder + ": expected cells in a processor folder, found none in all"}));
}

// --- Claims -------------------------------------------------------------------------------------

TEST(CheckedClaims, OfMoreFacesThanOneCouldLookAtAreRefused) {
  const testing::TempFolder temp;
  const std::string folder = temp.path("polyMesh");
  for (const std::int64_t count : {std::int64_t{900000000000}, INT64_MAX}) {
    BoxMesh mesh = rowOfFour();
    mesh.patches[5].faceCount = count;
    writePolyMesh(folder, mesh);
    EXPECT_EQ(judge(folder, kConnectivity).errors,
              (Texts{" : Error reading ORV file",
                     " : ORV - " + folder +
                         "/boundary: line 19: expected patches of 21 faces in all, found nFaces " +
                         std::to_string(count) + " in patch \"zMax\""}));
  }
}

TEST(CheckedClaims, OfAllPatchesAreAddedUp) {
  const testing::TempFolder temp;
  const std::string folder = temp.path("polyMesh");
  BoxMesh mesh = rowOfFour();
  mesh.patches[3].faceCount = mesh.patches[4].faceCount = 9000000;
  writePolyMesh(folder, mesh);
  EXPECT_EQ(judge(folder, kConnectivity).errors,
            (Texts{" : Error reading ORV file",
                   " : ORV - " + folder +
                       "/boundary: line 18: expected patches of 21 faces in all, found nFaces "
                       "9000000 in patch \"zMin\""}));
}

// --- Real meshes --------------------------------------------------------------------------------

class CheckedRealMeshes : public ::testing::TestWithParam<const char*> {};

TEST_P(CheckedRealMeshes, LackPhysicsOnly) {
  const std::string folder = std::string(VELTO_MESHES_DIR) + "/openfoam/" + GetParam();
  if (!std::filesystem::exists(folder)) {
    GTEST_SKIP() << "no such mesh here";
  }
  const Judgement judgement = judge(folder, kConnectivity);
  EXPECT_EQ(judgement.errors, Texts());
  EXPECT_EQ(judgement.warnings, Texts{kNoPhysics});
}

INSTANTIATE_TEST_SUITE_P(Checked, CheckedRealMeshes, ::testing::Values("wingMirror", "airFoil2D"),
                         [](const auto& row) { return std::string(row.param); });

// --- Damaged meshes -----------------------------------------------------------------------------

struct DamagedRow {
  const char* name;
  std::function<void(BoxMesh&)> damage;
  Texts errors;
  Texts warnings;
  int level = kZones;
};

std::ostream& operator<<(std::ostream& out, const DamagedRow& row) { return out << row.name; }

const DamagedRow kDamaged[] = {
    {"AGapBetweenPatches",
     [](BoxMesh& mesh) {
       mesh.patches[2].firstFace += 1;
       mesh.patches[2].faceCount -= 1;
     },
     {"checkFaceZones : Face zones do not cover the full range of declared Faces"},
     {"checkVersion : ORV - boundary: line 16, patch yMin: startFace is 6, patch xMax ends at 5, startFace 5 is expected",
      kNoPhysics}},
    {"PatchesThatOverlap",
     [](BoxMesh& mesh) { mesh.patches[2].firstFace -= 1; },
     {"checkFaceZones : Overlapping Face ranges"},
     {"checkVersion : ORV - boundary: line 16, patch yMin: startFace is 4, patch xMax ends at 5, startFace 5 is expected",
      "checkVersion : ORV - boundary: line 17, patch yMax: startFace is 9, patch yMin ends at 8, startFace 8 is expected",
      kNoPhysics}},
    {"APatchWithoutFacesInsideAnother",
     [](BoxMesh& mesh) {
       mesh.patches.push_back({"none", "patch", 0, 7, {}});
     },
     {"checkFaceZones : Overlapping Face ranges"},
     {"checkVersion : ORV - boundary: line 20, patch none: startFace is 7, patch yMin ends at 9, startFace 9 is expected",
      kNoPhysics}},
    {"APatchWithoutFacesPastTheLastFace",
     [](BoxMesh& mesh) {
       mesh.patches.push_back({"none", "patch", 0, 99, {}});
     },
     {"checkFaceZones : Face zones do not cover the full range of declared Faces"},
     {"checkVersion : ORV - boundary: line 20, patch none: startFace is 99, patch zMax ends at 21, startFace 21 is expected",
      "checkVersion : ORV - boundary: line 20, patch none: startFace 99 and nFaces 0 reach past the last face, the mesh has 21 faces",
      kNoPhysics}},
    {"PatchesThatEndEarly",
     [](BoxMesh& mesh) { mesh.patches.pop_back(); },
     {"checkFaceZones : Mismatch in Face zones content and total number of Faces"},
     {"checkVersion : ORV - boundary: 4 faces from 17 on are in no patch, patch zMin ends at 17",
      kNoPhysics}},
    {"APatchPastTheLastFace",
     [](BoxMesh& mesh) { mesh.patches[5].faceCount += 1; },
     {"checkFaceZones : Mismatch in Face zones content and total number of Faces"},
     {"checkVersion : ORV - boundary: line 19, patch zMax: startFace 17 and nFaces 5 reach past the last face, the mesh has 21 faces",
      kNoPhysics}},
    {"ACellInTwoZones",
     [](BoxMesh& mesh) {
       mesh.cellZones = {{"a", {0, 1}, {}, false}, {"b", {1, 2, 3}, {}, false}};
     },
     {"checkCellZones : Overlapping Cell ranges"},
     {"checkVersion : ORV - cellZones: zone b, entry 0: cell 1 is in a zone already", kNoPhysics}},
    {"ACellInTwoScatteredZones",
     [](BoxMesh& mesh) {
       mesh.cellZones = {{"a", {0, 2}, {}, false}, {"b", {1, 2, 3}, {}, false}};
     },
     {"checkCellZones : Mismatch in Cell zones content and total number of Cells"},
     {"checkVersion : ORV - cellZones: zone b, entry 1: cell 2 is in a zone already", kNoPhysics}},
    {"AFaceInTwoZones",
     [](BoxMesh& mesh) {
       mesh.faceZones = {{"a", {0, 2}, {}, false}, {"b", {2}, {}, false}};
     },
     {"checkFaceZones : Mismatch in Face zones content and total number of Faces"},
     {"checkVersion : ORV - faceZones: zone b, entry 0: face 2 is in a zone already", kNoPhysics}},
    {"ACyclicPatchWithoutItsOtherHalf",
     [](BoxMesh& mesh) { makeCyclic(mesh.patches[0], "elsewhere"); },
     {"checkFaceZones : Face zone shadow zone id invalid"},
     {"checkVersion : ORV - boundary: line 14, patch xMin: neighbourPatch elsewhere is no patch",
      kNoPhysics}},
    {"ACyclicPatchThatIsNotNamedInReturn",
     [](BoxMesh& mesh) { makeCyclic(mesh.patches[0], "xMax"); },
     {"checkFaceZones : Face zone shadow link is not bilateral"},
     {"checkVersion : ORV - boundary: line 14, patch xMin: neighbourPatch xMax does not name it in return",
      kNoPhysics}},
    {"ACyclicPatchAcrossCellZonesThatIsNotNamedInReturn",
     [](BoxMesh& mesh) {
       mesh.cellZones = {{"a", {0, 1}, {}, false}};
       makeCyclic(mesh.patches[2], "yMax");
     },
     {"checkFaceZones : Face zone shadow link is not bilateral",
      "checkFaceZones : Face zone shadow link is not bilateral"},
     {"checkVersion : ORV - boundary: line 16, patch yMin: neighbourPatch yMax does not name it in return",
      kNoPhysics}},
    {"PatchesThatOverlapAcrossCellZones",
     [](BoxMesh& mesh) {
       mesh.cellZones = {{"a", {0, 1}, {}, false}};
       mesh.patches[2].firstFace -= 1;
     },
     {"checkFaceZones : Overlapping Face ranges"},
     {"checkVersion : ORV - boundary: line 16, patch yMin: startFace is 4, patch xMax ends at 5, startFace 5 is expected",
      "checkVersion : ORV - boundary: line 17, patch yMax: startFace is 9, patch yMin ends at 8, startFace 8 is expected",
      kNoPhysics}},
    {"APatchAcrossCellZonesPastTheLastFace",
     [](BoxMesh& mesh) {
       mesh.cellZones = {{"a", {0, 1}, {}, false}};
       mesh.patches[5].faceCount += 1;
     },
     {"checkFaceZones : Mismatch in Face zones content and total number of Faces"},
     {"checkVersion : ORV - boundary: line 19, patch zMax: startFace 17 and nFaces 5 reach past the last face, the mesh has 21 faces",
      kNoPhysics}},
    {"AWrongOwnerBetweenCellZones",
     [](BoxMesh& mesh) {
       mesh.cellZones = {{"a", {0, 1}, {}, false}};
       mesh.owner[6] = 99;
     },
     {},
     {"checkVersion : ORV - owner: face 6: label 99 is out of range, allowed are 0 to 3",
      kNoPhysics}},
    {"CellZonesWithLabelsOutOfRange",
     [](BoxMesh& mesh) {
       mesh.cellZones = {{"a", {0, -1, 1}, {}, false}, {"b", {2, 99}, {}, false}};
     },
     {"checkCellZones : Mismatch in Cell zones content and total number of Cells"},
     {"checkVersion : ORV - cellZones: zone a, entry 1: label -1 is out of range, allowed are 0 to 3",
      "checkVersion : ORV - cellZones: zone b, entry 1: label 99 is out of range, allowed are 0 to 3",
      kNoPhysics}},
    {"AFaceZoneAcrossCellZonesWithLabelsOutOfRange",
     [](BoxMesh& mesh) {
       mesh.cellZones = {{"a", {0, 1}, {}, false}};
       mesh.faceZones = {{"fan", {2, 99, 0}, {}, false}};
     },
     {"checkFaceZones : Mismatch in Face zones content and total number of Faces"},
     {"checkVersion : ORV - faceZones: zone fan, entry 1: label 99 is out of range, allowed are 0 to 20",
      kNoPhysics}},
    {"AMeshWithoutPatches",
     [](BoxMesh& mesh) { mesh.patches.clear(); },
     {"checkFaceZones : Mismatch in Face zones content and total number of Faces"},
     {"checkVersion : ORV - boundary: 18 faces from 3 on are in no patch, the internal faces end at 3",
      kNoPhysics}},
    {"AnOwnerThatIsNotThere",
     [](BoxMesh& mesh) { mesh.owner[6] = 99; },
     {"checkCellsFromFaces_facenode : Cell 0 (100) for face 7 is invalid"},
     {"checkVersion : ORV - owner: face 6: label 99 is out of range, allowed are 0 to 3",
      kNoPhysics},
     kConnectivity},
    // Types of cells are told from the faces, so that the two cells are polyhedra then.
    {"NothingOfAnOwnerThatIsAnotherCell",
     [](BoxMesh& mesh) { mesh.owner[6] = 3; },
     {},
     {kNoPhysics},
     kConnectivity},
    {"ACellWithTooFewFaces",
     [](BoxMesh& mesh) { mesh.owner[5] = mesh.owner[9] = mesh.owner[13] = 1; },
     {"checkCellsFromFaces_facenode : Cells with missing facets: 1"},
     {"checkVersion : ORV - owner: cell 0 has 3 faces, at least 4 are expected", kNoPhysics},
     kConnectivity},
    {"ANeighbourThatIsNotThere",
     [](BoxMesh& mesh) { mesh.neighbour[2] = 4; },
     {"checkCellsFromFaces_facenode : Cell 1 (5) for face 3 is invalid"},
     {"checkVersion : ORV - neighbour: face 2: label 4 is out of range, allowed are 0 to 3",
      kNoPhysics},
     kConnectivity},
    {"APointThatIsNotThere",
     [](BoxMesh& mesh) { mesh.faceNodes[5] = mesh.pointCount(); },
     {"checkFaceConnectivity : Face node ids out of node id range"},
     {"checkVersion : ORV - faces: face 1, node 1: label 20 is out of range, allowed are 0 to 19",
      kNoPhysics},
     kConnectivity},
    {"PatchesThatLeaveAGapInTheHull",
     [](BoxMesh& mesh) { mesh.patches.pop_back(); },
     {"checkFaceZones : Mismatch in Face zones content and total number of Faces",
      "checkCellsFromFaces_facenode : Cells with missing facets: 4"},
     {"checkVersion : ORV - boundary: 4 faces from 17 on are in no patch, patch zMin ends at 17",
      kNoPhysics},
     kConnectivity},
    {"AFaceInTwoZonesThatTwoCellsCountTwice",
     [](BoxMesh& mesh) {
       mesh.faceZones = {{"a", {0, 2}, {}, false}, {"b", {2}, {}, false}};
     },
     {"checkFaceZones : Mismatch in Face zones content and total number of Faces",
      "checkCellsFromFaces_facenode : Cells with too many facets attached: 2"},
     {"checkVersion : ORV - faceZones: zone b, entry 0: face 2 is in a zone already", kNoPhysics},
     kConnectivity},
};

class DamagedMeshes : public ::testing::TestWithParam<DamagedRow> {};

TEST_P(DamagedMeshes, AreTold) {
  BoxMesh mesh = rowOfFour();
  GetParam().damage(mesh);
  const Judgement judgement = judge(mesh, GetParam().level);
  EXPECT_EQ(judgement.errors, GetParam().errors);
  EXPECT_EQ(judgement.warnings, GetParam().warnings);
}

INSTANTIATE_TEST_SUITE_P(Checked, DamagedMeshes, ::testing::ValuesIn(kDamaged),
                         [](const auto& row) { return std::string(row.param.name); });

}  // namespace
}  // namespace velto::openfoam
