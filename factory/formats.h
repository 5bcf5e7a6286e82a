// SPDX-License-Identifier: Apache-2.0
//
// The one list of formats.

#ifndef VELTO_FACTORY_FORMATS_H
#define VELTO_FACTORY_FORMATS_H

#include <string>
#include <vector>

#include "data_access/OrvTypes.h"
#include "data_access/fwd.h"

namespace velto::factory {

/// A format: what it is called, what it can do, and how its providers and consumers are made.
struct Format {
  OrvFileFormatType type;
  const char* name;     ///< The word for it on a command line.
  const char* title;    ///< What it is, for people.
  const char* endings;  ///< File endings, or how its files are named.
  const char* reads;    ///< What of a case can be read, "" for nothing.
  const char* writes;   ///< What of a case can be written, "" for nothing.
  /// Whether a file or folder holds a case of this format, by its content; null if nothing is read.
  bool (*recognises)(const std::string& fileName);
  OrvFileProvider* (*makeProvider)();  ///< Null if nothing is read.
  OrvFileConsumer* (*makeConsumer)();  ///< Null if nothing is written.
};

/// All formats, in the order in which they are tried on a file.
const std::vector<Format>& formats();

}  // namespace velto::factory

#endif  // VELTO_FACTORY_FORMATS_H
