#!/usr/bin/env python3
# SPDX-License-Identifier: Apache-2.0
"""Refuses an include that no arrow between the folders allows, and a source above 500 lines.

Usage: arrows_test.py ROOT            checks the project at ROOT, prints file:line: reason
       arrows_test.py --self-test     checks this script on made-up trees
"""

import os
import re
import sys
import tempfile
import unittest

from made_up_tree import write_tree

MAX_LINES = 500

# The layers, and what each may include beside itself: another layer, or a single header of one. A
# layer "formats/*" is one layer for each folder there. An arrow to "embedded" covers its folders.
ARROWS = {
    "include/velto": ["data_access/fwd.h", "data_access/OrvTypes.h"],
    "data_access": [],
    "checker": ["include/velto/OrvChecker.h", "include/velto/LocationModelBuilder.h", "data_access"],
    "location_model": ["include/velto/LocationModelBuilder.h", "data_access"],
    "physics_regions": ["include/velto/PhysicsRegionResolver.h", "include/velto/RegionTable.h",
                        "data_access"],
    "copier": ["include/velto/OrvCopier.h", "include/velto/LocationModelBuilder.h", "data_access"],
    "embedded/base": ["data_access"],
    "embedded/memory": ["data_access", "embedded/base"],
    "embedded/store": ["data_access", "embedded/base"],
    "formats/*": ["data_access", "embedded/base", "embedded/memory"],
    "factory": ["data_access", "embedded", "formats"],
    "samples": ["data_access", "embedded"],
    "catalogue": [],
    "testing": ["data_access", "embedded/base", "embedded/memory"],
    "orv": ["include/velto", "data_access", "factory", "samples", "catalogue"],
    # What is installed. An example is a project of its own, which names its own headers shortly.
    "examples": ["include/velto", "data_access", "embedded/base", "embedded/memory",
                 "factory/makers.h"],
}

# Folders that may include every layer, and any library.
FREE = ["tests", "benchmarks", "fuzz"]

# Which layers may include headers of which library. All may include the standard library.
LIBRARIES = {
    "zlib.h": ["formats/*", "testing"],
    "hdf5.h": ["embedded/store"],
    "zstd.h": ["embedded/store"],
    "xxhash.h": ["embedded/store"],
    "xxh_x86dispatch.h": ["embedded/store"],
    "CLI/": ["orv"],
    "fmt/": ["orv"],
    "nlohmann/": ["orv"],
    # The operating system.
    "sys/": ["embedded/base", "embedded/store", "formats/*", "orv"],
    "fcntl.h": ["embedded/base", "embedded/store", "formats/*", "orv"],
    "unistd.h": ["embedded/base", "embedded/store", "formats/*", "orv"],
}

INCLUDE = re.compile(r'^\s*#\s*include\s*(?:"([^"]*)"|<([^>]*)>)')


def is_in(path, folder):
    return path == folder or path.startswith(folder + "/")


def layer_of(path):
    """The row of ARROWS that a file belongs to, its own folder, and whether it is free."""
    parts = path.split("/")
    if parts[0] in FREE:
        return None, parts[0], True
    for row in ARROWS:
        if row.endswith("/*"):
            if parts[0] == row[:-2] and len(parts) > 2:
                return row, "/".join(parts[:2]), False
        elif is_in(path, row):
            return row, row, False
    return None, parts[0], False


def sources(root):
    for folder, folders, files in os.walk(root):
        folders[:] = sorted(
            name for name in folders
            if not name.startswith(".") and not re.match(r"(cmake-)?build(-|$)", name)
        )
        for name in sorted(files):
            if name.endswith((".h", ".cpp")):
                yield os.path.relpath(os.path.join(folder, name), root).replace(os.sep, "/")


def judge_library(row, included):
    """What is wrong with an include of something that is not of this project, or None."""
    for library, rows in LIBRARIES.items():
        if included == library or (library.endswith("/") and included.startswith(library)):
            return None if row in rows else f"{row} does not use <{included}>"
    if "." in included or "/" in included:
        return f"{row} does not use <{included}>"
    return None


def find_included(root, path, included):
    """The file of the project that an include of the file `path` means, or None."""
    names = [included, "include/" + included]
    if is_in(path, "examples"):
        names += [f"examples/{folder}/{included}"
                  for folder in sorted(os.listdir(os.path.join(root, "examples")))]
    return next((name for name in names if os.path.isfile(os.path.join(root, name))), None)


def judge_include(root, path, quoted, angled):
    """What is wrong with one include of the file `path`, or None."""
    row, own, free = layer_of(path)
    included = quoted if quoted is not None else angled
    if ".." in included.split("/"):
        return f'"{included}" climbs; includes are written from the root'
    target = find_included(root, path, included)
    if target is None:
        if quoted is not None:
            return f'"{included}" is no file of this project; includes are written from the root'
        return None if free else judge_library(row, included)
    if quoted is None:
        return f"<{included}> is a file of this project and is included in quotes"
    if free or is_in(target, own) or any(is_in(target, arrow) for arrow in ARROWS[row]):
        return None
    return f'no arrow from {own} to "{included}"'


def judge(root):
    """All that is wrong with the project at `root`, one line each."""
    found = []
    for path in sources(root):
        with open(os.path.join(root, path), encoding="utf-8") as source:
            lines = source.read().splitlines()
        if len(lines) > MAX_LINES:
            found.append(f"{path}:{MAX_LINES + 1}: {len(lines)} lines, more than {MAX_LINES}")
        row, own, free = layer_of(path)
        if row is None and not free:
            found.append(f"{path}:1: {own} is no folder that the arrows know")
            continue
        for number, line in enumerate(lines, 1):
            match = INCLUDE.match(line)
            if match:
                wrong = judge_include(root, path, *match.groups())
                if wrong:
                    found.append(f"{path}:{number}: {wrong}")
    return found


class Arrows(unittest.TestCase):
    """Each test writes a small project and compares the whole list of complaints."""

    PROJECT = {
        "include/velto/Tool.h": '#include "data_access/fwd.h"\n',
        "data_access/fwd.h": "#include <string>\n",
        "data_access/Wide.h": '#include "data_access/fwd.h"\n',
        "embedded/base/Tables.h": '#include "data_access/Wide.h"\n',
        "embedded/memory/Case.h": '#include "embedded/base/Tables.h"\n',
        "formats/foam/read.h": '#include <zlib.h>\n#include "embedded/memory/Case.h"\n',
        "factory/list.cpp": '#include "formats/foam/read.h"\n#include "embedded/base/Tables.h"\n',
        "orv/main.cpp": '#include <CLI/CLI.hpp>\n\n#include "velto/Tool.h"\n',
        "examples/host/own.h": '#include "embedded/memory/Case.h"\n',
        "examples/host/main.cpp": '#include "velto/Tool.h"\n\n#include "own.h"\n',
        "tests/all.cpp": '#include <gtest/gtest.h>\n\n#include "embedded/base/Tables.h"\n',
    }

    def complaints(self, changed):
        """Complaints about the sound project with more files, text by path."""
        with tempfile.TemporaryDirectory() as root:
            write_tree(root, {**self.PROJECT, **changed})
            return judge(root)

    def test_a_sound_project_passes(self):
        self.assertEqual(self.complaints({}), [])

    def test_a_new_arrow_is_refused(self):
        text = '#include <vector>\n#include "embedded/base/Tables.h"\n'
        self.assertEqual(
            self.complaints({"checker/frame.cpp": text}),
            ['checker/frame.cpp:2: no arrow from checker to "embedded/base/Tables.h"'])

    def test_an_example_sees_what_is_installed_only(self):
        self.assertEqual(
            self.complaints({"examples/host/more.cpp": '#include "formats/foam/read.h"\n'}),
            ['examples/host/more.cpp:1: no arrow from examples to "formats/foam/read.h"'])

    def test_a_public_header_sees_the_forward_header_only(self):
        self.assertEqual(
            self.complaints({"include/velto/Other.h": '#include "data_access/Wide.h"\n'}),
            ['include/velto/Other.h:1: no arrow from include/velto to "data_access/Wide.h"'])

    def test_a_format_does_not_see_another(self):
        self.assertEqual(
            self.complaints({"formats/vtu/read.cpp": '#include "formats/foam/read.h"\n'}),
            ['formats/vtu/read.cpp:1: no arrow from formats/vtu to "formats/foam/read.h"'])

    def test_a_test_double_does_not_see_a_tool(self):
        self.assertEqual(
            self.complaints({"testing/Double.cpp": '#include "velto/Tool.h"\n'}),
            ['testing/Double.cpp:1: no arrow from testing to "velto/Tool.h"'])

    def test_an_upward_arrow_is_refused(self):
        self.assertEqual(
            self.complaints({"embedded/base/up.cpp": '#include "embedded/memory/Case.h"\n'}),
            ['embedded/base/up.cpp:1: no arrow from embedded/base to "embedded/memory/Case.h"'])

    def test_a_library_stays_where_it_belongs(self):
        text = "#include <memory>\n#include <nlohmann/json.hpp>\n"
        self.assertEqual(
            self.complaints({"checker/frame.cpp": text}),
            ["checker/frame.cpp:2: checker does not use <nlohmann/json.hpp>"])

    def test_a_climbing_include_is_refused_everywhere(self):
        self.assertEqual(
            self.complaints({"tests/more.cpp": '#include "../data_access/Wide.h"\n'}),
            ['tests/more.cpp:1: "../data_access/Wide.h" climbs; includes are written from the root'])

    def test_an_include_from_elsewhere_than_the_root_is_refused(self):
        self.assertEqual(
            self.complaints({"embedded/base/a.cpp": '#include "Tables.h"\n'}),
            ['embedded/base/a.cpp:1: "Tables.h" is no file of this project; '
             "includes are written from the root"])

    def test_a_project_file_in_angle_brackets_is_refused(self):
        self.assertEqual(
            self.complaints({"orv/b.cpp": "#include <velto/Tool.h>\n"}),
            ["orv/b.cpp:1: <velto/Tool.h> is a file of this project and is included in quotes"])

    def test_a_folder_without_a_row_is_refused(self):
        self.assertEqual(
            self.complaints({"utils/helper.h": "\n"}),
            ["utils/helper.h:1: utils is no folder that the arrows know"])

    def test_a_long_file_is_refused(self):
        self.assertEqual(self.complaints({"orv/fits.cpp": "\n" * MAX_LINES}), [])
        self.assertEqual(
            self.complaints({"orv/long.cpp": "\n" * (MAX_LINES + 1)}),
            ["orv/long.cpp:501: 501 lines, more than 500"])


def main():
    if len(sys.argv) != 2:
        sys.exit(__doc__)
    if sys.argv[1] == "--self-test":
        unittest.main(argv=sys.argv[:1])
    found = judge(sys.argv[1])
    for line in found:
        print(line)
    sys.exit(1 if found else 0)


if __name__ == "__main__":
    main()
