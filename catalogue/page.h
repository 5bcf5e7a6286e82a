// SPDX-License-Identifier: Apache-2.0
//
// The text of docs/MESSAGES.md, which embed_page.cmake makes a source of.

#ifndef VELTO_CATALOGUE_PAGE_H
#define VELTO_CATALOGUE_PAGE_H

#include <cstddef>

namespace velto::catalogue {

/// Its bytes: a literal as long as the page is more than compilers have to take.
extern const unsigned char kPage[];
extern const std::size_t kPageSize;

}  // namespace velto::catalogue

#endif  // VELTO_CATALOGUE_PAGE_H
