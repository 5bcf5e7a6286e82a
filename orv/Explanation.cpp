// SPDX-License-Identifier: Apache-2.0
//
// Explanation: texts against the catalogue, and what is near to those that are in none.

#include "orv/Explanation.h"

#include <algorithm>
#include <cctype>
#include <cstddef>
#include <set>
#include <sstream>
#include <utility>

#include "orv/near_name.h"

namespace velto::orv {

namespace {

using catalogue::Entry;
using catalogue::Match;

bool isBlank(std::string_view text) {
  return text.find_first_not_of(" \t\n\v\f\r") == std::string_view::npos;
}

/// The best match, and those of the same text.
std::vector<Match> bestOf(std::string_view text) {
  std::vector<Match> matches = catalogue::matchesOf(text);
  const auto isOther = [&matches](const Match& one) {
    return one.entry->text != matches.front().entry->text;
  };
  matches.erase(std::find_if(matches.begin(), matches.end(), isOther), matches.end());
  return matches;
}

// --- What may have been meant -------------------------------------------------------------------

/// Words in small letters, of three letters and more.
std::set<std::string> wordsOf(std::string_view text) {
  std::set<std::string> words;
  std::string word;
  const auto end = [&words, &word] {
    if (word.size() > 2) {
      words.insert(word);
    }
    word.clear();
  };
  for (const char c : text) {
    const auto byte = static_cast<unsigned char>(c);
    if (std::isalpha(byte) != 0) {
      word += static_cast<char>(std::tolower(byte));
    } else {
      end();
    }
  }
  end();
  return words;
}

/// Whether a word is among others; a long one may be misspelt, or the beginning of another.
bool isAmong(const std::string& word, const std::set<std::string>& words) {
  constexpr std::size_t kLong = 5;
  if (words.count(word) != 0 || word.size() < kLong) {
    return words.count(word) != 0;
  }
  const auto next = words.lower_bound(word);
  return (next != words.end() && next->compare(0, word.size(), word) == 0) ||
         !nearNames(word, {words.begin(), words.end()}).empty();
}

/// How much of both is in the other, from 0 to 1.
double likeness(const std::set<std::string>& given, const std::set<std::string>& words) {
  const auto shared = std::count_if(given.begin(), given.end(), [&words](const std::string& word) {
    return isAmong(word, words);
  });
  return 2.0 * static_cast<double>(shared) / static_cast<double>(given.size() + words.size());
}

std::vector<const Entry*> nearEntries(const std::string& text) {
  constexpr std::size_t kMostRead = 400;
  constexpr std::size_t kMostNear = 3;
  constexpr double kLeast = 0.35;
  constexpr double kBesideBest = 0.6;
  std::vector<std::string> ids;
  for (const Entry& entry : catalogue::entries()) {
    ids.push_back(entry.id);
  }
  std::vector<const Entry*> near;
  const std::string begin = text.substr(0, kMostRead);
  for (const std::string& id : nearNames(begin, ids)) {
    near.push_back(catalogue::entryOfId(id));
  }
  if (!near.empty()) {
    return near;
  }
  const std::set<std::string> given = wordsOf(begin);
  std::vector<std::pair<double, const Entry*>> found;
  for (const Entry& entry : catalogue::entries()) {
    std::set<std::string> words = wordsOf(entry.text);
    words.merge(wordsOf(entry.id));
    const double value = likeness(given, words);
    if (value >= kLeast) {
      found.emplace_back(value, &entry);
    }
  }
  std::stable_sort(found.begin(), found.end(),
                   [](const auto& a, const auto& b) { return a.first > b.first; });
  for (const auto& [value, entry] : found) {
    if (near.size() < kMostNear && value >= kBesideBest * found.front().first) {
      near.push_back(entry);
    }
  }
  return near;
}

/// Whether a text holds several messages, one a line.
bool isLog(const std::string& text) {
  if (text.find('\n') == std::string::npos) {
    return false;
  }
  std::istringstream lines(text);
  int messages = 0;
  for (std::string line; messages < 2 && std::getline(lines, line);) {
    messages += catalogue::matchesOf(line).empty() ? 0 : 1;
  }
  return messages > 1;
}

}  // namespace

void Explanation::addText(const std::string& text) {
  if (isLog(text)) {
    std::istringstream lines(text);
    addLog(lines);
    return;
  }
  ExplainedText explained{text, {}, {}};
  if (const Entry* entry = catalogue::entryOfId(text); entry != nullptr) {
    explained.matches.push_back({entry, {}});
  } else {
    explained.matches = bestOf(text);
  }
  if (explained.matches.empty()) {
    explained.near = nearEntries(text);
  }
  texts_.push_back(std::move(explained));
}

void Explanation::addLog(std::istream& log) {
  hasLog_ = true;
  for (std::string line; std::getline(log, line);) {
    addLine(line);
  }
}

void Explanation::addLine(std::string_view line) {
  if (isBlank(line)) {
    return;
  }
  ++logLines_;
  const std::vector<Match> matches = bestOf(line);
  unknownLines_ += matches.empty() ? 1 : 0;
  for (const Match& match : matches) {
    log(match);
  }
}

void Explanation::log(const Match& match) {
  auto known = std::find_if(logged_.begin(), logged_.end(),
                            [&match](const LoggedEntry& one) { return one.entry == match.entry; });
  if (known == logged_.end()) {
    known = logged_.insert(known, LoggedEntry{match.entry, 0, {}, false});
  }
  ++known->lines;
  if (match.values.empty() ||
      std::find(known->values.begin(), known->values.end(), match.values) != known->values.end()) {
    return;
  }
  if (known->values.size() < LoggedEntry::kMostValues) {
    known->values.push_back(match.values);
  } else {
    known->hasMoreValues = true;
  }
}

bool Explanation::isComplete() const {
  return (!hasLog_ || !logged_.empty()) &&
         std::none_of(texts_.begin(), texts_.end(),
                      [](const ExplainedText& one) { return one.matches.empty(); });
}

}  // namespace velto::orv
