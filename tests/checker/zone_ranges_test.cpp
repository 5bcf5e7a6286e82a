// SPDX-License-Identifier: Apache-2.0
//
// What zone tables of every kind have in common: zones and counts, ranges, names.

#include <limits>
#include <sstream>

#include "testing/capture.h"
#include "tests/checker/ZoneTablesFixture.h"
#include "tests/checker/checker_access.h"

namespace velto::testing {
namespace {

using ZoneTables = ZoneTablesFixture;

// --- Zones and counts ---------------------------------------------------------------------------

struct PresenceRow {
  const char* name;
  OrvZoneCategory category;
  std::uint64_t nmax;
  std::vector<Zone> zones;
  bool result;
  Texts errors;
  std::string steps;
};

std::ostream& operator<<(std::ostream& out, const PresenceRow& row) { return out << row.name; }

const std::vector<PresenceRow>& presenceRows() {
  static const std::vector<PresenceRow> kRows = {
      {"ReportsANodeCountWithoutZones",
       zoneCategoryNode,
       5,
       {},
       true,
       {"checkNodeZones : Non-zero node count and no node zones"},
       "- checkNodeZones - init\n"},
      {"ReportsNodeZonesWithoutACount",
       zoneCategoryNode,
       0,
       {{1, 1, 8, 8}},
       false,
       {"checkNodeZones : Non-zero node zones with no global node count"},
       "- checkNodeZones - init\n"},
      {"PassesNeitherNodesNorZones",
       zoneCategoryNode,
       0,
       {},
       true,
       {},
       "- checkNodeZones - init\n"},
      {"PassesNodesInZones",
       zoneCategoryNode,
       8,
       {{1, 1, 8, 8}},
       true,
       {},
       "- checkNodeZones - init\n- checkNodeZones - zoneInfo\n"},
      {"ReportsAFaceCountWithoutZones",
       zoneCategoryFace,
       5,
       {},
       true,
       {"checkFaceZones : Non-zero face count and no face zones"},
       "- checkFaceZones - init\n"},
      {"ReportsFaceZonesWithoutACount",
       zoneCategoryFace,
       0,
       {{2, 1, 6, 6}},
       false,
       {"checkFaceZones : Non-zero face zones with no global face count"},
       "- checkFaceZones - init\n"},
      {"PassesNeitherFacesNorZones",
       zoneCategoryFace,
       0,
       {},
       true,
       {},
       "- checkFaceZones - init\n"},
      {"PassesFacesInZones",
       zoneCategoryFace,
       6,
       {{2, 1, 6, 6}},
       true,
       {},
       "- checkFaceZones - init\n- checkFaceZones - zoneInfo\n"},
      {"ReportsACellCountWithoutZones",
       zoneCategoryCell,
       5,
       {},
       true,
       {"checkCellZones : Non-zero cell count and no cell zones"},
       "- checkCellZones - init\n"},
      {"ReportsCellZonesWithoutACount",
       zoneCategoryCell,
       0,
       {{3, 1, 1, 1}},
       false,
       {"checkCellZones : Non-zero cell zones with no global cell count"},
       "- checkCellZones - init\n"},
      {"PassesNeitherCellsNorZones",
       zoneCategoryCell,
       0,
       {},
       true,
       {},
       "- checkCellZones - init\n"},
      {"PassesCellsInZones",
       zoneCategoryCell,
       1,
       {{3, 1, 1, 1}},
       true,
       {},
       "- checkCellZones - init\n- checkCellZones - zoneInfo\n"},
      // A damaged zone behind it is not looked at.
      {"StopsAtFaceZonesWithoutACount",
       zoneCategoryFace,
       0,
       {{2, 9, 1, 77}},
       false,
       {"checkFaceZones : Non-zero face zones with no global face count"},
       "- checkFaceZones - init\n"},
  };
  return kRows;
}

class ZonePresenceRows : public CheckerFixture, public ::testing::WithParamInterface<PresenceRow> {
 protected:
  bool checkZones() {
    switch (GetParam().category) {
      case zoneCategoryNode:
        return checker_access::checkNodeZones(checker);
      case zoneCategoryFace:
        return checker_access::checkFaceZones(checker);
      default:
        return checker_access::checkCellZones(checker);
    }
  }
};

TEST_P(ZonePresenceRows, Of) {
  const PresenceRow& row = GetParam();
  open(withZones(row.category, row.nmax, row.zones));
  checker.setVerbosity(3);
  const StreamCapture streams;
  EXPECT_EQ(checkZones(), row.result);
  EXPECT_EQ(checker.getErrors(), row.errors);
  EXPECT_EQ(checker.getWarnings(), Texts());
  std::string steps;
  std::istringstream lines(streams.out());
  for (std::string line; std::getline(lines, line);) {
    steps += line.rfind("- ", 0) == 0 ? line + "\n" : "";
  }
  EXPECT_EQ(steps, row.steps);
}

INSTANTIATE_TEST_SUITE_P(ZoneTables, ZonePresenceRows, ::testing::ValuesIn(presenceRows()),
                         [](const auto& row) { return std::string(row.param.name); });

TEST_F(ZoneTables, GoOnAfterATableWithoutCount) {
  const CheckResult result = run(withZones(zoneCategoryNode, 0, {{1, 1, 8, 8}}));
  EXPECT_EQ(result.errors,
            Texts({"checkMeshSize : The mesh has cell/faces but no nodes",
                   "checkNodeZones : Non-zero node zones with no global node count"}));
  EXPECT_EQ(callsOf({"beginFaceTree"}).size(), 1U);
}

// --- Ranges -------------------------------------------------------------------------------------

struct RangeRow {
  const char* name;
  std::uint64_t nmax;
  std::vector<Zone> zones;
  Texts errors;
};

std::ostream& operator<<(std::ostream& out, const RangeRow& row) { return out << row.name; }

const std::vector<RangeRow>& rangeRows() {
  const std::uint64_t most = std::numeric_limits<std::uint64_t>::max();
  const Texts size = {"checkNodeZones : Error in zone size / start / end"};
  const Texts overlap = {"checkNodeZones : Overlapping Node ranges"};
  const Texts gap = {"checkNodeZones : Node zones do not cover the full range of declared Nodes"};
  const Texts total = {"checkNodeZones : Mismatch in Node zones content and total number of Nodes"};
  const Texts outer = {"checkNodeZones : Node zones total range doesnt match [1,nmax]"};
  static const std::vector<RangeRow> kRows = {
      {"OneZone", 10, {{1, 1, 10, 10}}, {}},
      {"OneZoneShortOfTheTotal", 12, {{1, 1, 10, 10}}, total},
      {"OneZoneBeyondTheTotal", 9, {{1, 1, 10, 10}}, total},
      {"AGapIsFoundBeforeTheTotal", 10, {{1, 1, 5, 5}, {7, 7, 10, 4}}, gap},
      {"AGapWithAFittingTotal", 9, {{1, 1, 5, 5}, {7, 7, 10, 4}}, gap},
      {"AnOverlapOfOne", 9, {{1, 1, 5, 5}, {7, 5, 9, 5}}, overlap},
      {"AZoneInsideAnother", 9, {{1, 1, 9, 9}, {7, 3, 4, 2}}, overlap},
      {"AnOverlapThenAGap", 9, {{1, 1, 5, 5}, {7, 5, 6, 2}, {8, 9, 9, 1}}, overlap},
      {"AGapThenAnOverlap", 9, {{1, 1, 2, 2}, {7, 4, 6, 3}, {8, 6, 9, 4}}, gap},
      {"FirstInOrderOfRangesNotOfZones", 9, {{1, 6, 9, 4}, {7, 4, 6, 3}, {8, 1, 2, 2}}, gap},
      {"AnOuterRangeThatStartsAtTwo", 5, {{1, 2, 6, 5}}, outer},
      {"AnOuterRangeThatStartsAtZero", 5, {{1, 0, 4, 5}}, outer},
      {"ZonesOutOfOrder", 10, {{1, 6, 10, 5}, {7, 1, 3, 3}, {8, 4, 5, 2}}, {}},
      {"EqualRangesByTheirTotal", 5, {{1, 1, 5, 5}, {7, 1, 5, 5}}, total},
      {"EqualRangesThatMakeUpTheTotal", 10, {{1, 1, 5, 5}, {7, 1, 5, 5}}, outer},
      {"AnEmptyZoneBetweenOthers", 10, {{1, 1, 5, 5}, {7, 6, 5, 0}, {8, 6, 10, 5}}, {}},
      {"AnEmptyZoneInFrontAndOneBehind", 5, {{7, 1, 0, 0}, {1, 1, 5, 5}, {8, 6, 5, 0}}, {}},
      {"AnEmptyZoneElsewhere", 10, {{1, 1, 5, 5}, {7, 4, 3, 0}, {8, 6, 10, 5}}, overlap},
      {"AWrongCount", 10, {{1, 1, 10, 9}}, size},
      {"AWrongCountBeforeAnOverlap", 9, {{1, 1, 5, 5}, {7, 5, 9, 4}}, size},
      {"AWrongCountOfTheFirstZoneOnly", 9, {{1, 1, 5, 4}, {7, 6, 9, 3}}, size},
      {"AnEndBeforeTheStart", 10, {{1, 10, 1, 10}}, size},
      {"ARangeThatWrapsRound", 10, {{1, 2, 1, 0}, {7, 1, 10, 10}}, overlap},
      {"AllIdsThereAre", 0 - std::uint64_t{1}, {{1, 1, most, most}}, {}},
      {"ACountThatWrapsToZero", 5, {{1, 0, most, 0}}, total},
      {"ARangeThatIsWholeInItsLowBits", kTwoTo32 + 5, {{1, 1, kTwoTo32 + 5, kTwoTo32 + 5}}, {}},
      {"AnOverlapOfTheLowBitsOnly",
       kTwoTo32 + 5,
       {{1, 1, kTwoTo32, kTwoTo32}, {7, kTwoTo32 + 1, kTwoTo32 + 5, 5}},
       // The low bits are [1, 0] and [1, 5], which go on from each other.
       {}},
      {"AGapOfTheLowBitsOnly",
       kTwoTo32 + 9,
       {{1, 1, kTwoTo32 + 1, kTwoTo32 + 1}, {7, kTwoTo32 + 2, kTwoTo32 + 9, 8}},
       // The low bits are [1, 1] and [2, 9].
       {}},
      {"NegativeLowBits",
       std::uint64_t{3} << 30U,
       {{1, 1, std::uint64_t{1} << 31U, std::uint64_t{1} << 31U},
        {7, (std::uint64_t{1} << 31U) + 1, std::uint64_t{3} << 30U, std::uint64_t{1} << 30U}},
       // As signed numbers the second range, [-2^31 + 1, -2^30], comes first.
       gap},
      {"ALastIdAtTheSignBit",
       std::uint64_t{1} << 31U,
       {{1, 1, 5, 5}, {7, 6, std::uint64_t{1} << 31U, (std::uint64_t{1} << 31U) - 5}},
       {}},
      {"LowBitsAtTheirMost",
       (std::uint64_t{1} << 31U) + 4,
       {{1, 1, (std::uint64_t{1} << 31U) - 1, (std::uint64_t{1} << 31U) - 1},
        {7, std::uint64_t{1} << 31U, (std::uint64_t{1} << 31U) + 4, 5}},
       gap},
      {"EqualLowBitsOfDifferentZones",
       10,
       {{1, 1, 5, 5}, {7, kTwoTo32 + 1, kTwoTo32 + 5, 5}},
       // One pair in place of two, the total fits, the last id does not.
       outer},
  };
  return kRows;
}

class ZoneRangeRows : public ZoneTables, public ::testing::WithParamInterface<RangeRow> {};

TEST_P(ZoneRangeRows, AreJudged) {
  const RangeRow& row = GetParam();
  const CheckResult result = run(withZones(zoneCategoryNode, row.nmax, row.zones));
  EXPECT_EQ(result.good, row.errors.empty());
  EXPECT_EQ(result.errors, row.errors);
  EXPECT_EQ(result.warnings, Texts());
  std::vector<int> ids;
  for (const Zone& zone : row.zones) {
    ids.push_back(zone.id);
  }
  const StreamCapture streams;
  EXPECT_EQ(checker_access::checkZoneCommonAttributes(checker, ids, row.nmax, "Node"),
            row.errors.empty());
}

INSTANTIATE_TEST_SUITE_P(ZoneRanges, ZoneRangeRows, ::testing::ValuesIn(rangeRows()),
                         [](const auto& row) { return std::string(row.param.name); });

class ZoneMessages : public ZoneTablesFixture {
 protected:
  /// What a fresh checker says of such a table.
  Texts errorsOf(OrvZoneCategory category, std::uint64_t nmax, const std::vector<Zone>& zones) {
    OrvChecker fresh;
    serve(withZones(category, nmax, zones));
    return check(fresh, file.path()).errors;
  }
};

TEST_F(ZoneMessages, SpellFaces) {
  EXPECT_EQ(errorsOf(zoneCategoryFace, 6, {{2, 1, 6, 5}}),
            Texts({"checkFaceZones : Error in zone size / start / end"}));
  EXPECT_EQ(errorsOf(zoneCategoryFace, 6, {{2, 1, 4, 4}, {7, 4, 6, 3}}),
            Texts({"checkFaceZones : Overlapping Face ranges"}));
  EXPECT_EQ(errorsOf(zoneCategoryFace, 6, {{2, 1, 3, 3}, {7, 5, 6, 2}}),
            Texts({"checkFaceZones : Face zones do not cover the full range of declared Faces"}));
  EXPECT_EQ(errorsOf(zoneCategoryFace, 7, {{2, 1, 6, 6}}),
            Texts({"checkFaceZones : Mismatch in Face zones content and total number of Faces"}));
  EXPECT_EQ(errorsOf(zoneCategoryFace, 6, {{2, 2, 7, 6}}),
            Texts({"checkFaceZones : Face zones total range doesnt match [1,nmax]"}));
}

TEST_F(ZoneMessages, SpellCells) {
  EXPECT_EQ(errorsOf(zoneCategoryCell, 6, {{3, 1, 6, 5}}),
            Texts({"checkCellZones : Error in zone size / start / end"}));
  EXPECT_EQ(errorsOf(zoneCategoryCell, 6, {{3, 1, 4, 4}, {7, 4, 6, 3}}),
            Texts({"checkCellZones : Overlapping Cell ranges"}));
  EXPECT_EQ(errorsOf(zoneCategoryCell, 6, {{3, 1, 3, 3}, {7, 5, 6, 2}}),
            Texts({"checkCellZones : Cell zones do not cover the full range of declared Cells"}));
  EXPECT_EQ(errorsOf(zoneCategoryCell, 7, {{3, 1, 6, 6}}),
            Texts({"checkCellZones : Mismatch in Cell zones content and total number of Cells"}));
  EXPECT_EQ(errorsOf(zoneCategoryCell, 6, {{3, 2, 7, 6}}),
            Texts({"checkCellZones : Cell zones total range doesnt match [1,nmax]"}));
}

TEST_F(ZoneMessages, SpellAnyKindAsItIsGiven) {
  open(cases::oneHex());
  const StreamCapture streams;
  EXPECT_FALSE(checker_access::checkZoneCommonAttributes(checker, {2}, 7, "edge"));
  EXPECT_EQ(checker.getErrors(),
            Texts({"checkCase : Mismatch in edge zones content and total number of edges"}));
}

TEST_F(ZoneTables, TakeSizesThatTheLibraryLeftAloneAsZero) {
  const cases::CasePtr damaged = cases::oneHex();
  damaged->zone(1).sizes = {};
  EXPECT_EQ(run(damaged).errors, Texts({"checkNodeZones : Error in zone size / start / end"}));
}

// --- Names --------------------------------------------------------------------------------------

TEST_F(ZoneTables, WarnOfAnEmptyNameAndGoOn) {
  const cases::CasePtr damaged = cases::oneHex();
  for (const int zone : {1, 2, 3}) {
    damaged->zone(zone).texts[zoneName] = "";
  }
  const CheckResult result = run(damaged);
  EXPECT_TRUE(result.good);
  EXPECT_EQ(result.errors, Texts());
  EXPECT_EQ(result.warnings,
            Texts({"checkNodeZones : Empty Node zone name", "checkFaceZones : Empty Face zone name",
                   "checkCellZones : Empty Cell zone name"}));
}

TEST_F(ZoneTables, WarnOfANameThatTheLibraryLeftAlone) {
  const cases::CasePtr damaged = cases::oneHex();
  damaged->zone(1).texts[zoneName].reset();
  EXPECT_EQ(run(damaged).warnings, Texts({"checkNodeZones : Empty Node zone name"}));
}

TEST_F(ZoneTables, WarnOfEachEmptyNameUpToTheZoneOfWrongSize) {
  const cases::CasePtr damaged =
      withZones(zoneCategoryNode, 8, {{1, 1, 2, 2}, {7, 3, 4, 2}, {8, 5, 6, 1}, {9, 7, 8, 2}});
  for (const int zone : {1, 7, 8, 9}) {
    damaged->zone(zone).texts[zoneName] = "";
  }
  const CheckResult result = run(damaged);
  EXPECT_EQ(result.errors, Texts({"checkNodeZones : Error in zone size / start / end"}));
  EXPECT_EQ(result.warnings, Texts({"checkNodeZones : Empty Node zone name",
                                    "checkNodeZones : Empty Node zone name"}));
}

}  // namespace
}  // namespace velto::testing
