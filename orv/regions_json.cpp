// SPDX-License-Identifier: Apache-2.0
//
// Physics regions as JSON: each with what its location names and all that came of it.

#include "orv/model_json.h"
#include "orv/region_views.h"

namespace velto::orv {

namespace {

Json textOrNull(const std::string& text) { return text.empty() ? Json() : Json(text); }

template <class JsonOf>
Json listOrNull(const RegionSummary& summary, const std::optional<std::vector<int>>& ids,
                JsonOf jsonOf) {
  return ids ? listJson(summary.model, *ids, jsonOf) : Json();
}

Json bodyReference(const ModelSummary& model, int id) { return reference(model.bodies, id); }
Json faceUseReference(const ModelSummary& model, int id) { return reference(model.faceUses, id); }

Json nameInLocationJson(const RegionSummary& summary, const Region& region,
                        const NameInLocation& name) {
  const bool isKnown = name.place.kind != PlaceKind::none;
  return {{"name", name.name},
          {"found", textOrNull(wordOf(name.place.kind))},
          {"id", isKnown ? Json(name.place.id) : Json()},
          {"part", isKnown ? Json(name.part) : Json()},
          {"counts", counts(summary, region, name)}};
}

Json regionJson(const RegionSummary& summary, const Region& region) {
  const bool isInterface = region.kind == kInterface.one;
  Json names = Json::array();
  for (const NameInLocation& name : region.names) {
    names.push_back(nameInLocationJson(summary, region, name));
  }
  return {{"kind", region.kind},
          {"name", region.name},
          {"location", textOrNull(region.location)},
          {"names", names},
          {"statedDomain", textOrNull(region.statedDomain)},
          {"domain", region.domain ? Json(*region.domain) : Json()},
          {"boundaries", region.boundaries},
          {"bodies", listOrNull(summary, region.bodies, bodyReference)},
          {"cellNodeZones", listOrNull(summary, region.cellNodeZones, zoneJson)},
          {"otherCellZones", listOrNull(summary, region.otherCellZones, zoneJson)},
          {"faceUses", listOrNull(summary, region.faceUses, faceUseReference)},
          {"bulkZones", listOrNull(summary, region.bulkZones, zoneJson)},
          {"zoneSides", listOrNull(summary, region.zoneSides, zoneSideJson)},
          {"sides", isInterface ? Json(region.sides) : Json()}};
}

}  // namespace

Json regionsJson(const RegionSummary& summary, const std::string& only) {
  Json regions = Json::array();
  for (const Region& region : summary.regions) {
    if (only.empty() || region.name == only) {
      regions.push_back(regionJson(summary, region));
    }
  }
  Json findings = Json::array();
  for (const Finding& finding : summary.findings) {
    if (only.empty() || finding.name == only || finding.about == Finding::About::resolving) {
      findings.push_back({{"level", finding.isError ? "error" : "warning"},
                          {"name", textOrNull(finding.name)},
                          {"text", finding.text}});
    }
  }
  Json report = modelHeadJson(summary.model);
  report["resolved"] = summary.isResolved;
  report["regions"] = regions;
  report["findings"] = findings;
  report["errors"] = summary.model.errors;
  return report;
}

}  // namespace velto::orv
