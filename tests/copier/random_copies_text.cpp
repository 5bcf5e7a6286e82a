// SPDX-License-Identifier: Apache-2.0
//
// Random copies as text: steps, and what both ends do wrong.

#include <array>

#include "testing/call_text.h"
#include "tests/copier/random_copies.h"

namespace velto::testing {

namespace {

std::string textOf(const Misdeed& misdeed) {
  std::string text = "  " + misdeed.call + " " + std::to_string(misdeed.nth);
  switch (misdeed.kind) {
    case Misdeed::Kind::throwsError:
      return text + " throws an error\n";
    case Misdeed::Kind::throwsNumber:
      return text + " throws a number\n";
    case Misdeed::Kind::throwsNoMemory:
      return text + " has no memory\n";
    case Misdeed::Kind::postsError:
      return text + " posts an error\n";
    case Misdeed::Kind::postsWarning:
      return text + " posts a warning\n";
    case Misdeed::Kind::findsNothing:
      return text + " finds nothing\n";
    case Misdeed::Kind::deliversAtMost:
      return text + " delivers " + std::to_string(misdeed.delivered) + "\n";
    case Misdeed::Kind::answersList:
      return text + " answers " + base::argumentText(misdeed.list) + "\n";
    default:
      return text + " answers " + std::to_string(misdeed.delivered) + "\n";
  }
}

std::string textOf(const std::vector<Misdeed>& misdeeds) {
  std::string text;
  for (const Misdeed& misdeed : misdeeds) {
    text += textOf(misdeed);
  }
  return text;
}

}  // namespace

std::string textOf(const CopyStep& step) {
  static const std::array<const char*, 16> kNames = {
      "make",           "makeLike",  "assign",          "setSource",
      "setDestination", "setFormat", "setSolverFormat", "setCompression",
      "setMode",        "setSwitch", "addElemIds",      "removeElemIds",
      "getElemIds",     "copy",      "copyCase",        "copyResults"};
  return "copier " + std::to_string(step.copier) + ": " +
         callText(kNames.at(static_cast<std::size_t>(step.kind)), step.numbers, step.texts);
}

std::string textOf(const RandomCopies& drawn) {
  std::string text;
  for (const RandomSource& source : drawn.sources) {
    text += std::string("source, ") + (source.isFile ? "a file" : "no file") +
            (source.hasOddAttributes ? ", odd attributes\n" : "\n") + textOf(source.misdeeds);
  }
  for (const RandomDestination& destination : drawn.destinations) {
    text += std::string("destination, ") + (destination.isFile ? "a file" : "no file");
    if (destination.phaseLimit) {
      text += ", at most " + std::to_string(*destination.phaseLimit) + " phases";
    }
    if (destination.solverType) {
      text += ", solver type '" + *destination.solverType + "'";
    }
    text += "\n" + textOf(destination.misdeeds);
  }
  for (const ModelRefusal& refusal : drawn.refusals) {
    text += "models " + std::string(refusal.isDenied ? "deny " : "refuse ") + refusal.call + " " +
            std::to_string(refusal.nth) + "\n";
  }
  for (const CopyStep& step : drawn.steps) {
    text += textOf(step) + "\n";
  }
  return text;
}

}  // namespace velto::testing
