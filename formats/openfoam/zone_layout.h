// SPDX-License-Identifier: Apache-2.0
//
// Where the elements of a mesh stand once each zone is one contiguous range.

#ifndef VELTO_FORMATS_OPENFOAM_ZONE_LAYOUT_H
#define VELTO_FORMATS_OPENFOAM_ZONE_LAYOUT_H

#include <cstdint>
#include <string>
#include <vector>

#include "formats/openfoam/PolyMesh.h"

namespace velto::openfoam {

/// A zone of the layout: `count` slots from `first` on (0-based).
struct LayoutZone {
  std::string name;
  std::uint64_t first = 0;
  std::uint64_t count = 0;
};

/// The zones of cells, or of internal faces. The files list the elements of a zone in any order; a
/// case wants one contiguous range of ids. Where the zones are ranges already, elements keep their
/// places. Otherwise they are renumbered: a slot for each entry of each zone, in the order of the
/// file, and then the elements of no zone, in their order.
///
/// Wrong zones stay wrong: an element in two zones takes a slot in each (it is known by the first),
/// and an entry that is no element takes a slot with nothing in it, so that the zones no longer add
/// up to the mesh.
struct ZoneLayout {
  static constexpr std::uint64_t kNothing = UINT64_MAX;

  std::vector<LayoutZone> zones;
  /// The element of each slot, kNothing for none; empty where elements keep their places.
  std::vector<std::uint64_t> order;

  bool isRenumbered() const { return !order.empty(); }
};

/// Whether the labels of a zone are a range from 0 or more on, in order.
bool isRange(const ElementZone& zone);

/// Lays out `count` elements. `restName` names the zone of the elements of no zone; it comes first
/// with `restFirst`, else last, and is left out if there are none.
ZoneLayout layOutZones(const std::vector<ElementZone>& zones, std::uint64_t count,
                       const std::string& restName, bool restFirst);

/// The new 1-based id of each element, from the layout's order.
std::vector<std::uint64_t> newIds(const ZoneLayout& layout, std::uint64_t count);

}  // namespace velto::openfoam

#endif  // VELTO_FORMATS_OPENFOAM_ZONE_LAYOUT_H
