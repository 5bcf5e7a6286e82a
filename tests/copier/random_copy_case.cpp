// SPDX-License-Identifier: Apache-2.0
//
// Random cases to copy: tables of zones, sound or of any kind, then families, settings, results.

#include <algorithm>
#include <utility>

#include "data_access/OrvLocationModel.h"

#include "testing/random_case.h"
#include "tests/copier/random_copies.h"

namespace velto::testing {

namespace {

constexpr std::uint64_t kTooMany = std::uint64_t{1} << 63;

/// A zone id that no table and no family has on purpose.
constexpr int kUnknownZone = 77;

class CaseToCopy {
 public:
  explicit CaseToCopy(Random& random) : random_(random) {}

  std::shared_ptr<const memory::Case> draw() {
    if (random_.chance(25)) {
      drawSoundTables();
    } else {
      drawTables();
      drawModel();
    }
    drawNodes();
    drawCounted(base::Family::faceNodes, zoneCategoryFace);
    drawCounted(base::Family::cellNodes, zoneCategoryCell);
    drawFaceCells(base::Family::faceCell0);
    drawFaceCells(base::Family::faceCell1);
    drawCellTypes();
    drawCellPartitions();
    drawSettings();
    drawResults();
    return std::make_shared<const memory::Case>(case_);
  }

 private:
  base::MeshTables& mesh() { return case_.mesh(key_); }
  memory::MeshData& data() { return case_.arrays(key_); }

  /// A value that is mostly there.
  template <class Value>
  std::optional<Value> drawn(const std::vector<Value>& values) {
    const Value value = random_.pick(values);
    return random_.chance(93) ? std::optional<Value>(value) : std::nullopt;
  }

  // --- Tables -----------------------------------------------------------------------------------

  /// Those of the first mesh, with the location model or what it can be built from.
  void drawSoundTables() {
    case_ = randomSoundCase(random_);
    key_ = case_.tables.meshes.begin()->first;
    const base::MeshTables first = mesh();
    case_.tables.meshes.clear();
    mesh() = first;
    case_.data.clear();
  }

  void drawTables() {
    case_.tables.solverType =
        random_.pick<std::string>({"VELTO_GENERIC", "VELTO_FLOW", "VELTO_FLOW", ""});
    key_.mesh = random_.pick<int>({1, 1, 1, 1, 7});
    for (auto& size : mesh().sizes) {
      size = drawn<std::uint64_t>({0, 2, 3, 8, 1234567890123});
    }
    mesh().units = drawn<std::string>({"m", "mm", ""});
    std::vector<int> ids = {1, 2, 3, 4, 5, 6, 7, 8, 9, 12, -4};
    random_.shuffle(ids);
    const bool hasZones = random_.chance(94);
    for (const OrvZoneCategory category : {zoneCategoryNode, zoneCategoryFace, zoneCategoryCell}) {
      std::vector<int>& zones = mesh().zoneIds[category];
      for (std::size_t left = hasZones ? random_.below(4) : 0; left > 0; --left) {
        zones.push_back(ids.back());
        ids.pop_back();
      }
      if (!zones.empty() && random_.chance(8)) {
        zones.push_back(random_.pick(allIds()));
      }
      for (const int zone : zones) {
        drawZone(zone);
      }
    }
  }

  /// The zones of all categories so far.
  std::vector<int> allIds() {
    std::vector<int> ids;
    for (const auto& list : mesh().zoneIds) {
      ids.insert(ids.end(), list.second.begin(), list.second.end());
    }
    return ids;
  }

  void drawZone(int id) {
    base::ZoneRecord& zone = mesh().zones[id];
    const std::uint64_t count =
        random_.chance(1) ? kTooMany : random_.pick<std::uint64_t>({0, 1, 1, 2, 3, 4});
    zone.sizes[zoneFirstId] = drawn<std::uint64_t>({1, 1, 5, 900});
    zone.sizes[zoneLastId] = drawn<std::uint64_t>({0, 1, 4, 904});
    zone.sizes[zoneElementCount] = drawn<std::uint64_t>({count});
    zone.sizes[zoneDimension] = drawn<std::uint64_t>({0, 0, 2, 3, 3});
    zone.texts[zoneName] = drawn<std::string>({"zone " + std::to_string(id), "walls", ""});
    zone.texts[zoneTypeName] = drawn<std::string>({"wall"});
    for (auto& info : zone.faceInfo) {
      info = drawn<int>({-1, 0, 2, 3, 12});
    }
    for (auto& info : zone.cellInfo) {
      info = drawn<int>({-1, 0, 4, 7});
    }
  }

  void drawModel() {
    if (random_.chance(50)) {
      return;
    }
    auto model = std::make_shared<OrvLocationModel>();
    int id = 0;
    for (int left = random_.between(0, 2); left > 0; --left) {
      model->createPart(random_.between(0, 3), "part", id);
      model->createBody(id, "body", id);
      model->setBodyZones(id, key_.mesh, {1, 2});
    }
    case_.tables.locationModel = model;
  }

  // --- Families ---------------------------------------------------------------------------------

  /// The zones that a family lists: those of the category, more or less.
  std::vector<int> listed(OrvZoneCategory category) {
    std::vector<int> zones;
    if (random_.chance(8)) {
      return zones;
    }
    for (const int zone : mesh().idsOf(category)) {
      if (random_.chance(88)) {
        zones.push_back(zone);
      }
    }
    if (random_.chance(10)) {
      zones.push_back(kUnknownZone);
    }
    const std::vector<int> others = allIds();
    if (!others.empty() && random_.chance(10)) {
      zones.push_back(random_.pick(others));
    }
    if (random_.chance(25)) {
      random_.shuffle(zones);
    }
    return zones;
  }

  std::uint64_t countOf(int zone) {
    const std::uint64_t count = mesh().zoneSize(zone, zoneElementCount);
    return count == kTooMany ? 2 : count;
  }

  /// A length, mostly the right one.
  std::uint64_t about(std::uint64_t length) {
    if (random_.chance(85)) {
      return length;
    }
    const std::uint64_t more = random_.below(3);
    return random_.chance(50) ? length + more : length - std::min(length, more);
  }

  template <class Value>
  memory::Slice<Value> values(std::uint64_t length, const std::vector<Value>& from) {
    std::vector<Value> drawn;
    while (drawn.size() < length) {
      drawn.push_back(random_.pick(from));
    }
    return memory::Slice<Value>(std::move(drawn));
  }

  void drawNodes() {
    for (const int zone : listed(zoneCategoryNode)) {
      const std::uint64_t count = countOf(zone);
      const std::uint64_t dimension = mesh().zoneSize(zone, zoneDimension);
      const std::uint64_t right = count * (dimension == 0 ? 3 : dimension);
      const std::uint64_t length = random_.pick<std::uint64_t>(
          {right, right, right, right, 3 * count, 2 * count, 2 * count + 1, 3 * count + 1,
           3 * count + 2, 0, about(right)});
      data().nodeCoordinates[zone] = values<double>(length, {0, 1, 0.5, -2.25, 1e300});
    }
  }

  void drawCounted(base::Family family, OrvZoneCategory category) {
    for (const int zone : listed(category)) {
      memory::CountedData& filled = data().counted(family)[zone];
      std::uint64_t length = 0;
      if (random_.chance(45)) {
        const short uniform = random_.chance(1) ? short{-1} : random_.pick<short>({0, 2, 3, 4});
        filled.uniform = uniform;
        length = countOf(zone) * (uniform < 0 ? 1 : static_cast<std::uint64_t>(uniform));
      } else {
        std::vector<short> from = {0, 1, 2, 3, 4};
        if (random_.chance(4)) {
          from.push_back(-1);
        }
        filled.counts = values<short>(about(countOf(zone)), from);
        for (const short count : filled.counts) {
          length += count < 0 ? 0 : static_cast<std::uint64_t>(count);
        }
      }
      filled.ids = values<std::uint64_t>(about(length), {1, 2, 3, 4, 5, 6, 1234567890123});
    }
  }

  void drawFaceCells(base::Family family) {
    for (const int zone : listed(zoneCategoryFace)) {
      data().faceIds(family)[zone] =
          values<std::uint64_t>(about(countOf(zone)), {0, 1, 2, 3, 1234567890123});
    }
  }

  void drawCellTypes() {
    for (const int zone : listed(zoneCategoryCell)) {
      memory::CellTypeData& filled = data().cellTypes[zone];
      if (random_.chance(45)) {
        filled.uniform = random_.pick<int>({0, 4, 5, 7});
      }
      filled.types = values<int>(about(countOf(zone)), {0, 4, 5, 7});
    }
  }

  void drawCellPartitions() {
    for (const int zone : listed(zoneCategoryCell)) {
      memory::CellPartitionData& filled = data().cellPartitions[zone];
      filled.info = random_.between(0, 9);
      filled.partitions = values<int>(about(countOf(zone)), {0, 1, 2, -1});
    }
  }

  // --- Settings and results ---------------------------------------------------------------------

  void drawSettings() {
    const std::vector<std::string> keys = {"VELTO_GENERIC/gravity",
                                           "VELTO_GENERICS",
                                           "models/VELTO_GENERIC/flow",
                                           "VELTO_FLOW/models/flow",
                                           "x/VELTO_FLOW",
                                           "VELTO_FLO",
                                           "VELTO_FLOW",
                                           "domains/air/location",
                                           "/",
                                           "title"};
    for (int left = random_.between(0, 4); left > 0; --left) {
      const std::string key = random_.pick(keys);
      case_.setSetting(key, random_.pick<std::string>({"9.81", "channel,heater", "", key}));
    }
  }

  base::Attributes attributes() {
    base::Attributes drawn;
    for (std::size_t left = random_.below(3); left > 0; --left) {
      base::setAttribute(drawn, random_.pick<std::string>({"unit", "colour", ""}),
                         random_.pick<std::string>({"K", "blue", ""}));
    }
    return drawn;
  }

  void drawResults() {
    for (short id = 1; id <= 3; ++id) {
      if (!random_.chance(55)) {
        continue;
      }
      base::Phase phase;
      phase.id = random_.chance(90) ? id : static_cast<short>(id + 300);
      if (random_.chance(85)) {
        phase.name = random_.pick<std::string>({"water", "air", "oil", ""});
      }
      phase.description = drawn<std::string>({"a phase", ""});
      phase.attributes = attributes();
      case_.tables.phases.push_back(phase);
      for (const OrvZoneCategory category :
           {zoneCategoryNode, zoneCategoryFace, zoneCategoryCell}) {
        drawVariables(phase.id, category);
      }
    }
    for (const char* const name : {"T", "p", "U"}) {
      if (random_.chance(80)) {
        base::Variable variable;
        variable.id = random_.between(0, 9);
        variable.name = name;
        variable.description = drawn<std::string>({"a field", ""});
        variable.attributes = attributes();
        case_.tables.variables.push_back(variable);
      }
    }
  }

  void drawVariables(short phase, OrvZoneCategory category) {
    for (const char* const name : {"T", "p", "U"}) {
      if (!random_.chance(30)) {
        continue;
      }
      memory::VariableData& filled = data().variable({phase, category, name});
      filled.valuesPerEntity = random_.pick<std::size_t>({1, 1, 3, 0});
      for (const int zone : listed(category)) {
        const std::uint64_t length = countOf(zone) * filled.valuesPerEntity;
        filled.zones[zone] = values<double>(about(length), {0, 1, 0.5, -2.25, 1e300});
      }
    }
  }

  Random& random_;
  memory::Case case_;
  base::MeshKey key_;
};

}  // namespace

std::shared_ptr<const memory::Case> randomCaseToCopy(Random& random) {
  return CaseToCopy(random).draw();
}

}  // namespace velto::testing
