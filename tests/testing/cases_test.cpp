// SPDX-License-Identifier: Apache-2.0
//
// The named cases are sound: ranges without gaps, faces that look outwards, cells that close.

#include "testing/cases.h"

#include <algorithm>
#include <array>
#include <gtest/gtest.h>
#include <map>

namespace velto::testing {
namespace {

using base::Family;
using base::MeshKey;
using base::MeshTables;
using memory::MeshData;
using Point = std::array<double, 3>;

class NamedCases : public ::testing::TestWithParam<cases::NamedCase> {};

std::string caseName(const ::testing::TestParamInfo<cases::NamedCase>& info) {
  return info.param.name;
}

TEST_P(NamedCases, CoverTheirIdRanges) {
  const cases::CasePtr built = GetParam().make();
  const std::vector<std::pair<OrvZoneCategory, OrvMeshSizeType>> kinds = {
      {zoneCategoryNode, meshNodeCount},
      {zoneCategoryFace, meshFaceCount},
      {zoneCategoryCell, meshCellCount}};
  for (const auto& mesh : built->tables.meshes) {
    for (const auto& kind : kinds) {
      std::uint64_t before = 0;
      for (const int zone : mesh.second.idsOf(kind.first)) {
        EXPECT_EQ(mesh.second.zoneSize(zone, zoneFirstId), before + 1);
        before = mesh.second.zoneSize(zone, zoneLastId);
      }
      EXPECT_EQ(mesh.second.size(kind.second), before);
      EXPECT_GT(before, 0U);
    }
  }
}

/// Node coordinates by id; a plane mesh lies in z = 0.
std::vector<Point> pointsOf(const MeshTables& tables, const MeshData& data) {
  const std::uint64_t dimension = tables.size(meshDimension);
  std::vector<Point> points;
  for (const int zone : data.nodeCoordinates.zones()) {
    const auto& values = *data.nodeCoordinates.find(zone);
    for (std::size_t i = 0; i + dimension <= values.size(); i += dimension) {
      Point point{};
      for (std::size_t k = 0; k < dimension; ++k) {
        point.at(k) = values.data()[i + k];
      }
      points.push_back(point);
    }
  }
  return points;
}

/// Twice the area vector of a face, or the right-hand normal of a line in the plane.
Point normalOf(const std::vector<Point>& corners) {
  if (corners.size() == 2) {
    return {2 * (corners[1][1] - corners[0][1]), 2 * (corners[0][0] - corners[1][0]), 0};
  }
  Point normal{};
  for (std::size_t i = 0; i < corners.size(); ++i) {
    const Point& a = corners[i];
    const Point& b = corners[(i + 1) % corners.size()];
    for (std::size_t k = 0; k < 3; ++k) {
      normal.at(k) += a.at((k + 1) % 3) * b.at((k + 2) % 3) - a.at((k + 2) % 3) * b.at((k + 1) % 3);
    }
  }
  return normal;
}

/// What the faces say of a cell: the sum of their outward normals, and the volume times six (or the
/// area times four), which is positive where they look outwards.
struct Closure {
  Point sum{};
  double volume = 0;
};

void addFace(Closure& cell, const std::vector<Point>& corners, double sign) {
  const Point normal = normalOf(corners);
  for (std::size_t k = 0; k < 3; ++k) {
    cell.sum.at(k) += sign * normal.at(k);
    cell.volume += sign * normal.at(k) * corners[0].at(k);
  }
}

std::map<std::uint64_t, Closure> closuresOf(const MeshTables& tables, const MeshData& data) {
  const std::vector<Point> points = pointsOf(tables, data);
  std::map<std::uint64_t, Closure> cells;
  for (const int zone : data.faceNodes.zones()) {
    const auto& faces = *data.faceNodes.find(zone);
    const auto* cell0 = data.faceCell0.find(zone);
    const auto* cell1 = data.faceCell1.find(zone);
    const auto size = static_cast<std::size_t>(faces.uniform.value_or(0));
    for (std::size_t face = 0; cell0 != nullptr && face < cell0->size(); ++face) {
      std::vector<Point> corners;
      for (std::size_t i = 0; i < size; ++i) {
        corners.push_back(points.at(faces.ids.data()[face * size + i] - 1));
      }
      addFace(cells[cell0->data()[face]], corners, 1);
      if (cell1 != nullptr) {
        addFace(cells[cell1->data()[face]], corners, -1);
      }
    }
  }
  return cells;
}

TEST_P(NamedCases, HaveClosedCellsWithFacesThatLookOutwards) {
  const cases::CasePtr built = GetParam().make();
  for (const auto& mesh : built->tables.meshes) {
    if (mesh.first.target != targetRestart) {
      continue;
    }
    const auto cells = closuresOf(mesh.second, built->data.at(mesh.first));
    EXPECT_EQ(cells.size(), mesh.second.size(meshCellCount));
    for (const auto& cell : cells) {
      EXPECT_EQ(cell.second.sum, (Point{0, 0, 0})) << "cell " << cell.first;
      EXPECT_GT(cell.second.volume, 0) << "cell " << cell.first;
    }
  }
}

TEST_P(NamedCases, RelateZonesOnRestartTargetsOnly) {
  const cases::CasePtr built = GetParam().make();
  for (const auto& mesh : built->tables.meshes) {
    const bool restart = mesh.first.target == targetRestart;
    for (const int zone : mesh.second.idsOf(zoneCategoryCell)) {
      EXPECT_EQ(!mesh.second.zones.at(zone).boundingFaceZones.empty(), restart);
    }
    for (const int zone : mesh.second.idsOf(zoneCategoryFace)) {
      EXPECT_EQ(!mesh.second.zones.at(zone).sideCellZones[0].empty(), restart);
    }
    EXPECT_EQ(!built->data.at(mesh.first).faceCell0.zones().empty(), restart);
  }
}

INSTANTIATE_TEST_SUITE_P(Sound, NamedCases, ::testing::ValuesIn(cases::all()), caseName);

TEST(Cases, AreEachOfTheirOwn) {
  const cases::CasePtr damaged = cases::oneHex();
  damaged->mesh().sizes[meshNodeCount] = 0;
  EXPECT_EQ(cases::oneHex()->mesh().size(meshNodeCount), 8U);
}

std::vector<int> sorted(std::vector<int> ids) {
  std::sort(ids.begin(), ids.end());
  return ids;
}

TEST(Cases, TwoBodiesShareOneZoneBetweenThem) {
  const cases::CasePtr built = cases::twoBodies();
  EXPECT_EQ(built->zone(2).sideCellZones[0], std::vector<int>({5}));
  EXPECT_EQ(built->zone(2).sideCellZones[1], std::vector<int>({6}));
  EXPECT_EQ(sorted(built->zone(5).boundingFaceZones), std::vector<int>({2, 3}));
  EXPECT_EQ(sorted(built->zone(6).boundingFaceZones), std::vector<int>({2, 4}));
}

TEST(Cases, PeriodicPairIsLinkedBothWays) {
  const cases::CasePtr built = cases::periodicPair();
  EXPECT_EQ(built->zone(2).faceInfo[faceZoneType], 12);
  EXPECT_EQ(built->zone(3).faceInfo[faceZoneType], 8);
  EXPECT_EQ(built->zone(2).faceInfo[faceZoneShadow], 3);
  EXPECT_EQ(built->zone(3).faceInfo[faceZoneShadow], 2);
}

TEST(Cases, WithPartitionsHoldsTwoPartitionsAndNothingElse) {
  const cases::CasePtr built = cases::withPartitions();
  std::vector<MeshKey> keys;
  for (const auto& mesh : built->tables.meshes) {
    keys.push_back(mesh.first);
  }
  EXPECT_EQ(keys,
            std::vector<MeshKey>({{1, targetPartitionedPost, 0}, {1, targetPartitionedPost, 1}}));
}

}  // namespace
}  // namespace velto::testing
