# SPDX-License-Identifier: Apache-2.0
"""What tests of the program share: a folder of their own, and orv run in it."""

import os
import subprocess
import sys
import tempfile
import unittest

ORV = os.path.abspath(sys.argv[1])


class ProgramTest(unittest.TestCase):
    """Has a folder as long as the tests of the class run."""

    maxDiff = None

    @classmethod
    def setUpClass(cls):
        cls.folder = tempfile.TemporaryDirectory()

    @classmethod
    def tearDownClass(cls):
        cls.folder.cleanup()

    @classmethod
    def orv(cls, *arguments):
        """Exit status, standard output and standard error."""
        done = subprocess.run([ORV, *arguments], cwd=cls.folder.name, capture_output=True,
                              check=False)
        return done.returncode, done.stdout.decode(), done.stderr.decode()
