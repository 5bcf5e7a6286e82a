// SPDX-License-Identifier: Apache-2.0
//
// A location model as text, for programs that compare models.

#ifndef VELTO_FACTORY_MODEL_TEXT_H
#define VELTO_FACTORY_MODEL_TEXT_H

#include "embedded/base/model_text.h"

namespace velto::factory {

using base::modelText;

}  // namespace velto::factory

#endif  // VELTO_FACTORY_MODEL_TEXT_H
