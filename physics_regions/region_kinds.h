// SPDX-License-Identifier: Apache-2.0
//
// The words for the kinds of physics regions.

#ifndef VELTO_PHYSICS_REGIONS_REGION_KINDS_H
#define VELTO_PHYSICS_REGIONS_REGION_KINDS_H

#include <string>

#include "velto/RegionTable.h"

namespace velto {

/// "domain"; an empty word for no kind.
inline const char* wordOf(RegionKind kind) {
  switch (kind) {
    case regionKindDomain:
      return "domain";
    case regionKindBoundary:
      return "boundary";
    case regionKindSubdomain:
      return "subdomain";
    case regionKindInterface:
      return "interface";
    case regionKindNone:
      break;
  }
  return "";
}

/// The kind of a word, in this spelling alone.
inline RegionKind kindOf(const std::string& word) {
  for (const RegionKind kind :
       {regionKindDomain, regionKindBoundary, regionKindSubdomain, regionKindInterface}) {
    if (word == wordOf(kind)) {
      return kind;
    }
  }
  return regionKindNone;
}

}  // namespace velto

#endif  // VELTO_PHYSICS_REGIONS_REGION_KINDS_H
