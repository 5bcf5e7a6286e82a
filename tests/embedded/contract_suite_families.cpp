// SPDX-License-Identifier: Apache-2.0
//
// The contract's read side: the families of bulk calls.

#include <cstddef>

#include "data_access/families.h"

#include "tests/embedded/contract_suite.h"

namespace velto::testing {
namespace {

using base::MeshTables;
using memory::CountedData;
using memory::MeshData;
using memory::Slice;
using memory::ZoneList;

constexpr std::uint64_t kGuard = 4711;

template <class Value>
std::vector<Value> valuesOf(const Slice<Value>& slice) {
  return {slice.begin(), slice.end()};
}

/// Gives the cells of each cell zone the faces that name them, as faces of their own.
void addCellFaces(memory::Case& target) {
  for (auto& mesh : target.data) {
    const MeshTables& tables = target.tables.meshes.at(mesh.first);
    std::uint64_t face = 0;
    for (const int zone : tables.idsOf(zoneCategoryCell)) {
      std::vector<short> counts;
      std::vector<std::uint64_t> ids;
      for (std::uint64_t cell = 0; cell < tables.zoneSize(zone, zoneElementCount); ++cell) {
        counts.push_back(static_cast<short>(4 + cell));
        for (short k = 0; k < counts.back(); ++k) {
          ids.push_back(++face);
        }
      }
      mesh.second.cellFaces[zone].counts = Slice<short>(counts);
      mesh.second.cellFaces[zone].ids = Slice<std::uint64_t>(ids);
    }
  }
}

/// Reads a family by its protocol and compares it with the arrays of the case.
void expectCounted(OrvFileProvider& provider, const CountedReadFamily& family,
                   const MeshTables& mesh, const ZoneList<CountedData>& list) {
  std::vector<int> zones = {98, 99};
  (provider.*family.begin)(zones);
  EXPECT_EQ(zones, list.zones());
  (provider.*family.beginCounts)();
  for (const int zone : zones) {
    const CountedData& expected = *list.find(zone);
    const std::size_t n = mesh.zoneSize(zone, zoneElementCount);
    short count = 0;
    std::vector<short> counts(n, 0);
    if ((provider.*family.getUniformCount)(zone, count)) {
      counts.assign(n, count);
    } else {
      (provider.*family.readCounts)(zone, counts.data(), n);
    }
    EXPECT_EQ(counts, expected.uniform ? std::vector<short>(n, *expected.uniform)
                                       : valuesOf(expected.counts))
        << "zone " << zone;
  }
  (provider.*family.endCounts)();
  (provider.*family.beginIds)();
  for (const int zone : zones) {
    std::vector<std::uint64_t> ids(list.find(zone)->ids.size() + 1, 0);
    ids.back() = kGuard;
    (provider.*family.readIds)(zone, ids.data(), ids.size() - 1);
    std::vector<std::uint64_t> expected = valuesOf(list.find(zone)->ids);
    expected.push_back(kGuard);
    EXPECT_EQ(ids, expected) << "zone " << zone;
  }
  (provider.*family.endIds)();
  (provider.*family.end)();
}

TEST_P(ProviderContract, ReadsFaceNodes) {
  forEachMesh([this](const MeshTables& mesh, const MeshData& data) {
    expectCounted(provider(), kFaceNodes, mesh, data.faceNodes);
  });
  expectNoMessages();
}

TEST_P(ProviderContract, ReadsCellNodes) {
  forEachMesh([this](const MeshTables& mesh, const MeshData& data) {
    expectCounted(provider(), kCellNodes, mesh, data.cellNodes);
  });
  expectNoMessages();
}

TEST_P(ProviderContract, ReadsCellFaces) {
  addCellFaces(*source);
  forEachMesh([this](const MeshTables& mesh, const MeshData& data) {
    expectCounted(provider(), kCellFaces, mesh, data.cellFaces);
  });
  expectNoMessages();
}

TEST_P(ProviderContract, ReadsNodeCoordinates) {
  forEachMesh([this](const MeshTables&, const MeshData& data) {
    std::vector<int> zones = {99};
    provider().beginNodeCoordinates(zones);
    EXPECT_EQ(zones, data.nodeCoordinates.zones());
    for (const int zone : zones) {
      std::vector<double> values(data.nodeCoordinates.find(zone)->size(), -1);
      EXPECT_EQ(provider().readNodeCoordinates(zone, values.data(), values.size()), values.size());
      EXPECT_EQ(values, valuesOf(*data.nodeCoordinates.find(zone)));
    }
    provider().endNodeCoordinates();
  });
  expectNoMessages();
}

TEST_P(ProviderContract, ReadsNoMoreThanThereIsRoomFor) {
  forEachMesh([this](const MeshTables& mesh, const MeshData&) {
    const int zone = mesh.idsOf(zoneCategoryNode).front();
    std::vector<int> zones;
    std::vector<double> values(3, -1);
    provider().beginNodeCoordinates(zones);
    EXPECT_EQ(provider().readNodeCoordinates(zone, values.data(), 2), 2U);
    EXPECT_EQ(values[2], -1);
    provider().endNodeCoordinates();
  });
}

// --- Face cells and shadows ---------------------------------------------------------------------

/// The operations of one side.
struct Side {
  void (OrvProvider::*begin)(std::vector<int>&);
  std::uint64_t (OrvProvider::*get)(std::uint64_t);
  void (OrvProvider::*read)(int, std::uint64_t*, std::size_t);
  void (OrvProvider::*end)();
  const ZoneList<Slice<std::uint64_t>> MeshData::*data;
};

const Side kSides[] = {
    {&OrvProvider::beginFaceCell0, &OrvProvider::getFaceCell0, &OrvProvider::readFaceCell0,
     &OrvProvider::endFaceCell0, &MeshData::faceCell0},
    {&OrvProvider::beginFaceCell1, &OrvProvider::getFaceCell1, &OrvProvider::readFaceCell1,
     &OrvProvider::endFaceCell1, &MeshData::faceCell1}};

TEST_P(ProviderContract, ReadsTheCellsBesideFacesByZone) {
  forEachMesh([this](const MeshTables&, const MeshData& data) {
    for (const Side& side : kSides) {
      const auto& list = data.*side.data;
      std::vector<int> zones = {99};
      (provider().*side.begin)(zones);
      EXPECT_EQ(zones, list.zones());
      for (const int zone : zones) {
        std::vector<std::uint64_t> cells(list.find(zone)->size(), kGuard);
        (provider().*side.read)(zone, cells.data(), cells.size());
        EXPECT_EQ(cells, valuesOf(*list.find(zone)));
      }
      (provider().*side.end)();
    }
  });
  expectNoMessages();
}

/// One id a face of the mesh, in the order of face ids; 0 where no listed zone holds it.
std::vector<std::uint64_t> byFace(const MeshTables& mesh,
                                  const ZoneList<Slice<std::uint64_t>>& list) {
  std::vector<std::uint64_t> ids(mesh.size(meshFaceCount), 0);
  for (const int zone : list.zones()) {
    const std::uint64_t first = mesh.zoneSize(zone, zoneFirstId);
    for (std::size_t i = 0; i < list.find(zone)->size(); ++i) {
      ids.at(first - 1 + i) = list.find(zone)->data()[i];
    }
  }
  return ids;
}

TEST_P(ProviderContract, GetsTheCellBesideAFaceInAnyOrder) {
  forEachMesh([this](const MeshTables& mesh, const MeshData& data) {
    for (const Side& side : kSides) {
      const std::vector<std::uint64_t> expected = byFace(mesh, data.*side.data);
      std::vector<int> zones;
      std::vector<std::uint64_t> forth;
      std::vector<std::uint64_t> back(expected.size());
      (provider().*side.begin)(zones);
      for (std::uint64_t face = 1; face <= expected.size(); ++face) {
        forth.push_back((provider().*side.get)(face));
      }
      for (std::uint64_t face = expected.size(); face > 0; --face) {
        back[face - 1] = (provider().*side.get)(face);
      }
      EXPECT_EQ(forth, expected);
      EXPECT_EQ(back, expected);
      EXPECT_EQ((provider().*side.get)(0), 0U);
      EXPECT_EQ((provider().*side.get)(expected.size() + 1), 0U);
      (provider().*side.end)();
    }
  });
  expectNoMessages();
}

TEST_P(ProviderContract, GetsShadowFaces) {
  forEachMesh([this](const MeshTables& mesh, const MeshData& data) {
    const std::vector<std::uint64_t> expected = byFace(mesh, data.faceShadows);
    std::vector<int> zones = {99};
    std::vector<std::uint64_t> shadows;
    provider().beginFaceShadows(zones);
    EXPECT_EQ(zones, data.faceShadows.zones());
    for (std::uint64_t face = 1; face <= expected.size(); ++face) {
      shadows.push_back(provider().getFaceShadow(face));
    }
    provider().endFaceShadows();
    EXPECT_EQ(shadows, expected);
  });
  expectNoMessages();
}

TEST_P(ProviderContract, ListsTheFaceTree) {
  for (auto& mesh : source->data) {
    mesh.second.treeParentZones = {2};
    mesh.second.treeChildZones = {3, 4};
  }
  forEachMesh([this](const MeshTables&, const MeshData& data) {
    std::vector<int> parents = {98};
    std::vector<int> children = {99};
    provider().beginFaceTree(parents, children);
    provider().endFaceTree();
    EXPECT_EQ(parents, data.treeParentZones);
    EXPECT_EQ(children, data.treeChildZones);
  });
}

// --- Cells --------------------------------------------------------------------------------------

TEST_P(ProviderContract, ReadsCellTypes) {
  forEachMesh([this](const MeshTables& mesh, const MeshData& data) {
    std::vector<int> zones = {99};
    provider().beginCellTypes(zones);
    EXPECT_EQ(zones, data.cellTypes.zones());
    for (const int zone : zones) {
      const memory::CellTypeData& held = *data.cellTypes.find(zone);
      const std::size_t n = mesh.zoneSize(zone, zoneElementCount);
      const std::vector<int> expected =
          held.uniform ? std::vector<int>(n, *held.uniform) : valuesOf(held.types);
      std::vector<int> types(n, -1);
      EXPECT_EQ(provider().readCellTypes(zone, types.data(), n), n);
      EXPECT_EQ(types, expected);
      for (std::size_t i = 0; i < n; ++i) {
        EXPECT_EQ(provider().getCellType(mesh.zoneSize(zone, zoneFirstId) + i), expected[i]);
      }
      int type = -1;
      const bool uniform = provider().getUniformCellType(zone, type);
      EXPECT_EQ(type, uniform ? expected.front() : -1);
    }
    EXPECT_EQ(provider().getCellType(0), 0);
    EXPECT_EQ(provider().getCellType(mesh.size(meshCellCount) + 1), 0);
    provider().endCellTypes();
  });
  expectNoMessages();
}

TEST_P(ProviderContract, ReadsCellPartitions) {
  forEachMesh([this](const MeshTables&, const MeshData& data) {
    std::vector<int> zones = {99};
    provider().beginCellPartitions(zones);
    EXPECT_EQ(zones, data.cellPartitions.zones());
    for (const int zone : zones) {
      const memory::CellPartitionData& held = *data.cellPartitions.find(zone);
      std::vector<int> partitions(held.partitions.size(), -1);
      EXPECT_EQ(provider().getCellPartitionInfo(zone), held.info);
      provider().readCellPartitions(zone, partitions.data(), partitions.size());
      EXPECT_EQ(partitions, valuesOf(held.partitions));
    }
    provider().endCellPartitions();
  });
  expectNoMessages();
}

// --- Nothing there ------------------------------------------------------------------------------

TEST_P(ProviderContract, ListsNoZonesOfAnUnknownMesh) {
  selectUnknownMesh();
  const std::vector<void (OrvProvider::*)(std::vector<int>&)> begins = {
      &OrvProvider::beginNodeCoordinates, &OrvProvider::beginFaceNodes,
      &OrvProvider::beginCellNodes,       &OrvProvider::beginCellFaces,
      &OrvProvider::beginFaceCell0,       &OrvProvider::beginFaceCell1,
      &OrvProvider::beginFaceShadows,     &OrvProvider::beginCellTypes,
      &OrvProvider::beginCellPartitions};
  for (const auto begin : begins) {
    std::vector<int> zones = {98, 99};
    (provider().*begin)(zones);
    EXPECT_EQ(zones, std::vector<int>());
  }
  std::vector<int> parents = {98};
  std::vector<int> children = {99};
  provider().beginFaceTree(parents, children);
  EXPECT_EQ(parents, std::vector<int>());
  EXPECT_EQ(children, std::vector<int>());
  expectNoMessages();
}

TEST_P(ProviderContract, LeavesTheBufferOfAnUnknownZoneAloneAndSaysSo) {
  std::vector<int> zones;
  std::vector<std::uint64_t> ids(2, kGuard);
  provider().beginFaceCell0(zones);
  provider().readFaceCell0(99, ids.data(), ids.size());
  provider().endFaceCell0();
  EXPECT_EQ(ids, std::vector<std::uint64_t>(2, kGuard));
  EXPECT_TRUE(provider().hasWarning() || provider().hasError());
}

TEST_P(ProviderContract, ServesAFamilyAgainAfterOneThatStayedOpen) {
  forEachMesh([this](const MeshTables& mesh, const MeshData& data) {
    std::vector<int> zones;
    provider().beginFaceCell0(zones);
    provider().beginCellTypes(zones);
    expectCounted(provider(), kFaceNodes, mesh, data.faceNodes);
  });
}

}  // namespace
}  // namespace velto::testing
