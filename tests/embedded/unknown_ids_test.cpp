// SPDX-License-Identifier: Apache-2.0
//
// A query for an unknown zone, key, mesh, phase or variable leaves its output alone.

#include <functional>
#include <gtest/gtest.h>
#include <list>

#include "embedded/memory/MemoryProvider.h"
#include "testing/cases.h"

namespace velto::testing {
namespace {

constexpr std::uint64_t kSize = 4711;
const char* const kText = "untouched";

/// One query, which tells whether its preloaded output is as it was.
struct Query {
  const char* name;
  std::function<bool(OrvFileProvider&)> untouched;
};

std::ostream& operator<<(std::ostream& out, const Query& query) { return out << query.name; }

std::function<bool(OrvFileProvider&)> sizeQuery(
    const std::function<void(OrvFileProvider&, std::uint64_t&)>& ask) {
  return [ask](OrvFileProvider& provider) {
    std::uint64_t value = kSize;
    ask(provider, value);
    return value == kSize;
  };
}

std::function<bool(OrvFileProvider&)> textQuery(
    const std::function<void(OrvFileProvider&, std::string&)>& ask) {
  return [ask](OrvFileProvider& provider) {
    std::string value = kText;
    ask(provider, value);
    return value == kText;
  };
}

std::function<bool(OrvFileProvider&)> intQuery(
    const std::function<void(OrvFileProvider&, int&)>& ask) {
  return [ask](OrvFileProvider& provider) {
    int value = -99;
    ask(provider, value);
    return value == -99;
  };
}

std::function<bool(OrvFileProvider&)> listQuery(
    const std::function<void(OrvFileProvider&, std::list<int>&)>& ask) {
  return [ask](OrvFileProvider& provider) {
    std::list<int> value = {98, 99};
    ask(provider, value);
    return value == std::list<int>({98, 99});
  };
}

constexpr int kNoZone = 77;

const std::vector<Query>& unknownZoneQueries() {
  static const std::vector<Query> kQueries = {
      {"ZoneSize",
       sizeQuery([](auto& p, auto& value) { p.getZoneSizeInfo(kNoZone, zoneFirstId, value); })},
      {"ZoneText",
       textQuery([](auto& p, auto& value) { p.getZoneStringInfo(kNoZone, zoneName, value); })},
      {"FaceZoneInfo",
       intQuery([](auto& p, auto& value) { p.getFaceZoneInfo(kNoZone, faceZoneType, value); })},
      {"CellZoneInfo",
       intQuery([](auto& p, auto& value) { p.getCellZoneInfo(kNoZone, cellZoneCellType, value); })},
      {"FaceZoneType",
       [](OrvFileProvider& p) {
         OrvFaceZoneType type = faceZoneType14;
         p.getFaceZoneType(kNoZone, type);
         return type == faceZoneType14;
       }},
      {"FaceZoneTypeOfACellZone",
       [](OrvFileProvider& p) {
         OrvFaceZoneType type = faceZoneTypeNone;
         p.getFaceZoneType(3, type);
         return type == faceZoneTypeNone;
       }},
      {"FaceZoneProperty",
       [](OrvFileProvider& p) { return !p.getFaceZoneProp(kNoZone, faceZonePeriodic); }},
      {"FaceZonesOfACellZone",
       listQuery([](auto& p, auto& value) { p.getCellFaceZoneIds(kNoZone, value); })},
      {"CellZonesOnSide0",
       listQuery([](auto& p, auto& value) { p.getFaceCellZone0Ids(kNoZone, value); })},
      {"CellZonesOnSide1",
       listQuery([](auto& p, auto& value) { p.getFaceCellZone1Ids(kNoZone, value); })},
  };
  return kQueries;
}

const std::vector<Query>& unknownKeyQueries() {
  static const std::vector<Query> kQueries = {
      {"MeshSize", sizeQuery([](auto& p, auto& value) {
         p.getMeshSize(static_cast<OrvMeshSizeType>(5), value);
       })},
      {"NegativeMeshSize", sizeQuery([](auto& p, auto& value) {
         p.getMeshSize(static_cast<OrvMeshSizeType>(-1), value);
       })},
      {"MeshSizeThatWasNeverSet",
       sizeQuery([](auto& p, auto& value) { p.getMeshSize(meshOtherCount, value); })},
      {"ZoneSize", sizeQuery([](auto& p, auto& value) {
         p.getZoneSizeInfo(2, static_cast<OrvZoneSizeType>(4), value);
       })},
      {"ZoneText", textQuery([](auto& p, auto& value) {
         p.getZoneStringInfo(2, static_cast<OrvZoneStringInfoType>(2), value);
       })},
      {"ZoneTextThatWasNeverSet",
       textQuery([](auto& p, auto& value) { p.getZoneStringInfo(1, zoneTypeName, value); })},
      {"FaceZoneInfo", intQuery([](auto& p, auto& value) {
         p.getFaceZoneInfo(2, static_cast<OrvFaceZoneInfoType>(6), value);
       })},
      {"FaceZoneInfoThatWasNeverSet",
       intQuery([](auto& p, auto& value) { p.getFaceZoneInfo(2, faceZoneShadow, value); })},
      {"CellZoneInfo", intQuery([](auto& p, auto& value) {
         p.getCellZoneInfo(3, static_cast<OrvCellZoneInfoType>(2), value);
       })},
      {"CellZoneInfoThatWasNeverSet",
       intQuery([](auto& p, auto& value) { p.getCellZoneInfo(3, cellZoneChild, value); })},
      {"FaceZoneProperty",
       [](OrvFileProvider& p) {
         return !p.getFaceZoneProp(2, static_cast<OrvFaceZonePropType>(99));
       }},
      {"PhaseName",
       textQuery([](auto& p, auto& value) { EXPECT_FALSE(p.getPhaseName(9, value)); })},
      {"PhaseDescription",
       textQuery([](auto& p, auto& value) { EXPECT_FALSE(p.getPhaseDescription(2, value)); })},
      {"VariableDescription",
       textQuery([](auto& p, auto& value) { EXPECT_FALSE(p.getVariableDescription(2, value)); })},
      {"VariableId",
       intQuery([](auto& p, auto& value) { EXPECT_FALSE(p.getVariableId("absent", value)); })},
      {"SettingsValue", textQuery([](auto& p, auto& value) {
         p.getSettingsValue(dataClassCase, "absent", value, OrvBase::_defaultSettingsPath);
       })},
      {"SettingsValueOfAnotherStore", textQuery([](auto& p, auto& value) {
         p.getSettingsValue(dataClassCase, "Time", value, "elsewhere");
       })},
      {"SettingsValueOfAnotherDataClass", textQuery([](auto& p, auto& value) {
         p.getSettingsValue(dataClassResults, "Time", value, OrvBase::_defaultSettingsPath);
       })},
  };
  return kQueries;
}

const std::vector<Query>& unknownMeshQueries() {
  static const std::vector<Query> kQueries = {
      {"MeshSize", sizeQuery([](auto& p, auto& value) { p.getMeshSize(meshNodeCount, value); })},
      {"MeshUnits", textQuery([](auto& p, auto& value) { p.getMeshUnits(value); })},
      {"ZoneSize",
       sizeQuery([](auto& p, auto& value) { p.getZoneSizeInfo(2, zoneElementCount, value); })},
      {"ZoneText",
       textQuery([](auto& p, auto& value) { p.getZoneStringInfo(2, zoneName, value); })},
      {"FaceZoneInfo",
       intQuery([](auto& p, auto& value) { p.getFaceZoneInfo(2, faceZoneType, value); })},
      {"CellZoneInfo",
       intQuery([](auto& p, auto& value) { p.getCellZoneInfo(3, cellZoneCellType, value); })},
      {"FaceZonesOfACellZone",
       listQuery([](auto& p, auto& value) { p.getCellFaceZoneIds(3, value); })},
      {"CellZonesOnSide0",
       listQuery([](auto& p, auto& value) { p.getFaceCellZone0Ids(2, value); })},
      {"CellZonesOnSide1",
       listQuery([](auto& p, auto& value) { p.getFaceCellZone1Ids(2, value); })},
  };
  return kQueries;
}

class QueryRows : public ::testing::TestWithParam<Query> {
 protected:
  QueryRows() {
    const cases::CasePtr source = cases::withResults();
    source->setSetting("Time", "now");
    provider_ = std::make_unique<memory::MemoryProvider>(source);
    provider_->startReading("", dataClassCase);
  }

  std::unique_ptr<memory::MemoryProvider> provider_;
};

class UnknownZone : public QueryRows {};
class UnknownKey : public QueryRows {};
class UnknownMesh : public QueryRows {};
class NothingOpen : public QueryRows {};

TEST_P(UnknownZone, LeavesTheOutputAlone) { EXPECT_TRUE(GetParam().untouched(*provider_)); }

TEST_P(UnknownKey, LeavesTheOutputAlone) { EXPECT_TRUE(GetParam().untouched(*provider_)); }

TEST_P(UnknownMesh, LeavesTheOutputAlone) {
  provider_->setPartitionId(5);
  EXPECT_TRUE(GetParam().untouched(*provider_));
}

TEST_P(NothingOpen, LeavesTheOutputAlone) {
  memory::MemoryProvider unopened(cases::oneHex());
  EXPECT_TRUE(GetParam().untouched(unopened));
}

std::string queryName(const ::testing::TestParamInfo<Query>& info) { return info.param.name; }

INSTANTIATE_TEST_SUITE_P(Query, UnknownZone, ::testing::ValuesIn(unknownZoneQueries()), queryName);
INSTANTIATE_TEST_SUITE_P(Query, UnknownKey, ::testing::ValuesIn(unknownKeyQueries()), queryName);
INSTANTIATE_TEST_SUITE_P(Query, UnknownMesh, ::testing::ValuesIn(unknownMeshQueries()), queryName);
INSTANTIATE_TEST_SUITE_P(Query, NothingOpen, ::testing::ValuesIn(unknownMeshQueries()), queryName);

TEST(KnownZone, WithoutRelationsReplacesTheListByNone) {
  memory::MemoryProvider provider(cases::postHex());
  provider.startReading("", dataClassCase);
  std::list<int> zones = {99};
  provider.getCellFaceZoneIds(3, zones);
  EXPECT_EQ(zones, std::list<int>());
}

TEST(UnknownKeyOfASetter, ChangesNothing) {
  const cases::CasePtr source = cases::oneHex();
  memory::MemoryProvider provider(source);
  provider.startReading("", dataClassCase);
  provider.setMeshSize(static_cast<OrvMeshSizeType>(5), 1);
  provider.setZoneSizeInfo(2, static_cast<OrvZoneSizeType>(-1), 1);
  std::uint64_t value = 0;
  provider.getMeshSize(meshCellCount, value);
  EXPECT_EQ(value, 1U);
  provider.getZoneSizeInfo(2, zoneElementCount, value);
  EXPECT_EQ(value, 6U);
}

}  // namespace
}  // namespace velto::testing
