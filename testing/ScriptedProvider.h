// SPDX-License-Identifier: Apache-2.0
//
// ScriptedProvider: serves a case from memory and misbehaves where a test wants it to.

#ifndef VELTO_TESTING_SCRIPTED_PROVIDER_H
#define VELTO_TESTING_SCRIPTED_PROVIDER_H

#include <cstddef>
#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <variant>
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
/// would give, after the call was carried out; what stands under the whole text of a call comes
/// before what stands under its operation.
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

  /// The nth such call finds no case, and answers as it does then; the next finds it again.
  void hideTables(const std::string& call, int nth);

  /// startReading opens nothing, posts `reason` unless it is empty, and answers false.
  void refuseToRead(const std::string& reason);

  /// Replaces a list: of meshes, targets, partitions, zones of a category, or of a family.
  void answerList(const std::string& call, std::vector<int> list);

  /// Gives a list back as it was handed in.
  void leaveList(const std::string& call);

  /// Replaces what a read says that it delivered.
  void answerDelivered(const std::string& call, std::size_t delivered);

  /// Has a read that tells nothing of it deliver so many values at most.
  void deliverAtMost(const std::string& call, std::size_t most);

  /// Replaces the cell beside a face, its shadow, or the type of a cell: "getFaceCell0(7)".
  void answerElement(const std::string& call, std::uint64_t value);

  /// Replaces the one count or type of a zone; without a value the answer is that there is none.
  void answerUniform(const std::string& call, std::optional<int> value);

  void answerVersion(int major, int minor, int patch);

  bool startReading(const std::string& fileName, OrvDataClass dataClass) override;
  void getFileVersion(OrvDataClass dataClass, int& major, int& minor, int& patch) override;

 protected:
  bool listens() const override { return true; }
  void onCall(const std::string& call) override;
  void onList(const std::string& call, std::vector<int>& list) override;
  void onDelivered(const std::string& call, std::size_t& delivered) override;
  void onLength(const std::string& call, std::size_t& n) override;
  void onElement(const std::string& call, std::uint64_t& value) override;
  void onUniform(const std::string& call, bool& isUniform, int& value) override;

 private:
  void onQuery(const std::string& call) override;

  CallScript script_;
  std::string name_;
  std::optional<std::string> refusal_;
  std::map<std::string, std::vector<int>> lists_;
  std::map<std::string, std::monostate> leftLists_;
  std::map<std::string, std::size_t> delivered_;
  std::map<std::string, std::size_t> most_;
  std::map<std::string, std::uint64_t> elements_;
  std::map<std::string, std::optional<int>> uniform_;
  std::optional<base::FileVersion> version_;
};

}  // namespace velto::testing

#endif  // VELTO_TESTING_SCRIPTED_PROVIDER_H
