// SPDX-License-Identifier: Apache-2.0
//
// CaseError: why a file could not be read or written, inside the embedded library.

#ifndef VELTO_EMBEDDED_BASE_CASE_ERROR_H
#define VELTO_EMBEDDED_BASE_CASE_ERROR_H

#include <stdexcept>

/// What every case has in the embedded library: tables, arrays, and the protocol of the contract
/// over them. A data source of one's own derives from CaseProvider and brings CaseTables and
/// MeshArrays.
namespace velto::base {

/// Thrown inside the embedded library and the formats; what() is one line that names the file, the
/// place and what was expected. Caught at the border of a provider or consumer, where it becomes a
/// pending error.
class CaseError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

}  // namespace velto::base

#endif  // VELTO_EMBEDDED_BASE_CASE_ERROR_H
