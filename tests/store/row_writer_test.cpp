// SPDX-License-Identifier: Apache-2.0
//
// RowWriter: whatever was planned, the rows come back as they were written, in a dataset of the
// right length.

#include <filesystem>
#include <gtest/gtest.h>
#include <limits>
#include <numeric>
#include <optional>

#include "embedded/store/RowReader.h"
#include "embedded/store/RowWriter.h"
#include "testing/TempFolder.h"

namespace velto::testing {
namespace {

using store::NumberType;
using store::RowRun;
using store::Storage;

// Rows of 8 bytes: as many as are held back, as a chunk has, and as are never packed.
constexpr std::uint64_t kHeldRows = std::uint64_t{1} << 20U;
constexpr std::uint64_t kChunkRows = store::kChunkBytes / sizeof(std::uint64_t);
constexpr std::uint64_t kSmallRows = 512;
constexpr std::uint64_t kAnyRoom = std::numeric_limits<std::uint64_t>::max();

/// What a file may take beside its rows.
constexpr std::uint64_t kStructure = std::uint64_t{1} << 16U;

/// Writes one dataset of integers that are all different, and reads it again.
class RowWriters : public ::testing::Test {
 protected:
  using Rows = std::vector<std::uint64_t>;

  /// Appends so many rows each time, without compression and with it. An absent plan is none.
  void writeContiguous(const Rows& appended, std::optional<std::uint64_t> plan,
                       std::uint64_t room = kAnyRoom) {
    write(appended, plan, [room](store::Group& group) {
      return store::makeContiguousWriter(group, "values", NumberType::uint64, room);
    });
  }
  void writePacked(const Rows& appended, std::optional<std::uint64_t> plan) {
    write(appended, plan, [this](store::Group& group) {
      return store::makePackedWriter(group, "values", NumberType::uint64, packer_, 1);
    });
  }

  /// Compares length, storage and rows with what was written.
  void expectRows(Storage storage) {
    const base::RawFile raw(file_, base::RawFile::Mode::read, file_);
    const store::Hdf5File file = store::Hdf5File::open(file_, raw.size());
    const store::Group root = file.root();
    EXPECT_FALSE(root.has("values.moved"));
    store::Dataset dataset = root.openDataset("values", NumberType::uint64);
    EXPECT_EQ(dataset.rows(), values_.size());
    EXPECT_EQ(dataset.storage(), storage);
    EXPECT_EQ(rangesText(dataset.ranges()), rangesText(ranges_));
    store::ReadBuffers buffers;
    store::RowReader reader(std::move(dataset), NumberType::uint64, raw, buffers);
    for (const RowRun& run : runs_) {
      std::vector<std::uint64_t> read(run.rows);
      EXPECT_EQ(reader.read(run, store::RowReader::Trust::none, read.data(), read.size()),
                read.size());
      EXPECT_TRUE(std::equal(read.begin(), read.end(),
                             values_.begin() + static_cast<std::ptrdiff_t>(run.first)))
          << "run of " << run.rows << " rows at " << run.first;
    }
  }

  void expectNothing() {
    EXPECT_TRUE(ranges_.empty());
    const store::Hdf5File file = store::Hdf5File::open(file_, fileSize());
    EXPECT_FALSE(file.root().has("values"));
  }

  std::uint64_t fileSize() const { return std::filesystem::file_size(file_); }
  std::uint64_t bytesOfRows() const { return values_.size() * sizeof(std::uint64_t); }

 private:
  template <class Make>
  void write(const Rows& appended, std::optional<std::uint64_t> plan, const Make& make) {
    values_.resize(std::accumulate(appended.begin(), appended.end(), std::uint64_t{0}));
    std::iota(values_.begin(), values_.end(), 1);
    runs_.clear();
    store::Hdf5File file = store::Hdf5File::create(file_, file_);
    {
      store::Group root = file.root();
      const std::unique_ptr<store::RowWriter> writer = make(root);
      if (plan) {
        writer->plan(*plan);
      }
      std::uint64_t first = 0;
      for (const std::uint64_t rows : appended) {
        runs_.push_back(writer->append(values_.data() + first, rows));
        EXPECT_EQ(runs_.back().first, first);
        EXPECT_EQ(runs_.back().rows, rows);
        first += rows;
      }
      ranges_ = writer->finish();
    }
    file.close();
  }

  static std::string rangesText(const std::vector<store::FileRange>& ranges) {
    std::string text;
    for (const store::FileRange& range : ranges) {
      text += std::to_string(range.begin) + "-" + std::to_string(range.end) + " ";
    }
    return text;
  }

  TempFolder folder_;
  std::string file_ = folder_.path("rows.h5");
  store::Packer packer_;
  std::vector<std::uint64_t> values_;
  std::vector<RowRun> runs_;
  std::vector<store::FileRange> ranges_;
};

// --- Contiguous ---------------------------------------------------------------------------------

TEST_F(RowWriters, MakeNothingOfNothing) {
  writeContiguous({}, std::nullopt);
  expectNothing();
  writeContiguous({0, 0}, 100);
  expectNothing();
  writePacked({}, std::nullopt);
  expectNothing();
}

TEST_F(RowWriters, HoldBackShortRowsWhateverWasPlanned) {
  for (const std::uint64_t plan : {std::uint64_t{0}, std::uint64_t{3}, std::uint64_t{1} << 40U,
                                   std::uint64_t{1} << 61U, kAnyRoom}) {
    SCOPED_TRACE(plan);
    writeContiguous({1, 0, 4000, 3}, plan);
    expectRows(Storage::contiguous);
    EXPECT_LT(fileSize(), bytesOfRows() + kStructure);
  }
}

TEST_F(RowWriters, TakeAsMuchAsIsHeldBackAndALittleMore) {
  for (const std::uint64_t rows : {kHeldRows - 1, kHeldRows, kHeldRows + 1}) {
    for (const std::optional<std::uint64_t>& plan :
         {std::optional<std::uint64_t>(), std::optional<std::uint64_t>(rows)}) {
      SCOPED_TRACE(rows);
      writeContiguous({rows}, plan);
      expectRows(Storage::contiguous);
      writeContiguous({rows - 1, 1}, plan);
      expectRows(Storage::contiguous);
    }
  }
}

TEST_F(RowWriters, LeaveNoHoleWhereThePlanWasRight) {
  writeContiguous({kHeldRows, kHeldRows, 5}, 2 * kHeldRows + 5);
  expectRows(Storage::contiguous);
  EXPECT_LT(fileSize(), bytesOfRows() + kStructure);
}

TEST_F(RowWriters, MoveRowsWhereThePlanWasTooSmall) {
  for (const std::uint64_t plan : {std::uint64_t{0}, std::uint64_t{1}, kHeldRows, 2 * kHeldRows}) {
    SCOPED_TRACE(plan);
    writeContiguous({kHeldRows, kHeldRows, kHeldRows / 2}, plan);
    expectRows(Storage::contiguous);
    EXPECT_LT(fileSize(), 4 * bytesOfRows());
  }
}

TEST_F(RowWriters, MoveRowsWhereThePlanWasTooLarge) {
  writeContiguous({kHeldRows, kHeldRows}, 2 * kHeldRows + 1);
  expectRows(Storage::contiguous);
  EXPECT_LT(fileSize(), 4 * bytesOfRows());
}

TEST_F(RowWriters, PassOverAPlanThatTheDiskHasNoRoomFor) {
  for (const std::uint64_t plan :
       {2 * kHeldRows + 1, std::uint64_t{1} << 60U, std::uint64_t{1} << 61U, kAnyRoom}) {
    SCOPED_TRACE(plan);
    writeContiguous({kHeldRows, kHeldRows}, plan, 2 * kHeldRows * sizeof(std::uint64_t));
    expectRows(Storage::contiguous);
    EXPECT_LT(fileSize(), 4 * bytesOfRows());
  }
}

TEST_F(RowWriters, PassOverAnAbsurdPlanWhereThereIsAnyRoom) {
  for (const std::uint64_t plan : {std::uint64_t{1} << 60U, std::uint64_t{1} << 61U, kAnyRoom}) {
    SCOPED_TRACE(plan);
    EXPECT_NO_THROW(writeContiguous({kHeldRows, 1}, plan));
    expectRows(Storage::contiguous);
  }
}

// --- Packed -------------------------------------------------------------------------------------

TEST_F(RowWriters, LeaveAFewRowsUnpacked) {
  for (const std::uint64_t rows : {std::uint64_t{1}, kSmallRows - 1, kSmallRows}) {
    SCOPED_TRACE(rows);
    writePacked({rows}, rows);
    expectRows(Storage::contiguous);
  }
}

TEST_F(RowWriters, PackChunksOfAnyNumberOfRows) {
  for (const std::uint64_t rows : {kSmallRows + 1, kChunkRows - 1, kChunkRows, kChunkRows + 1,
                                   3 * kChunkRows, 3 * kChunkRows + 7}) {
    SCOPED_TRACE(rows);
    writePacked({rows}, std::nullopt);
    expectRows(Storage::packed);
    writePacked({1, rows - 2, 1}, kAnyRoom);
    expectRows(Storage::packed);
    EXPECT_LT(fileSize(), bytesOfRows() + kStructure);
  }
}

TEST_F(RowWriters, PackManyZonesIntoOneChunk) {
  writePacked(Rows(300, 113), std::nullopt);
  expectRows(Storage::packed);
}

}  // namespace
}  // namespace velto::testing
