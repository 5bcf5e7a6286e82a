// SPDX-License-Identifier: Apache-2.0
//
// Views of explanations: text for people, and JSON.

#ifndef VELTO_ORV_EXPLAIN_VIEWS_H
#define VELTO_ORV_EXPLAIN_VIEWS_H

#include <nlohmann/json.hpp>
#include <string>
#include <vector>

#include "catalogue/catalogue.h"
#include "orv/Explanation.h"

namespace velto::orv {

/// "error", "warning" or "line".
const char* levelWord(catalogue::Level level);

/// The tool that gives a message, by the folder of its source: "OrvChecker".
std::string toolOf(const catalogue::Entry& entry);

/// The commands of "See it": what stands in backticks.
std::vector<std::string> commandsOf(const catalogue::Entry& entry);

/// A table of all messages.
std::string listText();

/// All entries, with an empty line between them.
std::string explanationText(const Explanation& explanation);

nlohmann::ordered_json listJson();
nlohmann::ordered_json explanationJson(const Explanation& explanation);

}  // namespace velto::orv

#endif  // VELTO_ORV_EXPLAIN_VIEWS_H
