// SPDX-License-Identifier: Apache-2.0
//
// copyCase: nodes of faces and the cells on both sides.

#include <gtest/gtest.h>
#include <new>

#include "embedded/base/shapes.h"
#include "embedded/memory/CaseBuilder.h"
#include "tests/copier/copy_run.h"

namespace velto::testing {
namespace {

/// A copy of nothing but some of the faces, behind one of the tables of some face zones.
class FaceRun : public CopyRun {
 public:
  explicit FaceRun(const cases::CasePtr& served, const std::vector<int>& known = {2, 3, 4})
      : CopyRun(served) {
    source.answerList("getZoneIds(2)", known);
    mapZones();
  }

  Transcript nodes() { return inFaces(true, false); }
  Transcript parents() { return inFaces(false, true); }

 private:
  /// What happens between beginFaces and endFaces.
  Transcript inFaces(bool faceNodes, bool faceParents) {
    copier.copyFacesToDestination(true, faceNodes, faceParents);
    const Transcript calls = moved();
    return Transcript(calls.begin() + 1, calls.end() - 1);
  }
};

/// Face zones 2 (a triangle and a quadrilateral), 3 (two triangles) and 4 (a triangle), of which 3
/// and 4 have cells on side 1.
cases::CasePtr threeZones() {
  return memory::CaseBuilder()
      .faces(2, "a", base::boundaryWall, {{{1, 2, 3}, 1}, {{4, 5, 6, 7}, 2}})
      .faces(3, "b", faceZoneTypeInterior, {{{2, 3, 4}, 3, 4}, {{5, 6, 7}, 5, 0}})
      .faces(4, "c", faceZoneTypeInterior, {{{7, 8, 9}, 6, 7}})
      .build();
}

cases::CasePtr withoutFaces(const cases::CasePtr& made, int zone) {
  made->zone(zone).sizes[zoneElementCount] = 0;
  return made;
}

// --- Nodes --------------------------------------------------------------------------------------

TEST(CopiedFaceNodes, GoCountsFirstAndThenTheIds) {
  FaceRun run(threeZones());
  EXPECT_EQ(run.nodes(), linesOf(R"(
    source: beginFaceNodes()
    beginFaceNodes([2, 3, 4])
    source: beginFaceNodeCounts()
    beginFaceNodeCounts()
    source: getUniformFaceNodeCount(2)
    source: readFaceNodeCounts(2, 2)
    writeFaceNodeCounts(2, [3, 4])
    source: getUniformFaceNodeCount(3)
    writeUniformFaceNodeCount(3, 3)
    source: getUniformFaceNodeCount(4)
    writeUniformFaceNodeCount(4, 3)
    source: endFaceNodeCounts()
    endFaceNodeCounts()
    source: beginFaceNodeIds()
    beginFaceNodeIds()
    source: readFaceNodeIds(2, 7)
    writeFaceNodeIds(2, [1, 2, 3, 4, 5, 6, 7])
    source: readFaceNodeIds(3, 6)
    writeFaceNodeIds(3, [2, 3, 4, 5, 6, 7])
    source: readFaceNodeIds(4, 3)
    writeFaceNodeIds(4, [7, 8, 9])
    source: endFaceNodeIds()
    endFaceNodeIds()
    endFaceNodes()
    source: endFaceNodes()
  )"));
}

TEST(CopiedFaceNodes, AreNotWrittenIfNoZoneHasThem) {
  FaceRun run(threeZones());
  run.source.answerList("beginFaceNodes", {});
  EXPECT_EQ(run.nodes(), Transcript({"source: beginFaceNodes()", "source: endFaceNodes()"}));
}

TEST(CopiedFaceNodes, OfZonesThatWereNotCopiedAreLeftOut) {
  FaceRun run(threeZones(), {4, 2});
  run.source.answerList("beginFaceNodes", {3, 4, 99, 2});
  EXPECT_EQ(ofDestination(run.nodes()), linesOf(R"(
    beginFaceNodes([4, 2])
    beginFaceNodeCounts()
    writeUniformFaceNodeCount(4, 3)
    writeFaceNodeCounts(2, [3, 4])
    endFaceNodeCounts()
    beginFaceNodeIds()
    writeFaceNodeIds(4, [7, 8, 9])
    writeFaceNodeIds(2, [1, 2, 3, 4, 5, 6, 7])
    endFaceNodeIds()
    endFaceNodes()
  )"));
}

TEST(CopiedFaceNodes, OfAZoneWithoutFacesAreAnEmptyListWithoutCounts) {
  FaceRun run(withoutFaces(threeZones(), 2));
  run.source.answerList("beginFaceNodes", {2, 4});
  EXPECT_EQ(run.nodes(), linesOf(R"(
    source: beginFaceNodes()
    beginFaceNodes([2, 4])
    source: beginFaceNodeCounts()
    beginFaceNodeCounts()
    source: getUniformFaceNodeCount(4)
    writeUniformFaceNodeCount(4, 3)
    source: endFaceNodeCounts()
    endFaceNodeCounts()
    source: beginFaceNodeIds()
    beginFaceNodeIds()
    source: readFaceNodeIds(2, 0)
    writeFaceNodeIds(2, null of 0)
    source: readFaceNodeIds(4, 3)
    writeFaceNodeIds(4, [7, 8, 9])
    source: endFaceNodeIds()
    endFaceNodeIds()
    endFaceNodes()
    source: endFaceNodes()
  )"));
}

TEST(CopiedFaceNodes, AreOpenedAndClosedIfNoListedZoneWasCopied) {
  FaceRun run(threeZones(), {99});
  EXPECT_EQ(ofDestination(run.nodes()), linesOf(R"(
    beginFaceNodes([])
    beginFaceNodeCounts()
    endFaceNodeCounts()
    beginFaceNodeIds()
    endFaceNodeIds()
    endFaceNodes()
  )"));
}

// --- The length of a list -----------------------------------------------------------------------

/// Face zone 2 with as many faces of 32767 nodes each; the ids are 1 and 2.
cases::CasePtr manyNodes(std::size_t faces) {
  cases::CasePtr made = threeZones();
  made->zone(2).sizes[zoneElementCount] = faces;
  memory::CountedData& nodes = made->arrays().faceNodes[2];
  nodes.counts = memory::Slice<short>(std::vector<short>(faces, 32767));
  nodes.ids = memory::Slice<std::uint64_t>(std::vector<std::uint64_t>{1, 2});
  return made;
}

TEST(CopiedFaceNodes, HaveAListThatIsTooLongForACallerIfItsLengthWrapsBelowZero) {
  FaceRun run(manyNodes(65539));  // 2^31 + 32765
  run.source.answerList("beginFaceNodes", {2});
  EXPECT_THROW(run.nodes(), std::bad_alloc);
  EXPECT_EQ(run.log.lines.back(), "beginFaceNodeIds()");
  EXPECT_EQ(callsOf("writeFaceNodeCounts", run.log.lines).size(), 1U);
  run.source.answerList("beginFaceNodes", {4});
  EXPECT_EQ(callsOf("writeFaceNodeIds", run.nodes()),
            Transcript({"writeFaceNodeIds(4, [7, 8, 9])"}));
}

TEST(CopiedFaceNodes, HaveAShortListIfItsLengthWrapsAboveZero) {
  FaceRun run(manyNodes(131077));  // 2^32 + 32763
  run.source.answerList("beginFaceNodes", {2});
  const Transcript calls = run.nodes();
  EXPECT_EQ(callsOf("readFaceNodeIds", calls), Transcript({"source: readFaceNodeIds(2, 32763)"}));
  EXPECT_EQ(callsOf("writeFaceNodeIds", calls).front().substr(0, 32),
            "writeFaceNodeIds(2, [1, 2, 0, 0,");
}

TEST(CopiedFaceNodes, HaveAListOfExactLengthIfTheirCountIsUniform) {
  const cases::CasePtr served = threeZones();
  served->zone(3).sizes[zoneElementCount] = std::uint64_t{1} << 60U;
  served->arrays().faceNodes[3].uniform = static_cast<short>(16);
  FaceRun run(served);
  run.source.answerList("beginFaceNodes", {3, 4});
  // A product of 2^64 ids leaves nothing in 64 bits.
  EXPECT_EQ(callsOf("readFaceNodeIds", run.nodes()),
            Transcript({"source: readFaceNodeIds(3, 0)", "source: readFaceNodeIds(4, 3)"}));
  served->arrays().faceNodes[3].uniform = static_cast<short>(8);
  FaceRun longer(served);
  longer.source.answerList("beginFaceNodes", {3});
  EXPECT_THROW(longer.nodes(), std::bad_alloc);
  EXPECT_EQ(callsOf("readFaceNodeCounts", longer.log.lines), Transcript());
}

TEST(CopiedFaceNodes, HaveAListThatIsTooLongForACallerIfTheirUniformCountIsNegative) {
  const cases::CasePtr served = threeZones();
  served->arrays().faceNodes[4].uniform = static_cast<short>(-1);
  FaceRun run(served);
  EXPECT_THROW(run.nodes(), std::bad_alloc);
  EXPECT_EQ(callsOf("writeUniformFaceNodeCount", run.log.lines),
            Transcript({"writeUniformFaceNodeCount(3, 3)", "writeUniformFaceNodeCount(4, -1)"}));
}

// --- The cells beside faces ---------------------------------------------------------------------

TEST(CopiedFaceParents, GoSideAfterSide) {
  FaceRun run(threeZones());
  EXPECT_EQ(run.parents(), linesOf(R"(
    source: beginFaceCell0()
    beginFaceCell0([2, 3, 4])
    source: readFaceCell0(2, 2)
    writeFaceCell0(2, [1, 2])
    source: readFaceCell0(3, 2)
    writeFaceCell0(3, [3, 5])
    source: readFaceCell0(4, 1)
    writeFaceCell0(4, [6])
    endFaceCell0()
    source: endFaceCell0()
    source: beginFaceCell1()
    beginFaceCell1([3, 4])
    source: readFaceCell1(3, 2)
    writeFaceCell1(3, [4, 0])
    source: readFaceCell1(4, 1)
    writeFaceCell1(4, [7])
    endFaceCell1()
    source: endFaceCell1()
  )"));
}

TEST(CopiedFaceParents, AreNotWrittenOnASideThatNoZoneHas) {
  FaceRun run(threeZones());
  run.source.answerList("beginFaceCell0", {});
  EXPECT_EQ(run.parents(), linesOf(R"(
    source: beginFaceCell0()
    source: endFaceCell0()
    source: beginFaceCell1()
    beginFaceCell1([3, 4])
    source: readFaceCell1(3, 2)
    writeFaceCell1(3, [4, 0])
    source: readFaceCell1(4, 1)
    writeFaceCell1(4, [7])
    endFaceCell1()
    source: endFaceCell1()
  )"));
  run.source.answerList("beginFaceCell1", {});
  EXPECT_EQ(run.parents(), Transcript({"source: beginFaceCell0()", "source: endFaceCell0()",
                                       "source: beginFaceCell1()", "source: endFaceCell1()"}));
}

/// A source that leaves the list of side 1 as it gets it.
class LazySource : public LoggedSource {
 public:
  using LoggedSource::LoggedSource;
  void beginFaceCell1(std::vector<int>& zoneIds) override {
    onCall(zoneIds.empty() ? "beginFaceCell1 with no zone" : "beginFaceCell1 with zones");
  }
};

TEST(CopiedFaceParents, ComeWithAnEmptyListForSideOne) {
  CopyRun run(cases::twoHexes());
  LazySource lazy(cases::twoHexes(), run.log);
  lazy.startReading("case", dataClassCase);
  run.copier.setSource(&lazy);
  run.mapZones();
  run.copier.copyFacesToDestination(true, false, true);
  const Transcript calls = run.moved();
  EXPECT_EQ(
      Transcript(calls.end() - 3, calls.end()),
      Transcript({"source: beginFaceCell1 with no zone", "source: endFaceCell1()", "endFaces()"}));
}

TEST(CopiedFaceParents, OfZonesThatWereNotCopiedAreLeftOutSideBySide) {
  FaceRun run(threeZones(), {4, 2});
  EXPECT_EQ(ofDestination(run.parents()), linesOf(R"(
    beginFaceCell0([2, 4])
    writeFaceCell0(2, [1, 2])
    writeFaceCell0(4, [6])
    endFaceCell0()
    beginFaceCell1([4])
    writeFaceCell1(4, [7])
    endFaceCell1()
  )"));
}

TEST(CopiedFaceParents, OfAZoneWithoutFacesAreListedOnly) {
  FaceRun run(withoutFaces(threeZones(), 3));
  EXPECT_EQ(run.parents(), linesOf(R"(
    source: beginFaceCell0()
    beginFaceCell0([2, 3, 4])
    source: readFaceCell0(2, 2)
    writeFaceCell0(2, [1, 2])
    source: readFaceCell0(4, 1)
    writeFaceCell0(4, [6])
    endFaceCell0()
    source: endFaceCell0()
    source: beginFaceCell1()
    beginFaceCell1([3, 4])
    source: readFaceCell1(4, 1)
    writeFaceCell1(4, [7])
    endFaceCell1()
    source: endFaceCell1()
  )"));
}

TEST(CopiedFaceParents, AreOpenedAndClosedIfNoListedZoneWasCopied) {
  FaceRun run(threeZones(), {99});
  EXPECT_EQ(ofDestination(run.parents()), Transcript({"beginFaceCell0([])", "endFaceCell0()",
                                                      "beginFaceCell1([])", "endFaceCell1()"}));
}

TEST(CopiedFaceParents, AreZeroWhereTheSourceHasFewer) {
  const cases::CasePtr served = threeZones();
  served->arrays().faceCell0[2] =
      memory::Slice<std::uint64_t>(std::vector<std::uint64_t>{18446744073709551615U});
  served->arrays().faceCell1[3] = memory::Slice<std::uint64_t>();
  FaceRun run(served);
  const Transcript calls = run.parents();
  EXPECT_EQ(callsOf("writeFaceCell0", calls)[0], "writeFaceCell0(2, [18446744073709551615, 0])");
  EXPECT_EQ(callsOf("writeFaceCell1", calls)[0], "writeFaceCell1(3, [0, 0])");
  EXPECT_EQ(run.err, "");
}

TEST(CopiedFaces, StayBehindWithTheirShadowsAndTree) {
  CopyRun run(cases::periodicPair());
  run.copier.copyLocationModelToDestination(false);
  run.copyCase();
  for (const char* operation : {"beginFaceShadows", "beginFaceTree", "getFaceShadow"}) {
    EXPECT_EQ(callsOf(operation, run.log.lines), Transcript()) << operation;
  }
}

}  // namespace
}  // namespace velto::testing
