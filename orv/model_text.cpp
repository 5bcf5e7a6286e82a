// SPDX-License-Identifier: Apache-2.0
//
// A location model as a tree of text: parts, in them bodies, faces with what is on their two sides,
// and composites.

#include <algorithm>
#include <fmt/format.h>
#include <iterator>
#include <sstream>
#include <string>
#include <unordered_set>
#include <vector>

#include "orv/TextTable.h"
#include "orv/model_views.h"
#include "orv/shown_name.h"
#include "orv/words.h"

namespace velto::orv {

namespace {

constexpr const char* kSeparator = ", ";

std::string bodyLine(const ModelSummary& summary, int id) {
  const BodyZoneWords words = bodyZoneWords(summary, summary.bodies.at(id));
  return fmt::format(
      "  body {}: {}{}\n", bodyWord(summary, id), joined(words.zones, kSeparator),
      words.takenIn.empty() ? "" : ", takes in " + joined(words.takenIn, kSeparator));
}

/// The two sides of each face as lines of one table, so that the columns of all faces are aligned.
class SideLines {
 public:
  explicit SideLines(const ModelSummary& summary) : summary_(summary) {}

  void add(const std::string& side, int use) {
    if (use == 0) {
      table_.addRow({side, "-"});
      return;
    }
    const FaceUseOfModel& found = summary_.faceUses.at(use);
    table_.addRow({side, "body " + bodyWord(summary_, found.body),
                   "face use " + faceUseWord(summary_, use),
                   joined(faceUseZoneWords(summary_, found), kSeparator)});
  }

  /// One after the other, as they were added.
  std::vector<std::string> lines() const {
    std::istringstream text(table_.text("    "));
    std::vector<std::string> lines;
    for (std::string line; std::getline(text, line);) {
      lines.push_back(line + "\n");
    }
    return lines;
  }

 private:
  const ModelSummary& summary_;
  TextTable table_{std::vector<TextTable::Column>(4)};
};

/// Face uses of the part that hold a side of none of its faces.
std::vector<int> strayUses(const ModelSummary& summary, const PartOfModel& part) {
  const std::unordered_set<int> faces(part.faces.begin(), part.faces.end());
  std::vector<int> strays;
  std::copy_if(part.faceUses.begin(), part.faceUses.end(), std::back_inserter(strays),
               [&](int use) { return faces.count(summary.faceUses.at(use).face) == 0; });
  return strays;
}

std::string facesText(const ModelSummary& summary, const PartOfModel& part) {
  const std::vector<int> strays = strayUses(summary, part);
  SideLines sides(summary);
  for (const int id : part.faces) {
    const FaceOfModel& face = summary.faces.at(id);
    sides.add("side 0", face.sides[0]);
    sides.add("side 1", face.sides[1]);
  }
  for (const int use : strays) {
    const FaceUseOfModel& found = summary.faceUses.at(use);
    sides.add(found.face == 0 ? "no side" : fmt::format("side {}", found.side), use);
  }
  const std::vector<std::string> lines = sides.lines();
  auto line = lines.begin();
  std::string text;
  for (const int id : part.faces) {
    text += fmt::format("  face {}\n", faceWord(summary, id));
    text += *line++;
    text += *line++;
  }
  for (const int use : strays) {
    const int face = summary.faceUses.at(use).face;
    text += face == 0 ? "  face of none\n"
                      : fmt::format("  face {}, of another part\n", faceWord(summary, face));
    text += *line++;
  }
  return text;
}

/// "face uses inlet, outlet"; nothing for an empty list.
template <class WordOf>
void addMembers(std::vector<std::string>& members, const char* one, const char* more,
                const std::vector<int>& ids, WordOf wordOf) {
  if (!ids.empty()) {
    members.push_back(
        fmt::format("{} {}", ids.size() == 1 ? one : more, joined(ids, kSeparator, wordOf)));
  }
}

std::string compositeLine(const ModelSummary& summary, int id) {
  const CompositeOfModel& composite = summary.composites.at(id);
  std::vector<std::string> members;
  addMembers(members, "body", "bodies", composite.bodies,
             [&](int body) { return bodyWord(summary, body); });
  addMembers(members, "face", "faces", composite.faces,
             [&](int face) { return faceWord(summary, face); });
  addMembers(members, "face use", "face uses", composite.faceUses,
             [&](int use) { return faceUseWord(summary, use); });
  return fmt::format("  composite {}: {}\n", nameWord(composite.name, id),
                     members.empty() ? "nothing" : fmt::format("{}", fmt::join(members, "; ")));
}

/// The last line: how much there is of everything.
std::string countsText(const ModelSummary& summary) {
  const auto total = [&summary](std::vector<int> PartOfModel::*ids) {
    std::size_t count = 0;
    for (const PartOfModel& part : summary.parts) {
      count += (part.*ids).size();
    }
    return count;
  };
  return fmt::format("{}, {}, {}, {}, {}\n", counted(summary.parts.size(), "part", "parts"),
                     counted(total(&PartOfModel::bodies), "body", "bodies"),
                     counted(total(&PartOfModel::faces), "face", "faces"),
                     counted(total(&PartOfModel::faceUses), "face use", "face uses"),
                     counted(total(&PartOfModel::composites), "composite", "composites"));
}

}  // namespace

std::string modelText(const ModelSummary& summary) {
  std::string text = fmt::format("{}\n  {}\n", shownText(summary.file), originWords(summary));
  for (const PartOfModel& part : summary.parts) {
    text += fmt::format("\npart {}\n", nameWord(part.name, part.id));
    for (const int body : part.bodies) {
      text += bodyLine(summary, body);
    }
    text += facesText(summary, part);
    for (const int composite : part.composites) {
      text += compositeLine(summary, composite);
    }
  }
  return text + "\n" + countsText(summary);
}

}  // namespace velto::orv
