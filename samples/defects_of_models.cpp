// SPDX-License-Identifier: Apache-2.0
//
// Defects of location models: of one that stands in the file, and of meshes of which none can be
// built.

#include <stdexcept>
#include <utility>

#include "data_access/OrvLocationModel.h"

#include "embedded/base/OrvLocationModelState.h"
#include "samples/defect_lists.h"

namespace velto::samples {

namespace {

using State = OrvLocationModel::State;

/// The model of a case, to be damaged: the case gets a copy of its own.
State& modelOf(memory::Case& damaged) {
  std::shared_ptr<OrvLocationModel> own = State::copy(*damaged.tables.locationModel);
  State& state = State::of(*own);
  damaged.tables.locationModel = std::move(own);
  return state;
}

/// The object of that name among those of a kind. Throws std::logic_error if there is none.
template <class Object>
Object& objectNamed(std::map<int, Object>& objects, const std::string& name) {
  for (auto& object : objects) {
    if (object.second.name == name) {
      return object.second;
    }
  }
  throw std::logic_error("no object is named " + name);
}

std::vector<int>& zonesOfChannel(memory::Case& damaged) {
  return objectNamed(modelOf(damaged).bodies, "channel").zones.at(base::MeshKey().mesh);
}

// --- A model in the file ------------------------------------------------------------------------

void addModel(memory::Case& damaged) {
  auto model = std::make_shared<OrvLocationModel>();
  int part = 0;
  int body = 0;
  model->createPart(3, "P", part);
  model->createBody(part, "fluid", body);
  model->setBodyZones(body, base::MeshKey().mesh, {zoneNamed(onlyMesh(damaged), "fluid")});
  damaged.tables.locationModel = std::move(model);
}

/// One body more: relative names of face uses hold the names of the bodies that have some.
void addUnnamedBody(memory::Case& damaged) {
  State& model = modelOf(damaged);
  int body = 0;
  model.createBody(model.parts.begin()->first, "", body);
  model.setBodyZones(body, base::MeshKey().mesh, {zoneNamed(onlyMesh(damaged), "solid")});
}

void unnameComposite(memory::Case& damaged) {
  State& model = modelOf(damaged);
  State::Index& composites = model.parts.begin()->second.composites;
  int id = 0;
  composites.find("wetted", id);
  composites.rename(id, "wetted", "");
  model.composites.at(id).name.clear();
}

void moveInlet(memory::Case& damaged) {
  objectNamed(modelOf(damaged).faceUses, "channel inlet").zoneSides.at(base::MeshKey().mesh) = {
      kNoSuchZone};
}

// --- Meshes of which no model can be built ------------------------------------------------------

void removeCells(memory::Case& damaged) {
  dropZones(damaged, zoneCategoryCell);
  onlyMesh(damaged).sizes[meshCellCount] = 0;
  for (auto& zone : onlyMesh(damaged).zones) {
    zone.second.sideCellZones = {};
  }
  onlyArrays(damaged).faceCell0 = {};
  onlyArrays(damaged).faceCell1 = {};
}

void removeFacesAndCells(memory::Case& damaged) {
  removeCells(damaged);
  dropZones(damaged, zoneCategoryFace);
  onlyMesh(damaged).sizes[meshFaceCount] = 0;
}

/// The screen is seen from both sides then, as the zone between the bodies is, and bears its name.
void turnScreenIntoContact(memory::Case& damaged) {
  base::ZoneRecord& screen = recordOf(damaged, "screen");
  const base::ZoneRecord& between = recordOf(damaged, "between");
  screen.texts = between.texts;
  screen.faceInfo[faceZoneType] = between.faceInfo[faceZoneType];
}

/// Says that both cell zones lie on a side of a face zone.
void putBothBodies(memory::Case& damaged, const char* faceZone, std::size_t side) {
  recordOf(damaged, faceZone).sideCellZones.at(side) = onlyMesh(damaged).idsOf(zoneCategoryCell);
}

}  // namespace

const std::vector<Defect>& defectsOfModels() {
  static const std::vector<Defect> kDefects = {
      {"model-of-post", "A file with nothing but a post mesh has a location model.", "post", false,
       "checkTopologyModel : Found a location model in a file that doesn't contain a ORV Restart mesh.",
       addModel},
      {"unnamed-body", "A body of the location model has no name.", "physics", true,
       "checkPhysicsToMeshMapUsingTopologyModel : Location Model contains an unnamed body (18).",
       addUnnamedBody},
      {"wall-in-body", "A body lists a wall among its zones.", "physics", true,
       "checkPhysicsToMeshMapUsingTopologyModel : Body (channel) refers to a face zone (6) that isn't of type 'interior'.",
       [](memory::Case& damaged) {
         zonesOfChannel(damaged).push_back(zoneNamed(onlyMesh(damaged), "fluid walls"));
       }},
      {"unnamed-interior", "A face zone inside a body has no name.", "physics", true,
       "checkPhysicsToMeshMapUsingTopologyModel : Body (channel) refers to an interior face zone (3) that isn't named.",
       [](memory::Case& damaged) { recordOf(damaged, "screen").texts[zoneName] = ""; }},
      {"body-zone-missing", "A body lists a zone that is not there.", "physics", true,
       "checkPhysicsToMeshMapUsingTopologyModel : Body (channel) refers to a zone (99) that isn't a valid cell zone or a valid face zone or doesn't exit at all.",
       [](memory::Case& damaged) { zonesOfChannel(damaged).push_back(kNoSuchZone); }},
      {"face-use-zone-missing", "The face zone of a face use is not there.", "physics", true,
       "checkPhysicsToMeshMapUsingTopologyModel : Location Model contains a face use (channel inlet) that refers to a face zone (99that doesn't exist in the mesh (1)",
       moveInlet},
      {"unnamed-composite", "A composite of the location model has no name.", "physics", true,
       "checkPhysicsToMeshMapUsingTopologyModel : Location Model contains an unnamed composite (16).",
       unnameComposite},
      {"composite-body-missing", "A composite groups a body that is not there.", "physics", true,
       "checkPhysicsToMeshMapUsingTopologyModel : Location Model contains a composite (metal) that refers to a body (99) that doesn't exist in the Location Model.",
       [](memory::Case& damaged) {
         objectNamed(modelOf(damaged).composites, "metal").bodies.push_back(kNoSuchObject);
       }},
      {"composite-face-use-missing", "A composite groups a face use that is not there.", "physics",
       true,
       "checkPhysicsToMeshMapUsingTopologyModel : Location Model contains a composite (wetted) that refers to a face use (99) that doesn't exist in the Location Model.",
       [](memory::Case& damaged) {
         objectNamed(modelOf(damaged).composites, "wetted").faceUses.push_back(kNoSuchObject);
       }},
      {"nodes-alone", "A restart mesh has nodes, and neither faces nor cells.", "box", true,
       "checkPhysicsToMeshMapUsingTopologyModel : Unable to build location model: There are no face zones defined in the mesh model.",
       removeFacesAndCells},
      {"faces-alone", "A restart mesh has nodes and faces, and no cells.", "box", true,
       "checkPhysicsToMeshMapUsingTopologyModel : Unable to build location model: There are no cell zones defined in the mesh model.",
       removeCells},
      {"same-named-bodies", "Two cell zones bear one name.", "two-bodies", true,
       "checkPhysicsToMeshMapUsingTopologyModel : Unable to define body 'fluid'",
       [](memory::Case& damaged) { recordOf(damaged, "solid").texts[zoneName] = "fluid"; }},
      {"same-named-contacts", "Two two-sided face zones bear one name.", "two-bodies", true,
       "checkPhysicsToMeshMapUsingTopologyModel : Unable to build location model: Cannot define face use for an invalid face side of 'between'.",
       turnScreenIntoContact},
      {"two-bodies-on-side-0", "The walls of two cell zones are one face zone.", "two-bodies", true,
       "checkPhysicsToMeshMapUsingTopologyModel : Unable to build location model: Face zone 6'fluid walls' bounds mode than one cell zone on side 0.",
       [](memory::Case& damaged) { putBothBodies(damaged, "fluid walls", 0); }},
      {"two-bodies-on-side-1", "Two cell zones lie behind one face zone.", "two-bodies", true,
       "checkPhysicsToMeshMapUsingTopologyModel : Unable to build location model: Face zone 9'between' bounds mode than one cell zone on side 1.",
       [](memory::Case& damaged) { putBothBodies(damaged, "between", 1); }},
  };
  return kDefects;
}

}  // namespace velto::samples
