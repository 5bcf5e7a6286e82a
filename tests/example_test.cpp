// SPDX-License-Identifier: Apache-2.0
//
// How a test is written: a sound case, one damage, and the whole of what the tool says about it.

#include <gtest/gtest.h>
#include <memory>

#include "velto/OrvChecker.h"

#include "embedded/memory/CaseBuilder.h"
#include "embedded/memory/MemoryProvider.h"
#include "testing/TestFactory.h"
#include "testing/capture.h"

namespace velto::testing {
namespace {

using Texts = std::vector<std::string>;

/// A tetrahedron, written down face by face: its nodes in loop order, outwards, and its cell. Its
/// one physics object lies in the body that bears the name of the cell zone.
std::shared_ptr<memory::Case> tetrahedron() {
  return memory::CaseBuilder()
      .nodes(1, "points", {{0, 0, 0}, {1, 0, 0}, {0, 1, 0}, {0, 0, 1}})
      .faces(2, "walls", base::boundaryWall,
             {{{1, 3, 2}, 1}, {{1, 2, 4}, 1}, {{2, 3, 4}, 1}, {{3, 1, 4}, 1}})
      .cells(3, "fluid", base::cellShapeTetrahedron, 1)
      .setting("domains/air/location", "fluid")
      .build();
}

/// Gives a provider of `served` for every file name.
TestFactory::ProviderMaker serving(const std::shared_ptr<memory::Case>& served) {
  return [served](const std::string&) { return new memory::MemoryProvider(served); };
}

TEST(Example, ASoundCaseGivesNoMessage) {
  const TestFactory factory(serving(tetrahedron()));
  const StreamCapture streams;
  OrvChecker checker;
  EXPECT_TRUE(checker.checkCase(__FILE__)) << "any file that can be opened will do";
  EXPECT_EQ(checker.getErrors(), Texts());
  EXPECT_EQ(checker.getWarnings(), Texts());
  EXPECT_EQ(streams.err(), "");
}

TEST(Example, ADamagedCaseIsToldInWords) {
  const auto damaged = tetrahedron();
  damaged->mesh().sizes[meshDimension] = 1;
  const TestFactory factory(serving(damaged));
  const StreamCapture streams;
  OrvChecker checker;
  EXPECT_FALSE(checker.checkCase(__FILE__));
  EXPECT_EQ(checker.getErrors(), Texts({"checkMeshSize : Invalid mesh dimension"}));
  EXPECT_EQ(streams.err(), "Error: checkMeshSize: Invalid mesh dimension\n");
}

}  // namespace
}  // namespace velto::testing
