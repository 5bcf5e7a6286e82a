// SPDX-License-Identifier: Apache-2.0
//
// The selection: every query answers for the mesh, target and partition that were chosen last.

#include <gtest/gtest.h>

#include "embedded/memory/CaseBuilder.h"
#include "embedded/memory/MemoryConsumer.h"
#include "embedded/memory/MemoryProvider.h"
#include "testing/cases.h"

namespace velto::testing {
namespace {

using base::MeshKey;

/// Meshes that differ in their number of nodes: 1 node in mesh 1, 2 in mesh 2, 3 in the post target
/// of mesh 1, 4 and 5 in partitions 0 and 1 of its partitioned post target.
cases::CasePtr fiveMeshes() {
  const std::vector<std::pair<MeshKey, std::size_t>> meshes = {{{1, targetRestart, -1}, 1},
                                                               {{2, targetRestart, -1}, 2},
                                                               {{1, targetPost, -1}, 3},
                                                               {{1, targetPartitionedPost, 0}, 4},
                                                               {{1, targetPartitionedPost, 1}, 5}};
  memory::CaseBuilder builder;
  for (const auto& mesh : meshes) {
    builder.mesh(mesh.first)
        .nodes(7, "points",
               std::vector<std::vector<double>>(mesh.second, std::vector<double>{0, 0, 0}));
  }
  return builder.build();
}

std::uint64_t nodesOf(const OrvBase& object) {
  std::uint64_t nodes = 0;
  object.getMeshSize(meshNodeCount, nodes);
  return nodes;
}

class Selection : public ::testing::Test {
 protected:
  Selection() { provider_.startReading("", dataClassCase); }

  void select(int mesh, OrvTargetCategory target, int partition) {
    provider_.setMeshId(mesh);
    provider_.setTarget(target);
    provider_.setPartitionId(partition);
  }

  memory::MemoryProvider provider_{fiveMeshes()};
};

TEST_F(Selection, StartsAtTheFirstMesh) {
  EXPECT_EQ(provider_.getMeshId(), 1);
  EXPECT_EQ(provider_.getTarget(), targetRestart);
  EXPECT_EQ(provider_.getPartitionId(), -1);
  EXPECT_EQ(nodesOf(provider_), 1U);
}

TEST_F(Selection, StartsAtThePartitionOfACaseThatHasNothingElse) {
  memory::MemoryProvider provider(cases::withPartitions());
  provider.startReading("", dataClassCase);
  EXPECT_EQ(provider.getTarget(), targetPartitionedPost);
  EXPECT_EQ(provider.getPartitionId(), 0);
}

TEST_F(Selection, ChoosesByMeshTargetAndPartition) {
  select(2, targetRestart, -1);
  EXPECT_EQ(nodesOf(provider_), 2U);
  select(1, targetPost, -1);
  EXPECT_EQ(nodesOf(provider_), 3U);
  select(1, targetPartitionedPost, 0);
  EXPECT_EQ(nodesOf(provider_), 4U);
  select(1, targetPartitionedPost, 1);
  EXPECT_EQ(nodesOf(provider_), 5U);
  select(1, targetRestart, -1);
  EXPECT_EQ(nodesOf(provider_), 1U);
}

TEST_F(Selection, TellsWhatWasChosenAlsoWhereNothingIs) {
  select(99, static_cast<OrvTargetCategory>(7), 12);
  EXPECT_EQ(provider_.getMeshId(), 99);
  EXPECT_EQ(provider_.getTarget(), 7);
  EXPECT_EQ(provider_.getPartitionId(), 12);
  EXPECT_EQ(nodesOf(provider_), 0U);
}

TEST_F(Selection, GovernsArraysAsWell) {
  std::vector<int> zones;
  std::vector<double> values(15, -1);
  select(1, targetPartitionedPost, 1);
  provider_.beginNodeCoordinates(zones);
  EXPECT_EQ(provider_.readNodeCoordinates(7, values.data(), 15), 15U);
  provider_.endNodeCoordinates();
  select(1, targetPartitionedPost, 2);
  provider_.beginNodeCoordinates(zones);
  EXPECT_EQ(zones, std::vector<int>());
  EXPECT_EQ(provider_.readNodeCoordinates(7, values.data(), 15), 0U);
  provider_.endNodeCoordinates();
}

TEST_F(Selection, ListsWhatTheFileHolds) {
  std::vector<int> list = {99};
  provider_.getMeshIds(list, dataClassCase);
  EXPECT_EQ(list, std::vector<int>({1, 2}));
  provider_.getTargets(list, 1, dataClassCase);
  EXPECT_EQ(list, std::vector<int>({0, 1, 2}));
  provider_.getTargets(list, 2, dataClassCase);
  EXPECT_EQ(list, std::vector<int>({0}));
  provider_.getPartitionIds(list, 1, dataClassCase);
  EXPECT_EQ(list, std::vector<int>({0, 1}));
  provider_.getPartitionIds(list, 2, dataClassCase);
  EXPECT_EQ(list, std::vector<int>());
}

TEST(SelectionOfAConsumer, KeepsTablesApart) {
  memory::MemoryConsumer consumer;
  consumer.setMeshId(1);
  consumer.setTarget(targetRestart);
  consumer.setPartitionId(-1);
  consumer.setMeshSize(meshNodeCount, 10);
  consumer.setZoneIds(zoneCategoryNode, {1});
  consumer.setPartitionId(4);
  consumer.setMeshSize(meshNodeCount, 20);
  EXPECT_EQ(nodesOf(consumer), 20U);
  EXPECT_EQ(consumer.getZoneCount(zoneCategoryNode), 0U);
  consumer.setPartitionId(-1);
  EXPECT_EQ(nodesOf(consumer), 10U);
  EXPECT_EQ(consumer.getZoneCount(zoneCategoryNode), 1U);
}

}  // namespace
}  // namespace velto::testing
