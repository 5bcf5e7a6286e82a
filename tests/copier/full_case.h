// SPDX-License-Identifier: Apache-2.0
//
// A case in which every step of a copyCase has something to do, and the lines of such a copy.

#ifndef VELTO_TESTS_COPIER_FULL_CASE_H
#define VELTO_TESTS_COPIER_FULL_CASE_H

#include <cstdint>
#include <vector>

#include "tests/copier/copy_run.h"

namespace velto::testing {

/// The lines of a copyCase with default switches.
inline const Transcript kCaseLines = {"Writing mesh",
                                      "  Copying problem size",
                                      "  Copying mesh units",
                                      "  Writing mesh attibutes",
                                      "  Copying zone toplogy",
                                      "  Writing node mesh",
                                      "  Writing cell mesh",
                                      "    Writing cell nodes",
                                      "    Writing cell types",
                                      "  Writing face mesh",
                                      "    Writing face nodes",
                                      "    Writing face parents",
                                      "  Writing location model",
                                      "  Mesh written"};

/// twoHexes() with nodes of its own for each cell, cell partitions and a setting.
inline cases::CasePtr fullCase() {
  cases::CasePtr full = cases::twoHexes();
  memory::MeshData& data = full->arrays();
  memory::CountedData nodes;
  nodes.uniform = static_cast<short>(1);
  nodes.ids = memory::Slice<std::uint64_t>(std::vector<std::uint64_t>{1, 2});
  data.cellNodes[4] = nodes;
  data.cellPartitions[4].partitions = memory::Slice<int>(std::vector<int>{5, 6});
  full->setSetting("key", "value");
  return full;
}

/// The switches that are off by default.
inline void switchAllOn(OrvCopier& copier) {
  copier.copyCellPartitionsToDestination(true);
  copier.copySettingsToDestination(true);
}

}  // namespace velto::testing

#endif  // VELTO_TESTS_COPIER_FULL_CASE_H
