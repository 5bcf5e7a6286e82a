// SPDX-License-Identifier: Apache-2.0
//
// WatchedSource and WatchedDestination: transcript and misdeeds.

#include "tests/copier/copy_doubles.h"

#include <algorithm>
#include <cmath>
#include <ctime>
#include <iomanip>
#include <new>
#include <sstream>
#include <stdexcept>

namespace velto::testing {

namespace {

/// Has a double do what was drawn, as far as both kinds can.
template <class Double>
void prepare(Double& misbehaving, const std::vector<Misdeed>& misdeeds) {
  for (const Misdeed& misdeed : misdeeds) {
    const std::string call = misdeed.call;
    if (misdeed.kind == Misdeed::Kind::throwsError) {
      misbehaving.on(call, misdeed.nth,
                     [call](base::CaseCore&) { throw std::runtime_error("no " + call); });
    } else if (misdeed.kind == Misdeed::Kind::throwsNumber) {
      misbehaving.on(call, misdeed.nth, [](base::CaseCore&) { throw 42; });
    } else if (misdeed.kind == Misdeed::Kind::throwsNoMemory) {
      misbehaving.on(call, misdeed.nth, [](base::CaseCore&) { throw std::bad_alloc(); });
    } else if (misdeed.kind == Misdeed::Kind::postsError) {
      misbehaving.on(call, misdeed.nth,
                     [](base::CaseCore& core) { core.messages.addError("disk gone"); });
    } else if (misdeed.kind == Misdeed::Kind::postsWarning) {
      misbehaving.on(call, misdeed.nth,
                     [](base::CaseCore& core) { core.messages.addWarning("disk slow"); });
    } else if (misdeed.kind == Misdeed::Kind::findsNothing) {
      misbehaving.hideTables(call, misdeed.nth);
    }
  }
}

}  // namespace

// --- Source -------------------------------------------------------------------------------------

WatchedSource::WatchedSource(const RandomSource& drawn, Transcript& calls, std::string name)
    : ScriptedProvider(drawn.served), drawn_(drawn), calls_(calls), name_(std::move(name)) {
  prepare(*this, drawn.misdeeds);
  for (const Misdeed& misdeed : drawn.misdeeds) {
    if (misdeed.kind == Misdeed::Kind::answersList) {
      answerList(misdeed.call, misdeed.list);
    } else if (misdeed.kind == Misdeed::Kind::answersDelivered) {
      answerDelivered(misdeed.call, misdeed.delivered);
    } else if (misdeed.kind == Misdeed::Kind::deliversAtMost) {
      deliverAtMost(misdeed.call, misdeed.delivered);
    }
  }
}

void WatchedSource::onCall(const std::string& call) {
  calls_.push_back(name_ + " " + call);
  ScriptedProvider::onCall(call);
}

/// Only if it is not what nearly every operation is given.
template <class Value>
void WatchedSource::noteGiven(const Value& given) {
  if (given != Value()) {
    calls_.push_back(name_ + " is given " + base::argumentText(given));
  }
}

template <class Value>
void WatchedSource::noteBuffer(const Value* values, std::size_t n) {
  const bool isZero =
      values != nullptr && std::all_of(values, values + n, [](Value v) { return v == Value(); });
  if (n == 0 ? values != nullptr : !isZero) {
    calls_.push_back(name_ + " is to fill " + base::argumentText(bufferOf(values, n)));
  }
}

std::size_t WatchedSource::readNodeCoordinates(int zoneId, double* values, std::size_t n) {
  noteBuffer(values, n);
  return ScriptedProvider::readNodeCoordinates(zoneId, values, n);
}

bool WatchedSource::getUniformFaceNodeCount(int zoneId, short& count) {
  noteGiven(count);
  return ScriptedProvider::getUniformFaceNodeCount(zoneId, count);
}

void WatchedSource::readFaceNodeCounts(int zoneId, short* counts, std::size_t n) {
  noteBuffer(counts, n);
  ScriptedProvider::readFaceNodeCounts(zoneId, counts, n);
}

void WatchedSource::readFaceNodeIds(int zoneId, std::uint64_t* ids, std::size_t n) {
  noteBuffer(ids, n);
  ScriptedProvider::readFaceNodeIds(zoneId, ids, n);
}

void WatchedSource::readFaceCell0(int zoneId, std::uint64_t* cellIds, std::size_t n) {
  noteBuffer(cellIds, n);
  ScriptedProvider::readFaceCell0(zoneId, cellIds, n);
}

void WatchedSource::beginFaceCell1(std::vector<int>& zoneIds) {
  noteGiven(zoneIds);
  ScriptedProvider::beginFaceCell1(zoneIds);
}

void WatchedSource::readFaceCell1(int zoneId, std::uint64_t* cellIds, std::size_t n) {
  noteBuffer(cellIds, n);
  ScriptedProvider::readFaceCell1(zoneId, cellIds, n);
}

std::size_t WatchedSource::readCellTypes(int zoneId, int* types, std::size_t n) {
  noteBuffer(types, n);
  return ScriptedProvider::readCellTypes(zoneId, types, n);
}

bool WatchedSource::getUniformCellNodeCount(int zoneId, short& count) {
  noteGiven(count);
  return ScriptedProvider::getUniformCellNodeCount(zoneId, count);
}

void WatchedSource::readCellNodeCounts(int zoneId, short* counts, std::size_t n) {
  noteBuffer(counts, n);
  ScriptedProvider::readCellNodeCounts(zoneId, counts, n);
}

void WatchedSource::readCellNodeIds(int zoneId, std::uint64_t* ids, std::size_t n) {
  noteBuffer(ids, n);
  ScriptedProvider::readCellNodeIds(zoneId, ids, n);
}

void WatchedSource::readCellPartitions(int zoneId, int* partitions, std::size_t n) {
  noteBuffer(partitions, n);
  ScriptedProvider::readCellPartitions(zoneId, partitions, n);
}

std::size_t WatchedSource::readVariable(int zoneId, double* values, std::size_t n) {
  noteBuffer(values, n);
  return ScriptedProvider::readVariable(zoneId, values, n);
}

void WatchedSource::getSettingsValue(OrvDataClass dataClass, const std::string& key,
                                     std::string& value, const std::string& path) {
  noteGiven(value);
  ScriptedProvider::getSettingsValue(dataClass, key, value, path);
}

namespace {

bool addOddAttributes(bool hasNames, std::vector<std::string>& names) {
  if (!hasNames) {
    names.clear();
  }
  names.insert(names.begin(), {"lost", "mute"});
  return true;
}

}  // namespace

bool WatchedSource::getPhaseAttributeNames(short phaseId, std::vector<std::string>& names) {
  const bool hasNames = ScriptedProvider::getPhaseAttributeNames(phaseId, names);
  return drawn_.hasOddAttributes ? addOddAttributes(hasNames, names) : hasNames;
}

bool WatchedSource::getPhaseAttribute(short phaseId, const std::string& name, std::string& value) {
  noteGiven(value);
  return ScriptedProvider::getPhaseAttribute(phaseId, name, value) || name == "mute";
}

bool WatchedSource::getVariableAttributeNames(int variableId, std::vector<std::string>& names) {
  const bool hasNames = ScriptedProvider::getVariableAttributeNames(variableId, names);
  return drawn_.hasOddAttributes ? addOddAttributes(hasNames, names) : hasNames;
}

bool WatchedSource::getVariableAttribute(int variableId, const std::string& name,
                                         std::string& value) {
  noteGiven(value);
  return ScriptedProvider::getVariableAttribute(variableId, name, value) || name == "mute";
}

// --- Destination --------------------------------------------------------------------------------

WatchedDestination::WatchedDestination(const RandomDestination& drawn, Transcript& calls,
                                       std::string name)
    : RecordingConsumer(nullptr), drawn_(drawn), calls_(calls), name_(std::move(name)) {
  prepare(*this, drawn.misdeeds);
}

void WatchedDestination::onCall(const std::string& call) {
  calls_.push_back(name_ + " " + call);
  RecordingConsumer::onCall(call);
}

void WatchedDestination::setSolverType(std::string solverType) {
  RecordingConsumer::setSolverType(std::move(solverType));
  if (drawn_.solverType) {
    base::coreOf(*this).tables.solverType = *drawn_.solverType;
  }
}

namespace {

/// Whether a text is the date and time of now, give or take a minute, as the C locale writes it.
bool isNow(const std::string& text) {
  std::istringstream stream(text);
  std::tm read = {};
  stream >> std::get_time(&read, "%a %b %d %H:%M:%S %Y");
  if (stream.fail() || stream.peek() != std::istringstream::traits_type::eof()) {
    return false;
  }
  read.tm_isdst = -1;
  return std::abs(std::difftime(std::time(nullptr), std::mktime(&read))) < 60;
}

}  // namespace

void WatchedDestination::writeStandardSettings(
    std::vector<std::pair<std::string, std::string>> entries, OrvDataClass dataClass) {
  for (auto& entry : entries) {
    if (entry.first == "Time" && isNow(entry.second)) {
      entry.second = "now";
    }
  }
  RecordingConsumer::writeStandardSettings(std::move(entries), dataClass);
}

void WatchedDestination::addPhases(const std::vector<std::string>& names,
                                   std::vector<short>& phaseIds) {
  if (!phaseIds.empty()) {
    calls_.push_back(name_ + " is given " + base::argumentText(phaseIds));
  }
  RecordingConsumer::addPhases(names, phaseIds);
  if (drawn_.phaseLimit && phaseIds.size() > *drawn_.phaseLimit) {
    phaseIds.resize(*drawn_.phaseLimit);
  }
}

}  // namespace velto::testing
