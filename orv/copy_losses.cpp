// SPDX-License-Identifier: Apache-2.0
//
// What is lost in a copy: one line for each kind of thing.

#include "orv/copy_losses.h"

#include <algorithm>
#include <fmt/format.h>
#include <set>

#include "data_access/OrvFileProvider.h"
#include "data_access/families.h"

#include "orv/words.h"

namespace velto::orv {

namespace {

using factory::Content;

bool hasFaceLink(const OrvProvider& source, int zone,
                 std::initializer_list<OrvFaceZoneInfoType> keys) {
  return std::any_of(keys.begin(), keys.end(), [&](OrvFaceZoneInfoType key) {
    int linked = 0;
    source.getFaceZoneInfo(zone, key, linked);
    return linked != 0;
  });
}

bool hasChild(const OrvProvider& source, int cellZone) {
  int child = 0;
  source.getCellZoneInfo(cellZone, cellZoneChild, child);
  return child != 0;
}

/// Collects the losses of one mesh, which is selected on the source.
class MeshLosses {
 public:
  MeshLosses(OrvProvider& source, std::string place, std::vector<std::string>& lines)
      : source_(source), place_(std::move(place)), lines_(lines) {}

  void addLinks(const MeshSummary& mesh) {
    std::vector<int> inTree;
    std::vector<int> withShadow;
    std::vector<int> withProperty;
    for (const ZoneSummary& zone : mesh.zones) {
      const bool isFaceZone = zone.category == zoneCategoryFace;
      if (isFaceZone
              ? hasFaceLink(source_, zone.id, {faceZoneChild, faceZoneParent0, faceZoneParent1})
              : zone.category == zoneCategoryCell && hasChild(source_, zone.id)) {
        inTree.push_back(zone.id);
      }
      if (zone.shadow != 0) {
        withShadow.push_back(zone.id);
      }
      if (isFaceZone && source_.getFaceZoneProp(zone.id, faceZonePeriodic)) {
        withProperty.push_back(zone.id);
      }
    }
    add("the hierarchy of zones", inTree);
    add("the shadow links of face zones", withShadow);
    add("the periodic property of face zones", withProperty);
  }

  void addFamilies(bool isForViewers) {
    // For viewers they follow from the cells beside the faces.
    if (!isForViewers || listZones(source_, kFaceCell0).empty()) {
      add("the faces that cells list, of cell zones", listZones(source_, kCellFaces));
    }
    std::vector<int> shadows;
    source_.beginFaceShadows(shadows);
    source_.endFaceShadows();
    add("the shadow faces of face zones", shadows);
    add("the face tree of face zones", listTreeParents(source_));
  }

 private:
  void add(const std::string& what, const std::vector<int>& zones) {
    if (!zones.empty()) {
      lines_.push_back(fmt::format("{}: {} {}", place_, what, joined(zones)));
    }
  }

  OrvProvider& source_;
  std::string place_;
  std::vector<std::string>& lines_;
};

}  // namespace

bool holds(const factory::Format& format, Content content) {
  const std::vector<Content>& lacks = format.written.lacks;
  return std::find(lacks.begin(), lacks.end(), content) == lacks.end();
}

std::vector<std::string> whatIsLeftBehind(OrvFileProvider& source, const CaseSummary& summary,
                                          const CopyPlan& plan, const CopyOptions& options) {
  std::set<Selection> planned;
  for (const PlannedMesh& mesh : plan.meshes) {
    planned.insert(mesh.inSource);
  }
  std::vector<std::string> lines;
  for (const MeshSummary& mesh : summary.meshes) {
    if (planned.count(mesh.at) != 0) {
      select(source, mesh.at);
      MeshLosses losses(source, wordsOf(mesh.at), lines);
      losses.addLinks(mesh);
      losses.addFamilies(mesh.at.target != targetRestart);
      if (options.results && !mesh.variables.empty() && plan.results.variables != 0 &&
          !(mesh.at == plan.meshes[plan.results.mesh].inSource)) {
        lines.push_back(wordsOf(mesh.at) + ": its results; a copy carries those of one mesh");
      }
    } else if (options.mesh == 0 && options.target.empty() && options.partition == -1 &&
               mesh.at.target == targetRestart) {
      lines.push_back(wordsOf(mesh.at) + ": the mesh");
    }
  }
  return lines;
}

std::vector<std::string> whatHasNoPlace(const CaseSummary& summary, const CopyOptions& options,
                                        const factory::Format& format) {
  std::vector<std::string> lines;
  const auto add = [&](Content content, bool isThere, const std::string& words) {
    if (isThere && !holds(format, content)) {
      lines.push_back(words);
    }
  };
  std::size_t posts = 0;
  std::size_t variables = 0;
  std::size_t faces = 0;
  for (const MeshSummary& mesh : summary.meshes) {
    posts += mesh.at.target == targetRestart ? 0 : 1;
    variables += mesh.variables.size();
    faces += mesh.faces;
  }
  add(Content::postTargets, posts != 0, counted(posts, "post target", "post targets"));
  add(Content::faces, options.faces && faces != 0,
      counted(faces, "face", "faces") + ", but for what they tell of cells");
  add(Content::locationModel, options.locationModel && summary.hasLocationModel,
      "the location model");
  const std::string kept = format.written.ownSettings;
  const auto lost = static_cast<std::size_t>(
      std::count_if(summary.settings.begin(), summary.settings.end(), [&kept](const auto& setting) {
        return kept.empty() || setting.first.find(kept) == std::string::npos;
      }));
  add(Content::settings, options.settings && lost != 0, counted(lost, "setting", "settings"));
  add(Content::results, options.results && variables != 0,
      counted(variables, "variable of the results", "variables of the results"));
  return lines;
}

}  // namespace velto::orv
