// SPDX-License-Identifier: Apache-2.0
//
// Large datasets: their place in the file, their chunks, their numbers.

#include <array>

#include "embedded/store/hdf5_calls.h"
#include "embedded/store/packing.h"

namespace velto::store {

using base::CaseError;

namespace {

constexpr auto kZstd = static_cast<H5Z_filter_t>(kZstdFilter);

/// No chunk is larger: what a reader has to hold in memory at once.
constexpr std::uint64_t kMostChunkBytes = std::uint64_t{64} << 20U;

/// A run of a dataset's numbers.
Handle selection(hid_t dataset, std::uint64_t first, std::uint64_t count) {
  Handle space(H5Dget_space(dataset), H5Sclose);
  const hsize_t start = first;
  const hsize_t length = count;
  H5Sselect_hyperslab(space.id(), H5S_SELECT_SET, &start, nullptr, &length, nullptr);
  return space;
}

Handle memorySpace(std::uint64_t count) {
  const hsize_t length = count;
  return {H5Screate_simple(1, &length, nullptr), H5Sclose};
}

/// Whether chunks go through the byte shuffle and zstd, and nothing else.
bool isPacked(hid_t creation) {
  if (H5Pget_nfilters(creation) != 2) {
    return false;
  }
  std::array<H5Z_filter_t, 2> filters{};
  for (unsigned i = 0; i < 2; ++i) {
    std::size_t values = 0;
    unsigned flags = 0;
    filters.at(i) = H5Pget_filter2(creation, i, &flags, &values, nullptr, 0, nullptr, nullptr);
  }
  return filters == std::array<H5Z_filter_t, 2>{H5Z_FILTER_SHUFFLE, kZstd};
}

}  // namespace

std::size_t sizeOf(NumberType type) {
  const Hdf5Turn turn;
  return H5Tget_size(numberTypeId(type));
}

hid_t numberTypeId(NumberType type) {
  switch (type) {
    case NumberType::int16:
      return H5T_STD_I16LE;
    case NumberType::int32:
      return H5T_STD_I32LE;
    case NumberType::uint64:
      return H5T_STD_U64LE;
    case NumberType::float64:
      return H5T_IEEE_F64LE;
  }
  return H5I_INVALID_HID;
}

Dataset Group::makeDataset(const std::string& name, NumberType type, std::uint64_t rows,
                           std::uint64_t chunkRows) {
  const Hdf5Turn turn;
  const Handle creation = datasetCreation();
  const hsize_t extent = chunkRows == 0 ? rows : 0;
  const hsize_t most = chunkRows == 0 ? rows : H5S_UNLIMITED;
  const Handle space(H5Screate_simple(1, &extent, &most), H5Sclose);
  H5Pset_fill_time(creation.id(), H5D_FILL_TIME_NEVER);
  if (chunkRows == 0) {
    H5Pset_alloc_time(creation.id(), H5D_ALLOC_TIME_EARLY);
  } else {
    const hsize_t chunk = chunkRows;
    const QuietErrors quiet;
    H5Pset_chunk(creation.id(), 1, &chunk);
    H5Pset_shuffle(creation.id());
    H5Pset_filter(creation.id(), kZstd, H5Z_FLAG_OPTIONAL, 0, nullptr);
  }
  const hid_t id = hdf5(where(name), "cannot be made", [&] {
    return H5Dcreate2(handle_.id(), name.c_str(), numberTypeId(type), space.id(), H5P_DEFAULT,
                      creation.id(), H5P_DEFAULT);
  });
  Dataset made(Handle(id, H5Dclose), type, where(name));
  made.rows_ = extent;
  made.chunkRows_ = chunkRows;
  made.storage_ = chunkRows == 0 ? Storage::contiguous : Storage::packed;
  made.offset_ = chunkRows == 0 ? H5Dget_offset(id) : 0;
  return made;
}

Dataset Group::openDataset(const std::string& name, NumberType type) const {
  const Hdf5Turn turn;
  if (!has(name)) {
    throw CaseError(where(name) + ": the dataset is missing");
  }
  const hid_t id = hdf5(where(name), "cannot be opened as a dataset",
                        [&] { return H5Dopen2(handle_.id(), name.c_str(), H5P_DEFAULT); });
  Dataset opened(Handle(id, H5Dclose), type, where(name));
  opened.examine(fileSize_);
  return opened;
}

void Dataset::examine(std::uint64_t fileSize) {
  const hid_t id = handle_.id();
  const Handle fileType(H5Dget_type(id), H5Tclose);
  if (H5Tequal(fileType.id(), numberTypeId(type_)) <= 0) {
    throw CaseError(where_ + ": the numbers have another type");
  }
  const Handle space(H5Dget_space(id), H5Sclose);
  if (H5Sget_simple_extent_ndims(space.id()) != 1) {
    throw CaseError(where_ + ": numbers in one row are expected");
  }
  rows_ = static_cast<std::uint64_t>(H5Sget_simple_extent_npoints(space.id()));
  const Handle creation(H5Dget_create_plist(id), H5Pclose);
  const std::uint64_t size = sizeOf(type_);
  const H5D_layout_t layout = H5Pget_layout(creation.id());
  if (layout == H5D_CHUNKED) {
    hsize_t chunk = 0;
    H5Pget_chunk(creation.id(), 1, &chunk);
    chunkRows_ = chunk;
    storage_ = isPacked(creation.id()) ? Storage::packed : Storage::other;
    examineChunks();
    return;
  }
  const haddr_t offset = layout == H5D_CONTIGUOUS ? H5Dget_offset(id) : HADDR_UNDEF;
  const bool held = layout == H5D_COMPACT ||
                    (offset != HADDR_UNDEF && H5Pget_external_count(creation.id()) == 0 &&
                     offset <= fileSize && rows_ <= (fileSize - offset) / size);
  if (!held && rows_ > 0) {
    throw CaseError(where_ + ": " + std::to_string(rows_) +
                    " numbers are claimed, which the file does not hold");
  }
  storage_ = layout == H5D_CONTIGUOUS ? Storage::contiguous : Storage::other;
  offset_ = offset;
}

void Dataset::examineChunks() {
  hsize_t there = 0;
  const Handle space(H5Dget_space(handle_.id()), H5Sclose);
  hdf5(where_, "has an unreadable list of chunks",
       [&] { return H5Dget_num_chunks(handle_.id(), space.id(), &there); });
  if (chunkRows_ == 0 || chunkRows_ > kMostChunkBytes / sizeOf(type_)) {
    throw CaseError(where_ + ": chunks of " + std::to_string(chunkRows_) +
                    " numbers are more than a reader takes");
  }
  const std::uint64_t needed = rows_ / chunkRows_ + (rows_ % chunkRows_ == 0 ? 0 : 1);
  if (there != needed) {
    throw CaseError(where_ + ": " + std::to_string(rows_) + " numbers need " +
                    std::to_string(needed) + " chunks, " + std::to_string(there) + " are there");
  }
}

std::vector<FileRange> Dataset::ranges() const {
  const Hdf5Turn turn;
  if (storage_ == Storage::contiguous) {
    return {{offset_, offset_ + rows_ * sizeOf(type_)}};
  }
  std::vector<FileRange> ranges;
  for (hsize_t row = 0; storage_ == Storage::packed && row < rows_; row += chunkRows_) {
    unsigned filters = 0;
    haddr_t address = 0;
    hsize_t size = 0;
    hdf5(where_, "has an unreadable list of chunks",
         [&] { return H5Dget_chunk_info_by_coord(handle_.id(), &row, &filters, &address, &size); });
    ranges.push_back({address, address + size});
  }
  return ranges;
}

void Dataset::read(std::uint64_t first, std::uint64_t count, void* values) const {
  const Hdf5Turn turn;
  const Handle file = selection(handle_.id(), first, count);
  const Handle memory = memorySpace(count);
  hdf5(where_, "cannot be read", [&] {
    return H5Dread(handle_.id(), numberTypeId(type_), memory.id(), file.id(), H5P_DEFAULT, values);
  });
}

void Dataset::write(std::uint64_t first, std::uint64_t count, const void* values) {
  const Hdf5Turn turn;
  const Handle file = selection(handle_.id(), first, count);
  const Handle memory = memorySpace(count);
  hdf5(where_, "cannot be written", [&] {
    return H5Dwrite(handle_.id(), numberTypeId(type_), memory.id(), file.id(), H5P_DEFAULT, values);
  });
}

void Dataset::extend(std::uint64_t rows) {
  const Hdf5Turn turn;
  const hsize_t extent = rows;
  hdf5(where_, "cannot be made longer", [&] { return H5Dset_extent(handle_.id(), &extent); });
  rows_ = rows;
}

void Dataset::writeChunk(std::uint64_t firstRow, const void* bytes, std::size_t size) {
  const Hdf5Turn turn;
  const hsize_t at = firstRow;
  hdf5(where_, "cannot be written",
       [&] { return H5Dwrite_chunk(handle_.id(), H5P_DEFAULT, 0, &at, size, bytes); });
}

std::size_t Dataset::chunkSize(std::uint64_t firstRow) const {
  const Hdf5Turn turn;
  const hsize_t at = firstRow;
  hsize_t size = 0;
  hdf5(where_, "has an unreadable chunk",
       [&] { return H5Dget_chunk_storage_size(handle_.id(), &at, &size); });
  return size;
}

void Dataset::readChunk(std::uint64_t firstRow, void* bytes) const {
  const Hdf5Turn turn;
  const hsize_t at = firstRow;
  std::uint32_t filters = 0;
  hdf5(where_, "cannot be read",
       [&] { return H5Dread_chunk(handle_.id(), H5P_DEFAULT, &at, &filters, bytes); });
  if (filters != 0) {
    throw CaseError(where_ + ": a chunk was written without its filters");
  }
}

}  // namespace velto::store
