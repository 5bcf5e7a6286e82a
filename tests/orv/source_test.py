#!/usr/bin/env python3
# SPDX-License-Identifier: Apache-2.0
"""orv on sources that go away, shrink or change while they are read, and on what is no source.

Usage: source_test.py ORV
"""

import os
import random
import shutil
import sys
import threading
import time
import unittest

from disturbed import Disturbed

FILES = ("boundary", "faces", "neighbour", "owner", "points")


COPY_LEFT_OUT = "nothing was written; --keep-going copies what can be read\n"

FACE_STEP = "checkFaceConnectivity"
CELL_STEP = "checkCellsFromFaces_facenode"
PLACES_OF_A_CHECK = [
    *((FACE_STEP, "face nodes", zone, byte) for zone, byte in
      enumerate((353728, 360832, 367552, 373824, 380096, 386816, 393536), 2)),
    *((CELL_STEP, "side-0 cells", zone, byte) for zone, byte in
      enumerate((459168, 460848, 462528, 464096, 465664, 467344, 469024), 2)),
    (CELL_STEP, "side-1 cells", 2, 534656)]


class Sources(Disturbed):
    def cut(self, file, size):
        os.truncate(self.folder / file, size)

    def size(self, file):
        return (self.folder / file).stat().st_size


class ShrinkingStore(Sources):
    """Cut while the program waits at its first line, with the case open."""

    def setUp(self):
        super().setUp()
        self.done("sample", "box", "box.orv", "-n", 3000)
        self.half = self.size("box.orv") // 2

    def cut_at_work(self, *arguments, to):
        """Exit status, standard output and standard error."""
        process, pipe = self.start_waiting(*arguments)
        self.assertIsNone(process.poll())
        to()
        return self.finish(process, pipe)

    def test_is_not_copied(self):
        for name, to in {"x.orv": "store", "x.vtu": "vtu", "x": "openfoam"}.items():
            with self.subTest(name):
                status, _, err = self.cut_at_work("copy", "box.orv", name, "--to", to, "--verbose",
                                                  to=lambda: self.cut("box.orv", self.half))
                self.assertEqual((status, err), (
                    2, "Error: box.orv: face nodes of zone 2: ends before byte 353728\n"
                       f"orv: {name}: {COPY_LEFT_OUT}"))
                self.assertEqual(self.names(), ["box.orv"])
                self.done("sample", "box", "box.orv", "-n", 3000, "--force")

    def test_to_nothing_is_not_copied(self):
        status, _, err = self.cut_at_work("copy", "box.orv", "x.orv", "--verbose",
                                          to=lambda: self.cut("box.orv", 0))
        self.assertEqual((status, err), (
            2, "Warning: Inconsistent size for node zone '1'\n"
               "Error: box.orv: node coordinates of zone 1: ends before byte 89536\n"
               f"orv: x.orv: {COPY_LEFT_OUT}"))
        self.assertEqual(self.names(), ["box.orv"])

    def test_is_not_sound(self):
        status, _, err = self.cut_at_work("check", "box.orv", "--level", "2", "-v", "2",
                                          to=lambda: self.cut("box.orv", self.half))
        self.assertEqual(status, 1)
        self.assertEqual(list(dict.fromkeys(line for line in err.splitlines() if "ORV" in line)),
                         [f"Error: {step}: ORV - {family} of zone {zone}: box.orv: ends before "
                          f"byte {byte}" for step, family, zone, byte in PLACES_OF_A_CHECK])

    def test_that_is_removed_is_read_to_its_end(self):
        for remove in (lambda: os.remove(self.folder / "box.orv"),
                       lambda: os.replace(self.folder / "other", self.folder / "box.orv")):
            (self.folder / "other").write_text("another file", encoding="utf-8")
            status, _, err = self.cut_at_work("copy", "box.orv", "x.orv", "--verbose", to=remove)
            self.assertEqual((status, err), (0, ""))
            self.assertEqual(self.orv("check", "x.orv", "--level", "2", "--no-location-model"),
                             (0, "x.orv: sound (0 errors, 0 warnings)\n", ""))
            self.done("sample", "box", "box.orv", "-n", 3000, "--force")
            os.remove(self.folder / "x.orv")


class Race:
    """Does something to files again and again, while it lasts."""

    def __init__(self, step):
        self._step = step
        self._over = threading.Event()
        self._thread = threading.Thread(target=self._run)

    def _run(self):
        while not self._over.is_set():
            self._step()

    def __enter__(self):
        self._thread.start()

    def __exit__(self, *_):
        self._over.set()
        self._thread.join()


class ChangingFiles(Sources):
    """Files that another program removes, cuts and writes again, at any time."""

    ROUNDS = 6

    def setUp(self):
        super().setUp()
        self.done("sample", "box", "kept.orv", "-n", 3000)
        self.done("copy", "kept.orv", "kept/")
        self.random = random.Random(9)

    def step(self, kept, file):
        def run():
            shutil.copyfile(self.folder / kept, self.folder / file)
            time.sleep(self.random.uniform(0, 0.01))
            if self.random.random() < 0.5:
                (self.folder / file).unlink()
            else:
                self.cut(file, self.random.randrange(self.size(file)))
            time.sleep(self.random.uniform(0, 0.01))
        return run

    def expect_ends(self, source):
        """Each command says what it can, and a copy is whole or not there."""
        statuses = set()
        for _ in range(self.ROUNDS):
            for command in (["check", source, "--level", "2"], ["info", source],
                            ["copy", source, "x.orv"]):
                status, _, err = self.orv(*command)
                self.assertIn(status, (0, 1, 2), err)
                self.assertTrue(status == 0 or err, command)
                statuses.add(status)
            if (self.folder / "x.orv").exists():
                self.assertEqual(status, 0)
                self.assertEqual(self.orv("check", "x.orv", "--level", "2", "--no-location-model"),
                                 (0, "x.orv: sound (0 errors, 0 warnings)\n", ""))
                os.remove(self.folder / "x.orv")
            self.assertEqual([name for name in self.names() if name.startswith("x")], [])
        self.assertIn(2, statuses)

    def test_of_a_folder_end_no_program(self):
        shutil.copytree(self.folder / "kept", self.folder / "case")
        for file in ("points", "faces"):
            path = f"constant/polyMesh/{file}"
            with self.subTest(file), Race(self.step(f"kept/{path}", f"case/{path}")):
                self.expect_ends("case")
            shutil.copyfile(self.folder / "kept" / path, self.folder / "case" / path)

    def test_of_a_store_end_no_program(self):
        with Race(self.step("kept.orv", "case.orv")):
            self.expect_ends("case.orv")


class Cut(Sources):
    """At every place of a kind, and read then."""

    def test_file_of_a_folder_is_named(self):
        self.done("sample", "box", "box.orv", "-n", 60)
        self.done("copy", "box.orv", "kept/", "--text")
        for file in FILES:
            path = f"case/constant/polyMesh/{file}"
            for share in (0, 0.2, 0.4, 0.6):
                shutil.copytree(self.folder / "kept", self.folder / "case")
                self.cut(path, int(share * self.size(path)))
                with self.subTest(f"{file} {share}"):
                    for command in (["check", "case"], ["info", "case"], ["copy", "case", "x.orv"]):
                        status, _, err = self.orv(*command)
                        self.assertEqual(status, 2, err)
                        self.assertIn(path, err)
                    self.assertFalse((self.folder / "x.orv").exists())
                shutil.rmtree(self.folder / "case")

    def test_file_of_a_folder_may_be_gone(self):
        self.done("sample", "box", "box.orv", "-n", 60)
        self.done("copy", "box.orv", "case/")
        for file in FILES:
            path = self.folder / "case/constant/polyMesh" / file
            os.rename(path, self.folder / "away")
            for command, errors in (("check", "Error: : Error reading ORV file\nError: : ORV - "),
                                    ("info", "Error: case: "), ("copy", "Error: case: ")):
                arguments = ["x.orv"] if command == "copy" else []
                status, _, err = self.orv(command, "case", *arguments)
                self.assertEqual((status, err),
                                 (2, f"{errors}case/constant/polyMesh/{file}: no such file (nor "
                                     f"{file}.gz); a polyMesh folder holds points, faces, owner, "
                                     "neighbour and boundary\n"))
            os.rename(self.folder / "away", path)
        self.assertFalse((self.folder / "x.orv").exists())

    def test_store_is_measured(self):
        self.done("sample", "box", "box.orv", "-n", 60)
        for size in range(self.size("box.orv") - 1999, 2000, -1999):  # its seal may be cut off
            self.cut("box.orv", size)
            cut = f"box.orv: the file is cut, it has {size} of "
            status, _, err = self.orv("info", "box.orv")
            self.assertEqual((status, err[:len(f"Error: {cut}")]), (2, f"Error: {cut}"))
            self.assertEqual(self.orv("copy", "box.orv", "x.orv")[::2], (2, err))
            self.assertEqual(self.names(), ["box.orv"])


class NoSource(Sources):
    """What each command says of it, and that none of them waits."""

    def expect(self, name, check, other):
        self.assertEqual(self.orv("check", name),
                         (2, f"{name}: not checked ({check.count('Error: :') or 1} "
                             f"error{'s' if check.count('Error: :') > 1 else ''}, 0 warnings)\n",
                          check))
        for command in (["info", name], ["model", name], ["regions", name],
                        ["copy", name, "x.orv"]):
            self.assertEqual(self.orv(*command), (2, "", other))
        self.assertFalse((self.folder / "x.orv").exists())

    def test_is_a_pipe_or_a_device(self):
        os.mkfifo(self.folder / "pipe")
        os.mkfifo(self.folder / "pipe.orv")
        os.symlink("pipe", self.folder / "link.orv")
        for name in ("pipe", "pipe.orv", "link.orv", "/dev/zero", "/dev/null"):
            odd = f"orv: {name}: is neither a file nor a folder\n"
            self.expect(name, odd, odd)
            self.assertEqual(self.orv("check", name, "--quiet"), (2, "", ""))

    def test_is_a_pipe_for_results(self):
        self.done("sample", "box", "box.orv", "-n", 8)
        os.mkfifo(self.folder / "pipe")
        for name in ("pipe", "/dev/zero"):
            self.assertEqual(self.orv("copy", "box.orv", "x.orv", "--results", name),
                             (2, "", f"orv: {name}: is neither a file nor a folder\n"))

    def test_is_a_pipe_in_a_folder(self):
        self.done("sample", "box", "box.orv", "-n", 8)
        self.done("copy", "box.orv", "case/")
        points = self.folder / "case/constant/polyMesh/points"
        points.unlink()
        os.mkfifo(points)
        reason = ("case/constant/polyMesh/points: expected a file, found a folder or a device\n")
        self.expect("case", f"Error: : Error reading ORV file\nError: : ORV - {reason}",
                    f"Error: case: {reason}")

    def test_is_empty(self):
        for name in ("empty.orv", "empty"):
            (self.folder / name).touch()
        unknown = ("orv: empty: no format knows this file; `orv formats` lists what can be read\n")
        self.expect("empty", f"Error: : Not a ORV file (cannot setup provider)\n{unknown}", unknown)
        self.expect("empty.orv",
                    "Error: : Error reading ORV file\n"
                    "Error: : ORV - empty.orv: is no HDF5 file\n",
                    "Error: empty.orv: is no HDF5 file\n")

    def test_is_a_folder_without_a_mesh(self):
        (self.folder / "none").mkdir()
        unknown = ("orv: none: no format knows this folder (an OpenFOAM case has its mesh in "
                   "constant/polyMesh); `orv formats` lists what can be read\n")
        self.expect("none", f"Error: : Not a ORV file (cannot setup provider)\n{unknown}", unknown)

    def test_is_not_there_any_more(self):
        self.done("sample", "box", "box.orv", "-n", 8)
        self.done("check", "box.orv", "--no-location-model")
        os.remove(self.folder / "box.orv")
        self.expect("box.orv", "Error: : Error: No such file / unreadable\n",
                    "orv: box.orv: no such file or folder\n")

    def test_is_a_link_to_itself(self):
        os.symlink("loop.orv", self.folder / "loop.orv")
        self.expect("loop.orv", "Error: : Error: No such file / unreadable\n",
                    "orv: loop.orv: Too many levels of symbolic links\n")

    def test_may_not_be_read(self):
        if os.geteuid() == 0:
            self.skipTest("everything may be read here")
        self.done("sample", "box", "box.orv", "-n", 8)
        (self.folder / "box.orv").chmod(0)
        self.expect("box.orv", "Error: : Error: No such file / unreadable\n",
                    "Error: box.orv: cannot be opened: Permission denied\n")


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
