// SPDX-License-Identifier: Apache-2.0
//
// Shadow faces: whether the partner of each face lies in the shadow zone of the face's zone. That
// the partner names the face in return is not asked.

#include <cstdint>
#include <vector>

#include "velto/OrvChecker.h"

#include "data_access/OrvFileProvider.h"

#include "checker/IdRange.h"

namespace velto {

bool OrvChecker::checkFacesShadowZones() {
  displayStep("checkFacesShadowZones", "shadow faces");
  OrvFileProvider* source = openProvider();
  std::vector<int> zones;
  source->getZoneIds(zoneCategoryFace, zones);
  source->beginFaceShadows(zones);
  // Kept: counted in 32 bits, so that 2^32 bad partners are none.
  std::uint32_t bad = 0;
  for (const int zone : zones) {
    const IdRange faces = rangeOf(*source, zone);
    int shadow = 0;
    source->getFaceZoneInfo(zone, faceZoneShadow, shadow);
    if (shadow <= 0) {
      continue;
    }
    const IdRange partners = rangeOf(*source, shadow);
    for (const std::uint64_t face : faces) {
      bad += partners.contains(source->getFaceShadow(face)) ? 0 : 1;
    }
  }
  if (bad != 0) {
    addError(1, "Face shadow facet ids are out of target shadow range");
  }
  source->endFaceShadows();
  return true;
}

}  // namespace velto
