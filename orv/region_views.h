// SPDX-License-Identifier: Apache-2.0
//
// Physics regions as tables, one by one and as JSON; and the words that these have in common.

#ifndef VELTO_ORV_REGION_VIEWS_H
#define VELTO_ORV_REGION_VIEWS_H

#include <nlohmann/json_fwd.hpp>
#include <string>
#include <vector>

#include "orv/RegionSummary.h"

namespace velto::orv {

/// A table for each kind of regions. Long lists are cut.
std::string regionsText(const RegionSummary& summary);

/// Why one region lies where it does: each name of its location, and all that came of it.
std::string regionExplained(const RegionSummary& summary, const Region& region);

/// All regions, or those of one name if `only` is not empty.
nlohmann::ordered_json regionsJson(const RegionSummary& summary, const std::string& only);

// --- Words --------------------------------------------------------------------------------------

/// "boundary inflow".
std::string regionWords(const Region& region);

/// What a name of a location is: "face use of part assembly", "no part knows this name".
std::string placeWords(const RegionSummary& summary, const Region& region,
                       const NameInLocation& name);

/// The names of all objects that a region of this kind can lie in, in byte order.
std::vector<std::string> namesOfPlaces(const RegionSummary& summary, const Region& region);

}  // namespace velto::orv

#endif  // VELTO_ORV_REGION_VIEWS_H
