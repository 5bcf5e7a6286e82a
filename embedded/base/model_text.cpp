// SPDX-License-Identifier: Apache-2.0
//
// modelText: part by part, kind by kind.

#include "embedded/base/model_text.h"

#include <sstream>
#include <vector>

#include "embedded/base/call_text.h"

namespace velto::base {

namespace {

using Ids = std::vector<int>;

using NameQuery = bool (OrvLocationModel::*)(int id, std::string& name) const;
using ListQuery = bool (OrvLocationModel::*)(int id, Ids& ids) const;

/// Writes the objects of a model.
class ModelWriter {
 public:
  ModelWriter(const OrvLocationModel& model, int meshId) : model_(model), meshId_(meshId) {}

  std::string text() {
    Ids parts;
    model_.getParts(parts);
    for (const int part : parts) {
      out_ << "part " << name(part, &OrvLocationModel::getPartName) << " (" << part << ")\n";
      writeEach(part, &OrvLocationModel::getPartBodies, &ModelWriter::writeBody);
      writeEach(part, &OrvLocationModel::getPartFaces, &ModelWriter::writeFace);
      writeEach(part, &OrvLocationModel::getPartFaceUses, &ModelWriter::writeFaceUse);
      writeEach(part, &OrvLocationModel::getPartComposites, &ModelWriter::writeComposite);
    }
    return out_.str();
  }

 private:
  std::string name(int id, NameQuery query) const {
    std::string name;
    return (model_.*query)(id, name) ? "'" + name + "'" : "?";
  }

  void writeEach(int part, ListQuery query, void (ModelWriter::*write)(int id)) {
    Ids ids;
    if (!(model_.*query)(part, ids)) {
      out_ << "  ?\n";
    }
    for (const int id : ids) {
      (this->*write)(id);
    }
  }

  void writeBody(int body) {
    out_ << "  body " << body << " " << name(body, &OrvLocationModel::getBodyName) << ": ";
    Ids zones;
    const bool hasZones = model_.getBodyZones(body, meshId_, zones);
    out_ << (hasZones ? "zones " + argumentText(zones) : "no zones") << ", boundary ";
    Ids boundary;
    const bool hasBoundary = model_.getBodyBoundary(body, boundary);
    out_ << (hasBoundary ? argumentText(boundary) : "?") << "\n";
  }

  void writeFace(int face) {
    out_ << "  face " << face << " " << name(face, &OrvLocationModel::getFaceName) << ": sides ";
    int side0 = 0;
    int side1 = 0;
    if (model_.getFaceSides(face, side0, side1)) {
      out_ << side0 << " | " << side1 << "\n";
    } else {
      out_ << "?\n";
    }
  }

  void writeFaceUse(int use) {
    out_ << "  use " << use << " " << name(use, &OrvLocationModel::getFaceUseName) << " or "
         << name(use, &OrvLocationModel::getFaceUseRelativeName) << ": ";
    Ids sides;
    const bool hasSides = model_.getFaceUseZoneSides(use, meshId_, sides);
    out_ << (hasSides ? "zone sides " + argumentText(sides) : "no zone sides") << "\n";
  }

  void writeComposite(int composite) {
    out_ << "  composite " << composite << " "
         << name(composite, &OrvLocationModel::getCompositeName) << ": ";
    Ids bodies;
    Ids faces;
    Ids uses;
    if (model_.resolveComposite(composite, bodies, faces, uses)) {
      out_ << "bodies " << argumentText(bodies) << ", faces " << base::argumentText(faces)
           << ", uses " << argumentText(uses) << "\n";
    } else {
      out_ << "?\n";
    }
  }

  const OrvLocationModel& model_;
  int meshId_;
  std::ostringstream out_;
};

}  // namespace

std::string modelText(const OrvLocationModel& model, int meshId) {
  return ModelWriter(model, meshId).text();
}

}  // namespace velto::base
