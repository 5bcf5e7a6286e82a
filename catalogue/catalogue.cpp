// SPDX-License-Identifier: Apache-2.0
//
// The entries of the page, and the search for one by id or by a message as it was recorded.

#include "catalogue/catalogue.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <stdexcept>
#include <string>
#include <unordered_map>

#include "catalogue/Pattern.h"
#include "catalogue/page.h"

namespace velto::catalogue {

namespace {

/// The entries of one level, so that a message is held against few of them: a report may have a
/// million findings.
class LevelIndex {
 public:
  explicit LevelIndex(Level level) {
    for (const Entry& entry : entries()) {
      if (entry.level == level) {
        add(entry);
      }
    }
    const auto byWeight = [](const Candidate& a, const Candidate& b) {
      return a.pattern.weight() > b.pattern.weight();
    };
    std::stable_sort(open_.begin(), open_.end(), byWeight);
    for (auto& all : byFirst_) {
      std::stable_sort(all.begin(), all.end(), byWeight);
    }
  }

  const Entry* find(std::string_view message) const {
    const auto whole = whole_.find(message);
    if (whole != whole_.end()) {
      return whole->second;
    }
    const Candidate* begun =
        message.empty() ? nullptr : best(byFirst_.at(bucketOf(message)), message);
    const Candidate* open = best(open_, message);
    const bool isBegun =
        begun != nullptr && (open == nullptr || begun->pattern.weight() >= open->pattern.weight());
    const Candidate* found = isBegun ? begun : open;
    return found == nullptr ? nullptr : found->entry;
  }

 private:
  struct Candidate {
    Pattern pattern;
    const Entry* entry;
  };

  static std::size_t bucketOf(std::string_view text) {
    return static_cast<unsigned char>(text.front());
  }

  void add(const Entry& entry) {
    Pattern pattern(entry.text);
    if (!pattern.hasValues()) {
      whole_.emplace(entry.text, &entry);
    } else if (pattern.first().empty()) {
      open_.push_back({pattern, &entry});
    } else {
      byFirst_.at(bucketOf(pattern.first())).push_back({pattern, &entry});
    }
  }

  static const Candidate* best(const std::vector<Candidate>& sorted, std::string_view message) {
    const auto found = std::find_if(sorted.begin(), sorted.end(), [message](const Candidate& one) {
      return one.pattern.fits(message);
    });
    return found == sorted.end() ? nullptr : &*found;
  }

  std::unordered_map<std::string_view, const Entry*> whole_;
  std::array<std::vector<Candidate>, 256> byFirst_;
  std::vector<Candidate> open_;  ///< Those that begin with a value.
};

}  // namespace

const std::vector<Entry>& entries() {
  static const std::vector<Entry> kAll = [] {
    const std::string page(kPage, kPage + kPageSize);
    try {
      return parsePage(page);
    } catch (const std::runtime_error& error) {
      throw std::runtime_error(std::string("docs/MESSAGES.md: ") + error.what());
    }
  }();
  return kAll;
}

const Entry* entryOf(Level level, std::string_view message) {
  static const LevelIndex kErrors(Level::error);
  static const LevelIndex kWarnings(Level::warning);
  static const LevelIndex kLines(Level::line);
  const LevelIndex& index = level == Level::error     ? kErrors
                            : level == Level::warning ? kWarnings
                                                      : kLines;
  return index.find(message);
}

const Entry* entryOfId(std::string_view id) {
  static const auto kById = [] {
    std::unordered_map<std::string_view, const Entry*> all;
    for (const Entry& entry : entries()) {
      all.emplace(entry.id, &entry);
    }
    return all;
  }();
  const auto found = kById.find(id);
  return found == kById.end() ? nullptr : found->second;
}

}  // namespace velto::catalogue
