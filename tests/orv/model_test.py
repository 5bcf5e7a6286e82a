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
import tempfile
import unittest

import jsonschema

ORV, MAKE_POLYMESH, MAKE_MODELS, SCHEMA = map(os.path.abspath, sys.argv[1:5])

PHYSICS = """\
physics.orv
  location model of the file, mesh 1, restart

part assembly
  body channel: fluid [10], takes in fluid interior [2], screen [3]
  body heater: solid [11], takes in solid interior [4]
  face inlet face
    side 0  body channel  face use channel inlet       +5 inlet
    side 1  -
  face channel hull
    side 0  body channel  face use channel walls       +6 fluid walls
    side 1  -
  face end face
    side 0  body heater   face use heater end          +7 outlet
    side 1  -
  face heater hull
    side 0  body heater   face use heater walls        +8 solid walls
    side 1  -
  face contact
    side 0  body channel  face use contact of channel  +9 contact
    side 1  body heater   face use contact of heater   -9 contact
  composite metal: body heater
  composite wetted: face uses channel walls, contact of channel
  composite heater unit: body heater; face uses heater end, heater walls

1 part, 2 bodies, 5 faces, 6 face uses, 3 composites
"""

PHYSICS_BUILT = """\
physics.orv
  built from the zones of mesh 1, restart

part P
  body fluid: fluid [10], takes in fluid interior [2], screen [3]
  body solid: solid [11], takes in solid interior [4]
  face F5
    side 0  body fluid  face use inlet            +5 inlet
    side 1  -
  face F6
    side 0  body fluid  face use fluid walls      +6 fluid walls
    side 1  -
  face contact
    side 0  body fluid  face use (contact@fluid)  +9 contact
    side 1  body solid  face use (contact@solid)  -9 contact
  face F7
    side 0  body solid  face use outlet           +7 outlet
    side 1  -
  face F8
    side 0  body solid  face use solid walls      +8 solid walls
    side 1  -

1 part, 2 bodies, 5 faces, 6 face uses, 0 composites
"""

TWO_BODIES = """\
two-bodies.orv
  built from the zones of mesh 1, restart

part P
  body fluid: fluid [10], takes in fluid interior [2], screen [3]
  body solid: solid [11], takes in solid interior [4]
  face F5
    side 0  body fluid  face use inlet            +5 inlet
    side 1  -
  face F6
    side 0  body fluid  face use fluid walls      +6 fluid walls
    side 1  -
  face between
    side 0  body fluid  face use (between@fluid)  +9 between
    side 1  body solid  face use (between@solid)  -9 between
  face F7
    side 0  body solid  face use outlet           +7 outlet
    side 1  -
  face F8
    side 0  body solid  face use solid walls      +8 solid walls
    side 1  -

1 part, 2 bodies, 5 faces, 6 face uses, 0 composites
"""

PERIODIC = """\
periodic.orv
  built from the zones of mesh 1, restart

part P
  body fluid: fluid [6], takes in interior [2]
  face F3
    side 0  body fluid  face use left   +3 left
    side 1  -
  face F4
    side 0  body fluid  face use right  +4 right
    side 1  -
  face F5
    side 0  body fluid  face use walls  +5 walls
    side 1  -

1 part, 1 body, 3 faces, 3 face uses, 0 composites
"""

SHADOW = """\
shadow.orv
  built from the zones of mesh 1, restart

part P
  body fluid: fluid [11], takes in fluid interior [2], screen [3]
  body solid: solid [12], takes in solid interior [4]
  face F5
    side 0  body fluid  face use inlet        +5 inlet
    side 1  -
  face F6
    side 0  body fluid  face use fluid walls  +6 fluid walls
    side 1  -
  face F9
    side 0  body fluid  face use fluid side   +9 fluid side
    side 1  body solid  face use solid side   +10 solid side
  face F7
    side 0  body solid  face use outlet       +7 outlet
    side 1  -
  face F8
    side 0  body solid  face use solid walls  +8 solid walls
    side 1  -

1 part, 2 bodies, 5 faces, 6 face uses, 0 composites
"""

POST = """\
post.orv
  built from the zones of mesh 1, post

part P
  body fluid: fluid [8]

1 part, 1 body, 0 faces, 0 face uses, 0 composites
"""

PARTITIONS = """\
partitions.orv
  built from the zones of mesh 1, partitioned post, partition 0

part P
  body fluid: fluid [5]

1 part, 1 body, 0 faces, 0 face uses, 0 composites
"""

FOAM = """\
foam
  built from the zones of mesh 1, restart

part P
  body cells: cells [9], takes in interior [2]
  face F3
    side 0  body cells  face use xMin  +3 xMin
    side 1  -
  face F4
    side 0  body cells  face use xMax  +4 xMax
    side 1  -
  face F5
    side 0  body cells  face use yMin  +5 yMin
    side 1  -
  face F6
    side 0  body cells  face use yMax  +6 yMax
    side 1  -
  face F7
    side 0  body cells  face use zMin  +7 zMin
    side 1  -
  face F8
    side 0  body cells  face use zMax  +8 zMax
    side 1  -

1 part, 1 body, 6 faces, 6 face uses, 0 composites
"""

FOAM_ZONES = """\
zones
  built from the zones of mesh 1, restart

part P
  body rotor: rotor [14]
  body default: default [15], takes in interior:default [2]
  face interior:default:rotor
    side 0  body default  face use (interior:default:rotor@default)  +3 interior:default:rotor
    side 1  body rotor    face use (interior:default:rotor@rotor)    -3 interior:default:rotor
  face F5
    side 0  body rotor    face use xMax                              +5 xMax
    side 1  -
  face F7
    side 0  body rotor    face use yMin:rotor                        +7 yMin:rotor
    side 1  -
  face F9
    side 0  body rotor    face use yMax:rotor                        +9 yMax:rotor
    side 1  -
  face F11
    side 0  body rotor    face use zMin:rotor                        +11 zMin:rotor
    side 1  -
  face F13
    side 0  body rotor    face use zMax:rotor                        +13 zMax:rotor
    side 1  -
  face F4
    side 0  body default  face use xMin                              +4 xMin
    side 1  -
  face F6
    side 0  body default  face use yMin:default                      +6 yMin:default
    side 1  -
  face F8
    side 0  body default  face use yMax:default                      +8 yMax:default
    side 1  -
  face F10
    side 0  body default  face use zMin:default                      +10 zMin:default
    side 1  -
  face F12
    side 0  body default  face use zMax:default                      +12 zMax:default
    side 1  -

1 part, 2 bodies, 11 faces, 12 face uses, 0 composites
"""

ODD_NAMES = r"""odd-names.orv
  location model of the file, mesh 1, restart

part a "quoted" part
  body "\x1b[31mred": "line\nbreak" [4]
  body "one, two": [5]
  face "-"
    side 0  body "\x1b[31mred"  face use "été \xff \u202e"  +2 <b>&amp;\N
    side 1  body "one, two"     face use ("-@one, two")     -2 <b>&amp;\N
  composite "(both)": bodies "\x1b[31mred", "one, two"; face "-"

1 part, 2 bodies, 1 face, 2 face uses, 1 composite
"""

BROKEN = """\
broken.orv
  location model of the file, mesh 1, restart

part first
  body left: left [4], [77] (not in mesh 1), takes in walls [3]
  body elsewhere: no zones in mesh 1
  body empty: no zones in mesh 1
  face walls
    side 0  -
    side 1  body left       face use twice  -2 between, +3 walls, +88 (no face zone of mesh 1), +4 (no face zone of mesh 1)
  face back
    side 0  body elsewhere  face use twice  no zones in mesh 1
    side 1  -
  face unused
    side 0  -
    side 1  -

part second
  body other: right [5]
  composite missing: body (901, not in the model); face (902, not in the model); face use (903, not in the model)
  composite of both parts: bodies left, empty, other; face walls; face use twice
  composite nothing: nothing

2 parts, 4 bodies, 3 faces, 2 face uses, 3 composites
"""

DOT = """\
graph "location model" {
  graph [rankdir=LR, nodesep=0.14, ranksep=0.3, ordering=out, bgcolor="white", pad=0.15,
         labelloc=t, labeljust=l, fontname="Helvetica,Arial,sans-serif", fontsize=11,
         fontcolor="#5f6b7a"]
  node [fontname="Helvetica,Arial,sans-serif", fontsize=10, fontcolor="#1f2937", height=0.3,
        width=0.4, margin="0.12,0.06"]
  edge [color="#8a97a8", penwidth=1.1, tailport=e, headport=w]
  label=<physics.orv: location model of the file, mesh 1, restart<br align="left"/>part assembly<br align="left"/>>

  {
    body_2 [label=<<b>channel</b><br/><font point-size="8.5" color="#55606e">fluid [10]</font><br/><font point-size="8.5" color="#55606e">takes in fluid interior [2], screen [3]</font>>, shape=box, style="rounded,filled", fillcolor="#dbe8f6", color="#3f6fa8", penwidth=1.3]
    body_3 [label=<<b>heater</b><br/><font point-size="8.5" color="#55606e">solid [11]</font><br/><font point-size="8.5" color="#55606e">takes in solid interior [4]</font>>, shape=box, style="rounded,filled", fillcolor="#dbe8f6", color="#3f6fa8", penwidth=1.3]
    face_4 [label=<inlet face>, shape=box, style="rounded,filled", fillcolor="#f6f7f9", color="#a3adba"]
    face_6 [label=<channel hull>, shape=box, style="rounded,filled", fillcolor="#f6f7f9", color="#a3adba"]
    face_8 [label=<end face>, shape=box, style="rounded,filled", fillcolor="#f6f7f9", color="#a3adba"]
    face_10 [label=<heater hull>, shape=box, style="rounded,filled", fillcolor="#f6f7f9", color="#a3adba"]
    face_12 [label=<contact>, shape=box, style="rounded,filled", fillcolor="#fde3c4", color="#c9781d"]
    use_5 [label=<channel inlet<br/><font point-size="8.5" color="#55606e">+5 inlet</font>>, shape=plaintext, margin="0.05,0.02"]
    body_2 -- use_5
    use_5 -- face_4
    use_7 [label=<channel walls<br/><font point-size="8.5" color="#55606e">+6 fluid walls</font>>, shape=plaintext, margin="0.05,0.02"]
    body_2 -- use_7
    use_7 -- face_6
    use_9 [label=<heater end<br/><font point-size="8.5" color="#55606e">+7 outlet</font>>, shape=plaintext, margin="0.05,0.02"]
    body_3 -- use_9
    use_9 -- face_8
    use_11 [label=<heater walls<br/><font point-size="8.5" color="#55606e">+8 solid walls</font>>, shape=plaintext, margin="0.05,0.02"]
    body_3 -- use_11
    use_11 -- face_10
    use_13 [label=<contact of channel<br/><font point-size="8.5" color="#55606e">+9 contact</font>>, shape=plaintext, margin="0.05,0.02"]
    body_2 -- use_13
    use_13 -- face_12
    use_14 [label=<contact of heater<br/><font point-size="8.5" color="#55606e">-9 contact</font>>, shape=plaintext, margin="0.05,0.02"]
    use_14 -- body_3
    face_12 -- use_14
    composite_15 [label=<<b>metal</b>>, shape=note, style=filled, fillcolor="#f7f3d7", color="#a89c4a"]
    composite_15 -- body_3 [style=dashed, color="#a89c4a"]
    composite_16 [label=<<b>wetted</b>>, shape=note, style=filled, fillcolor="#f7f3d7", color="#a89c4a"]
    composite_16 -- use_7 [style=dashed, color="#a89c4a"]
    composite_16 -- use_13 [style=dashed, color="#a89c4a"]
    composite_17 [label=<<b>heater unit</b>>, shape=note, style=filled, fillcolor="#f7f3d7", color="#a89c4a"]
    composite_17 -- body_3 [style=dashed, color="#a89c4a"]
    composite_17 -- use_9 [style=dashed, color="#a89c4a"]
    composite_17 -- use_11 [style=dashed, color="#a89c4a"]
  }
}
"""

SAME_NAMES = "Error: same-names.orv: Unable to define body 'same'\n"

ZONES_ERRORS = [
    "Unable to build location model: Face zone 2'between' bounds mode than one cell zone on side 0.",
    "Unable to build location model: Face zone 2'between' bounds mode than one cell zone on side 1.",
]


class Model(unittest.TestCase):
    """Runs in a folder of its own that holds samples, an OpenFOAM mesh and odd models."""

    maxDiff = None

    @classmethod
    def setUpClass(cls):
        cls.folder = tempfile.TemporaryDirectory()
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

    @classmethod
    def tearDownClass(cls):
        cls.folder.cleanup()

    def model(self, *arguments):
        """Exit status, standard output and standard error."""
        done = subprocess.run([ORV, "model", *arguments], cwd=self.folder.name,
                              capture_output=True, check=False)
        return done.returncode, done.stdout.decode(), done.stderr.decode()

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
