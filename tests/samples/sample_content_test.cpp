// SPDX-License-Identifier: Apache-2.0
//
// What is special about single samples: sizes, zones, links, names, field data.

#include <algorithm>
#include <gtest/gtest.h>
#include <set>

#include "embedded/memory/load_case.h"
#include "samples/samples.h"
#include "samples/save_sample.h"
#include "tests/samples/MeshView.h"

namespace velto::testing {
namespace {

using base::Family;
using base::MeshTables;
using samples::findSample;
using samples::Sample;

const MeshTables& onlyMesh(const Sample& sample) { return sample.tables.meshes.begin()->second; }

std::vector<std::string> names(const MeshTables& mesh, OrvZoneCategory category) {
  std::vector<std::string> names;
  for (const int zone : mesh.idsOf(category)) {
    names.push_back(mesh.zones.at(zone).texts[zoneName].value_or("?"));
  }
  return names;
}

using Names = std::vector<std::string>;

TEST(SampleList, HasNoNameTwiceAndKnowsNoOther) {
  std::set<std::string> known;
  for (const samples::SampleInfo& info : samples::samples()) {
    EXPECT_TRUE(known.insert(info.name).second) << info.name;
    EXPECT_EQ(findSample(info.name), &info);
  }
  EXPECT_EQ(findSample("tetrahedra"), nullptr);
}

/// All but those that need more cells than they are asked for come within a tenth.
TEST(SampleList, ComesNearToTheCellsThatAreAskedFor) {
  for (const samples::SampleInfo& info : samples::samples()) {
    for (const std::uint64_t cells : {8000U, 123456U, 100000000U}) {
      const auto made = static_cast<double>(samples::cellCount(info.make(cells).tables));
      EXPECT_NEAR(made / static_cast<double>(cells), 1, 0.03) << info.name << " of " << cells;
    }
  }
}

TEST(SampleList, SaysWhichSamplesHaveResults) {
  for (const samples::SampleInfo& info : samples::samples()) {
    EXPECT_EQ(info.hasResults, !info.make(1).tables.phases.empty()) << info.name;
  }
}

TEST(SampleFiles, HaveTheEndingOfACaseAndResultsBesideThem) {
  EXPECT_TRUE(samples::isCaseFile("box.orv"));
  EXPECT_TRUE(samples::isCaseFile("out.1/box.v2.orv"));
  for (const char* name : {"box", "box.orvr", "box.orv.txt", ".orv", "out.orv/box", ""}) {
    EXPECT_FALSE(samples::isCaseFile(name)) << name;
  }
  EXPECT_EQ(filesOf(findSample("box")->make(1), "a/b.orv"), Names({"a/b.orv"}));
  EXPECT_EQ(filesOf(findSample("results")->make(1), "a/b.orv"), Names({"a/b.orv", "a/b.orvr"}));
}

TEST(Box, HasSixNamedPatchesAroundItsInterior) {
  const Sample box = findSample("box")->make(8000);
  const MeshTables& mesh = onlyMesh(box);
  EXPECT_EQ(names(mesh, zoneCategoryFace),
            Names({"interior", "inlet", "outlet", "bottom", "top", "front", "back"}));
  EXPECT_EQ(mesh.size(meshCellCount), 8000U);
  EXPECT_EQ(mesh.size(meshNodeCount), 9261U);
  EXPECT_EQ(mesh.size(meshFaceCount), 25200U);
  EXPECT_EQ(mesh.units, "m");
  EXPECT_EQ(box.tables.solverType, "VELTO_GENERIC");
}

/// Nothing is read but two small zones of a mesh that would fill tens of gigabytes.
TEST(Box, OfAHundredMillionCellsCostsNothingUntilItIsRead) {
  const Sample box = findSample("box")->make(100000000);
  const MeshTables& mesh = onlyMesh(box);
  EXPECT_EQ(mesh.size(meshCellCount), 464U * 464 * 464);
  EXPECT_EQ(mesh.size(meshFaceCount), 3U * 465 * 464 * 464);
  base::MeshArrays& arrays = *box.arrays.begin()->second;
  Ids nodes(4UL * 464 * 464);
  Ids cells(464UL * 464);
  const int outlet = mesh.idsOf(zoneCategoryFace)[2];
  ASSERT_EQ(arrays.readIds(Family::faceNodes, outlet, nodes.data(), nodes.size()), nodes.size());
  ASSERT_EQ(arrays.readIds(Family::faceCell0, outlet, cells.data(), cells.size()), cells.size());
  EXPECT_EQ(*std::max_element(nodes.begin(), nodes.end()), 465U * 465 * 465);
  EXPECT_EQ(cells.front(), 463U * 464 * 464 + 1);
  EXPECT_EQ(cells.back(), 464U * 464 * 464);
}

/// Three layers of four rows, of which two have half bricks at their ends.
TEST(Polyhedra, HaveUpToEightFaces) {
  const Sample sample = findSample("polyhedra")->make(60);
  const auto loaded = memory::loadCase(sample.tables, sample.arrays);
  const MeshView view(onlyMesh(sample), loaded->data.begin()->second);
  std::multiset<std::size_t> faces;
  for (const Ids& cell : view.listedFaces) {
    faces.insert(cell.size());
  }
  EXPECT_EQ(faces.size(), 54U);
  EXPECT_EQ(faces.count(6), 12U) << "half bricks";
  EXPECT_EQ(faces.count(8), 42U) << "whole bricks";
}

TEST(TwoBodies, MeetInOneZoneAndHaveAScreenInTheFluid) {
  const Sample sample = findSample("two-bodies")->make(27);
  MeshTables mesh = onlyMesh(sample);
  EXPECT_EQ(names(mesh, zoneCategoryCell), Names({"fluid", "solid"}));
  const int fluid = mesh.idsOf(zoneCategoryCell)[0];
  const int solid = mesh.idsOf(zoneCategoryCell)[1];
  for (const auto& zone : mesh.zones) {
    const base::ZoneRecord& record = zone.second;
    if (record.texts[zoneName] == "between") {
      EXPECT_EQ(record.faceInfo[faceZoneType], faceZoneType14);
      EXPECT_EQ(record.sideCellZones[0], std::vector<int>({fluid}));
      EXPECT_EQ(record.sideCellZones[1], std::vector<int>({solid}));
    } else if (record.texts[zoneName] == "screen") {
      EXPECT_EQ(record.faceInfo[faceZoneType], faceZoneTypeInterior);
      EXPECT_EQ(record.sideCellZones[0], std::vector<int>({fluid}));
      EXPECT_EQ(record.sideCellZones[1], std::vector<int>({fluid}));
    }
  }
  const Names all = names(mesh, zoneCategoryFace);
  EXPECT_EQ(std::count(all.begin(), all.end(), "between"), 1);
  EXPECT_EQ(std::count(all.begin(), all.end(), "screen"), 1);
}

/// From the faces of the zone of type `first` to their shadows.
Point shadowShift(const char* name, int first, int second) {
  const Sample sample = findSample(name)->make(60);
  const auto loaded = memory::loadCase(sample.tables, sample.arrays);
  const MeshTables& mesh = loaded->tables.meshes.begin()->second;
  const memory::MeshData& data = loaded->data.begin()->second;
  const MeshView view(mesh, data);
  EXPECT_EQ(data.faceShadows.zones().size(), 2U);
  const int zone = data.faceShadows.zones().front();
  const int shadow = data.faceShadows.zones().back();
  EXPECT_EQ(mesh.zones.at(zone).faceInfo[faceZoneType], first);
  EXPECT_EQ(mesh.zones.at(shadow).faceInfo[faceZoneType], second);
  EXPECT_EQ(mesh.zones.at(zone).faceInfo[faceZoneShadow], shadow);
  EXPECT_EQ(mesh.zones.at(shadow).faceInfo[faceZoneShadow], zone);
  std::set<Point> shifts;
  const std::uint64_t firstFace = mesh.zoneSize(zone, zoneFirstId);
  const std::uint64_t firstShadow = mesh.zoneSize(shadow, zoneFirstId);
  for (std::uint64_t i = 0; i < mesh.zoneSize(zone, zoneElementCount); ++i) {
    const std::uint64_t partner = data.faceShadows.find(zone)->data()[i];
    EXPECT_EQ(data.faceShadows.find(shadow)->data()[partner - firstShadow], firstFace + i);
    const Point opposite = view.normalOf(firstFace + i - 1) + view.normalOf(partner - 1);
    EXPECT_EQ(opposite, Point({0, 0, 0})) << "the two look in opposite directions";
    shifts.insert(view.centreOf(view.faces[partner - 1]) -
                  view.centreOf(view.faces[firstFace + i - 1]));
  }
  EXPECT_EQ(shifts.size(), 1U);
  return *shifts.begin();
}

TEST(Periodic, PairsFacesAcrossTheBox) {
  EXPECT_EQ(shadowShift("periodic", faceZoneType12, faceZoneType8), Point({1, 0, 0}));
}

TEST(Shadow, PairsFacesInTheSamePlace) {
  EXPECT_EQ(shadowShift("shadow", faceZoneType3, faceZoneType8), Point({0, 0, 0}));
}

TEST(Partitions, LieSideBySideAndNameThemselves) {
  const Sample sample = findSample("partitions")->make(64);
  const auto loaded = memory::loadCase(sample.tables, sample.arrays);
  ASSERT_EQ(loaded->data.size(), 4U);
  double left = 0;
  for (const auto& mesh : loaded->data) {
    EXPECT_EQ(mesh.first.target, targetPartitionedPost);
    const MeshView view(loaded->tables.meshes.at(mesh.first), mesh.second);
    EXPECT_EQ(view.points.front()[0], left);
    left += 0.25;
    EXPECT_EQ(view.points.back()[0], left);
    const auto& partitions = mesh.second.cellPartitions;
    const memory::CellPartitionData& held = *partitions.find(partitions.zones().at(0));
    EXPECT_EQ(held.info, 4);
    EXPECT_EQ(std::vector<int>(held.partitions.begin(), held.partitions.end()),
              std::vector<int>(16, mesh.first.partition));
  }
}

// --- Field data ---------------------------------------------------------------------------------

class Results : public ::testing::Test {
 protected:
  const memory::VariableData& variable(short phase, OrvZoneCategory category,
                                       const std::string& name) {
    return *data.findVariable({phase, category, name});
  }

  std::shared_ptr<memory::Case> loaded = [] {
    const Sample sample = findSample("results")->make(64);
    return memory::loadCase(sample.tables, sample.arrays);
  }();
  const MeshTables& mesh = loaded->mesh();
  const memory::MeshData& data = loaded->arrays();
  MeshView view{mesh, data};
};

TEST_F(Results, DescribePhasesAndVariables) {
  ASSERT_EQ(loaded->tables.phases.size(), 2U);
  EXPECT_EQ(loaded->tables.phases[0].name, "water");
  EXPECT_EQ(loaded->tables.phases[1].name, "air");
  for (const base::Phase& phase : loaded->tables.phases) {
    EXPECT_TRUE(phase.description);
    EXPECT_NE(base::findAttribute(phase.attributes, "density"), nullptr);
  }
  for (const auto& list : data.variables) {
    for (const auto& one : list.second) {
      const base::Variable* known = loaded->tables.findVariable(one.first);
      ASSERT_NE(known, nullptr) << one.first;
      EXPECT_TRUE(known->description);
      EXPECT_NE(base::findAttribute(known->attributes, "units"), nullptr);
    }
  }
}

TEST_F(Results, HaveAVectorAtEachNode) {
  const memory::VariableData& velocity = variable(1, zoneCategoryNode, "velocity");
  EXPECT_EQ(velocity.valuesPerEntity, 3U);
  const auto& values = *velocity.zones.find(1);
  ASSERT_EQ(values.size(), 3 * view.points.size());
  for (std::size_t i = 0; i < view.points.size(); ++i) {
    EXPECT_DOUBLE_EQ(values.data()[3 * i], 1.5 * view.points[i][1]);
    EXPECT_EQ(values.data()[3 * i + 1], 0);
  }
}

TEST_F(Results, HaveSharesOfVolumeThatAddUpInEachCell) {
  const auto& water = variable(1, zoneCategoryCell, "fraction").zones;
  const auto& air = variable(2, zoneCategoryCell, "fraction").zones;
  const int zone = mesh.idsOf(zoneCategoryCell).front();
  ASSERT_EQ(water.zones(), std::vector<int>({zone}));
  ASSERT_EQ(water.find(zone)->size(), 64U);
  for (std::size_t cell = 0; cell < 64; ++cell) {
    EXPECT_DOUBLE_EQ(water.find(zone)->data()[cell] + air.find(zone)->data()[cell], 1);
    EXPECT_DOUBLE_EQ(air.find(zone)->data()[cell], 0.5 * view.centreOfCell(cell)[1]);
  }
}

TEST_F(Results, HaveValuesAtTheCentresOfBoundaryFaces) {
  const auto& zones = variable(1, zoneCategoryFace, "wall shear stress").zones;
  EXPECT_EQ(zones.zones(), std::vector<int>({3, 4, 5, 6, 7, 8}));
  for (const int zone : zones.zones()) {
    const std::uint64_t first = mesh.zoneSize(zone, zoneFirstId);
    ASSERT_EQ(zones.find(zone)->size(), mesh.zoneSize(zone, zoneElementCount));
    for (std::size_t i = 0; i < zones.find(zone)->size(); ++i) {
      const Point centre = view.centreOf(view.faces[first - 1 + i]);
      EXPECT_DOUBLE_EQ(zones.find(zone)->data()[i], 0.25 - 0.125 * centre[0]);
    }
  }
}

}  // namespace
}  // namespace velto::testing
