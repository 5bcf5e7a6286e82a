// SPDX-License-Identifier: Apache-2.0
//
// OrvFileProvider: the read side of a case that lies in files; what getDataProvider returns.

#ifndef VELTO_DATA_ACCESS_ORV_FILE_PROVIDER_H
#define VELTO_DATA_ACCESS_ORV_FILE_PROVIDER_H

#include <string>

#include "data_access/OrvFileIO.h"
#include "data_access/OrvProvider.h"

namespace velto {

/// An OrvProvider with a file behind it. Deleted through OrvFileIO, at any time.
class OrvFileProvider : public OrvProvider, public OrvFileIO {
 public:
  /// Opens `fileName` for reading of `dataClass`. False if it cannot be read; the reason waits
  /// among the pending errors, and the object answers every query as an empty case would. Results
  /// are opened after their case, on the same object; if they cannot be read the case stays open.
  virtual bool startReading(const std::string& fileName, OrvDataClass dataClass) = 0;

  /// A text for people about a phase; false, with `text` left alone, if there is none.
  virtual bool getPhaseDescription(short phaseId, std::string& text) = 0;
  /// A text for people about a variable; false, with `text` left alone, if there is none.
  virtual bool getVariableDescription(int variableId, std::string& text) = 0;
};

}  // namespace velto

#endif  // VELTO_DATA_ACCESS_ORV_FILE_PROVIDER_H
