#!/usr/bin/env python3
# SPDX-License-Identifier: Apache-2.0
"""Names of every kind through all that orv prints and writes.

Usage: names_test.py ORV MAKE_NAMED_CASE
"""

import json
import os
import pathlib
import re
import shutil
import subprocess
import sys
import tempfile
import unittest
import xml.etree.ElementTree

ORV, MAKE_NAMED_CASE = map(os.path.abspath, sys.argv[1:3])

# What everything is named, and how a line of text shows it.
NAMES = {
    "plain": (b"fluid", "fluid"),
    "blanks": (b"fluid  at the inlet", "fluid  at the inlet"),
    "umlaut": ("Zuluft Düse".encode(), "Zuluft Düse"),
    "chinese": ("冷却".encode(), "冷却"),
    "quotes": (b"\"a\" 'b'", r'''"\"a\" 'b'"'''),
    "backslashes": (rb"a\b\\N", rb"a\b\\N".decode()),
    "lines": (b"a\tb\nc\rd", r'"a\tb\nc\rd"'),
    "controls": (b"\x1b[31mred\x07\x7f", r'"\x1b[31mred\x07\x7f"'),
    "latin": (b"Zuluft D\xfcse", r'"Zuluft D\xfcse"'),
    "cut character": (b"a\xe5\x86", r'"a\xe5\x86"'),
    "turned": ("a\u202eb".encode(), r'"a\u202eb"'),
    "markup": (b"<b>&amp;<b> ]]> --", "<b>&amp;<b> ]]> --"),
    "dictionary": (b"a; {b (1 2)} $c #d", "a; {b (1 2)} $c #d"),
    "long": (b"n" * 10000, "n" * 10000),
    "empty": (b"", '""'),
}

LINES_INFO = r"""case.orv
  version 1.0.0, solver type VELTO_GENERIC, with a location model
  results in case.orvr

mesh 1, restart: 3-D, 8 nodes, 6 faces, 1 cells, unit m
  zone  kind  name           type  shape          elements  ids     cell zones  shadow
     1  node  "a\tb\nc\rd"                               8  1 to 8
     2  face  "Fa\tb\nc\rd"  wall  quadrilateral         6  1 to 6  3 | -
     3  cell  "a\tb\nc\rd"         hexahedron            1  1 to 1

  phase         on    variable      values  zones
  "a\tb\nc\rd"  cell  "a\tb\nc\rd"       1  3

setting                            value
"domains/a\tb\nc\rd/location"      a\tb\nc\rd
"boundaries/Fa\tb\nc\rd/location"  Fa\tb\nc\rd
"boundaries/Fa\tb\nc\rd/domain"    a\tb\nc\rd
"""

COMMANDS = (["check", "--level", "2", "case.orv"], ["info", "case.orv"],
            ["model", "case.orv"], ["model", "--build", "case.orv"], ["model", "--dot", "case.orv"],
            ["regions", "case.orv"], ["copy", "--dry-run", "case.orv", "other.orv"])


def shown_as_utf8(name):
    """A name as JSON gives it: what is no UTF-8 is replaced."""
    return name.decode(errors="replace")


def of_each_kind(judge):
    """Makes a test of a method that judges one kind of name."""
    def judge_all(self):
        for kind, (name, shown) in NAMES.items():
            with self.subTest(kind):
                judge(self, kind, name, shown)
    return judge_all


class Names(unittest.TestCase):
    """Each test goes through all names; a case file with everything named so is at hand."""

    @classmethod
    def setUpClass(cls):
        cls.root = tempfile.mkdtemp(prefix="orv-names-")
        for kind, (name, _) in NAMES.items():
            folder = os.path.join(cls.root, kind)
            os.mkdir(folder)
            subprocess.run([MAKE_NAMED_CASE, os.path.join(folder, "case.orv"), name], check=True)

    @classmethod
    def tearDownClass(cls):
        shutil.rmtree(cls.root)

    def orv(self, kind, *arguments):
        """Exit status and the raw bytes of both streams."""
        run = subprocess.run([ORV, *arguments], cwd=os.path.join(self.root, kind), check=False,
                             stdin=subprocess.DEVNULL, stdout=subprocess.PIPE,
                             stderr=subprocess.PIPE, timeout=60)
        return run.returncode, run.stdout, run.stderr

    def report(self, kind, *arguments):
        status, out, _ = self.orv(kind, *arguments)
        return status, json.loads(out.decode())

    # --- Text -------------------------------------------------------------------------------------

    @of_each_kind
    def test_keep_all_text_printable_and_in_as_many_lines(self, kind, name, shown):
        for arguments in COMMANDS:
            status, out, err = self.orv(kind, *arguments)
            text = out.decode()
            self.assertNotRegex(text, "[\x00-\x09\x0b-\x1f\x7f-\x9f\u202e]", arguments)
            if name:  # nothing can lie in a domain without a name
                self.assertEqual((status, err), (0, b""), arguments)
                plain = self.orv("plain", *arguments)[1].decode()
                self.assertEqual(text.count("\n"), plain.count("\n"), arguments)

    def test_are_shown_in_the_tables_of_info(self):
        self.assertEqual(self.orv("lines", "info", "case.orv"), (0, LINES_INFO.encode(), b""))

    @of_each_kind
    def test_stand_in_rows_of_info(self, kind, name, shown):
        row = self.orv(kind, "info", "case.orv")[1].decode().split("\n")[8]
        found = re.fullmatch(r" +3  cell  (.*?) +hexahedron +1  1 to 1", row)
        self.assertEqual(found.group(1), shown if name else "")

    def test_of_any_length_leave_the_other_rows_alone(self):
        lengths = [len(line) for line in self.orv("long", "info", "case.orv")[1].splitlines()]
        self.assertEqual(sum(length < 120 for length in lengths), len(lengths) - 7)

    @of_each_kind
    def test_are_read_back_from_json(self, kind, name, shown):
        name = shown_as_utf8(name)
        summary = self.report(kind, "info", "--json", "case.orv")[1]["files"][0]
        mesh = summary["meshes"][0]
        self.assertEqual([zone["name"] for zone in mesh["zones"]], [name, "F" + name, name])
        self.assertEqual(summary["phases"], [name])
        self.assertEqual([variable["name"] for variable in mesh["variables"]], [name])
        self.assertEqual(summary["settings"][1],
                         {"key": f"boundaries/F{name}/location", "value": "F" + name})
        part = self.report(kind, "model", "--json", "case.orv")[1]["files"][0]["parts"][0]
        self.assertEqual((part["name"], part["bodies"][0]["name"]), (name, name))
        self.assertEqual(part["composites"][0]["name"], "C" + name)
        for arguments in (["check", "--level", "2", "--json", "case.orv"],
                          ["copy", "--dry-run", "--json", "case.orv", "other.orv"]):
            self.report(kind, *arguments)
        regions = self.report(kind, "regions", "--json", "case.orv")[1]
        if name:
            self.assertEqual(regions["files"][0]["regions"][0]["name"], name)

    @of_each_kind
    def test_stand_in_graphs_that_can_be_drawn(self, kind, name, shown):
        if shutil.which("dot") is None:
            self.skipTest("no Graphviz")
        graph = self.orv(kind, "model", "--dot", "case.orv")[1]
        drawn = subprocess.run(["dot", "-Tplain"], input=graph, check=False, timeout=60,
                               stdout=subprocess.DEVNULL, stderr=subprocess.PIPE)
        self.assertEqual((drawn.returncode, drawn.stderr), (0, b""))

    # --- Files ------------------------------------------------------------------------------------

    @of_each_kind
    def test_are_the_same_in_a_copy(self, kind, name, shown):
        status, _, err = self.orv(kind, "copy", "--verify", "--force", "case.orv", "copy.orv")
        self.assertEqual((status, err), (0, b""))
        parts = [self.report(kind, "model", "--json", file)[1]["files"][0]["parts"]
                 for file in ("case.orv", "copy.orv")]
        self.assertEqual(parts[0], parts[1])

    @of_each_kind
    def test_leave_files_for_viewers_well_formed(self, kind, name, shown):
        self.assertEqual(self.orv(kind, "copy", "case.orv", "case.vtu")[0], 0)
        written = pathlib.Path(self.root, kind, "case.vtu").read_bytes()
        begin = written.index(b"<AppendedData")  # bytes that are no XML follow
        root = xml.etree.ElementTree.fromstring(written[:begin] + b"</VTKFile>")
        codes = root.find(".//Array[@Name='zone names']").text.split()
        self.assertEqual(bytes(map(int, codes)), name + b"\0")
        shown = re.sub("[\x00-\x08\x0b\x0c\x0e-\x1f]", "?",
                       name.decode(errors="surrogateescape"))
        shown = re.sub("[\udc80-\udcff]", "?", shown)
        arrays = [array.get("Name") for array in root.findall(".//CellData/DataArray")]
        self.assertEqual(arrays[:3], ["zone", "cell id", shown])

    @of_each_kind
    def test_become_words_in_openfoam_meshes(self, kind, name, shown):
        words = {"plain": "fluid", "blanks": "fluid__at_the_inlet", "umlaut": "Zuluft_Düse",
                 "chinese": "冷却", "quotes": "_a___b_", "backslashes": "a_b__N", "lines": "a_b_c_d",
                 "controls": "__31mred__", "latin": "Zuluft_D\ufffdse", "cut character": "a\ufffd",
                 "turned": "a\u202eb", "markup": "<b>&amp_<b>___>_--",
                 "dictionary": "a___b__1_2____c__d", "long": "n" * 10000, "empty": "_"}
        status, _, _ = self.orv(kind, "copy", "case.orv", "foam", "--to", "openfoam")
        self.assertEqual(status, 0)
        self.assertEqual(self.orv(kind, "check", "--level", "2", "foam")[0], 0)
        mesh = self.report(kind, "info", "--json", "foam")[1]["files"][0]["meshes"][0]
        face, cell = (zone["name"] for zone in mesh["zones"][1:])
        self.assertEqual((face, cell), ("F" + words[kind] if kind != "empty" else "F",
                                        words[kind]))

    # --- Names of files ---------------------------------------------------------------------------

    @of_each_kind
    def test_of_files_are_taken_as_they_are_and_shown_on_one_line(self, kind, name, shown):
        if not name or len(name) > 200:
            return
        file = name + b"x.orv"
        folder = os.fsencode(os.path.join(self.root, kind))
        shutil.copy(os.path.join(folder, b"case.orv"), os.path.join(folder, file))
        status, out, err = self.orv(kind, "check", "-l", "2", "./" + os.fsdecode(file))
        self.assertEqual((status, err), (0, b""))
        inner = shown[1:-1].replace('\\"', '"') if shown.startswith('"') else shown
        self.assertEqual(out.decode(), f"./{inner}x.orv: sound (0 errors, 0 warnings)\n")
        report = self.report(kind, "check", "--json", "./" + os.fsdecode(file))[1]
        self.assertEqual(report["files"][0]["file"], "./" + shown_as_utf8(file))
        for command in ("info", "model", "regions"):
            status, out, err = self.orv(kind, command, "./" + os.fsdecode(file))
            self.assertEqual(out.decode().split("\n")[0], f"./{inner}x.orv", err)
        copy = b"./copy of " + name + b".orv"
        status, out, err = self.orv(kind, "copy", "case.orv", os.fsdecode(copy))
        self.assertEqual((status, err), (0, b""))
        self.assertTrue(os.path.exists(os.path.join(folder, copy)))


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
