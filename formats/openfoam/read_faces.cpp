// SPDX-License-Identifier: Apache-2.0
//
// Lists of faces: node loops in text, start offsets and node labels in binary.
//
//   faceList         N ( 4(1 22 463 442) 3(7 8 9) ... )         in old binary files: 4(raw)
//   faceCompactList  N+1 ( start offsets, the first 0 )  M ( all node labels )

#include <algorithm>
#include <array>
#include <cstddef>
#include <limits>

#include "formats/openfoam/characters.h"
#include "formats/openfoam/read_lists.h"

namespace velto::openfoam {

namespace {

constexpr std::uint64_t kMostNodes = std::numeric_limits<std::int16_t>::max();
constexpr std::uint64_t kMostEqualNodes = 16;  // of a face written as N{a}, which no mesher writes
constexpr std::uint64_t kTextBytesOfFace = 3;  // 0()
constexpr std::uint64_t kUsualNodes = 4;
constexpr std::size_t kMostCommonNodes = 99;  // of a face that is read without the scanner
constexpr EntryNames kFaces = {"face", "faces"};
constexpr EntryNames kNodeLabels = {"node label", "node labels"};
constexpr EntryNames kStarts = {"start offset", "start offsets"};

// Appends the face at `p`, blanks before it skipped, if it has the common form N(a b c) and lies
// within the window, which ends with a NUL. Returns where it ends; nullptr, and nothing appended,
// for any other form.
const char* commonFace(const char* p, std::vector<std::int16_t>& counts, memory::IdList& ids) {
  while (isBlank(*p)) {
    ++p;
  }
  std::size_t count = 0;
  for (; isDigit(*p) && count <= kMostCommonNodes; ++p) {
    count = count * 10 + static_cast<std::size_t>(*p - '0');
  }
  while (isBlank(*p)) {
    ++p;
  }
  if (*p != '(' || count == 0 || count > kMostCommonNodes) {
    return nullptr;
  }
  ++p;
  std::array<std::uint64_t, kMostCommonNodes> loop;
  for (std::size_t i = 0; i < count && p != nullptr; ++i) {
    p = commonLabel(p, loop[i]);
  }
  while (p != nullptr && isBlank(*p)) {
    ++p;
  }
  if (p == nullptr || *p != ')') {
    return nullptr;
  }
  ids.append(loop.data(), count);
  counts.push_back(static_cast<std::int16_t>(count));
  return p + 1;
}

std::uint64_t takeCommonFaces(ByteSource& bytes, std::uint64_t most,
                              std::vector<std::int16_t>& counts, memory::IdList& ids) {
  std::uint64_t done = 0;
  while (done < most) {
    const char* const end = commonFace(bytes.begin(), counts, ids);
    if (end == nullptr) {
      break;
    }
    bytes.moveTo(end);
    ++done;
  }
  return done;
}

// Any face: a list of labels of its own.
void readFace(Scanner& scanner, FileForm& form, const ListHead& faces, std::uint64_t index,
              std::vector<std::int16_t>& counts, memory::IdList& ids) {
  const int first = scanner.next();
  if (!isDigit(static_cast<char>(first)) && first != '-' && first != '(') {
    scanner.fail(entryName(kFaces, faces, index));
  }
  const Place place = scanner.place();
  const std::size_t old = ids.size();
  readLabels(scanner, form, kNodeLabels, kMostEqualNodes, ids);
  const std::size_t count = ids.size() - old;
  if (count > kMostNodes) {
    scanner.fail(place, "a face of at most 32767 nodes", "one of " + std::to_string(count));
  }
  counts.push_back(static_cast<std::int16_t>(count));
}

void readFaceList(Scanner& scanner, FileForm& form, std::vector<std::int16_t>& counts,
                  memory::IdList& ids) {
  const ListHead head = openList(scanner, false, kFaces);
  if (head.kind == ListHead::Kind::kEmpty) {
    return;
  }
  if (head.kind == ListHead::Kind::kUniform) {
    scanner.fail(head.place, "faces one by one", "a list of equal faces");
  }
  const std::uint64_t count = head.count.value_or(std::numeric_limits<std::uint64_t>::max());
  const std::uint64_t left = scanner.bytes().likelyBytesLeft();
  const std::uint64_t likely = std::min(head.count.value_or(0), left / kTextBytesOfFace);
  counts.reserve(static_cast<std::size_t>(likely));
  ids.reserve(static_cast<std::size_t>(std::min(likely * kUsualNodes, left / 2)));
  for (std::uint64_t done = 0; done < count;) {
    if (!form.binary) {
      done += takeCommonFaces(scanner.bytes(), count - done, counts, ids);
    }
    if (done == count || (!head.count && scanner.next() == ')')) {
      break;
    }
    readFace(scanner, form, head, done, counts, ids);
    ++done;
  }
  closeList(scanner, kFaces, head);
}

// Turns start offsets, each as offset + 1, into the faces' numbers of nodes.
class StartOffsets {
 public:
  StartOffsets(Scanner& scanner, const FileForm& form) : scanner_(scanner), form_(form) {}

  void read(FileForm& form) {
    scanner_.next();
    place_ = scanner_.place();
    readLabels(scanner_, form, kStarts, 0, starts_);
    behind_ = scanner_.place();
  }

  void toCounts(std::uint64_t nodeLabels, std::vector<std::int16_t>& counts) {
    if (starts_.empty() && nodeLabels == 0) {
      return;
    }
    if (starts_.empty() || starts_.front() != 1) {
      fail(0, "to be 0");
    }
    counts.resize(starts_.size() - 1);
    starts_.visit([&](const auto* starts, std::size_t n) {
      for (std::size_t i = 1; i < n; ++i) {
        const std::uint64_t count = std::uint64_t{starts[i]} - starts[i - 1];
        if (count > kMostNodes || isLower(i)) {
          failBehind(i);
        }
        counts[i - 1] = static_cast<std::int16_t>(count);
      }
    });
    if (starts_.back() - 1 != nodeLabels) {
      fail(starts_.size() - 1, "to be " + std::to_string(nodeLabels) +
                                   ", the number of node labels behind the start offsets");
    }
  }

 private:
  std::string text(std::size_t index) const {
    return std::to_string(static_cast<std::int64_t>(starts_[index] - 1));
  }

  // Whether a start offset is lower than the one before it, as numbers with a sign.
  bool isLower(std::size_t i) const {
    return static_cast<std::int64_t>(starts_[i] - 1) <
           static_cast<std::int64_t>(starts_[i - 1] - 1);
  }

  // What is wrong with a start offset that is too far from the one before it.
  [[noreturn]] void failBehind(std::size_t i) {
    fail(i, (isLower(i) ? "to be at least " : "to be at most 32767 more than ") + text(i - 1));
  }

  // In binary content the entry's own place, counted back from the parenthesis behind the block.
  [[noreturn]] void fail(std::size_t index, const std::string& expected) {
    Place place = place_;
    if (form_.binary && !starts_.empty()) {
      const auto bytesOfLabel = static_cast<std::uint64_t>(form_.labelBits) / 8;
      place = {0, behind_.byte - 1 - (starts_.size() - index) * bytesOfLabel};
    }
    scanner_.fail(place, "start offset " + std::to_string(index + 1) + " " + expected,
                  starts_.empty() ? "none" : "\"" + text(index) + "\"");
  }

  Scanner& scanner_;
  const FileForm& form_;
  memory::IdList starts_;
  Place place_;
  Place behind_;
};

}  // namespace

void readFaces(Scanner& scanner, FileForm& form, std::vector<std::int16_t>& counts,
               memory::IdList& ids) {
  if (!form.compact) {
    readFaceList(scanner, form, counts, ids);
    return;
  }
  StartOffsets starts(scanner, form);
  starts.read(form);
  readLabels(scanner, form, kNodeLabels, 0, ids);
  starts.toCounts(ids.size(), counts);
}

}  // namespace velto::openfoam
