// SPDX-License-Identifier: Apache-2.0
//
// How much memory a benchmark holds: link counted_memory.cpp, which replaces operator new.

#ifndef VELTO_BENCHMARKS_COUNTED_MEMORY_H
#define VELTO_BENCHMARKS_COUNTED_MEMORY_H

#include <cstddef>

namespace velto::benchmarks {

/// Bytes that are allocated now, and the most that were at a time since the last forgetPeak().
std::size_t allocatedBytes();
std::size_t peakBytes();
void forgetPeak();

}  // namespace velto::benchmarks

#endif  // VELTO_BENCHMARKS_COUNTED_MEMORY_H
