// SPDX-License-Identifier: Apache-2.0
//
// randomCopies: cases, providers and consumers that misbehave, and what is done with copiers.

#ifndef VELTO_TESTS_COPIER_RANDOM_COPIES_H
#define VELTO_TESTS_COPIER_RANDOM_COPIES_H

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "embedded/memory/Case.h"
#include "testing/Random.h"
#include "testing/ScriptedLocationModel.h"

namespace velto::testing {

/// One thing that a provider or a consumer does wrong.
struct Misdeed {
  enum class Kind {
    throwsError,
    throwsNumber,
    throwsNoMemory,
    postsError,
    postsWarning,
    findsNothing,  ///< The tables are empty while it is carried out.
    answersList,
    answersDelivered,
    deliversAtMost,  ///< Of reads that do not tell how much they delivered.
  };

  Kind kind = Kind::throwsError;
  /// By operation, or with arguments; nth from 1, 0 for each.
  std::string call;
  int nth = 0;
  std::vector<int> list;
  std::size_t delivered = 0;
};

struct RandomSource {
  std::shared_ptr<const memory::Case> served;
  bool isFile = true;
  /// The names of attributes have two more in front: "lost", which cannot be read, and "mute",
  /// which can but leaves the value alone.
  bool hasOddAttributes = false;
  std::vector<Misdeed> misdeeds;
};

struct RandomDestination {
  bool isFile = true;
  /// No more ids than this come from addPhases.
  std::optional<std::size_t> phaseLimit;
  /// Taken for every solver type.
  std::optional<std::string> solverType;
  std::vector<Misdeed> misdeeds;
};

/// One call on one of the copiers.
struct CopyStep {
  enum class Kind {
    make,       ///< By `texts`, or by default without any.
    makeLike,   ///< A copy of the copier of the first number.
    assign,     ///< The copier of the first number.
    setSource,  ///< That of the first number; null for -1.
    setDestination,
    setFormat,  ///< The format of the first number, and the files of `texts`.
    setSolverFormat,
    setCompression,
    setMode,
    setSwitch,   ///< The number of the switch, groups last, and what it gets.
    addElemIds,  ///< The zone, and the ids.
    removeElemIds,
    getElemIds,
    copy,
    copyCase,
    copyResults,
  };

  Kind kind = Kind::copy;
  std::size_t copier = 0;
  std::vector<int> numbers;
  std::vector<std::string> texts;
};

struct RandomCopies {
  std::array<RandomSource, 2> sources;
  /// The second also for what the factory makes.
  std::array<RandomDestination, 2> destinations;
  /// What every location model refuses.
  std::vector<ModelRefusal> refusals;
  std::vector<CopyStep> steps;
};

/// The format that the factory of a run has nothing for.
constexpr int kNoFormat = 7;

RandomCopies randomCopies(Random& random);
RandomCopies randomCopies(std::uint64_t seed);

// random_copy_case.cpp

/// Zones, families and results that go together or do not; small, since all values of a copy stand
/// in its transcript.
std::shared_ptr<const memory::Case> randomCaseToCopy(Random& random);

// random_copies_text.cpp

/// Steps and misdeeds, for a test that fails. What the cases hold is seen in the transcripts.
std::string textOf(const RandomCopies& drawn);
std::string textOf(const CopyStep& step);

}  // namespace velto::testing

#endif  // VELTO_TESTS_COPIER_RANDOM_COPIES_H
