// SPDX-License-Identifier: Apache-2.0
//
// Binary blocks. They go through the window piece by piece, so that each piece is widened while it
// is still in the cache; bytes are taken to be those of a little-endian machine, like this one.

#include "formats/openfoam/binary_blocks.h"

#include <algorithm>
#include <cstddef>
#include <cstring>
#include <string>

#include "formats/openfoam/characters.h"

namespace velto::openfoam {

namespace {

constexpr std::size_t kTextBehindBlock = 16;  // characters that must look like text

std::size_t vectorSize(std::uint64_t count) { return static_cast<std::size_t>(count); }

// Calls `use(first, n)` for pieces of `count` entries of `width` bytes each.
template <class Use>
void forEachPiece(Scanner& scanner, const EntryNames& names, const ListHead& head,
                  std::size_t width, Use use) {
  ByteSource& bytes = scanner.bytes();
  const std::uint64_t count = *head.count;
  for (std::uint64_t done = 0; done < count;) {
    const std::uint64_t held = static_cast<std::size_t>(bytes.end() - bytes.begin()) / width;
    const std::size_t piece = vectorSize(std::min(held, count - done));
    if (piece == 0 && !bytes.refill()) {
      scanner.fail(scanner.place(), entryName(names, head, done), "the end of the file");
    }
    if (piece > 0) {
      use(bytes.begin(), piece);
      bytes.moveTo(bytes.begin() + piece * width);
      done += piece;
    }
  }
}

// Appends `n` values of type File at `bytes` to `to`, each through `convert`.
template <class File, class Value, class Convert>
void append(const char* bytes, std::size_t n, std::vector<Value>& to, Convert convert) {
  const std::size_t old = to.size();
  to.resize(old + n);
  Value* const target = to.data() + old;
  for (std::size_t i = 0; i < n; ++i) {
    File value;
    std::memcpy(&value, bytes + i * sizeof(File), sizeof(File));
    target[i] = convert(value);
  }
}

template <class Value>
void reserveBlock(Scanner& scanner, const ListHead& head, std::size_t entryBytes,
                  std::size_t valuesPerEntry, std::vector<Value>& to) {
  const std::uint64_t likely = scanner.bytes().likelyBytesLeft() / entryBytes;
  to.reserve(to.size() + vectorSize(std::min(*head.count, likely)) * valuesPerEntry);
}

void closeBlock(Scanner& scanner, const EntryNames& names, const ListHead& head, int bits) {
  if (scanner.here() != ')') {
    const std::string width = bits == 0 ? "" : " of " + std::to_string(bits) + " bits";
    scanner.failHere("\")\" behind " + std::to_string(*head.count) + " " + names.many + width);
  }
  scanner.advance();
}

// Whether a list closes at `offset`: a parenthesis there, and text behind it. Another list may
// follow, of which only the count is text.
bool closesAt(ByteSource& probe, std::uint64_t offset) {
  char text[1 + kTextBehindBlock];
  probe.skipTo(offset);
  if (probe.offset() != offset) {
    return false;
  }
  const std::size_t size = probe.take(text, sizeof(text));
  if (size == 0 || text[0] != ')') {
    return false;
  }
  bool digits = false;
  for (std::size_t i = 1; i < size; ++i) {
    if (text[i] == '(' && digits) {
      return true;
    }
    if (!isBlank(text[i]) && !isPrintable(text[i])) {
      return false;
    }
    digits = digits || isDigit(text[i]);
  }
  return true;
}

// 32 or 64, whichever makes the list close where a block of so many entries ends. `bytesOf32` are
// the bytes of an entry made of values of 32 bits.
int findBits(Scanner& scanner, const EntryNames& names, const ListHead& head,
             std::uint64_t bytesOf32) {
  const std::uint64_t first = scanner.bytes().offset();
  if (*head.count <= scanner.bytes().mostBytesLeft() / bytesOf32) {
    for (const int bits : {32, 64}) {
      ByteSource probe(scanner.file());
      if (closesAt(probe, first + *head.count * bytesOf32 * static_cast<unsigned>(bits / 32))) {
        return bits;
      }
    }
  }
  scanner.fail(
      scanner.place(),
      "\")\" behind " + std::to_string(*head.count) + " " + names.many + " of 32 or 64 bits",
      "none there");
}

}  // namespace

void readLabelBlock(Scanner& scanner, FileForm& form, const EntryNames& names, const ListHead& head,
                    std::vector<std::uint64_t>& ids) {
  scanner.bytes().stopCountingLines();
  if (form.labelBits == 0) {
    form.labelBits = findBits(scanner, names, head, sizeof(std::int32_t));
  }
  const auto toId = [](auto label) {
    return static_cast<std::uint64_t>(static_cast<std::int64_t>(label)) + 1;
  };
  const auto width = static_cast<std::size_t>(form.labelBits) / 8;
  reserveBlock(scanner, head, width, 1, ids);
  forEachPiece(scanner, names, head, width, [&](const char* bytes, std::size_t n) {
    if (form.labelBits == 32) {
      append<std::int32_t>(bytes, n, ids, toId);
    } else {
      append<std::int64_t>(bytes, n, ids, toId);
    }
  });
  closeBlock(scanner, names, head, form.labelBits);
}

void readPointBlock(Scanner& scanner, FileForm& form, const EntryNames& names, const ListHead& head,
                    std::vector<double>& coordinates) {
  scanner.bytes().stopCountingLines();
  if (form.scalarBits == 0) {
    form.scalarBits = findBits(scanner, names, head, 3 * sizeof(float));
  }
  const auto toDouble = [](auto value) { return static_cast<double>(value); };
  const auto width = 3 * static_cast<std::size_t>(form.scalarBits) / 8;
  reserveBlock(scanner, head, width, 3, coordinates);
  forEachPiece(scanner, names, head, width, [&](const char* bytes, std::size_t n) {
    if (form.scalarBits == 32) {
      append<float>(bytes, 3 * n, coordinates, toDouble);
    } else {
      append<double>(bytes, 3 * n, coordinates, toDouble);
    }
  });
  closeBlock(scanner, names, head, form.scalarBits);
}

void readFlagBlock(Scanner& scanner, const EntryNames& names, const ListHead& head,
                   std::vector<std::uint8_t>& flags) {
  scanner.bytes().stopCountingLines();
  const auto toFlag = [](std::uint8_t value) {
    return static_cast<std::uint8_t>(value != 0 ? 1 : 0);
  };
  reserveBlock(scanner, head, 1, 1, flags);
  forEachPiece(scanner, names, head, 1, [&](const char* bytes, std::size_t n) {
    append<std::uint8_t>(bytes, n, flags, toFlag);
  });
  closeBlock(scanner, names, head, 0);
}

}  // namespace velto::openfoam
