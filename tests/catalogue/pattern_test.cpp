// SPDX-License-Identifier: Apache-2.0
//
// Pattern: which messages fit a text with values, rule by rule.

#include "catalogue/Pattern.h"

#include <gtest/gtest.h>

namespace velto::catalogue {
namespace {

using Values = std::vector<std::string>;

/// The values in a message, {"no"} if it does not fit.
Values valuesIn(const std::string& text, const std::string& message) {
  Values values = {"no"};
  const bool fits = Pattern(text).fits(message, values);
  EXPECT_EQ(Pattern(text).fits(message), fits);
  return values;
}

const Values kNo = {"no"};

TEST(Pattern, WithoutValuesOnlyTheTextItselfFits) {
  EXPECT_EQ(valuesIn("Cell type", "Cell type"), Values{});
  EXPECT_EQ(valuesIn("Cell type", "Cell types"), kNo);
  EXPECT_EQ(valuesIn("Cell type", "A Cell type"), kNo);
  EXPECT_EQ(valuesIn("Cell type", ""), kNo);
}

TEST(Pattern, BeginsWithTheFirstPieceAndEndsWithTheLast) {
  EXPECT_EQ(valuesIn("zone [<...>] is", "zone [5] is"), Values{"5"});
  EXPECT_EQ(valuesIn("zone [<...>] is", "a zone [5] is"), kNo);
  EXPECT_EQ(valuesIn("zone [<...>] is", "zone [5] is not"), kNo);
}

TEST(Pattern, ValuesMayStandAtBothEnds) {
  EXPECT_EQ(valuesIn("<...> zones <...>", "Face zones 7"), (Values{"Face", "7"}));
  EXPECT_EQ(valuesIn("<...>", "anything"), Values{"anything"});
}

TEST(Pattern, ValuesMayBeEmptyOrHoldAnything) {
  EXPECT_EQ(valuesIn("body '<...>'", "body ''"), Values{""});
  EXPECT_EQ(valuesIn("body '<...>'", "body 'it's \n<...>'"), Values{"it's \n<...>"});
  EXPECT_EQ(valuesIn("body <...><...> end", "body x end"), (Values{"", "x"}));
}

TEST(Pattern, InnerPiecesAreTakenWhereTheyComeFirst) {
  EXPECT_EQ(valuesIn("a <...>, <...> z", "a 1, 2, 3 z"), (Values{"1", "2, 3"}));
  EXPECT_EQ(valuesIn("a <...>b<...>c<...> z", "a 1c2b3 z"), kNo);
}

TEST(Pattern, PiecesDoNotOverlap) {
  EXPECT_EQ(valuesIn("aba<...>aba", "ababa"), kNo);
  EXPECT_EQ(valuesIn("aba<...>aba", "abaaba"), Values{""});
  EXPECT_EQ(valuesIn("a<...>bc<...>c", "abc"), kNo);
  EXPECT_EQ(valuesIn("a<...>bc<...>c", "abcc"), (Values{"", ""}));
}

TEST(Pattern, WeighsWhatIsNoValue) {
  EXPECT_EQ(Pattern("ORV - <...>").weight(), 6U);
  EXPECT_EQ(Pattern("<...>").weight(), 0U);
  EXPECT_EQ(Pattern("ab<...>c<...>").first(), "ab");
}

TEST(Squeezed, HasOneBlankForEachRunOfWhiteSpace) {
  EXPECT_EQ(squeezed("a  b\n   c\td"), "a b c d");
  EXPECT_EQ(squeezed(""), "");
}

}  // namespace
}  // namespace velto::catalogue
