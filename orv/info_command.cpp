// SPDX-License-Identifier: Apache-2.0
//
// orv info: shows the tables of a case.

#include <fmt/format.h>
#include <iostream>
#include <nlohmann/json.hpp>
#include <string>

#include "data_access/OrvFileProvider.h"

#include "factory/words.h"
#include "orv/CaseSummary.h"
#include "orv/ProgressBar.h"
#include "orv/TextTable.h"
#include "orv/commands.h"
#include "orv/json_report.h"
#include "orv/open_case.h"
#include "orv/shown_name.h"
#include "orv/words.h"

namespace velto::orv {

namespace {

/// A name in a column of its own, where none at all stands out.
std::string nameWord(const std::string& name) { return name.empty() ? "" : shownName(name); }

std::string typeWord(const ZoneSummary& zone) {
  if (zone.category != zoneCategoryFace) {
    return "";
  }
  return zone.typeName.empty() ? factory::faceZoneTypeName(zone.type) : zone.typeName;
}

std::string shapeWord(const ZoneSummary& zone) {
  switch (zone.category) {
    case zoneCategoryNode:
      return "";
    case zoneCategoryFace:
      return factory::faceShapeName(zone.shape);
    default:
      return factory::cellShapeName(zone.shape);
  }
}

/// "7 | 8": the cell zones on side 0 and on side 1 of a face zone.
std::string sidesWord(const ZoneSummary& zone) {
  if (zone.category != zoneCategoryFace || (zone.side0.empty() && zone.side1.empty())) {
    return "";
  }
  return joined(zone.side0) + " | " + joined(zone.side1);
}

std::string rangeWord(const ZoneSummary& zone) {
  return zone.count == 0 ? "none" : fmt::format("{} to {}", zone.first, zone.last);
}

void printZones(const MeshSummary& mesh) {
  using Align = TextTable::Align;
  TextTable table({{"zone", Align::right},
                   {"kind"},
                   {"name"},
                   {"type"},
                   {"shape"},
                   {"elements", Align::right},
                   {"ids"},
                   {"cell zones"},
                   {"shadow"}});
  for (const ZoneSummary& zone : mesh.zones) {
    table.addRow({std::to_string(zone.id), categoryWord(zone.category), nameWord(zone.name),
                  nameWord(typeWord(zone)), shapeWord(zone), std::to_string(zone.count),
                  rangeWord(zone), sidesWord(zone),
                  zone.shadow == 0 ? "" : std::to_string(zone.shadow)});
  }
  std::cout << table.text("  ");
}

void printVariables(const MeshSummary& mesh) {
  if (mesh.variables.empty()) {
    return;
  }
  TextTable table(
      {{"phase"}, {"on"}, {"variable"}, {"values", TextTable::Align::right}, {"zones"}});
  for (const VariableSummary& variable : mesh.variables) {
    table.addRow({nameWord(variable.phase), categoryWord(variable.category),
                  nameWord(variable.name), std::to_string(variable.valuesPerEntity),
                  joined(variable.zones)});
  }
  std::cout << "\n" << table.text("  ");
}

void printText(const CaseSummary& summary) {
  std::cout << fmt::format("{}\n  version {}.{}.{}, solver type {}, {} location model\n",
                           shownText(summary.file), summary.major, summary.minor, summary.patch,
                           summary.solverType.empty() ? "not set" : shownName(summary.solverType),
                           summary.hasLocationModel ? "with a" : "no");
  if (!summary.results.empty()) {
    std::cout << fmt::format("  results in {}\n", shownText(summary.results));
  }
  for (const MeshSummary& mesh : summary.meshes) {
    std::cout << fmt::format(
        "\nmesh {}, {}{}: {}-D, {} nodes, {} faces, {} cells{}\n", mesh.at.mesh,
        targetWord(mesh.at.target),
        mesh.at.partition == -1 ? "" : fmt::format(", partition {}", mesh.at.partition),
        mesh.dimension, mesh.nodes, mesh.faces, mesh.cells,
        mesh.units.empty() ? "" : ", unit " + shownName(mesh.units));
    printZones(mesh);
    printVariables(mesh);
  }
  if (!summary.settings.empty()) {
    TextTable table({{"setting"}, {"value"}});
    for (const auto& setting : summary.settings) {
      table.addRow({nameWord(setting.first), shownText(setting.second)});
    }
    std::cout << "\n" << table.text("");
  }
}

nlohmann::ordered_json zoneJson(const ZoneSummary& zone) {
  nlohmann::ordered_json json = {{"id", zone.id},         {"kind", categoryWord(zone.category)},
                                 {"name", zone.name},     {"elements", zone.count},
                                 {"firstId", zone.first}, {"lastId", zone.last}};
  if (zone.category != zoneCategoryNode) {
    json["shape"] = shapeWord(zone);
  }
  if (zone.category == zoneCategoryFace) {
    json["type"] = typeWord(zone);
    json["typeId"] = zone.type;
    json["shadow"] = zone.shadow;
    json["cellZones"] = {zone.side0, zone.side1};
  }
  return json;
}

nlohmann::ordered_json meshJson(const MeshSummary& mesh) {
  nlohmann::ordered_json zones = nlohmann::ordered_json::array();
  for (const ZoneSummary& zone : mesh.zones) {
    zones.push_back(zoneJson(zone));
  }
  nlohmann::ordered_json variables = nlohmann::ordered_json::array();
  for (const VariableSummary& variable : mesh.variables) {
    variables.push_back({{"phase", variable.phase},
                         {"on", categoryWord(variable.category)},
                         {"name", variable.name},
                         {"valuesPerElement", variable.valuesPerEntity},
                         {"zones", variable.zones}});
  }
  return {{"mesh", mesh.at.mesh},
          {"target", targetWord(mesh.at.target)},
          {"partition", mesh.at.partition},
          {"units", mesh.units},
          {"sizes",
           {{"dimension", mesh.dimension},
            {"nodes", mesh.nodes},
            {"faces", mesh.faces},
            {"cells", mesh.cells}}},
          {"zones", zones},
          {"variables", variables}};
}

nlohmann::ordered_json caseJson(const CaseSummary& summary) {
  nlohmann::ordered_json meshes = nlohmann::ordered_json::array();
  for (const MeshSummary& mesh : summary.meshes) {
    meshes.push_back(meshJson(mesh));
  }
  nlohmann::ordered_json settings = nlohmann::ordered_json::array();
  for (const auto& setting : summary.settings) {
    settings.push_back({{"key", setting.first}, {"value", setting.second}});
  }
  return {{"file", summary.file},
          {"version", fmt::format("{}.{}.{}", summary.major, summary.minor, summary.patch)},
          {"solverType", summary.solverType},
          {"locationModel", summary.hasLocationModel},
          {"results", summary.results},
          {"meshes", meshes},
          {"phases", summary.phases},
          {"settings", settings}};
}

}  // namespace

int runInfo(const InfoOptions& options) {
  int status = exitSound;
  nlohmann::ordered_json files = nlohmann::ordered_json::array();
  ProgressBar progress(true);
  for (const std::string& file : options.files) {
    const ProviderOwner provider = openCase(file);
    if (!provider) {
      status = exitNotDone;
      continue;
    }
    const std::string results = resultsBeside(file);
    if (!openResults(results, *provider)) {
      status = exitNotDone;
    }
    CaseSummary summary = summarise(file, *provider);
    summary.results = results;
    printMessages(*provider, file);
    if (options.json) {
      files.push_back(caseJson(summary));
    } else {
      std::cout << (file == options.files.front() ? "" : "\n");
      printText(summary);
    }
  }
  if (options.json) {
    printReport({{"files", files}});
  }
  return status;
}

}  // namespace velto::orv
