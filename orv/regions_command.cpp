// SPDX-License-Identifier: Apache-2.0
//
// orv regions: tells where the physics regions of a case lie, or why one of them lies there.

#include <algorithm>
#include <fmt/format.h>
#include <iostream>
#include <nlohmann/json.hpp>
#include <string>
#include <vector>

#include "orv/ProgressBar.h"
#include "orv/commands.h"
#include "orv/hints.h"
#include "orv/json_report.h"
#include "orv/model_views.h"
#include "orv/near_name.h"
#include "orv/open_case.h"
#include "orv/region_views.h"
#include "orv/shown_name.h"

namespace velto::orv {

namespace {

/// Which findings are told on standard error: all, or for one region those that its explanation
/// does not show.
bool isTold(const Finding& finding, const std::string& only) {
  if (only.empty()) {
    return true;
  }
  return finding.name == only ? finding.about == Finding::About::object
                              : finding.about == Finding::About::resolving;
}

void printFindings(const RegionSummary& summary, const std::string& only) {
  const std::string& file = summary.model.file;
  for (const Finding& finding : summary.findings) {
    if (isTold(finding, only)) {
      std::cerr << (finding.isError ? "Error: " : "Warning: ") << shownText(file) << ": "
                << shownText(finding.text) << std::endl;
    }
  }
  if (only.empty() &&
      std::any_of(summary.findings.begin(), summary.findings.end(),
                  [](const Finding& finding) { return finding.about == Finding::About::place; })) {
    hintAtExplanation(file);
  }
  if (summary.regions.empty() && summary.findings.empty()) {
    tell(file, "the settings have no physics objects");
  }
}

int statusOf(const RegionSummary& summary, const std::string& only) {
  if (summary.model.lacksMesh) {
    return exitNotDone;
  }
  const bool hasErrors = std::any_of(
      summary.findings.begin(), summary.findings.end(), [&only](const Finding& finding) {
        return finding.isError && (only.empty() || finding.name == only);
      });
  return summary.isResolved && !hasErrors ? exitSound : exitErrors;
}

/// Whether the settings have an object of that name, be it a region or not.
bool isKnown(const RegionSummary& summary, const std::string& name) {
  const auto isOfName = [&name](const auto& one) { return one.name == name; };
  return std::any_of(summary.regions.begin(), summary.regions.end(), isOfName) ||
         std::any_of(summary.findings.begin(), summary.findings.end(), isOfName);
}

void refuseName(const RegionSummary& summary, const std::string& name) {
  std::vector<std::string> names;
  for (const Region& region : summary.regions) {
    names.push_back(region.name);
  }
  std::cerr << fmt::format("orv: {0}: no region is named {1}; {2}`orv regions {0}` lists all",
                           shownText(summary.model.file), shownName(name), guessWords(name, names))
            << std::endl;
}

void printText(const RegionSummary& summary, const std::string& only) {
  if (only.empty()) {
    std::cout << regionsText(summary) << std::flush;
    return;
  }
  for (const Region& region : summary.regions) {
    if (region.name == only) {
      std::cout << regionExplained(summary, region) << std::flush;
    }
  }
}

}  // namespace

int runRegions(const RegionsOptions& options) {
  const ProgressBar progress(true);
  const ProviderOwner provider = openCase(options.file);
  if (!provider) {
    return exitNotDone;
  }
  ModelOfCase model = readModel(options.file, *provider, options.mesh, options.build);
  const RegionSummary summary = readRegions(*provider, model);
  printMessages(*provider, options.file);
  if (!options.name.empty() && !isKnown(summary, options.name)) {
    refuseName(summary, options.name);
    return exitNotDone;
  }
  if (options.json) {
    printReport({{"files", nlohmann::ordered_json::array({regionsJson(summary, options.name)})}});
  } else {
    std::cerr << modelErrors(summary.model);
    printFindings(summary, options.name);
    if (summary.model.mesh != 0) {
      printText(summary, options.name);
    }
  }
  return statusOf(summary, options.name);
}

}  // namespace velto::orv
