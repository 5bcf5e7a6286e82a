// SPDX-License-Identifier: Apache-2.0
//
// An operator new that fails when it is told to: link failing_memory.cpp, which replaces it.

#ifndef VELTO_TESTS_FAULTS_FAILING_MEMORY_H
#define VELTO_TESTS_FAULTS_FAILING_MEMORY_H

#include <cstddef>

namespace velto::testing {

/// While it lives, the nth allocation (from 1) of this thread fails, and no other. One at a time.
class MemoryFault {
 public:
  explicit MemoryFault(std::size_t nth);
  MemoryFault(const MemoryFault&) = delete;
  MemoryFault& operator=(const MemoryFault&) = delete;
  ~MemoryFault();

  /// False if there were not that many.
  static bool hasHappened();

  /// Whether it was reported as std::bad_alloc, not as a null pointer.
  static bool hasThrown();
};

/// Allocations neither fail nor count while one of these lives: for what is not under test.
class Shelter {
 public:
  explicit Shelter(bool isClosed = true);
  Shelter(const Shelter&) = delete;
  Shelter& operator=(const Shelter&) = delete;
  ~Shelter();

 private:
  bool isClosed_;
};

}  // namespace velto::testing

#endif  // VELTO_TESTS_FAULTS_FAILING_MEMORY_H
