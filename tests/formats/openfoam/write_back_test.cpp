// SPDX-License-Identifier: Apache-2.0
//
// OpenFOAM meshes that were in order come back as they were, from the case and from a copy of it.

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <functional>
#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "formats/openfoam/read_poly_mesh.h"
#include "testing/PolyMeshWriter.h"
#include "testing/TempFolder.h"
#include "testing/cases.h"
#include "tests/formats/openfoam/written_mesh.h"

namespace velto::openfoam {
namespace {

using testing::BoxMesh;
using testing::makeBox;
using Lines = std::vector<std::string>;

/// Patches, one a line: type, the other entries, number and first of the faces.
Lines describePatches(const PolyMesh& mesh) {
  Lines lines;
  for (const Patch& patch : mesh.patches) {
    std::string line = patch.name + ": type " + patch.type;
    for (const auto& [keyword, text] : patch.entries) {
      if (keyword != "type" && keyword != "nFaces" && keyword != "startFace") {
        line.append("; ").append(keyword).append(" ").append(text);
      }
    }
    lines.push_back(line + "; " + std::to_string(patch.faceCount) + " from " +
                    std::to_string(patch.firstFace));
  }
  return lines;
}

Lines describeZones(const std::vector<ElementZone>& zones) {
  Lines lines;
  for (const ElementZone& zone : zones) {
    std::string line = zone.name + ":";
    for (std::size_t i = 0; i < zone.labels.size(); ++i) {
      const bool isFlipped = zone.oriented && zone.flipMap[i] != 0;
      line += (isFlipped ? " -" : " ") + std::to_string(zone.labels[i]);
    }
    lines.push_back(line);
  }
  return lines;
}

void expectSame(const PolyMesh& before, const PolyMesh& after) {
  EXPECT_TRUE(before.points == after.points);
  EXPECT_TRUE(before.faceNodeCounts == after.faceNodeCounts);
  EXPECT_TRUE(before.faceNodeIds == after.faceNodeIds);
  EXPECT_TRUE(before.owner == after.owner);
  EXPECT_TRUE(before.neighbour == after.neighbour);
  EXPECT_EQ(describePatches(before), describePatches(after));
  EXPECT_EQ(describeZones(before.cellZones), describeZones(after.cellZones));
  EXPECT_EQ(describeZones(before.faceZones), describeZones(after.faceZones));
}

/// Owner, neighbour and nodes of each face; sorted for those inside the mesh.
std::vector<std::vector<std::uint64_t>> facesByCells(const PolyMesh& mesh) {
  std::vector<std::vector<std::uint64_t>> faces;
  std::size_t next = 0;
  for (std::size_t face = 0; face < mesh.owner.size(); ++face) {
    const std::uint64_t neighbour = face < mesh.neighbour.size() ? mesh.neighbour[face] : 0;
    faces.push_back({mesh.owner[face], neighbour});
    for (int k = 0; k < mesh.faceNodeCounts[face]; ++k) {
      faces.back().push_back(mesh.faceNodeIds[next++]);
    }
  }
  std::sort(faces.begin(), faces.begin() + static_cast<std::ptrdiff_t>(mesh.neighbour.size()));
  return faces;
}

void expectComesBack(const std::string& folder) {
  const PolyMesh before = readPolyMesh(folder);
  const memory::Case read = readCase(folder);
  for (const Form& form : writtenForms()) {
    SCOPED_TRACE(form.name);
    const testing::TempFolder temp;
    EXPECT_EQ(writeInto(read, temp.path("case"), form), Lines());
    const PolyMesh after = readPolyMesh(temp.path("case/constant/polyMesh"));
    expectSame(before, after);
    EXPECT_EQ(brokenRules(after), Lines());
  }
  const testing::TempFolder temp;
  EXPECT_EQ(writeInto(asCopied(read), temp.path("polyMesh")), Lines());
  expectSame(before, readPolyMesh(temp.path("polyMesh")));
}

// --- Boxes --------------------------------------------------------------------------------------

struct Box {
  const char* name;
  std::function<void(BoxMesh&)> change;
};

const std::vector<Box>& boxes() {
  static const std::vector<Box> kBoxes = {
      {"Plain", [](BoxMesh&) {}},
      {"PatchEntries",
       [](BoxMesh& mesh) {
         mesh.patches[0].extra = {{"inGroups", "1(inflow)"}, {"transform", "{ x 1; y (2 3); }"}};
         mesh.patches[2].extra = {{"physicalType", "wall"}, {"\"odd key\"", "\"a text; here\""}};
       }},
      {"PatchTypes",
       [](BoxMesh& mesh) {
         mesh.patches[0].type = "symmetryPlane";
         mesh.patches[1].type = "symmetry";
         mesh.patches[2].type = "mappedWall";
         mesh.patches[2].extra = {{"sampleMode", "nearestPatchFace"}};
         mesh.patches[3].type = "overset";
         mesh.patches[4].type = "empty";
         mesh.patches[5].type = "wedge";
       }},
      {"CyclicPair",
       [](BoxMesh& mesh) {
         for (const std::size_t i : {2U, 3U}) {
           mesh.patches[i].type = "cyclic";
           mesh.patches[i].extra = {{"inGroups", "1(cyclic)"},
                                    {"neighbourPatch", mesh.patches[5 - i].name}};
         }
       }},
      {"CoupledByInterpolation",
       [](BoxMesh& mesh) {
         for (const std::size_t i : {0U, 1U}) {
           mesh.patches[i].type = "cyclicAMI";
           mesh.patches[i].extra = {{"neighbourPatch", mesh.patches[1 - i].name}};
         }
       }},
      {"CellZoneOfAllCells",
       [](BoxMesh& mesh) {
         mesh.cellZones = {{"fluid", {0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11}, {}, false}};
       }},
      {"EmptyCellZones",
       [](BoxMesh& mesh) {
         mesh.cellZones = {{"some", {}, {}, false}, {"none", {}, {}, false}};
       }},
      {"FaceZones",
       [](BoxMesh& mesh) {
         const auto internal = static_cast<std::int64_t>(mesh.neighbour.size());
         mesh.faceZones = {{"first", {0, 1}, {false, false}, true},
                           {"last", {internal - 2, internal - 1}, {false, false}, true}};
       }},
      {"EmptyPatch",
       [](BoxMesh& mesh) {
         mesh.patches.insert(
             mesh.patches.begin() + 1,
             {"none", "patch", 0, mesh.patches[1].firstFace, {{"inGroups", "1(x)"}}});
       }},
      {"OnePatch", [](BoxMesh& mesh) {
         for (std::size_t i = 1; i < mesh.patches.size(); ++i) {
           mesh.patches[0].faceCount += mesh.patches[i].faceCount;
         }
         mesh.patches.resize(1);
       }}};
  return kBoxes;
}

class BoxWritten : public ::testing::TestWithParam<Box> {};

TEST_P(BoxWritten, ComesBackAsItWas) {
  BoxMesh mesh = makeBox(3, 2, 2);
  GetParam().change(mesh);
  const testing::TempFolder temp;
  testing::writePolyMesh(temp.path("before"), mesh);
  expectComesBack(temp.path("before"));
}

INSTANTIATE_TEST_SUITE_P(All, BoxWritten, ::testing::ValuesIn(boxes()),
                         [](const auto& row) { return std::string(row.param.name); });

// --- Zones that were cut or renumbered
// ------------------------------------------------------------

struct CutMesh : ::testing::Test {
  PolyMesh writtenFrom(const BoxMesh& mesh) {
    testing::writePolyMesh(temp.path("before"), mesh);
    messages = writeInto(readCase(temp.path("before")), temp.path("after"));
    return readPolyMesh(temp.path("after/constant/polyMesh"));
  }

  testing::TempFolder temp;
  Lines messages;
};

TEST_F(CutMesh, HasItsPatchesAndZonesBack) {
  BoxMesh mesh = makeBox(4, 2, 2);
  mesh.cellZones = {{"a", {0, 1, 4, 6, 8, 9, 12, 14}, {}, false}, {"none", {}, {}, false}};
  for (const std::size_t i : {2U, 3U}) {
    mesh.patches[i].type = "cyclic";
    mesh.patches[i].extra = {{"neighbourPatch", mesh.patches[5 - i].name}};
  }
  mesh.faceZones = {
      {"across", {0, 1, 2, 3, 4, 5}, {false, false, false, false, false, false}, true}};
  const PolyMesh after = writtenFrom(mesh);
  EXPECT_EQ(messages, Lines());
  EXPECT_EQ(brokenRules(after), Lines());
  EXPECT_EQ(describePatches(after), describePatches(readPolyMesh(temp.path("before"))));
  EXPECT_EQ(describeZones(after.cellZones), (Lines{"a: 0 1 2 3 4 5 6 7", "none:"}));
  ASSERT_EQ(after.faceZones.size(), 1U);
  EXPECT_EQ(after.faceZones[0].name, "across");
  EXPECT_EQ(after.faceZones[0].labels.size(), 6U);
}

TEST_F(CutMesh, HasCyclicHalvesThatMatchFaceByFace) {
  BoxMesh mesh = makeBox(4, 2, 2);
  mesh.cellZones = {{"a", {0, 1, 4, 6, 8, 9, 12, 14}, {}, false}};
  for (const std::size_t i : {2U, 3U}) {
    mesh.patches[i].type = "cyclic";
    mesh.patches[i].extra = {{"neighbourPatch", mesh.patches[5 - i].name}};
  }
  const PolyMesh after = writtenFrom(mesh);
  // The x coordinates of the first nodes of the faces of both halves; in y the box is 0.25 wide.
  std::vector<double> places[2];
  for (const std::size_t half : {0U, 1U}) {
    const Patch& patch = after.patches[2 + half];
    for (std::uint64_t face = patch.firstFace; face < patch.firstFace + patch.faceCount; ++face) {
      double x = 0;
      double z = 0;
      for (std::size_t k = 4 * face; k < 4 * face + 4; ++k) {
        const std::uint64_t node = after.faceNodeIds[k] - 1;
        x += after.points[3 * node];
        EXPECT_EQ(after.points[3 * node + 1], half == 0 ? 0.0 : 0.25);
        z += after.points[3 * node + 2];
      }
      places[half].push_back(x + 100 * z);
    }
  }
  EXPECT_EQ(places[0].size(), 8U);
  EXPECT_EQ(places[0], places[1]);
}

TEST_F(CutMesh, SaysHowManyBoundaryFacesLeftAZone) {
  BoxMesh mesh = makeBox(2, 1, 1);
  mesh.faceZones = {{"zone", {0, 3, 4}, {false, false, false}, true}};
  const PolyMesh after = writtenFrom(mesh);
  EXPECT_EQ(messages, (Lines{"face zone 'zone': 2 faces of patches that it had are not in it"}));
  EXPECT_EQ(describeZones(after.faceZones), (Lines{"zone: 0"}));
}

// --- Real meshes
// ----------------------------------------------------------------------------------

class RealMeshWritten : public ::testing::Test {
 protected:
  /// The folder of that mesh, or an empty text if it is not there.
  static std::string folderOf(const std::string& name) {
    const std::string folder = std::string(VELTO_MESHES_DIR) + "/openfoam/" + name;
    return std::filesystem::exists(folder) ? folder : "";
  }
};

TEST_F(RealMeshWritten, ComesBackAsItWas) {
  const std::string folder = folderOf("wingMirror");
  if (folder.empty()) {
    GTEST_SKIP() << "no such mesh here";
  }
  expectComesBack(folder);
}

TEST_F(RealMeshWritten, ComesBackInOrderIfItWasNot) {
  const std::string folder = folderOf("airFoil2D");
  if (folder.empty()) {
    GTEST_SKIP() << "no such mesh here";
  }
  const PolyMesh before = readPolyMesh(folder);
  const testing::TempFolder temp;
  EXPECT_EQ(writeInto(readCase(folder), temp.path("polyMesh")), Lines());
  const PolyMesh after = readPolyMesh(temp.path("polyMesh"));
  EXPECT_EQ(brokenRules(after), Lines());
  EXPECT_TRUE(before.points == after.points);
  EXPECT_TRUE(before.owner == after.owner);
  EXPECT_TRUE(facesByCells(before) == facesByCells(after));
  EXPECT_EQ(describePatches(before), describePatches(after));
  expectComesBack(temp.path("polyMesh"));
}

// --- OpenFOAM's own judgement
// ---------------------------------------------------------------------

struct WrittenMesh : ::testing::Test {
  static bool isCheckMeshThere() {
    return std::system("command -v checkMesh > /dev/null 2>&1") == 0;
  }

  /// What checkMesh says of a case; "Mesh OK." if it has nothing against it.
  static std::string judged(const std::string& folder) {
    const std::string header = "FoamFile { version 2.0; format ascii; class dictionary; object ";
    std::filesystem::create_directory(folder + "/system");
    testing::writeTextFile(
        folder + "/system/controlDict",
        header +
            "controlDict; }\nstartFrom startTime; startTime 0; stopAt endTime; endTime 1; deltaT 1; writeControl timeStep; writeInterval 1;\n");
    testing::writeTextFile(
        folder + "/system/fvSchemes",
        header +
            "fvSchemes; }\nddtSchemes {} gradSchemes {} divSchemes {} laplacianSchemes {} interpolationSchemes {} snGradSchemes {}\n");
    testing::writeTextFile(folder + "/system/fvSolution", header + "fvSolution; }\n");
    // Debian's package leaves it to the shell to say where its files lie.
    const std::string place =
        "[ -n \"$WM_PROJECT_DIR\" ] || [ ! -d /usr/share/openfoam ]"
        " || export WM_PROJECT_DIR=/usr/share/openfoam; ";
    const std::string command =
        place + "checkMesh -allTopology -constant -case " + folder + " > " + folder + "/log 2>&1";
    const int status = std::system(command.c_str());
    const std::string log = contentOf(folder + "/log");
    return status == 0 && log.find("\nMesh OK.\n") != std::string::npos ? "Mesh OK." : log;
  }

  testing::TempFolder temp;
};

TEST_F(WrittenMesh, OfACaseIsGoodForCheckMesh) {
  if (!isCheckMeshThere()) {
    GTEST_SKIP() << "no checkMesh here";
  }
  const memory::Case bodies = *testing::cases::twoBodies();
  const memory::Case pair = *testing::cases::periodicPair();
  for (const Form& form : writtenForms()) {
    SCOPED_TRACE(form.name);
    writeInto(bodies, temp.path("bodies"), form);
    EXPECT_EQ(judged(temp.path("bodies")), "Mesh OK.");
    writeInto(pair, temp.path("pair"), form);
    EXPECT_EQ(judged(temp.path("pair")), "Mesh OK.");
  }
}

TEST_F(WrittenMesh, OfCutZonesIsGoodForCheckMesh) {
  if (!isCheckMeshThere()) {
    GTEST_SKIP() << "no checkMesh here";
  }
  BoxMesh mesh = makeBox(4, 3, 3);
  mesh.cellZones = {{"rotor", {13, 14, 17, 18}, {}, false}, {"none", {}, {}, false}};
  mesh.faceZones = {{"cut", {3, 9, 12}, {false, false, false}, true}};
  for (const std::size_t i : {2U, 3U}) {
    mesh.patches[i].type = "cyclic";
    mesh.patches[i].extra = {{"neighbourPatch", mesh.patches[5 - i].name}};
  }
  testing::writePolyMesh(temp.path("before"), mesh);
  for (const Form& form : writtenForms()) {
    SCOPED_TRACE(form.name);
    EXPECT_EQ(writeInto(readCase(temp.path("before")), temp.path("after"), form), Lines());
    EXPECT_EQ(judged(temp.path("after")), "Mesh OK.");
  }
}

}  // namespace
}  // namespace velto::openfoam
