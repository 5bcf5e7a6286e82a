// SPDX-License-Identifier: Apache-2.0
//
// CaseComparison: the field data, phase by phase.

#include <algorithm>

#include "orv/CaseComparison.h"

namespace velto::orv {

namespace {

/// The phases that have a name, by their names.
std::vector<std::pair<std::string, short>> phasesOf(OrvProvider& provider) {
  std::vector<short> ids;
  provider.getPhaseIds(ids);
  std::vector<std::pair<std::string, short>> phases;
  for (const short id : ids) {
    std::string name;
    if (provider.getPhaseName(id, name)) {
      phases.emplace_back(name, id);
    }
  }
  return phases;
}

std::string namesOf(const std::vector<std::pair<std::string, short>>& phases) {
  std::string names;
  for (const auto& phase : phases) {
    names += (names.empty() ? "" : ",") + phase.first;
  }
  return names;
}

/// Attributes with their values as one text.
template <class Id, class NamesQuery, class Query>
std::string attributes(OrvProvider& provider, Id id, NamesQuery namesQuery, Query query) {
  std::vector<std::string> names;
  std::string text;
  if ((provider.*namesQuery)(id, names)) {
    for (const std::string& name : names) {
      std::string value;
      if ((provider.*query)(id, name, value)) {
        text += fmt::format("{}{}={}", text.empty() ? "" : ",", name, value);
      }
    }
  }
  return text;
}

}  // namespace

void CaseComparison::compareResults(const Selection& inSource, const Selection& inCopy) {
  select(inSource, inCopy);
  const std::string mesh = place_;
  const auto phases = both([](OrvFileProvider& provider) { return phasesOf(provider); });
  compare("phases", Both<std::string>(namesOf(phases.first), namesOf(phases.second)));
  if (phases.first.size() != phases.second.size()) {
    return;
  }
  for (std::size_t i = 0; i < phases.first.size(); ++i) {
    place_ = mesh + "phase '" + phases.first[i].first + "': ";
    const short from = phases.first[i].second;
    const short to = phases.second[i].second;
    comparePhaseTexts(from, to);
    source_.beginPhase(from);
    copy_.beginPhase(to);
    for (const OrvZoneCategory category : {zoneCategoryNode, zoneCategoryFace, zoneCategoryCell}) {
      compareVariables(category);
    }
    source_.endPhase();
    copy_.endPhase();
  }
}

void CaseComparison::comparePhaseTexts(short inSource, short inCopy) {
  const auto textsOf = [](OrvFileProvider& provider, short phase) {
    std::string text;
    const bool hasText = provider.getPhaseDescription(phase, text);
    return (hasText ? text : "") + "; " +
           attributes(provider, phase, &OrvProvider::getPhaseAttributeNames,
                      &OrvProvider::getPhaseAttribute);
  };
  compare("texts", Both<std::string>(textsOf(source_, inSource), textsOf(copy_, inCopy)));
}

void CaseComparison::compareVariables(OrvZoneCategory category) {
  const auto names = both([category](OrvFileProvider& provider) {
    std::vector<std::string> list;
    provider.getVariableNames(category, list);
    return list;
  });
  if (names.first != names.second) {
    differs(fmt::format("variables: {} and {}", joined(names.first), joined(names.second)));
    return;
  }
  for (const std::string& name : names.first) {
    compareVariableTexts(name);
    compareValues(category, name);
  }
}

void CaseComparison::compareVariableTexts(const std::string& name) {
  compare("texts of '" + name + "'", both([&name](OrvFileProvider& provider) {
            int id = 0;
            provider.getVariableId(name, id);
            std::string text;
            const bool hasText = provider.getVariableDescription(id, text);
            return (hasText ? text : "") + "; " +
                   attributes(provider, id, &OrvProvider::getVariableAttributeNames,
                              &OrvProvider::getVariableAttribute);
          }));
}

void CaseComparison::compareValues(OrvZoneCategory category, const std::string& name) {
  Both<std::size_t> perEntity;
  Both<std::vector<int>> listed;
  perEntity.first = source_.beginVariable(category, name, listed.first);
  perEntity.second = copy_.beginVariable(category, name, listed.second);
  compare("values per element of '" + name + "'", perEntity);
  for (const int zone : zonesOf("'" + name + "'", listed)) {
    arrayBegins();
    const auto valuesOf = [zone](OrvProvider& provider, std::size_t valuesPerEntity) {
      std::vector<double> values(elementCount(provider, zone) * valuesPerEntity);
      values.resize(
          std::min(values.size(), provider.readVariable(zone, values.data(), values.size())));
      return values;
    };
    compareArrays(label(zone), "values of '" + name + "'",
                  Both<std::vector<double>>(valuesOf(source_, perEntity.first),
                                            valuesOf(copy_, perEntity.second)));
  }
  source_.endVariable();
  copy_.endVariable();
}

}  // namespace velto::orv
