#!/usr/bin/env python3
# SPDX-License-Identifier: Apache-2.0
"""orv regions as a user meets it: whole outputs, exit statuses, JSON that fits its schema.

Usage: regions_test.py ORV MAKE_POLYMESH MAKE_MODELS MAKE_REGION_CASE SCHEMA
"""

import json
import os
import subprocess
import sys
import tempfile
import unittest

import jsonschema

ORV, MAKE_POLYMESH, MAKE_MODELS, MAKE_REGION_CASE, SCHEMA = map(os.path.abspath, sys.argv[1:6])

PHYSICS = """\
physics.orv
  location model of the file, mesh 1, restart

domain  location  bodies   cell zones  bulk zones                      zone sides
water   channel   channel  fluid [10]  fluid interior [2], screen [3]  +5 inlet, +6 fluid walls, +9 contact
steel   metal     heater   solid [11]  solid interior [4]              +7 outlet, +8 solid walls, -9 contact

subdomain  location     domain  bodies  cell zones  bulk zones          zone sides
heating    heater       steel   heater  solid [11]  solid interior [4]  +7 outlet, +8 solid walls, -9 contact
expansion  heater unit  steel   heater  solid [11]  solid interior [4]  +7 outlet, +8 solid walls, -9 contact

boundary    location                  domain  face uses                          zone sides                  bulk zones
inflow      channel inlet             water   channel inlet                      +5 inlet                    -
screen      screen                    water   -                                  -                           screen [3]
friction    wetted                    water   channel walls, contact of channel  +6 fluid walls, +9 contact  -
insulation  heater walls, heater end  steel   heater walls, heater end           +8 solid walls, +7 outlet   -
coating     heater unit               steel   heater end, heater walls           +7 outlet, +8 solid walls   -
water side  contact of channel        water   contact of channel                 +9 contact                  -
steel side  contact of heater         steel   contact of heater                  -9 contact                  -

interface      side 1      side 2
heat transfer  water side  steel side

2 domains, 2 subdomains, 7 boundaries, 1 interface
"""

# Against a model that is built, names of the one in the file are unknown.
PHYSICS_BUILT = """\
physics.orv
  built from the zones of mesh 1, restart

boundary coating
  location
    heater unit  no part knows this name
  face uses   -
  zone sides  -
  bulk zones  -
  domain      -, no domain takes it in
"""

PHYSICS_HEAD = "physics.orv\n  location model of the file, mesh 1, restart\n\n"

EXPLAINED = {
    "water": """\
domain water
  location
    channel  body of part assembly: fluid [10], fluid interior [2], screen [3]
  bodies      channel
  cell zones  fluid [10]
  bulk zones  fluid interior [2], screen [3]
  zone sides  +5 inlet, +6 fluid walls, +9 contact
  boundaries  inflow, screen, friction, water side
""",
    "steel": """\
domain steel
  location
    metal  composite of part assembly with heater
  bodies      heater
  cell zones  solid [11]
  bulk zones  solid interior [4]
  zone sides  +7 outlet, +8 solid walls, -9 contact
  boundaries  insulation, coating, steel side
""",
    "heating": """\
subdomain heating
  location
    heater  body of part assembly: solid [11], solid interior [4]
  bodies      heater
  cell zones  solid [11]
  bulk zones  solid interior [4]
  zone sides  +7 outlet, +8 solid walls, -9 contact
  domain      steel, which has its first body
""",
    "screen": """\
boundary screen
  location
    screen  no part knows this name; the boundary lies on the face zone that bears its own name
  face uses   -
  zone sides  -
  bulk zones  screen [3]
  domain      water, which takes in its bulk zone
""",
    "insulation": """\
boundary insulation
  location
    heater walls  face use of part assembly: +8 solid walls
    heater end    face use of part assembly: +7 outlet
  face uses   heater walls, heater end
  zone sides  +8 solid walls, +7 outlet
  bulk zones  -
  domain      steel, which has the body of its first face use
""",
    "friction": """\
boundary friction
  location
    wetted  composite of part assembly with channel walls, contact of channel
  face uses   channel walls, contact of channel
  zone sides  +6 fluid walls, +9 contact
  bulk zones  -
  domain      water, which has the body of its first face use
""",
    "heat transfer": """\
interface heat transfer
  side 1  boundary water side  zone sides +9 contact
  side 2  boundary steel side  zone sides -9 contact
""",
}

MODEL = """
part p
  body channel: 7 2
  body heater: 8
  use hull of channel: 4
  composite bodies: channel
"""

HEAD = "case.orv\n  location model of the file, mesh 1, restart\n\n"
HINT = ("orv: case.orv: `orv regions case.orv NAME` explains a region, and what may have been "
        "meant\n")

FAULTS = """
domains/water/location = channel, Chanel
domains/nowhere/material = oil
domains/twin/location = heater
boundaries/twin/location = hull
boundaries/a/location = hul, wet, screen, fluid
boundaries/screen/location = x
boundaries/b/location = bodies
boundaries/b/domain = steel
boundaries/c/location = hull
boundaries/c/domain = twin
boundaries/baffle/location = baffle
subdomains/s/location = channel
subdomains/s/domain = rock
domains/rock/location = heater
interfaces/i/boundariesSide1 = c
interfaces/j/boundariesSide1 = c
interfaces/j/boundariesSide2 = water
interfaces/k/boundariesSide1 = c
interfaces/k/boundariesSide2 = a
"""

FAULTS_OUT = HEAD + """\
domain  location             bodies   cell zones  bulk zones  zone sides
water   channel, Chanel (?)  channel  fluid [7]   screen [2]  +4 wet
rock    heater               heater   solid [8]   -           -

subdomain  location  domain  bodies   cell zones  bulk zones  zone sides
s          channel   water   channel  fluid [7]   screen [2]  +4 wet

boundary  location                                 domain  face uses  zone sides  bulk zones
twin      hull                                     water   hull       +4 wet      -
a         hul (?), wet (?), screen (?), fluid (?)  -       -          -           -
screen    x                                        s       -          -           screen [2]
b         bodies (?)                               -       -          -           -
c         hull                                     water   hull       +4 wet      -
baffle    baffle (?)                               -       -          -           -

interface  side 1  side 2
k          c       a

2 domains, 1 subdomain, 6 boundaries, 1 interface
"""

FAULTS_ERR = """\
Warning: case.orv: domain nowhere has no location
Warning: case.orv: domain twin is hidden: the boundary of the same name answers to it
Warning: case.orv: interface i has no boundariesSide2
Error: case.orv: interface j has boundariesSide2 water, but no boundary goes by that name
Error: case.orv: domain water: Chanel: no part knows this name
Error: case.orv: boundary a: hul: no part knows this name
Error: case.orv: boundary a: wet: no part knows this name, but face zone wet [4] bears it; \
face use hull has it
Error: case.orv: boundary a: screen: no part knows this name, but face zone screen [2] inside \
body channel bears it; a boundary on it has to be named like the zone
Error: case.orv: boundary a: fluid: no part knows this name, but cell zone fluid [7] bears it; \
body channel has it
Error: case.orv: boundary b: bodies: composite of part p without face uses
Error: case.orv: boundary baffle: baffle: no part knows this name
Warning: case.orv: subdomain s names the domain rock, but lies in water
Error: case.orv: boundary b names the domain steel, but no domain goes by that name
Error: case.orv: boundary c names the domain twin, but no domain goes by that name
""" + HINT

EXPLAINED_A = HEAD + """\
boundary a
  location
    hul     no part knows this name; did you mean hull?
    wet     no part knows this name, but face zone wet [4] bears it; face use hull has it
    screen  no part knows this name, but face zone screen [2] inside body channel bears it; \
a boundary on it has to be named like the zone
    fluid   no part knows this name, but cell zone fluid [7] bears it; body channel has it
  face uses   -
  zone sides  -
  bulk zones  -
  domain      -, no domain takes it in
"""

# A body as the place of a boundary ends the resolving of all.
STOPPED = """
domains/water/location = channel
boundaries/lid/location = channel
boundaries/walls/location = hull
boundaries/screen/location = screen
"""

STOPPED_OUT = HEAD + """\
domain  location  bodies  cell zones  bulk zones  zone sides
water   channel   -       -           -           -

boundary  location     domain  face uses  zone sides  bulk zones
lid       channel (?)  -       -          -           -
walls     hull         -       -          -           -
screen    screen       -       -          -           -

1 domain, 0 subdomains, 3 boundaries, 0 interfaces
"""

UNEXPECTED = "Unexpectedly found a body '2' in the location of a boundary.\n"
MISPLACED = ("Error: case.orv: boundary lid: channel: body of part p, where no boundary can lie: "
             "no region is resolved\n")

EXPLAINED_LID = HEAD + """\
boundary lid
  location
    channel  body of part p, where no boundary can lie: no region is resolved
  face uses   -
  zone sides  -
  bulk zones  -
  domain      -
"""

# The cells of zone 7 list their nodes.
CELL_NODES = HEAD + """\
domain water
  location
    channel  body of part p: fluid [7], screen [2]
    heater   body of part p: solid [8]
  bodies      channel, heater
  cell zones  fluid [7], whose cells list their nodes
  cell zones  solid [8]
  bulk zones  screen [2]
  zone sides  +4 wet
  boundaries  -
"""

BUILT = """\
case.orv
  built from the zones of mesh 1, restart

domain  location  bodies  cell zones  bulk zones  zone sides
steel   solid     solid   solid [8]   baffle [3]  +5 dry, -6 contact

boundary  location            domain  face uses             zone sides          bulk zones
wall      dry, contact@solid  steel   dry, (contact@solid)  +5 dry, -6 contact  -

1 domain, 0 subdomains, 1 boundary, 0 interfaces
"""

BUILD_ERROR = ("Error: shared.orv: Unable to build location model: Face zone 6'fluid walls' bounds "
               "mode than one cell zone on side 0.\n")


class Regions(unittest.TestCase):
    maxDiff = None

    @classmethod
    def setUpClass(cls):
        cls.scratch = tempfile.TemporaryDirectory()
        cls.folder = cls.scratch.name
        subprocess.run([MAKE_MODELS, cls.folder], check=True)
        subprocess.run([MAKE_POLYMESH, os.path.join(cls.folder, "foam"), "2", "2", "2"],
                       check=True)
        cls.orv("sample", "physics", "physics.orv")
        with open(SCHEMA, encoding="utf-8") as schema:
            cls.schema = json.load(schema)

    @classmethod
    def tearDownClass(cls):
        cls.scratch.cleanup()

    @classmethod
    def orv(cls, *arguments):
        done = subprocess.run([ORV, *arguments], cwd=cls.folder, capture_output=True, check=False)
        return (done.returncode, done.stdout.decode("utf-8", "replace"),
                done.stderr.decode("utf-8", "replace"))

    def make(self, settings, model=MODEL):
        subprocess.run([MAKE_REGION_CASE, os.path.join(self.folder, "case.orv"), settings, model],
                       check=True)

    def report(self, *arguments):
        status, out, err = self.orv("regions", *arguments, "--json")
        report = json.loads(out)
        jsonschema.validate(report, self.schema)
        return status, report["files"][0], err

    # --- Tables and explanations ------------------------------------------------------------------

    def test_shows_a_table_of_each_kind(self):
        self.assertEqual(self.orv("regions", "physics.orv"), (0, PHYSICS, ""))

    def test_explains_one_region(self):
        for name, expected in EXPLAINED.items():
            with self.subTest(name):
                self.assertEqual(self.orv("regions", "physics.orv", name),
                                 (0, PHYSICS_HEAD + expected, ""))

    def test_tells_cell_zones_that_list_their_nodes(self):
        self.make("domains/water/location = channel, heater")
        self.assertEqual(self.orv("regions", "case.orv", "water"), (0, CELL_NODES, ""))

    def test_looks_into_a_built_model_where_the_file_has_none(self):
        self.make("domains/steel/location = solid\nboundaries/wall/location = dry, contact@solid", "")
        self.assertEqual(self.orv("regions", "case.orv"), (0, BUILT, ""))

    def test_builds_a_model_at_request(self):
        self.assertEqual(self.orv("regions", "physics.orv", "coating", "--build"),
                         (1, PHYSICS_BUILT, ""))

    # --- What is amiss ----------------------------------------------------------------------------

    def test_tells_what_is_amiss(self):
        self.make(FAULTS)
        self.assertEqual(self.orv("regions", "case.orv"), (1, FAULTS_OUT, FAULTS_ERR))

    def test_explains_what_is_amiss_with_one_region(self):
        self.make(FAULTS)
        self.assertEqual(self.orv("regions", "case.orv", "a"), (1, EXPLAINED_A, ""))

    def test_explains_objects_that_are_no_regions(self):
        self.make(FAULTS)
        for name, status, text in (
                ("nowhere", 0, "Warning: case.orv: domain nowhere has no location\n"),
                ("i", 0, "Warning: case.orv: interface i has no boundariesSide2\n"),
                ("j", 1, "Error: case.orv: interface j has boundariesSide2 water, but no boundary "
                         "goes by that name\n")):
            with self.subTest(name):
                self.assertEqual(self.orv("regions", "case.orv", name), (status, "", text))

    def test_tells_that_a_name_has_two_meanings(self):
        self.make(FAULTS)
        status, out, err = self.orv("regions", "case.orv", "twin")
        self.assertEqual(status, 0)
        self.assertEqual(out.splitlines()[3], "boundary twin")
        self.assertEqual(err, "Warning: case.orv: domain twin is hidden: the boundary of the same "
                              "name answers to it\n")

    def test_offers_names_that_are_spelled_nearly_so(self):
        for written, meant in (("Hull", "hull"), ("hul", "hull"), ("hulls", "hull"),
                               ("hlul", "hull"), ("bodis", "bodies"), ("hxxx", None),
                               ("chanel", None), ("ab", None), ("a", None)):
            with self.subTest(written):
                self.make(f"boundaries/w/location = {written}")
                _, out, _ = self.orv("regions", "case.orv", "w")
                guess = f"; did you mean {meant}?" if meant else ""
                self.assertEqual(out.splitlines()[5],
                                 f"    {written}  no part knows this name{guess}")

    def test_tells_what_ended_the_resolving(self):
        self.make(STOPPED)
        self.assertEqual(self.orv("regions", "case.orv"), (1, STOPPED_OUT, UNEXPECTED + MISPLACED))
        self.assertEqual(self.orv("regions", "case.orv", "lid"), (1, EXPLAINED_LID, UNEXPECTED))
        status, _, err = self.orv("regions", "case.orv", "walls")
        self.assertEqual((status, err), (1, UNEXPECTED + MISPLACED))

    def test_tells_what_follows_from_a_domain_that_lies_nowhere(self):
        self.orv("sample", "--defect", "wrong-location", "wrong.orv", "--force")
        status, _, err = self.orv("regions", "wrong.orv")
        self.assertEqual((status, err), (1, (
            "Error: wrong.orv: domain water: Channel: no part knows this name\n"
            "Error: wrong.orv: boundary screen: screen: no part knows this name, but face zone "
            "screen [3] inside body channel bears it; no domain or subdomain lies in that body\n"
            + HINT.replace("case.orv", "wrong.orv"))))
        _, out, _ = self.orv("regions", "wrong.orv", "water")
        self.assertIn("    Channel  no part knows this name; did you mean channel?\n", out)

    def test_tells_that_no_model_could_be_built(self):
        self.orv("sample", "--defect", "two-bodies-on-side-0", "shared.orv", "--force")
        status, out, err = self.orv("regions", "shared.orv")
        self.assertEqual((status, err), (1, BUILD_ERROR))
        self.assertEqual(out.splitlines()[:4],
                         ["shared.orv", "",
                          "domain  location  bodies  cell zones  bulk zones  zone sides",
                          "fluid   fluid     -       -           -           -"])

    def test_tells_that_there_are_no_physics_objects(self):
        self.assertEqual(
            self.orv("regions", "foam"),
            (0, "foam\n  built from the zones of mesh 1, restart\n\n"
                "0 domains, 0 subdomains, 0 boundaries, 0 interfaces\n",
             "orv: foam: the settings have no physics objects\n"))

    # --- What cannot be carried out ---------------------------------------------------------------

    def test_knows_no_such_region(self):
        self.assertEqual(self.orv("regions", "physics.orv", "inflw"),
                         (2, "", "orv: physics.orv: no region is named inflw; did you mean inflow? "
                                 "`orv regions physics.orv` lists all\n"))
        self.assertEqual(self.orv("regions", "foam", "x"),
                         (2, "", "orv: foam: no region is named x; `orv regions foam` lists all\n"))

    def test_knows_no_such_mesh(self):
        self.assertEqual(self.orv("regions", "physics.orv", "-m", "3"),
                         (2, "", "orv: physics.orv: there is no mesh 3; meshes: 1\n"))

    def test_knows_no_such_file(self):
        self.assertEqual(self.orv("regions", "nothing.orv"),
                         (2, "", "orv: nothing.orv: no such file or folder\n"))

    # --- JSON -------------------------------------------------------------------------------------

    def test_writes_json_that_fits_its_schema(self):
        status, report, err = self.report("physics.orv")
        self.assertEqual((status, err), (0, ""))
        self.assertTrue(report["resolved"])
        self.assertEqual([region["name"] for region in report["regions"]],
                         ["water", "steel", "heating", "expansion", "inflow", "screen", "friction",
                          "insulation", "coating", "water side", "steel side", "heat transfer"])
        self.assertEqual(report["findings"], [])
        self.assertEqual(report["errors"], [])

    def test_writes_one_region_as_json(self):
        status, report, _ = self.report("physics.orv", "screen")
        self.assertEqual(status, 0)
        self.assertEqual(report["regions"], [{
            "kind": "boundary", "name": "screen", "location": "screen",
            "names": [{"name": "screen", "found": None, "id": None, "part": None, "counts": True}],
            "statedDomain": "water", "domain": "water", "boundaries": [], "bodies": None,
            "cellNodeZones": None, "otherCellZones": None, "faceUses": None,
            "bulkZones": [{"id": 3, "name": "screen", "kind": "face"}], "zoneSides": None,
            "sides": None}])
        _, report, _ = self.report("physics.orv", "heat transfer")
        self.assertEqual(report["regions"][0]["sides"], ["water side", "steel side"])

    def test_writes_what_is_amiss_as_json(self):
        self.make(FAULTS)
        status, report, err = self.report("case.orv", "j")
        self.assertEqual((status, err, report["regions"]), (1, "", []))
        self.assertEqual(report["findings"], [
            {"level": "error", "name": "j",
             "text": "interface j has boundariesSide2 water, but no boundary goes by that name"}])
        self.make(STOPPED)
        status, report, err = self.report("case.orv", "walls")
        self.assertEqual((status, err, report["resolved"]), (1, UNEXPECTED, False))
        self.assertEqual([finding["name"] for finding in report["findings"]], ["lid"])
        status, report, _ = self.report("without-meshes.orv")
        self.assertEqual((status, report["mesh"], report["errors"]), (1, None, ["there is no mesh"]))

    def test_keeps_json_valid_whatever_the_names(self):
        self.make('domains/\u202e"a"/location = ch\x1bannel\nboundaries/b\\/location = hull')
        _, report, _ = self.report("case.orv")
        self.assertEqual([region["name"] for region in report["regions"]],
                         ['\u202e"a"', "b\\"])
        _, out, _ = self.orv("regions", "case.orv")
        self.assertIn('"\\u202e\\"a\\""', out)
        self.assertNotIn("\x1b", out)

    # --- Samples ----------------------------------------------------------------------------------

    def test_has_nothing_to_say_of_sound_samples(self):
        samples = json.loads(self.orv("sample", "--list", "--json")[1])["samples"]
        for sample in samples:
            with self.subTest(sample["name"]):
                file = f"sample-{sample['name']}.orv"
                self.orv("sample", sample["name"], file, "-n", "100")
                status, report, err = self.report(file)
                self.assertEqual((status, err), (0, ""))
                self.assertEqual(report["findings"], [])
                self.assertTrue(report["resolved"])


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
