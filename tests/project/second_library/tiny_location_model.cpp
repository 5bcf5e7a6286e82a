// SPDX-License-Identifier: Apache-2.0
//
// OrvLocationModel in the tiny library: one list of objects of all kinds.

#include "tests/project/second_library/TinyState.h"

namespace velto {

namespace {

constexpr char kPart = 'p';
constexpr char kBody = 'b';
constexpr char kFace = 'f';
constexpr char kFaceUse = 'u';
constexpr char kComposite = 'c';

}  // namespace

int OrvLocationModel::State::add(char kind, int part, const std::string& name) {
  objects.push_back({kind, part, name, {}, {}});
  return static_cast<int>(objects.size());
}

OrvLocationModel::State::Object* OrvLocationModel::State::find(int id, char kind) {
  if (id < 1 || static_cast<std::size_t>(id) > objects.size()) {
    return nullptr;
  }
  Object& object = objects[static_cast<std::size_t>(id) - 1];
  return object.kind == kind ? &object : nullptr;
}

std::vector<int> OrvLocationModel::State::idsOf(char kind, int part) const {
  std::vector<int> ids;
  for (std::size_t i = 0; i < objects.size(); ++i) {
    if (objects[i].kind == kind && objects[i].part == part) {
      ids.push_back(static_cast<int>(i) + 1);
    }
  }
  return ids;
}

bool OrvLocationModel::State::findByName(char kind, int part, const std::string& name,
                                         int& id) const {
  for (const int candidate : idsOf(kind, part)) {
    if (objects[static_cast<std::size_t>(candidate) - 1].name == name) {
      id = candidate;
      return true;
    }
  }
  return false;
}

std::shared_ptr<const OrvLocationModel> OrvLocationModel::State::copy(
    const OrvLocationModel& model) {
  auto copied = std::make_shared<OrvLocationModel>();
  *copied->state_ = *model.state_;
  return copied;
}

OrvLocationModel::OrvLocationModel() : state_(std::make_unique<State>()) {}
OrvLocationModel::~OrvLocationModel() = default;

// --- Building -----------------------------------------------------------------------------------

void OrvLocationModel::createPart(int /*kind*/, const std::string& name, int& partId) {
  partId = state_->add(kPart, 0, name);
}

bool OrvLocationModel::createBody(int partId, const std::string& name, int& bodyId) {
  int known = 0;
  if (state_->find(partId, kPart) == nullptr || findBody(partId, name, known)) {
    return false;
  }
  bodyId = state_->add(kBody, partId, name);
  return true;
}

bool OrvLocationModel::createFace(int partId, const std::string& name, int& faceId) {
  int known = 0;
  if (state_->find(partId, kPart) == nullptr || findFace(partId, name, known)) {
    return false;
  }
  faceId = state_->add(kFace, partId, name);
  state_->objects.back().members = {0, 0};
  return true;
}

bool OrvLocationModel::createFaceUse(int bodyId, int faceId, int side, int& faceUseId) {
  const State::Object* body = state_->find(bodyId, kBody);
  const State::Object* face = state_->find(faceId, kFace);
  if (body == nullptr || face == nullptr || body->part != face->part || side < 0 || side > 1 ||
      face->members[static_cast<std::size_t>(side)] != 0) {
    return false;
  }
  faceUseId = state_->add(kFaceUse, body->part, "");
  state_->find(faceId, kFace)->members[static_cast<std::size_t>(side)] = faceUseId;
  state_->find(bodyId, kBody)->members.push_back(faceUseId);
  return true;
}

bool OrvLocationModel::setBodyZones(int bodyId, int meshId, const std::vector<int>& zones) {
  State::Object* body = state_->find(bodyId, kBody);
  if (body != nullptr) {
    body->zones[meshId] = zones;
  }
  return body != nullptr;
}

bool OrvLocationModel::setFaceUseZoneSides(int faceUseId, int meshId,
                                           const std::vector<int>& sides) {
  State::Object* use = state_->find(faceUseId, kFaceUse);
  if (use != nullptr) {
    use->zones[meshId] = sides;
  }
  return use != nullptr;
}

bool OrvLocationModel::setFaceUseName(int faceUseId, const std::string& name) {
  State::Object* use = state_->find(faceUseId, kFaceUse);
  if (use != nullptr) {
    use->name = name;
  }
  return use != nullptr;
}

// --- Queries ------------------------------------------------------------------------------------

bool OrvLocationModel::findBody(int partId, const std::string& name, int& id) const {
  return state_->findByName(kBody, partId, name, id);
}
bool OrvLocationModel::findComposite(int partId, const std::string& name, int& id) const {
  return state_->findByName(kComposite, partId, name, id);
}
bool OrvLocationModel::findFace(int partId, const std::string& name, int& id) const {
  return state_->findByName(kFace, partId, name, id);
}
bool OrvLocationModel::findFaceUse(int partId, const std::string& name, int& id) const {
  return state_->findByName(kFaceUse, partId, name, id);
}

void OrvLocationModel::getParts(std::vector<int>& ids) const { ids = state_->idsOf(kPart, 0); }
bool OrvLocationModel::getPartName(int partId, std::string& name) const {
  const State::Object* part = state_->find(partId, kPart);
  if (part != nullptr) {
    name = part->name;
  }
  return part != nullptr;
}
bool OrvLocationModel::getPartBodies(int partId, std::vector<int>& ids) const {
  ids = state_->idsOf(kBody, partId);
  return true;
}
bool OrvLocationModel::getPartFaces(int partId, std::vector<int>& ids) const {
  ids = state_->idsOf(kFace, partId);
  return true;
}
bool OrvLocationModel::getPartFaceUses(int partId, std::vector<int>& ids) const {
  ids = state_->idsOf(kFaceUse, partId);
  return true;
}
bool OrvLocationModel::getPartComposites(int /*partId*/, std::vector<int>& /*ids*/) const {
  return false;
}

bool OrvLocationModel::getBodyName(int bodyId, std::string& name) const {
  const State::Object* body = state_->find(bodyId, kBody);
  if (body != nullptr) {
    name = body->name;
  }
  return body != nullptr;
}
bool OrvLocationModel::getBodyBoundary(int bodyId, std::vector<int>& faceUses) const {
  const State::Object* body = state_->find(bodyId, kBody);
  if (body != nullptr) {
    faceUses = body->members;
  }
  return body != nullptr;
}
bool OrvLocationModel::getBodyZones(int bodyId, int meshId, std::vector<int>& zones) const {
  const State::Object* body = state_->find(bodyId, kBody);
  if (body == nullptr || body->zones.count(meshId) == 0) {
    return false;
  }
  zones = body->zones.at(meshId);
  return true;
}

bool OrvLocationModel::getFaceName(int faceId, std::string& name) const {
  const State::Object* face = state_->find(faceId, kFace);
  if (face != nullptr) {
    name = face->name;
  }
  return face != nullptr;
}
bool OrvLocationModel::getFaceSides(int faceId, int& side0, int& side1) const {
  const State::Object* face = state_->find(faceId, kFace);
  if (face != nullptr) {
    side0 = face->members[0];
    side1 = face->members[1];
  }
  return face != nullptr;
}
bool OrvLocationModel::getFaceUseName(int faceUseId, std::string& name) const {
  const State::Object* use = state_->find(faceUseId, kFaceUse);
  if (use != nullptr) {
    name = use->name;
  }
  return use != nullptr;
}
bool OrvLocationModel::getFaceUseRelativeName(int faceUseId, std::string& name) const {
  if (state_->find(faceUseId, kFaceUse) == nullptr) {
    return false;
  }
  name = "face use " + std::to_string(faceUseId);
  return true;
}
bool OrvLocationModel::getFaceUseZoneSides(int faceUseId, int meshId,
                                           std::vector<int>& sides) const {
  const State::Object* use = state_->find(faceUseId, kFaceUse);
  if (use == nullptr || use->zones.count(meshId) == 0) {
    return false;
  }
  sides = use->zones.at(meshId);
  return true;
}

bool OrvLocationModel::getCompositeName(int /*compositeId*/, std::string& /*name*/) const {
  return false;
}
bool OrvLocationModel::resolveComposite(int /*compositeId*/, std::vector<int>& /*bodies*/,
                                        std::vector<int>& /*faces*/,
                                        std::vector<int>& /*faceUses*/) const {
  return false;
}

}  // namespace velto
