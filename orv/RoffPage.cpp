// SPDX-License-Identifier: Apache-2.0
//
// RoffPage: escapes, and lines of a length that suits other programs.

#include "orv/RoffPage.h"

#include <algorithm>
#include <fmt/format.h>
#include <sstream>

namespace velto::orv {

namespace {

/// Of a line of the source; what is shown is filled anyway.
constexpr std::size_t kLineLength = 76;

std::string roffLetter(char letter) {
  switch (letter) {
    case '\\':
      return "\\e";
    case '-':
      return "\\-";  // a hyphen as such would not be found, nor copied
    case '\'':
      return "\\(aq";
    case '`':
      return "\\(ga";
    case '"':
      return "\\(dq";
    case '^':
      return "\\(ha";
    case '~':
      return "\\(ti";
    default:
      return {letter};
  }
}

std::string roffLetters(const std::string& text) {
  std::string result;
  for (const char letter : text) {
    result += roffLetter(letter);
  }
  return result;
}

/// A line that begins with a dot or a quote would be a macro.
std::string guarded(const std::string& line) {
  const bool isMacro = !line.empty() && (line.front() == '.' || line.front() == '\'');
  return (isMacro ? "\\&" : "") + line;
}

}  // namespace

std::string roffBold(const std::string& text) { return "\\fB" + roffLetters(text) + "\\fP"; }

std::string roffItalic(const std::string& text) { return "\\fI" + roffLetters(text) + "\\fP"; }

std::string roffText(const std::string& text) {
  std::string result;
  std::size_t begin = 0;
  while (begin < text.size()) {
    const std::size_t first = text.find('`', begin);
    const std::size_t last =
        first == std::string::npos ? std::string::npos : text.find('`', first + 1);
    if (last == std::string::npos) {
      return result + roffLetters(text.substr(begin));
    }
    result += roffLetters(text.substr(begin, first - begin)) +
              roffBold(text.substr(first + 1, last - first - 1));
    begin = last + 1;
  }
  return result;
}

RoffPage::RoffPage(const std::string& name, const std::string& date, const std::string& program) {
  addLine(fmt::format(".TH {} 1 {} \"{}\"", name, date, program));
}

void RoffPage::addSection(const std::string& plain) {
  addLine(".SH " + plain);
  isBelowTitle_ = true;
}

void RoffPage::addSubsection(const std::string& title) {
  addLine(".SS " + title);
  isBelowTitle_ = true;
}

void RoffPage::addParagraph(const std::string& text) {
  if (!isBelowTitle_) {
    addLine(".PP");
  }
  addFilled(text);
}

void RoffPage::addEntry(const std::string& tag, const std::string& text) {
  addLine(".TP");
  addLine(guarded(tag));
  addFilled(text);
}

void RoffPage::addPlainText(const std::string& plain) {
  std::istringstream lines(plain);
  std::string paragraph;
  const auto endParagraph = [this, &paragraph] {
    if (!paragraph.empty()) {
      addParagraph(roffText(paragraph));
      paragraph.clear();
    }
  };
  for (std::string line; std::getline(lines, line);) {
    if (line.compare(0, 2, "  ") == 0) {
      endParagraph();
      const std::size_t begin = line.find_first_not_of(' ');
      const std::size_t end = std::min(line.find("  ", begin), line.size());
      const std::size_t what = line.find_first_not_of(' ', end);
      addEntry(roffBold(line.substr(begin, end - begin)),
               what == std::string::npos ? "" : roffText(line.substr(what)));
    } else if (line.empty()) {
      endParagraph();
    } else {
      paragraph += (paragraph.empty() ? "" : " ") + line;
    }
  }
  endParagraph();
}

void RoffPage::addFilled(const std::string& text) {
  std::istringstream words(text);
  std::string line;
  for (std::string word; words >> word;) {
    if (!line.empty() && line.size() + 1 + word.size() > kLineLength) {
      addLine(guarded(line));
      line.clear();
    }
    line += (line.empty() ? "" : " ") + word;
  }
  if (!line.empty()) {
    addLine(guarded(line));
  }
}

}  // namespace velto::orv
