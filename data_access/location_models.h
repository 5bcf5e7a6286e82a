// SPDX-License-Identifier: Apache-2.0
//
// What tools do with every location model: whether there is one, signed face zone ids, and what a
// name in the location of a physics object stands for.

#ifndef VELTO_DATA_ACCESS_LOCATION_MODELS_H
#define VELTO_DATA_ACCESS_LOCATION_MODELS_H

#include <array>
#include <string>
#include <vector>

#include "data_access/OrvLocationModel.h"

namespace velto {

/// Whether there is a model: one without parts counts as none, and so does null.
inline bool hasParts(const OrvLocationModel* model) {
  std::vector<int> parts;
  if (model != nullptr) {
    model->getParts(parts);
  }
  return !parts.empty();
}

/// Side 1 of a face zone, whose side 0 is the id of the zone. The least id has no opposite and is
/// given as it is: computed without sign, so that it does no harm.
inline int side1Of(int faceZone) { return static_cast<int>(0U - static_cast<unsigned>(faceZone)); }

/// The face zone of a zone side.
inline int zoneOfSide(int zoneSide) { return zoneSide < 0 ? side1Of(zoneSide) : zoneSide; }

// --- Places -------------------------------------------------------------------------------------

/// Kinds of objects that a name in a location can stand for.
enum class PlaceKind {
  none,       ///< No part knows the name.
  body,       ///< The place of domains and subdomains.
  composite,  ///< Several objects under one name, in any location.
  face,       ///< A face with both sides, which is no place of anything.
  faceUse,    ///< The place of boundaries.
};

/// The word for a kind; empty for `none`.
inline const char* wordOf(PlaceKind kind) {
  switch (kind) {
    case PlaceKind::body:
      return "body";
    case PlaceKind::composite:
      return "composite";
    case PlaceKind::face:
      return "face";
    case PlaceKind::faceUse:
      return "face use";
    case PlaceKind::none:
      break;
  }
  return "";
}

/// An object of a location model.
struct Place {
  PlaceKind kind = PlaceKind::none;  ///< Which of the lists of a part it stands in.
  int id = 0;                        ///< The model's id of it; 0 for none.
};

/// A kind, and the operation of a location model that looks for it.
struct PlaceQuery {
  PlaceKind kind;  ///< What `find` finds.
  /// True, and the id, if the part holds an object of the kind and that name.
  bool (OrvLocationModel::*find)(int partId, const std::string& name, int& id) const;
};

/// Names are unique within a kind only, so that the order in which the kinds are tried decides. The
/// first kind is the one that a location is about, composites stand for several such objects, and
/// the others have no business there.
using PlaceOrder = std::array<PlaceQuery, 4>;

/// For domains and subdomains.
inline constexpr PlaceOrder kVolumePlaces = {
    {{PlaceKind::body, &OrvLocationModel::findBody},
     {PlaceKind::composite, &OrvLocationModel::findComposite},
     {PlaceKind::face, &OrvLocationModel::findFace},
     {PlaceKind::faceUse, &OrvLocationModel::findFaceUse}}};

/// For boundaries.
inline constexpr PlaceOrder kSurfacePlaces = {
    {{PlaceKind::faceUse, &OrvLocationModel::findFaceUse},
     {PlaceKind::composite, &OrvLocationModel::findComposite},
     {PlaceKind::face, &OrvLocationModel::findFace},
     {PlaceKind::body, &OrvLocationModel::findBody}}};

/// What a part knows by a name; of kind `none` if nothing.
inline Place findPlace(const OrvLocationModel& model, int part, const std::string& name,
                       const PlaceOrder& order) {
  for (const PlaceQuery& query : order) {
    int id = 0;
    if ((model.*query.find)(part, name, id)) {
      return {query.kind, id};
    }
  }
  return {};
}

/// Whether an object has no business in the locations that an order is for.
inline bool isMisplaced(const Place& place, const PlaceOrder& order) {
  return place.kind != PlaceKind::none && place.kind != PlaceKind::composite &&
         place.kind != order.front().kind;
}

}  // namespace velto

#endif  // VELTO_DATA_ACCESS_LOCATION_MODELS_H
