// SPDX-License-Identifier: Apache-2.0
//
// What a file holds beside its meshes: header, settings, phases and variables.

#include "embedded/store/case_tables.h"

#include <limits>

namespace velto::store {

using base::CaseError;
using layout::AttributeRow;
using layout::NamedRow;
using layout::SettingRow;

namespace {

const char* nameOf(OrvDataClass dataClass) {
  return dataClass == dataClassResults ? "results" : "case";
}

std::string versionText(std::int64_t major, std::int64_t minor) {
  return std::to_string(major) + "." + std::to_string(minor);
}

}  // namespace

// --- Header -------------------------------------------------------------------------------------

void writeHeader(Group& root, const base::CaseTables& tables, OrvDataClass dataClass) {
  root.setText("format", layout::kFormat);
  root.setNumbers("layout", {layout::kMajor, layout::kMinor});
  root.setText("dataClass", nameOf(dataClass));
  if (tables.version) {
    root.setNumbers("version",
                    {tables.version->major, tables.version->minor, tables.version->patch});
  }
  root.setText("solverType", tables.solverType);
  root.setText("application", tables.applicationName);
}

void readHeader(const Group& root, OrvDataClass dataClass, base::CaseTables& tables) {
  if (root.text("format") != layout::kFormat) {
    throw CaseError(root.where("format") + ": this HDF5 file is no " + layout::kFormat);
  }
  const auto layoutVersion = root.numbers("layout");
  if (!layoutVersion || layoutVersion->size() != 2) {
    throw CaseError(root.where("layout") + ": two numbers are expected");
  }
  if (layoutVersion->front() != layout::kMajor) {
    throw CaseError(root.where("layout") + ": the file has layout " +
                    versionText(layoutVersion->front(), layoutVersion->back()) +
                    ", this program reads layout " + versionText(layout::kMajor, layout::kMinor));
  }
  const std::string held = root.text("dataClass").value_or("");
  if (held != nameOf(dataClassCase) && held != nameOf(dataClassResults)) {
    throw CaseError(root.where("dataClass") + ": \"case\" or \"results\" is expected");
  }
  if (held != nameOf(dataClass)) {
    throw CaseError(root.where() + (dataClass == dataClassCase
                                        ? "the file holds the results of a case and no case"
                                        : "the file holds a case and no results"));
  }
  if (const auto version = root.numbers("version")) {
    const std::string place = root.where("version");
    if (version->size() != 3) {
      throw CaseError(place + ": three numbers are expected");
    }
    tables.version = base::FileVersion{toInt((*version)[0], place), toInt((*version)[1], place),
                                       toInt((*version)[2], place)};
  }
  tables.solverType = root.text("solverType").value_or("");
  tables.applicationName = root.text("application").value_or("");
}

// --- Settings -----------------------------------------------------------------------------------

void writeSettings(Group& root, const base::CaseTables& tables, OrvDataClass dataClass) {
  std::vector<SettingRow> rows;
  TextWriter texts;
  for (const auto& store : tables.settings) {
    if (store.first.first != dataClass) {
      continue;
    }
    const layout::TextRef path = texts.add(store.first.second);
    for (const base::Settings::Entry& entry : store.second.entries()) {
      rows.push_back({path, texts.add(entry.first), texts.add(entry.second)});
    }
  }
  root.setCount("settings", rows.empty() ? 0 : 1);
  if (!rows.empty()) {
    Group group = root.makeGroup("settings");
    writeRows(group, "entries", layout::settingTable(), rows);
    texts.write(group);
  }
}

void readSettings(const Group& root, OrvDataClass dataClass, base::CaseTables& tables) {
  if (requireCount(root, "settings") == 0) {
    return;
  }
  const Group group = root.openGroup("settings");
  const TextReader texts(group);
  for (const auto& row : readRows<SettingRow>(group, "entries", layout::settingTable())) {
    tables.settings[{dataClass, texts.text(row.path)}].set(texts.text(row.key),
                                                           texts.text(row.value));
  }
}

// --- Phases and variables -----------------------------------------------------------------------

namespace {

void addAttributes(std::vector<AttributeRow>& rows, TextWriter& texts, bool isVariable, int id,
                   const base::Attributes& attributes) {
  for (const auto& attribute : attributes) {
    rows.push_back(
        {isVariable ? 1 : 0, id, texts.add(attribute.first), texts.add(attribute.second)});
  }
}

}  // namespace

void writeResultTables(Group& root, const base::CaseTables& tables) {
  std::vector<NamedRow> phases;
  std::vector<NamedRow> variables;
  std::vector<AttributeRow> attributes;
  TextWriter texts;
  for (const base::Phase& phase : tables.phases) {
    phases.push_back({phase.id, texts.add(phase.name), texts.add(phase.description)});
    addAttributes(attributes, texts, false, phase.id, phase.attributes);
  }
  for (const base::Variable& variable : tables.variables) {
    variables.push_back({variable.id, texts.add(variable.name), texts.add(variable.description)});
    addAttributes(attributes, texts, true, variable.id, variable.attributes);
  }
  Group group = root.makeGroup("results");
  writeRows(group, "phases", layout::namedTable(), phases);
  writeRows(group, "variables", layout::namedTable(), variables);
  writeRows(group, "attributes", layout::attributeTable(), attributes);
  texts.write(group);
}

void readResultTables(const Group& root, base::CaseTables& tables) {
  const Group group = root.openGroup("results");
  const TextReader texts(group);
  for (const auto& row : readRows<NamedRow>(group, "phases", layout::namedTable())) {
    if (row.id < std::numeric_limits<short>::min() || row.id > std::numeric_limits<short>::max()) {
      throw CaseError(group.where("phases") + ": " + std::to_string(row.id) + " is no phase id");
    }
    base::Phase phase;
    phase.id = static_cast<short>(row.id);
    phase.name = texts.optional(row.name);
    phase.description = texts.optional(row.description);
    tables.phases.push_back(std::move(phase));
  }
  for (const auto& row : readRows<NamedRow>(group, "variables", layout::namedTable())) {
    base::Variable variable;
    variable.id = toInt(row.id, group.where("variables"));
    variable.name = texts.text(row.name);
    variable.description = texts.optional(row.description);
    tables.variables.push_back(std::move(variable));
  }
  for (const auto& row : readRows<AttributeRow>(group, "attributes", layout::attributeTable())) {
    base::Phase* phase =
        row.isVariable == 0 ? tables.findPhase(static_cast<short>(row.id)) : nullptr;
    base::Variable* variable = row.isVariable == 0 ? nullptr : tables.findVariable(row.id);
    if (phase == nullptr && variable == nullptr) {
      throw CaseError(group.where("attributes") + ": there is nothing with the id " +
                      std::to_string(row.id));
    }
    base::setAttribute(phase != nullptr ? phase->attributes : variable->attributes,
                       texts.text(row.name), texts.text(row.value));
  }
}

}  // namespace velto::store
