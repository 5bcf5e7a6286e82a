// SPDX-License-Identifier: Apache-2.0
//
// orv formats: what can be read and written.

#include <iostream>
#include <nlohmann/json.hpp>
#include <string>

#include "factory/formats.h"
#include "orv/TextTable.h"
#include "orv/commands.h"
#include "orv/json_report.h"

namespace velto::orv {

namespace {

std::string orDash(const std::string& text) { return text.empty() ? "-" : text; }

}  // namespace

int runFormats(const FormatsOptions& options) {
  if (options.json) {
    nlohmann::ordered_json list = nlohmann::ordered_json::array();
    for (const factory::Format& format : factory::formats()) {
      list.push_back({{"name", format.name},
                      {"title", format.title},
                      {"files", format.endings},
                      {"reads", format.reads},
                      {"writes", format.writes}});
    }
    printReport({{"formats", list}});
    return exitSound;
  }
  TextTable table({{"name"}, {"what it is"}, {"files"}, {"reads"}, {"writes"}});
  for (const factory::Format& format : factory::formats()) {
    table.addRow(
        {format.name, format.title, format.endings, orDash(format.reads), orDash(format.writes)});
  }
  std::cout << table.text("");
  return exitSound;
}

}  // namespace velto::orv
