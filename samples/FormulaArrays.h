// SPDX-License-Identifier: Apache-2.0
//
// FormulaArrays: what the arrays of all samples have in common.

#ifndef VELTO_SAMPLES_FORMULA_ARRAYS_H
#define VELTO_SAMPLES_FORMULA_ARRAYS_H

#include <algorithm>
#include <cstddef>
#include <string>
#include <vector>

#include "embedded/base/MeshArrays.h"

namespace velto::samples {

/// Arrays that hold nothing but what a subclass says: no face tree, no partitions, no field data.
class FormulaArrays : public base::MeshArrays {
 public:
  std::vector<int> treeChildZones() override { return {}; }
  int partitionInfo(int) override { return 0; }
  std::size_t readCellPartitions(int, int*, std::size_t) override { return 0; }

  /// The cells of a zone have one type, and what has one count is read as that count over and over.
  std::size_t readCellTypes(int zone, int* types, std::size_t n) override {
    int type = 0;
    return uniformCellType(zone, type) ? repeat(type, types, n) : 0;
  }
  std::size_t readCounts(base::Family family, int zone, short* counts, std::size_t n) override {
    short count = 0;
    return uniformCount(family, zone, count) ? repeat(count, counts, n) : 0;
  }

  std::vector<std::string> variableNames(short, OrvZoneCategory) override { return {}; }
  std::size_t variableZones(const base::VariableKey&, std::vector<int>&) override { return 0; }
  std::size_t variableValueCount(const base::VariableKey&, int) override { return 0; }
  std::size_t readVariable(const base::VariableKey&, int, double*, std::size_t) override {
    return 0;
  }

 protected:
  bool isListed(base::Family family, int zone) {
    const std::vector<int> listed = zones(family);
    return std::find(listed.begin(), listed.end(), zone) != listed.end();
  }

 private:
  template <class Value>
  static std::size_t repeat(Value value, Value* values, std::size_t n) {
    std::fill_n(values, n, value);
    return n;
  }
};

/// Has `fill` write the `size` values of a zone into a buffer for `n`, and returns how many stand
/// there. A buffer that is too small for all of them gets the first.
template <class Value, class Fill>
std::size_t deliver(std::size_t size, Value* values, std::size_t n, Fill fill) {
  if (n >= size) {
    fill(values);
    return size;
  }
  std::vector<Value> all(size);
  fill(all.data());
  std::copy_n(all.begin(), n, values);
  return n;
}

}  // namespace velto::samples

#endif  // VELTO_SAMPLES_FORMULA_ARRAYS_H
