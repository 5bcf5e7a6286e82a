// SPDX-License-Identifier: Apache-2.0
//
// OutputFile: numbers go into the buffer, the buffer through zlib or straight to the file.

#include "formats/openfoam/OutputFile.h"

#include <algorithm>
#include <charconv>
#include <new>
#include <utility>
#include <zlib.h>

namespace velto::openfoam {

namespace {

constexpr std::size_t kBufferBytes = 256 * std::size_t{1024};
constexpr std::size_t kLongestNumber = 40;
constexpr int kGzipWindow = 15 + 16;  // the largest window, with the header and trailer of gzip
constexpr int kUsualMemory = 8;

}  // namespace

/// A gzip stream.
class OutputFile::Packer {
 public:
  explicit Packer(unsigned level) : packed_(kBufferBytes) {
    if (deflateInit2(&stream_, static_cast<int>(level), Z_DEFLATED, kGzipWindow, kUsualMemory,
                     Z_DEFAULT_STRATEGY) != Z_OK) {
      throw std::bad_alloc();
    }
  }
  Packer(const Packer&) = delete;
  Packer& operator=(const Packer&) = delete;
  ~Packer() { deflateEnd(&stream_); }

  /// Packs `size` bytes and hands what comes out to `write`; with `last` also the end of the
  /// stream.
  template <class Write>
  void pack(char* data, std::size_t size, bool last, const Write& write) {
    stream_.next_in = reinterpret_cast<Bytef*>(data);
    stream_.avail_in = static_cast<uInt>(size);
    do {
      stream_.next_out = reinterpret_cast<Bytef*>(packed_.data());
      stream_.avail_out = static_cast<uInt>(packed_.size());
      deflate(&stream_, last ? Z_FINISH : Z_NO_FLUSH);
      write(packed_.data(), packed_.size() - stream_.avail_out);
    } while (stream_.avail_out == 0);
  }

 private:
  z_stream stream_ = {};
  std::vector<char> packed_;
};

OutputFile::OutputFile(const std::string& path, std::string shown, unsigned level)
    : file_(path, base::RawFile::Mode::create, std::move(shown)), buffer_(kBufferBytes) {
  if (level > 0) {
    packer_ = std::make_unique<Packer>(std::min(level, 9U));
  }
}

OutputFile::~OutputFile() = default;

void OutputFile::label(std::uint64_t value) {
  char* const begin = reserve(kLongestNumber);
  char* const end = begin + kLongestNumber;
  // Most labels are short, and division by 10 is faster in 32 bits.
  used_ += static_cast<std::size_t>(
      (value <= UINT32_MAX ? std::to_chars(begin, end, static_cast<std::uint32_t>(value))
                           : std::to_chars(begin, end, value))
          .ptr -
      begin);
}

void OutputFile::real(double value) {
  char* const begin = reserve(kLongestNumber);
  used_ +=
      static_cast<std::size_t>(std::to_chars(begin, begin + kLongestNumber, value).ptr - begin);
}

void OutputFile::bytes(const char* data, std::size_t size) {
  if (packer_ == nullptr && size >= buffer_.size()) {
    flush();
    writeOut(data, size);
    return;
  }
  while (size > 0) {
    const std::size_t taken = std::min(size, buffer_.size() - used_);
    std::memcpy(buffer_.data() + used_, data, taken);
    used_ += taken;
    data += taken;
    size -= taken;
    if (used_ == buffer_.size()) {
      flush();
    }
  }
}

void OutputFile::flush() {
  if (packer_ == nullptr) {
    writeOut(buffer_.data(), used_);
  } else {
    packer_->pack(buffer_.data(), used_, false,
                  [this](const char* data, std::size_t size) { writeOut(data, size); });
  }
  used_ = 0;
}

void OutputFile::writeOut(const char* data, std::size_t size) {
  file_.write(written_, data, size);
  written_ += size;
}

void OutputFile::close() {
  flush();
  if (packer_ != nullptr) {
    packer_->pack(buffer_.data(), 0, true,
                  [this](const char* data, std::size_t size) { writeOut(data, size); });
  }
  file_.sync();
  file_.close();
}

}  // namespace velto::openfoam
