// SPDX-License-Identifier: Apache-2.0
//
// What stands behind an OrvLocationModel in the embedded library.

#ifndef VELTO_EMBEDDED_BASE_ORV_LOCATION_MODEL_STATE_H
#define VELTO_EMBEDDED_BASE_ORV_LOCATION_MODEL_STATE_H

#include <array>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <unordered_map>
#include <vector>

#include "data_access/OrvLocationModel.h"

namespace velto {

/// The objects of a model by id. Ids count up from 1 through all kinds, so that an id of one kind
/// is never one of another.
struct OrvLocationModel::State {
  /// The objects of one kind in a part: ids in order of creation, and ids by name.
  struct Index {
    std::vector<int> ids;
    std::unordered_map<std::string, std::set<int>> byName;

    void add(int id, const std::string& name);
    void rename(int id, const std::string& from, const std::string& to);
    /// True, and the lowest id of that name.
    bool find(const std::string& name, int& id) const;
  };

  struct Part {
    int kind = 0;
    std::string name;
    Index bodies;
    Index faces;
    Index faceUses;  ///< By the names that setFaceUseName gave.
    Index composites;
    std::unordered_map<std::string, int> faceUsesByRelativeName;
  };

  struct Body {
    int part = 0;
    std::string name;
    std::map<int, std::vector<int>> zones;  ///< By mesh id.
    std::vector<int> boundary;
  };

  struct Face {
    int part = 0;
    std::string name;
    std::array<int, 2> sides{};  ///< Face use ids, 0 for an empty side.
  };

  struct FaceUse {
    int part = 0;
    int body = 0;
    int face = 0;
    std::string name;
    std::string relativeName;
    std::map<int, std::vector<int>> zoneSides;  ///< By mesh id.
  };

  struct Composite {
    std::string name;
    std::vector<int> bodies;
    std::vector<int> faces;
    std::vector<int> faceUses;
  };

  // The operations of the model, as OrvLocationModel has them.
  void createPart(int kind, const std::string& name, int& partId);
  bool createBody(int partId, const std::string& name, int& bodyId);
  bool createFace(int partId, const std::string& name, int& faceId);
  bool createFaceUse(int bodyId, int faceId, int side, int& faceUseId);
  bool setBodyZones(int bodyId, int meshId, const std::vector<int>& zones);
  bool setFaceUseZoneSides(int faceUseId, int meshId, const std::vector<int>& sides);
  bool setFaceUseName(int faceUseId, const std::string& name);
  bool findBody(int partId, const std::string& name, int& id) const;
  bool findComposite(int partId, const std::string& name, int& id) const;
  bool findFace(int partId, const std::string& name, int& id) const;
  bool findFaceUse(int partId, const std::string& name, int& id) const;
  void getParts(std::vector<int>& ids) const;
  bool getPartName(int partId, std::string& name) const;
  bool getPartBodies(int partId, std::vector<int>& ids) const;
  bool getPartFaces(int partId, std::vector<int>& ids) const;
  bool getPartFaceUses(int partId, std::vector<int>& ids) const;
  bool getPartComposites(int partId, std::vector<int>& ids) const;
  bool getBodyName(int bodyId, std::string& name) const;
  bool getBodyBoundary(int bodyId, std::vector<int>& ids) const;
  bool getBodyZones(int bodyId, int meshId, std::vector<int>& zones) const;
  bool getFaceName(int faceId, std::string& name) const;
  bool getFaceSides(int faceId, int& side0, int& side1) const;
  bool getFaceUseName(int faceUseId, std::string& name) const;
  bool getFaceUseRelativeName(int faceUseId, std::string& name) const;
  bool getFaceUseZoneSides(int faceUseId, int meshId, std::vector<int>& sides) const;
  bool getCompositeName(int compositeId, std::string& name) const;
  bool resolveComposite(int compositeId, std::vector<int>& bodyIds, std::vector<int>& faceIds,
                        std::vector<int>& faceUseIds) const;

  int lastId = 0;
  std::map<int, Part> parts;
  std::map<int, Body> bodies;
  std::map<int, Face> faces;
  std::map<int, FaceUse> faceUses;
  std::map<int, Composite> composites;

  static State& of(OrvLocationModel& model) { return *model.state_; }
  static const State& of(const OrvLocationModel& model) { return *model.state_; }

  /// A model of its own with the same content.
  static std::unique_ptr<OrvLocationModel> copy(const OrvLocationModel& model);

  /// Groups objects of a part under a name. The contract has no operation for it: composites come
  /// from files and samples. Returns the composite's id, or 0 for an unknown part.
  int addComposite(int partId, Composite composite);
};

}  // namespace velto

#endif  // VELTO_EMBEDDED_BASE_ORV_LOCATION_MODEL_STATE_H
