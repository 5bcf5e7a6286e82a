// SPDX-License-Identifier: Apache-2.0
//
// saveSample: a sample as files, and what these files are called.

#ifndef VELTO_SAMPLES_SAVE_SAMPLE_H
#define VELTO_SAMPLES_SAVE_SAMPLE_H

#include <functional>
#include <string>
#include <vector>

#include "embedded/store/file_names.h"
#include "samples/samples.h"

namespace velto::samples {

using store::kCaseEnding;

/// Whether a file may be given to saveSample(): something, and the ending behind it.
bool isCaseFile(const std::string& file);

/// The files that saveSample() writes: the case file, and the results file of a sample with phases.
std::vector<std::string> filesOf(const Sample& sample, const std::string& file);

/// Writes them, over what stands there. `compression` is 0 for none up to 9. Needs memory for the
/// longest array of a zone; throws base::CaseError if a file could not be written. `onCase` is
/// called when the case file is there, before the results.
///
/// REQUIRES: isCaseFile(file)
void saveSample(
    const Sample& sample, const std::string& file, unsigned compression,
    const std::function<void()>& onCase = [] {});

}  // namespace velto::samples

#endif  // VELTO_SAMPLES_SAVE_SAMPLE_H
