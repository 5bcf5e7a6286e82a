// SPDX-License-Identifier: Apache-2.0
//
// Random location models and physics objects that are sound.

#include "testing/random_model.h"

#include <algorithm>
#include <functional>
#include <map>
#include <utility>
#include <vector>

#include "embedded/base/OrvLocationModelState.h"

namespace velto::testing {

using base::CaseTables;
using base::MeshTables;
using Model = OrvLocationModel::State;

namespace {

using Texts = std::vector<std::string>;

/// Zones that all partitions of a restart mesh have, as far as a model can refer to them.
struct Place {
  std::vector<int> cellZones;
  std::vector<int> interiorZones;
  std::vector<int> sideZones;  // face zones whose sides have a number
};

bool isInterior(const MeshTables& mesh, int zone) {
  const auto found = mesh.zones.find(zone);
  return found != mesh.zones.end() &&
         found->second.faceInfo[faceZoneType] == faceZoneTypeInterior &&
         !found->second.texts[zoneName].value_or("").empty();
}

void keepWhere(std::vector<int>& zones, const std::function<bool(int)>& isKept) {
  zones.erase(
      std::remove_if(zones.begin(), zones.end(), [&isKept](int zone) { return !isKept(zone); }),
      zones.end());
}

bool isAmong(const std::vector<int>& zones, int zone) {
  return std::count(zones.begin(), zones.end(), zone) > 0;
}

std::map<int, Place> placesOf(const CaseTables& tables) {
  std::map<int, Place> places;
  for (const auto& [key, mesh] : tables.meshes) {
    if (key.target != targetRestart) {
      continue;
    }
    const std::vector<int>& cells = mesh.idsOf(zoneCategoryCell);
    const std::vector<int>& faces = mesh.idsOf(zoneCategoryFace);
    const auto [found, isNew] = places.emplace(key.mesh, Place());
    Place& place = found->second;
    if (isNew) {
      place = {cells, faces, faces};
    }
    const MeshTables& zones = mesh;
    keepWhere(place.cellZones, [&cells](int zone) { return isAmong(cells, zone); });
    keepWhere(place.interiorZones,
              [&](int zone) { return isAmong(faces, zone) && isInterior(zones, zone); });
    keepWhere(place.sideZones, [&faces](int zone) { return zone >= 0 && isAmong(faces, zone); });
  }
  return places;
}

/// Writes a model through its state, unseen by a script of location models.
class ModelMaker {
 public:
  ModelMaker(const CaseTables& tables, Random& random)
      : places_(placesOf(tables)), random_(random) {}

  std::shared_ptr<const OrvLocationModel> make() {
    const int parts = random_.chance(70) ? 1 : 2;
    for (int i = 0; i < parts; ++i) {
      model().createPart(random_.between(0, 4), named("part"), part_);
      bodies_.clear();
      uses_.clear();
      addBodies();
      addFaceUses();
      addComposites();
    }
    return std::move(made_);
  }

 private:
  Model& model() { return Model::of(*made_); }

  std::string named(const std::string& kind) const {
    return kind + std::to_string(Model::of(*made_).lastId + 1);
  }

  void addBodies() {
    const int count = random_.between(0, 3);
    for (int i = 0; i < count; ++i) {
      int body = 0;
      model().createBody(part_, named("body"), body);
      bodies_.push_back(body);
      for (const auto& [mesh, place] : places_) {
        if (random_.chance(80)) {
          model().setBodyZones(body, mesh, zonesIn(place));
        }
      }
    }
  }

  std::vector<int> zonesIn(const Place& place) {
    std::vector<int> zones;
    if (!place.cellZones.empty() && random_.chance(80)) {
      zones.push_back(random_.pick(place.cellZones));
    }
    for (const int zone : place.interiorZones) {
      if (random_.chance(50)) {
        zones.push_back(zone);
      }
    }
    return zones;
  }

  void addFaceUses() {
    const int count = bodies_.empty() ? 0 : random_.between(0, 3);
    for (int i = 0; i < count; ++i) {
      int face = 0;
      model().createFace(part_, named("face"), face);
      for (const int side : {0, 1}) {
        if (random_.chance(60)) {
          addFaceUse(face, side);
        }
      }
    }
  }

  void addFaceUse(int face, int side) {
    int use = 0;
    const int body = random_.pick(bodies_);
    const std::string name = named("use");
    model().createFaceUse(body, face, side, use);
    uses_.push_back(use);
    if (random_.chance(70)) {
      model().setFaceUseName(use, name);
    }
    for (const auto& [mesh, place] : places_) {
      if (!random_.chance(80)) {
        continue;
      }
      std::vector<int> sides(place.sideZones.empty() ? 0 : random_.below(3));
      for (int& zone : sides) {
        zone = random_.pick(place.sideZones) * (random_.chance(50) ? 1 : -1);
      }
      model().setFaceUseZoneSides(use, mesh, sides);
    }
  }

  void addComposites() {
    const int count = random_.between(0, 2);
    for (int i = 0; i < count; ++i) {
      Model::Composite composite;
      composite.name = named("mix");
      composite.bodies = someOf(bodies_);
      composite.faces = someOf(uses_);  // what stands here is not looked at
      composite.faceUses = someOf(uses_);
      model().addComposite(part_, composite);
    }
  }

  std::vector<int> someOf(const std::vector<int>& ids) {
    std::vector<int> some;
    for (const int id : ids) {
      if (random_.chance(40)) {
        some.push_back(id);
      }
    }
    random_.shuffle(some);
    return some;
  }

  std::map<int, Place> places_;
  Random& random_;
  std::unique_ptr<OrvLocationModel> made_ = std::make_unique<OrvLocationModel>();
  int part_ = 0;
  std::vector<int> bodies_;
  std::vector<int> uses_;
};

/// True if a model can be built from the zones of a sound restart mesh. The side of a zone below
/// zero would be taken for a zone above it.
bool isBuildable(const MeshTables& mesh) {
  const std::vector<int>& faces = mesh.idsOf(zoneCategoryFace);
  return !faces.empty() && !mesh.idsOf(zoneCategoryCell).empty() &&
         std::all_of(faces.begin(), faces.end(), [](int zone) { return zone >= 0; });
}

}  // namespace

std::shared_ptr<const OrvLocationModel> randomModel(const CaseTables& tables, Random& random) {
  return ModelMaker(tables, random).make();
}

void addSoundModel(memory::Case& made, Random& random) {
  bool hasRestart = false;
  bool isNeeded = false;
  for (const auto& [key, mesh] : made.tables.meshes) {
    if (key.target == targetRestart) {
      hasRestart = true;
      isNeeded = isNeeded || !isBuildable(mesh);
    }
  }
  if (hasRestart && (isNeeded || random.chance(40))) {
    made.tables.locationModel = randomModel(made.tables, random);
  } else if (random.chance(10)) {
    made.tables.locationModel = std::make_shared<OrvLocationModel>();
  }
}

// --- Physics objects ----------------------------------------------------------------------------

namespace {

/// Names that are there in every restart mesh.
struct Locations {
  Texts volumes;
  Texts surfaces;
};

Locations locationsIn(const Model& model, std::size_t meshes) {
  Locations found;
  for (const auto& [id, body] : model.bodies) {
    if (body.zones.size() == meshes) {
      found.volumes.push_back(body.name);
    }
  }
  for (const auto& [id, use] : model.faceUses) {
    if (use.zoneSides.size() == meshes) {
      found.surfaces.push_back(use.name.empty() ? use.relativeName : use.name);
    }
  }
  for (const auto& [id, composite] : model.composites) {
    if (!composite.bodies.empty()) {
      found.volumes.push_back(composite.name);
    }
    if (!composite.faceUses.empty()) {
      found.surfaces.push_back(composite.name);
    }
  }
  return found;
}

/// Of a model that will be built from one mesh.
Locations locationsIn(const MeshTables& mesh) {
  Locations found;
  for (const int zone : mesh.idsOf(zoneCategoryCell)) {
    const base::ZoneRecord& record = mesh.zones.at(zone);
    if (record.cellInfo[cellZoneChild].value_or(0) == 0) {
      found.volumes.push_back(record.texts[zoneName].value_or(""));
    }
  }
  return found;
}

Locations locationsIn(const CaseTables& tables) {
  if (tables.locationModel != nullptr && !Model::of(*tables.locationModel).parts.empty()) {
    return locationsIn(Model::of(*tables.locationModel), placesOf(tables).size());
  }
  std::vector<const MeshTables*> restarts;
  for (const auto& [key, mesh] : tables.meshes) {
    if (key.target == targetRestart) {
      restarts.push_back(&mesh);
    }
  }
  return restarts.size() == 1 ? locationsIn(*restarts[0]) : Locations();
}

/// A few of the names, each once.
std::string someOf(Texts names, Random& random) {
  random.shuffle(names);
  const std::size_t count = random.below(std::min<std::size_t>(names.size(), 3) + 1);
  std::string joined;
  for (std::size_t i = 0; i < count; ++i) {
    joined += (i == 0 ? "" : ",") + names[i];
  }
  return joined;
}

Texts numbered(const std::string& kind, int count) {
  Texts names;
  for (int i = 1; i <= count; ++i) {
    names.push_back(kind + std::to_string(i));
  }
  return names;
}

}  // namespace

void addSoundPhysics(memory::Case& made, Random& random) {
  if (!random.chance(80)) {
    return;
  }
  const Locations locations = locationsIn(made.tables);
  const Texts domains = numbered("domain", random.between(0, 2));
  const Texts subdomains = numbered("subdomain", random.between(0, 2));
  const Texts boundaries = numbered("boundary", random.between(0, 3));
  const Texts interfaces = numbered("interface", random.between(0, 2));
  std::vector<std::pair<std::string, std::string>> entries;
  const auto add = [&](const std::string& path, const Texts& names) {
    const std::string value = someOf(names, random);
    entries.emplace_back(path, value);
  };
  for (const std::string& name : domains) {
    add("domains/" + name + "/location", locations.volumes);
  }
  for (const std::string& name : subdomains) {
    add("subdomains/" + name + "/location", locations.volumes);
    add("subdomains/" + name + "/domain", domains);
  }
  for (const std::string& name : boundaries) {
    add("boundaries/" + name + "/location", locations.surfaces);
    add("boundaries/" + name + "/domain", domains);
  }
  for (const std::string& name : interfaces) {
    add("interfaces/" + name + "/boundariesSide1", boundaries);
    add("interfaces/" + name + "/boundariesSide2", boundaries);
    add("interfaces/" + name + "/domainsSide1", domains);
    add("interfaces/" + name + "/domainsSide2", domains);
  }
  random.shuffle(entries);
  const std::string below = random.chance(20) ? made.tables.solverType + "/" : "";
  for (const auto& [path, value] : entries) {
    made.setSetting(below + path, value);
  }
}

}  // namespace velto::testing
