// SPDX-License-Identifier: Apache-2.0
//
// Random damage to the location model and to the settings of a case.

#include <algorithm>
#include <cctype>
#include <cstddef>
#include <iterator>
#include <map>
#include <vector>

#include "data_access/location_models.h"

#include "testing/case_edits.h"
#include "testing/random_model.h"
#include "testing/random_pick.h"

namespace velto::testing {

namespace {

using Model = OrvLocationModel::State;

/// Damage to the objects of one model; each member says what it did.
class ModelDamage {
 public:
  ModelDamage(Model& model, base::CaseTables& tables, Random& random)
      : model_(model), tables_(tables), random_(random) {}

  std::string bodyZones() {
    Model::Body* body = any(model_.bodies);
    return body == nullptr ? "nothing" : "zones of body: " + changeLists(body->zones, false);
  }

  std::string zoneSides() {
    Model::FaceUse* use = any(model_.faceUses);
    return use == nullptr ? "nothing" : "sides of face use: " + changeLists(use->zoneSides, true);
  }

  /// No two bodies of a part get one name.
  std::string bodyName() {
    Model::Body* body = any(model_.bodies);
    if (body == nullptr) {
      return "nothing";
    }
    const std::string name = anyName();
    const bool isTaken =
        std::any_of(model_.bodies.begin(), model_.bodies.end(), [&](const auto& other) {
          return other.second.part == body->part && other.second.name == name;
        });
    body->name = isTaken ? "other " + body->name : name;
    return "name of body = " + body->name;
  }

  /// Takes their names from the interior zones that a body lists.
  std::string interiorNames() {
    Model::Body* body = any(model_.bodies);
    if (body == nullptr) {
      return "nothing";
    }
    for (auto& [key, mesh] : tables_.meshes) {
      const auto zones = body->zones.find(key.mesh);
      for (const int zone : zones == body->zones.end() ? std::vector<int>() : zones->second) {
        const auto found = mesh.zones.find(zone);
        if (found != mesh.zones.end() &&
            found->second.faceInfo[faceZoneType] == faceZoneTypeInterior) {
          found->second.texts[zoneName].reset();
        }
      }
    }
    return "no names of the interior zones in " + body->name;
  }

  std::string useName() {
    Model::FaceUse* use = any(model_.faceUses);
    return use == nullptr ? "nothing" : "name of face use = " + (use->name = anyName());
  }

  std::string compositeName() {
    Model::Composite* composite = any(model_.composites);
    return composite == nullptr ? "nothing"
                                : "name of composite = " + (composite->name = anyName());
  }

  std::string members() {
    Model::Composite* composite = any(model_.composites);
    if (composite == nullptr) {
      return "nothing";
    }
    const bool ofBodies = random_.chance(50);
    std::vector<int>& list = ofBodies ? composite->bodies : composite->faceUses;
    const int id = random_.between(-1, model_.lastId + 1);
    insert(list, id);
    return std::string(ofBodies ? "bodies" : "uses") +
           " of composite = " + base::argumentText(list);
  }

  std::string relativeName() {
    Model::FaceUse* use = any(model_.faceUses);
    if (use == nullptr) {
      return "nothing";
    }
    use->name = random_.chance(80) ? "" : use->name;
    use->relativeName = anyName();
    return "names of face use = " + use->name + ", " + use->relativeName;
  }

  std::string equalNames() {
    Model::Body* body = any(model_.bodies);
    const Model::Body* other = any(model_.bodies);
    return body == nullptr ? "nothing" : "name of body = " + (body->name = other->name);
  }

  std::string partLists() {
    Model::Part* part = any(model_.parts);
    if (part == nullptr) {
      return "nothing";
    }
    const std::size_t which = random_.below(3);
    std::vector<int>& ids = which == 0   ? part->bodies.ids
                            : which == 1 ? part->faceUses.ids
                                         : part->composites.ids;
    if (random_.chance(40)) {
      random_.shuffle(ids);
    } else if (!ids.empty() && random_.chance(60)) {
      ids.erase(ids.begin() + static_cast<std::ptrdiff_t>(random_.below(ids.size())));
    } else {
      insert(ids, random_.between(0, model_.lastId + 1));
    }
    return "list " + std::to_string(which) + " of part = " + base::argumentText(ids);
  }

 private:
  template <class Object>
  Object* any(std::map<int, Object>& objects) {
    const auto at = static_cast<std::ptrdiff_t>(random_.below(objects.size()));
    return objects.empty() ? nullptr : &std::next(objects.begin(), at)->second;
  }

  std::string anyName() { return random_.pick<std::string>({"", "", "a, b", " ", "body2"}); }

  void insert(std::vector<int>& list, int value) {
    const auto at = static_cast<std::ptrdiff_t>(random_.below(list.size() + 1));
    list.insert(list.begin() + at, value);
  }

  int anyZoneOfTheCase() {
    if (tables_.meshes.empty()) {
      return random_.between(-3, 20);
    }
    const base::MeshTables& mesh = tables_.meshes.at(anyMesh(tables_, random_));
    return anyLink(mesh, random_.chance(60) ? zoneCategoryFace : zoneCategoryCell, random_);
  }

  std::string changeLists(std::map<int, std::vector<int>>& byMesh, bool areSides) {
    const int mesh =
        byMesh.empty() || random_.chance(10)
            ? random_.between(0, 3)
            : std::next(byMesh.begin(), static_cast<std::ptrdiff_t>(random_.below(byMesh.size())))
                  ->first;
    if (random_.chance(15)) {
      byMesh.erase(mesh);
      return "none in mesh " + std::to_string(mesh);
    }
    int zone = anyZoneOfTheCase();
    if (areSides && random_.chance(50)) {
      zone = side1Of(zone);
    }
    insert(byMesh[mesh], zone);
    return base::argumentText(byMesh[mesh]) + " in mesh " + std::to_string(mesh);
  }

  Model& model_;
  base::CaseTables& tables_;
  Random& random_;
};

std::string change(memory::Case& damaged, const std::vector<std::string (ModelDamage::*)()>& kinds,
                   Random& random) {
  const auto kind = random.pick(kinds);
  std::string text;
  changeModel(damaged,
              [&](Model& model) { text = (ModelDamage(model, damaged.tables, random).*kind)(); });
  return "location model: " + text;
}

}  // namespace

std::string damageModel(memory::Case& damaged, Random& random) {
  const bool isThere = damaged.tables.locationModel != nullptr;
  const int choice = random.between(0, 99);
  if (!isThere || choice < 5) {
    damaged.tables.locationModel = randomModel(damaged.tables, random);
    return "another location model";
  }
  if (choice < 8) {
    damaged.tables.locationModel.reset();
    return "no location model";
  }
  return change(damaged,
                {&ModelDamage::bodyZones, &ModelDamage::bodyZones, &ModelDamage::interiorNames,
                 &ModelDamage::interiorNames, &ModelDamage::zoneSides, &ModelDamage::zoneSides,
                 &ModelDamage::bodyName, &ModelDamage::useName, &ModelDamage::compositeName,
                 &ModelDamage::members, &ModelDamage::members},
                random);
}

std::string confuseModel(memory::Case& damaged, Random& random) {
  if (damaged.tables.locationModel == nullptr) {
    return "no location model to confuse";
  }
  return change(damaged,
                {&ModelDamage::relativeName, &ModelDamage::equalNames, &ModelDamage::partLists},
                random);
}

// --- Settings -----------------------------------------------------------------------------------

namespace {

std::string anyPath(Random& random) {
  const std::string kind =
      random.pick<std::string>({"domains", "subdomains", "boundaries", "interfaces"});
  const std::string attribute = random.pick<std::string>(
      {"location", "location", "domain", "boundariesSide1", "domainsSide2", "other"});
  return kind + "/" + random.pick<std::string>({"added1", "added2", "domain1"}) + "/" + attribute;
}

std::string otherValue(const std::string& value, const std::string& ofAnother, Random& random) {
  const int choice = random.between(0, 5);
  if (choice == 0) {
    return value + "," + value;
  }
  if (choice == 1) {
    std::string capitalised = value;
    std::transform(value.begin(), value.end(), capitalised.begin(),
                   [](unsigned char letter) { return static_cast<char>(std::toupper(letter)); });
    return capitalised;
  }
  if (choice == 2) {
    return "";
  }
  if (choice == 3) {
    return value + ",nowhere";
  }
  return ofAnother;
}

}  // namespace

std::string damageSettings(memory::Case& damaged, Random& random) {
  const auto entries = damaged.tables.defaultSettings().entries();
  if (entries.empty() || random.chance(20)) {
    const std::string path = anyPath(random);
    const std::string value =
        random.pick<std::string>({"", "nowhere", "domain1", "boundary1,boundary2"});
    damaged.setSetting(path, value);
    return "setting " + path + " = " + value;
  }
  const auto [path, value] = random.pick(entries);
  const std::string another = random.pick(entries).second;
  const int choice = random.between(0, 99);
  if (choice < 30) {
    removeSetting(damaged, path);
    return "no setting " + path;
  }
  if (choice < 40) {
    const std::string above = path.substr(0, path.find('/'));
    removeSetting(damaged, above);
    return "no settings " + above;
  }
  const std::string changed = otherValue(value, another, random);
  damaged.setSetting(path, changed);
  return "setting " + path + " = " + changed;
}

}  // namespace velto::testing
