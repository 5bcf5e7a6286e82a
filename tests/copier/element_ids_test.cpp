// SPDX-License-Identifier: Apache-2.0
//
// OrvCopier: lists of element ids, asked for and handed to the destination.

#include <gtest/gtest.h>

#include "tests/copier/copy_run.h"

namespace velto::testing {
namespace {

using Ids = std::vector<std::size_t>;

/// What a copier answers for a zone, beside a count of 77 that it may leave alone.
struct Answer {
  const std::size_t* ids = nullptr;
  std::size_t count = 77;
  bool found = true;

  Answer(const OrvCopier& copier, int zone) { ids = copier.getElemIds(zone, count, found); }

  Ids list() const { return ids == nullptr ? Ids() : Ids(ids, ids + count); }
};

void expectNone(const OrvCopier& copier, int zone) {
  const Answer answer(copier, zone);
  EXPECT_EQ(answer.ids, nullptr);
  EXPECT_EQ(answer.count, 77U);
  EXPECT_FALSE(answer.found);
}

void expectList(const OrvCopier& copier, int zone, const Ids& ids) {
  const Answer answer(copier, zone);
  EXPECT_EQ(answer.list(), ids);
  EXPECT_EQ(answer.count, ids.size());
  EXPECT_TRUE(answer.found);
}

TEST(ElementIds, AreNotFoundBeforeAZoneWasCopied) {
  OrvCopier copier;
  EXPECT_TRUE(copier.addElemIds(1, {4, 5}));
  for (const int zone : {-1, 0, 1, 2}) {
    expectNone(copier, zone);
  }
}

TEST(ElementIds, AreFoundForZonesThatWereCopiedAndHaveAList) {
  CopyRun run(cases::twoBodies());
  EXPECT_TRUE(run.copier.addElemIds(1, {4, 5}));
  EXPECT_TRUE(run.copier.addElemIds(6, {9}));
  EXPECT_TRUE(run.copier.addElemIds(99, {1}));
  run.mapZones();
  expectList(run.copier, 1, {4, 5});
  expectList(run.copier, 6, {9});
  expectNone(run.copier, 2);
  expectNone(run.copier, 99);
  EXPECT_TRUE(run.copier.addElemIds(2, {7, 7, 0}));
  expectList(run.copier, 2, {7, 7, 0});
}

TEST(ElementIds, AreReplacedByALaterList) {
  CopyRun run(cases::oneHex());
  run.mapZones();
  EXPECT_TRUE(run.copier.addElemIds(1, {4, 5}));
  EXPECT_TRUE(run.copier.addElemIds(1, {6}));
  expectList(run.copier, 1, {6});
}

TEST(ElementIds, AreFoundAsNullIfTheListIsEmpty) {
  CopyRun run(cases::oneHex());
  run.mapZones();
  EXPECT_TRUE(run.copier.addElemIds(1, {}));
  const Answer answer(run.copier, 1);
  EXPECT_EQ(answer.ids, nullptr);
  EXPECT_EQ(answer.count, 0U);
  EXPECT_TRUE(answer.found);
}

TEST(ElementIds, AreForgottenOnRequest) {
  CopyRun run(cases::oneHex());
  run.mapZones();
  run.copier.addElemIds(1, {4, 5});
  run.copier.addElemIds(2, {6});
  EXPECT_TRUE(run.copier.removeElemIds(1));
  expectNone(run.copier, 1);
  expectList(run.copier, 2, {6});
}

TEST(ElementIds, NeedNotBeThereToBeForgotten) {
  CopyRun run(cases::oneHex());
  run.mapZones();
  run.copier.addElemIds(2, {6});
  EXPECT_TRUE(run.copier.removeElemIds(1));
  EXPECT_TRUE(run.copier.removeElemIds(1));
  EXPECT_TRUE(OrvCopier().removeElemIds(0));
  expectList(run.copier, 2, {6});
}

TEST(ElementIds, StandInTheStorageOfTheCopier) {
  CopyRun run(cases::oneHex());
  run.mapZones();
  Ids given = {4, 5};
  run.copier.addElemIds(1, given);
  given = {8, 9};
  const Answer first(run.copier, 1);
  run.copier.addElemIds(2, {6});
  run.copier.removeElemIds(2);
  const Answer second(run.copier, 1);
  EXPECT_EQ(first.ids, second.ids);
  EXPECT_EQ(first.list(), Ids({4, 5}));
}

TEST(ElementIds, OfNodesReachTheDestinationAheadOfTheCoordinates) {
  CopyRun run(cases::oneHex());
  run.mapZones();
  run.copier.copyNodeCoordinatesToDestination(true);
  run.copier.addElemIds(1, {18446744073709551615U, 0, 3});
  run.copier.addElemIds(2, {1});
  run.copier.addElemIds(3, {2});
  EXPECT_EQ(callsOf("writeElemIds", run.moved()),
            Transcript({"writeElemIds(1, [18446744073709551615, 0, 3])"}));
  run.copier.addElemIds(1, {});
  const Transcript calls = ofDestination(run.moved());
  ASSERT_EQ(calls.size(), 6U);
  EXPECT_EQ(
      Transcript(calls.begin(), calls.begin() + 3),
      Transcript({"beginNodes([1])", "writeElemIds(1, null of 0)", "beginNodeCoordinates([1])"}));
}

TEST(ElementIds, GoInTheOrderOfTheZonesOfTheSource) {
  CopyRun run(cases::oneHex());
  run.source.answerList("getZoneIds(0)", {7, 1, 5, 4});
  run.mapZones();
  run.copier.copyNodeCoordinatesToDestination(true);
  run.copier.addElemIds(1, {11});
  run.copier.addElemIds(4, {});
  run.copier.addElemIds(7, {17});
  run.copier.addElemIds(9, {19});
  EXPECT_EQ(
      callsOf("writeElemIds", run.moved()),
      Transcript({"writeElemIds(7, [17])", "writeElemIds(1, [11])", "writeElemIds(4, null of 0)"}));
}

TEST(ElementIds, OfZonesThatWereNotCopiedStayBehind) {
  CopyRun run(cases::oneHex());
  run.switchAllOff();
  run.copier.copyNodeCoordinatesToDestination(true);
  run.copier.addElemIds(1, {11});
  EXPECT_EQ(callsOf("writeElemIds", run.moved()), Transcript());
}

TEST(ElementIds, AreKeptFromOneCopyToTheNext) {
  CopyRun run(cases::oneHex());
  run.copier.addElemIds(1, {11});
  for (int i = 0; i < 3; ++i) {
    EXPECT_TRUE(run.copyCase());
    EXPECT_EQ(callsOf("writeElemIds", run.log.lines), Transcript({"writeElemIds(1, [11])"}));
  }
  expectList(run.copier, 1, {11});
}

TEST(ElementIds, TakeNoPartInTheCopyOfCellsAndFaces) {
  CopyRun run(cases::withPartitions());
  run.mapZones();
  run.copier.copyCellsToDestination(true, true, true);
  run.copier.copyCellPartitionsToDestination(true);
  run.copier.copyFacesToDestination(true, true, true);
  run.copier.addElemIds(2, {11});
  run.copier.addElemIds(3, {12});
  EXPECT_EQ(callsOf("writeElemIds", run.moved()), Transcript());
}

TEST(ElementIds, ReachTheDestinationAheadOfEachVariableOfTheirKindOfZone) {
  CopyRun run(cases::withResults());
  run.copier.addElemIds(1, {11, 12});
  run.copier.addElemIds(2, {21});
  run.copier.addElemIds(3, {});
  EXPECT_TRUE(run.copyResults());
  Transcript calls;
  for (const std::string& call : run.written()) {
    const std::string operation = operationOf(call);
    if (operation == "beginVariableZones" || operation == "writeElemIds" ||
        operation == "beginVariable") {
      calls.push_back(call);
    }
  }
  EXPECT_EQ(calls, linesOf(R"(
    beginVariableZones(0)
    writeElemIds(1, [11, 12])
    beginVariable(0, temperature, [1], 1)
    beginVariableZones(0)
    writeElemIds(1, [11, 12])
    beginVariable(0, velocity, [1], 3)
    beginVariableZones(3)
    writeElemIds(3, null of 0)
    beginVariable(3, pressure, [3], 1)
    beginVariableZones(3)
    writeElemIds(3, null of 0)
    beginVariable(3, fraction, [3], 1)
  )"));
}

}  // namespace
}  // namespace velto::testing
