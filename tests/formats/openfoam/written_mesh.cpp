// SPDX-License-Identifier: Apache-2.0
//
// The rules of the format, each looked at by itself.

#include "tests/formats/openfoam/written_mesh.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <set>
#include <zlib.h>

#include "formats/openfoam/FoamHeader.h"
#include "formats/openfoam/OpenFoamConsumer.h"
#include "formats/openfoam/case_from_poly_mesh.h"
#include "formats/openfoam/read_poly_mesh.h"
#include "testing/write_case.h"

namespace velto::openfoam {

namespace {

using Vector = std::array<double, 3>;

Vector operator+(const Vector& a, const Vector& b) {
  return {a[0] + b[0], a[1] + b[1], a[2] + b[2]};
}
Vector operator*(const Vector& a, double factor) {
  return {a[0] * factor, a[1] * factor, a[2] * factor};
}
Vector operator-(const Vector& a, const Vector& b) { return a + b * -1; }
double dot(const Vector& a, const Vector& b) { return a[0] * b[0] + a[1] * b[1] + a[2] * b[2]; }
Vector cross(const Vector& a, const Vector& b) {
  return {a[1] * b[2] - a[2] * b[1], a[2] * b[0] - a[0] * b[2], a[0] * b[1] - a[1] * b[0]};
}

class Rules {
 public:
  explicit Rules(const PolyMesh& mesh) : mesh_(mesh), internal_(mesh.neighbour.size()) {}

  std::vector<std::string> run() {
    const auto cells = std::max_element(mesh_.owner.begin(), mesh_.owner.end());
    cellCount_ = cells == mesh_.owner.end() ? 0 : *cells;
    judgeLists();
    if (broken_.empty()) {
      measure();
      judgeOrder();
      judgePatches();
      judgeNormals();
    }
    return broken_;
  }

 private:
  void complain(const std::string& text) { broken_.push_back(text); }

  void judgeLists() {
    const std::uint64_t nodes = mesh_.points.size() / 3;
    for (const std::uint64_t node : mesh_.faceNodeIds) {
      if (node == 0 || node > nodes) {
        complain("a face has node " + std::to_string(node));
      }
    }
    for (const std::uint64_t cell : mesh_.neighbour) {
      if (cell == 0 || cell > cellCount_) {
        complain("a face has neighbour " + std::to_string(cell));
      }
    }
    if (mesh_.owner.size() != mesh_.faceNodeCounts.size() || internal_ > mesh_.owner.size()) {
      complain("owner and neighbour are not as long as the faces");
    }
    const bool fits = mesh_.note && mesh_.note->nodes == nodes && mesh_.note->cells == cellCount_ &&
                      mesh_.note->faces == mesh_.owner.size() &&
                      mesh_.note->internalFaces == internal_;
    if (!fits) {
      complain("the note does not fit");
    }
  }

  // Centres and area vectors of the faces, and from these centres of the cells.
  void measure() {
    centres_.assign(cellCount_, Vector{});
    counts_.assign(cellCount_, 0);
    sums_.assign(cellCount_, Vector{});
    std::size_t next = 0;
    for (std::size_t face = 0; face < mesh_.owner.size(); ++face) {
      std::vector<Vector> points;
      for (int k = 0; k < mesh_.faceNodeCounts[face]; ++k) {
        const auto at = static_cast<std::size_t>(mesh_.faceNodeIds[next++] - 1) * 3;
        points.push_back({mesh_.points[at], mesh_.points[at + 1], mesh_.points[at + 2]});
      }
      Vector centre{};
      Vector area{};
      for (std::size_t k = 0; k < points.size(); ++k) {
        centre = centre + points[k] * (1.0 / static_cast<double>(points.size()));
        area = area + cross(points[k], points[(k + 1) % points.size()]) * 0.5;
      }
      faceCentres_.push_back(centre);
      areas_.push_back(area);
      addToCell(mesh_.owner[face], centre, area);
      if (face < internal_) {
        addToCell(mesh_.neighbour[face], centre, area * -1);
      }
    }
    for (std::size_t cell = 0; cell < cellCount_; ++cell) {
      centres_[cell] = centres_[cell] * (1.0 / std::max(counts_[cell], 1));
      if (counts_[cell] < 4) {
        complain("cell " + std::to_string(cell) + " has " + std::to_string(counts_[cell]) +
                 " faces");
      }
      if (dot(sums_[cell], sums_[cell]) > 1e-20) {
        complain("cell " + std::to_string(cell) + " is not closed");
      }
    }
  }

  void addToCell(std::uint64_t cell, const Vector& centre, const Vector& outwards) {
    centres_[cell - 1] = centres_[cell - 1] + centre;
    sums_[cell - 1] = sums_[cell - 1] + outwards;
    ++counts_[cell - 1];
  }

  void judgeOrder() {
    for (std::size_t face = 0; face < internal_; ++face) {
      if (mesh_.owner[face] >= mesh_.neighbour[face]) {
        complain("face " + std::to_string(face) + ": the owner is not below the neighbour");
      }
      const auto before = [&](std::size_t i) {
        return std::make_pair(mesh_.owner[i], mesh_.neighbour[i]);
      };
      if (face > 0 && before(face) < before(face - 1)) {
        complain("face " + std::to_string(face) + ": not in upper-triangular order");
      }
    }
  }

  void judgePatches() {
    std::uint64_t next = internal_;
    std::set<std::string> names;
    for (const Patch& patch : mesh_.patches) {
      if (patch.firstFace != next) {
        complain("patch " + patch.name + " begins at " + std::to_string(patch.firstFace));
      }
      if (!names.insert(patch.name).second) {
        complain("two patches " + patch.name);
      }
      next = patch.firstFace + patch.faceCount;
    }
    if (next != mesh_.owner.size()) {
      complain("the patches end at " + std::to_string(next));
    }
  }

  void judgeNormals() {
    for (std::size_t face = 0; face < mesh_.owner.size(); ++face) {
      const Vector& owner = centres_[mesh_.owner[face] - 1];
      const Vector& beyond =
          face < internal_ ? centres_[mesh_.neighbour[face] - 1] : faceCentres_[face];
      if (dot(areas_[face], beyond - owner) <= 0) {
        complain("face " + std::to_string(face) + ": points the wrong way");
      }
    }
  }

  const PolyMesh& mesh_;
  const std::size_t internal_;
  std::uint64_t cellCount_ = 0;
  std::vector<Vector> faceCentres_;
  std::vector<Vector> areas_;
  std::vector<Vector> centres_;  // of the cells
  std::vector<Vector> sums_;     // of the area vectors of each cell, outwards
  std::vector<int> counts_;      // of the faces of each cell
  std::vector<std::string> broken_;
};

std::string withoutPrefix(const std::string& message) {
  return message.substr(message.find('\t') + 1);
}

}  // namespace

const std::vector<Form>& writtenForms() {
  static const std::vector<Form> kForms = {
      {"Binary", 0, 0}, {"Text", 1, 0}, {"BinaryGzipped", 0, 6}, {"TextGzipped", 1, 1}};
  return kForms;
}

std::vector<std::string> writeInto(const memory::Case& source, const std::string& path,
                                   const Form& form) {
  OpenFoamConsumer consumer;
  consumer.setFileName(path, dataClassCase);
  consumer.setMode(form.mode);
  consumer.setCompression(form.compression);
  testing::writeCase(source, consumer);
  std::vector<std::string> messages;
  for (const std::string& warning : consumer.getWarnings(true, true)) {
    messages.push_back(withoutPrefix(warning));
  }
  for (const std::string& error : consumer.getErrors(true, true)) {
    messages.push_back(withoutPrefix(error));
  }
  return messages;
}

memory::Case readCase(const std::string& folder) {
  memory::Case result;
  result.tables.solverType = "VELTO_GENERIC";
  addPolyMesh(result, {}, readPolyMesh(folder));
  return result;
}

memory::Case asCopied(memory::Case source) {
  for (auto& mesh : source.tables.meshes) {
    for (auto& [id, zone] : mesh.second.zones) {
      zone.texts[zoneTypeName].reset();
      zone.faceInfo[faceZoneShadow].reset();
    }
  }
  const base::Settings before = source.tables.defaultSettings();
  source.tables.defaultSettings() = {};
  for (const auto& [key, value] : before.entries()) {
    source.setSetting(source.tables.solverType + "/" + key, value);
  }
  return source;
}

std::vector<std::string> brokenRules(const PolyMesh& mesh) { return Rules(mesh).run(); }

std::string describeEntries(const Patch& patch) {
  std::string text;
  for (const auto& [keyword, value] : patch.entries) {
    text.append(" ").append(keyword).append(" ").append(value) += ";";
  }
  return text;
}

std::string describeHeaders(const std::string& folder) {
  std::set<std::string> names;
  for (const auto& entry : std::filesystem::directory_iterator(folder)) {
    names.insert(entry.path().filename().string());
  }
  std::string text;
  for (const std::string& name : names) {
    const auto header = peekHeader((std::filesystem::path(folder) / name).string());
    text += name + ": ";
    text += !header ? "none"
                    : "version " + header->version + ", format " + header->format + ", class " +
                          header->objectClass + ", arch '" + header->arch + "', location '" +
                          header->location + "', object " + header->object + ", note '" +
                          header->note + "'";
    text += "\n";
  }
  return text;
}

std::string contentOf(const std::string& file) {
  std::string content;
  gzFile opened = gzopen(file.c_str(), "rb");
  std::array<char, 4096> block{};
  for (int got = 1; opened != nullptr && got > 0;) {
    got = gzread(opened, block.data(), static_cast<unsigned>(block.size()));
    content.append(block.data(), static_cast<std::size_t>(std::max(got, 0)));
  }
  gzclose(opened);
  return content;
}

std::string namesIn(const std::string& folder) {
  std::set<std::string> names;
  std::error_code ignored;
  for (const auto& entry : std::filesystem::directory_iterator(folder, ignored)) {
    names.insert(entry.path().filename().string());
  }
  std::string text;
  for (const std::string& name : names) {
    text += (text.empty() ? "" : " ") + name;
  }
  return text;
}

}  // namespace velto::openfoam
