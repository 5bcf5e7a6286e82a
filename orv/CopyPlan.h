// SPDX-License-Identifier: Apache-2.0
//
// CopyPlan: what of a case a copy carries, what it leaves behind, and what the destination has no
// place for.

#ifndef VELTO_ORV_COPY_PLAN_H
#define VELTO_ORV_COPY_PLAN_H

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "data_access/fwd.h"

#include "factory/formats.h"
#include "orv/CaseSummary.h"
#include "orv/Selection.h"
#include "orv/commands.h"

namespace velto::orv {

/// A mesh, target and partition that is copied.
struct PlannedMesh {
  Selection inSource;
  Selection inCopy;  ///< Where a copy has it: its mesh id is always 1.
  std::uint64_t zones = 0;
  std::uint64_t nodes = 0;
  std::uint64_t faces = 0;
  std::uint64_t cells = 0;
  std::uint64_t bytes = 0;  ///< Of coordinates and connectivity.
};

/// The field data that are copied: those of one of the planned meshes.
struct PlannedResults {
  std::size_t mesh = 0;  ///< Position among the planned meshes.
  std::size_t phases = 0;
  std::size_t variables = 0;  ///< 0 if no field data are copied.
  std::uint64_t bytes = 0;
};

struct CopyPlan {
  std::vector<PlannedMesh> meshes;
  PlannedResults results;
  std::size_t settings = 0;
  enum class Model { none, carried, built } model = Model::none;
  std::string solverFormat;
  std::vector<std::string> leftBehind;  ///< What no copy carries.
  std::vector<std::string> noPlace;     ///< What the destination cannot hold.

  /// All bytes of coordinates, connectivity and field data.
  std::uint64_t bytes() const;
};

/// Plans a copy of an open case, whose selection changes. Reads its tables, and how many nodes
/// faces and cells have. Throws std::runtime_error, with a reason for the user, if the mesh to copy
/// is not there or not clear.
CopyPlan planCopy(OrvFileProvider& source, const CaseSummary& summary, const CopyOptions& options,
                  const factory::Format& format);

}  // namespace velto::orv

#endif  // VELTO_ORV_COPY_PLAN_H
