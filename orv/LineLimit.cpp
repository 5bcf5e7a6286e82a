// SPDX-License-Identifier: Apache-2.0
//
// LineLimit: lines are held back until they are whole, and counted by what they are without their
// numbers.

#include "orv/LineLimit.h"

#include <cctype>

#include "orv/shown_name.h"

namespace velto::orv {

namespace {

bool isDigit(char character) { return std::isdigit(static_cast<unsigned char>(character)) != 0; }

/// The line with "#" for each number.
std::string kindOf(const std::string& line) {
  std::string kind;
  for (std::size_t i = 0; i < line.size(); ++i) {
    if (!isDigit(line[i])) {
      kind += line[i];
    } else if (i == 0 || !isDigit(line[i - 1])) {
      kind += '#';
    }
  }
  return kind;
}

}  // namespace

// --- The buffer ---------------------------------------------------------------------------------

LineLimit::Buffer::int_type LineLimit::Buffer::overflow(int_type character) {
  if (!traits_type::eq_int_type(character, traits_type::eof())) {
    line_ += traits_type::to_char_type(character);
    endLine();
  }
  return traits_type::not_eof(character);
}

std::streamsize LineLimit::Buffer::xsputn(const char* text, std::streamsize size) {
  for (std::streamsize i = 0; i < size; ++i) {
    line_ += text[i];
    endLine();
  }
  return size;
}

/// A line of progress has no end: it is written over by the next one.
int LineLimit::Buffer::sync() {
  if (!line_.empty() && line_.front() == '\r') {
    pass();
  }
  return target_->pubsync();
}

void LineLimit::Buffer::pass() {
  target_->sputn(line_.data(), static_cast<std::streamsize>(line_.size()));
  line_.clear();
}

void LineLimit::Buffer::endLine() {
  if (line_.back() != '\n') {
    return;
  }
  if (line_.front() != '\r') {  // progress, which has control characters of its own
    line_.pop_back();
    line_ = shownText(line_) + "\n";
  }
  if (most_ == kNone) {
    pass();
    return;
  }
  const auto [found, isNew] = positions_.emplace(kindOf(line_), kinds_.size());
  if (isNew) {
    kinds_.emplace_back();
  }
  Kind& kind = kinds_[found->second];
  if (kind.shown < most_) {
    ++kind.shown;
    kind.hidden.like = line_.substr(0, line_.size() - 1);
    pass();
    return;
  }
  if (kind.hidden.like.empty()) {
    kind.hidden.like = line_.substr(0, line_.size() - 1);
  }
  ++kind.hidden.count;
  line_.clear();
}

std::vector<LineLimit::LeftOut> LineLimit::Buffer::leftOut() const {
  std::vector<LeftOut> all;
  for (const Kind& kind : kinds_) {
    if (kind.hidden.count != 0) {
      all.push_back(kind.hidden);
    }
  }
  return all;
}

// --- The limit ----------------------------------------------------------------------------------

LineLimit::LineLimit(std::ostream& stream, std::uint64_t most)
    : stream_(stream), before_(stream.rdbuf()), buffer_(before_, most) {
  stream_.rdbuf(&buffer_);
}

LineLimit::~LineLimit() {
  buffer_.pass();
  stream_.rdbuf(before_);
}

std::vector<LineLimit::LeftOut> LineLimit::leftOut() const { return buffer_.leftOut(); }

}  // namespace velto::orv
