// SPDX-License-Identifier: Apache-2.0
//
// What is said of each kind of bad file, word for word.

#include <algorithm>
#include <filesystem>

#include "tests/store/file_bytes.h"
#include "tests/store/hdf5_damage.h"
#include "tests/store/read_everything.h"
#include "tests/store/rich_cases.h"
#include "tests/store/store_files.h"

namespace velto::testing {
namespace {

using Texts = std::vector<std::string>;

/// A case with results in a folder; what is said of its files, the folder's name left out.
class DamagedFiles : public ::testing::Test {
 protected:
  DamagedFiles() { save(*cases::withResults(), folder_.path(), 0); }

  std::string path(const std::string& name) const { return folder_.path(name); }
  std::string caseFile() const { return path("case.orv"); }

  /// The case with its seal cut off, so that HDF5 may change it.
  std::string unsealedCase() const {
    stripSeal(caseFile());
    return caseFile();
  }

  /// What is pending when a file was refused.
  Texts refusal(const std::string& file, OrvDataClass dataClass = dataClassCase) const {
    store::StoreProvider provider;
    EXPECT_FALSE(provider.startReading(file, dataClass));
    std::vector<int> meshes = {99};
    provider.getMeshIds(meshes, dataClassCase);
    EXPECT_EQ(meshes, std::vector<int>());
    return withoutFolder(provider.getErrors(true, true));
  }

  Texts withoutFolder(Texts texts) const {
    const std::string folder = folder_.path() + "/";
    for (std::string& text : texts) {
      const std::size_t at = text.find(folder);
      if (at != std::string::npos) {
        text.erase(at, folder.size());
      }
    }
    return texts;
  }

  /// The first `count` texts without what follows a beginning: the system's own reason.
  static Texts withoutReason(Texts texts, const std::string& begin) {
    for (std::string& text : texts) {
      if (text.compare(0, begin.size(), begin) == 0) {
        text.resize(begin.size());
      }
    }
    return texts;
  }

 private:
  TempFolder folder_;
};

// --- Not a store file ---------------------------------------------------------------------------

TEST_F(DamagedFiles, MayBeNotThere) {
  EXPECT_FALSE(store::isStore(path("absent.orv")));
  EXPECT_EQ(refusal(path("absent.orv")),
            Texts({"Error:\n\tabsent.orv: cannot be opened: No such file or directory"}));
}

TEST_F(DamagedFiles, MayBeEmpty) {
  writeBytes(path("empty.orv"), "");
  EXPECT_TRUE(store::isStore(path("empty.orv")));
  EXPECT_EQ(refusal(path("empty.orv")), Texts({"Error:\n\tempty.orv: is no HDF5 file"}));
}

TEST_F(DamagedFiles, MayBeNoHdf5) {
  writeBytes(path("letter.orv"), "Dear reader, this is no case.");
  writeBytes(path("letter.txt"), "Dear reader, this is no case.");
  EXPECT_TRUE(store::isStore(path("letter.orv")));
  EXPECT_FALSE(store::isStore(path("letter.txt")));
  EXPECT_EQ(refusal(path("letter.orv")), Texts({"Error:\n\tletter.orv: is no HDF5 file"}));
}

TEST_F(DamagedFiles, MayBeAnotherProgramsHdf5) {
  writeForeignFile(path("foreign.orv"));
  writeForeignFile(path("foreign.h5"));
  EXPECT_TRUE(store::isStore(path("foreign.orv")));
  EXPECT_FALSE(store::isStore(path("foreign.h5")));
  EXPECT_EQ(refusal(path("foreign.orv")),
            Texts({"Error:\n\tforeign.orv: /format: this HDF5 file is no ORV case store"}));
}

TEST_F(DamagedFiles, AreRecognisedUnderAnyName) {
  std::filesystem::rename(caseFile(), path("case.h5"));
  EXPECT_TRUE(store::isStore(path("case.h5")));
  EXPECT_FALSE(store::isStore(path("")));
}

TEST_F(DamagedFiles, MayHoldResultsInsteadOfACase) {
  EXPECT_EQ(refusal(path("case.orvr")),
            Texts({"Error:\n\tcase.orvr: the file holds the results of a case and no case"}));
  EXPECT_EQ(refusal(path("case.orv"), dataClassResults),
            Texts({"Error:\n\tcase.orv: the file holds a case and no results"}));
}

TEST_F(DamagedFiles, MayHaveANewerLayout) {
  setRootNumbers(unsealedCase(), "layout", {2, 3});
  EXPECT_EQ(refusal(caseFile()), Texts({"Error:\n\tcase.orv: /layout: the file has layout 2.3, "
                                        "this program reads layout 1.0"}));
}

TEST_F(DamagedFiles, MayHaveANewerMinorLayout) {
  setRootNumbers(unsealedCase(), "layout", {1, 7});
  store::StoreProvider provider;
  EXPECT_TRUE(provider.startReading(caseFile(), dataClassCase));
  EXPECT_EQ(readEverything(provider).errors, Texts());
}

// --- Cut and changed ----------------------------------------------------------------------------

TEST_F(DamagedFiles, MayBeCut) {
  std::filesystem::resize_file(caseFile(), 1000);
  EXPECT_TRUE(store::isStore(caseFile()));
  const std::string begin = "Error:\n\tcase.orv: the file is cut, it has 1000 of ";
  EXPECT_EQ(withoutReason(refusal(caseFile()), begin), Texts({begin}));
}

TEST_F(DamagedFiles, MayHaveAnotherStructure) {
  flipBitOf(caseFile(), 100, 3);
  EXPECT_TRUE(store::isStore(caseFile()));
  EXPECT_EQ(refusal(caseFile()),
            Texts({"Error:\n\tcase.orv: the structure of the file was changed after it was "
                   "written, the file is damaged"}));
  std::filesystem::rename(caseFile(), path("case.h5"));
  EXPECT_FALSE(store::isStore(path("case.h5")));
}

TEST_F(DamagedFiles, MayHaveOtherValues) {
  flipBitOf(caseFile(), valuesOf(caseFile(), "/meshes/0/nodeCoordinates").begin + 20, 3);
  store::StoreProvider provider;
  ASSERT_TRUE(provider.startReading(caseFile(), dataClassCase));
  std::vector<int> zones;
  std::vector<double> values(24, -1);
  provider.beginNodeCoordinates(zones);
  EXPECT_EQ(provider.readNodeCoordinates(1, values.data(), values.size()), 0U);
  provider.endNodeCoordinates();
  EXPECT_EQ(values, std::vector<double>(24, 0));
  EXPECT_EQ(withoutFolder(provider.getErrors(true, true)),
            Texts({"Error:\n\tnode coordinates of zone 1: case.orv: /meshes/0/nodeCoordinates: "
                   "rows 0 to 23 do not fit their checksum, the file is damaged"}));
}

TEST_F(DamagedFiles, MayHaveADamagedChunk) {
  const cases::CasePtr packed = longCase();
  save(*packed, path(""), 9);
  const BytePlace chunk = valuesOf(caseFile(), "/meshes/0/nodeCoordinates");
  flipBitOf(caseFile(), chunk.begin, 3);  // in the number that a frame begins with
  store::StoreProvider provider;
  ASSERT_TRUE(provider.startReading(caseFile(), dataClassCase));
  const int zone = packed->mesh().idsOf(zoneCategoryNode).front();
  std::vector<int> zones;
  std::vector<double> values(3 * packed->mesh().zoneSize(zone, zoneElementCount), -1);
  provider.beginNodeCoordinates(zones);
  provider.readNodeCoordinates(zone, values.data(), values.size());
  provider.endNodeCoordinates();
  EXPECT_EQ(values, std::vector<double>(values.size(), 0));
  EXPECT_EQ(withoutFolder(provider.getErrors(true, true)),
            Texts({"Error:\n\tnode coordinates of zone 1: case.orv: /meshes/0/nodeCoordinates: the "
                   "chunk of row 0 cannot be unpacked: not a zstd frame"}));
}

// --- Claims -------------------------------------------------------------------------------------

TEST_F(DamagedFiles, MayLackADataset) {
  damageDataset(unsealedCase(), "/meshes/0/nodeCoordinates", DatasetDamage::removed);
  EXPECT_EQ(refusal(caseFile()),
            Texts({"Error:\n\tcase.orv: /meshes/0/nodeCoordinates: the dataset is missing"}));
}

TEST_F(DamagedFiles, MayHaveNumbersOfAnotherType) {
  damageDataset(unsealedCase(), "/meshes/0/nodeCoordinates", DatasetDamage::floats);
  EXPECT_EQ(
      refusal(caseFile()),
      Texts({"Error:\n\tcase.orv: /meshes/0/nodeCoordinates: the numbers have another type"}));
}

TEST_F(DamagedFiles, MayHaveFewerRowsThanTheySay) {
  damageDataset(unsealedCase(), "/meshes/0/nodeCoordinates", DatasetDamage::shorter);
  EXPECT_EQ(refusal(caseFile()),
            Texts({"Error:\n\tcase.orv: /meshes/0/nodeCoordinates: zone 1 has 24 rows from row 0 "
                   "on, only 23 are there"}));
}

TEST_F(DamagedFiles, MayClaimRowsWithoutStorage) {
  damageDataset(unsealedCase(), "/meshes/0/nodeCoordinates", DatasetDamage::claimsChunks);
  EXPECT_EQ(refusal(caseFile()),
            Texts({"Error:\n\tcase.orv: /meshes/0/nodeCoordinates: 1152921504606846976 numbers "
                   "need 1125899906842624 chunks, 0 are there"}));
}

TEST_F(DamagedFiles, MayClaimRowsWithoutAPlace) {
  damageDataset(unsealedCase(), "/meshes/0/nodeCoordinates", DatasetDamage::claimsRoom);
  EXPECT_EQ(refusal(caseFile()),
            Texts({"Error:\n\tcase.orv: /meshes/0/nodeCoordinates: 576460752303423488 numbers are "
                   "claimed, which the file does not hold"}));
}

TEST_F(DamagedFiles, MayClaimRowsOfATable) {
  damageDataset(unsealedCase(), "/meshes/0/arrays", DatasetDamage::claimsOneHeld);
  EXPECT_EQ(refusal(caseFile()),
            Texts({"Error:\n\tcase.orv: /meshes/0/arrays: 1099511627776 rows of 48 bytes are "
                   "claimed, which the file does not hold"}));
}

/// Puts a filling into a column of a table.
void fillColumn(const std::string& file, const std::string& table, const std::string& column,
                Filling filling) {
  const std::vector<NumberPlace> numbers = numbersOf(file);
  const auto found = std::find_if(numbers.begin(), numbers.end(), [&](const NumberPlace& place) {
    return place.dataset == table && place.column == column;
  });
  ASSERT_NE(found, numbers.end());
  fillNumbers(file, *found, filling);
}

TEST_F(DamagedFiles, MayClaimCells) {
  damageAttribute(unsealedCase(), {"/meshes/0", "cells"}, AttributeDamage::largest);
  EXPECT_EQ(refusal(caseFile()),
            Texts({"Error:\n\tcase.orv: /meshes/0: 9223372036854775807 cells are claimed, but the "
                   "arrays hold 54 numbers in all"}));
}

TEST_F(DamagedFiles, MayClaimElements) {
  fillColumn(unsealedCase(), "/meshes/0/zones", "elements", Filling::millions);
  EXPECT_EQ(refusal(caseFile()),
            Texts({"Error:\n\tcase.orv: /meshes/0: 16777216 elements of zone 1 are claimed, but "
                   "the arrays hold 54 numbers in all"}));
}

TEST_F(DamagedFiles, MayClaimElementsWithThreeCoordinatesThatNobodyCounts) {
  unsealedCase();
  fillColumn(caseFile(), "/meshes/0/zones", "dimension", Filling::zeros);
  fillColumn(caseFile(), "/meshes/0/zones", "elements", Filling::millions);
  EXPECT_EQ(refusal(caseFile()),
            Texts({"Error:\n\tcase.orv: /meshes/0: 16777216 elements of zone 1 are claimed, but "
                   "the arrays hold 54 numbers in all"}));
}

TEST_F(DamagedFiles, MayClaimIds) {
  fillColumn(unsealedCase(), "/meshes/0/zones", "lastId", Filling::largest);
  EXPECT_EQ(refusal(caseFile()),
            Texts({"Error:\n\tcase.orv: /meshes/0: 9223372036854775807 ids of zone 1 are claimed, "
                   "but the arrays hold 54 numbers in all"}));
}

TEST_F(DamagedFiles, MayClaimValuesOfAField) {
  const std::string results = path("case.orvr");
  stripSeal(results);
  fillColumn(results, "/meshes/0/fields", "valuesPerEntity", Filling::millions);
  EXPECT_EQ(refusal(results, dataClassResults),
            Texts({"Error:\n\tcase.orvr: /meshes/0/fields: 8 elements of zone 1 claim 16777216 "
                   "values each of temperature, but it holds 8"}));
}

TEST_F(DamagedFiles, MayClaimElementsOfAField) {
  const std::string results = path("case.orvr");
  stripSeal(results);
  fillColumn(results, "/meshes/0/zones", "elements", Filling::largest);
  EXPECT_EQ(refusal(results, dataClassResults),
            Texts({"Error:\n\tcase.orvr: /meshes/0/fields: 9223372036854775807 elements of zone 1 "
                   "claim 1 values each of temperature, but it holds 8"}));
}

}  // namespace
}  // namespace velto::testing
