// SPDX-License-Identifier: Apache-2.0
//
// DeepChecksFixture: meshes that are no more than what a check looks at, and runs of one check.

#include "tests/checker/DeepChecksFixture.h"

#include <utility>

#include "testing/capture.h"

namespace velto::testing {

using base::boundaryWall;
using memory::CaseBuilder;
using memory::FaceLine;
using memory::Slice;

cases::CasePtr facesAndTypes(int dimension, const std::vector<int>& types, const Ids& side0,
                             const Ids& side1) {
  cases::CasePtr made = CaseBuilder(dimension)
                            .faces(2, "faces", boundaryWall, std::vector<FaceLine>(side0.size()))
                            .cells(3, "cells", types)
                            .build();
  setCells(*made, 0, 2, side0);
  if (!side1.empty()) {
    setCells(*made, 1, 2, side1);
  }
  return made;
}

cases::CasePtr cellsOfForms(int dimension, const std::vector<CellForm>& forms, bool withCellNodes) {
  CaseBuilder builder(dimension);
  builder.units("m");
  std::vector<std::vector<double>> points;
  std::uint64_t before = 0;
  for (std::size_t i = 0; i < forms.size(); ++i) {
    const CellForm& form = forms[i];
    std::vector<FaceLine> lines;
    for (const Ids& face : form.faces) {
      FaceLine line = {face, i + 1};
      for (std::uint64_t& node : line.nodes) {
        node += before;
      }
      lines.push_back(line);
    }
    Ids nodes;
    for (std::uint64_t node = 1; node <= form.nodeCount; ++node) {
      nodes.push_back(before + node);
      points.emplace_back(static_cast<std::size_t>(dimension), static_cast<double>(before + node));
    }
    before += form.nodeCount;
    const int number = static_cast<int>(i) + 1;
    builder.faces(10 + number, std::string("around ") + form.name, boundaryWall, lines)
        .cells(30 + number, form.name, form.type, 1);
    if (withCellNodes) {
      builder.cellNodes(30 + number, {nodes});
    }
  }
  return builder.nodes(1, "points", points).build();
}

void setCells(memory::Case& changed, int side, int zone, const Ids& cells) {
  memory::MeshData& arrays = changed.arrays();
  (side == 0 ? arrays.faceCell0 : arrays.faceCell1)[zone] = Slice<std::uint64_t>(cells);
}

void setRange(memory::Case& changed, int zone, std::uint64_t first, std::uint64_t last) {
  changed.zone(zone).sizes[zoneFirstId] = first;
  changed.zone(zone).sizes[zoneLastId] = last;
}

// --- Lists --------------------------------------------------------------------------------------

ListWatch::ListWatch(cases::CasePtr served, Transcript& given)
    : ScriptedProvider(std::move(served)), given_(given) {}

void ListWatch::tell(const std::string& operation, const std::vector<int>& list) {
  given_.push_back(operation + " " + base::argumentText(list));
}

void ListWatch::beginFaceNodes(std::vector<int>& zoneIds) {
  tell("beginFaceNodes", zoneIds);
  ScriptedProvider::beginFaceNodes(zoneIds);
}

void ListWatch::beginFaceCell0(std::vector<int>& zoneIds) {
  tell("beginFaceCell0", zoneIds);
  ScriptedProvider::beginFaceCell0(zoneIds);
}

void ListWatch::beginFaceCell1(std::vector<int>& zoneIds) {
  tell("beginFaceCell1", zoneIds);
  ScriptedProvider::beginFaceCell1(zoneIds);
}

void ListWatch::beginFaceShadows(std::vector<int>& zoneIds) {
  tell("beginFaceShadows", zoneIds);
  ScriptedProvider::beginFaceShadows(zoneIds);
}

void ListWatch::beginFaceTree(std::vector<int>& parentZoneIds, std::vector<int>& childZoneIds) {
  tell("beginFaceTree", parentZoneIds);
  tell("beginFaceTree", childZoneIds);
  ScriptedProvider::beginFaceTree(parentZoneIds, childZoneIds);
}

void ListWatch::beginCellTypes(std::vector<int>& zoneIds) {
  tell("beginCellTypes", zoneIds);
  ScriptedProvider::beginCellTypes(zoneIds);
}

void ListWatch::beginCellNodes(std::vector<int>& zoneIds) {
  tell("beginCellNodes", zoneIds);
  ScriptedProvider::beginCellNodes(zoneIds);
}

// --- Runs ---------------------------------------------------------------------------------------

CheckResult DeepChecksFixture::run(const cases::CasePtr& served, Step step) {
  open(served);
  return runStep(step);
}

Transcript DeepChecksFixture::listsGiven(const cases::CasePtr& served, Step step) {
  Transcript given;
  const TestFactory watched([&](const std::string&) { return new ListWatch(served, given); });
  open(served);
  given.clear();
  const StreamCapture streams;
  step(checker);
  return given;
}

}  // namespace velto::testing
