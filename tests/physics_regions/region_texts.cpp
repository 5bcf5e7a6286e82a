// SPDX-License-Identifier: Apache-2.0
//
// Settings and models read line by line, tables written region by region.

#include "tests/physics_regions/region_texts.h"

#include <map>
#include <sstream>
#include <stdexcept>
#include <utility>
#include <vector>

#include "embedded/base/call_text.h"
#include "embedded/memory/CaseBuilder.h"
#include "embedded/memory/LocationModelWriter.h"

namespace velto::testing {

namespace {

using memory::CaseBuilder;

[[noreturn]] void refuse(const std::string& line) {
  throw std::invalid_argument("cannot read the line '" + line + "'");
}

/// The lines of a text without blanks around them, and without empty ones.
std::vector<std::string> linesOf(const std::string& text) {
  std::vector<std::string> lines;
  std::istringstream input(text);
  for (std::string line; std::getline(input, line);) {
    const std::size_t first = line.find_first_not_of(' ');
    if (first != std::string::npos) {
      lines.push_back(line.substr(first, line.find_last_not_of(' ') + 1 - first));
    }
  }
  return lines;
}

/// "name: rest" in two; no second if there is no ":".
std::pair<std::string, std::unique_ptr<std::string>> cutAtColon(const std::string& words) {
  const std::size_t colon = words.find(':');
  if (colon == std::string::npos) {
    return {words, nullptr};
  }
  return {words.substr(0, colon), std::make_unique<std::string>(words.substr(colon + 1))};
}

std::vector<int> numbersOf(const std::string& words) {
  std::istringstream input(words);
  std::vector<int> numbers;
  for (int number = 0; input >> number;) {
    numbers.push_back(number);
  }
  return numbers;
}

/// Reads a model line by line.
class ModelReader {
 public:
  std::shared_ptr<const OrvLocationModel> read(const std::string& text) {
    for (const std::string& line : linesOf(text)) {
      const std::size_t blank = line.find(' ');
      const std::string word = line.substr(0, blank);
      const std::string rest = blank == std::string::npos ? "" : line.substr(blank + 1);
      if (word == "part") {
        model_.part(rest);
      } else if (word == "body") {
        readBody(rest);
      } else if (word == "use") {
        readUse(line);
      } else if (word == "face") {
        faces_[rest] = model_.face(rest);
      } else if (word == "composite") {
        readComposite(rest);
      } else {
        refuse(line);
      }
    }
    return model_.take();
  }

 private:
  void readBody(const std::string& words) {
    const auto [name, zones] = cutAtColon(words);
    bodies_[name] = zones ? model_.body(name, numbersOf(*zones)) : model_.body(name);
  }

  void readUse(const std::string& line) {
    const auto [words, sides] = cutAtColon(line.substr(std::string("use").size()));
    const std::string of = " of ";
    const std::size_t middle = words.rfind(of);
    if (middle == std::string::npos || !sides) {
      refuse(line);
    }
    const std::string name = middle == 0 ? "" : words.substr(1, middle - 1);
    const int face =
        model_.face(name.empty() ? "face " + std::to_string(++nameless_) : "face of " + name);
    uses_[name] =
        model_.use(bodies_.at(words.substr(middle + of.size())), face, 0, numbersOf(*sides), name);
  }

  void readComposite(const std::string& words) {
    const auto [name, members] = cutAtColon(words);
    OrvLocationModel::State::Composite composite;
    composite.name = name;
    std::istringstream input(members ? *members : "");
    for (std::string member; std::getline(input, member, ',');) {
      member = linesOf(member).at(0);
      if (bodies_.count(member) != 0) {
        composite.bodies.push_back(bodies_[member]);
      } else if (uses_.count(member) != 0) {
        composite.faceUses.push_back(uses_[member]);
      } else {
        composite.faces.push_back(faces_.at(member));
      }
    }
    model_.composite(composite);
  }

  memory::LocationModelWriter model_;
  std::map<std::string, int> bodies_;
  std::map<std::string, int> uses_;
  std::map<std::string, int> faces_;
  int nameless_ = 0;
};

/// An explicit instantiation may name a private member.
template <class Tag, typename Tag::Member kMember>
struct Grant {
  friend typename Tag::Member memberOf(Tag) { return kMember; }
};

struct Table {
  using Member = std::unique_ptr<RegionTable> PhysicsRegionResolver::*;
  friend Member memberOf(Table);
};
template struct Grant<Table, &PhysicsRegionResolver::table>;

const char* kindWord(RegionKind kind) {
  static const std::map<int, const char*> kWords = {
      {1, "domain"}, {2, "boundary"}, {3, "subdomain"}, {4, "interface"}};
  const auto found = kWords.find(kind);
  return found == kWords.end() ? "?" : found->second;
}

std::string listText(const std::vector<int>& ids) {
  std::string text;
  for (const int id : ids) {
    text += (text.empty() ? "" : ", ") + std::to_string(id);
  }
  return "[" + text + "]";
}

/// ", bodies [1, 2]" behind `text`, or ": " before the first.
template <class Entry, class TextOf>
void addEntry(std::string& text, const std::map<int, Entry>& entries, int region,
              const std::string& word, TextOf textOf) {
  const auto found = entries.find(region);
  if (found != entries.end()) {
    text += (text.empty() ? ": " : ", ") + word + textOf(found->second);
  }
}

std::string entriesText(const RegionTable& table, int region) {
  std::string text;
  addEntry(text, table.interfaceSides, region, "sides ", [](const std::pair<int, int>& sides) {
    return std::to_string(sides.first) + " " + std::to_string(sides.second);
  });
  addEntry(text, table.regionBodies, region, "bodies ", listText);
  addEntry(text, table.regionCellZones, region, "cell zones ", [](const auto& groups) {
    return listText(groups.first) + " " + listText(groups.second);
  });
  addEntry(text, table.regionFaceUses, region, "face uses ", listText);
  addEntry(text, table.regionBulkZones, region, "bulk zones ", listText);
  addEntry(text, table.regionZoneSides, region, "zone sides ", listText);
  return text;
}

}  // namespace

cases::CasePtr regionCase(const std::string& settings, const std::string& model) {
  CaseBuilder builder;
  builder.nodes(1, "points", {{0, 0, 0}, {1, 0, 0}, {0, 1, 0}, {0, 0, 1}})
      .faces(2, "screen", faceZoneTypeInterior, {{{1, 2, 3}, 1, 1}})
      .faces(3, "baffle", faceZoneTypeInterior, {{{1, 2, 3}, 2, 2}})
      .faces(4, "wet", base::boundaryWall, {{{1, 2, 3}, 1}})
      .faces(5, "dry", base::boundaryWall, {{{1, 2, 3}, 2}})
      .faces(6, "contact", faceZoneType14, {{{1, 2, 3}, 1, 2}})
      .cells(7, "fluid", base::cellShapeTetrahedron, 1)
      .cellNodes(7, {{1, 2, 3, 4}})
      .cells(8, "solid", base::cellShapeTetrahedron, 1)
      .cells(9, "porous", base::cellShapeTetrahedron, 1);
  for (const std::string& line : linesOf(settings)) {
    const std::string equals = " =";
    const std::size_t middle = line.find(equals);
    if (middle == std::string::npos) {
      refuse(line);
    }
    // One blank behind the sign belongs to it; a value may begin with more.
    const std::size_t value = middle + equals.size() + (line.size() > middle + equals.size());
    builder.setting(line.substr(0, middle), line.substr(value));
  }
  cases::CasePtr made = builder.build();
  if (!model.empty()) {
    made->tables.locationModel = modelOf(model);
  }
  return made;
}

std::shared_ptr<const OrvLocationModel> modelOf(const std::string& text) {
  return ModelReader().read(text);
}

const RegionTable& tableOf(const PhysicsRegionResolver& resolver) {
  return *(resolver.*memberOf(Table()));
}

std::string tableText(const RegionTable& table) {
  std::string text;
  for (const auto& [id, name] : table.regionNames) {
    const auto kind = table.regionKinds.find(id);
    const auto location = table.regionLocations.find(id);
    text += std::to_string(id) + " " +
            kindWord(kind == table.regionKinds.end() ? regionKindNone : kind->second) + " " + name +
            (location == table.regionLocations.end() ? "" : " at '" + location->second + "'") +
            entriesText(table, id) + "\n";
  }
  std::string ids;
  for (const auto& [name, id] : table.regionIds) {
    ids += (ids.empty() ? "ids: " : ", ") + name + " " + std::to_string(id);
  }
  std::string domains;
  for (const auto& [key, value] : table.regionDomains) {
    domains += (domains.empty() ? "domains: " : ", ") + std::to_string(key) + " -> " +
               std::to_string(value);
  }
  return text + (ids.empty() ? "" : ids + "\n") + (domains.empty() ? "" : domains + "\n");
}

}  // namespace velto::testing
