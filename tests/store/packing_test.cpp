// SPDX-License-Identifier: Apache-2.0
//
// Packed chunks: what is packed comes back, and what is damaged is refused and never crashes.

#include "embedded/store/packing.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <gtest/gtest.h>
#include <random>
#include <string>
#include <vector>
#include <zstd.h>
#include <zstd_errors.h>

#include "embedded/base/CaseError.h"

namespace velto::store {
namespace {

using Bytes = std::vector<std::byte>;

/// Bytes that pack, but not into nothing.
Bytes someBytes(std::size_t size) {
  Bytes bytes(size);
  std::uint32_t state = 1;
  for (std::byte& byte : bytes) {
    state = state * 1664525 + 1013904223;
    byte = static_cast<std::byte>(state >> 29);
  }
  return bytes;
}

Bytes bytesOf(const PackedChunk& chunk) { return Bytes(chunk.data, chunk.data + chunk.size); }

Bytes packed(const Bytes& raw, std::size_t elementSize, int level = 3) {
  Packer packer;
  return bytesOf(packer.pack(raw.data(), raw.size(), elementSize, level));
}

Bytes unpacked(const Bytes& packedBytes, std::size_t rawSize, std::size_t elementSize) {
  Unpacker unpacker;
  Bytes raw(rawSize);
  unpacker.unpack(packedBytes.data(), packedBytes.size(), raw.data(), rawSize, elementSize);
  return raw;
}

/// What is said of bytes that cannot be unpacked; "" if they can.
std::string complaint(const Bytes& packedBytes, std::size_t rawSize, std::size_t elementSize = 8) {
  try {
    unpacked(packedBytes, rawSize, elementSize);
  } catch (const base::CaseError& error) {
    return error.what();
  }
  return "";
}

/// The same of a damaged frame; the reason is zstd's, whose words depend on its version.
std::string damaged(ZSTD_ErrorCode reason) {
  return std::string("a damaged zstd frame: ") + ZSTD_getErrorString(reason);
}

/// A frame of zstd's streaming calls, which does not say how long it unpacks.
Bytes frameOfUnknownSize(const Bytes& raw) {
  Bytes frame(ZSTD_compressBound(raw.size()));
  ZSTD_CCtx* context = ZSTD_createCCtx();
  ZSTD_inBuffer in = {raw.data(), raw.size(), 0};
  ZSTD_outBuffer out = {frame.data(), frame.size(), 0};
  ZSTD_compressStream2(context, &out, &in, ZSTD_e_continue);
  ZSTD_compressStream2(context, &out, &in, ZSTD_e_end);
  ZSTD_freeCCtx(context);
  frame.resize(out.pos);
  return frame;
}

TEST(Packing, GivesBackWhatWasPacked) {
  for (const std::size_t elementSize : {1U, 2U, 4U, 8U}) {
    for (const std::size_t n : {0U, 1U, 3U, 127U, 129U, 4096U, 100003U}) {
      for (const int level : {1, 9, 19}) {
        SCOPED_TRACE(std::to_string(n) + " elements of " + std::to_string(elementSize));
        const Bytes raw = someBytes(n * elementSize);
        EXPECT_EQ(unpacked(packed(raw, elementSize, level), raw.size(), elementSize), raw);
      }
    }
  }
}

TEST(Packing, ReusesItsMemoryForChunksOfOtherSizes) {
  Packer packer;
  Unpacker unpacker;
  for (const std::size_t size : {800U, 80000U, 0U, 24U, 80000U}) {
    const Bytes raw = someBytes(size);
    const PackedChunk chunk = packer.pack(raw.data(), size, 8, 1);
    Bytes back(size);
    unpacker.unpack(chunk.data, chunk.size, back.data(), size, 8);
    EXPECT_EQ(back, raw);
  }
}

TEST(Packing, ShufflesBeforeItPacks) {
  const Bytes raw = {std::byte{1}, std::byte{2}, std::byte{3}, std::byte{4}};
  const Bytes shuffled = {std::byte{1}, std::byte{3}, std::byte{2}, std::byte{4}};
  EXPECT_EQ(unpacked(packed(raw, 2), raw.size(), 1), shuffled);
}

TEST(Packing, UnpacksAFrameThatDoesNotSayItsSize) {
  const Bytes raw = someBytes(1000);
  const Bytes frame = frameOfUnknownSize(raw);
  ASSERT_EQ(ZSTD_getFrameContentSize(frame.data(), frame.size()), ZSTD_CONTENTSIZE_UNKNOWN);
  EXPECT_EQ(unpacked(frame, raw.size(), 1), raw);
  EXPECT_EQ(complaint(frame, 1008), "unpacks to 1000 bytes instead of 1008");
  EXPECT_EQ(complaint(frame, 992), damaged(ZSTD_error_dstSize_tooSmall));
}

TEST(Packing, RefusesWhatIsNoFrame) {
  EXPECT_EQ(complaint({}, 0), "not a zstd frame");
  EXPECT_EQ(complaint(someBytes(100), 800), "not a zstd frame");
  Bytes frame = packed(someBytes(800), 8);
  frame[0] ^= std::byte{1};
  EXPECT_EQ(complaint(frame, 800), "not a zstd frame");
}

TEST(Packing, RefusesAFrameOfAnotherSize) {
  const Bytes frame = packed(someBytes(800), 8);
  EXPECT_EQ(complaint(frame, 808), "unpacks to 800 bytes instead of 808");
  EXPECT_EQ(complaint(frame, 0), "unpacks to 800 bytes instead of 0");
}

// The size stands behind four bytes of magic and one that says how it is written: 2 bytes, less
// 256.
TEST(Packing, BelievesNoSizeThatAFrameClaims) {
  Bytes frame = packed(someBytes(800), 8);
  ASSERT_EQ(frame[4], std::byte{0x60});
  frame[5] = frame[6] = std::byte{0xFF};
  EXPECT_EQ(complaint(frame, 800), "unpacks to 65791 bytes instead of 800");
  EXPECT_EQ(complaint(frame, 65791), damaged(ZSTD_error_corruption_detected));
}

TEST(Packing, RefusesWhatFollowsAFrame) {
  Bytes frame = packed(someBytes(800), 8);
  const std::string size = std::to_string(frame.size());
  frame.push_back(std::byte{0});
  EXPECT_EQ(complaint(frame, 800),
            "a zstd frame of " + size + " bytes in " + std::to_string(frame.size()));
}

TEST(Packing, RefusesAFrameThatIsCutAnywhere) {
  const Bytes frame = packed(someBytes(800), 8);
  for (std::size_t size = 0; size < frame.size(); ++size) {
    EXPECT_EQ(complaint(Bytes(frame.data(), frame.data() + size), 800),
              size < 4 ? "not a zstd frame" : damaged(ZSTD_error_srcSize_wrong));
  }
}

// Some of these unpack to other values, which a frame by itself does not tell.
TEST(Packing, SurvivesAnyBitThatIsFlipped) {
  const Bytes raw = someBytes(4000);
  Bytes frame = packed(raw, 8);
  std::size_t refused = 0;
  for (std::size_t bit = 0; bit < 8 * frame.size(); ++bit) {
    frame[bit / 8] ^= std::byte{1} << (bit % 8);
    refused += complaint(frame, raw.size()).empty() ? 0 : 1;
    frame[bit / 8] ^= std::byte{1} << (bit % 8);
  }
  EXPECT_GE(refused, 8 * std::size_t{4});  // the magic at least
  EXPECT_EQ(unpacked(frame, raw.size(), 8), raw);
}

TEST(Packing, SurvivesRandomBytesBehindTheHeadOfAFrame) {
  std::mt19937 random(1);
  const Bytes sound = packed(someBytes(4000), 8);
  for (int i = 0; i < 2000; ++i) {
    Bytes frame = sound;
    const std::size_t first = 4 + random() % (frame.size() - 4);
    const std::size_t last = std::min<std::size_t>(frame.size(), first + 1 + random() % 16);
    for (std::size_t at = first; at < last; ++at) {
      frame[at] = static_cast<std::byte>(random());
    }
    const std::string said = complaint(frame, 4000);
    EXPECT_TRUE(said.empty() || said.rfind("a damaged zstd frame: ", 0) == 0 ||
                said.rfind("a zstd frame of ", 0) == 0 || said.rfind("unpacks to ", 0) == 0)
        << said;
  }
}

TEST(Packing, PacksIntegersHarderWithEachLevelAndRealsAlwaysAlike) {
  std::vector<int> integers;
  for (unsigned compression = 1; compression <= 10; ++compression) {
    integers.push_back(zstdLevel(compression, Content::integers));
    EXPECT_EQ(zstdLevel(compression, Content::reals), 1);
  }
  EXPECT_EQ(integers, std::vector<int>({1, 2, 3, 4, 5, 7, 16, 17, 19, 19}));
}

}  // namespace
}  // namespace velto::store
