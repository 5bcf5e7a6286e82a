// SPDX-License-Identifier: Apache-2.0
//
// MeshFile: what all files of a polyMesh folder have in common.

#include "formats/openfoam/MeshFile.h"

#include <utility>

namespace velto::openfoam {

namespace {

constexpr const char* kBoundary = "boundary";

unsigned levelOf(const FileSettings& settings, const std::string& name) {
  return name == kBoundary ? 0 : settings.form.compression;
}

std::string fileName(const FileSettings& settings, const std::string& name) {
  return "/" + name + (levelOf(settings, name) > 0 ? ".gz" : "");
}

}  // namespace

MeshFile::MeshFile(const FileSettings& settings, const std::string& name)
    : settings_(settings),
      name_(name),
      isText_(settings.form.isText || name == kBoundary),
      out_(settings.folder + fileName(settings, name), settings.shown + fileName(settings, name),
           levelOf(settings, name)) {}

void MeshFile::begin(const std::string& objectClass, const std::string& note) {
  std::string head = "FoamFile\n{\n    version     2.0;\n    format      ";
  head += isText_ ? "ascii;\n" : "binary;\n";
  head += "    class       " + objectClass + ";\n";
  if (!note.empty()) {
    head += "    note        \"" + note + "\";\n";
  }
  if (!isText_) {
    head +=
        "    arch        \"LSB;label=" + std::to_string(settings_.labelBits) + ";scalar=64\";\n";
  }
  head += "    location    \"constant/polyMesh\";\n    object      " + name_ + ";\n}\n";
  head += "// * * * * * * * * * * * * * * * * * * * * * * * * * * * * * * * * * * * * * //\n\n";
  out_.text(head);
}

bool MeshFile::beginList(std::uint64_t count) {
  out_.label(count);
  if (count == 0) {
    // Of an empty list in binary form nothing but the size is read.
    out_.text(isText_ ? "()" : "\n");
    return false;
  }
  out_.text(isText_ ? "\n(\n" : "\n(");
  return true;
}

void MeshFile::close() {
  out_.text(
      "\n\n// ************************************************************************* //\n");
  out_.close();
  tell();
}

void MeshFile::tell() {
  const std::uint64_t values = std::exchange(values_, 0);
  if (settings_.progress && values > 0) {
    settings_.progress(values * sizeof(double));
  }
}

}  // namespace velto::openfoam
