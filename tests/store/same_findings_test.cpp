// SPDX-License-Identifier: Apache-2.0
//
// A case in a file is the case that was saved, right or wrong: the checker says the same of both,
// word for word. Random cases, sound and damaged, and all defects, contiguous and packed.

#include <string>
#include <vector>

#include "velto/OrvChecker.h"

#include "embedded/base/CaseError.h"
#include "embedded/base/claims.h"
#include "samples/defects.h"
#include "testing/Random.h"
#include "testing/TestFactory.h"
#include "testing/capture.h"
#include "testing/random_case.h"
#include "tests/store/store_files.h"

namespace velto::testing {
namespace {

using Texts = std::vector<std::string>;

/// All that a checker says of a case.
struct Findings {
  bool isSound = false;
  Texts errors;
  Texts warnings;
  std::string out;
  std::string err;

  friend bool operator==(const Findings& a, const Findings& b) {
    return a.isSound == b.isSound && a.errors == b.errors && a.warnings == b.warnings &&
           a.out == b.out && a.err == b.err;
  }
  friend std::ostream& operator<<(std::ostream& stream, const Findings& findings) {
    return stream << (findings.isSound ? "sound\n" : "not sound\n") << findings.out << findings.err;
  }
};

/// Where a case may claim anything, its elements are not gone through.
Findings check(const TestFactory::ProviderMaker& makeProvider, const std::string& file,
               bool isDeep) {
  const TestFactory factory(makeProvider);
  OrvChecker checker;
  checker.setVerbosity(4);
  checker.setCheckLevel(isDeep ? 2 : 1);
  Findings findings;
  const StreamCapture captured;
  findings.isSound = checker.checkCase(file);
  findings.errors = checker.getErrors();
  findings.warnings = checker.getWarnings();
  findings.out = captured.out();
  findings.err = captured.err();
  return findings;
}

/// Damage may claim elements by the billion, which no store file may.
bool isJustified(const memory::Case& source) {
  try {
    for (const auto& mesh : source.tables.meshes) {
      base::requireJustified("", mesh.second, 0);
    }
    return true;
  } catch (const base::CaseError&) {
    return false;
  }
}

void expectSameFindings(const memory::Case& source, unsigned compression) {
  const TempFolder folder;
  const std::string file = folder.path("case.orv");
  if (!isJustified(source)) {
    EXPECT_THROW(save(source, folder.path(), compression), base::CaseError);
    EXPECT_TRUE(std::filesystem::is_empty(folder.path()));
    return;
  }
  save(source, folder.path(), compression);
  const auto shared = std::make_shared<memory::Case>(source);
  const bool isDeep = isSmall(source);
  const Findings inMemory =
      check([&](const std::string&) { return new memory::MemoryProvider(shared); }, file, isDeep);
  const Findings inFile =
      check([](const std::string&) { return new store::StoreProvider(); }, file, isDeep);
  EXPECT_EQ(inFile, inMemory);
}

class RandomFindings : public ::testing::TestWithParam<int> {};

TEST_P(RandomFindings, AreTheSameOfDamagedCases) {
  constexpr std::uint64_t kCases = 40;
  for (std::uint64_t i = 0; i < kCases; ++i) {
    const auto seed = static_cast<std::uint64_t>(GetParam()) * kCases + i;
    SCOPED_TRACE("seed " + std::to_string(seed));
    Random random(seed);
    const Sizes sizes = random.chance(70) ? Sizes::small : Sizes::any;
    memory::Case source = randomSoundCase(random);
    std::string did;
    for (std::size_t left = random.below(4); left > 0; --left) {
      did += damage(source, random, sizes) + "; ";
    }
    SCOPED_TRACE(did);
    expectSameFindings(source, static_cast<unsigned>(seed % 3));
  }
}

INSTANTIATE_TEST_SUITE_P(Store, RandomFindings, ::testing::Range(0, 8));

TEST(DefectFindings, AreTheSame) {
  for (const samples::Defect& defect : samples::defects()) {
    SCOPED_TRACE(defect.name);
    expectSameFindings(*samples::makeDefect(defect), 0);
    expectSameFindings(*samples::makeDefect(defect), 2);
  }
}

TEST(NamedFindings, AreTheSame) {
  for (const cases::NamedCase& named : cases::all()) {
    SCOPED_TRACE(named.name);
    expectSameFindings(*named.make(), 0);
    expectSameFindings(*named.make(), 2);
  }
}

}  // namespace
}  // namespace velto::testing
