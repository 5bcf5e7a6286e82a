// SPDX-License-Identifier: Apache-2.0
//
// A case mesh from a polyMesh:
//
//   survey of cells, culprits        judged on the arrays as they stand in the files
//   nodes, cells                     cell zones, renumbered where they are no ranges
//   internal faces, patches          cut where several cell zones meet them; slices of the arrays,
//                                    gathered where zones are no ranges
//   periodic pairs, relations        which zone is whose shadow, and which bounds which

#include "formats/openfoam/case_from_poly_mesh.h"

#include <algorithm>
#include <cstddef>
#include <map>
#include <memory>
#include <numeric>
#include <set>
#include <utility>

#include "data_access/OrvUtilities.h"

#include "embedded/base/shapes.h"
#include "embedded/base/zone_relations.h"
#include "formats/openfoam/FaceLists.h"
#include "formats/openfoam/cell_survey.h"
#include "formats/openfoam/cut_face_zones.h"
#include "formats/openfoam/face_zones.h"
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

/// Whether the type of a zone alone tells the word.
bool isPlainType(const std::string& patchType) {
  return plainTypeOf(boundaryTypeOf(patchType)) == patchType;
}

/// A comma-separated list with the names added that it lacks.
std::string withNames(std::string list, const std::vector<std::string>& names) {
  std::vector<std::string> before;
  OrvUtilities::splitString(list, before, true, ',');
  std::set<std::string> listed(before.begin(), before.end());
  for (const std::string& name : names) {
    if (listed.insert(name).second) {
      list += (list.empty() ? "" : ",") + name;
    }
  }
  return list;
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
    leaveOutEmptyCellZones();
    const ZoneLayout cells = layOutZones(mesh_.cellZones, survey_.cellCount(),
                                         mesh_.cellZones.empty() ? "cells" : "default", false);
    if (cells.isRenumbered()) {
      renumberCells(cells);
    }
    addFaces(cells);
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

  void addFaces(const ZoneLayout& cells) {
    faceZones_ = cutByCellZones(layOutFaceZones(mesh_, survey_.internalFaces, internalParts()),
                                mesh_, cells.zones);
    patchZones_.resize(mesh_.patches.size());
    std::vector<std::uint64_t> starts;
    bool isGathering = false;
    for (const FaceZone& zone : faceZones_) {
      starts.push_back(zone.first);
      starts.push_back(zone.first + zone.count);
      isGathering = isGathering || zone.gathered;
    }
    const FaceLists lists(std::move(mesh_.faceNodeCounts), std::move(mesh_.faceNodeIds), starts,
                          isGathering);
    for (const FaceZone& zone : faceZones_) {
      addFaceZone(zone, zone.gathered ? lists.gather(*zone.gathered, zone.count)
                                      : lists.range(zone.first, zone.count));
    }
    keepPatchEntries();
    keepPieces();
  }

  void addFaceZone(const FaceZone& zone, const FaceLists::Zone& faces) {
    ZoneRecord& record = addZone(zoneCategoryFace, zone.name, zone.first, faces.count);
    record.faceInfo[faceZoneFaceType] = faces.nodes.uniform
                                            ? base::faceShapeOf(static_cast<std::uint64_t>(
                                                  std::max<short>(*faces.nodes.uniform, 0)))
                                            : static_cast<int>(base::faceShapeMixed);
    if (zone.isInternal()) {
      record.faceInfo[faceZoneType] = faceZoneTypeInterior;
      record.texts[zoneTypeName] = "interior";
    } else {
      const std::string& type = mesh_.patches[*zone.patch].type;
      record.faceInfo[faceZoneType] = boundaryTypeOf(type);
      record.texts[zoneTypeName] = type;
      patchZones_[*zone.patch].push_back(lastZone_);
    }
    arrays_.faceNodes[lastZone_] = faces.nodes;
    faceZoneIds_.push_back(lastZone_);
  }

  void keepPatchEntries() {
    for (std::size_t i = 0; i < mesh_.patches.size(); ++i) {
      const Patch& patch = mesh_.patches[i];
      for (const auto& entry : patch.entries) {
        const bool isInZone = entry.first == "nFaces" || entry.first == "startFace" ||
                              (entry.first == "type" && isPlainType(patch.type));
        if (patchZones_[i].empty() || !isInZone) {
          case_.setSetting("openfoam/boundary/" + patch.name + "/" + entry.first, entry.second);
        }
      }
    }
  }

  /// Names the pieces of each zone of the files beside those that other partitions have of it.
  void keepPieces() {
    std::map<std::string, std::vector<std::string>> pieces;
    for (const FaceZone& zone : faceZones_) {
      if (zone.isPiece) {
        pieces[zone.settings + "/pieces"].push_back(zone.name);
      }
    }
    for (const auto& [key, names] : pieces) {
      const std::string* const found = case_.tables.defaultSettings().find(key);
      case_.setSetting(key, withNames(found == nullptr ? "" : *found, names));
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
    for (memory::IdList* side : {&mesh_.owner, &mesh_.neighbour}) {
      side->transform(
          [&](std::uint64_t cell) { return cell - 1 < ids.size() ? ids[cell - 1] : cell; });
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
    const auto owner = std::make_shared<const memory::IdList>(std::move(mesh_.owner));
    const auto neighbour = std::make_shared<const memory::IdList>(std::move(mesh_.neighbour));
    const auto cellsOf = [](const auto& side, const FaceZone& zone) {
      if (!zone.gathered) {
        return Slice<std::uint64_t>(side, zone.first, zone.count);
      }
      memory::IdList cells;
      cells.reserve(zone.gathered->size());
      for (const std::uint64_t face : *zone.gathered) {
        cells.add(face < side->size() ? (*side)[face] : 0);
      }
      return Slice<std::uint64_t>(std::move(cells));
    };
    for (std::size_t i = 0; i < faceZones_.size(); ++i) {
      arrays_.faceCell0[faceZoneIds_[i]] = cellsOf(owner, faceZones_[i]);
      if (faceZones_[i].isInternal()) {
        arrays_.faceCell1[faceZoneIds_[i]] = cellsOf(neighbour, faceZones_[i]);
      }
    }
  }

  void linkPeriodicPairs() {
    const auto partners = cyclicPartners(mesh_.patches);
    for (std::size_t i = 0; i < mesh_.patches.size(); ++i) {
      if (mesh_.patches[i].type != "cyclic" || mesh_.patches[i].neighbourPatch.empty()) {
        continue;
      }
      // Halves of a sound pair are cut alike. Of others the last piece stands for all it lacks.
      const auto partner = partners[i] ? patchZones_[*partners[i]] : std::vector<int>();
      for (std::size_t piece = 0; piece < patchZones_[i].size(); ++piece) {
        linkToShadow(patchZones_[i][piece],
                     partner.empty() ? kNoSuchZone : partner[std::min(piece, partner.size() - 1)]);
      }
    }
  }

  void linkToShadow(int zone, int partner) {
    ZoneRecord& record = tables_.zones[zone];
    record.faceInfo[faceZoneShadow] = partner;
    if (partner == kNoSuchZone) {
      return;
    }
    // Of a pair the half that comes first is the periodic zone, the other its shadow.
    if (partner < zone) {
      record.faceInfo[faceZoneType] = base::boundaryPeriodicShadow;
    }
    std::vector<std::uint64_t> shadows(arrays_.faceCell0[zone].size());
    std::iota(shadows.begin(), shadows.end(), tables_.zoneSize(partner, zoneFirstId));
    arrays_.faceShadows[zone] = Slice<std::uint64_t>(std::move(shadows));
  }

  void relate() {
    const base::CellZoneRanges cellZones(tables_);
    for (const int zone : faceZoneIds_) {
      relateSide(cellZones, zone, 0, arrays_.faceCell0[zone]);
      if (const Slice<std::uint64_t>* const side1 = arrays_.faceCell1.find(zone)) {
        relateSide(cellZones, zone, 1, *side1);
      }
    }
    base::deriveBoundingFaceZones(tables_);
  }

  void relateSide(const base::CellZoneRanges& cellZones, int zone, int side,
                  const Slice<std::uint64_t>& cells) {
    if (cells.narrow() != nullptr) {
      base::relateZones(tables_, cellZones, zone, side, cells.narrow(), cells.size());
    } else {
      base::relateZones(tables_, cellZones, zone, side, cells.data(), cells.size());
    }
  }

  memory::Case& case_;
  base::MeshTables& tables_;
  memory::MeshData& arrays_;
  PolyMesh mesh_;
  const CellSurvey survey_;
  std::vector<FaceZone> faceZones_;
  std::vector<int> faceZoneIds_;              // of the face zones
  std::vector<std::vector<int>> patchZones_;  // the ids of each patch: of several where it was cut
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

std::string plainTypeOf(int boundaryType) {
  switch (boundaryType) {
    case base::boundaryWall:
      return "wall";
    case base::boundaryPeriodic:
    case base::boundaryPeriodicShadow:
      return "cyclic";
    case base::boundarySymmetry:
      return "symmetry";
    case base::boundaryEmpty:
      return "empty";
    case base::boundaryWedge:
      return "wedge";
    case base::boundaryProcessor:
      return "processor";
    default:
      return "patch";
  }
}

std::vector<std::string> addPolyMesh(memory::Case& target, const base::MeshKey& key,
                                     PolyMesh mesh) {
  return Assembler(target, key, std::move(mesh)).run();
}

}  // namespace velto::openfoam
