// SPDX-License-Identifier: Apache-2.0
//
// Fuzzes what is made of settings: any keys and values, resolved as the plain resolver does, then
// checked and copied into another case.

#include <algorithm>
#include <string_view>
#include <vector>

#include "velto/OrvChecker.h"
#include "velto/OrvCopier.h"

#include "data_access/OrvUtilities.h"

#include "embedded/memory/MemoryConsumer.h"
#include "embedded/memory/MemoryProvider.h"
#include "fuzz/fuzzing.h"
#include "testing/TestFactory.h"
#include "testing/capture.h"
#include "tests/physics_regions/regions_watch.h"

namespace velto::testing {
namespace {

constexpr char kModel[] = R"(
  part assembly
    body channel: 7 2
    use hull of channel: 4 -6
    use of channel: 6
    face shell
    composite both: channel, hull
)";

/// A line each: "key = value", or a key alone. The first line may be a solver type: "@ VELTO_FLOW".
cases::CasePtr caseWith(std::string_view text) {
  cases::CasePtr made = regionCase("", kModel);
  while (!text.empty()) {
    const std::size_t end = std::min(text.find('\n'), text.size());
    const std::string line(text.substr(0, end));
    text.remove_prefix(std::min(end + 1, text.size()));
    const std::size_t sign = line.find(" = ");
    if (line.rfind("@ ", 0) == 0) {
      made->tables.solverType = line.substr(2);
    } else if (sign == std::string::npos) {
      made->tables.defaultSettings().set(line, "");
    } else {
      made->tables.defaultSettings().set(line.substr(0, sign), line.substr(sign + 3));
    }
  }
  return made;
}

template <class Resolver>
std::string resolvedText(const cases::CasePtr& served) {
  RandomRegions regions;
  regions.cases = {served, served};
  RandomResolving resolving;
  resolving.model = 0;
  resolving.zones = 0;
  regions.resolvings = {resolving};
  return textOf(watched<Resolver>(regions));
}

/// What a piece is made of stands in the text, in its order.
void splitAll(const std::string& text) {
  for (const bool flag : {false, true}) {
    std::vector<std::string> parts;
    const bool any = OrvUtilities::splitString(text, parts, flag, ',');
    if (any == parts.empty()) {
      fuzzing::found("splitString says otherwise than its parts");
    }
    std::size_t from = 0;
    for (const std::string& part : parts) {
      const std::size_t at = text.find(part, from);
      if (at == std::string::npos) {
        fuzzing::found("splitString made up '" + part + "'");
      }
      from = at + part.size();
    }
  }
}

void checkAndCopy(const cases::CasePtr& served) {
  const TestFactory factory([&](const std::string&) { return new memory::MemoryProvider(served); });
  const StreamCapture streams;
  OrvChecker checker;
  checker.setCheckLevel(2);
  checker.checkCase("/dev/null");

  memory::MemoryProvider source(served);
  source.startReading("case", dataClassCase);
  memory::MemoryConsumer destination;
  OrvCopier copier("fuzzer");
  copier.setSource(&source);
  copier.setDestination(&destination);
  copier.copySettingsToDestination(true);
  copier.copy();
}

}  // namespace
}  // namespace velto::testing

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace velto::testing;
  const std::string text(data, data + size);
  splitAll(text);
  const cases::CasePtr served = caseWith(text);
  velto::fuzzing::requireSame(resolvedText<PlainResolver>(served),
                              resolvedText<velto::PhysicsRegionResolver>(served));
  checkAndCopy(served);
  return 0;
}
