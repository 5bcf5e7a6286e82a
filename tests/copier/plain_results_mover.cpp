// SPDX-License-Identifier: Apache-2.0
//
// PlainCopier: phases and variables.

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "tests/copier/PlainCopier.h"
#include "tests/copier/zeroed.h"

namespace velto::testing {

void PlainCopier::copyPhaseVariables() {
  std::vector<short> allPhases;
  source_->getPhaseIds(allPhases);
  if (allPhases.empty()) {
    return;
  }
  std::vector<short> sourcePhases;
  std::vector<std::string> phaseNames;
  for (const short id : allPhases) {
    std::string name;
    if (source_->getPhaseName(id, name)) {
      sourcePhases.push_back(id);
      phaseNames.push_back(name);
    }
  }
  std::vector<short> destinationPhases;
  destination_->addPhases(phaseNames, destinationPhases);
  auto* fileSource = dynamic_cast<OrvFileProvider*>(source_);
  auto* fileDestination = dynamic_cast<OrvFileConsumer*>(destination_);
  if (fileSource == nullptr || fileDestination == nullptr) {
    fileSource = nullptr;
    fileDestination = nullptr;
  }
  for (std::size_t p = 0; p < sourcePhases.size() && p < destinationPhases.size(); ++p) {
    copyPhase(sourcePhases[p], destinationPhases[p], fileSource, fileDestination);
  }
}

void PlainCopier::copyPhase(short from, short to, OrvFileProvider* fileSource,
                            OrvFileConsumer* fileDestination) {
  if (fileSource != nullptr) {
    std::string text;
    if (fileSource->getPhaseDescription(from, text)) {
      fileDestination->setPhaseDescription(to, text);
    }
    std::vector<std::string> names;
    if (fileSource->getPhaseAttributeNames(from, names)) {
      for (const std::string& name : names) {
        std::string value;
        if (fileSource->getPhaseAttribute(from, name, value)) {
          fileDestination->setPhaseAttribute(to, name, value);
        }
      }
    }
  }
  source_->beginPhase(from);
  for (const OrvZoneCategory category : {zoneCategoryNode, zoneCategoryFace, zoneCategoryCell}) {
    copyCategory(to, category, fileSource, fileDestination);
  }
  source_->endPhase();
}

void PlainCopier::copyCategory(short to, OrvZoneCategory category, OrvFileProvider* fileSource,
                               OrvFileConsumer* fileDestination) {
  std::vector<std::string> names;
  source_->getVariableNames(category, names);
  if (names.empty()) {
    return;
  }
  destination_->beginPhase(to);
  std::vector<int> destinationVariables;
  for (const std::string& name : names) {
    int sourceVariable = 0;
    source_->getVariableId(name, sourceVariable);
    int destinationVariable = 0;
    destination_->addVariable(name, destinationVariable);
    destinationVariables.push_back(destinationVariable);
    copyVariableTexts(sourceVariable, destinationVariable, fileSource, fileDestination);
  }
  destination_->declareVariables(category, names, destinationVariables);
  for (const std::string& name : names) {
    copyVariable(category, name);
  }
  destination_->endPhase();
}

void PlainCopier::copyVariableTexts(int from, int to, OrvFileProvider* fileSource,
                                    OrvFileConsumer* fileDestination) {
  if (fileSource != nullptr) {
    std::string text;
    if (fileSource->getVariableDescription(from, text)) {
      fileDestination->setVariableDescription(to, text);
    }
  }
  std::vector<std::string> attributes;
  if (source_->getVariableAttributeNames(from, attributes)) {
    for (const std::string& attribute : attributes) {
      std::string value;
      if (source_->getVariableAttribute(from, attribute, value)) {
        destination_->setVariableAttribute(to, attribute, value);
      }
    }
  }
}

void PlainCopier::copyVariable(OrvZoneCategory category, const std::string& name) {
  std::vector<int> zones;
  const std::size_t valuesPerEntity = source_->beginVariable(category, name, zones);
  if (!zones.empty()) {
    const std::vector<int> mappedZones = filter(zones);
    destination_->beginVariableZones(category);
    copyElemIds(category);
    destination_->beginVariable(category, name, mappedZones, valuesPerEntity);
    for (std::size_t i = 0; i < zones.size(); ++i) {
      const std::uint64_t total = elementCount(zones[i]) * valuesPerEntity;
      const std::unique_ptr<double[]> values = zeroed<double>(total);
      const std::uint64_t delivered = source_->readVariable(zones[i], values.get(), total);
      destination_->writeVariable(mappedZones[i], values.get(), std::min(delivered, total));
    }
    destination_->endVariable();
    destination_->endVariableZones();
  }
  source_->endVariable();
}

}  // namespace velto::testing
