// SPDX-License-Identifier: Apache-2.0
//
// Random cases: sound ones give no message, and all others are judged as by the plain checker.
//
// A longer run takes other seeds: VELTO_RANDOM_CASES="FIRST COUNT" in the environment.

#include <cctype>
#include <cstdint>
#include <cstdlib>
#include <set>
#include <sstream>
#include <string>

#include "testing/random_case.h"
#include "tests/checker/CheckerFixture.h"
#include "tests/checker/random_scenario.h"

namespace velto::testing {
namespace {

constexpr std::uint64_t kSoundCases = 300;

struct Seeds {
  std::uint64_t first = 1;
  std::uint64_t count = 2000;
};

Seeds seedsToTry() {
  Seeds seeds;
  if (const char* const words = std::getenv("VELTO_RANDOM_CASES")) {
    std::istringstream text(words);
    EXPECT_TRUE(text >> seeds.first >> seeds.count) << words;
  }
  return seeds;
}

/// A message without its numbers: "#" stands for each that is no end of a word.
std::string withoutNumbers(const std::string& message) {
  std::string text;
  const auto isDigit = [&message](std::size_t at) {
    return at < message.size() && std::isdigit(static_cast<unsigned char>(message[at])) != 0;
  };
  for (std::size_t at = 0; at < message.size(); ++at) {
    const bool inWord = !text.empty() && std::isalpha(static_cast<unsigned char>(text.back())) != 0;
    if (inWord || !(isDigit(at) || (message[at] == '-' && isDigit(at + 1)))) {
      text += message[at];
      continue;
    }
    text += '#';
    while (isDigit(at + 1)) {
      ++at;
    }
  }
  return text;
}

/// Every message of the zone checks that a case can bring about.
const Texts& zoneMessages() {
  static const Texts kMessages = {
      "checkMeshConnectivity : No face zones bound cell zone [#]",
      "checkMeshConnectivity : Cell zone [#] is bounded by Face zones in ORV Post mesh (#).",
      "checkMeshConnectivity : Cell zone [#] is bounded by Face zones in ORV Partitioned Post mesh (#) and partition (#).",
      "checkMeshConnectivity : Cell zone [#] is bounded by a Face zone [#] that doesn't exist.",
      "checkMeshConnectivity : Face zone [#] found to bound cell zones in a ORV Post mesh (#).",
      "checkMeshConnectivity : Face zone [#] found to bound cell zones in a ORV Partitioned Post mesh (#) and partition (#).",
      "checkMeshConnectivity : Face zone [#] bounds Cell zone [#] that doesn't exist.",
      "checkCellZoneConnectivityTypes : Polyhedral cell zone (#) doesn't have correct type.",
      "checkCellZoneConnectivityTypes : Cell zone [#] with  unexpected connectivity in ORV Post mesh (#).",
      "checkCellZoneConnectivityTypes : Cell zone [#] with  unexpected connectivity in ORV Partitioned Post mesh (#) and partition (#).",
      "checkCellZoneConnectivityTypes : Cell zone [#] with  unexpected connectivity in Unknown mesh (#).",
      "checkNodeZones : Non-zero node count and no node zones",
      "checkNodeZones : Non-zero node zones with no global node count",
      "checkNodeZones : Error in zone size / start / end",
      "checkNodeZones : Empty Node zone name",
      "checkNodeZones : Overlapping Node ranges",
      "checkNodeZones : Node zones do not cover the full range of declared Nodes",
      "checkNodeZones : Mismatch in Node zones content and total number of Nodes",
      "checkNodeZones : Node zones total range doesnt match [#,nmax]",
      "checkFaceZones : Non-zero face count and no face zones",
      "checkFaceZones : Non-zero face zones with no global face count",
      "checkFaceZones : Error in zone size / start / end",
      "checkFaceZones : Empty Face zone name",
      "checkFaceZones : Overlapping Face ranges",
      "checkFaceZones : Face zones do not cover the full range of declared Faces",
      "checkFaceZones : Mismatch in Face zones content and total number of Faces",
      "checkFaceZones : Face zones total range doesnt match [#,nmax]",
      "checkFaceZones : Zone dimension inconsistent with mesh dimension",
      "checkFaceZones : Invalid face zone type",
      "checkFaceZones : Face type was not set",
      "checkFaceZones : Invalid face type",
      "checkFaceZones : Face zone child zone id invalid",
      "checkFaceZones : Face zone parent0 zone id invalid",
      "checkFaceZones : Face zone parent1 zone id invalid",
      "checkFaceZones : Face zone shadow zone id invalid",
      "checkFaceZones : Face zone shadow link is not bilateral",
      "checkCellZones : Non-zero cell count and no cell zones",
      "checkCellZones : Non-zero cell zones with no global cell count",
      "checkCellZones : Error in zone size / start / end",
      "checkCellZones : Empty Cell zone name",
      "checkCellZones : Overlapping Cell ranges",
      "checkCellZones : Cell zones do not cover the full range of declared Cells",
      "checkCellZones : Mismatch in Cell zones content and total number of Cells",
      "checkCellZones : Cell zones total range doesnt match [#,nmax]",
      "checkCellZones : Zone dimension inconsistent with mesh dimension",
      "checkCellZones : Cell type was not set - mandatory for a face-node zone",
      "checkCellZones : Cell type was not set",
      "checkCellZones : Invalid cell type",
      "checkCellZones : Cell zone child zone id invalid"};
  return kMessages;
}

Texts expectedWarnings(const memory::Case& sound) {
  std::set<int> targets;
  for (const auto& mesh : sound.tables.meshes) {
    targets.insert(mesh.first.target);
  }
  return targets.size() < 2
             ? Texts()
             : Texts({"checkCase : ORV file with multiple target types - support is limited"});
}

using RandomCases = CheckerFixture;

TEST_F(RandomCases, SoundOnesGiveNoMessage) {
  for (std::uint64_t seed = 1; seed <= kSoundCases; ++seed) {
    SCOPED_TRACE("seed " + std::to_string(seed));
    Random random(seed);
    const auto sound = std::make_shared<memory::Case>(randomSoundCase(random));
    serve(sound);
    OrvChecker fresh;
    const CheckResult result = check(fresh, file.path());
    ASSERT_EQ(result.errors, Texts());
    ASSERT_EQ(result.warnings, expectedWarnings(*sound));
  }
}

TEST_F(RandomCases, AreJudgedAsByThePlainChecker) {
  const Seeds seeds = seedsToTry();
  for (std::uint64_t seed = seeds.first; seed - seeds.first < seeds.count; ++seed) {
    const Scenario scenario = randomScenario(seed);
    if (isJudgedDifferently(scenario)) {
      FAIL() << "seed " << seed << "\n" << describeDifference(shrunk(scenario));
    }
  }
}

/// A generator that no longer reaches a message would let its rule go untested.
TEST_F(RandomCases, BringAboutEveryMessageOfTheZoneChecks) {
  std::set<std::string> missing(zoneMessages().begin(), zoneMessages().end());
  const Seeds seeds;
  for (std::uint64_t seed = seeds.first; seed - seeds.first < seeds.count; ++seed) {
    const Judgement last = judgePlainly(randomScenario(seed)).back();
    for (const Texts* const messages : {&last.errors, &last.warnings}) {
      for (const std::string& message : *messages) {
        missing.erase(withoutNumbers(message));
      }
    }
    if (missing.empty()) {
      return;
    }
  }
  EXPECT_EQ(Texts(missing.begin(), missing.end()), Texts());
}

}  // namespace
}  // namespace velto::testing
