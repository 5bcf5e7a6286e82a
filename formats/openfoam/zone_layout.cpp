// SPDX-License-Identifier: Apache-2.0
//
// Layout of zones: in place where they are ranges, else by renumbering.

#include "formats/openfoam/zone_layout.h"

#include <algorithm>
#include <cstddef>
#include <utility>

namespace velto::openfoam {

namespace {

/// Elements of no zone, as first and count.
using Runs = std::vector<std::pair<std::uint64_t, std::uint64_t>>;

std::vector<bool> claimedBy(const std::vector<ElementZone>& zones, std::uint64_t count) {
  std::vector<bool> claimed(count);
  for (const ElementZone& zone : zones) {
    for (const std::int64_t label : zone.labels) {
      if (label >= 0 && static_cast<std::uint64_t>(label) < count) {
        claimed[static_cast<std::size_t>(label)] = true;
      }
    }
  }
  return claimed;
}

Runs unclaimedRuns(const std::vector<bool>& claimed) {
  Runs runs;
  for (std::size_t i = 0; i < claimed.size(); ++i) {
    if (claimed[i]) {
      continue;
    }
    if (!runs.empty() && runs.back().first + runs.back().second == i) {
      ++runs.back().second;
    } else {
      runs.emplace_back(i, 1);
    }
  }
  return runs;
}

/// The same for zones that are ranges, by their ends alone.
Runs runsBetweenRanges(const std::vector<ElementZone>& zones, std::uint64_t count) {
  Runs taken;
  for (const ElementZone& zone : zones) {
    if (!zone.labels.empty()) {
      taken.emplace_back(static_cast<std::uint64_t>(zone.labels.front()), zone.labels.size());
    }
  }
  taken.emplace_back(count, 0);
  std::sort(taken.begin(), taken.end());
  Runs runs;
  std::uint64_t next = 0;
  for (const auto& range : taken) {
    const std::uint64_t first = std::min(range.first, count);
    if (first > next) {
      runs.emplace_back(next, first - next);
    }
    next = std::max(next, range.first + range.second);
  }
  return runs;
}

}  // namespace

bool isRange(const ElementZone& zone) {
  if (!zone.labels.empty() && zone.labels.front() < 0) {
    return false;
  }
  for (std::size_t i = 1; i < zone.labels.size(); ++i) {
    if (zone.labels[i] - 1 != zone.labels[i - 1]) {
      return false;
    }
  }
  return true;
}

ZoneLayout layOutZones(const std::vector<ElementZone>& zones, std::uint64_t count,
                       const std::string& restName, bool restFirst) {
  const bool areRanges = std::all_of(zones.begin(), zones.end(), isRange);
  const Runs rest =
      areRanges ? runsBetweenRanges(zones, count) : unclaimedRuns(claimedBy(zones, count));
  const bool inPlace = areRanges && rest.size() <= 1;

  ZoneLayout layout;
  const auto addRest = [&] {
    LayoutZone zone{restName, inPlace && !rest.empty() ? rest.front().first : layout.order.size(),
                    0};
    for (const auto& run : rest) {
      zone.count += run.second;
      for (std::uint64_t i = 0; !inPlace && i < run.second; ++i) {
        layout.order.push_back(run.first + i);
      }
    }
    if (zone.count > 0) {
      layout.zones.push_back(zone);
    }
  };
  if (restFirst) {
    addRest();
  }
  for (const ElementZone& zone : zones) {
    LayoutZone placed{zone.name, layout.order.size(), zone.labels.size()};
    if (inPlace) {
      placed.first = zone.labels.empty() ? 0 : static_cast<std::uint64_t>(zone.labels.front());
    } else {
      for (const std::int64_t label : zone.labels) {
        const bool isElement = label >= 0 && static_cast<std::uint64_t>(label) < count;
        layout.order.push_back(isElement ? static_cast<std::uint64_t>(label)
                                         : ZoneLayout::kNothing);
      }
    }
    layout.zones.push_back(placed);
  }
  if (!restFirst) {
    addRest();
  }
  return layout;
}

std::vector<std::uint64_t> newIds(const ZoneLayout& layout, std::uint64_t count) {
  std::vector<std::uint64_t> ids(count, 0);
  for (std::size_t slot = 0; slot < layout.order.size(); ++slot) {
    const std::uint64_t element = layout.order[slot];
    if (element != ZoneLayout::kNothing && ids[element] == 0) {
      ids[element] = slot + 1;
    }
  }
  return ids;
}

}  // namespace velto::openfoam
