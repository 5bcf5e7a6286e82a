// SPDX-License-Identifier: Apache-2.0
//
// What the tables of a mesh may claim, by the length of its arrays.

#include "embedded/base/claims.h"

#include <functional>
#include <gtest/gtest.h>
#include <limits>
#include <string>
#include <vector>

#include "embedded/base/CaseError.h"
#include "testing/cases.h"

namespace velto::base {
namespace {

constexpr std::uint64_t kNeverDoubted = 16777216;
constexpr std::uint64_t kLargest = std::numeric_limits<std::uint64_t>::max();

struct ClaimRow {
  const char* name;
  std::uint64_t rows;
  std::function<void(MeshTables&)> change;
  std::string refusal;  ///< Empty if the claims are justified.
};

std::ostream& operator<<(std::ostream& out, const ClaimRow& row) { return out << row.name; }

void setRange(MeshTables& mesh, int zone, std::uint64_t first, std::uint64_t last) {
  mesh.zones.at(zone).sizes[zoneFirstId] = first;
  mesh.zones.at(zone).sizes[zoneLastId] = last;
}

/// twoBodies() has the face zones 2, 3 and 4 and the cell zones 5 and 6.
const std::vector<ClaimRow>& claimRows() {
  static const std::vector<ClaimRow> kRows = {
      {"AllThatASoundCaseSays", 0, [](MeshTables&) {}, ""},
      {"AsManyFacesAsAreNeverDoubted", 0,
       [](MeshTables& mesh) { mesh.sizes[meshFaceCount] = kNeverDoubted; }, ""},
      {"AFaceMore", 0, [](MeshTables& mesh) { mesh.sizes[meshFaceCount] = kNeverDoubted + 1; },
       "m: 16777217 faces are claimed, but the arrays hold 0 numbers in all"},
      {"AsManyFacesAsArraysSpeakOf", 10000000,
       [](MeshTables& mesh) { mesh.sizes[meshFaceCount] = 80000000; }, ""},
      {"AFaceMoreThanArraysSpeakOf", 10000000,
       [](MeshTables& mesh) { mesh.sizes[meshFaceCount] = 80000001; },
       "m: 80000001 faces are claimed, but the arrays hold 10000000 numbers in all"},
      {"ElementsOfAZone", 7,
       [](MeshTables& mesh) { mesh.zones.at(5).sizes[zoneElementCount] = kNeverDoubted; },
       "m: 16777216 elements of zone 5 are claimed, but the arrays hold 7 numbers in all"},
      {"AsManyIdsAsAreNeverDoubted", 7,
       [](MeshTables& mesh) { setRange(mesh, 4, kLargest - kNeverDoubted + 1, kLargest); },
       "m: 16777222 ids of the zones up to 4 are claimed, but the arrays hold 7 numbers in all"},
      {"AsManyIdsInAllAsAreNeverDoubted", 7,
       [](MeshTables& mesh) {
         setRange(mesh, 2, 5, 4);
         setRange(mesh, 3, 1, kNeverDoubted / 2);
         setRange(mesh, 4, 1, kNeverDoubted / 2);
       },
       ""},
      {"AnIdMoreInAll", 7,
       [](MeshTables& mesh) {
         setRange(mesh, 2, 5, 5);
         setRange(mesh, 3, 1, kNeverDoubted / 2);
         setRange(mesh, 4, 1, kNeverDoubted / 2);
       },
       "m: 16777217 ids of the zones up to 4 are claimed, but the arrays hold 7 numbers in all"},
      {"AnIdMoreThanIsNeverDoubted", 7,
       [](MeshTables& mesh) { setRange(mesh, 4, 2, kNeverDoubted + 2); },
       "m: 16777217 ids of zone 4 are claimed, but the arrays hold 7 numbers in all"},
      {"AllIdsThereAre", 7, [](MeshTables& mesh) { setRange(mesh, 5, 0, kLargest); },
       "m: 18446744073709551615 ids of zone 5 are claimed, but the arrays hold 7 numbers in all"},
      {"NoIdsFromTheLargestOn", 7, [](MeshTables& mesh) { setRange(mesh, 5, kLargest, 1); }, ""},
      {"AnUnknownRange", 7,
       [](MeshTables& mesh) {
         mesh.zones.at(5).sizes[zoneFirstId].reset();
         mesh.zones.at(5).sizes[zoneLastId].reset();
       },
       ""},
  };
  return kRows;
}

class Claims : public ::testing::TestWithParam<ClaimRow> {};

TEST_P(Claims, AreHeldAgainstTheArrays) {
  const testing::cases::CasePtr damaged = testing::cases::twoBodies();
  GetParam().change(damaged->mesh());
  std::string refusal;
  try {
    requireJustified("m", damaged->mesh(), GetParam().rows);
  } catch (const CaseError& error) {
    refusal = error.what();
  }
  EXPECT_EQ(refusal, GetParam().refusal);
}

INSTANTIATE_TEST_SUITE_P(All, Claims, ::testing::ValuesIn(claimRows()),
                         [](const auto& row) { return std::string(row.param.name); });

}  // namespace
}  // namespace velto::base
