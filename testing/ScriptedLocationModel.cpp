// SPDX-License-Identifier: Apache-2.0
//
// OrvLocationModel in place of the embedded library's: each operation passes the script first.

#include "testing/ScriptedLocationModel.h"

#include <stdexcept>

#include "data_access/OrvLocationModel.h"

#include "embedded/base/OrvLocationModelState.h"

namespace velto {

namespace testing {

namespace {

thread_local LocationModelScript* current = nullptr;

/// Carries an operation out as the script wants it.
template <class Operation>
bool played(const std::string& call, const Operation& operation) {
  switch (LocationModelScript::fateOf(call)) {
    case LocationModelScript::Fate::refused:
      return false;
    case LocationModelScript::Fate::denied:
      operation();
      return false;
    case LocationModelScript::Fate::broken:
      throw std::runtime_error(call);
    default:
      return operation();
  }
}

}  // namespace

LocationModelScript::LocationModelScript(Transcript* transcript)
    : transcript_(transcript), outer_(current) {
  current = this;
}

LocationModelScript::~LocationModelScript() { current = outer_; }

void LocationModelScript::refuse(const std::string& call, int nth) {
  rules_.push_back({call, nth, Fate::refused});
}

void LocationModelScript::deny(const std::string& call, int nth) {
  rules_.push_back({call, nth, Fate::denied});
}

void LocationModelScript::add(const ModelRefusal& refusal) {
  rules_.push_back({refusal.call, refusal.nth, refusal.isDenied ? Fate::denied : Fate::refused});
}

void LocationModelScript::breakDown(const std::string& call, int nth) {
  rules_.push_back({call, nth, Fate::broken});
}

LocationModelScript::Fate LocationModelScript::fateOf(const std::string& call) {
  if (current == nullptr) {
    return Fate::carriedOut;
  }
  if (current->transcript_ != nullptr) {
    current->transcript_->push_back(call);
  }
  Fate fate = Fate::carriedOut;
  for (Rule& rule : current->rules_) {
    if (rule.call == operationOf(call) || rule.call == call) {
      ++rule.seen;
      if (rule.nth == 0 || rule.nth == rule.seen) {
        fate = rule.fate;
      }
    }
  }
  return fate;
}

}  // namespace testing

using testing::callText;
using testing::played;

OrvLocationModel::OrvLocationModel() : state_(std::make_unique<State>()) {}
OrvLocationModel::~OrvLocationModel() = default;

void OrvLocationModel::createPart(int kind, const std::string& name, int& partId) {
  played(callText("createPart", kind, name), [&] {
    state_->createPart(kind, name, partId);
    return true;
  });
}

bool OrvLocationModel::createBody(int partId, const std::string& name, int& bodyId) {
  return played(callText("createBody", partId, name),
                [&] { return state_->createBody(partId, name, bodyId); });
}

bool OrvLocationModel::createFace(int partId, const std::string& name, int& faceId) {
  return played(callText("createFace", partId, name),
                [&] { return state_->createFace(partId, name, faceId); });
}

bool OrvLocationModel::createFaceUse(int bodyId, int faceId, int side, int& faceUseId) {
  return played(callText("createFaceUse", bodyId, faceId, side),
                [&] { return state_->createFaceUse(bodyId, faceId, side, faceUseId); });
}

bool OrvLocationModel::setBodyZones(int bodyId, int meshId, const std::vector<int>& zones) {
  return played(callText("setBodyZones", bodyId, meshId, zones),
                [&] { return state_->setBodyZones(bodyId, meshId, zones); });
}

bool OrvLocationModel::setFaceUseZoneSides(int faceUseId, int meshId,
                                           const std::vector<int>& sides) {
  return played(callText("setFaceUseZoneSides", faceUseId, meshId, sides),
                [&] { return state_->setFaceUseZoneSides(faceUseId, meshId, sides); });
}

bool OrvLocationModel::setFaceUseName(int faceUseId, const std::string& name) {
  return played(callText("setFaceUseName", faceUseId, name),
                [&] { return state_->setFaceUseName(faceUseId, name); });
}

bool OrvLocationModel::findBody(int partId, const std::string& name, int& id) const {
  return played(callText("findBody", partId, name),
                [&] { return state_->findBody(partId, name, id); });
}

bool OrvLocationModel::findComposite(int partId, const std::string& name, int& id) const {
  return played(callText("findComposite", partId, name),
                [&] { return state_->findComposite(partId, name, id); });
}

bool OrvLocationModel::findFace(int partId, const std::string& name, int& id) const {
  return played(callText("findFace", partId, name),
                [&] { return state_->findFace(partId, name, id); });
}

bool OrvLocationModel::findFaceUse(int partId, const std::string& name, int& id) const {
  return played(callText("findFaceUse", partId, name),
                [&] { return state_->findFaceUse(partId, name, id); });
}

void OrvLocationModel::getParts(std::vector<int>& ids) const {
  played(callText("getParts"), [&] {
    state_->getParts(ids);
    return true;
  });
}

bool OrvLocationModel::getPartName(int partId, std::string& name) const {
  return played(callText("getPartName", partId), [&] { return state_->getPartName(partId, name); });
}

bool OrvLocationModel::getPartBodies(int partId, std::vector<int>& ids) const {
  return played(callText("getPartBodies", partId),
                [&] { return state_->getPartBodies(partId, ids); });
}

bool OrvLocationModel::getPartFaces(int partId, std::vector<int>& ids) const {
  return played(callText("getPartFaces", partId),
                [&] { return state_->getPartFaces(partId, ids); });
}

bool OrvLocationModel::getPartFaceUses(int partId, std::vector<int>& ids) const {
  return played(callText("getPartFaceUses", partId),
                [&] { return state_->getPartFaceUses(partId, ids); });
}

bool OrvLocationModel::getPartComposites(int partId, std::vector<int>& ids) const {
  return played(callText("getPartComposites", partId),
                [&] { return state_->getPartComposites(partId, ids); });
}

bool OrvLocationModel::getBodyName(int bodyId, std::string& name) const {
  return played(callText("getBodyName", bodyId), [&] { return state_->getBodyName(bodyId, name); });
}

bool OrvLocationModel::getBodyBoundary(int bodyId, std::vector<int>& faceUses) const {
  return played(callText("getBodyBoundary", bodyId),
                [&] { return state_->getBodyBoundary(bodyId, faceUses); });
}

bool OrvLocationModel::getBodyZones(int bodyId, int meshId, std::vector<int>& zones) const {
  return played(callText("getBodyZones", bodyId, meshId),
                [&] { return state_->getBodyZones(bodyId, meshId, zones); });
}

bool OrvLocationModel::getFaceName(int faceId, std::string& name) const {
  return played(callText("getFaceName", faceId), [&] { return state_->getFaceName(faceId, name); });
}

bool OrvLocationModel::getFaceSides(int faceId, int& side0, int& side1) const {
  return played(callText("getFaceSides", faceId),
                [&] { return state_->getFaceSides(faceId, side0, side1); });
}

bool OrvLocationModel::getFaceUseName(int faceUseId, std::string& name) const {
  return played(callText("getFaceUseName", faceUseId),
                [&] { return state_->getFaceUseName(faceUseId, name); });
}

bool OrvLocationModel::getFaceUseRelativeName(int faceUseId, std::string& name) const {
  return played(callText("getFaceUseRelativeName", faceUseId),
                [&] { return state_->getFaceUseRelativeName(faceUseId, name); });
}

bool OrvLocationModel::getFaceUseZoneSides(int faceUseId, int meshId,
                                           std::vector<int>& sides) const {
  return played(callText("getFaceUseZoneSides", faceUseId, meshId),
                [&] { return state_->getFaceUseZoneSides(faceUseId, meshId, sides); });
}

bool OrvLocationModel::getCompositeName(int compositeId, std::string& name) const {
  return played(callText("getCompositeName", compositeId),
                [&] { return state_->getCompositeName(compositeId, name); });
}

bool OrvLocationModel::resolveComposite(int compositeId, std::vector<int>& bodies,
                                        std::vector<int>& faces, std::vector<int>& faceUses) const {
  return played(callText("resolveComposite", compositeId),
                [&] { return state_->resolveComposite(compositeId, bodies, faces, faceUses); });
}

}  // namespace velto
