// SPDX-License-Identifier: Apache-2.0
//
// Culprits of each kind, file by file. The loops over all entries only compare; words are made for
// what is wrong.

#include "formats/openfoam/find_culprits.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <map>
#include <optional>
#include <tuple>

#include "embedded/base/id_ranges.h"
#include "formats/openfoam/Culprits.h"
#include "formats/openfoam/zone_layout.h"

namespace velto::openfoam {

namespace {

using Texts = std::vector<std::string>;

std::string text(std::uint64_t number) { return std::to_string(number); }

/// Whether the first `count` ids are all of 1 to `most`.
bool areOfMesh(const memory::IdList& ids, std::size_t count, std::uint64_t most) {
  return ids.visit(
      [&](const auto* held, std::size_t) { return base::areWithin(1, most, held, count); });
}

/// A sum of finite coordinates is finite, or overflows for coordinates that are no lengths.
bool isFinite(const double* point) { return std::isfinite(point[0] + point[1] + point[2]); }

void judgePoints(const PolyMesh& mesh, Texts& warnings) {
  bool areFinite = true;
  for (std::size_t i = 0; i + 2 < mesh.points.size(); i += 3) {
    areFinite &= isFinite(&mesh.points[i]);
  }
  Culprits bad(mesh.pointsFile, "points with a coordinate that is no finite number");
  for (std::size_t i = 0; !areFinite && i + 2 < mesh.points.size(); i += 3) {
    const double* point = &mesh.points[i];
    if (!isFinite(point)) {
      bad.add([&] {
        return "point " + text(i / 3) + " is (" + std::to_string(point[0]) + " " +
               std::to_string(point[1]) + " " + std::to_string(point[2]) +
               "), finite numbers are expected";
      });
    }
  }
  bad.appendTo(warnings);
}

void judgeFaceNodes(const PolyMesh& mesh, Texts& warnings) {
  Culprits small(mesh.facesFile, "faces of fewer than 3 nodes");
  std::int16_t fewest = 3;
  for (const std::int16_t count : mesh.faceNodeCounts) {
    fewest = std::min(fewest, count);
  }
  for (std::size_t face = 0; fewest < 3 && face < mesh.faceNodeCounts.size(); ++face) {
    if (mesh.faceNodeCounts[face] < 3) {
      small.add([&] {
        return "face " + text(face) + " has " + std::to_string(mesh.faceNodeCounts[face]) +
               " nodes, at least 3 are expected";
      });
    }
  }
  small.appendTo(warnings);

  const std::uint64_t nodes = mesh.points.size() / 3;
  if (areOfMesh(mesh.faceNodeIds, mesh.faceNodeIds.size(), nodes)) {
    return;
  }
  Culprits outside(mesh.facesFile, "node labels out of range");
  std::size_t next = 0;
  for (std::size_t face = 0; face < mesh.faceNodeCounts.size(); ++face) {
    const auto count = static_cast<std::size_t>(mesh.faceNodeCounts[face]);
    for (std::size_t i = 0; i < count; ++i) {
      const std::uint64_t id = mesh.faceNodeIds[next + i];
      if (id - 1 >= nodes) {
        outside.add([&] {
          return "face " + text(face) + ", node " + text(i) + ": label " + labelText(id) +
                 " is out of range, allowed are " + rangeText(nodes);
        });
      }
    }
    next += count;
  }
  outside.appendTo(warnings);
}

void judgeCellLabels(const std::string& file, const memory::IdList& labels, std::size_t count,
                     std::uint64_t cells, Texts& warnings) {
  if (areOfMesh(labels, count, cells)) {
    return;
  }
  Culprits outside(file, "cell labels out of range");
  for (std::size_t face = 0; face < count; ++face) {
    if (labels[face] - 1 >= cells) {
      outside.add([&] {
        return "face " + text(face) + ": label " + labelText(labels[face]) +
               " is out of range, allowed are " + rangeText(cells);
      });
    }
  }
  outside.appendTo(warnings);
}

/// Whether one of the internal faces has the same cell on both sides.
bool isAnyBetweenOneCell(const PolyMesh& mesh, const CellSurvey& survey) {
  return mesh.owner.visit([&](const auto* owner, std::size_t) {
    return mesh.neighbour.visit([&](const auto* neighbour, std::size_t) {
      std::size_t same = 0;
      for (std::size_t face = 0; face < survey.internalFaces; ++face) {
        same += owner[face] == neighbour[face] ? 1 : 0;
      }
      return same != 0;
    });
  });
}

void judgeCells(const PolyMesh& mesh, const CellSurvey& survey, Texts& warnings) {
  Culprits same(mesh.neighbourFile, "faces with one cell on both sides");
  const bool isLookedAt = isAnyBetweenOneCell(mesh, survey);
  for (std::size_t face = 0; isLookedAt && face < survey.internalFaces; ++face) {
    if (mesh.owner[face] == mesh.neighbour[face]) {
      same.add([&] {
        return "face " + text(face) + ": label " + labelText(mesh.neighbour[face]) +
               " is the face's owner too, two cells are expected";
      });
    }
  }
  same.appendTo(warnings);
  Culprits open(mesh.ownerFile, "cells of fewer than 4 faces");
  for (std::size_t cell = 0; cell < survey.cells.size(); ++cell) {
    if (survey.cells[cell].total() < 4) {
      open.add([&] {
        return "cell " + text(cell) + " has " + text(survey.cells[cell].total()) +
               " faces, at least 4 are expected";
      });
    }
  }
  open.appendTo(warnings);
}

std::string place(const Patch& patch) {
  return "line " + text(patch.line) + ", patch " + patch.name;
}

void judgePatchRanges(const PolyMesh& mesh, const CellSurvey& survey, Texts& warnings) {
  Culprits gaps(mesh.boundaryFile, "gaps before patches");
  Culprits overlaps(mesh.boundaryFile, "overlaps of patches");
  Culprits beyond(mesh.boundaryFile, "patches past the last face");
  const std::uint64_t faces = mesh.faceNodeCounts.size();
  std::vector<const Patch*> patches;
  for (const Patch& patch : mesh.patches) {
    // A patch without faces may start at 0, or between any two others.
    if (patch.faceCount > 0 || patch.firstFace > 0) {
      patches.push_back(&patch);
    }
  }
  std::stable_sort(patches.begin(), patches.end(), [](const Patch* a, const Patch* b) {
    return std::tie(a->firstFace, a->faceCount) < std::tie(b->firstFace, b->faceCount);
  });
  std::uint64_t covered = survey.internalFaces;
  std::string before = "the internal faces end at " + text(covered);
  for (const Patch* patch : patches) {
    const auto startsElsewhere = [&] {
      return place(*patch) + ": startFace is " + text(patch->firstFace) + ", " + before +
             ", startFace " + text(covered) + " is expected";
    };
    if (patch->firstFace > covered) {
      gaps.add(startsElsewhere);
    } else if (patch->firstFace < covered) {
      overlaps.add(startsElsewhere);
    }
    const std::uint64_t end = patch->firstFace + patch->faceCount;
    if (end < patch->firstFace || end > faces) {
      beyond.add([&] {
        return place(*patch) + ": startFace " + text(patch->firstFace) + " and nFaces " +
               text(patch->faceCount) + " reach past the last face, the mesh has " + text(faces) +
               " faces";
      });
    }
    covered = std::max(covered, end);
    before = "patch " + patch->name + " ends at " + text(covered);
  }
  if (covered < faces) {
    gaps.add([&] {
      return text(faces - covered) + " faces from " + text(covered) + " on are in no patch, " +
             before;
    });
  }
  overlaps.appendTo(warnings);
  gaps.appendTo(warnings);
  beyond.appendTo(warnings);
}

/// A solver keeps the fields of its boundary by the names of patches.
void judgePatchNames(const PolyMesh& mesh, Texts& warnings) {
  Culprits bad(mesh.boundaryFile, "patches with the name of another");
  std::map<std::string, const Patch*> byName;
  for (const Patch& patch : mesh.patches) {
    const auto [first, isNew] = byName.emplace(patch.name, &patch);
    if (!isNew) {
      bad.add([&, before = first->second] {
        return place(patch) + ": line " + text(before->line) + " has a patch of this name already";
      });
    }
  }
  bad.appendTo(warnings);
}

void judgePairs(const PolyMesh& mesh, Texts& warnings) {
  Culprits bad(mesh.boundaryFile, "cyclic patches without their other half");
  std::map<std::string, const Patch*> byName;
  for (const Patch& patch : mesh.patches) {
    byName.emplace(patch.name, &patch);
  }
  for (const Patch& patch : mesh.patches) {
    if (patch.type != "cyclic" || patch.neighbourPatch.empty()) {
      continue;
    }
    const auto partner = byName.find(patch.neighbourPatch);
    if (partner == byName.end()) {
      bad.add([&] {
        return place(patch) + ": neighbourPatch " + patch.neighbourPatch + " is no patch";
      });
    } else if (partner->second->neighbourPatch != patch.name) {
      bad.add([&] {
        return place(patch) + ": neighbourPatch " + patch.neighbourPatch +
               " does not name it in return";
      });
    } else if (partner->second->faceCount != patch.faceCount) {
      bad.add([&] {
        return place(patch) + ": nFaces is " + text(patch.faceCount) + ", that of its other half " +
               patch.neighbourPatch + " is " + text(partner->second->faceCount);
      });
    }
  }
  bad.appendTo(warnings);
}

/// Whether no label can be wrong: the zones are ranges of the mesh, each behind the one before it.
bool areRangesInOrder(const std::vector<ElementZone>& zones, std::uint64_t count) {
  std::uint64_t next = 0;
  for (const ElementZone& zone : zones) {
    if (zone.labels.empty()) {
      continue;
    }
    const auto first = static_cast<std::uint64_t>(zone.labels.front());
    if (first < next || first >= count || zone.labels.size() > count - first || !isRange(zone)) {
      return false;
    }
    next = first + zone.labels.size();
  }
  return true;
}

/// Labels of zones of cells or faces: each in range and in one zone.
void judgeZones(const std::string& file, const std::string& element,
                const std::vector<ElementZone>& zones, std::uint64_t count, Texts& warnings) {
  if (areRangesInOrder(zones, count)) {
    return;
  }
  Culprits outside(file, element + " labels out of range");
  Culprits twice(file, element + "s in two zones");
  std::vector<bool> claimed(count);
  for (const ElementZone& zone : zones) {
    for (std::size_t i = 0; i < zone.labels.size(); ++i) {
      const std::int64_t label = zone.labels[i];
      if (label < 0 || static_cast<std::uint64_t>(label) >= count) {
        outside.add([&] {
          return "zone " + zone.name + ", entry " + text(i) + ": label " + std::to_string(label) +
                 " is out of range, allowed are " + rangeText(count);
        });
        continue;
      }
      const auto position = static_cast<std::size_t>(label);
      if (claimed[position]) {
        twice.add([&] {
          return "zone " + zone.name + ", entry " + text(i) + ": " + element + " " +
                 text(position) + " is in a zone already";
        });
      }
      claimed[position] = true;
    }
  }
  outside.appendTo(warnings);
  twice.appendTo(warnings);
}

void judgeNote(const PolyMesh& mesh, const CellSurvey& survey, Texts& warnings) {
  if (!mesh.note) {
    return;
  }
  const auto compare = [&](const char* name, const std::optional<std::uint64_t>& noted,
                           std::uint64_t found) {
    if (noted && *noted != found) {
      warnings.push_back(mesh.ownerFile + ": the note in the header says " + name + ":" +
                         text(*noted) + ", the files hold " + text(found));
    }
  };
  compare("nPoints", mesh.note->nodes, mesh.points.size() / 3);
  compare("nCells", mesh.note->cells, survey.cellCount());
  compare("nFaces", mesh.note->faces, mesh.faceNodeCounts.size());
  compare("nInternalFaces", mesh.note->internalFaces, survey.internalFaces);
}

}  // namespace

std::vector<std::string> findCulprits(const PolyMesh& mesh, const CellSurvey& survey) {
  Texts warnings;
  judgePoints(mesh, warnings);
  judgeFaceNodes(mesh, warnings);
  judgeCellLabels(mesh.ownerFile, mesh.owner, mesh.owner.size(), survey.cellCount(), warnings);
  judgeCellLabels(mesh.neighbourFile, mesh.neighbour, survey.internalFaces, survey.cellCount(),
                  warnings);
  judgeCells(mesh, survey, warnings);
  judgePatchRanges(mesh, survey, warnings);
  judgePatchNames(mesh, warnings);
  judgePairs(mesh, warnings);
  judgeZones(mesh.cellZonesFile, "cell", mesh.cellZones, survey.cellCount(), warnings);
  judgeZones(mesh.faceZonesFile, "face", mesh.faceZones, mesh.faceNodeCounts.size(), warnings);
  judgeNote(mesh, survey, warnings);
  return warnings;
}

}  // namespace velto::openfoam
