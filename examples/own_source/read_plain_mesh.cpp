// SPDX-License-Identifier: Apache-2.0
//
// Reading of plain meshes: line by line into lists of zones, and these into a case.

#include "read_plain_mesh.h"

#include <charconv>
#include <cstddef>
#include <cstdint>
#include <fstream>
#include <map>
#include <sstream>
#include <utility>
#include <vector>

#include "embedded/base/CaseError.h"
#include "embedded/base/shapes.h"
#include "embedded/memory/CaseBuilder.h"

namespace plain_mesh {

namespace {

using velto::memory::CaseBuilder;
using velto::memory::FaceLine;

const std::map<std::string, int> kFaceZoneTypes = {{"interior", velto::faceZoneTypeInterior},
                                                   {"wall", velto::base::boundaryWall},
                                                   {"patch", velto::base::boundaryPatch},
                                                   {"symmetry", velto::base::boundarySymmetry}};

const std::map<std::string, int> kShapes = {{"tetrahedron", velto::base::cellShapeTetrahedron},
                                            {"pyramid", velto::base::cellShapePyramid},
                                            {"wedge", velto::base::cellShapeWedge},
                                            {"hexahedron", velto::base::cellShapeHexahedron},
                                            {"polyhedron", velto::base::cellShapePolyhedron}};

/// The words of a text, line by line, and what cannot be read of them.
class Lines {
 public:
  explicit Lines(const std::string& fileName) : fileName_(fileName), file_(fileName) {}

  /// Goes to the next line that has words; false behind the last.
  bool next() {
    for (std::string text; std::getline(file_, text);) {
      ++line_;
      std::istringstream stream(text.substr(0, text.find('#')));
      words_.clear();
      for (std::string word; stream >> word;) {
        words_.push_back(word);
      }
      if (!words_.empty()) {
        return true;
      }
    }
    return false;
  }

  const std::string& operator[](std::size_t i) const { return words_[i]; }
  std::size_t size() const { return words_.size(); }

  /// Fails unless the line has from `fewest` to `most` words, which `form` names.
  void expect(const std::string& form, std::size_t fewest, std::size_t most) const {
    if (words_.size() < fewest || words_.size() > most) {
      fail("expected " + form + ", found " + std::to_string(words_.size()) + " words");
    }
  }

  template <class Number>
  Number number(std::size_t i) const {
    const std::string& word = words_[i];
    const char* end = word.data() + word.size();
    Number value = 0;
    const auto [stop, error] = std::from_chars(word.data(), end, value);
    if (error != std::errc() || stop != end) {
      fail("expected a number, found " + word);
    }
    return value;
  }

  int oneOf(const std::map<std::string, int>& known, const std::string& what, std::size_t i) const {
    const auto found = known.find(words_[i]);
    if (found == known.end()) {
      fail("expected " + what + ", found " + words_[i]);
    }
    return found->second;
  }

  [[noreturn]] void fail(const std::string& reason) const {
    throw velto::base::CaseError(fileName_ + ": line " + std::to_string(line_) + ": " + reason);
  }

 private:
  const std::string fileName_;
  std::ifstream file_;
  std::size_t line_ = 0;
  std::vector<std::string> words_;
};

struct FaceZone {
  std::string name;
  int type = 0;
  std::vector<FaceLine> faces;
};

struct CellZone {
  std::string name;
  std::vector<int> shapes;
};

/// What a plain mesh says, in its own order.
struct PlainMesh {
  std::vector<std::vector<double>> nodes;
  std::vector<FaceZone> faceZones;
  std::vector<CellZone> cellZones;
  std::vector<std::pair<std::string, std::string>> settings;
};

FaceLine faceOf(const Lines& line) {
  line.expect("face CELL0 CELL1 and 3 to 1000 nodes", 6, 1003);
  FaceLine face;
  face.cell0 = line.number<std::uint64_t>(1);
  face.cell1 = line.number<std::uint64_t>(2);
  for (std::size_t i = 3; i < line.size(); ++i) {
    face.nodes.push_back(line.number<std::uint64_t>(i));
  }
  return face;
}

void readLine(const Lines& line, PlainMesh& mesh) {
  const std::string& keyword = line[0];
  if (keyword == "node") {
    line.expect("node X Y Z", 4, 4);
    mesh.nodes.push_back({line.number<double>(1), line.number<double>(2), line.number<double>(3)});
  } else if (keyword == "faces") {
    line.expect("faces NAME TYPE", 3, 3);
    mesh.faceZones.push_back({line[1], line.oneOf(kFaceZoneTypes, "a type of face zone", 2), {}});
  } else if (keyword == "face" && !mesh.faceZones.empty()) {
    mesh.faceZones.back().faces.push_back(faceOf(line));
  } else if (keyword == "cells") {
    line.expect("cells NAME", 2, 2);
    mesh.cellZones.push_back({line[1], {}});
  } else if (keyword == "cell" && !mesh.cellZones.empty()) {
    line.expect("cell SHAPE", 2, 2);
    mesh.cellZones.back().shapes.push_back(line.oneOf(kShapes, "a shape", 1));
  } else if (keyword == "setting") {
    line.expect("setting KEY VALUE", 3, 3);
    mesh.settings.emplace_back(line[1], line[2]);
  } else {
    line.fail("did not expect " + keyword + " here");
  }
}

/// Zone ids count up from 1: the nodes, the face zones, the cell zones.
std::shared_ptr<velto::memory::Case> caseOf(const PlainMesh& mesh) {
  CaseBuilder builder;
  int zone = 1;
  builder.units("m").nodes(zone, "nodes", mesh.nodes);
  for (const FaceZone& faces : mesh.faceZones) {
    builder.faces(++zone, faces.name, faces.type, faces.faces);
  }
  for (const CellZone& cells : mesh.cellZones) {
    builder.cells(++zone, cells.name, cells.shapes);
  }
  for (const auto& [key, value] : mesh.settings) {
    builder.setting(key, value);
  }
  return builder.build();
}

}  // namespace

bool isPlainMesh(const std::string& fileName) {
  std::ifstream file(fileName);
  std::string firstLine;
  return std::getline(file, firstLine) && firstLine == "plainmesh 1";
}

std::shared_ptr<velto::memory::Case> readPlainMesh(const std::string& fileName) {
  if (!isPlainMesh(fileName)) {
    throw velto::base::CaseError(fileName + ": line 1: expected plainmesh 1");
  }
  PlainMesh mesh;
  Lines line(fileName);
  for (line.next(); line.next();) {
    readLine(line, mesh);
  }
  return caseOf(mesh);
}

}  // namespace plain_mesh
