// SPDX-License-Identifier: Apache-2.0
//
// orv model: shows the location model of a case, or the one that can be built for it.

#include <algorithm>
#include <iostream>
#include <nlohmann/json.hpp>
#include <string>

#include "orv/ProgressBar.h"
#include "orv/commands.h"
#include "orv/hints.h"
#include "orv/json_report.h"
#include "orv/model_views.h"
#include "orv/open_case.h"

namespace velto::orv {

namespace {

int statusOf(const ModelSummary& summary) {
  if (summary.origin != ModelOrigin::none) {
    return exitSound;
  }
  return summary.lacksMesh ? exitNotDone : exitErrors;
}

bool hasFaces(const ModelSummary& summary) {
  return std::any_of(summary.parts.begin(), summary.parts.end(),
                     [](const PartOfModel& part) { return !part.faces.empty(); });
}

/// Says why a model that was built of a post mesh has bodies alone.
void explainMissingFaces(const ModelSummary& summary) {
  if (summary.origin == ModelOrigin::built && summary.target != targetRestart &&
      !hasFaces(summary)) {
    tell(summary.file, "no faces: mesh " + std::to_string(summary.mesh) +
                           " is no restart mesh and does not tell which cell zones its face zones "
                           "bound");
  }
}

}  // namespace

int runModel(const ModelOptions& options) {
  if (options.dot && options.files.size() > 1) {
    std::cerr << "orv: --dot takes one file" << std::endl;
    return exitNotDone;
  }
  int status = exitSound;
  std::string before;  // An empty line between two models.
  nlohmann::ordered_json files = nlohmann::ordered_json::array();
  const ProgressBar progress(true);
  for (const std::string& file : options.files) {
    const ProviderOwner provider = openCase(file);
    if (!provider) {
      status = exitNotDone;
      continue;
    }
    const ModelSummary summary = readModel(file, *provider, options.mesh, options.build).summary;
    printMessages(*provider, file);
    status = std::max(status, statusOf(summary));
    if (options.json) {
      files.push_back(modelJson(summary));
      continue;
    }
    std::cerr << modelErrors(summary);
    explainMissingFaces(summary);
    if (summary.origin != ModelOrigin::none) {
      std::cout << before << (options.dot ? modelDot(summary) : modelText(summary)) << std::flush;
      before = "\n";
    }
  }
  if (options.json) {
    printReport({{"files", files}});
  }
  return status;
}

}  // namespace velto::orv
