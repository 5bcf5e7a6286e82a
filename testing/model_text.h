// SPDX-License-Identifier: Apache-2.0
//
// modelText: a location model as text, for tests.

#ifndef VELTO_TESTING_MODEL_TEXT_H
#define VELTO_TESTING_MODEL_TEXT_H

#include "embedded/base/model_text.h"

namespace velto::testing {

using base::modelText;

}  // namespace velto::testing

#endif  // VELTO_TESTING_MODEL_TEXT_H
