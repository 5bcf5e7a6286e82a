// SPDX-License-Identifier: Apache-2.0
//
// Samples: sound cases of any size, whose arrays are made by formula while they are read.

#ifndef VELTO_SAMPLES_SAMPLES_H
#define VELTO_SAMPLES_SAMPLES_H

#include <cstdint>
#include <string>
#include <vector>

#include "embedded/base/CaseProvider.h"
#include "embedded/base/CaseTables.h"

namespace velto::samples {

/// A case that takes no room for its arrays: each read computes them straight into the caller's
/// buffer. A sample of a hundred million cells costs as much memory as one of eight, until somebody
/// reads it. Copies share the arrays, which have no state.
///
///     const Sample box = findSample("box")->make(1000);
///     store::saveCase(box.tables, box.arrays, "box.orv", 0);
struct Sample {
  base::CaseTables tables;
  base::CaseProvider::ArraysByMesh arrays;
};

/// A sample that can be made.
struct SampleInfo {
  const char* name;     ///< In kebab-case, as `orv sample` takes it.
  const char* title;    ///< What it is, in a few words.
  const char* purpose;  ///< What it is for, in one sentence.

  /// Makes it with about `cells` cells: each direction is rounded to a whole number of layers, and
  /// at least one layer of cells goes to each zone. 0 counts as 1.
  Sample (*make)(std::uint64_t cells);

  std::uint64_t defaultCells;
  bool hasResults;  ///< Whether there is a results file to write beside the case file.
};

/// All samples, the simplest first. Each is sound: no check has anything to say of it.
const std::vector<SampleInfo>& samples();

/// The sample of a name, or null.
const SampleInfo* findSample(const std::string& name);

/// Cells of all meshes of a case.
std::uint64_t cellCount(const base::CaseTables& tables);

}  // namespace velto::samples

#endif  // VELTO_SAMPLES_SAMPLES_H
