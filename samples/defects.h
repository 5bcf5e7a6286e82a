// SPDX-License-Identifier: Apache-2.0
//
// Defects: samples with one thing wrong, at least one for each message that a case can provoke.

#ifndef VELTO_SAMPLES_DEFECTS_H
#define VELTO_SAMPLES_DEFECTS_H

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "embedded/memory/Case.h"
#include "samples/samples.h"

namespace velto::samples {

/// Damage to a sample, and what a checker makes of it.
struct Defect {
  const char* name;     ///< In kebab-case, as `orv sample --defect` takes it.
  const char* what;     ///< What is wrong, in one sentence.
  const char* sample;   ///< The name of the sample that is damaged.
  bool isError;         ///< Whether the finding is an error or a warning.
  const char* finding;  ///< The message that it is here for, as a checker records it with its step.

  /// Damages a case that was the sample.
  void (*damage)(memory::Case& damaged);

  int checkLevel = 1;  ///< The lowest level of a check that finds it.
};

/// All defects, in the order of docs/MESSAGES.md.
const std::vector<Defect>& defects();

/// The defect of a name, or null.
const Defect* findDefect(const std::string& name);

/// Cells of a damaged case where nobody says how many.
inline constexpr std::uint64_t kDefectCells = 64;

/// The damaged case, with about `cells` cells. Unlike a sample it stands in memory as a whole.
std::shared_ptr<memory::Case> makeDefect(const Defect& defect, std::uint64_t cells = kDefectCells);

/// The same as a sample, which keeps that memory.
Sample makeDamagedSample(const Defect& defect, std::uint64_t cells = kDefectCells);

}  // namespace velto::samples

#endif  // VELTO_SAMPLES_DEFECTS_H
