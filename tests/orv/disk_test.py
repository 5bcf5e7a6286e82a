#!/usr/bin/env python3
# SPDX-License-Identifier: Apache-2.0
"""orv on disks that are full, limited or not to be written, and with output that nobody gets.

Usage: disk_test.py ORV
"""

import os
import re
import resource
import shutil
import subprocess
import sys
import unittest

from disturbed import NOT_ALL_WRITTEN, ORV, Disturbed

NOTHING = "nothing was written because of the error before\n"


def said(name, reason, *, when="end"):
    """What a copy says that could not be written."""
    if when == "start":
        return f"Error: {name}: start of writing: {reason}\norv: {name}: nothing was written\n"
    return (f"Error: {name}: end of writing: {reason}\nError: {name}: end of writing: {NOTHING}"
            f"orv: {name}: nothing was written\n")


class Disk(Disturbed):
    def setUp(self):
        super().setUp()
        self.done("sample", "box", "box.orv", "-n", 3000)
        self.source = self.state("box.orv")

    def refused(self, *arguments, **options):
        """What is said on standard error; everything stays as it was."""
        before = self.names()
        status, out, err = self.orv(*arguments, **options)
        self.assertEqual((status, out), (2, ""), err)
        self.assertEqual(self.names(), before)
        self.assertTrue(self.state("box.orv") == self.source)
        return err

    def mounted(self, options):
        """A folder "small" that is a file system of its own."""
        small = self.folder / "small"
        small.mkdir()
        done = subprocess.run(["mount", "-t", "tmpfs", "-o", options, "tmpfs", str(small)],
                              capture_output=True, check=False)
        if done.returncode != 0:
            self.skipTest("no file system can be made here")
        self.addCleanup(subprocess.run, ["umount", str(small)], check=True)


class FullDisk(Disk):
    def test_leaves_nothing_and_says_so(self):
        self.mounted("size=200k")
        full = "No space left on device"
        for name, place in {"x.orv": "/meshes/0/faceNodeIds: cannot be written",
                            "x.vtu": "cannot be written at byte #",
                            "x/": "small/x/constant/polyMesh/faces: cannot be written at byte #",
                            }.items():
            with self.subTest(name):
                err = self.refused("copy", "box.orv", f"small/{name}")
                self.assertEqual(re.sub(r"byte \d+", "byte #", err),
                                 said(f"small/{name}", f"{place}: {full}"))
        self.assertEqual(self.refused("sample", "box", "small/x.orv", "-n", 3000),
                         f"orv: small/x.orv: /meshes/0/faceNodeIds: cannot be written: {full}\n"
                         "orv: small/x.orv: nothing was written\n")

    def test_leaves_the_old_case(self):
        self.done("sample", "box", "old.orv", "-n", 60)
        self.mounted("size=200k")
        for name in ("x.orv", "x.vtu", "x/"):
            with self.subTest(name):
                self.done("copy", "old.orv", f"small/{name}")
                old = self.state(f"small/{name}")
                self.refused("copy", "box.orv", f"small/{name}", "--force")
                self.assertTrue(self.state(f"small/{name}") == old)
                shutil.rmtree(self.folder / "small" / name, ignore_errors=True)
                (self.folder / "small" / name).unlink(missing_ok=True)

    def test_without_room_for_the_results_leaves_the_case(self):
        self.mounted("size=200k")
        status, _, err = self.orv("sample", "results", "small/x.orv", "-n", 729)
        self.assertEqual((status, err),
                         (2, "orv: small/x.orvr: /meshes/0/field4: cannot be written: "
                             "No space left on device\n"
                             "orv: small/x.orv: the case was written, its results were not\n"))
        self.assertEqual(self.names(), ["box.orv", "small", "small/x.orv"])


class LimitedFiles(Disk):
    """As under `ulimit -f`: the system would end a program that writes on."""

    LIMITS = (0, 100, 5000, 40000, 100000)

    @staticmethod
    def limit(size):
        return {"preexec_fn": lambda: resource.setrlimit(resource.RLIMIT_FSIZE, (size, size))}

    def test_are_told_like_full_disks(self):
        for size in self.LIMITS:
            for name, reason in {
                    "x.orv": "/meshes/0/nodeCoordinates: cannot be written",
                    "x.vtu": f"cannot be written at byte {size}",
                    "x/": f"x/constant/polyMesh/points: cannot be written at byte {size}"}.items():
                with self.subTest(f"{name} in {size} bytes"):
                    if name == "x.orv" and size == self.LIMITS[-1]:
                        reason = "/meshes/0/faceNodeIds: cannot be written"
                    elif name == "x/" and size == self.LIMITS[-1]:
                        reason = f"x/constant/polyMesh/faces: cannot be written at byte {size}"
                    self.assertEqual(self.refused("copy", "box.orv", name, **self.limit(size)),
                                     said(name, f"{reason}: File too large"))

    def test_hold_no_packed_case_either(self):
        for name in ("x.orv", "x.vtu", "x/"):
            for size in self.LIMITS[:3]:
                err = self.refused("copy", "box.orv", name, "-c", "9", **self.limit(size))
                self.assertTrue(err.endswith(f"File too large\nError: {name}: end of writing: "
                                             f"{NOTHING}orv: {name}: nothing was written\n"), err)

    def test_hold_no_sample(self):
        for size in self.LIMITS[:-1]:
            self.assertEqual(
                self.refused("sample", "box", "x.orv", "-n", 3000, **self.limit(size)),
                "orv: x.orv: /meshes/0/nodeCoordinates: cannot be written: File too large\n"
                "orv: x.orv: nothing was written\n")

    def test_hold_every_size_up_to_the_whole_or_nothing(self):
        self.done("sample", "box", "x.orv", "-n", 8)
        whole = (self.folder / "x.orv").stat().st_size
        (self.folder / "x.orv").unlink()
        for size in range(0, whole, 997):
            err = self.refused("sample", "box", "x.orv", "-n", 8, **self.limit(size))
            self.assertTrue(err.endswith("orv: x.orv: nothing was written\n"), err)
        self.assertEqual(self.orv("sample", "box", "x.orv", "-n", 8, **self.limit(whole))[0], 0)


class NoPlace(Disk):
    def test_below_a_file(self):
        bad = "cannot be made: Not a directory"
        self.assertEqual(self.refused("copy", "box.orv", "box.orv/x.orv"),
                         said("box.orv/x.orv", bad, when="start"))
        self.assertEqual(self.refused("copy", "box.orv", "box.orv/x.vtu"),
                         said("box.orv/x.vtu", bad))
        self.assertEqual(self.refused("copy", "box.orv", "box.orv/x/"),
                         said("box.orv/x/", f"box.orv/x: {bad}"))
        self.assertEqual(self.refused("sample", "box", "box.orv/x.orv"),
                         f"orv: box.orv/x.orv: {bad}\norv: box.orv/x.orv: nothing was written\n")

    def test_in_a_folder_that_is_missing(self):
        bad = "cannot be made: No such file or directory"
        self.assertEqual(self.refused("copy", "box.orv", "no/x.orv"),
                         said("no/x.orv", bad, when="start"))
        self.assertEqual(self.refused("copy", "box.orv", "no/x.vtu"), said("no/x.vtu", bad))
        self.assertEqual(self.refused("sample", "box", "no/x.orv"),
                         f"orv: no/x.orv: {bad}\norv: no/x.orv: nothing was written\n")

    def test_under_the_name_of_a_folder(self):
        (self.folder / "x.orv").mkdir()
        for to in ("store", "vtu"):
            self.assertEqual(self.refused("copy", "box.orv", "x.orv", "--to", to, "--force"),
                             said("x.orv", "is a folder", when="start"))
        self.assertEqual(self.refused("sample", "box", "x.orv", "--force"),
                         "orv: x.orv: is a folder\norv: x.orv: nothing was written\n")

    def test_under_the_name_of_a_file_for_a_folder(self):
        self.assertEqual(self.refused("copy", "box.orv", "box.orv/", "--force"),
                         "orv: box.orv/: is a file, a case folder is expected\n")

    def test_under_the_name_of_a_device_or_a_pipe(self):
        os.mkfifo(self.folder / "x.orv")
        odd = "is neither a file nor a free name"
        for to in ("store", "vtu"):
            for name in ("x.orv", "/dev/null"):
                self.assertEqual(self.refused("copy", "box.orv", name, "--to", to, "--force"),
                                 said(name, odd, when="start"))
        self.assertEqual(self.refused("sample", "box", "x.orv", "--force"),
                         f"orv: x.orv: {odd}\norv: x.orv: nothing was written\n")

    def test_in_a_folder_that_may_not_be_written(self):
        reason = "Permission denied"
        if os.geteuid() == 0:
            self.mounted("ro")
            reason = "Read-only file system"
        else:
            (self.folder / "small").mkdir(0o555)
        bad = f"cannot be made: {reason}"
        self.assertEqual(self.refused("copy", "box.orv", "small/x.orv"),
                         said("small/x.orv", bad, when="start"))
        self.assertEqual(self.refused("copy", "box.orv", "small/x.vtu"), said("small/x.vtu", bad))
        self.assertEqual(self.refused("copy", "box.orv", "small/x/"),
                         said("small/x/", f"small/x: {bad}"))
        self.assertEqual(self.refused("sample", "box", "small/x.orv"),
                         f"orv: small/x.orv: {bad}\norv: small/x.orv: nothing was written\n")

    def test_is_kept_by_a_file_that_may_not_be_written(self):
        for name in ("x.orv", "x.vtu"):
            (self.folder / name).write_text("mine", encoding="utf-8")
            (self.folder / name).chmod(0o444)
            self.assertEqual(self.refused("copy", "box.orv", name),
                             f"orv: {name}: is there already; --force replaces it\n")
            self.done("copy", "box.orv", name, "--force")  # a new file, as of the folder's owner
            self.assertNotEqual(self.contents(name), [(name, b"mine")])


class LostOutput(Disk):
    COMMANDS = (["check", "box.orv"], ["check", "box.orv", "--level", "2", "-v", "3"],
                ["check", "box.orv", "--json"], ["info", "box.orv"], ["info", "box.orv", "--json"],
                ["model", "box.orv"], ["regions", "box.orv"], ["formats"], ["formats", "--json"],
                ["sample", "--list"], ["copy", "box.orv", "x.orv", "--dry-run"], ["--help"],
                ["check", "--help"], ["--version"])

    def lost(self, arguments, **options):
        status, _, err = self.orv(*arguments, stderr=subprocess.PIPE, **options)
        self.assertEqual((status, err.splitlines(keepends=True)[-1:]), (2, [NOT_ALL_WRITTEN]))
        return err

    def test_is_no_success(self):
        with open("/dev/full", "wb") as full:
            for command in self.COMMANDS:
                with self.subTest(command):
                    self.lost(command, stdout=full)

    def test_leaves_what_was_written_besides(self):
        with open("/dev/full", "wb") as full:
            for command in (["copy", "box.orv", "x.orv"], ["sample", "box", "y.orv", "-n", 8],
                            ["copy", "box.orv", "z.orv", "--verbose"]):
                self.assertEqual(self.lost(command, stdout=full), NOT_ALL_WRITTEN)
        for name in ("x.orv", "y.orv", "z.orv"):
            self.done("check", name, "--no-location-model")

    def test_is_none_if_nothing_is_printed(self):
        with open("/dev/full", "wb") as full:
            self.assertEqual(self.orv("check", "box.orv", "--quiet", stdout=full,
                                      stderr=subprocess.PIPE), (0, None, ""))

    def test_of_a_closed_stream_gets_into_no_file(self):
        for closed, lost in {1: True, 2: False}.items():
            name = f"without-{closed}.orv"
            done = subprocess.run(
                ["sh", "-c", f'exec "$0" copy box.orv {name} --verbose {closed}>&-', ORV],
                cwd=self.folder, capture_output=True, text=True, check=False)
            self.assertEqual((done.returncode, done.stderr),
                             (2, NOT_ALL_WRITTEN) if lost else (0, ""))
            self.assertEqual(self.orv("check", name, "--level", "2", "--no-location-model"),
                             (0, f"{name}: sound (0 errors, 0 warnings)\n", ""))

    def test_in_a_limited_file_is_told(self):
        limit = LimitedFiles.limit(10)
        with open(self.folder / "report", "wb") as report:
            self.lost(["check", "box.orv", "--json"], stdout=report, **limit)


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
