#!/usr/bin/env python3
# SPDX-License-Identifier: Apache-2.0
"""orv model as a user meets it: whole outputs, exit statuses, JSON that fits its schema.

Usage: model_test.py ORV MAKE_POLYMESH MAKE_MODELS SCHEMA
"""

import json
import os
import pathlib
import shutil
import subprocess
import sys
import unittest

import jsonschema

from model_outputs import (BROKEN, DOT, FOAM, FOAM_ZONES, ODD_NAMES, PARTITIONS, PERIODIC, PHYSICS,
                           PHYSICS_BUILT, POST, SAME_NAMES, SHADOW, TWO_BODIES, ZONES_ERRORS)
from program import ORV, ProgramTest

MAKE_POLYMESH, MAKE_MODELS, SCHEMA = map(os.path.abspath, sys.argv[2:5])


class Model(ProgramTest):
    """Has samples, an OpenFOAM mesh and odd models in its folder."""

    @classmethod
    def setUpClass(cls):
        super().setUpClass()
        folder = cls.folder.name
        for sample in ("physics", "two-bodies", "periodic", "shadow", "post", "partitions"):
            subprocess.run([ORV, "sample", sample, f"{folder}/{sample}.orv", "--cells", "64"],
                           check=True, stdout=subprocess.DEVNULL)
        for mesh, cells in (("foam", "2"), ("zones", "3")):
            subprocess.run([MAKE_POLYMESH, f"{folder}/{mesh}", cells, "1", "1"], check=True)
        subprocess.run([MAKE_MODELS, folder], check=True)
        pathlib.Path(folder, "zones", "cellZones").write_text(
            "FoamFile { version 2.0; format ascii; class regIOobject; object cellZones; }\n"
            "1(rotor { type cellZone; cellLabels 1(2); })\n", encoding="utf-8")
        pathlib.Path(folder, "notes.txt").write_text("no mesh\n", encoding="utf-8")

    def model(self, *arguments):
        """Exit status, standard output and standard error."""
        return self.orv("model", *arguments)

    def report(self, *arguments):
        """Exit status, the files of `model --json`, which has to fit its schema, standard error."""
        status, out, err = self.model("--json", *arguments)
        report = json.loads(out)
        jsonschema.validate(report, json.loads(pathlib.Path(SCHEMA).read_text(encoding="utf-8")))
        return status, report["files"], err

    # --- Text -------------------------------------------------------------------------------------

    def test_shows_the_model_of_the_file(self):
        self.assertEqual(self.model("physics.orv"), (0, PHYSICS, ""))

    def test_builds_a_model_to_compare_with_that_of_the_file(self):
        self.assertEqual(self.model("physics.orv", "--build"), (0, PHYSICS_BUILT, ""))

    def test_builds_a_model_where_the_file_has_none(self):
        for file, expected in (("two-bodies.orv", TWO_BODIES), ("periodic.orv", PERIODIC),
                               ("shadow.orv", SHADOW), ("foam", FOAM), ("zones", FOAM_ZONES)):
            self.assertEqual(self.model(file), (0, expected, ""), file)

    def test_takes_a_model_without_parts_for_none(self):
        status, out, err = self.model("without-parts.orv")
        self.assertEqual((status, err), (0, ""))
        self.assertEqual(out.splitlines()[1], "  built from the zones of mesh 1, restart")

    def test_says_why_a_post_mesh_gives_no_faces(self):
        said = ("no faces: mesh 1 is no restart mesh and does not tell which cell zones its face "
                "zones bound\n")
        self.assertEqual(self.model("post.orv"), (0, POST, f"orv: post.orv: {said}"))
        self.assertEqual(self.model("partitions.orv"),
                         (0, PARTITIONS, f"orv: partitions.orv: {said}"))

    def test_shows_names_of_any_kind_on_one_line(self):
        self.assertEqual(self.model("odd-names.orv"), (0, ODD_NAMES, ""))

    def test_shows_what_is_there_of_a_broken_model(self):
        self.assertEqual(self.model("broken.orv"), (0, BROKEN, ""))

    def test_prefers_restart_meshes_and_takes_another_on_request(self):
        for arguments, second in (([], "  built from the zones of mesh 2, restart"),
                                  (["-m", "2"], "  built from the zones of mesh 2, restart"),
                                  (["-m", "1"], "  built from the zones of mesh 1, post")):
            status, out, _ = self.model("two-meshes.orv", *arguments)
            self.assertEqual((status, out.splitlines()[1]), (0, second))

    def test_shows_several_files(self):
        self.assertEqual(self.model("physics.orv", "same-names.orv", "shadow.orv"),
                         (1, PHYSICS + "\n" + SHADOW, SAME_NAMES))

    def test_shows_a_thousand_bodies(self):
        status, out, err = self.model("many.orv")
        self.assertEqual((status, err), (0, ""))
        lines = out.splitlines()
        self.assertEqual(len(lines), 4 + 1000 + 3 * 9999 + 2)
        self.assertEqual(lines[-2:], ["", "1 part, 1000 bodies, 9999 faces, 10998 face uses, "
                                          "0 composites"])

    # --- What cannot be shown ---------------------------------------------------------------------

    def test_says_why_no_model_can_be_built(self):
        self.assertEqual(self.model("same-names.orv"), (1, "", SAME_NAMES))
        self.assertEqual(self.model("shared-zones.orv"), (1, "", "".join(
            f"Error: shared-zones.orv: {error}\n" for error in ZONES_ERRORS)))

    def test_writes_as_json_why_no_model_can_be_built(self):
        self.assertEqual(self.report("shared-zones.orv"), (
            1, [{"file": "shared-zones.orv", "origin": "none", "mesh": 1, "target": "restart",
                 "partition": -1, "parts": [], "errors": ZONES_ERRORS}], ""))

    def test_says_that_there_is_no_mesh(self):
        self.assertEqual(self.model("without-meshes.orv"),
                         (1, "", "orv: without-meshes.orv: there is no mesh\n"))
        self.assertEqual(self.model("without-meshes.orv", "-m", "3"),
                         (1, "", "orv: without-meshes.orv: there is no mesh\n"))
        self.assertEqual(self.model("two-meshes.orv", "--mesh", "3"),
                         (2, "", "orv: two-meshes.orv: there is no mesh 3; meshes: 1, 2\n"))
        self.assertEqual(self.report("two-meshes.orv", "--mesh", "3"), (
            2, [{"file": "two-meshes.orv", "origin": "none", "mesh": None, "target": None,
                 "partition": -1, "parts": [],
                 "errors": ["there is no mesh 3; meshes: 1, 2"]}], ""))

    def test_says_why_a_file_cannot_be_opened(self):
        said = ("orv: nothing: no such file or folder\n"
                "orv: notes.txt: no format knows this file; `orv formats` lists what can be read\n")
        self.assertEqual(self.model("nothing", "notes.txt"), (2, "", said))
        self.assertEqual(self.report("nothing", "notes.txt"), (2, [], said))

    def test_refuses_what_does_not_go_together(self):
        self.assertEqual(self.model("physics.orv", "foam", "--dot"),
                         (2, "", "orv: --dot takes one file\n"))
        for arguments in ([], ["physics.orv", "--dot", "--json"], ["physics.orv", "-m", "0"]):
            status, out, err = self.model(*arguments)
            self.assertEqual((status, out), (2, ""), arguments)
            self.assertNotEqual(err, "", arguments)

    def test_explains_itself(self):
        status, out, err = self.model("--help")
        self.assertEqual((status, err), (0, ""))
        self.assertIn("Examples:\n  orv model case.orv\n", out)
        self.assertIn("Exit status: 0 sound or done", out)

    # --- JSON -------------------------------------------------------------------------------------

    def test_writes_json(self):
        status, files, err = self.report("physics.orv")
        self.assertEqual((status, err, len(files)), (0, "", 1))
        part = files[0].pop("parts")[0]
        self.assertEqual(files[0], {"file": "physics.orv", "origin": "file", "mesh": 1,
                                    "target": "restart", "partition": -1, "errors": []})
        self.assertEqual((part["id"], part["name"]), (1, "assembly"))
        self.assertEqual(part["bodies"][0], {
            "id": 2, "name": "channel",
            "zones": [{"id": 10, "name": "fluid", "kind": "cell"},
                      {"id": 2, "name": "fluid interior", "kind": "face"},
                      {"id": 3, "name": "screen", "kind": "face"}]})
        self.assertEqual(part["faces"][0], {"id": 4, "name": "inlet face",
                                            "sides": [{"id": 5, "name": "channel inlet"}, None]})
        self.assertEqual(part["faceUses"][5], {
            "id": 14, "name": "contact of heater", "relativeName": "contact@heater",
            "body": {"id": 3, "name": "heater"}, "face": {"id": 12, "name": "contact"}, "side": 1,
            "zoneSides": [{"zoneSide": -9, "zone": {"id": 9, "name": "contact", "kind": "face"}}]})
        self.assertEqual(part["composites"], [
            {"id": 15, "name": "metal", "bodies": [{"id": 3, "name": "heater"}], "faces": [],
             "faceUses": []},
            {"id": 16, "name": "wetted", "bodies": [], "faces": [],
             "faceUses": [{"id": 7, "name": "channel walls"},
                          {"id": 13, "name": "contact of channel"}]},
            {"id": 17, "name": "heater unit", "bodies": [{"id": 3, "name": "heater"}], "faces": [],
             "faceUses": [{"id": 9, "name": "heater end"}, {"id": 11, "name": "heater walls"}]}])

    def test_writes_json_of_a_model_that_was_built(self):
        status, files, err = self.report("shadow.orv", "post.orv")
        self.assertEqual((status, err, [file["origin"] for file in files]),
                         (0, "", ["built", "built"]))
        self.assertEqual(files[0]["parts"][0]["faceUses"][5]["zoneSides"],
                         [{"zoneSide": 10,
                           "zone": {"id": 10, "name": "solid side", "kind": "face"}}])
        self.assertEqual((files[1]["target"], files[1]["parts"][0]["faces"]), ("post", []))

    def test_writes_valid_json_for_odd_names(self):
        part = self.report("odd-names.orv")[1][0]["parts"][0]
        self.assertEqual(part["name"], 'a "quoted" part')
        self.assertEqual([body["name"] for body in part["bodies"]], ["\x1b[31mred", "one, two"])
        self.assertEqual([use["name"] for use in part["faceUses"]],
                         ["\u00e9t\u00e9 \ufffd \u202e", ""])
        self.assertEqual(part["bodies"][0]["zones"],
                         [{"id": 4, "name": "line\nbreak", "kind": "cell"}])

    def test_writes_as_json_what_is_missing(self):
        first, second = self.report("broken.orv")[1][0]["parts"]
        self.assertEqual([body["zones"] for body in first["bodies"]],
                         [[{"id": 4, "name": "left", "kind": "cell"},
                           {"id": 77, "name": "", "kind": None},
                           {"id": 3, "name": "walls", "kind": "face"}], None, []])
        self.assertEqual(second["composites"][0], {
            "id": second["composites"][0]["id"], "name": "missing",
            "bodies": [{"id": 901, "name": None}], "faces": [{"id": 902, "name": None}],
            "faceUses": [{"id": 903, "name": None}]})

    # --- Graphs -----------------------------------------------------------------------------------

    def test_writes_a_graph(self):
        self.assertEqual(self.model("physics.orv", "--dot"), (0, DOT, ""))
        self.assertEqual(self.model("same-names.orv", "--dot"), (1, "", SAME_NAMES))

    def test_writes_graphs_that_graphviz_draws(self):
        if shutil.which("dot") is None:
            self.skipTest("Graphviz is not installed")
        for file in ("physics.orv", "two-bodies.orv", "post.orv", "odd-names.orv", "broken.orv"):
            graph = self.model(file, "--dot")[1]
            drawn = subprocess.run(["dot", "-Tsvg"], input=graph.encode(), capture_output=True,
                                   check=False)
            self.assertEqual((drawn.returncode, drawn.stderr.decode()), (0, ""), file)


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
