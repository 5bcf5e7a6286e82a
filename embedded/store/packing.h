// SPDX-License-Identifier: Apache-2.0
//
// Packs and unpacks the chunks of a dataset: a byte shuffle, then one zstd frame.

#ifndef VELTO_EMBEDDED_STORE_PACKING_H
#define VELTO_EMBEDDED_STORE_PACKING_H

#include <cstddef>
#include <memory>
#include <vector>
#include <zstd.h>

namespace velto::store {

/// The number under which zstd is registered as a filter of HDF5. A dataset whose pipeline is
/// [shuffle, this one] has the chunks that Packer makes.
constexpr unsigned kZstdFilter = 32015;

/// How long a chunk is before it is packed, where the dataset is no shorter. Each byte of the
/// elements then fills whole blocks of zstd (128 KiB), which have tables of their own.
constexpr std::size_t kChunkBytes = 1024 * std::size_t{1024};

/// What an array holds, as far as packing is concerned: ids, counts and types, or coordinates and
/// field data.
enum class Content { integers, reals };

/// The level of zstd for an array of a file that is written with compression 1 to 9; more counts as
/// 9. Reals are always packed at level 1, since no other makes them noticeably smaller. REQUIRES:
/// compression >= 1.
int zstdLevel(unsigned compression, Content content);

/// Packed bytes are never more than this.
std::size_t mostPackedBytes(std::size_t rawSize);

/// Packed bytes that somebody else owns.
struct PackedChunk {
  const std::byte* data = nullptr;
  std::size_t size = 0;
};

/// Packs one chunk after the other, for H5Dwrite_chunk. Its memory is reused: once the longest
/// chunk has passed, nothing is allocated any more. One thread at a time; a copy would share
/// nothing, so there is none.
class Packer {
 public:
  /// Errors: std::bad_alloc.
  Packer();

  /// Packs `rawSize` bytes, elements of `elementSize` bytes each, at a level of zstd. The frame
  /// says to how much it unpacks and carries no checksum. What is returned is valid until the next
  /// call.
  ///
  /// The chunks of a dataset are all equally long: the caller fills up the last one.
  ///
  /// REQUIRES: elementSize is 1, 2, 4 or 8. Errors: CaseError if zstd fails, which it does for want
  /// of memory only; std::bad_alloc.
  PackedChunk pack(const std::byte* raw, std::size_t rawSize, std::size_t elementSize, int level);

 private:
  std::unique_ptr<ZSTD_CCtx, std::size_t (*)(ZSTD_CCtx*)> context_;
  std::vector<std::byte> shuffled_;
  std::vector<std::byte> packed_;
};

/// Unpacks what Packer made, or any other writer of the same pipeline, for H5Dread_chunk. Its
/// memory is reused like that of Packer. One thread at a time.
class Unpacker {
 public:
  /// Errors: std::bad_alloc.
  Unpacker();

  /// Unpacks to exactly `rawSize` bytes. Packed bytes may be anything: memory is taken by `rawSize`
  /// and never by what they say, and nothing is written beyond it.
  ///
  /// REQUIRES: elementSize is 1, 2, 4 or 8. Errors: CaseError if the packed bytes are no zstd
  /// frame, one that is damaged or followed by anything, or one that unpacks to another size;
  /// what() says which of these, and leaves file and place to the caller. `raw` is unspecified
  /// then. Damage of values within a frame may go unnoticed. std::bad_alloc.
  void unpack(const std::byte* packed, std::size_t packedSize, std::byte* raw, std::size_t rawSize,
              std::size_t elementSize);

 private:
  std::unique_ptr<ZSTD_DCtx, std::size_t (*)(ZSTD_DCtx*)> context_;
  std::vector<std::byte> shuffled_;
};

}  // namespace velto::store

#endif  // VELTO_EMBEDDED_STORE_PACKING_H
