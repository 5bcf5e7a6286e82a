// SPDX-License-Identifier: Apache-2.0
//
// RoffPage: a page in the macros of man(7), written from plain texts.

#ifndef VELTO_ORV_ROFF_PAGE_H
#define VELTO_ORV_ROFF_PAGE_H

#include <string>

namespace velto::orv {

/// A text as roff shows it and nothing else: backslashes, hyphens, quotes. What stands between two
/// backticks is set in bold.
std::string roffText(const std::string& text);

/// The same in one font.
std::string roffBold(const std::string& text);
std::string roffItalic(const std::string& text);

/// All arguments are roff already, but for what is called plain.
class RoffPage {
 public:
  RoffPage(const std::string& name, const std::string& date, const std::string& program);

  void addSection(const std::string& plain);
  void addSubsection(const std::string& title);
  /// A paragraph of its own.
  void addParagraph(const std::string& text);
  /// A tag at the margin and a text beside or below it.
  void addEntry(const std::string& tag, const std::string& text);
  /// Plain text of several paragraphs, with an empty line between two. Lines that begin with blanks
  /// are examples: what is typed, and behind two blanks or more what it is for.
  void addPlainText(const std::string& plain);

  const std::string& text() const { return page_; }

 private:
  void addLine(const std::string& line) {
    page_ += line + "\n";
    isBelowTitle_ = false;
  }
  /// Broken into lines that roff fills again.
  void addFilled(const std::string& text);

  std::string page_;
  bool isBelowTitle_ = false;  ///< Where a paragraph begins by itself.
};

}  // namespace velto::orv

#endif  // VELTO_ORV_ROFF_PAGE_H
