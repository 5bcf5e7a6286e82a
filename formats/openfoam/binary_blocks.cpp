// SPDX-License-Identifier: Apache-2.0
//
// Binary blocks. They go through the window piece by piece, so that each piece is widened while it
// is still in the cache; bytes are taken to be those of a little-endian machine, like this one.

#include "formats/openfoam/binary_blocks.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstring>
#include <string>

#include "formats/openfoam/characters.h"

namespace velto::openfoam {

namespace {

constexpr std::size_t kLabelsAtOnce = 1024;
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

/// Appends `n` labels of type Label as ids. Those of type Id hold all but labels below -1.
template <class Label, class Id>
void appendLabels(const char* bytes, std::size_t n, memory::IdList& ids) {
  std::array<Id, kLabelsAtOnce> made;
  for (std::size_t done = 0; done < n;) {
    const std::size_t part = std::min(n - done, kLabelsAtOnce);
    Label wild = 0;  // negative if one of the labels is below -1, as it and its id are then
    for (std::size_t i = 0; i < part; ++i) {
      Label label;
      std::memcpy(&label, bytes + (done + i) * sizeof(Label), sizeof(Label));
      made[i] = static_cast<Id>(label) + 1;
      wild |= label & static_cast<Label>(made[i]);
    }
    if (wild >= 0 || sizeof(Id) == sizeof(std::uint64_t)) {
      ids.append(made.data(), part);
    } else {
      for (std::size_t i = 0; i < part; ++i) {
        const auto label = static_cast<Label>(made[i] - 1);  // again with its sign
        ids.add(static_cast<std::uint64_t>(std::int64_t{label}) + 1);
      }
    }
    done += part;
  }
}

template <class Values>
void reserveBlock(Scanner& scanner, const ListHead& head, std::size_t entryBytes,
                  std::size_t valuesPerEntry, Values& to) {
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
                    memory::IdList& ids) {
  scanner.bytes().stopCountingLines();
  if (form.labelBits == 0) {
    form.labelBits = findBits(scanner, names, head, sizeof(std::int32_t));
  }
  const auto width = static_cast<std::size_t>(form.labelBits) / 8;
  reserveBlock(scanner, head, width, 1, ids);
  forEachPiece(scanner, names, head, width, [&](const char* bytes, std::size_t n) {
    if (form.labelBits == 32) {
      appendLabels<std::int32_t, std::uint32_t>(bytes, n, ids);
    } else {
      appendLabels<std::int64_t, std::uint64_t>(bytes, n, ids);
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
