// SPDX-License-Identifier: Apache-2.0
//
// The memory provider on cases that are wrong: ranges that overlap or lie, lists that are too
// short, zones that are listed without data.

#include <gtest/gtest.h>

#include "embedded/memory/MemoryProvider.h"
#include "testing/cases.h"

namespace velto::testing {
namespace {

using memory::Slice;
using Ids = std::vector<std::uint64_t>;
using Texts = std::vector<std::string>;

class MemoryProviderTest : public ::testing::Test {
 protected:
  /// The provider, opened when the test has damaged the case.
  memory::MemoryProvider& provider() {
    if (!provider_) {
      provider_ = std::make_unique<memory::MemoryProvider>(source_);
      EXPECT_TRUE(provider_->startReading("", dataClassCase));
    }
    return *provider_;
  }

  void setRange(int zone, std::uint64_t first, std::uint64_t last) {
    source_->zone(zone).sizes[zoneFirstId] = first;
    source_->zone(zone).sizes[zoneLastId] = last;
  }

  /// The side-0 cells of these faces, asked for in this order.
  Ids cells0(const Ids& faces) {
    std::vector<int> zones;
    Ids cells;
    provider().beginFaceCell0(zones);
    for (const std::uint64_t face : faces) {
      cells.push_back(provider().getFaceCell0(face));
    }
    provider().endFaceCell0();
    return cells;
  }

  cases::CasePtr source_ = cases::twoHexes();  // face zone 2 is face 1, face zone 3 faces 2 to 11
  std::vector<int> zones_;

 private:
  std::unique_ptr<memory::MemoryProvider> provider_;
};

// --- Per-element getters ------------------------------------------------------------------------

TEST_F(MemoryProviderTest, GetsAcrossZonesInAnyOrder) {
  EXPECT_EQ(cells0({11, 1, 6, 7, 2, 1, 11}), Ids({2, 1, 1, 2, 1, 1, 2}));
}

TEST_F(MemoryProviderTest, GetsZeroForAnIdThatNoListedZoneHolds) {
  source_->arrays().faceCell0.remove(2);
  EXPECT_EQ(cells0({0, 1, 2, 11, 12, ~std::uint64_t{0}}), Ids({0, 0, 1, 2, 0, 0}));
}

TEST_F(MemoryProviderTest, GetsZeroBehindTheDataOfAZoneThatLiesAboutItsEnd) {
  setRange(3, 2, 1000);
  EXPECT_EQ(cells0({11, 12, 1000, 1001, 2}), Ids({2, 0, 0, 0, 1}));
}

TEST_F(MemoryProviderTest, GetsFromTheZoneWhoseRangeHoldsTheIdAlsoWhereItIsListedLater) {
  source_->arrays().faceCell0.remove(2);
  source_->arrays().faceCell0[2] = Slice<std::uint64_t>(Ids{1});
  EXPECT_EQ(cells0({1, 2}), Ids({1, 1}));
}

TEST_F(MemoryProviderTest, GetsFromOneOfTwoZonesThatOverlap) {
  setRange(2, 5, 5);
  setRange(3, 1, 10);
  source_->arrays().faceCell0[2] = Slice<std::uint64_t>(Ids{42});
  const Ids cells = cells0({5, 4, 10});
  EXPECT_TRUE(cells[0] == 42 || cells[0] == 1) << cells[0];
  EXPECT_EQ(cells[1], 1U);
  EXPECT_EQ(cells[2], 2U);
}

TEST_F(MemoryProviderTest, GetsFromALongRangeBehindAShortOneInside) {
  setRange(2, 5, 5);
  setRange(3, 1, 10);
  EXPECT_EQ(cells0({9}), Ids({2}));
}

TEST_F(MemoryProviderTest, GetsZeroFromAZoneWhoseFirstIdLiesBehindItsLast) {
  setRange(3, 11, 2);
  EXPECT_EQ(cells0({2, 5, 11}), Ids({0, 0, 0}));
}

TEST_F(MemoryProviderTest, GetsZeroFromAZoneWithoutRange) {
  source_->zone(3).sizes = {};
  EXPECT_EQ(cells0({1, 2, 11}), Ids({1, 0, 0}));
}

TEST_F(MemoryProviderTest, GetsFromTheNextZoneBehindTheRangeOfOneThatHoldsMore) {
  source_->arrays().faceCell0[2] = Slice<std::uint64_t>(Ids{1, 42, 42});
  EXPECT_EQ(cells0({1, 2, 3}), Ids({1, 1, 1}));
}

TEST_F(MemoryProviderTest, GetsZeroFromBehindTheRangeOfAZoneThatHoldsMore) {
  source_->arrays().faceCell0[2] = Slice<std::uint64_t>(Ids{1, 42, 42});
  source_->arrays().faceCell0.remove(3);
  EXPECT_EQ(cells0({1, 2}), Ids({1, 0}));
}

TEST_F(MemoryProviderTest, GetsZeroWhenAnotherMeshWasSelectedSince) {
  provider().beginFaceCell0(zones_);
  provider().setMeshId(99);
  EXPECT_EQ(provider().getFaceCell0(1), 0U);
  provider().setMeshId(1);
  provider().beginCellTypes(zones_);
  provider().setMeshId(99);
  EXPECT_EQ(provider().getCellType(1), 0);
}

TEST_F(MemoryProviderTest, GetsZeroWhenTheFamilyIsClosed) {
  cells0({1});
  EXPECT_EQ(provider().getFaceCell0(1), 0U);
}

TEST_F(MemoryProviderTest, GetsTypesOfZonesWithOneTypeAndWithMany) {
  source_ = cases::twoBodies();
  source_->arrays().cellTypes[5].uniform.reset();
  source_->arrays().cellTypes[5].types = Slice<int>(std::vector<int>{7});
  provider().beginCellTypes(zones_);
  EXPECT_EQ(provider().getCellType(2), 4);
  EXPECT_EQ(provider().getCellType(1), 7);
  EXPECT_EQ(provider().getCellType(2), 4);
  EXPECT_EQ(provider().getCellType(3), 0);
  int type = -1;
  EXPECT_FALSE(provider().getUniformCellType(5, type));
  EXPECT_EQ(type, -1);
  EXPECT_TRUE(provider().getUniformCellType(6, type));
  EXPECT_EQ(type, 4);
  provider().endCellTypes();
}

// --- Lists and buffers --------------------------------------------------------------------------

TEST_F(MemoryProviderTest, ReplacesTheListOnEveryBegin) {
  zones_ = {97, 98, 99};
  provider().beginFaceCell0(zones_);
  EXPECT_EQ(zones_, std::vector<int>({2, 3}));
  provider().endFaceCell0();
  provider().beginFaceCell1(zones_);
  EXPECT_EQ(zones_, std::vector<int>({2}));
  provider().endFaceCell1();
  provider().beginCellFaces(zones_);
  EXPECT_EQ(zones_, std::vector<int>());
  provider().endCellFaces();
}

TEST_F(MemoryProviderTest, WarnsOfCountsThatAreTooFewAndLeavesTheRest) {
  source_->arrays().faceNodes[3].uniform.reset();
  source_->arrays().faceNodes[3].counts = Slice<short>(std::vector<short>{4, 4});
  std::vector<short> counts(4, -1);
  provider().beginFaceNodes(zones_);
  provider().readFaceNodeCounts(3, counts.data(), 4);
  EXPECT_EQ(counts, std::vector<short>({4, 4, -1, -1}));
  EXPECT_EQ(provider().getWarnings(true, true),
            Texts({"Warning:\n\tface nodes of zone 3: 2 values are there, 4 were expected"}));
  EXPECT_FALSE(provider().hasError());
}

TEST_F(MemoryProviderTest, WarnsOfIdsThatAreTooFewAndLeavesTheRest) {
  source_->arrays().faceCell0[3] = Slice<std::uint64_t>(Ids{1});
  Ids cells(3, 42);
  provider().beginFaceCell0(zones_);
  provider().readFaceCell0(3, cells.data(), 3);
  EXPECT_EQ(cells, Ids({1, 42, 42}));
  EXPECT_EQ(provider().getWarnings(true, true),
            Texts({"Warning:\n\tside-0 cells of zone 3: 1 values are there, 3 were expected"}));
}

TEST_F(MemoryProviderTest, WarnsOfPartitionsThatAreTooFewAndLeavesTheRest) {
  source_->arrays().cellPartitions[4].partitions = Slice<int>(std::vector<int>{7});
  std::vector<int> partitions(2, -1);
  provider().beginCellPartitions(zones_);
  provider().readCellPartitions(4, partitions.data(), 2);
  EXPECT_EQ(partitions, std::vector<int>({7, -1}));
  EXPECT_EQ(provider().getWarnings(true, true),
            Texts({"Warning:\n\tcell partitions of zone 4: 1 values are there, 2 were expected"}));
}

TEST_F(MemoryProviderTest, TellsHowManyCoordinatesTypesAndValuesItDelivered) {
  source_->arrays().nodeCoordinates[1] = Slice<double>(std::vector<double>{1, 2});
  source_->arrays().cellTypes[4].uniform.reset();
  source_->arrays().cellTypes[4].types = Slice<int>(std::vector<int>{4});
  std::vector<double> values(3, -1);
  std::vector<int> types(2, -1);
  EXPECT_EQ(provider().readNodeCoordinates(1, values.data(), 3), 2U);
  EXPECT_EQ(values, std::vector<double>({1, 2, -1}));
  EXPECT_EQ(provider().readCellTypes(4, types.data(), 2), 1U);
  EXPECT_EQ(types, std::vector<int>({4, -1}));
  EXPECT_EQ(provider().readVariable(4, values.data(), 3), 0U);
}

TEST_F(MemoryProviderTest, ReadsNoMoreThanAsked) {
  Ids ids(3, 42);
  provider().beginFaceNodes(zones_);
  provider().readFaceNodeIds(3, ids.data(), 2);
  EXPECT_EQ(ids, Ids({1, 7, 42}));
  EXPECT_FALSE(provider().hasWarning());
}

TEST_F(MemoryProviderTest, ReadsNothingIntoANullBuffer) {
  provider().beginFaceNodes(zones_);
  provider().readFaceNodeIds(3, nullptr, 0);
  provider().readFaceNodeCounts(3, nullptr, 0);
  EXPECT_EQ(provider().readNodeCoordinates(1, nullptr, 0), 0U);
  EXPECT_FALSE(provider().hasWarning());
}

TEST_F(MemoryProviderTest, FillsCountsOfAZoneThatHasOneCount) {
  std::vector<short> counts(10, 0);
  short count = -1;
  EXPECT_TRUE(provider().getUniformFaceNodeCount(3, count));
  EXPECT_EQ(count, 4);
  provider().readFaceNodeCounts(3, counts.data(), 10);
  EXPECT_EQ(counts, std::vector<short>(10, 4));
  count = -1;
  EXPECT_FALSE(provider().getUniformFaceNodeCount(99, count));
  EXPECT_EQ(count, -1);
}

TEST_F(MemoryProviderTest, ServesAZoneThatIsListedWithoutData) {
  source_->arrays().faceCell1[3];
  Ids cells(2, 42);
  provider().beginFaceCell1(zones_);
  EXPECT_EQ(zones_, std::vector<int>({2, 3}));
  EXPECT_EQ(provider().getFaceCell1(5), 0U);
  provider().readFaceCell1(3, cells.data(), 2);
  EXPECT_EQ(cells, Ids({42, 42}));
  EXPECT_EQ(provider().getWarnings(true, true),
            Texts({"Warning:\n\tside-1 cells of zone 3: 0 values are there, 2 were expected"}));
}

TEST_F(MemoryProviderTest, ServesTablesWithoutArrays) {
  source_->data.clear();
  provider().beginFaceNodes(zones_);
  EXPECT_EQ(zones_, std::vector<int>());
  provider().beginCellTypes(zones_);
  EXPECT_EQ(zones_, std::vector<int>());
  EXPECT_EQ(provider().getCellType(1), 0);
  EXPECT_FALSE(provider().hasError());
}

// --- The file -----------------------------------------------------------------------------------

TEST_F(MemoryProviderTest, AnswersAsAnEmptyCaseBeforeItIsOpened) {
  memory::MemoryProvider unopened(source_);
  std::vector<int> meshes = {99};
  int major = -1;
  int minor = -1;
  int patch = -1;
  unopened.getMeshIds(meshes, dataClassCase);
  unopened.getFileVersion(dataClassCase, major, minor, patch);
  EXPECT_EQ(meshes, std::vector<int>());
  EXPECT_EQ(major, -1);
  EXPECT_EQ(unopened.getSolverType(), "");
  EXPECT_FALSE(unopened.hasTarget(targetRestart));
}

TEST_F(MemoryProviderTest, KeepsItsCaseAlive) {
  auto held = cases::oneHex();
  memory::MemoryProvider provider(held);
  provider.startReading("", dataClassCase);
  held.reset();
  std::vector<double> values(24, -1);
  EXPECT_EQ(provider.readNodeCoordinates(1, values.data(), 24), 24U);
}

}  // namespace
}  // namespace velto::testing
