// SPDX-License-Identifier: Apache-2.0
//
// OrvFileConsumer: the write side of a case that goes to files; what getDataConsumer returns.

#ifndef VELTO_DATA_ACCESS_ORV_FILE_CONSUMER_H
#define VELTO_DATA_ACCESS_ORV_FILE_CONSUMER_H

#include <string>

#include "data_access/OrvConsumer.h"
#include "data_access/OrvFileIO.h"

namespace velto {

/// An OrvConsumer with files behind it, named by setFileName. Deleted through OrvFileIO.
class OrvFileConsumer : public OrvConsumer, public OrvFileIO {
 public:
  /// Stores a text for people about a phase, by the id that addPhases gave it.
  virtual void setPhaseDescription(short phaseId, const std::string& text) = 0;
  /// Stores a text for people about a variable, by the id that addVariable gave it.
  virtual void setVariableDescription(int variableId, const std::string& text) = 0;
};

}  // namespace velto

#endif  // VELTO_DATA_ACCESS_ORV_FILE_CONSUMER_H
