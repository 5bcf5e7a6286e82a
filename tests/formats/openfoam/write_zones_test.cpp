// SPDX-License-Identifier: Apache-2.0
//
// Names, types and directions of what is written, and meshes in partitions.

#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "embedded/base/Progress.h"
#include "embedded/base/shapes.h"
#include "formats/openfoam/OpenFoamProvider.h"
#include "formats/openfoam/foam_words.h"
#include "formats/openfoam/read_poly_mesh.h"
#include "testing/PolyMeshWriter.h"
#include "testing/TempFolder.h"
#include "testing/cases.h"
#include "tests/formats/openfoam/describe_case.h"
#include "tests/formats/openfoam/written_mesh.h"

namespace velto::openfoam {
namespace {

using memory::Case;
using memory::Slice;
using testing::TempFolder;
using testing::cases::CasePtr;
using Ids = std::vector<std::uint64_t>;
using Lines = std::vector<std::string>;

struct ZonesWritten : ::testing::Test {
  PolyMesh written(const Case& source) {
    messages = writeInto(source, temp.path("polyMesh"), {"Text", 1, 0});
    return readPolyMesh(temp.path("polyMesh"));
  }

  /// Each patch as "name: keyword text; ...".
  Lines patchesOf(const Case& source) {
    Lines lines;
    for (const Patch& patch : written(source).patches) {
      lines.push_back(patch.name + ":" + describeEntries(patch));
    }
    return lines;
  }

  TempFolder temp;
  Lines messages;
};

// --- Words
// ----------------------------------------------------------------------------------------

TEST(FoamWords, HaveNoCharactersThatNoWordMayHold) {
  EXPECT_EQ(foamWord("walls:rotor"), "walls:rotor");
  EXPECT_EQ(foamWord("hot wall"), "hot_wall");
  EXPECT_EQ(foamWord("a/b;c{d}e(f)g[h]\"i'j\tk\\l"), "a_b_c_d_e_f_g_h__i_j_k_l");
  EXPECT_EQ(foamWord("#in$out"), "_in_out");
  EXPECT_EQ(foamWord("1st"), "_1st");
  EXPECT_EQ(foamWord("-x"), "_-x");
  EXPECT_EQ(foamWord(""), "_");
  EXPECT_EQ(foamWord("W\xc3\xa4nde"), "W\xc3\xa4nde");
}

TEST(FoamWords, AreAllDifferent) {
  EXPECT_EQ(foamWords({"a b", "a_b", "a/b", "a_b", "a_b_2", ""}),
            (Lines{"a_b_3", "a_b", "a_b_4", "a_b_5", "a_b_2", "_"}));
}

TEST(EntryTexts, AreThoseThatCanStandInADictionary) {
  for (const char* text : {"1", "1(wall)", "{ a 1; b { c 2; } }", "\"; }\"", "(1 2 (3))", "a/b",
                           "[0 1 -1 0 0 0 0]", "List<word> 1(wall)"}) {
    EXPECT_TRUE(isEntryText(text)) << text;
  }
  for (const char* text : {"", "1; nFaces 7", "}", "(", "{ a 1; ", "{ } b", "\"open", "(]", "( ; )",
                           "#include x", "$x", "a // b", "a /* b"}) {
    EXPECT_FALSE(isEntryText(text)) << text;
  }
}

TEST_F(ZonesWritten, HaveNamesThatAreWords) {
  const CasePtr bodies = testing::cases::twoBodies();
  bodies->zone(2).texts[zoneName] = "a;b";
  bodies->zone(3).texts[zoneName] = "hot wall";
  bodies->zone(4).texts[zoneName] = "hot_wall";
  bodies->zone(5).texts[zoneName] = "";
  bodies->zone(6).texts[zoneName] = "so lid";
  const PolyMesh mesh = written(*bodies);
  EXPECT_EQ(messages, (Lines{"zone 3 'hot wall': written as patch 'hot_wall_2'",
                             "zone 2 'a;b': written as face zone 'a_b'",
                             "zone 5 '': written as cell zone '_'",
                             "zone 6 'so lid': written as cell zone 'so_lid'"}));
  EXPECT_EQ(mesh.patches[0].name, "hot_wall_2");
  EXPECT_EQ(mesh.patches[1].name, "hot_wall");
  EXPECT_EQ(mesh.faceZones[0].name, "a_b");
  EXPECT_EQ(mesh.cellZones[0].name, "_");
  EXPECT_EQ(mesh.cellZones[1].name, "so_lid");
}

// --- Types
// ----------------------------------------------------------------------------------------

struct TypeRow {
  int type;
  const char* typeName;
  const char* expected;
  Lines messages;
};

TEST_F(ZonesWritten, HaveTheTypesOfTheirZones) {
  const std::string lost = "written with type patch";
  const std::vector<TypeRow> rows = {
      {base::boundaryWall, "wall", "wall", {}},
      {base::boundaryWall, "", "wall", {}},
      {base::boundaryWall, "mappedWall", "mappedWall", {}},
      {base::boundaryWall, "no slip", "wall", {}},
      {base::boundaryPatch, "patch", "patch", {}},
      {base::boundarySymmetry, "symmetryPlane", "symmetryPlane", {}},
      {base::boundarySymmetry, "", "symmetry", {}},
      {base::boundaryEmpty, "empty", "empty", {}},
      {base::boundaryWedge, "", "wedge", {}},
      {base::boundaryPeriodic,
       "periodic",
       "patch",
       {"patch 'walls': its other half is not known, " + lost}},
      {base::boundaryPeriodicShadow,
       "cyclic",
       "patch",
       {"patch 'walls': its other half is not known, " + lost}},
      {base::boundaryCoupled,
       "cyclicAMI",
       "patch",
       {"patch 'walls': what it is coupled to is not known, " + lost}},
      {base::boundaryCoupled, "coupled", "patch", {}},
      {base::boundaryProcessor,
       "processor",
       "patch",
       {"patch 'walls': which processors it lies between is not known, " + lost}},
      {77, "inlet-vent", "patch", {}},
      {faceZoneTypeNone, "", "patch", {}},
  };
  for (const TypeRow& row : rows) {
    const CasePtr hex = testing::cases::oneHex();
    hex->zone(2).faceInfo[faceZoneType] = row.type;
    hex->zone(2).texts[zoneTypeName] = row.typeName;
    EXPECT_EQ(written(*hex).patches[0].type, row.expected) << row.type << " " << row.typeName;
    EXPECT_EQ(messages, row.messages);
  }
}

TEST_F(ZonesWritten, LinkedPeriodicAreCyclicHalves) {
  EXPECT_EQ(patchesOf(*testing::cases::periodicPair()),
            (Lines{"left: type cyclic; neighbourPatch right; nFaces 1; startFace 0;",
                   "right: type cyclic; neighbourPatch left; nFaces 1; startFace 1;",
                   "walls: type wall; nFaces 4; startFace 2;"}));
  EXPECT_EQ(messages, Lines());
}

TEST_F(ZonesWritten, LinkedByHalfArePatches) {
  const CasePtr pair = testing::cases::periodicPair();
  pair->zone(3).faceInfo[faceZoneShadow].reset();
  EXPECT_EQ(patchesOf(*pair), (Lines{"left: type patch; nFaces 1; startFace 0;",
                                     "right: type patch; nFaces 1; startFace 1;",
                                     "walls: type wall; nFaces 4; startFace 2;"}));
  EXPECT_EQ(messages,
            (Lines{"patch 'left': its other half is not known, written with type patch",
                   "patch 'right': its other half is not known, written with type patch"}));
}

TEST_F(ZonesWritten, LinkedWallsStayWalls) {
  const CasePtr pair = testing::cases::periodicPair();
  pair->zone(2).faceInfo[faceZoneType] = base::boundaryWall;
  pair->zone(3).faceInfo[faceZoneType] = base::boundaryWall;
  EXPECT_EQ(patchesOf(*pair), (Lines{"left: type wall; nFaces 1; startFace 0;",
                                     "right: type wall; nFaces 1; startFace 1;",
                                     "walls: type wall; nFaces 4; startFace 2;"}));
  EXPECT_EQ(messages, (Lines{"patch 'left': written without its link to patch 'right'",
                             "patch 'right': written without its link to patch 'left'"}));
}

TEST_F(ZonesWritten, ANeighbourIsCalledAsItIsWritten) {
  const CasePtr pair = testing::cases::periodicPair();
  pair->zone(3).texts[zoneName] = "the right";
  pair->setSetting("openfoam/boundary/left/neighbourPatch", "\"the right\"");
  pair->setSetting("openfoam/boundary/the right/neighbourPatch", "left");
  EXPECT_EQ(patchesOf(*pair),
            (Lines{"left: type cyclic; neighbourPatch the_right; nFaces 1; startFace 0;",
                   "the_right: type cyclic; neighbourPatch left; nFaces 1; startFace 1;",
                   "walls: type wall; nFaces 4; startFace 2;"}));
  EXPECT_EQ(messages, (Lines{"zone 3 'the right': written as patch 'the_right'"}));
}

TEST_F(ZonesWritten, HaveTheEntriesOfTheSettingsButNoneThatWouldBreakTheFile) {
  const CasePtr hex = testing::cases::oneHex();
  hex->setSetting("openfoam/boundary/walls/inGroups", "1(plain)");
  hex->setSetting("openfoam/boundary/walls/bad", "1; } more { a 2");
  hex->setSetting("openfoam/boundary/walls/two words", "1");
  hex->setSetting("openfoam/boundary/walls/nFaces", "77");
  hex->setSetting("openfoam/boundary/other/inGroups", "1(other)");
  hex->setSetting(hex->tables.solverType + "/openfoam/boundary/walls/inGroups", "1(copied)");
  EXPECT_EQ(patchesOf(*hex),
            (Lines{"walls: type wall; inGroups 1(copied); nFaces 6; startFace 0;"}));
  EXPECT_EQ(messages,
            (Lines{"patch 'walls': the setting 'bad' is no entry of a patch, left out",
                   "patch 'walls': the setting 'two words' is no entry of a patch, left out"}));
}

// --- Directions
// -----------------------------------------------------------------------------------

TEST_F(ZonesWritten, FacesAreTurnedRoundWithTheirFirstNodeKept) {
  const CasePtr bodies = testing::cases::twoBodies();
  memory::MeshData& arrays = bodies->arrays();
  arrays.faceNodes[2].ids = Slice<std::uint64_t>(Ids{2, 8, 11, 5});
  arrays.faceCell0[2] = Slice<std::uint64_t>(Ids{2});
  arrays.faceCell1[2] = Slice<std::uint64_t>(Ids{1});
  arrays.faceNodes[3].ids =
      Slice<std::uint64_t>(Ids{1, 4, 10, 7, 1, 2, 8, 7, 4, 10, 11, 5, 1, 4, 5, 2, 7, 8, 11, 10});
  arrays.faceCell0[3] = Slice<std::uint64_t>(Ids{0, 1, 1, 1, 1});
  arrays.faceCell1[3] = Slice<std::uint64_t>(Ids{1, 0, 0, 0, 0});
  const PolyMesh mesh = written(*bodies);
  EXPECT_EQ(brokenRules(mesh), Lines());
  EXPECT_EQ(Ids(mesh.faceNodeIds.begin(), mesh.faceNodeIds.begin() + 8),
            (Ids{2, 5, 11, 8, 1, 7, 10, 4}));
  EXPECT_EQ(mesh.faceZones[0].flipMap, (std::vector<std::uint8_t>{1}));
  EXPECT_EQ(mesh.owner, (Ids{1, 1, 1, 1, 1, 1, 2, 2, 2, 2, 2}));
  EXPECT_EQ(mesh.neighbour, (Ids{2}));
}

TEST_F(ZonesWritten, FacesAreInUpperTriangularOrderWhateverTheirZones) {
  const CasePtr row = testing::cases::rowOfBodies(6);
  // The cells back to front: cell c becomes 7 - c.
  for (auto* side : {&row->arrays().faceCell0, &row->arrays().faceCell1}) {
    for (const int zone : side->zones()) {
      Ids cells((*side)[zone].begin(), (*side)[zone].end());
      for (std::uint64_t& cell : cells) {
        cell = cell == 0 ? 0 : 7 - cell;
      }
      (*side)[zone] = Slice<std::uint64_t>(cells);
    }
  }
  const PolyMesh mesh = written(*row);
  EXPECT_EQ(brokenRules(mesh), Lines());
  EXPECT_EQ(mesh.neighbour, (Ids{2, 3, 4, 5, 6}));
  ASSERT_EQ(mesh.faceZones.size(), 5U);
  EXPECT_EQ(mesh.faceZones[0].labels, (std::vector<std::int64_t>{4}));
  EXPECT_EQ(mesh.faceZones[4].labels, (std::vector<std::int64_t>{0}));
  EXPECT_EQ(mesh.faceZones[0].flipMap, (std::vector<std::uint8_t>{1}));
}

// --- Beside the mesh
// ------------------------------------------------------------------------------

TEST_F(ZonesWritten, OfOtherTargetsAreLeftOut) {
  const CasePtr hex = testing::cases::oneHex();
  const CasePtr post = testing::cases::postHex();
  hex->mesh(testing::cases::kPostMesh) = post->mesh(testing::cases::kPostMesh);
  hex->arrays(testing::cases::kPostMesh) = post->arrays(testing::cases::kPostMesh);
  EXPECT_EQ(written(*hex).patches.size(), 1U);
  EXPECT_EQ(messages, (Lines{"meshes for viewing are not written to an OpenFOAM folder"}));
}

TEST_F(ZonesWritten, HearOfProgress) {
  struct Listener : base::ProgressListener {
    void onProgress(const std::string& what, std::uint64_t done, std::uint64_t total) override {
      lines.push_back(what + ": " + std::to_string(done) + " of " + std::to_string(total));
    }
    Lines lines;
  } listener;
  written(*testing::cases::oneHex());
  const std::string what = "writing " + temp.path("polyMesh");
  EXPECT_EQ(listener.lines, (Lines{what + ": 192 of 488", what + ": 432 of 488",
                                   what + ": 480 of 488", what + ": 488 of 488"}));
}

// --- Partitions
// -----------------------------------------------------------------------------------

/// A row of two cubes cut in the middle, as decomposePar does it, with a processor without cells.
struct PartitionsWritten : ::testing::Test {
  PartitionsWritten() {
    for (const int part : {0, 1}) {
      testing::BoxMesh mesh = testing::makeBox(1, 1, 1);
      testing::BoxPatch& between = mesh.patches[part == 0 ? 1 : 0];
      between.name = part == 0 ? "procBoundary0to1" : "procBoundary1to0";
      between.type = "processor";
      between.extra = {{"myProcNo", std::to_string(part)},
                       {"neighbProcNo", std::to_string(1 - part)}};
      testing::writePolyMesh(
          temp.path("before/processor" + std::to_string(part) + "/constant/polyMesh"), mesh);
      addCase({1, targetRestart, part}, part);
    }
  }

  void addCase(const base::MeshKey& key, int part) {
    const Case one =
        readCase(temp.path("before/processor" + std::to_string(part) + "/constant/polyMesh"));
    source.tables.solverType = one.tables.solverType;
    source.mesh(key) = one.tables.meshes.at({});
    source.arrays(key) = one.data.at({});
    for (const auto& store : one.tables.settings) {
      for (const auto& [name, value] : store.second.entries()) {
        source.setSetting(name, value);
      }
    }
  }

  std::string boundaryOf(int part) const {
    std::string text;
    for (const Patch& patch :
         readPolyMesh(temp.path("after/processor" + std::to_string(part) + "/constant/polyMesh"))
             .patches) {
      text += patch.name + ":" + describeEntries(patch) + "\n";
    }
    return text;
  }

  TempFolder temp;
  Case source;
};

TEST_F(PartitionsWritten, AreProcessorFolders) {
  EXPECT_EQ(writeInto(source, temp.path("after")), Lines());
  EXPECT_EQ(namesIn(temp.path("after")), "processor0 processor1");
  EXPECT_EQ(
      boundaryOf(1),
      "procBoundary1to0: type processor; myProcNo 1; neighbProcNo 0; nFaces 1; startFace 0;\nxMax: type patch; nFaces 1; startFace 1;\nyMin: type wall; nFaces 1; startFace 2;\nyMax: type wall; nFaces 1; startFace 3;\nzMin: type wall; nFaces 1; startFace 4;\nzMax: type wall; nFaces 1; startFace 5;\n");
  OpenFoamProvider before;
  OpenFoamProvider after;
  ASSERT_TRUE(before.startReading(temp.path("before"), dataClassCase));
  ASSERT_TRUE(after.startReading(temp.path("after"), dataClassCase));
  for (const int part : {0, 1}) {
    before.setPartitionId(part);
    after.setPartitionId(part);
    EXPECT_EQ(describeTables(after), describeTables(before));
  }
}

TEST_F(PartitionsWritten, TellTheirNumbersByTheNamesOfPatches) {
  source.tables.defaultSettings() = {};
  EXPECT_EQ(writeInto(source, temp.path("after")), Lines());
  EXPECT_EQ(
      boundaryOf(0),
      "xMin: type patch; nFaces 1; startFace 0;\nprocBoundary0to1: type processor; myProcNo 0; neighbProcNo 1; nFaces 1; startFace 1;\nyMin: type wall; nFaces 1; startFace 2;\nyMax: type wall; nFaces 1; startFace 3;\nzMin: type wall; nFaces 1; startFace 4;\nzMax: type wall; nFaces 1; startFace 5;\n");
}

TEST_F(PartitionsWritten, WithoutCellsAreThereToo) {
  source.setSetting("openfoam/processor2/cells", "0");
  for (const Form& form : writtenForms()) {
    EXPECT_EQ(writeInto(source, temp.path("after"), form), Lines());
    EXPECT_EQ(namesIn(temp.path("after")), "processor0 processor1 processor2");
    EXPECT_EQ(
        boundaryOf(2),
        "xMin: type patch; nFaces 0; startFace 0;\nyMin: type wall; nFaces 0; startFace 0;\nyMax: type wall; nFaces 0; startFace 0;\nzMin: type wall; nFaces 0; startFace 0;\nzMax: type wall; nFaces 0; startFace 0;\nxMax: type patch; nFaces 0; startFace 0;\n");
    OpenFoamProvider after;
    ASSERT_TRUE(after.startReading(temp.path("after"), dataClassCase));
    EXPECT_EQ(after.getWarnings(true, true), Lines());
    EXPECT_EQ(after.getSettings(dataClassCase, "openfoam/processor2/cells", 1).asString(), "0");
  }
}

/// Cell zones cut the patch between two boxes of 1 x 3 x 3 cells, on each side in another way.
TEST(CutProcessorPatches, MatchFaceByFace) {
  const TempFolder temp;
  Case source;
  for (const int part : {0, 1}) {
    testing::BoxMesh mesh = testing::makeBox(1, 3, 3);
    for (std::size_t i = 0; i < mesh.points.size(); i += 3) {
      mesh.points[i] += 0.125 * part;
    }
    testing::BoxPatch& between = mesh.patches[part == 0 ? 1 : 0];
    between.name = part == 0 ? "procBoundary0to1" : "procBoundary1to0";
    between.type = "processor";
    mesh.cellZones = {
        {"a",
         part == 0 ? std::vector<std::int64_t>{1, 4, 8} : std::vector<std::int64_t>{7, 0, 5},
         {},
         false}};
    testing::writePolyMesh(temp.path("before"), mesh);
    const Case one = readCase(temp.path("before"));
    source.mesh({1, targetRestart, part}) = one.tables.meshes.at({});
    source.arrays({1, targetRestart, part}) = one.data.at({});
    for (const auto& [name, value] : one.tables.settings.begin()->second.entries()) {
      source.setSetting(name, value);
    }
  }
  EXPECT_EQ(writeInto(source, temp.path("after")), Lines());
  std::vector<std::vector<double>> centres(2);
  for (const int part : {0, 1}) {
    const PolyMesh mesh =
        readPolyMesh(temp.path("after/processor" + std::to_string(part) + "/constant/polyMesh"));
    EXPECT_EQ(brokenRules(mesh), Lines());
    const Patch& patch = mesh.patches[part == 0 ? 1 : 0];
    EXPECT_EQ(patch.faceCount, 9U);
    for (std::size_t face = patch.firstFace; face < patch.firstFace + patch.faceCount; ++face) {
      for (std::size_t axis = 0; axis < 3; ++axis) {
        double sum = 0;
        for (std::size_t k = 4 * face; k < 4 * face + 4; ++k) {
          sum += mesh.points[3 * (mesh.faceNodeIds[k] - 1) + axis];
        }
        centres[static_cast<std::size_t>(part)].push_back(sum);
      }
    }
  }
  EXPECT_EQ(centres[0], centres[1]);
}

TEST_F(PartitionsWritten, NeedACaseFolder) {
  EXPECT_EQ(writeInto(source, temp.path("polyMesh")),
            (Lines{"end of writing: " + temp.path("polyMesh") +
                       ": a mesh in partitions is written into a case folder",
                   "end of writing: nothing was written because of the error before"}));
}

TEST_F(PartitionsWritten, DoNotMixWithThoseOfAnotherMesh) {
  testing::writePolyMesh(temp.path("after/processor4/constant/polyMesh"),
                         testing::makeBox(1, 1, 1));
  EXPECT_EQ(writeInto(source, temp.path("after")),
            (Lines{"end of writing: " + temp.path("after/processor4") +
                       ": is of a mesh with other partitions; remove it first",
                   "end of writing: nothing was written because of the error before"}));
  EXPECT_EQ(namesIn(temp.path("after")), "processor4");
}

}  // namespace
}  // namespace velto::openfoam
