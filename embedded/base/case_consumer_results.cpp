// SPDX-License-Identifier: Apache-2.0
//
// CaseConsumer: phases, variables and their values.

#include <algorithm>

#include "embedded/base/CaseConsumer.h"
#include "embedded/base/OrvBaseState.h"

namespace velto::base {

void CaseConsumer::addPhases(const std::vector<std::string>& names, std::vector<short>& phaseIds) {
  std::vector<Phase>& phases = coreOf(*this).tables.phases;
  phaseIds.clear();
  for (const std::string& name : names) {
    const auto known = std::find_if(phases.begin(), phases.end(),
                                    [&name](const Phase& phase) { return phase.name == name; });
    if (known == phases.end()) {
      Phase phase;
      phase.id = static_cast<short>(phases.size() + 1);
      phase.name = name;
      phases.push_back(phase);
      phaseIds.push_back(phase.id);
    } else {
      phaseIds.push_back(known->id);
    }
  }
}

void CaseConsumer::setPhaseAttribute(short phaseId, const std::string& name,
                                     const std::string& value) {
  if (Phase* phase = coreOf(*this).tables.findPhase(phaseId)) {
    setAttribute(phase->attributes, name, value);
  }
}

void CaseConsumer::setPhaseDescription(short phaseId, const std::string& text) {
  if (Phase* phase = coreOf(*this).tables.findPhase(phaseId)) {
    phase->description = text;
  }
}

void CaseConsumer::beginPhase(short phaseId) { variable_ = {phaseId, zoneCategoryNode, ""}; }

void CaseConsumer::addVariable(const std::string& name, int& variableId) {
  variableId = coreOf(*this).tables.addVariable(name);
}

void CaseConsumer::setVariableAttribute(int variableId, const std::string& name,
                                        const std::string& value) {
  if (Variable* variable = coreOf(*this).tables.findVariable(variableId)) {
    setAttribute(variable->attributes, name, value);
  }
}

void CaseConsumer::setVariableDescription(int variableId, const std::string& text) {
  if (Variable* variable = coreOf(*this).tables.findVariable(variableId)) {
    variable->description = text;
  }
}

void CaseConsumer::declareVariables(OrvZoneCategory category, const std::vector<std::string>& names,
                                    const std::vector<int>&) {
  onSink("variables",
         [&](MeshArraySink& sink) { sink.declareVariables(variable_.phase, category, names); });
}

void CaseConsumer::beginVariableZones(OrvZoneCategory category) { variable_.category = category; }

void CaseConsumer::beginVariable(OrvZoneCategory category, const std::string& name,
                                 const std::vector<int>& zoneIds, std::size_t valuesPerEntity) {
  variable_.category = category;
  variable_.name = name;
  onSink("variable " + name,
         [&](MeshArraySink& sink) { sink.beginVariable(variable_, zoneIds, valuesPerEntity); });
}

void CaseConsumer::writeVariable(int zoneId, const double* values, std::size_t n) {
  onSink("variable " + variable_.name,
         [&](MeshArraySink& sink) { sink.writeVariable(variable_, zoneId, values, n); });
}

void CaseConsumer::endVariable() { variable_.name.clear(); }
void CaseConsumer::endVariableZones() {}
void CaseConsumer::endPhase() { variable_ = {}; }

}  // namespace velto::base
