// SPDX-License-Identifier: Apache-2.0
//
// Fuzzes the reader of case files: sound files whose datasets, attributes, numbers and bytes are
// changed, by an input of a few steps.

#include <array>
#include <filesystem>
#include <fstream>
#include <memory>
#include <vector>

#include "velto/OrvChecker.h"

#include "embedded/memory/MemoryProvider.h"
#include "embedded/store/StoreProvider.h"
#include "embedded/store/save_case.h"
#include "fuzz/fuzzing.h"
#include "testing/Random.h"
#include "testing/TempFolder.h"
#include "testing/TestFactory.h"
#include "testing/capture.h"
#include "tests/store/hdf5_damage.h"
#include "tests/store/read_everything.h"
#include "tests/store/rich_cases.h"

namespace velto::testing {
namespace {

namespace fs = std::filesystem;

/// A sound file, and the places where it can be damaged.
struct Sound {
  std::string file;
  std::vector<std::string> datasets;
  std::vector<AttributePlace> attributes;
  std::vector<NumberPlace> numbers;
};

/// Files with and without packed arrays, made once.
class SoundFiles {
 public:
  SoundFiles() {
    make(*richCase(), 0);
    make(*longCase(), 0);
    make(*longCase(), 1);
  }

  const Sound& pick(Random& random) const { return files_.at(random.below(files_.size())); }
  std::string damagedFile() const { return folder_.path("damaged.orv"); }

 private:
  void make(const memory::Case& source, unsigned compression) {
    Sound& made = files_.at(count_);
    made.file = folder_.path(std::to_string(count_++) + ".orv");
    store::saveCase(source.tables, memory::arraysOf(std::make_shared<memory::Case>(source)),
                    made.file, compression);
    made.datasets = datasetsOf(made.file);
    made.attributes = attributesOf(made.file);
    made.numbers = numbersOf(made.file);
  }

  TempFolder folder_;
  std::array<Sound, 3> files_;
  std::size_t count_ = 0;
};

/// A small number, one on an edge, or any.
std::uint64_t anyNumber(Random& random) {
  switch (random.below(3)) {
    case 0:
      return random.below(256);
    case 1:
      return (std::uint64_t{1} << random.below(64)) - 1 + random.below(3);
    default:
      return random.next();
  }
}

/// Bytes as they stand in the file, wherever that is.
void changeBytes(const std::string& file, Random& random) {
  std::fstream bytes(file, std::ios::binary | std::ios::in | std::ios::out);
  const std::uint64_t size = fs::file_size(file);
  for (std::size_t left = random.below(4) + 1; left > 0; --left) {
    bytes.seekp(static_cast<std::streamoff>(random.next() % size));
    bytes.put(static_cast<char>(random.below(256)));
  }
}

void damage(const Sound& sound, const std::string& file, Random& random) {
  switch (random.below(8)) {
    case 0:
      return damageDataset(file, random.pick(sound.datasets), random.pick(datasetDamages()).damage);
    case 1:
      return damageAttribute(file, random.pick(sound.attributes),
                             random.pick(attributeDamages()).damage);
    case 2:
      return fillNumbers(file, random.pick(sound.numbers), random.pick(fillings()).damage);
    default: {
      const NumberPlace& place = random.pick(sound.numbers);
      const std::uint64_t row = random.below(256);
      return setNumber(file, place, row, anyNumber(random));
    }
  }
}

void damageByHdf5(const Sound& sound, const std::string& file, Random& random) {
  stripSeal(file);
  for (std::size_t left = random.below(4) + 1; left > 0; --left) {
    try {
      damage(sound, file, random);
    } catch (const std::exception&) {  // NOLINT(bugprone-empty-catch): its place is gone by now
    }
  }
}

void requireOneReason(store::StoreProvider& provider, const std::string& file) {
  const std::vector<std::string> errors = provider.getErrors(true, true);
  if (errors.size() != 1 || errors.front().rfind("Error:\n\t" + file + ": ", 0) != 0) {
    fuzzing::found("a file is refused without one reason that names it");
  }
}

void read(const std::string& file) {
  store::StoreProvider provider;
  if (!provider.startReading(file, dataClassCase)) {
    requireOneReason(provider, file);
  }
  for (const std::string& tooLarge : readEverything(provider).tooLarge) {
    fuzzing::found("a caller would have to allocate more than the file justifies: " + tooLarge);
  }
}

void check(const std::string& file) {
  const TestFactory factory([](const std::string&) { return new store::StoreProvider; });
  const StreamCapture streams;
  OrvChecker checker;
  checker.setCheckLevel(2);
  checker.checkCase(file);
}

}  // namespace
}  // namespace velto::testing

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace velto::testing;
  static const SoundFiles kFiles;
  Random random(data, size);
  const Sound& sound = kFiles.pick(random);
  const std::string file = kFiles.damagedFile();
  fs::copy_file(sound.file, file, fs::copy_options::overwrite_existing);
  if (random.chance(10)) {
    changeBytes(file, random);
  } else {
    damageByHdf5(sound, file, random);
  }
  read(file);
  check(file);
  return 0;
}
