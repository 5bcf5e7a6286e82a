// SPDX-License-Identifier: Apache-2.0
//
// parsePage: line by line; what stands outside of entries is prose for readers of the page.

#include <algorithm>
#include <array>
#include <cstddef>
#include <set>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "catalogue/catalogue.h"

namespace velto::catalogue {

namespace {

bool startsWith(std::string_view text, std::string_view head) {
  return text.substr(0, head.size()) == head;
}

bool isKebabCase(std::string_view id) {
  const bool hasOthers =
      id.find_first_not_of("abcdefghijklmnopqrstuvwxyz0123456789-") != std::string_view::npos;
  return !id.empty() && !hasOthers && id.front() != '-' && id.back() != '-' &&
         id.find("--") == std::string_view::npos;
}

/// One thing that is told of an entry. They stand in this order; of the last two there is one or
/// none.
struct Part {
  std::string_view label;
  std::string Entry::*text;
};

constexpr std::array<Part, 5> kParts = {{{"Means", &Entry::means},
                                         {"Cause", &Entry::cause},
                                         {"Remedy", &Entry::remedy},
                                         {"See it", &Entry::seeIt},
                                         {"Never given", &Entry::never}}};
constexpr std::size_t kNeeded = 3;

class Parser {
 public:
  std::vector<Entry> parse(std::string_view page) {
    while (!page.empty()) {
      const std::size_t end = page.find('\n');
      ++number_;
      std::string_view line = page.substr(0, end);
      line = line.substr(0, line.find_last_not_of(" \t\r") + 1);
      take(line);
      page.remove_prefix(end == std::string_view::npos ? page.size() : end + 1);
    }
    endEntry();
    return std::move(entries_);
  }

 private:
  enum class Place { prose, heading, parts };

  [[noreturn]] void refuse(const std::string& reason) const { refuseAt(number_, reason); }

  [[noreturn]] static void refuseAt(std::size_t number, const std::string& reason) {
    throw std::runtime_error("line " + std::to_string(number) + ": " + reason);
  }

  void take(std::string_view line) {
    if (place_ == Place::prose && startsWith(line, "```")) {
      isFenced_ = !isFenced_;
    } else if (!isFenced_ && startsWith(line, "### ")) {
      beginEntry(line.substr(4));
    } else if (!isFenced_ && (startsWith(line, "## ") || startsWith(line, "# "))) {
      endEntry();
      section_ = line.substr(line.find(' ') + 1);
    } else if (place_ == Place::heading && !line.empty()) {
      takeFacts(line);
    } else if (place_ == Place::parts && !line.empty()) {
      takePart(line);
    }
  }

  void beginEntry(std::string_view heading) {
    endEntry();
    if (heading.size() < 3 || heading.front() != '`' || heading.back() != '`') {
      refuse("the heading of an entry is its text, in backticks");
    }
    entry_ = {};
    entry_.text = heading.substr(1, heading.size() - 2);
    entry_.section = section_;
    parts_ = 0;
    begin_ = number_;
    place_ = Place::heading;
  }

  /// "`id`, level, `source`".
  void takeFacts(std::string_view line) {
    static const std::array<std::pair<std::string_view, Level>, 3> kLevels = {
        {{"error", Level::error}, {"warning", Level::warning}, {"line", Level::line}}};
    const std::size_t first = line.find(", ");
    const std::size_t second = line.find(", ", first == std::string_view::npos ? first : first + 2);
    if (second == std::string_view::npos) {
      refuse("expected `id`, level, `source`");
    }
    entry_.id = unquoted(line.substr(0, first));
    entry_.source = unquoted(line.substr(second + 2));
    const std::string_view word = line.substr(first + 2, second - first - 2);
    const auto* const level = std::find_if(kLevels.begin(), kLevels.end(),
                                           [word](const auto& one) { return one.first == word; });
    if (level == kLevels.end()) {
      refuse("no level is named " + std::string(word) + "; there are error, warning and line");
    }
    entry_.level = level->second;
    if (!isKebabCase(entry_.id)) {
      refuse("an id is words of small letters and digits with hyphens between them");
    }
    if (!ids_.insert(entry_.id).second) {
      refuse("another entry has the id " + entry_.id);
    }
    if (!texts_.emplace(entry_.text, entry_.level).second) {
      refuse("another entry has this text and level");
    }
    place_ = Place::parts;
  }

  std::string unquoted(std::string_view word) const {
    if (word.size() < 3 || word.front() != '`' || word.back() != '`') {
      refuse("expected `id`, level, `source`");
    }
    return std::string(word.substr(1, word.size() - 2));
  }

  /// "- **Label**: words", or more words of the part before.
  void takePart(std::string_view line) {
    if (startsWith(line, "  ")) {
      if (parts_ == 0) {
        refuse("words that belong to no label");
      }
      std::string& text = entry_.*kParts.at(parts_ - 1).text;
      text += text.empty() ? "" : " ";
      text += line.substr(line.find_first_not_of(' '));
      return;
    }
    const std::size_t end = line.find("**:");
    if (!startsWith(line, "- **") || end == std::string_view::npos) {
      refuse("expected a label, \"- **Means**: ...\", or a line indented by two blanks");
    }
    const std::string_view label = line.substr(4, end - 4);
    const auto* const part = std::find_if(kParts.begin(), kParts.end(),
                                          [label](const Part& one) { return one.label == label; });
    if (part == kParts.end()) {
      refuse("no label is named " + std::string(label));
    }
    const auto index = static_cast<std::size_t>(part - kParts.begin());
    const bool isNext = index == parts_ || (parts_ == kNeeded && index > kNeeded);
    if (!isNext || parts_ > kNeeded) {
      refuse(std::string(label) +
             " is not at its place: Means, Cause, Remedy, then See it or Never given");
    }
    parts_ = index + 1;
    const std::string_view words = line.substr(end + 3);
    entry_.*part->text = words.substr(std::min(words.find_first_not_of(' '), words.size()));
  }

  void endEntry() {
    if (place_ != Place::prose) {
      if (place_ == Place::heading) {
        refuseAt(begin_, "an entry without `id`, level, `source`");
      }
      for (std::size_t i = 0; i < std::max(parts_, kNeeded); ++i) {
        const bool isAsked = i < kNeeded || i + 1 == parts_;
        if (isAsked && (entry_.*kParts.at(i).text).empty()) {
          refuseAt(begin_, "an entry without " + std::string(kParts.at(i).label));
        }
      }
      entries_.push_back(std::move(entry_));
    }
    place_ = Place::prose;
  }

  std::vector<Entry> entries_;
  std::set<std::string> ids_;
  std::set<std::pair<std::string, Level>> texts_;
  std::string section_;
  Entry entry_;
  std::size_t parts_ = 0;  ///< Behind the last of kParts that the entry has.
  std::size_t number_ = 0;
  std::size_t begin_ = 0;  ///< The line of the entry's heading.
  Place place_ = Place::prose;
  bool isFenced_ = false;
};

}  // namespace

std::vector<Entry> parsePage(std::string_view page) { return Parser().parse(page); }

}  // namespace velto::catalogue
