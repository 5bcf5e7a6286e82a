// SPDX-License-Identifier: Apache-2.0
//
// OrvCopier: copies and assignments, which share both sides and nothing else.

#include <functional>
#include <gtest/gtest.h>
#include <memory>
#include <ostream>
#include <type_traits>

#include "tests/copier/copy_run.h"

namespace velto::testing {
namespace {

static_assert(std::is_polymorphic_v<OrvCopier>);
static_assert(std::has_virtual_destructor_v<OrvCopier>);
static_assert(!std::is_convertible_v<std::string, OrvCopier>);

bool hasIds(const OrvCopier& copier, int zone) {
  std::size_t count = 0;
  bool found = false;
  copier.getElemIds(zone, count, found);
  return found;
}

/// The calls that a copier makes, whichever run it belongs to.
Transcript callsOfCopy(OrvCopier& copier, CopyRun& run) {
  run.log.lines.clear();
  copier.copyCase(true);
  return run.log.lines;
}

/// How a copier takes what another one has.
struct Way {
  std::string name;
  std::function<std::unique_ptr<OrvCopier>(const OrvCopier&)> take;

  friend std::ostream& operator<<(std::ostream& out, const Way& way) { return out << way.name; }
};

class CopierCopies : public ::testing::TestWithParam<Way> {};

INSTANTIATE_TEST_SUITE_P(All, CopierCopies,
                         ::testing::Values(Way{"Construction",
                                               [](const OrvCopier& other) {
                                                 return std::make_unique<OrvCopier>(other);
                                               }},
                                           Way{"Assignment",
                                               [](const OrvCopier& other) {
                                                 auto taken =
                                                     std::make_unique<OrvCopier>("another");
                                                 taken->addElemIds(1, {99});
                                                 taken->addElemIds(2, {99});
                                                 taken->setDestinationSolverFormat("ANOTHER");
                                                 taken->copyCellPartitionsToDestination(true);
                                                 *taken = other;
                                                 return taken;
                                               }}),
                         rowName<Way>);

TEST_P(CopierCopies, DoTheSameAsTheOriginal) {
  CopyRun run(cases::withPartitions());
  run.copier.setDestinationSolverFormat("VELTO_A");
  run.copier.copyNodeCoordinatesToDestination(false);
  run.copier.copyLocationModelToDestination(false);
  run.copier.copyCellsToDestination(true, false, true);
  const Transcript expected = callsOfCopy(run.copier, run);
  const auto other = GetParam().take(run.copier);
  EXPECT_EQ(callsOfCopy(*other, run), expected);
}

TEST_P(CopierCopies, TakeNoCallToEitherSide) {
  CopyRun run(cases::oneHex());
  run.copier.setCompression(3);
  run.copier.setMode(true);
  run.log.lines.clear();
  const auto other = GetParam().take(run.copier);
  EXPECT_EQ(run.log.lines, Transcript());
}

TEST_P(CopierCopies, TellTheSameApplicationName) {
  CopyRun run(cases::oneHex(), "mesh converter");
  const auto other = GetParam().take(run.copier);
  run.log.lines.clear();
  other->setDestination(&run.destination);
  EXPECT_EQ(run.log.lines, Transcript({"setApplicationName(mesh converter)"}));
}

TEST_P(CopierCopies, HaveSwitchesOfTheirOwn) {
  CopyRun run(cases::oneHex());
  run.switchAllOff();
  const auto other = GetParam().take(run.copier);
  other->copyMeshUnitsToDestination(true);
  other->setDestinationSolverFormat("VELTO_A");
  EXPECT_EQ(callsOfCopy(run.copier, run),
            Transcript({"startWriting(0)", "setMeshId(1)", "setSolverType(VELTO_GENERIC)",
                        "endWriting(0)"}));
  run.copier.copyMeshSizeToDestination(true);
  EXPECT_EQ(callsOfCopy(*other, run),
            Transcript({"startWriting(0)", "setMeshId(1)", "setSolverType(VELTO_A)",
                        "source: getMeshUnits()", "setMeshUnits(m)", "writeMeshAttributes()",
                        "endWriting(0)"}));
}

TEST_P(CopierCopies, HaveElementIdsOfTheirOwn) {
  CopyRun run(cases::oneHex());
  run.mapZones();
  run.copier.addElemIds(1, {4, 5});
  const auto other = GetParam().take(run.copier);
  std::size_t count = 0;
  bool found = false;
  const std::size_t* ids = other->getElemIds(1, count, found);
  ASSERT_TRUE(found);
  EXPECT_EQ(std::vector<std::size_t>(ids, ids + count), std::vector<std::size_t>({4, 5}));
  EXPECT_NE(ids, run.copier.getElemIds(1, count, found));
  EXPECT_FALSE(hasIds(*other, 2)) << "what it had before is gone";
  run.copier.removeElemIds(1);
  other->addElemIds(3, {6});
  EXPECT_TRUE(hasIds(*other, 1));
  EXPECT_FALSE(hasIds(run.copier, 3));
}

TEST_P(CopierCopies, KnowTheZonesThatWereCopiedSoFarAndNoneAfterThat) {
  CopyRun run(cases::oneHex());
  const auto early = GetParam().take(run.copier);
  run.mapZones();
  const auto late = GetParam().take(run.copier);
  early->addElemIds(1, {4});
  late->addElemIds(1, {4});
  EXPECT_FALSE(hasIds(*early, 1));
  EXPECT_TRUE(hasIds(*late, 1));
}

TEST_P(CopierCopies, OutliveTheOriginal) {
  CopyRun run(cases::oneHex());
  auto original = std::make_unique<OrvCopier>(run.copier);
  original->addElemIds(1, {4, 5});
  const auto other = GetParam().take(*original);
  original.reset();
  EXPECT_TRUE(other->copy());
  EXPECT_TRUE(hasIds(*other, 1));
}

TEST_P(CopierCopies, ShareSourceAndDestinationAsTheyWere) {
  CopyRun run(cases::oneHex());
  const auto other = GetParam().take(run.copier);
  run.copier.setSource(nullptr);
  EXPECT_FALSE(run.copyCase());
  EXPECT_TRUE(other->copyCase(true));
}

TEST(CopierAssignment, ToItselfChangesNothing) {
  CopyRun run(cases::oneHex(), "mesh converter");
  run.copier.setDestinationSolverFormat("VELTO_A");
  run.copier.addElemIds(1, {4, 5});
  const Transcript expected = callsOfCopy(run.copier, run);
  std::size_t count = 0;
  bool found = false;
  const std::size_t* ids = run.copier.getElemIds(1, count, found);
  const OrvCopier& same = run.copier;
  run.copier = same;
  EXPECT_EQ(run.copier.getElemIds(1, count, found), ids);
  EXPECT_EQ(callsOfCopy(run.copier, run), expected);
  run.log.lines.clear();
  run.copier.setDestination(&run.destination);
  EXPECT_EQ(run.log.lines, Transcript({"setApplicationName(mesh converter)"}));
}

TEST(CopierAssignment, GivesTheCopierBack) {
  OrvCopier first;
  const OrvCopier second;
  EXPECT_EQ(&(first = second), &first);
}

}  // namespace
}  // namespace velto::testing
