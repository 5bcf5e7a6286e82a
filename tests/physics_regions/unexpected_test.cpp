// SPDX-License-Identifier: Apache-2.0
//
// Locations that name objects of the wrong sort: the line on standard error, and that nothing is
// resolved.

#include <gtest/gtest.h>
#include <string>

#include "tests/physics_regions/region_rows.h"

namespace velto::testing {
namespace {

struct UnexpectedRow {
  std::string name;
  std::string settings;
  std::string model;
  std::string table;
  std::string line;

  friend std::ostream& operator<<(std::ostream& out, const UnexpectedRow& row) {
    return out << row.name;
  }
};

class Unexpected : public ::testing::TestWithParam<UnexpectedRow> {};

TEST_P(Unexpected, ObjectsEndTheResolving) {
  const UnexpectedRow& row = GetParam();
  expectResolution({row.name, row.settings, row.model, row.table, row.line + "\n"});
}

const char* const kModel = R"(
  part assembly
    body channel: 7 2
    use hull of channel: 4
    face sheet
    composite wetted: hull, sheet
)";

// --- Every object in every location -------------------------------------------------------------

const UnexpectedRow kObjects[] = {
    {"FaceInADomain", "domains/water/location = sheet", kModel,
     "0 domain water at 'sheet'\n"
     "ids: water 0\n",
     "Unexpectedly found a face '5' in the location of a domain."},
    {"FaceInASubdomain", "subdomains/bed/location = sheet", kModel,
     "0 subdomain bed at 'sheet'\n"
     "ids: bed 0\n",
     "Unexpectedly found a face '5' in the location of a subdomain."},
    {"FaceInABoundary", "boundaries/walls/location = sheet", kModel,
     "0 boundary walls at 'sheet'\n"
     "ids: walls 0\n",
     "Unexpectedly found a face '5' in the location of a boundary."},
    {"FaceUseInADomain", "domains/water/location = hull", kModel,
     "0 domain water at 'hull'\n"
     "ids: water 0\n",
     "Unexpectedly found a face use '4' in the location of a domain."},
    {"FaceUseInASubdomain", "subdomains/bed/location = hull", kModel,
     "0 subdomain bed at 'hull'\n"
     "ids: bed 0\n",
     "Unexpectedly found a face use '4' in the location of a subdomain."},
    {"BodyInABoundary", "boundaries/walls/location = channel", kModel,
     "0 boundary walls at 'channel'\n"
     "ids: walls 0\n",
     "Unexpectedly found a body '2' in the location of a boundary."},
};

INSTANTIATE_TEST_SUITE_P(Every, Unexpected, ::testing::ValuesIn(kObjects), nameOf<UnexpectedRow>);

// --- Which object of a name ---------------------------------------------------------------------

const UnexpectedRow kNames[] = {
    {"FaceBeforeFaceUseInADomain", "domains/water/location = x",
     R"(
       part assembly
         body other: 8
         use x of other: 5
         face x
     )",
     "0 domain water at 'x'\n"
     "ids: water 0\n",
     "Unexpectedly found a face '5' in the location of a domain."},
    {"FaceBeforeBodyInABoundary", "boundaries/walls/location = x",
     R"(
       part assembly
         body x: 8
         face x
     )",
     "0 boundary walls at 'x'\n"
     "ids: walls 0\n",
     "Unexpectedly found a face '3' in the location of a boundary."},
    {"FaceBeforeABodyOfALaterPart", "domains/water/location = x",
     R"(
       part one
         face x
       part two
         body x: 7
     )",
     "0 domain water at 'x'\n"
     "ids: water 0\n",
     "Unexpectedly found a face '2' in the location of a domain."},
    {"FaceUseBeforeABodyOfALaterPart", "subdomains/bed/location = x",
     R"(
       part one
         body other: 8
         use x of other: 5
       part two
         body x: 7
     )",
     "0 subdomain bed at 'x'\n"
     "ids: bed 0\n",
     "Unexpectedly found a face use '4' in the location of a subdomain."},
    {"BodyBeforeAFaceUseOfALaterPart", "boundaries/walls/location = x",
     R"(
       part one
         body x: 7
       part two
         body other: 8
         use x of other: 5
     )",
     "0 boundary walls at 'x'\n"
     "ids: walls 0\n",
     "Unexpectedly found a body '2' in the location of a boundary."},
    {"FaceOfALaterPartAlone", "domains/water/location = x",
     R"(
       part one
         body other: 8
       part two
         face x
     )",
     "0 domain water at 'x'\n"
     "ids: water 0\n",
     "Unexpectedly found a face '4' in the location of a domain."},
};

INSTANTIATE_TEST_SUITE_P(Names, Unexpected, ::testing::ValuesIn(kNames), nameOf<UnexpectedRow>);

// --- What else there is -------------------------------------------------------------------------

const UnexpectedRow kOthers[] = {
    {"BehindGoodNames", "domains/water/location = nowhere, channel, sheet, hull", kModel,
     "0 domain water at 'nowhere, channel, sheet, hull'\n"
     "ids: water 0\n",
     "Unexpectedly found a face '5' in the location of a domain."},
    {"BehindGoodRegions",
     R"(
       domains/water/location = channel
       subdomains/bed/location = channel
       subdomains/bed/domain = water
       boundaries/walls/location = hull
       boundaries/walls/domain = water
       boundaries/screen/location = screen
       boundaries/lid/location = channel
     )",
     kModel,
     "0 domain water at 'channel'\n"
     "1 subdomain bed at 'channel'\n"
     "2 boundary walls at 'hull'\n"
     "3 boundary screen at 'screen'\n"
     "4 boundary lid at 'channel'\n"
     "ids: bed 1, lid 4, screen 3, walls 2, water 0\n",
     "Unexpectedly found a body '2' in the location of a boundary."},
    {"FirstOfThreeIsTold",
     R"(
       boundaries/walls/location = channel
       domains/water/location = channel
       domains/steel/location = hull
       subdomains/bed/location = sheet
     )",
     kModel,
     "0 domain water at 'channel'\n"
     "1 domain steel at 'hull'\n"
     "2 subdomain bed at 'sheet'\n"
     "3 boundary walls at 'channel'\n"
     "ids: bed 2, steel 1, walls 3, water 0\n",
     "Unexpectedly found a face use '4' in the location of a domain."},
    {"BesideAnInterface",
     R"(
       boundaries/walls/location = channel
       interfaces/heat/boundariesSide1 = walls
       interfaces/heat/boundariesSide2 = walls
     )",
     kModel,
     "0 boundary walls at 'channel'\n"
     "1 interface heat: sides 0 0\n"
     "ids: heat 1, walls 0\n",
     "Unexpectedly found a body '2' in the location of a boundary."},
};

INSTANTIATE_TEST_SUITE_P(Others, Unexpected, ::testing::ValuesIn(kOthers), nameOf<UnexpectedRow>);

}  // namespace
}  // namespace velto::testing
