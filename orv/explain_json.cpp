// SPDX-License-Identifier: Apache-2.0
//
// Explanations as JSON, of the form that docs/explain.schema.json describes.

#include <set>
#include <string>

#include "orv/explain_views.h"

namespace velto::orv {

namespace {

using catalogue::Entry;
using Json = nlohmann::ordered_json;

Json entryJson(const Entry& entry) {
  return {{"id", entry.id},
          {"text", entry.text},
          {"level", levelWord(entry.level)},
          {"tool", toolOf(entry)},
          {"source", entry.source},
          {"section", entry.section},
          {"means", entry.means},
          {"cause", entry.cause},
          {"remedy", entry.remedy},
          {"seeIt", commandsOf(entry)},
          {"never", entry.never}};
}

}  // namespace

Json listJson() {
  Json all = Json::array();
  for (const Entry& entry : catalogue::entries()) {
    all.push_back(entryJson(entry));
  }
  return {{"texts", Json::array()}, {"log", nullptr}, {"entries", all}};
}

Json explanationJson(const Explanation& explanation) {
  std::set<const Entry*> asked;
  Json texts = Json::array();
  for (const ExplainedText& one : explanation.texts()) {
    Json matches = Json::array();
    for (const catalogue::Match& match : one.matches) {
      asked.insert(match.entry);
      matches.push_back({{"id", match.entry->id}, {"values", match.values}});
    }
    Json near = Json::array();
    for (const Entry* entry : one.near) {
      near.push_back(entry->id);
    }
    texts.push_back({{"text", one.text}, {"matches", matches}, {"near", near}});
  }
  Json log = nullptr;
  if (explanation.hasLog()) {
    Json messages = Json::array();
    for (const LoggedEntry& one : explanation.logged()) {
      asked.insert(one.entry);
      messages.push_back({{"id", one.entry->id},
                          {"lines", one.lines},
                          {"values", one.values},
                          {"moreValues", one.hasMoreValues}});
    }
    log = {{"lines", explanation.logLines()},
           {"unknown", explanation.unknownLines()},
           {"messages", messages}};
  }
  Json all = Json::array();
  for (const Entry& entry : catalogue::entries()) {
    if (asked.count(&entry) != 0) {
      all.push_back(entryJson(entry));
    }
  }
  return {{"texts", texts}, {"log", log}, {"entries", all}};
}

}  // namespace velto::orv
