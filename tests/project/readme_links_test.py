#!/usr/bin/env python3
# SPDX-License-Identifier: Apache-2.0
"""Refuses what a Markdown page names and the project has not: the target of a link, a file, a name.

Usage: readme_links_test.py ROOT            checks the project at ROOT, prints file:line: reason
       readme_links_test.py --self-test     checks this script on made-up trees
"""

import os
import re
import sys
import tempfile
import unittest

from made_up_tree import write_tree

# They tell what was once: what stands there in backticks may be gone.
PAST = ("CHANGELOG.md", "docs/decisions/")

LINK = re.compile(r"\]\(([^()\s]+)\)")
WITH_SCHEME = re.compile(r"[a-z]+:")
CODE = re.compile(r"`([^`]+)`")

# A word in backticks is a file if it ends as sources do, or begins with a folder of the project,
# and leaves nothing open ("<name>", "*", "...").
PATH = re.compile(r"[\w./-]*[\w/]")
SOURCE = re.compile(r".*\.(h|cpp|py|cmake|md|schema\.json)")
# Two words in one are a name of the sources ("CaseTables", "base::CaseTables", "copy_files").
NAME = re.compile(r"(\w+::)*(?=\w*?(_|[a-z][A-Z]))[A-Za-z]\w*(\(\))?")


def is_listed(name):
    return not name.startswith(".") and not re.match(r"(cmake-)?build(-|$)|__pycache__$", name)


def without_blocks(text):
    """The lines of a page; those of its blocks of code are empty."""
    lines = []
    in_block = False
    for line in text.splitlines():
        is_fence = line.lstrip().startswith("```")
        lines.append("" if in_block or is_fence else line)
        in_block = in_block != is_fence
    return lines


def anchors(text):
    """What a link may name behind #: the headings of a page as they stand in an address."""
    found = set()
    for line in without_blocks(text):
        if re.match("#+ ", line):
            plain = re.sub(r"[^\w\- ]", "", line.lstrip("#").strip().lower()).replace(" ", "-")
            anchor = plain
            again = 0
            while anchor in found:
                again += 1
                anchor = f"{plain}-{again}"
            found.add(anchor)
    return found


class Project:
    """The pages of a project, and what they may name."""

    def __init__(self, root):
        self.pages = {}     # their texts
        self.paths = {"."}  # of files and folders, from the root
        self.words = set()  # of the sources
        for folder, folders, files in os.walk(root):
            folders[:] = [name for name in folders if is_listed(name)]
            for name in folders + files:
                file = os.path.join(folder, name)
                path = os.path.relpath(file, root).replace(os.sep, "/")
                self.paths.add(path)
                if name in files:
                    self.read(file, path)
        self.folders = {path.split("/")[0] for path in self.paths if "/" in path}
        # Each path with as many of its folders as somebody may care to write; programs and pairs of
        # a header and a source go by their name alone.
        self.ends = set()
        for path in self.paths:
            names = path.split("/")
            for first in range(len(names)):
                end = "/".join(names[first:])
                self.ends.update((end, os.path.splitext(end)[0]))

    def read(self, file, path):
        with open(file, encoding="utf-8", errors="replace") as source:
            text = source.read()
        if path.endswith(".md"):
            self.pages[path] = text
        else:
            self.words.update(re.findall(r"\w+", path + " " + text))

    def judge_link(self, page, target):
        """What is wrong with a link of a page, or None."""
        if WITH_SCHEME.match(target):
            return None
        path, _, anchor = target.partition("#")
        path = os.path.normpath(os.path.join(os.path.dirname(page), path)) if path else page
        if path not in self.paths:
            return f"({target}) leads nowhere"
        if anchor and anchor not in anchors(self.pages.get(path, "")):
            return f"({target}): {path} has no such heading"
        return None

    def judge_code(self, code):
        """What is wrong with what stands in backticks, or None."""
        if NAME.fullmatch(code) and re.findall(r"\w+", code)[-1] not in self.words:
            return f"`{code}` is no name that the sources have"
        for word in code.split():
            path = re.sub(r"^\.{1,2}/", "", word).rstrip("/")
            is_in_folder = "/" in word and path.split("/")[0] in self.folders
            if (PATH.fullmatch(word) and (is_in_folder or SOURCE.fullmatch(path))
                    and path not in self.ends):
                return f"`{word}` is no file of this project"
        return None

    def judge(self):
        """All that is wrong with the pages, one line each."""
        found = []
        for page, text in sorted(self.pages.items()):
            for number, line in enumerate(without_blocks(text), 1):
                wrongs = [self.judge_link(page, link) for link in LINK.findall(line)]
                if not page.startswith(PAST):
                    wrongs += [self.judge_code(code) for code in CODE.findall(line)]
                found += [f"{page}:{number}: {wrong}" for wrong in wrongs if wrong]
        return found


class Pages(unittest.TestCase):
    """Each test writes a page into a small project and compares the whole list of complaints."""

    PROJECT = {
        "README.md": "# The project\n\n## What it's for\n\n## Again\n\n## Again\n",
        "CHANGELOG.md": "Gone is `checker/Gone.h`.\n",
        "checker/README.md": "See [the project](../README.md).\n",
        "checker/frame.cpp": "void checkFrame(base::CaseTables& tables);\n",
        "checker/frame.h": "\n",
        "scripts/test": "\n",
        "build/gone.cpp": "void builtName();\n",
    }

    def complaints(self, line, page="docs/page.md"):
        with tempfile.TemporaryDirectory() as root:
            write_tree(root, {**self.PROJECT, page: line + "\n"})
            return Project(root).judge()

    def test_a_sound_page_passes(self):
        for line in ("[a](../README.md) and [b](../checker/) ![c](../scripts/test)",
                     "[a](../README.md#what-its-for) [b](../README.md#again-1) [c](https://a.org)",
                     "# Here\n[a](#here) [b](..)",
                     "`checker/frame.cpp`, `frame.h`, `checker/frame`, `../checker/`, `checker`",
                     "`./scripts/test --asan`, `scripts/test FILES`, `checker/<family>.cpp`",
                     "`frame_*.cpp`, `checker/...`, `constant/polyMesh`, `a/b`, `--some_option`",
                     "`CaseTables`, `base::CaseTables`, `checkFrame()`, `word`, `CAPITALS`"):
            self.assertEqual(self.complaints(line), [], line)

    def test_a_link_that_leads_nowhere_is_refused(self):
        for target in ("gone.md", "../checker/gone.cpp", "README.md", "../build/gone.cpp"):
            self.assertEqual(self.complaints(f"[a]({target})"),
                             [f"docs/page.md:1: ({target}) leads nowhere"])

    def test_a_heading_that_is_not_there_is_refused(self):
        self.assertEqual(self.complaints("[a](../README.md#gone)"),
                         ["docs/page.md:1: (../README.md#gone): README.md has no such heading"])
        self.assertEqual(self.complaints("```\n# In a block\n```\n[a](#in-a-block)"),
                         ["docs/page.md:4: (#in-a-block): docs/page.md has no such heading"])

    def test_a_file_that_is_not_there_is_refused(self):
        for word in ("checker/gone.cpp", "gone.h", "scripts/gone", "./scripts/gone/"):
            self.assertEqual(self.complaints(f"See `{word}`."),
                             [f"docs/page.md:1: `{word}` is no file of this project"])
        self.assertEqual(self.complaints("`scripts/gone FILES`"),
                         ["docs/page.md:1: `scripts/gone` is no file of this project"])

    def test_a_name_that_no_source_has_is_refused(self):
        for name in ("GoneClass", "gone_file", "base::GoneClass", "goneCall()", "builtName"):
            self.assertEqual(self.complaints(f"See `{name}`."),
                             [f"docs/page.md:1: `{name}` is no name that the sources have"])

    def test_what_was_may_be_gone(self):
        self.assertEqual(self.complaints("`GoneClass`, `gone.h`", "docs/decisions/1-a.md"), [])


def main():
    if len(sys.argv) != 2:
        sys.exit(__doc__)
    if sys.argv[1] == "--self-test":
        unittest.main(argv=sys.argv[:1])
    found = Project(sys.argv[1]).judge()
    for line in found:
        print(line)
    sys.exit(1 if found else 0)


if __name__ == "__main__":
    main()
