// SPDX-License-Identifier: Apache-2.0
//
// copyResults: the field data of all phases.

#include <algorithm>
#include <string>
#include <vector>

#include "velto/OrvCopier.h"

#include "data_access/OrvFileConsumer.h"
#include "data_access/OrvFileProvider.h"
#include "data_access/ZoneBuffer.h"
#include "data_access/sizes.h"

#include "copier/MappedZones.h"
#include "copier/movers.h"

namespace velto {

bool OrvCopier::copyResults() {
  if (source == nullptr || destination == nullptr) {
    return false;
  }
  destination->startWriting(dataClassResults);
  destination->setSolverType(destinationSolverFormat);
  writeProgress("Copying problem size");
  copyMeshSize(source, destination);
  writeProgress("Copying zone topology");
  copyZoneTopology(source, destination, zoneMap);
  if (zoneMap.empty()) {
    writeProgress("Skipping results as no mesh written");
    return true;  // Kept: writing stays open.
  }
  writeProgress("Writing results");
  writeProgress("  Writing phase variables");
  copyPhaseVariables();
  destination->endWriting(dataClassResults);
  writeProgress("  Results written");
  return true;
}

namespace {

/// Both sides where both are files: what only files have crosses between them.
struct Files {
  Files(OrvProvider* provider, OrvConsumer* consumer)
      : source(dynamic_cast<OrvFileProvider*>(provider)),
        destination(dynamic_cast<OrvFileConsumer*>(consumer)) {}

  bool both() const { return source != nullptr && destination != nullptr; }

  OrvFileProvider* source;
  OrvFileConsumer* destination;
};

/// The phases that have a name, under their ids on both sides.
struct NamedPhases {
  std::vector<short> source;
  std::vector<short> destination;
};

NamedPhases addPhases(OrvProvider& provider, OrvConsumer& consumer,
                      const std::vector<short>& phases) {
  NamedPhases named;
  std::vector<std::string> names;
  for (const short phase : phases) {
    std::string name;
    if (provider.getPhaseName(phase, name)) {
      named.source.push_back(phase);
      names.push_back(name);
    }
  }
  consumer.addPhases(names, named.destination);
  // Harmless: a phase that got no id has nowhere to go.
  named.source.resize(std::min(named.source.size(), named.destination.size()));
  return named;
}

void copyPhaseTexts(const Files& files, short from, short to) {
  std::string description;
  if (files.source->getPhaseDescription(from, description)) {
    files.destination->setPhaseDescription(to, description);
  }
  std::vector<std::string> attributes;
  if (files.source->getPhaseAttributeNames(from, attributes)) {
    for (const std::string& attribute : attributes) {
      std::string value;
      if (files.source->getPhaseAttribute(from, attribute, value)) {
        files.destination->setPhaseAttribute(to, attribute, value);
      }
    }
  }
}

void copyVariableAttributes(OrvProvider& provider, OrvConsumer& consumer, int from, int to) {
  std::vector<std::string> attributes;
  if (provider.getVariableAttributeNames(from, attributes)) {
    for (const std::string& attribute : attributes) {
      std::string value;
      if (provider.getVariableAttribute(from, attribute, value)) {
        consumer.setVariableAttribute(to, attribute, value);
      }
    }
  }
}

/// Registers the variables with all that is said about them.
void declareVariables(OrvProvider& provider, OrvConsumer& consumer, const Files& files,
                      OrvZoneCategory category, const std::vector<std::string>& names) {
  std::vector<int> ids;
  for (const std::string& name : names) {
    int from = 0;  // asked for where the source does not know the variable's id
    provider.getVariableId(name, from);
    int to = 0;
    consumer.addVariable(name, to);
    ids.push_back(to);
    std::string description;
    if (files.both() && files.source->getVariableDescription(from, description)) {
      files.destination->setVariableDescription(to, description);
    }
    copyVariableAttributes(provider, consumer, from, to);
  }
  consumer.declareVariables(category, names, ids);
}

void copyValuesOfZone(const Route& route, int from, int to, std::size_t valuesPerEntity) {
  ZoneBuffer<double> values(route.memory,
                            zoneSizeOf(route.source, from, zoneElementCount) * valuesPerEntity);
  const std::size_t delivered = route.source.readVariable(from, values.data(), values.size());
  // Harmless: a claim of more values than there was room for is not followed.
  route.destination.writeVariable(to, values.data(), std::min(delivered, values.size()));
}

}  // namespace

void OrvCopier::copyPhaseVariables() {
  std::vector<short> phases;
  source->getPhaseIds(phases);
  if (phases.empty()) {
    return;
  }
  const NamedPhases named = addPhases(*source, *destination, phases);
  const Files files(source, destination);
  ZoneMemory memory;
  for (std::size_t i = 0; i < named.source.size(); ++i) {
    if (files.both()) {
      copyPhaseTexts(files, named.source[i], named.destination[i]);
    }
    source->beginPhase(named.source[i]);
    for (const OrvZoneCategory category : {zoneCategoryNode, zoneCategoryFace, zoneCategoryCell}) {
      std::vector<std::string> names;
      source->getVariableNames(category, names);
      if (names.empty()) {
        continue;
      }
      // Kept: the phase is opened once for each category that has variables.
      destination->beginPhase(named.destination[i]);
      declareVariables(*source, *destination, files, category, names);
      for (const std::string& name : names) {
        copyVariable(category, name, memory);
      }
      destination->endPhase();
    }
    source->endPhase();
  }
}

void OrvCopier::copyVariable(OrvZoneCategory category, const std::string& name,
                             ZoneMemory& memory) {
  std::vector<int> listed;
  const std::size_t valuesPerEntity = source->beginVariable(category, name, listed);
  if (!listed.empty()) {
    const Route route = {*source, *destination, zoneMap, memory};
    const MappedZones zones(listed, zoneMap);
    destination->beginVariableZones(category);
    copyElemIds(category);
    destination->beginVariable(category, name, zones.destination, valuesPerEntity);
    for (std::size_t i = 0; i < zones.size(); ++i) {
      copyValuesOfZone(route, zones.source[i], zones.destination[i], valuesPerEntity);
    }
    destination->endVariable();
    destination->endVariableZones();
  }
  source->endVariable();
}

}  // namespace velto
