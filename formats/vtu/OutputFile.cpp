// SPDX-License-Identifier: Apache-2.0
//
// OutputFile: one buffer in front of POSIX calls, which are repeated until all is done.

#include "formats/vtu/OutputFile.h"

#include <filesystem>
#include <system_error>
#include <utility>

namespace velto::vtu {

namespace {

constexpr std::size_t kBufferSize = std::size_t{1} << 20;

}  // namespace

OutputFile::OutputFile(std::string file) : file_(std::move(file)) {
  base::requireFileName(file_);
  buffer_.reserve(kBufferSize);
  temporary_ = base::nameBeside(file_, "part");
  raw_ = std::make_unique<base::RawFile>(temporary_, base::RawFile::Mode::create, file_);
}

OutputFile::~OutputFile() {
  if (!temporary_.empty()) {
    std::error_code ignored;
    std::filesystem::remove(temporary_, ignored);
  }
}

void OutputFile::flush() {
  raw_->write(written_, buffer_.data(), buffer_.size());
  written_ += buffer_.size();
  buffer_.clear();
}

void OutputFile::append(const void* bytes, std::size_t size) {
  if (size > kBufferSize - buffer_.size()) {
    flush();
  }
  if (size >= kBufferSize) {
    raw_->write(written_, bytes, size);
    written_ += size;
    return;
  }
  const auto* first = static_cast<const char*>(bytes);
  buffer_.insert(buffer_.end(), first, first + size);
}

void OutputFile::patch(std::uint64_t offset, const void* bytes, std::size_t size) {
  if (offset + size > written_) {
    flush();
  }
  raw_->write(offset, bytes, size);
}

void OutputFile::finish() {
  flush();
  raw_->sync();
  raw_->close();
  base::renameDurably(temporary_, file_);
  temporary_.clear();
}

}  // namespace velto::vtu
