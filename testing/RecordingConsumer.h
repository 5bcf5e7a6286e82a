// SPDX-License-Identifier: Apache-2.0
//
// RecordingConsumer: turns every call into one line, and keeps what it was given.

#ifndef VELTO_TESTING_RECORDING_CONSUMER_H
#define VELTO_TESTING_RECORDING_CONSUMER_H

#include <memory>
#include <string>

#include "embedded/base/OrvBaseState.h"
#include "embedded/memory/Case.h"
#include "embedded/memory/MemoryConsumer.h"
#include "testing/CallScript.h"
#include "testing/ForwardingConsumer.h"

namespace velto::testing {

/// What a RecordingConsumer fills; a base, so that it is there before the forwarding part.
struct FilledCase {
  memory::MemoryConsumer filled;
};

/// A transcript is compared whole with what a test expects:
///
///     beginFaceCell0([2])
///     writeFaceCell0(2, [1, 1, 1, 1, 1, 1])
///     endFaceCell0()
///
/// Lists and buffers stand there with their values, a null pointer as "null of 6", doubles in their
/// shortest form, enumerators as integers. Setters and queries that are not virtual are lines as
/// well; destruction is "~" and the name.
class RecordingConsumer : private FilledCase,
                          public ForwardingConsumer,
                          private base::QueryObserver {
 public:
  /// `transcript` outlives the consumer; null for none.
  explicit RecordingConsumer(Transcript* transcript, std::string name = "consumer");
  ~RecordingConsumer() override;

  /// Actions on calls, as CallScript says.
  void on(const std::string& call, CallScript::Action action);
  void on(const std::string& call, int nth, CallScript::Action action);

  /// The nth such call finds no case, and answers as it does then; the next finds it again.
  void hideTables(const std::string& call, int nth);

  /// What was written so far.
  std::shared_ptr<memory::Case> takeCase() const { return filled.takeCase(); }

 protected:
  bool listens() const override { return true; }
  void onCall(const std::string& call) override;

 private:
  void onQuery(const std::string& call) override;

  CallScript script_;
  std::string name_;
};

}  // namespace velto::testing

#endif  // VELTO_TESTING_RECORDING_CONSUMER_H
