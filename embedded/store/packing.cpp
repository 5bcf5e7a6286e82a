// SPDX-License-Identifier: Apache-2.0
//
// Packing and unpacking of chunks with zstd.

#include "embedded/store/packing.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <new>
#include <string>

#include "embedded/base/CaseError.h"
#include "embedded/store/shuffle.h"

namespace velto::store {

namespace {

// How a frame begins in the format of zstd 0.8 and later. What zstd reads beside it, older formats
// and frames to be skipped, has no place in a chunk.
constexpr std::array<unsigned char, 4> kMagic = {0x28, 0xB5, 0x2F, 0xFD};

// By compression 1 to 9. Between zstd's levels 7 and 16 ids become no smaller, only slower to pack.
constexpr std::array<int, 9> kLevels = {1, 2, 3, 4, 5, 7, 16, 17, 19};

// At least `size` bytes; those that are there already are not filled again.
std::byte* room(std::vector<std::byte>& buffer, std::size_t size) {
  if (buffer.size() < size) {
    buffer.resize(size);
  }
  return buffer.data();
}

// Throws unless the packed bytes are one zstd frame and nothing else, by its outline: the sizes of
// its header and its blocks.
void requireOneFrame(const std::byte* packed, std::size_t packedSize) {
  if (packedSize < kMagic.size() || std::memcmp(packed, kMagic.data(), kMagic.size()) != 0) {
    throw base::CaseError("not a zstd frame");
  }
  const std::size_t frameSize = ZSTD_findFrameCompressedSize(packed, packedSize);
  if (ZSTD_isError(frameSize) != 0) {
    throw base::CaseError(std::string("a damaged zstd frame: ") + ZSTD_getErrorName(frameSize));
  }
  if (frameSize != packedSize) {
    throw base::CaseError("a zstd frame of " + std::to_string(frameSize) + " bytes in " +
                          std::to_string(packedSize));
  }
}

void requireSize(unsigned long long size, std::size_t rawSize) {
  if (size != rawSize) {
    throw base::CaseError("unpacks to " + std::to_string(size) + " bytes instead of " +
                          std::to_string(rawSize));
  }
}

}  // namespace

std::size_t mostPackedBytes(std::size_t rawSize) { return ZSTD_compressBound(rawSize); }

int zstdLevel(unsigned compression, Content content) {
  if (content == Content::reals) {
    return kLevels.front();
  }
  return kLevels[std::min<std::size_t>(compression, kLevels.size()) - 1];
}

Packer::Packer() : context_(ZSTD_createCCtx(), &ZSTD_freeCCtx) {
  if (context_ == nullptr) {
    throw std::bad_alloc();
  }
}

PackedChunk Packer::pack(const std::byte* raw, std::size_t rawSize, std::size_t elementSize,
                         int level) {
  if (elementSize != 1) {
    shuffle(raw, room(shuffled_, rawSize), rawSize, elementSize);
    raw = shuffled_.data();
  }
  ZSTD_CCtx_setParameter(context_.get(), ZSTD_c_compressionLevel, level);
  const std::size_t bound = mostPackedBytes(rawSize);
  const std::size_t size =
      ZSTD_compress2(context_.get(), room(packed_, bound), bound, raw, rawSize);
  if (ZSTD_isError(size) != 0) {
    throw base::CaseError(std::string("zstd cannot pack: ") + ZSTD_getErrorName(size));
  }
  return {packed_.data(), size};
}

Unpacker::Unpacker() : context_(ZSTD_createDCtx(), &ZSTD_freeDCtx) {
  if (context_ == nullptr) {
    throw std::bad_alloc();
  }
}

void Unpacker::unpack(const std::byte* packed, std::size_t packedSize, std::byte* raw,
                      std::size_t rawSize, std::size_t elementSize) {
  requireOneFrame(packed, packedSize);
  const unsigned long long claimed = ZSTD_getFrameContentSize(packed, packedSize);
  if (claimed != ZSTD_CONTENTSIZE_UNKNOWN) {
    requireSize(claimed, rawSize);
  }
  std::byte* bytes = elementSize == 1 ? raw : room(shuffled_, rawSize);
  const std::size_t size = ZSTD_decompressDCtx(context_.get(), bytes, rawSize, packed, packedSize);
  if (ZSTD_isError(size) != 0) {
    throw base::CaseError(std::string("a damaged zstd frame: ") + ZSTD_getErrorName(size));
  }
  requireSize(size, rawSize);
  if (elementSize != 1) {
    unshuffle(bytes, raw, rawSize, elementSize);
  }
}

}  // namespace velto::store
