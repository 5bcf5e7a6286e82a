// SPDX-License-Identifier: Apache-2.0
//
// LocationModelBuilder: derives a location model from the zones of a mesh.

#ifndef VELTO_LOCATION_MODEL_BUILDER_H
#define VELTO_LOCATION_MODEL_BUILDER_H

#include <string>
#include <vector>

#include "velto/export.h"

#include "data_access/fwd.h"

namespace velto {

/// Derives the location model of a mesh that has none, from its zones alone.
///
///     OrvLocationModel model;
///     velto::LocationModelBuilder builder;
///     if (!builder.build(provider, &model)) {
///       for (const std::string& error : builder.getErrors()) { ... }
///     }
///
/// There is one part; in it a body for each cell zone without a child, a face for each face zone
/// without a child that lies on a body (or for each linked pair of them), and a face use for each
/// side of a face that a body lies on:
///
///     face zone                                      face              face uses
///     interior, both sides in one cell zone          none: it is one of the zones of the body
///     interior or of type 14, between two bodies     named as it is    one a side, without names
///     of one side                                    "F<id>"           one, named as the zone
///     of type 3 or 8, linked to another such zone    one for both      side 0 the zone met first,
///                                                                      side 1 the other
///     periodic                                       "F<id>"           on sides that store cells
///
/// A builder keeps nothing between two builds but its list of errors.
class VELTO_EXPORT LocationModelBuilder {
 public:
  /// A builder without errors.
  LocationModelBuilder();

  /// @name Copies
  /// @{

  /// A copy has the errors of its original, and shares nothing with it.
  LocationModelBuilder(const LocationModelBuilder& other);
  LocationModelBuilder& operator=(const LocationModelBuilder& other);

  /// @}

  /// Models that were filled stay as they are.
  virtual ~LocationModelBuilder();

  /// @name Building
  /// @{

  /// Fills `model`, which should be empty, from the mesh, target and partition that are selected on
  /// `provider`; both stay the caller's. False at the first thing that cannot be done: the reason
  /// is among the errors then, and what was made so far stays in the model.
  ///
  /// REQUIRES: no family of bulk reads is open on `provider`. The family of the cell nodes is left
  /// open, which a provider tolerates.
  ///
  /// Reads tables of zones, and of a zone that no relation tells about its first face. Time and
  /// memory go with the number of zones and of the links between them, not with the mesh.
  virtual bool build(OrvProvider* provider, OrvLocationModel* model) const;

  /// The errors of all builds so far, oldest first. The reference stays valid as long as the
  /// builder does.
  const std::vector<std::string>& getErrors() const;

  /// @}

 private:
  class Build;

  void addError(const std::string& message) const;

  mutable std::vector<std::string> errors;
};

}  // namespace velto

#endif  // VELTO_LOCATION_MODEL_BUILDER_H
