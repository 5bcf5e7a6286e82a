// SPDX-License-Identifier: Apache-2.0
//
// Writes OpenFOAM polyMesh folders for tests and benchmarks: a box of hexahedra of any size, sound
// or damaged by the test, in every form that such files have in the wild. It shares no code with
// the reader.

#ifndef VELTO_TESTING_POLY_MESH_WRITER_H
#define VELTO_TESTING_POLY_MESH_WRITER_H

#include <cstdint>
#include <string>
#include <utility>
#include <vector>

namespace velto::testing {

/// One entry of `boundary`.
struct BoxPatch {
  std::string name;
  std::string type;
  std::int64_t faceCount = 0;
  std::int64_t firstFace = 0;
  std::vector<std::pair<std::string, std::string>> extra;  // further entries: keyword and text
};

/// One entry of `cellZones` or `faceZones`.
struct BoxZone {
  std::string name;
  std::vector<std::int64_t> labels;
  std::vector<bool> flipMap;  // written for an oriented zone only
  bool oriented = false;
};

/// A mesh as the files hold it, 0-based; a plain structure, so that a test can damage it.
struct BoxMesh {
  std::vector<double> points;             // 3 per point
  std::vector<std::int64_t> faceOffsets;  // one per face and one more: where its nodes begin
  std::vector<std::int64_t> faceNodes;
  std::vector<std::int64_t> owner;      // one per face
  std::vector<std::int64_t> neighbour;  // one per internal face
  std::int64_t cellCount = 0;
  std::vector<BoxPatch> patches;
  std::vector<BoxZone> cellZones;  // no file if empty
  std::vector<BoxZone> faceZones;  // no file if empty

  std::int64_t pointCount() const { return static_cast<std::int64_t>(points.size() / 3); }
  std::int64_t faceCount() const { return static_cast<std::int64_t>(owner.size()); }
};

/// How the files are written. The names of the members say what a value of true does.
struct WriteOptions {
  bool binary = false;
  bool gzip = false;                   // all files but `boundary`
  std::vector<std::string> gzipFiles;  // these ones too
  int labelBits = 32;                  // 32 or 64, of binary labels
  int scalarBits = 64;                 // 32 or 64, of binary points
  int digits = 0;                      // of coordinates in text; 0: as many as they need

  bool version = true;        // header entries
  bool arch = true;           // of binary files only
  bool note = true;           // in owner and neighbour only
  bool compactFaces = true;   // in binary: faceCompactList, else faceList with binary faces
  bool counts = true;         // in text: N(...), else (...)
  bool equalInBraces = true;  // in text: N{a} for two or more equal labels
  bool emptyAsZero = false;   // 0, else 0()
  bool oneLine = false;       // in text: all of a list on one line
  bool comments = false;      // between the entries of text
  bool padNeighbour = false;  // neighbour as long as owner, with -1 on the boundary
  bool flipsAsWords = false;  // in text: true and false, else 1 and 0
};

/// A box of nx x ny x nz cells, each a cube of side 0.125 with its first corner at the origin.
/// Internal faces come first, in upper-triangular order; then the patches xMin, xMax (type patch),
/// yMin, yMax, zMin, zMax (type wall). Face normals point from owner to neighbour, outwards on the
/// boundary. REQUIRES: nx, ny, nz >= 1.
BoxMesh makeBox(std::int64_t nx, std::int64_t ny, std::int64_t nz);

/// Writes the mesh into `folder`, which is made if necessary; files of another run are replaced.
/// Errors: std::runtime_error if a file cannot be written.
void writePolyMesh(const std::string& folder, const BoxMesh& mesh,
                   const WriteOptions& options = {});

/// Writes `text` as the file `file`, gzipped on request. Errors: as writePolyMesh().
void writeTextFile(const std::string& file, const std::string& text, bool gzip = false);

}  // namespace velto::testing

#endif  // VELTO_TESTING_POLY_MESH_WRITER_H
