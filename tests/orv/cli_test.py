#!/usr/bin/env python3
# SPDX-License-Identifier: Apache-2.0
"""orv as a user meets it: whole outputs, exit statuses, JSON that fits its schema.

Usage: cli_test.py ORV MAKE_POLYMESH MAKE_MODELS SCHEMA MESHES
"""

import json
import os
import pathlib
import pty
import re
import subprocess
import sys
import unittest

import jsonschema

import program
from program import ORV

MAKE_POLYMESH, MAKE_MODELS, SCHEMA, MESHES = map(os.path.abspath, sys.argv[2:6])

# What is said of every restart mesh in an OpenFOAM folder.
NO_PHYSICS = "Warning: checkPhysicsToMeshMapUsingTopologyModel: No Physics Model - skipped\n"


class CommandLine(program.ProgramTest):
    """Has a sound mesh in its folder, and damaged ones."""

    @classmethod
    def setUpClass(cls):
        super().setUpClass()
        for name, damage in (("sound", None), ("label", "node-id"), ("gap", "patch-gap"),
                             ("cut", "truncated")):
            command = [MAKE_POLYMESH, f"{cls.folder.name}/{name}", "2", "1", "1"]
            subprocess.run(command + (["--damage", damage] if damage else []), check=True)
        pathlib.Path(cls.folder.name, "notes.txt").write_text("no mesh\n", encoding="utf-8")

    def report(self, *arguments):
        """The JSON of `check --json`, which has to fit the schema, and the exit status."""
        status, out, err = self.orv("check", "--json", *arguments)
        self.assertEqual(err, "")
        report = json.loads(out)
        jsonschema.validate(report, json.loads(pathlib.Path(SCHEMA).read_text(encoding="utf-8")))
        return status, report


LABEL_WARNING = ("ORV - label/faces: face 0, node 0: label 18 is out of range, "
                 "allowed are 0 to 11")

CUT_REASON = 'cut/points: line 13: expected "(" before 12 points, found the end of the file'


class Check(CommandLine):
    def test_says_that_a_sound_mesh_is_sound(self):
        self.assertEqual(self.orv("check", "sound"),
                         (0, "sound: sound (0 errors, 1 warning)\n", NO_PHYSICS))
        self.assertEqual(self.orv("check", "--strict", "--no-location-model", "sound"),
                         (0, "sound: sound (0 errors, 0 warnings)\n", ""))

    def test_takes_a_file_of_the_mesh(self):
        self.assertEqual(self.orv("check", "sound/owner"),
                         (0, "sound/owner: sound (0 errors, 1 warning)\n", NO_PHYSICS))

    def test_shows_warnings_on_standard_error(self):
        self.assertEqual(self.orv("check", "-l", "0", "label"),
                         (0, "label: sound (0 errors, 1 warning)\n",
                          f"Warning: checkVersion: {LABEL_WARNING}\n"))

    def test_counts_warnings_when_strict(self):
        self.assertEqual(self.orv("check", "-l", "0", "--strict", "label"),
                         (1, "label: not sound (0 errors, 1 warning)\n",
                          f"Warning: checkVersion: {LABEL_WARNING}\n"))

    def test_tells_what_is_wrong_with_zones(self):
        self.assertEqual(self.orv("check", "gap"), (
            1, "gap: not sound (1 error, 2 warnings)\n",
            "Warning: checkVersion: ORV - gap/boundary: line 15, patch xMax: startFace is 3, "
            "patch xMin ends at 2, startFace 2 is expected\n"
            f"{NO_PHYSICS}"
            "Error: checkFaceZones: Face zones do not cover the full range of declared Faces\n"
            "orv: gap: `orv check -v 2` lists the zones as they are judged\n"))
        status, out, err = self.orv("check", "-v", "2", "gap")
        self.assertEqual(status, 1)
        self.assertIn("  Face zone id : 4 : xMax\n  [ 4 , 3 ] \n    range: 1 ... 3\n", out)
        self.assertNotIn("orv: ", err)

    def test_says_where_to_look_when_connectivity_is_at_fault(self):
        for defect, hint in (("cell-node-range",
                              "`orv check --level 2 -v 3` names each id that is out of range"),
                             ("missing-facets",
                              "`orv check --level 2 -v 4` shows the number of faces of each cell "
                              "that is wrong")):
            self.orv("sample", "--defect", defect, f"{defect}.orv", "--force")
            status, out, err = self.orv("check", "--level", "2", f"{defect}.orv")
            self.assertEqual((status, out), (1, f"{defect}.orv: not sound (1 error, 0 warnings)\n"))
            self.assertEqual(err.splitlines()[-1], f"orv: {defect}.orv: {hint}")

    def test_shows_ten_lines_of_a_kind_and_counts_the_others(self):
        subprocess.run([MAKE_POLYMESH, f"{self.folder.name}/open", "3", "3", "3"], check=True)
        neighbour = pathlib.Path(self.folder.name, "open", "neighbour")
        head, labels = neighbour.read_text(encoding="utf-8").split("\n(\n")
        neighbour.write_text("\n(\n".join([head, re.sub(r"^\d+$", "999", labels, count=13,
                                                       flags=re.M)]), encoding="utf-8")
        first = "Error: checkCellsFromFaces_facenode: Cell 1 (1000) for face "
        status, out, err = self.orv("check", "--level", "2", "open")
        self.assertEqual((status, out), (1, "open: not sound (13 errors, 12 warnings)\n"))
        self.assertEqual([line for line in err.splitlines() if line.startswith(first)],
                         [f"{first}{face} is invalid" for face in range(1, 11)])
        self.assertEqual(err.splitlines()[-1],
                         f'orv: open: 3 more like "{first}10 is invalid"; -v 2 shows all')
        everything = self.orv("check", "--level", "2", "-v", "2", "open")[2]
        self.assertEqual(everything.count(first), 13)
        self.assertEqual(len(self.report("--level", "2", "open")[1]["files"][0]["errors"]), 13)

    def test_says_why_a_file_is_not_checked_whatever_the_verbosity(self):
        self.assertEqual(self.orv("check", "-v", "0", "notes.txt"),
                         (2, "notes.txt: not checked (1 error, 0 warnings)\n",
                          "orv: notes.txt: no format knows this file; `orv formats` lists what can "
                          "be read\n"))

    def test_keeps_lines_of_single_faces_out_of_documents_and_silence(self):
        self.orv("sample", "--defect", "side-0-cell-wrong", "wrong.orv")
        check = ("check", "--level", "2", "wrong.orv")
        self.assertEqual(self.orv(*check)[1],
                         "face 4 vs cell type 8\nwrong.orv: not sound (1 error, 0 warnings)\n")
        self.assertEqual(self.orv(*check, "-v", "0"),
                         (1, "wrong.orv: not sound (1 error, 0 warnings)\n", ""))
        self.assertEqual(self.orv(*check, "--quiet"), (1, "", ""))
        self.assertEqual([found["message"] for found in
                          json.loads(self.orv(*check, "--json")[1])["files"][0]["errors"]],
                         ["Node connectivity error in face-cell c0 pair"])

    def test_says_where_to_look_when_the_location_model_is_at_fault(self):
        for defect, hint in (("unnamed-body", "`orv model` shows the location model with its names"),
                             ("wrong-location",
                              "`orv regions` tells where each physics object lies, and why"),
                             ("two-bodies-on-side-0",
                              "`orv info` lists the zones, and which of them bound which")):
            self.orv("sample", "--defect", defect, f"{defect}.orv", "--force")
            status, _, err = self.orv("check", f"{defect}.orv")
            self.assertEqual((status, err.splitlines()[-1]), (1, f"orv: {defect}.orv: {hint}"))

    def test_tells_why_a_mesh_cannot_be_read(self):
        self.assertEqual(self.orv("check", "cut"),
                         (2, "cut: not checked (2 errors, 0 warnings)\n",
                          "Error: : Error reading ORV file\n"
                          f"Error: : ORV - {CUT_REASON}\n"))

    def test_tells_that_a_file_is_missing(self):
        self.assertEqual(self.orv("check", "nothing"),
                         (2, "nothing: not checked (1 error, 0 warnings)\n",
                          "Error: : Error: No such file / unreadable\n"))

    def test_says_where_to_look_when_no_format_knows_a_file(self):
        self.assertEqual(self.orv("check", "notes.txt"),
                         (2, "notes.txt: not checked (1 error, 0 warnings)\n",
                          "Error: : Not a ORV file (cannot setup provider)\n"
                          "orv: notes.txt: no format knows this file; `orv formats` lists what can "
                          "be read\n"))

    def test_is_silent_when_quiet(self):
        self.assertEqual(self.orv("check", "--quiet", "sound"), (0, "", ""))
        self.assertEqual(self.orv("check", "--quiet", "notes.txt", "cut"), (2, "", ""))
        self.assertEqual(self.orv("check", "--quiet", "-l", "0", "--strict", "label"), (1, "", ""))

    def test_heads_and_sums_up_several_files(self):
        status, out, err = self.orv("check", "-l", "0", "sound", "label", "nothing")
        self.assertEqual(status, 2)
        self.assertEqual(out, "sound: sound (0 errors, 0 warnings)\n"
                              "label: sound (0 errors, 1 warning)\n"
                              "nothing: not checked (1 error, 0 warnings)\n"
                              "3 files: 2 sound, 0 not sound, 1 not checked\n")
        self.assertEqual(err, "sound:\n"
                              "label:\n"
                              f"Warning: checkVersion: {LABEL_WARNING}\n"
                              "nothing:\n"
                              "Error: : Error: No such file / unreadable\n")

    def test_shows_details_on_request(self):
        status, out, err = self.orv("check", "-v", "2", "-l", "0", "sound")
        self.assertEqual((status, err), (0, ""))
        self.assertEqual(out, "Version: 1.0.0\n"
                              "Processing mesh : 1\n"
                              "Processing target : 0\n"
                              "sound: sound (0 errors, 0 warnings)\n")

    def test_passes_over_other_meshes_and_targets(self):
        self.orv("sample", "--defect", "two-targets", "two.orv")
        warning = "Warning: checkCase: ORV file with multiple target types - support is limited\n"
        for target in ("restart", "post"):
            self.assertEqual(self.orv("check", "two.orv", "--target", target),
                             (0, "two.orv: sound (0 errors, 1 warning)\n", warning))

    def test_does_not_call_sound_what_it_passed_over_whole(self):
        for filters in (["--mesh", "2"], ["--target", "post"], ["--mesh", "1", "--target", "ppost"]):
            for level in "012":
                self.assertEqual(self.orv("check", "sound", *filters, "--level", level), (
                    2, "sound: not checked (1 error, 0 warnings)\n",
                    f"orv: sound: nothing in the file fits {' '.join(filters)}\n"))

    def test_writes_valid_json_for_odd_names(self):
        odd = "\"quoted\"\n\u00e9 \\ name"
        status, report = self.report("-l", "0", odd)
        self.assertEqual((status, report["files"][0]["file"]), (2, odd))
        status, report = self.report("-l", "0", os.fsdecode(b"bytes \xff"))
        self.assertEqual((status, report["files"][0]["file"]), (2, "bytes \ufffd"))

    def test_shows_no_progress_for_short_work_on_a_terminal(self):
        try:
            ours, theirs = pty.openpty()
        except OSError as error:
            self.skipTest(f"no terminal can be made here: {error}")
        with subprocess.Popen([ORV, "check", "-l", "0", "sound"], cwd=self.folder.name, stderr=theirs,
                              stdout=subprocess.PIPE) as process:
            out = process.stdout.read()
        os.write(theirs, b"end")
        self.assertEqual((out, os.read(ours, 100)),
                         (b"sound: sound (0 errors, 0 warnings)\n", b"end"))
        os.close(ours)
        os.close(theirs)


class Usage(CommandLine):
    def test_names_the_command_that_is_not_there(self):
        self.assertEqual(self.orv("chekc", "sound"),
                         (2, "", "orv: no command is named chekc; did you mean check? "
                                 "`orv --help` lists all\n"))
        self.assertEqual(self.orv("sound"),
                         (2, "", "orv: no command is named sound; `orv --help` lists all\n"))

    def test_shows_the_commands_when_none_is_given(self):
        status, out, err = self.orv()
        self.assertEqual((status, out), (2, ""))
        self.assertTrue(err.startswith("orv: expected a command\n\norv checks and explains"), err)
        self.assertIn(self.orv("--help")[1].strip(), err)

    def test_points_to_the_help_of_the_command(self):
        status, out, err = self.orv("check", "sound", "--levle", "2")
        self.assertEqual((status, out), (2, ""))
        self.assertRegex(err, r"\Aorv: .*--levle.*; `orv check --help` shows examples\n\Z")

    def test_takes_names_in_square_brackets_as_they_are(self):
        for arguments in (["check", "[a,b]"], ["info", "[sound]"], ["model", "[]"],
                          ["regions", "[a]"], ["copy", "[a,b]", "[c].orv"]):
            err = self.orv(*arguments)[2]
            self.assertNotIn("\\x01", err)
            if arguments[0] != "check":
                self.assertIn(f"orv: {arguments[1]}: no such file or folder\n", err)
        self.orv("sample", "box", "[a].orv", "--cells", "8")
        self.orv("copy", "[a].orv", "[b]/")
        self.assertEqual(self.orv("check", "[b]", "--no-location-model", "-q"), (0, "", ""))


class Info(CommandLine):
    def test_shows_the_tables_of_a_mesh(self):
        status, out, err = self.orv("info", "sound")
        self.assertEqual((status, err), (0, ""))
        self.assertEqual(out, """sound
  version 1.0.0, solver type VELTO_GENERIC, no location model

mesh 1, restart: 3-D, 12 nodes, 11 faces, 2 cells, unit m
  zone  kind  name      type      shape          elements  ids       cell zones  shadow
     1  node  nodes                                    12  1 to 12
     2  face  interior  interior  quadrilateral         1  1 to 1    9 | 9
     3  face  xMin      patch     quadrilateral         1  2 to 2    9 | -
     4  face  xMax      patch     quadrilateral         1  3 to 3    9 | -
     5  face  yMin      wall      quadrilateral         2  4 to 5    9 | -
     6  face  yMax      wall      quadrilateral         2  6 to 7    9 | -
     7  face  zMin      wall      quadrilateral         2  8 to 9    9 | -
     8  face  zMax      wall      quadrilateral         2  10 to 11  9 | -
     9  cell  cells               hexahedron            2  1 to 2
""")

    def test_cuts_long_lists_of_zones_in_the_table_only(self):
        subprocess.run([MAKE_MODELS, self.folder.name], check=True)
        status, out, err = self.orv("info", "shared-zones.orv")
        self.assertEqual((status, err), (0, ""))
        lines = out.splitlines()
        self.assertEqual(lines[6].split("  ")[-1].strip(), "4,5,6,7,8,9,10,11 | 5,6,7,8,9,10,11,12")
        self.assertEqual(lines[7].split("  ")[-1].strip(), "4,5,6,... of 9 | -")
        case = json.loads(self.orv("info", "--json", "shared-zones.orv")[1])["files"][0]
        zone = case["meshes"][0]["zones"][2]
        self.assertEqual((zone["name"], zone["cellZones"]), ("walls", [list(range(4, 13)), []]))

    def test_writes_json(self):
        status, out, err = self.orv("info", "--json", "sound")
        self.assertEqual((status, err), (0, ""))
        case = json.loads(out)["files"][0]
        self.assertEqual(case["solverType"], "VELTO_GENERIC")
        mesh = case["meshes"][0]
        self.assertEqual(mesh["sizes"], {"dimension": 3, "nodes": 12, "faces": 11, "cells": 2})
        self.assertEqual(mesh["zones"][1], {
            "id": 2, "kind": "face", "name": "interior", "elements": 1, "firstId": 1, "lastId": 1,
            "shape": "quadrilateral", "type": "interior", "typeId": 2, "shadow": 0,
            "cellZones": [[9], [9]]})

    def test_says_why_a_file_cannot_be_shown(self):
        self.assertEqual(self.orv("info", "nothing", "notes.txt", "cut"), (
            2, "", "orv: nothing: no such file or folder\n"
                   "orv: notes.txt: no format knows this file; `orv formats` lists what can be "
                   "read\n"
                   f"Error: cut: {CUT_REASON}\n"))


class Other(CommandLine):
    def test_lists_the_formats(self):
        status, out, err = self.orv("formats")
        self.assertEqual((status, err), (0, ""))
        self.assertEqual([line.split()[0] for line in out.splitlines()],
                         ["name", "openfoam", "store", "vtu", "memory"])
        status, out, _ = self.orv("formats", "--json")
        self.assertEqual((status, [f["name"] for f in json.loads(out)["formats"]]),
                         (0, ["openfoam", "store", "vtu", "memory"]))

    def test_explains_itself(self):
        for arguments in (["--help"], ["check", "--help"], ["info", "--help"],
                          ["formats", "--help"], ["sample", "--help"]):
            status, out, err = self.orv(*arguments)
            self.assertEqual((status, err), (0, ""))
            self.assertIn("Example", out)
            self.assertIn("Exit status: 0 sound or done", out)

    def test_tells_what_it_was_built_with(self):
        status, out, err = self.orv("--version")
        self.assertEqual((status, err), (0, ""))
        self.assertEqual(out.splitlines()[:2], ["orv 0.1.0", ""])
        rows = [re.split("  +", line, maxsplit=1) for line in out.splitlines()[2:]]
        self.assertEqual([name for name, _ in rows],
                         ["compiler", "build type", "HDF5", "zstd", "xxHash", "zlib", "CLI11",
                          "fmt", "nlohmann-json"])
        for name, version in rows[2:]:
            self.assertRegex(version, r"^\d+(\.\d+)+( \(built with [\d.]+\))?$", name)
        self.assertNotIn("/", out)  # no path of the machine that it was built on

    def test_refuses_a_command_line_that_it_does_not_understand(self):
        for arguments in ([], ["chekc"], ["check"], ["check", "sound", "--level", "7"],
                          ["check", "sound", "--target", "Restart"], ["formats", "surplus"]):
            status, out, err = self.orv(*arguments)
            self.assertEqual((status, out), (2, ""), arguments)
            self.assertNotEqual(err, "", arguments)


class RealMeshes(CommandLine):
    """Meshes that other programs made; skipped where they are not at hand."""

    def mesh(self, name):
        """The first mesh of `orv info --json`, after `orv check` found it sound."""
        folder = pathlib.Path(MESHES, "openfoam", name)
        if not folder.is_dir():
            self.skipTest(f"{folder} is not here")
        status, out, err = self.orv("check", str(folder))
        self.assertEqual((status, out, err),
                         (0, f"{folder}: sound (0 errors, 1 warning)\n", NO_PHYSICS))
        status, out, err = self.orv("info", "--json", str(folder))
        self.assertEqual((status, err), (0, ""))
        return folder, json.loads(out)["files"][0]["meshes"][0]

    def expect_patches_of_boundary(self, folder, mesh):
        boundary = (folder / "boundary").read_text(encoding="utf-8")
        patches = [(name, kind, int(faces), int(start) + 1) for name, kind, faces, start in
                   re.findall(r"(\w+)\s*{\s*type\s+(\w+);[^}]*nFaces\s+(\d+);\s*startFace\s+(\d+);",
                              boundary)]
        self.assertGreater(len(patches), 0)
        self.assertEqual(patches, [(z["name"], z["type"], z["elements"], z["firstId"])
                                   for z in mesh["zones"]
                                   if z["kind"] == "face" and z["name"] != "interior"])

    def test_wing_mirror_has_the_sizes_of_its_note(self):
        folder, mesh = self.mesh("wingMirror")
        note = dict(re.findall(r"(n\w+): (\d+)", (folder / "owner").read_text(encoding="utf-8")))
        self.assertEqual(mesh["sizes"], {"dimension": 3, "nodes": int(note["nPoints"]),
                                         "faces": int(note["nFaces"]),
                                         "cells": int(note["nCells"])})
        self.assertEqual(mesh["zones"][1]["elements"], int(note["nInternalFaces"]))
        self.expect_patches_of_boundary(folder, mesh)

    def test_air_foil_has_its_sizes_and_patches(self):
        folder, mesh = self.mesh("airFoil2D")
        self.assertEqual(mesh["sizes"],
                         {"dimension": 3, "nodes": 21812, "faces": 43066, "cells": 10720})
        self.assertEqual(mesh["zones"][1]["elements"], 21254)
        self.expect_patches_of_boundary(folder, mesh)


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
