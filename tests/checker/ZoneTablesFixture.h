// SPDX-License-Identifier: Apache-2.0
//
// ZoneTablesFixture: cases whose zone tables a test writes down, and what a checker shows of them.

#ifndef VELTO_TESTS_CHECKER_ZONE_TABLES_FIXTURE_H
#define VELTO_TESTS_CHECKER_ZONE_TABLES_FIXTURE_H

#include <cstdint>
#include <string>
#include <vector>

#include "tests/checker/CheckerFixture.h"

namespace velto::testing {

constexpr std::uint64_t kTwoTo32 = std::uint64_t{1} << 32U;

/// A zone as a table has it.
struct Zone {
  int id;
  std::uint64_t start;
  std::uint64_t end;
  std::uint64_t count;
};

/// oneHex() with other zones of one kind, sound but for their ranges; the relation between zones
/// fits them.
cases::CasePtr withZones(OrvZoneCategory category, std::uint64_t nmax,
                         const std::vector<Zone>& zones);

class ZoneTablesFixture : public ZoneChecksFixture {
 protected:
  /// A whole run over a case.
  CheckResult run(const cases::CasePtr& served) {
    serve(served);
    return check();
  }

  /// What a run writes to standard output at a verbosity, from the first `begin` up to the next
  /// `end`; all of it if that is not there.
  std::string shown(int verbosity, const cases::CasePtr& served, const std::string& begin,
                    const std::string& end);
};

}  // namespace velto::testing

#endif  // VELTO_TESTS_CHECKER_ZONE_TABLES_FIXTURE_H
