#!/usr/bin/env python3
# SPDX-License-Identifier: Apache-2.0
"""The reports of orv check for other programs: JSON, JUnit and SARIF, of the same runs.

Usage: check_reports_test.py ORV MAKE_POLYMESH SCHEMA
"""

import json
import os
import pathlib
import re
import subprocess
import sys
import unittest
import xml.etree.ElementTree

import jsonschema

from program import ProgramTest

MAKE_POLYMESH, SCHEMA = map(os.path.abspath, sys.argv[2:4])

FILE_STEPS = ["checkVersion", "checkSolverType", "checkTopologyModel"]
ZONE_STEPS = ["checkMeshSize", "checkMeshConnectivity", "checkPhysicsToMeshMapUsingTopologyModel",
              "checkCellZoneConnectivityTypes", "checkNodeZones", "checkFaceZones",
              "checkCellZones"]
# With the steps within that of the physics.
RUN_STEPS = ZONE_STEPS[:3] + ["checkDomain", "checkSubdomain", "checkBoundary",
                              "checkInterface"] + ZONE_STEPS[3:]
DEEP_STEPS = ["checkFaceConnectivity", "checkCellConnectivity", "checkCellsFromFaces",
              "checkFacesShadowZones"]
WHOLE = {"mesh": None, "target": None, "partition": None}
RESTART = {"mesh": 1, "target": "restart", "partition": None}
POST = {"mesh": 1, "target": "post", "partition": None}


class Reports(ProgramTest):
    """Has damaged samples and meshes in its folder."""

    @classmethod
    def setUpClass(cls):
        super().setUpClass()
        for defect in ("overlap", "one-dimensional", "newer-major", "generic-solver-type",
                       "face-node-range"):
            cls.orv("sample", "--defect", defect, f"{defect}.orv")
        cls.orv("sample", "two-bodies", "sound.orv", "--cells", "16")
        cls.orv("sample", "partitions", "parts.orv", "--cells", "16")
        for name, damage in (("label", "node-id"), ("gap", "patch-gap")):
            subprocess.run([MAKE_POLYMESH, f"{cls.folder.name}/{name}", "2", "1", "1",
                            "--damage", damage], check=True)

    def document(self, form, *arguments):
        """A report as text, beside which nothing was said, and the exit status."""
        status, out, err = self.orv("check", "--format", form, *arguments)
        self.assertEqual(err, "")
        return status, out

    def json(self, *arguments):
        status, out = self.document("json", *arguments)
        report = json.loads(out)
        jsonschema.validate(report, json.loads(pathlib.Path(SCHEMA).read_text(encoding="utf-8")))
        return status, report

    def file(self, *arguments):
        """The JSON report of one file."""
        return self.json(*arguments)[1]["files"][0]

    def junit(self, *arguments):
        status, out = self.document("junit", *arguments)
        self.assertTrue(out.startswith('<?xml version="1.0" encoding="UTF-8"?>\n'))
        return status, xml.etree.ElementTree.fromstring(out)

    def sarif(self, *arguments):
        status, out = self.document("sarif", *arguments)
        log = json.loads(out)
        self.assertEqual(log["version"], "2.1.0")
        self.assertEqual(len(log["runs"]), 1)
        return status, log["runs"][0]


class Json(Reports):
    def test_is_what_json_without_a_format_gives(self):
        for arguments in (["sound.orv"], ["overlap.orv", "nothing"]):
            self.assertEqual(self.orv("check", "--json", *arguments),
                             self.orv("check", "--format", "json", *arguments))

    def test_tells_what_was_asked_for(self):
        status, report = self.json("sound.orv")
        self.assertEqual(status, 0)
        self.assertEqual((report["level"], report["strict"], report["filters"]),
                         (1, False, {**WHOLE, "locationModel": True}))
        report = self.json("sound.orv", "--level", "2", "--strict", "--mesh", "1", "--target",
                           "post", "--partition", "3", "--no-location-model")[1]
        self.assertEqual((report["level"], report["strict"], report["filters"]),
                         (2, True, {"mesh": 1, "target": "post", "partition": 3,
                                    "locationModel": False}))

    def test_tells_what_ran_and_what_did_not(self):
        self.assertEqual(self.file("sound.orv"), {
            "file": "sound.orv", "verdict": "sound", "complete": True, "errors": [],
            "warnings": [],
            "ran": [{**WHOLE, "steps": FILE_STEPS + ["checkCase"]},
                    {**RESTART, "steps": RUN_STEPS}],
            "leftOut": [{"reason": "level", **RESTART, "steps": DEEP_STEPS}]})
        shallow = self.file("sound.orv", "--level", "0")
        self.assertEqual([run["steps"] for run in shallow["ran"]], [FILE_STEPS + ["checkCase"]])
        self.assertEqual(shallow["leftOut"],
                         [{"reason": "level", **RESTART, "steps": ZONE_STEPS + DEEP_STEPS}])
        deep = self.file("sound.orv", "--level", "2")
        self.assertEqual(deep["leftOut"], [])
        self.assertLess(set(ZONE_STEPS + DEEP_STEPS), set(deep["ran"][1]["steps"]))

    def test_tells_which_filter_left_what_out(self):
        first = {"mesh": 1, "target": "ppost", "partition": 0}
        left_out = self.file("parts.orv", "--partition", "0")["leftOut"]
        self.assertEqual(left_out[0], {"reason": "notApplicable", **first,
                                       "steps": ["checkPhysicsToMeshMapUsingTopologyModel"]})
        self.assertEqual([one for one in left_out if "steps" not in one],
                         [{"reason": "partition", **first, "partition": i} for i in (1, 2, 3)])
        for filters, omission in (
                (["--mesh", "2"], {"reason": "mesh", **WHOLE, "mesh": 1}),
                (["--target", "post"], {"reason": "target", **RESTART})):
            report = self.file("sound.orv", *filters)
            self.assertEqual((report["verdict"], report["complete"], report["leftOut"]),
                             ("not checked", True, [omission]))
            self.assertEqual(report["errors"], [
                {"id": "selection-empty", "step": "", **WHOLE,
                 "message": f"nothing in the file fits {' '.join(filters)}"}])
        self.assertIn({"reason": "noLocationModel", **RESTART,
                       "steps": ["checkPhysicsToMeshMapUsingTopologyModel"]},
                      self.file("sound.orv", "--no-location-model")["leftOut"])

    def test_tells_where_each_finding_was_made(self):
        report = self.file("overlap.orv")
        self.assertEqual((report["verdict"], report["complete"]), ("not sound", True))
        self.assertEqual(report["errors"], [
            {"id": "zone-ranges-overlap", "step": "checkFaceZones",
             "message": "Overlapping Face ranges", **POST}])
        report = self.file("generic-solver-type.orv")
        self.assertEqual([(one["step"], one["mesh"]) for one in report["warnings"]],
                         [("checkSolverType", None)])

    def test_tells_where_a_check_ended(self):
        report = self.file("one-dimensional.orv")
        self.assertEqual((report["verdict"], report["complete"], report["ran"]),
                         ("not sound", False, [{**WHOLE, "steps": FILE_STEPS},
                                               {**RESTART, "steps": ["checkMeshSize"]}]))
        report = self.file("newer-major.orv")
        self.assertEqual((report["verdict"], report["complete"], report["ran"]),
                         ("not checked", False, [{**WHOLE, "steps": ["checkVersion"]}]))
        report = self.file("nothing")
        self.assertEqual((report["verdict"], report["complete"], report["ran"]),
                         ("not checked", False, []))
        self.assertEqual([one["step"] for one in report["errors"]], [""])

    def test_has_an_id_for_the_finding_of_each_defect(self):
        ids = {}
        for row in json.loads(self.orv("sample", "--list", "--json")[1])["defects"]:
            self.orv("sample", "--defect", row["name"], "one.orv", "--force")
            report = self.file("one.orv", "--level", str(row["checkLevel"]))
            found = [one["id"] for one in report[row["level"] + "s"]
                     if f"{one['step']} : {one['message']}" == row["message"]]
            self.assertEqual(len(set(found)), 1, row)
            ids.setdefault(found[0], []).append(row["name"])
        self.assertNotIn("unlisted", ids)
        self.assertGreater(len(ids), 60)


class Junit(Reports):
    def test_has_a_test_for_each_step_at_each_place(self):
        status, root = self.junit("sound.orv")
        self.assertEqual(status, 0)
        self.assertEqual((root.tag, root.get("tests"), root.get("failures"), root.get("errors"),
                          root.get("skipped")), ("testsuites", "19", "0", "0", "4"))
        suite, = root
        self.assertEqual(suite.get("name"), "sound.orv")
        self.assertEqual([(case.get("classname"), case.get("name"), [part.tag for part in case])
                          for case in suite.findall("testcase")],
                         [("sound.orv", step, []) for step in FILE_STEPS + ["checkCase"]]
                         + [("sound.orv: mesh 1, restart", step, []) for step in RUN_STEPS]
                         + [("sound.orv: mesh 1, restart", step, ["skipped"])
                            for step in DEEP_STEPS])
        self.assertEqual({part.get("message") for part in suite.iter("skipped")},
                         {"left out by --level"})

    def test_fails_the_step_that_found_an_error(self):
        status, root = self.junit("overlap.orv")
        self.assertEqual((status, root.get("failures"), root.get("errors")), (1, "1", "0"))
        failed, = [case for case in root.iter("testcase") if case.find("failure") is not None]
        self.assertEqual((failed.get("classname"), failed.get("name")),
                         ("overlap.orv: mesh 1, post", "checkFaceZones"))
        failure = failed.find("failure")
        self.assertEqual((failure.get("type"), failure.get("message"), failure.text),
                         ("zone-ranges-overlap", "Overlapping Face ranges",
                          "\nerror: Overlapping Face ranges (zone-ranges-overlap)\n"))

    def test_fails_by_warnings_only_when_strict(self):
        status, root = self.junit("generic-solver-type.orv")
        self.assertEqual((status, root.get("failures")), (0, "0"))
        remark, = root.iter("system-err")
        self.assertRegex(remark.text, r"\A\nwarning: File with undefined / ORV_GENERIC solver "
                                      r"type \([a-z-]+\)\n\Z")
        status, root = self.junit("generic-solver-type.orv", "--strict")
        self.assertEqual((status, root.get("failures")), (1, "1"))

    def test_has_an_error_where_a_check_ended(self):
        status, root = self.junit("one-dimensional.orv", "newer-major.orv", "nothing")
        self.assertEqual((status, root.get("failures"), root.get("errors")), (2, "0", "3"))
        self.assertEqual([part.get("message") for part in root.iter("error")],
                         ["the check ended in checkMeshSize of mesh 1, restart; what follows it "
                          "was not checked",
                          "the check ended in checkVersion; what follows it was not checked",
                          "the file could not be read"])

    def test_has_an_error_where_nothing_was_checked(self):
        status, root = self.junit("sound.orv", "--mesh", "9")
        self.assertEqual((status, root.get("failures"), root.get("errors")), (2, "0", "1"))
        error, = root.iter("error")
        self.assertEqual((error.get("type"), error.get("message")),
                         ("selection-empty", "nothing was checked"))

    def test_stays_valid_whatever_a_file_is_named(self):
        odd = os.fsdecode(b"<a & \"b\">\x1b\n\xff\xef\xbf\xbf.orv")
        _, root = self.junit(odd)
        suite, = root
        self.assertEqual(suite.get("name"), r'<a & "b">\x1b\n\xff\uffff.orv')


class Sarif(Reports):
    def test_has_a_result_for_each_finding_and_a_rule_for_each_kind(self):
        status, run = self.sarif("overlap.orv", "gap")
        self.assertEqual(status, 1)
        rules = run["tool"]["driver"]["rules"]
        self.assertEqual(len({rule["id"] for rule in rules}), len(rules))
        for result in run["results"]:
            self.assertEqual(rules[result["ruleIndex"]]["id"], result["ruleId"])
        self.assertEqual([(result["ruleId"], result["level"], result["message"]["text"])
                          for result in run["results"] if result["level"] == "error"], [
            ("zone-ranges-overlap", "error", "Overlapping Face ranges"),
            (run["results"][-1]["ruleId"], "error",
             "Face zones do not cover the full range of declared Faces")])
        for rule in rules:
            self.assertTrue(rule["shortDescription"]["text"])
            self.assertTrue(rule["fullDescription"]["text"])
            self.assertRegex(rule["help"]["text"], r"(?s)\ACause: .+\nRemedy: .+")

    def test_tells_where_each_finding_was_made(self):
        result, = self.sarif("overlap.orv")[1]["results"]
        self.assertEqual(result["properties"], {"step": "checkFaceZones", **POST})
        self.assertEqual(result["locations"], [{
            "physicalLocation": {"artifactLocation": {"uri": "overlap.orv"}},
            "logicalLocations": [{"fullyQualifiedName": "mesh 1, post", "kind": "object"}]}])

    def test_names_the_line_where_a_reader_told_it(self):
        run = self.sarif("gap")[1]
        line = re.match(r"ORV - gap/boundary: line (\d+),", run["results"][0]["message"]["text"])
        self.assertEqual(run["results"][0]["locations"][0]["physicalLocation"],
                         {"artifactLocation": {"uri": "gap/boundary"},
                          "region": {"startLine": int(line[1])}})
        self.assertEqual(self.sarif("label", "--level", "0")[1]["results"][0]["locations"][0],
                         {"physicalLocation": {"artifactLocation": {"uri": "label"}}})

    def test_tells_what_was_left_out_and_where_it_ended(self):
        status, run = self.sarif("overlap.orv", "one-dimensional.orv", "--target", "restart")
        self.assertEqual(status, 2)
        invocation, = run["invocations"]
        self.assertEqual(invocation["executionSuccessful"], False)
        self.assertEqual([(note["level"], note["message"]["text"])
                          for note in invocation["toolExecutionNotifications"]],
                         [("error", "nothing was checked"),
                          ("note", "all steps of mesh 1, post: left out by --target"),
                          ("error", "the check ended in checkMeshSize of mesh 1, restart; what "
                                    "follows it was not checked")])
        self.assertEqual(self.sarif("sound.orv")[1]["invocations"][0]["executionSuccessful"], True)

    def test_writes_names_of_files_as_uris(self):
        for name, uri in (("no such file", "no%20such%20file"), ("a:b", "a%3Ab"),
                          ("/no/such", "file:///no/such"), ("\u00e9", "%C3%A9")):
            result, = self.sarif(name)[1]["results"]
            self.assertEqual(result["locations"][0]["physicalLocation"]["artifactLocation"],
                             {"uri": uri})


class Text(Reports):
    def test_tells_where_a_check_ended(self):
        status, out, err = self.orv("check", "one-dimensional.orv")
        self.assertEqual((status, out),
                         (1, "one-dimensional.orv: not sound (1 error, 0 warnings)\n"))
        self.assertEqual(err, "Error: checkMeshSize: Invalid mesh dimension\n"
                              "orv: one-dimensional.orv: the check ended in checkMeshSize of mesh "
                              "1, restart; what follows it was not checked\n")

    def test_names_the_places_that_have_errors_where_there_are_several(self):
        for processor in (0, 1, 2):
            damage = ["--damage", "patch-gap"] if processor == 1 else []
            subprocess.run([MAKE_POLYMESH,
                            f"{self.folder.name}/run/processor{processor}/constant/polyMesh",
                            "2", "1", "1", *damage], check=True)
        status, out, err = self.orv("check", "run")
        self.assertEqual((status, out), (1, "run: not sound (1 error, 4 warnings)\n"))
        self.assertEqual([line for line in err.splitlines() if line.startswith("orv: ")],
                         ["orv: run: 1 error in mesh 1, restart, partition 1",
                          "orv: run: `orv check -v 2` lists the zones as they are judged"])

    def test_tells_that_a_filter_filtered_nothing(self):
        status, out, err = self.orv("check", "sound.orv", "--partition", "7")
        self.assertEqual((status, out), (0, "sound.orv: sound (0 errors, 0 warnings)\n"))
        self.assertEqual(err, "orv: sound.orv: --partition picks among the partitions of partitioned "
                              "post targets; the others were checked whole\n")
        self.assertEqual(self.orv("check", "parts.orv", "--partition", "1")[2], "")

    def test_refuses_other_formats(self):
        for arguments in (["--format", "xml"], ["--json", "--format", "sarif"]):
            status, out, err = self.orv("check", "sound.orv", *arguments)
            self.assertEqual((status, out), (2, ""), arguments)
            self.assertIn("--format", err)


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
