// SPDX-License-Identifier: Apache-2.0
//
// ScriptedProvider: serves a case from memory and misbehaves where a test wants it to.

#ifndef VELTO_TESTING_SCRIPTED_PROVIDER_H
#define VELTO_TESTING_SCRIPTED_PROVIDER_H

#include <cstddef>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "embedded/base/OrvBaseState.h"
#include "embedded/memory/Case.h"
#include "embedded/memory/MemoryProvider.h"
#include "testing/CallScript.h"
#include "testing/ForwardingProvider.h"

namespace velto::testing {

/// What a ScriptedProvider serves from; a base, so that it is there before the forwarding part.
struct ServedCase {
  memory::MemoryProvider source;
};

/// Writes every call into a transcript, those of queries that are not virtual as well, and its own
/// destruction as "~" and its name:
///
///     Transcript calls;
///     auto* provider = new ScriptedProvider(cases::oneHex(), &calls, "provider 1");
///     provider->on("getMeshSize(1)", [](base::CaseCore& core) {
///       core.messages.addError("disk gone");
///     });
///     provider->answerList("getMeshIds", {3, 1});
///
/// A call is named as CallScript says. Lists and numbers that are answered replace what the case
/// would give, after the call was carried out.
class ScriptedProvider : private ServedCase,
                         public ForwardingProvider,
                         private base::QueryObserver {
 public:
  /// `transcript` outlives the provider; null for none.
  explicit ScriptedProvider(std::shared_ptr<const memory::Case> served,
                            Transcript* transcript = nullptr, std::string name = "provider");
  ~ScriptedProvider() override;

  void on(const std::string& call, CallScript::Action action);
  void on(const std::string& call, int nth, CallScript::Action action);

  /// startReading opens nothing, posts `reason` unless it is empty, and answers false.
  void refuseToRead(const std::string& reason);

  /// Replaces a list: of meshes, targets, partitions, zones of a category, or of a family.
  void answerList(const std::string& call, std::vector<int> list);

  /// Replaces what a read says that it delivered.
  void answerDelivered(const std::string& call, std::size_t delivered);

  void answerVersion(int major, int minor, int patch);

  bool startReading(const std::string& fileName, OrvDataClass dataClass) override;
  void getFileVersion(OrvDataClass dataClass, int& major, int& minor, int& patch) override;

 protected:
  bool listens() const override { return true; }
  void onCall(const std::string& call) override;
  void onList(const std::string& call, std::vector<int>& list) override;
  void onDelivered(const std::string& call, std::size_t& delivered) override;

 private:
  void onQuery(const std::string& call) override;

  CallScript script_;
  std::string name_;
  std::optional<std::string> refusal_;
  std::map<std::string, std::vector<int>> lists_;
  std::map<std::string, std::size_t> delivered_;
  std::optional<base::FileVersion> version_;
};

}  // namespace velto::testing

#endif  // VELTO_TESTING_SCRIPTED_PROVIDER_H
