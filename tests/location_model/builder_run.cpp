// SPDX-License-Identifier: Apache-2.0
//
// runBuilder: which calls of a build are compared.

#include "tests/location_model/builder_run.h"

#include <algorithm>
#include <set>

namespace velto::testing {

Transcript withoutQueries(const Transcript& calls) {
  static const std::set<std::string> kQueries = {
      "getMeshId",          "getSolverType",       "getZoneSizeInfo",    "getZoneStringInfo",
      "getFaceZoneInfo",    "getCellZoneInfo",     "getFaceZoneProp",    "getFaceZoneType",
      "getCellFaceZoneIds", "getFaceCellZone0Ids", "getFaceCellZone1Ids"};
  Transcript kept;
  std::copy_if(calls.begin(), calls.end(), std::back_inserter(kept),
               [](const std::string& call) { return kQueries.count(operationOf(call)) == 0; });
  return kept;
}

Transcript callsOf(const std::vector<std::string>& operations, const Transcript& calls) {
  Transcript kept;
  std::copy_if(calls.begin(), calls.end(), std::back_inserter(kept), [&](const std::string& call) {
    return std::count(operations.begin(), operations.end(), operationOf(call)) > 0;
  });
  return kept;
}

std::string lines(const Transcript& calls) {
  std::string text;
  for (const std::string& call : calls) {
    text += call + "\n";
  }
  return text;
}

Built build(const CasePtr& served, const Preparation& prepare) {
  const LocationModelBuilder builder;
  OrvLocationModel model;
  return runBuilder(builder, model, served, prepare);
}

}  // namespace velto::testing
