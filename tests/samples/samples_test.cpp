// SPDX-License-Identifier: Apache-2.0
//
// Every sample, in several sizes, is a sound mesh: by the checker, and by what geometry demands.

#include "samples/samples.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <map>
#include <set>

#include "embedded/base/shapes.h"
#include "embedded/base/zone_relations.h"
#include "embedded/memory/load_case.h"
#include "samples/SampleProvider.h"
#include "tests/samples/MeshView.h"
#include "tests/samples/run_checker.h"

namespace velto::testing {
namespace {

using samples::findSample;
using samples::Sample;

/// A sample and about how many cells it is made with.
using Request = std::tuple<std::string, std::uint64_t>;

class Samples : public ::testing::TestWithParam<Request> {
 protected:
  Samples() : sample(findSample(std::get<0>(GetParam()))->make(std::get<1>(GetParam()))) {}

  /// Calls `look` with the tables, the arrays and the view of each mesh.
  template <class Look>
  void forEachMesh(Look look) {
    const auto loaded = memory::loadCase(sample.tables, sample.arrays);
    for (const auto& mesh : loaded->tables.meshes) {
      const memory::MeshData& data = loaded->data.at(mesh.first);
      look(mesh.second, data, MeshView(mesh.second, data));
    }
  }

  Sample sample;
};

std::vector<std::string> allNames() {
  std::vector<std::string> names;
  for (const samples::SampleInfo& info : samples::samples()) {
    names.emplace_back(info.name);
  }
  return names;
}

std::string requestName(const ::testing::TestParamInfo<Request>& info) {
  std::string name = std::get<0>(info.param);
  std::replace(name.begin(), name.end(), '-', '_');
  return name + "_of_" + std::to_string(std::get<1>(info.param));
}

TEST_P(Samples, LeaveNothingToSayForTheChecker) {
  const Findings findings = runChecker([this] { return new samples::SampleProvider(sample); }, 2);
  EXPECT_TRUE(findings.isSound);
  EXPECT_EQ(findings.errors, Texts());
  EXPECT_EQ(findings.warnings, Texts());
}

TEST_P(Samples, CoverTheirIdRangesWithZonesThatHaveElements) {
  for (const auto& mesh : sample.tables.meshes) {
    for (const OrvZoneCategory category : {zoneCategoryNode, zoneCategoryFace, zoneCategoryCell}) {
      std::uint64_t before = 0;
      for (const int zone : mesh.second.idsOf(category)) {
        EXPECT_EQ(mesh.second.zoneSize(zone, zoneFirstId), before + 1);
        EXPECT_GT(mesh.second.zoneSize(zone, zoneElementCount), 0U);
        before += mesh.second.zoneSize(zone, zoneElementCount);
        EXPECT_EQ(mesh.second.zoneSize(zone, zoneLastId), before);
      }
      EXPECT_EQ(mesh.second.size(base::countOf(category)), before);
      EXPECT_GT(before, 0U);
    }
  }
}

TEST_P(Samples, UseEachNode) {
  forEachMesh([](const auto& tables, const auto&, const MeshView& view) {
    EXPECT_EQ(view.points.size(), tables.size(meshNodeCount));
    EXPECT_EQ(view.faces.size(), tables.size(meshFaceCount));
    std::set<std::uint64_t> used;
    for (const auto* lists : {&view.faces, &view.cellNodes}) {
      for (const Ids& nodes : *lists) {
        EXPECT_EQ(std::set<std::uint64_t>(nodes.begin(), nodes.end()).size(), nodes.size());
        used.insert(nodes.begin(), nodes.end());
      }
    }
    EXPECT_EQ(used.size(), view.points.size());
    EXPECT_EQ(*used.begin(), 1U);
    EXPECT_EQ(*used.rbegin(), view.points.size());
  });
}

/// How often each directed edge of a cell is run through, seen from outside. In the plane its edges
/// are nodes: the start of one line is the end of another.
std::map<std::pair<std::uint64_t, std::uint64_t>, int> edgesOf(const MeshView& view,
                                                               std::size_t cell) {
  std::map<std::pair<std::uint64_t, std::uint64_t>, int> edges;
  for (const std::uint64_t face : view.facesOfCell.at(cell)) {
    Ids nodes = view.faces.at(face - 1);
    if (view.cell0.at(face - 1) != cell + 1) {
      std::reverse(nodes.begin(), nodes.end());
    }
    if (nodes.size() == 2) {
      ++edges[{nodes[0], 0}];
      ++edges[{0, nodes[1]}];
      continue;
    }
    for (std::size_t i = 0; i < nodes.size(); ++i) {
      ++edges[{nodes[i], nodes[(i + 1) % nodes.size()]}];
    }
  }
  return edges;
}

TEST_P(Samples, HaveClosedCells) {
  forEachMesh([](const auto&, const auto&, const MeshView& view) {
    for (std::size_t cell = 0; view.knowsCells() && cell < view.facesOfCell.size(); ++cell) {
      const auto edges = edgesOf(view, cell);
      for (const auto& edge : edges) {
        ASSERT_EQ(edge.second, 1) << "cell " << cell + 1;
        ASSERT_EQ(edges.count({edge.first.second, edge.first.first}), 1U) << "cell " << cell + 1;
      }
      Point sum{};
      for (const std::uint64_t face : view.facesOfCell[cell]) {
        const double sign = view.cell0[face - 1] == cell + 1 ? 1 : -1;
        sum = sum + sign * view.normalOf(face - 1);
      }
      ASSERT_NEAR(dot(sum, sum), 0, 1e-20) << "cell " << cell + 1;
    }
  });
}

TEST_P(Samples, HaveFacesThatLookFromSide0IntoSide1) {
  forEachMesh([](const auto&, const auto&, const MeshView& view) {
    for (std::size_t face = 0; face < view.cell0.size(); ++face) {
      const Point centre = view.centreOf(view.faces[face]);
      const Point normal = view.normalOf(face);
      ASSERT_GT(dot(normal, centre - view.centreOfCell(view.cell0[face] - 1)), 0) << face + 1;
      if (view.cell1[face] != 0) {
        ASSERT_GT(dot(normal, view.centreOfCell(view.cell1[face] - 1) - centre), 0) << face + 1;
      }
    }
  });
}

/// The volume of the box around all points; of its area in the plane.
double boxVolume(const MeshView& view) {
  Point low = view.points.front();
  Point high = low;
  for (const Point& point : view.points) {
    for (std::size_t axis = 0; axis < 3; ++axis) {
      low.at(axis) = std::min(low.at(axis), point.at(axis));
      high.at(axis) = std::max(high.at(axis), point.at(axis));
    }
  }
  const Point edges = high - low;
  return edges[0] * edges[1] * (edges[2] == 0 ? 1 : edges[2]);
}

TEST_P(Samples, FillTheirBoxWithCellsOfPositiveVolume) {
  forEachMesh([](const auto& tables, const auto&, const MeshView& view) {
    if (!view.knowsCells()) {
      return;
    }
    const double parts = tables.size(meshDimension) == 3 ? 6 : 4;
    double total = 0;
    for (std::size_t cell = 0; cell < view.facesOfCell.size(); ++cell) {
      double volume = 0;
      for (const std::uint64_t face : view.facesOfCell[cell]) {
        const double sign = view.cell0[face - 1] == cell + 1 ? 1 : -1;
        const Point arm = view.centreOf(view.faces[face - 1]) - view.centreOfCell(cell);
        volume += sign * dot(view.normalOf(face - 1), arm) / parts;
      }
      ASSERT_GT(volume, 0) << "cell " << cell + 1;
      total += volume;
    }
    EXPECT_NEAR(total, boxVolume(view), 1e-9 * total);
  });
}

TEST_P(Samples, ListCellNodesInTheOrderOfAHexahedron) {
  forEachMesh([](const auto&, const auto&, const MeshView& view) {
    double total = 0;
    for (const Ids& nodes : view.cellNodes) {
      ASSERT_EQ(nodes.size(), 8U);
      const auto at = [&](std::size_t corner) { return view.points.at(nodes[corner] - 1); };
      const Point x = at(1) - at(0);
      const Point y = at(3) - at(0);
      const Point z = at(4) - at(0);
      const double volume = dot(cross(x, y), z);
      ASSERT_GT(volume, 0);
      total += volume;
      const std::array<Point, 4> opposite = {at(0) + x + y, at(0) + x + z, at(0) + x + y + z,
                                             at(0) + y + z};
      for (std::size_t i = 0; i < opposite.size(); ++i) {
        const Point gap = opposite.at(i) - at(std::array<std::size_t, 4>{2, 5, 6, 7}.at(i));
        ASSERT_NEAR(dot(gap, gap), 0, 1e-20);
      }
    }
    if (!view.cellNodes.empty()) {
      EXPECT_NEAR(total, boxVolume(view), 1e-9 * total);
    }
    for (std::size_t face = 0; !view.cellNodes.empty() && face < view.cell0.size(); ++face) {
      const Ids& nodes = view.cellNodes.at(view.cell0[face] - 1);
      for (const std::uint64_t node : view.faces[face]) {
        ASSERT_EQ(std::count(nodes.begin(), nodes.end(), node), 1) << "face " << face + 1;
      }
    }
  });
}

TEST_P(Samples, ListTheFacesThatKnowTheCell) {
  forEachMesh([](const auto&, const auto&, const MeshView& view) {
    if (view.listedFaces.empty()) {
      return;
    }
    ASSERT_EQ(view.listedFaces.size(), view.facesOfCell.size());
    for (std::size_t cell = 0; cell < view.listedFaces.size(); ++cell) {
      Ids listed = view.listedFaces[cell];
      std::sort(listed.begin(), listed.end());
      ASSERT_EQ(listed, view.facesOfCell[cell]) << "cell " << cell + 1;
    }
  });
}

TEST_P(Samples, SayWhatShapesTheirZonesHave) {
  forEachMesh([](const auto& tables, const auto& data, const MeshView& view) {
    for (const int zone : data.faceNodes.zones()) {
      const memory::CountedData& held = *data.faceNodes.find(zone);
      const std::set<short> counts(held.counts.begin(), held.counts.end());
      const int shape = held.uniform ? base::faceShapeOf(static_cast<std::uint64_t>(*held.uniform))
                                     : base::faceShapeMixed;
      EXPECT_EQ(tables.zones.at(zone).faceInfo[faceZoneFaceType], shape) << "zone " << zone;
      EXPECT_NE(counts.size(), 1U) << "zone " << zone << " has a uniform count";
    }
    for (const int zone : data.cellTypes.zones()) {
      const int type = data.cellTypes.find(zone)->uniform.value_or(-1);
      EXPECT_EQ(tables.zones.at(zone).cellInfo[cellZoneCellType], type);
    }
    const std::map<int, std::size_t> exact = {{base::cellShapeHexahedron, 6},
                                              {base::cellShapeQuadrilateral, 4}};
    const int type = data.cellTypes.find(data.cellTypes.zones().front())->uniform.value_or(-1);
    for (std::size_t cell = 0; view.knowsCells() && cell < view.facesOfCell.size(); ++cell) {
      if (exact.count(type) > 0) {
        ASSERT_EQ(view.facesOfCell[cell].size(), exact.at(type));
      } else {
        ASSERT_GE(view.facesOfCell[cell].size(), 6U);
      }
    }
  });
}

TEST_P(Samples, SayWhichZonesBoundWhichOnRestartTargetsOnly) {
  forEachMesh([](const base::MeshTables& tables, const memory::MeshData& data, const MeshView&) {
    const bool isRestart =
        !tables.zones.at(tables.idsOf(zoneCategoryCell).front()).boundingFaceZones.empty();
    base::MeshTables derived = tables;
    for (auto& zone : derived.zones) {
      zone.second.sideCellZones = {};
      zone.second.boundingFaceZones.clear();
    }
    const base::CellZoneRanges ranges(tables);
    for (const int side : {0, 1}) {
      const auto& list = side == 0 ? data.faceCell0 : data.faceCell1;
      for (const int zone : list.zones()) {
        const auto& cells = *list.find(zone);
        relateZones(derived, ranges, zone, side, cells.data(), cells.size());
      }
    }
    deriveBoundingFaceZones(derived);
    for (const auto& zone : tables.zones) {
      const base::ZoneRecord& expected =
          isRestart ? derived.zones.at(zone.first) : base::ZoneRecord();
      EXPECT_EQ(zone.second.sideCellZones, expected.sideCellZones);
      EXPECT_EQ(zone.second.boundingFaceZones, expected.boundingFaceZones);
    }
  });
  for (const auto& mesh : sample.tables.meshes) {
    const base::MeshTables& tables = mesh.second;
    const int zone = tables.idsOf(zoneCategoryCell).front();
    EXPECT_EQ(!tables.zones.at(zone).boundingFaceZones.empty(), mesh.first.target == targetRestart);
  }
}

TEST_P(Samples, GiveTheFirstValuesToABufferThatIsTooSmall) {
  for (const auto& mesh : sample.tables.meshes) {
    base::MeshArrays& arrays = *sample.arrays.at(mesh.first);
    const int zone = mesh.second.idsOf(zoneCategoryFace).back();
    std::vector<std::uint64_t> all(arrays.valueCount(base::Family::faceNodes, zone));
    std::vector<std::uint64_t> some(3, 0);
    ASSERT_EQ(arrays.readIds(base::Family::faceNodes, zone, all.data(), all.size()), all.size());
    ASSERT_EQ(arrays.readIds(base::Family::faceNodes, zone, some.data(), 2), 2U);
    EXPECT_EQ(some, Ids({all[0], all[1], 0}));
  }
}

INSTANTIATE_TEST_SUITE_P(Sizes, Samples,
                         ::testing::Combine(::testing::ValuesIn(allNames()),
                                            ::testing::Values(1, 2, 30, 500)),
                         requestName);

}  // namespace
}  // namespace velto::testing
