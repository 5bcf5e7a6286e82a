// SPDX-License-Identifier: Apache-2.0
//
// The entries of a dictionary, read character by character: such text is short.

#include "formats/openfoam/dictionary.h"

#include <cstddef>
#include <cstdint>

#include "formats/openfoam/characters.h"

namespace velto::openfoam {

namespace {

constexpr std::size_t kLongestText = 1024 * std::size_t{1024};
constexpr std::size_t kDeepestNesting = 64;

// Consumes the character at the present position.
void appendHere(Scanner& scanner, std::string& text) {
  if (text.size() >= kLongestText) {
    scanner.failHere("at most 1048576 characters of text");
  }
  text += static_cast<char>(scanner.here());
  scanner.advance();
}

// Appends the string at the present position, with its quotes.
void appendString(Scanner& scanner, std::string& text) {
  const Place begin = scanner.place();
  appendHere(scanner, text);
  for (int c = scanner.here(); c != '"'; c = scanner.here()) {
    if (c == Scanner::kEnd || c == '\n') {
      scanner.fail(begin, "a string that ends with \" on its line",
                   c == '\n' ? "the end of the line" : "the end of the file");
    }
    appendHere(scanner, text);
    if (c == '\\' && scanner.here() != Scanner::kEnd) {
      appendHere(scanner, text);
    }
  }
  appendHere(scanner, text);
}

void refuseDirective(Scanner& scanner) {
  const int c = scanner.here();
  if (c == '#' || c == '$') {
    scanner.failHere("entries without directives and macros, which are not expanded");
  }
}

std::string readWordAsItStands(Scanner& scanner, const std::string& expected) {
  const int first = scanner.next();
  std::string word;
  if (first == '"') {
    appendString(scanner, word);
    return word;
  }
  refuseDirective(scanner);
  std::size_t open = 0;
  for (int c = first; c != Scanner::kEnd; c = scanner.here()) {
    const bool ends = isBlank(static_cast<char>(c)) || c == '{' || c == '}' || c == ';' ||
                      c == '"' || (c == ')' && open == 0) || (c == '(' && word.empty()) ||
                      scanner.atComment();
    if (ends) {
      break;
    }
    open += c == '(' ? 1U : 0U;
    open -= c == ')' ? 1U : 0U;
    appendHere(scanner, word);
  }
  if (word.empty()) {
    scanner.failHere(expected);
  }
  return word;
}

// The text of one entry while it grows.
class EntryText {
 public:
  EntryText(Scanner& scanner, const std::string& keyword) : scanner_(scanner), keyword_(keyword) {}

  std::string read() {
    for (;;) {
      const std::uint64_t before = scanner_.bytes().offset();
      const int c = scanner_.next();
      const bool blank = scanner_.bytes().offset() != before && !text_.empty();
      if (c == ';' && closers_.empty()) {
        scanner_.advance();
        return text_;
      }
      if (blank) {
        text_ += ' ';
      }
      take(c);
      if (closers_.empty() && text_.front() == '{') {
        return text_;
      }
    }
  }

 private:
  void take(int c) {
    switch (c) {
      case '{':
        return open('}');
      case '(':
        return open(')');
      case '[':
        return open(']');
      case '}':
      case ')':
      case ']':
        return close(c);
      case '"':
        return appendString(scanner_, text_);
      case ';':
        if (closers_.back() != '}') {
          failUnclosed();
        }
        return appendHere(scanner_, text_);
      case Scanner::kEnd:
        failUnclosed();
      default:
        break;
    }
    if (text_.empty() || endsToken(text_.back())) {
      refuseDirective(scanner_);
    }
    appendHere(scanner_, text_);
  }

  void open(char closer) {
    if (closers_.size() == kDeepestNesting) {
      scanner_.failHere("at most 64 nested brackets");
    }
    closers_ += closer;
    appendHere(scanner_, text_);
  }

  void close(int c) {
    if (closers_.empty() || closers_.back() != c) {
      failUnclosed();
    }
    closers_.pop_back();
    appendHere(scanner_, text_);
  }

  [[noreturn]] void failUnclosed() {
    const char missing = closers_.empty() ? ';' : closers_.back();
    scanner_.failHere(std::string("\"") + missing + "\" in the entry " + keyword_);
  }

  Scanner& scanner_;
  const std::string& keyword_;
  std::string text_;
  std::string closers_;  // of the open brackets, the innermost last
};

}  // namespace

std::string readWord(Scanner& scanner, const std::string& expected) {
  return unquoted(readWordAsItStands(scanner, expected));
}

std::optional<std::string> readKeyword(Scanner& scanner) {
  int c = scanner.next();
  while (c == ';') {
    scanner.advance();
    c = scanner.next();
  }
  if (c == '}') {
    scanner.advance();
    return std::nullopt;
  }
  return readWordAsItStands(scanner, "a keyword or \"}\"");
}

std::string readEntryText(Scanner& scanner, const std::string& keyword) {
  return EntryText(scanner, keyword).read();
}

std::string unquoted(const std::string& text) {
  const bool isString = text.size() >= 2 && text.front() == '"' && text.back() == '"';
  return isString ? text.substr(1, text.size() - 2) : text;
}

}  // namespace velto::openfoam
