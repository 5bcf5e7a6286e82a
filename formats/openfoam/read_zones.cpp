// SPDX-License-Identifier: Apache-2.0
//
// The zones of a mesh:  N ( inside { type cellZone; cellLabels List<label> 3(0 1 2); } ... )
//
// A list is binary in a binary file where its type stands before it (List<label>, List<bool>);
// without one it is text, like all the rest.

#include "formats/openfoam/read_zones.h"

#include <algorithm>
#include <string>
#include <string_view>
#include <utility>

#include "formats/openfoam/dictionary.h"
#include "formats/openfoam/named_list.h"
#include "formats/openfoam/read_lists.h"

namespace velto::openfoam {

namespace {

constexpr EntryNames kZones = {"zone", "zones"};
constexpr EntryNames kLabels = {"label", "labels"};
constexpr EntryNames kFlips = {"flip", "flips"};
constexpr const char* kLabelList = "List<label>";
constexpr const char* kFlagList = "List<bool>";

class ZoneReader {
 public:
  // `equalEntries`: how many entries the lists of equal ones may have yet, in all zones together.
  ZoneReader(Scanner& scanner, FileForm& form, const char* labelsKeyword,
             std::uint64_t& equalEntries)
      : scanner_(scanner),
        form_(form),
        labelsKeyword_(labelsKeyword),
        equalEntries_(equalEntries) {}

  ElementZone read(const std::string& expected) {
    scanner_.next();
    const Place place = scanner_.place();
    zone_.line = place.line;
    zone_.name = readWord(scanner_, expected);
    scanner_.expect('{', "\"{\" behind the name of zone " + quoted(zone_.name));
    for (auto keyword = readKeyword(scanner_); keyword; keyword = readKeyword(scanner_)) {
      readEntry(*keyword);
    }
    if (!hasLabels_) {
      scanner_.fail(place,
                    std::string("the entry ") + labelsKeyword_ + " of zone " + quoted(zone_.name),
                    "none");
    }
    if (zone_.oriented && zone_.flipMap.size() != zone_.labels.size()) {
      scanner_.fail(place,
                    std::to_string(zone_.labels.size()) + " flips in the flipMap of zone " +
                        quoted(zone_.name) + ", one for each label",
                    std::to_string(zone_.flipMap.size()));
    }
    return std::move(zone_);
  }

 private:
  void readEntry(const std::string& keyword) {
    if (keyword == labelsKeyword_) {
      requireFirst(keyword, hasLabels_);
      zone_.labels = readLabelEntry(skipType(kLabelList));
      hasLabels_ = true;
    } else if (keyword == "flipMap") {
      requireFirst(keyword, zone_.oriented);
      // A map of equal flips is usual, and is no longer than the labels, if these came before it.
      std::uint64_t labels = zone_.labels.size();
      zone_.flipMap = readFlipEntry(skipType(kFlagList), hasLabels_ ? labels : equalEntries_);
      zone_.oriented = true;
    } else if (skipType(kLabelList)) {
      readLabelEntry(true);
    } else if (skipType(kFlagList)) {
      readFlipEntry(true, equalEntries_);
    } else {
      readEntryText(scanner_, keyword);
      return;
    }
    scanner_.expect(';', "\";\" behind the list of the entry " + keyword);
  }

  void requireFirst(const std::string& keyword, bool isSecond) {
    if (isSecond) {
      scanner_.fail(scanner_.place(), "one entry " + keyword + " in zone " + quoted(zone_.name),
                    "a second one");
    }
  }

  // Skips the type of a list, if that is what comes next.
  bool skipType(std::string_view type) {
    scanner_.next();
    const std::string_view token = scanner_.token();
    if (token != type) {
      return false;
    }
    scanner_.bytes().moveTo(token.data() + token.size());
    return true;
  }

  std::vector<std::int64_t> readLabelEntry(bool typed) {
    FileForm form = form_;
    form.binary = form_.binary && typed;
    memory::IdList ids;
    if (readLabels(scanner_, form, kLabels, equalEntries_, ids) == ListHead::Kind::kUniform) {
      equalEntries_ -= ids.size();
    }
    form_.labelBits = form.labelBits;
    std::vector<std::int64_t> labels(ids.size());
    ids.visit([&](const auto* held, std::size_t n) {
      std::transform(held, held + n, labels.begin(),
                     [](std::uint64_t id) { return static_cast<std::int64_t>(id - 1); });
    });
    return labels;
  }

  // `equalFlips`: how many of them are believed; what a list of equal ones had is taken away.
  std::vector<std::uint8_t> readFlipEntry(bool typed, std::uint64_t& equalFlips) {
    std::vector<std::uint8_t> flips;
    const auto kind = readFlags(scanner_, form_.binary && typed, kFlips, equalFlips, flips);
    if (kind == ListHead::Kind::kUniform) {
      equalFlips -= flips.size();
    }
    return flips;
  }

  Scanner& scanner_;
  FileForm& form_;
  const char* labelsKeyword_;
  std::uint64_t& equalEntries_;
  ElementZone zone_;
  bool hasLabels_ = false;
};

}  // namespace

std::vector<ElementZone> readZones(Scanner& scanner, FileForm form, const char* labelsKeyword,
                                   std::uint64_t elementCount) {
  std::vector<ElementZone> zones;
  forEachNamed(scanner, kZones, [&](const std::string& expected) {
    zones.push_back(ZoneReader(scanner, form, labelsKeyword, elementCount).read(expected));
  });
  return zones;
}

}  // namespace velto::openfoam
