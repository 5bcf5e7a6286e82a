// SPDX-License-Identifier: Apache-2.0
//
// What stands behind an OrvVariant in the embedded library, and how one is made.

#ifndef VELTO_EMBEDDED_BASE_ORV_VARIANT_STATE_H
#define VELTO_EMBEDDED_BASE_ORV_VARIANT_STATE_H

#include <string>
#include <utility>
#include <vector>

#include "data_access/OrvVariant.h"

namespace velto {

/// A string, or a list of strings. A variant without a state is "nothing".
struct OrvVariant::State {
  bool isList = false;
  std::string text;               ///< The value of a string.
  std::vector<std::string> list;  ///< The values of a list.

  static OrvVariant makeString(std::string text) {
    OrvVariant variant;
    variant.state_ = std::make_unique<State>(State{false, std::move(text), {}});
    return variant;
  }

  static OrvVariant makeList(std::vector<std::string> list) {
    OrvVariant variant;
    variant.state_ = std::make_unique<State>(State{true, {}, std::move(list)});
    return variant;
  }
};

}  // namespace velto

#endif  // VELTO_EMBEDDED_BASE_ORV_VARIANT_STATE_H
