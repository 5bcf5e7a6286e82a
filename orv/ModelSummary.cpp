// SPDX-License-Identifier: Apache-2.0
//
// ModelSummary: which mesh, which model, and then one query after the other.

#include "orv/ModelSummary.h"

#include <algorithm>
#include <fmt/format.h>
#include <unordered_set>

#include "velto/LocationModelBuilder.h"

#include "data_access/OrvFileProvider.h"
#include "data_access/location_models.h"

#include "orv/Selection.h"

namespace velto::orv {

namespace {

// --- The mesh -----------------------------------------------------------------------------------

/// Restart of all that a mesh has, or else the first; nothing if it has none.
std::optional<int> targetOf(OrvFileProvider& provider, int mesh) {
  std::vector<int> targets;
  provider.getTargets(targets, mesh, dataClassCase);
  if (targets.empty()) {
    return std::nullopt;
  }
  const bool hasRestart = std::count(targets.begin(), targets.end(), targetRestart) != 0;
  return hasRestart ? targetRestart : targets.front();
}

/// Enters mesh, target and partition; false with a reason if there is no such mesh.
bool chooseMesh(OrvFileProvider& provider, int wanted, ModelSummary& summary) {
  std::vector<int> meshes;
  provider.getMeshIds(meshes, dataClassCase);
  bool isFound = false;
  for (const int mesh : meshes) {
    const std::optional<int> target = targetOf(provider, mesh);
    const bool isBetter = !isFound || (target == targetRestart && summary.target != targetRestart);
    if (target && isBetter && (wanted == 0 || wanted == mesh)) {
      summary.mesh = mesh;
      summary.target = *target;
      isFound = true;
    }
  }
  if (!isFound) {
    summary.lacksMesh = !meshes.empty() && wanted != 0;
    summary.errors.push_back(summary.lacksMesh ? fmt::format("there is no mesh {}; meshes: {}",
                                                             wanted, fmt::join(meshes, ", "))
                                               : "there is no mesh");
    return false;
  }
  std::vector<int> partitions;
  provider.getPartitionIds(partitions, summary.mesh, dataClassCase);
  if (summary.target == targetPartitionedPost && !partitions.empty()) {
    summary.partition = partitions.front();
  }
  select(provider, {summary.mesh, summary.target, summary.partition});
  return true;
}

// --- The model ----------------------------------------------------------------------------------

/// Asks a model for its objects, and each of them once.
class ModelReader {
 public:
  ModelReader(const OrvLocationModel& model, ModelSummary& summary)
      : model_(model), summary_(summary) {}

  void read() {
    std::vector<int> parts;
    model_.getParts(parts);
    for (const int id : parts) {
      readPart(id);
    }
  }

 private:
  using NameQuery = bool (OrvLocationModel::*)(int, std::string&) const;

  ModelName nameOf(NameQuery query, int id) const {
    std::string name;
    return (model_.*query)(id, name) ? ModelName(name) : std::nullopt;
  }

  void readPart(int id) {
    PartOfModel part;
    part.id = id;
    part.name = nameOf(&OrvLocationModel::getPartName, id);
    model_.getPartBodies(id, part.bodies);
    model_.getPartFaces(id, part.faces);
    model_.getPartFaceUses(id, part.faceUses);
    model_.getPartComposites(id, part.composites);
    for (const int body : part.bodies) {
      meetBody(body);
    }
    for (const int face : part.faces) {
      meetFace(face);
    }
    for (const int use : part.faceUses) {
      meetFaceUse(use);
    }
    for (const int composite : part.composites) {
      readComposite(composite);
    }
    summary_.parts.push_back(std::move(part));
  }

  void meetBody(int id) {
    const auto [entry, isNew] = summary_.bodies.try_emplace(id);
    if (!isNew) {
      return;
    }
    BodyOfModel& body = entry->second;
    body.name = nameOf(&OrvLocationModel::getBodyName, id);
    std::vector<int> zones;
    if (model_.getBodyZones(id, summary_.mesh, zones)) {
      body.zones = std::move(zones);
    }
    std::vector<int> boundary;
    model_.getBodyBoundary(id, boundary);
    for (const int use : boundary) {
      meetFaceUse(use).body = id;
    }
  }

  void meetFace(int id) {
    const auto [entry, isNew] = summary_.faces.try_emplace(id);
    if (!isNew) {
      return;
    }
    FaceOfModel& face = entry->second;
    face.name = nameOf(&OrvLocationModel::getFaceName, id);
    model_.getFaceSides(id, face.sides[0], face.sides[1]);
    for (const int side : {0, 1}) {
      const int use = face.sides.at(static_cast<std::size_t>(side));
      if (use != 0) {
        FaceUseOfModel& held = meetFaceUse(use);
        held.face = id;
        held.side = side;
      }
    }
  }

  FaceUseOfModel& meetFaceUse(int id) {
    const auto [entry, isNew] = summary_.faceUses.try_emplace(id);
    FaceUseOfModel& use = entry->second;
    if (isNew) {
      use.name = nameOf(&OrvLocationModel::getFaceUseName, id);
      model_.getFaceUseRelativeName(id, use.relativeName);
      std::vector<int> sides;
      if (model_.getFaceUseZoneSides(id, summary_.mesh, sides)) {
        use.zoneSides = std::move(sides);
      }
    }
    return use;
  }

  void readComposite(int id) {
    CompositeOfModel& composite = summary_.composites[id];
    composite.name = nameOf(&OrvLocationModel::getCompositeName, id);
    model_.resolveComposite(id, composite.bodies, composite.faces, composite.faceUses);
    for (const int body : composite.bodies) {
      meetBody(body);
    }
    for (const int face : composite.faces) {
      meetFace(face);
    }
    for (const int use : composite.faceUses) {
      meetFaceUse(use);
    }
  }

  const OrvLocationModel& model_;
  ModelSummary& summary_;
};

// --- Its zones ----------------------------------------------------------------------------------

std::unordered_set<int> zonesOf(OrvProvider& provider, OrvZoneCategory category) {
  std::vector<int> ids;
  provider.getZoneIds(category, ids);
  return {ids.begin(), ids.end()};
}

void readZones(OrvProvider& provider, ModelSummary& summary) {
  for (const auto& body : summary.bodies) {
    for (const int zone : body.second.zones.value_or(std::vector<int>())) {
      summary.zones[zone];
    }
  }
  for (const auto& use : summary.faceUses) {
    for (const int side : use.second.zoneSides.value_or(std::vector<int>())) {
      summary.zones[zoneOfSide(side)];
    }
  }
  const std::unordered_set<int> faceZones = zonesOf(provider, zoneCategoryFace);
  const std::unordered_set<int> cellZones = zonesOf(provider, zoneCategoryCell);
  for (auto& zone : summary.zones) {
    if (faceZones.count(zone.first) != 0) {
      zone.second.kind = ZoneOfModel::Kind::face;
    } else if (cellZones.count(zone.first) != 0) {
      zone.second.kind = ZoneOfModel::Kind::cell;
    } else {
      continue;
    }
    provider.getZoneStringInfo(zone.first, zoneName, zone.second.name);
  }
}

}  // namespace

ModelOfCase readModel(const std::string& file, OrvFileProvider& provider, int mesh,
                      bool alwaysBuild) {
  ModelOfCase found;
  ModelSummary& summary = found.summary;
  summary.file = file;
  if (!chooseMesh(provider, mesh, summary)) {
    return found;
  }
  const OrvLocationModel* ofFile = alwaysBuild ? nullptr : provider.getLocationModel();
  if (hasParts(ofFile)) {
    summary.origin = ModelOrigin::file;
    found.model = ofFile;
  } else {
    found.built = std::make_unique<OrvLocationModel>();
    const LocationModelBuilder builder;
    if (!builder.build(&provider, found.built.get())) {
      summary.errors = builder.getErrors();
      return found;
    }
    summary.origin = ModelOrigin::built;
    found.model = found.built.get();
  }
  ModelReader(*found.model, summary).read();
  readZones(provider, summary);
  return found;
}

}  // namespace velto::orv
