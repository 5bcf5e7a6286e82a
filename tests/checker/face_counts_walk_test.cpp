// SPDX-License-Identifier: Apache-2.0
//
// The walk that counts the faces of cells: what it asks for, in which order, and what it leaves
// out.

#include <functional>

#include "tests/checker/DeepChecksFixture.h"
#include "tests/checker/checker_access.h"

namespace velto::testing {
namespace {

using base::boundaryWall;
using checker_access::checkFaceCounts;
using memory::CaseBuilder;
using memory::FaceLine;
using memory::Slice;

const std::string kStep = "checkCellsFromFaces_facenode : ";
const std::string kUnsupported = kStep + "Cells of unsupported type encountered";

/// Face zones 2 (faces 1 and 2), 3 (face 3) and 4 (face 4), cell zones 5 (cells 1 and 2, of one
/// type) and 6 (cells 3 and 4, of a type each). Face 3 and no other has cells on both sides.
cases::CasePtr fourFaces() {
  return CaseBuilder()
      .faces(2, "two", boundaryWall, {{{}, 1}, {{}, 2}})
      .faces(3, "between", faceZoneTypeInterior, {{{}, 3, 4}})
      .faces(4, "one", boundaryWall, {{{}, 4}})
      .cells(5, "uniform", 8, 2)
      .cells(6, "mixed", {8, 7})
      .build();
}

/// A line of cells that need one face each.
cases::CasePtr cellsOfOneFace(std::uint64_t cells) {
  Ids side0;
  for (std::uint64_t cell = 1; cell <= cells; ++cell) {
    side0.push_back(cell);
  }
  return facesAndTypes(3, std::vector<int>(cells, 8), side0);
}

class FaceCountsWalk : public DeepChecksFixture {
 protected:
  FaceCountsWalk() { checker.setVerbosity(0); }
};

// --- Calls --------------------------------------------------------------------------------------

TEST_F(FaceCountsWalk, AsksInOrder) {
  EXPECT_TRUE(run(fourFaces(), checkFaceCounts).good);
  EXPECT_EQ(calls(),
            Transcript({"getMeshSize(0)",        "getMeshSize(4)",        "getZoneIds(2)",
                        "getZoneIds(3)",         "beginCellTypes()",      "getZoneSizeInfo(5, 0)",
                        "getZoneSizeInfo(5, 1)", "getUniformCellType(5)", "getZoneSizeInfo(6, 0)",
                        "getZoneSizeInfo(6, 1)", "getUniformCellType(6)", "getCellType(3)",
                        "getCellType(4)",        "endCellTypes()",        "beginFaceTree()",
                        "endFaceTree()",         "beginFaceCell0()",      "getZoneSizeInfo(2, 0)",
                        "getZoneSizeInfo(2, 1)", "getFaceZoneInfo(2, 1)", "getFaceCell0(1)",
                        "getFaceCell0(2)",       "getZoneSizeInfo(3, 0)", "getZoneSizeInfo(3, 1)",
                        "getFaceZoneInfo(3, 1)", "getFaceCell0(3)",       "getZoneSizeInfo(4, 0)",
                        "getZoneSizeInfo(4, 1)", "getFaceZoneInfo(4, 1)", "getFaceCell0(4)",
                        "endFaceCell0()",        "beginFaceCell1()",      "getZoneSizeInfo(3, 0)",
                        "getZoneSizeInfo(3, 1)", "getFaceCell1(3)",       "endFaceCell1()"}));
}

TEST_F(FaceCountsWalk, LeavesTheFamilyOpenWithoutCellTypes) {
  const cases::CasePtr served = fourFaces();
  served->arrays().cellTypes = {};
  checker.setVerbosity(3);
  const CheckResult result = run(served, checkFaceCounts);
  EXPECT_FALSE(result.good);
  EXPECT_EQ(result.errors, Texts());
  EXPECT_EQ(result.warnings, Texts({kStep + "cell_face mesh with no cell-type are unsupported"}));
  EXPECT_EQ(result.out,
            "- checkCellsFromFaces_facenode - init\n"
            "- checkCellsFromFaces_facenode - cell types\n");
  EXPECT_EQ(
      result.err,
      "Warning: checkCellsFromFaces_facenode: cell_face mesh with no cell-type are unsupported\n");
  EXPECT_EQ(calls(), Transcript({"getMeshSize(0)", "getMeshSize(4)", "getZoneIds(2)",
                                 "getZoneIds(3)", "beginCellTypes()"}));
}

TEST_F(FaceCountsWalk, ClosesFamiliesThatListNothing) {
  const cases::CasePtr served = fourFaces();
  served->arrays().faceCell0 = {};
  served->arrays().faceCell1 = {};
  EXPECT_TRUE(run(served, checkFaceCounts).good);
  EXPECT_EQ(callsOf({"beginFaceTree", "endFaceTree", "beginFaceCell0", "endFaceCell0",
                     "beginFaceCell1", "endFaceCell1", "getFaceCell0", "getFaceCell1"}),
            Transcript({"beginFaceTree()", "endFaceTree()", "beginFaceCell0()", "endFaceCell0()",
                        "beginFaceCell1()", "endFaceCell1()"}));
  EXPECT_EQ(checker.getErrors(), Texts({kStep + "Cells with missing facets: 4"}));
}

TEST_F(FaceCountsWalk, HandsTheListOfOneSideToTheOther) {
  const cases::CasePtr served = fourFaces();
  served->arrays().faceCell0.remove(2);
  EXPECT_EQ(listsGiven(served, checkFaceCounts),
            Transcript({"beginCellTypes []", "beginFaceTree []", "beginFaceTree []",
                        "beginFaceCell0 [2, 3, 4]", "beginFaceCell1 [3, 4]"}));
}

// --- Types of cells -----------------------------------------------------------------------------

/// What is done to four cells of type 8 (zone 3), which one face each reaches, and what becomes of
/// it.
struct TypesRow {
  const char* name;
  std::function<void(memory::Case&)> damage;
  Texts errors;
  Texts warnings;
  Transcript asked;  // for cell types
};

std::ostream& operator<<(std::ostream& out, const TypesRow& row) { return out << row.name; }

const std::vector<TypesRow>& typesRows() {
  static const std::vector<TypesRow> kRows = {
      {"AreAskedForCellByCell",
       [](memory::Case&) {},
       {},
       {},
       {"getCellType(1)", "getCellType(2)", "getCellType(3)", "getCellType(4)"}},
      {"OfAZoneThatHasOneAreNotAskedFor",
       [](memory::Case& c) { c.arrays().cellTypes[3].uniform = 8; },
       {},
       {},
       {}},
      {"OfCellsThatNoZoneCoversAreUnsupported",
       [](memory::Case& c) { setRange(c, 3, 1, 3); },
       {},
       {kUnsupported},
       {"getCellType(1)", "getCellType(2)", "getCellType(3)"}},
      {"OfCellsThatNoUniformZoneCoversAreUnsupported",
       [](memory::Case& c) {
         c.arrays().cellTypes[3].uniform = 8;
         setRange(c, 3, 2, 4);
       },
       {},
       {kUnsupported},
       {}},
      {"OfAZoneWithFirstAboveLastAreUnsupported",
       [](memory::Case& c) { setRange(c, 3, 4, 1); },
       {},
       {kUnsupported},
       {}},
      {"OfAUniformZoneWithFirstAboveLastAreUnsupported",
       [](memory::Case& c) {
         c.arrays().cellTypes[3].uniform = 8;
         setRange(c, 3, 4, 1);
       },
       {},
       {kUnsupported},
       {}},
      {"BeyondTheCellsAreAskedForAsWell",
       [](memory::Case& c) {
         setRange(c, 3, 3, 6);
         c.arrays().cellTypes[3].types = Slice<int>({8, 8, 2, 2});
       },
       {},
       {kUnsupported},
       {"getCellType(3)", "getCellType(4)", "getCellType(5)", "getCellType(6)"}},
      {"OfAUniformZoneThatEndsBeyondTheCells",
       [](memory::Case& c) {
         c.arrays().cellTypes[3].uniform = 8;
         setRange(c, 3, 1, kLargestId);
       },
       {},
       {},
       {}},
      {"OfAUniformZoneBeyondTheCells",
       [](memory::Case& c) {
         c.arrays().cellTypes[3].uniform = 8;
         setRange(c, 3, 5, 8);
       },
       {},
       {kUnsupported},
       {}},
      {"OfCellZero",
       [](memory::Case& c) { setRange(c, 3, 0, 1); },
       {},
       {kUnsupported},
       {"getCellType(0)", "getCellType(1)"}},
      {"OfAUniformZoneFromCellZero",
       [](memory::Case& c) {
         c.arrays().cellTypes[3].uniform = 8;
         setRange(c, 3, 0, 4);
       },
       {},
       {},
       {}},
      {"OfTheLargestIds",
       [](memory::Case& c) { setRange(c, 3, kLargestId - 1, kLargestId); },
       {},
       {kUnsupported},
       {"getCellType(18446744073709551614)", "getCellType(18446744073709551615)"}},
      {"OfALaterZoneStandInThePlaceOfEarlierOnes",
       [](memory::Case& c) {
         c.arrays().cellTypes[9].uniform = 2;
         setRange(c, 9, 2, 3);
       },
       {kStep + "Cells with missing facets: 2"},
       {},
       {"getCellType(1)", "getCellType(2)", "getCellType(3)", "getCellType(4)"}},
      {"OfAZoneThatDoesNotExist",
       [](memory::Case& c) {
         c.arrays().cellTypes = {};
         c.arrays().cellTypes[77].types = Slice<int>({8});
       },
       {},
       {kUnsupported},
       {"getCellType(0)"}},
      {"OfMoreCellsThanTheMeshCounts",
       [](memory::Case& c) { c.mesh().sizes[meshCellCount] = 3; },
       {kStep + "Cell 0 (4) for face 4 is invalid"},
       {},
       {"getCellType(1)", "getCellType(2)", "getCellType(3)", "getCellType(4)"}},
      {"OfFewerCellsThanTheMeshCounts",
       [](memory::Case& c) { c.mesh().sizes[meshCellCount] = 5; },
       {},
       {kUnsupported},
       {"getCellType(1)", "getCellType(2)", "getCellType(3)", "getCellType(4)"}},
      {"OfAMeshWithoutCells",
       [](memory::Case& c) {
         c.mesh().sizes[meshCellCount] = 0;
         setRange(c, 2, 1, 2);
       },
       {kStep + "Cell 0 (1) for face 1 is invalid", kStep + "Cell 0 (2) for face 2 is invalid"},
       {},
       {"getCellType(1)", "getCellType(2)", "getCellType(3)", "getCellType(4)"}},
  };
  return kRows;
}

class CellTypes : public FaceCountsWalk, public ::testing::WithParamInterface<TypesRow> {};

TEST_P(CellTypes, Row) {
  const cases::CasePtr served = cellsOfOneFace(4);
  GetParam().damage(*served);
  EXPECT_TRUE(run(served, checkFaceCounts).good);
  EXPECT_EQ(checker.getErrors(), GetParam().errors);
  EXPECT_EQ(checker.getWarnings(), GetParam().warnings);
  EXPECT_EQ(callsOf({"getCellType"}), GetParam().asked);
}

INSTANTIATE_TEST_SUITE_P(FaceCounts, CellTypes, ::testing::ValuesIn(typesRows()),
                         [](const auto& row) { return std::string(row.param.name); });

// --- Cells of faces -----------------------------------------------------------------------------

/// What is done to fourFaces(), and what becomes of it.
struct FacesRow {
  const char* name;
  std::function<void(memory::Case&)> damage;
  Texts errors;
};

std::ostream& operator<<(std::ostream& out, const FacesRow& row) { return out << row.name; }

/// Cell 4 of fourFaces() is a polyhedron of two faces.
const std::string kShort = kStep + "Cells with missing facets: 1";

const std::vector<FacesRow>& facesRows() {
  static const std::vector<FacesRow> kRows = {
      {"AreCounted", [](memory::Case&) {}, {kShort}},
      {"ZeroOnSideZero",
       [](memory::Case& c) {
         setCells(c, 0, 2, {0, 2});
       },
       {kStep + "Cell 0 (0) for face 1 is invalid", kStep + "Cells with missing facets: 2"}},
      {"ZeroInAListedZoneOfSideOne",
       [](memory::Case& c) { setCells(c, 1, 3, {0}); },
       {kStep + "Cell 1 (0) for face 3 is invalid", kShort}},
      {"BeyondTheCellsOnSideZero",
       [](memory::Case& c) {
         setCells(c, 0, 2, {5, 2});
       },
       {kStep + "Cell 0 (5) for face 1 is invalid", kStep + "Cells with missing facets: 2"}},
      {"BeyondTheCellsOnSideOne",
       [](memory::Case& c) { setCells(c, 1, 3, {5}); },
       {kStep + "Cell 1 (5) for face 3 is invalid", kShort}},
      {"TheLargestIdOnBothSides",
       [](memory::Case& c) {
         setCells(c, 0, 3, {kLargestId});
         setCells(c, 1, 3, {kLargestId});
       },
       {kStep + "Cell 0 (18446744073709551615) for face 3 is invalid",
        kStep + "Cell 1 (18446744073709551615) for face 3 is invalid",
        kStep + "Cells with missing facets: 2"}},
      {"AllInvalidSideZeroFirst",
       [](memory::Case& c) {
         setCells(c, 0, 2, {9, 0});
         setCells(c, 0, 3, {7});
         setCells(c, 0, 4, {0});
         setCells(c, 1, 3, {6});
         setCells(c, 1, 2, {8, 1});
       },
       {kStep + "Cell 0 (9) for face 1 is invalid", kStep + "Cell 0 (0) for face 2 is invalid",
        kStep + "Cell 0 (7) for face 3 is invalid", kStep + "Cell 0 (0) for face 4 is invalid",
        kStep + "Cell 1 (6) for face 3 is invalid", kStep + "Cell 1 (8) for face 1 is invalid",
        kStep + "Cells with missing facets: 3"}},
      {"TheSameOnBothSidesCountsTwice",
       [](memory::Case& c) { setCells(c, 1, 3, {3}); },
       {kShort, kStep + "Cells with too many facets attached: 1"}},
      {"OfAZoneThatIsNotListedAreNotCounted",
       [](memory::Case& c) { c.arrays().faceCell0.remove(2); },
       {kStep + "Cells with missing facets: 3"}},
      {"OfAZoneWithFirstAboveLastAreNotCounted",
       [](memory::Case& c) { setRange(c, 2, 2, 1); },
       {kStep + "Cells with missing facets: 3"}},
      {"OfFacesBeyondTheMeshAreCounted",
       [](memory::Case& c) { setRange(c, 2, kLargestId - 1, kLargestId); },
       {kShort}},
      {"OfFacesThatStoreNoneAreInvalid",
       [](memory::Case& c) { setRange(c, 4, 4, 6); },
       {kStep + "Cell 0 (0) for face 5 is invalid", kStep + "Cell 0 (0) for face 6 is invalid",
        kShort}},
      {"OfFaceZero", [](memory::Case& c) { setRange(c, 4, 0, 0); }, {kShort}},
      {"OfAZoneThatDoesNotExist", [](memory::Case& c) { setCells(c, 0, 77, {4}); }, {kShort}},
  };
  return kRows;
}

class CellsOfFaces : public FaceCountsWalk, public ::testing::WithParamInterface<FacesRow> {};

TEST_P(CellsOfFaces, Row) {
  const cases::CasePtr served = fourFaces();
  GetParam().damage(*served);
  EXPECT_TRUE(run(served, checkFaceCounts).good);
  EXPECT_EQ(checker.getErrors(), GetParam().errors);
  EXPECT_EQ(checker.getWarnings(), Texts());
}

INSTANTIATE_TEST_SUITE_P(FaceCounts, CellsOfFaces, ::testing::ValuesIn(facesRows()),
                         [](const auto& row) { return std::string(row.param.name); });

TEST_F(FaceCountsWalk, ReportsEachInvalidCellHoweverMany) {
  const CheckResult result = run(facesAndTypes(3, {7}, Ids(5000, 2)), checkFaceCounts);
  ASSERT_EQ(result.errors.size(), 5001U);
  EXPECT_EQ(result.errors.front(), kStep + "Cell 0 (2) for face 1 is invalid");
  EXPECT_EQ(result.errors[4999], kStep + "Cell 0 (2) for face 5000 is invalid");
  EXPECT_EQ(result.errors.back(), kStep + "Cells with missing facets: 1");
}

// --- Subdivided faces ---------------------------------------------------------------------------

const std::string kTwoShort = kStep + "Cells with missing facets: 2";

/// What is done to fourFaces() where cells 1 and 3 have a face too many, and 2 and 4 too few.
const std::vector<FacesRow>& subdividedRows() {
  const Texts excess = {kTwoShort, kStep + "Cells with too many facets attached: 2"};
  static const std::vector<FacesRow> kRows = {
      {"NotWithoutChildOrTree", [](memory::Case&) {}, excess},
      {"ByAChildOfTheFirstZone",
       [](memory::Case& c) { c.zone(2).faceInfo[faceZoneChild] = 4; },
       {kTwoShort}},
      {"ByAChildOfTheLastZone",
       [](memory::Case& c) { c.zone(4).faceInfo[faceZoneChild] = 2; },
       {kTwoShort}},
      {"ByANegativeChild",
       [](memory::Case& c) { c.zone(3).faceInfo[faceZoneChild] = -1; },
       {kTwoShort}},
      {"NotByAChildOfZero", [](memory::Case& c) { c.zone(3).faceInfo[faceZoneChild] = 0; }, excess},
      {"NotByOtherLinks",
       [](memory::Case& c) {
         c.zone(3).faceInfo[faceZoneParent0] = 2;
         c.zone(3).faceInfo[faceZoneParent1] = 2;
         c.zone(3).faceInfo[faceZoneShadow] = 2;
       },
       excess},
      {"ByTheFirstZoneInTheTree",
       [](memory::Case& c) {
         c.arrays().treeParentZones = {9, 2};
       },
       {kTwoShort}},
      {"ByTheLastZoneInTheTree",
       [](memory::Case& c) {
         c.arrays().treeParentZones = {9, 4, 8};
       },
       {kTwoShort}},
      {"NotByOtherZonesInTheTree",
       [](memory::Case& c) {
         c.arrays().treeParentZones = {9, 5};
       },
       excess},
      {"NotByTheChildrenOfTheTree",
       [](memory::Case& c) {
         c.arrays().treeChildZones = {2, 3, 4};
       },
       excess},
      {"ByAZoneWithFirstAboveLast",
       [](memory::Case& c) {
         c.arrays().faceCell0[8] = Slice<std::uint64_t>();
         setRange(c, 8, 1, 0);
         c.zone(8).faceInfo[faceZoneChild] = 2;
       },
       {kTwoShort}},
      {"NotByAZoneOfSideOneAlone",
       [](memory::Case& c) {
         setCells(c, 1, 8, {});
         setRange(c, 8, 1, 0);
         c.zone(8).faceInfo[faceZoneChild] = 2;
         c.arrays().treeParentZones = {8};
       },
       excess},
  };
  return kRows;
}

class SubdividedFaces : public FaceCountsWalk, public ::testing::WithParamInterface<FacesRow> {};

TEST_P(SubdividedFaces, ExcuseAnExcess) {
  const cases::CasePtr served = fourFaces();
  setCells(*served, 0, 2, {1, 1});
  setCells(*served, 0, 4, {3});
  GetParam().damage(*served);
  EXPECT_TRUE(run(served, checkFaceCounts).good);
  EXPECT_EQ(checker.getErrors(), GetParam().errors);
  EXPECT_EQ(checker.getWarnings(), Texts());
}

INSTANTIATE_TEST_SUITE_P(FaceCounts, SubdividedFaces, ::testing::ValuesIn(subdividedRows()),
                         [](const auto& row) { return std::string(row.param.name); });

TEST_F(FaceCountsWalk, TakesASubdividedMeshForItselfAlone) {
  const cases::CasePtr subdivided = facesAndTypes(3, {8}, {1, 1});
  subdivided->zone(2).faceInfo[faceZoneChild] = 4;
  EXPECT_EQ(run(subdivided, checkFaceCounts).errors, Texts());
  EXPECT_EQ(run(facesAndTypes(3, {8}, {1, 1}), checkFaceCounts).errors,
            Texts({kStep + "Cells with too many facets attached: 1"}));
}

}  // namespace
}  // namespace velto::testing
