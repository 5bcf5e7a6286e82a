// SPDX-License-Identifier: Apache-2.0
//
// The entries of the page itself: each is found by its id and by its own text.

#include "catalogue/catalogue.h"

#include <chrono>
#include <gtest/gtest.h>

namespace velto::catalogue {
namespace {

/// The text of an entry with a value in each of its places.
std::string filled(const Entry& entry, const std::string& value) {
  std::string text = entry.text;
  for (std::size_t at = text.find("<...>"); at != std::string::npos; at = text.find("<...>", at)) {
    text.replace(at, 5, value);
    at += value.size();
  }
  return text;
}

TEST(Catalogue, HasThePage) {
  EXPECT_GT(entries().size(), 100U);
  EXPECT_EQ(&entries(), &entries());
}

TEST(Catalogue, FindsEachEntryById) {
  for (const Entry& entry : entries()) {
    EXPECT_EQ(entryOfId(entry.id), &entry);
  }
  EXPECT_EQ(entryOfId(""), nullptr);
  EXPECT_EQ(entryOfId("no-such-id"), nullptr);
}

TEST(Catalogue, FindsEachEntryByItsText) {
  for (const Entry& entry : entries()) {
    EXPECT_EQ(entryOf(entry.level, filled(entry, "7")), &entry) << entry.text;
    EXPECT_EQ(entryOf(entry.level, filled(entry, "")), &entry) << entry.text;
    EXPECT_EQ(entryOf(entry.level, filled(entry, "a b: c")), &entry) << entry.text;
  }
}

TEST(Catalogue, LooksAtTheLevel) {
  EXPECT_NE(entryOf(Level::error, "Overlapping Face ranges"), nullptr);
  EXPECT_EQ(entryOf(Level::warning, "Overlapping Face ranges"), nullptr);
  EXPECT_EQ(entryOf(Level::line, "Overlapping Face ranges"), nullptr);

  const Entry* error = entryOf(Level::error, "ORV - box.orv: cut");
  const Entry* warning = entryOf(Level::warning, "ORV - box.orv: cut");
  ASSERT_NE(error, nullptr);
  ASSERT_NE(warning, nullptr);
  EXPECT_EQ(error->text, "ORV - <...>");
  EXPECT_EQ(warning->text, "ORV - <...>");
  EXPECT_NE(error, warning);
}

TEST(Catalogue, FindsNothingForOtherTexts) {
  for (const char* text : {"", " ", "Overlapping", "Face", "checkFaceZones : Invalid face type"}) {
    EXPECT_EQ(entryOf(Level::error, text), nullptr) << text;
  }
}

TEST(Catalogue, FindsAMillionMessagesAtOnce) {
  const std::string text = "Cell 7 (12) for face 3456789 is invalid";
  const auto begin = std::chrono::steady_clock::now();
  std::size_t found = 0;
  for (int i = 0; i < 1000000; ++i) {
    found += entryOf(Level::error, text) == nullptr ? 0 : 1;
  }
  EXPECT_EQ(found, 1000000U);
  EXPECT_LT(std::chrono::steady_clock::now() - begin, std::chrono::seconds(20));
}

}  // namespace
}  // namespace velto::catalogue
