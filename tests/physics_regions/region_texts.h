// SPDX-License-Identifier: Apache-2.0
//
// Settings, location models and tables of regions as text, so that a test of physics regions reads
// as settings, model and expected table.

#ifndef VELTO_TESTS_PHYSICS_REGIONS_REGION_TEXTS_H
#define VELTO_TESTS_PHYSICS_REGIONS_REGION_TEXTS_H

#include <memory>
#include <string>

#include "velto/PhysicsRegionResolver.h"

#include "data_access/OrvLocationModel.h"

#include "testing/cases.h"

namespace velto::testing {

/// A mesh of zones, which hardly have elements: face zones 2 "screen", 3 "baffle" (both interior),
/// 4 "wet", 5 "dry" and 6 "contact", cell zones 7 "fluid", whose cells list their nodes, 8 "solid"
/// and 9 "porous". With settings, a line each:
///
///     domains/water/location = channel
///     boundaries/walls/location = inlet, hull
///
/// and with a location model, or without one where that text is empty. Its ids count up from 1 in
/// the order of the lines, and a use has a face right before it, "face of <use>":
///
///     part assembly                      1
///       body channel: 7 2                2        zones; without ":" no place in the mesh
///       use hull of channel: 4 -6        3 4      zone sides of a body's side 0
///       use of channel: 6                5 6      one without a name
///       face shell                       7        one without uses
///       composite both: channel, hull    8        names of bodies, or else uses, or else faces
///
/// Blanks before a line and empty lines count for nothing. Throws std::invalid_argument for what is
/// none of this.
cases::CasePtr regionCase(const std::string& settings, const std::string& model);

/// The model alone.
std::shared_ptr<const OrvLocationModel> modelOf(const std::string& text);

/// The table of a resolver.
const RegionTable& tableOf(const PhysicsRegionResolver& resolver);

/// All of a table: regions by id with every entry that they have, then the two maps that are not by
/// region. An entry that holds an empty list is shown, as "[]"; maps that hold nothing are not.
///
///     0 domain water at 'channel': bodies [2], cell zones [7] [], bulk zones [], zone sides [4]
///     1 boundary walls at 'inlet, hull': face uses [4], zone sides [4]
///     2 boundary screen at 'screen'
///     3 interface heat: sides 1 2
///     ids: heat 3, screen 2, walls 1, water 0
///     domains: 1 -> 0
std::string tableText(const RegionTable& table);

}  // namespace velto::testing

#endif  // VELTO_TESTS_PHYSICS_REGIONS_REGION_TEXTS_H
