// SPDX-License-Identifier: Apache-2.0
//
// MeshDamage: the kinds of damage to one mesh of a case.

#ifndef VELTO_TESTING_MESH_DAMAGE_H
#define VELTO_TESTING_MESH_DAMAGE_H

#include <cstdint>
#include <string>

#include "embedded/memory/Case.h"
#include "testing/Random.h"

namespace velto::testing {

/// Each member does one thing that is drawn at once, and tells in a few words what it did. What it
/// takes away may be a mesh or its arrays: an object is good for one damage.
class MeshDamage {
 public:
  /// `damaged` and `random` outlive the object.
  MeshDamage(memory::Case& damaged, const base::MeshKey& key, Random& random);

  // MeshDamage.cpp: sizes, ranges, lists of zones
  std::string dimension();
  std::string count();
  std::string dimensionOfZone();
  std::string zoneSize();
  /// Another range for a zone, with an element count that fits.
  std::string range();
  /// More elements in a zone; all zones behind it move.
  std::string growth();
  /// A zone that is listed twice counts twice, but its range is there once. With all of them moved
  /// by its size, the last element has the number that the count makes one expect.
  std::string twin();
  std::string zoneList();

  // mesh_damage_links.cpp: names, types, links, relations, families, whole records
  std::string name();
  std::string faceInfo();
  std::string faceLink();
  std::string cellType();
  std::string cellLink();
  std::string relation();
  /// A zone into, or out of, a family that says what a cell is made of.
  std::string family();
  std::string tree();
  std::string record();
  /// The mesh once more, under another key.
  std::string copy();
  /// The last thing that is done with the mesh.
  std::string removal();

  // mesh_damage_values.cpp: what the families hold for faces and cells
  std::string elementId();
  /// One cell for all faces of a zone.
  std::string sideCells();
  std::string shadowFaces();
  std::string typesOfCells();
  /// Another count for an element, or for all of a zone; the list may follow.
  std::string elementCount();

  // mesh_damage_lists.cpp: lengths of lists, counts told one by one or once, lists of zones
  std::string listLength();
  std::string uniformity();
  /// A zone into, or out of, any family of faces or cells.
  std::string listing();
  std::string listOrder();
  std::string countByOne();

 private:
  base::ZoneRecord& zone(int id) { return mesh_.zones[id]; }
  static std::string zoneText(int id) { return "zone " + std::to_string(id) + ": "; }
  void setRange(int id, std::uint64_t first, std::uint64_t last);

  /// Makes the number of elements of a category fit what its zones say.
  std::string recount(OrvZoneCategory category);

  /// The ids that a family holds for a zone.
  struct IdList {
    base::Family family{};
    int zone = 0;
    memory::Slice<std::uint64_t>* ids = nullptr;
  };

  /// Any list of ids; a null one if there is none.
  IdList anyIdList();

  /// Makes a counted list as long as its counts say.
  void fitList(const IdList& list);

  template <class Action>
  auto withList(base::Family family, const Action& action);

  memory::Case& case_;
  base::MeshKey key_;
  base::MeshTables& mesh_;
  memory::MeshData& data_;
  Random& random_;
};

}  // namespace velto::testing

#endif  // VELTO_TESTING_MESH_DAMAGE_H
