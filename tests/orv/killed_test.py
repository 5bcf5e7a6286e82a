#!/usr/bin/env python3
# SPDX-License-Identifier: Apache-2.0
"""orv that is killed or interrupted while it writes: a name holds a whole case, or what it held.

Usage: killed_test.py ORV
"""

import random
import re
import shutil
import signal
import subprocess
import sys
import time
import unittest

from disturbed import NOT_ALL_WRITTEN, ORV, STEPS, Disturbed, catches

SIGNALS = (signal.SIGINT, signal.SIGTERM, signal.SIGHUP)
MOMENTS = 17  # of each command, onto a free name and as many onto one that is taken

# The commands that write: what is written, and what before it is read.
WRITERS = {
    "store to store": ("new.orv", ["copy", "box.orv"]),
    "store to packed store": ("new.orv", ["copy", "box.orv", "-c", "4"]),
    "store to OpenFOAM": ("new/", ["copy", "box.orv"]),
    "OpenFOAM to store": ("new.orv", ["copy", "box"]),
    "store to VTU": ("new.vtu", ["copy", "box.orv"]),
    "sample": ("new.orv", ["sample", "box"]),
}

STEPS_TO_THE_NODES = "".join(STEPS.splitlines(keepends=True)[:6])


class Writers(Disturbed):
    def make_sources(self, cells):
        self.cells = cells
        self.done("sample", "box", "box.orv", "-n", cells)
        self.done("copy", "box.orv", "box/")
        self.sources = self.state("box.orv") + self.state("box")

    def command(self, arguments, destination):
        cells = ["-n", self.cells] if arguments[0] == "sample" else []
        return [*arguments, destination, *cells, "--force"]

    def is_there(self, name):
        """Whether something has the name of a destination, and all of it."""
        return (self.folder / name / "constant/polyMesh" if name.endswith("/")
                else self.folder / name).exists()

    def remove(self, name):
        shutil.rmtree(self.folder / name, ignore_errors=True)
        (self.folder / name).unlink(missing_ok=True)

    def make_old(self):
        """Cases to be replaced, smaller ones."""
        (self.folder / "old").mkdir()
        self.done("sample", "box", "old/new.orv", "-n", 1000)
        self.done("copy", "old/new.orv", "old/new/")
        self.done("copy", "old/new.orv", "old/new.vtu")

    def put_old(self, name):
        self.remove(name)
        copy = shutil.copytree if name.endswith("/") else shutil.copyfile
        copy(self.folder / "old" / name, self.folder / name)

    def expect_whole(self, name, whole):
        """What has the name is a good case; of formats without the time in them, byte by byte."""
        if name.endswith(".orv"):
            self.assertEqual(self.orv("check", name, "--level", "2", "--no-location-model"),
                             (0, f"{name}: sound (0 errors, 0 warnings)\n", ""))
        else:
            self.assertTrue([found for found in self.contents(name) if "part-" not in found[0]]
                            == whole)

    def expect_untouched_sources(self):
        self.assertTrue(self.state("box.orv") + self.state("box") == self.sources)


class Killed(Writers):
    """At moments of all its time, for which nobody knows what is being done then."""

    def setUp(self):
        super().setUp()
        self.make_sources(3000)
        self.moments = random.Random(7)

    def undisturbed(self, command, name):
        """What a command writes, and the time it needs for it."""
        begin = time.monotonic()
        self.done(*command)
        return self.contents(name), time.monotonic() - begin

    def killed_run(self, command, time_needed):
        """Its exit status, and what is in the names of all that it may leave behind."""
        process = self.start(*command)
        time.sleep(self.moments.uniform(0, time_needed))
        process.kill()
        process.communicate()
        self.assertIn(process.returncode, (0, -signal.SIGKILL))
        return process.returncode, f".part-{process.pid}-"

    def test_leaves_a_whole_case_or_none(self):
        for what, (name, arguments) in WRITERS.items():
            with self.subTest(what):
                command = self.command(arguments, name)
                whole, time_needed = self.undisturbed(command, name)
                for _ in range(MOMENTS):
                    self.remove(name)
                    self.killed_run(command, time_needed)
                    if self.is_there(name):
                        self.expect_whole(name, whole)
                self.done(*command)  # whatever is left
                self.expect_whole(name, whole)
                self.expect_untouched_sources()
                self.remove_leftovers()
                self.remove(name)

    def test_leaves_the_old_case_or_the_new_one(self):
        self.make_old()
        for what, (name, arguments) in WRITERS.items():
            with self.subTest(what):
                command = self.command(arguments, name)
                whole, time_needed = self.undisturbed(command, name)
                ended = set()
                for _ in range(MOMENTS):
                    self.put_old(name)
                    old = self.contents(name)
                    status, part = self.killed_run(command, time_needed)
                    ended.add(status)
                    if self.without(part, name) != old:
                        self.expect_whole(name, whole)
                    self.expect_no_more_than(part)
                self.assertIn(-signal.SIGKILL, ended)
                self.done(*command)
                self.expect_whole(name, whole)
                self.expect_untouched_sources()
                self.remove_leftovers()
                self.remove(name)

    def without(self, part, name):
        return [found for found in self.contents(name) if part not in found[0]]

    def expect_no_more_than(self, part):
        """Nothing is half written but what that run had begun, which is removed."""
        self.assertEqual([file for file in self.names() if "part-" in file and part not in file],
                         [])
        self.remove_leftovers()

    def remove_leftovers(self):
        for file in self.names():
            if re.search(r"\.part-\d+-\d+$", file):
                self.remove(file)


class Interrupted(Writers):
    def setUp(self):
        super().setUp()
        self.make_sources(20000)
        self.moments = random.Random(8)

    def interrupt(self, process, number, delay=0.0):
        """Exit status and what was printed on standard error."""
        while process.poll() is None and not catches(process, number):
            time.sleep(0.0005)
        time.sleep(delay)
        process.send_signal(number)
        err = process.communicate(timeout=60)[1]
        return process.returncode, err

    def test_at_its_begin_leaves_nothing(self):
        before = self.names()
        for what, (name, arguments) in WRITERS.items():
            for number in SIGNALS:
                with self.subTest(f"{what}, {number.name}"):
                    process = self.start(*self.command(arguments, name))
                    self.assertEqual(self.interrupt(process, number),
                                     (2, f"orv: {name}: interrupted; nothing was written\n"))
                    self.assertEqual(self.names(), before)
        self.expect_untouched_sources()

    def test_later_leaves_what_was_there_or_the_new_case(self):
        self.make_old()
        for what, (name, arguments) in WRITERS.items():
            self.done(*self.command(arguments, name))
            whole = self.contents(name)
            for number in SIGNALS:
                self.put_old(name)
                old = self.contents(name)
                before = self.names()
                with self.subTest(f"{what}, {number.name}"):
                    process = self.start(*self.command(arguments, name))
                    status, err = self.interrupt(process, number, self.moments.uniform(0, 0.1))
                    self.assertEqual(self.names(), before)
                    if status == 2:
                        self.assertEqual(err, f"orv: {name}: interrupted; nothing was written\n")
                        self.assertTrue(self.contents(name) == old)
                    else:  # the signal came behind the writing, or behind all that it can stop
                        self.assertIn(status, (0, -number))
                        self.expect_whole(name, whole)
            self.remove(name)
        self.expect_untouched_sources()

    def test_between_a_case_and_its_results_says_which_is_there(self):
        self.done("sample", "results", "flow.orv", "-n", 1000)
        process, pipe = self.start_waiting("copy", "flow.orv", "new.orv", "--verbose",
                                           printed=STEPS)
        process.send_signal(signal.SIGINT)
        self.assertEqual(self.finish(process, pipe),
                         (2, STEPS + "Copying problem size\nCopying zone topology\n"
                                     "Writing results\n  Writing phase variables\n",
                          "orv: new.orv: interrupted; the case was written, its results were "
                          "not\n"))
        self.assertEqual([file for file in self.names() if file.startswith("new")], ["new.orv"])
        self.expect_whole("new.orv", None)

    def test_twice_ends_at_once_and_leaves_the_part(self):
        process, pipe = self.start_waiting("copy", "box.orv", "new.orv", "--verbose")
        process.send_signal(signal.SIGINT)
        while catches(process, signal.SIGINT):
            time.sleep(0.0005)
        process.send_signal(signal.SIGINT)
        process.wait(timeout=60)
        pipe.close()
        self.assertEqual(process.returncode, -signal.SIGINT)
        self.assertEqual([name for name in self.names() if name.startswith("new")],
                         [f"new.orv.part-{process.pid}-1"])

    def test_while_it_waits_for_its_reader_leaves_nothing(self):
        before = self.names()
        for number in SIGNALS:
            process, pipe = self.start_waiting("copy", "box.orv", "new.orv", "--verbose")
            process.send_signal(number)
            self.assertEqual(self.finish(process, pipe),
                             (2, STEPS_TO_THE_NODES,
                              "orv: new.orv: interrupted; nothing was written\n"))
            self.assertEqual(self.names(), before)

    def test_under_nohup_goes_on(self):
        with subprocess.Popen(["nohup", ORV, "copy", "box.orv", "new.orv"],
                              cwd=self.folder, stdout=subprocess.PIPE, stderr=subprocess.PIPE,
                              stdin=subprocess.DEVNULL) as process:
            while process.poll() is None and not catches(process, signal.SIGTERM):
                time.sleep(0.0005)
            process.send_signal(signal.SIGHUP)
            process.communicate(timeout=60)
        self.assertEqual(process.returncode, 0)
        self.expect_whole("new.orv", None)

    def test_of_what_only_reads_ends_it_by_the_signal(self):
        before = self.names()
        for command in (["check", "box.orv", "--level", "2", "-v", "3"], ["info", "box.orv"],
                        ["model", "box.orv"], ["regions", "box.orv"]):
            for number in SIGNALS:
                with self.subTest(f"{command[0]}, {number.name}"):
                    process, pipe = self.start_waiting(*command)
                    process.send_signal(number)
                    process.wait(timeout=60)
                    pipe.close()
                    self.assertEqual(process.returncode, -number)
                    self.assertEqual(self.names(), before)
        self.expect_untouched_sources()


class Unread(Writers):
    """Nobody reads what is printed any more, as behind `| head -1`."""

    def test_leaves_no_copy_half_way(self):
        self.make_sources(3000)
        process, pipe = self.start_waiting("copy", "box.orv", "new.orv", "--verbose")
        pipe.close()
        err = process.communicate(timeout=60)[1]
        self.assertEqual((process.returncode, err), (2, NOT_ALL_WRITTEN))
        self.expect_whole("new.orv", None)
        self.assertEqual([name for name in self.names() if name.startswith("new")], ["new.orv"])


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
