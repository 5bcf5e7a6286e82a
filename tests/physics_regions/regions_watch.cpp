// SPDX-License-Identifier: Apache-2.0
//
// What was observed of a resolver, as text.

#include "tests/physics_regions/regions_watch.h"

namespace velto::testing {

namespace {

void addLines(std::string& text, const std::string& title, const Texts& lines) {
  text += title + "\n";
  for (const std::string& line : lines) {
    text += "  " + line + "\n";
  }
}

}  // namespace

std::string textOf(const Watched& watched) {
  std::string text;
  addLines(text, "constructor", watched.calls);
  text += tableText(watched.table);
  addLines(text, "queries", watched.answersBefore);
  for (const WatchedResolving& resolving : watched.resolvings) {
    addLines(text, resolving.good ? "resolving: true" : "resolving: false", resolving.calls);
    addLines(text, "errors", resolving.errors);
    text += "out '" + resolving.out + "', err '" + resolving.err + "'\n";
    text += tableText(resolving.table);
  }
  addLines(text, "queries", watched.answersAfter);
  addLines(text, "all errors", watched.errors);
  return text + "streams '" + watched.streams + "'\n";
}

}  // namespace velto::testing
