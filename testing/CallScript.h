// SPDX-License-Identifier: Apache-2.0
//
// CallScript: what a double writes down of its calls, and what happens on some of them.

#ifndef VELTO_TESTING_CALL_SCRIPT_H
#define VELTO_TESTING_CALL_SCRIPT_H

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "embedded/base/OrvBaseState.h"
#include "testing/call_text.h"

namespace velto::testing {

/// Actions by call. A call is named by its operation ("getMeshSize"), which stands for every call
/// of it, or by its whole text ("getMeshSize(1)").
class CallScript {
 public:
  /// May post messages, change the tables and the selection, or throw.
  using Action = std::function<void(base::CaseCore&)>;

  /// Calls go into `transcript`, which outlives the script; null for none.
  explicit CallScript(Transcript* transcript) : transcript_(transcript) {}

  /// Runs `action` on each such call, before it is carried out, or on the nth (from 1) only.
  void on(const std::string& call, Action action);
  void on(const std::string& call, int nth, Action action);

  /// The nth such call (from 1) finds empty tables; they are back when the next call comes.
  void hideTables(const std::string& call, int nth);

  /// Writes a line and nothing else.
  void note(const std::string& line);

  /// Writes the call down and runs its actions, in the order in which they were given.
  void called(const std::string& call, base::CaseCore& core);

 private:
  struct Hook {
    std::string call;
    int nth = 0;  // 0 for each
    int seen = 0;
    Action action;
  };

  Transcript* transcript_;
  std::vector<Hook> hooks_;
  std::optional<base::CaseTables> hidden_;
};

}  // namespace velto::testing

#endif  // VELTO_TESTING_CALL_SCRIPT_H
