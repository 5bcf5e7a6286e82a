// SPDX-License-Identifier: Apache-2.0
//
// Location models that answer false: where that counts, and where only their lists do.

#include <gtest/gtest.h>
#include <string>

#include "tests/physics_regions/region_rows.h"

namespace velto::testing {
namespace {

struct AnswerRow {
  std::string name;
  /// An operation that answers false: after it was carried out, or instead.
  std::string denied;
  std::string refused;
  std::string table;

  friend std::ostream& operator<<(std::ostream& out, const AnswerRow& row) {
    return out << row.name;
  }
};

class ModelAnswers : public ::testing::TestWithParam<AnswerRow> {};

TEST_P(ModelAnswers, False) {
  const ResolverRun run(R"(
    domains/water/location = channel
    subdomains/bed/location = all
    boundaries/walls/location = wetted
    boundaries/screen/location = screen
  )",
                        R"(
    part assembly
      body channel: 7 2
      use hull of channel: 4
      composite all: channel
      composite wetted: hull
  )");
  LocationModelScript script;
  script.deny(GetParam().denied);
  script.refuse(GetParam().refused);
  const StreamCapture streams;
  EXPECT_TRUE(run.resolver->resolveUsing(run.provider.get()));
  EXPECT_EQ(run.table(), GetParam().table);
  EXPECT_EQ(streams.err(), "");
  EXPECT_EQ(run.errors(), Texts());
}

const char* const kSound =
    "0 domain water at 'channel': bodies [2], cell zones [7] [], bulk zones [2], zone sides [4]\n"
    "1 subdomain bed at 'all': bodies [2], cell zones [7] [], bulk zones [2], zone sides [4]\n"
    "2 boundary walls at 'wetted': face uses [4], zone sides [4]\n"
    "3 boundary screen at 'screen': bulk zones [2]\n"
    "ids: bed 1, screen 3, walls 2, water 0\n"
    "domains: 1 -> 0, 2 -> 0, 3 -> 1\n";

const char* const kWithoutBoundary =
    "0 domain water at 'channel': bodies [2], cell zones [7] [], bulk zones [2], zone sides []\n"
    "1 subdomain bed at 'all': bodies [2], cell zones [7] [], bulk zones [2], zone sides []\n"
    "2 boundary walls at 'wetted': face uses [4], zone sides [4]\n"
    "3 boundary screen at 'screen': bulk zones [2]\n"
    "ids: bed 1, screen 3, walls 2, water 0\n"
    "domains: 1 -> 0, 3 -> 1\n";

const AnswerRow kRows[] = {
    {"Never", "", "", kSound},
    {"WithTheZonesOfABody", "getBodyZones", "", kSound},
    {"WithTheSidesOfAFaceUse", "getFaceUseZoneSides", "", kSound},
    {"WithTheMembersOfAComposite", "resolveComposite", "", kSound},
    {"WithTheBoundaryOfABody", "getBodyBoundary", "", kWithoutBoundary},
    {"WithoutTheBoundaryOfABody", "", "getBodyBoundary", kWithoutBoundary},
    {"WithoutTheZonesOfABody", "", "getBodyZones",
     "0 domain water at 'channel': bodies [2], cell zones [] [], bulk zones [], zone sides [4]\n"
     "1 subdomain bed at 'all': bodies [2], cell zones [] [], bulk zones [], zone sides [4]\n"
     "2 boundary walls at 'wetted': face uses [4], zone sides [4]\n"
     "3 boundary screen at 'screen'\n"
     "ids: bed 1, screen 3, walls 2, water 0\n"
     "domains: 1 -> 0, 2 -> 0\n"},
    {"WithoutTheSidesOfAFaceUse", "", "getFaceUseZoneSides",
     "0 domain water at 'channel': bodies [2], cell zones [7] [], bulk zones [2], zone sides []\n"
     "1 subdomain bed at 'all': bodies [2], cell zones [7] [], bulk zones [2], zone sides []\n"
     "2 boundary walls at 'wetted': face uses [4], zone sides []\n"
     "3 boundary screen at 'screen': bulk zones [2]\n"
     "ids: bed 1, screen 3, walls 2, water 0\n"
     "domains: 1 -> 0, 2 -> 0, 3 -> 1\n"},
    {"WithoutTheMembersOfAComposite", "", "resolveComposite",
     "0 domain water at 'channel': bodies [2], cell zones [7] [], bulk zones [2], zone sides [4]\n"
     "1 subdomain bed at 'all': bodies [], cell zones [] [], bulk zones []\n"
     "2 boundary walls at 'wetted'\n"
     "3 boundary screen at 'screen': bulk zones [2]\n"
     "ids: bed 1, screen 3, walls 2, water 0\n"
     "domains: 3 -> 0\n"},
    {"WithABodyOfTheName", "findBody", "",
     "0 domain water at 'channel': bodies [], cell zones [] [], bulk zones []\n"
     "1 subdomain bed at 'all': bodies [2], cell zones [7] [], bulk zones [2], zone sides [4]\n"
     "2 boundary walls at 'wetted': face uses [4], zone sides [4]\n"
     "3 boundary screen at 'screen': bulk zones [2]\n"
     "ids: bed 1, screen 3, walls 2, water 0\n"
     "domains: 3 -> 1\n"},
    {"WithACompositeOfTheName", "findComposite", "",
     "0 domain water at 'channel': bodies [2], cell zones [7] [], bulk zones [2], zone sides [4]\n"
     "1 subdomain bed at 'all': bodies [], cell zones [] [], bulk zones []\n"
     "2 boundary walls at 'wetted'\n"
     "3 boundary screen at 'screen': bulk zones [2]\n"
     "ids: bed 1, screen 3, walls 2, water 0\n"
     "domains: 3 -> 0\n"},
};

INSTANTIATE_TEST_SUITE_P(PhysicsRegions, ModelAnswers, ::testing::ValuesIn(kRows),
                         nameOf<AnswerRow>);

}  // namespace
}  // namespace velto::testing
