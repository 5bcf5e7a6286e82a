// SPDX-License-Identifier: Apache-2.0
//
// matchesOf: a message is found in whatever somebody pastes.

#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "catalogue/catalogue.h"

namespace velto::catalogue {
namespace {

using Values = std::vector<std::string>;

/// A match as "level text", with its values in brackets.
std::string shown(const Match& match) {
  static const char* const kWords[] = {"error ", "warning ", "line "};
  std::string text = kWords[static_cast<int>(match.entry->level)] + match.entry->text;
  for (const std::string& value : match.values) {
    text += " [" + value + "]";
  }
  return text;
}

/// All matches of a line.
Values found(const std::string& line) {
  Values all;
  for (const Match& match : matchesOf(line)) {
    all.push_back(shown(match));
  }
  return all;
}

const Values kOverlap = {"error Overlapping <...> ranges [Face]"};
const Values kFullRange = {
    "error <...> zones do not cover the full range of declared <...>s [Face] [face]"};

/// The text of an entry with "7" in each of its places.
std::string filled(const Entry& entry) {
  std::string text = entry.text;
  for (std::size_t at = text.find("<...>"); at != std::string::npos; at = text.find("<...>", at)) {
    text.replace(at, 5, "7");
  }
  return text;
}

TEST(PastedLine, EveryMessageIsFoundInEveryForm) {
  for (const Entry& entry : entries()) {
    const std::string text = filled(entry);
    const std::string echo = entry.level == Level::warning ? "Warning: " : "Error: ";
    std::vector<std::string> lines = {text, "step : " + text, "  \"" + text + "\"\n"};
    if (entry.level != Level::line) {
      for (const char* step : {"step", ""}) {
        lines.push_back(std::string(echo).append(step).append(": ").append(text));
      }
      lines.push_back("solver.log:17: " + lines.back());
    }
    for (const std::string& line : lines) {
      const std::vector<Match> matches = matchesOf(line);
      ASSERT_FALSE(matches.empty()) << line;
      EXPECT_EQ(matches.front().entry->text, entry.text) << line;
      EXPECT_EQ(matches.front().values, Values(matches.front().values.size(), "7")) << line;
      if (line.find(echo) != std::string::npos && entry.level != Level::line &&
          text.find(echo) == std::string::npos) {
        EXPECT_EQ(matches.front().entry, &entry) << line;
      }
    }
  }
}

TEST(PastedLine, RecordedEchoedAndBareFormsAreRead) {
  EXPECT_EQ(found("Overlapping Face ranges"), kOverlap);
  EXPECT_EQ(found("checkFaceZones : Overlapping Face ranges"), kOverlap);
  EXPECT_EQ(found("Error: checkFaceZones: Overlapping Face ranges"), kOverlap);
  EXPECT_EQ(found("Error: Overlapping Face ranges"), kOverlap);
  EXPECT_EQ(found("Error: : Error: No such file / unreadable"),
            Values{"error Error: No such file / unreadable"});
  EXPECT_EQ(found(" : Error: No such file / unreadable"),
            Values{"error Error: No such file / unreadable"});
  EXPECT_EQ(found("Error: No such file / unreadable"),
            Values{"error Error: No such file / unreadable"});
}

TEST(PastedLine, ValuesInFrontDoNotTakeTheStep) {
  const std::string text = "Face zones do not cover the full range of declared faces";
  EXPECT_EQ(found(text), kFullRange);
  EXPECT_EQ(found("checkFaceZones : " + text), kFullRange);
  EXPECT_EQ(found("Error: checkFaceZones: " + text), kFullRange);
  EXPECT_EQ(found("12:00:03 [1] checkFaceZones : " + text), kFullRange);
}

TEST(PastedLine, ColonsMayStandInValues) {
  EXPECT_EQ(found("Region 'a : b: Error: c' not found."),
            Values{"error Region '<...>' not found. [a : b: Error: c]"});
}

TEST(PastedLine, BlanksAndQuotesAroundItAreDropped) {
  EXPECT_EQ(found(" \t Overlapping Face ranges \r\n"), kOverlap);
  EXPECT_EQ(found("\"Overlapping Face ranges\""), kOverlap);
  EXPECT_EQ(found("' checkFaceZones : Overlapping Face ranges '"), kOverlap);
  EXPECT_EQ(found("`Overlapping Face ranges`"), kOverlap);
  EXPECT_EQ(found("      \"checkFaceZones : Overlapping Face ranges\","), kOverlap);
  EXPECT_EQ(found("          \"message\": \"Overlapping Face ranges\""), kOverlap);
}

TEST(PastedLine, QuotesOfTheMessageStay) {
  EXPECT_EQ(found("Unable to define body 'x'"), Values{"error Unable to define body '<...>' [x]"});
}

TEST(PastedLine, WrappedLinesAreRead) {
  EXPECT_EQ(found("Error: checkFaceZones: Overlapping\n   Face  ranges"), kOverlap);
  EXPECT_EQ(found("Error: checkFaceZones:\nOverlapping Face ranges"), kOverlap);
  const Values blanks = {
      "error Cell zone [<...>] with  unexpected connectivity in <...>. [5] [restart]"};
  EXPECT_EQ(found("Cell zone [5] with  unexpected connectivity in restart."), blanks);
  EXPECT_EQ(found("Cell zone [5] with unexpected connectivity in restart."), blanks);
  EXPECT_EQ(found("Cell zone [5] with\nunexpected connectivity in\nrestart."), blanks);
}

TEST(PastedLine, AnythingMayStandInFront) {
  EXPECT_EQ(found("solver.log:17: Error: checkFaceZones: Overlapping Face ranges"), kOverlap);
  EXPECT_EQ(found("2026-11-22T12:00:03 Overlapping Face ranges"), kOverlap);
  EXPECT_EQ(found("[err] Error: rank 3: checkFaceZones: Overlapping Face ranges"), kOverlap);
  EXPECT_EQ(found("NonOverlapping Face ranges"), Values{});
}

TEST(PastedLine, TheWordInFrontDecidesBetweenLevels) {
  const std::string text = "ORV - a: line 3";
  const std::string error = "error ORV - <...> [a: line 3]";
  const std::string warning = "warning ORV - <...> [a: line 3]";
  EXPECT_EQ(found("checkVersion : " + text), (Values{error, warning}));
  EXPECT_EQ(found("Error: checkVersion: " + text), Values{error});
  EXPECT_EQ(found("Warning: checkVersion: " + text), Values{warning});
  EXPECT_EQ(found("x: Warning: rank 3: " + text), Values{warning});
  // There is no warning of this text: the error is what was meant.
  EXPECT_EQ(found("Warning: checkFaceZones: Overlapping Face ranges"), kOverlap);
}

TEST(PastedLine, MostCharactersThatAreNoValuesWin) {
  const Values both = found("Unable to build location model: Unable to define face 'f'.");
  ASSERT_EQ(both.size(), 1U);
  const Values fallback = found("ORV - Region 'x' not found.");
  ASSERT_EQ(fallback.size(), 2U);
  EXPECT_EQ(fallback[0], "error ORV - <...> [Region 'x' not found.]");
  const Values better = found("ORV - zones total range doesnt match [1,nmax]");
  ASSERT_EQ(better.size(), 3U);
  EXPECT_EQ(better[0], "error <...> zones total range doesnt match [1,nmax] [ORV -]");
}

TEST(PastedLine, MessagesOfTheLibraryAreTheirs) {
  EXPECT_EQ(
      found("Error: checkVersion: ORV - case/constant/polyMesh/boundary: line 15, expected ;"),
      Values{"error ORV - <...> [case/constant/polyMesh/boundary: line 15, expected ;]"});
}

TEST(PastedLine, LinesOfToolsThatLookLikeEchoesAreFound) {
  EXPECT_EQ(found("Warning: Unable to write settings for 'a/b"),
            Values{"line Warning: Unable to write settings for '<...> [a/b]"});
}

TEST(PastedLine, OtherTextsMatchNothing) {
  for (const char* line : {"", " ", "\"", "\"\"", "Error: ", "Error: checkFaceZones: ",
                           "box.orv: sound (0 errors, 0 warnings)", "\xff\xfe", "Face ranges"}) {
    EXPECT_EQ(found(line), Values{}) << line;
  }
}

TEST(PastedLine, LongLinesAreRead) {
  const std::string noise(1000000, 'x');
  EXPECT_EQ(found(noise), Values{});
  EXPECT_EQ(found(noise + " Error: checkFaceZones: Overlapping Face ranges"), kOverlap);
  std::string echoes;
  for (int i = 0; i < 100000; ++i) {
    echoes += "Error: a: ";
  }
  EXPECT_EQ(found(echoes), Values{});
}

}  // namespace
}  // namespace velto::catalogue
