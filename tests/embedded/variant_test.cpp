// SPDX-License-Identifier: Apache-2.0
//
// OrvVariant: its three kinds, the conversions of each, copies and moves.

#include <gtest/gtest.h>
#include <utility>

#include "data_access/OrvVariant.h"

#include "embedded/base/OrvVariantState.h"

namespace velto::testing {
namespace {

using Texts = std::vector<std::string>;

OrvVariant stringOf(const std::string& text) { return OrvVariant::State::makeString(text); }

OrvVariant listOf(const Texts& list) { return OrvVariant::State::makeList(list); }

TEST(OrvVariant, OfNothingConvertsToNothing) {
  const OrvVariant nothing;
  EXPECT_FALSE(nothing.isValid());
  EXPECT_EQ(nothing.asString(), "");
  EXPECT_EQ(nothing.asStringVector(), Texts());
  const Texts converted = nothing;
  EXPECT_EQ(converted, Texts());
}

TEST(OrvVariant, OfAStringConvertsToItselfAndToItsNames) {
  const OrvVariant value = stringOf("inlet, outlet,,wall");
  EXPECT_TRUE(value.isValid());
  EXPECT_EQ(value.asString(), "inlet, outlet,,wall");
  EXPECT_EQ(value.asStringVector(), Texts({"inlet", "outlet", "wall"}));
  const Texts converted = value;
  EXPECT_EQ(converted, Texts({"inlet", "outlet", "wall"}));
}

TEST(OrvVariant, OfAListConvertsToItselfAndToAJoinedString) {
  const OrvVariant value = listOf({"inlet", "outlet"});
  EXPECT_TRUE(value.isValid());
  EXPECT_EQ(value.asString(), "inlet,outlet");
  EXPECT_EQ(value.asStringVector(), Texts({"inlet", "outlet"}));
}

TEST(OrvVariant, OfAListKeepsCommasAndBlanksInItsNames) {
  EXPECT_EQ(listOf({" a,b ", ""}).asStringVector(), Texts({" a,b ", ""}));
}

TEST(OrvVariant, OfAnEmptyListIsValid) {
  const OrvVariant value = listOf({});
  EXPECT_TRUE(value.isValid());
  EXPECT_EQ(value.asString(), "");
  EXPECT_EQ(value.asStringVector(), Texts());
}

TEST(OrvVariant, IsCopiedAsAValueOfItsOwn) {
  OrvVariant value = stringOf("inlet");
  const OrvVariant copy(value);
  value = stringOf("outlet");
  EXPECT_EQ(copy.asString(), "inlet");
  EXPECT_EQ(value.asString(), "outlet");
  value = copy;
  EXPECT_EQ(value.asString(), "inlet");
  value = OrvVariant();
  EXPECT_FALSE(value.isValid());
  EXPECT_EQ(copy.asString(), "inlet");
}

TEST(OrvVariant, CopiesNothingToo) {
  const OrvVariant nothing;
  OrvVariant copy(nothing);
  EXPECT_FALSE(copy.isValid());
  copy = stringOf("inlet");
  EXPECT_TRUE(copy.isValid());
  copy = nothing;
  EXPECT_FALSE(copy.isValid());
}

TEST(OrvVariant, StaysItselfWhenAssignedToItself) {
  OrvVariant value = listOf({"inlet"});
  const OrvVariant& same = value;
  value = same;
  EXPECT_EQ(value.asStringVector(), Texts({"inlet"}));
}

TEST(OrvVariant, IsMoved) {
  OrvVariant value = listOf({"inlet"});
  OrvVariant moved(std::move(value));
  EXPECT_EQ(moved.asStringVector(), Texts({"inlet"}));
  OrvVariant target = stringOf("outlet");
  target = std::move(moved);
  EXPECT_EQ(target.asStringVector(), Texts({"inlet"}));
}

}  // namespace
}  // namespace velto::testing
