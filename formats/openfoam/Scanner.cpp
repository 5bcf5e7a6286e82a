// SPDX-License-Identifier: Apache-2.0
//
// The text of a file. Nothing here is on the road of an ordinary list entry, which read_lists.cpp
// and read_faces.cpp take from the window by themselves; they come here for what is left.

#include "formats/openfoam/Scanner.h"

#include <algorithm>
#include <charconv>
#include <cstring>
#include <system_error>
#include <utility>

#include "formats/openfoam/characters.h"

namespace velto::openfoam {

namespace {

constexpr std::size_t kLongestToken = 1024;  // of a number; a longer one is none
constexpr std::size_t kLongestQuote = 30;

// from_chars leaves a number outside the range of double alone: large or small, that is the
// question.
double outOfRange(std::string_view text) {
  const double sign = text.front() == '-' ? -1.0 : 1.0;
  const std::size_t exponent = text.find_first_of("eE");
  const bool small = exponent != std::string_view::npos
                         ? text.substr(exponent + 1, 1) == "-"
                         : text.find_first_of("123456789") > text.find('.');
  return small ? sign * 0.0 : sign * std::numeric_limits<double>::infinity();
}

std::string visible(char c) {
  constexpr std::string_view kHexDigits = "0123456789abcdef";
  switch (c) {
    case '\n':
      return "\\n";
    case '\r':
      return "\\r";
    case '\t':
      return "\\t";
    case '\\':
    case '"':
      return {'\\', c};
    default:
      break;
  }
  if (isPrintable(c)) {
    return {c};
  }
  const auto code = static_cast<unsigned char>(c);
  return {'\\', 'x', kHexDigits[code / 16U], kHexDigits[code % 16U]};
}

}  // namespace

std::string quoted(std::string_view text) {
  std::string result = "\"";
  for (const char c : text.substr(0, kLongestQuote)) {
    result += visible(c);
  }
  return result + (text.size() > kLongestQuote ? "\"..." : "\"");
}

Scanner::Scanner(const std::string& file, ByteSource::OnRead onRead, std::uint64_t limit)
    : bytes_(file, std::move(onRead), limit) {}

int Scanner::here() {
  if (bytes_.begin() == bytes_.end() && !bytes_.refill()) {
    return kEnd;
  }
  return static_cast<unsigned char>(*bytes_.begin());
}

int Scanner::next() {
  for (;;) {
    const char* p = bytes_.begin();
    while (isBlank(*p)) {
      ++p;
    }
    bytes_.moveTo(p);
    if (p == bytes_.end()) {
      if (!bytes_.refill()) {
        return kEnd;
      }
    } else if (atComment()) {
      skipComment();
    } else {
      return static_cast<unsigned char>(*bytes_.begin());
    }
  }
}

bool Scanner::atComment() {
  if (*bytes_.begin() != '/') {
    return false;
  }
  if (bytes_.end() - bytes_.begin() < 2) {
    bytes_.refill();
  }
  const char second = bytes_.begin()[1];  // a NUL at the end of the file
  return second == '/' || second == '*';
}

void Scanner::skipComment() {
  const Place begin = place();
  const bool toLineEnd = bytes_.begin()[1] == '/';
  bytes_.moveTo(bytes_.begin() + 2);
  char before = '\0';
  for (int c = here(); c != kEnd; c = here()) {
    const char* p = bytes_.begin();
    const char* const end = bytes_.end();
    const char last = toLineEnd ? '\n' : '/';
    p = static_cast<const char*>(std::memchr(p, last, static_cast<std::size_t>(end - p)));
    if (p != nullptr) {
      before = p == bytes_.begin() ? before : p[-1];
      bytes_.moveTo(p + 1);
      if (toLineEnd || before == '*') {
        return;
      }
      before = '/';
    } else {
      before = end[-1];
      bytes_.moveTo(end);
    }
  }
  if (!toLineEnd) {
    fail(begin, "a comment that ends with */", "the end of the file");
  }
}

bool Scanner::accept(char c) {
  if (next() != static_cast<unsigned char>(c)) {
    return false;
  }
  advance();
  return true;
}

void Scanner::expect(char c, const std::string& expected) {
  if (!accept(c)) {
    fail(expected);
  }
}

void Scanner::expectEnd(const std::string& expected) {
  if (next() != kEnd) {
    fail(expected);
  }
}

std::optional<std::int64_t> Scanner::integer() {
  next();
  std::string_view text = token();
  if (text.size() > 1 && text.front() == '+' && isDigit(text[1])) {
    text.remove_prefix(1);
  }
  std::int64_t value = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
  if (error != std::errc() || end != text.data() + text.size()) {
    return std::nullopt;
  }
  bytes_.moveTo(end);
  return value;
}

std::optional<std::uint64_t> Scanner::naturalNumber() {
  if (next() == '-') {
    return std::nullopt;
  }
  const std::optional<std::int64_t> value = integer();
  return value ? std::make_optional(static_cast<std::uint64_t>(*value)) : std::nullopt;
}

std::optional<double> Scanner::real() {
  next();
  std::string_view text = token();
  if (text.size() > 1 && text.front() == '+' && text[1] != '-') {
    text.remove_prefix(1);
  }
  double value = 0.0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
  if (error == std::errc::invalid_argument || end != text.data() + text.size()) {
    return std::nullopt;
  }
  bytes_.moveTo(end);
  return error == std::errc() ? value : outOfRange(text);
}

std::string_view Scanner::token() {
  std::size_t length = 0;
  for (;;) {
    const char* const p = bytes_.begin();
    const auto held = static_cast<std::size_t>(bytes_.end() - p);
    const std::size_t most = std::min(held, kLongestToken);
    while (length < most && !endsToken(p[length])) {
      ++length;
    }
    if (length < held || length == kLongestToken || !bytes_.refill()) {
      break;
    }
  }
  return {bytes_.begin(), length < kLongestToken ? length : 0};
}

Place Scanner::place() { return {bytes_.line(), bytes_.offset()}; }

void Scanner::fail(const std::string& expected) {
  next();
  failHere(expected);
}

void Scanner::failHere(const std::string& expected) {
  const Place at = place();
  fail(at, expected, found());
}

void Scanner::fail(const Place& place, const std::string& expected, const std::string& found) {
  throw ReadError(file(), place, expected, found);
}

// What stands at the present position, in words.
std::string Scanner::found() {
  const int first = here();
  if (first == kEnd) {
    return "the end of the file";
  }
  const std::string_view text = token();
  if (text.empty()) {
    const bool punctuation = endsToken(static_cast<char>(first));
    return quoted({bytes_.begin(), punctuation ? 1 : kLongestToken});
  }
  std::int64_t value = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
  const bool tooLarge = error == std::errc::result_out_of_range && end == text.data() + text.size();
  return quoted(text) + (tooLarge ? ", which does not fit into 64 bits" : "");
}

}  // namespace velto::openfoam
