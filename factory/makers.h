// SPDX-License-Identifier: Apache-2.0
//
// What the factory functions of this library give, for a program that has factory functions of its
// own: it asks these for the files that are not its own.

#ifndef VELTO_FACTORY_MAKERS_H
#define VELTO_FACTORY_MAKERS_H

#include <string>

#include "data_access/OrvTypes.h"
#include "data_access/fwd.h"

namespace velto::factory {

/// As getDataProvider and getDataConsumer, of the formats of this library; the caller owns what
/// comes, and null comes for what is none of them.
OrvFileProvider* makeProvider(const std::string& fileName);
OrvFileConsumer* makeConsumer(OrvFileFormatType format);

}  // namespace velto::factory

#endif  // VELTO_FACTORY_MAKERS_H
