// SPDX-License-Identifier: Apache-2.0
//
// Random misbehaviour: everything is drawn at once, so that actions do the same on each provider.

#include "testing/random_script.h"

#include <algorithm>
#include <cstdint>
#include <optional>
#include <set>
#include <utility>

#include "testing/random_pick.h"

namespace velto::testing {

using base::CaseCore;
using base::MeshKey;
using base::MeshTables;
using base::ZoneRecord;

namespace {

/// What happens, and a text for it.
struct Event {
  std::string text;
  CallScript::Action action;
};

MeshTables* selectedMesh(CaseCore& core) {
  const auto found = core.tables.meshes.find(core.selection);
  return found == core.tables.meshes.end() ? nullptr : &found->second;
}

/// The tables of any mesh of a case; empty ones if it has none.
const MeshTables& anyTables(const memory::Case& served, Random& random) {
  static const MeshTables kNone;
  return served.tables.meshes.empty() ? kNone
                                      : served.tables.meshes.at(anyMesh(served.tables, random));
}

Event postMessages(Random& random) {
  const std::string text = random.pick<std::string>(
      {"disk gone", "", "two\nlines", "Warning:\n\tinner", "Error:\n\tinner", "x Error:\n\tmid"});
  switch (random.below(9)) {
    case 0:
    case 1:
    case 2:
    case 3:
    case 4:
      return {"posts the warning " + base::argumentText(text),
              [text](CaseCore& core) { core.messages.addWarning(text); }};
    case 5:
    case 6:
    case 7:
      return {"posts the error " + base::argumentText(text),
              [text](CaseCore& core) { core.messages.addError(text); }};
    default:
      return {"posts two warnings and two errors with " + base::argumentText(text),
              [text](CaseCore& core) {
                core.messages.addWarning("first " + text);
                core.messages.addError("first");
                core.messages.addWarning("second");
                core.messages.addError("second " + text);
              }};
  }
}

Event changeZoneList(const MeshTables& mesh, Random& random) {
  const OrvZoneCategory category = anyCategory(random);
  const int extra = anyLink(mesh, category, random);
  const auto how = random.pick<std::size_t>({0, 1, 2, 3, 4, 4, 4});
  const std::vector<std::string> ways = {"cleared", "without its last", "without its first",
                                         "reversed", "longer by " + std::to_string(extra)};
  return {"has its zones of category " + std::to_string(category) + " " + ways[how],
          [category, extra, how](CaseCore& core) {
            MeshTables* changed = selectedMesh(core);
            if (changed == nullptr) {
              return;
            }
            std::vector<int>& ids = changed->zoneIds[category];
            if (how == 0) {
              ids.clear();
            } else if (how == 1 && !ids.empty()) {
              ids.pop_back();
            } else if (how == 2 && !ids.empty()) {
              ids.erase(ids.begin());
            } else if (how == 3) {
              std::reverse(ids.begin(), ids.end());
            } else if (how == 4) {
              ids.push_back(extra);
            }
          }};
}

std::optional<std::uint64_t> sizeOrNone(Random& random) {
  return random.chance(20) ? std::nullopt : std::make_optional(random.pick(edgeSizes()));
}

Event changeMeshSize(Random& random) {
  const auto key =
      random.pick<std::size_t>({meshDimension, meshNodeCount, meshFaceCount, meshCellCount});
  const std::optional<std::uint64_t> size = sizeOrNone(random);
  return {"has mesh size " + std::to_string(key) + " = " + valueText(size),
          [key, size](CaseCore& core) {
            if (MeshTables* changed = selectedMesh(core)) {
              changed->sizes[key] = size;
            }
          }};
}

Event changeZone(const MeshTables& mesh, Random& random) {
  const int id = anyZone(mesh, random);
  const std::size_t sizeKey = random.below(4);
  const std::optional<std::uint64_t> size = sizeOrNone(random);
  const std::size_t infoKey = random.below(6);
  const int info = anyLink(mesh, zoneCategoryFace, random);
  return {"has zone " + std::to_string(id) + " size " + std::to_string(sizeKey) + " = " +
              valueText(size) + ", face info " + std::to_string(infoKey) + " = " +
              std::to_string(info) + " and another name",
          [=](CaseCore& core) {
            MeshTables* changed = selectedMesh(core);
            if (changed == nullptr) {
              return;
            }
            ZoneRecord& zone = changed->zones[id];
            zone.sizes[sizeKey] = size;
            zone.faceInfo[infoKey] = info;
            zone.texts[zoneName] = zone.texts[zoneName].value_or("").empty() ? "again" : "";
          }};
}

Event moveSelection(Random& random) {
  const int value = random.between(-1, 3);
  switch (random.below(3)) {
    case 0:
      return {"selects mesh " + std::to_string(value),
              [value](CaseCore& core) { core.selection.mesh = value; }};
    case 1:
      return {"selects target " + std::to_string(value), [value](CaseCore& core) {
                core.selection.target = static_cast<OrvTargetCategory>(value);
              }};
    default:
      return {"selects partition " + std::to_string(value),
              [value](CaseCore& core) { core.selection.partition = value; }};
  }
}

Event anyEvent(const MeshTables& mesh, ModelWalk walk, Random& random) {
  const int choice = walk == ModelWalk::buildsModel ? 0 : random.between(0, 99);
  return choice < 66   ? postMessages(random)
         : choice < 86 ? changeZoneList(mesh, random)
         : choice < 92 ? changeMeshSize(random)
         : choice < 97 ? changeZone(mesh, random)
                       : moveSelection(random);
}

const std::vector<std::string>& calls() {
  static const std::vector<std::string> kCalls = {"setBaseOption",       "startReading",
                                                  "getFileVersion",      "getSolverType",
                                                  "getMeshIds",          "getTargets",
                                                  "getPartitionIds",     "setMeshId",
                                                  "setTarget",           "setPartitionId",
                                                  "getMeshSize",         "getMeshSize(0)",
                                                  "getMeshSize(1)",      "getMeshSize(3)",
                                                  "getMeshSize(4)",      "getZoneIds",
                                                  "getZoneIds(0)",       "getZoneIds(2)",
                                                  "getZoneIds(3)",       "getTarget",
                                                  "getMeshId",           "getPartitionId",
                                                  "getCellFaceZoneIds",  "getCellFaceZoneIds",
                                                  "getFaceCellZone0Ids", "getFaceCellZone1Ids",
                                                  "beginCellNodes",      "endCellNodes",
                                                  "beginCellFaces",      "endCellFaces",
                                                  "beginFaceTree",       "endFaceTree",
                                                  "getZoneSizeInfo",     "getZoneStringInfo",
                                                  "getFaceZoneInfo",     "getCellZoneInfo",
                                                  "beginFaceCell0",      "endFaceCell1",
                                                  "getFaceCell0",        "getLocationModel",
                                                  "getSettings",         "hasTarget",
                                                  "getFaceZoneType",     "getFaceZoneProp",
                                                  "hasWarning",          "hasError",
                                                  "getWarnings",         "getErrors"};
  return kCalls;
}

const std::vector<std::string>& deepCalls() {
  static const std::vector<std::string> kCalls = {
      "beginFaceNodes",     "getUniformFaceNodeCount", "readFaceNodeCounts",
      "endFaceNodeCounts",  "readFaceNodeIds",         "endFaceNodeIds",
      "endFaceNodes",       "beginCellNodes",          "getUniformCellNodeCount",
      "readCellNodeCounts", "readCellNodeIds",         "endCellNodeIds",
      "endCellNodes",       "beginCellFaces",          "getUniformCellFaceCount",
      "readCellFaceCounts", "readCellFaceIds",         "endCellFaces",
      "beginCellTypes",     "getUniformCellType",      "getCellType",
      "endCellTypes",       "beginFaceCell0",          "getFaceCell0",
      "endFaceCell0",       "beginFaceCell1",          "getFaceCell1",
      "endFaceCell1",       "beginFaceShadows",        "getFaceShadow",
      "endFaceShadows"};
  return kCalls;
}

bool isCountable(const std::string& call, ModelWalk walk) {
  static const std::set<std::string> kOfABuild = {
      "getFaceZoneInfo", "getCellZoneInfo",    "getZoneSizeInfo",     "getZoneStringInfo",
      "getFaceZoneType", "getCellFaceZoneIds", "getFaceCellZone0Ids", "getFaceCellZone1Ids",
      "getFaceZoneProp", "getSolverType"};
  if (call == "getMeshId") {
    return walk == ModelWalk::asksNoModel;
  }
  return walk != ModelWalk::buildsModel || kOfABuild.count(call) == 0;
}

std::string anyCall(ModelWalk walk, Random& random) {
  while (true) {
    std::string call = random.pick(random.chance(65) ? calls() : deepCalls());
    if (isCountable(call, walk)) {
      return call;
    }
  }
}

/// What may stand in the answer of a list.
int anyEntry(const std::string& call, const memory::Case& served, Random& random) {
  if (served.tables.meshes.empty() || random.chance(10)) {
    return random.between(-2, 4);
  }
  const MeshKey key = anyMesh(served.tables, random);
  if (call == "getMeshIds") {
    return key.mesh;
  }
  if (call == "getTargets") {
    return key.target;
  }
  if (call == "getPartitionIds") {
    return key.partition;
  }
  const bool isOfFaces = call == "getZoneIds(2)" || call.find("Face") != std::string::npos;
  const OrvZoneCategory category = call == "getZoneIds(0)"                 ? zoneCategoryNode
                                   : isOfFaces && call != "beginCellFaces" ? zoneCategoryFace
                                                                           : zoneCategoryCell;
  return anyLink(served.tables.meshes.at(key), category, random);
}

std::string answerOtherwise(ScriptedProvider& provider, const memory::Case& served,
                            Random& random) {
  const std::string call = random.pick<std::string>(
      {"getMeshIds", "getTargets", "getPartitionIds", "getZoneIds(0)", "getZoneIds(2)",
       "getZoneIds(3)", "beginFaceTree", "beginCellNodes", "beginCellFaces", "beginFaceNodes",
       "beginFaceCell0", "beginFaceCell1", "beginFaceShadows", "beginCellTypes"});
  std::vector<int> answer(random.below(6));
  for (int& entry : answer) {
    entry = anyEntry(call, served, random);
  }
  provider.answerList(call, answer);
  return call + " answers " + base::argumentText(answer);
}

// --- What the families give ---------------------------------------------------------------------

std::string leaveAList(ScriptedProvider& provider, Random& random) {
  const std::string call = random.pick<std::string>(
      {"beginFaceNodes", "beginFaceCell0", "beginFaceCell1", "beginFaceShadows", "beginFaceTree",
       "beginCellNodes", "beginCellFaces", "beginCellTypes"});
  provider.leaveList(call);
  return call + " leaves its list alone";
}

std::string cutReads(ScriptedProvider& provider, Random& random) {
  const std::string call =
      random.pick<std::string>({"readFaceNodeCounts", "readFaceNodeIds", "readCellNodeCounts",
                                "readCellNodeIds", "readCellFaceCounts", "readCellFaceIds"});
  const std::size_t most = random.pick<std::size_t>({0, 1, 3, 8, 15, 30});
  provider.deliverAtMost(call, most);
  return call + " delivers " + std::to_string(most) + " values at most";
}

std::string answerForAnElement(ScriptedProvider& provider, const MeshTables& mesh, Random& random) {
  const std::string call = random.pick<std::string>(
      {"getFaceCell0", "getFaceCell0", "getFaceCell1", "getFaceShadow", "getCellType"});
  const std::uint64_t cells = mesh.size(meshCellCount);
  const std::uint64_t faces = mesh.size(meshFaceCount);
  const std::uint64_t most = call == "getCellType" ? cells : faces;
  const std::uint64_t element = 1 + random.below(static_cast<std::size_t>(most));
  const std::uint64_t any = random.below(12);
  const std::uint64_t huge = random.pick(edgeSizes());
  const auto value = random.pick<std::uint64_t>({0, any, any, any, cells, cells + 1, faces, huge});
  const std::string which = random.chance(85) ? callText(call, element) : call;
  provider.answerElement(which, value);
  return which + " answers " + std::to_string(value);
}

std::string answerForAZone(ScriptedProvider& provider, const MeshTables& mesh, Random& random) {
  const std::string call =
      random.pick<std::string>({"getUniformFaceNodeCount", "getUniformCellNodeCount",
                                "getUniformCellFaceCount", "getUniformCellType"});
  const bool isOfFaces = call == "getUniformFaceNodeCount";
  const int zone = anyZone(mesh, isOfFaces ? zoneCategoryFace : zoneCategoryCell, random);
  const int number = random.chance(95) ? random.between(0, 10) : -1;
  const std::optional<int> value = random.chance(30) ? std::nullopt : std::make_optional(number);
  const std::string which = random.chance(85) ? callText(call, zone) : call;
  provider.answerUniform(which, value);
  return which + " answers " + valueText(value);
}

std::string giveOtherValues(ScriptedProvider& provider, const MeshTables& mesh, Random& random) {
  const int choice = random.between(0, 99);
  return choice < 35   ? leaveAList(provider, random)
         : choice < 50 ? cutReads(provider, random)
         : choice < 75 ? answerForAnElement(provider, mesh, random)
                       : answerForAZone(provider, mesh, random);
}

std::string answerAnotherVersion(ScriptedProvider& provider, Random& random) {
  const base::FileVersion version = anyVersion(random);
  provider.answerVersion(version.major, version.minor, version.patch);
  return "getFileVersion answers " + versionText(version);
}

}  // namespace

std::string misbehave(ScriptedProvider& provider, const memory::Case& served, ModelWalk walk,
                      Random& random) {
  const int choice = random.between(0, 99);
  if (choice < 5) {
    return answerAnotherVersion(provider, random);
  }
  if (choice < 25) {
    return answerOtherwise(provider, served, random);
  }
  const MeshTables& mesh = anyTables(served, random);
  if (choice < 45) {
    return giveOtherValues(provider, mesh, random);
  }
  const std::string call = anyCall(walk, random);
  Event event = anyEvent(mesh, walk, random);
  if (random.chance(6)) {
    provider.on(call, std::move(event.action));
    return "each " + call + " " + event.text;
  }
  const int nth = random.chance(70) ? random.between(1, 4) : random.between(1, 40);
  provider.on(call, nth, std::move(event.action));
  return call + " number " + std::to_string(nth) + " " + event.text;
}

std::string misbehave(LocationModelScript& script, Random& random) {
  const std::string call = random.pick<std::string>({"createPart",
                                                     "createBody",
                                                     "createFace",
                                                     "createFaceUse",
                                                     "createFaceUse",
                                                     "createFaceUse",
                                                     "setBodyZones",
                                                     "setFaceUseZoneSides",
                                                     "createFaceUse",
                                                     "setFaceUseName",
                                                     "findFace",
                                                     "getParts",
                                                     "getPartBodies",
                                                     "getPartFaceUses",
                                                     "getPartComposites",
                                                     "getBodyName",
                                                     "getBodyZones",
                                                     "getFaceSides",
                                                     "getFaceUseName",
                                                     "getFaceUseName",
                                                     "getFaceUseRelativeName",
                                                     "getCompositeName",
                                                     "getFaceUseZoneSides",
                                                     "resolveComposite",
                                                     "resolveComposite"});
  const int nth = random.chance(30) ? 0 : random.between(1, 3);
  const std::string which = nth == 0 ? "each " + call : call + " number " + std::to_string(nth);
  if (random.chance(60)) {
    script.refuse(call, nth);
    return which + " of location models is refused";
  }
  script.deny(call, nth);
  return which + " of location models is denied";
}

}  // namespace velto::testing
