// SPDX-License-Identifier: Apache-2.0
//
// RowReader: the numbers of one array, read by rows.

#ifndef VELTO_EMBEDDED_STORE_ROW_READER_H
#define VELTO_EMBEDDED_STORE_ROW_READER_H

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "embedded/base/RawFile.h"
#include "embedded/store/Checksum.h"
#include "embedded/store/Hdf5.h"
#include "embedded/store/RowWriter.h"
#include "embedded/store/packing.h"

namespace velto::store {

/// What the readers of a file share, so that thousands of arrays cost no memory each.
struct ReadBuffers {
  Checksum checksum;
  Unpacker unpacker;
  std::vector<std::byte> block;  ///< Rows that the caller has no room for, or not in this form.
  std::vector<std::byte> packed;
  /// The chunk that was unpacked last: whose it is, and the first row of it.
  std::vector<std::byte> chunk;
  const void* chunkOwner = nullptr;
  std::uint64_t chunkFirst = 0;
};

/// Reads from an open dataset: contiguous rows from the file itself, straight into the caller's
/// buffer, packed ones chunk by chunk. Failures are CaseErrors.
class RowReader {
 public:
  /// `file` and `buffers` outlive the reader.
  RowReader(Dataset dataset, NumberType type, const base::RawFile& file, ReadBuffers& buffers);

  std::uint64_t rows() const { return rows_; }
  const std::string& where() const { return where_; }

  enum class Trust { none, isVerified };

  /// Reads a run from its beginning, at most `n` rows. Unless it is known to be sound, all of it is
  /// compared with its checksum. Returns how many rows it gave; on an error those are 0.
  std::size_t read(const RowRun& run, Trust trust, void* values, std::size_t n);

  /// Reads all of a run of ids, compared with its checksum, in 32 bits each. False if there are
  /// larger ones; the values are not defined then, nor after an error.
  bool readNarrow(const RowRun& run, std::uint32_t* values);

 private:
  void readVerified(const RowRun& run, std::byte* values, std::uint64_t n);
  /// How many of the next rows are taken at a time.
  std::uint64_t rowsOfBlock(std::uint64_t first, std::uint64_t most) const;
  /// Room for rows, until the next call.
  std::byte* block(std::uint64_t rows);
  void requireFit(const RowRun& run) const;
  void readBlock(std::uint64_t first, std::uint64_t count, std::byte* values);
  void readPacked(std::uint64_t first, std::uint64_t count, std::byte* values);
  /// The chunk that begins at a row: kept for the zones that follow in it, or put into `values`.
  const std::byte* heldChunk(std::uint64_t firstRow);
  void unpackChunk(std::uint64_t firstRow, std::byte* values);

  const base::RawFile& file_;
  ReadBuffers& buffers_;
  std::string where_;
  std::size_t rowSize_;
  std::uint64_t rows_;
  Storage storage_;
  std::uint64_t offset_;
  std::uint64_t chunkRows_;
  std::optional<Dataset> dataset_;  // kept open only where HDF5 is needed to read
};

}  // namespace velto::store

#endif  // VELTO_EMBEDDED_STORE_ROW_READER_H
