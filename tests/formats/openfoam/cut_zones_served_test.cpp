// SPDX-License-Identifier: Apache-2.0
//
// OpenFOAM meshes of several cell zones as the contract shows them: which pieces their patches and
// internal faces come in, and that every face is still there with its nodes and cells.

#include <algorithm>
#include <gtest/gtest.h>
#include <iterator>
#include <map>
#include <set>
#include <sstream>
#include <string>
#include <vector>

#include "formats/openfoam/OpenFoamProvider.h"
#include "formats/openfoam/zone_layout.h"
#include "testing/PolyMeshWriter.h"
#include "testing/TempFolder.h"
#include "tests/formats/openfoam/describe_case.h"

namespace velto::openfoam {
namespace {

using testing::BoxMesh;
using testing::makeBox;
using testing::writePolyMesh;

struct CutZones : ::testing::Test {
  void open(const BoxMesh& mesh) {
    writePolyMesh(temp.path("polyMesh"), mesh);
    ASSERT_TRUE(provider.startReading(temp.path("polyMesh"), dataClassCase));
    EXPECT_EQ(provider.getWarnings(true, true), std::vector<std::string>());
  }

  std::string setting(const std::string& key) {
    return provider.getSettings(dataClassCase, key, 1).asString();
  }

  /// The lines of the tables about cyclic zones, each with the shadows of the zone's faces.
  std::string cyclicZones() {
    std::istringstream tables(describeTables(provider));
    std::string text;
    for (std::string line; std::getline(tables, line);) {
      if (line.find("'cyclic'") != std::string::npos) {
        text += line + " (" + describeShadows(provider, std::stoi(line.substr(5))) + ")\n";
      }
    }
    return text;
  }

  testing::TempFolder temp;
  OpenFoamProvider provider;
};

/// A box of 3 x 3 x 1 cells with a rotor of one cell in the middle.
BoxMesh rotor() {
  BoxMesh mesh = makeBox(3, 3, 1);
  mesh.cellZones = {{"rotor", {4}, {}, false}};
  return mesh;
}

/// Periodic in y, with cells of the zone "a" at x = 0, 1 on one half and at x = 0, 2 on the other.
BoxMesh shiftedPair() {
  BoxMesh mesh = makeBox(4, 2, 2);
  mesh.cellZones = {{"a", {0, 1, 4, 6, 8, 9, 12, 14}, {}, false}};
  for (const std::size_t i : {2U, 3U}) {
    mesh.patches[i].type = "cyclic";
    mesh.patches[i].extra = {{"neighbourPatch", mesh.patches[5 - i].name}};
  }
  return mesh;
}

TEST_F(CutZones, OfARotorInTheMiddle) {
  open(rotor());
  EXPECT_EQ(
      describeTables(provider),
      "sizes 3 32 42 9\nnode 1 'nodes' [1, 32] 32\nface 2 'interior:default' [1, 8] 8: type 2 'interior', shape 4, cells 14 | 14, shadow 0\nface 3 'interior:default:rotor' [9, 10] 2: type 2 'interior', shape 4, cells 14 | 13, shadow 0\nface 4 'interior:rotor:default' [11, 12] 2: type 2 'interior', shape 4, cells 13 | 14, shadow 0\nface 5 'xMin' [13, 15] 3: type 100 'patch', shape 4, cells 14 | -, shadow 0\nface 6 'xMax' [16, 18] 3: type 100 'patch', shape 4, cells 14 | -, shadow 0\nface 7 'yMin' [19, 21] 3: type 3 'wall', shape 4, cells 14 | -, shadow 0\nface 8 'yMax' [22, 24] 3: type 3 'wall', shape 4, cells 14 | -, shadow 0\nface 9 'zMin:default' [25, 32] 8: type 3 'wall', shape 4, cells 14 | -, shadow 0\nface 10 'zMin:rotor' [33, 33] 1: type 3 'wall', shape 4, cells 13 | -, shadow 0\nface 11 'zMax:default' [34, 41] 8: type 3 'wall', shape 4, cells 14 | -, shadow 0\nface 12 'zMax:rotor' [42, 42] 1: type 3 'wall', shape 4, cells 13 | -, shadow 0\ncell 13 'rotor' [1, 1] 1: shape 4, bounded by 3 4 10 12\ncell 14 'default' [2, 9] 8: shape 4, bounded by 2 3 4 5 6 7 8 9 11\n");
}

TEST_F(CutZones, OfACyclicPairAreEachOthersShadows) {
  open(shiftedPair());
  EXPECT_EQ(
      cyclicZones(),
      "face 8 'yMin:a' [37, 38] 2: type 12 'cyclic', shape 4, cells 20 | -, shadow 12 (45 46)\nface 9 'yMin:a:default' [39, 40] 2: type 12 'cyclic', shape 4, cells 20 | -, shadow 13 (47 48)\nface 10 'yMin:default:a' [41, 42] 2: type 12 'cyclic', shape 4, cells 21 | -, shadow 14 (49 50)\nface 11 'yMin:default' [43, 44] 2: type 12 'cyclic', shape 4, cells 21 | -, shadow 15 (51 52)\nface 12 'yMax:a' [45, 46] 2: type 8 'cyclic', shape 4, cells 20 | -, shadow 8 (37 38)\nface 13 'yMax:default:a' [47, 48] 2: type 8 'cyclic', shape 4, cells 21 | -, shadow 9 (39 40)\nface 14 'yMax:a:default' [49, 50] 2: type 8 'cyclic', shape 4, cells 20 | -, shadow 10 (41 42)\nface 15 'yMax:default' [51, 52] 2: type 8 'cyclic', shape 4, cells 21 | -, shadow 11 (43 44)\n");
}

TEST_F(CutZones, OfACyclicPairMatchFaceByFace) {
  open(shiftedPair());
  std::uint64_t face = 0;
  std::map<std::uint64_t, std::set<int>> nodes;  // of the faces of both halves
  for (int zone = 8; zone <= 15; ++zone) {
    provider.getZoneSizeInfo(zone, zoneFirstId, face);
    std::istringstream lines(describeFaces(provider, zone));
    for (std::string line; std::getline(lines, line); ++face) {
      std::istringstream loop(line.substr(1, line.find(')') - 1));
      nodes[face] = std::set<int>(std::istream_iterator<int>(loop), {});
    }
  }
  std::vector<int> listed;
  provider.beginFaceShadows(listed);
  for (face = 37; face <= 44; ++face) {
    std::set<int> moved;  // by the two cells, of five nodes each, between the halves
    for (const int node : nodes.at(face)) {
      moved.insert(node + 10);
    }
    EXPECT_EQ(nodes.at(provider.getFaceShadow(face)), moved) << "face " << face;
  }
  provider.endFaceShadows();
}

TEST_F(CutZones, AreNamedInSettings) {
  BoxMesh mesh = rotor();
  mesh.faceZones = {{"ring", {8, 3, 5, 11}, {}, false}};
  open(mesh);
  EXPECT_EQ(setting("openfoam/boundary/zMin/pieces"), "zMin:default,zMin:rotor");
  EXPECT_EQ(setting("openfoam/boundary/xMin/pieces"), "");
  EXPECT_EQ(setting("openfoam/faceZones/ring/pieces"),
            "ring:rotor:default,ring:default:rotor,ring:default");
  EXPECT_EQ(setting("openfoam/interior/pieces"), "interior:default,interior:rotor:default");
}

TEST_F(CutZones, OfAllPartitionsAreNamedInOneSetting) {
  BoxMesh other = makeBox(2, 1, 1);
  other.cellZones = {{"rotor", {0}, {}, false}, {"stator", {1}, {}, false}};
  writePolyMesh(temp.path("case/processor0/constant/polyMesh"), rotor());
  writePolyMesh(temp.path("case/processor1/constant/polyMesh"), other);
  ASSERT_TRUE(provider.startReading(temp.path("case"), dataClassCase));
  EXPECT_EQ(setting("openfoam/boundary/zMin/pieces"), "zMin:default,zMin:rotor,zMin:stator");
}

// --- Nothing is lost ----------------------------------------------------------------------------

/// The faces of a mesh as describeFaces() writes them, with the cells' ids in `cellIds`, sorted.
std::vector<std::string> facesOf(const BoxMesh& mesh, const std::vector<std::uint64_t>& cellIds) {
  std::vector<std::string> faces;
  for (std::size_t face = 0; face < mesh.owner.size(); ++face) {
    std::string text;
    for (std::int64_t i = mesh.faceOffsets[face]; i < mesh.faceOffsets[face + 1]; ++i) {
      text += (text.empty() ? "(" : " ") +
              std::to_string(mesh.faceNodes[static_cast<std::size_t>(i)] + 1);
    }
    const std::uint64_t other =
        face < mesh.neighbour.size() ? cellIds[static_cast<std::size_t>(mesh.neighbour[face])] : 0;
    faces.push_back(text + ") " +
                    std::to_string(cellIds[static_cast<std::size_t>(mesh.owner[face])]) + " " +
                    std::to_string(other));
  }
  std::sort(faces.begin(), faces.end());
  return faces;
}

/// The same from all face zones of the provider.
std::vector<std::string> facesOf(OrvFileProvider& provider) {
  std::vector<int> zones;
  provider.getZoneIds(zoneCategoryFace, zones);
  std::vector<std::string> faces;
  for (const int zone : zones) {
    std::istringstream lines(describeFaces(provider, zone));
    for (std::string line; std::getline(lines, line);) {
      faces.push_back(line);
    }
  }
  std::sort(faces.begin(), faces.end());
  return faces;
}

struct WholeRow {
  const char* name;
  BoxMesh mesh;
  std::vector<std::uint64_t> cellIds;  // of the labels 0, 1, ...
};

class CutMeshes : public CutZones, public ::testing::WithParamInterface<WholeRow> {};

TEST_P(CutMeshes, KeepEveryFaceWithItsNodesAndCells) {
  open(GetParam().mesh);
  EXPECT_EQ(facesOf(provider), facesOf(GetParam().mesh, GetParam().cellIds));
}

BoxMesh withFaceZone(BoxMesh mesh) {
  mesh.faceZones = {{"ring", {8, 3, 5, 11}, {}, false}};
  return mesh;
}

BoxMesh halves() {
  BoxMesh mesh = makeBox(2, 2, 1);
  mesh.cellZones = {{"lower", {0, 1}, {}, false}, {"upper", {2, 3}, {}, false}};
  return mesh;
}

INSTANTIATE_TEST_SUITE_P(
    Rows, CutMeshes,
    ::testing::Values(WholeRow{"Ranges", halves(), {1, 2, 3, 4}},
                      WholeRow{"Rotor", rotor(), {2, 3, 4, 5, 1, 6, 7, 8, 9}},
                      WholeRow{"FaceZone", withFaceZone(rotor()), {2, 3, 4, 5, 1, 6, 7, 8, 9}},
                      WholeRow{"CyclicPair",
                               shiftedPair(),
                               {1, 2, 9, 10, 3, 11, 4, 12, 5, 6, 13, 14, 7, 15, 8, 16}}),
    [](const auto& row) { return std::string(row.param.name); });

}  // namespace
}  // namespace velto::openfoam
