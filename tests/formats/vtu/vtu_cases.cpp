// SPDX-License-Identifier: Apache-2.0
//
// The mesh of all shapes, in which the prism lies at x < 0, the hexahedron from 0 to 1.

#include "tests/formats/vtu/vtu_cases.h"

#include <algorithm>
#include <filesystem>

#include "embedded/base/shapes.h"
#include "embedded/memory/CaseBuilder.h"
#include "testing/write_case.h"

namespace velto::testing {

using memory::CaseBuilder;
using memory::FaceLine;

namespace {

CaseBuilder shapesBuilder(const std::vector<FaceLine>& inside, const std::vector<FaceLine>& walls) {
  CaseBuilder builder;
  builder
      .nodes(1, "points",
             {{0, 0, 0},
              {1, 0, 0},
              {1, 1, 0},
              {0, 1, 0},
              {0, 0, 1},
              {1, 0, 1},
              {1, 1, 1},
              {0, 1, 1},
              {0.5, 0.5, 2},
              {2, 0, 0},
              {2, 1, 0},
              {2, 0.5, 1.5},
              {-1, 0, 0},
              {-1.5, 0, 0.5},
              {-1, 0, 1},
              {-1, 1, 0},
              {-1.5, 1, 0.5},
              {-1, 1, 1}})
      .faces(2, "inside", faceZoneTypeInterior, inside)
      .faces(3, "walls", base::boundaryWall, walls)
      .cells(4, "solids",
             std::vector<int>{base::cellShapeHexahedron, base::cellShapePyramid,
                              base::cellShapeWedge, base::cellShapeTetrahedron})
      .cells(5, "prism", base::cellShapePolyhedron, 1);
  return builder;
}

std::vector<FaceLine> insideFaces() {
  return {{{1, 5, 8, 4}, 1, 5}, {{5, 6, 7, 8}, 1, 2}, {{2, 3, 7, 6}, 1, 3}, {{9, 7, 6}, 4, 2}};
}

std::vector<FaceLine> wallFaces() {
  return {
      {{1, 2, 6, 5}, 1},   {{4, 8, 7, 3}, 1},       {{1, 4, 3, 2}, 1},       {{5, 6, 9}, 2},
      {{7, 8, 9}, 2},      {{8, 5, 9}, 2},          {{2, 10, 6}, 3},         {{3, 7, 11}, 3},
      {{2, 3, 11, 10}, 3}, {{6, 10, 11, 7}, 3},     {{6, 7, 12}, 4},         {{7, 9, 12}, 4},
      {{9, 6, 12}, 4},     {{1, 5, 15, 14, 13}, 5}, {{4, 16, 17, 18, 8}, 5}, {{1, 13, 16, 4}, 5},
      {{5, 8, 18, 15}, 5}, {{13, 14, 17, 16}, 5},   {{15, 18, 17, 14}, 5}};
}

}  // namespace

cases::CasePtr allShapes() { return shapesBuilder(insideFaces(), wallFaces()).build(); }

cases::CasePtr allShapesByNodes() {
  std::vector<FaceLine> inside = insideFaces();
  std::vector<FaceLine> walls = wallFaces();
  for (std::vector<FaceLine>* lines : {&inside, &walls}) {
    for (FaceLine& line : *lines) {
      line.cell0 = line.cell0 == 5 ? 5 : 0;
      line.cell1 = line.cell1 == 5 ? 5 : 0;
    }
  }
  return shapesBuilder(inside, walls)
      .cellNodes(4,
                 {{1, 2, 3, 4, 5, 6, 7, 8}, {5, 6, 7, 8, 9}, {2, 10, 6, 3, 11, 7}, {6, 12, 7, 9}})
      .build();
}

void addPhase(memory::Case& target, short id, const std::string& name) {
  base::Phase phase;
  phase.id = id;
  phase.name = name;
  target.tables.phases.push_back(phase);
}

Texts without(const std::string& folder, Texts texts) {
  for (std::string& text : texts) {
    for (std::size_t at = text.find(folder); at != std::string::npos; at = text.find(folder)) {
      text.erase(at, folder.size());
    }
  }
  return texts;
}

Written::Written(const memory::Case& source, unsigned compression) {
  vtu::VtuConsumer consumer;
  consumer.setFileName(path(), dataClassCase);
  consumer.setCompression(compression);
  writeCase(source, consumer);
  errors_ = without(folder_.path() + "/", consumer.getErrors(true, true));
  warnings_ = without(folder_.path() + "/", consumer.getWarnings(true, true));
}

Texts Written::names() const {
  Texts names;
  for (const auto& entry : std::filesystem::directory_iterator(folder_.path())) {
    names.push_back(entry.path().filename());
  }
  std::sort(names.begin(), names.end());
  return names;
}

}  // namespace velto::testing
