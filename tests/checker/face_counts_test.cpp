// SPDX-License-Identifier: Apache-2.0
//
// Cells by the number of their faces: what each type needs, and which cells and faces are counted.

#include <limits>

#include "tests/checker/DeepChecksFixture.h"
#include "tests/checker/checker_access.h"

namespace velto::testing {
namespace {

using checker_access::checkFaceCounts;

const char* const kSteps =
    "- checkCellsFromFaces_facenode - init\n"
    "- checkCellsFromFaces_facenode - cell types\n"
    "- checkCellsFromFaces_facenode - c0c1\n"
    "- checkCellsFromFaces_facenode - face count check\n";

const char* const kUnsupported =
    "checkCellsFromFaces_facenode : Cells of unsupported type encountered";

const std::string kMissing = "checkCellsFromFaces_facenode : Cells with missing facets: ";

const char* const kOneExcess =
    "checkCellsFromFaces_facenode : Cells with too many facets attached: 1";

/// A cell of a type that so many faces reach.
cases::CasePtr cellWithFaces(int dimension, int type, std::size_t faces) {
  return facesAndTypes(dimension, {type}, Ids(faces, 1));
}

class FaceCounts : public DeepChecksFixture {
 protected:
  FaceCounts() { checker.setVerbosity(4); }
};

// --- Types with an exact number of facets --------------------------------------------------------

struct ExactRow {
  const char* name;
  int type;
  std::size_t facets;
  const char* below;
  const char* above;
};

std::ostream& operator<<(std::ostream& out, const ExactRow& row) { return out << row.name; }

class ExactFacets : public FaceCounts, public ::testing::WithParamInterface<ExactRow> {};

TEST_P(ExactFacets, AreEnough) {
  const CheckResult result =
      run(cellWithFaces(3, GetParam().type, GetParam().facets), checkFaceCounts);
  EXPECT_TRUE(result.good);
  EXPECT_EQ(result.errors, Texts());
  EXPECT_EQ(result.warnings, Texts());
  EXPECT_EQ(result.out, kSteps);
}

TEST_P(ExactFacets, AreMissingBelow) {
  const CheckResult result =
      run(cellWithFaces(3, GetParam().type, GetParam().facets - 1), checkFaceCounts);
  EXPECT_TRUE(result.good);
  EXPECT_EQ(result.errors, Texts({kMissing + "1"}));
  EXPECT_EQ(result.warnings, Texts());
  EXPECT_EQ(result.out, std::string(kSteps) + GetParam().below);
}

TEST_P(ExactFacets, AreTooManyAbove) {
  const CheckResult result =
      run(cellWithFaces(3, GetParam().type, GetParam().facets + 1), checkFaceCounts);
  EXPECT_TRUE(result.good);
  EXPECT_EQ(result.errors, Texts({kOneExcess}));
  EXPECT_EQ(result.warnings, Texts());
  EXPECT_EQ(result.out, std::string(kSteps) + GetParam().above);
}

TEST_P(ExactFacets, MayBeExceededBesideAChildZone) {
  const cases::CasePtr served = cellWithFaces(3, GetParam().type, GetParam().facets + 1);
  served->zone(2).faceInfo[faceZoneChild] = 9;
  const CheckResult result = run(served, checkFaceCounts);
  EXPECT_EQ(result.errors, Texts());
  EXPECT_EQ(result.out, kSteps);
}

TEST_P(ExactFacets, MayBeExceededBesideAZoneOfTheFaceTree) {
  const cases::CasePtr served = cellWithFaces(3, GetParam().type, GetParam().facets + 1);
  served->arrays().treeParentZones = {2};
  const CheckResult result = run(served, checkFaceCounts);
  EXPECT_EQ(result.errors, Texts());
  EXPECT_EQ(result.out, kSteps);
}

TEST_P(ExactFacets, AreMissedInASubdividedMeshToo) {
  const cases::CasePtr served = cellWithFaces(3, GetParam().type, GetParam().facets - 1);
  served->zone(2).faceInfo[faceZoneChild] = 9;
  served->arrays().treeParentZones = {2};
  const CheckResult result = run(served, checkFaceCounts);
  EXPECT_EQ(result.errors, Texts({kMissing + "1"}));
  EXPECT_EQ(result.out, std::string(kSteps) + GetParam().below);
}

TEST_P(ExactFacets, AreTheSameInEveryDimension) {
  for (const int dimension : {0, 1, 2, 4}) {
    const CheckResult result =
        run(cellWithFaces(dimension, GetParam().type, GetParam().facets), checkFaceCounts);
    EXPECT_EQ(result.errors, Texts()) << dimension;
    EXPECT_EQ(result.warnings, Texts()) << dimension;
  }
}

INSTANTIATE_TEST_SUITE_P(
    FaceCounts, ExactFacets,
    ::testing::ValuesIn(std::vector<ExactRow>{
        {"OfType1", 1, 3, "Cell face count mismatch 2 vs 3\n", "Cell face count mismatch 4 vs 3\n"},
        {"OfType2", 2, 4, "Cell face count mismatch 3 vs 4\n", "Cell face count mismatch 5 vs 4\n"},
        {"OfType3", 3, 4, "Cell face count mismatch 3 vs 4\n", "Cell face count mismatch 5 vs 4\n"},
        {"OfType4", 4, 6, "Cell face count mismatch 5 vs 6\n", "Cell face count mismatch 7 vs 6\n"},
        {"OfType5", 5, 5, "Cell face count mismatch 4 vs 5\n", "Cell face count mismatch 6 vs 5\n"},
        {"OfType6", 6, 5, "Cell face count mismatch 4 vs 5\n", "Cell face count mismatch 6 vs 5\n"},
        {"OfType8", 8, 1, "Cell face count mismatch 0 vs 1\n", "Cell face count mismatch 2 vs 1\n"},
        {"OfType9", 9, 4, "Cell face count mismatch 3 vs 4\n",
         "Cell face count mismatch 5 vs 4\n"}}),
    [](const auto& row) { return std::string(row.param.name); });

// --- Polyhedral cells ---------------------------------------------------------------------------

struct PolyhedronRow {
  const char* name;
  int dimension;
  std::size_t faces;
  bool subdivided;
  Texts errors;
  const char* line;
};

std::ostream& operator<<(std::ostream& out, const PolyhedronRow& row) { return out << row.name; }

const std::vector<PolyhedronRow>& polyhedronRows() {
  static const std::vector<PolyhedronRow> kRows = {
      {"With2FacesIn2DIsShort",
       2,
       2,
       false,
       {kMissing + "1"},
       "Cell face count mismatch  2vs minimum of 3\n"},
      {"With3FacesIn2DPasses", 2, 3, false, {}, ""},
      {"With4FacesIn2DPasses", 2, 4, false, {}, ""},
      {"With3FacesIn3DIsShort",
       3,
       3,
       false,
       {kMissing + "1"},
       "Cell face count mismatch  3vs minimum of 4\n"},
      {"With4FacesIn3DPasses", 3, 4, false, {}, ""},
      {"With100FacesIn3DPasses", 3, 100, false, {}, ""},
      {"With100FacesInASubdividedMeshPasses", 3, 100, true, {}, ""},
      {"With3FacesInASubdividedMeshIsShort",
       3,
       3,
       true,
       {kMissing + "1"},
       "Cell face count mismatch  3vs minimum of 4\n"},
      {"Without2DFacesIsShort",
       2,
       0,
       false,
       {kMissing + "1"},
       "Cell face count mismatch  0vs minimum of 3\n"},
      {"Without3DFacesIsShort",
       3,
       0,
       false,
       {kMissing + "1"},
       "Cell face count mismatch  0vs minimum of 4\n"},
      {"With32767FacesPasses", 3, 32767, false, {}, ""},
      {"With32768FacesIsShort",
       3,
       32768,
       false,
       {kMissing + "1"},
       "Cell face count mismatch  -32768vs minimum of 4\n"},
      {"WithoutFacesIn1DPasses", 1, 0, false, {}, ""},
      {"WithoutFacesIn4DPasses", 4, 0, false, {}, ""},
      {"WithoutFacesIn0DPasses", 0, 0, false, {}, ""},
      {"With32768FacesIn4DPasses", 4, 32768, false, {}, ""},
  };
  return kRows;
}

class PolyhedralCell : public FaceCounts, public ::testing::WithParamInterface<PolyhedronRow> {};

TEST_P(PolyhedralCell, Of) {
  const PolyhedronRow& row = GetParam();
  const cases::CasePtr served = cellWithFaces(row.dimension, 7, row.faces);
  served->zone(2).faceInfo[faceZoneChild] = row.subdivided ? 9 : 0;
  const CheckResult result = run(served, checkFaceCounts);
  EXPECT_TRUE(result.good);
  EXPECT_EQ(result.errors, row.errors);
  EXPECT_EQ(result.warnings, Texts());
  EXPECT_EQ(result.out, std::string(kSteps) + row.line);
}

INSTANTIATE_TEST_SUITE_P(FaceCounts, PolyhedralCell, ::testing::ValuesIn(polyhedronRows()),
                         [](const auto& row) { return std::string(row.param.name); });

TEST_F(FaceCounts, OfPolyhedralCellsInAHugeDimensionAreNotTested) {
  const cases::CasePtr served = cellWithFaces(3, 7, 0);
  served->mesh().sizes[meshDimension] = (std::uint64_t{1} << 32U) + 3;
  EXPECT_EQ(run(served, checkFaceCounts).errors, Texts());
}

// --- Types that are unknown ---------------------------------------------------------------------

struct TypeRow {
  const char* name;
  int type;
};

std::ostream& operator<<(std::ostream& out, const TypeRow& row) { return out << row.name; }

class UnsupportedType : public FaceCounts, public ::testing::WithParamInterface<TypeRow> {};

TEST_P(UnsupportedType, IsAWarningWhateverItsFaces) {
  const CheckResult result =
      run(facesAndTypes(3, {GetParam().type, GetParam().type}, Ids(6, 1)), checkFaceCounts);
  EXPECT_TRUE(result.good);
  EXPECT_EQ(result.errors, Texts());
  EXPECT_EQ(result.warnings, Texts({kUnsupported}));
  EXPECT_EQ(result.out, kSteps);
  EXPECT_EQ(result.err,
            "Warning: checkCellsFromFaces_facenode: Cells of unsupported type encountered\n");
}

TEST_P(UnsupportedType, OfAWholeZoneIsAWarningToo) {
  const cases::CasePtr served = cellWithFaces(3, 4, 6);
  served->arrays().cellTypes[3].uniform = GetParam().type;
  const CheckResult result = run(served, checkFaceCounts);
  EXPECT_EQ(result.errors, Texts());
  EXPECT_EQ(result.warnings, Texts({kUnsupported}));
}

INSTANTIATE_TEST_SUITE_P(FaceCounts, UnsupportedType,
                         ::testing::ValuesIn(std::vector<TypeRow>{
                             {"Zero", 0},
                             {"Ten", 10},
                             {"MinusOne", -1},
                             {"MinusTwo", -2},
                             {"MinusSeven", -7},
                             {"FourAnd256", 4 + 256},
                             {"FourAnd65536", 4 + 65536},
                             {"Largest", std::numeric_limits<int>::max()},
                             {"Smallest", std::numeric_limits<int>::min()}}),
                         [](const auto& row) { return std::string(row.param.name); });

// --- Counts of 16 bits --------------------------------------------------------------------------

struct WrapRow {
  const char* name;
  std::size_t faces;
  Texts errors;
  const char* line;
};

std::ostream& operator<<(std::ostream& out, const WrapRow& row) { return out << row.name; }

class ManyFaces : public FaceCounts, public ::testing::WithParamInterface<WrapRow> {};

TEST_P(ManyFaces, OfAHexahedron) {
  const CheckResult result = run(cellWithFaces(3, 4, GetParam().faces), checkFaceCounts);
  EXPECT_EQ(result.errors, GetParam().errors);
  EXPECT_EQ(result.out, std::string(kSteps) + GetParam().line);
}

INSTANTIATE_TEST_SUITE_P(
    FaceCounts, ManyFaces,
    ::testing::ValuesIn(std::vector<WrapRow>{
        {"AreTooManyUpTo32767", 32767, {kOneExcess}, "Cell face count mismatch 32767 vs 6\n"},
        {"AreMissingFrom32768On",
         32768,
         {kMissing + "1"},
         "Cell face count mismatch -32768 vs 6\n"},
        {"AreNoneAfter65536", 65536, {kMissing + "1"}, "Cell face count mismatch 0 vs 6\n"},
        {"AreEnoughAt65542", 65542, {}, ""}}),
    [](const auto& row) { return std::string(row.param.name); });

// --- What is told -------------------------------------------------------------------------------

TEST_F(FaceCounts, AreToldCellByCellAndThenAsAWhole) {
  // Cells: two faces too few, one too many, of no type, sound, a short polyhedron, without faces.
  const Ids faces = {1, 1, 2, 2, 2, 2, 2, 4, 4, 4, 5, 5};
  const CheckResult result = run(facesAndTypes(3, {3, 2, 12, 1, 7, 8}, faces), checkFaceCounts);
  EXPECT_TRUE(result.good);
  EXPECT_EQ(result.out, std::string(kSteps) +
                            "Cell face count mismatch 2 vs 4\n"
                            "Cell face count mismatch 5 vs 4\n"
                            "Cell face count mismatch  2vs minimum of 4\n"
                            "Cell face count mismatch 0 vs 1\n");
  EXPECT_EQ(result.err,
            "Warning: checkCellsFromFaces_facenode: Cells of unsupported type encountered\n"
            "Error: checkCellsFromFaces_facenode: Cells with missing facets: 3\n"
            "Error: checkCellsFromFaces_facenode: Cells with too many facets attached: 1\n");
  EXPECT_EQ(result.errors, Texts({kMissing + "3", kOneExcess}));
  EXPECT_EQ(result.warnings, Texts({kUnsupported}));
}

struct VerbosityRow {
  const char* name;
  int verbosity;
  std::string out;
  const char* err;
};

std::ostream& operator<<(std::ostream& out, const VerbosityRow& row) { return out << row.name; }

class FaceCountsShown : public DeepChecksFixture,
                        public ::testing::WithParamInterface<VerbosityRow> {};

TEST_P(FaceCountsShown, AtVerbosity) {
  checker.setVerbosity(GetParam().verbosity);
  const CheckResult result = run(facesAndTypes(3, {4, 7, 1}, {1, 3, 3, 3, 3}), checkFaceCounts);
  EXPECT_EQ(result.out, GetParam().out);
  EXPECT_EQ(result.err, GetParam().err);
  EXPECT_EQ(result.errors, Texts({kMissing + "2", kOneExcess}));
}

INSTANTIATE_TEST_SUITE_P(
    FaceCounts, FaceCountsShown,
    ::testing::ValuesIn(std::vector<VerbosityRow>{
        {"0", 0, "", ""},
        {"1", 1, "",
         "Error: checkCellsFromFaces_facenode: Cells with missing facets: 2\n"
         "Error: checkCellsFromFaces_facenode: Cells with too many facets attached: 1\n"},
        {"2", 2, "",
         "Error: checkCellsFromFaces_facenode: Cells with missing facets: 2\n"
         "Error: checkCellsFromFaces_facenode: Cells with too many facets attached: 1\n"},
        {"3", 3, kSteps,
         "Error: checkCellsFromFaces_facenode: Cells with missing facets: 2\n"
         "Error: checkCellsFromFaces_facenode: Cells with too many facets attached: 1\n"},
        {"4", 4,
         std::string(kSteps) + "Cell face count mismatch 1 vs 6\n"
                               "Cell face count mismatch  0vs minimum of 4\n"
                               "Cell face count mismatch 4 vs 3\n",
         "Error: checkCellsFromFaces_facenode: Cells with missing facets: 2\n"
         "Error: checkCellsFromFaces_facenode: Cells with too many facets attached: 1\n"},
        {"5", 5,
         std::string(kSteps) + "Cell face count mismatch 1 vs 6\n"
                               "Cell face count mismatch  0vs minimum of 4\n"
                               "Cell face count mismatch 4 vs 3\n",
         "Error: checkCellsFromFaces_facenode: Cells with missing facets: 2\n"
         "Error: checkCellsFromFaces_facenode: Cells with too many facets attached: 1\n"}}),
    [](const auto& row) { return std::string(row.param.name); });

}  // namespace
}  // namespace velto::testing
