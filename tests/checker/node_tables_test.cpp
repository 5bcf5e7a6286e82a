// SPDX-License-Identifier: Apache-2.0
//
// The nodes of all faces and of all cells in memory. The two tables follow the same rules, so that
// what concerns both runs over both.

#include <tuple>

#include "tests/checker/ConnectivityFixture.h"
#include "tests/checker/checker_access.h"

namespace velto::testing {
namespace {

using base::Family;
using checker_access::NodeTables;
using memory::Ids;

/// The faces, or the cells.
struct Twin {
  const char* name;
  Family family;
  OrvMeshSizeType total;
  bool (*read)(OrvChecker&);
  NodeTables (*tables)(OrvChecker&);
  std::string sizeCall;
  std::string beginCall;
  std::string error;
  std::string error2;
  std::string steps;
};

std::ostream& operator<<(std::ostream& out, const Twin& twin) { return out << twin.name; }

const std::vector<Twin>& twins() {
  static const std::vector<Twin> kTwins = {
      {"Faces", Family::faceNodes, meshFaceCount, checker_access::readFaceNodes,
       checker_access::faceNodeTables, "getMeshSize(3)", "beginFaceNodes",
       "readFaceNodes : Logic error in face connectivity index",
       "readFaceNodes : Logic error 2 in face connectivity index",
       "- readFaceNodes - init\n"
       "- readFaceNodes - node counts\n"
       "- readFaceNodes - node ids\n"
       "- readFaceNodes - face index\n"},
      {"Cells", Family::cellNodes, meshCellCount, checker_access::readCellNodes,
       checker_access::cellNodeTables, "getMeshSize(4)", "beginCellNodes",
       "readCellNodes : Logic error in cell connectivity index",
       "readCellNodes : Logic error 2 in cell connectivity index",
       "- readCellNodes - init\n"
       "- readCellNodes - node counts\n"
       "- readCellNodes - node ids\n"
       "- readCellNodes - cell index\n"}};
  return kTwins;
}

/// The entries as texts: "4 at 0:8" for 4 nodes from place 8 of the first list, "-" for none,
/// "4 aside" for nodes that lie in no list.
Texts entriesOf(const NodeTables& tables) {
  EXPECT_EQ(tables.pointers.size(), tables.counts.size());
  Texts entries;
  for (std::size_t i = 0; i < tables.pointers.size(); ++i) {
    const std::uint64_t* const nodes = tables.pointers[i];
    std::string entry = std::to_string(tables.counts[i]) + " aside";
    if (nodes == nullptr && tables.counts[i] == 0) {
      entry = "-";
    }
    for (std::size_t list = 0; list < tables.ids.size(); ++list) {
      for (std::size_t place = 0; place < tables.ids[list].size(); ++place) {
        if (nodes == &tables.ids[list][place]) {
          entry = std::to_string(tables.counts[i]) + " at " + std::to_string(list) + ":" +
                  std::to_string(place);
        }
      }
    }
    entries.push_back(entry);
  }
  return entries;
}

enum class LogicError { none, tooMany, pastTheEnd };

struct TableRow {
  const char* name;
  std::uint64_t total;
  std::vector<ZoneLists> zones;
  LogicError error;
  Texts entries;
  std::vector<Ids> ids;
};

std::ostream& operator<<(std::ostream& out, const TableRow& row) { return out << row.name; }

std::vector<TableRow> rowsOfTotals() {
  return {
      {"OneZone",
       2,
       {{2, 2, 2, {}, {5, 6, 7, 8}}},
       LogicError::none,
       {"2 at 0:0", "2 at 0:2"},
       {{5, 6, 7, 8}}},
      {"ZonesInTheOrderOfTheirList",
       4,
       {{9, 2, {}, {1, 3}, {5, 6, 7, 8}}, {-2, 2, 1, {}, {3, 4}}},
       LogicError::none,
       {"1 at 0:0", "3 at 0:1", "1 at 1:0", "1 at 1:1"},
       {{5, 6, 7, 8}, {3, 4}}},
      {"NoZones", 3, {}, LogicError::none, {"-", "-", "-"}, {}},
      {"NoZonesOfAnEmptyMesh", 0, {}, LogicError::none, {}, {}},
      {"FewerThanTheTotal",
       3,
       {{2, 1, 2, {}, {5, 6}}},
       LogicError::none,
       {"2 at 0:0", "-", "-"},
       {{5, 6}}},
      {"OneMoreThanTheTotal",
       2,
       {{2, 3, 1, {}, {5, 6, 7}}},
       LogicError::none,
       {"1 at 0:0", "1 at 0:1"},
       {{5, 6, 7}}},
      {"TwoMoreThanTheTotal",
       2,
       {{2, 4, 1, {}, {5, 6, 7, 8}}},
       LogicError::tooMany,
       {"1 at 0:0", "1 at 0:1"},
       {{5, 6, 7, 8}}},
      {"OneMoreInAnotherZone",
       1,
       {{2, 1, 1, {}, {5}}, {4, 1, 1, {}, {6}}},
       LogicError::none,
       {"1 at 0:0"},
       {{5}, {6}}},
      {"TwoMoreInAnotherZone",
       1,
       {{2, 2, 1, {}, {5, 6}}, {4, 1, 1, {}, {7}}},
       LogicError::tooMany,
       {"1 at 0:0"},
       {{5, 6}, {7}}},
      {"OneOfAnEmptyMesh", 0, {{2, 1, 1, {}, {5}}}, LogicError::none, {}, {{5}}},
      {"TwoOfAnEmptyMesh", 0, {{2, 2, 1, {}, {5, 6}}}, LogicError::tooMany, {}, {{5, 6}}},
      {"TheSpareOneIsHeldAgainstItsList",
       1,
       {{2, 2, {}, {2, 0}, {5, 6}}},
       LogicError::pastTheEnd,
       {"2 at 0:0"},
       {{5, 6}}},
      {"TooManyComesFirst",
       1,
       {{2, 3, {}, {1, 1, 0}, {5, 6}}},
       LogicError::tooMany,
       {"1 at 0:0"},
       {{5, 6}}},
  };
}

std::vector<TableRow> rowsOfCounts() {
  return {
      {"AZoneWithoutElements",
       1,
       {{2, 0, 4, {}, {5}}, {3, 1, 2, {}, {7, 8}}, {4, 0, {}, {2}, {5}}},
       LogicError::none,
       {"2 at 1:0"},
       {{}, {7, 8}, {}}},
      {"AnElementWithoutNodesInside",
       3,
       {{2, 3, {}, {1, 0, 1}, {5, 6}}},
       LogicError::none,
       {"1 at 0:0", "0 at 0:1", "1 at 0:1"},
       {{5, 6}}},
      {"AnElementWithoutNodesAtTheEnd",
       3,
       {{2, 3, {}, {1, 1, 0}, {5, 6}}},
       LogicError::pastTheEnd,
       {"1 at 0:0", "1 at 0:1", "-"},
       {{5, 6}}},
      {"AnEmptyList", 2, {{2, 2, 0, {}, {}}}, LogicError::pastTheEnd, {"-", "-"}, {{}}},
      {"AnEmptyListBehindAFullOne",
       2,
       {{2, 1, 1, {}, {5}}, {3, 1, {}, {0}, {}}},
       LogicError::pastTheEnd,
       {"1 at 0:0", "-"},
       {{5}, {}}},
      {"CountsThatAreNotThere",
       2,
       {{2, 2, {}, {}, {5, 6}}},
       LogicError::pastTheEnd,
       {"-", "-"},
       {{}}},
      {"IdsThatAreNotThere",
       2,
       {{2, 2, 2, {}, {5, 6, 7}}},
       LogicError::none,
       {"2 at 0:0", "2 at 0:2"},
       {{5, 6, 7, 0}}},
      {"ANegativeCountThatGoesBackward",
       3,
       {{2, 3, {}, {3, -2, 3}, {5, 6, 7, 8}}},
       LogicError::none,
       {"3 at 0:0", "-2 at 0:3", "3 at 0:1"},
       {{5, 6, 7, 8}}},
      {"ANegativeCountBeforeTheBeginning",
       3,
       {{2, 3, {}, {1, -2, 3}, {5, 6}}},
       LogicError::pastTheEnd,
       {"1 at 0:0", "-2 at 0:1", "-"},
       {{5, 6}}},
      {"ANegativeCountAtTheEnd",
       2,
       {{2, 2, {}, {3, -2}, {5}}},
       LogicError::pastTheEnd,
       {"3 aside", "-"},
       {{5}}},
      {"AListThatIsCutShort",
       3,
       {{2, 3, {}, {2, 4, -2}, {5, 6, 7, 8}}},
       LogicError::pastTheEnd,
       {"2 at 0:0", "4 aside", "-"},
       {{5, 6, 7, 8}}},
      {"TheLastOneMayEndBeforeItsList",
       1,
       {{2, 1, 4, {}, {5, 6, 7, 8}}, {3, 1, {}, {1}, {4}}},
       LogicError::none,
       {"4 at 0:0"},
       {{5, 6, 7, 8}, {4}}},
  };
}

const std::vector<TableRow>& tableRows() {
  static const std::vector<TableRow> kRows = joined(rowsOfTotals(), rowsOfCounts());
  return kRows;
}

class NodeTablesFixture : public ConnectivityFixture {
 protected:
  static cases::CasePtr make(const Twin& twin, std::uint64_t total,
                             const std::vector<ZoneLists>& zones) {
    cases::CasePtr made = cases::oneHex();
    setLists(*made, twin.family, zones);
    made->mesh().sizes[static_cast<std::size_t>(twin.total)] = total;
    return made;
  }

  Texts errorsOf(const Twin& twin, LogicError error) {
    switch (error) {
      case LogicError::none:
        return {};
      case LogicError::tooMany:
        return {twin.error};
      case LogicError::pastTheEnd:
        return {twin.error2};
    }
    return {};
  }
};

class NodeTablesRows : public NodeTablesFixture,
                       public ::testing::WithParamInterface<std::tuple<Twin, TableRow>> {};

TEST_P(NodeTablesRows, AreBuilt) {
  const auto& [twin, row] = GetParam();
  const CheckResult result = run(make(twin, row.total, row.zones), twin.read);
  EXPECT_EQ(result.good, row.error == LogicError::none);
  EXPECT_EQ(result.errors, errorsOf(twin, row.error));
  EXPECT_EQ(result.warnings, Texts());
  EXPECT_EQ(result.out, "");
  const NodeTables tables = twin.tables(checker);
  EXPECT_EQ(tables.ids, row.ids);
  EXPECT_EQ(entriesOf(tables), row.entries);
}

INSTANTIATE_TEST_SUITE_P(NodeTables, NodeTablesRows,
                         ::testing::Combine(::testing::ValuesIn(twins()),
                                            ::testing::ValuesIn(tableRows())),
                         [](const auto& row) {
                           return std::string(std::get<0>(row.param).name) +
                                  std::get<1>(row.param).name;
                         });

class EitherNodeTables : public NodeTablesFixture, public ::testing::WithParamInterface<Twin> {};

INSTANTIATE_TEST_SUITE_P(NodeTables, EitherNodeTables, ::testing::ValuesIn(twins()),
                         [](const auto& twin) { return std::string(twin.param.name); });

TEST_P(EitherNodeTables, ShowStepsFromVerbosityThreeAndNoBadIds) {
  const Twin& twin = GetParam();
  const cases::CasePtr read = make(twin, 1, {{2, 1, 2, {}, {0, 99}}});
  const CheckResult loud = run(read, twin.read, 3);
  EXPECT_EQ(loud.out, twin.steps);
  EXPECT_EQ(loud.err, "");
  EXPECT_EQ(run(read, twin.read, 2).out, "");
}

TEST_P(EitherNodeTables, HaveZerosBehindAListThatIsCutShort) {
  const Twin& twin = GetParam();
  run(make(twin, 3, {{2, 3, {}, {2, 4, -2}, {5, 6, 7, 8}}}), twin.read);
  const std::uint64_t* const nodes = twin.tables(checker).pointers[1];
  EXPECT_EQ(Ids(nodes, nodes + 4), Ids({7, 8, 0, 0}));
}

TEST_P(EitherNodeTables, GoOnWithASumThatWraps) {
  const Twin& twin = GetParam();
  const CheckResult result =
      run(make(twin, 131077, {{2, 131077, {}, std::vector<short>(131077, 32767), Ids(40000, 7)}}),
          twin.read);
  EXPECT_FALSE(result.good);
  EXPECT_EQ(result.errors, Texts({twin.error2}));
  const NodeTables tables = twin.tables(checker);
  EXPECT_EQ(tables.ids, std::vector<Ids>({Ids(32763, 7)}));
  EXPECT_EQ(tables.counts.size(), 131077);
  EXPECT_EQ(tables.counts[0], 32767);
  Ids first(32763, 7);
  first.resize(32767, 0);
  EXPECT_EQ(Ids(tables.pointers[0], tables.pointers[0] + 32767), first);
  EXPECT_EQ(tables.pointers[1], nullptr);
}

TEST_P(EitherNodeTables, TakeTheListOfTheFamilyInPlaceOfTheZones) {
  const Twin& twin = GetParam();
  prepare([&twin](ScriptedProvider& p) { p.answerList(twin.beginCall, {4, 2}); });
  const CheckResult result =
      run(make(twin, 2, {{2, 1, 1, {}, {5}}, {3, 1, 1, {}, {6}}, {4, 1, 1, {}, {7}}}), twin.read);
  EXPECT_TRUE(result.good);
  EXPECT_EQ(result.warnings, Texts());
  EXPECT_EQ(twin.tables(checker).ids, std::vector<Ids>({{7}, {5}}));
  EXPECT_EQ(entriesOf(twin.tables(checker)), Texts({"1 at 0:0", "1 at 1:0"}));
}

TEST_P(EitherNodeTables, TakeAZoneThatIsListedTwiceTwice) {
  const Twin& twin = GetParam();
  prepare([&twin](ScriptedProvider& p) { p.answerList(twin.beginCall, {2, 9, 2}); });
  EXPECT_TRUE(run(make(twin, 2, {{2, 1, 1, {}, {5}}}), twin.read).good);
  EXPECT_EQ(twin.tables(checker).ids, std::vector<Ids>({{5}, {}, {5}}));
  EXPECT_EQ(entriesOf(twin.tables(checker)), Texts({"1 at 0:0", "1 at 2:0"}));
}

TEST_P(EitherNodeTables, TakeZonesWhateverTheirKindIs) {
  const Twin& twin = GetParam();
  open(make(twin, 1, {{2, 1, 1, {}, {5}}}));
  checker_access::cellZoneConnectivityTypes(checker) = {1};
  EXPECT_TRUE(runStep(twin.read).good);
  EXPECT_EQ(entriesOf(twin.tables(checker)), Texts({"1 at 0:0"}));
}

TEST_P(EitherNodeTables, AreBuiltAnewForASmallerMesh) {
  const Twin& twin = GetParam();
  run(make(twin, 3, {{2, 2, 1, {}, {5, 6}}, {3, 1, 1, {}, {7}}}), twin.read);
  run(make(twin, 2, {{2, 1, 2, {}, {8}}}), twin.read);
  EXPECT_EQ(twin.tables(checker).ids, std::vector<Ids>({{8, 0}}));
  EXPECT_EQ(entriesOf(twin.tables(checker)), Texts({"2 at 0:0", "-"}));
  run(make(twin, 0, {}), twin.read);
  EXPECT_EQ(twin.tables(checker).ids, std::vector<Ids>());
  EXPECT_EQ(entriesOf(twin.tables(checker)), Texts());
}

TEST_P(EitherNodeTables, AreBuiltAnewAfterALogicError) {
  const Twin& twin = GetParam();
  prepare([&twin](ScriptedProvider& p) {
    p.on(twin.sizeCall, 2, [&twin](base::CaseCore& core) {
      core.tables.meshes.begin()->second.sizes[static_cast<std::size_t>(twin.total)] = 4;
    });
  });
  const cases::CasePtr opened = make(twin, 1, {{2, 3, 1, {}, {5, 6, 7}}});
  EXPECT_FALSE(run(opened, twin.read).good);
  EXPECT_TRUE(runStep(twin.read).good);
  EXPECT_EQ(entriesOf(twin.tables(checker)), Texts({"1 at 0:0", "1 at 0:1", "1 at 0:2", "-"}));
  EXPECT_EQ(checker.getErrors(), Texts({twin.error}));
}

TEST_P(EitherNodeTables, GoWithTheCopiesOfACheckerAndPointIntoItsLists) {
  const Twin& twin = GetParam();
  run(make(twin, 2, {{2, 1, 2, {}, {5, 6}}}), twin.read);
  OrvChecker copy(checker);
  OrvChecker assigned;
  assigned = checker;
  const NodeTables source = twin.tables(checker);
  for (OrvChecker* other : {&copy, &assigned}) {
    const NodeTables tables = twin.tables(*other);
    EXPECT_EQ(tables.ids, std::vector<Ids>({{5, 6}}));
    EXPECT_NE(tables.ids[0].data(), source.ids[0].data());
    EXPECT_EQ(tables.pointers, source.pointers);
    EXPECT_EQ(tables.counts, std::vector<int>({2, 0}));
  }
  EXPECT_EQ(source.pointers, std::vector<std::uint64_t*>({source.ids[0].data(), nullptr}));
}

TEST_P(EitherNodeTables, StayAfterARun) {
  const Twin& twin = GetParam();
  run(make(twin, 1, {{2, 1, 2, {}, {5, 6}}}), twin.read);
  serve(cases::oneHex());
  checker.setCheckLevel(2);
  EXPECT_TRUE(check().good);
  EXPECT_EQ(entriesOf(twin.tables(checker)), Texts({"2 at 0:0"}));
}

TEST_P(EitherNodeTables, LeaveAListThatCannotBeHadToTheCaller) {
  const Twin& twin = GetParam();
  for (const ZoneLists& zone : listsThatCannotBeHad(2)) {
    open(make(twin, 6, {zone}));
    EXPECT_TRUE(wantsMemory(twin.read));
    expectToBeUsable();
    EXPECT_TRUE(run(make(twin, 1, {{2, 1, 2, {}, {5, 6}}}), twin.read).good);
    EXPECT_EQ(entriesOf(twin.tables(checker)), Texts({"2 at 0:0"}));
  }
}

TEST_P(EitherNodeTables, LeaveLibraryErrorsToTheRun) {
  const Twin& twin = GetParam();
  prepare([&twin](ScriptedProvider& p) { failOn(p, twin.beginCall); });
  const CheckResult result = run(make(twin, 1, {{2, 1, 2, {}, {5, 6}}}), twin.read);
  EXPECT_TRUE(result.good);
  EXPECT_EQ(result.errors, Texts());
  EXPECT_EQ(callsOf({"hasWarning", "hasError"}), Transcript());
}

}  // namespace
}  // namespace velto::testing
