// SPDX-License-Identifier: Apache-2.0
//
// Random cases: sound ones give no message, and all others are judged as by the plain checker.
//
// A longer run takes other seeds: VELTO_RANDOM_CASES="FIRST COUNT" in the environment.

#include <algorithm>
#include <cctype>
#include <cstdint>
#include <set>
#include <string>

#include "testing/random_case.h"
#include "testing/random_seeds.h"
#include "tests/checker/CheckerFixture.h"
#include "tests/checker/random_scenario.h"

namespace velto::testing {
namespace {

constexpr std::uint64_t kSoundCases = 300;
constexpr std::uint64_t kCasesForMessages = 6000;
constexpr std::uint64_t kUsualCases = 1500;

bool endsWith(const std::string& text, const std::string& end) {
  return text.size() >= end.size() && text.compare(text.size() - end.size(), end.size(), end) == 0;
}

/// A message without its numbers: "#" stands for each and for faces, "F#" or named as a zone, but
/// for those of the two kinds of parents, of the two sides of a face and of an interface, and of an
/// error that comes in two kinds. Names end with a number.
std::string withoutNumbers(const std::string& message) {
  static const Texts kBeforeKeptNumbers = {" parent",  "Side",         "on side ",
                                           " : Cell ", "Logic error ", "face-cell c"};
  std::string text;
  const auto isDigit = [&message](std::size_t at) {
    return at < message.size() && std::isdigit(static_cast<unsigned char>(message[at])) != 0;
  };
  for (std::size_t at = 0; at < message.size(); ++at) {
    const bool isKept =
        std::any_of(kBeforeKeptNumbers.begin(), kBeforeKeptNumbers.end(),
                    [&text](const std::string& end) { return endsWith(text, end); });
    if (isKept || !(isDigit(at) || (message[at] == '-' && isDigit(at + 1)))) {
      text += message[at];
      continue;
    }
    text += '#';
    while (isDigit(at + 1)) {
      ++at;
    }
  }
  const std::size_t face = text.find("'F#'");
  return face == std::string::npos ? text : text.replace(face, 4, "'zone#'");
}

/// Every message that a case, or a model that refuses, can bring about.
const Texts& messages() {
  static const Texts kMessages = {
      "checkMeshConnectivity : No face zones bound cell zone [#]",
      "checkMeshConnectivity : Cell zone [#] is bounded by Face zones in ORV Post mesh (#).",
      "checkMeshConnectivity : Cell zone [#] is bounded by Face zones in ORV Partitioned Post mesh (#) and partition (#).",
      "checkMeshConnectivity : Cell zone [#] is bounded by a Face zone [#] that doesn't exist.",
      "checkMeshConnectivity : Face zone [#] found to bound cell zones in a ORV Post mesh (#).",
      "checkMeshConnectivity : Face zone [#] found to bound cell zones in a ORV Partitioned Post mesh (#) and partition (#).",
      "checkMeshConnectivity : Face zone [#] bounds Cell zone [#] that doesn't exist.",
      "checkCellZoneConnectivityTypes : Polyhedral cell zone (#) doesn't have correct type.",
      "checkCellZoneConnectivityTypes : Cell zone [#] with  unexpected connectivity in ORV Post mesh (#).",
      "checkCellZoneConnectivityTypes : Cell zone [#] with  unexpected connectivity in ORV Partitioned Post mesh (#) and partition (#).",
      "checkCellZoneConnectivityTypes : Cell zone [#] with  unexpected connectivity in Unknown mesh (#).",
      "checkNodeZones : Non-zero node count and no node zones",
      "checkNodeZones : Non-zero node zones with no global node count",
      "checkNodeZones : Error in zone size / start / end",
      "checkNodeZones : Empty Node zone name",
      "checkNodeZones : Overlapping Node ranges",
      "checkNodeZones : Node zones do not cover the full range of declared Nodes",
      "checkNodeZones : Mismatch in Node zones content and total number of Nodes",
      "checkNodeZones : Node zones total range doesnt match [#,nmax]",
      "checkFaceZones : Non-zero face count and no face zones",
      "checkFaceZones : Non-zero face zones with no global face count",
      "checkFaceZones : Error in zone size / start / end",
      "checkFaceZones : Empty Face zone name",
      "checkFaceZones : Overlapping Face ranges",
      "checkFaceZones : Face zones do not cover the full range of declared Faces",
      "checkFaceZones : Mismatch in Face zones content and total number of Faces",
      "checkFaceZones : Face zones total range doesnt match [#,nmax]",
      "checkFaceZones : Zone dimension inconsistent with mesh dimension",
      "checkFaceZones : Invalid face zone type",
      "checkFaceZones : Face type was not set",
      "checkFaceZones : Invalid face type",
      "checkFaceZones : Face zone child zone id invalid",
      "checkFaceZones : Face zone parent0 zone id invalid",
      "checkFaceZones : Face zone parent1 zone id invalid",
      "checkFaceZones : Face zone shadow zone id invalid",
      "checkFaceZones : Face zone shadow link is not bilateral",
      "checkCellZones : Non-zero cell count and no cell zones",
      "checkCellZones : Non-zero cell zones with no global cell count",
      "checkCellZones : Error in zone size / start / end",
      "checkCellZones : Empty Cell zone name",
      "checkCellZones : Overlapping Cell ranges",
      "checkCellZones : Cell zones do not cover the full range of declared Cells",
      "checkCellZones : Mismatch in Cell zones content and total number of Cells",
      "checkCellZones : Cell zones total range doesnt match [#,nmax]",
      "checkCellZones : Zone dimension inconsistent with mesh dimension",
      "checkCellZones : Cell type was not set - mandatory for a face-node zone",
      "checkCellZones : Cell type was not set",
      "checkCellZones : Invalid cell type",
      "checkCellZones : Cell zone child zone id invalid",
      "checkFaceConnectivity : Not all face zones define node connectivity",
      "checkFaceConnectivity : Face node ids out of node id range",
      "checkCellConnectivity : Cell node ids out of node id range",
      "checkCellConnectivity : Cell face ids out of face id range",
      "checkCellConnectivity : Cell-zones: Inconsistency in cell zone definitions",
      "checkCellsFromFaces_facenode : cell_face mesh with no cell-type are unsupported",
      "checkCellsFromFaces_facenode : Cell 0 (#) for face # is invalid",
      "checkCellsFromFaces_facenode : Cell 1 (#) for face # is invalid",
      "checkCellsFromFaces_facenode : Cells of unsupported type encountered",
      "checkCellsFromFaces_facenode : Cells with missing facets: #",
      "checkCellsFromFaces_facenode : Cells with too many facets attached: #",
      "readFaceNodes : Logic error in face connectivity index",
      "readFaceNodes : Logic error 2 in face connectivity index",
      "readCellNodes : Logic error in cell connectivity index",
      "readCellNodes : Logic error 2 in cell connectivity index",
      "checkCellsFromFaces_cellnode : Cell 0 (#) for face # is invalid",
      "checkCellsFromFaces_cellnode : Cell 1 (#) for face # is invalid",
      "checkCellsFromFaces_cellnode : Node connectivity error in face-cell c0 pair",
      "checkCellsFromFaces_cellnode : Node connectivity error in face-cell c1 pair",
      "checkFacesShadowZones : Face shadow facet ids are out of target shadow range",
      "checkTopologyModel : Found a location model in a file that doesn't contain a ORV Restart mesh.",
      "checkPhysicsToMeshMapUsingTopologyModel : Location Model contains an unnamed body (#).",
      "checkPhysicsToMeshMapUsingTopologyModel : Location Model contains an unnamed face use (#).",
      "checkPhysicsToMeshMapUsingTopologyModel : Location Model contains an unnamed composite (#).",
      "checkPhysicsToMeshMapUsingTopologyModel : Body (body#) refers to a face zone (#) that isn't of type 'interior'.",
      "checkPhysicsToMeshMapUsingTopologyModel : Body (body#) refers to an interior face zone (#) that isn't named.",
      "checkPhysicsToMeshMapUsingTopologyModel : Body (body#) refers to a zone (#) that isn't a valid cell zone or a valid face zone or doesn't exit at all.",
      "checkPhysicsToMeshMapUsingTopologyModel : Location Model contains a face use (use#) that refers to a face zone (#that doesn't exist in the mesh (#)",
      "checkPhysicsToMeshMapUsingTopologyModel : Location Model contains a composite (mix#) that refers to a body (#) that doesn't exist in the Location Model.",
      "checkPhysicsToMeshMapUsingTopologyModel : Location Model contains a composite (mix#) that refers to a face use (#) that doesn't exist in the Location Model.",
      "checkPhysicsToMeshMapUsingTopologyModel : No Physics Model - skipped",
      "checkPhysicsToMeshMapUsingTopologyModel : Unable to obtain a valid location model.",
      "checkPhysicsToMeshMapUsingTopologyModel : Physics objects are available in the settings, without a location model, the locations of these objects will be invalid.",
      "checkPhysicsToMeshMapUsingTopologyModel : Failed to build location model.",
      "checkPhysicsToMeshMapUsingTopologyModel : Unable to define body 'zone#'",
      "checkPhysicsToMeshMapUsingTopologyModel : Unable to build location model: There are no cell zones defined in the mesh model.",
      "checkPhysicsToMeshMapUsingTopologyModel : Unable to build location model: Unable to set the zones associated with the body 'zone#'.",
      "checkPhysicsToMeshMapUsingTopologyModel : Unable to build location model: Unable to define face 'zone#'.",
      "checkPhysicsToMeshMapUsingTopologyModel : Unable to build location model: Unable to define face use on side 0 of 'zone#'.",
      "checkPhysicsToMeshMapUsingTopologyModel : Unable to build location model: Unable to define face use on side 1 of 'zone#'.",
      "checkPhysicsToMeshMapUsingTopologyModel : Unable to build location model: Cannot define face use for an invalid face side of 'zone#'.",
      "checkPhysicsToMeshMapUsingTopologyModel : Unable to build location model: Unable to set the correct zone side for face use.",
      "checkPhysicsToMeshMapUsingTopologyModel : Unable to build location model: Face zone #'zone#' bounds mode than one cell zone on side 0.",
      "checkPhysicsToMeshMapUsingTopologyModel : Unable to build location model: Face zone #'zone#' bounds mode than one cell zone on side 1.",
      "checkDomain : domain#' ORV physics model doesn't include required 'location' setting.",
      "checkDomain : The attribute 'location' of 'domain#' references locations that don't exist in the location model.",
      "checkSubdomain : added#' ORV physics model doesn't include required 'location' setting.",
      "checkSubdomain : subdomain#' ORV physics model doesn't include optional 'domain' setting.",
      "checkSubdomain : The attribute 'location' of 'subdomain#' references locations that don't exist in the location model.",
      "checkSubdomain : The attribute 'domain' of 'subdomain#' references locations that don't exist in the location model.",
      "checkBoundary : boundary#' ORV physics model doesn't include required 'location' setting.",
      "checkBoundary : boundary#' ORV physics model doesn't include optional 'domain' setting.",
      "checkBoundary : The attribute 'location' of 'boundary#' references locations that don't exist in the location model.",
      "checkBoundary : The attribute 'domain' of 'boundary#' references locations that don't exist in the location model.",
      "checkInterface : interface#' ORV physics model doesn't include required 'boundariesSide1' setting.",
      "checkInterface : interface#' ORV physics model doesn't include optional 'domainsSide1' setting.",
      "checkInterface : interface#' ORV physics model doesn't include optional 'domainsSide2' setting.",
      "checkInterface : The attribute 'boundariesSide1' of 'interface#' references locations that don't exist in the location model.",
      "checkInterface : The attribute 'domainsSide1' of 'interface#' references locations that don't exist in the location model.",
      "checkInterface : The attribute 'domainsSide2' of 'interface#' references locations that don't exist in the location model."};
  return kMessages;
}

bool hasPhysics(const memory::Case& sound) {
  for (const auto& store : sound.tables.settings) {
    for (const auto& [path, value] : store.second.entries()) {
      for (const char* const kind : {"domains/", "boundaries/", "interfaces/"}) {
        if (path.find(kind) != std::string::npos) {  // "subdomains/" as well
          return true;
        }
      }
    }
  }
  return false;
}

/// True if all cell zones of a mesh list their nodes, so that types of cells are not looked at.
bool hasNodesOfAllCells(const memory::Case& sound, const base::MeshKey& key) {
  return sound.data.at(key).cellNodes.zones().size() ==
         sound.tables.meshes.at(key).idsOf(zoneCategoryCell).size();
}

Texts expectedWarnings(const memory::Case& sound) {
  Texts expected;
  std::set<int> targets;
  bool areTypesAskedFor = true;  // a mesh without cell zones is taken as the one before it
  for (const auto& mesh : sound.tables.meshes) {
    targets.insert(mesh.first.target);
    if (mesh.first.target == targetRestart && !hasPhysics(sound)) {
      expected.push_back("checkPhysicsToMeshMapUsingTopologyModel : No Physics Model - skipped");
    }
    if (!mesh.second.idsOf(zoneCategoryCell).empty()) {
      areTypesAskedFor = !hasNodesOfAllCells(sound, mesh.first);
    } else if (areTypesAskedFor) {
      expected.push_back(
          "checkCellsFromFaces_facenode : cell_face mesh with no cell-type are unsupported");
    }
  }
  if (targets.size() > 1) {
    expected.push_back("checkCase : ORV file with multiple target types - support is limited");
  }
  return expected;
}

using RandomCases = CheckerFixture;

TEST_F(RandomCases, SoundOnesGiveNoMessage) {
  for (std::uint64_t seed = 1; seed <= kSoundCases; ++seed) {
    SCOPED_TRACE("seed " + std::to_string(seed));
    Random random(seed);
    const auto sound = std::make_shared<memory::Case>(randomSoundCase(random));
    serve(sound);
    OrvChecker fresh;
    fresh.setCheckLevel(2);
    const CheckResult result = check(fresh, file.path());
    ASSERT_EQ(result.errors, Texts());
    ASSERT_EQ(result.warnings, expectedWarnings(*sound));
  }
}

TEST_F(RandomCases, AreJudgedAsByThePlainChecker) {
  const Seeds seeds = seedsToTry(kUsualCases);
  for (std::uint64_t seed = seeds.first; seed - seeds.first < seeds.count; ++seed) {
    const Scenario scenario = randomScenario(seed);
    if (isJudgedDifferently(scenario)) {
      FAIL() << "seed " << seed << "\n" << describeDifference(shrunk(scenario));
    }
  }
}

/// A generator that no longer reaches a message would let its rule go untested.
TEST_F(RandomCases, BringAboutEveryMessage) {
  std::set<std::string> missing;
  for (const std::string& message : messages()) {
    missing.insert(withoutNumbers(message));
  }
  for (std::uint64_t seed = 1; seed <= kCasesForMessages; ++seed) {
    const Judgement last = judgePlainly(randomScenario(seed)).back();
    for (const Texts* const messages : {&last.errors, &last.warnings}) {
      for (const std::string& message : *messages) {
        missing.erase(withoutNumbers(message));
      }
    }
    if (missing.empty()) {
      return;
    }
  }
  EXPECT_EQ(Texts(missing.begin(), missing.end()), Texts());
}

}  // namespace
}  // namespace velto::testing
