// SPDX-License-Identifier: Apache-2.0
//
// IdList: ids in the order in which they were listed, and a quick answer to which are among them.

#ifndef VELTO_CHECKER_ID_LIST_H
#define VELTO_CHECKER_ID_LIST_H

#include <algorithm>
#include <cstddef>
#include <utility>
#include <vector>

#include "data_access/OrvBase.h"

namespace velto {

/// A list of ids of zones, or of objects of a location model, as the data-access library gave it.
/// Links are looked up in it, several for each zone, so that a plain search would cost the square
/// of the number of zones.
class IdList {
 public:
  explicit IdList(std::vector<int> ids) : listed_(std::move(ids)), ascending_(listed_) {
    std::sort(ascending_.begin(), ascending_.end());
  }

  bool contains(int id) const {
    return std::binary_search(ascending_.begin(), ascending_.end(), id);
  }

  bool empty() const { return listed_.empty(); }
  std::size_t size() const { return listed_.size(); }
  std::vector<int>::const_iterator begin() const { return listed_.begin(); }
  std::vector<int>::const_iterator end() const { return listed_.end(); }

 private:
  std::vector<int> listed_;
  std::vector<int> ascending_;
};

/// All zones of a category in the selected mesh.
inline IdList zonesOf(OrvBase& source, OrvZoneCategory category) {
  std::vector<int> ids;
  source.getZoneIds(category, ids);
  return IdList(std::move(ids));
}

}  // namespace velto

#endif  // VELTO_CHECKER_ID_LIST_H
