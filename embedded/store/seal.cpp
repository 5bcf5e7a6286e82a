// SPDX-License-Identifier: Apache-2.0
//
// The seal stands behind what HDF5 takes for the end of the file:
//
//     ranges     pairs of uint64, ascending: parts of the file that are not covered
//     count      uint64, number of ranges
//     size       uint64, number of bytes before the seal
//     checksum   uint64, XXH3 of the bytes before the seal that are not in a range, then of ranges,
//                count and size
//     magic      8 bytes, "ORVSEAL1"

#include "embedded/store/seal.h"

#include <algorithm>
#include <array>

#include "embedded/store/Checksum.h"

namespace velto::store {

namespace {

constexpr std::array<char, 8> kMagic = {'O', 'R', 'V', 'S', 'E', 'A', 'L', '1'};
constexpr std::size_t kBlock = std::size_t{1} << 18U;

/// The fixed end of a seal.
struct Tail {
  std::uint64_t count = 0;
  std::uint64_t size = 0;
  std::uint64_t checksum = 0;
  std::array<char, 8> magic = kMagic;
};
static_assert(sizeof(Tail) == 32 && sizeof(FileRange) == 16);

void addPart(Checksum& checksum, const base::RawFile& file, std::uint64_t begin, std::uint64_t end,
             std::vector<char>& block) {
  while (begin < end) {
    const std::size_t size = std::min<std::uint64_t>(end - begin, block.size());
    file.read(begin, block.data(), size);
    checksum.add(block.data(), size);
    begin += size;
  }
}

std::uint64_t checksumOf(const base::RawFile& file, const std::vector<FileRange>& ranges,
                         const Tail& tail) {
  std::vector<char> block(kBlock);
  Checksum checksum;
  std::uint64_t next = 0;
  for (const FileRange& range : ranges) {
    addPart(checksum, file, next, range.begin, block);
    next = range.end;
  }
  addPart(checksum, file, next, tail.size, block);
  checksum.add(ranges.data(), ranges.size() * sizeof(FileRange));
  checksum.add(&tail.count, sizeof tail.count);
  checksum.add(&tail.size, sizeof tail.size);
  return checksum.value();
}

/// Ascending and apart from each other, within the first `size` bytes.
bool areInOrder(const std::vector<FileRange>& ranges, std::uint64_t size) {
  std::uint64_t next = 0;
  for (const FileRange& range : ranges) {
    if (range.begin < next || range.end < range.begin || range.end > size) {
      return false;
    }
    next = range.end;
  }
  return true;
}

}  // namespace

void writeSeal(base::RawFile& file, std::vector<FileRange> values) {
  std::sort(values.begin(), values.end(),
            [](const FileRange& a, const FileRange& b) { return a.begin < b.begin; });
  std::vector<FileRange> ranges;
  for (const FileRange& range : values) {
    if (!ranges.empty() && ranges.back().end == range.begin) {
      ranges.back().end = range.end;
    } else {
      ranges.push_back(range);
    }
  }
  Tail tail;
  tail.count = ranges.size();
  tail.size = file.size();
  tail.checksum = checksumOf(file, ranges, tail);
  const std::size_t rangeBytes = ranges.size() * sizeof(FileRange);
  file.write(tail.size, ranges.data(), rangeBytes);
  file.write(tail.size + rangeBytes, &tail, sizeof tail);
}

SealState examineSeal(const base::RawFile& file) {
  const std::uint64_t size = file.size();
  Tail tail;
  if (size < sizeof tail) {
    return SealState::none;
  }
  file.read(size - sizeof tail, &tail, sizeof tail);
  if (tail.magic != kMagic) {
    return SealState::none;
  }
  const std::uint64_t before = size - sizeof tail;
  if (tail.count > before / sizeof(FileRange) ||
      tail.size != before - tail.count * sizeof(FileRange)) {
    return SealState::broken;
  }
  std::vector<FileRange> ranges(static_cast<std::size_t>(tail.count));
  file.read(tail.size, ranges.data(), ranges.size() * sizeof(FileRange));
  const bool intact =
      areInOrder(ranges, tail.size) && checksumOf(file, ranges, tail) == tail.checksum;
  return intact ? SealState::intact : SealState::broken;
}

}  // namespace velto::store
