// SPDX-License-Identifier: Apache-2.0
//
// ArrayEncoder: the head of a packed array is filled in when its blocks are written.

#include "formats/vtu/ArrayEncoder.h"

#include <algorithm>
#include <zlib.h>

#include "embedded/base/CaseError.h"
#include "embedded/base/Progress.h"

namespace velto::vtu {

namespace {

/// Values go through in blocks of this many bytes, packed or not.
constexpr std::size_t kBlockSize = std::size_t{1} << 18;

/// Numbers of the head before the sizes of the blocks.
constexpr std::size_t kHeadNumbers = 3;

}  // namespace

ArrayEncoder::ArrayEncoder(OutputFile& file, unsigned level, std::uint64_t total)
    : file_(file), level_(level), total_(total) {
  block_.reserve(kBlockSize);
  if (level_ > 0) {
    output_.resize(::compressBound(kBlockSize));
  }
}

void ArrayEncoder::begin(std::uint64_t bytes) {
  left_ = bytes;
  headAt_ = file_.position();
  packed_.clear();
  if (level_ == 0) {
    file_.append(&bytes, sizeof(bytes));
    return;
  }
  std::vector<std::uint64_t> head(kHeadNumbers + (bytes + kBlockSize - 1) / kBlockSize);
  head[0] = head.size() - kHeadNumbers;
  head[1] = kBlockSize;
  head[2] = bytes % kBlockSize;
  file_.append(head.data(), head.size() * sizeof(std::uint64_t));
}

void ArrayEncoder::put(const void* values, std::size_t bytes) {
  const auto* next = static_cast<const unsigned char*>(values);
  while (bytes > 0) {
    const std::size_t part = std::min(bytes, kBlockSize - block_.size());
    block_.insert(block_.end(), next, next + part);
    next += part;
    bytes -= part;
    if (block_.size() == kBlockSize) {
      endBlock();
    }
  }
}

void ArrayEncoder::endBlock() {
  if (block_.size() > left_) {
    throw base::CaseError(file_.name() + ": an array came out longer than planned");
  }
  left_ -= block_.size();
  done_ += block_.size();
  if (level_ == 0) {
    file_.append(block_.data(), block_.size());
  } else {
    uLongf size = output_.size();
    if (::compress2(output_.data(), &size, block_.data(), block_.size(),
                    static_cast<int>(level_)) != Z_OK) {
      throw base::CaseError(file_.name() + ": values could not be packed");
    }
    file_.append(output_.data(), size);
    packed_.push_back(size);
  }
  block_.clear();
  base::reportProgress("writing " + file_.name(), done_, total_);
}

void ArrayEncoder::end() {
  if (!block_.empty()) {
    endBlock();
  }
  if (left_ != 0) {
    throw base::CaseError(file_.name() + ": an array came out shorter than planned");
  }
  file_.patch(headAt_ + kHeadNumbers * sizeof(std::uint64_t), packed_.data(),
              packed_.size() * sizeof(std::uint64_t));
}

}  // namespace velto::vtu
