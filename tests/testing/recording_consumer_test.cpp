// SPDX-License-Identifier: Apache-2.0
//
// RecordingConsumer: one line a call, and the state that setters give.

#include <gtest/gtest.h>

#include "data_access/OrvLocationModel.h"

#include "testing/RecordingConsumer.h"

namespace velto::testing {
namespace {

TEST(RecordingConsumer, RecordsSettersThatAreNotVirtual) {
  Transcript calls;
  RecordingConsumer consumer(&calls);
  const OrvLocationModel model;
  consumer.setApplicationName("copier");
  consumer.setMeshId(1);
  consumer.setTarget(targetPost);
  consumer.setPartitionId(3);
  consumer.setMeshUnits("mm");
  consumer.setZoneIds(zoneCategoryFace, {2, 3});
  consumer.setZoneIds(zoneCategoryCell, {});
  consumer.setZoneSizeInfo(2, zoneFirstId, 1);
  consumer.setZoneStringInfo(2, zoneName, "walls");
  consumer.setFaceZoneInfo(2, faceZoneType, 3);
  consumer.setCellZoneInfo(4, cellZoneCellType, -1);
  consumer.setLocationModel(&model);
  consumer.setLocationModel(nullptr);
  EXPECT_EQ(calls, Transcript({"setApplicationName(copier)", "setMeshId(1)", "setTarget(1)",
                               "setPartitionId(3)", "setMeshUnits(mm)", "setZoneIds(2, [2, 3])",
                               "setZoneIds(3, [])", "setZoneSizeInfo(2, 0, 1)",
                               "setZoneStringInfo(2, 0, walls)", "setFaceZoneInfo(2, 5, 3)",
                               "setCellZoneInfo(4, 0, -1)", "setLocationModel(model)",
                               "setLocationModel(null)"}));
}

TEST(RecordingConsumer, KeepsWhatSettersGave) {
  RecordingConsumer consumer(nullptr);
  consumer.setZoneIds(zoneCategoryFace, {2, 3});
  consumer.setZoneStringInfo(3, zoneName, "walls");
  std::string name;
  consumer.getZoneStringInfo(3, zoneName, name);
  EXPECT_EQ(name, "walls");
  EXPECT_EQ(consumer.getZoneCount(zoneCategoryFace), 2U);
  EXPECT_EQ(consumer.takeCase()->mesh().idsOf(zoneCategoryFace), std::vector<int>({2, 3}));
}

TEST(RecordingConsumer, WritesANullBufferWithItsLength) {
  Transcript calls;
  RecordingConsumer consumer(&calls);
  consumer.on("writeFaceCell0", [](base::CaseCore&) { throw std::runtime_error("disk gone"); });
  EXPECT_THROW(consumer.writeFaceCell0(2, nullptr, 6), std::runtime_error);
  EXPECT_EQ(calls, Transcript({"writeFaceCell0(2, null of 6)"}));
}

TEST(RecordingConsumer, RecordsItsDestruction) {
  Transcript calls;
  { const RecordingConsumer consumer(&calls, "consumer 2"); }
  EXPECT_EQ(calls, Transcript({"~consumer 2"}));
}

}  // namespace
}  // namespace velto::testing
