// SPDX-License-Identifier: Apache-2.0
//
// The patches of a mesh:  N ( inlet { type patch; nFaces 20; startFace 760; } ... )

#include "formats/openfoam/read_boundary.h"

#include <charconv>
#include <optional>
#include <string>
#include <system_error>
#include <utility>

#include "formats/openfoam/dictionary.h"
#include "formats/openfoam/named_list.h"
#include "formats/openfoam/read_lists.h"

namespace velto::openfoam {

namespace {

constexpr EntryNames kPatches = {"patch", "patches"};

// One patch and where its entries stand.
class PatchReader {
 public:
  explicit PatchReader(Scanner& scanner) : scanner_(scanner) {}

  Patch read(const std::string& expected) {
    scanner_.next();
    place_ = scanner_.place();
    patch_.line = place_.line;
    patch_.name = readWord(scanner_, expected);
    scanner_.expect('{', "\"{\" behind the name of patch " + quoted(patch_.name));
    readEntries();
    if (patch_.type.empty()) {
      failMissing("type");
    }
    patch_.faceCount = require("nFaces", faceCount_);
    patch_.firstFace = require("startFace", firstFace_);
    return std::move(patch_);
  }

 private:
  void readEntries() {
    for (;;) {
      scanner_.next();
      const Place place = scanner_.place();
      const std::optional<std::string> keyword = readKeyword(scanner_);
      if (!keyword) {
        return;
      }
      std::string text = readEntryText(scanner_, *keyword);
      if (*keyword == "type") {
        patch_.type = unquoted(text);
      } else if (*keyword == "neighbourPatch") {
        patch_.neighbourPatch = unquoted(text);
      } else if (*keyword == "nFaces") {
        faceCount_ = number(*keyword, text, place);
      } else if (*keyword == "startFace") {
        firstFace_ = number(*keyword, text, place);
      }
      patch_.entries.emplace_back(*keyword, std::move(text));
    }
  }

  std::uint64_t number(const std::string& keyword, const std::string& text, const Place& place) {
    std::int64_t value = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (error != std::errc() || end != text.data() + text.size() || value < 0) {
      scanner_.fail(place, "a number of faces as " + keyword + " of patch " + quoted(patch_.name),
                    quoted(text));
    }
    return static_cast<std::uint64_t>(value);
  }

  std::uint64_t require(const std::string& keyword, const std::optional<std::uint64_t>& value) {
    if (!value) {
      failMissing(keyword);
    }
    return *value;
  }

  [[noreturn]] void failMissing(const std::string& keyword) {
    scanner_.fail(place_, "the entry " + keyword + " of patch " + quoted(patch_.name), "none");
  }

  Scanner& scanner_;
  Place place_;
  Patch patch_;
  std::optional<std::uint64_t> faceCount_;
  std::optional<std::uint64_t> firstFace_;
};

}  // namespace

std::vector<Patch> readPatches(Scanner& scanner) {
  std::vector<Patch> patches;
  forEachNamed(scanner, kPatches, [&](const std::string& expected) {
    patches.push_back(PatchReader(scanner).read(expected));
  });
  return patches;
}

}  // namespace velto::openfoam
