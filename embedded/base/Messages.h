// SPDX-License-Identifier: Apache-2.0
//
// Messages: the warnings and errors that wait in a provider or consumer until somebody asks.

#ifndef VELTO_EMBEDDED_BASE_MESSAGES_H
#define VELTO_EMBEDDED_BASE_MESSAGES_H

#include <string>
#include <vector>

namespace velto::base {

/// Two lists of texts, oldest first. A text is kept behind its prefix and handed out once.
class Messages {
 public:
  /// Adds a message; the prefix "Warning:\n\t" or "Error:\n\t" is put in front.
  void addWarning(const std::string& text) { warnings_.push_back("Warning:\n\t" + text); }
  void addError(const std::string& text) { errors_.push_back("Error:\n\t" + text); }

  bool hasWarning() const { return !warnings_.empty(); }
  bool hasError() const { return !errors_.empty(); }

  /// The waiting messages; with `take` they do not wait any longer.
  std::vector<std::string> warnings(bool take) { return handOut(warnings_, take); }
  std::vector<std::string> errors(bool take) { return handOut(errors_, take); }

 private:
  static std::vector<std::string> handOut(std::vector<std::string>& list, bool take) {
    if (!take) {
      return list;
    }
    std::vector<std::string> taken;
    taken.swap(list);
    return taken;
  }

  std::vector<std::string> warnings_;
  std::vector<std::string> errors_;
};

}  // namespace velto::base

#endif  // VELTO_EMBEDDED_BASE_MESSAGES_H
