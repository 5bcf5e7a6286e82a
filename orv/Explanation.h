// SPDX-License-Identifier: Apache-2.0
//
// Explanation: which messages of the catalogue stand in texts that a user pasted.

#ifndef VELTO_ORV_EXPLANATION_H
#define VELTO_ORV_EXPLANATION_H

#include <cstdint>
#include <istream>
#include <string>
#include <string_view>
#include <vector>

#include "catalogue/catalogue.h"

namespace velto::orv {

/// A text that was given as one message, or as an id.
struct ExplainedText {
  std::string text;
  std::vector<catalogue::Match>
      matches;  ///< More than one if nothing decides between their levels.
  std::vector<const catalogue::Entry*> near;  ///< What may have been meant, if nothing matches.
};

/// A message that stands in a log.
struct LoggedEntry {
  const catalogue::Entry* entry = nullptr;
  std::uint64_t lines = 0;
  std::vector<std::vector<std::string>> values;  ///< The first that differ from each other.
  bool hasMoreValues = false;

  static constexpr std::size_t kMostValues = 3;
};

class Explanation {
 public:
  /// An id, a message, or several lines of a log.
  void addText(const std::string& text);
  void addLog(std::istream& log);

  const std::vector<ExplainedText>& texts() const { return texts_; }
  /// In the order in which they came up.
  const std::vector<LoggedEntry>& logged() const { return logged_; }

  bool hasLog() const { return hasLog_; }
  std::uint64_t logLines() const { return logLines_; }  ///< Those with anything in them.
  std::uint64_t unknownLines() const { return unknownLines_; }

  /// Whether each text is a message, and the log holds one.
  bool isComplete() const;

 private:
  void addLine(std::string_view line);
  void log(const catalogue::Match& match);

  std::vector<ExplainedText> texts_;
  std::vector<LoggedEntry> logged_;
  bool hasLog_ = false;
  std::uint64_t logLines_ = 0;
  std::uint64_t unknownLines_ = 0;
};

}  // namespace velto::orv

#endif  // VELTO_ORV_EXPLANATION_H
