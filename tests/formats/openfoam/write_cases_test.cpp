// SPDX-License-Identifier: Apache-2.0
//
// The named cases written as OpenFOAM meshes in each form, and read again.

#include <gtest/gtest.h>
#include <string>
#include <tuple>
#include <vector>

#include "formats/openfoam/OpenFoamProvider.h"
#include "formats/openfoam/read_poly_mesh.h"
#include "testing/TempFolder.h"
#include "testing/cases.h"
#include "tests/formats/openfoam/describe_case.h"
#include "tests/formats/openfoam/written_mesh.h"

namespace velto::openfoam {
namespace {

using testing::cases::CasePtr;

struct Written {
  const char* name;
  CasePtr (*make)();
  std::vector<std::string> messages;
  const char* tables;
};

CasePtr threeBodies() { return testing::cases::rowOfBodies(3); }

const std::vector<Written>& rows() {
  static const std::vector<Written>
      kRows =
          {
              {"OneHex",
               testing::cases::oneHex,
               {},
               "sizes 3 8 6 1\nnode 1 'nodes' [1, 8] 8\nface 2 'walls' [1, 6] 6: type 3 'wall', shape 4, cells 3 | -, shadow 0\ncell 3 'fluid' [1, 1] 1: shape 4, bounded by 2\n2:\n(1 5 8 4) 1 0\n(2 3 7 6) 1 0\n(1 2 6 5) 1 0\n(4 8 7 3) 1 0\n(1 4 3 2) 1 0\n(5 6 7 8) 1 0\n"},
              {"TwoHexes",
               testing::cases::twoHexes,
               {},
               "sizes 3 12 11 2\nnode 1 'nodes' [1, 12] 12\nface 2 'inside' [1, 1] 1: type 2 'interior', shape 4, cells 4 | 4, shadow 0\nface 3 'walls' [2, 11] 10: type 3 'wall', shape 4, cells 4 | -, shadow 0\ncell 4 'fluid' [1, 2] 2: shape 4, bounded by 2 3\n2:\n(2 5 11 8) 1 2\n3:\n(1 7 10 4) 1 0\n(1 2 8 7) 1 0\n(4 10 11 5) 1 0\n(1 4 5 2) 1 0\n(7 8 11 10) 1 0\n(3 6 12 9) 2 0\n(2 3 9 8) 2 0\n(5 11 12 6) 2 0\n(2 5 6 3) 2 0\n(8 9 12 11) 2 0\n"},
              {"TwoBodies",
               testing::cases::twoBodies,
               {"zone 3 'fluid walls': written as patch 'fluid_walls'",
                "zone 4 'solid walls': written as patch 'solid_walls'"},
               "sizes 3 12 11 2\nnode 1 'nodes' [1, 12] 12\nface 2 'between' [1, 1] 1: type 2 'interior', shape 4, cells 5 | 6, shadow 0\nface 3 'fluid_walls' [2, 6] 5: type 3 'wall', shape 4, cells 5 | -, shadow 0\nface 4 'solid_walls' [7, 11] 5: type 3 'wall', shape 4, cells 6 | -, shadow 0\ncell 5 'fluid' [1, 1] 1: shape 4, bounded by 2 3\ncell 6 'solid' [2, 2] 1: shape 4, bounded by 2 4\n2:\n(2 5 11 8) 1 2\n3:\n(1 7 10 4) 1 0\n(1 2 8 7) 1 0\n(4 10 11 5) 1 0\n(1 4 5 2) 1 0\n(7 8 11 10) 1 0\n4:\n(3 6 12 9) 2 0\n(2 3 9 8) 2 0\n(5 11 12 6) 2 0\n(2 5 6 3) 2 0\n(8 9 12 11) 2 0\n"},
              {"ScreenInFlow",
               testing::cases::screenInFlow,
               {},
               "sizes 3 16 16 3\nnode 1 'nodes' [1, 16] 16\nface 2 'inside' [1, 1] 1: type 2 'interior', shape 4, cells 5 | 5, shadow 0\nface 3 'screen' [2, 2] 1: type 2 'interior', shape 4, cells 5 | 5, shadow 0\nface 4 'walls' [3, 16] 14: type 3 'wall', shape 4, cells 5 | -, shadow 0\ncell 5 'fluid' [1, 3] 3: shape 4, bounded by 2 3 4\n2:\n(2 6 14 10) 1 2\n3:\n(3 7 15 11) 2 3\n4:\n(1 9 13 5) 1 0\n(1 2 10 9) 1 0\n(5 13 14 6) 1 0\n(1 5 6 2) 1 0\n(9 10 14 13) 1 0\n(2 3 11 10) 2 0\n(6 14 15 7) 2 0\n(2 6 7 3) 2 0\n(10 11 15 14) 2 0\n(4 8 16 12) 3 0\n(3 4 12 11) 3 0\n(7 15 16 8) 3 0\n(3 7 8 4) 3 0\n(11 12 16 15) 3 0\n"},
              {"RowOfBodies",
               threeBodies,
               {"zone 4 'bottom of 1': written as patch 'bottom_of_1'",
                "zone 5 'top of 1': written as patch 'top_of_1'",
                "zone 6 'sides of 1': written as patch 'sides_of_1'",
                "zone 7 'bottom of 2': written as patch 'bottom_of_2'",
                "zone 8 'top of 2': written as patch 'top_of_2'",
                "zone 9 'sides of 2': written as patch 'sides_of_2'",
                "zone 10 'bottom of 3': written as patch 'bottom_of_3'",
                "zone 11 'top of 3': written as patch 'top_of_3'",
                "zone 12 'sides of 3': written as patch 'sides_of_3'",
                "zone 2 'between 1': written as face zone 'between_1'",
                "zone 3 'between 2': written as face zone 'between_2'",
                "zone 13 'body 1': written as cell zone 'body_1'",
                "zone 14 'body 2': written as cell zone 'body_2'",
                "zone 15 'body 3': written as cell zone 'body_3'"},
               "sizes 3 16 16 3\nnode 1 'nodes' [1, 16] 16\nface 2 'between_1' [1, 1] 1: type 2 'interior', shape 4, cells 13 | 14, shadow 0\nface 3 'between_2' [2, 2] 1: type 2 'interior', shape 4, cells 14 | 15, shadow 0\nface 4 'bottom_of_1' [3, 3] 1: type 12 'cyclic', shape 4, cells 13 | -, shadow 5\nface 5 'top_of_1' [4, 4] 1: type 8 'cyclic', shape 4, cells 13 | -, shadow 4\nface 6 'sides_of_1' [5, 7] 3: type 3 'wall', shape 4, cells 13 | -, shadow 0\nface 7 'bottom_of_2' [8, 8] 1: type 12 'cyclic', shape 4, cells 14 | -, shadow 8\nface 8 'top_of_2' [9, 9] 1: type 8 'cyclic', shape 4, cells 14 | -, shadow 7\nface 9 'sides_of_2' [10, 11] 2: type 3 'wall', shape 4, cells 14 | -, shadow 0\nface 10 'bottom_of_3' [12, 12] 1: type 12 'cyclic', shape 4, cells 15 | -, shadow 11\nface 11 'top_of_3' [13, 13] 1: type 8 'cyclic', shape 4, cells 15 | -, shadow 10\nface 12 'sides_of_3' [14, 16] 3: type 3 'wall', shape 4, cells 15 | -, shadow 0\ncell 13 'body_1' [1, 1] 1: shape 4, bounded by 2 4 5 6\ncell 14 'body_2' [2, 2] 1: shape 4, bounded by 2 3 7 8 9\ncell 15 'body_3' [3, 3] 1: shape 4, bounded by 3 10 11 12\n2:\n(2 6 14 10) 1 2\n3:\n(3 7 15 11) 2 3\n4:\n(1 5 6 2) 1 0\n5:\n(9 10 14 13) 1 0\n6:\n(1 9 13 5) 1 0\n(1 2 10 9) 1 0\n(5 13 14 6) 1 0\n7:\n(2 6 7 3) 2 0\n8:\n(10 11 15 14) 2 0\n9:\n(2 3 11 10) 2 0\n(6 14 15 7) 2 0\n10:\n(3 7 8 4) 3 0\n11:\n(11 12 16 15) 3 0\n12:\n(4 8 16 12) 3 0\n(3 4 12 11) 3 0\n(7 15 16 8) 3 0\n"},
              {"PeriodicPair",
               testing::cases::periodicPair,
               {},
               "sizes 3 8 6 1\nnode 1 'nodes' [1, 8] 8\nface 2 'left' [1, 1] 1: type 12 'cyclic', shape 4, cells 5 | -, shadow 3\nface 3 'right' [2, 2] 1: type 8 'cyclic', shape 4, cells 5 | -, shadow 2\nface 4 'walls' [3, 6] 4: type 3 'wall', shape 4, cells 5 | -, shadow 0\ncell 5 'fluid' [1, 1] 1: shape 4, bounded by 2 3 4\n2:\n(1 5 8 4) 1 0\n3:\n(2 3 7 6) 1 0\n4:\n(1 2 6 5) 1 0\n(4 8 7 3) 1 0\n(1 4 3 2) 1 0\n(5 6 7 8) 1 0\n"},
              {"WithResults",
               testing::cases::withResults,
               {"results are not written to an OpenFOAM folder"},
               "sizes 3 8 6 1\nnode 1 'nodes' [1, 8] 8\nface 2 'walls' [1, 6] 6: type 3 'wall', shape 4, cells 3 | -, shadow 0\ncell 3 'fluid' [1, 1] 1: shape 4, bounded by 2\n2:\n(1 5 8 4) 1 0\n(2 3 7 6) 1 0\n(1 2 6 5) 1 0\n(4 8 7 3) 1 0\n(1 4 3 2) 1 0\n(5 6 7 8) 1 0\n"},
              {"WithPhysics",
               testing::cases::withPhysics,
               {"zone 4 'fluid walls': written as patch 'fluid_walls'",
                "zone 5 'solid walls': written as patch 'solid_walls'"},
               "sizes 3 16 16 3\nnode 1 'nodes' [1, 16] 16\nface 2 'screen' [1, 1] 1: type 2 'interior', shape 4, cells 6 | 6, shadow 0\nface 3 'contact' [2, 2] 1: type 2 'interior', shape 4, cells 6 | 7, shadow 0\nface 4 'fluid_walls' [3, 11] 9: type 3 'wall', shape 4, cells 6 | -, shadow 0\nface 5 'solid_walls' [12, 16] 5: type 3 'wall', shape 4, cells 7 | -, shadow 0\ncell 6 'fluid' [1, 2] 2: shape 4, bounded by 2 3 4\ncell 7 'solid' [3, 3] 1: shape 4, bounded by 3 5\n2:\n(2 6 14 10) 1 2\n3:\n(3 7 15 11) 2 3\n4:\n(1 9 13 5) 1 0\n(1 2 10 9) 1 0\n(5 13 14 6) 1 0\n(1 5 6 2) 1 0\n(9 10 14 13) 1 0\n(2 3 11 10) 2 0\n(6 14 15 7) 2 0\n(2 6 7 3) 2 0\n(10 11 15 14) 2 0\n5:\n(4 8 16 12) 3 0\n(3 4 12 11) 3 0\n(7 15 16 8) 3 0\n(3 7 8 4) 3 0\n(11 12 16 15) 3 0\n"},
          };
  return kRows;
}

class CasesWritten : public ::testing::TestWithParam<std::tuple<Written, Form>> {};

TEST_P(CasesWritten, AreReadAgain) {
  const Written& row = std::get<0>(GetParam());
  const testing::TempFolder temp;
  EXPECT_EQ(writeInto(*row.make(), temp.path("case"), std::get<1>(GetParam())), row.messages);
  const std::string folder = temp.path("case/constant/polyMesh");
  EXPECT_EQ(brokenRules(readPolyMesh(folder)), std::vector<std::string>());

  OpenFoamProvider provider;
  ASSERT_TRUE(provider.startReading(temp.path("case"), dataClassCase));
  EXPECT_EQ(provider.getWarnings(true, true), std::vector<std::string>());
  std::string text = describeTables(provider);
  std::vector<int> faceZones;
  provider.getZoneIds(zoneCategoryFace, faceZones);
  for (const int zone : faceZones) {
    text += std::to_string(zone) + ":\n" + describeFaces(provider, zone);
  }
  EXPECT_EQ(text, row.tables);
}

INSTANTIATE_TEST_SUITE_P(All, CasesWritten,
                         ::testing::Combine(::testing::ValuesIn(rows()),
                                            ::testing::ValuesIn(writtenForms())),
                         [](const auto& row) {
                           return std::string(std::get<0>(row.param).name) +
                                  std::get<1>(row.param).name;
                         });

}  // namespace
}  // namespace velto::openfoam
