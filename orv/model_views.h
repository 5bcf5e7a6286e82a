// SPDX-License-Identifier: Apache-2.0
//
// A location model as text, as JSON and as a graph; and the words that these have in common.

#ifndef VELTO_ORV_MODEL_VIEWS_H
#define VELTO_ORV_MODEL_VIEWS_H

#include <nlohmann/json_fwd.hpp>
#include <string>
#include <vector>

#include "orv/ModelSummary.h"

namespace velto::orv {

/// A tree: parts, in them bodies, faces with their two sides, and composites. Long lists are cut.
std::string modelText(const ModelSummary& summary);

/// All of it, by id and name.
nlohmann::ordered_json modelJson(const ModelSummary& summary);

/// A graph in the language of Graphviz, its nodes and edges in the order of the model.
std::string modelDot(const ModelSummary& summary);

/// The errors of a model, a line each, for standard error.
std::string modelErrors(const ModelSummary& summary);

// --- Words --------------------------------------------------------------------------------------

/// "location model of the file, mesh 1, restart".
std::string originWords(const ModelSummary& summary);

/// "fluid [9]"; "[9]" for a zone without a name.
std::string zoneWords(const ModelSummary& summary, int zone);

/// "+5 inlet", "-5 contact".
std::string zoneSideWords(const ModelSummary& summary, int zoneSide);

/// The zones of a body: those that it consists of, and face zones that it takes in. "no zones in
/// mesh 1" stands for the former if it has no place there.
struct BodyZoneWords {
  std::vector<std::string> zones;
  std::vector<std::string> takenIn;
};
BodyZoneWords bodyZoneWords(const ModelSummary& summary, const BodyOfModel& body);

/// The zone sides of a face use, or "no zones in mesh 1".
std::vector<std::string> faceUseZoneWords(const ModelSummary& summary, const FaceUseOfModel& use);

/// Names of objects. An object that is not in the model is shown by its id.
std::string nameWord(const ModelName& name, int id);
std::string bodyWord(const ModelSummary& summary, int id);
std::string faceWord(const ModelSummary& summary, int id);
/// A face use without a name of its own goes by its relative name, in brackets.
std::string faceUseWord(const ModelSummary& summary, int id);

}  // namespace velto::orv

#endif  // VELTO_ORV_MODEL_VIEWS_H
