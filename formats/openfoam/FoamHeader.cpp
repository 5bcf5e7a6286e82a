// SPDX-License-Identifier: Apache-2.0
//
// The FoamFile dictionary at the head of a file: read, peeked at, judged.

#include "formats/openfoam/FoamHeader.h"

#include <charconv>
#include <cstddef>
#include <cstdint>
#include <string_view>
#include <system_error>
#include <vector>

#include "formats/openfoam/Scanner.h"
#include "formats/openfoam/dictionary.h"

namespace velto::openfoam {

namespace {

constexpr std::uint64_t kPeekBytes = 16 * std::uint64_t{1024};
constexpr const char* kHeaderName = "FoamFile";

struct Entry {
  std::string keyword;
  std::string text;  // without quotes
  Place place;
};

using Entries = std::vector<Entry>;

Entries readEntries(Scanner& scanner) {
  scanner.next();
  if (scanner.token() != kHeaderName) {
    scanner.fail("the header FoamFile");
  }
  readWord(scanner, kHeaderName);
  scanner.expect('{', "\"{\" behind FoamFile");
  Entries entries;
  for (;;) {
    scanner.next();
    const Place place = scanner.place();
    const std::optional<std::string> keyword = readKeyword(scanner);
    if (!keyword) {
      return entries;
    }
    entries.push_back({*keyword, unquoted(readEntryText(scanner, *keyword)), place});
  }
}

// The last entry of that name counts; an empty one if there is none.
Entry find(const Entries& entries, std::string_view keyword) {
  Entry result;
  for (const Entry& entry : entries) {
    if (entry.keyword == keyword) {
      result = entry;
    }
  }
  return result;
}

// The number behind `name` and `sign` in `text`, blanks between them skipped.
std::optional<std::uint64_t> numberBehind(std::string_view text, std::string_view name, char sign) {
  const std::size_t at = text.find(name);
  if (at == std::string_view::npos) {
    return std::nullopt;
  }
  text.remove_prefix(at + name.size());
  if (text.empty() || text.front() != sign) {
    return std::nullopt;
  }
  text.remove_prefix(1);
  while (!text.empty() && text.front() == ' ') {
    text.remove_prefix(1);
  }
  std::uint64_t number = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  return error == std::errc() ? std::make_optional(number) : std::nullopt;
}

// "nPoints:882  nCells:400  nFaces:1640  nInternalFaces:760", with or without blanks.
std::optional<Note> readNote(const std::string& text) {
  const Note note = {numberBehind(text, "nPoints", ':'), numberBehind(text, "nCells", ':'),
                     numberBehind(text, "nFaces", ':'), numberBehind(text, "nInternalFaces", ':')};
  const bool any = note.nodes || note.cells || note.faces || note.internalFaces;
  return any ? std::make_optional(note) : std::nullopt;
}

int widthInArch(Scanner& scanner, const Entry& arch, std::string_view name) {
  const std::uint64_t bits = numberBehind(arch.text, name, '=').value_or(0);
  if (bits != 0 && bits != 32 && bits != 64) {
    scanner.fail(arch.place, "labels and scalars of 32 or 64 bits", quoted(arch.text));
  }
  return static_cast<int>(bits);
}

}  // namespace

std::optional<FoamHeader> peekHeader(const std::string& file) noexcept {
  try {
    Scanner scanner(file, {}, kPeekBytes);
    const Entries entries = readEntries(scanner);
    FoamHeader header;
    header.version = find(entries, "version").text;
    header.format = find(entries, "format").text;
    header.objectClass = find(entries, "class").text;
    header.arch = find(entries, "arch").text;
    header.location = find(entries, "location").text;
    header.object = find(entries, "object").text;
    header.note = find(entries, "note").text;
    return header;
  } catch (...) {
    return std::nullopt;
  }
}

FileForm readHeader(Scanner& scanner, bool classRequired) {
  scanner.next();
  const Place begin = scanner.place();
  const Entries entries = readEntries(scanner);

  const Entry objectClass = find(entries, "class");
  if (classRequired && objectClass.text.empty()) {
    scanner.fail(begin, "the entry class in FoamFile", "none");
  }
  if (objectClass.text == "decomposedBlockData") {
    scanner.fail(objectClass.place, "a file of one piece (collated files are not read)",
                 quoted(objectClass.text));
  }
  const Entry format = find(entries, "format");
  FileForm form;
  form.binary = format.text == "binary";
  if (!form.binary && !format.text.empty() && format.text != "ascii") {
    scanner.fail(format.place, "the format ascii or binary", quoted(format.text));
  }
  form.compact = objectClass.text == "faceCompactList";
  form.note = readNote(find(entries, "note").text);
  const Entry arch = find(entries, "arch");
  if (form.binary && arch.text.find("MSB") != std::string::npos) {
    scanner.fail(arch.place, "binary content of a little-endian machine (LSB)", quoted(arch.text));
  }
  if (form.binary) {
    form.labelBits = widthInArch(scanner, arch, "label");
    form.scalarBits = widthInArch(scanner, arch, "scalar");
  }
  return form;
}

}  // namespace velto::openfoam
