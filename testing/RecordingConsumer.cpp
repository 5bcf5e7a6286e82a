// SPDX-License-Identifier: Apache-2.0
//
// RecordingConsumer: the transcript and the actions.

#include "testing/RecordingConsumer.h"

#include <utility>

namespace velto::testing {

RecordingConsumer::RecordingConsumer(Transcript* transcript, std::string name)
    : ForwardingConsumer(FilledCase::filled), script_(transcript), name_(std::move(name)) {
  base::coreOf(*this).observer = this;
}

RecordingConsumer::~RecordingConsumer() {
  base::coreOf(*this).observer = nullptr;
  script_.note("~" + name_);
}

void RecordingConsumer::on(const std::string& call, CallScript::Action action) {
  script_.on(call, std::move(action));
}

void RecordingConsumer::on(const std::string& call, int nth, CallScript::Action action) {
  script_.on(call, nth, std::move(action));
}

void RecordingConsumer::hideTables(const std::string& call, int nth) {
  script_.hideTables(call, nth);
}

void RecordingConsumer::onCall(const std::string& call) {
  script_.called(call, base::coreOf(*this));
}

void RecordingConsumer::onQuery(const std::string& call) { onCall(call); }

}  // namespace velto::testing
