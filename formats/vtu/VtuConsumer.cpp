// SPDX-License-Identifier: Apache-2.0
//
// VtuConsumer: the same file, first without and then with the results.

#include "formats/vtu/VtuConsumer.h"

#include <algorithm>
#include <string>

#include "embedded/base/OrvBaseState.h"
#include "formats/vtu/OutputFile.h"
#include "formats/vtu/write_vtu.h"

namespace velto::vtu {

namespace {

bool hasVariables(const memory::Case& source) {
  return std::any_of(source.data.begin(), source.data.end(),
                     [](const auto& mesh) { return !mesh.second.variables.empty(); });
}

}  // namespace

void VtuConsumer::open(OrvDataClass) { base::requireFileName(fileName(dataClassCase)); }

void VtuConsumer::finish(OrvDataClass dataClass) {
  const std::shared_ptr<const memory::Case> source = takeCase();
  const bool withFields = dataClass == dataClassResults;
  if (withFields && !hasVariables(*source)) {
    return;
  }
  const std::string& file = fileName(dataClassCase);
  const std::vector<std::string> leftOut = writeVtu(*source, file, {compression(), withFields});
  if (leftOut.empty()) {
    return;
  }
  std::string names;
  for (const std::string& name : leftOut) {
    names += (names.empty() ? "" : ", ") + name;
  }
  base::coreOf(*this).messages.addWarning("end of writing: " + file +
                                          ": variables of faces are left out: " + names);
}

}  // namespace velto::vtu
