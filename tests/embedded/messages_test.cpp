// SPDX-License-Identifier: Apache-2.0
//
// Pending messages: their prefixes, their order, and that they are handed out once.

#include <gtest/gtest.h>

#include "embedded/base/OrvBaseState.h"
#include "embedded/memory/MemoryProvider.h"
#include "testing/cases.h"

namespace velto::testing {
namespace {

using Texts = std::vector<std::string>;

class MessagesTest : public ::testing::Test {
 protected:
  memory::MemoryProvider provider_{cases::oneHex()};
  base::Messages& messages_ = base::coreOf(provider_).messages;
};

TEST_F(MessagesTest, AreNoneAtFirst) {
  EXPECT_FALSE(provider_.hasWarning());
  EXPECT_FALSE(provider_.hasError());
  EXPECT_EQ(provider_.getWarnings(true, true), Texts());
  EXPECT_EQ(provider_.getErrors(true, true), Texts());
}

TEST_F(MessagesTest, CarryTheirPrefixInTheOrderOfArrival) {
  messages_.addWarning("slow disk");
  messages_.addError("disk gone");
  messages_.addWarning("old index");
  messages_.addError("index gone");
  EXPECT_EQ(provider_.getWarnings(true, true),
            Texts({"Warning:\n\tslow disk", "Warning:\n\told index"}));
  EXPECT_EQ(provider_.getErrors(true, true),
            Texts({"Error:\n\tdisk gone", "Error:\n\tindex gone"}));
}

TEST_F(MessagesTest, AreHandedOutOnce) {
  messages_.addWarning("slow disk");
  messages_.addError("disk gone");
  provider_.getWarnings(true, true);
  EXPECT_FALSE(provider_.hasWarning());
  EXPECT_TRUE(provider_.hasError());
  provider_.getErrors(true, true);
  EXPECT_FALSE(provider_.hasError());
  EXPECT_EQ(provider_.getWarnings(true, true), Texts());
  EXPECT_EQ(provider_.getErrors(true, true), Texts());
}

TEST_F(MessagesTest, StayWhereAFlagIsFalse) {
  messages_.addWarning("slow disk");
  messages_.addError("disk gone");
  for (const auto& flags :
       std::vector<std::pair<bool, bool>>({{false, false}, {true, false}, {false, true}})) {
    EXPECT_EQ(provider_.getWarnings(flags.first, flags.second), Texts({"Warning:\n\tslow disk"}));
    EXPECT_EQ(provider_.getErrors(flags.first, flags.second), Texts({"Error:\n\tdisk gone"}));
  }
  EXPECT_TRUE(provider_.hasWarning());
  EXPECT_TRUE(provider_.hasError());
}

TEST_F(MessagesTest, AreKeptAsOftenAsTheyCome) {
  messages_.addError("disk gone");
  messages_.addError("disk gone");
  EXPECT_EQ(provider_.getErrors(true, true), Texts({"Error:\n\tdisk gone", "Error:\n\tdisk gone"}));
}

TEST_F(MessagesTest, OutliveTheOpeningOfAFile) {
  messages_.addWarning("slow disk");
  provider_.startReading("", dataClassCase);
  EXPECT_EQ(provider_.getWarnings(true, true), Texts({"Warning:\n\tslow disk"}));
}

}  // namespace
}  // namespace velto::testing
