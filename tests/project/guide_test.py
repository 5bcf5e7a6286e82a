#!/usr/bin/env python3
# SPDX-License-Identifier: Apache-2.0
"""Compares what documents show of the examples with the examples, which other tests build and run.

In the guide every block of C++ or CMake stands, line for line, in a file of examples/: a C++ block
with a main is the whole file below its head. In the README the blocks with a main are.

Usage: guide_test.py ROOT       checks the documents of the project at ROOT
       guide_test.py --self-test checks this script on made-up documents
"""

import glob
import os
import re
import sys
import unittest

BLOCK = re.compile(r"^```(cpp|cmake)\n(.*?)^```$", re.MULTILINE | re.DOTALL)
HEAD = re.compile(r"\A(//[^\n]*\n)+\n")


def judge(text, files, only_programs=False):
    """What is wrong with the blocks of a document, given the texts of the examples by name."""
    found = []
    for match in BLOCK.finditer(text):
        language, block = match.groups()
        line = text.count("\n", 0, match.start()) + 1
        names = [name for name in files if name.endswith(".cpp" if language == "cpp" else ".txt")
                 or language == "cpp" and name.endswith(".h")]
        if re.search(r"\bint main\(", block):
            stands = any(HEAD.sub("", files[name]) == block for name in names)
        elif only_programs:
            continue
        else:
            stands = any("\n" + block in "\n" + files[name] for name in names)
        if not stands:
            found.append(f"line {line}: stands in no example: {block.splitlines()[0]}")
    return found


class Guide(unittest.TestCase):
    FILES = {"a/main.cpp": "// Licence\n//\n// Head.\n\nint main() {\n  return 0;\n}\n",
             "a/CMakeLists.txt": "project(a)\nadd_executable(a main.cpp)\n"}

    def test_a_whole_program_and_a_piece_pass(self):
        text = ("```cpp\nint main() {\n  return 0;\n}\n```\n\n```cpp\n  return 0;\n```\n"
                "```cmake\nadd_executable(a main.cpp)\n```\n```sh\nmake\n```\n")
        self.assertEqual(judge(text, self.FILES), [])

    def test_a_program_that_is_cut_is_named(self):
        self.assertEqual(judge("Text\n```cpp\nint main() {\n```\n", self.FILES),
                         ["line 2: stands in no example: int main() {"])

    def test_a_piece_of_another_language_or_of_part_of_a_line_is_named(self):
        self.assertEqual(judge("```cmake\n  return 0;\n```\n```cpp\nreturn 0;\n```\n", self.FILES),
                         ["line 1: stands in no example:   return 0;",
                          "line 4: stands in no example: return 0;"])

    def test_pieces_may_be_passed_over(self):
        self.assertEqual(judge("```cpp\nreturn 0;\n```\n", self.FILES, only_programs=True), [])


def main():
    if sys.argv[1:] == ["--self-test"]:
        unittest.main(argv=sys.argv[:1])
    if len(sys.argv) != 2:
        sys.exit(__doc__)
    root = sys.argv[1]

    def read(name):
        with open(os.path.join(root, name), encoding="utf-8") as file:
            return file.read()

    files = {name: read(name) for name in glob.glob("examples/*/*", root_dir=root)
             if name.endswith((".cpp", ".h", ".txt"))}
    pages = sorted(glob.glob("docs/guide/*.md", root_dir=root))
    if not files or not pages:
        sys.exit("no examples or no guide found")
    found = [f"README.md: {line}" for line in judge(read("README.md"), files, only_programs=True)]
    for page in pages:
        found += [f"{page}: {line}" for line in judge(read(page), files)]
    for line in found:
        print(line)
    sys.exit(1 if found else 0)


if __name__ == "__main__":
    main()
