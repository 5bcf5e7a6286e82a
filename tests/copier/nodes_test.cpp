// SPDX-License-Identifier: Apache-2.0
//
// copyCase: node coordinates, and the dimension of a node zone.

#include <gtest/gtest.h>
#include <ostream>

#include "embedded/memory/CaseBuilder.h"
#include "tests/copier/copy_run.h"

namespace velto::testing {
namespace {

/// A copy of nothing but the nodes, behind one of the tables.
class NodeRun : public CopyRun {
 public:
  explicit NodeRun(const cases::CasePtr& served, const std::vector<int>& nodeZones = {})
      : CopyRun(served) {
    if (!nodeZones.empty()) {
      source.answerList("getZoneIds(0)", nodeZones);
    }
    mapZones();
    copier.copyNodeCoordinatesToDestination(true);
  }
};

/// Three node zones of one, two and one nodes.
cases::CasePtr threeZones() {
  return memory::CaseBuilder()
      .nodes(4, "a", {{1, 2, 3}})
      .nodes(2, "b", {{4, 5, 6}, {7, 8, 9}})
      .nodes(9, "c", {{0.5, -1, 1e300}})
      .build();
}

TEST(CopiedNodes, GoZoneByZone) {
  NodeRun run(threeZones());
  EXPECT_EQ(run.moved(), linesOf(R"(
    source: beginNodeCoordinates()
    beginNodes([4, 2, 9])
    beginNodeCoordinates([4, 2, 9])
    source: readNodeCoordinates(4, 3)
    writeNodeCoordinates(4, [1, 2, 3])
    source: readNodeCoordinates(2, 6)
    writeNodeCoordinates(2, [4, 5, 6, 7, 8, 9])
    source: readNodeCoordinates(9, 3)
    writeNodeCoordinates(9, [0.5, -1, 1e+300])
    endNodeCoordinates()
    endNodes()
    source: endNodeCoordinates()
  )"));
  EXPECT_EQ(run.err, "");
}

TEST(CopiedNodes, AreNoneIfNoZoneHasCoordinates) {
  NodeRun run(threeZones());
  run.source.answerList("beginNodeCoordinates", {});
  run.copier.setVerbose(true);
  EXPECT_EQ(run.moved(),
            Transcript({"source: beginNodeCoordinates()", "source: endNodeCoordinates()"}));
  EXPECT_EQ(run.out, "Writing mesh\n  Writing node mesh\n  Mesh written\n");
}

TEST(CopiedNodes, GoInTheOrderOfTheZonesAndNotOfTheCoordinates) {
  NodeRun run(threeZones(), {9, 4, 2});
  run.source.answerList("beginNodeCoordinates", {2, 4, 9});
  EXPECT_EQ(ofDestination(run.moved()), linesOf(R"(
    beginNodes([9, 4, 2])
    beginNodeCoordinates([9, 4, 2])
    writeNodeCoordinates(9, [0.5, -1, 1e+300])
    writeNodeCoordinates(4, [1, 2, 3])
    writeNodeCoordinates(2, [4, 5, 6, 7, 8, 9])
    endNodeCoordinates()
    endNodes()
  )"));
}

TEST(CopiedNodes, AreAnEmptyWriteForAZoneWithoutCoordinates) {
  NodeRun run(threeZones());
  run.source.answerList("beginNodeCoordinates", {9, 4});
  EXPECT_EQ(run.moved(), linesOf(R"(
    source: beginNodeCoordinates()
    beginNodes([4, 2, 9])
    beginNodeCoordinates([4, 2, 9])
    source: readNodeCoordinates(4, 3)
    writeNodeCoordinates(4, [1, 2, 3])
    writeNodeCoordinates(2, null of 0)
    source: readNodeCoordinates(9, 3)
    writeNodeCoordinates(9, [0.5, -1, 1e+300])
    endNodeCoordinates()
    endNodes()
    source: endNodeCoordinates()
  )"));
  EXPECT_EQ(run.err, "");
}

TEST(CopiedNodes, OfZonesThatTheSourceDoesNotListAreLeftOut) {
  NodeRun run(threeZones(), {4});
  EXPECT_EQ(ofDestination(run.moved()), linesOf(R"(
    beginNodes([4])
    beginNodeCoordinates([4])
    writeNodeCoordinates(4, [1, 2, 3])
    endNodeCoordinates()
    endNodes()
  )"));
}

TEST(CopiedNodes, OfZonesThatWereNotCopiedAreSkippedAndNeverBecomeKnown) {
  NodeRun run(threeZones(), {4});
  run.source.answerList("getZoneIds(0)", {2, 4, 9});
  const Transcript expected = linesOf(R"(
    source: beginNodeCoordinates()
    beginNodes([2, 4, 9])
    beginNodeCoordinates([2, 4, 9])
    source: readNodeCoordinates(4, 3)
    writeNodeCoordinates(4, [1, 2, 3])
    endNodeCoordinates()
    endNodes()
    source: endNodeCoordinates()
  )");
  run.copier.addElemIds(2, {1});
  EXPECT_EQ(run.moved(), expected);
  EXPECT_EQ(run.moved(), expected);
  std::size_t count = 0;
  bool found = true;
  run.copier.getElemIds(2, count, found);
  EXPECT_FALSE(found);
  EXPECT_EQ(run.err, "");
}

// --- Dimension, and what is delivered -----------------------------------------------------------

/// A node zone 1 with a dimension and a number of nodes in its table, some values, and what the
/// copy makes of them.
struct DimensionRow {
  std::string name;
  std::uint64_t dimension;
  std::uint64_t count;
  std::vector<double> values;
  Transcript calls;
  std::string err;

  friend std::ostream& operator<<(std::ostream& out, const DimensionRow& row) {
    return out << row.name;
  }
};

class NodeDimension : public ::testing::TestWithParam<DimensionRow> {};

TEST_P(NodeDimension, IsSettledByWhatIsDelivered) {
  const cases::CasePtr served = memory::CaseBuilder().nodes(1, "points", {{0, 0, 0}}).build();
  served->zone(1).sizes[zoneDimension] = GetParam().dimension;
  served->zone(1).sizes[zoneElementCount] = GetParam().count;
  served->arrays().nodeCoordinates[1] = memory::Slice<double>(GetParam().values);
  NodeRun run(served);
  const Transcript calls = run.moved();
  ASSERT_EQ(calls.size(), 8U);
  EXPECT_EQ(Transcript(calls.begin() + 3, calls.begin() + 5), GetParam().calls);
  EXPECT_EQ(run.err, GetParam().err);
  EXPECT_EQ(run.out, "");
}

INSTANTIATE_TEST_SUITE_P(
    All, NodeDimension,
    ::testing::Values(
        DimensionRow{"Known",
                     2,
                     2,
                     {1, 2, 3, 4},
                     {"source: readNodeCoordinates(1, 4)", "writeNodeCoordinates(1, [1, 2, 3, 4])"},
                     ""},
        DimensionRow{"KnownAndShort",
                     3,
                     2,
                     {1, 2, 3, 4},
                     {"source: readNodeCoordinates(1, 6)", "writeNodeCoordinates(1, [1, 2, 3, 4])"},
                     "Warning: Inconsistent size for node zone '1'\n"},
        DimensionRow{"KnownAndNothingThere",
                     3,
                     1,
                     {},
                     {"source: readNodeCoordinates(1, 3)", "writeNodeCoordinates(1, [])"},
                     "Warning: Inconsistent size for node zone '1'\n"},
        DimensionRow{"KnownAndNoNodes",
                     3,
                     0,
                     {},
                     {"source: readNodeCoordinates(1, 0)", "writeNodeCoordinates(1, null of 0)"},
                     ""},
        DimensionRow{"OfFour",
                     4,
                     1,
                     {1, 2, 3, 4},
                     {"source: readNodeCoordinates(1, 4)", "writeNodeCoordinates(1, [1, 2, 3, 4])"},
                     ""},
        DimensionRow{"OfOne",
                     1,
                     3,
                     {1, 2, 3},
                     {"source: readNodeCoordinates(1, 3)", "writeNodeCoordinates(1, [1, 2, 3])"},
                     ""},
        DimensionRow{"UnknownAndThree",
                     0,
                     1,
                     {1, 2, 3},
                     {"source: readNodeCoordinates(1, 3)", "writeNodeCoordinates(1, [1, 2, 3])"},
                     "Warning: Assuming zone '1' has dimension 3\n"},
        DimensionRow{"UnknownAndTwo",
                     0,
                     2,
                     {1, 2, 3, 4},
                     {"source: readNodeCoordinates(1, 6)", "writeNodeCoordinates(1, [1, 2, 3, 4])"},
                     "Warning: Assuming zone '1' has dimension 2\n"},
        DimensionRow{
            "UnknownAndTwoWithAValueMore",
            0,
            2,
            {1, 2, 3, 4, 5},
            {"source: readNodeCoordinates(1, 6)", "writeNodeCoordinates(1, [1, 2, 3, 4, 5])"},
            "Warning: Assuming zone '1' has dimension 2\n"
            "Warning: Inconsistent size for node zone '1'\n"},
        DimensionRow{"UnknownAndTooFew",
                     0,
                     2,
                     {1, 2, 3},
                     {"source: readNodeCoordinates(1, 6)", "writeNodeCoordinates(1, [1, 2, 3])"},
                     "Warning: Unable to read coordinates for node zone '1'\n"},
        DimensionRow{"UnknownAndNothingThere",
                     0,
                     1,
                     {},
                     {"source: readNodeCoordinates(1, 3)", "writeNodeCoordinates(1, [])"},
                     "Warning: Unable to read coordinates for node zone '1'\n"},
        DimensionRow{"UnknownAndNoNodes",
                     0,
                     0,
                     {},
                     {"source: readNodeCoordinates(1, 0)", "writeNodeCoordinates(1, null of 0)"},
                     "Warning: Assuming zone '1' has dimension 3\n"}),
    rowName<DimensionRow>);

/// What a provider says that it delivered for two nodes, whatever it put into the buffer.
struct ClaimRow {
  std::string name;
  std::uint64_t dimension;
  std::size_t claim;
  std::string written;
  std::string err;

  friend std::ostream& operator<<(std::ostream& out, const ClaimRow& row) {
    return out << row.name;
  }
};

class NodeClaim : public ::testing::TestWithParam<ClaimRow> {};

TEST_P(NodeClaim, IsJudgedAndFollowedAsFarAsTheBufferGoes) {
  const cases::CasePtr served =
      memory::CaseBuilder().nodes(7, "points", {{1, 2, 3}, {4, 5, 6}}).build();
  served->zone(7).sizes[zoneDimension] = GetParam().dimension;
  NodeRun run(served);
  run.source.answerDelivered("readNodeCoordinates", GetParam().claim);
  EXPECT_EQ(callsOf("writeNodeCoordinates", run.moved()), Transcript({GetParam().written}));
  EXPECT_EQ(run.err, GetParam().err);
}

INSTANTIATE_TEST_SUITE_P(
    All, NodeClaim,
    ::testing::Values(ClaimRow{"OfTwoPerNode", 0, 4, "writeNodeCoordinates(7, [1, 2, 3, 4])",
                               "Warning: Assuming zone '7' has dimension 2\n"},
                      ClaimRow{"OfOneMoreThanThreePerNode", 0, 7,
                               "writeNodeCoordinates(7, [1, 2, 3, 4, 5, 6])",
                               "Warning: Assuming zone '7' has dimension 3\n"
                               "Warning: Inconsistent size for node zone '7'\n"},
                      ClaimRow{"OfTwoMoreThanThreePerNode", 0, 8,
                               "writeNodeCoordinates(7, [1, 2, 3, 4, 5, 6])",
                               "Warning: Assuming zone '7' has dimension 3\n"
                               "Warning: Inconsistent size for node zone '7'\n"},
                      ClaimRow{"OfFarTooMuch", 0, 9, "writeNodeCoordinates(7, [1, 2, 3, 4, 5, 6])",
                               "Warning: Unable to read coordinates for node zone '7'\n"},
                      ClaimRow{"OfAValueMore", 3, 7, "writeNodeCoordinates(7, [1, 2, 3, 4, 5, 6])",
                               "Warning: Inconsistent size for node zone '7'\n"},
                      ClaimRow{"OfAllThereCanBe", 3, static_cast<std::size_t>(-1),
                               "writeNodeCoordinates(7, [1, 2, 3, 4, 5, 6])",
                               "Warning: Inconsistent size for node zone '7'\n"},
                      ClaimRow{"OfNothing", 3, 0, "writeNodeCoordinates(7, [])",
                               "Warning: Inconsistent size for node zone '7'\n"},
                      ClaimRow{"OfLess", 3, 5, "writeNodeCoordinates(7, [1, 2, 3, 4, 5])",
                               "Warning: Inconsistent size for node zone '7'\n"}),
    rowName<ClaimRow>);

TEST(CopiedNodes, AreZeroWhereNothingWasPutIntoTheBuffer) {
  const cases::CasePtr served = memory::CaseBuilder().nodes(1, "points", {{1, 2, 3}}).build();
  served->arrays().nodeCoordinates[1] = memory::Slice<double>(std::vector<double>{5});
  NodeRun run(served);
  run.source.answerDelivered("readNodeCoordinates", 3);
  EXPECT_EQ(callsOf("writeNodeCoordinates", run.moved()),
            Transcript({"writeNodeCoordinates(1, [5, 0, 0])"}));
  EXPECT_EQ(run.err, "");
}

TEST(CopiedNodes, AreJudgedZoneByZone) {
  const cases::CasePtr served = threeZones();
  served->zone(4).sizes[zoneDimension] = 0;
  served->zone(2).sizes[zoneElementCount] = 1;
  served->zone(9).sizes[zoneDimension].reset();
  served->zone(9).sizes[zoneElementCount].reset();
  NodeRun run(served);
  run.source.answerDelivered("readNodeCoordinates(2, 3)", 4);
  EXPECT_EQ(callsOf("writeNodeCoordinates", run.moved()),
            Transcript({"writeNodeCoordinates(4, [1, 2, 3])", "writeNodeCoordinates(2, [4, 5, 6])",
                        "writeNodeCoordinates(9, null of 0)"}));
  EXPECT_EQ(run.err,
            "Warning: Assuming zone '4' has dimension 3\n"
            "Warning: Inconsistent size for node zone '2'\n"
            "Warning: Assuming zone '9' has dimension 3\n");
}

TEST(CopiedNodes, AreWarnedOfAlsoByAVerboseCopier) {
  NodeRun run(threeZones());
  run.copier.setVerbose(true);
  run.source.answerDelivered("readNodeCoordinates(2, 6)", 5);
  run.moved();
  EXPECT_EQ(run.out, "Writing mesh\n  Writing node mesh\n  Mesh written\n");
  EXPECT_EQ(run.err, "Warning: Inconsistent size for node zone '2'\n");
}

TEST(CopiedNodes, LeaveTheDimensionOfTheTableAlone) {
  const cases::CasePtr served = memory::CaseBuilder().nodes(1, "points", {{1, 2, 3}}).build();
  served->zone(1).sizes[zoneDimension] = 0;
  CopyRun run(served);
  run.copyCase();
  EXPECT_EQ(callsOf("setZoneSizeInfo", run.log.lines),
            Transcript({"setZoneSizeInfo(1, 0, 1)", "setZoneSizeInfo(1, 1, 1)",
                        "setZoneSizeInfo(1, 3, 0)"}));
}

}  // namespace
}  // namespace velto::testing
