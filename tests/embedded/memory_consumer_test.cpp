// SPDX-License-Identifier: Apache-2.0
//
// The memory consumer: every write, what it derives, and that a copy is compared array by array
// with its source (through the conformance suite, too: memory_contract_test.cpp).

#include <algorithm>
#include <array>
#include <gtest/gtest.h>
#include <list>

#include "embedded/memory/CaseBuilder.h"
#include "embedded/memory/MemoryConsumer.h"
#include "testing/cases.h"
#include "testing/write_case.h"

namespace velto::testing {
namespace {

using base::MeshKey;
using memory::MeshData;
using memory::Slice;

template <class Value>
std::vector<Value> valuesOf(const Slice<Value>& slice) {
  return {slice.begin(), slice.end()};
}

/// The values of every zone of a list, zone by zone.
template <class Value>
std::vector<std::pair<int, std::vector<Value>>> valuesOf(
    const memory::ZoneList<Slice<Value>>& list) {
  std::vector<std::pair<int, std::vector<Value>>> values;
  for (const int zone : list.zones()) {
    values.emplace_back(zone, valuesOf(*list.find(zone)));
  }
  return values;
}

std::vector<int> sorted(std::vector<int> ids) {
  std::sort(ids.begin(), ids.end());
  return ids;
}

class CopyInMemory : public ::testing::TestWithParam<cases::NamedCase> {
 protected:
  CopyInMemory() {
    writeCase(*source_, consumer_);
    copy_ = consumer_.takeCase();
  }

  void expectEqualCounted(const memory::ZoneList<memory::CountedData>& copied,
                          const memory::ZoneList<memory::CountedData>& expected) {
    EXPECT_EQ(copied.zones(), expected.zones());
    for (const int zone : expected.zones()) {
      EXPECT_EQ(copied.find(zone)->uniform, expected.find(zone)->uniform);
      EXPECT_EQ(valuesOf(copied.find(zone)->counts), valuesOf(expected.find(zone)->counts));
      EXPECT_EQ(valuesOf(copied.find(zone)->ids), valuesOf(expected.find(zone)->ids));
    }
  }

  cases::CasePtr source_ = GetParam().make();
  memory::MemoryConsumer consumer_;
  cases::CasePtr copy_;
};

TEST_P(CopyInMemory, HasNoMessages) {
  EXPECT_FALSE(consumer_.hasWarning());
  EXPECT_FALSE(consumer_.hasError());
}

TEST_P(CopyInMemory, HasTheMeshesOfItsSource) {
  ASSERT_EQ(copy_->tables.meshes.size(), source_->tables.meshes.size());
  for (const auto& mesh : source_->tables.meshes) {
    const base::MeshTables& copied = copy_->tables.meshes.at(mesh.first);
    EXPECT_EQ(copied.sizes, mesh.second.sizes);
    EXPECT_EQ(copied.units, mesh.second.units);
    for (const OrvZoneCategory category : {zoneCategoryNode, zoneCategoryFace, zoneCategoryCell}) {
      EXPECT_EQ(copied.idsOf(category), mesh.second.idsOf(category));
    }
  }
}

TEST_P(CopyInMemory, HasTheZonesOfItsSourceWithDerivedCountsAndRelations) {
  for (const auto& mesh : source_->tables.meshes) {
    for (const auto& zone : mesh.second.zones) {
      const base::ZoneRecord& copied = copy_->tables.meshes.at(mesh.first).zones.at(zone.first);
      EXPECT_EQ(copied.sizes, zone.second.sizes);
      EXPECT_EQ(copied.texts, zone.second.texts);
      EXPECT_EQ(copied.faceInfo, zone.second.faceInfo);
      EXPECT_EQ(copied.cellInfo, zone.second.cellInfo);
      EXPECT_EQ(sorted(copied.boundingFaceZones), sorted(zone.second.boundingFaceZones));
      EXPECT_EQ(sorted(copied.sideCellZones[0]), sorted(zone.second.sideCellZones[0]));
      EXPECT_EQ(sorted(copied.sideCellZones[1]), sorted(zone.second.sideCellZones[1]));
    }
  }
}

TEST_P(CopyInMemory, HasTheArraysOfItsSource) {
  for (const auto& mesh : source_->data) {
    const MeshData& copied = copy_->data.at(mesh.first);
    const MeshData& expected = mesh.second;
    EXPECT_EQ(valuesOf(copied.nodeCoordinates), valuesOf(expected.nodeCoordinates));
    EXPECT_EQ(valuesOf(copied.faceCell0), valuesOf(expected.faceCell0));
    EXPECT_EQ(valuesOf(copied.faceCell1), valuesOf(expected.faceCell1));
    expectEqualCounted(copied.faceNodes, expected.faceNodes);
    expectEqualCounted(copied.cellNodes, expected.cellNodes);
    EXPECT_EQ(copied.cellTypes.zones(), expected.cellTypes.zones());
    for (const int zone : expected.cellTypes.zones()) {
      EXPECT_EQ(copied.cellTypes.find(zone)->uniform, expected.cellTypes.find(zone)->uniform);
      EXPECT_EQ(valuesOf(copied.cellTypes.find(zone)->types),
                valuesOf(expected.cellTypes.find(zone)->types));
    }
    EXPECT_EQ(copied.cellPartitions.zones(), expected.cellPartitions.zones());
    for (const int zone : expected.cellPartitions.zones()) {
      EXPECT_EQ(copied.cellPartitions.find(zone)->info, expected.cellPartitions.find(zone)->info);
      EXPECT_EQ(valuesOf(copied.cellPartitions.find(zone)->partitions),
                valuesOf(expected.cellPartitions.find(zone)->partitions));
    }
  }
}

TEST_P(CopyInMemory, HasTheResultsOfItsSource) {
  for (const auto& mesh : source_->data) {
    const MeshData& copied = copy_->data.at(mesh.first);
    ASSERT_EQ(copied.variables.size(), mesh.second.variables.size());
    for (const auto& list : mesh.second.variables) {
      const MeshData::VariableList& copiedList = copied.variables.at(list.first);
      ASSERT_EQ(copiedList.size(), list.second.size());
      for (std::size_t i = 0; i < list.second.size(); ++i) {
        EXPECT_EQ(copiedList[i].first, list.second[i].first);
        EXPECT_EQ(copiedList[i].second.valuesPerEntity, list.second[i].second.valuesPerEntity);
        EXPECT_EQ(valuesOf(copiedList[i].second.zones), valuesOf(list.second[i].second.zones));
      }
    }
  }
}

INSTANTIATE_TEST_SUITE_P(Of, CopyInMemory, ::testing::ValuesIn(cases::all()),
                         [](const auto& row) { return row.param.name; });

// --- Single writes ------------------------------------------------------------------------------

class MemoryConsumerTest : public ::testing::Test {
 protected:
  MeshData arrays(const MeshKey& key = {}) const { return consumer_.takeCase()->data[key]; }
  base::ZoneRecord zone(int id) const { return consumer_.takeCase()->zone(id); }

  memory::MemoryConsumer consumer_;
};

TEST_F(MemoryConsumerTest, WritesCountsAndTypesOfMixedZones) {
  const std::array<short, 2> counts = {3, 4};
  const std::array<std::uint64_t, 7> ids = {1, 2, 3, 1, 2, 3, 4};
  const std::array<int, 2> types = {2, 4};
  consumer_.beginFaceNodes({2});
  consumer_.writeFaceNodeCounts(2, counts.data(), 2);
  consumer_.writeFaceNodeIds(2, ids.data(), 7);
  consumer_.beginCellTypes({3, 4}, {0, 6});
  consumer_.writeCellTypes(3, types.data(), 2);
  const MeshData written = arrays();
  EXPECT_FALSE(written.faceNodes.find(2)->uniform.has_value());
  EXPECT_EQ(valuesOf(written.faceNodes.find(2)->counts), std::vector<short>({3, 4}));
  EXPECT_EQ(valuesOf(written.faceNodes.find(2)->ids),
            std::vector<std::uint64_t>({1, 2, 3, 1, 2, 3, 4}));
  EXPECT_FALSE(written.cellTypes.find(3)->uniform.has_value());
  EXPECT_EQ(valuesOf(written.cellTypes.find(3)->types), std::vector<int>({2, 4}));
  EXPECT_EQ(written.cellTypes.find(4)->uniform, 6);
}

TEST_F(MemoryConsumerTest, ListsZonesInTheOrderOfTheirBegin) {
  const std::array<std::uint64_t, 1> cell = {1};
  consumer_.beginFaceCell0({7, 3});
  consumer_.writeFaceCell0(3, cell.data(), 1);
  consumer_.writeFaceCell0(7, cell.data(), 1);
  EXPECT_EQ(arrays().faceCell0.zones(), std::vector<int>({7, 3}));
}

TEST_F(MemoryConsumerTest, TakesNullBuffersOfNothing) {
  consumer_.beginNodeCoordinates({1});
  consumer_.writeNodeCoordinates(1, nullptr, 0);
  consumer_.beginFaceNodes({2});
  consumer_.writeFaceNodeCounts(2, nullptr, 0);
  consumer_.writeFaceNodeIds(2, nullptr, 0);
  consumer_.writeFaceCell0(2, nullptr, 0);
  consumer_.writeElemIds(1, nullptr, 0);
  EXPECT_EQ(arrays().nodeCoordinates.find(1)->size(), 0U);
  EXPECT_FALSE(consumer_.hasError());
}

TEST_F(MemoryConsumerTest, CopiesBuffers) {
  std::array<double, 3> values = {1, 2, 3};
  consumer_.beginNodeCoordinates({1});
  consumer_.writeNodeCoordinates(1, values.data(), 3);
  values = {9, 9, 9};
  EXPECT_EQ(valuesOf(*arrays().nodeCoordinates.find(1)), std::vector<double>({1, 2, 3}));
}

TEST_F(MemoryConsumerTest, KeepsElementIds) {
  const std::array<std::size_t, 2> ids = {10, 20};
  consumer_.writeElemIds(1, ids.data(), 2);
  EXPECT_EQ(valuesOf(*arrays().elementIds.find(1)), std::vector<std::size_t>({10, 20}));
}

TEST_F(MemoryConsumerTest, GivesEachPartitionZoneTheOneInfo) {
  consumer_.beginCellPartitions({3, 4}, 7);
  EXPECT_EQ(arrays().cellPartitions.find(3)->info, 7);
  EXPECT_EQ(arrays().cellPartitions.find(4)->info, 7);
}

TEST_F(MemoryConsumerTest, DerivesElementCountsAtTheEnd) {
  consumer_.setZoneIds(zoneCategoryFace, {2, 3, 4});
  consumer_.setZoneSizeInfo(2, zoneFirstId, 5);
  consumer_.setZoneSizeInfo(2, zoneLastId, 7);
  consumer_.setZoneSizeInfo(3, zoneFirstId, 8);
  consumer_.setZoneSizeInfo(3, zoneLastId, 7);
  consumer_.setZoneSizeInfo(4, zoneFirstId, 1);
  EXPECT_FALSE(zone(2).sizes[zoneElementCount].has_value());
  consumer_.endWriting(dataClassCase);
  EXPECT_EQ(zone(2).sizes[zoneElementCount], 3U);
  EXPECT_EQ(zone(3).sizes[zoneElementCount], 0U);
  EXPECT_FALSE(zone(4).sizes[zoneElementCount].has_value());
}

TEST_F(MemoryConsumerTest, KeepsAnElementCountThatWasWritten) {
  consumer_.setZoneSizeInfo(2, zoneFirstId, 5);
  consumer_.setZoneSizeInfo(2, zoneLastId, 7);
  consumer_.setZoneSizeInfo(2, zoneElementCount, 99);
  consumer_.endWriting(dataClassCase);
  EXPECT_EQ(zone(2).sizes[zoneElementCount], 99U);
}

TEST_F(MemoryConsumerTest, RelatesNoZonesOfPostTargets) {
  const std::array<std::uint64_t, 1> cell = {1};
  for (const OrvTargetCategory target : {targetPost, targetRestart}) {
    consumer_.setTarget(target);
    consumer_.setZoneIds(zoneCategoryCell, {5});
    consumer_.setZoneSizeInfo(5, zoneFirstId, 1);
    consumer_.setZoneSizeInfo(5, zoneLastId, 1);
    consumer_.beginFaceCell0({2});
    consumer_.writeFaceCell0(2, cell.data(), 1);
    std::list<int> zones;
    consumer_.getFaceCellZone0Ids(2, zones);
    EXPECT_EQ(zones, target == targetRestart ? std::list<int>({5}) : std::list<int>());
  }
}

TEST_F(MemoryConsumerTest, RelatesZonesOnceAndPassesOverCellsOfNoZone) {
  const std::array<std::uint64_t, 5> cells = {3, 0, 1, 77, 3};
  consumer_.setZoneIds(zoneCategoryCell, {5, 6});
  for (const int id : {5, 6}) {
    consumer_.setZoneSizeInfo(id, zoneFirstId, id == 5 ? 1 : 3);
    consumer_.setZoneSizeInfo(id, zoneLastId, id == 5 ? 2 : 4);
  }
  consumer_.setZoneIds(zoneCategoryFace, {9});
  consumer_.beginFaceCell0({9});
  consumer_.writeFaceCell0(9, cells.data(), 5);
  consumer_.endFaceCell0();
  consumer_.beginFaceCell1({9});
  consumer_.writeFaceCell1(9, cells.data(), 5);
  consumer_.endFaceCell1();
  consumer_.endWriting(dataClassCase);
  EXPECT_EQ(sorted(zone(9).sideCellZones[0]), std::vector<int>({5, 6}));
  EXPECT_EQ(sorted(zone(9).sideCellZones[1]), std::vector<int>({5, 6}));
  EXPECT_EQ(zone(5).boundingFaceZones, std::vector<int>({9}));
  EXPECT_EQ(zone(6).boundingFaceZones, std::vector<int>({9}));
}

// --- Settings, names, results -------------------------------------------------------------------

TEST_F(MemoryConsumerTest, WritesSettings) {
  consumer_.setSolverType("VELTO_FLUID");
  consumer_.setApplicationName("copier");
  consumer_.writeSettings({{"a", "1"}, {"b", "2"}}, dataClassCase, OrvBase::_defaultSettingsPath);
  consumer_.writeStandardSettings({{"Time", "now"}, {"a", "3"}}, dataClassCase);
  const auto written = consumer_.takeCase();
  using Entries = std::vector<std::pair<std::string, std::string>>;
  EXPECT_EQ(written->tables.settings.at({dataClassCase, OrvBase::_defaultSettingsPath}).entries(),
            Entries({{"a", "3"}, {"b", "2"}, {"Time", "now"}}));
  EXPECT_EQ(written->tables.solverType, "VELTO_FLUID");
  EXPECT_EQ(written->tables.applicationName, "copier");
  EXPECT_EQ(written->tables.version->major, 1);
}

TEST_F(MemoryConsumerTest, NumbersPhasesAndVariablesByName) {
  std::vector<short> phases;
  consumer_.addPhases({"water", "air"}, phases);
  EXPECT_EQ(phases, std::vector<short>({1, 2}));
  phases.clear();
  consumer_.addPhases({"oil", "water"}, phases);
  EXPECT_EQ(phases, std::vector<short>({3, 1}));
  int id = 0;
  consumer_.addVariable("pressure", id);
  EXPECT_EQ(id, 1);
  consumer_.addVariable("velocity", id);
  EXPECT_EQ(id, 2);
  consumer_.addVariable("pressure", id);
  EXPECT_EQ(id, 1);
}

TEST_F(MemoryConsumerTest, IgnoresTextsAboutUnknownPhasesAndVariables) {
  consumer_.setPhaseDescription(9, "x");
  consumer_.setPhaseAttribute(9, "x", "y");
  consumer_.setVariableDescription(9, "x");
  consumer_.setVariableAttribute(9, "x", "y");
  EXPECT_TRUE(consumer_.takeCase()->tables.phases.empty());
  EXPECT_TRUE(consumer_.takeCase()->tables.variables.empty());
  EXPECT_FALSE(consumer_.hasError());
}

TEST_F(MemoryConsumerTest, DeclaresVariablesInTheirOrder) {
  consumer_.beginPhase(1);
  consumer_.declareVariables(zoneCategoryCell, {"b", "a"}, {1, 2});
  consumer_.beginVariableZones(zoneCategoryCell);
  consumer_.beginVariable(zoneCategoryCell, "a", {3}, 2);
  consumer_.endVariable();
  consumer_.endVariableZones();
  consumer_.endPhase();
  const MeshData written = arrays();
  const MeshData::VariableList& list = written.variables.at({1, zoneCategoryCell});
  ASSERT_EQ(list.size(), 2U);
  EXPECT_EQ(list[0].first, "b");
  EXPECT_EQ(list[1].first, "a");
  EXPECT_EQ(list[1].second.valuesPerEntity, 2U);
  EXPECT_EQ(list[1].second.zones.zones(), std::vector<int>({3}));
}

TEST_F(MemoryConsumerTest, HandsOutACaseThatLaterWritesDoNotChange) {
  consumer_.setMeshSize(meshNodeCount, 1);
  const auto before = consumer_.takeCase();
  consumer_.setMeshSize(meshNodeCount, 2);
  EXPECT_EQ(before->mesh().size(meshNodeCount), 1U);
}

TEST_F(MemoryConsumerTest, TellsTheVersionThatItWrites) {
  int major = 0;
  int minor = -1;
  int patch = -1;
  consumer_.getFileVersion(dataClassCase, major, minor, patch);
  EXPECT_EQ(major, 1);
  EXPECT_EQ(minor, 0);
  EXPECT_EQ(patch, 0);
}

}  // namespace
}  // namespace velto::testing
