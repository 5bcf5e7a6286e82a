// SPDX-License-Identifier: Apache-2.0
//
// Rows of tests of physics regions: settings, a model, and what a resolver makes of them.

#ifndef VELTO_TESTS_PHYSICS_REGIONS_REGION_ROWS_H
#define VELTO_TESTS_PHYSICS_REGIONS_REGION_ROWS_H

#include <gtest/gtest.h>
#include <ostream>
#include <string>

#include "tests/physics_regions/region_run.h"

namespace velto::testing {

/// The table of a resolver that has just been made.
struct TableRow {
  std::string name;
  std::string settings;
  std::string table;

  friend std::ostream& operator<<(std::ostream& out, const TableRow& row) {
    return out << row.name;
  }
};

inline void expectTable(const TableRow& row) {
  const ResolverRun run(row.settings);
  EXPECT_EQ(run.table(), row.table);
  EXPECT_EQ(run.errors(), Texts());
}

/// The table of a resolver that has resolved once.
struct ResolutionRow {
  std::string name;
  std::string settings;
  std::string model;
  std::string table;
  /// On standard error; a resolving that writes one is abandoned.
  std::string line;

  friend std::ostream& operator<<(std::ostream& out, const ResolutionRow& row) {
    return out << row.name;
  }
};

inline void expectResolution(const ResolutionRow& row) {
  ResolverRun run(row.settings, row.model);
  EXPECT_EQ(run.resolve(), row.line.empty());
  EXPECT_EQ(run.table(), row.table);
  EXPECT_EQ(run.err, row.line);
  EXPECT_EQ(run.out, "");
  EXPECT_EQ(run.errors(), Texts());
}

/// Settings of boundaries beside domains 0 "water" in body "channel" and 1 "steel" in "heater".
inline std::string withDomains(const std::string& boundaries) {
  return "domains/water/location = channel\n"
         "domains/steel/location = heater\n" +
         boundaries;
}

/// The name of a row as the end of a test's name.
template <class Row>
std::string nameOf(const ::testing::TestParamInfo<Row>& row) {
  return row.param.name;
}

}  // namespace velto::testing

#endif  // VELTO_TESTS_PHYSICS_REGIONS_REGION_ROWS_H
