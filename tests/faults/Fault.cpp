// SPDX-License-Identifier: Apache-2.0
//
// Faults: which calls can have them, and how a double is told.

#include "tests/faults/Fault.h"

#include <algorithm>
#include <array>
#include <map>
#include <new>
#include <set>
#include <sstream>
#include <stdexcept>

namespace velto::testing {

namespace {

bool beginsWith(const std::string& text, const std::string& begin) {
  return text.compare(0, begin.size(), begin) == 0;
}

/// The last argument of a read is the length of its buffer.
std::size_t lengthOf(const std::string& read) {
  const std::size_t at = read.rfind(", ");
  return at == std::string::npos ? 0 : std::stoul(read.substr(at + 2));
}

/// Whether the fault is one of each call of that text, not of one of them.
bool isOfEach(Fault::Kind kind) {
  return kind == Fault::Kind::givesNoList || kind == Fault::Kind::deliversNothing ||
         kind == Fault::Kind::deliversHalf;
}

bool canHave(Fault::Kind kind, const std::string& call) {
  static const std::set<std::string> kLists = {"getMeshIds", "getTargets", "getPartitionIds",
                                               "getZoneIds"};
  switch (kind) {
    case Fault::Kind::givesNoList:
      return beginsWith(call, "begin") || beginsWith(call, "getUniform") ||
             kLists.count(operationOf(call)) > 0;
    case Fault::Kind::deliversNothing:
      return beginsWith(call, "read");
    case Fault::Kind::deliversHalf:
      return beginsWith(call, "read") && lengthOf(call) > 1;
    default:
      return true;
  }
}

}  // namespace

std::ostream& operator<<(std::ostream& out, const Fault& fault) {
  static const std::array<const char*, 12> kNames = {
      "no fault",       "throws an error", "has no memory", "posts errors",
      "posts warnings", "finds nothing",   "gives no list", "delivers nothing",
      "delivers half",  "breaks down",     "is refused",    "is denied"};
  return out << fault.call << " #" << fault.nth << " "
             << kNames.at(static_cast<std::size_t>(fault.kind));
}

std::vector<Fault> faultsOf(const Transcript& calls, const std::vector<Fault::Kind>& kinds,
                            const std::function<bool(const std::string& operation)>& isLeftOut) {
  std::vector<Fault> faults;
  std::map<std::string, int> seen;
  for (const std::string& call : calls) {
    const int nth = ++seen[call];
    if (beginsWith(call, "~") || (isLeftOut && isLeftOut(operationOf(call)))) {
      continue;
    }
    for (const Fault::Kind kind : kinds) {
      if (canHave(kind, call) && !(isOfEach(kind) && nth > 1)) {
        faults.push_back({kind, call, nth});
      }
    }
  }
  return faults;
}

void apply(const Fault& fault, ScriptedProvider& provider) {
  const std::size_t delivered =
      fault.kind == Fault::Kind::deliversHalf ? lengthOf(fault.call) / 2 : 0;
  switch (fault.kind) {
    case Fault::Kind::throwsError:
      return provider.on(fault.call, fault.nth,
                         [](base::CaseCore&) { throw std::runtime_error(kThrown); });
    case Fault::Kind::throwsNoMemory:
      return provider.on(fault.call, fault.nth, [](base::CaseCore&) { throw std::bad_alloc(); });
    case Fault::Kind::postsErrors:
      return provider.on(fault.call, fault.nth, [](base::CaseCore& core) {
        core.messages.addError(kPostedError);
        core.messages.addError(kPostedError2);
      });
    case Fault::Kind::postsWarnings:
      return provider.on(fault.call, fault.nth,
                         [](base::CaseCore& core) { core.messages.addWarning(kPostedWarning); });
    case Fault::Kind::findsNothing:
      return provider.hideTables(fault.call, fault.nth);
    case Fault::Kind::givesNoList:
      provider.answerUniform(fault.call, {});
      return provider.answerList(fault.call, {});
    case Fault::Kind::deliversNothing:
    case Fault::Kind::deliversHalf:
      provider.answerDelivered(fault.call, delivered);
      return provider.deliverAtMost(fault.call, delivered);
    default:
      return;
  }
}

void apply(const Fault& fault, LocationModelScript& script) {
  if (fault.kind == Fault::Kind::breaksDown) {
    script.breakDown(fault.call, fault.nth);
  } else if (fault.kind == Fault::Kind::isRefused) {
    script.refuse(fault.call, fault.nth);
  } else if (fault.kind == Fault::Kind::isDenied) {
    script.deny(fault.call, fault.nth);
  }
}

std::string thrownByFault() {
  try {
    throw;
  } catch (const std::bad_alloc&) {
    return "throws for lack of memory";
  } catch (const std::runtime_error& error) {
    return std::string("throws ") + error.what();
  } catch (...) {
    return "throws something else";
  }
}

std::string differenceOf(const Transcript& expected, const Transcript& found) {
  const auto differing =
      std::mismatch(expected.begin(), expected.end(), found.begin(), found.end());
  if (differing.first == expected.end() && differing.second == found.end()) {
    return "";
  }
  std::string text;
  const auto at = differing.first - expected.begin();
  for (auto line = expected.begin() + std::max<std::ptrdiff_t>(at - 4, 0); line != differing.first;
       ++line) {
    text += "both     " + *line + "\n";
  }
  text += "expected " + (differing.first == expected.end() ? "the end" : *differing.first) + "\n";
  text += "found    " + (differing.second == found.end() ? "the end" : *differing.second) + "\n";
  return text;
}

void addLines(Transcript& lines, const std::string& word, const std::string& text) {
  std::istringstream stream(text);
  for (std::string line; std::getline(stream, line);) {
    lines.push_back(word);
    lines.back().append(" ").append(line).append(stream.eof() ? " (no line end)" : "");
  }
}

void addLines(Transcript& lines, const std::string& word, const std::vector<std::string>& texts) {
  for (const std::string& text : texts) {
    lines.push_back(word);
    lines.back().append(" ").append(text);
  }
}

}  // namespace velto::testing
