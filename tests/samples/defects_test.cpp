// SPDX-License-Identifier: Apache-2.0
//
// Every defect is found, with nothing beside it but what stands here, and every message that a case
// file can provoke has a defect.

#include "samples/defects.h"

#include <algorithm>
#include <fstream>
#include <gtest/gtest.h>
#include <map>
#include <set>

#include "embedded/memory/MemoryProvider.h"
#include "samples/samples.h"
#include "tests/samples/run_checker.h"

namespace velto::testing {
namespace {

using samples::Defect;

/// What a checker says of each damaged case at the level that finds the damage.
struct Expected {
  Texts errors;
  Texts warnings;
};

const std::map<std::string, Expected>& expectations() {
  static const std::map<std::string, Expected> kExpectations = {
      {"two-targets",
       {{}, {"checkCase : ORV file with multiple target types - support is limited"}}},
      {"no-version", {{"checkVersion : ORV version number invalid"}, {}}},
      {"newer-major",
       {{}, {"checkVersion : ORV Major version number is newer - compatibility might be limited"}}},
      {"newer-minor",
       {{}, {"checkVersion : ORV Minor version number is newer - compatibility might be limited"}}},
      {"newer-patch",
       {{}, {"checkVersion : ORV patch version number is newer - compatibility might be limited"}}},
      {"no-solver-type", {{"checkSolverType : Empty solver type"}, {}}},
      {"generic-solver-type",
       {{}, {"checkSolverType : File with undefined / ORV_GENERIC solver type"}}},
      {"unknown-solver-type", {{}, {"checkSolverType : File with unknown solver type"}}},
      {"one-dimensional", {{"checkMeshSize : Invalid mesh dimension"}, {}}},
      {"no-nodes", {{"checkMeshSize : The mesh has cell/faces but no nodes"}, {}}},
      {"unbounded-cell-zone", {{"checkMeshConnectivity : No face zones bound cell zone [9]"}, {}}},
      {"bounding-zone-missing",
       {{"checkMeshConnectivity : Cell zone [9] is bounded by a Face zone [99] that doesn't exist."},
        {}}},
      {"post-bounding-zones",
       {{"checkMeshConnectivity : Cell zone [8] is bounded by Face zones in ORV Post mesh (1)."},
        {}}},
      {"side-zone-missing",
       {{"checkMeshConnectivity : Face zone [3] bounds Cell zone [99] that doesn't exist."}, {}}},
      {"post-side-zones",
       {{"checkMeshConnectivity : Face zone [2] found to bound cell zones in a ORV Post mesh (1)."},
        {}}},
      {"untold-cells",
       {{"checkCellZoneConnectivityTypes : Cell zone [8] with  unexpected connectivity in ORV Post mesh (1)."},
        {}}},
      {"polyhedra-type",
       {{},
        {"checkCellZoneConnectivityTypes : Polyhedral cell zone (9) doesn't have correct type."}}},
      {"no-node-zones", {{"checkNodeZones : Non-zero node count and no node zones"}, {}}},
      {"no-node-count", {{"checkNodeZones : Non-zero node zones with no global node count"}, {}}},
      {"no-face-zones", {{"checkFaceZones : Non-zero face count and no face zones"}, {}}},
      {"no-face-count", {{"checkFaceZones : Non-zero face zones with no global face count"}, {}}},
      {"no-cell-zones", {{"checkCellZones : Non-zero cell count and no cell zones"}, {}}},
      {"no-cell-count", {{"checkCellZones : Non-zero cell zones with no global cell count"}, {}}},
      {"zone-size", {{"checkFaceZones : Error in zone size / start / end"}, {}}},
      {"overlap", {{"checkFaceZones : Overlapping Face ranges"}, {}}},
      {"gap", {{"checkFaceZones : Face zones do not cover the full range of declared Faces"}, {}}},
      {"face-count",
       {{"checkFaceZones : Mismatch in Face zones content and total number of Faces"}, {}}},
      {"face-range", {{"checkFaceZones : Face zones total range doesnt match [1,nmax]"}, {}}},
      {"unnamed-zone", {{}, {"checkFaceZones : Empty Face zone name"}}},
      {"zone-dimension",
       {{"checkFaceZones : Zone dimension inconsistent with mesh dimension"}, {}}},
      {"face-zone-type", {{"checkFaceZones : Invalid face zone type"}, {}}},
      {"no-face-type", {{}, {"checkFaceZones : Face type was not set"}}},
      {"face-type", {{"checkFaceZones : Invalid face type"}, {}}},
      {"face-child", {{"checkFaceZones : Face zone child zone id invalid"}, {}}},
      {"face-parent0", {{"checkFaceZones : Face zone parent0 zone id invalid"}, {}}},
      {"face-parent1", {{"checkFaceZones : Face zone parent1 zone id invalid"}, {}}},
      {"face-shadow", {{"checkFaceZones : Face zone shadow zone id invalid"}, {}}},
      {"one-way-shadow", {{"checkFaceZones : Face zone shadow link is not bilateral"}, {}}},
      {"no-cell-type",
       {{"checkCellZones : Cell type was not set - mandatory for a face-node zone"}, {}}},
      {"no-post-cell-type", {{}, {"checkCellZones : Cell type was not set"}}},
      {"cell-type", {{"checkCellZones : Invalid cell type"}, {}}},
      {"cell-child", {{"checkCellZones : Cell zone child zone id invalid"}, {}}},
      {"model-of-post",
       {{},
        {"checkTopologyModel : Found a location model in a file that doesn't contain a ORV Restart mesh."}}},
      {"unnamed-body",
       {{"checkPhysicsToMeshMapUsingTopologyModel : Location Model contains an unnamed body (18)."},
        {}}},
      {"wall-in-body",
       {{"checkPhysicsToMeshMapUsingTopologyModel : Body (channel) refers to a face zone (6) that isn't of type 'interior'."},
        {}}},
      {"unnamed-interior",
       {{"checkPhysicsToMeshMapUsingTopologyModel : Body (channel) refers to an interior face zone (3) that isn't named."},
        {"checkFaceZones : Empty Face zone name"}}},
      {"body-zone-missing",
       {{"checkPhysicsToMeshMapUsingTopologyModel : Body (channel) refers to a zone (99) that isn't a valid cell zone or a valid face zone or doesn't exit at all."},
        {}}},
      {"face-use-zone-missing",
       {{"checkPhysicsToMeshMapUsingTopologyModel : Location Model contains a face use (channel inlet) that refers to a face zone (99that doesn't exist in the mesh (1)"},
        {}}},
      {"unnamed-composite",
       {{"checkPhysicsToMeshMapUsingTopologyModel : Location Model contains an unnamed composite (16)."},
        {}}},
      {"composite-body-missing",
       {{"checkPhysicsToMeshMapUsingTopologyModel : Location Model contains a composite (metal) that refers to a body (99) that doesn't exist in the Location Model."},
        {}}},
      {"composite-face-use-missing",
       {{"checkPhysicsToMeshMapUsingTopologyModel : Location Model contains a composite (wetted) that refers to a face use (99) that doesn't exist in the Location Model."},
        {}}},
      {"nodes-alone",
       {{"checkPhysicsToMeshMapUsingTopologyModel : Unable to build location model: There are no face zones defined in the mesh model.",
         "checkPhysicsToMeshMapUsingTopologyModel : Failed to build location model."},
        {}}},
      {"faces-alone",
       {{"checkPhysicsToMeshMapUsingTopologyModel : Unable to build location model: There are no cell zones defined in the mesh model.",
         "checkPhysicsToMeshMapUsingTopologyModel : Failed to build location model."},
        {}}},
      {"same-named-bodies",
       {{"checkPhysicsToMeshMapUsingTopologyModel : Unable to define body 'fluid'",
         "checkPhysicsToMeshMapUsingTopologyModel : Failed to build location model."},
        {}}},
      {"same-named-contacts",
       {{"checkPhysicsToMeshMapUsingTopologyModel : Unable to build location model: Cannot define face use for an invalid face side of 'between'.",
         "checkPhysicsToMeshMapUsingTopologyModel : Failed to build location model."},
        {}}},
      {"two-bodies-on-side-0",
       {{"checkPhysicsToMeshMapUsingTopologyModel : Unable to build location model: Face zone 6'fluid walls' bounds mode than one cell zone on side 0.",
         "checkPhysicsToMeshMapUsingTopologyModel : Failed to build location model."},
        {}}},
      {"two-bodies-on-side-1",
       {{"checkPhysicsToMeshMapUsingTopologyModel : Unable to build location model: Face zone 9'between' bounds mode than one cell zone on side 1.",
         "checkPhysicsToMeshMapUsingTopologyModel : Failed to build location model."},
        {}}},
      {"no-physics",
       {{}, {"checkPhysicsToMeshMapUsingTopologyModel : No Physics Model - skipped"}}},
      {"no-location",
       {{},
        {"checkBoundary : inflow' ORV physics model doesn't include required 'location' setting."}}},
      {"no-domain",
       {{},
        {"checkSubdomain : heating' ORV physics model doesn't include optional 'domain' setting."}}},
      {"wrong-location",
       {{"checkDomain : The attribute 'location' of 'water' references locations that don't exist in the location model."},
        {}}},
      {"no-face-nodes",
       {{}, {"checkFaceConnectivity : Not all face zones define node connectivity"}}},
      {"face-node-range", {{"checkFaceConnectivity : Face node ids out of node id range"}, {}}},
      {"cell-node-range", {{"checkCellConnectivity : Cell node ids out of node id range"}, {}}},
      {"cell-face-range", {{"checkCellConnectivity : Cell face ids out of face id range"}, {}}},
      {"cells-told-twice",
       {{"checkCellConnectivity : Cell-zones: Inconsistency in cell zone definitions"}, {}}},
      {"uncounted-faces",
       {{"checkFaceZones : Mismatch in Face zones content and total number of Faces",
         "readFaceNodes : Logic error in face connectivity index"},
        {}}},
      {"uncounted-cells",
       {{"checkCellZones : Mismatch in Cell zones content and total number of Cells",
         "readCellNodes : Logic error in cell connectivity index"},
        {}}},
      {"empty-cell", {{"readCellNodes : Logic error 2 in cell connectivity index"}, {}}},
      {"empty-face", {{"readFaceNodes : Logic error 2 in face connectivity index"}, {}}},
      {"no-cell-types",
       {{}, {"checkCellsFromFaces_facenode : cell_face mesh with no cell-type are unsupported"}}},
      {"side-0-cell-missing",
       {{"checkCellsFromFaces_cellnode : Cell 0 (65) for face 145 is invalid"}, {}}},
      {"side-1-cell-missing",
       {{"checkCellsFromFaces_cellnode : Cell 1 (0) for face 1 is invalid"}, {}}},
      {"unknown-cell-type",
       {{}, {"checkCellsFromFaces_facenode : Cells of unsupported type encountered"}}},
      {"missing-facets", {{"checkCellsFromFaces_facenode : Cells with missing facets: 16"}, {}}},
      {"excess-facets",
       {{"checkCellsFromFaces_facenode : Cells with too many facets attached: 1"}, {}}},
      {"side-0-cell-wrong",
       {{"checkCellsFromFaces_cellnode : Node connectivity error in face-cell c0 pair"}, {}}},
      {"side-1-cell-wrong",
       {{"checkCellsFromFaces_cellnode : Node connectivity error in face-cell c1 pair"}, {}}},
      {"shadow-range",
       {{"checkFacesShadowZones : Face shadow facet ids are out of target shadow range"}, {}}},
  };
  return kExpectations;
}

class Defects : public ::testing::TestWithParam<std::string> {
 protected:
  const Defect& defect = *samples::findDefect(GetParam());
  const Expected& expected = expectations().at(GetParam());
};

std::vector<std::string> allNames() {
  std::vector<std::string> names;
  for (const Defect& defect : samples::defects()) {
    names.emplace_back(defect.name);
  }
  return names;
}

std::string defectName(const ::testing::TestParamInfo<std::string>& info) {
  std::string name = info.param;
  std::replace(name.begin(), name.end(), '-', '_');
  return name;
}

TEST_P(Defects, AreFoundAndNothingElseIs) {
  const auto damaged = makeDefect(defect);
  const Findings findings =
      runChecker([&damaged] { return new memory::MemoryProvider(damaged); }, defect.checkLevel);
  EXPECT_EQ(findings.errors, expected.errors);
  EXPECT_EQ(findings.warnings, expected.warnings);
}

TEST_P(Defects, SayWhatTheCheckerFinds) {
  const Texts& findings = defect.isError ? expected.errors : expected.warnings;
  EXPECT_EQ(std::count(findings.begin(), findings.end(), defect.finding), 1);
}

TEST_P(Defects, OfConnectivityAreNotFoundAtLevel1) {
  const auto damaged = makeDefect(defect);
  const Findings findings =
      runChecker([&damaged] { return new memory::MemoryProvider(damaged); }, 1);
  const Texts& all = defect.isError ? findings.errors : findings.warnings;
  EXPECT_EQ(std::count(all.begin(), all.end(), defect.finding), defect.checkLevel == 1 ? 1 : 0);
}

INSTANTIATE_TEST_SUITE_P(All, Defects, ::testing::ValuesIn(allNames()), defectName);

TEST(DefectList, HasNoNameTwiceAndDamagesKnownSamples) {
  std::set<std::string> known;
  for (const Defect& defect : samples::defects()) {
    EXPECT_TRUE(known.insert(defect.name).second) << defect.name;
    EXPECT_EQ(samples::findDefect(defect.name), &defect);
    EXPECT_NE(samples::findSample(defect.sample), nullptr) << defect.name;
    EXPECT_EQ(samples::findSample(defect.name), nullptr) << defect.name;
  }
  EXPECT_EQ(samples::findDefect("box"), nullptr);
}

// --- The catalogue of messages ------------------------------------------------------------------

/// One entry of the page: its message, "<...>" standing for any text, and all that is said of it,
/// each field in a line.
struct Entry {
  std::string message;
  bool isError = false;
  std::string body;
};

std::vector<Entry> entriesOfPage() {
  std::ifstream page(VELTO_MESSAGES_PAGE);
  std::vector<Entry> entries;
  bool isInEntry = false;
  for (std::string line; std::getline(page, line);) {
    if (line.compare(0, 5, "### `") == 0) {
      entries.push_back({line.substr(5, line.size() - 6), false, ""});
      isInEntry = true;
    } else if (line.compare(0, 3, "## ") == 0) {
      isInEntry = false;
    } else if (isInEntry) {
      Entry& entry = entries.back();
      entry.isError = entry.isError || line.find("`, error, `") != std::string::npos;
      if (line.compare(0, 2, "  ") == 0) {
        entry.body.pop_back();
        line.erase(0, 1);
      }
      entry.body += line + "\n";
    }
  }
  return entries;
}

/// Whether a text is that message, any text standing for each "<...>".
bool fits(const std::string& text, const std::string& message) {
  const std::string any = "<...>";
  const std::size_t gap = message.find(any);
  const std::string head = message.substr(0, gap);
  if (gap == std::string::npos || text.compare(0, gap, head) != 0) {
    return text == message;
  }
  const std::string tail = message.substr(gap + any.size());
  for (std::size_t end = gap; end <= text.size(); ++end) {
    if (fits(text.substr(end), tail)) {
      return true;
    }
  }
  return false;
}

/// Whether a recorded finding is that message, whatever its step.
bool isOf(const Defect& defect, const Entry& entry) {
  const std::string finding = defect.finding;
  const std::string separator = " : ";
  return defect.isError == entry.isError &&
         fits(finding.substr(finding.find(separator) + separator.size()), entry.message);
}

/// Messages that a checker gives behind those of others, and a defect that shows them.
const std::map<std::string, std::string>& besideOthers() {
  static const std::map<std::string, std::string> kMessages = {
      {"Failed to build location model.", "nodes-alone"},
  };
  return kMessages;
}

/// Messages about files that are no case, about failures inside the library, and those that the
/// page says are never given.
const std::set<std::string>& notFromACase() {
  static const std::set<std::string> kMessages = {
      "Error: No such file / unreadable",
      "Not a ORV file (cannot setup provider)",
      "Error reading ORV file",
      "ORV - <...>",
      "checkMessageState - internal error - null ref",
      "Not a OrvFileIO source - cannot check version number",
      "Cell zone [<...>] with ORV Post Polyhedral connectivity in <...>.",
      // A face use always has a relative name.
      "Location Model contains an unnamed face use (<...>).",
      // A checker brings both.
      "Unable to build location model: The provider is null.",
      "Unable to build location model: The location model is null.",
      // Models of the embedded library take all that a builder puts into them.
      "Unable to build location model: Unable to set the zones associated with the body '<...>'.",
      "Unable to build location model: Unable to define face '<...>'.",
      "Unable to build location model: Unable to define face use on side 0 of '<...>'.",
      "Unable to build location model: Unable to define face use on side 1 of '<...>'.",
      "Unable to build location model: Unable to set the correct zone side for face use.",
      // A model that was built has its one part.
      "Unable to obtain a valid location model.",
      "Physics objects are available in the settings, without a location model, the locations of these objects will be invalid.",
  };
  return kMessages;
}

/// What a resolver of physics regions says depends on what a program asks it, a copier's lines come
/// only where somebody copies the case, and the command line speaks of what is no case.
bool isOfAnotherTool(const Entry& entry) {
  return entry.body.find("`physics_regions/") != std::string::npos ||
         entry.body.find("`copier/") != std::string::npos ||
         entry.body.find("`orv/") != std::string::npos;
}

/// The defects that show a message.
std::vector<const Defect*> defectsFor(const Entry& entry) {
  const auto beside = besideOthers().find(entry.message);
  if (beside != besideOthers().end()) {
    return {samples::findDefect(beside->second)};
  }
  std::vector<const Defect*> shown;
  for (const Defect& defect : samples::defects()) {
    if (isOf(defect, entry)) {
      shown.push_back(&defect);
    }
  }
  return shown;
}

/// The commands that write cases with these defects and check them, as the page has them.
std::string commandsFor(const std::vector<const Defect*>& shown) {
  const std::vector<std::string> files = {" FILE", " OTHER"};
  std::string commands;
  std::string check = "`orv check";
  for (std::size_t i = 0; i < shown.size(); ++i) {
    commands += std::string("`orv sample --defect ") + shown[i]->name + files.at(i) + "`, ";
    check += (i == 0 && shown[i]->checkLevel == 2 ? " --level 2" : "") + files.at(i);
  }
  return commands + check + "`";
}

/// What stands behind "See it", if it shows a defect.
std::string seeItOf(const Entry& entry) {
  const std::string label = "\n- **See it**: ";
  const std::size_t start = entry.body.find(label + "`orv sample --defect ");
  if (start == std::string::npos) {
    return "";
  }
  const std::size_t text = start + label.size();
  return entry.body.substr(text, entry.body.find('\n', text) - text);
}

TEST(MessagesPage, NamesTheDefectsForEachMessageThatACaseCanProvoke) {
  const std::vector<Entry> entries = entriesOfPage();
  ASSERT_FALSE(entries.empty());
  for (const Entry& entry : entries) {
    const std::vector<const Defect*> shown = defectsFor(entry);
    EXPECT_EQ(shown.empty(), notFromACase().count(entry.message) == 1 || isOfAnotherTool(entry))
        << entry.message;
    EXPECT_EQ(seeItOf(entry), shown.empty() ? "" : commandsFor(shown)) << entry.message;
  }
}

TEST(MessagesPage, HasAnEntryForEachDefect) {
  const std::vector<Entry> entries = entriesOfPage();
  for (const Defect& defect : samples::defects()) {
    EXPECT_EQ(std::count_if(entries.begin(), entries.end(),
                            [&defect](const Entry& entry) { return isOf(defect, entry); }),
              1)
        << defect.name;
  }
}

}  // namespace
}  // namespace velto::testing
