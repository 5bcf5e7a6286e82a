// SPDX-License-Identifier: Apache-2.0
//
// The deep checks in the walk: their order, what ends it between them, and whole cases at level 2.

#include <sstream>

#include "tests/checker/DeepChecksFixture.h"
#include "tests/checker/checker_access.h"

namespace velto::testing {
namespace {

using base::cellShapeHexahedron;
using base::cellShapePolyhedron;
using base::cellShapePyramid;
using base::cellShapeQuadrilateral;
using base::cellShapeTetrahedron;
using base::cellShapeTriangle;
using base::cellShapeWedge;
using memory::Slice;

class DeepWalk : public DeepChecksFixture {
 protected:
  DeepWalk() { checker.setCheckLevel(2); }
};

/// The steps that show where a run is: one a check.
Texts checksIn(const std::string& out) {
  Texts checks;
  std::istringstream lines(out);
  std::string line;
  while (std::getline(lines, line)) {
    const std::string check = line.substr(0, line.find(" - "));
    if (line.rfind("- ", 0) == 0 && (checks.empty() || checks.back() != check)) {
      checks.push_back(check);
    }
  }
  return checks;
}

/// Calls of each deep check, and the questions after them.
const std::vector<std::string> kMarks = {"endFaceNodeIds", "endFaceNodes",   "endCellNodes",
                                         "endCellFaces",   "endFaceCell1",   "endFaceShadows",
                                         "hasWarning",     "hasError",       "beginFaceNodes",
                                         "beginCellFaces", "beginCellTypes", "beginFaceShadows"};

TEST_F(DeepWalk, RunsTheChecksInOrderAndAsksForErrorsAfterEach) {
  serve(cases::periodicPair());
  prepare([this](ScriptedProvider& p) {
    p.on("beginFaceNodes", [this](base::CaseCore&) { transcript.clear(); });
  });
  EXPECT_TRUE(check().good);
  EXPECT_EQ(callsOf(kMarks),
            Transcript({// checkFaceConnectivity, which asks twice itself
                        "endFaceNodeIds()", "hasWarning()", "hasError()", "endFaceNodes()",
                        "hasWarning()", "hasError()", "hasWarning()", "hasError()",
                        // checkCellConnectivity
                        "endCellNodes()", "beginCellFaces()", "endCellFaces()", "hasWarning()",
                        "hasError()",
                        // checkCellsFromFaces
                        "beginCellTypes()", "endFaceCell1()", "hasWarning()", "hasError()",
                        // checkFacesShadowZones
                        "beginFaceShadows()", "endFaceShadows()", "hasWarning()", "hasError()",
                        // the end of the run
                        "hasWarning()", "hasError()"}));
}

TEST_F(DeepWalk, ShowsItsSteps) {
  checker.setVerbosity(3);
  const CheckResult result = check();
  const std::size_t begin = result.out.find("- checkFaceConnectivity - init\n");
  ASSERT_NE(begin, std::string::npos);
  EXPECT_EQ(result.out.substr(begin),
            "- checkFaceConnectivity - init\n"
            "- checkFaceConnectivity - node counts\n"
            "- checkFaceConnectivity - node ids\n"
            "- checkCellConnectivity - init\n"
            "- checkCellConnectivity - node counts\n"
            "- checkCellConnectivity - node ids\n"
            "- checkCellConnectivity - face ids\n"
            "- checkCellsFromFaces - init\n"
            "- checkCellsFromFaces_facenode - init\n"
            "- checkCellsFromFaces_facenode - cell types\n"
            "- checkCellsFromFaces_facenode - c0c1\n"
            "- checkCellsFromFaces_facenode - face count check\n"
            "- checkFacesShadowZones - shadow faces\n"
            "- checkCase - availableTargets\n");
  EXPECT_EQ(result.err, "");
}

struct LevelRow {
  const char* name;
  int level;
  Texts checks;
};

std::ostream& operator<<(std::ostream& out, const LevelRow& row) { return out << row.name; }

class DeepChecks : public DeepWalk, public ::testing::WithParamInterface<LevelRow> {};

TEST_P(DeepChecks, AtLevel) {
  checker.setCheckLevel(GetParam().level);
  checker.setVerbosity(3);
  const CheckResult result = check();
  EXPECT_TRUE(result.good);
  EXPECT_EQ(checksIn(result.out), GetParam().checks);
}

const Texts kUpToLevel1 = {"- checkVersion",
                           "- checkSolverType",
                           "- checkTopologyModel",
                           "- checkMeshSize",
                           "- checkMeshConnectivity",
                           "- checkPhysicsToMeshMapUsingTopologyModel",
                           "- checkCellZoneConnectivityTypes",
                           "- checkNodeZones",
                           "- checkFaceZones",
                           "- checkCellZones",
                           "- checkCase"};
const Texts kUpToLevel2 = {"- checkVersion",
                           "- checkSolverType",
                           "- checkTopologyModel",
                           "- checkMeshSize",
                           "- checkMeshConnectivity",
                           "- checkPhysicsToMeshMapUsingTopologyModel",
                           "- checkCellZoneConnectivityTypes",
                           "- checkNodeZones",
                           "- checkFaceZones",
                           "- checkCellZones",
                           "- checkFaceConnectivity",
                           "- checkCellConnectivity",
                           "- checkCellsFromFaces",
                           "- checkCellsFromFaces_facenode",
                           "- checkFacesShadowZones",
                           "- checkCase"};

INSTANTIATE_TEST_SUITE_P(DeepWalk, DeepChecks,
                         ::testing::ValuesIn(std::vector<LevelRow>{
                             {"1", 1, kUpToLevel1}, {"2", 2, kUpToLevel2}, {"3", 3, kUpToLevel2}}),
                         [](const auto& row) { return std::string(row.param.name); });

TEST_F(DeepWalk, BelongsToLevel2) {
  checker.setCheckLevel(1);
  serve(cases::periodicPair());
  EXPECT_TRUE(check().good);
  EXPECT_EQ(callsOf({"beginFaceNodes", "beginCellNodeCounts", "beginCellFaceCounts",
                     "beginFaceCell0", "beginFaceCell1", "beginCellTypes", "beginFaceShadows"}),
            Transcript());
}

// --- Errors of the library ----------------------------------------------------------------------

/// A call of one check that no other makes, at which the library fails.
struct FailureRow {
  const char* name;
  const char* call;
  const char* error;
  Texts lastChecks;  // behind those of level 1
};

std::ostream& operator<<(std::ostream& out, const FailureRow& row) { return out << row.name; }

class DeepFailure : public DeepWalk, public ::testing::WithParamInterface<FailureRow> {};

TEST_P(DeepFailure, EndsTheWalk) {
  const cases::CasePtr two = cases::periodicPair();
  two->tables.meshes[{2, targetRestart, -1}] = two->mesh();
  two->data[{2, targetRestart, -1}] = two->arrays();
  serve(two);
  prepare([](ScriptedProvider& p) { failOn(p, GetParam().call); });
  checker.setVerbosity(3);
  const CheckResult result = check();
  EXPECT_FALSE(result.good);
  EXPECT_EQ(result.errors, Texts({GetParam().error}));
  EXPECT_EQ(result.warnings, Texts());
  EXPECT_EQ(selections(), selected({{1, 0, -1}}));
  Texts expected(kUpToLevel1.begin(), kUpToLevel1.end() - 1);
  expected.insert(expected.end(), GetParam().lastChecks.begin(), GetParam().lastChecks.end());
  EXPECT_EQ(checksIn(result.out), expected);
}

INSTANTIATE_TEST_SUITE_P(DeepWalk, DeepFailure,
                         ::testing::ValuesIn(std::vector<FailureRow>{
                             {"InCellConnectivity",
                              "beginCellNodeCounts",
                              "checkCellConnectivity : ORV - disk gone",
                              {"- checkFaceConnectivity", "- checkCellConnectivity"}},
                             {"InCellsFromFaces",
                              "beginCellTypes",
                              "checkCellsFromFaces_facenode : ORV - disk gone",
                              {"- checkFaceConnectivity", "- checkCellConnectivity",
                               "- checkCellsFromFaces", "- checkCellsFromFaces_facenode"}},
                             {"InShadowFaces",
                              "beginFaceShadows",
                              "checkFacesShadowZones : ORV - disk gone",
                              {"- checkFaceConnectivity", "- checkCellConnectivity",
                               "- checkCellsFromFaces", "- checkCellsFromFaces_facenode",
                               "- checkFacesShadowZones"}}}),
                         [](const auto& row) { return std::string(row.param.name); });

TEST_F(DeepWalk, GoesOnAfterErrorsThatFaceConnectivityTakesOverItself) {
  prepare([](ScriptedProvider& p) {
    failOn(p, "beginFaceNodes");
    failOn(p, "endFaceNodes");
  });
  checker.setVerbosity(3);
  const CheckResult result = check();
  EXPECT_FALSE(result.good);
  EXPECT_EQ(result.errors, Texts({"checkFaceConnectivity : ORV - disk gone",
                                  "checkFaceConnectivity : ORV - disk gone"}));
  EXPECT_EQ(checksIn(result.out), kUpToLevel2);
}

TEST_F(DeepWalk, EndsAtAnErrorBehindThoseThatFaceConnectivityTakesOver) {
  bool isBehind = false;
  int questions = 0;
  prepare([&](ScriptedProvider& p) {
    p.on("endFaceNodes", [&](base::CaseCore&) { isBehind = true; });
    p.on("hasWarning", [&](base::CaseCore& core) {
      if (isBehind && ++questions == 2) {
        core.messages.addError("disk gone");
      }
    });
  });
  const CheckResult result = check();
  EXPECT_FALSE(result.good);
  EXPECT_EQ(result.errors, Texts({"checkFaceConnectivity : ORV - disk gone"}));
  EXPECT_EQ(callsOf({"beginCellNodeCounts"}), Transcript());
}

TEST_F(DeepWalk, FinishesTheCheckInWhichTheLibraryFails) {
  prepare([](ScriptedProvider& p) {
    p.on("getFaceCell0(1)", [](base::CaseCore& core) {
      core.messages.addWarning("slow disk");
      core.messages.addError("disk gone");
    });
  });
  const cases::CasePtr damaged = cases::oneHex();
  setCells(*damaged, 0, 2, {1, 1, 1, 1, 1, 2});
  serve(damaged);
  const CheckResult result = check();
  EXPECT_FALSE(result.good);
  EXPECT_EQ(result.errors, Texts({"checkCellsFromFaces_facenode : Cell 0 (2) for face 6 is invalid",
                                  "checkCellsFromFaces_facenode : Cells with missing facets: 1",
                                  "checkCellsFromFaces_facenode : ORV - disk gone"}));
  EXPECT_EQ(result.warnings, Texts({"checkCellsFromFaces_facenode : ORV - slow disk"}));
  EXPECT_EQ(callsOf({"beginFaceShadows"}), Transcript());
}

TEST_F(DeepWalk, GoesOnAfterWarningsOfTheLibrary) {
  prepare([](ScriptedProvider& p) {
    for (const char* const call :
         {"endFaceNodes", "beginCellNodeCounts", "endFaceCell1", "endFaceShadows"}) {
      p.on(call, [](base::CaseCore& core) { core.messages.addWarning("slow disk"); });
    }
  });
  const CheckResult result = check();
  EXPECT_TRUE(result.good);
  EXPECT_EQ(result.warnings, Texts({"checkFaceConnectivity : ORV - slow disk",
                                    "checkCellConnectivity : ORV - slow disk",
                                    "checkCellsFromFaces_facenode : ORV - slow disk",
                                    "checkFacesShadowZones : ORV - slow disk"}));
}

// --- Defects ------------------------------------------------------------------------------------

TEST_F(DeepWalk, GoesOnAfterDefectsOfEachCheck) {
  const cases::CasePtr damaged = cases::periodicPair();
  damaged->arrays().faceNodes[2].ids = Slice<std::uint64_t>({1, 5, 8, 99});
  damaged->arrays().faceShadows[2] = Slice<std::uint64_t>(Ids{9});
  setCells(*damaged, 0, 3, {0});
  damaged->tables.meshes[{2, targetRestart, -1}] = damaged->mesh();
  damaged->data[{2, targetRestart, -1}] = damaged->arrays();
  serve(damaged);
  const CheckResult result = check();
  EXPECT_FALSE(result.good);
  const Texts ofEach = {
      "checkFaceConnectivity : Face node ids out of node id range",
      "checkCellsFromFaces_facenode : Cell 0 (0) for face 2 is invalid",
      "checkCellsFromFaces_facenode : Cells with missing facets: 1",
      "checkFacesShadowZones : Face shadow facet ids are out of target shadow range"};
  Texts ofBoth = ofEach;
  ofBoth.insert(ofBoth.end(), ofEach.begin(), ofEach.end());
  EXPECT_EQ(result.errors, ofBoth);
  EXPECT_EQ(result.warnings, Texts());
  EXPECT_EQ(selections(), selected({{1, 0, -1}, {2, 0, -1}}));
}

TEST_F(DeepWalk, GoesOnWithoutCellTypes) {
  const cases::CasePtr damaged = cases::periodicPair();
  damaged->arrays().cellTypes = {};
  serve(damaged);
  const CheckResult result = check();
  EXPECT_TRUE(result.good);
  EXPECT_EQ(
      result.warnings,
      Texts({"checkCellsFromFaces_facenode : cell_face mesh with no cell-type are unsupported"}));
  EXPECT_EQ(callsOf({"beginFaceCell0", "getFaceShadow"}),
            Transcript({"getFaceShadow(1)", "getFaceShadow(2)"}));
}

// --- Sound cases --------------------------------------------------------------------------------

const CellForm kTriangle = {"triangle", cellShapeTriangle, 3, {{1, 2}, {2, 3}, {3, 1}}};
const CellForm kQuadrilateral = {
    "quadrilateral", cellShapeQuadrilateral, 4, {{1, 2}, {2, 3}, {3, 4}, {4, 1}}};
const CellForm kPentagon = {
    "pentagon", cellShapePolyhedron, 5, {{1, 2}, {2, 3}, {3, 4}, {4, 5}, {5, 1}}};
const CellForm kTetrahedron = {
    "tetrahedron", cellShapeTetrahedron, 4, {{1, 3, 2}, {1, 2, 4}, {2, 3, 4}, {3, 1, 4}}};
const CellForm kPyramid = {
    "pyramid", cellShapePyramid, 5, {{1, 4, 3, 2}, {1, 2, 5}, {2, 3, 5}, {3, 4, 5}, {4, 1, 5}}};
const CellForm kWedge = {
    "wedge", cellShapeWedge, 6, {{1, 3, 2}, {4, 5, 6}, {1, 2, 5, 4}, {2, 3, 6, 5}, {3, 1, 4, 6}}};
const CellForm kHexahedron = {
    "hexahedron",
    cellShapeHexahedron,
    8,
    {{1, 4, 3, 2}, {5, 6, 7, 8}, {1, 2, 6, 5}, {2, 3, 7, 6}, {3, 4, 8, 7}, {4, 1, 5, 8}}};
const CellForm kPrism = {"polyhedron",
                         cellShapePolyhedron,
                         10,
                         {{1, 5, 4, 3, 2},
                          {6, 7, 8, 9, 10},
                          {1, 2, 7, 6},
                          {2, 3, 8, 7},
                          {3, 4, 9, 8},
                          {4, 5, 10, 9},
                          {5, 1, 6, 10}}};

struct SoundRow {
  const char* name;
  int dimension;
  std::vector<CellForm> forms;
};

std::ostream& operator<<(std::ostream& out, const SoundRow& row) { return out << row.name; }

class SoundCells : public DeepWalk, public ::testing::WithParamInterface<SoundRow> {
 protected:
  /// A whole run says nothing of the case, whose form it finds to be `mode`.
  void expectSound(const cases::CasePtr& served, int mode) {
    serve(served);
    const CheckResult result = check();
    EXPECT_EQ(result.errors, Texts());
    EXPECT_EQ(result.warnings, Texts());
    EXPECT_EQ(result.out, "");
    EXPECT_EQ(checker_access::cellsFromFacesMode(checker), mode);
  }
};

TEST_P(SoundCells, AreSoundByTheirFaces) {
  expectSound(cellsOfForms(GetParam().dimension, GetParam().forms, false), 2);
}

TEST_P(SoundCells, AreSoundByTheirNodes) {
  expectSound(cellsOfForms(GetParam().dimension, GetParam().forms, true), 3);
}

TEST_P(SoundCells, AreSoundInBothWays) {
  // The last zone is known by its faces, so that nothing is shifted.
  std::vector<CellForm> forms = GetParam().forms;
  forms.push_back(forms.front());
  const cases::CasePtr mixed = cellsOfForms(GetParam().dimension, forms, true);
  mixed->arrays().cellNodes.remove(30 + static_cast<int>(forms.size()));
  expectSound(mixed, 4);
}

INSTANTIATE_TEST_SUITE_P(
    DeepWalk, SoundCells,
    ::testing::ValuesIn(std::vector<SoundRow>{
        {"Triangle", 2, {kTriangle}},
        {"Quadrilateral", 2, {kQuadrilateral}},
        {"Polygon", 2, {kPentagon}},
        {"PlaneZones", 2, {kTriangle, kQuadrilateral, kPentagon}},
        {"Tetrahedron", 3, {kTetrahedron}},
        {"Pyramid", 3, {kPyramid}},
        {"Wedge", 3, {kWedge}},
        {"Hexahedron", 3, {kHexahedron}},
        {"Polyhedron", 3, {kPrism}},
        {"SpaceZones", 3, {kHexahedron, kWedge, kPyramid, kTetrahedron, kPrism}}}),
    [](const auto& row) { return std::string(row.param.name); });

class NamedCaseAtLevel2 : public CheckerFixture,
                          public ::testing::WithParamInterface<cases::NamedCase> {};

TEST_P(NamedCaseAtLevel2, IsSound) {
  serve(GetParam().make());
  checker.setCheckLevel(2);
  const CheckResult result = check();
  // The faces of that post target name no cells, and its cells list no nodes.
  const bool lacksFaces = GetParam().name == "PostPolyhedron";
  EXPECT_EQ(result.errors,
            lacksFaces ? Texts({"checkCellsFromFaces_facenode : Cells with missing facets: 1"})
                       : Texts());
  EXPECT_EQ(result.out, "");
}

INSTANTIATE_TEST_SUITE_P(DeepWalk, NamedCaseAtLevel2, ::testing::ValuesIn(cases::all()),
                         [](const auto& row) { return row.param.name; });

}  // namespace
}  // namespace velto::testing
