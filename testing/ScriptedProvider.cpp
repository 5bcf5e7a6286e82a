// SPDX-License-Identifier: Apache-2.0
//
// ScriptedProvider: the transcript, the actions, and the answers that replace those of the case.

#include "testing/ScriptedProvider.h"

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

void ScriptedProvider::refuseToRead(const std::string& reason) { refusal_ = reason; }

void ScriptedProvider::answerList(const std::string& call, std::vector<int> list) {
  lists_[call] = std::move(list);
}

void ScriptedProvider::answerDelivered(const std::string& call, std::size_t delivered) {
  delivered_[call] = delivered;
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
}

void ScriptedProvider::onDelivered(const std::string& call, std::size_t& delivered) {
  if (const std::size_t* answer = answerFor(delivered_, call)) {
    delivered = *answer;
  }
}

void ScriptedProvider::onQuery(const std::string& call) { onCall(call); }

}  // namespace velto::testing
