// SPDX-License-Identifier: Apache-2.0
//
// copyWhole: one copier for each target and partition; and the comparison with the source.

#include "tests/copies/copy_whole.h"

#include "velto/OrvCopier.h"

#include "data_access/location_models.h"

#include "embedded/memory/MemoryConsumer.h"
#include "embedded/memory/MemoryProvider.h"
#include "orv/CaseComparison.h"

namespace velto::testing {

namespace {

orv::Selection inCopy(const orv::Selection& selection) {
  return {1, selection.target, selection.partition};
}

OrvCopier makeCopier(OrvFileProvider& source, OrvFileConsumer& destination,
                     const orv::Selection& selection) {
  select(source, selection);
  select(destination, inCopy(selection));
  OrvCopier copier("tests");
  copier.setSource(&source);
  copier.setDestination(&destination);
  copier.copyCellPartitionsToDestination(true);
  return copier;
}

}  // namespace

std::vector<orv::Selection> selectionsOf(OrvFileProvider& source) {
  std::vector<int> meshes;
  source.getMeshIds(meshes, dataClassCase);
  const int mesh = meshes.front();
  std::vector<int> targets;
  source.getTargets(targets, mesh, dataClassCase);
  std::vector<int> partitions;
  source.getPartitionIds(partitions, mesh, dataClassCase);
  if (partitions.empty()) {
    partitions.push_back(-1);
  }
  std::vector<orv::Selection> selections;
  for (const int target : targets) {
    for (const int partition : partitions) {
      selections.push_back({mesh, target, partition});
    }
  }
  return selections;
}

void copyWhole(OrvFileProvider& source, OrvFileConsumer& destination) {
  const std::vector<orv::Selection> selections = selectionsOf(source);
  const bool canBuild = selections.size() == 1 && selections.front().target == targetRestart;
  destination.startWriting(dataClassCase);
  bool isFirst = true;
  for (const orv::Selection& selection : selections) {
    OrvCopier copier = makeCopier(source, destination, selection);
    copier.copyLocationModelToDestination(isFirst &&
                                          (canBuild || hasParts(source.getLocationModel())));
    copier.copySettingsToDestination(isFirst);
    copier.copyCase(false);
    isFirst = false;
  }
  destination.endWriting(dataClassCase);
  std::vector<short> phases;
  source.getPhaseIds(phases);
  if (!phases.empty()) {
    makeCopier(source, destination, selections.front()).copyResults();
  }
}

Texts differences(OrvFileProvider& source, OrvFileProvider& copy) {
  orv::CaseComparison comparison(source, copy);
  const std::vector<orv::Selection> selections = selectionsOf(source);
  for (const orv::Selection& selection : selections) {
    comparison.compareMesh(selection, inCopy(selection));
  }
  comparison.compareResults(selections.front(), inCopy(selections.front()));
  comparison.compareModel(selections.front().mesh);
  comparison.compareSettings();
  return comparison.differences();
}

Texts differencesInMemory(OrvFileProvider& source) {
  memory::MemoryConsumer destination;
  copyWhole(source, destination);
  memory::MemoryProvider copy(destination.takeCase());
  return copy.startReading("", dataClassCase) ? differences(source, copy)
                                              : copy.getErrors(true, true);
}

}  // namespace velto::testing
