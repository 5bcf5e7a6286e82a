// SPDX-License-Identifier: Apache-2.0
//
// The one list of formats.

#ifndef VELTO_FACTORY_FORMATS_H
#define VELTO_FACTORY_FORMATS_H

#include <set>
#include <string>
#include <vector>

#include "data_access/OrvTypes.h"
#include "data_access/fwd.h"

namespace velto::factory {

/// A part of a case that a format may have no place for.
enum class Content { postTargets, faces, locationModel, settings, results };

/// What becomes of a case that is written in a format.
struct WrittenForm {
  /// What the name of a file to write ends in, "" for a folder; null if nothing reaches the disk.
  const char* ending = nullptr;
  /// The file, or the folders, that a case is written into under a name, given its partitions: -1
  /// stands for none. Throws std::runtime_error for a name that it cannot be written under.
  std::vector<std::string> (*placesOf)(const std::string& name,
                                       const std::set<int>& partitions) = nullptr;
  /// Whether results go into a file of their own.
  bool hasResultsFile = false;
  std::vector<Content> lacks;
  /// Where settings are lacked, those below this path are kept; "" for none.
  const char* ownSettings = "";
  /// Whether elements and zones keep their order and ids.
  bool keepsIds = false;
};

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
  /// The file, or the folders, that are read for a name that is recognised.
  std::vector<std::string> (*placesOf)(const std::string& fileName);
  OrvFileProvider* (*makeProvider)();  ///< Null if nothing is read.
  OrvFileConsumer* (*makeConsumer)();  ///< Null if nothing is written.
  WrittenForm written = {};
};

/// All formats, in the order in which they are tried on a file.
const std::vector<Format>& formats();

/// The format that recognises a file or folder, or null.
const Format* formatOf(const std::string& fileName);

}  // namespace velto::factory

#endif  // VELTO_FACTORY_FORMATS_H
