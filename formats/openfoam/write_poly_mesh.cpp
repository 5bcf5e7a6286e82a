// SPDX-License-Identifier: Apache-2.0
//
// The files of a polyMesh folder, one function each.

#include "formats/openfoam/write_poly_mesh.h"

#include <algorithm>
#include <cstddef>
#include <limits>
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
      const double* point = mesh_.coordinates[zone];
      for (std::uint64_t i = 0; i < mesh_.nodeZones[zone].count; ++i, point += 3) {
        writePoint(file, point);
      }
    }
    file.out().text(mesh_.nodeCount > 0 ? ")" : "");
    file.close();
  }

  static void writePoint(MeshFile& file, const double* point) {
    OutputFile& out = file.out();
    const bool isText = file.isText();
    for (std::size_t k = 0; k < 3; ++k) {
      if (isText) {
        out.put(k == 0 ? '(' : ' ');
        out.real(point[k]);
      } else {
        out.raw(point[k]);
      }
    }
    if (isText) {
      out.text(")\n");
    }
    file.advance(3);
  }

  /// Calls `take` with each node of a face in the order in which it is written: a face that is
  /// flipped keeps its first node.
  template <class Take>
  static void forEachNode(const PlacedFace& face, const Take& take) {
    const std::uint64_t* const nodes = face.nodes();
    const std::uint64_t count = face.nodeCount();
    for (std::uint64_t k = 0; k < count; ++k) {
      take(nodes[face.isFlipped && k > 0 ? count - k : k]);
    }
  }

  void writeFaces() const {
    MeshFile file(settings_, "faces");
    const std::uint64_t count = order_.size();
    if (file.isText()) {
      file.begin("faceList");
      file.list(count, [&](std::uint64_t i) { writeFace(file, order_.at(i)); });
    } else {
      file.begin("faceCompactList");
      std::uint64_t next = 0;
      file.labels(count + 1, [&](std::uint64_t i) {
        const std::uint64_t start = next;
        next += i < count ? order_.at(i).nodeCount() : 0;
        return start;
      });
      file.out().text("\n\n");
      if (file.beginList(mesh_.faceNodeCount)) {
        for (std::uint64_t i = 0; i < count; ++i) {
          const PlacedFace face = order_.at(i);
          forEachNode(face, [&file](std::uint64_t node) { file.label(node - 1); });
          file.advance(face.nodeCount());
        }
        file.out().put(')');
      }
    }
    file.close();
  }

  static void writeFace(MeshFile& file, const PlacedFace& face) {
    OutputFile& out = file.out();
    out.label(face.nodeCount());
    char before = '(';
    forEachNode(face, [&](std::uint64_t node) {
      out.put(before);
      out.label(node - 1);
      before = ' ';
    });
    out.put(')');
    file.advance(face.nodeCount() + 1);
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
    file.labels(order_.size(), [this](std::uint64_t i) { return order_.at(i).owner() - 1; });
    file.close();
  }

  void writeNeighbour() const {
    MeshFile file(settings_, "neighbour");
    file.begin("labelList", note());
    file.labels(mesh_.internalCount,
                [this](std::uint64_t i) { return order_.at(i).neighbour() - 1; });
    file.close();
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
    const auto labels = faceZoneLabels();
    MeshFile file(settings_, "faceZones");
    file.begin("regIOobject");
    beginZones(file, zones_.faceZones.size());
    for (const WrittenFaceZone& zone : zones_.faceZones) {
      std::vector<std::uint64_t> all;
      for (const std::size_t place : zone.zones) {
        all.insert(all.end(), labels[place].begin(), labels[place].end());
      }
      const auto entryOf = [&all](std::uint64_t i) { return all[static_cast<std::size_t>(i)]; };
      file.out().text(zone.name + "\n{\n    type faceZone;\n    faceLabels      List<label> ");
      file.labels(all.size(), [&](std::uint64_t i) { return entryOf(i) / 2; });
      file.out().text(";\n    flipMap         List<bool> ");
      file.flags(all.size(), [&](std::uint64_t i) { return entryOf(i) % 2 != 0; });
      file.out().text(";\n}\n");
    }
    file.out().text(")");
    file.close();
  }

  /// Of each zone that is part of a face zone the labels of its faces, doubled, and one more where
  /// the face is flipped.
  std::vector<std::vector<std::uint64_t>> faceZoneLabels() const {
    std::vector<std::vector<std::uint64_t>> labels(mesh_.faceZones.size());
    for (const WrittenFaceZone& zone : zones_.faceZones) {
      for (const std::size_t place : zone.zones) {
        labels[place].resize(static_cast<std::size_t>(mesh_.faceZones[place].count));
      }
    }
    for (std::uint64_t label = 0; label < mesh_.internalCount; ++label) {
      const PlacedFace face = order_.at(label);
      auto& held = labels[static_cast<std::size_t>(face.zone - mesh_.faceZones.data())];
      if (!held.empty()) {
        held[static_cast<std::size_t>(face.index)] = 2 * label + (face.isFlipped ? 1 : 0);
      }
    }
    return labels;
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
