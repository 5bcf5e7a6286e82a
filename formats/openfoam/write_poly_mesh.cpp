// SPDX-License-Identifier: Apache-2.0
//
// The files of a polyMesh folder, one function each.

#include "formats/openfoam/write_poly_mesh.h"

#include <algorithm>
#include <cstddef>
#include <limits>
#include <utility>
#include <vector>

#include "formats/openfoam/MeshFile.h"
#include "formats/openfoam/face_order.h"

namespace velto::openfoam {

namespace {

constexpr std::uint64_t kLargestShortLabel = std::numeric_limits<std::int32_t>::max();

class FolderWriter {
 public:
  FolderWriter(const MeshToWrite& mesh, const WrittenZones& zones, FileSettings settings)
      : mesh_(mesh), zones_(zones), settings_(std::move(settings)), order_(mesh, zones.patches) {
    const std::uint64_t largest =
        std::max({mesh.nodeCount, mesh.faceCount, mesh.cellCount, mesh.faceNodeCount});
    settings_.labelBits = largest > kLargestShortLabel ? 64 : 32;
  }

  void run() {
    writePoints();
    writeFaces();
    writeOwner();
    writeNeighbour();
    writeBoundary();
    if (!zones_.cellZones.empty()) {
      writeCellZones();
    }
    if (!zones_.faceZones.empty()) {
      writeFaceZones();
    }
  }

 private:
  void writePoints() const {
    MeshFile file(settings_, "points");
    file.begin("vectorField");
    file.beginList(mesh_.nodeCount);
    for (std::size_t zone = 0; zone < mesh_.nodeZones.size(); ++zone) {
      if (file.isText()) {
        writePointLines(file, mesh_.coordinates[zone], mesh_.nodeZones[zone].count);
      } else {
        writePointBlocks(file, mesh_.coordinates[zone], mesh_.nodeZones[zone].count);
      }
    }
    file.out().text(mesh_.nodeCount > 0 ? ")" : "");
    file.close();
  }

  static void writePointLines(MeshFile& file, const double* point, std::uint64_t count) {
    OutputFile& out = file.out();
    for (std::uint64_t i = 0; i < count; ++i, point += 3) {
      for (std::size_t k = 0; k < 3; ++k) {
        out.put(k == 0 ? '(' : ' ');
        out.real(point[k]);
      }
      out.text(")\n");
      file.advance(3);
    }
  }

  static void writePointBlocks(MeshFile& file, const double* values, std::uint64_t count) {
    constexpr std::uint64_t kBlock = 1U << 18U;
    for (std::uint64_t left = 3 * count; left > 0;) {
      const std::uint64_t n = std::min(left, kBlock);
      file.out().bytes(reinterpret_cast<const char*>(values),
                       static_cast<std::size_t>(n) * sizeof(double));
      file.advance(n);
      values += n;
      left -= n;
    }
  }

  template <class Take>
  void forEachFace(const FaceRun& run, const Take& take) const {
    FaceWalk walk(order_, run);
    for (std::uint64_t i = 0; i < run.count; ++i) {
      take(walk.next());
    }
  }

  /// Calls `use` with the number of a face's nodes and a function that gives each of them, in the
  /// order in which they are written: a face that is flipped keeps its first node.
  template <class Use>
  static void withNodes(const PlacedFace& face, const Use& use) {
    face.zone->nodes->with([&face, &use](const auto* ids) {
      const auto* const nodes = ids + face.start;
      const std::uint64_t count = face.nodeCount();
      if (face.isFlipped) {
        use(count, [nodes, count](std::uint64_t k) { return nodes[k == 0 ? 0 : count - k]; });
      } else {
        use(count, [nodes](std::uint64_t k) { return nodes[k]; });
      }
    });
  }

  void writeFaces() const {
    MeshFile file(settings_, "faces");
    if (file.isText()) {
      file.begin("faceList");
      if (file.beginList(order_.size())) {
        for (const FaceRun& run : order_.runs()) {
          forEachFace(run, [&file](const PlacedFace& face) { writeFace(file, face); });
        }
        file.out().put(')');
      }
    } else {
      file.begin("faceCompactList");
      file.beginList(order_.size() + 1);
      writeFaceStarts(file);
      file.out().text(")\n\n");
      if (file.beginList(mesh_.faceNodeCount)) {
        for (const FaceRun& run : order_.runs()) {
          writeFaceNodes(file, run);
        }
        file.out().put(')');
      }
    }
    file.close();
  }

  void writeFaceStarts(MeshFile& file) const {
    std::uint64_t next = 0;
    for (const FaceRun& run : order_.runs()) {
      if (run.zone != nullptr && run.zone->uniform != 0) {
        const std::uint64_t step = run.zone->uniform;
        file.labelEntries(run.count, [next, step](std::uint64_t i) { return next + i * step; });
        next += run.count * step;
      } else {
        FaceWalk walk(order_, run);
        file.labelEntries(run.count, [&walk, &next](std::uint64_t) {
          return std::exchange(next, next + walk.next().nodeCount());
        });
      }
    }
    file.labelEntry(next);
  }

  void writeFaceNodes(MeshFile& file, const FaceRun& run) const {
    if (run.isPlain()) {
      writeIds(file, run.zone->nodes);
      return;
    }
    forEachFace(run, [&file](const PlacedFace& face) {
      withNodes(face, [&file](std::uint64_t count, const auto& nodeAt) {
        file.labelEntries(count, [&nodeAt](std::uint64_t k) { return nodeAt(k) - 1; });
      });
    });
  }

  /// The labels of nodes or cells as they stand in a zone, which may have none.
  static void writeIds(MeshFile& file, const KeptIds* ids) {
    if (ids != nullptr) {
      ids->with([&file, ids](const auto* values) {
        file.labelEntries(ids->size(), [values](std::uint64_t i) { return values[i] - 1; });
      });
    }
  }

  static void writeFace(MeshFile& file, const PlacedFace& face) {
    OutputFile& out = file.out();
    withNodes(face, [&file, &out](std::uint64_t count, const auto& nodeAt) {
      out.label(count);
      for (std::uint64_t k = 0; k < count; ++k) {
        out.put(k == 0 ? '(' : ' ');
        out.label(nodeAt(k) - 1);
      }
      out.put(')');
      out.put('\n');
      file.advance(count + 1);
    });
  }

  std::string note() const {
    return "nPoints:" + std::to_string(mesh_.nodeCount) +
           "  nCells:" + std::to_string(mesh_.cellCount) +
           "  nFaces:" + std::to_string(mesh_.faceCount) +
           "  nInternalFaces:" + std::to_string(mesh_.internalCount);
  }

  void writeOwner() const {
    MeshFile file(settings_, "owner");
    file.begin("labelList", note());
    if (file.beginList(order_.size())) {
      for (const FaceRun& run : order_.runs()) {
        writeCells(file, run, &FaceZoneToWrite::side0,
                   [](const PlacedFace& face) { return face.owner(); });
      }
      file.out().put(')');
    }
    file.close();
  }

  void writeNeighbour() const {
    MeshFile file(settings_, "neighbour");
    file.begin("labelList", note());
    if (file.beginList(mesh_.internalCount)) {
      for (const FaceRun& run : order_.runs()) {
        if (run.first < mesh_.internalCount) {
          writeCells(file, run, &FaceZoneToWrite::side1,
                     [](const PlacedFace& face) { return face.neighbour(); });
        }
      }
      file.out().put(')');
    }
    file.close();
  }

  /// The cells on a side of a run that can be written as it stands, else `cellOf` each face.
  template <class CellOf>
  void writeCells(MeshFile& file, const FaceRun& run, const KeptIds* FaceZoneToWrite::*side,
                  const CellOf& cellOf) const {
    if (run.isPlain()) {
      writeIds(file, run.zone->*side);
    } else {
      FaceWalk walk(order_, run);
      file.labelEntries(run.count,
                        [&walk, cellOf](std::uint64_t) { return cellOf(walk.next()) - 1; });
    }
  }

  void writeBoundary() const {
    MeshFile file(settings_, "boundary");
    file.begin("polyBoundaryMesh");
    std::uint64_t first = mesh_.internalCount;
    file.list(zones_.patches.size(), [&](std::uint64_t i) {
      const WrittenPatch& patch = zones_.patches[static_cast<std::size_t>(i)];
      std::string text = "    " + patch.name + "\n    {\n";
      text += entryLine("type", patch.type);
      for (const auto& [keyword, value] : patch.entries) {
        text += entryLine(keyword, value);
      }
      text += entryLine("nFaces", std::to_string(patch.faceCount));
      text += entryLine("startFace", std::to_string(first));
      file.out().text(text + "    }");
      first += patch.faceCount;
    });
    file.close();
  }

  static std::string entryLine(const std::string& keyword, const std::string& value) {
    constexpr std::size_t kColumn = 16;
    std::string line = "        " + keyword;
    line.append(keyword.size() < kColumn ? kColumn - keyword.size() : 1, ' ');
    return line + value + (value.front() == '{' ? "\n" : ";\n");
  }

  void writeCellZones() const {
    MeshFile file(settings_, "cellZones");
    file.begin("regIOobject");
    beginZones(file, zones_.cellZones.size());
    for (const WrittenCellZone& zone : zones_.cellZones) {
      file.out().text(zone.name + "\n{\n    type cellZone;\n    cellLabels      List<label> ");
      file.labels(zone.count, [&zone](std::uint64_t i) { return zone.first + i; });
      file.out().text(";\n}\n");
    }
    file.out().text(")");
    file.close();
  }

  /// The list of zones is text in files of both forms.
  static void beginZones(MeshFile& file, std::size_t count) {
    file.out().label(count);
    file.out().text("\n(\n");
  }

  void writeFaceZones() const {
    const std::vector<std::uint64_t> firsts = firstLabels();
    const auto entries = sortedEntries();
    MeshFile file(settings_, "faceZones");
    file.begin("regIOobject");
    beginZones(file, zones_.faceZones.size());
    for (const WrittenFaceZone& zone : zones_.faceZones) {
      file.out().text(zone.name + "\n{\n    type faceZone;\n    faceLabels      List<label> ");
      const std::uint64_t count = faceCount(zone);
      if (file.beginList(count)) {
        for (const std::size_t place : zone.zones) {
          writeFaceLabels(file, mesh_.faceZones[place].count, firsts[place], entries[place]);
        }
        file.out().put(')');
      }
      file.out().text(";\n    flipMap         List<bool> ");
      if (file.beginList(count)) {
        for (const std::size_t place : zone.zones) {
          const auto& held = entries[place];
          file.flagEntries(mesh_.faceZones[place].count,
                           [&held](std::uint64_t i) { return !held.empty() && held[i] % 2 != 0; });
        }
        file.out().put(')');
      }
      file.out().text(";\n}\n");
    }
    file.out().text(")");
    file.close();
  }

  std::uint64_t faceCount(const WrittenFaceZone& zone) const {
    std::uint64_t count = 0;
    for (const std::size_t place : zone.zones) {
      count += mesh_.faceZones[place].count;
    }
    return count;
  }

  /// Of each zone that is written as it stands, by its place: the label of its first face.
  std::vector<std::uint64_t> firstLabels() const {
    std::vector<std::uint64_t> firsts(mesh_.faceZones.size());
    for (const FaceRun& run : order_.runs()) {
      if (run.zone != nullptr) {
        firsts[mesh_.placeOf(*run.zone)] = run.first;
      }
    }
    return firsts;
  }

  /// Labels of the faces of a zone: from `first` on where it is written as it stands.
  static void writeFaceLabels(MeshFile& file, std::uint64_t count, std::uint64_t first,
                              const std::vector<std::uint64_t>& entries) {
    if (entries.empty()) {
      file.labelEntries(count, [first](std::uint64_t i) { return first + i; });
    } else {
      file.labelEntries(count, [&entries](std::uint64_t i) { return entries[i] / 2; });
    }
  }

  /// Of each zone that is part of a face zone, if internal faces had to be sorted: the labels of
  /// its faces, doubled, and one more where the face is flipped.
  std::vector<std::vector<std::uint64_t>> sortedEntries() const {
    std::vector<std::vector<std::uint64_t>> entries(mesh_.faceZones.size());
    if (order_.runs().empty() || order_.runs().front().zone != nullptr) {
      return entries;
    }
    for (const WrittenFaceZone& zone : zones_.faceZones) {
      for (const std::size_t place : zone.zones) {
        entries[place].resize(static_cast<std::size_t>(mesh_.faceZones[place].count));
      }
    }
    std::uint64_t label = 0;
    forEachFace(order_.runs().front(), [&](const PlacedFace& face) {
      auto& held = entries[mesh_.placeOf(*face.zone)];
      if (!held.empty()) {
        held[static_cast<std::size_t>(face.index)] = 2 * label + (face.isFlipped ? 1 : 0);
      }
      ++label;
    });
    return entries;
  }

  const MeshToWrite& mesh_;
  const WrittenZones& zones_;
  FileSettings settings_;
  FaceOrder order_;
};

}  // namespace

std::uint64_t valueBytes(const MeshToWrite& mesh, const WrittenZones& zones) {
  std::uint64_t values =
      3 * mesh.nodeCount + mesh.faceNodeCount + 2 * mesh.faceCount + mesh.internalCount;
  for (const WrittenCellZone& zone : zones.cellZones) {
    values += zone.count;
  }
  for (const WrittenFaceZone& zone : zones.faceZones) {
    for (const std::size_t place : zone.zones) {
      values += mesh.faceZones[place].count;
    }
  }
  return values * sizeof(double);
}

void writePolyMesh(const std::string& folder, const std::string& shown, const MeshToWrite& mesh,
                   const WrittenZones& zones, const WriteForm& form,
                   const WriteProgress& progress) {
  FileSettings settings;
  settings.folder = folder;
  settings.shown = shown;
  settings.form = form;
  settings.progress = progress;
  FolderWriter(mesh, zones, settings).run();
}

}  // namespace velto::openfoam
