// SPDX-License-Identifier: Apache-2.0
//
// CaseBuilder: tables and arrays from a short description.

#include "embedded/memory/CaseBuilder.h"

#include <algorithm>

#include "embedded/base/zone_relations.h"

namespace velto::memory {

using base::MeshKey;
using base::ZoneRecord;

namespace {

/// Lists of ids as the data of a counted family.
CountedData countedData(const std::vector<Ids>& elements) {
  std::vector<short> counts;
  Ids ids;
  for (const Ids& element : elements) {
    counts.push_back(static_cast<short>(element.size()));
    ids.insert(ids.end(), element.begin(), element.end());
  }
  CountedData data;
  data.ids = Slice<std::uint64_t>(std::move(ids));
  if (!counts.empty() && std::count(counts.begin(), counts.end(), counts.front()) ==
                             static_cast<std::ptrdiff_t>(counts.size())) {
    data.uniform = counts.front();
  } else {
    data.counts = Slice<short>(std::move(counts));
  }
  return data;
}

/// The one shape of all elements, or the value for "mixed".
int commonShape(const std::vector<int>& shapes) {
  for (const int shape : shapes) {
    if (shape != shapes.front()) {
      return base::cellShapeMixed;
    }
  }
  return shapes.empty() ? base::cellShapeMixed : shapes.front();
}

}  // namespace

CaseBuilder::CaseBuilder(int dimension) {
  case_.tables.solverType = "VELTO_GENERIC";
  case_.tables.version = base::ownVersion();
  mesh({}, dimension);
}

CaseBuilder& CaseBuilder::mesh(const MeshKey& key, int dimension) {
  key_ = key;
  auto& sizes = tables().sizes;
  sizes[meshDimension] = static_cast<std::uint64_t>(dimension);
  for (const OrvMeshSizeType count : {meshNodeCount, meshFaceCount, meshCellCount}) {
    sizes[count] = sizes[count].value_or(0);
  }
  arrays();
  return *this;
}

CaseBuilder& CaseBuilder::solverType(const std::string& type) {
  case_.tables.solverType = type;
  return *this;
}

CaseBuilder& CaseBuilder::version(int major, int minor, int patch) {
  case_.tables.version = {major, minor, patch};
  return *this;
}

CaseBuilder& CaseBuilder::units(const std::string& units) {
  tables().units = units;
  return *this;
}

CaseBuilder& CaseBuilder::setting(const std::string& key, const std::string& value) {
  case_.setSetting(key, value);
  return *this;
}

CaseBuilder& CaseBuilder::nodes(int zone, const std::string& name,
                                const std::vector<std::vector<double>>& coordinates) {
  tables().addZone(zoneCategoryNode, zone, name, coordinates.size());
  std::vector<double> values;
  for (const auto& node : coordinates) {
    values.insert(values.end(), node.begin(), node.end());
  }
  arrays().nodeCoordinates[zone] = Slice<double>(std::move(values));
  return *this;
}

CaseBuilder& CaseBuilder::faces(int zone, const std::string& name, int type,
                                const std::vector<FaceLine>& lines) {
  ZoneRecord& record = tables().addZone(zoneCategoryFace, zone, name, lines.size());
  std::vector<Ids> nodes;
  std::vector<int> shapes;
  Ids cell0;
  Ids cell1;
  for (const FaceLine& line : lines) {
    nodes.push_back(line.nodes);
    shapes.push_back(base::faceShapeOf(line.nodes.size()));
    cell0.push_back(line.cell0);
    cell1.push_back(line.cell1);
  }
  record.faceInfo[faceZoneFaceType] = commonShape(shapes);
  record.faceInfo[faceZoneType] = type;
  record.texts[zoneTypeName] = base::faceZoneTypeName(type);
  arrays().faceNodes[zone] = countedData(nodes);
  arrays().faceCell0[zone] = Slice<std::uint64_t>(std::move(cell0));
  if (std::any_of(cell1.begin(), cell1.end(), [](std::uint64_t cell) { return cell != 0; })) {
    arrays().faceCell1[zone] = Slice<std::uint64_t>(std::move(cell1));
  }
  return *this;
}

CaseBuilder& CaseBuilder::cells(int zone, const std::string& name, int shape, std::uint64_t count) {
  ZoneRecord& record = tables().addZone(zoneCategoryCell, zone, name, count);
  record.cellInfo[cellZoneCellType] = shape;
  arrays().cellTypes[zone].uniform = shape;
  return *this;
}

CaseBuilder& CaseBuilder::cells(int zone, const std::string& name, const std::vector<int>& shapes) {
  ZoneRecord& record = tables().addZone(zoneCategoryCell, zone, name, shapes.size());
  record.cellInfo[cellZoneCellType] = commonShape(shapes);
  arrays().cellTypes[zone].types = Slice<int>(shapes);
  return *this;
}

CaseBuilder& CaseBuilder::cellNodes(int zone, const std::vector<Ids>& cells) {
  arrays().cellNodes[zone] = countedData(cells);
  return *this;
}

CaseBuilder& CaseBuilder::cellFaces(int zone, const std::vector<Ids>& cells) {
  arrays().cellFaces[zone] = countedData(cells);
  return *this;
}

CaseBuilder& CaseBuilder::shadows(int zone, int shadowZone) {
  base::MeshTables& mesh = tables();
  const auto link = [&](int from, int to) {
    mesh.zones[from].faceInfo[faceZoneShadow] = to;
    Ids partners(mesh.zoneSize(from, zoneElementCount));
    for (std::size_t i = 0; i < partners.size(); ++i) {
      partners[i] = mesh.zoneSize(to, zoneFirstId) + i;
    }
    arrays().faceShadows[from] = Slice<std::uint64_t>(std::move(partners));
  };
  link(zone, shadowZone);
  link(shadowZone, zone);
  return *this;
}

CaseBuilder& CaseBuilder::phase(short id, const std::string& name) {
  base::Phase phase;
  phase.id = id;
  phase.name = name;
  case_.tables.phases.push_back(phase);
  return *this;
}

CaseBuilder& CaseBuilder::variable(short phase, OrvZoneCategory category, const std::string& name,
                                   int zone, std::size_t valuesPerEntity,
                                   const std::vector<double>& values) {
  case_.tables.addVariable(name);
  VariableData& held = arrays().variable({phase, category, name});
  held.valuesPerEntity = valuesPerEntity;
  held.zones[zone] = Slice<double>(values);
  return *this;
}

std::shared_ptr<Case> CaseBuilder::build() {
  for (auto& entry : case_.data) {
    if (entry.first.target == targetRestart) {
      relate(case_.mesh(entry.first), entry.second);
    }
  }
  return std::make_shared<Case>(case_);
}

void CaseBuilder::relate(base::MeshTables& mesh, const MeshData& data) {
  const base::CellZoneRanges cellZones(mesh);
  for (const int side : {0, 1}) {
    const auto& list = side == 0 ? data.faceCell0 : data.faceCell1;
    for (const int zone : list.zones()) {
      const Slice<std::uint64_t>& cells = *list.find(zone);
      relateZones(mesh, cellZones, zone, side, cells.data(), cells.size());
    }
  }
  deriveBoundingFaceZones(mesh);
}

}  // namespace velto::memory
