// SPDX-License-Identifier: Apache-2.0
//
// A location model as a graph for Graphviz.
//
//   body            a box with its zones
//   face use        its name and zone sides on the edge between body and face: a node without a
//                   frame, so that composites can point at it
//   face            a small ellipse, filled if both of its sides are held
//   composite       a note with dashed edges to its members
//
// Of two bodies on one face the first in the model stands left of it and the other right, so that
// the graph has no cycles. Several parts are clusters.

#include <fmt/format.h>
#include <map>
#include <unordered_set>

#include "orv/model_views.h"
#include "orv/shown_name.h"
#include "orv/words.h"

namespace velto::orv {

namespace {

constexpr const char* kHead = R"(graph "location model" {
  graph [rankdir=LR, nodesep=0.14, ranksep=0.3, ordering=out, bgcolor="white", pad=0.15,
         labelloc=t, labeljust=l, fontname="Helvetica,Arial,sans-serif", fontsize=11,
         fontcolor="#5f6b7a"]
  node [fontname="Helvetica,Arial,sans-serif", fontsize=10, fontcolor="#1f2937", height=0.3,
        width=0.4, margin="0.12,0.06"]
  edge [color="#8a97a8", penwidth=1.1, tailport=e, headport=w]
)";

constexpr const char* kBodyStyle =
    R"(shape=box, style="rounded,filled", fillcolor="#dbe8f6", color="#3f6fa8", penwidth=1.3)";
constexpr const char* kSharedFaceStyle =
    R"(shape=box, style="rounded,filled", fillcolor="#fde3c4", color="#c9781d")";
constexpr const char* kFaceStyle =
    R"(shape=box, style="rounded,filled", fillcolor="#f6f7f9", color="#a3adba")";
constexpr const char* kFaceUseStyle = R"(shape=plaintext, margin="0.05,0.02")";
constexpr const char* kCompositeStyle =
    R"(shape=note, style=filled, fillcolor="#f7f3d7", color="#a89c4a")";
constexpr const char* kMemberStyle = R"(style=dashed, color="#a89c4a")";

constexpr const char* kClusterStyle = R"(labelloc=t; labeljust=l; style=rounded; color="#d5dae1")";

/// Whether Graphviz puts a name in the place of this letter behind a backslash.
bool isPlaceholder(char letter) { return std::string("EGHLNT").find(letter) != std::string::npos; }

/// A text inside an HTML-like label.
std::string html(const std::string& text) {
  std::string safe;
  for (std::size_t i = 0; i < text.size(); ++i) {
    switch (text[i]) {
      case '&':
        safe += "&amp;";
        break;
      case '<':
        safe += "&lt;";
        break;
      case '>':
        safe += "&gt;";
        break;
      case '"':
        safe += "&quot;";
        break;
      case '\\':
        // No escape helps there, only a character between the two that takes no room.
        safe += i + 1 < text.size() && isPlaceholder(text[i + 1]) ? "&#92;&#8203;" : "&#92;";
        break;
      default:
        safe += text[i];
    }
  }
  return safe;
}

/// Small lines below the first.
std::string smallLine(const std::string& text) {
  return fmt::format("<br/><font point-size=\"8.5\" color=\"#55606e\">{}</font>", html(text));
}

class Graph {
 public:
  explicit Graph(const ModelSummary& summary) : summary_(summary) {}

  std::string text() {
    text_ = kHead;
    text_ += fmt::format("  label=<{}: {}<br align=\"left\"/>{}>\n", html(shownName(summary_.file)),
                         html(originWords(summary_)), partLines());
    for (const PartOfModel& part : summary_.parts) {
      for (const int body : part.bodies) {
        bodyOrder_.emplace(body, bodyOrder_.size());
      }
    }
    for (const PartOfModel& part : summary_.parts) {
      addPart(part);
    }
    addOthers();
    return text_ + "}\n";
  }

 private:
  bool hasClusters() const { return summary_.parts.size() > 1; }

  /// The title of a single part stands below that of the graph.
  std::string partTitle(const PartOfModel& part) const {
    return "part " + html(nameWord(part.name, part.id));
  }

  std::string partLines() const {
    return hasClusters() || summary_.parts.empty()
               ? ""
               : partTitle(summary_.parts.front()) + "<br align=\"left\"/>";
  }

  void addPart(const PartOfModel& part) {
    if (hasClusters()) {
      text_ += fmt::format("\n  subgraph cluster_{} {{\n    label=<{}>; {}\n", part.id,
                           partTitle(part), kClusterStyle);
    } else {
      text_ += "\n  {\n";
    }
    for (const int id : part.bodies) {
      addBody(id);
    }
    for (const int id : part.faces) {
      addFace(id);
    }
    for (const int id : part.faceUses) {
      addFaceUse(id);
    }
    for (const int id : part.composites) {
      addComposite(id);
    }
    text_ += "  }\n";
  }

  /// What is mentioned and stands in no part.
  void addOthers() {
    for (const auto& body : summary_.bodies) {
      if (nodes_.count(bodyNode(body.first)) == 0) {
        addBody(body.first);
      }
    }
    for (const auto& face : summary_.faces) {
      if (nodes_.count(faceNode(face.first)) == 0) {
        addFace(face.first);
      }
    }
    for (const auto& use : summary_.faceUses) {
      if (nodes_.count(faceUseNode(use.first)) == 0) {
        addFaceUse(use.first);
      }
    }
  }

  static std::string bodyNode(int id) { return fmt::format("body_{}", id); }
  static std::string faceNode(int id) { return fmt::format("face_{}", id); }
  static std::string faceUseNode(int id) { return fmt::format("use_{}", id); }

  void addNode(const std::string& node, const std::string& label, const char* style) {
    nodes_.insert(node);
    text_ += fmt::format("    {} [label=<{}>, {}]\n", node, label, style);
  }

  void addEdge(const std::string& from, const std::string& to, const char* style = nullptr) {
    text_ += style == nullptr ? fmt::format("    {} -- {}\n", from, to)
                              : fmt::format("    {} -- {} [{}]\n", from, to, style);
  }

  void addBody(int id) {
    const BodyZoneWords words = bodyZoneWords(summary_, summary_.bodies.at(id));
    std::string label = fmt::format("<b>{}</b>", html(bodyWord(summary_, id)));
    label += smallLine(joined(words.zones, ", "));
    if (!words.takenIn.empty()) {
      label += smallLine("takes in " + joined(words.takenIn, ", "));
    }
    addNode(bodyNode(id), label, kBodyStyle);
  }

  void addFace(int id) {
    const FaceOfModel& face = summary_.faces.at(id);
    const bool isShared = face.sides[0] != 0 && face.sides[1] != 0;
    addNode(faceNode(id), html(faceWord(summary_, id)), isShared ? kSharedFaceStyle : kFaceStyle);
  }

  void addFaceUse(int id) {
    const FaceUseOfModel& use = summary_.faceUses.at(id);
    const std::string node = faceUseNode(id);
    addNode(
        node,
        html(faceUseWord(summary_, id)) + smallLine(joined(faceUseZoneWords(summary_, use), ", ")),
        kFaceUseStyle);
    const std::string body = bodyNode(use.body);
    const std::string face = faceNode(use.face);
    const bool isRightOfFace = standsRightOfFace(use);
    if (use.body != 0) {
      isRightOfFace ? addEdge(node, body) : addEdge(body, node);
    }
    if (use.face != 0) {
      isRightOfFace ? addEdge(face, node) : addEdge(node, face);
    }
  }

  /// Whether the body on the other side of its face stands before its own.
  bool standsRightOfFace(const FaceUseOfModel& use) const {
    if (use.face == 0) {
      return false;
    }
    const int other = summary_.faces.at(use.face).sides.at(use.side == 0 ? 1 : 0);
    return other != 0 && orderOf(summary_.faceUses.at(other).body) < orderOf(use.body);
  }

  std::size_t orderOf(int body) const {
    const auto found = bodyOrder_.find(body);
    return found == bodyOrder_.end() ? bodyOrder_.size() : found->second;
  }

  void addComposite(int id) {
    const CompositeOfModel& composite = summary_.composites.at(id);
    const std::string node = fmt::format("composite_{}", id);
    addNode(node, fmt::format("<b>{}</b>", html(nameWord(composite.name, id))), kCompositeStyle);
    for (const int body : composite.bodies) {
      addEdge(node, bodyNode(body), kMemberStyle);
    }
    for (const int face : composite.faces) {
      addEdge(node, faceNode(face), kMemberStyle);
    }
    for (const int use : composite.faceUses) {
      addEdge(node, faceUseNode(use), kMemberStyle);
    }
  }

  const ModelSummary& summary_;
  std::map<int, std::size_t> bodyOrder_;
  std::unordered_set<std::string> nodes_;
  std::string text_;
};

}  // namespace

std::string modelDot(const ModelSummary& summary) { return Graph(summary).text(); }

}  // namespace velto::orv
