// SPDX-License-Identifier: Apache-2.0
//
// A program with a factory of its own: it links the four tools and the embedded library, but not
// the factory, and hands the checker a case that never was in a file.

#include <gtest/gtest.h>
#include <memory>
#include <string>
#include <vector>

#include "velto/OrvChecker.h"

#include "data_access/OrvFactory.h"

#include "embedded/memory/CaseBuilder.h"
#include "embedded/memory/MemoryProvider.h"

namespace {

using velto::memory::CaseBuilder;
using velto::memory::MemoryProvider;

/// One hexahedron between walls. The format that it is said to be written in tells that the checker
/// got this case and no other.
std::shared_ptr<velto::memory::Case> oneCell(const std::string& solverType) {
  return CaseBuilder()
      .solverType(solverType)
      .nodes(
          1, "points",
          {{0, 0, 0}, {1, 0, 0}, {1, 1, 0}, {0, 1, 0}, {0, 0, 1}, {1, 0, 1}, {1, 1, 1}, {0, 1, 1}})
      .faces(2, "walls", velto::base::boundaryWall,
             {{{1, 4, 3, 2}, 1},
              {{5, 6, 7, 8}, 1},
              {{1, 2, 6, 5}, 1},
              {{2, 3, 7, 6}, 1},
              {{3, 4, 8, 7}, 1},
              {{4, 1, 5, 8}, 1}})
      .cells(3, "body", velto::base::cellShapeHexahedron, 1)
      .build();
}

/// What the factory below was asked for.
std::vector<std::string>& askedFor() {
  static std::vector<std::string> names;
  return names;
}

}  // namespace

namespace velto {

OrvFileProvider* getDataProvider(const std::string& fileName) {
  askedFor().push_back(fileName);
  return new MemoryProvider(oneCell("OWN_FACTORY"));
}

OrvFileConsumer* getDataConsumer(OrvFileFormatType /*format*/) { return nullptr; }

}  // namespace velto

namespace {

TEST(OwnFactory, ServesTheChecker) {
  velto::OrvChecker checker;
  checker.setVerbosity(0);
  checker.setCheckLevel(2);
  // The checker looks whether the name can be opened, which a folder can.
  EXPECT_TRUE(checker.checkCase("."));
  EXPECT_EQ(askedFor(), std::vector<std::string>{"."});
  EXPECT_EQ(checker.getErrors(), std::vector<std::string>{});
  EXPECT_EQ(checker.getWarnings(),
            (std::vector<std::string>{
                "checkSolverType : File with unknown solver type",
                "checkPhysicsToMeshMapUsingTopologyModel : No Physics Model - skipped"}));
}

}  // namespace
