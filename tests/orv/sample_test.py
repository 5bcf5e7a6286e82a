#!/usr/bin/env python3
# SPDX-License-Identifier: Apache-2.0
"""Samples as a user meets them: their lists, what is refused, and the files.

Usage: sample_test.py ORV
"""

import json
import os
import pathlib
import re
import sys
import time
import unittest

from program import ProgramTest


class Sample(ProgramTest):
    def exists(self, name):
        return pathlib.Path(self.folder.name, name).exists()

    def test_lists_samples_and_defects(self):
        status, out, err = self.orv("sample", "--list")
        self.assertEqual((status, err), (0, ""))
        sound, damaged = out.split("\n\n")
        self.assertEqual([line.split()[0] for line in sound.splitlines()],
                         ["sample", "box", "box-cells", "post", "polyhedra", "plane", "two-bodies",
                          "periodic", "shadow", "physics", "results", "partitions"])
        self.assertIn(["overlap", "post",
                       "A face zone begins with the last face of the one before.", "1", "error",
                       "checkFaceZones : Overlapping Face ranges"],
                      [re.split("  +", line, maxsplit=5) for line in damaged.splitlines()])

    def test_lists_as_json_what_it_lists_as_text(self):
        status, out, err = self.orv("sample", "--list", "--json")
        self.assertEqual((status, err), (0, ""))
        lists = json.loads(out)
        sound, damaged = (text.splitlines()[1:]
                          for text in self.orv("sample", "--list")[1].split("\n\n"))
        self.assertEqual([row["name"] for row in lists["samples"]],
                         [line.split()[0] for line in sound])
        self.assertEqual([row["name"] for row in lists["defects"]],
                         [line.split()[0] for line in damaged])
        self.assertEqual(lists["samples"][9],
                         {"name": "results", "title": "box with the flow of water and air",
                          "purpose": "Results of two phases on nodes, faces and cells.",
                          "cells": 8000, "results": True})
        self.assertIn({"name": "unnamed-zone", "sample": "post",
                       "what": "A face zone has no name.", "checkLevel": 1, "level": "warning",
                       "message": "checkFaceZones : Empty Face zone name"}, lists["defects"])

    def test_says_what_it_does_not_know(self):
        hint = "`orv sample --list` lists all\n"
        for arguments, said in (
                (["bxo", "new.orv"], f"no sample is named bxo; did you mean box? {hint}"),
                (["tetrahedra", "new.orv"], f"no sample is named tetrahedra; {hint}"),
                (["--defect", "overlaps", "new.orv"],
                 f"no defect is named overlaps; did you mean overlap? {hint}"),
                (["box"], "expected a sample and a file; `orv sample --list` lists the samples\n"),
                (["--defect", "overlap", "box", "new.orv"],
                 "a damaged sample takes one file; `orv sample --help` shows examples\n"),
                (["box", "new.txt"], "new.txt: the name of a case file ends in .orv\n"),
                (["box", ".orv"], ".orv: the name of a case file ends in .orv\n")):
            self.assertEqual(self.orv("sample", *arguments), (2, "", f"orv: {said}"))
        self.assertFalse(self.exists("new.orv"))

    def test_refuses_numbers_that_are_out_of_range(self):
        for arguments in (["--cells", "0"], ["--cells", "-5"], ["--compression", "10"], ["--json"]):
            status, out, err = self.orv("sample", "box", "new.orv", *arguments)
            self.assertEqual((status, out), (2, ""), arguments)
            self.assertNotEqual(err, "", arguments)
        self.assertFalse(self.exists("new.orv"))

    def test_leaves_a_file_that_is_there(self):
        for kept in ("kept.orv", "other.orvr"):
            pathlib.Path(self.folder.name, kept).write_text("mine\n", encoding="utf-8")
            name = kept[:kept.index(".")] + ".orv"
            self.assertEqual(self.orv("sample", "results", name),
                             (2, "", f"orv: {kept}: is there already; --force overwrites it\n"))
            self.assertEqual(pathlib.Path(self.folder.name, kept).read_text(encoding="utf-8"),
                             "mine\n")
        self.assertFalse(self.exists("other.orv"))

    def test_writes_the_same_bytes_each_time(self):
        self.orv("sample", "results", "first.orv", "--cells", "27")
        time.sleep(1.1)  # no file knows when it was made
        self.orv("sample", "results", "second.orv", "--cells", "27")
        for ending in ("orv", "orvr"):
            first, second = (pathlib.Path(self.folder.name, f"{name}.{ending}").read_bytes()
                             for name in ("first", "second"))
            self.assertEqual(first, second)

    def test_says_what_it_wrote(self):
        status, out, err = self.orv("sample", "results", "flow.orv", "--cells", "27")
        self.assertEqual((status, err), (0, ""))
        size = r"\d+ bytes|\d+\.\d [kM]B"
        self.assertRegex(out, rf"\Aflow\.orv: 27 cells, ({size})\n"
                              rf"flow\.orvr: results, ({size})\n\Z")
        self.assertTrue(self.exists("flow.orv"))
        self.assertTrue(self.exists("flow.orvr"))
        self.assertEqual(self.orv("sample", "results", "flow.orv", "--force")[0], 0)


class WrittenSamples(ProgramTest):
    """Samples as files, read again."""

    def test_are_sound(self):
        for row in json.loads(self.orv("sample", "--list", "--json")[1])["samples"]:
            file = f"{row['name']}.orv"
            self.assertEqual(self.orv("sample", row["name"], file, "--cells", "30")[::2], (0, ""))
            self.assertEqual(self.orv("check", "--strict", "--level", "2", file),
                             (0, f"{file}: sound (0 errors, 0 warnings)\n", ""))

    def test_are_shown_with_the_results_beside_them(self):
        self.orv("sample", "results", "flow.orv", "--cells", "8")
        status, out, err = self.orv("info", "flow.orv")
        self.assertEqual((status, err), (0, ""))
        self.assertEqual(out.splitlines()[:3],
                         ["flow.orv",
                          "  version 1.0.0, solver type VELTO_GENERIC, no location model",
                          "  results in flow.orvr"])
        shown = json.loads(self.orv("info", "--json", "flow.orv")[1])["files"][0]
        self.assertEqual((shown["results"], shown["phases"]), ("flow.orvr", ["water", "air"]))
        self.assertEqual(shown["meshes"][0]["variables"][1],
                         {"phase": "water", "on": "node", "name": "velocity",
                          "valuesPerElement": 3, "zones": [1]})

    def test_are_shown_without_results_that_cannot_be_read(self):
        self.orv("sample", "results", "cut.orv", "--cells", "8")
        file = os.path.join(self.folder.name, "cut.orvr")
        with open(file, "r+b") as results:
            results.truncate(1000)
        status, out, err = self.orv("info", "cut.orv")
        self.assertEqual((status, out.splitlines()[0]), (2, "cut.orv"))
        self.assertRegex(err, r"^Error: cut\.orvr: the file is cut, it has 1000 of \d+ bytes\n$")

    def test_are_told_apart_from_their_results(self):
        self.orv("sample", "results", "whole.orv", "--cells", "8")
        self.assertEqual(self.orv("check", "whole.orvr"), (
            2, "whole.orvr: not checked (2 errors, 0 warnings)\n",
            "Error: : Error reading ORV file\n"
            "Error: : ORV - whole.orvr: the file holds the results of a case and no case\n"))


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
