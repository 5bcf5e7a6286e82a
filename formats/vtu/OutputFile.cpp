// SPDX-License-Identifier: Apache-2.0
//
// OutputFile: one buffer in front of POSIX calls, which are repeated until all is done.

#include "formats/vtu/OutputFile.h"

#include <atomic>
#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <filesystem>
#include <system_error>
#include <unistd.h>
#include <utility>

#include "embedded/base/CaseError.h"

namespace velto::vtu {

namespace {

namespace fs = std::filesystem;

constexpr std::size_t kBufferSize = std::size_t{1} << 20;

/// Makes a file beside the final one under a name that no file has, and opens it.
int createBeside(const std::string& file, std::string& name) {
  static std::atomic<unsigned> counter{0};
  int descriptor = -1;
  do {
    name = file + ".part-" + std::to_string(::getpid()) + "-" + std::to_string(++counter);
    descriptor = ::open(name.c_str(), O_RDWR | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
  } while (descriptor < 0 && (errno == EEXIST || errno == EINTR));
  return descriptor;
}

/// Brings the entries of a folder to the disk, where the file system can do that.
void syncFolder(const fs::path& folder) {
  const int descriptor =
      ::open(folder.empty() ? "." : folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  if (descriptor >= 0) {
    ::fsync(descriptor);
    ::close(descriptor);
  }
}

}  // namespace

void requireFileName(const std::string& file) {
  if (file.empty()) {
    throw base::CaseError("no file name was given for what is to be written");
  }
  std::error_code ignored;
  if (fs::is_directory(file, ignored)) {
    throw base::CaseError(file + ": is a folder");
  }
}

OutputFile::OutputFile(std::string file) : file_(std::move(file)) {
  requireFileName(file_);
  buffer_.reserve(kBufferSize);
  std::string name;
  descriptor_ = createBeside(file_, name);
  if (descriptor_ < 0) {
    fail("cannot be made");
  }
  temporary_ = std::move(name);
}

OutputFile::~OutputFile() {
  if (descriptor_ >= 0) {
    ::close(descriptor_);
  }
  if (!temporary_.empty()) {
    ::unlink(temporary_.c_str());
  }
}

void OutputFile::fail(const std::string& what) const {
  throw base::CaseError(file_ + ": " + what + ": " + std::generic_category().message(errno));
}

void OutputFile::write(std::uint64_t offset, const void* bytes, std::size_t size) {
  const auto* next = static_cast<const char*>(bytes);
  while (size > 0) {
    const ssize_t put = ::pwrite(descriptor_, next, size, static_cast<off_t>(offset));
    if (put < 0 && errno == EINTR) {
      continue;
    }
    if (put < 0) {
      fail("cannot be written at byte " + std::to_string(offset));
    }
    next += put;
    offset += static_cast<std::uint64_t>(put);
    size -= static_cast<std::size_t>(put);
  }
}

void OutputFile::flush() {
  write(written_, buffer_.data(), buffer_.size());
  written_ += buffer_.size();
  buffer_.clear();
}

void OutputFile::append(const void* bytes, std::size_t size) {
  if (size > kBufferSize - buffer_.size()) {
    flush();
  }
  if (size >= kBufferSize) {
    write(written_, bytes, size);
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
  write(offset, bytes, size);
}

void OutputFile::finish() {
  flush();
  if (::fsync(descriptor_) != 0) {
    fail("cannot be brought to the disk");
  }
  if (::close(std::exchange(descriptor_, -1)) != 0) {
    fail("cannot be closed");
  }
  if (std::rename(temporary_.c_str(), file_.c_str()) != 0) {
    fail("cannot take its name");
  }
  temporary_.clear();
  syncFolder(fs::path(file_).parent_path());
}

}  // namespace velto::vtu
