// SPDX-License-Identifier: Apache-2.0
//
// Fault: one call that goes wrong, in the middle of a run that is sound otherwise.

#ifndef VELTO_TESTS_FAULTS_FAULT_H
#define VELTO_TESTS_FAULTS_FAULT_H

#include <functional>
#include <ostream>
#include <string>
#include <vector>

#include "testing/ScriptedLocationModel.h"
#include "testing/ScriptedProvider.h"

namespace velto::testing {

struct Fault {
  enum class Kind {
    none,
    throwsError,
    throwsNoMemory,
    postsErrors,  ///< Two of them.
    postsWarnings,
    findsNothing,     ///< Answered as if there were no case.
    givesNoList,      ///< Each such call gives an empty list, or says that there is no one value.
    deliversNothing,  ///< Each such read, whether it tells so or not.
    deliversHalf,
    breaksDown,  ///< These three are for location models: throws its text,
    isRefused,   ///< is not carried out,
    isDenied,    ///< is carried out and answered with false.
  };

  Kind kind = Kind::none;
  /// With its arguments; the nth of its text.
  std::string call;
  int nth = 1;

  friend std::ostream& operator<<(std::ostream& out, const Fault& fault);
};

/// What messages are posted, and what is thrown for lack of anything better.
inline const char* const kPostedError = "disk gone";
inline const char* const kPostedError2 = "and the spare one too";
inline const char* const kPostedWarning = "disk slow";
inline const char* const kThrown = "cable cut";

/// A fault of a kind for each of the calls that can have it. Calls of which a run may make any
/// number, and those of the classes that forward, are told apart by `isLeftOut`.
std::vector<Fault> faultsOf(
    const Transcript& calls, const std::vector<Fault::Kind>& kinds,
    const std::function<bool(const std::string& operation)>& isLeftOut = {});

/// Has a provider misbehave; does nothing for the kinds that are for location models.
void apply(const Fault& fault, ScriptedProvider& provider);

/// Has location models misbehave.
void apply(const Fault& fault, LocationModelScript& script);

/// What an exception that is being handled says of itself: "throws cable cut".
std::string thrownByFault();

/// Empty, or the first line in which two runs differ, with a few before it.
std::string differenceOf(const Transcript& expected, const Transcript& found);

/// A text as lines, each behind a word.
void addLines(Transcript& lines, const std::string& word, const std::string& text);
void addLines(Transcript& lines, const std::string& word, const std::vector<std::string>& texts);

}  // namespace velto::testing

#endif  // VELTO_TESTS_FAULTS_FAULT_H
