// SPDX-License-Identifier: Apache-2.0
//
// StoreProvider: the read side of the case store.

#ifndef VELTO_EMBEDDED_STORE_STORE_PROVIDER_H
#define VELTO_EMBEDDED_STORE_STORE_PROVIDER_H

#include <string>

#include "embedded/base/CaseProvider.h"

namespace velto::store {

/// Whether a file is a store file, or calls itself one by its ending: then startReading says what
/// is wrong with it. Cheap and silent.
bool isStore(const std::string& file);

/// Serves the case in a file. Results are opened after their case, on the same provider; alone they
/// are served with the sizes and zones that stand beside them.
///
/// What startReading refuses: files that are cut (a cut that takes nothing but the seal leaves a
/// whole case), changed in their structure, of another format or a newer layout, that lack a
/// dataset or claim rows, or elements, which they do not hold; and results of another case than
/// that which is open. Values that were changed are found when their zone is read for the first
/// time.
class StoreProvider : public base::CaseProvider {
 protected:
  void open(const std::string& fileName, OrvDataClass dataClass) override;
};

}  // namespace velto::store

#endif  // VELTO_EMBEDDED_STORE_STORE_PROVIDER_H
