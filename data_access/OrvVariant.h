// SPDX-License-Identifier: Apache-2.0
//
// OrvVariant: the value of one settings entry.

#ifndef VELTO_DATA_ACCESS_ORV_VARIANT_H
#define VELTO_DATA_ACCESS_ORV_VARIANT_H

#include <memory>
#include <string>
#include <vector>

namespace velto {

/// Nothing, a string, or a list of strings, as it stands at a path of the settings. A value of its
/// own: it outlives the provider that gave it. Every conversion works on every value and none
/// throws for its kind.
class OrvVariant {
 public:
  /// What the data-access library keeps behind a value; declared here, defined by each library.
  struct State;

  /// Nothing: isValid() is false.
  OrvVariant();

  /// @name Copies
  /// @{

  /// A copy shares nothing with its original; what was moved from is nothing.
  OrvVariant(const OrvVariant& other);
  OrvVariant(OrvVariant&& other) noexcept;
  OrvVariant& operator=(const OrvVariant& other);
  OrvVariant& operator=(OrvVariant&& other) noexcept;

  /// @}

  ~OrvVariant();

  /// @name What it is
  /// @{

  /// False if nothing stands at the path that this came from.
  bool isValid() const;

  /// The entry as one string; a list is joined by commas, nothing gives "".
  std::string asString() const;

  /// The entry as a list; a string is taken apart at its commas ("inlet,outlet" gives two names),
  /// nothing gives an empty list.
  std::vector<std::string> asStringVector() const;

  /// The same as asStringVector(), for lists of object names.
  operator std::vector<std::string>() const;  // NOLINT(google-explicit-constructor): given.

  /// @}

 private:
  std::unique_ptr<State> state_;
};

}  // namespace velto

#endif  // VELTO_DATA_ACCESS_ORV_VARIANT_H
