// SPDX-License-Identifier: Apache-2.0
//
// OrvLocationModel: parts, bodies, faces, face uses and composites by id.

#include "data_access/OrvLocationModel.h"

#include "embedded/base/OrvLocationModelState.h"

namespace velto {

namespace {

/// The object of that key, or null; const where the map is.
template <class Map, class Key>
auto lookUp(Map& objects, const Key& key) -> decltype(&objects.begin()->second) {
  const auto found = objects.find(key);
  return found == objects.end() ? nullptr : &found->second;
}

template <class Map>
bool copyList(const Map& listsByMesh, int meshId, std::vector<int>& list) {
  const std::vector<int>* found = lookUp(listsByMesh, meshId);
  if (found == nullptr) {
    return false;
  }
  list = *found;
  return true;
}

}  // namespace

// --- Index and copies ---------------------------------------------------------------------------

void OrvLocationModel::State::Index::add(int id, const std::string& name) {
  ids.push_back(id);
  byName[name].insert(id);
}

void OrvLocationModel::State::Index::rename(int id, const std::string& from,
                                            const std::string& to) {
  byName[from].erase(id);
  byName[to].insert(id);
}

bool OrvLocationModel::State::Index::find(const std::string& name, int& id) const {
  const auto found = byName.find(name);
  if (found == byName.end() || found->second.empty()) {
    return false;
  }
  id = *found->second.begin();
  return true;
}

std::unique_ptr<OrvLocationModel> OrvLocationModel::State::copy(const OrvLocationModel& model) {
  auto copied = std::make_unique<OrvLocationModel>();
  *copied->state_ = *model.state_;
  return copied;
}

int OrvLocationModel::State::addComposite(int partId, Composite composite) {
  Part* part = lookUp(parts, partId);
  if (part == nullptr) {
    return 0;
  }
  const int id = ++lastId;
  part->composites.add(id, composite.name);
  composites.emplace(id, std::move(composite));
  return id;
}

OrvLocationModel::OrvLocationModel() : state_(std::make_unique<State>()) {}
OrvLocationModel::~OrvLocationModel() = default;

// --- Building -----------------------------------------------------------------------------------

void OrvLocationModel::createPart(int kind, const std::string& name, int& partId) {
  partId = ++state_->lastId;
  State::Part& part = state_->parts[partId];
  part.kind = kind;
  part.name = name;
}

bool OrvLocationModel::createBody(int partId, const std::string& name, int& bodyId) {
  State::Part* part = lookUp(state_->parts, partId);
  int known = 0;
  if (part == nullptr || part->bodies.find(name, known)) {
    return false;
  }
  bodyId = ++state_->lastId;
  part->bodies.add(bodyId, name);
  State::Body& body = state_->bodies[bodyId];
  body.part = partId;
  body.name = name;
  return true;
}

bool OrvLocationModel::createFace(int partId, const std::string& name, int& faceId) {
  State::Part* part = lookUp(state_->parts, partId);
  int known = 0;
  if (part == nullptr || part->faces.find(name, known)) {
    return false;
  }
  faceId = ++state_->lastId;
  part->faces.add(faceId, name);
  State::Face& face = state_->faces[faceId];
  face.part = partId;
  face.name = name;
  return true;
}

bool OrvLocationModel::createFaceUse(int bodyId, int faceId, int side, int& faceUseId) {
  State::Body* body = lookUp(state_->bodies, bodyId);
  State::Face* face = lookUp(state_->faces, faceId);
  if (body == nullptr || face == nullptr || body->part != face->part || side < 0 || side > 1) {
    return false;
  }
  int& holder = face->sides.at(static_cast<std::size_t>(side));
  if (holder != 0) {
    return false;
  }
  faceUseId = ++state_->lastId;
  holder = faceUseId;
  body->boundary.push_back(faceUseId);
  State::Part& part = state_->parts[body->part];
  part.faceUses.add(faceUseId, "");

  State::FaceUse& use = state_->faceUses[faceUseId];
  use.part = body->part;
  use.body = bodyId;
  use.face = faceId;
  const std::string base = face->name + "@" + body->name;
  use.relativeName = base;
  for (int next = 2; !part.faceUsesByRelativeName.emplace(use.relativeName, faceUseId).second;
       ++next) {
    use.relativeName = base + "." + std::to_string(next);
  }
  return true;
}

bool OrvLocationModel::setBodyZones(int bodyId, int meshId, const std::vector<int>& zones) {
  State::Body* body = lookUp(state_->bodies, bodyId);
  if (body == nullptr) {
    return false;
  }
  body->zones[meshId] = zones;
  return true;
}

bool OrvLocationModel::setFaceUseZoneSides(int faceUseId, int meshId,
                                           const std::vector<int>& sides) {
  State::FaceUse* use = lookUp(state_->faceUses, faceUseId);
  if (use == nullptr) {
    return false;
  }
  use->zoneSides[meshId] = sides;
  return true;
}

bool OrvLocationModel::setFaceUseName(int faceUseId, const std::string& name) {
  State::FaceUse* use = lookUp(state_->faceUses, faceUseId);
  if (use == nullptr) {
    return false;
  }
  state_->parts[use->part].faceUses.rename(faceUseId, use->name, name);
  use->name = name;
  return true;
}

// --- Finding by name ----------------------------------------------------------------------------

bool OrvLocationModel::findBody(int partId, const std::string& name, int& id) const {
  const State::Part* part = lookUp(state_->parts, partId);
  return part != nullptr && part->bodies.find(name, id);
}

bool OrvLocationModel::findComposite(int partId, const std::string& name, int& id) const {
  const State::Part* part = lookUp(state_->parts, partId);
  return part != nullptr && part->composites.find(name, id);
}

bool OrvLocationModel::findFace(int partId, const std::string& name, int& id) const {
  const State::Part* part = lookUp(state_->parts, partId);
  return part != nullptr && part->faces.find(name, id);
}

bool OrvLocationModel::findFaceUse(int partId, const std::string& name, int& id) const {
  const State::Part* part = lookUp(state_->parts, partId);
  if (part == nullptr || name.empty()) {
    return false;
  }
  if (part->faceUses.find(name, id)) {
    return true;
  }
  // A use without a name of its own is known by its relative name.
  const int* relative = lookUp(part->faceUsesByRelativeName, name);
  if (relative == nullptr || !state_->faceUses.at(*relative).name.empty()) {
    return false;
  }
  id = *relative;
  return true;
}

// --- Parts --------------------------------------------------------------------------------------

void OrvLocationModel::getParts(std::vector<int>& ids) const {
  ids.clear();
  for (const auto& part : state_->parts) {
    ids.push_back(part.first);
  }
}

bool OrvLocationModel::getPartBodies(int partId, std::vector<int>& ids) const {
  const State::Part* part = lookUp(state_->parts, partId);
  if (part == nullptr) {
    return false;
  }
  ids = part->bodies.ids;
  return true;
}

bool OrvLocationModel::getPartFaceUses(int partId, std::vector<int>& ids) const {
  const State::Part* part = lookUp(state_->parts, partId);
  if (part == nullptr) {
    return false;
  }
  ids = part->faceUses.ids;
  return true;
}

bool OrvLocationModel::getPartComposites(int partId, std::vector<int>& ids) const {
  const State::Part* part = lookUp(state_->parts, partId);
  if (part == nullptr) {
    return false;
  }
  ids = part->composites.ids;
  return true;
}

// --- Bodies -------------------------------------------------------------------------------------

bool OrvLocationModel::getBodyName(int bodyId, std::string& name) const {
  const State::Body* body = lookUp(state_->bodies, bodyId);
  if (body == nullptr) {
    return false;
  }
  name = body->name;
  return true;
}

bool OrvLocationModel::getBodyBoundary(int bodyId, std::vector<int>& faceUses) const {
  const State::Body* body = lookUp(state_->bodies, bodyId);
  if (body == nullptr) {
    return false;
  }
  faceUses = body->boundary;
  return true;
}

bool OrvLocationModel::getBodyZones(int bodyId, int meshId, std::vector<int>& zones) const {
  const State::Body* body = lookUp(state_->bodies, bodyId);
  return body != nullptr && copyList(body->zones, meshId, zones);
}

// --- Faces and face uses ------------------------------------------------------------------------

bool OrvLocationModel::getFaceSides(int faceId, int& side0, int& side1) const {
  const State::Face* face = lookUp(state_->faces, faceId);
  if (face == nullptr) {
    return false;
  }
  side0 = face->sides[0];
  side1 = face->sides[1];
  return true;
}

bool OrvLocationModel::getFaceUseName(int faceUseId, std::string& name) const {
  const State::FaceUse* use = lookUp(state_->faceUses, faceUseId);
  if (use == nullptr) {
    return false;
  }
  name = use->name;
  return true;
}

bool OrvLocationModel::getFaceUseRelativeName(int faceUseId, std::string& name) const {
  const State::FaceUse* use = lookUp(state_->faceUses, faceUseId);
  if (use == nullptr) {
    return false;
  }
  name = use->relativeName;
  return true;
}

bool OrvLocationModel::getFaceUseZoneSides(int faceUseId, int meshId,
                                           std::vector<int>& sides) const {
  const State::FaceUse* use = lookUp(state_->faceUses, faceUseId);
  return use != nullptr && copyList(use->zoneSides, meshId, sides);
}

// --- Composites ---------------------------------------------------------------------------------

bool OrvLocationModel::getCompositeName(int compositeId, std::string& name) const {
  const State::Composite* composite = lookUp(state_->composites, compositeId);
  if (composite == nullptr) {
    return false;
  }
  name = composite->name;
  return true;
}

bool OrvLocationModel::resolveComposite(int compositeId, std::vector<int>& bodies,
                                        std::vector<int>& faces, std::vector<int>& faceUses) const {
  const State::Composite* composite = lookUp(state_->composites, compositeId);
  if (composite == nullptr) {
    return false;
  }
  bodies = composite->bodies;
  faces = composite->faces;
  faceUses = composite->faceUses;
  return true;
}

}  // namespace velto
