// SPDX-License-Identifier: Apache-2.0
//
// RowReader: blocks that stay in the cache between the copy and the checksum.

#include "embedded/store/RowReader.h"

#include <algorithm>
#include <cstring>

#include "embedded/base/CaseError.h"

namespace velto::store {

using base::CaseError;

namespace {

/// Copy and checksum take a block of this size each time, or a chunk.
constexpr std::size_t kBlockBytes = std::size_t{1} << 18U;

/// The lower halves of ids, and the bits that any of them has.
std::uint64_t narrow(const std::byte* ids, std::size_t n, std::uint32_t* values) {
  std::uint64_t bits = 0;
  for (std::size_t i = 0; i < n; ++i) {
    std::uint64_t id = 0;
    std::memcpy(&id, ids + i * sizeof id, sizeof id);
    values[i] = static_cast<std::uint32_t>(id);
    bits |= id;
  }
  return bits;
}

}  // namespace

RowReader::RowReader(Dataset dataset, NumberType type, const base::RawFile& file,
                     ReadBuffers& buffers)
    : file_(file),
      buffers_(buffers),
      where_(dataset.where()),
      rowSize_(sizeOf(type)),
      rows_(dataset.rows()),
      storage_(dataset.storage()),
      offset_(dataset.offset()),
      chunkRows_(dataset.chunkRows()) {
  if (storage_ != Storage::contiguous) {
    dataset_ = std::move(dataset);
  }
}

std::size_t RowReader::read(const RowRun& run, Trust trust, void* values, std::size_t n) {
  const auto count = static_cast<std::size_t>(std::min<std::uint64_t>(n, run.rows));
  if (count == 0) {
    return 0;
  }
  auto* bytes = static_cast<std::byte*>(values);
  try {
    if (trust == Trust::isVerified) {
      readBlock(run.first, count, bytes);
    } else {
      readVerified(run, bytes, count);
    }
  } catch (...) {
    std::memset(bytes, 0, count * rowSize_);
    throw;
  }
  return count;
}

std::uint64_t RowReader::rowsOfBlock(std::uint64_t first, std::uint64_t most) const {
  const std::uint64_t rows = storage_ == Storage::packed ? chunkRows_ : kBlockBytes / rowSize_;
  return std::min(rows - first % rows, most);
}

std::byte* RowReader::block(std::uint64_t rows) {
  buffers_.block.resize(static_cast<std::size_t>(rows) * rowSize_);
  return buffers_.block.data();
}

void RowReader::readVerified(const RowRun& run, std::byte* values, std::uint64_t n) {
  buffers_.checksum.restart();
  for (std::uint64_t done = 0; done < run.rows;) {
    const std::uint64_t first = run.first + done;
    const std::uint64_t count = rowsOfBlock(first, (done < n ? n : run.rows) - done);
    std::byte* place = done < n ? values + done * rowSize_ : block(count);
    readBlock(first, count, place);
    buffers_.checksum.add(place, static_cast<std::size_t>(count) * rowSize_);
    done += count;
  }
  requireFit(run);
}

bool RowReader::readNarrow(const RowRun& run, std::uint32_t* values) {
  buffers_.checksum.restart();
  std::uint64_t bits = 0;
  for (std::uint64_t done = 0; done < run.rows;) {
    const std::uint64_t first = run.first + done;
    const std::uint64_t count = rowsOfBlock(first, run.rows - done);
    std::byte* place = block(count);
    readBlock(first, count, place);
    buffers_.checksum.add(place, static_cast<std::size_t>(count) * rowSize_);
    bits |= narrow(place, static_cast<std::size_t>(count), values + done);
    done += count;
  }
  requireFit(run);
  return bits >> 32U == 0;
}

void RowReader::requireFit(const RowRun& run) const {
  if (buffers_.checksum.value() != run.checksum) {
    throw CaseError(where_ + ": rows " + std::to_string(run.first) + " to " +
                    std::to_string(run.first + run.rows - 1) +
                    " do not fit their checksum, the file is damaged");
  }
}

void RowReader::readBlock(std::uint64_t first, std::uint64_t count, std::byte* values) {
  switch (storage_) {
    case Storage::contiguous:
      file_.read(offset_ + first * rowSize_, values, static_cast<std::size_t>(count) * rowSize_);
      break;
    case Storage::packed:
      readPacked(first, count, values);
      break;
    case Storage::other:
      dataset_->read(first, count, values);
      break;
  }
}

void RowReader::readPacked(std::uint64_t first, std::uint64_t count, std::byte* values) {
  const std::uint64_t end = first + count;
  while (first < end) {
    const std::uint64_t chunkFirst = first - first % chunkRows_;
    const std::uint64_t part = std::min(end, chunkFirst + chunkRows_) - first;
    if (part == chunkRows_) {
      unpackChunk(chunkFirst, values);
    } else {
      const std::byte* chunk = heldChunk(chunkFirst);
      std::memcpy(values, chunk + (first - chunkFirst) * rowSize_, part * rowSize_);
    }
    values += part * rowSize_;
    first += part;
  }
}

const std::byte* RowReader::heldChunk(std::uint64_t firstRow) {
  if (buffers_.chunkOwner != this || buffers_.chunkFirst != firstRow) {
    buffers_.chunkOwner = nullptr;
    buffers_.chunk.resize(static_cast<std::size_t>(chunkRows_) * rowSize_);
    unpackChunk(firstRow, buffers_.chunk.data());
    buffers_.chunkOwner = this;
    buffers_.chunkFirst = firstRow;
  }
  return buffers_.chunk.data();
}

void RowReader::unpackChunk(std::uint64_t firstRow, std::byte* values) {
  const std::size_t size = dataset_->chunkSize(firstRow);
  const std::size_t rawSize = static_cast<std::size_t>(chunkRows_) * rowSize_;
  if (size > mostPackedBytes(rawSize)) {
    throw CaseError(where_ + ": a chunk takes " + std::to_string(size) +
                    " bytes in the file and only " + std::to_string(rawSize) + " in memory");
  }
  buffers_.packed.resize(size);
  dataset_->readChunk(firstRow, buffers_.packed.data());
  try {
    buffers_.unpacker.unpack(buffers_.packed.data(), size, values, rawSize, rowSize_);
  } catch (const CaseError& error) {
    throw CaseError(where_ + ": the chunk of row " + std::to_string(firstRow) +
                    " cannot be unpacked: " + error.what());
  }
}

}  // namespace velto::store
