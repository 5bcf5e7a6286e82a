// SPDX-License-Identifier: Apache-2.0
//
// The streams that a program is started with: there in any case, and asked whether they took all.

#ifndef VELTO_ORV_STANDARD_STREAMS_H
#define VELTO_ORV_STANDARD_STREAMS_H

namespace velto::orv {

/// Comes before anything is opened: a stream that is closed leaves its number to the next file,
/// and what is printed would go into a case. Also lets a file at its limit fail to be written,
/// where the system would end the program.
void prepareStreams();

/// Writes out what waits for standard output; false, and said on standard error, if some of what
/// was printed there is lost.
bool finishOutput();

}  // namespace velto::orv

#endif  // VELTO_ORV_STANDARD_STREAMS_H
