// SPDX-License-Identifier: Apache-2.0
//
// Cells from faces: which of the two ways runs for which form of a mesh, and the one that compares
// the nodes of faces with those of their cells.

#include <functional>

#include "testing/capture.h"
#include "tests/checker/DeepChecksFixture.h"
#include "tests/checker/checker_access.h"

namespace velto::testing {
namespace {

using base::boundaryWall;
using checker_access::checkCellsFromFaces;
using checker_access::checkFaceNodes;
using memory::CaseBuilder;
using memory::Slice;

const char* const kInit = "- checkCellsFromFaces - init\n";
const char* const kFaceCountSteps =
    "- checkCellsFromFaces_facenode - init\n"
    "- checkCellsFromFaces_facenode - cell types\n"
    "- checkCellsFromFaces_facenode - c0c1\n"
    "- checkCellsFromFaces_facenode - face count check\n";
const char* const kTableSteps =
    "- checkCellsFromFaces_cellnode - init\n"
    "- readFaceNodes - init\n"
    "- readFaceNodes - node counts\n"
    "- readFaceNodes - node ids\n"
    "- readFaceNodes - face index\n"
    "- readCellNodes - init\n"
    "- readCellNodes - node counts\n"
    "- readCellNodes - node ids\n"
    "- readCellNodes - cell index\n";
const std::string kFaceNodeSteps = std::string(kTableSteps) +
                                   "- checkCellsFromFaces_cellnode - c0\n"
                                   "- checkCellsFromFaces_cellnode - c1\n";

// --- By the form of the mesh --------------------------------------------------------------------

struct FormRow {
  const char* name;
  int mode;
  std::string out;
};

std::ostream& operator<<(std::ostream& out, const FormRow& row) { return out << row.name; }

class MeshForm : public DeepChecksFixture, public ::testing::WithParamInterface<FormRow> {};

TEST_P(MeshForm, ChoosesTheWays) {
  checker.setVerbosity(3);
  checker_access::cellsFromFacesMode(checker) = GetParam().mode;
  const CheckResult result = run(cases::twoHexes(), checkCellsFromFaces);
  EXPECT_TRUE(result.good);
  EXPECT_EQ(result.out, GetParam().out);
  EXPECT_EQ(result.err, "");
}

INSTANTIATE_TEST_SUITE_P(CellsFromFaces, MeshForm,
                         ::testing::ValuesIn(std::vector<FormRow>{
                             {"Unset", 0, std::string(kInit) + kFaceCountSteps + kFaceNodeSteps},
                             {"General", 1, std::string(kInit) + kFaceCountSteps + kFaceNodeSteps},
                             {"FaceNode", 2, std::string(kInit) + kFaceCountSteps},
                             {"CellNode", 3, std::string(kInit) + kFaceNodeSteps},
                             {"Mixed", 4, std::string(kInit) + kFaceCountSteps + kFaceNodeSteps}}),
                         [](const auto& row) { return std::string(row.param.name); });

class CellsFromFaces : public DeepChecksFixture {};

TEST_F(CellsFromFaces, GoOnWithTheNodesWhereNoZoneListsCellTypes) {
  const cases::CasePtr served = cases::twoHexes();
  served->arrays().cellTypes = {};
  checker.setVerbosity(3);
  const CheckResult result = run(served, checkCellsFromFaces);
  EXPECT_TRUE(result.good);
  EXPECT_EQ(result.out, std::string(kInit) +
                            "- checkCellsFromFaces_facenode - init\n"
                            "- checkCellsFromFaces_facenode - cell types\n" +
                            kFaceNodeSteps);
  EXPECT_EQ(result.errors, Texts());
  EXPECT_EQ(
      result.warnings,
      Texts({"checkCellsFromFaces_facenode : cell_face mesh with no cell-type are unsupported"}));
}

TEST_F(CellsFromFaces, AnswerTrueWhateverTheyFind) {
  const cases::CasePtr served = cases::twoHexes();
  served->arrays().cellTypes = {};
  setCells(*served, 1, 2, {9});
  checker_access::cellsFromFacesMode(checker) = 2;
  EXPECT_TRUE(run(served, checkCellsFromFaces).good);
}

TEST_F(CellsFromFaces, ReportAWrongCellOnceAWay) {
  const cases::CasePtr served = cases::twoHexes();
  setCells(*served, 1, 2, {9});
  EXPECT_EQ(run(served, checkCellsFromFaces).errors,
            Texts({"checkCellsFromFaces_facenode : Cell 1 (9) for face 1 is invalid",
                   "checkCellsFromFaces_facenode : Cells with missing facets: 1",
                   "checkCellsFromFaces_cellnode : Cell 1 (9) for face 1 is invalid"}));
}

// --- Whether a cell owns a face -----------------------------------------------------------------

struct OwnershipRow {
  const char* name;
  int cellNodeCount;
  Ids cellNodes;
  int faceNodeCount;
  Ids faceNodes;
  bool owned;
  const char* out;
};

std::ostream& operator<<(std::ostream& out, const OwnershipRow& row) { return out << row.name; }

const std::vector<OwnershipRow>& ownershipRows() {
  static const std::vector<OwnershipRow> kRows = {
      {"PassesAFaceOfTheCell", 4, {1, 2, 3, 4}, 3, {2, 4, 1}, true, ""},
      {"PassesAllNodesOfTheCell", 4, {1, 2, 3, 4}, 4, {4, 3, 2, 1}, true, ""},
      {"PassesTheLastNodeAlone", 4, {1, 2, 3, 4}, 1, {4}, true, ""},
      {"PassesTheFirstNodeAlone", 4, {1, 2, 3, 4}, 1, {1}, true, ""},
      {"PassesANodeThatTheFaceHasTwice", 2, {1, 2}, 3, {2, 2, 2}, true, ""},
      {"PassesANodeThatTheCellHasTwice", 3, {1, 1, 2}, 2, {2, 1}, true, ""},
      {"PassesNodeZero", 2, {0, 5}, 1, {0}, true, ""},
      {"RefusesTheFirstNode", 4, {1, 2, 3, 4}, 3, {5, 2, 3}, false, "face 3 vs cell type 4\n"},
      {"RefusesTheLastNode", 4, {1, 2, 3, 4}, 3, {1, 2, 5}, false, "face 3 vs cell type 4\n"},
      {"RefusesAllNodesWithOneLine", 2, {1, 2}, 4, {5, 6, 7, 8}, false, "face 4 vs cell type 2\n"},
      {"RefusesANodeBehindThoseOfTheCell", 2, {1, 2, 3}, 1, {3}, false, "face 1 vs cell type 2\n"},
      {"PassesANodeBehindThoseOfTheFace", 2, {1, 2}, 1, {1, 9}, true, ""},
      {"ComparesAll64Bits",
       1,
       {(std::uint64_t{1} << 32U) + 1},
       1,
       {1},
       false,
       "face 1 vs cell type 1\n"},
      {"PassesTheLargestId", 1, {kLargestId}, 1, {kLargestId}, true, ""},
      {"PassesACellWithoutNodes", 0, {}, 4, {1, 2, 3, 4}, true, ""},
      {"PassesAFaceWithoutNodes", 4, {1, 2, 3, 4}, 0, {}, true, ""},
      {"PassesAFaceOfNegativeCount", 4, {1, 2, 3, 4}, -1, {}, true, ""},
      {"PassesAFaceOfNegativeCountInACellOfOne", -1, {}, -1, {}, true, ""},
      {"PassesAFaceWithoutNodesInACellOfNegativeCount", -2, {}, 0, {}, true, ""},
      {"RefusesACellOfNegativeCount", -1, {1, 2}, 2, {1, 2}, false, "face 2 vs cell type -1\n"},
      {"RefusesACellOfVeryNegativeCount",
       -32768,
       {1},
       1,
       {1},
       false,
       "face 1 vs cell type -32768\n"},
  };
  return kRows;
}

class Ownership : public DeepChecksFixture, public ::testing::WithParamInterface<OwnershipRow> {};

TEST_P(Ownership, Row) {
  const OwnershipRow& row = GetParam();
  Ids cellNodes = row.cellNodes;
  Ids faceNodes = row.faceNodes;
  for (const int verbosity : {0, 1, 4}) {
    checker.setVerbosity(verbosity);
    const StreamCapture streams;
    EXPECT_EQ(checker_access::checkCellFaceOwnership(checker, row.cellNodeCount, cellNodes.data(),
                                                     row.faceNodeCount, faceNodes.data()),
              row.owned);
    EXPECT_EQ(streams.out(), row.out) << verbosity;
    EXPECT_EQ(streams.err(), "");
  }
  EXPECT_EQ(checker.getErrors(), Texts());
}

INSTANTIATE_TEST_SUITE_P(CellsFromFaces, Ownership, ::testing::ValuesIn(ownershipRows()),
                         [](const auto& row) { return std::string(row.param.name); });

TEST_F(CellsFromFaces, TakeUnknownNodesForOwned) {
  EXPECT_TRUE(checker_access::checkCellFaceOwnership(checker, 0, nullptr, 4, nullptr));
  EXPECT_TRUE(checker_access::checkCellFaceOwnership(checker, 8, nullptr, 0, nullptr));
}

// --- Nodes of faces among the nodes of cells ----------------------------------------------------

const std::string kStep = "checkCellsFromFaces_cellnode : ";
const std::string kBad0 = kStep + "Node connectivity error in face-cell c0 pair";
const std::string kBad1 = kStep + "Node connectivity error in face-cell c1 pair";

/// Two triangles with nodes of their own, 1 2 3 and 2 4 3: face zones 2 (face 1, between them), 3
/// (faces 2 and 3, of cell 1) and 4 (faces 4 and 5, of cell 2), cell zones 5 and 6.
cases::CasePtr twoTriangles() {
  return CaseBuilder(2)
      .units("m")
      .nodes(1, "points", {{0, 0}, {1, 0}, {0, 1}, {1, 1}})
      .faces(2, "between", faceZoneTypeInterior, {{{2, 3}, 1, 2}})
      .faces(3, "left", boundaryWall, {{{1, 2}, 1}, {{3, 1}, 1}})
      .faces(4, "right", boundaryWall, {{{2, 4}, 2}, {{4, 3}, 2}})
      .cells(5, "first", 1, 1)
      .cells(6, "second", 1, 1)
      .cellNodes(5, {{1, 2, 3}})
      .cellNodes(6, {{2, 4, 3}})
      .build();
}

void setFaceNodes(memory::Case& changed, int zone, const std::vector<short>& counts,
                  const Ids& nodes) {
  memory::CountedData& data = changed.arrays().faceNodes[zone];
  data.uniform.reset();
  data.counts = Slice<short>(counts);
  data.ids = Slice<std::uint64_t>(nodes);
}

void setCellNodes(memory::Case& changed, int zone, const std::vector<short>& counts,
                  const Ids& nodes) {
  memory::CountedData& data = changed.arrays().cellNodes[zone];
  data.uniform.reset();
  data.counts = Slice<short>(counts);
  data.ids = Slice<std::uint64_t>(nodes);
}

struct NodesRow {
  const char* name;
  std::function<void(memory::Case&)> damage;
  Texts errors;
  std::string out;
};

std::ostream& operator<<(std::ostream& out, const NodesRow& row) { return out << row.name; }

const std::string kLine = "face 2 vs cell type 3\n";

const std::vector<NodesRow>& nodesRows() {
  static const std::vector<NodesRow> kRows = {
      {"Pass", [](memory::Case&) {}, {}, ""},
      {"OfOneFaceAreNotOfItsCell",
       [](memory::Case& c) {
         setFaceNodes(c, 3, {2, 2}, {1, 4, 3, 1});
       },
       {kBad0},
       kLine},
      {"OfTwoFacesOfAZoneAreOneError",
       [](memory::Case& c) {
         setFaceNodes(c, 3, {2, 2}, {1, 4, 4, 1});
       },
       {kBad0},
       kLine + kLine},
      {"OfTwoZonesAreTwoErrors",
       [](memory::Case& c) {
         setFaceNodes(c, 3, {2, 2}, {1, 4, 3, 1});
         setFaceNodes(c, 4, {2, 2}, {1, 4, 4, 1});
       },
       {kBad0, kBad0},
       kLine + kLine + kLine},
      {"OfAnInnerFaceAreNotOfItsFirstCell",
       [](memory::Case& c) {
         setFaceNodes(c, 2, {2}, {2, 4});
       },
       {kBad0},
       kLine},
      {"OfAnInnerFaceAreNotOfItsSecondCell",
       [](memory::Case& c) {
         setFaceNodes(c, 2, {2}, {2, 1});
       },
       {kBad1},
       kLine},
      {"OfAnInnerFaceAreOfNoCell",
       [](memory::Case& c) {
         setFaceNodes(c, 2, {2}, {1, 4});
       },
       {kBad0, kBad1},
       kLine + kLine},
      {"OfAnotherCellAreCompared",
       [](memory::Case& c) {
         setCells(c, 0, 3, {2, 1});
       },
       {kBad0},
       kLine},
      {"CellZeroOnSideZero",
       [](memory::Case& c) {
         setCells(c, 0, 3, {0, 1});
       },
       {kStep + "Cell 0 (0) for face 2 is invalid"},
       ""},
      {"CellZeroOnSideOne",
       [](memory::Case& c) { setCells(c, 1, 2, {0}); },
       {kStep + "Cell 1 (0) for face 1 is invalid"},
       ""},
      {"CellBeyondTheMeshOnSideZero",
       [](memory::Case& c) {
         setCells(c, 0, 4, {2, 3});
       },
       {kStep + "Cell 0 (3) for face 5 is invalid"},
       ""},
      {"CellBeyondTheMeshOnSideOne",
       [](memory::Case& c) { setCells(c, 1, 2, {kLargestId}); },
       {kStep + "Cell 1 (18446744073709551615) for face 1 is invalid"},
       ""},
      {"CellsAndNodesWrongOnBothSides",
       [](memory::Case& c) {
         setFaceNodes(c, 2, {2}, {1, 4});
         setFaceNodes(c, 3, {2, 2}, {4, 4, 3, 1});
         setCells(c, 0, 3, {1, 7});
         setCells(c, 0, 4, {0, 9});
         setCells(c, 1, 4, {2, 5});
       },
       {kBad0, kStep + "Cell 0 (7) for face 3 is invalid", kBad0,
        kStep + "Cell 0 (0) for face 4 is invalid", kStep + "Cell 0 (9) for face 5 is invalid",
        kBad1, kStep + "Cell 1 (5) for face 5 is invalid"},
       kLine + kLine + kLine},
      {"ZoneWithFirstAboveLast",
       [](memory::Case& c) {
         setFaceNodes(c, 3, {2, 2}, {4, 4, 4, 4});
         setRange(c, 3, 3, 2);
       },
       {},
       ""},
      {"FacesBeyondTheMeshPass",
       [](memory::Case& c) {
         setFaceNodes(c, 3, {2, 2}, {4, 4, 4, 4});
         setRange(c, 3, kLargestId - 1, kLargestId);
       },
       {},
       ""},
      {"FaceZeroPasses",
       [](memory::Case& c) {
         setFaceNodes(c, 3, {2, 2}, {4, 4, 4, 4});
         setRange(c, 3, 0, 0);
       },
       {},
       ""},
      {"FacesBeyondTheMeshHaveCells",
       [](memory::Case& c) {
         setCells(c, 0, 3, {3, 1});
         setRange(c, 3, 6, 7);
       },
       {kStep + "Cell 0 (3) for face 6 is invalid"},
       ""},
      {"FacesAreFoundByPosition",
       [](memory::Case& c) { c.arrays().faceNodes.remove(2); },
       // Face 1 has the nodes 1 2 of face 2, face 2 the nodes 3 1 of face 3, and so on.
       {kBad0, kBad1},
       kLine + kLine},
      {"CellsOfAZoneWithoutNodesShiftThoseBehind",
       [](memory::Case& c) { c.arrays().cellNodes.remove(5); },
       // Cell 1 has the nodes 2 4 3 of cell 2, and cell 2 has none.
       {kBad0},
       kLine + kLine},
      {"CellsOfALastZoneWithoutNodesPass",
       [](memory::Case& c) { c.arrays().cellNodes.remove(6); },
       {},
       ""},
      {"CellsWithoutAnyNodesPass", [](memory::Case& c) { c.arrays().cellNodes = {}; }, {}, ""},
      {"FacesWithoutAnyNodesPass", [](memory::Case& c) { c.arrays().faceNodes = {}; }, {}, ""},
      {"LogicErrorOfFaceNodesStopsNothing",
       [](memory::Case& c) {
         setFaceNodes(c, 3, {4, 0}, {1, 4, 3, 1});
         setCells(c, 1, 2, {3});
       },
       // Face 3 and those behind it have no entry.
       {"readFaceNodes : Logic error 2 in face connectivity index", kBad0,
        kStep + "Cell 1 (3) for face 1 is invalid"},
       "face 4 vs cell type 3\n"},
      {"LogicErrorOfTooManyFacesStopsNothing",
       [](memory::Case& c) {
         c.mesh().sizes[meshFaceCount] = 3;
         setFaceNodes(c, 2, {2}, {1, 4});
       },
       {"readFaceNodes : Logic error in face connectivity index", kBad0, kBad1},
       kLine + kLine},
      {"LogicErrorOfCellNodesStopsNothing",
       [](memory::Case& c) {
         setCellNodes(c, 5, {0}, {});
         setCells(c, 0, 4, {2, 3});
       },
       {"readCellNodes : Logic error 2 in cell connectivity index",
        kStep + "Cell 0 (3) for face 5 is invalid"},
       ""},
      {"BothLogicErrorsStopNothing",
       [](memory::Case& c) {
         setFaceNodes(c, 2, {0}, {});
         setCellNodes(c, 5, {0}, {});
         setCells(c, 1, 2, {0});
       },
       {"readFaceNodes : Logic error 2 in face connectivity index",
        "readCellNodes : Logic error 2 in cell connectivity index",
        kStep + "Cell 1 (0) for face 1 is invalid"},
       ""},
      {"NegativeCountOfACell",
       [](memory::Case& c) {
         c.zone(5).sizes[zoneElementCount] = 2;
         setCellNodes(c, 5, {-1, 4}, {1, 2, 3});
       },
       {"readCellNodes : Logic error 2 in cell connectivity index", kBad0, kBad0},
       "face 2 vs cell type -1\nface 2 vs cell type -1\nface 2 vs cell type -1\n"},
      {"NegativeCountOfAFace",
       [](memory::Case& c) {
         setFaceNodes(c, 3, {-2, 4}, {4, 4, 4, 4});
       },
       {"readFaceNodes : Logic error 2 in face connectivity index"},
       ""},
  };
  return kRows;
}

class NodesOfFaces : public DeepChecksFixture, public ::testing::WithParamInterface<NodesRow> {};

TEST_P(NodesOfFaces, Row) {
  checker.setVerbosity(0);
  const cases::CasePtr served = twoTriangles();
  GetParam().damage(*served);
  const CheckResult result = run(served, checkFaceNodes);
  EXPECT_TRUE(result.good);
  EXPECT_EQ(result.errors, GetParam().errors);
  EXPECT_EQ(result.warnings, Texts());
  EXPECT_EQ(result.out, GetParam().out);
  EXPECT_EQ(result.err, "");
}

INSTANTIATE_TEST_SUITE_P(CellsFromFaces, NodesOfFaces, ::testing::ValuesIn(nodesRows()),
                         [](const auto& row) { return std::string(row.param.name); });

TEST_F(CellsFromFaces, CompareNodesInOrder) {
  const cases::CasePtr served = twoTriangles();
  EXPECT_TRUE(run(served, checkFaceNodes).good);
  EXPECT_EQ(
      calls(),
      Transcript(
          {"getZoneIds(2)",
           // nodes of faces
           "getMeshSize(3)", "getZoneIds(2)", "beginFaceNodes()", "beginFaceNodeCounts()",
           "getZoneSizeInfo(2, 2)", "getUniformFaceNodeCount(2)", "getZoneSizeInfo(3, 2)",
           "getUniformFaceNodeCount(3)", "getZoneSizeInfo(4, 2)", "getUniformFaceNodeCount(4)",
           "endFaceNodeCounts()", "beginFaceNodeIds()", "readFaceNodeIds(2, 2)",
           "readFaceNodeIds(3, 4)", "readFaceNodeIds(4, 4)", "endFaceNodeIds()", "endFaceNodes()",
           // nodes of cells
           "getMeshSize(4)", "getZoneIds(3)", "beginCellNodes()", "beginCellNodeCounts()",
           "getZoneSizeInfo(5, 2)", "getUniformCellNodeCount(5)", "getZoneSizeInfo(6, 2)",
           "getUniformCellNodeCount(6)", "endCellNodeCounts()", "beginCellNodeIds()",
           "readCellNodeIds(5, 3)", "readCellNodeIds(6, 3)", "endCellNodeIds()", "endCellNodes()",
           // side 0
           "beginFaceCell0()", "getZoneSizeInfo(2, 0)", "getZoneSizeInfo(2, 1)", "getFaceCell0(1)",
           "getZoneSizeInfo(3, 0)", "getZoneSizeInfo(3, 1)", "getFaceCell0(2)", "getFaceCell0(3)",
           "getZoneSizeInfo(4, 0)", "getZoneSizeInfo(4, 1)", "getFaceCell0(4)", "getFaceCell0(5)",
           "endFaceCell0()",
           // side 1
           "beginFaceCell1()", "getZoneSizeInfo(2, 0)", "getZoneSizeInfo(2, 1)", "getFaceCell1(1)",
           "endFaceCell1()"}));
}

TEST_F(CellsFromFaces, HandTheListOfOneSideToTheOther) {
  const cases::CasePtr served = twoTriangles();
  served->arrays().faceCell0.remove(2);
  EXPECT_EQ(listsGiven(served, checkFaceNodes),
            Transcript({"beginFaceNodes [2, 3, 4]", "beginCellNodes [5, 6]",
                        "beginFaceCell0 [2, 3, 4]", "beginFaceCell1 [3, 4]"}));
}

TEST_F(CellsFromFaces, ShowTheErrorsOfNodesWhereTheyAreFound) {
  const cases::CasePtr served = twoTriangles();
  setFaceNodes(*served, 2, {2}, {1, 4});
  setCells(*served, 0, 4, {2, 3});
  checker.setVerbosity(4);
  const CheckResult result = run(served, checkFaceNodes);
  EXPECT_EQ(result.out, std::string(kTableSteps) +
                            "- checkCellsFromFaces_cellnode - c0\n"
                            "face 2 vs cell type 3\n"
                            "- checkCellsFromFaces_cellnode - c1\n"
                            "face 2 vs cell type 3\n");
  EXPECT_EQ(result.err,
            "Error: checkCellsFromFaces_cellnode: Node connectivity error in face-cell c0 pair\n"
            "Error: checkCellsFromFaces_cellnode: Cell 0 (3) for face 5 is invalid\n"
            "Error: checkCellsFromFaces_cellnode: Node connectivity error in face-cell c1 pair\n");
}

TEST_F(CellsFromFaces, KnowNothingOfTheNodesOfAnEarlierMesh) {
  EXPECT_EQ(run(twoTriangles(), checkFaceNodes).errors, Texts());
  const cases::CasePtr smaller = twoTriangles();
  smaller->mesh().sizes[meshCellCount] = 1;
  smaller->arrays().cellNodes = {};
  setFaceNodes(*smaller, 3, {2, 2}, {4, 4, 4, 4});
  EXPECT_EQ(
      run(smaller, checkFaceNodes).errors,
      Texts({kStep + "Cell 0 (2) for face 4 is invalid", kStep + "Cell 0 (2) for face 5 is invalid",
             kStep + "Cell 1 (2) for face 1 is invalid"}));
}

}  // namespace
}  // namespace velto::testing
