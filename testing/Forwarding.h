// SPDX-License-Identifier: Apache-2.0
//
// Forwarding: what the doubles that pass every call to a target have in common.

#ifndef VELTO_TESTING_FORWARDING_H
#define VELTO_TESTING_FORWARDING_H

#include <string>

#include "embedded/base/OrvBaseState.h"
#include "testing/call_text.h"

namespace velto::testing {

/// A provider or a consumer (`Side`) in front of a target of its kind, which outlives it and stays
/// the caller's. What is not virtual acts as the target's does, because both share one state.
template <class Side>
class Forwarding : public Side {
 protected:
  explicit Forwarding(Side& target) : target_(target) {
    OrvBase::State::of(*this).core = OrvBase::State::of(target).core;
  }

  /// Whether onCall() is called.
  virtual bool listens() const { return false; }

  /// A call is about to be passed on, as a line: its operation with the arguments that go in.
  virtual void onCall(const std::string& /*call*/) {}

  /// A call goes into the target, and is out of it again, be it by an exception.
  virtual void onEnter() {}
  virtual void onLeave() noexcept {}

  /// The way into the target for one call: `target()->getZoneCount(category)`.
  class Passage {
   public:
    explicit Passage(Forwarding& owner) : owner_(owner) { owner_.onEnter(); }
    Passage(const Passage&) = delete;
    Passage& operator=(const Passage&) = delete;
    ~Passage() { owner_.onLeave(); }

    Side* operator->() const { return &owner_.target_; }

   private:
    Forwarding& owner_;
  };

  Passage target() { return Passage(*this); }

  template <class... Arguments>
  void tell(const char* operation, const Arguments&... arguments) {
    if (listens()) {
      onCall(callText(operation, arguments...));
    }
  }

 private:
  Side& target_;
};

}  // namespace velto::testing

#endif  // VELTO_TESTING_FORWARDING_H
