// SPDX-License-Identifier: Apache-2.0
//
// Suggestions: names of formats, samples and defects.

#include "orv/suggestions.h"

#include "orv/copy_files.h"
#include "samples/defects.h"
#include "samples/samples.h"

namespace velto::orv {

namespace {

template <class Info>
std::vector<std::string> namesOf(const std::vector<Info>& list) {
  std::vector<std::string> names;
  names.reserve(list.size());
  for (const Info& info : list) {
    names.emplace_back(info.name);
  }
  return names;
}

}  // namespace

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
