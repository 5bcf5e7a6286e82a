// SPDX-License-Identifier: Apache-2.0
//
// printReport: the one JSON document that a command writes with --json.

#ifndef VELTO_ORV_JSON_REPORT_H
#define VELTO_ORV_JSON_REPORT_H

#include <iostream>
#include <nlohmann/json.hpp>

namespace velto::orv {

/// On standard output, behind the version of the program. Names and texts of a damaged file may be
/// no UTF-8: such bytes are replaced, so that the document stays valid.
inline void printReport(const nlohmann::ordered_json& content) {
  nlohmann::ordered_json report = {{"orv", ORV_VERSION}};
  report.update(content);
  std::cout << report.dump(2, ' ', false, nlohmann::json::error_handler_t::replace) << std::endl;
}

}  // namespace velto::orv

#endif  // VELTO_ORV_JSON_REPORT_H
