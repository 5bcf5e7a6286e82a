// SPDX-License-Identifier: Apache-2.0
//
// Random builds: of any zones and with any refusals, the builder does what the plain builder does.
//
// A longer run takes other seeds: VELTO_RANDOM_CASES="FIRST COUNT" in the environment.

#include <cctype>
#include <cstdint>
#include <gtest/gtest.h>
#include <set>
#include <string>

#include "testing/random_seeds.h"
#include "tests/location_model/PlainBuilder.h"
#include "tests/location_model/builder_run.h"
#include "tests/location_model/random_zones.h"

namespace velto::testing {
namespace {

constexpr std::uint64_t kUsualCases = 2000;

template <class Builder>
Built built(const RandomBuild& drawn) {
  Builder builder;
  OrvLocationModel model;
  return runBuilder(builder, model, drawn.served, drawn.preparation());
}

std::string textOf(const Built& built) {
  return lines(built.calls) + lines(built.errors) + (built.good ? "true\n" : "false\n") +
         built.model;
}

TEST(RandomBuilds, AreThoseOfThePlainBuilder) {
  const Seeds seeds = seedsToTry(kUsualCases);
  for (std::uint64_t seed = seeds.first; seed - seeds.first < seeds.count; ++seed) {
    const RandomBuild drawn = randomBuild(seed);
    const Built expected = built<PlainBuilder>(drawn);
    const Built found = built<LocationModelBuilder>(drawn);
    if (!(expected == found)) {
      FAIL() << "seed " << seed << "\n--- expected\n"
             << textOf(expected) << "--- found\n"
             << textOf(found);
    }
  }
}

// --- What they reach ----------------------------------------------------------------------------

/// A message without names and without numbers of zones.
std::string withoutNames(const std::string& message) {
  const std::size_t open = message.find('\'');
  if (open == std::string::npos) {
    return message;
  }
  std::size_t number = open;
  while (number > 0 && std::isdigit(static_cast<unsigned char>(message[number - 1])) != 0) {
    --number;
  }
  if (number < open && number > 0 && message[number - 1] == '-') {
    --number;
  }
  const std::size_t close = message.rfind('\'');
  return message.substr(0, number) + (number < open ? "#" : "") + "''" + message.substr(close + 1);
}

/// What is seldom and can be told from the calls.
Texts rareThings(const Built& built) {
  Texts things;
  for (std::size_t i = 0; i < built.calls.size(); ++i) {
    const std::string& call = built.calls[i];
    const std::string before = i == 0 ? "" : operationOf(built.calls[i - 1]);
    if (operationOf(call) == "getFaceCell1") {
      things.emplace_back("a face was read");
    }
    if (operationOf(call) == "setFaceUseZoneSides" && before == "getFaceSides") {
      things.emplace_back("a zone went to an earlier use");
    }
    if (operationOf(call) == "getFaceSides" && before != "findFace" && before != "createFace") {
      things.emplace_back("a linked pair shared a face");
    }
    if (operationOf(call) == "setFaceUseName" && call.find("-shadow)") != std::string::npos) {
      things.emplace_back("a use was named after a shadow");
    }
  }
  if (built.good && !built.calls.empty()) {
    things.emplace_back("a build went through");
  }
  return things;
}

/// A generator that no longer reaches something would let its rule go untested.
TEST(RandomBuilds, BringAboutEveryMessageOfTheBuilderThatACaseCan) {
  std::set<std::string> missing = {
      "Unable to build location model: There are no face zones defined in the mesh model.",
      "Unable to build location model: There are no cell zones defined in the mesh model.",
      "Unable to define body ''",
      "Unable to build location model: Unable to set the zones associated with the body ''.",
      "Unable to build location model: Unable to define face ''.",
      "Unable to build location model: Unable to define face use on side 0 of ''.",
      "Unable to build location model: Unable to define face use on side 1 of ''.",
      "Unable to build location model: Cannot define face use for an invalid face side of ''.",
      "Unable to build location model: Unable to set the correct zone side for face use.",
      "Unable to build location model: Face zone #'' bounds mode than one cell zone on side 0.",
      "Unable to build location model: Face zone #'' bounds mode than one cell zone on side 1.",
      "a face was read",
      "a zone went to an earlier use",
      "a linked pair shared a face",
      "a use was named after a shadow",
      "a build went through"};
  for (std::uint64_t seed = 1; seed <= kUsualCases; ++seed) {
    const Built result = built<PlainBuilder>(randomBuild(seed));
    for (const std::string& error : result.errors) {
      missing.erase(withoutNames(error));
    }
    for (const std::string& thing : rareThings(result)) {
      missing.erase(thing);
    }
    if (missing.empty()) {
      return;
    }
  }
  EXPECT_EQ(Texts(missing.begin(), missing.end()), Texts());
}

}  // namespace
}  // namespace velto::testing
