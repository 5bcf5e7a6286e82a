// SPDX-License-Identifier: Apache-2.0
//
// Meshes that other programs wrote; skipped where they are absent.

#include <algorithm>
#include <filesystem>
#include <gtest/gtest.h>
#include <numeric>
#include <string>

#include "formats/openfoam/read_poly_mesh.h"

namespace velto::openfoam {
namespace {

class RealMesh : public ::testing::Test {
 protected:
  // The mesh of that name, or nothing if it is not there.
  std::optional<PolyMesh> read(const std::string& name) {
    const std::string folder = std::string(VELTO_MESHES_DIR) + "/openfoam/" + name;
    return std::filesystem::exists(folder) ? std::make_optional(readPolyMesh(folder))
                                           : std::nullopt;
  }
};

// Whether the mesh fits together: all ids in range, as many node ids as the counts say.
void expectSound(const PolyMesh& mesh, std::uint64_t cells) {
  const std::uint64_t nodes = mesh.points.size() / 3;
  const auto within = [](const auto& ids, std::uint64_t last) {
    return std::all_of(ids.begin(), ids.end(),
                       [last](std::uint64_t id) { return id >= 1 && id <= last; });
  };
  EXPECT_TRUE(within(mesh.faceNodeIds, nodes));
  EXPECT_TRUE(within(mesh.owner, cells));
  EXPECT_TRUE(within(mesh.neighbour, cells));
  EXPECT_EQ(std::accumulate(mesh.faceNodeCounts.begin(), mesh.faceNodeCounts.end(), std::size_t{0}),
            mesh.faceNodeIds.size());
  std::uint64_t next = mesh.neighbour.size();
  for (const Patch& patch : mesh.patches) {
    EXPECT_EQ(patch.firstFace, next);
    next += patch.faceCount;
  }
  EXPECT_EQ(next, mesh.owner.size());
}

TEST_F(RealMesh, WingMirrorIsRead) {
  const std::optional<PolyMesh> mesh = read("wingMirror");
  if (!mesh) {
    GTEST_SKIP() << "no such mesh here";
  }
  ASSERT_TRUE(mesh->note.has_value());
  EXPECT_EQ(mesh->note->nodes, 4686U);
  EXPECT_EQ(mesh->note->cells, 2240U);
  EXPECT_EQ(mesh->note->faces, 9062U);
  EXPECT_EQ(mesh->note->internalFaces, 4378U);
  EXPECT_EQ(mesh->points.size(), 3U * 4686U);
  EXPECT_EQ(mesh->faceNodeCounts.size(), 9062U);
  EXPECT_EQ(mesh->owner.size(), 9062U);
  EXPECT_EQ(mesh->neighbour.size(), 4378U);
  ASSERT_EQ(mesh->patches.size(), 4U);
  EXPECT_EQ(mesh->patches[2].name, "frontAndBack");
  EXPECT_EQ(mesh->patches[2].type, "symmetry");
  EXPECT_EQ(mesh->patches[2].line, 32U);
  expectSound(*mesh, 2240);
}

TEST_F(RealMesh, AirFoil2DIsRead) {
  const std::optional<PolyMesh> mesh = read("airFoil2D");
  if (!mesh) {
    GTEST_SKIP() << "no such mesh here";
  }
  EXPECT_FALSE(mesh->note.has_value());
  EXPECT_EQ(mesh->points.size(), 3U * 21812U);
  EXPECT_EQ(mesh->faceNodeCounts.size(), 43066U);
  EXPECT_EQ(mesh->neighbour.size(), 21254U);
  ASSERT_EQ(mesh->patches.size(), 4U);
  EXPECT_EQ(mesh->patches[3].type, "empty");
  expectSound(*mesh, 10720);
}

}  // namespace
}  // namespace velto::openfoam
