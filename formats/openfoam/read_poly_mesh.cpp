// SPDX-License-Identifier: Apache-2.0
//
// Reads an OpenFOAM polyMesh folder: which files there are, the order in which they are read, and
// what one of them must say about another.

#include "formats/openfoam/read_poly_mesh.h"

#include <algorithm>
#include <filesystem>
#include <limits>
#include <string>
#include <system_error>

#include "embedded/base/claims.h"
#include "formats/openfoam/Scanner.h"
#include "formats/openfoam/read_boundary.h"
#include "formats/openfoam/read_lists.h"
#include "formats/openfoam/read_zones.h"

namespace velto::openfoam {

namespace {

constexpr EntryNames kCellLabels = {"cell label", "cell labels"};

bool exists(const std::string& file) {
  std::error_code error;
  return std::filesystem::exists(file, error);
}

// The path of a file of the folder, plain or gzipped; empty if there is none.
std::string findFile(const std::string& folder, const std::string& name) {
  std::string plain = folder + "/" + name;
  if (exists(plain)) {
    return plain;
  }
  return exists(plain + ".gz") ? plain + ".gz" : std::string();
}

std::string requireFile(const std::string& folder, const std::string& name) {
  std::string file = findFile(folder, name);
  if (file.empty()) {
    throw ReadError(folder + "/" + name + ": no such file (nor " + name +
                    ".gz); a polyMesh folder holds points, faces, owner, neighbour and boundary");
  }
  return file;
}

class FolderReader {
 public:
  FolderReader(const std::string& folder, const ReadProgress& progress) : progress_(progress) {
    mesh_.folder = folder;
  }

  PolyMesh read() {
    findFiles();
    readGeometry();
    readSides();
    readFile(mesh_.boundaryFile, false,
             [this](Scanner& scanner, FileForm&) { mesh_.patches = readPatches(scanner); });
    requireJustifiedPatches();
    readZoneFile(mesh_.cellZonesFile, "cellLabels", mesh_.cellZones);
    readZoneFile(mesh_.faceZonesFile, "faceLabels", mesh_.faceZones);
    return std::move(mesh_);
  }

 private:
  void findFiles() {
    const std::string& folder = mesh_.folder;
    mesh_.pointsFile = requireFile(folder, "points");
    mesh_.facesFile = requireFile(folder, "faces");
    mesh_.ownerFile = requireFile(folder, "owner");
    mesh_.neighbourFile = requireFile(folder, "neighbour");
    mesh_.boundaryFile = requireFile(folder, "boundary");
    mesh_.cellZonesFile = findFile(folder, "cellZones");
    mesh_.faceZonesFile = findFile(folder, "faceZones");
    for (const std::string& file :
         {mesh_.pointsFile, mesh_.facesFile, mesh_.ownerFile, mesh_.neighbourFile,
          mesh_.boundaryFile, mesh_.cellZonesFile, mesh_.faceZonesFile}) {
      std::error_code error;
      const std::uintmax_t size = std::filesystem::file_size(file, error);
      total_ += error ? 0 : size;
    }
  }

  void readGeometry() {
    readFile(mesh_.pointsFile, true,
             [this](Scanner& scanner, FileForm& form) { readPoints(scanner, form, mesh_.points); });
    readFile(mesh_.facesFile, true, [this](Scanner& scanner, FileForm& form) {
      readFaces(scanner, form, mesh_.faceNodeCounts, mesh_.faceNodeIds);
    });
  }

  void readSides() {
    const std::size_t faces = mesh_.faceNodeCounts.size();
    const std::string oneEach =
        std::to_string(faces) + " cell labels, one for each face of " + mesh_.facesFile;
    readCells(mesh_.ownerFile, mesh_.owner);
    if (mesh_.owner.size() != faces) {
      throw ReadError(mesh_.ownerFile, oneEach, std::to_string(mesh_.owner.size()));
    }
    readCells(mesh_.neighbourFile, mesh_.neighbour);
    if (mesh_.neighbour.size() > faces) {
      throw ReadError(mesh_.neighbourFile, "at most " + oneEach,
                      std::to_string(mesh_.neighbour.size()));
    }
  }

  /// Patches may reach past the last face, but not so far that nobody could look at their faces.
  void requireJustifiedPatches() const {
    const std::size_t faces = mesh_.faceNodeCounts.size();
    std::uint64_t inPatches = 0;
    for (const Patch& patch : mesh_.patches) {
      inPatches += std::min(patch.faceCount, std::numeric_limits<std::uint64_t>::max() / 2);
      if (base::claimsTooMuch(inPatches, 1, faces)) {
        throw ReadError(
            mesh_.boundaryFile, Place{patch.line},
            "patches of " + std::to_string(faces) + " faces in all",
            "nFaces " + std::to_string(patch.faceCount) + " in patch \"" + patch.name + "\"");
      }
    }
  }

  void readCells(const std::string& file, memory::IdList& cells) {
    readFile(file, true, [&](Scanner& scanner, FileForm& form) {
      readLabels(scanner, form, kCellLabels, mesh_.faceNodeCounts.size(), cells);
      if (!mesh_.note) {
        mesh_.note = form.note;
      }
    });
  }

  void readZoneFile(const std::string& file, const char* labelsKeyword,
                    std::vector<ElementZone>& zones) {
    if (file.empty()) {
      return;
    }
    readFile(file, false, [&](Scanner& scanner, FileForm& form) {
      zones = readZones(scanner, form, labelsKeyword, mesh_.faceNodeCounts.size());
    });
  }

  // Reads the header of `file`, then its one list through `readList`, then nothing but comments.
  template <class ReadList>
  void readFile(const std::string& file, bool classRequired, ReadList readList) {
    Scanner scanner(file, [this](std::uint64_t bytes) {
      done_ += bytes;
      if (progress_) {
        progress_(done_, total_);
      }
    });
    FileForm form = readHeader(scanner, classRequired);
    readList(scanner, form);
    scanner.expectEnd("nothing but comments behind the list");
  }

  const ReadProgress& progress_;
  std::uint64_t done_ = 0;
  std::uint64_t total_ = 0;
  PolyMesh mesh_;
};

}  // namespace

PolyMesh readPolyMesh(const std::string& folder, const ReadProgress& progress) {
  return FolderReader(folder, progress).read();
}

}  // namespace velto::openfoam
