// SPDX-License-Identifier: Apache-2.0
//
// Lists of dictionaries with names: patches and zones.

#ifndef VELTO_FORMATS_OPENFOAM_NAMED_LIST_H
#define VELTO_FORMATS_OPENFOAM_NAMED_LIST_H

#include <cstdint>
#include <limits>
#include <string>

#include "formats/openfoam/read_lists.h"

namespace velto::openfoam {

/// Reads a text list whose entries `read` takes one by one: called with the scanner before an
/// entry's name, and with the entry's own name for messages ("patch 2 of 4").
/// Errors: ReadError if the list has another number of entries than it says.
template <class Read>
void forEachNamed(Scanner& scanner, const EntryNames& names, Read read) {
  const ListHead head = openList(scanner, false, names);
  if (head.kind == ListHead::Kind::kEmpty) {
    return;
  }
  if (head.kind == ListHead::Kind::kUniform) {
    scanner.fail(head.place, std::string(names.many) + " one by one",
                 std::string("a list of equal ") + names.many);
  }
  const std::uint64_t count = head.count.value_or(std::numeric_limits<std::uint64_t>::max());
  for (std::uint64_t done = 0; done < count; ++done) {
    if (!head.count && scanner.next() == ')') {
      break;
    }
    read(entryName(names, head, done));
  }
  closeList(scanner, names, head);
}

}  // namespace velto::openfoam

#endif  // VELTO_FORMATS_OPENFOAM_NAMED_LIST_H
