// SPDX-License-Identifier: Apache-2.0
//
// ProtocolGuard: finds calls of a provider outside their bracket.

#ifndef VELTO_TESTING_PROTOCOL_GUARD_H
#define VELTO_TESTING_PROTOCOL_GUARD_H

#include <string>
#include <vector>

#include "embedded/base/OrvBaseState.h"
#include "testing/ForwardingProvider.h"

namespace velto::testing {

/// Stands between a tool and the provider that it reads, and keeps a list of what went wrong:
///
///     "readFaceNodeIds(2, 24): outside the ids of face nodes"
///
/// A begin that is never closed is tolerated by the contract: another family's begin, or a new
/// selection, ends the family, which is then told by leftOpen(). Whoever comes back to it after
/// that (a family nested into another) meets a closed family: a violation.
class ProtocolGuard : public ForwardingProvider, private base::QueryObserver {
 public:
  explicit ProtocolGuard(OrvFileProvider& target);
  ~ProtocolGuard() override;

  /// The calls outside their bracket, oldest first.
  const std::vector<std::string>& violations() const { return violations_; }

  /// The families that were opened and not closed, in the order in which they were given up; one
  /// that is still open stands at the end.
  std::vector<std::string> leftOpen() const;

 protected:
  bool listens() const override { return true; }
  void onCall(const std::string& call) override;

 private:
  void onQuery(const std::string& call) override;

  /// What a call wants of the family that it belongs to.
  void beginFamily(const std::string& family);
  void endFamily(const std::string& call, const std::string& family);
  void beginPass(const std::string& call, const std::string& family, const std::string& pass);
  void endPass(const std::string& call, const std::string& family, const std::string& pass);
  void use(const std::string& call, const std::string& family, const std::string& pass);

  void giveUpFamily();
  void followFieldData(const std::string& call);
  void violation(const std::string& call, const std::string& what);

  base::QueryObserver* before_;  // hears of queries after the guard
  std::string family_;           // the open one, empty for none
  std::string pass_;             // "counts" or "ids", empty for none
  bool phaseOpen_ = false;
  bool variableOpen_ = false;
  std::vector<std::string> violations_;
  std::vector<std::string> leftOpen_;
};

}  // namespace velto::testing

#endif  // VELTO_TESTING_PROTOCOL_GUARD_H
