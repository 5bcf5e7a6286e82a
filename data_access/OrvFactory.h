// SPDX-License-Identifier: Apache-2.0
//
// The two factory functions. They live in a library of their own, apart from the contract's other
// operations, so that a program (or a test) can put its own in their place.

#ifndef VELTO_DATA_ACCESS_ORV_FACTORY_H
#define VELTO_DATA_ACCESS_ORV_FACTORY_H

#include <string>

#include "data_access/OrvTypes.h"

namespace velto {

class OrvFileProvider;
class OrvFileConsumer;

/// A provider suited to what `fileName` holds, not yet reading; null if no format knows the file.
/// The caller owns it and deletes it through OrvFileIO.
OrvFileProvider* getDataProvider(const std::string& fileName);

/// A consumer that writes `format`; null if the format cannot be written. The caller owns it and
/// deletes it through OrvFileIO.
OrvFileConsumer* getDataConsumer(OrvFileFormatType format);

}  // namespace velto

#endif  // VELTO_DATA_ACCESS_ORV_FACTORY_H
