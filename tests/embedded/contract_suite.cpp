// SPDX-License-Identifier: Apache-2.0
//
// The contract's read side: what the file holds, sizes, zone tables, settings.

#include "tests/embedded/contract_suite.h"

#include <algorithm>
#include <list>
#include <map>

#include "data_access/OrvLocationModel.h"

#include "embedded/base/OrvLocationModelState.h"

namespace velto::testing {

using base::MeshKey;
using base::MeshTables;
using base::ZoneRecord;
using memory::MeshData;

// --- The suite itself ---------------------------------------------------------------------------

std::vector<ContractParameter> contractTests(const ContractSubject& subject) {
  std::vector<ContractParameter> parameters;
  for (const cases::NamedCase& served : cases::all()) {
    if (subject.deviations.withoutCases.count(served.name) == 0) {
      parameters.push_back({subject, served});
    }
  }
  return parameters;
}

Deviations ofACopy() {
  Deviations deviations;
  deviations.withoutCellFaces = true;
  deviations.withoutShadowFaces = true;
  deviations.withoutFaceTree = true;
  return deviations;
}

std::string contractTestName(const ::testing::TestParamInfo<ContractParameter>& info) {
  return info.param.served.name;
}

std::ostream& operator<<(std::ostream& out, const ContractParameter& parameter) {
  return out << parameter.subject.name << " with " << parameter.served.name;
}

ProviderContract::ProviderContract() : source(GetParam().served.make()) {}

OrvFileProvider& ProviderContract::provider() {
  if (!provider_) {
    provider_ = GetParam().subject.make(source);
  }
  return *provider_;
}

void ProviderContract::forEachMesh(const Meshes& test) {
  for (const auto& mesh : source->tables.meshes) {
    provider().setMeshId(mesh.first.mesh);
    provider().setTarget(mesh.first.target);
    provider().setPartitionId(mesh.first.partition);
    test(mesh.second, carried(source->data.at(mesh.first)));
  }
}

MeshData ProviderContract::carried(const MeshData& data) const {
  MeshData left = data;
  if (deviations().withoutCellFaces) {
    left.cellFaces = {};
  }
  if (deviations().withoutShadowFaces) {
    left.faceShadows = {};
  }
  if (deviations().withoutFaceTree) {
    left.treeParentZones.clear();
    left.treeChildZones.clear();
  }
  if (deviations().withoutCellPartitions) {
    left.cellPartitions = {};
  }
  if (deviations().withoutResults) {
    left.variables.clear();
  }
  return left;
}

void ProviderContract::selectUnknownMesh() { provider().setMeshId(99); }

void ProviderContract::expectNoMessages() {
  EXPECT_EQ(provider().getWarnings(true, true), std::vector<std::string>());
  EXPECT_EQ(provider().getErrors(true, true), std::vector<std::string>());
}

namespace {

template <class Value>
std::vector<Value> sorted(std::vector<Value> values) {
  std::sort(values.begin(), values.end());
  return values;
}

std::vector<int> sortedList(const std::list<int>& values) {
  return sorted(std::vector<int>(values.begin(), values.end()));
}

constexpr std::uint64_t kUntouched = 4711;

// --- What the file holds ------------------------------------------------------------------------

TEST_P(ProviderContract, OpensWithoutMessages) {
  provider();
  expectNoMessages();
}

TEST_P(ProviderContract, TellsSolverTypeAndVersion) {
  EXPECT_EQ(provider().getSolverType(), source->tables.solverType);
  int major = 0;
  int minor = -1;
  int patch = -1;
  provider().getFileVersion(dataClassCase, major, minor, patch);
  EXPECT_EQ(major, source->tables.version->major);
  EXPECT_EQ(minor, source->tables.version->minor);
  EXPECT_EQ(patch, source->tables.version->patch);
}

TEST_P(ProviderContract, ListsMeshesTargetsAndPartitions) {
  std::map<int, std::set<int>> targets;
  std::map<int, std::set<int>> partitions;
  std::vector<int> meshes;
  for (const auto& mesh : source->tables.meshes) {
    targets[mesh.first.mesh].insert(mesh.first.target);
    if (mesh.first.partition != -1) {
      partitions[mesh.first.mesh].insert(mesh.first.partition);
    }
  }
  for (const auto& mesh : targets) {
    meshes.push_back(mesh.first);
    std::vector<int> list = {99};
    provider().getTargets(list, mesh.first, dataClassCase);
    EXPECT_EQ(sorted(list), std::vector<int>(mesh.second.begin(), mesh.second.end()));
    list = {99};
    provider().getPartitionIds(list, mesh.first, dataClassCase);
    EXPECT_EQ(list, std::vector<int>(partitions[mesh.first].begin(), partitions[mesh.first].end()));
  }
  std::vector<int> ids = {99};
  provider().getMeshIds(ids, dataClassCase);
  EXPECT_EQ(sorted(ids), meshes);
  for (const OrvTargetCategory target : {targetRestart, targetPost, targetPartitionedPost}) {
    const bool held =
        std::any_of(source->tables.meshes.begin(), source->tables.meshes.end(),
                    [target](const auto& mesh) { return mesh.first.target == target; });
    EXPECT_EQ(provider().hasTarget(target), held) << target;
  }
}

TEST_P(ProviderContract, ListsNoTargetsAndPartitionsOfAnUnknownMesh) {
  std::vector<int> list = {99};
  provider().getTargets(list, 99, dataClassCase);
  EXPECT_EQ(list, std::vector<int>());
  list = {99};
  provider().getPartitionIds(list, 99, dataClassCase);
  EXPECT_EQ(list, std::vector<int>());
}

// --- Sizes and zone tables ----------------------------------------------------------------------

TEST_P(ProviderContract, AnswersMeshSizesAndUnits) {
  forEachMesh([this](const MeshTables& mesh, const MeshData&) {
    for (const OrvMeshSizeType key : {meshDimension, meshNodeCount, meshFaceCount, meshCellCount}) {
      std::uint64_t value = kUntouched;
      provider().getMeshSize(key, value);
      EXPECT_EQ(value, mesh.sizes.at(static_cast<std::size_t>(key)).value_or(kUntouched)) << key;
    }
    std::string units = "untouched";
    provider().getMeshUnits(units);
    EXPECT_EQ(units, mesh.units.value_or("untouched"));
  });
}

TEST_P(ProviderContract, ListsZonesInTheirOrder) {
  forEachMesh([this](const MeshTables& mesh, const MeshData&) {
    for (const OrvZoneCategory category : {zoneCategoryNode, zoneCategoryFace, zoneCategoryCell}) {
      std::vector<int> ids = {99};
      provider().getZoneIds(category, ids);
      EXPECT_EQ(ids, mesh.idsOf(category));
      EXPECT_EQ(provider().getZoneCount(category), mesh.idsOf(category).size());
    }
  });
}

void expectZone(const OrvFileProvider& provider, int id, const ZoneRecord& zone) {
  for (std::size_t key = 0; key < zone.sizes.size(); ++key) {
    std::uint64_t value = kUntouched;
    provider.getZoneSizeInfo(id, static_cast<OrvZoneSizeType>(key), value);
    EXPECT_EQ(value, zone.sizes[key].value_or(kUntouched)) << "zone " << id << " key " << key;
  }
  for (std::size_t key = 0; key < zone.texts.size(); ++key) {
    std::string value = "untouched";
    provider.getZoneStringInfo(id, static_cast<OrvZoneStringInfoType>(key), value);
    EXPECT_EQ(value, zone.texts[key].value_or("untouched")) << "zone " << id << " key " << key;
  }
  for (std::size_t key = 0; key < zone.faceInfo.size(); ++key) {
    int value = -99;
    provider.getFaceZoneInfo(id, static_cast<OrvFaceZoneInfoType>(key), value);
    EXPECT_EQ(value, zone.faceInfo[key].value_or(-99)) << "zone " << id << " key " << key;
  }
  for (std::size_t key = 0; key < zone.cellInfo.size(); ++key) {
    int value = -99;
    provider.getCellZoneInfo(id, static_cast<OrvCellZoneInfoType>(key), value);
    EXPECT_EQ(value, zone.cellInfo[key].value_or(-99)) << "zone " << id << " key " << key;
  }
  OrvFaceZoneType type = faceZoneTypeNone;
  provider.getFaceZoneType(id, type);
  EXPECT_EQ(type, zone.faceInfo[faceZoneType].value_or(-1)) << "zone " << id;
  EXPECT_FALSE(provider.getFaceZoneProp(id, faceZonePeriodic)) << "zone " << id;
}

TEST_P(ProviderContract, AnswersZoneTables) {
  forEachMesh([this](const MeshTables& mesh, const MeshData&) {
    for (const OrvZoneCategory category : {zoneCategoryNode, zoneCategoryFace, zoneCategoryCell}) {
      for (const int id : mesh.idsOf(category)) {
        expectZone(provider(), id, mesh.zones.at(id));
      }
    }
  });
}

TEST_P(ProviderContract, TellsWhichZonesBoundWhich) {
  forEachMesh([this](const MeshTables& mesh, const MeshData&) {
    for (const int id : mesh.idsOf(zoneCategoryCell)) {
      std::list<int> zones = {99};
      provider().getCellFaceZoneIds(id, zones);
      EXPECT_EQ(sortedList(zones), sorted(mesh.zones.at(id).boundingFaceZones)) << id;
    }
    for (const int id : mesh.idsOf(zoneCategoryFace)) {
      std::list<int> zones = {99};
      provider().getFaceCellZone0Ids(id, zones);
      EXPECT_EQ(sortedList(zones), sorted(mesh.zones.at(id).sideCellZones[0])) << id;
      zones = {99};
      provider().getFaceCellZone1Ids(id, zones);
      EXPECT_EQ(sortedList(zones), sorted(mesh.zones.at(id).sideCellZones[1])) << id;
    }
  });
}

TEST_P(ProviderContract, LeavesOutputsAloneForAnUnknownMesh) {
  selectUnknownMesh();
  std::uint64_t size = kUntouched;
  std::string text = "untouched";
  int info = -99;
  std::vector<int> ids = {99};
  std::list<int> zones = {99};
  provider().getMeshSize(meshNodeCount, size);
  provider().getZoneSizeInfo(2, zoneElementCount, size);
  provider().getMeshUnits(text);
  provider().getZoneStringInfo(2, zoneName, text);
  provider().getFaceZoneInfo(2, faceZoneShadow, info);
  provider().getCellZoneInfo(3, cellZoneChild, info);
  provider().getCellFaceZoneIds(3, zones);
  EXPECT_EQ(size, kUntouched);
  EXPECT_EQ(text, "untouched");
  EXPECT_EQ(info, -99);
  EXPECT_EQ(zones, std::list<int>({99}));
  EXPECT_EQ(provider().getZoneCount(zoneCategoryFace), 0U);
  provider().getZoneIds(zoneCategoryFace, ids);
  EXPECT_EQ(ids, std::vector<int>());
}

// --- Settings, location model, messages ---------------------------------------------------------

TEST_P(ProviderContract, AnswersSettings) {
  if (deviations().withoutSettings) {
    GTEST_SKIP() << "settings are not carried";
  }
  const std::string below = source->tables.solverType + "/domains/air/location";
  source->tables.settings.clear();
  source->setSetting(below, "fluid, solid");
  source->setSetting("Time", "now");
  std::vector<std::string> keys = {"old"};
  provider().getSettingsKeys(dataClassCase, keys);
  EXPECT_EQ(keys, std::vector<std::string>({below, "Time"}));
  std::string value = "untouched";
  provider().getSettingsValue(dataClassCase, "Time", value, OrvBase::_defaultSettingsPath);
  EXPECT_EQ(value, "now");
  provider().getSettingsValue(dataClassCase, "Place", value, OrvBase::_defaultSettingsPath);
  EXPECT_EQ(value, "now");
  EXPECT_EQ(provider().getSettings(dataClassCase, "domains/air/location", 1).asStringVector(),
            std::vector<std::string>({"fluid", "solid"}));
  EXPECT_FALSE(provider().getSettings(dataClassCase, "domains/air/location", 0).isValid());
}

TEST_P(ProviderContract, HandsOutTheLocationModel) {
  if (deviations().withoutLocationModel) {
    GTEST_SKIP() << "location models are not carried";
  }
  OrvLocationModel model;
  int part = 0;
  int body = 0;
  model.createPart(3, "part", part);
  ASSERT_TRUE(model.createBody(part, "fluid", body));
  ASSERT_TRUE(model.setBodyZones(body, 1, {3}));
  source->tables.locationModel = OrvLocationModel::State::copy(model);
  const OrvLocationModel* handed = provider().getLocationModel();
  ASSERT_NE(handed, nullptr);
  std::vector<int> parts;
  handed->getParts(parts);
  ASSERT_EQ(parts.size(), 1U);
  int found = 0;
  ASSERT_TRUE(handed->findBody(parts[0], "fluid", found));
  std::vector<int> zones;
  EXPECT_TRUE(handed->getBodyZones(found, 1, zones));
  EXPECT_EQ(zones, std::vector<int>({3}));
}

TEST_P(ProviderContract, HandsOutAMessageOnce) {
  base::coreOf(provider()).messages.addWarning("slow disk");
  EXPECT_TRUE(provider().hasWarning());
  EXPECT_EQ(provider().getWarnings(true, true),
            std::vector<std::string>({"Warning:\n\tslow disk"}));
  EXPECT_FALSE(provider().hasWarning());
  EXPECT_EQ(provider().getWarnings(true, true), std::vector<std::string>());
}

}  // namespace
}  // namespace velto::testing
