// SPDX-License-Identifier: Apache-2.0
//
// What orv tells a user beyond the messages of the tools.

#ifndef VELTO_ORV_HINTS_H
#define VELTO_ORV_HINTS_H

#include <filesystem>
#include <iostream>
#include <string>
#include <system_error>

#include "orv/shown_name.h"

namespace velto::orv {

/// Says something of a file on standard error, on a line of its own. What comes from the file in it
/// has to be fit for that.
inline void tell(const std::string& file, const std::string& words) {
  std::cerr << "orv: " << shownText(file) << ": " << words << std::endl;
}

/// Where to look when no format recognises a file, or a folder.
inline void hintAtFormats(const std::string& file) {
  std::error_code ignored;
  const bool isFolder = std::filesystem::is_directory(file, ignored);
  tell(file, std::string(isFolder ? "no format knows this folder (an OpenFOAM case has its mesh in "
                                    "constant/polyMesh); "
                                  : "no format knows this file; ") +
                 "`orv formats` lists what can be read");
}

/// How to see which zones the messages of the zone checks are about.
inline void hintAtZones(const std::string& file) {
  tell(file, "`orv check -v 2` lists the zones as they are judged");
}

/// That a filter that was asked for filtered nothing.
inline void hintAtPartitions(const std::string& file) {
  tell(
      file,
      "--partition picks among the partitions of partitioned post targets; the others were checked "
      "whole");
}

/// The same as for zones, for the ids of nodes and faces.
inline void hintAtIds(const std::string& file) {
  tell(file, "`orv check --level 2 -v 3` names each id that is out of range");
}

/// The same for the number of faces of cells.
inline void hintAtFaceCounts(const std::string& file) {
  tell(file, "`orv check --level 2 -v 4` shows the number of faces of each cell that is wrong");
}

/// The same for messages about a location model, and what refers to it.
inline void hintAtModel(const std::string& file) {
  tell(file, "`orv model` shows the location model with its names");
}

/// The same for messages about physics objects and their locations.
inline void hintAtRegions(const std::string& file) {
  tell(file, "`orv regions` tells where each physics object lies, and why");
}

/// The same for names in a location that come to nothing.
inline void hintAtExplanation(const std::string& file) {
  tell(file, "`orv regions " + shownText(file) +
                 " NAME` explains a region, and what may have been meant");
}

/// The same where no location model could be built.
inline void hintAtRelations(const std::string& file) {
  tell(file, "`orv info` lists the zones, and which of them bound which");
}

}  // namespace velto::orv

#endif  // VELTO_ORV_HINTS_H
