// SPDX-License-Identifier: Apache-2.0
//
// Lists of labels, points and flags. In text an entry in its common form is taken straight from the
// window; whatever is unusual about one (a comment, the window's end, an error) goes through the
// scanner, entry by entry.

#include "formats/openfoam/read_lists.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstddef>
#include <limits>
#include <string_view>
#include <system_error>

#include "formats/openfoam/binary_blocks.h"
#include "formats/openfoam/characters.h"

namespace velto::openfoam {

namespace {

constexpr std::size_t kBlock = 512;  // entries between two visits to the vector
constexpr std::uint64_t kMostEqualPoints = 1000000;
constexpr std::uint64_t kTextBytesOfLabel = 2;  // a digit and a blank
constexpr std::uint64_t kTextBytesOfPoint = 7;  // (0 0 0)
constexpr EntryNames kPoints = {"point", "points"};

std::uint64_t likelyCount(Scanner& scanner, const ListHead& head, std::uint64_t bytesOfEntry) {
  const std::uint64_t likely = scanner.bytes().likelyBytesLeft() / bytesOfEntry;
  return std::min(head.count.value_or(0), likely);
}

// Reads the end of a list of equal entries, which may be `most`.
void closeUniform(Scanner& scanner, const ListHead& head, const EntryNames& names,
                  std::uint64_t most) {
  if (*head.count > most) {
    scanner.fail(head.place, "at most " + std::to_string(most) + " equal " + names.many,
                 quoted(std::to_string(*head.count)));
  }
  scanner.expect('}', std::string("\"}\" behind the one value of all ") + names.many);
}

// Takes labels in their common form, up to `most` of them. Returns how many.
std::uint64_t takeCommonLabels(ByteSource& bytes, std::uint64_t most, memory::IdList& ids) {
  std::array<std::uint64_t, kBlock> block;
  const char* p = bytes.begin();
  std::uint64_t done = 0;
  for (bool common = true; common && done < most;) {
    const auto wanted = static_cast<std::size_t>(std::min<std::uint64_t>(kBlock, most - done));
    std::size_t n = 0;
    while (n < wanted) {
      const char* const end = commonLabel(p, block[n]);
      if (end == nullptr) {
        break;
      }
      p = end;
      ++n;
    }
    ids.append(block.data(), n);
    done += n;
    common = n == wanted;
  }
  bytes.moveTo(p);
  return done;
}

void readTextLabels(Scanner& scanner, const EntryNames& names, const ListHead& head,
                    memory::IdList& ids) {
  const std::uint64_t count = head.count.value_or(std::numeric_limits<std::uint64_t>::max());
  ids.reserve(ids.size() + static_cast<std::size_t>(likelyCount(scanner, head, kTextBytesOfLabel)));
  for (std::uint64_t done = 0; done < count;) {
    done += takeCommonLabels(scanner.bytes(), count - done, ids);
    if (done == count || (!head.count && scanner.next() == ')')) {
      break;
    }
    const std::optional<std::int64_t> label = scanner.integer();
    if (!label) {
      scanner.fail(entryName(names, head, done));
    }
    ids.add(static_cast<std::uint64_t>(*label) + 1);
    ++done;
  }
  closeList(scanner, names, head);
}

// A point in its common form, "(x y z)", that lies within [p, end). Returns where it ends, or
// nullptr for any other form.
const char* commonPoint(const char* p, const char* end, double* to) {
  while (isBlank(*p)) {
    ++p;
  }
  if (*p != '(') {
    return nullptr;
  }
  ++p;
  for (int i = 0; i < 3; ++i) {
    while (isBlank(*p)) {
      ++p;
    }
    const auto [behind, error] = std::from_chars(p, end, to[i]);
    if (error != std::errc() || behind == end || !endsToken(*behind)) {
      return nullptr;
    }
    p = behind;
  }
  while (isBlank(*p)) {
    ++p;
  }
  return *p == ')' ? p + 1 : nullptr;
}

std::uint64_t takeCommonPoints(ByteSource& bytes, std::uint64_t most,
                               std::vector<double>& coordinates) {
  std::array<double, 3 * kBlock> block;
  const char* p = bytes.begin();
  std::uint64_t done = 0;
  for (bool common = true; common && done < most;) {
    const auto wanted = static_cast<std::size_t>(std::min<std::uint64_t>(kBlock, most - done));
    std::size_t n = 0;
    while (n < wanted) {
      const char* const end = commonPoint(p, bytes.end(), &block[3 * n]);
      if (end == nullptr) {
        break;
      }
      p = end;
      ++n;
    }
    coordinates.insert(coordinates.end(), block.data(), block.data() + 3 * n);
    done += n;
    common = n == wanted;
  }
  bytes.moveTo(p);
  return done;
}

std::array<double, 3> readPoint(Scanner& scanner, const std::string& name) {
  std::array<double, 3> point = {};
  scanner.expect('(', name);
  for (double& coordinate : point) {
    const std::optional<double> value = scanner.real();
    if (!value) {
      scanner.fail("a coordinate of " + name);
    }
    coordinate = *value;
  }
  scanner.expect(')', "\")\" behind the coordinates of " + name);
  return point;
}

void readTextPoints(Scanner& scanner, const ListHead& head, std::vector<double>& coordinates) {
  const std::uint64_t count = head.count.value_or(std::numeric_limits<std::uint64_t>::max());
  coordinates.reserve(3 * static_cast<std::size_t>(likelyCount(scanner, head, kTextBytesOfPoint)));
  for (std::uint64_t done = 0; done < count;) {
    done += takeCommonPoints(scanner.bytes(), count - done, coordinates);
    if (done == count || (!head.count && scanner.next() == ')')) {
      break;
    }
    const std::array<double, 3> point = readPoint(scanner, entryName(kPoints, head, done));
    coordinates.insert(coordinates.end(), point.begin(), point.end());
    ++done;
  }
  closeList(scanner, kPoints, head);
}

std::optional<std::uint8_t> readFlag(Scanner& scanner) {
  constexpr std::array<std::string_view, 4> kTrue = {"1", "true", "on", "yes"};
  constexpr std::array<std::string_view, 4> kFalse = {"0", "false", "off", "no"};
  scanner.next();
  const std::string_view text = scanner.token();
  const bool isTrue = std::find(kTrue.begin(), kTrue.end(), text) != kTrue.end();
  if (!isTrue && std::find(kFalse.begin(), kFalse.end(), text) == kFalse.end()) {
    return std::nullopt;
  }
  scanner.bytes().moveTo(text.data() + text.size());
  return static_cast<std::uint8_t>(isTrue ? 1 : 0);
}

void readTextFlags(Scanner& scanner, const EntryNames& names, const ListHead& head,
                   std::vector<std::uint8_t>& flags) {
  const std::uint64_t count = head.count.value_or(std::numeric_limits<std::uint64_t>::max());
  for (std::uint64_t done = 0; done < count; ++done) {
    if (!head.count && scanner.next() == ')') {
      break;
    }
    const std::optional<std::uint8_t> flag = readFlag(scanner);
    if (!flag) {
      scanner.fail(entryName(names, head, done));
    }
    flags.push_back(*flag);
  }
  closeList(scanner, names, head);
}

}  // namespace

ListHead openList(Scanner& scanner, bool binary, const EntryNames& names) {
  ListHead head;
  const int first = scanner.next();
  head.place = scanner.place();
  if (!binary && first == '(') {
    scanner.advance();
    return head;
  }
  head.count = scanner.naturalNumber();
  if (!head.count) {
    scanner.fail(std::string("the number of ") + names.many);
  }
  if (*head.count == 0) {
    head.kind = ListHead::Kind::kEmpty;
    if (scanner.accept('(')) {
      closeList(scanner, names, head);
    }
    return head;
  }
  if (!binary && scanner.accept('{')) {
    head.kind = ListHead::Kind::kUniform;
    return head;
  }
  scanner.expect('(', "\"(\" before " + std::to_string(*head.count) + " " + names.many);
  return head;
}

void closeList(Scanner& scanner, const EntryNames& names, const ListHead& head) {
  const std::string count = head.count ? std::to_string(*head.count) + " " : "the ";
  scanner.expect(')', "\")\" behind " + count + names.many);
}

std::string entryName(const EntryNames& names, const ListHead& head, std::uint64_t index) {
  if (!head.count) {
    return std::string(names.one) + " " + std::to_string(index + 1) + " or \")\"";
  }
  return std::string(names.one) + " " + std::to_string(index + 1) + " of " +
         std::to_string(*head.count);
}

ListHead::Kind readLabels(Scanner& scanner, FileForm& form, const EntryNames& names,
                          std::uint64_t mostEqual, memory::IdList& ids) {
  const ListHead head = openList(scanner, form.binary, names);
  if (head.kind == ListHead::Kind::kUniform) {
    const std::optional<std::int64_t> label = scanner.integer();
    if (!label) {
      scanner.fail(std::string("one value for all ") + names.many);
    }
    closeUniform(scanner, head, names, mostEqual);
    ids.append(static_cast<std::size_t>(*head.count), static_cast<std::uint64_t>(*label) + 1);
  } else if (head.kind == ListHead::Kind::kEntries && form.binary) {
    readLabelBlock(scanner, form, names, head, ids);
  } else if (head.kind == ListHead::Kind::kEntries) {
    readTextLabels(scanner, names, head, ids);
  }
  return head.kind;
}

void readPoints(Scanner& scanner, FileForm& form, std::vector<double>& coordinates) {
  const ListHead head = openList(scanner, form.binary, kPoints);
  if (head.kind == ListHead::Kind::kUniform) {
    const std::array<double, 3> point = readPoint(scanner, "the one value of equal points");
    closeUniform(scanner, head, kPoints, kMostEqualPoints);
    for (std::uint64_t i = 0; i < *head.count; ++i) {
      coordinates.insert(coordinates.end(), point.begin(), point.end());
    }
  } else if (head.kind == ListHead::Kind::kEntries && form.binary) {
    readPointBlock(scanner, form, kPoints, head, coordinates);
  } else if (head.kind == ListHead::Kind::kEntries) {
    readTextPoints(scanner, head, coordinates);
  }
}

ListHead::Kind readFlags(Scanner& scanner, bool binary, const EntryNames& names,
                         std::uint64_t mostEqual, std::vector<std::uint8_t>& flags) {
  const ListHead head = openList(scanner, binary, names);
  if (head.kind == ListHead::Kind::kUniform) {
    const std::optional<std::uint8_t> flag = readFlag(scanner);
    if (!flag) {
      scanner.fail(std::string("one value for all ") + names.many);
    }
    closeUniform(scanner, head, names, mostEqual);
    flags.insert(flags.end(), static_cast<std::size_t>(*head.count), *flag);
  } else if (head.kind == ListHead::Kind::kEntries && binary) {
    readFlagBlock(scanner, names, head, flags);
  } else if (head.kind == ListHead::Kind::kEntries) {
    readTextFlags(scanner, names, head, flags);
  }
  return head.kind;
}

}  // namespace velto::openfoam
