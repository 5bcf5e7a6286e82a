// SPDX-License-Identifier: Apache-2.0
//
// The bytes of a plain or gzipped file, one window after the other, in constant memory.

#include "formats/openfoam/ByteSource.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <filesystem>
#include <system_error>
#include <utility>

#include "formats/openfoam/Inflater.h"
#include "formats/openfoam/ReadError.h"

namespace velto::openfoam {

namespace {

constexpr std::size_t kWindowBytes = 256 * std::size_t{1024};
constexpr std::uint64_t kSmallestWindow = 4096;  // for a file of which less is known
constexpr std::uint64_t kMostPacking = 1032;     // deflate packs no more bytes than these into one
constexpr std::uint64_t kLikelyPacking = 8;      // a usual ratio for lists of numbers

std::string reasonOf(int error) { return std::generic_category().message(error); }

}  // namespace

ByteSource::ByteSource(std::string file, OnRead onRead, std::uint64_t limit)
    : file_(std::move(file)), onRead_(std::move(onRead)), limit_(limit) {
  std::error_code error;
  const std::filesystem::file_status status = std::filesystem::status(file_, error);
  if (std::filesystem::exists(status) && !std::filesystem::is_regular_file(status)) {
    throw ReadError(file_, "a file", "a folder or a device");
  }
  fileLeft_ = std::filesystem::file_size(file_, error);
  if (!error) {
    errno = 0;
    handle_.reset(std::fopen(file_.c_str(), "rb"));
    error.assign(errno, std::generic_category());
  }
  if (handle_ == nullptr) {
    throw ReadError(file_, "a file that can be read", "\"" + error.message() + "\"");
  }
  std::setvbuf(handle_.get(), nullptr, _IONBF, 0);

  char magic[2] = {};
  if (std::fread(magic, 1, 2, handle_.get()) == 2 && magic[0] == '\x1f' && magic[1] == '\x8b') {
    inflater_ = std::make_unique<Inflater>(
        [this](char* to, std::size_t count) { return readFile(to, count); });
  }
  std::rewind(handle_.get());

  const std::uint64_t most = std::min(limit_, std::max(mostBytesLeft(), kSmallestWindow));
  window_.resize(static_cast<std::size_t>(std::min<std::uint64_t>(most, kWindowBytes)) + 1);
  begin_ = end_ = counted_ = window_.data();
}

ByteSource::~ByteSource() = default;

bool ByteSource::refill() {
  line();
  char* const first = window_.data();
  const auto kept = static_cast<std::size_t>(end_ - begin_);
  windowOffset_ = offset();
  std::memmove(first, begin_, kept);
  begin_ = counted_ = first;
  const std::size_t added = readContent(first + kept, window_.size() - 1 - kept);
  end_ = first + kept + added;
  first[kept + added] = '\0';
  return added > 0;
}

std::size_t ByteSource::take(char* to, std::size_t count) {
  line();
  const std::size_t held = std::min(count, static_cast<std::size_t>(end_ - begin_));
  std::memcpy(to, begin_, held);
  begin_ += held;
  std::size_t taken = held;
  while (taken < count) {
    const std::size_t part = std::min(count - taken, kWindowBytes);
    const std::size_t read = readContent(to + taken, part);
    taken += read;
    if (read < part) {
      break;
    }
  }
  if (taken > held) {
    emptyWindow();
  }
  return taken;
}

void ByteSource::skipTo(std::uint64_t target) {
  const std::uint64_t windowEnd = offset() + static_cast<std::uint64_t>(end_ - begin_);
  if (inflater_ == nullptr && target > windowEnd) {
    const std::uint64_t ahead = std::min(target - windowEnd, fileLeft_);
    if (std::fseek(handle_.get(), static_cast<long>(ahead), SEEK_CUR) == 0) {
      fileLeft_ -= ahead;
      contentRead_ += ahead;
      emptyWindow();
      return;
    }
  }
  while (offset() < target) {
    if (begin_ == end_ && !refill()) {
      return;
    }
    begin_ += std::min(target - offset(), static_cast<std::uint64_t>(end_ - begin_));
  }
}

// The file was read past the window, which stands empty from here on.
void ByteSource::emptyWindow() {
  stopCountingLines();
  windowOffset_ = contentRead_;
  begin_ = end_ = counted_ = window_.data();
  window_[0] = '\0';
}

std::uint64_t ByteSource::line() {
  if (line_ != 0) {
    line_ += static_cast<std::uint64_t>(std::count(counted_, begin_, '\n'));
    counted_ = begin_;
  }
  return line_;
}

std::uint64_t ByteSource::mostBytesLeft() const { return contentLeft(kMostPacking); }

std::uint64_t ByteSource::likelyBytesLeft() const { return contentLeft(kLikelyPacking); }

std::uint64_t ByteSource::contentLeft(std::uint64_t packing) const {
  std::uint64_t left = fileLeft_;
  if (inflater_ != nullptr) {
    left += inflater_->pending();
    left = left > std::numeric_limits<std::uint64_t>::max() / (2 * packing)
               ? std::numeric_limits<std::uint64_t>::max() / 2
               : left * packing;
  }
  return left + static_cast<std::uint64_t>(end_ - begin_);
}

std::size_t ByteSource::readFile(char* to, std::size_t count) {
  errno = 0;
  const std::size_t read = std::fread(to, 1, count, handle_.get());
  if (read < count && std::ferror(handle_.get()) != 0) {
    throw ReadError(file_, {0, contentRead_}, "to read on", "\"" + reasonOf(errno) + "\"");
  }
  fileLeft_ -= std::min<std::uint64_t>(fileLeft_, read);
  if (onRead_ && read > 0) {
    onRead_(read);
  }
  return read;
}

std::size_t ByteSource::readContent(char* to, std::size_t count) {
  count = static_cast<std::size_t>(std::min<std::uint64_t>(count, limit_ - contentRead_));
  if (count == 0) {
    return 0;
  }
  const std::size_t read = inflater_ != nullptr ? inflater_->read(to, count) : readFile(to, count);
  contentRead_ += read;
  if (inflater_ != nullptr && inflater_->state() == Inflater::State::kCut) {
    throw ReadError(file_, {0, contentRead_}, "more gzip data", "the end of the file");
  }
  if (inflater_ != nullptr && inflater_->state() == Inflater::State::kCorrupt) {
    throw ReadError(file_, {0, contentRead_}, "sound gzip data",
                    "\"" + std::string(inflater_->reason()) + "\"");
  }
  return read;
}

}  // namespace velto::openfoam
