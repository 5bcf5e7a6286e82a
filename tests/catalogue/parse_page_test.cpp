// SPDX-License-Identifier: Apache-2.0
//
// The grammar of the page, and what is said where a page does not keep to it.

#include <gtest/gtest.h>
#include <stdexcept>
#include <string>
#include <vector>

#include "catalogue/catalogue.h"

namespace velto::catalogue {
namespace {

const char* const kSmallPage = R"(# Messages

How entries look:

```
### `In a fence`
```

## Zones

Words about zones.

### `Overlapping <...> ranges`

`zone-ranges-overlap`, error, `checker/zone_tables.cpp`

- **Means**: An element belongs to two
  zones.
- **Cause**: The tables; [are] wrong.
- **Remedy**: Write `them`
  anew.
- **See it**: `orv sample --defect overlap FILE`,
  `orv check FILE`

## Messages

### `Gone`

`gone`, warning, `orv/main.cpp`

- **Means**: One.
- **Cause**: Two.
- **Remedy**: Three.
- **Never given**: It is gone.

### `Gone`

`gone-line`, line, `orv/main.cpp`

- **Means**: Four.
- **Cause**: Five.
- **Remedy**: Six.
)";

TEST(Page, EntriesHaveTheirPartsAndSections) {
  const std::vector<Entry> entries = parsePage(kSmallPage);
  ASSERT_EQ(entries.size(), 3U);

  const Entry& first = entries[0];
  EXPECT_EQ(first.id, "zone-ranges-overlap");
  EXPECT_EQ(first.text, "Overlapping <...> ranges");
  EXPECT_EQ(first.level, Level::error);
  EXPECT_EQ(first.source, "checker/zone_tables.cpp");
  EXPECT_EQ(first.section, "Zones");
  EXPECT_EQ(first.means, "An element belongs to two zones.");
  EXPECT_EQ(first.cause, "The tables; [are] wrong.");
  EXPECT_EQ(first.remedy, "Write `them` anew.");
  EXPECT_EQ(first.seeIt, "`orv sample --defect overlap FILE`, `orv check FILE`");
  EXPECT_EQ(first.never, "");

  EXPECT_EQ(entries[1].level, Level::warning);
  EXPECT_EQ(entries[1].section, "Messages");
  EXPECT_EQ(entries[1].seeIt, "");
  EXPECT_EQ(entries[1].never, "It is gone.");

  EXPECT_EQ(entries[2].text, "Gone");
  EXPECT_EQ(entries[2].level, Level::line);
  EXPECT_EQ(entries[2].remedy, "Six.");
  EXPECT_EQ(entries[2].seeIt + entries[2].never, "");
}

TEST(Page, LinesMayEndAsOnOtherSystems) {
  std::string page = kSmallPage;
  for (std::size_t at = page.find('\n'); at != std::string::npos; at = page.find('\n', at + 2)) {
    page.insert(at, "\r");
  }
  const std::vector<Entry> entries = parsePage(page);
  ASSERT_EQ(entries.size(), 3U);
  EXPECT_EQ(entries[0].means, "An element belongs to two zones.");
}

TEST(Page, ProseAloneHasNoEntries) {
  EXPECT_TRUE(parsePage("").empty());
  EXPECT_TRUE(parsePage("# Messages\n\nNone yet").empty());
}

/// What is said of a page, "" if nothing.
std::string complaintOf(const std::string& page) {
  try {
    parsePage(page);
    return "";
  } catch (const std::runtime_error& error) {
    return error.what();
  }
}

const std::string kHead = "### `A`\n\n`a`, error, `x/y.cpp`\n\n";
const std::string kWhole = kHead + "- **Means**: m\n- **Cause**: c\n- **Remedy**: r\n";

TEST(BadPage, EveryComplaintNamesItsLine) {
  EXPECT_EQ(complaintOf(kWhole), "");
  EXPECT_EQ(complaintOf("\n### A\n"), "line 2: the heading of an entry is its text, in backticks");
  EXPECT_EQ(complaintOf("### ``\n"), "line 1: the heading of an entry is its text, in backticks");
  EXPECT_EQ(complaintOf("### `A`\n\nWords\n"), "line 3: expected `id`, level, `source`");
  EXPECT_EQ(complaintOf("### `A`\n\na, error, `x`\n"), "line 3: expected `id`, level, `source`");
  EXPECT_EQ(complaintOf("### `A`\n\n`a`, error\n"), "line 3: expected `id`, level, `source`");
  EXPECT_EQ(complaintOf("### `A`\n\n`a`, note, `x`\n"),
            "line 3: no level is named note; there are error, warning and line");
  EXPECT_EQ(complaintOf("### `A`\n\n\n## B\n"), "line 1: an entry without `id`, level, `source`");
  EXPECT_EQ(complaintOf(kHead + "Words\n"),
            "line 5: expected a label, \"- **Means**: ...\", or a line indented by two blanks");
  EXPECT_EQ(complaintOf(kHead + "  words\n"), "line 5: words that belong to no label");
  EXPECT_EQ(complaintOf(kHead + "- **Note**: n\n"), "line 5: no label is named Note");
}

TEST(BadPage, IdsAreOfOneForm) {
  for (const char* id : {"A", "a--b", "-a", "a-", "a b", "a_b"}) {
    EXPECT_EQ(complaintOf("### `A`\n\n`" + std::string(id) + "`, line, `x`\n"),
              "line 3: an id is words of small letters and digits with hyphens between them");
  }
}

TEST(BadPage, IdsAndTextsAreUnique) {
  EXPECT_EQ(complaintOf(kWhole + "### `B`\n\n`a`, error, `x`\n"),
            "line 10: another entry has the id a");
  EXPECT_EQ(complaintOf(kWhole + "### `A`\n\n`b`, error, `x`\n"),
            "line 10: another entry has this text and level");
}

TEST(BadPage, PartsAreThereAndInOrder) {
  const std::string order =
      " is not at its place: Means, Cause, Remedy, then See it or Never given";
  EXPECT_EQ(complaintOf(kHead + "- **Cause**: c\n"), "line 5: Cause" + order);
  EXPECT_EQ(complaintOf(kHead + "- **Means**: m\n- **Means**: m\n"), "line 6: Means" + order);
  EXPECT_EQ(complaintOf(kWhole + "- **See it**: `s`\n- **Never given**: n\n"),
            "line 9: Never given" + order);
  EXPECT_EQ(complaintOf(kHead + "- **Means**: m\n"), "line 1: an entry without Cause");
  EXPECT_EQ(complaintOf(kHead + "- **Means**:\n- **Cause**: c\n- **Remedy**: r\n"),
            "line 1: an entry without Means");
  EXPECT_EQ(complaintOf(kWhole + "- **See it**:\n"), "line 1: an entry without See it");
}

}  // namespace
}  // namespace velto::catalogue
