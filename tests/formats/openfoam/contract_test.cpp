// SPDX-License-Identifier: Apache-2.0
//
// The OpenFOAM reader keeps the contract: meshes written into folders are served as the cases that
// they are. The cases are put together here from the meshes, without the reader.

#include <algorithm>
#include <functional>
#include <map>
#include <vector>

#include "embedded/base/shapes.h"
#include "embedded/memory/CaseBuilder.h"
#include "formats/openfoam/OpenFoamProvider.h"
#include "testing/PolyMeshWriter.h"
#include "testing/TempFolder.h"
#include "tests/embedded/contract_suite.h"

namespace velto::testing {
namespace {

/// A mesh, or the parts of one by their numbers. An undivided mesh has the number -1.
using Parts = std::map<int, BoxMesh>;

/// A mesh whose cells come in the order of its zones, and the shape of its cells.
struct Written {
  const char* name;
  int cellShape;
  std::function<Parts()> parts;
};

// --- The meshes ---------------------------------------------------------------------------------

Parts cellZones() {
  BoxMesh mesh = makeBox(2, 2, 2);
  mesh.cellZones = {{"lower", {0, 1, 2, 3}, {}, false}, {"upper", {4, 5, 6, 7}, {}, false}};
  return {{-1, mesh}};
}

/// A periodic pair whose halves both have faces in either zone.
Parts periodicPairOfCellZones() {
  BoxMesh mesh = makeBox(3, 2, 2);
  mesh.cellZones = {{"lower", {0, 1, 2, 3, 4, 5}, {}, false},
                    {"upper", {6, 7, 8, 9, 10, 11}, {}, false}};
  for (const std::size_t i : {2U, 3U}) {
    mesh.patches[i].type = "cyclic";
    mesh.patches[i].extra = {{"neighbourPatch", mesh.patches[5 - i].name}};
  }
  return {{-1, mesh}};
}

Parts periodicPair() {
  BoxMesh mesh = makeBox(3, 2, 1);
  for (const std::size_t i : {2U, 3U}) {
    mesh.patches[i].type = "cyclic";
    mesh.patches[i].extra = {{"neighbourPatch", mesh.patches[5 - i].name}};
  }
  return {{-1, mesh}};
}

/// A cube that is cut along a diagonal of its bottom: faces of three and of four nodes.
Parts wedges() {
  BoxMesh mesh;
  mesh.points = {0, 0, 0, 1, 0, 0, 1, 1, 0, 0, 1, 0, 0, 0, 1, 1, 0, 1, 1, 1, 1, 0, 1, 1};
  const std::vector<std::vector<std::int64_t>> faces = {
      {0, 4, 6, 2},                                         // between the two
      {0, 2, 1},    {4, 5, 6}, {0, 1, 5, 4}, {1, 2, 6, 5},  // around the first
      {0, 3, 2},    {4, 6, 7}, {2, 3, 7, 6}, {3, 0, 4, 7}};
  mesh.faceOffsets = {0};
  for (const auto& face : faces) {
    mesh.faceNodes.insert(mesh.faceNodes.end(), face.begin(), face.end());
    mesh.faceOffsets.push_back(static_cast<std::int64_t>(mesh.faceNodes.size()));
  }
  mesh.owner = {0, 0, 0, 0, 0, 1, 1, 1, 1};
  mesh.neighbour = {1};
  mesh.cellCount = 2;
  mesh.patches = {{"walls", "wall", 8, 1, {}}};
  return {{-1, mesh}};
}

const std::vector<Written>& written() {
  static const std::vector<Written> kWritten = {
      {"Cube", base::cellShapeHexahedron,
       [] {
         return Parts{{-1, makeBox(1, 1, 1)}};
       }},
      {"Box", base::cellShapeHexahedron,
       [] {
         return Parts{{-1, makeBox(3, 2, 2)}};
       }},
      {"CellZones", base::cellShapeHexahedron, cellZones},
      {"PeriodicPair", base::cellShapeHexahedron, periodicPair},
      {"PeriodicPairOfCellZones", base::cellShapeHexahedron, periodicPairOfCellZones},
      {"Wedges", base::cellShapeWedge, wedges},
      {"Processors", base::cellShapeHexahedron, [] {
         return Parts{{0, makeBox(2, 1, 1)}, {1, makeBox(1, 3, 1)}};
       }}};
  return kWritten;
}

// --- The same as cases --------------------------------------------------------------------------

/// Enters a mesh into a case: zone 1 are the nodes, then come the internal faces if there are any,
/// the patches and the cells.
class MeshToCase {
 public:
  MeshToCase(memory::CaseBuilder& target, const BoxMesh& mesh) : case_(target), mesh_(mesh) {}

  void enter(int cellShape) {
    case_.units("m");
    enterNodes();
    const auto internal = static_cast<std::int64_t>(mesh_.neighbour.size());
    if (internal > 0) {
      enterFaces("interior", faceZoneTypeInterior, lines(0, internal));
    }
    std::vector<std::vector<int>> halves;  // of a periodic pair; the second is the first's shadow
    for (const BoxPatch& patch : mesh_.patches) {
      const int type =
          patch.type == "cyclic" && !halves.empty() ? base::boundaryPeriodicShadow : typeOf(patch);
      const std::vector<int> zones =
          enterFaces(patch.name, type, lines(patch.firstFace, patch.firstFace + patch.faceCount));
      for (const int zone : zones) {
        typeNames_[zone] = patch.type;
      }
      if (patch.type == "cyclic") {
        halves.push_back(zones);
      }
    }
    for (std::size_t i = 0; halves.size() == 2 && i < halves[0].size(); ++i) {
      case_.shadows(halves[0][i], halves[1][i]);
    }
    enterCells(cellShape);
  }

  /// What the patches call themselves, by zone.
  const std::map<int, std::string>& typeNames() const { return typeNames_; }

 private:
  void enterNodes() {
    std::vector<std::vector<double>> points;
    for (std::size_t i = 0; i < mesh_.points.size(); i += 3) {
      points.push_back({mesh_.points[i], mesh_.points[i + 1], mesh_.points[i + 2]});
    }
    case_.nodes(++lastZone_, "nodes", points);
  }

  /// Enters one zone, or one for each two cell zones that faces lie between. Returns their ids.
  std::vector<int> enterFaces(const std::string& name, int type,
                              const std::vector<memory::FaceLine>& lines) {
    std::vector<std::string> names;
    std::map<std::string, std::vector<memory::FaceLine>> pieces;
    for (const memory::FaceLine& line : lines) {
      const std::string zone0 = cellZoneOf(line.cell0);
      const std::string zone1 = line.cell1 == 0 ? zone0 : cellZoneOf(line.cell1);
      std::string piece = name;
      piece.append(":").append(zone0).append(zone1 == zone0 ? "" : ":" + zone1);
      if (pieces.count(piece) == 0) {
        names.push_back(piece);
      }
      pieces[piece].push_back(line);
    }
    std::vector<int> zones;
    for (const std::string& piece : names) {
      zones.push_back(++lastZone_);
      case_.faces(lastZone_, names.size() == 1 ? name : piece, type, pieces.at(piece));
    }
    return zones;
  }

  std::string cellZoneOf(std::uint64_t cell) const {
    for (const BoxZone& zone : mesh_.cellZones) {
      for (const std::int64_t label : zone.labels) {
        if (idOf(label) == cell) {
          return zone.name;
        }
      }
    }
    return "cells";
  }

  void enterCells(int shape) {
    for (const BoxZone& zone : mesh_.cellZones) {
      case_.cells(++lastZone_, zone.name, shape, zone.labels.size());
    }
    if (mesh_.cellZones.empty()) {
      case_.cells(++lastZone_, "cells", shape, static_cast<std::uint64_t>(mesh_.cellCount));
    }
  }

  std::vector<memory::FaceLine> lines(std::int64_t begin, std::int64_t end) const {
    std::vector<memory::FaceLine> lines;
    for (auto face = static_cast<std::size_t>(begin); face < static_cast<std::size_t>(end);
         ++face) {
      memory::FaceLine line;
      for (std::int64_t i = mesh_.faceOffsets[face]; i < mesh_.faceOffsets[face + 1]; ++i) {
        line.nodes.push_back(idOf(mesh_.faceNodes[static_cast<std::size_t>(i)]));
      }
      line.cell0 = idOf(mesh_.owner[face]);
      line.cell1 = face < mesh_.neighbour.size() ? idOf(mesh_.neighbour[face]) : 0;
      lines.push_back(line);
    }
    return lines;
  }

  static int typeOf(const BoxPatch& patch) {
    if (patch.type == "cyclic") {
      return base::boundaryPeriodic;
    }
    return patch.type == "wall" ? base::boundaryWall : base::boundaryPatch;
  }

  static std::uint64_t idOf(std::int64_t label) { return static_cast<std::uint64_t>(label) + 1; }

  memory::CaseBuilder& case_;
  const BoxMesh& mesh_;
  int lastZone_ = 0;
  std::map<int, std::string> typeNames_;
};

/// The reader lists zones with shadows in the order of the zones, not pair by pair.
void sortShadows(memory::ZoneList<memory::Slice<std::uint64_t>>& shadows) {
  std::vector<int> zones = shadows.zones();
  std::sort(zones.begin(), zones.end());
  memory::ZoneList<memory::Slice<std::uint64_t>> sorted;
  for (const int zone : zones) {
    sorted[zone] = *shadows.find(zone);
  }
  shadows = sorted;
}

cases::CasePtr caseOf(const Parts& parts, int cellShape) {
  const auto keyOf = [](int part) { return base::MeshKey{1, targetRestart, part}; };
  memory::CaseBuilder builder;
  std::map<int, std::map<int, std::string>> typeNames;
  for (const auto& part : parts) {
    MeshToCase mesh(builder.mesh(keyOf(part.first)), part.second);
    mesh.enter(cellShape);
    typeNames[part.first] = mesh.typeNames();
  }
  cases::CasePtr built = builder.build();
  if (parts.count(-1) == 0) {  // the builder starts with an undivided mesh
    built->tables.meshes.erase(keyOf(-1));
    built->data.erase(keyOf(-1));
  }
  for (auto& mesh : built->data) {
    sortShadows(mesh.second.faceShadows);
  }
  for (const auto& part : typeNames) {
    for (const auto& zone : part.second) {
      built->mesh(keyOf(part.first)).zones.at(zone.first).texts[zoneTypeName] = zone.second;
    }
  }
  return built;
}

// --- The suite ----------------------------------------------------------------------------------

std::unique_ptr<OrvFileProvider> writtenAndOpened(const Parts& parts) {
  const TempFolder folder;
  for (const auto& part : parts) {
    const std::string below = part.first == -1 ? "" : "processor" + std::to_string(part.first);
    writePolyMesh(folder.path(below + "/constant/polyMesh"), part.second);
  }
  auto provider = std::make_unique<openfoam::OpenFoamProvider>();
  EXPECT_TRUE(provider->startReading(folder.path(), dataClassCase));
  return provider;
}

std::vector<ContractParameter> openFoamTests() {
  Deviations deviations;
  deviations.withoutCellFaces = true;
  deviations.withoutFaceTree = true;
  deviations.withoutSettings = true;
  deviations.withoutLocationModel = true;
  deviations.withoutResults = true;
  std::vector<ContractParameter> parameters;
  for (const Written& mesh : written()) {
    const auto open = [&mesh](const cases::CasePtr&) { return writtenAndOpened(mesh.parts()); };
    const auto make = [&mesh] { return caseOf(mesh.parts(), mesh.cellShape); };
    parameters.push_back({{"OpenFoam", open, deviations}, {mesh.name, make}});
  }
  return parameters;
}

INSTANTIATE_TEST_SUITE_P(OpenFoam, ProviderContract, ::testing::ValuesIn(openFoamTests()),
                         contractTestName);

}  // namespace
}  // namespace velto::testing
