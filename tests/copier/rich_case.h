// SPDX-License-Identifier: Apache-2.0
//
// A case in which every step of a copy has something to do, results included.

#ifndef VELTO_TESTS_COPIER_RICH_CASE_H
#define VELTO_TESTS_COPIER_RICH_CASE_H

#include <cstdint>
#include <vector>

#include "testing/cases.h"

namespace velto::testing {

/// withResults() with nodes, types and partitions of cells of its own, and two settings.
inline cases::CasePtr richCase() {
  cases::CasePtr rich = cases::withResults();
  memory::MeshData& data = rich->arrays();
  memory::CountedData nodes;
  nodes.counts = memory::Slice<short>(std::vector<short>{3});
  nodes.ids = memory::Slice<std::uint64_t>(std::vector<std::uint64_t>{1, 2, 3});
  data.cellNodes[3] = nodes;
  data.cellTypes[3].uniform.reset();
  data.cellTypes[3].types = memory::Slice<int>(std::vector<int>{2});
  data.cellPartitions[3].partitions = memory::Slice<int>(std::vector<int>{5});
  data.faceCell1[2] = memory::Slice<std::uint64_t>(std::vector<std::uint64_t>(6, 0));
  rich->setSetting("a", "1");
  rich->setSetting("b", "2");
  return rich;
}

}  // namespace velto::testing

#endif  // VELTO_TESTS_COPIER_RICH_CASE_H
