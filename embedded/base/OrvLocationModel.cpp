// SPDX-License-Identifier: Apache-2.0
//
// OrvLocationModel: hands each operation to the state behind it. Apart from that, so that a program
// can put something between them.

#include "data_access/OrvLocationModel.h"

#include "embedded/base/OrvLocationModelState.h"

namespace velto {

OrvLocationModel::OrvLocationModel() : state_(std::make_unique<State>()) {}
OrvLocationModel::~OrvLocationModel() = default;

// --- Building -----------------------------------------------------------------------------------

void OrvLocationModel::createPart(int kind, const std::string& name, int& partId) {
  state_->createPart(kind, name, partId);
}

bool OrvLocationModel::createBody(int partId, const std::string& name, int& bodyId) {
  return state_->createBody(partId, name, bodyId);
}

bool OrvLocationModel::createFace(int partId, const std::string& name, int& faceId) {
  return state_->createFace(partId, name, faceId);
}

bool OrvLocationModel::createFaceUse(int bodyId, int faceId, int side, int& faceUseId) {
  return state_->createFaceUse(bodyId, faceId, side, faceUseId);
}

bool OrvLocationModel::setBodyZones(int bodyId, int meshId, const std::vector<int>& zones) {
  return state_->setBodyZones(bodyId, meshId, zones);
}

bool OrvLocationModel::setFaceUseZoneSides(int faceUseId, int meshId,
                                           const std::vector<int>& sides) {
  return state_->setFaceUseZoneSides(faceUseId, meshId, sides);
}

bool OrvLocationModel::setFaceUseName(int faceUseId, const std::string& name) {
  return state_->setFaceUseName(faceUseId, name);
}

// --- Finding by name ----------------------------------------------------------------------------

bool OrvLocationModel::findBody(int partId, const std::string& name, int& id) const {
  return state_->findBody(partId, name, id);
}

bool OrvLocationModel::findComposite(int partId, const std::string& name, int& id) const {
  return state_->findComposite(partId, name, id);
}

bool OrvLocationModel::findFace(int partId, const std::string& name, int& id) const {
  return state_->findFace(partId, name, id);
}

bool OrvLocationModel::findFaceUse(int partId, const std::string& name, int& id) const {
  return state_->findFaceUse(partId, name, id);
}

// --- Parts --------------------------------------------------------------------------------------

void OrvLocationModel::getParts(std::vector<int>& ids) const { state_->getParts(ids); }

bool OrvLocationModel::getPartName(int partId, std::string& name) const {
  return state_->getPartName(partId, name);
}

bool OrvLocationModel::getPartBodies(int partId, std::vector<int>& ids) const {
  return state_->getPartBodies(partId, ids);
}

bool OrvLocationModel::getPartFaces(int partId, std::vector<int>& ids) const {
  return state_->getPartFaces(partId, ids);
}

bool OrvLocationModel::getPartFaceUses(int partId, std::vector<int>& ids) const {
  return state_->getPartFaceUses(partId, ids);
}

bool OrvLocationModel::getPartComposites(int partId, std::vector<int>& ids) const {
  return state_->getPartComposites(partId, ids);
}

// --- Bodies -------------------------------------------------------------------------------------

bool OrvLocationModel::getBodyName(int bodyId, std::string& name) const {
  return state_->getBodyName(bodyId, name);
}

bool OrvLocationModel::getBodyBoundary(int bodyId, std::vector<int>& faceUses) const {
  return state_->getBodyBoundary(bodyId, faceUses);
}

bool OrvLocationModel::getBodyZones(int bodyId, int meshId, std::vector<int>& zones) const {
  return state_->getBodyZones(bodyId, meshId, zones);
}

// --- Faces and face uses ------------------------------------------------------------------------

bool OrvLocationModel::getFaceName(int faceId, std::string& name) const {
  return state_->getFaceName(faceId, name);
}

bool OrvLocationModel::getFaceSides(int faceId, int& side0, int& side1) const {
  return state_->getFaceSides(faceId, side0, side1);
}

bool OrvLocationModel::getFaceUseName(int faceUseId, std::string& name) const {
  return state_->getFaceUseName(faceUseId, name);
}

bool OrvLocationModel::getFaceUseRelativeName(int faceUseId, std::string& name) const {
  return state_->getFaceUseRelativeName(faceUseId, name);
}

bool OrvLocationModel::getFaceUseZoneSides(int faceUseId, int meshId,
                                           std::vector<int>& sides) const {
  return state_->getFaceUseZoneSides(faceUseId, meshId, sides);
}

// --- Composites ---------------------------------------------------------------------------------

bool OrvLocationModel::getCompositeName(int compositeId, std::string& name) const {
  return state_->getCompositeName(compositeId, name);
}

bool OrvLocationModel::resolveComposite(int compositeId, std::vector<int>& bodies,
                                        std::vector<int>& faces, std::vector<int>& faceUses) const {
  return state_->resolveComposite(compositeId, bodies, faces, faceUses);
}

}  // namespace velto
