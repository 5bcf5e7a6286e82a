// SPDX-License-Identifier: Apache-2.0
//
// matchesOf: a pasted line is read in each way in which a message may stand in it, and every entry
// takes the first of these that fits.

#include <algorithm>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "catalogue/Pattern.h"
#include "catalogue/catalogue.h"

namespace velto::catalogue {

namespace {

constexpr std::string_view kWhite = " \t\n\v\f\r";

/// What may be a message within a line.
struct Reading {
  std::string_view text;
  std::optional<Level> level;  ///< As a word in front of it tells.
};

std::string_view trimmed(std::string_view text) {
  const std::size_t begin = text.find_first_not_of(kWhite);
  return begin == std::string_view::npos
             ? std::string_view()
             : text.substr(begin, text.find_last_not_of(kWhite) + 1 - begin);
}

/// Without the quotes around it, and a comma behind them as lists of JSON have it.
std::string_view unquoted(std::string_view text) {
  const bool hasComma = text.size() > 2 && text.back() == ',';
  const std::string_view quoted = hasComma ? text.substr(0, text.size() - 1) : text;
  const bool isQuoted = quoted.size() > 1 && quoted.front() == quoted.back() &&
                        std::string_view("\"'`").find(quoted.front()) != std::string_view::npos;
  return isQuoted ? trimmed(quoted.substr(1, quoted.size() - 2)) : text;
}

bool isOfWord(char c) {
  return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '_';
}

bool beginsWord(std::string_view text, std::size_t at) {
  return at == 0 || !isOfWord(text[at - 1]) || !isOfWord(text[at]);
}

/// Where a message may begin behind "step: ": a step is a word or nothing. Npos if there is none.
std::size_t behindStep(std::string_view text) {
  std::size_t at = 0;
  while (at < text.size() && isOfWord(text[at])) {
    ++at;
  }
  return text.substr(at, 2) == ": " ? at + 2 : std::string_view::npos;
}

/// Calls `look` with the places of a word in a text, the first few: a line may be nothing else.
template <class Look>
void forEachPlace(std::string_view text, std::string_view word, Look look) {
  constexpr int kMost = 8;
  std::size_t at = text.find(word);
  for (int i = 0; i < kMost && at != std::string_view::npos; ++i) {
    look(at);
    at = text.find(word, at + 1);
  }
}

void addEchoes(std::string_view line, std::string_view word, Level level,
               std::vector<Reading>& readings) {
  forEachPlace(line, word, [&](std::size_t at) {
    if (!beginsWord(line, at)) {
      return;
    }
    const std::string_view text = line.substr(at + word.size());
    const std::size_t behind = behindStep(text);
    if (behind != std::string_view::npos) {
      readings.push_back({text.substr(behind), level});
    }
    readings.push_back({text, level});
  });
}

/// Those behind "Error: " and "Warning: ", those behind "step : ", and the line itself.
std::vector<Reading> readingsOf(std::string_view line) {
  std::vector<Reading> readings;
  addEchoes(line, "Error: ", Level::error, readings);
  addEchoes(line, "Warning: ", Level::warning, readings);
  if (line.substr(0, 2) == ": ") {  // no step, and no blank since the line was trimmed
    readings.push_back({line.substr(2), std::nullopt});
  }
  forEachPlace(line, " : ", [&](std::size_t at) {
    if (at > 0 && isOfWord(line[at - 1])) {
      readings.push_back({line.substr(at + 3), std::nullopt});
    }
  });
  readings.push_back({line, std::nullopt});
  return readings;
}

/// The patterns of all entries, exactly and with white space squeezed.
struct Patterns {
  std::vector<Pattern> exact;
  std::vector<Pattern> wide;
};

const Patterns& patterns() {
  static const Patterns kAll = [] {
    Patterns made;
    for (const Entry& entry : entries()) {
      made.exact.emplace_back(entry.text);
      made.wide.emplace_back(squeezed(entry.text));
    }
    return made;
  }();
  return kAll;
}

struct Found {
  Match match;
  std::size_t weight = 0;
  std::optional<Level> told;

  bool agrees() const { return told && *told == match.entry->level; }
};

std::vector<Found> fitting(const std::vector<Pattern>& all, const std::vector<Reading>& readings) {
  std::vector<Found> found;
  for (std::size_t i = 0; i < all.size(); ++i) {
    Match match{&entries()[i], {}};
    const auto reading = std::find_if(readings.begin(), readings.end(), [&](const Reading& one) {
      return all[i].fits(one.text, match.values);
    });
    if (reading != readings.end()) {
      found.push_back({std::move(match), all[i].weight(), reading->level});
    }
  }
  return found;
}

/// The level that the last word in front of a message tells, whatever stands between.
std::optional<Level> levelTold(std::string_view front) {
  const std::size_t error = front.rfind("Error: ");
  const std::size_t warning = front.rfind("Warning: ");
  if (error == warning) {  // neither is there
    return std::nullopt;
  }
  const bool isWarning =
      error == std::string_view::npos || (warning != std::string_view::npos && warning > error);
  return isWarning ? Level::warning : Level::error;
}

/// Entries whose message begins somewhere in the line. One that begins with a value would have
/// fitted the whole.
std::vector<Found> fittingBehind(const std::vector<Pattern>& all, std::string_view line) {
  std::vector<Found> found;
  for (std::size_t i = 0; i < all.size(); ++i) {
    const Pattern& pattern = all[i];
    bool isFound = pattern.first().empty();
    forEachPlace(line, pattern.first(), [&](std::size_t at) {
      Match match{&entries()[i], {}};
      if (!isFound && beginsWord(line, at) && pattern.fits(line.substr(at), match.values)) {
        found.push_back({std::move(match), pattern.weight(), levelTold(line.substr(0, at))});
        isFound = true;
      }
    });
  }
  return found;
}

/// Best first, and of one text only those of the level that was told, if there are any.
std::vector<Match> ranked(std::vector<Found> found) {
  std::stable_sort(found.begin(), found.end(), [](const Found& a, const Found& b) {
    return a.weight != b.weight ? a.weight > b.weight : a.agrees() && !b.agrees();
  });
  std::vector<Match> matches;
  for (const Found& one : found) {
    const bool isOther =
        !one.agrees() && std::any_of(found.begin(), found.end(), [&one](const Found& better) {
          return better.agrees() && better.match.entry->text == one.match.entry->text;
        });
    if (!isOther) {
      matches.push_back(one.match);
    }
  }
  return matches;
}

}  // namespace

std::vector<Match> matchesOf(std::string_view line) {
  const std::string_view asGiven = trimmed(line);
  const std::string_view text = unquoted(asGiven);
  std::vector<Reading> readings = readingsOf(text);
  if (text.size() != asGiven.size()) {
    readings.push_back({asGiven, std::nullopt});
  }
  std::vector<Found> found = fitting(patterns().exact, readings);
  if (!found.empty()) {
    return ranked(std::move(found));
  }
  const std::string wide = squeezed(text);
  if (found = fitting(patterns().wide, readingsOf(wide)); !found.empty()) {
    return ranked(std::move(found));
  }
  if (found = fittingBehind(patterns().exact, text); found.empty()) {
    found = fittingBehind(patterns().wide, wide);
  }
  return ranked(std::move(found));
}

}  // namespace velto::catalogue
