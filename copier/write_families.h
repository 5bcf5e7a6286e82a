// SPDX-License-Identifier: Apache-2.0
//
// The families of bulk writes as data: each the counterpart of a family of reads.

#ifndef VELTO_COPIER_WRITE_FAMILIES_H
#define VELTO_COPIER_WRITE_FAMILIES_H

#include <cstddef>
#include <cstdint>
#include <vector>

#include "data_access/OrvConsumer.h"
#include "data_access/families.h"

namespace velto {

/// Writes counts first, one number for a whole zone or one an element, then the lists of ids.
struct CountedWriteFamily {
  const CountedReadFamily& read;
  void (OrvConsumer::*begin)(const std::vector<int>& zoneIds);
  void (OrvConsumer::*beginCounts)();
  void (OrvConsumer::*writeUniformCount)(int zoneId, short count);
  bool uniformCountUnderSourceId;
  void (OrvConsumer::*writeCounts)(int zoneId, const short* counts, std::size_t n);
  void (OrvConsumer::*endCounts)();
  void (OrvConsumer::*beginIds)();
  void (OrvConsumer::*writeIds)(int zoneId, const std::uint64_t* ids, std::size_t n);
  void (OrvConsumer::*endIds)();
  void (OrvConsumer::*end)();
};

inline constexpr CountedWriteFamily kWriteCellNodes = {kCellNodes,
                                                       &OrvConsumer::beginCellNodes,
                                                       &OrvConsumer::beginCellNodeCounts,
                                                       &OrvConsumer::writeUniformCellNodeCount,
                                                       false,
                                                       &OrvConsumer::writeCellNodeCounts,
                                                       &OrvConsumer::endCellNodeCounts,
                                                       &OrvConsumer::beginCellNodeIds,
                                                       &OrvConsumer::writeCellNodeIds,
                                                       &OrvConsumer::endCellNodeIds,
                                                       &OrvConsumer::endCellNodes};

inline constexpr CountedWriteFamily kWriteFaceNodes = {
    kFaceNodes,
    &OrvConsumer::beginFaceNodes,
    &OrvConsumer::beginFaceNodeCounts,
    &OrvConsumer::writeUniformFaceNodeCount,
    true,  // Kept: the one write of a copy that goes by the zone's id in the source.
    &OrvConsumer::writeFaceNodeCounts,
    &OrvConsumer::endFaceNodeCounts,
    &OrvConsumer::beginFaceNodeIds,
    &OrvConsumer::writeFaceNodeIds,
    &OrvConsumer::endFaceNodeIds,
    &OrvConsumer::endFaceNodes};

/// Writes one side of the faces.
struct SideWriteFamily {
  const SideReadFamily& read;
  void (OrvConsumer::*begin)(const std::vector<int>& zoneIds);
  void (OrvConsumer::*writeCells)(int zoneId, const std::uint64_t* cellIds, std::size_t n);
  void (OrvConsumer::*end)();
};

inline constexpr SideWriteFamily kWriteSides[] = {
    {kFaceCell0, &OrvConsumer::beginFaceCell0, &OrvConsumer::writeFaceCell0,
     &OrvConsumer::endFaceCell0},
    {kFaceCell1, &OrvConsumer::beginFaceCell1, &OrvConsumer::writeFaceCell1,
     &OrvConsumer::endFaceCell1}};

}  // namespace velto

#endif  // VELTO_COPIER_WRITE_FAMILIES_H
