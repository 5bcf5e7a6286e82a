// SPDX-License-Identifier: Apache-2.0
//
// What stands behind an OrvLocationModel: parts, bodies, faces, face uses and composites by id.

#include "embedded/base/OrvLocationModelState.h"

#include <utility>

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

// --- Building -----------------------------------------------------------------------------------

void OrvLocationModel::State::createPart(int kind, const std::string& name, int& partId) {
  partId = ++lastId;
  Part& part = parts[partId];
  part.kind = kind;
  part.name = name;
}

bool OrvLocationModel::State::createBody(int partId, const std::string& name, int& bodyId) {
  Part* part = lookUp(parts, partId);
  int known = 0;
  if (part == nullptr || part->bodies.find(name, known)) {
    return false;
  }
  bodyId = ++lastId;
  part->bodies.add(bodyId, name);
  Body& body = bodies[bodyId];
  body.part = partId;
  body.name = name;
  return true;
}

bool OrvLocationModel::State::createFace(int partId, const std::string& name, int& faceId) {
  Part* part = lookUp(parts, partId);
  int known = 0;
  if (part == nullptr || part->faces.find(name, known)) {
    return false;
  }
  faceId = ++lastId;
  part->faces.add(faceId, name);
  Face& face = faces[faceId];
  face.part = partId;
  face.name = name;
  return true;
}

bool OrvLocationModel::State::createFaceUse(int bodyId, int faceId, int side, int& faceUseId) {
  Body* body = lookUp(bodies, bodyId);
  Face* face = lookUp(faces, faceId);
  if (body == nullptr || face == nullptr || body->part != face->part || side < 0 || side > 1) {
    return false;
  }
  int& holder = face->sides.at(static_cast<std::size_t>(side));
  if (holder != 0) {
    return false;
  }
  faceUseId = ++lastId;
  holder = faceUseId;
  body->boundary.push_back(faceUseId);
  Part& part = parts[body->part];
  part.faceUses.add(faceUseId, "");

  FaceUse& use = faceUses[faceUseId];
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

bool OrvLocationModel::State::setBodyZones(int bodyId, int meshId, const std::vector<int>& zones) {
  Body* body = lookUp(bodies, bodyId);
  if (body == nullptr) {
    return false;
  }
  body->zones[meshId] = zones;
  return true;
}

bool OrvLocationModel::State::setFaceUseZoneSides(int faceUseId, int meshId,
                                                  const std::vector<int>& sides) {
  FaceUse* use = lookUp(faceUses, faceUseId);
  if (use == nullptr) {
    return false;
  }
  use->zoneSides[meshId] = sides;
  return true;
}

bool OrvLocationModel::State::setFaceUseName(int faceUseId, const std::string& name) {
  FaceUse* use = lookUp(faceUses, faceUseId);
  if (use == nullptr) {
    return false;
  }
  parts[use->part].faceUses.rename(faceUseId, use->name, name);
  use->name = name;
  return true;
}

// --- Finding by name ----------------------------------------------------------------------------

bool OrvLocationModel::State::findBody(int partId, const std::string& name, int& id) const {
  const Part* part = lookUp(parts, partId);
  return part != nullptr && part->bodies.find(name, id);
}

bool OrvLocationModel::State::findComposite(int partId, const std::string& name, int& id) const {
  const Part* part = lookUp(parts, partId);
  return part != nullptr && part->composites.find(name, id);
}

bool OrvLocationModel::State::findFace(int partId, const std::string& name, int& id) const {
  const Part* part = lookUp(parts, partId);
  return part != nullptr && part->faces.find(name, id);
}

bool OrvLocationModel::State::findFaceUse(int partId, const std::string& name, int& id) const {
  const Part* part = lookUp(parts, partId);
  if (part == nullptr || name.empty()) {
    return false;
  }
  if (part->faceUses.find(name, id)) {
    return true;
  }
  // A use without a name of its own is known by its relative name.
  const int* relative = lookUp(part->faceUsesByRelativeName, name);
  if (relative == nullptr || !faceUses.at(*relative).name.empty()) {
    return false;
  }
  id = *relative;
  return true;
}

// --- Parts --------------------------------------------------------------------------------------

void OrvLocationModel::State::getParts(std::vector<int>& ids) const {
  ids.clear();
  for (const auto& part : parts) {
    ids.push_back(part.first);
  }
}

bool OrvLocationModel::State::getPartName(int partId, std::string& name) const {
  const Part* part = lookUp(parts, partId);
  if (part == nullptr) {
    return false;
  }
  name = part->name;
  return true;
}

bool OrvLocationModel::State::getPartBodies(int partId, std::vector<int>& ids) const {
  const Part* part = lookUp(parts, partId);
  if (part == nullptr) {
    return false;
  }
  ids = part->bodies.ids;
  return true;
}

bool OrvLocationModel::State::getPartFaces(int partId, std::vector<int>& ids) const {
  const Part* part = lookUp(parts, partId);
  if (part == nullptr) {
    return false;
  }
  ids = part->faces.ids;
  return true;
}

bool OrvLocationModel::State::getPartFaceUses(int partId, std::vector<int>& ids) const {
  const Part* part = lookUp(parts, partId);
  if (part == nullptr) {
    return false;
  }
  ids = part->faceUses.ids;
  return true;
}

bool OrvLocationModel::State::getPartComposites(int partId, std::vector<int>& ids) const {
  const Part* part = lookUp(parts, partId);
  if (part == nullptr) {
    return false;
  }
  ids = part->composites.ids;
  return true;
}

// --- Bodies -------------------------------------------------------------------------------------

bool OrvLocationModel::State::getBodyName(int bodyId, std::string& name) const {
  const Body* body = lookUp(bodies, bodyId);
  if (body == nullptr) {
    return false;
  }
  name = body->name;
  return true;
}

bool OrvLocationModel::State::getBodyBoundary(int bodyId, std::vector<int>& ids) const {
  const Body* body = lookUp(bodies, bodyId);
  if (body == nullptr) {
    return false;
  }
  ids = body->boundary;
  return true;
}

bool OrvLocationModel::State::getBodyZones(int bodyId, int meshId, std::vector<int>& zones) const {
  const Body* body = lookUp(bodies, bodyId);
  return body != nullptr && copyList(body->zones, meshId, zones);
}

// --- Faces and face uses ------------------------------------------------------------------------

bool OrvLocationModel::State::getFaceName(int faceId, std::string& name) const {
  const Face* face = lookUp(faces, faceId);
  if (face == nullptr) {
    return false;
  }
  name = face->name;
  return true;
}

bool OrvLocationModel::State::getFaceSides(int faceId, int& side0, int& side1) const {
  const Face* face = lookUp(faces, faceId);
  if (face == nullptr) {
    return false;
  }
  side0 = face->sides[0];
  side1 = face->sides[1];
  return true;
}

bool OrvLocationModel::State::getFaceUseName(int faceUseId, std::string& name) const {
  const FaceUse* use = lookUp(faceUses, faceUseId);
  if (use == nullptr) {
    return false;
  }
  name = use->name;
  return true;
}

bool OrvLocationModel::State::getFaceUseRelativeName(int faceUseId, std::string& name) const {
  const FaceUse* use = lookUp(faceUses, faceUseId);
  if (use == nullptr) {
    return false;
  }
  name = use->relativeName;
  return true;
}

bool OrvLocationModel::State::getFaceUseZoneSides(int faceUseId, int meshId,
                                                  std::vector<int>& sides) const {
  const FaceUse* use = lookUp(faceUses, faceUseId);
  return use != nullptr && copyList(use->zoneSides, meshId, sides);
}

// --- Composites ---------------------------------------------------------------------------------

bool OrvLocationModel::State::getCompositeName(int compositeId, std::string& name) const {
  const Composite* composite = lookUp(composites, compositeId);
  if (composite == nullptr) {
    return false;
  }
  name = composite->name;
  return true;
}

bool OrvLocationModel::State::resolveComposite(int compositeId, std::vector<int>& bodyIds,
                                               std::vector<int>& faceIds,
                                               std::vector<int>& faceUseIds) const {
  const Composite* composite = lookUp(composites, compositeId);
  if (composite == nullptr) {
    return false;
  }
  bodyIds = composite->bodies;
  faceIds = composite->faces;
  faceUseIds = composite->faceUses;
  return true;
}

}  // namespace velto
