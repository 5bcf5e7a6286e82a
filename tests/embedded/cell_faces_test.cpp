// SPDX-License-Identifier: Apache-2.0
//
// The faces of polyhedra, which a consumer derives from the cells beside the faces.

#include <gtest/gtest.h>

#include "embedded/base/CellFaceCollector.h"
#include "embedded/base/shapes.h"
#include "embedded/memory/MemoryConsumer.h"

namespace velto::testing {
namespace {

using Ids = std::vector<std::uint64_t>;
using Counts = std::vector<short>;

/// Writes a mesh with a face zone 2 of four faces and the cell zones 3 (cells 1 and 2) and 4 (cell
/// 3), all polyhedra, and returns the cell faces that were derived.
memory::ZoneList<memory::CountedData> derived(OrvTargetCategory target, const Ids& side0,
                                              const Ids& side1,
                                              const std::vector<int>& zonesWithNodes = {}) {
  memory::MemoryConsumer consumer;
  consumer.startWriting(dataClassCase);
  consumer.setMeshId(1);
  consumer.setTarget(target);
  consumer.setMeshSize(meshCellCount, 3);
  consumer.setZoneIds(zoneCategoryFace, {2});
  consumer.setZoneSizeInfo(2, zoneFirstId, 1);
  consumer.setZoneSizeInfo(2, zoneLastId, 4);
  consumer.setZoneIds(zoneCategoryCell, {3, 4});
  for (const int zone : {3, 4}) {
    consumer.setZoneSizeInfo(zone, zoneFirstId, zone == 3 ? 1 : 3);
    consumer.setZoneSizeInfo(zone, zoneLastId, zone == 3 ? 2 : 3);
    consumer.setCellZoneInfo(zone, cellZoneCellType, base::cellShapePolyhedron);
  }
  consumer.beginCells({3, 4});
  consumer.beginCellNodes(zonesWithNodes);
  consumer.endCellNodes();
  consumer.endCells();
  consumer.beginFaces({2});
  consumer.beginFaceCell0({2});
  consumer.writeFaceCell0(2, side0.data(), side0.size());
  consumer.endFaceCell0();
  consumer.beginFaceCell1({2});
  consumer.writeFaceCell1(2, side1.data(), side1.size());
  consumer.endFaceCell1();
  consumer.endFaces();
  consumer.endWriting(dataClassCase);
  EXPECT_EQ(consumer.getErrors(true, true), std::vector<std::string>());
  return consumer.takeCase()->arrays({1, target, -1}).cellFaces;
}

template <class Value>
std::vector<Value> valuesOf(const memory::Slice<Value>& slice) {
  return {slice.begin(), slice.end()};
}

TEST(CellFaces, AreAscendingIdsOfBothSides) {
  const auto faces = derived(targetPost, {2, 1, 1, 3}, {1, 2, 3, 0});
  EXPECT_EQ(faces.zones(), (std::vector<int>{3, 4}));
  EXPECT_EQ(valuesOf(faces.find(3)->counts), (Counts{3, 2}));
  EXPECT_EQ(valuesOf(faces.find(3)->ids), (Ids{1, 2, 3, 1, 2}));
  EXPECT_EQ(valuesOf(faces.find(4)->counts), (Counts{2}));
  EXPECT_EQ(valuesOf(faces.find(4)->ids), (Ids{3, 4}));
}

TEST(CellFaces, AreDerivedForPartitionsOfViewersToo) {
  EXPECT_EQ(derived(targetPartitionedPost, {2, 1, 1, 3}, {1, 2, 3, 0}).zones(),
            (std::vector<int>{3, 4}));
}

TEST(CellFaces, AreNotDerivedForAMeshToStartFrom) {
  EXPECT_EQ(derived(targetRestart, {2, 1, 1, 3}, {1, 2, 3, 0}).zones(), std::vector<int>());
}

TEST(CellFaces, AreNotDerivedForZonesWithNodes) {
  EXPECT_EQ(derived(targetPost, {2, 1, 1, 3}, {1, 2, 3, 0}, {3}).zones(), std::vector<int>{4});
  EXPECT_EQ(derived(targetPost, {2, 1, 1, 3}, {1, 2, 3, 0}, {3, 4}).zones(), std::vector<int>());
}

TEST(CellFaces, AreNotDerivedWhereNoCellIsKnown) {
  EXPECT_EQ(derived(targetPost, {}, {}).zones(), std::vector<int>());
}

TEST(CellFaces, PassOverIdsThatNoCellHas) {
  const auto faces = derived(targetPost, {0, 99, 1, ~std::uint64_t{0}}, {});
  EXPECT_EQ(valuesOf(faces.find(3)->counts), (Counts{1, 0}));
  EXPECT_EQ(valuesOf(faces.find(3)->ids), (Ids{3}));
  EXPECT_EQ(valuesOf(faces.find(4)->counts), (Counts{0}));
}

// Ranges come from tables that may say anything; what is taken goes with what was written.
TEST(CellFaces, TakeNoMemoryForCellsThatAreNotThere) {
  base::MeshTables mesh;
  mesh.sizes[meshCellCount] = std::uint64_t{1} << 60;
  mesh.zoneIds[zoneCategoryCell] = {3};
  mesh.zones[3].sizes[zoneFirstId] = 1;
  mesh.zones[3].sizes[zoneLastId] = std::uint64_t{1} << 60;
  mesh.zones[3].cellInfo[cellZoneCellType] = base::cellShapePolyhedron;
  base::CellFaceCollector collector(mesh, {});
  const Ids cells = {1, 2};
  collector.add(1, cells.data(), cells.size());
  memory::MeshDataSink sink;
  collector.write(sink);
  EXPECT_EQ(sink.data().cellFaces.zones(), std::vector<int>());
}

TEST(CellFaces, AreTooManyForACountOfOneCell) {
  base::MeshTables mesh;
  mesh.sizes[meshCellCount] = 1;
  mesh.zoneIds[zoneCategoryCell] = {3};
  mesh.zones[3].sizes[zoneFirstId] = 1;
  mesh.zones[3].sizes[zoneLastId] = 1;
  mesh.zones[3].cellInfo[cellZoneCellType] = base::cellShapePolyhedron;
  base::CellFaceCollector collector(mesh, {});
  const Ids cells(32768, 1);
  collector.add(1, cells.data(), cells.size());
  memory::MeshDataSink sink;
  std::string reason;
  try {
    collector.write(sink);
  } catch (const std::exception& error) {
    reason = error.what();
  }
  EXPECT_EQ(reason, "cell 1 has 32768 faces, more than a case can hold");
}

}  // namespace
}  // namespace velto::testing
