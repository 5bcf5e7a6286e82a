// SPDX-License-Identifier: Apache-2.0
//
// RawFile: POSIX calls, repeated until all is done.

#include "embedded/base/RawFile.h"

#include <atomic>
#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <filesystem>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>
#include <utility>

#include "embedded/base/CaseError.h"

namespace velto::base {

namespace {

namespace fs = std::filesystem;

std::string reason() { return std::generic_category().message(errno); }

int flagsOf(RawFile::Mode mode) {
  switch (mode) {
    case RawFile::Mode::read:
      return O_RDONLY;
    case RawFile::Mode::readAndWrite:
      return O_RDWR;
    default:
      return O_RDWR | O_CREAT | O_TRUNC;
  }
}

constexpr mode_t kReadableByAll = 0666;  // less what the user masks

/// What the disk is given at a time.
constexpr std::uint64_t kSyncBytes = std::uint64_t{8} << 20U;

}  // namespace

RawFile::RawFile(const std::string& file, Mode mode, std::string shown)
    : shown_(std::move(shown)),
      descriptor_(::open(file.c_str(), flagsOf(mode) | O_CLOEXEC, kReadableByAll)) {
  if (descriptor_ < 0) {
    fail(mode == Mode::create ? "cannot be made" : "cannot be opened");
  }
}

RawFile::~RawFile() {
  if (descriptor_ >= 0) {
    ::close(descriptor_);
  }
}

void RawFile::fail(const std::string& what) const {
  throw CaseError(shown_ + ": " + what + ": " + reason());
}

std::uint64_t RawFile::size() const {
  struct stat status {};
  if (::fstat(descriptor_, &status) != 0) {
    fail("cannot be examined");
  }
  return static_cast<std::uint64_t>(status.st_size);
}

void RawFile::read(std::uint64_t offset, void* bytes, std::size_t size) const {
  auto* next = static_cast<char*>(bytes);
  while (size > 0) {
    const ssize_t got = ::pread(descriptor_, next, size, static_cast<off_t>(offset));
    if (got < 0 && errno == EINTR) {
      continue;
    }
    if (got < 0) {
      fail("cannot be read at byte " + std::to_string(offset));
    }
    if (got == 0) {
      throw CaseError(shown_ + ": ends before byte " + std::to_string(offset + size));
    }
    next += got;
    offset += static_cast<std::uint64_t>(got);
    size -= static_cast<std::size_t>(got);
  }
}

void RawFile::write(std::uint64_t offset, const void* bytes, std::size_t size) {
  const std::uint64_t begin = offset;
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
  startSync(begin, offset);
}

void RawFile::resize(std::uint64_t size) {
  if (::ftruncate(descriptor_, static_cast<off_t>(size)) != 0) {
    fail("cannot be given " + std::to_string(size) + " bytes");
  }
}

/// In whole pieces. That it cannot be done is no error: sync() does it all.
void RawFile::startSync(std::uint64_t begin, std::uint64_t end) {
  if (begin != runEnd_) {
    runBegin_ = begin;
  }
  runEnd_ = end;
  const std::uint64_t whole = end - end % kSyncBytes;
  if (whole > runBegin_) {
    ::sync_file_range(descriptor_, static_cast<off_t>(runBegin_),
                      static_cast<off_t>(whole - runBegin_), SYNC_FILE_RANGE_WRITE);
    runBegin_ = whole;
  }
}

void RawFile::sync() {
  if (::fsync(descriptor_) != 0) {
    fail("cannot be brought to the disk");
  }
}

void RawFile::close() {
  if (::close(std::exchange(descriptor_, -1)) != 0) {
    fail("cannot be closed");
  }
}

void requireFileName(const std::string& file) {
  if (file.empty()) {
    throw CaseError("no file name was given for what is to be written");
  }
  std::error_code ignored;
  if (fs::is_directory(file, ignored)) {
    throw CaseError(file + ": is a folder");
  }
  if (fs::is_other(fs::status(file, ignored))) {
    throw CaseError(file + ": is neither a file nor a free name");
  }
}

std::string nameBeside(const std::string& path, const std::string& kind) {
  static std::atomic<unsigned> counter{0};
  std::string name;
  std::error_code ignored;
  do {
    name = path + "." + kind + "-" + std::to_string(::getpid()) + "-" + std::to_string(++counter);
  } while (fs::exists(fs::symlink_status(name, ignored)));
  return name;
}

void syncFolder(const std::string& folder) {
  const int descriptor =
      ::open(folder.empty() ? "." : folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  if (descriptor >= 0) {
    ::fsync(descriptor);
    ::close(descriptor);
  }
}

void renameDurably(const std::string& from, const std::string& to) {
  if (std::rename(from.c_str(), to.c_str()) != 0) {
    throw CaseError(to + ": cannot take its name: " + reason());
  }
  syncFolder(fs::path(to).parent_path());
}

bool exchangeNames(const std::string& one, const std::string& other) {
  return ::renameat2(AT_FDCWD, one.c_str(), AT_FDCWD, other.c_str(), RENAME_EXCHANGE) == 0;
}

}  // namespace velto::base
