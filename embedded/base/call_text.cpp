// SPDX-License-Identifier: Apache-2.0
//
// callText: how the arguments of a call are written.

#include "embedded/base/call_text.h"

#include <array>
#include <charconv>

namespace velto::base {

std::string argumentText(double value) {
  std::array<char, 32> digits{};
  const auto written = std::to_chars(digits.data(), digits.data() + digits.size(), value);
  return {digits.data(), written.ptr};
}

std::string argumentText(bool value) { return value ? "true" : "false"; }

std::string argumentText(const std::string& value) { return value; }

std::string argumentText(const std::pair<std::string, std::string>& entry) {
  return entry.first + " = " + entry.second;
}

}  // namespace velto::base
