// SPDX-License-Identifier: Apache-2.0
//
// ShelteredProvider, ShelteredConsumer: in whose virtual operations no allocation fails.

#ifndef VELTO_TESTS_FAULTS_SHELTERED_H
#define VELTO_TESTS_FAULTS_SHELTERED_H

#include <optional>

#include "testing/ForwardingConsumer.h"
#include "testing/ForwardingProvider.h"
#include "tests/faults/failing_memory.h"

namespace velto::testing {

/// Passes every call to its target, which outlives it and makes no call of the double. The
/// operations that are not virtual have no shelter.
template <class ForwardingSide>
class Sheltered : public ForwardingSide {
 public:
  /// Not `isClosed`: there is no shelter at all.
  template <class Target>
  Sheltered(Target& target, bool isClosed) : ForwardingSide(target), isClosed_(isClosed) {}

 protected:
  void onEnter() override { shelter_.emplace(isClosed_); }
  void onLeave() noexcept override { shelter_.reset(); }

 private:
  bool isClosed_;
  std::optional<Shelter> shelter_;
};

using ShelteredProvider = Sheltered<ForwardingProvider>;
using ShelteredConsumer = Sheltered<ForwardingConsumer>;

}  // namespace velto::testing

#endif  // VELTO_TESTS_FAULTS_SHELTERED_H
