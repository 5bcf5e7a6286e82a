// SPDX-License-Identifier: Apache-2.0
//
// LocationModelWriter: a small language in which samples and tests write down a location model.

#ifndef VELTO_EMBEDDED_MEMORY_LOCATION_MODEL_WRITER_H
#define VELTO_EMBEDDED_MEMORY_LOCATION_MODEL_WRITER_H

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "data_access/OrvLocationModel.h"

#include "embedded/base/CaseTables.h"
#include "embedded/base/OrvLocationModelState.h"

namespace velto::memory {

/// Adds object by object; each member gives the id of what it adds. Bodies, faces and composites go
/// into the part that was begun last.
///
///     LocationModelWriter model;
///     model.part("assembly");
///     const int channel = model.body("channel", {6, 2});
///     model.use(channel, model.face("hull"), 0, {4}, "channel walls");
///     case->tables.locationModel = model.take();
///
/// Throws std::logic_error where the model does not take an object, such as a second body of one
/// name. Goes past the operations of OrvLocationModel, so that nobody who watches these sees it.
class LocationModelWriter {
 public:
  /// Begins a part.
  int part(const std::string& name);

  /// A body without a place in any mesh.
  int body(const std::string& name);
  /// A body with zones in a mesh.
  int body(const std::string& name, const std::vector<int>& zones, int mesh = base::MeshKey().mesh);

  /// A face with both sides empty.
  int face(const std::string& name);

  /// A face use with zone sides in the first mesh, named if `name` is not empty.
  int use(int body, int face, int side, const std::vector<int>& zoneSides,
          const std::string& name = "");

  /// A name for bodies, faces and face uses.
  int composite(const OrvLocationModel::State::Composite& composite);

  /// The model; the writer is done with.
  std::shared_ptr<const OrvLocationModel> take() { return std::move(model_); }

 private:
  OrvLocationModel::State& state() { return OrvLocationModel::State::of(*model_); }

  std::unique_ptr<OrvLocationModel> model_ = std::make_unique<OrvLocationModel>();
  int part_ = 0;
};

}  // namespace velto::memory

#endif  // VELTO_EMBEDDED_MEMORY_LOCATION_MODEL_WRITER_H
