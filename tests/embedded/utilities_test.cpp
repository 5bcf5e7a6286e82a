// SPDX-License-Identifier: Apache-2.0
//
// splitString and the version of the library.

#include <gtest/gtest.h>

#include "data_access/OrvUtilities.h"
#include "data_access/OrvVersion.h"

namespace velto::testing {
namespace {

using Texts = std::vector<std::string>;

struct SplitRow {
  const char* name;
  const char* text;
  bool flag;
  Texts parts;
};

std::ostream& operator<<(std::ostream& out, const SplitRow& row) { return out << row.name; }

class SplitString : public ::testing::TestWithParam<SplitRow> {};

TEST_P(SplitString, Gives) {
  Texts parts;
  EXPECT_EQ(OrvUtilities::splitString(GetParam().text, parts, GetParam().flag, ','),
            !GetParam().parts.empty());
  EXPECT_EQ(parts, GetParam().parts);
}

INSTANTIATE_TEST_SUITE_P(
    Utilities, SplitString,
    ::testing::Values(SplitRow{"ItsNames", "inlet,outlet", true, {"inlet", "outlet"}},
                      SplitRow{"OneNameWithoutSeparator", "inlet", true, {"inlet"}},
                      SplitRow{"NamesWithoutBlanksAround", " a b\t,\nc ", true, {"a b", "c"}},
                      SplitRow{"NoEmptyNames", ",a,, ,b,", true, {"a", "b"}},
                      SplitRow{"NothingForAnEmptyText", "", true, {}},
                      SplitRow{"NothingForBlanks", " , ", true, {}},
                      SplitRow{"PiecesAsTheyStand", " a,,b ", false, {" a", "", "b "}},
                      SplitRow{"OneEmptyPieceAsItStands", "", false, {""}},
                      SplitRow{"AnEmptyPieceAtTheEnd", "a,", false, {"a", ""}}),
    [](const auto& row) { return std::string(row.param.name); });

TEST(SplitStringOnce, AppendsToWhatIsThere) {
  Texts parts = {"old"};
  EXPECT_TRUE(OrvUtilities::splitString("new", parts, true, ','));
  EXPECT_EQ(parts, Texts({"old", "new"}));
  EXPECT_FALSE(OrvUtilities::splitString("", parts, true, ','));
  EXPECT_EQ(parts, Texts({"old", "new"}));
}

TEST(SplitStringOnce, TakesAnySeparator) {
  Texts parts;
  OrvUtilities::splitString("a/b,c", parts, true, '/');
  EXPECT_EQ(parts, Texts({"a", "b,c"}));
}

TEST(OrvVersionOfTheLibrary, IsOne) {
  EXPECT_EQ(OrvVersion::getMajor(), 1U);
  EXPECT_EQ(OrvVersion::getMinor(), 0U);
  EXPECT_EQ(OrvVersion::getPatch(), 0U);
}

}  // namespace
}  // namespace velto::testing
