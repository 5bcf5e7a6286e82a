// SPDX-License-Identifier: Apache-2.0
//
// RowWriter: the numbers of one array, written zone after zone.

#ifndef VELTO_EMBEDDED_STORE_ROW_WRITER_H
#define VELTO_EMBEDDED_STORE_ROW_WRITER_H

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "embedded/store/Checksum.h"
#include "embedded/store/Hdf5.h"
#include "embedded/store/packing.h"

namespace velto::store {

/// Rows that were written together, and their checksum, 0 for none.
struct RowRun {
  std::uint64_t first = 0;
  std::uint64_t rows = 0;
  std::uint64_t checksum = 0;
};

/// How far the writing of a file has come.
struct WriteProgress {
  std::string what;            ///< "writing case.orv"
  std::uint64_t done = 0;      ///< Bytes.
  std::uint64_t expected = 0;  ///< 0 if nobody knows.

  void add(std::uint64_t bytes);
};

/// Appends to a dataset that appears in its group when there is something to write. Holds back a
/// few megabytes at most. Failures are CaseErrors.
class RowWriter {
 public:
  RowWriter(const RowWriter&) = delete;
  RowWriter& operator=(const RowWriter&) = delete;
  virtual ~RowWriter() = default;

  /// Says how many rows will probably come in all. It may be wrong: then values are moved once
  /// more.
  virtual void plan(std::uint64_t rows) = 0;

  /// Tells `progress`, which outlives the writer, of each block that is appended.
  void reportTo(WriteProgress& progress) { progress_ = &progress; }

  /// Values belong to the caller.
  RowRun append(const void* values, std::uint64_t rows);

  /// Writes what was held back; nothing is appended after it. Returns the parts of the file that
  /// hold the values.
  virtual std::vector<FileRange> finish() = 0;

 protected:
  explicit RowWriter(NumberType type) : rowSize_(sizeOf(type)) {}

  /// Takes the next rows.
  virtual void put(const std::byte* values, std::uint64_t rows) = 0;

  std::size_t rowSize() const { return rowSize_; }

  /// All rows up to the end of what is being appended.
  std::uint64_t rowsComing() const { return rows_; }

 private:
  std::size_t rowSize_;
  std::uint64_t rows_ = 0;  // with those that are being appended
  Checksum checksum_;
  WriteProgress* progress_ = nullptr;
};

/// Writes a contiguous dataset. `group` outlives it; `room` is the number of bytes that a plan may
/// ask for, such as the free room on the disk.
std::unique_ptr<RowWriter> makeContiguousWriter(Group& group, const std::string& name,
                                                NumberType type, std::uint64_t room);

/// Writes a dataset of packed chunks, or a contiguous one if there are only a few rows. `group` and
/// `packer` outlive it.
std::unique_ptr<RowWriter> makePackedWriter(Group& group, const std::string& name, NumberType type,
                                            Packer& packer, int zstdLevel);

}  // namespace velto::store

#endif  // VELTO_EMBEDDED_STORE_ROW_WRITER_H
