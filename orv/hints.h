// SPDX-License-Identifier: Apache-2.0
//
// What orv tells a user beyond the messages of the tools.

#ifndef VELTO_ORV_HINTS_H
#define VELTO_ORV_HINTS_H

#include <iostream>
#include <string>

#include "orv/shown_name.h"

namespace velto::orv {

/// Says on standard error where to look when no format recognises a file.
inline void hintAtFormats(const std::string& file) {
  std::cerr << "orv: " << shownText(file)
            << ": no format knows this file; `orv formats` lists what can be read" << std::endl;
}

/// Says on standard error how to see which zones the messages of the zone checks are about.
inline void hintAtZones(const std::string& file) {
  std::cerr << "orv: " << shownText(file) << ": `orv check -v 2` lists the zones as they are judged"
            << std::endl;
}

/// The same for the ids of nodes and faces.
inline void hintAtIds(const std::string& file) {
  std::cerr << "orv: " << shownText(file)
            << ": `orv check --level 2 -v 3` names each id that is out of range" << std::endl;
}

/// The same for the number of faces of cells.
inline void hintAtFaceCounts(const std::string& file) {
  std::cerr << "orv: " << shownText(file)
            << ": `orv check --level 2 -v 4` shows the number of faces of each cell that is wrong"
            << std::endl;
}

/// The same for messages about a location model, and what refers to it.
inline void hintAtModel(const std::string& file) {
  std::cerr << "orv: " << shownText(file) << ": `orv model` shows the location model with its names"
            << std::endl;
}

/// The same for messages about physics objects and their locations.
inline void hintAtRegions(const std::string& file) {
  std::cerr << "orv: " << shownText(file)
            << ": `orv regions` tells where each physics object lies, and why" << std::endl;
}

/// The same for names in a location that come to nothing.
inline void hintAtExplanation(const std::string& file) {
  std::cerr << "orv: " << shownText(file) << ": `orv regions " << shownText(file)
            << " NAME` explains a region, and what may have been meant" << std::endl;
}

/// The same where no location model could be built.
inline void hintAtRelations(const std::string& file) {
  std::cerr << "orv: " << shownText(file)
            << ": `orv info` lists the zones, and which of them bound which" << std::endl;
}

}  // namespace velto::orv

#endif  // VELTO_ORV_HINTS_H
