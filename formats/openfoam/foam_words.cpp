// SPDX-License-Identifier: Apache-2.0
//
// Words: one pass over the names that are words already, one over the others.

#include "formats/openfoam/foam_words.h"

#include <cstddef>
#include <map>
#include <set>

#include "formats/openfoam/characters.h"

namespace velto::openfoam {

namespace {

bool canBeInWord(char c) {
  constexpr unsigned char kDelete = 127;
  const auto code = static_cast<unsigned char>(c);
  return code > ' ' && code != kDelete &&
         std::string("\"'/\\;{}()[]#$").find(c) == std::string::npos;
}

/// The end of the string that begins at `i`, or npos.
std::size_t endOfString(const std::string& text, std::size_t i) {
  for (++i; i < text.size() && text[i] != '"'; ++i) {
    if (text[i] == '\n') {
      return std::string::npos;
    }
    i += text[i] == '\\' ? 1U : 0U;
  }
  return i < text.size() ? i : std::string::npos;
}

bool isCommentAt(const std::string& text, std::size_t i) {
  return text.compare(i, 2, "//") == 0 || text.compare(i, 2, "/*") == 0;
}

/// Takes one character outside of strings; `closers` are the brackets to come. False if it cannot
/// stand there.
bool takeCharacter(char c, std::string& closers) {
  switch (c) {
    case '{':
      closers += '}';
      return true;
    case '(':
      closers += ')';
      return true;
    case '[':
      closers += ']';
      return true;
    case '}':
    case ')':
    case ']':
      if (closers.empty() || closers.back() != c) {
        return false;
      }
      closers.pop_back();
      return true;
    case ';':
      return !closers.empty() && closers.back() == '}';
    default:
      return c != '#' && c != '$' && (isBlank(c) || static_cast<unsigned char>(c) > ' ');
  }
}

}  // namespace

std::string foamWord(const std::string& name) {
  std::string word;
  if (name.empty() || isDigit(name.front()) ||
      std::string("+-.").find(name.front()) != std::string::npos) {
    word = "_";
  }
  for (const char c : name) {
    word += canBeInWord(c) ? c : '_';
  }
  return word;
}

std::vector<std::string> foamWords(const std::vector<std::string>& names) {
  std::vector<std::string> words(names.size());
  std::set<std::string> taken;
  for (std::size_t i = 0; i < names.size(); ++i) {
    if (foamWord(names[i]) == names[i] && taken.insert(names[i]).second) {
      words[i] = names[i];
    }
  }
  std::map<std::string, int> lastNumbers;
  for (std::size_t i = 0; i < names.size(); ++i) {
    if (!words[i].empty()) {
      continue;
    }
    const std::string word = foamWord(names[i]);
    words[i] = word;
    int& last = lastNumbers.emplace(word, 1).first->second;
    while (!taken.insert(words[i]).second) {
      words[i] = word + "_" + std::to_string(++last);
    }
  }
  return words;
}

bool isEntryText(const std::string& text) {
  std::string closers;
  const bool isDictionary = !text.empty() && text.front() == '{';
  for (std::size_t i = 0; i < text.size(); ++i) {
    const bool isBehindDictionary = isDictionary && i > 0 && closers.empty();
    if (isBehindDictionary || isCommentAt(text, i)) {
      return false;
    }
    if (text[i] == '"') {
      i = endOfString(text, i);
      if (i == std::string::npos) {
        return false;
      }
      continue;
    }
    if (!takeCharacter(text[i], closers)) {
      return false;
    }
  }
  return !text.empty() && closers.empty();
}

}  // namespace velto::openfoam
