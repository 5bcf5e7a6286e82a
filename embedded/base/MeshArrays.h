// SPDX-License-Identifier: Apache-2.0
//
// MeshArrays and MeshArraySink: where the bulk arrays of one mesh come from, and where they go.

#ifndef VELTO_EMBEDDED_BASE_MESH_ARRAYS_H
#define VELTO_EMBEDDED_BASE_MESH_ARRAYS_H

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "data_access/OrvTypes.h"

#include "embedded/base/Family.h"

namespace velto::base {

/// A run of ids that somebody else owns, in 64 or in 32 bits each: one of the pointers is set.
struct IdView {
  const std::uint64_t* data = nullptr;    ///< The ids in 64 bits, or null.
  std::size_t size = 0;                   ///< Number of ids.
  const std::uint32_t* narrow = nullptr;  ///< The ids in 32 bits, or null.
};

/// Names the values of one variable: a phase, a kind of zone, a name.
struct VariableKey {
  short phase = 0;                              ///< A phase id.
  OrvZoneCategory category = zoneCategoryNode;  ///< The zones on which the values lie.
  std::string name;                             ///< Of the variable.

  /// Whether all three agree.
  friend bool operator==(const VariableKey& a, const VariableKey& b) {
    return a.phase == b.phase && a.category == b.category && a.name == b.name;
  }
};

/// The bulk arrays of one mesh, target and partition, read zone by zone. A CaseProvider stands in
/// front of it and follows the protocol of the contract; an implementation only fetches arrays.
///
/// Reads write at most `n` entries and return how many they wrote; a zone that a family does not
/// list gives 0. Failures are exceptions (CaseError), the buffer's content is then unspecified up
/// to `n`.
class MeshArrays {
 public:
  MeshArrays() = default;
  MeshArrays(const MeshArrays&) = delete;
  MeshArrays& operator=(const MeshArrays&) = delete;
  virtual ~MeshArrays() = default;

  /// The zones that carry the family's data, in the order of its list. For Family::faceTree the
  /// parent zones.
  virtual std::vector<int> zones(Family family) = 0;
  /// The zones of the finer faces of the face tree.
  virtual std::vector<int> treeChildZones() = 0;

  /// True, and the count, if all elements of a zone of a counted family have one.
  virtual bool uniformCount(Family family, int zone, short& count) = 0;
  /// One count an element of a zone of a counted family.
  virtual std::size_t readCounts(Family family, int zone, short* counts, std::size_t n) = 0;

  /// The connectivity list of a counted family, or one id a face for face cells and shadows.
  virtual std::size_t readIds(Family family, int zone, std::uint64_t* ids, std::size_t n) = 0;

  /// The same ids without copying, valid as long as this object; for arrays that stay in memory. An
  /// empty view means that they have to be read.
  virtual IdView viewIds(Family, int /*zone*/) { return {}; }

  /// The same ids read in 32 bits each, where an implementation has a way to that which spares
  /// memory and all of the zone's ids fit; 0 if not, and they have to be read in 64.
  virtual std::size_t readNarrowIds(Family, int /*zone*/, std::uint32_t* /*ids*/,
                                    std::size_t /*n*/) {
    return 0;
  }

  /// Number of values that can be read for a zone: coordinates, ids, types or partitions. None of
  /// cell types that are uniform.
  virtual std::size_t valueCount(Family family, int zone) = 0;

  /// Number of counts that can be read for a zone of a counted family; none if they are uniform.
  virtual std::size_t countCount(Family family, int zone) = 0;

  /// Coordinates of a zone, node after node.
  virtual std::size_t readCoordinates(int zone, double* values, std::size_t n) = 0;

  /// True, and the type, if all cells of the zone have one.
  virtual bool uniformCellType(int zone, int& type) = 0;
  /// One type a cell.
  virtual std::size_t readCellTypes(int zone, int* types, std::size_t n) = 0;

  /// What OrvProvider::getCellPartitionInfo answers; 0 for a zone that is not listed.
  virtual int partitionInfo(int zone) = 0;
  /// The partition that each cell is meant for.
  virtual std::size_t readCellPartitions(int zone, int* partitions, std::size_t n) = 0;

  /// The variables of a phase on zones of a category, in order.
  virtual std::vector<std::string> variableNames(short phase, OrvZoneCategory category) = 0;
  /// Replaces `zones` by those that hold a variable and returns its values per element; leaves them
  /// alone and returns 0 if there is no such variable.
  virtual std::size_t variableZones(const VariableKey& key, std::vector<int>& zones) = 0;
  /// Number of values of a variable that can be read for a zone.
  virtual std::size_t variableValueCount(const VariableKey& key, int zone) = 0;
  /// The values of a variable in a zone, element after element.
  virtual std::size_t readVariable(const VariableKey& key, int zone, double* values,
                                   std::size_t n) = 0;
};

/// Where the bulk arrays of one mesh go. A CaseConsumer stands in front of it.
///
/// Buffers belong to the caller and are valid during the call only. Failures are exceptions
/// (CaseError).
class MeshArraySink {
 public:
  MeshArraySink() = default;
  MeshArraySink(const MeshArraySink&) = delete;
  MeshArraySink& operator=(const MeshArraySink&) = delete;
  virtual ~MeshArraySink() = default;

  /// A family is about to be written for these zones.
  virtual void begin(Family family, const std::vector<int>& zones) = 0;

  /// @name Arrays of a zone
  /// @{

  /// Takes what the operation of OrvConsumer of like name brings; `family` tells which of several.
  virtual void writeUniformCount(Family family, int zone, short count) = 0;
  virtual void writeCounts(Family family, int zone, const short* counts, std::size_t n) = 0;
  virtual void writeIds(Family family, int zone, const std::uint64_t* ids, std::size_t n) = 0;
  virtual void writeCoordinates(int zone, const double* values, std::size_t n) = 0;
  virtual void writeUniformCellType(int zone, int type) = 0;
  virtual void writeCellTypes(int zone, const int* types, std::size_t n) = 0;
  virtual void setPartitionInfo(int zone, int info) = 0;
  virtual void writeCellPartitions(int zone, const int* partitions, std::size_t n) = 0;
  virtual void writeElemIds(int zone, const std::size_t* ids, std::size_t n) = 0;

  /// @}

  /// The other half of the face tree, whose parent zones come with begin().
  virtual void setTreeChildZones(const std::vector<int>& zones) = 0;

  /// @name Field data
  /// @{

  /// Takes what the operation of OrvConsumer of that name brings, with the phase that is open.
  virtual void declareVariables(short phase, OrvZoneCategory category,
                                const std::vector<std::string>& names) = 0;
  virtual void beginVariable(const VariableKey& key, const std::vector<int>& zones,
                             std::size_t valuesPerEntity) = 0;
  virtual void writeVariable(const VariableKey& key, int zone, const double* values,
                             std::size_t n) = 0;

  /// @}
};

}  // namespace velto::base

#endif  // VELTO_EMBEDDED_BASE_MESH_ARRAYS_H
