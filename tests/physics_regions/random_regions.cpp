// SPDX-License-Identifier: Apache-2.0
//
// Random physics objects: meshes of zones, models, settings and resolvings, drawn in that order.

#include "tests/physics_regions/random_regions.h"

#include <memory>
#include <utility>

#include "embedded/base/OrvLocationModelState.h"
#include "testing/Random.h"

namespace velto::testing {

namespace {

using Ids = std::vector<int>;
using Model = OrvLocationModel::State;
using Texts = std::vector<std::string>;

constexpr int kAbsent = 99;
const Ids kFaceZones = {2, 3, 4, 5, 6};
const Ids kCellZones = {7, 8, 9, -4};
const Ids kMeshes = {1, 2};

// Names that stand for one sort of thing, and names that stand for anything.
const Texts kBodies = {"channel", "heater", "pipe"};
const Texts kFaces = {"shell", "rim", "gap"};
const Texts kFaceUses = {"hull", "inlet", "contact"};
const Texts kComposites = {"metal", "wetted", "all"};
const Texts kZones = {"screen", "screen", "screen", "baffle", "contact", ""};
const Texts kDomains = {"water", "steel", "air"};
const Texts kSubdomains = {"bed", "core", "water"};
const Texts kBoundaries = {"screen", "screen", "screen", "baffle", "contact", "bed"};
const Texts kInterfaces = {"heat", "glue", "contact"};
const Texts kAnything = {"a", "a", "b", "two words"};
const Texts kUnknown = {"nobody", "nowhere", "Channel", "screen"};

std::string nameAmong(const Texts& names, Random& random) {
  return random.pick(random.chance(90) ? names : kAnything);
}

// --- Meshes -------------------------------------------------------------------------------------

void drawZones(memory::Case& drawn, const base::MeshKey& key, const Ids& ids,
               OrvZoneCategory category, Random& random) {
  for (const int zone : ids) {
    if (!random.chance(88)) {
      continue;
    }
    const bool isOther = random.chance(3);
    const OrvZoneCategory other =
        category == zoneCategoryFace ? zoneCategoryCell : zoneCategoryFace;
    const std::string name = nameAmong(kZones, random);
    drawn.mesh(key).addZone(isOther ? other : category, zone, name, 1);
    if (random.chance(4)) {
      drawn.zone(zone, key).texts[zoneName].reset();
    }
  }
}

/// Which zones list the nodes of their cells; seldom one that is no cell zone.
void drawCellNodes(memory::Case& drawn, const base::MeshKey& key, Random& random) {
  for (const int zone : drawn.mesh(key).idsOf(zoneCategoryCell)) {
    if (random.chance(40)) {
      drawn.arrays(key).cellNodes[zone];
    }
  }
  if (random.chance(1)) {
    drawn.arrays(key).cellNodes[random.pick<int>({2, 3, kAbsent})];
  }
}

void drawMesh(memory::Case& drawn, int mesh, Random& random) {
  base::MeshKey key;
  key.mesh = mesh;
  drawn.mesh(key);
  drawn.arrays(key);
  Ids faceZones = kFaceZones;
  Ids cellZones = kCellZones;
  random.shuffle(faceZones);
  random.shuffle(cellZones);
  if (!random.chance(5)) {
    drawZones(drawn, key, faceZones, zoneCategoryFace, random);
  }
  if (!random.chance(5)) {
    drawZones(drawn, key, cellZones, zoneCategoryCell, random);
  }
  drawCellNodes(drawn, key, random);
}

// --- Location models ----------------------------------------------------------------------------

/// Draws one model.
class ModelDrawing {
 public:
  explicit ModelDrawing(Random& random) : random_(random) {}

  std::shared_ptr<const OrvLocationModel> draw() {
    const int parts = random_.pick<int>({1, 1, 1, 1, 2, 2, 3});
    for (int i = 0; i < parts; ++i) {
      model().createPart(3, "part", part_);
      bodiesOfPart_.clear();
      for (int left = random_.between(0, 4); left > 0; --left) {
        drawBody();
      }
      for (int left = random_.between(0, 5); left > 0; --left) {
        drawFace();
      }
      for (int left = random_.between(0, 3); left > 0; --left) {
        drawComposite();
      }
    }
    return std::move(made_);
  }

 private:
  Model& model() { return Model::of(*made_); }

  void drawBody() {
    int body = 0;
    if (!model().createBody(part_, nameAmong(kBodies, random_), body)) {
      return;
    }
    bodiesOfPart_.push_back(body);
    bodies_.push_back(body);
    for (const int mesh : kMeshes) {
      if (random_.chance(85)) {
        model().setBodyZones(body, mesh, bodyZones());
      }
    }
  }

  Ids bodyZones() {
    Ids zones;
    for (int left = random_.between(0, 2); left > 0; --left) {
      zones.push_back(random_.pick(kCellZones));
    }
    for (int left = random_.between(0, 2); left > 0; --left) {
      zones.push_back(random_.pick(kFaceZones));
    }
    if (random_.chance(6)) {
      zones.push_back(random_.pick<int>({kAbsent, 0, -2}));
    }
    if (!zones.empty() && random_.chance(6)) {
      zones.push_back(zones.front());
    }
    random_.shuffle(zones);
    return zones;
  }

  void drawFace() {
    int face = 0;
    if (!model().createFace(part_, nameAmong(kFaces, random_), face)) {
      model().createFace(part_, "F" + std::to_string(model().lastId + 1), face);
    }
    faces_.push_back(face);
    for (const int side : {0, 1}) {
      if (!bodiesOfPart_.empty() && random_.chance(side == 0 ? 80 : 35)) {
        drawFaceUse(face, side);
      }
    }
  }

  void drawFaceUse(int face, int side) {
    int use = 0;
    model().createFaceUse(random_.pick(bodiesOfPart_), face, side, use);
    faceUses_.push_back(use);
    if (random_.chance(75)) {
      model().setFaceUseName(use, nameAmong(kFaceUses, random_));
    }
    for (const int mesh : kMeshes) {
      if (!random_.chance(85)) {
        continue;
      }
      Ids sides(random_.below(3));
      for (int& zone : sides) {
        const int sign = random_.pick<int>({1, 1, -1});
        zone = sign * random_.pick(kFaceZones);
      }
      model().setFaceUseZoneSides(use, mesh, sides);
    }
  }

  /// Of any of the objects so far, those of other parts as well.
  void drawComposite() {
    Model::Composite composite;
    composite.name = nameAmong(kComposites, random_);
    composite.bodies = someOf(bodies_);
    composite.faces = someOf(faces_);
    composite.faceUses = someOf(faceUses_);
    model().addComposite(part_, composite);
  }

  Ids someOf(const Ids& ids) {
    Ids some;
    for (std::size_t left = ids.empty() ? 0 : random_.below(4); left > 0; --left) {
      some.push_back(random_.pick(ids));
    }
    if (random_.chance(3)) {
      some.push_back(kAbsent);
    }
    return some;
  }

  Random& random_;
  std::unique_ptr<OrvLocationModel> made_ = std::make_unique<OrvLocationModel>();
  int part_ = 0;
  Ids bodiesOfPart_;
  Ids bodies_;
  Ids faces_;
  Ids faceUses_;
};

std::shared_ptr<const OrvLocationModel> anyModel(int percentSound, Random& random) {
  if (random.chance(percentSound)) {
    return ModelDrawing(random).draw();
  }
  return random.chance(50) ? std::make_shared<const OrvLocationModel>() : nullptr;
}

// --- Settings -----------------------------------------------------------------------------------

/// Names of the objects of a model by kind, or of others where it has none.
struct KnownNames {
  explicit KnownNames(const OrvLocationModel* model) {
    if (model != nullptr) {
      const Model& state = Model::of(*model);
      addNames(bodies, state.bodies);
      addNames(faces, state.faces);
      addNames(composites, state.composites);
      for (const auto& [id, use] : state.faceUses) {
        faceUses.push_back(use.name.empty() ? use.relativeName : use.name);
      }
    }
  }

  template <class Objects>
  static void addNames(Texts& names, const Objects& objects) {
    for (const auto& [id, object] : objects) {
      names.push_back(object.name);
    }
  }

  Texts bodies;
  Texts faces;
  Texts faceUses;
  Texts composites;
};

/// Draws the settings of one case.
class SettingsDrawing {
 public:
  SettingsDrawing(memory::Case& drawn, Random& random)
      : case_(drawn), random_(random), known_(drawn.tables.locationModel.get()) {}

  void draw() {
    static const std::vector<std::size_t> kUsual = {1, 1, 1, 2, 2, 3};
    domains_ = drawKind("domains", kDomains, random_.pick(kUsual), [this](const std::string& path) {
      addLocation(path, [this] { return volumeName(); });
    });
    subdomains_ =
        drawKind("subdomains", kSubdomains, random_.below(3), [this](const std::string& path) {
          addLocation(path, [this] { return volumeName(); });
          addDomain(path);
        });
    boundaries_ =
        drawKind("boundaries", kBoundaries, random_.below(5), [this](const std::string& path) {
          addLocation(path, [this] { return surfaceName(); });
          addDomain(path);
        });
    drawKind("interfaces", kInterfaces, random_.below(4), [this](const std::string& path) {
      addSide(path + "/boundariesSide1");
      addSide(path + "/boundariesSide2");
    });
    if (random_.chance(3)) {
      entries_.clear();
    }
    if (random_.chance(20)) {
      random_.shuffle(entries_);
    }
    case_.tables.solverType = "VELTO_GENERIC";
    const bool areBelow = random_.chance(15);
    for (const auto& [path, value] : entries_) {
      case_.setSetting((areBelow ? "VELTO_GENERIC/" : "") + path, value);
    }
  }

 private:
  template <class Describe>
  Texts drawKind(const std::string& kind, const Texts& pool, std::size_t count, Describe describe) {
    Texts names;
    for (std::size_t i = 0; i < count; ++i) {
      names.push_back(random_.chance(4) ? random_.pick<std::string>({"", "", " "})
                                        : nameAmong(pool, random_));
      describe(kind + "/" + names.back());
      if (random_.chance(10)) {
        entries_.emplace_back(kind + "/" + names.back() + "/option", "on");
      }
    }
    // A list of its own may have a name twice, or names of which nothing else is known.
    if (!names.empty() && random_.chance(10)) {
      names.push_back(random_.pick(names));
      names.push_back(nameAmong(pool, random_));
      random_.shuffle(names);
      entries_.emplace_back(kind, joined(names));
    }
    return names;
  }

  template <class DrawName>
  void addLocation(const std::string& path, DrawName drawName) {
    if (random_.chance(4)) {
      return;
    }
    if (random_.chance(1)) {  // a list in the place of a text
      entries_.emplace_back(path + "/location/" + drawName(), "");
      return;
    }
    Texts names(random_.pick<std::size_t>({0, 1, 1, 1, 1, 1, 1, 1, 2, 2, 2, 2, 3}));
    for (std::string& name : names) {
      name = drawName();
    }
    entries_.emplace_back(path + "/location", joined(names));
  }

  void addDomain(const std::string& path) {
    if (random_.chance(65)) {
      const Texts& names = random_.chance(85)   ? domains_
                           : random_.chance(50) ? subdomains_
                                                : boundaries_;
      entries_.emplace_back(path + "/domain", random_.chance(4) ? "" : oneOf(names, kUnknown));
    }
  }

  void addSide(const std::string& path) {
    if (random_.chance(95)) {
      const Texts& names = random_.chance(92)   ? boundaries_
                           : random_.chance(50) ? subdomains_
                                                : kInterfaces;
      entries_.emplace_back(path, random_.chance(3) ? "" : oneOf(names, kUnknown));
    }
  }

  std::string oneOf(const Texts& names, const Texts& instead) {
    return random_.pick(names.empty() ? instead : names);
  }

  /// What stands in the location of a domain or subdomain.
  std::string volumeName() {
    const int choice = random_.between(0, 99);
    return choice < 62   ? oneOf(known_.bodies, kBodies)
           : choice < 86 ? oneOf(known_.composites, kComposites)
           : choice < 94 ? random_.pick(kUnknown)
           : choice < 96 ? random_.pick(kAnything)
           : choice < 98 ? oneOf(known_.faces, kFaces)
                         : oneOf(known_.faceUses, kFaceUses);
  }

  /// What stands in the location of a boundary.
  std::string surfaceName() {
    const int choice = random_.between(0, 99);
    return choice < 50   ? oneOf(known_.faceUses, kFaceUses)
           : choice < 66 ? oneOf(known_.composites, kComposites)
           : choice < 95 ? random_.pick(kUnknown)
           : choice < 97 ? random_.pick(kAnything)
           : choice < 98 ? oneOf(known_.faces, kFaces)
                         : oneOf(known_.bodies, kBodies);
  }

  /// With commas and blanks as people write them, and as they do not.
  std::string joined(const Texts& names) {
    std::string text = random_.chance(6) ? random_.pick<std::string>({" ", ",", " , "}) : "";
    for (std::size_t i = 0; i < names.size(); ++i) {
      text += i == 0 ? "" : random_.pick<std::string>({",", ",", ", ", ", ", " ,", ",,"});
      text += names[i];
    }
    return text + (random_.chance(6) ? random_.pick<std::string>({" ", ",", " , "}) : "");
  }

  memory::Case& case_;
  Random& random_;
  KnownNames known_;
  Texts domains_;
  Texts subdomains_;
  Texts boundaries_;
  std::vector<std::pair<std::string, std::string>> entries_;
};

// --- Resolvings ---------------------------------------------------------------------------------

std::vector<ModelRefusal> anyRefusals(Random& random) {
  std::vector<ModelRefusal> refusals(random.chance(70) ? 0 : 1 + random.below(2));
  for (ModelRefusal& refusal : refusals) {
    refusal.call = random.pick<std::string>(
        {"findBody", "findComposite", "findFace", "findFaceUse", "getBodyBoundary", "getBodyZones",
         "getFaceUseZoneSides", "resolveComposite", "getParts"});
    refusal.nth = refusal.call == "getParts" || random.chance(15) ? 0 : random.between(1, 5);
    refusal.isDenied = random.chance(50);
  }
  return refusals;
}

std::optional<std::size_t> anyCase(int percentFirst, int percentSecond, Random& random) {
  const int choice = random.between(0, 99);
  if (choice < percentFirst) {
    return 0;
  }
  return choice < percentFirst + percentSecond ? std::optional<std::size_t>(1) : std::nullopt;
}

RandomResolving anyResolving(Random& random) {
  using Arguments = RandomResolving::Arguments;
  RandomResolving drawn;
  drawn.arguments = random.pick<Arguments>(
      {Arguments::oneProvider, Arguments::twoProviders, Arguments::modelAndProvider});
  drawn.model = anyCase(82, 15, random);
  drawn.zones = anyCase(85, 12, random);
  drawn.mesh = random.pick<int>({1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 2, 2, 2, 2, 2, 2, 2, 2, 5});
  if (random.chance(8)) {
    const int nth = random.between(1, 6);
    drawn.move = RandomMove{nth, random.pick(kMeshes)};
  }
  drawn.refusals = anyRefusals(random);
  return drawn;
}

std::map<std::string, Ids> anyLists(Random& random) {
  std::map<std::string, Ids> lists;
  if (random.chance(3)) {
    lists["getZoneIds(3)"] = random.pick<Ids>({{9, 8, 7, -4}, {7, 3}, {}, {8, 8, 7}});
  }
  if (random.chance(3)) {
    lists["beginCellNodes"] = random.pick<Ids>({{7, 7}, {9, 7, 8}, {-4}, {3}, {7, kAbsent}});
  }
  return lists;
}

}  // namespace

RandomRegions randomRegions(Random& random) {
  RandomRegions drawn;
  for (cases::CasePtr& one : drawn.cases) {
    one = std::make_shared<memory::Case>();
    for (const int mesh : kMeshes) {
      drawMesh(*one, mesh, random);
    }
    one->tables.locationModel = anyModel(one == drawn.cases.front() ? 98 : 60, random);
  }
  SettingsDrawing(*drawn.cases.front(), random).draw();
  drawn.hasSettings = !random.chance(1);
  drawn.lists = anyLists(random);
  drawn.resolvings.resize(random.pick<std::size_t>({1, 1, 2, 2, 3}));
  for (RandomResolving& resolving : drawn.resolvings) {
    resolving = anyResolving(random);
  }
  return drawn;
}

RandomRegions randomRegions(std::uint64_t seed) {
  Random random(seed);
  return randomRegions(random);
}

}  // namespace velto::testing
