// SPDX-License-Identifier: Apache-2.0
//
// What stands behind an OrvBase in the embedded library: tables, selection and pending messages.

#ifndef VELTO_EMBEDDED_BASE_ORV_BASE_STATE_H
#define VELTO_EMBEDDED_BASE_ORV_BASE_STATE_H

#include <exception>
#include <memory>
#include <new>
#include <string>

#include "data_access/OrvBase.h"

#include "embedded/base/CaseTables.h"
#include "embedded/base/Messages.h"
#include "embedded/base/call_text.h"

namespace velto::base {

/// Sees every call of a non-virtual operation, such as "getMeshSize(1)", before it is answered. It
/// may post messages or change the tables: that is how a test makes a library misbehave.
class QueryObserver {
 public:
  virtual void onQuery(const std::string& call) = 0;

 protected:
  ~QueryObserver() = default;
};

/// The part of the state that a forwarding object shares with its target.
struct CaseCore {
  CaseTables tables;
  MeshKey selection;
  Messages messages;
  QueryObserver* observer = nullptr;  ///< Not owned; null if nobody listens.

  /// The tables of the selected mesh, or null.
  const MeshTables* mesh() const {
    const auto found = tables.meshes.find(selection);
    return found == tables.meshes.end() ? nullptr : &found->second;
  }

  /// The record of a zone of the selected mesh, or null.
  const ZoneRecord* zone(int zoneId) const {
    const MeshTables* selected = mesh();
    if (selected == nullptr) {
      return nullptr;
    }
    const auto found = selected->zones.find(zoneId);
    return found == selected->zones.end() ? nullptr : &found->second;
  }
};

}  // namespace velto::base

namespace velto {

struct OrvBase::State {
  std::shared_ptr<base::CaseCore> core = std::make_shared<base::CaseCore>();

  /// The state behind an object, const or not: what a call may change is not in the object.
  static State& of(const OrvBase& object) { return *object.state_; }
};

namespace base {

inline CaseCore& coreOf(const OrvBase& object) { return *OrvBase::State::of(object).core; }

/// Runs an operation at the border of a provider or consumer: what it throws becomes a pending
/// error that names `what`. False if it threw.
template <class Operation>
bool guarded(const OrvBase& object, const std::string& what, const Operation& operation) {
  try {
    operation();
    return true;
  } catch (const std::bad_alloc&) {
    coreOf(object).messages.addError(what + ": not enough memory");
  } catch (const std::exception& error) {
    coreOf(object).messages.addError(what + ": " + error.what());
  }
  return false;
}

/// Tells the observer, if there is one, of a call with its input arguments. Costs nothing else.
template <class... Arguments>
void observe(const OrvBase& object, const char* operation, const Arguments&... arguments) {
  if (QueryObserver* observer = coreOf(object).observer) {
    observer->onQuery(callText(operation, arguments...));
  }
}

}  // namespace base

}  // namespace velto

#endif  // VELTO_EMBEDDED_BASE_ORV_BASE_STATE_H
