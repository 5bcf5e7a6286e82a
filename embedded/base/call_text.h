// SPDX-License-Identifier: Apache-2.0
//
// callText: a call with its arguments as one line, for those who watch.

#ifndef VELTO_EMBEDDED_BASE_CALL_TEXT_H
#define VELTO_EMBEDDED_BASE_CALL_TEXT_H

#include <cstddef>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

namespace velto::base {

/// A buffer that a call brings, to be written out with its values.
template <class Value>
struct Buffer {
  const Value* data = nullptr;
  std::size_t size = 0;
};

template <class Value>
Buffer<Value> bufferOf(const Value* data, std::size_t size) {
  return {data, size};
}

/// The shortest text that reads back as the same number.
std::string argumentText(double value);
std::string argumentText(bool value);
std::string argumentText(const std::string& value);
std::string argumentText(const std::pair<std::string, std::string>& entry);

/// An integer, or an enumerator as one.
template <class Number,
          class = std::enable_if_t<std::is_integral_v<Number> || std::is_enum_v<Number>>>
std::string argumentText(Number value) {
  if constexpr (std::is_enum_v<Number>) {
    return std::to_string(static_cast<int>(value));
  } else {
    return std::to_string(value);
  }
}

/// A list of values: "[1, 2]".
template <class Iterator>
std::string rangeText(Iterator begin, Iterator end) {
  std::string text = "[";
  for (Iterator next = begin; next != end; ++next) {
    text += (next == begin ? "" : ", ") + argumentText(*next);
  }
  return text + "]";
}

template <class Value>
std::string argumentText(const std::vector<Value>& values) {
  return rangeText(values.begin(), values.end());
}

/// "[1, 2]", or "null of 2" for a buffer that is not there.
template <class Value>
std::string argumentText(const Buffer<Value>& buffer) {
  if (buffer.data == nullptr) {
    return "null of " + std::to_string(buffer.size);
  }
  return rangeText(buffer.data, buffer.data + buffer.size);
}

template <class... Arguments>
std::string callText(const std::string& operation, const Arguments&... arguments) {
  std::string text = operation + "(";
  [[maybe_unused]] const char* separator = "";
  ((text += separator + argumentText(arguments), separator = ", "), ...);
  return text + ")";
}

}  // namespace velto::base

#endif  // VELTO_EMBEDDED_BASE_CALL_TEXT_H
