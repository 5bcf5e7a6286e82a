// SPDX-License-Identifier: Apache-2.0
//
// CopyPlan: which meshes are copied, and how many bytes that is. What is left behind is told in
// copy_losses.cpp.

#include "orv/CopyPlan.h"

#include <algorithm>
#include <fmt/format.h>
#include <set>
#include <stdexcept>

#include "data_access/OrvFileProvider.h"
#include "data_access/families.h"

#include "orv/copy_losses.h"
#include "orv/words.h"

namespace velto::orv {

namespace {

std::uint64_t coordinateBytes(OrvProvider& source) {
  std::vector<int> zones;
  source.beginNodeCoordinates(zones);
  std::uint64_t values = 0;
  for (const int zone : zones) {
    std::uint64_t dimension = 0;
    source.getZoneSizeInfo(zone, zoneDimension, dimension);
    values += elementCount(source, zone) * (dimension == 0 ? 3 : dimension);
  }
  source.endNodeCoordinates();
  return values * sizeof(double);
}

/// Of counts and ids.
std::uint64_t countedBytes(OrvProvider& source, const CountedReadFamily& family) {
  std::vector<int> zones;
  (source.*family.begin)(zones);
  (source.*family.beginCounts)();
  std::uint64_t bytes = 0;
  for (const int zone : zones) {
    const std::uint64_t count = elementCount(source, zone);
    short uniform = 0;
    std::int64_t length = 0;
    if (count != 0 && (source.*family.getUniformCount)(zone, uniform)) {
      length = uniformListLength(uniform, count);
    } else if (count != 0) {
      std::vector<short> counts(static_cast<std::size_t>(count));
      (source.*family.readCounts)(zone, counts.data(), counts.size());
      length = summedListLength(counts.data(), counts.size());
      bytes += count * sizeof(short);
    }
    bytes += length < 0 ? 0 : static_cast<std::uint64_t>(length) * sizeof(std::uint64_t);
  }
  (source.*family.endCounts)();
  (source.*family.end)();
  return bytes;
}

/// Of a family with `size` bytes an element.
std::uint64_t familyBytes(OrvProvider& source, const ReadFamily& family, std::size_t size) {
  std::uint64_t bytes = 0;
  for (const int zone : listZones(source, family)) {
    bytes += elementCount(source, zone) * size;
  }
  return bytes;
}

std::uint64_t cellTypeBytes(OrvProvider& source) {
  std::vector<int> zones;
  source.beginCellTypes(zones);
  std::uint64_t bytes = 0;
  for (const int zone : zones) {
    int type = 0;
    const bool isUniform = source.getUniformCellType(zone, type) && type != 0;
    bytes += isUniform ? 0 : elementCount(source, zone) * sizeof(int);
  }
  source.endCellTypes();
  return bytes;
}

constexpr ReadFamily kCellPartitions = {&OrvProvider::beginCellPartitions,
                                        &OrvProvider::endCellPartitions};

/// Of the selected mesh.
std::uint64_t meshBytes(OrvProvider& source, const CopyOptions& options) {
  std::uint64_t bytes = options.nodes ? coordinateBytes(source) : 0;
  if (options.cells) {
    bytes += options.cellNodes ? countedBytes(source, kCellNodes) : 0;
    bytes += options.cellTypes ? cellTypeBytes(source) : 0;
    bytes += options.cellPartitions ? familyBytes(source, kCellPartitions, sizeof(int)) : 0;
  }
  if (options.faces) {
    bytes += options.faceNodes ? countedBytes(source, kFaceNodes) : 0;
    for (const ReadFamily& side : {kFaceCell0, kFaceCell1}) {
      bytes += options.faceCells ? familyBytes(source, side, sizeof(std::uint64_t)) : 0;
    }
  }
  return bytes;
}

std::uint64_t resultsBytes(const MeshSummary& mesh) {
  std::uint64_t values = 0;
  for (const VariableSummary& variable : mesh.variables) {
    const std::set<int> zones(variable.zones.begin(), variable.zones.end());
    for (const ZoneSummary& zone : mesh.zones) {
      const bool isOn = zone.category == variable.category && zones.count(zone.id) != 0;
      values += isOn ? zone.count * variable.valuesPerEntity : 0;
    }
  }
  return values * sizeof(double);
}

/// The mesh to copy: a copy carries one.
int chosenMesh(const CaseSummary& summary, const CopyOptions& options) {
  std::set<int> ids;
  for (const MeshSummary& mesh : summary.meshes) {
    ids.insert(mesh.at.mesh);
  }
  if (ids.empty()) {
    throw std::runtime_error(summary.file + ": holds no mesh");
  }
  if (options.mesh == 0 && ids.size() > 1) {
    throw std::runtime_error(
        fmt::format("{}: holds the meshes {}, and a copy carries one of them; --mesh chooses",
                    summary.file, joined(ids)));
  }
  if (options.mesh != 0 && ids.count(options.mesh) == 0) {
    throw std::runtime_error(
        fmt::format("{}: holds no mesh {}, but {}", summary.file, options.mesh, joined(ids)));
  }
  return options.mesh == 0 ? *ids.begin() : options.mesh;
}

bool isWanted(const MeshSummary& mesh, int id, const CopyOptions& options) {
  return mesh.at.mesh == id &&
         (options.target.empty() || options.target == targetOption(mesh.at.target)) &&
         (options.partition == -1 || options.partition == mesh.at.partition);
}

CopyPlan::Model plannedModel(const CaseSummary& summary, const CopyPlan& plan,
                             const CopyOptions& options) {
  if (!options.locationModel) {
    return CopyPlan::Model::none;
  }
  if (summary.hasLocationModel) {
    return CopyPlan::Model::carried;
  }
  // One that is built of a partition is wrong for the others; and viewers have no use for one.
  const Selection& first = plan.meshes.front().inSource;
  const bool isOne = std::all_of(
      plan.meshes.begin(), plan.meshes.end(),
      [&first](const PlannedMesh& mesh) { return mesh.inSource.partition == first.partition; });
  return isOne && first.target == targetRestart && options.zones ? CopyPlan::Model::built
                                                                 : CopyPlan::Model::none;
}

}  // namespace

std::uint64_t CopyPlan::bytes() const {
  std::uint64_t bytes = results.bytes;
  for (const PlannedMesh& mesh : meshes) {
    bytes += mesh.bytes;
  }
  return bytes;
}

CopyPlan planCopy(OrvFileProvider& source, const CaseSummary& summary, const CopyOptions& options,
                  const factory::Format& format) {
  CopyPlan plan;
  const int id = chosenMesh(summary, options);
  const bool holdsResults = options.results && holds(format, factory::Content::results);
  for (const MeshSummary& mesh : summary.meshes) {
    const bool isHeld =
        mesh.at.target == targetRestart || holds(format, factory::Content::postTargets);
    if (!isWanted(mesh, id, options) || !isHeld) {
      continue;
    }
    select(source, mesh.at);
    plan.meshes.push_back({mesh.at,
                           {1, mesh.at.target, mesh.at.partition},
                           mesh.zones.size(),
                           mesh.nodes,
                           mesh.faces,
                           mesh.cells,
                           meshBytes(source, options)});
    if (holdsResults && plan.results.variables == 0 && !mesh.variables.empty()) {
      plan.results = {plan.meshes.size() - 1, summary.phases.size(), mesh.variables.size(),
                      resultsBytes(mesh)};
    }
  }
  if (plan.meshes.empty()) {
    throw std::runtime_error(
        fmt::format("{}: holds no such target or partition of mesh {}{}", summary.file, id,
                    holds(format, factory::Content::postTargets)
                        ? ""
                        : ", or none but post targets, which this format does not take"));
  }
  const bool holdsSettings = holds(format, factory::Content::settings);
  plan.settings = options.settings && holdsSettings ? summary.settings.size() : 0;
  plan.model = holds(format, factory::Content::locationModel) ? plannedModel(summary, plan, options)
                                                              : CopyPlan::Model::none;
  plan.solverFormat = !options.solverFormat.empty() ? options.solverFormat
                      : summary.solverType.empty()  ? "VELTO_GENERIC"
                                                    : summary.solverType;
  plan.leftBehind = whatIsLeftBehind(source, summary, plan, options);
  plan.noPlace = whatHasNoPlace(summary, options, format);
  return plan;
}

}  // namespace velto::orv
