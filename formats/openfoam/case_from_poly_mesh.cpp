// SPDX-License-Identifier: Apache-2.0
//
// A case mesh from a polyMesh:
//
//   survey of cells, culprits        judged on the arrays as they stand in the files
//   nodes, cells                     cell zones, renumbered where they are no ranges
//   internal faces, patches          slices of the arrays; gathered where face zones renumber
//   periodic pairs, relations        which zone is whose shadow, and which bounds which

#include "formats/openfoam/case_from_poly_mesh.h"

#include <algorithm>
#include <cstddef>
#include <map>
#include <memory>

#include "embedded/base/shapes.h"
#include "embedded/base/zone_relations.h"
#include "formats/openfoam/FaceLists.h"
#include "formats/openfoam/cell_survey.h"
#include "formats/openfoam/find_culprits.h"
#include "formats/openfoam/zone_layout.h"

namespace velto::openfoam {

using base::ZoneRecord;
using memory::Slice;

namespace {

/// Where a link should lead that the mesh has no zone for: to no zone at all, and not to "none".
constexpr int kNoSuchZone = -1;

bool beginsWith(const std::string& text, const std::string& prefix) {
  return text.compare(0, prefix.size(), prefix) == 0;
}

class Assembler {
 public:
  Assembler(memory::Case& target, const base::MeshKey& key, PolyMesh mesh)
      : case_(target),
        tables_(target.mesh(key)),
        arrays_(target.arrays(key)),
        mesh_(std::move(mesh)),
        survey_(surveyCells(mesh_)) {}

  std::vector<std::string> run() {
    std::vector<std::string> warnings = findCulprits(mesh_, survey_);
    tables_.units = "m";
    tables_.sizes[meshDimension] = 3;
    tables_.sizes[meshNodeCount] = mesh_.points.size() / 3;
    tables_.sizes[meshFaceCount] = mesh_.faceNodeCounts.size();
    tables_.sizes[meshCellCount] = survey_.cellCount();
    addNodes();
    addFaces();
    leaveOutEmptyCellZones();
    const ZoneLayout cells = layOutZones(mesh_.cellZones, survey_.cellCount(),
                                         mesh_.cellZones.empty() ? "cells" : "default", false);
    if (cells.isRenumbered()) {
      renumberCells(cells);
    }
    addCells(cells);
    addFaceCells();
    linkPeriodicPairs();
    relate();
    return warnings;
  }

 private:
  /// Adds a zone of `count` elements from the 0-based position `first` on.
  ZoneRecord& addZone(OrvZoneCategory category, const std::string& name, std::uint64_t first,
                      std::uint64_t count) {
    const int zone = ++lastZone_;
    tables_.zoneIds[category].push_back(zone);
    ZoneRecord& record = tables_.zones[zone];
    record.sizes[zoneFirstId] = first + 1;
    record.sizes[zoneLastId] = first + count;
    record.sizes[zoneElementCount] = count;
    record.sizes[zoneDimension] = 3;
    record.texts[zoneName] = name;
    return record;
  }

  void addNodes() {
    if (mesh_.points.empty()) {
      return;
    }
    addZone(zoneCategoryNode, "nodes", 0, mesh_.points.size() / 3);
    arrays_.nodeCoordinates[lastZone_] = Slice<double>(std::move(mesh_.points));
  }

  void addFaceZone(const std::string& name, int type, const std::string& typeName,
                   std::uint64_t first, const FaceLists::Zone& faces) {
    ZoneRecord& record = addZone(zoneCategoryFace, name, first, faces.count);
    record.faceInfo[faceZoneType] = type;
    record.faceInfo[faceZoneFaceType] = faces.nodes.uniform
                                            ? base::faceShapeOf(static_cast<std::uint64_t>(
                                                  std::max<short>(*faces.nodes.uniform, 0)))
                                            : static_cast<int>(base::faceShapeMixed);
    record.texts[zoneTypeName] = typeName;
    arrays_.faceNodes[lastZone_] = faces.nodes;
    faceZones_.push_back({lastZone_, first, faces.count, type == faceZoneTypeInterior});
  }

  void addFaces() {
    std::vector<ElementZone> zones = internalParts();
    internal_ = layOutZones(zones, survey_.internalFaces, "interior", true);
    std::vector<std::uint64_t> starts;
    for (const Patch& patch : mesh_.patches) {
      starts.push_back(patch.firstFace);
      starts.push_back(patch.firstFace + patch.faceCount);
    }
    for (const LayoutZone& zone : internal_.zones) {
      starts.push_back(zone.first);
      starts.push_back(zone.first + zone.count);
    }
    const FaceLists lists(std::move(mesh_.faceNodeCounts), std::move(mesh_.faceNodeIds), starts,
                          internal_.isRenumbered());
    for (const LayoutZone& zone : internal_.zones) {
      addFaceZone(zone.name, faceZoneTypeInterior, "interior", zone.first,
                  internal_.isRenumbered() ? lists.gather(internal_.order, zone.first, zone.count)
                                           : lists.range(zone.first, zone.count));
    }
    for (const Patch& patch : mesh_.patches) {
      // A mesh without faces, such as an empty part of a decomposed case, has no face zones.
      const bool isZone = tables_.size(meshFaceCount) > 0 || patch.faceCount > 0;
      if (isZone) {
        addFaceZone(patch.name, boundaryTypeOf(patch.type), patch.type, patch.firstFace,
                    lists.range(patch.firstFace, patch.faceCount));
        patchZones_[patch.name] = lastZone_;
      }
      for (const auto& entry : patch.entries) {
        const bool isInZone =
            entry.first == "nFaces" || entry.first == "startFace" || entry.first == "type";
        if (!isZone || !isInZone) {
          case_.setSetting("openfoam/boundary/" + patch.name + "/" + entry.first, entry.second);
        }
      }
    }
  }

  /// A cell zone without cells, as decomposed cases have them, is bounded by nothing: it becomes no
  /// zone of the case, and a setting keeps its name.
  void leaveOutEmptyCellZones() {
    std::vector<ElementZone>& zones = mesh_.cellZones;
    const auto isEmpty = [](const ElementZone& zone) { return zone.labels.empty(); };
    for (const ElementZone& zone : zones) {
      if (isEmpty(zone)) {
        case_.setSetting("openfoam/cellZones/" + zone.name + "/cells", "0");
      }
    }
    zones.erase(std::remove_if(zones.begin(), zones.end(), isEmpty), zones.end());
  }

  /// The face zones without the boundary faces in them, which stay in their patches.
  std::vector<ElementZone> internalParts() {
    std::vector<ElementZone> parts;
    const auto faces = static_cast<std::int64_t>(mesh_.faceNodeCounts.size());
    const auto internal = static_cast<std::int64_t>(survey_.internalFaces);
    for (const ElementZone& zone : mesh_.faceZones) {
      ElementZone part;
      part.name = zone.name;
      std::copy_if(zone.labels.begin(), zone.labels.end(), std::back_inserter(part.labels),
                   [&](std::int64_t label) { return label < internal || label >= faces; });
      if (part.labels.size() < zone.labels.size()) {
        case_.setSetting("openfoam/faceZones/" + zone.name + "/boundaryFaces",
                         std::to_string(zone.labels.size() - part.labels.size()));
      }
      if (!part.labels.empty()) {
        parts.push_back(std::move(part));
      }
    }
    return parts;
  }

  void renumberCells(const ZoneLayout& layout) {
    const std::vector<std::uint64_t> ids = newIds(layout, survey_.cellCount());
    for (std::vector<std::uint64_t>* side : {&mesh_.owner, &mesh_.neighbour}) {
      for (std::uint64_t& cell : *side) {
        if (cell - 1 < ids.size()) {
          cell = ids[cell - 1];
        }
      }
    }
  }

  int shapeOf(std::uint64_t cell) const {
    if (cell >= survey_.cells.size()) {
      return base::cellShapePolyhedron;
    }
    const CellFaces& faces = survey_.cells[cell];
    return base::cellShapeOf(faces.triangles, faces.quadrilaterals, faces.others);
  }

  void addCells(const ZoneLayout& layout) {
    for (const LayoutZone& zone : layout.zones) {
      ZoneRecord& record = addZone(zoneCategoryCell, zone.name, zone.first, zone.count);
      const auto cellAt = [&](std::uint64_t i) {
        return layout.isRenumbered() ? layout.order[zone.first + i] : zone.first + i;
      };
      // A zone may claim more cells than there are; shapes are known of those that are.
      const std::uint64_t known =
          layout.isRenumbered()
              ? zone.count
              : std::min(zone.count,
                         survey_.cellCount() - std::min(zone.first, survey_.cellCount()));
      const int shape = known == 0 ? base::cellShapePolyhedron : shapeOf(cellAt(0));
      bool uniform = true;
      for (std::uint64_t i = 1; i < known && uniform; ++i) {
        uniform = shapeOf(cellAt(i)) == shape;
      }
      memory::CellTypeData& types = arrays_.cellTypes[lastZone_];
      record.cellInfo[cellZoneCellType] = uniform ? shape : static_cast<int>(base::cellShapeMixed);
      if (uniform) {
        types.uniform = shape;
        continue;
      }
      std::vector<int> shapes(known);
      for (std::uint64_t i = 0; i < known; ++i) {
        shapes[i] = shapeOf(cellAt(i));
      }
      types.types = Slice<int>(std::move(shapes));
    }
  }

  void addFaceCells() {
    const auto owner = std::make_shared<const std::vector<std::uint64_t>>(std::move(mesh_.owner));
    const auto neighbour =
        std::make_shared<const std::vector<std::uint64_t>>(std::move(mesh_.neighbour));
    const auto cellsOf = [&](const auto& side, const FaceZone& zone) {
      if (!zone.isInternal || !internal_.isRenumbered()) {
        return Slice<std::uint64_t>(side, zone.first, zone.count);
      }
      std::vector<std::uint64_t> cells(zone.count);
      for (std::uint64_t i = 0; i < zone.count; ++i) {
        const std::uint64_t face = internal_.order[zone.first + i];
        cells[i] = face < side->size() ? (*side)[face] : 0;
      }
      return Slice<std::uint64_t>(std::move(cells));
    };
    for (const FaceZone& zone : faceZones_) {
      arrays_.faceCell0[zone.id] = cellsOf(owner, zone);
      if (zone.isInternal) {
        arrays_.faceCell1[zone.id] = cellsOf(neighbour, zone);
      }
    }
  }

  void linkPeriodicPairs() {
    for (const Patch& patch : mesh_.patches) {
      const auto own = patchZones_.find(patch.name);
      if (patch.type != "cyclic" || patch.neighbourPatch.empty() || own == patchZones_.end()) {
        continue;
      }
      const int zone = own->second;
      ZoneRecord& record = tables_.zones[zone];
      const auto partner = patchZones_.find(patch.neighbourPatch);
      if (partner == patchZones_.end()) {
        record.faceInfo[faceZoneShadow] = kNoSuchZone;
        continue;
      }
      record.faceInfo[faceZoneShadow] = partner->second;
      // Of a pair the half that comes first is the periodic zone, the other its shadow.
      if (partner->second < zone) {
        record.faceInfo[faceZoneType] = base::boundaryPeriodicShadow;
      }
      std::vector<std::uint64_t> shadows(arrays_.faceCell0[zone].size());
      for (std::size_t i = 0; i < shadows.size(); ++i) {
        shadows[i] = tables_.zoneSize(partner->second, zoneFirstId) + i;
      }
      arrays_.faceShadows[zone] = Slice<std::uint64_t>(std::move(shadows));
    }
  }

  void relate() {
    const base::CellZoneRanges cellZones(tables_);
    for (const FaceZone& zone : faceZones_) {
      const Slice<std::uint64_t>& side0 = arrays_.faceCell0[zone.id];
      base::relateZones(tables_, cellZones, zone.id, 0, side0.data(), side0.size());
      if (zone.isInternal) {
        const Slice<std::uint64_t>& side1 = arrays_.faceCell1[zone.id];
        base::relateZones(tables_, cellZones, zone.id, 1, side1.data(), side1.size());
      }
    }
    base::deriveBoundingFaceZones(tables_);
  }

  struct FaceZone {
    int id;
    std::uint64_t first;  // 0-based place among the faces, or slot of the internal layout
    std::uint64_t count;
    bool isInternal;
  };

  memory::Case& case_;
  base::MeshTables& tables_;
  memory::MeshData& arrays_;
  PolyMesh mesh_;
  const CellSurvey survey_;
  ZoneLayout internal_;
  std::vector<FaceZone> faceZones_;
  std::map<std::string, int> patchZones_;
  int lastZone_ = 0;
};

}  // namespace

int boundaryTypeOf(const std::string& patchType) {
  static const std::map<std::string, int> kTypes = {
      {"wall", base::boundaryWall},         {"mappedWall", base::boundaryWall},
      {"symmetry", base::boundarySymmetry}, {"symmetryPlane", base::boundarySymmetry},
      {"empty", base::boundaryEmpty},       {"wedge", base::boundaryWedge},
      {"cyclic", base::boundaryPeriodic},
  };
  const auto found = kTypes.find(patchType);
  if (found != kTypes.end()) {
    return found->second;
  }
  if (beginsWith(patchType, "processor")) {
    return base::boundaryProcessor;
  }
  const bool isCoupled = beginsWith(patchType, "cyclic") || beginsWith(patchType, "mapped") ||
                         beginsWith(patchType, "nonConformal");
  return isCoupled ? base::boundaryCoupled : base::boundaryPatch;
}

std::vector<std::string> addPolyMesh(memory::Case& target, const base::MeshKey& key,
                                     PolyMesh mesh) {
  return Assembler(target, key, std::move(mesh)).run();
}

}  // namespace velto::openfoam
