// SPDX-License-Identifier: Apache-2.0
//
// VtuConsumer: the write side of VTU files.

#ifndef VELTO_FORMATS_VTU_VTU_CONSUMER_H
#define VELTO_FORMATS_VTU_VTU_CONSUMER_H

#include "embedded/memory/MemoryConsumer.h"

namespace velto::vtu {

/// Collects a case in memory and writes its mesh into the file of dataClassCase when the case is
/// complete, and once more, with variables, when the results are. The file of dataClassResults is
/// not used. A consumer that is destroyed before leaves nothing behind. Levels of compression above
/// 9 are 9.
class VtuConsumer : public memory::MemoryConsumer {
 protected:
  void open(OrvDataClass dataClass) override;
  void finish(OrvDataClass dataClass) override;

  /// They are found from the cells beside the faces when the file is written (CellFaces.h).
  bool wantsCellFaces() const override { return false; }
};

}  // namespace velto::vtu

#endif  // VELTO_FORMATS_VTU_VTU_CONSUMER_H
