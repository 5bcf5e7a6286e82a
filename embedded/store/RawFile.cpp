// SPDX-License-Identifier: Apache-2.0
//
// RawFile: POSIX calls, repeated until all is done.

#include "embedded/store/RawFile.h"

#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <filesystem>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>
#include <utility>

#include "embedded/base/CaseError.h"

namespace velto::store {

namespace {

std::string reason() { return std::generic_category().message(errno); }

}  // namespace

RawFile::RawFile(const std::string& file, Mode mode, std::string shown)
    : shown_(std::move(shown)),
      descriptor_(::open(file.c_str(), (mode == Mode::read ? O_RDONLY : O_RDWR) | O_CLOEXEC)) {
  if (descriptor_ < 0) {
    fail("cannot be opened");
  }
}

RawFile::~RawFile() { ::close(descriptor_); }

void RawFile::fail(const std::string& what) const {
  throw base::CaseError(shown_ + ": " + what + ": " + reason());
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
      throw base::CaseError(shown_ + ": ends before byte " + std::to_string(offset + size));
    }
    next += got;
    offset += static_cast<std::uint64_t>(got);
    size -= static_cast<std::size_t>(got);
  }
}

void RawFile::write(std::uint64_t offset, const void* bytes, std::size_t size) {
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

void RawFile::sync() {
  if (::fsync(descriptor_) != 0) {
    fail("cannot be brought to the disk");
  }
}

void renameDurably(const std::string& from, const std::string& to) {
  if (std::rename(from.c_str(), to.c_str()) != 0) {
    throw base::CaseError(to + ": cannot take its name: " + reason());
  }
  const std::filesystem::path folder = std::filesystem::path(to).parent_path();
  try {
    RawFile(folder.empty() ? "." : folder.string(), RawFile::Mode::read, folder.string()).sync();
  } catch (const base::CaseError&) {
    // Not every file system can; the file itself is whole and in its place.
  }
}

}  // namespace velto::store
