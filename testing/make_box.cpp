// SPDX-License-Identifier: Apache-2.0
//
// The box of hexahedra that PolyMeshWriter writes.

#include <array>
#include <cstddef>

#include "testing/PolyMeshWriter.h"

namespace velto::testing {

namespace {

constexpr double kSide = 0.125;  // exact in binary, short in text

using Corner = std::array<std::int64_t, 3>;

class BoxBuilder {
 public:
  BoxBuilder(std::int64_t nx, std::int64_t ny, std::int64_t nz) : cells_{nx, ny, nz} {}

  BoxMesh build() {
    mesh_.cellCount = cells_[0] * cells_[1] * cells_[2];
    reserve();
    addPoints();
    mesh_.faceOffsets.push_back(0);
    addInternalFaces();
    for (std::size_t axis = 0; axis < 3; ++axis) {
      addPatch(axis, false);
      addPatch(axis, true);
    }
    return std::move(mesh_);
  }

 private:
  void reserve() {
    const auto faces = static_cast<std::size_t>(3 * mesh_.cellCount + cells_[0] * cells_[1] +
                                                cells_[1] * cells_[2] + cells_[2] * cells_[0]);
    mesh_.faceOffsets.reserve(faces + 1);
    mesh_.faceNodes.reserve(4 * faces);
    mesh_.owner.reserve(faces);
    mesh_.neighbour.reserve(faces);
  }

  void addPoints() {
    for (std::int64_t k = 0; k <= cells_[2]; ++k) {
      for (std::int64_t j = 0; j <= cells_[1]; ++j) {
        for (std::int64_t i = 0; i <= cells_[0]; ++i) {
          for (const std::int64_t step : {i, j, k}) {
            mesh_.points.push_back(kSide * static_cast<double>(step));
          }
        }
      }
    }
  }

  void addInternalFaces() {
    for (std::int64_t k = 0; k < cells_[2]; ++k) {
      for (std::int64_t j = 0; j < cells_[1]; ++j) {
        for (std::int64_t i = 0; i < cells_[0]; ++i) {
          const Corner cell = {i, j, k};
          for (std::size_t axis = 0; axis < 3; ++axis) {
            addInternalFace(cell, axis);
          }
        }
      }
    }
  }

  void addInternalFace(const Corner& cell, std::size_t axis) {
    Corner next = cell;
    ++next[axis];
    if (next[axis] < cells_[axis]) {
      addFace(next, axis, true, cellId(cell));
      mesh_.neighbour.push_back(cellId(next));
    }
  }

  void addPatch(std::size_t axis, bool atEnd) {
    constexpr std::array<const char*, 6> kNames = {"xMin", "xMax", "yMin", "yMax", "zMin", "zMax"};
    const std::int64_t first = mesh_.faceCount();
    const std::size_t slow = axis == 2 ? 1 : 2;
    const std::size_t fast = axis == 0 ? 1 : 0;
    Corner cell = {};
    cell[axis] = atEnd ? cells_[axis] - 1 : 0;
    for (cell[slow] = 0; cell[slow] < cells_[slow]; ++cell[slow]) {
      for (cell[fast] = 0; cell[fast] < cells_[fast]; ++cell[fast]) {
        Corner corner = cell;
        corner[axis] += atEnd ? 1 : 0;
        addFace(corner, axis, atEnd, cellId(cell));
      }
    }
    mesh_.patches.push_back({kNames[2 * axis + (atEnd ? 1 : 0)],
                             axis == 0 ? "patch" : "wall",
                             mesh_.faceCount() - first,
                             first,
                             {}});
  }

  // The square at `corner` across `axis`; its normal points along the axis, or against it.
  void addFace(const Corner& corner, std::size_t axis, bool along, std::int64_t owner) {
    const std::size_t u = (axis + 1) % 3;
    const std::size_t v = (axis + 2) % 3;
    std::array<Corner, 4> loop = {corner, corner, corner, corner};
    ++loop[1][along ? u : v];
    ++loop[2][u];
    ++loop[2][v];
    ++loop[3][along ? v : u];
    for (const Corner& node : loop) {
      mesh_.faceNodes.push_back(nodeId(node));
    }
    mesh_.faceOffsets.push_back(static_cast<std::int64_t>(mesh_.faceNodes.size()));
    mesh_.owner.push_back(owner);
  }

  std::int64_t cellId(const Corner& at) const {
    return at[0] + cells_[0] * (at[1] + cells_[1] * at[2]);
  }

  std::int64_t nodeId(const Corner& at) const {
    return at[0] + (cells_[0] + 1) * (at[1] + (cells_[1] + 1) * at[2]);
  }

  Corner cells_;
  BoxMesh mesh_;
};

}  // namespace

BoxMesh makeBox(std::int64_t nx, std::int64_t ny, std::int64_t nz) {
  return BoxBuilder(nx, ny, nz).build();
}

}  // namespace velto::testing
