// SPDX-License-Identifier: Apache-2.0
//
// Suggestions: names of formats, samples and defects.

#include "orv/suggestions.h"

#include "orv/copy_files.h"
#include "orv/words.h"
#include "samples/defects.h"
#include "samples/samples.h"

namespace velto::orv {

std::vector<Suggestion> suggestions() {
  return {
      {"regions", "NAME", {}, ""},
      {"copy", "--to", writableFormatNames(), ""},
      {"copy", "--solver-format", {}, ""},
      {"sample", "NAME", namesOf(samples::samples()), "--defect"},
      {"sample", "--defect", namesOf(samples::defects()), ""},
  };
}

}  // namespace velto::orv
