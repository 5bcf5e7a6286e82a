// SPDX-License-Identifier: Apache-2.0
//
// CallScript: matching calls with actions.

#include "testing/CallScript.h"

#include <utility>

namespace velto::testing {

void CallScript::on(const std::string& call, Action action) { on(call, 0, std::move(action)); }

void CallScript::on(const std::string& call, int nth, Action action) {
  hooks_.push_back({call, nth, 0, std::move(action)});
}

void CallScript::hideTables(const std::string& call, int nth) {
  on(call, nth, [this](base::CaseCore& core) {
    hidden_ = std::move(core.tables);
    core.tables = base::CaseTables();
  });
}

void CallScript::note(const std::string& line) {
  if (transcript_ != nullptr) {
    transcript_->push_back(line);
  }
}

void CallScript::called(const std::string& call, base::CaseCore& core) {
  if (hidden_) {
    core.tables = std::move(*hidden_);
    hidden_.reset();
  }
  note(call);
  const std::string operation = operationOf(call);
  std::vector<Action> due;  // an action may add hooks, so none runs while they are gone through
  for (Hook& hook : hooks_) {
    if (hook.call != operation && hook.call != call) {
      continue;
    }
    ++hook.seen;
    if (hook.nth == 0 || hook.nth == hook.seen) {
      due.push_back(hook.action);
    }
  }
  for (const Action& action : due) {
    action(core);
  }
}

}  // namespace velto::testing
