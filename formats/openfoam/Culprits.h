// SPDX-License-Identifier: Apache-2.0
//
// Culprits: names the wrong entries of a mesh, at most ten of a kind, and counts the rest.

#ifndef VELTO_FORMATS_OPENFOAM_CULPRITS_H
#define VELTO_FORMATS_OPENFOAM_CULPRITS_H

#include <cstdint>
#include <string>
#include <vector>

namespace velto::openfoam {

/// One kind of defect, such as "node labels out of range". Adding is cheap, so that it can be done
/// in the loops over all entries: the text is made only while there is room for it.
class Culprits {
 public:
  static constexpr std::uint64_t kNamed = 10;

  /// `summary` tells the rest when there were more than kNamed: "faces with a node label out of
  /// range".
  Culprits(std::string file, std::string summary)
      : file_(std::move(file)), summary_(std::move(summary)) {}

  /// Adds a culprit; `describe` gives its text without the file's name.
  template <class Describe>
  void add(const Describe& describe) {
    if (++count_ <= kNamed) {
      named_.push_back(file_ + ": " + describe());
    }
  }

  std::uint64_t count() const { return count_; }

  /// Appends what was found to `warnings`.
  void appendTo(std::vector<std::string>& warnings) const {
    warnings.insert(warnings.end(), named_.begin(), named_.end());
    if (count_ > kNamed) {
      warnings.push_back(file_ + ": " + std::to_string(count_) + " " + summary_ + " in all");
    }
  }

 private:
  std::string file_;
  std::string summary_;
  std::uint64_t count_ = 0;
  std::vector<std::string> named_;
};

/// A 1-based id as the label that stands in the file.
inline std::string labelText(std::uint64_t id) {
  return std::to_string(static_cast<std::int64_t>(id - 1));
}

/// "0 to 26", or "none" for an empty range.
inline std::string rangeText(std::uint64_t count) {
  return count == 0 ? "none" : "0 to " + std::to_string(count - 1);
}

}  // namespace velto::openfoam

#endif  // VELTO_FORMATS_OPENFOAM_CULPRITS_H
