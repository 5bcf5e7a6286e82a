// SPDX-License-Identifier: Apache-2.0
//
// Unpacking with zlib: what comes between two members, and how a stream ends.

#include "formats/openfoam/Inflater.h"

#include <algorithm>
#include <limits>
#include <new>
#include <utility>

namespace velto::openfoam {

namespace {

constexpr std::size_t kPackedBytes = 64 * std::size_t{1024};
constexpr int kGzipOnly = 16 + MAX_WBITS;  // zlib: a gzip header is required, its checksum tested

}  // namespace

Inflater::Inflater(Feed feed) : feed_(std::move(feed)), packed_(kPackedBytes) {
  if (inflateInit2(&stream_, kGzipOnly) != Z_OK) {
    throw std::bad_alloc();
  }
}

Inflater::~Inflater() { inflateEnd(&stream_); }

std::size_t Inflater::read(char* to, std::size_t count) {
  count = std::min<std::size_t>(count, std::numeric_limits<uInt>::max());
  stream_.next_out = reinterpret_cast<Bytef*>(to);
  stream_.avail_out = static_cast<uInt>(count);
  while (stream_.avail_out > 0 && state_ == State::kOpen) {
    if (stream_.avail_in == 0 && !feed()) {
      state_ = betweenMembers_ ? State::kEnded : State::kCut;
      break;
    }
    if (betweenMembers_) {
      beginNextMember();
      continue;
    }
    const int result = inflate(&stream_, Z_NO_FLUSH);
    if (result == Z_STREAM_END) {
      betweenMembers_ = true;
    } else if (result == Z_MEM_ERROR) {
      throw std::bad_alloc();
    } else if (result != Z_OK && result != Z_BUF_ERROR) {
      state_ = State::kCorrupt;
    }
  }
  return count - stream_.avail_out;
}

const char* Inflater::reason() const {
  return stream_.msg != nullptr ? stream_.msg : "an unknown packing";
}

bool Inflater::feed() {
  const std::size_t count = feed_(packed_.data(), packed_.size());
  stream_.next_in = reinterpret_cast<Bytef*>(packed_.data());
  stream_.avail_in = static_cast<uInt>(count);
  return count > 0;
}

// Drops a padding of zeros. What else follows a member must be another one.
void Inflater::beginNextMember() {
  while (stream_.avail_in > 0 && *stream_.next_in == 0) {
    ++stream_.next_in;
    --stream_.avail_in;
  }
  if (stream_.avail_in > 0) {
    inflateReset(&stream_);
    betweenMembers_ = false;
  }
}

}  // namespace velto::openfoam
