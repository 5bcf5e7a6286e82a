// SPDX-License-Identifier: Apache-2.0
//
// failEach: something is done once with each of its allocations failing.

#ifndef VELTO_TESTS_FAULTS_MEMORY_RUN_H
#define VELTO_TESTS_FAULTS_MEMORY_RUN_H

#include <array>
#include <cstddef>
#include <gtest/gtest.h>
#include <iostream>
#include <new>
#include <streambuf>
#include <string>

#include "tests/faults/failing_memory.h"

namespace velto::testing {

/// What is written to standard output and standard error while it lives, without an allocation.
class FixedStreams {
 public:
  FixedStreams() : outBefore_(std::cout.rdbuf(&out_)), errBefore_(std::cerr.rdbuf(&err_)) {}
  FixedStreams(const FixedStreams&) = delete;
  FixedStreams& operator=(const FixedStreams&) = delete;
  ~FixedStreams() {
    EXPECT_TRUE(std::cout.good() && std::cerr.good()) << "more was written than there is room for";
    std::cout.rdbuf(outBefore_);
    std::cerr.rdbuf(errBefore_);
  }

  std::string out() const { return out_.text(); }
  std::string err() const { return err_.text(); }

 private:
  class Buffer : public std::streambuf {
   public:
    Buffer() { setp(room_.data(), room_.data() + room_.size()); }
    std::string text() const { return std::string(pbase(), pptr()); }

   private:
    std::array<char, 1U << 16U> room_ = {};
  };

  Buffer out_;
  Buffer err_;
  std::streambuf* outBefore_;
  std::streambuf* errBefore_;
};

/// How an attempt with a failing allocation ended.
struct MemoryOutcome {
  std::size_t nth = 0;
  bool isThrown = false;    ///< std::bad_alloc came out of it; nothing else can.
  bool isAsThrown = false;  ///< The allocator threw; it gives null where it is asked not to throw.
};

/// Makes a subject for each n, has it `attempt()` with the nth allocation failing, and then gives
/// it to `judge(subject, outcome)`. Ends where there are no more allocations; their number.
template <class MakeSubject, class Judge>
std::size_t failEach(const MakeSubject& makeSubject, const Judge& judge) {
  for (std::size_t nth = 1;; ++nth) {
    auto subject = makeSubject();
    MemoryOutcome outcome = {nth, false, false};
    bool isOver = false;
    {
      const MemoryFault fault(nth);
      try {
        subject->attempt();
      } catch (const std::bad_alloc&) {
        outcome.isThrown = true;
      }
      isOver = !MemoryFault::hasHappened();
      outcome.isAsThrown = MemoryFault::hasThrown();
    }
    if (isOver) {
      EXPECT_FALSE(outcome.isThrown);
      return nth - 1;
    }
    judge(*subject, outcome);
    if (::testing::Test::HasFailure()) {
      ADD_FAILURE() << "with allocation " << nth;
      return nth;
    }
  }
}

}  // namespace velto::testing

#endif  // VELTO_TESTS_FAULTS_MEMORY_RUN_H
