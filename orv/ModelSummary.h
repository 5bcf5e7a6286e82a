// SPDX-License-Identifier: Apache-2.0
//
// ModelSummary: a location model and the mesh that it is shown for, read through the contract
// alone.

#ifndef VELTO_ORV_MODEL_SUMMARY_H
#define VELTO_ORV_MODEL_SUMMARY_H

#include <array>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "data_access/OrvLocationModel.h"
#include "data_access/OrvTypes.h"
#include "data_access/fwd.h"

namespace velto::orv {

/// Where a model comes from; `none` if there is none and none could be built.
enum class ModelOrigin { none, file, built };

/// A name that the model does not tell is that of an object which is not in it, however it came to
/// be mentioned.
using ModelName = std::optional<std::string>;

struct ZoneOfModel {
  enum class Kind { none, face, cell };  ///< `none`: no such zone in the mesh.

  Kind kind = Kind::none;
  std::string name;
};

struct BodyOfModel {
  ModelName name;
  std::optional<std::vector<int>> zones;  ///< Nothing if the body has no place in the mesh.
};

struct FaceOfModel {
  ModelName name;
  std::array<int, 2> sides{};  ///< Face uses, 0 for an empty side.
};

struct FaceUseOfModel {
  ModelName name;  ///< Empty if it has none of its own.
  std::string relativeName;
  std::optional<std::vector<int>> zoneSides;  ///< As the zones of a body.
  int body = 0;                               ///< 0 if it stands on the boundary of none.
  int face = 0;                               ///< 0 if it holds the side of none.
  int side = 0;
};

struct CompositeOfModel {
  ModelName name;
  std::vector<int> bodies;
  std::vector<int> faces;
  std::vector<int> faceUses;
};

/// The objects of a part by their ids, in the order of the model.
struct PartOfModel {
  int id = 0;
  ModelName name;
  std::vector<int> bodies;
  std::vector<int> faces;
  std::vector<int> faceUses;
  std::vector<int> composites;
};

/// Objects of all parts stand in one map for each kind, with those that are only mentioned.
struct ModelSummary {
  std::string file;
  ModelOrigin origin = ModelOrigin::none;
  std::vector<std::string> errors;  ///< Why there is no model.
  bool lacksMesh = false;           ///< Whether the mesh that was asked for is not there.

  int mesh = 0;  ///< 0 if there is none.
  int target = targetRestart;
  int partition = -1;

  std::vector<PartOfModel> parts;
  std::map<int, BodyOfModel> bodies;
  std::map<int, FaceOfModel> faces;
  std::map<int, FaceUseOfModel> faceUses;
  std::map<int, CompositeOfModel> composites;
  std::map<int, ZoneOfModel> zones;  ///< Those that the model mentions.
};

/// A model that a command works with.
struct ModelOfCase {
  ModelSummary summary;
  /// Null if there is none; else the provider's own or `built`.
  const OrvLocationModel* model = nullptr;
  std::unique_ptr<OrvLocationModel> built;
};

/// Reads the model of an open case, or builds one from the zones of a mesh: if the file has none
/// with parts, or if `alwaysBuild`. The mesh is the first restart mesh, or the first of all where
/// there is no such; with a `mesh` above 0 the one of that id. It stays selected on `provider`.
ModelOfCase readModel(const std::string& file, OrvFileProvider& provider, int mesh,
                      bool alwaysBuild);

}  // namespace velto::orv

#endif  // VELTO_ORV_MODEL_SUMMARY_H
