// SPDX-License-Identifier: Apache-2.0
//
// ProtocolGuard: a table tells for each operation which family and pass it belongs to, and whether
// it opens, uses or closes them.

#include "testing/ProtocolGuard.h"

#include <map>

namespace velto::testing {

namespace {

enum class Step { beginFamily, endFamily, beginPass, endPass, use };

struct Rule {
  Step step = Step::use;
  std::string family;
  std::string pass;
};

using Rules = std::map<std::string, Rule>;

/// The operations of a family with counts; `stem` is "FaceNode" for face nodes.
void addCountedFamily(Rules& rules, const std::string& family, const std::string& stem) {
  rules["begin" + stem + "s"] = {Step::beginFamily, family, ""};
  rules["end" + stem + "s"] = {Step::endFamily, family, ""};
  rules["begin" + stem + "Counts"] = {Step::beginPass, family, "counts"};
  rules["getUniform" + stem + "Count"] = {Step::use, family, "counts"};
  rules["read" + stem + "Counts"] = {Step::use, family, "counts"};
  rules["end" + stem + "Counts"] = {Step::endPass, family, "counts"};
  rules["begin" + stem + "Ids"] = {Step::beginPass, family, "ids"};
  rules["read" + stem + "Ids"] = {Step::use, family, "ids"};
  rules["end" + stem + "Ids"] = {Step::endPass, family, "ids"};
}

/// The operations of a family without counts; its begin and end bear `stem`.
void addPlainFamily(Rules& rules, const std::string& family, const std::string& stem,
                    const std::vector<std::string>& reads) {
  rules["begin" + stem] = {Step::beginFamily, family, ""};
  rules["end" + stem] = {Step::endFamily, family, ""};
  for (const std::string& read : reads) {
    rules[read] = {Step::use, family, ""};
  }
}

Rules makeRules() {
  Rules rules;
  addCountedFamily(rules, "face nodes", "FaceNode");
  addCountedFamily(rules, "cell nodes", "CellNode");
  addCountedFamily(rules, "cell faces", "CellFace");
  addPlainFamily(rules, "node coordinates", "NodeCoordinates", {"readNodeCoordinates"});
  addPlainFamily(rules, "side-0 cells", "FaceCell0", {"getFaceCell0", "readFaceCell0"});
  addPlainFamily(rules, "side-1 cells", "FaceCell1", {"getFaceCell1", "readFaceCell1"});
  addPlainFamily(rules, "shadow faces", "FaceShadows", {"getFaceShadow"});
  addPlainFamily(rules, "face tree", "FaceTree", {});
  addPlainFamily(rules, "cell types", "CellTypes",
                 {"getUniformCellType", "getCellType", "readCellTypes"});
  addPlainFamily(rules, "cell partitions", "CellPartitions",
                 {"getCellPartitionInfo", "readCellPartitions"});
  return rules;
}

/// The rule of an operation, or null.
const Rule* ruleOf(const std::string& operation) {
  static const Rules kRules = makeRules();
  const auto found = kRules.find(operation);
  return found == kRules.end() ? nullptr : &found->second;
}

}  // namespace

ProtocolGuard::ProtocolGuard(OrvFileProvider& target)
    : ForwardingProvider(target), before_(base::coreOf(target).observer) {
  base::coreOf(*this).observer = this;
}

ProtocolGuard::~ProtocolGuard() { base::coreOf(*this).observer = before_; }

std::vector<std::string> ProtocolGuard::leftOpen() const {
  std::vector<std::string> families = leftOpen_;
  if (!family_.empty()) {
    families.push_back(family_);
  }
  return families;
}

void ProtocolGuard::onCall(const std::string& call) {
  const Rule* rule = ruleOf(operationOf(call));
  if (rule == nullptr) {
    followFieldData(call);
    return;
  }
  switch (rule->step) {
    case Step::beginFamily:
      beginFamily(rule->family);
      break;
    case Step::endFamily:
      endFamily(call, rule->family);
      break;
    case Step::beginPass:
      beginPass(call, rule->family, rule->pass);
      break;
    case Step::endPass:
      endPass(call, rule->family, rule->pass);
      break;
    case Step::use:
      use(call, rule->family, rule->pass);
      break;
  }
}

void ProtocolGuard::onQuery(const std::string& call) {
  const std::string operation = operationOf(call);
  if (operation == "setMeshId" || operation == "setTarget" || operation == "setPartitionId") {
    giveUpFamily();
  }
  if (before_ != nullptr) {
    before_->onQuery(call);
  }
}

void ProtocolGuard::giveUpFamily() {
  if (!family_.empty()) {
    leftOpen_.push_back(family_);
  }
  family_.clear();
  pass_.clear();
}

void ProtocolGuard::violation(const std::string& call, const std::string& what) {
  violations_.push_back(call + ": " + what);
}

// --- Families -----------------------------------------------------------------------------------

void ProtocolGuard::beginFamily(const std::string& family) {
  giveUpFamily();
  family_ = family;
}

void ProtocolGuard::endFamily(const std::string& call, const std::string& family) {
  if (family_ != family) {
    violation(call, "outside " + family);
    return;
  }
  if (!pass_.empty()) {
    violation(call, "the " + pass_ + " of " + family + " are still open");
  }
  family_.clear();
  pass_.clear();
}

void ProtocolGuard::beginPass(const std::string& call, const std::string& family,
                              const std::string& pass) {
  if (family_ != family) {
    violation(call, "outside " + family);
    return;
  }
  if (!pass_.empty()) {
    violation(call, "the " + pass_ + " of " + family + " are still open");
  }
  pass_ = pass;
}

void ProtocolGuard::endPass(const std::string& call, const std::string& family,
                            const std::string& pass) {
  use(call, family, pass);
  if (family_ == family && pass_ == pass) {
    pass_.clear();
  }
}

void ProtocolGuard::use(const std::string& call, const std::string& family,
                        const std::string& pass) {
  if (family_ != family) {
    violation(call, "outside " + family);
  } else if (pass_ != pass) {
    violation(call, "outside the " + pass + " of " + family);
  }
}

// --- Field data ---------------------------------------------------------------------------------

void ProtocolGuard::followFieldData(const std::string& call) {
  const std::string operation = operationOf(call);
  if (operation == "beginPhase") {
    if (phaseOpen_) {
      violation(call, "a phase is still open");
    }
    phaseOpen_ = true;
  } else if (operation == "endPhase" || operation == "getVariableNames" ||
             operation == "beginVariable") {
    if (!phaseOpen_) {
      violation(call, "outside a phase");
    }
    if (variableOpen_) {
      violation(call, "a variable is still open");
    }
    phaseOpen_ = operation != "endPhase" && phaseOpen_;
    variableOpen_ = operation == "beginVariable";
  } else if (operation == "readVariable" || operation == "endVariable") {
    if (!variableOpen_) {
      violation(call, "outside a variable");
    }
    variableOpen_ = variableOpen_ && operation != "endVariable";
  }
}

}  // namespace velto::testing
