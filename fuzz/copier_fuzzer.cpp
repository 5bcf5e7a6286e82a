// SPDX-License-Identifier: Apache-2.0
//
// Fuzzes OrvCopier: any cases, misdeeds of both ends and calls, copied as the plain copier does.

#include "velto/OrvCopier.h"

#include "fuzz/fuzzing.h"
#include "testing/Random.h"
#include "tests/copier/PlainCopier.h"
#include "tests/copier/copy_watch.h"

namespace velto::testing {
namespace {

template <class Copier>
std::string copiedText(const RandomCopies& drawn) {
  std::string text;
  for (const std::string& line : watchedCopies<Copier>(drawn)) {
    text += line + "\n";
  }
  return text;
}

}  // namespace
}  // namespace velto::testing

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace velto::testing;
  Random random(data, size);
  const RandomCopies drawn = randomCopies(random);
  velto::fuzzing::requireSame(copiedText<PlainCopier>(drawn), copiedText<velto::OrvCopier>(drawn));
  return 0;
}
