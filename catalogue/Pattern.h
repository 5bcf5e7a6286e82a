// SPDX-License-Identifier: Apache-2.0
//
// Pattern: the text of an entry, in the pieces that stand between its values.

#ifndef VELTO_CATALOGUE_PATTERN_H
#define VELTO_CATALOGUE_PATTERN_H

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace velto::catalogue {

/// What stands for a value in the text of an entry.
inline constexpr std::string_view kValue = "<...>";

/// The text with one blank for each run of white space.
std::string squeezed(std::string_view text);

/// A message fits if it begins with the first piece, ends with the last, and has the others in
/// order between them. Values may be empty or hold anything. Inner pieces are taken where they come
/// first: that finds a way if there is one, without trying others.
class Pattern {
 public:
  explicit Pattern(std::string_view text);

  bool fits(std::string_view message) const { return fits(message, nullptr); }

  /// `values` gets what stands between the pieces; it is left as it is if the message does not fit.
  bool fits(std::string_view message, std::vector<std::string>& values) const {
    return fits(message, &values);
  }

  /// How many characters are no values.
  std::size_t weight() const { return weight_; }
  /// What a message begins with; "" if that is a value.
  const std::string& first() const { return pieces_.front(); }
  bool hasValues() const { return pieces_.size() > 1; }

 private:
  bool fits(std::string_view message, std::vector<std::string>* values) const;

  std::vector<std::string> pieces_;  ///< One more than there are values.
  std::size_t weight_ = 0;
};

}  // namespace velto::catalogue

#endif  // VELTO_CATALOGUE_PATTERN_H
