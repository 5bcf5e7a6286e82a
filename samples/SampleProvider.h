// SPDX-License-Identifier: Apache-2.0
//
// SampleProvider: the read side of a sample.

#ifndef VELTO_SAMPLES_SAMPLE_PROVIDER_H
#define VELTO_SAMPLES_SAMPLE_PROVIDER_H

#include <string>
#include <utility>

#include "embedded/base/CaseProvider.h"
#include "samples/samples.h"

namespace velto::samples {

/// Serves a sample as if it stood in a file, for tests and benchmarks. startReading takes any file
/// name.
class SampleProvider : public base::CaseProvider {
 public:
  explicit SampleProvider(Sample sample) : sample_(std::move(sample)) {}

 protected:
  void open(const std::string&, OrvDataClass) override { serve(sample_.tables, sample_.arrays); }

 private:
  Sample sample_;
};

}  // namespace velto::samples

#endif  // VELTO_SAMPLES_SAMPLE_PROVIDER_H
