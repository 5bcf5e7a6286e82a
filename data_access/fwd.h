// SPDX-License-Identifier: Apache-2.0
//
// Names of the contract's classes, for headers that only point to them.

#ifndef VELTO_DATA_ACCESS_FWD_H
#define VELTO_DATA_ACCESS_FWD_H

/// The tools, the contract, and what the tools share.
namespace velto {

class OrvBase;
class OrvProvider;
class OrvConsumer;
class OrvFileIO;
class OrvFileProvider;
class OrvFileConsumer;
class OrvLocationModel;
class OrvVariant;

}  // namespace velto

#endif  // VELTO_DATA_ACCESS_FWD_H
