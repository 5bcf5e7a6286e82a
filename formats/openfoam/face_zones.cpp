// SPDX-License-Identifier: Apache-2.0
//
// Face zones as the files have them: the faces inside the flow, laid out as ranges, and patches.

#include "formats/openfoam/face_zones.h"

#include <map>
#include <utility>

#include "formats/openfoam/zone_layout.h"

namespace velto::openfoam {

std::vector<FaceZone> layOutFaceZones(const PolyMesh& mesh, std::uint64_t internalFaces,
                                      const std::vector<ElementZone>& internalZones) {
  std::vector<FaceZone> zones;
  const ZoneLayout layout = layOutZones(internalZones, internalFaces, "interior", true);
  const std::size_t rest = layout.zones.size() - internalZones.size();
  for (std::size_t i = 0; i < layout.zones.size(); ++i) {
    const LayoutZone& placed = layout.zones[i];
    FaceZone zone;
    zone.name = placed.name;
    zone.settings = i < rest ? "openfoam/interior" : "openfoam/faceZones/" + placed.name;
    zone.first = placed.first;
    zone.count = placed.count;
    if (layout.isRenumbered()) {
      const auto begin = layout.order.begin() + static_cast<std::ptrdiff_t>(placed.first);
      zone.gathered.emplace(begin, begin + static_cast<std::ptrdiff_t>(placed.count));
    }
    zones.push_back(std::move(zone));
  }
  for (std::size_t i = 0; i < mesh.patches.size(); ++i) {
    const Patch& patch = mesh.patches[i];
    // A mesh without faces has no face zones.
    if (mesh.faceNodeCounts.empty() && patch.faceCount == 0) {
      continue;
    }
    FaceZone zone;
    zone.name = patch.name;
    zone.settings = "openfoam/boundary/" + patch.name;
    zone.patch = i;
    zone.first = patch.firstFace;
    zone.count = patch.faceCount;
    zones.push_back(std::move(zone));
  }
  return zones;
}

std::vector<std::optional<std::size_t>> cyclicPartners(const std::vector<Patch>& patches) {
  std::map<std::string, std::size_t> places;
  for (std::size_t i = 0; i < patches.size(); ++i) {
    places[patches[i].name] = i;
  }
  std::vector<std::optional<std::size_t>> partners(patches.size());
  for (std::size_t i = 0; i < patches.size(); ++i) {
    const auto found = places.find(patches[i].neighbourPatch);
    if (patches[i].type == "cyclic" && found != places.end()) {
      partners[i] = found->second;
    }
  }
  return partners;
}

}  // namespace velto::openfoam
