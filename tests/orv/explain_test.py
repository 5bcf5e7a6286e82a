#!/usr/bin/env python3
# SPDX-License-Identifier: Apache-2.0
"""orv explain as a user meets it: texts, logs, what is said of others, JSON that fits its schema.

Usage: explain_test.py ORV SCHEMA
"""

import json
import os
import pathlib
import pty
import re
import subprocess
import sys
import tempfile
import unittest

import jsonschema

ORV, SCHEMA = map(os.path.abspath, sys.argv[1:3])
OVERLAP = "Error: checkFaceZones: Overlapping Face ranges"
INVALID = "Error: checkCellsFromFaces_facenode: Cell {} (12) for face 5 is invalid"
LABELS = ["means", "cause", "remedy", "see it", "given"]


def run(*arguments, given=None):
    """Exit status, standard output and standard error of orv explain."""
    result = subprocess.run([ORV, "explain", *arguments], input=given, capture_output=True,
                            check=False, stdin=subprocess.DEVNULL if given is None else None)
    return result.returncode, result.stdout.decode(), result.stderr.decode()


def report(*arguments, given=None):
    """Exit status and document of orv explain --json."""
    status, out, err = run("--json", *arguments, given=given)
    document = json.loads(out)
    jsonschema.validate(document, json.loads(pathlib.Path(SCHEMA).read_text(encoding="utf-8")))
    assert err == "", err
    return status, document


def entries():
    return report("--list")[1]["entries"]


def entry_of(text, level="error"):
    return next(one for one in entries() if (one["text"], one["level"]) == (text, level))


def heads(out):
    """The first line of each entry."""
    return [line for line in out.splitlines()
            if re.match(r"[a-z0-9-]+: (error|warning|line)\b", line)]


class Texts(unittest.TestCase):
    def setUp(self):
        self.overlap = entry_of("Overlapping <...> ranges")
        self.invalid = entry_of("Cell <...> (<...>) for face <...> is invalid")

    def test_an_entry_is_shown_with_its_values(self):
        status, out, err = run(OVERLAP)
        self.assertEqual((status, err), (0, ""))
        lines = out.splitlines()
        self.assertEqual(lines[:4], [self.overlap["id"] + ": error of OrvChecker",
                                     "  Overlapping <...> ranges", "  here: Face", ""])
        self.assertEqual([line[:9].rstrip() for line in lines[4:] if line[0] != " "], LABELS[:4])
        self.assertLessEqual(max(map(len, lines)), 100)

    def test_all_words_of_an_entry_are_there(self):
        for entry in entries():
            status, out, err = run(entry["id"])
            self.assertEqual((status, err), (0, ""))
            head, words = out.split("\n\n")
            self.assertIn(entry["text"], head)
            self.assertNotIn("here:", head)
            parts = re.split(r"^(means|cause|remedy|see it|given) +", words, flags=re.M)
            told = {label: " ".join(text.split()) for label, text in zip(parts[1::2], parts[2::2])}
            for label in LABELS[:3]:
                self.assertEqual(told[label], entry[label])
            never = re.sub(r"^Never\.? ", "", told.get("given", ""))
            self.assertEqual(never, entry["never"])
            for command in entry["seeIt"]:
                self.assertIn(command, told["see it"])

    def test_each_text_is_explained(self):
        status, out, _ = run(OVERLAP, "checkFaceZones : Overlapping Face ranges",
                             INVALID.format(7))
        self.assertEqual(status, 0)
        self.assertEqual(heads(out), [self.overlap["id"] + ": error of OrvChecker"] * 2 +
                         [self.invalid["id"] + ": error of OrvChecker"])
        self.assertIn("\n  here: 7, 12, 5\n", out)

    def test_levels_that_nothing_tells_apart_are_both_shown(self):
        ids = [entry_of("ORV - <...>", level)["id"] for level in ("error", "warning")]
        status, document = report("ORV - x: line 3", "Warning: checkA: ORV - x: line 3")
        self.assertEqual(status, 0)
        self.assertEqual([[one["id"] for one in text["matches"]] for text in document["texts"]],
                         [ids, ids[1:]])

    def test_a_wrapped_message_is_one(self):
        status, out, _ = run("Error: checkFaceZones: Overlapping\n    Face ranges\n")
        self.assertEqual((status, heads(out)), (0, [self.overlap["id"] + ": error of OrvChecker"]))

    def test_several_lines_are_a_log(self):
        status, out, err = run(f"{OVERLAP}\nelse\n{OVERLAP}")
        self.assertEqual((status, heads(out)),
                         (0, [self.overlap["id"] + ": error of OrvChecker, 2 lines"]))
        self.assertEqual(err, "orv: 1 of 3 lines are no message of the tools\n")

    def test_a_text_in_brackets_is_one_text(self):
        status, document = report("[3] Face zones total range doesnt match [1,nmax]", "[a,b]")
        self.assertEqual(status, 1)
        self.assertEqual([text["text"] for text in document["texts"]],
                         ["[3] Face zones total range doesnt match [1,nmax]", "[a,b]"])
        self.assertEqual([len(text["matches"]) for text in document["texts"]], [1, 0])

    def test_values_are_fit_for_a_terminal(self):
        for text, shown in (("Region '\x1b[2J' not found.", '"\\x1b[2J"'),
                            (b"Region '\xff' not found.", '"\\xff"'),
                            ("Region '" + "ä" * 1000 + "' not found.", "ä" * 100 + "...")):
            status, out, _ = run(text)
            self.assertEqual(status, 0)
            self.assertIn(f"\n  here: {shown}\n", out)

    def test_an_unknown_text_is_refused_with_what_may_be_meant(self):
        status, out, err = run("Overlaping Face rangs")
        self.assertEqual((status, out), (1, ""))
        self.assertEqual(err.splitlines()[:2],
                         ["orv: Overlaping Face rangs: no message of the tools; did you mean:",
                          f"  {self.overlap['id']}: Overlapping <...> ranges"])
        status, document = report(self.overlap["id"][:-1] + "x")
        self.assertEqual((status, document["entries"]), (1, []))
        self.assertEqual(document["texts"][0]["near"][0], self.overlap["id"])

    def test_other_texts_are_refused(self):
        for text, shown in (("", '""'), ("quux", "quux"), (" ", " "), (b"\xff\n", "\\xff\\n"),
                            ("\x1b[2J", "\\x1b[2J"), ("q" * 300, "q" * 200 + "...")):
            self.assertEqual(run(text), (1, "", f"orv: {shown}: no message of the tools; "
                                                "`orv explain --list` lists all\n"))

    def test_what_is_known_is_shown_beside_what_is_not(self):
        status, out, err = run("quux", OVERLAP)
        self.assertEqual((status, len(heads(out)), err.count("\n")), (1, 1, 1))


class Lists(unittest.TestCase):
    def test_the_table_has_all(self):
        status, out, err = run("--list")
        self.assertEqual((status, err), (0, ""))
        rows = [re.split(" {2,}", line, maxsplit=2) for line in out.splitlines()]
        self.assertEqual(rows, [["id", "level", "text"]] +
                         [[one["id"], one["level"], one["text"]] for one in entries()])

    def test_ids_and_tools_are_there(self):
        ids = [one["id"] for one in entries()]
        self.assertEqual(len(ids), len(set(ids)))
        self.assertGreater(len(ids), 100)
        self.assertNotIn("", [one["tool"] for one in entries()])

    def test_a_list_takes_no_text(self):
        status, out, err = run("--list", "x")
        self.assertEqual((status, out), (2, ""))
        self.assertEqual(
            err, "orv: --list lists all messages and explains none; give a text or --list\n")


class Logs(unittest.TestCase):
    LOG = "\n".join(["starting", OVERLAP, "", "Warning: checkA: ORV - a: b", OVERLAP,
                     *(INVALID.format(cell) for cell in (1, 2, 1, 3, 4)), "done", ""])

    def setUp(self):
        self.ids = [entry_of("Overlapping <...> ranges")["id"],
                    entry_of("ORV - <...>", "warning")["id"],
                    entry_of("Cell <...> (<...>) for face <...> is invalid")["id"]]

    def test_messages_are_shown_once_and_other_lines_counted(self):
        for arguments in ((), ("-",)):
            status, out, err = run(*arguments, given=self.LOG.encode())
            self.assertEqual((status, err), (0, "orv: 2 of 10 lines are no message of the tools\n"))
            self.assertEqual(heads(out), [self.ids[0] + ": error of OrvChecker, 2 lines",
                                          self.ids[1] + ": warning of OrvChecker, 1 line",
                                          self.ids[2] + ": error of OrvChecker, 5 lines"])
            self.assertIn(
                "\n  here: 1, 12, 5\n  here: 2, 12, 5\n  here: 3, 12, 5\n  and others\n", out)

    def test_a_log_as_json(self):
        status, document = report(given=self.LOG.encode())
        self.assertEqual((status, document["texts"]), (0, []))
        log = document["log"]
        self.assertEqual((log["lines"], log["unknown"]), (10, 2))
        self.assertEqual([(one["id"], one["lines"], one["values"], one["moreValues"])
                          for one in log["messages"]],
                         [(self.ids[0], 2, [["Face"]], False), (self.ids[1], 1, [["a: b"]], False),
                          (self.ids[2], 5, [[cell, "12", "5"] for cell in "123"], True)])
        self.assertEqual({one["id"] for one in document["entries"]}, set(self.ids))

    def test_a_log_beside_texts(self):
        status, out, _ = run("-", INVALID.format(1), given=(OVERLAP + "\r\n").encode())
        self.assertEqual((status, heads(out)), (0, [self.ids[2] + ": error of OrvChecker",
                                                    self.ids[0] + ": error of OrvChecker, 1 line"]))

    def test_a_log_without_messages(self):
        self.assertEqual(run(given=b"a\nb\n"),
                         (1, "", "orv: 2 of 2 lines are no message of the tools\n"))
        self.assertEqual(run(given=b"a"), (1, "", "orv: 1 of 1 line is no message of the tools\n"))
        for given in (b"", b"\n \n"):
            self.assertEqual(run(given=given),
                             (1, "", "orv: standard input: there is no line in it\n"))

    def test_bytes_of_any_kind(self):
        odd = b"\xff\xfe\x00\x1b[2J\n" + bytes(range(256)) + b"\nRegion '\xc3' not found.\n"
        status, out, _ = run(given=odd)
        self.assertEqual((status, len(heads(out))), (0, 1))
        self.assertIn('\n  here: "\\xc3"\n', out)
        self.assertEqual(report(given=odd)[1]["log"]["messages"][0]["values"], [["\ufffd"]])

    def test_long_lines(self):
        long = b"Region '" + b"x" * 1000000 + b"' not found.\n" + b"Error: a: " * 100000 + b"\n"
        status, out, err = run(given=long + b"y" * 1000000 + b" " + OVERLAP.encode())
        self.assertEqual((status, len(heads(out))), (0, 2))
        self.assertIn("\n  here: " + "x" * 200 + "...\n", out)
        self.assertLess(len(out), 10000)
        self.assertEqual(err, "orv: 1 of 3 lines are no message of the tools\n")

    def test_a_terminal_is_not_waited_for(self):
        master, slave = pty.openpty()
        try:
            result = subprocess.run([ORV, "explain"], stdin=slave, capture_output=True, check=False,
                                    timeout=60)
        finally:
            os.close(master)
            os.close(slave)
        self.assertEqual((result.returncode, result.stdout, result.stderr.decode()), (
            2, b"", "orv: expected a message; `orv explain --help` shows examples\n"))


class Findings(unittest.TestCase):
    """What a check says of each defect has an explanation, which leads back to such a defect."""

    def findings(self, defect):
        """What a check reports of the defect, as (recorded form, echo)."""
        with tempfile.TemporaryDirectory() as folder:
            file = os.path.join(folder, "bad.orv")
            subprocess.run([ORV, "sample", "--defect", defect["name"], file], check=True,
                           capture_output=True)
            result = subprocess.run(
                [ORV, "check", "--level", str(defect["checkLevel"]), "--json", file],
                check=False, capture_output=True)
        found = json.loads(result.stdout)["files"][0]
        return [(f"{one['step']} : {one['message']}", f"{level}: {one['step']}: {one['message']}")
                for level in ("Error", "Warning") for one in found[level.lower() + "s"]]

    def judge(self, defect, line):
        """Explains the line of the defect's own finding; the id of its entry."""
        status, document = report(line)
        self.assertEqual((status, len(document["entries"])), (0, 1))
        entry = document["entries"][0]
        pattern = ".*".join(map(re.escape, entry["text"].split("<...>")))
        text = defect["message"].split(" : ", 1)[1]
        self.assertTrue(re.fullmatch(pattern, text, re.S), entry["text"])
        self.assertEqual(entry["level"], defect["level"])
        return entry["id"]

    def test_every_finding_leads_back_to_its_defect(self):
        listed = subprocess.run([ORV, "sample", "--list", "--json"], check=True,
                                capture_output=True)
        own = set()  # entries that are the finding of a defect
        given = {}  # by entry, the defects whose check gives it: some give more than their own
        for defect in json.loads(listed.stdout)["defects"]:
            with self.subTest(defect["name"]):
                findings = dict(self.findings(defect))
                self.assertIn(defect["message"], findings)
                own.add(self.judge(defect, findings[defect["message"]]))
                status, document = report(given="\n".join(findings.values()).encode())
                self.assertEqual((status, document["log"]["unknown"]), (0, 0))
                for entry in document["entries"]:
                    given.setdefault(entry["id"], set()).add(defect["name"])
        self.assertGreater(len(own), 50)
        for entry in entries():
            with self.subTest(entry["id"]):
                told = set(re.findall(r"--defect ([a-z0-9-]+)", "\n".join(entry["seeIt"])))
                self.assertEqual(told - given.get(entry["id"], set()), set())
                self.assertTrue(told or entry["id"] not in own)


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
