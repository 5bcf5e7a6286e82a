# SPDX-License-Identifier: Apache-2.0
"""What tests share that disturb orv: a folder, what is in it, and a program at work."""

import fcntl
import os
import pathlib
import subprocess
import sys
import tempfile
import threading
import time
import unittest

ORV = os.path.abspath(sys.argv[1])

# What `orv copy --verbose` prints of a case.
STEPS = """\
Writing mesh
  Copying problem size
  Copying mesh units
  Writing mesh attibutes
  Copying zone toplogy
  Writing node mesh
  Writing cell mesh
    Writing cell nodes
    Writing cell types
    Writing cell partitions
  Writing face mesh
    Writing face nodes
    Writing face parents
  Writing location model
  Mesh written
Writing settings
  Settings written
  Standard Settings written
"""

WRITE_CALLS = ("1", "64")  # on x86-64, on AArch64

NOT_ALL_WRITTEN = "orv: standard output: not all of it could be written\n"


def catches(process, number):
    """Whether the program has come to where it catches that signal."""
    with open(f"/proc/{process.pid}/status", encoding="utf-8") as status:
        caught = next(line for line in status if line.startswith("SigCgt"))
    return int(caught.split()[1], 16) >> (number - 1) & 1 == 1


class FullPipe:
    """A pipe with room for so many bytes until it is drained: who prints more waits there."""

    def __init__(self, room=0):
        self._reads, self.writes = os.pipe()
        fcntl.fcntl(self.writes, fcntl.F_SETPIPE_SZ, 4096)
        size = fcntl.fcntl(self.writes, fcntl.F_GETPIPE_SZ)
        self._filled = os.write(self.writes, b"." * (size - room))

    def close(self):
        os.close(self._reads)

    def drain(self):
        """What was printed, up to the end of the program."""
        with open(self._reads, encoding="utf-8") as reads:
            return reads.read()[self._filled:]


class Disturbed(unittest.TestCase):
    """A folder of its own, in which the program runs."""

    maxDiff = None

    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = pathlib.Path(folder.name)

    def orv(self, *arguments, **options):
        """Exit status, standard output and standard error."""
        done = subprocess.run([ORV, *map(str, arguments)], capture_output="stdout" not in options,
                              text=True, cwd=self.folder, check=False, timeout=60, **options)
        return done.returncode, done.stdout, done.stderr

    def done(self, *arguments):
        """Runs what cannot fail."""
        status, _, err = self.orv(*arguments)
        self.assertEqual(status, 0, err)

    def start(self, *arguments, stdout=subprocess.PIPE):
        process = subprocess.Popen([ORV, *map(str, arguments)], cwd=self.folder, stdout=stdout,
                                   stderr=subprocess.PIPE, text=True)
        self.addCleanup(self.end, process)
        return process

    @staticmethod
    def end(process):
        """Ends a program that a test left behind, and closes its pipes."""
        if process.poll() is None:
            process.kill()
            process.wait()
        for stream in (process.stdout, process.stderr):
            if stream is not None:
                stream.close()

    def start_waiting(self, *arguments, printed=""):
        """A program that waits at the first line it prints, or at the one behind what is given; and
        the pipe that lets it go on."""
        pipe = FullPipe(len(printed))
        process = self.start(*arguments, stdout=pipe.writes)
        os.close(pipe.writes)
        while process.poll() is None and not self.waits_in_a_pipe(process):
            time.sleep(0.001)
        return process, pipe

    @staticmethod
    def finish(process, pipe):
        """Lets a program go on: exit status, what it printed behind what was given, its errors."""
        out = []
        draining = threading.Thread(target=lambda: out.append(pipe.drain()))
        draining.start()
        err = process.communicate(timeout=60)[1]
        draining.join()
        return process.returncode, out[0], err

    @staticmethod
    def waits_in_a_pipe(process):
        with open(f"/proc/{process.pid}/syscall", encoding="utf-8") as call:
            number, *arguments = call.read().split()
        return number in WRITE_CALLS and arguments[:1] == ["0x1"]

    def state(self, name):
        """Of a file or all files in a folder: name, bytes and when they were written."""
        path = self.folder / name
        files = sorted(path.rglob("*")) if path.is_dir() else [path]
        return [(str(file.relative_to(self.folder)), file.read_bytes(), file.stat().st_mtime_ns)
                for file in files if file.is_file()]

    def contents(self, name):
        return [(file, content) for file, content, _ in self.state(name)]

    def names(self):
        return sorted(str(path.relative_to(self.folder)) for path in self.folder.rglob("*"))
