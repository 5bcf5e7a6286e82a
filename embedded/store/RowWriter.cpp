// SPDX-License-Identifier: Apache-2.0
//
// RowWriter: contiguous and packed rows.
//
// HDF5 fixes the length of a contiguous dataset when it is made. So the first megabytes are held
// back, unless more come at once: most arrays end within them and get a dataset of the right
// length. A longer one gets the length that was planned, which is right for every sound case; where
// it was not, the values move to a dataset of another length, at least twice as long as long as
// more are coming.

#include "embedded/store/RowWriter.h"

#include <algorithm>
#include <optional>

#include "embedded/base/Progress.h"

namespace velto::store {

namespace {

/// Checksum and copy take a block of this size each time, which is then still in the cache.
constexpr std::size_t kBlockBytes = std::size_t{1} << 19U;

/// Arrays of no more bytes stay contiguous: a list of chunks costs more than packing saves.
constexpr std::size_t kSmallestPackedBytes = 4096;

/// A plan is believed up to so many times of what is there: more than that would be a large hole in
/// the file if it was wrong.
constexpr std::uint64_t kMostTrust = 64;

/// What a contiguous writer holds back.
constexpr std::size_t kHeldBytes = std::size_t{8} << 20U;

class ContiguousWriter : public RowWriter {
 public:
  ContiguousWriter(Group& group, std::string name, NumberType type, std::uint64_t room)
      : RowWriter(type), group_(group), name_(std::move(name)), type_(type), room_(room) {}

  void plan(std::uint64_t rows) override {
    // A plan beyond the disk is none, and neither is one beyond any file of HDF5.
    constexpr std::uint64_t kMostBytes = std::uint64_t{1} << 60U;
    planned_ = rows <= std::min(room_, kMostBytes) / rowSize() ? rows : 0;
  }

  std::vector<FileRange> finish() override {
    if (!dataset_ && !held_.empty()) {
      makeRoom(held_.size() / rowSize(), 0);
    }
    if (!dataset_) {
      return {};
    }
    if (written_ < dataset_->rows()) {
      moveTo(written_);
    }
    return dataset_->ranges();
  }

 protected:
  void put(const std::byte* values, std::uint64_t rows) override {
    const std::size_t bytes = static_cast<std::size_t>(rows) * rowSize();
    // By all that is being appended: the first blocks of a long zone are not held back either.
    if (!dataset_ && rowsComing() <= kHeldBytes / rowSize()) {
      held_.insert(held_.end(), values, values + bytes);
      return;
    }
    makeRoom(rowsComing(), std::min(planned_, kMostTrust * rowsComing()));
    write(values, rows);
  }

 private:
  std::uint64_t heldRows() const { return held_.size() / rowSize(); }

  void write(const std::byte* values, std::uint64_t rows) {
    dataset_->write(written_, rows, values);
    written_ += rows;
  }

  /// A dataset with room for `needed` rows, and for `wanted` if it is new.
  void makeRoom(std::uint64_t needed, std::uint64_t wanted) {
    if (dataset_ && needed > dataset_->rows()) {
      moveTo(std::max(needed, 2 * dataset_->rows()));
    }
    if (!dataset_) {
      dataset_ = group_.makeDataset(name_, type_, std::max(needed, wanted), 0);
      write(held_.data(), heldRows());
      std::vector<std::byte>().swap(held_);  // gives its memory back
    }
  }

  /// Puts what was written into a dataset of another length.
  void moveTo(std::uint64_t rows) {
    Dataset moved = group_.makeDataset(name_ + ".moved", type_, rows, 0);
    std::vector<std::byte> block(kHeldBytes);
    const std::uint64_t blockRows = block.size() / rowSize();
    for (std::uint64_t first = 0; first < written_; first += blockRows) {
      const std::uint64_t count = std::min(blockRows, written_ - first);
      dataset_->read(first, count, block.data());
      moved.write(first, count, block.data());
    }
    dataset_.reset();
    group_.remove(name_);
    group_.rename(name_ + ".moved", name_);
    dataset_ = std::move(moved);
  }

  Group& group_;
  std::string name_;
  NumberType type_;
  std::uint64_t room_;
  std::uint64_t planned_ = 0;
  std::vector<std::byte> held_;
  std::optional<Dataset> dataset_;
  std::uint64_t written_ = 0;
};

class PackedWriter : public RowWriter {
 public:
  PackedWriter(Group& group, std::string name, NumberType type, Packer& packer, int zstdLevel)
      : RowWriter(type),
        group_(group),
        name_(std::move(name)),
        type_(type),
        packer_(packer),
        level_(zstdLevel) {}

  void plan(std::uint64_t) override {}

  std::vector<FileRange> finish() override {
    const std::uint64_t rows = chunk_.size() / rowSize();
    if (!dataset_ && chunk_.size() <= kSmallestPackedBytes) {
      return writeContiguous(rows);
    }
    if (rows > 0) {
      chunk_.resize(dataset_ ? kChunkBytes : chunk_.size());  // filled up with zeros
      writeChunk(rows);
    }
    return dataset_->ranges();
  }

 protected:
  void put(const std::byte* values, std::uint64_t rows) override {
    std::size_t bytes = static_cast<std::size_t>(rows) * rowSize();
    while (bytes > 0) {
      const std::size_t part = std::min(bytes, kChunkBytes - chunk_.size());
      chunk_.insert(chunk_.end(), values, values + part);
      values += part;
      bytes -= part;
      if (chunk_.size() == kChunkBytes) {
        writeChunk(kChunkBytes / rowSize());
      }
    }
  }

 private:
  std::vector<FileRange> writeContiguous(std::uint64_t rows) {
    if (rows == 0) {
      return {};
    }
    Dataset dataset = group_.makeDataset(name_, type_, rows, 0);
    dataset.write(0, rows, chunk_.data());
    return dataset.ranges();
  }

  /// Packs the chunk, of which `rows` rows count.
  void writeChunk(std::uint64_t rows) {
    if (!dataset_) {
      dataset_ = group_.makeDataset(name_, type_, 0, chunk_.size() / rowSize());
    }
    const std::uint64_t first = dataset_->rows();
    const PackedChunk packed = packer_.pack(chunk_.data(), chunk_.size(), rowSize(), level_);
    dataset_->extend(first + rows);
    dataset_->writeChunk(first, packed.data, packed.size);
    chunk_.clear();
  }

  Group& group_;
  std::string name_;
  NumberType type_;
  Packer& packer_;
  int level_;
  std::vector<std::byte> chunk_;
  std::optional<Dataset> dataset_;
};

}  // namespace

void WriteProgress::add(std::uint64_t bytes) {
  done += bytes;
  base::reportProgress(what, done, expected);
}

RowRun RowWriter::append(const void* values, std::uint64_t rows) {
  RowRun run{rows_, rows, 0};
  if (rows == 0) {
    return run;
  }
  rows_ += rows;
  const auto* next = static_cast<const std::byte*>(values);
  const std::uint64_t blockRows = kBlockBytes / rowSize_;
  checksum_.restart();
  for (std::uint64_t done = 0; done < rows; done += blockRows) {
    const std::uint64_t count = std::min(blockRows, rows - done);
    const std::size_t bytes = static_cast<std::size_t>(count) * rowSize_;
    checksum_.add(next, bytes);
    put(next, count);
    if (progress_ != nullptr) {
      progress_->add(bytes);
    }
    next += bytes;
  }
  run.checksum = checksum_.value();
  return run;
}

std::unique_ptr<RowWriter> makeContiguousWriter(Group& group, const std::string& name,
                                                NumberType type, std::uint64_t room) {
  return std::make_unique<ContiguousWriter>(group, name, type, room);
}

std::unique_ptr<RowWriter> makePackedWriter(Group& group, const std::string& name, NumberType type,
                                            Packer& packer, int zstdLevel) {
  return std::make_unique<PackedWriter>(group, name, type, packer, zstdLevel);
}

}  // namespace velto::store
