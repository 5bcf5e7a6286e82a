// SPDX-License-Identifier: Apache-2.0
//
// LocationModelWriter: the state of a model, filled.

#include "embedded/memory/LocationModelWriter.h"

#include <stdexcept>

namespace velto::memory {

namespace {

constexpr int kPartKind = 3;  // that of a part which is built

void require(bool done, const std::string& name) {
  if (!done) {
    throw std::logic_error("the location model does not take " + name);
  }
}

}  // namespace

int LocationModelWriter::part(const std::string& name) {
  state().createPart(kPartKind, name, part_);
  return part_;
}

int LocationModelWriter::body(const std::string& name) {
  int id = 0;
  require(state().createBody(part_, name, id), name);
  return id;
}

int LocationModelWriter::body(const std::string& name, const std::vector<int>& zones, int mesh) {
  const int id = body(name);
  require(state().setBodyZones(id, mesh, zones), name);
  return id;
}

int LocationModelWriter::face(const std::string& name) {
  int id = 0;
  require(state().createFace(part_, name, id), name);
  return id;
}

int LocationModelWriter::use(int body, int face, int side, const std::vector<int>& zoneSides,
                             const std::string& name) {
  int id = 0;
  require(state().createFaceUse(body, face, side, id) && state().setFaceUseName(id, name) &&
              state().setFaceUseZoneSides(id, base::MeshKey().mesh, zoneSides),
          name);
  return id;
}

int LocationModelWriter::composite(const OrvLocationModel::State::Composite& composite) {
  const int id = state().addComposite(part_, composite);
  require(id != 0, composite.name);
  return id;
}

}  // namespace velto::memory
