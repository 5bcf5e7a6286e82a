// SPDX-License-Identifier: Apache-2.0
//
// Defects in connectivity: nodes and faces that are not there, cells and faces that do not go
// together, partners outside their zone. All of them take a check at level 2.

#include <cstddef>
#include <cstdint>
#include <utility>
#include <vector>

#include "embedded/base/shapes.h"
#include "samples/defect_lists.h"

namespace velto::samples {

using base::Family;

namespace {

constexpr int kConnectivity = 2;

/// Replaces one value of a list.
template <class Value>
void replace(memory::Slice<Value>& list, std::size_t at, Value value) {
  std::vector<Value> edited(list.begin(), list.end());
  edited.at(at) = value;
  list = memory::Slice<Value>(std::move(edited));
}

std::uint64_t countOf(memory::Case& damaged, OrvMeshSizeType key) {
  return onlyMesh(damaged).sizes.at(key).value_or(0);
}

/// Gives the first face of a zone another cell on one side.
void renameFirstCell(memory::Case& damaged, base::Family side, const char* zone,
                     std::uint64_t cell) {
  replace(onlyArrays(damaged).faceIds(side)[zoneNamed(onlyMesh(damaged), zone)], 0, cell);
}

/// Has a cell zone list one face a cell, beside being known by its faces.
void listFacesToo(memory::Case& damaged) {
  memory::CountedData& faces = onlyArrays(damaged).cellFaces[zoneNamed(onlyMesh(damaged), "fluid")];
  faces.uniform = short{1};
  faces.ids =
      memory::Slice<std::uint64_t>(std::vector<std::uint64_t>(countOf(damaged, meshCellCount), 1));
}

/// Takes the nodes of the last face or cell of a zone away.
void emptyLast(memory::Case& damaged, base::Family family, const char* zone) {
  memory::CountedData& nodes =
      onlyArrays(damaged).counted(family)[zoneNamed(onlyMesh(damaged), zone)];
  const short count = nodes.uniform.value_or(0);
  const std::uint64_t elements = recordOf(damaged, zone).sizes[zoneElementCount].value_or(0);
  std::vector<short> counts(elements, count);
  counts.back() = 0;
  nodes.uniform.reset();
  nodes.counts = memory::Slice<short>(std::move(counts));
  nodes.ids = memory::Slice<std::uint64_t>(
      std::vector<std::uint64_t>(nodes.ids.begin(), nodes.ids.end() - count));
}

/// Gives each cell a type of its own: all of them as before, but for the first.
void retypeFirstCell(memory::Case& damaged, int type) {
  memory::CellTypeData& types =
      onlyArrays(damaged).cellTypes[zoneNamed(onlyMesh(damaged), "fluid")];
  std::vector<int> each(countOf(damaged, meshCellCount), types.uniform.value_or(0));
  each.front() = type;
  types.uniform.reset();
  types.types = memory::Slice<int>(std::move(each));
}

}  // namespace

const std::vector<Defect>& defectsOfConnectivity() {
  static const std::vector<Defect> kDefects = {
      {"no-face-nodes", "A face zone does not say which nodes its faces have.", "box", false,
       "checkFaceConnectivity : Not all face zones define node connectivity",
       [](memory::Case& damaged) {
         onlyArrays(damaged).faceNodes.remove(zoneNamed(onlyMesh(damaged), "inlet"));
       },
       kConnectivity},
      {"face-node-range", "A face has a node that the mesh does not have.", "box", true,
       "checkFaceConnectivity : Face node ids out of node id range",
       [](memory::Case& damaged) {
         replace(onlyArrays(damaged).faceNodes[zoneNamed(onlyMesh(damaged), "inlet")].ids, 2,
                 countOf(damaged, meshNodeCount) + 1);
       },
       kConnectivity},
      {"cell-node-range", "A cell has a node that the mesh does not have.", "post", true,
       "checkCellConnectivity : Cell node ids out of node id range",
       [](memory::Case& damaged) {
         replace(onlyArrays(damaged).cellNodes[zoneNamed(onlyMesh(damaged), "fluid")].ids, 7,
                 countOf(damaged, meshNodeCount) + 1);
       },
       kConnectivity},
      {"cell-face-range", "A polyhedron has a face that the mesh does not have.", "polyhedra", true,
       "checkCellConnectivity : Cell face ids out of face id range",
       [](memory::Case& damaged) {
         replace(onlyArrays(damaged).cellFaces[zoneNamed(onlyMesh(damaged), "bricks")].ids, 0,
                 countOf(damaged, meshFaceCount) + 1);
       },
       kConnectivity},
      {"cells-told-twice", "Cells are known by their faces, and list faces as well.", "box", true,
       "checkCellConnectivity : Cell-zones: Inconsistency in cell zone definitions", listFacesToo,
       kConnectivity},
      {"uncounted-faces", "The mesh counts two faces less than its zones hold.", "box-cells", true,
       "readFaceNodes : Logic error in face connectivity index",
       [](memory::Case& damaged) { *onlyMesh(damaged).sizes[meshFaceCount] -= 2; }, kConnectivity},
      {"uncounted-cells", "The mesh counts two cells less than its zones hold.", "post", true,
       "readCellNodes : Logic error in cell connectivity index",
       [](memory::Case& damaged) { *onlyMesh(damaged).sizes[meshCellCount] -= 2; }, kConnectivity},
      {"empty-face", "The last face of a zone has no nodes.", "box-cells", true,
       "readFaceNodes : Logic error 2 in face connectivity index",
       [](memory::Case& damaged) { emptyLast(damaged, Family::faceNodes, "inlet"); },
       kConnectivity},
      {"empty-cell", "The last cell of a zone has no nodes.", "post", true,
       "readCellNodes : Logic error 2 in cell connectivity index",
       [](memory::Case& damaged) { emptyLast(damaged, Family::cellNodes, "fluid"); },
       kConnectivity},
      {"no-cell-types", "Cells that are known by their faces have no types.", "box", false,
       "checkCellsFromFaces_facenode : cell_face mesh with no cell-type are unsupported",
       [](memory::Case& damaged) { onlyArrays(damaged).cellTypes = {}; }, kConnectivity},
      {"side-0-cell-missing", "A face lies beside a cell that is not there.", "box-cells", true,
       "checkCellsFromFaces_cellnode : Cell 0 (65) for face 145 is invalid",
       [](memory::Case& damaged) {
         renameFirstCell(damaged, Family::faceCell0, "inlet", countOf(damaged, meshCellCount) + 1);
       },
       kConnectivity},
      {"side-1-cell-missing", "A face between cells leads to none.", "box-cells", true,
       "checkCellsFromFaces_cellnode : Cell 1 (0) for face 1 is invalid",
       [](memory::Case& damaged) { renameFirstCell(damaged, Family::faceCell1, "interior", 0); },
       kConnectivity},
      {"unknown-cell-type", "A cell is of a type that nobody knows.", "box", false,
       "checkCellsFromFaces_facenode : Cells of unsupported type encountered",
       [](memory::Case& damaged) { retypeFirstCell(damaged, kNoSuchType); }, kConnectivity},
      {"missing-facets", "A face zone does not say beside which cells its faces lie.", "box", true,
       "checkCellsFromFaces_facenode : Cells with missing facets: 16",
       [](memory::Case& damaged) {
         onlyArrays(damaged).faceCell0.remove(zoneNamed(onlyMesh(damaged), "inlet"));
       },
       kConnectivity},
      {"excess-facets", "A hexahedron is called a wedge.", "box", true,
       "checkCellsFromFaces_facenode : Cells with too many facets attached: 1",
       [](memory::Case& damaged) { retypeFirstCell(damaged, base::cellShapeWedge); },
       kConnectivity},
      {"side-0-cell-wrong", "A face lies beside a cell that has other nodes.", "box-cells", true,
       "checkCellsFromFaces_cellnode : Node connectivity error in face-cell c0 pair",
       [](memory::Case& damaged) {
         renameFirstCell(damaged, Family::faceCell0, "inlet", countOf(damaged, meshCellCount));
       },
       kConnectivity},
      {"side-1-cell-wrong", "A face leads to a cell that has other nodes.", "box-cells", true,
       "checkCellsFromFaces_cellnode : Node connectivity error in face-cell c1 pair",
       [](memory::Case& damaged) {
         renameFirstCell(damaged, Family::faceCell1, "interior", countOf(damaged, meshCellCount));
       },
       kConnectivity},
      {"shadow-range", "The partner of a face does not lie in the shadow zone.", "periodic", true,
       "checkFacesShadowZones : Face shadow facet ids are out of target shadow range",
       [](memory::Case& damaged) {
         memory::Slice<std::uint64_t>& partners =
             onlyArrays(damaged).faceShadows[onlyArrays(damaged).faceShadows.zones().front()];
         replace(partners, 0, std::uint64_t{1});
       },
       kConnectivity},
  };
  return kDefects;
}

}  // namespace velto::samples
