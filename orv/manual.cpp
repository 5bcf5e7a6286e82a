// SPDX-License-Identifier: Apache-2.0
//
// orv(1): sections on the program as a whole, and one for each subcommand.

#include "orv/manual.h"

#include <cstdlib>
#include <ctime>
#include <fmt/format.h>
#include <vector>

#include "factory/formats.h"
#include "orv/RoffPage.h"
#include "orv/command_line.h"
#include "orv/version.h"

namespace velto::orv {

namespace {

using Words = std::vector<std::string>;

/// "2026-11-22". Packages that are built twice are to be the same: they set the variable.
std::string dateOfPage() {
  const char* const fixed = std::getenv("SOURCE_DATE_EPOCH");
  const std::time_t seconds =
      fixed != nullptr ? std::strtoll(fixed, nullptr, 10) : std::time(nullptr);
  std::tm date{};
  ::gmtime_r(&seconds, &date);
  return fmt::format("{:04}-{:02}-{:02}", date.tm_year + 1900, date.tm_mon + 1, date.tm_mday);
}

std::string bolds(const Words& names) {
  std::string text;
  for (const std::string& name : names) {
    text += (text.empty() ? "" : ", ") + roffBold(name);
  }
  return text;
}

/// "orv copy [OPTION]... SOURCE DESTINATION".
std::string usageOf(const std::string& program, const Command& command) {
  std::string usage = roffBold(program + " " + command.name) + " [" + roffItalic("OPTION") + "]...";
  for (const Argument& place : command.positionals) {
    std::string name;
    if (place.kind == ValueKind::words && place.wordsUnless.empty()) {
      Words words;
      for (const std::string& word : place.words) {
        words.push_back(roffBold(word));
      }
      name = fmt::format("{{{}}}", fmt::join(words, " | "));
    } else {
      name = roffItalic(place.placeholder);
    }
    usage += " " + (place.isRequired ? name : "[" + name + "]") + (place.repeats ? "..." : "");
  }
  return usage;
}

/// What the program's help says of an option in signs, in words.
std::string textOf(const Argument& option) {
  std::string text = roffText(option.description);
  const auto addSentence = [&text](const std::string& sentence) {
    text += (text.empty() || text.back() == '.' ? " " : ". ") + sentence + ".";
  };
  if (!option.range.empty()) {
    addSentence(roffItalic(option.placeholder) + " is " + roffText(option.range));
  }
  if (!option.usual.empty()) {
    addSentence("Default: " + roffText(option.usual));
  }
  if (!option.needs.empty()) {
    addSentence("Only with " + bolds(option.needs));
  }
  if (!option.excludes.empty()) {
    addSentence("Not with " + bolds(option.excludes));
  }
  return text.back() == '.' ? text : text + ".";
}

void addOptions(RoffPage& page, const Command& command) {
  std::string group = command.options.front().group;
  for (const Argument& option : command.options) {
    if (option.group != group) {
      group = option.group;
      page.addParagraph(roffText(group) + ":");
    }
    page.addEntry(bolds(option.names) +
                      (option.placeholder.empty() ? "" : " " + roffItalic(option.placeholder)),
                  textOf(option));
  }
}

void addCommand(RoffPage& page, const std::string& program, const Command& command) {
  page.addSubsection(roffText(program + " " + command.name));
  page.addParagraph(usageOf(program, command));
  page.addParagraph(roffText(command.title) + ".");
  for (std::size_t i = 0; i < command.positionals.size(); ++i) {
    const Argument& place = command.positionals[i];
    std::string tag = roffItalic(place.placeholder);
    // One description may be that of several places.
    while (i + 1 < command.positionals.size() &&
           command.positionals[i + 1].description == place.description) {
      tag += " " + roffItalic(command.positionals[++i].placeholder);
    }
    page.addEntry(tag, textOf(place));
  }
  addOptions(page, command);
  page.addPlainText(command.footer);
}

void addExitStatus(RoffPage& page) {
  page.addSection("EXIT STATUS");
  for (const ExitMeaning& row : kExitMeanings) {
    page.addEntry(roffBold(std::to_string(row.status)), roffText(row.meaning));
  }
}

void addFiles(RoffPage& page) {
  page.addSection("FILES");
  for (const factory::Format& format : factory::formats()) {
    if (format.recognises != nullptr || format.written.ending != nullptr) {
      page.addEntry(roffBold(format.name), roffText(format.title) + ": " +
                                               roffText(format.endings) + ". " +
                                               (*format.reads == '\0'    ? "Written only."
                                                : *format.writes == '\0' ? "Read only."
                                                                         : "Read and written."));
    }
  }
  page.addPlainText(
      "A file is written beside its final name and takes that name when it is whole. Where orv is "
      "killed, or the machine stops, this may be left behind, and can be removed:\n"
      "  NAME.part-PID-N  What was half written of NAME by the process PID.\n"
      "  NAME.old-PID-N  The folder that NAME was before, where the file system cannot exchange two "
      "names. If NAME is missing, it is the only copy.");
}

}  // namespace

std::string manualPage(const Command& program) {
  // The program's title is a sentence that begins with its name.
  const std::string does = program.title.substr(program.title.find(' ') + 1);
  RoffPage page("ORV", dateOfPage(), versionName());
  page.addSection("NAME");
  page.addParagraph(roffText(program.name) + " \\- " +
                    roffText(does.substr(0, does.find_last_not_of('.') + 1)));
  page.addSection("SYNOPSIS");
  page.addParagraph(roffBold(program.name) + " " + roffItalic("COMMAND") + " [" +
                    roffItalic("OPTION") + "]... [" + roffItalic("ARGUMENT") + "]...");
  page.addSection("DESCRIPTION");
  page.addParagraph(roffText(program.title) + " Each of its commands does one thing:");
  for (const Command& command : program.commands) {
    page.addEntry(roffBold(command.name), roffText(command.title) + ".");
  }
  page.addParagraph(roffText(kStreams));
  page.addSection("OPTIONS");
  addOptions(page, program);
  page.addSection("COMMANDS");
  for (const Command& command : program.commands) {
    addCommand(page, program.name, command);
  }
  addExitStatus(page);
  addFiles(page);
  page.addSection("EXAMPLES");
  page.addPlainText(program.footer.substr(program.footer.find('\n') + 1));
  page.addSection("SEE ALSO");
  page.addParagraph(bolds({"dot"}) + "(1), " + bolds({"h5dump"}) + "(1), " + bolds({"jq"}) + "(1)");
  return page.text();
}

}  // namespace velto::orv
