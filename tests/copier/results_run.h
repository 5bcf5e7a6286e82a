// SPDX-License-Identifier: Apache-2.0
//
// Cases with results, and what a copy of the results does with the fields.

#ifndef VELTO_TESTS_COPIER_RESULTS_RUN_H
#define VELTO_TESTS_COPIER_RESULTS_RUN_H

#include <gtest/gtest.h>

#include "embedded/memory/CaseBuilder.h"
#include "tests/copier/copy_run.h"

namespace velto::testing {

/// Two nodes, a face and cell zones 3 (two cells) and 4 (one), with phases 5 "water" and 6 "air".
inline memory::CaseBuilder twoPhases() {
  memory::CaseBuilder builder;
  builder.nodes(1, "points", {{0, 0, 0}, {1, 0, 0}})
      .faces(2, "walls", faceZoneType3, {{{1, 2}, 1}})
      .cells(3, "fluid", 4, 2)
      .cells(4, "solid", 4, 1)
      .phase(5, "water")
      .phase(6, "air");
  return builder;
}

/// What a copy of results does behind the tables: the calls of both sides without queries and
/// without the last, which closes the results.
inline Transcript fieldsOf(CopyRun& run) {
  EXPECT_TRUE(run.copyResults());
  const Transcript calls = withoutQueries(run.log.lines);
  auto last = calls.begin();
  for (auto call = calls.begin(); call != calls.end(); ++call) {
    if (operationOf(*call) == "setZoneStringInfo") {
      last = call + 1;
    }
  }
  EXPECT_EQ(calls.back(), "endWriting(1)");
  return Transcript(last, calls.end() - 1);
}

}  // namespace velto::testing

#endif  // VELTO_TESTS_COPIER_RESULTS_RUN_H
