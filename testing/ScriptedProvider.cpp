// SPDX-License-Identifier: Apache-2.0
//
// ScriptedProvider: the transcript, the actions, and the answers that replace those of the case.

#include "testing/ScriptedProvider.h"

#include <algorithm>
#include <utility>

namespace velto::testing {

namespace {

/// The answer for a call by its whole text, or else by its operation; null if there is none.
template <class Answer>
const Answer* answerFor(const std::map<std::string, Answer>& answers, const std::string& call) {
  auto found = answers.find(call);
  if (found == answers.end()) {
    found = answers.find(operationOf(call));
  }
  return found == answers.end() ? nullptr : &found->second;
}

}  // namespace

ScriptedProvider::ScriptedProvider(std::shared_ptr<const memory::Case> served,
                                   Transcript* transcript, std::string name)
    : ServedCase{memory::MemoryProvider(std::move(served))},
      ForwardingProvider(source),
      script_(transcript),
      name_(std::move(name)) {
  base::coreOf(*this).observer = this;
}

ScriptedProvider::~ScriptedProvider() {
  base::coreOf(*this).observer = nullptr;
  script_.note("~" + name_);
}

void ScriptedProvider::on(const std::string& call, CallScript::Action action) {
  script_.on(call, std::move(action));
}

void ScriptedProvider::on(const std::string& call, int nth, CallScript::Action action) {
  script_.on(call, nth, std::move(action));
}

void ScriptedProvider::hideTables(const std::string& call, int nth) {
  script_.hideTables(call, nth);
}

void ScriptedProvider::refuseToRead(const std::string& reason) { refusal_ = reason; }

void ScriptedProvider::answerList(const std::string& call, std::vector<int> list) {
  lists_[call] = std::move(list);
}

void ScriptedProvider::answerDelivered(const std::string& call, std::size_t delivered) {
  delivered_[call] = delivered;
}

void ScriptedProvider::leaveList(const std::string& call) { leftLists_[call] = {}; }

void ScriptedProvider::deliverAtMost(const std::string& call, std::size_t most) {
  most_[call] = most;
}

void ScriptedProvider::answerElement(const std::string& call, std::uint64_t value) {
  elements_[call] = value;
}

void ScriptedProvider::answerUniform(const std::string& call, std::optional<int> value) {
  uniform_[call] = value;
}

void ScriptedProvider::answerVersion(int major, int minor, int patch) {
  version_ = {major, minor, patch};
}

bool ScriptedProvider::startReading(const std::string& fileName, OrvDataClass dataClass) {
  if (!refusal_) {
    return ForwardingProvider::startReading(fileName, dataClass);
  }
  onCall(callText("startReading", fileName, dataClass));
  if (!refusal_->empty()) {
    base::coreOf(*this).messages.addError(*refusal_);
  }
  return false;
}

void ScriptedProvider::getFileVersion(OrvDataClass dataClass, int& major, int& minor, int& patch) {
  ForwardingProvider::getFileVersion(dataClass, major, minor, patch);
  if (version_) {
    major = version_->major;
    minor = version_->minor;
    patch = version_->patch;
  }
}

void ScriptedProvider::onCall(const std::string& call) {
  script_.called(call, base::coreOf(*this));
}

void ScriptedProvider::onList(const std::string& call, std::vector<int>& list) {
  if (const std::vector<int>* answer = answerFor(lists_, call)) {
    list = *answer;
  }
  if (answerFor(leftLists_, call) != nullptr) {
    list = handedIn();
  }
}

void ScriptedProvider::onLength(const std::string& call, std::size_t& n) {
  if (const std::size_t* most = answerFor(most_, call)) {
    n = std::min(n, *most);
  }
}

void ScriptedProvider::onElement(const std::string& call, std::uint64_t& value) {
  if (const std::uint64_t* answer = answerFor(elements_, call)) {
    value = *answer;
  }
}

void ScriptedProvider::onUniform(const std::string& call, bool& isUniform, int& value) {
  if (const std::optional<int>* answer = answerFor(uniform_, call)) {
    isUniform = answer->has_value();
    value = answer->value_or(value);
  }
}

void ScriptedProvider::onDelivered(const std::string& call, std::size_t& delivered) {
  if (const std::size_t* answer = answerFor(delivered_, call)) {
    delivered = *answer;
  }
}

void ScriptedProvider::onQuery(const std::string& call) { onCall(call); }

}  // namespace velto::testing
