// SPDX-License-Identifier: Apache-2.0
//
// The content of a polyMesh folder as it stands in its files: nothing judged, nothing derived.

#ifndef VELTO_FORMATS_OPENFOAM_POLY_MESH_H
#define VELTO_FORMATS_OPENFOAM_POLY_MESH_H

#include <cstdint>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "embedded/memory/IdList.h"

namespace velto::openfoam {

/// One entry of `boundary`: a contiguous range of faces with a name and a type.
struct Patch {
  std::string name;
  std::string type;             // "wall", "patch", "cyclic", ...
  std::uint64_t faceCount = 0;  // nFaces
  std::uint64_t firstFace = 0;  // startFace, 0-based
  std::string neighbourPatch;   // of a cyclic half, else empty
  /// Every keyword with its text as it stands, in file order; white space and comments between
  /// words are one blank, a sub-dictionary is "{ ... }".
  std::vector<std::pair<std::string, std::string>> entries;
  std::uint64_t line = 0;  // where the entry begins, 1-based
};

/// One entry of `cellZones` or `faceZones` (`pointZones` are not read).
struct ElementZone {
  std::string name;
  std::vector<std::int64_t> labels;   // 0-based, as they stand: negative or too large ones too
  std::vector<std::uint8_t> flipMap;  // of an oriented face zone: 1 = reversed; one per label
  bool oriented = false;              // whether the zone has a flipMap
  std::uint64_t line = 0;             // where the entry begins, 1-based; 0 behind binary content
};

/// Counts from the `note` of `owner`, or of `neighbour` where that of `owner` has none: a
/// cross-check, never the truth. What the note does not say is empty.
struct Note {
  std::optional<std::uint64_t> nodes;
  std::optional<std::uint64_t> cells;
  std::optional<std::uint64_t> faces;
  std::optional<std::uint64_t> internalFaces;
};

/// The content of one polyMesh folder.
///
/// Ids are 1-based: a label n of the files stands here as n + 1, computed in unsigned 64-bit, so
/// that a label of -1 is 0 and other negative labels are huge. Ids may lie outside the mesh.
struct PolyMesh {
  std::string folder;  // as given

  // Paths as found, with .gz where that was read; empty where there is no such file.
  std::string pointsFile;
  std::string facesFile;
  std::string ownerFile;
  std::string neighbourFile;
  std::string boundaryFile;
  std::string cellZonesFile;
  std::string faceZonesFile;

  std::vector<double> points;                // x, y, z of each node; may hold NaN and infinities
  std::vector<std::int16_t> faceNodeCounts;  // one per face, 0 to 32767
  memory::IdList faceNodeIds;                // all faces' node ids, one face after the other
  memory::IdList owner;                      // one cell id per face
  /// One cell id per internal face; in very old files one per face, with 0 for none. Never longer
  /// than the faces.
  memory::IdList neighbour;

  std::vector<Patch> patches;
  std::vector<ElementZone> cellZones;
  std::vector<ElementZone> faceZones;
  std::optional<Note> note;
};

}  // namespace velto::openfoam

#endif  // VELTO_FORMATS_OPENFOAM_POLY_MESH_H
