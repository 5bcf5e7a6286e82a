// SPDX-License-Identifier: Apache-2.0
//
// A polyMesh folder for one test.

#include "tests/formats/openfoam/FolderTest.h"

#include <filesystem>
#include <map>
#include <sstream>

#include "formats/openfoam/read_poly_mesh.h"
#include "testing/PolyMeshWriter.h"

namespace velto::openfoam {

namespace {

template <class Number>
std::string bytes(std::initializer_list<Number> numbers) {
  std::string result;
  for (const Number number : numbers) {
    result.append(reinterpret_cast<const char*>(&number), sizeof(number));
  }
  return result;
}

std::string classOf(const std::string& name) {
  const std::map<std::string, std::string> classes = {{"points", "vectorField"},
                                                      {"faces", "faceList"},
                                                      {"owner", "labelList"},
                                                      {"neighbour", "labelList"},
                                                      {"boundary", "polyBoundaryMesh"}};
  const auto found = classes.find(name);
  return found == classes.end() ? "regIOobject" : found->second;
}

template <class List>
void describeList(std::ostream& out, const char* name, const List& list) {
  out << name << ":";
  for (const auto& value : list) {
    out << " " << +value;
  }
  out << "\n";
}

void describeZones(std::ostream& out, const char* kind, const std::vector<ElementZone>& zones) {
  for (const ElementZone& zone : zones) {
    out << kind << " " << zone.name << (zone.oriented ? " oriented" : "") << "\n";
    describeList(out, " labels", zone.labels);
    describeList(out, " flips", zone.flipMap);
  }
}

}  // namespace

std::string textHeader(const std::string& objectClass) {
  return "FoamFile { format ascii; class " + objectClass + "; }\n";
}

std::string binaryHeader(const std::string& objectClass, const std::string& arch) {
  const std::string entry = arch.empty() ? "" : " arch \"" + arch + "\";";
  return "FoamFile { format binary; class " + objectClass + ";" + entry + " }\n";
}

std::string bytes32(std::initializer_list<std::int32_t> labels) { return bytes(labels); }
std::string bytes64(std::initializer_list<std::int64_t> labels) { return bytes(labels); }
std::string bytesOf(std::initializer_list<float> values) { return bytes(values); }
std::string bytesOf(std::initializer_list<double> values) { return bytes(values); }

std::string describe(const PolyMesh& mesh) {
  std::ostringstream out;
  out.precision(17);
  describeList(out, "points", mesh.points);
  describeList(out, "faceNodeCounts", mesh.faceNodeCounts);
  describeList(out, "faceNodeIds", mesh.faceNodeIds);
  describeList(out, "owner", mesh.owner);
  describeList(out, "neighbour", mesh.neighbour);
  for (const Patch& patch : mesh.patches) {
    out << "patch " << patch.name << " " << patch.type << " " << patch.faceCount << " "
        << patch.firstFace << " " << patch.neighbourPatch << "\n";
    for (const auto& [keyword, text] : patch.entries) {
      out << "  " << keyword << " = " << text << "\n";
    }
  }
  describeZones(out, "cellZone", mesh.cellZones);
  describeZones(out, "faceZone", mesh.faceZones);
  if (mesh.note) {
    out << "note " << mesh.note->nodes.value_or(0) << " " << mesh.note->cells.value_or(0) << " "
        << mesh.note->faces.value_or(0) << " " << mesh.note->internalFaces.value_or(0) << "\n";
  }
  return out.str();
}

FolderTest::FolderTest() : folder_(temp_.path()) {
  writeList("points", "8((0 0 0)(1 0 0)(0 1 0)(1 1 0)(0 0 1)(1 0 1)(0 1 1)(1 1 1))");
  writeList("faces", "6(4(0 4 6 2)4(1 3 7 5)4(0 1 5 4)4(2 6 7 3)4(0 2 3 1)4(4 5 7 6))");
  writeList("owner", "6(0 0 0 0 0 0)");
  writeList("neighbour", "0()");
  writeList("boundary", "1(walls { type wall; nFaces 6; startFace 0; })");
}

FolderTest::~FolderTest() = default;

void FolderTest::write(const std::string& name, const std::string& content, bool gzip) const {
  velto::testing::writeTextFile(path(name), content, gzip);
}

void FolderTest::remove(const std::string& name) const { std::filesystem::remove(path(name)); }

void FolderTest::writeList(const std::string& name, const std::string& list) const {
  write(name, textHeader(classOf(name)) + list);
}

PolyMesh FolderTest::read() const { return readPolyMesh(folder_); }

std::string FolderTest::error() const {
  try {
    read();
    return "no error";
  } catch (const ReadError& error) {
    std::string text = error.what();
    for (auto at = text.find(folder_ + "/"); at != std::string::npos;
         at = text.find(folder_ + "/")) {
      text.erase(at, folder_.size() + 1);
    }
    return text;
  }
}

}  // namespace velto::openfoam
