// SPDX-License-Identifier: Apache-2.0
//
// Pairs of processor patches by the two numbers in their entries.

#include "formats/openfoam/processor_patches.h"

#include <string>
#include <utility>
#include <vector>

namespace velto::openfoam {

namespace {

using Numbers = std::pair<std::string, std::string>;  // myProcNo, neighbProcNo

Numbers numbersOf(const WrittenPatch& patch) {
  Numbers numbers;
  for (const auto& [keyword, text] : patch.entries) {
    if (keyword == "myProcNo") {
      numbers.first = text;
    } else if (keyword == "neighbProcNo") {
      numbers.second = text;
    }
  }
  return numbers;
}

bool isCut(const WrittenPatch& patch) {
  return patch.zones.size() > 1 && patch.type.compare(0, 9, "processor") == 0;
}

}  // namespace

void alignProcessorPatches(const std::map<int, WrittenZones*>& partitions) {
  std::map<Numbers, std::vector<WrittenPatch*>> patches;
  for (const auto& [partition, zones] : partitions) {
    for (WrittenPatch& patch : zones->patches) {
      if (patch.type == "processor") {
        patches[numbersOf(patch)].push_back(&patch);
      }
    }
  }
  for (const auto& [partition, zones] : partitions) {
    for (WrittenPatch& patch : zones->patches) {
      if (!isCut(patch)) {
        continue;
      }
      const Numbers numbers = numbersOf(patch);
      const auto others = patches.find({numbers.second, numbers.first});
      if (patch.type == "processor" && others != patches.end() && others->second.size() == 1) {
        patch.isInOrderOfPoints = true;
        others->second.front()->isInOrderOfPoints = true;
      } else {
        zones->warnings.push_back("patch '" + patch.name +
                                  "': its faces may not match those on the other side");
      }
    }
  }
}

}  // namespace velto::openfoam
