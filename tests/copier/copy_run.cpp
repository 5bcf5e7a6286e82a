// SPDX-License-Identifier: Apache-2.0
//
// CopyRun: running, and choosing among the calls.

#include "tests/copier/copy_run.h"

#include <algorithm>
#include <iterator>
#include <regex>
#include <set>
#include <sstream>
#include <stdexcept>

#include "testing/capture.h"

namespace velto::testing {

namespace {

const std::string kOfSource = "source: ";

bool isOfSource(const std::string& call) {
  return call.compare(0, kOfSource.size(), kOfSource) == 0;
}

/// The operation of a call of either side.
std::string operationIn(const std::string& call) {
  return operationOf(isOfSource(call) ? call.substr(kOfSource.size()) : call);
}

template <class Predicate>
Transcript chosen(const Transcript& calls, const Predicate& isChosen) {
  Transcript some;
  std::copy_if(calls.begin(), calls.end(), std::back_inserter(some), isChosen);
  return some;
}

}  // namespace

void CopyLog::add(const std::string& line) {
  lines.push_back(line);
  if (lines.size() == breaksAt) {
    throw std::runtime_error("broken: " + line);
  }
}

Transcript linesOf(const std::string& text) {
  Transcript lines;
  std::istringstream in(text);
  for (std::string line; std::getline(in, line);) {
    const std::size_t begin = line.find_first_not_of(' ');
    if (begin != std::string::npos) {
      lines.push_back(line.substr(begin));
    }
  }
  return lines;
}

std::string printed(const Transcript& lines) {
  std::string text;
  for (const std::string& line : lines) {
    text += line + "\n";
  }
  return text;
}

Transcript ofDestination(const Transcript& calls) {
  return chosen(calls, [](const std::string& call) { return !isOfSource(call); });
}

Transcript callsOf(const std::string& operation, const Transcript& calls) {
  return chosen(calls, [&](const std::string& call) { return operationIn(call) == operation; });
}

Transcript withoutQueries(const Transcript& calls) {
  static const std::set<std::string> kQueries = {
      "getMeshId",         "getTarget",       "getPartitionId",  "getSolverType",
      "getMeshSize",       "getMeshUnits",    "getZoneCount",    "getZoneIds",
      "getZoneSizeInfo",   "getFaceZoneInfo", "getCellZoneInfo", "getLocationModel",
      "getZoneStringInfo", "getPhaseIds",     "getPhaseName",    "getVariableId"};
  return chosen(calls,
                [](const std::string& call) { return kQueries.count(operationIn(call)) == 0; });
}

CopyRun::CopyRun(const cases::CasePtr& served, const std::string& applicationName)
    : source(served, log), destination(log), copier(applicationName) {
  source.startReading("case", dataClassCase);
  copier.setSource(&source);
  copier.setDestination(&destination);
}

bool CopyRun::copy() {
  return run([this] { return copier.copy(); });
}

bool CopyRun::copyCase(bool bracketWriting) {
  return run([&] { return copier.copyCase(bracketWriting); });
}

bool CopyRun::copyResults() {
  return run([this] { return copier.copyResults(); });
}

Transcript CopyRun::written() const {
  Transcript calls = withoutQueries(ofDestination(log.lines));
  for (std::string& call : calls) {
    call = std::regex_replace(call, std::regex("\\[Time = .*, Source Format"),
                              "[Time = TIME, Source Format");
  }
  return calls;
}

void CopyRun::switchAllOff() {
  copier.copyMeshSizeToDestination(false);
  copier.copyMeshUnitsToDestination(false);
  copier.copyZoneTopologyToDestination(false);
  copier.copyNodeCoordinatesToDestination(false);
  copier.copyCellsToDestination(false, false, false);
  copier.copyCellPartitionsToDestination(false);
  copier.copyFacesToDestination(false, false, false);
  copier.copyLocationModelToDestination(false);
  copier.copySettingsToDestination(false);
  copier.setVerbose(false);
}

void CopyRun::mapZones() {
  switchAllOff();
  copier.copyZoneTopologyToDestination(true);
  copyCase(false);
  copier.copyZoneTopologyToDestination(false);
}

Transcript CopyRun::moved() {
  copyCase(false);
  const Transcript calls = withoutQueries(log.lines);
  return Transcript(calls.begin() + 2, calls.end());
}

bool CopyRun::run(const std::function<bool()>& copying) {
  log.lines.clear();
  const StreamCapture streams;
  bool good = false;
  try {
    good = copying();
  } catch (...) {
    out = streams.out();
    err = streams.err();
    throw;
  }
  out = streams.out();
  err = streams.err();
  return good;
}

}  // namespace velto::testing
