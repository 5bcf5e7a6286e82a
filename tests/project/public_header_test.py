#!/usr/bin/env python3
# SPDX-License-Identifier: Apache-2.0
"""Preprocesses each public header alone and tells what it lets out.

A public header defines no macro but its include guard and VELTO_EXPORT, undefines none, and brings
in nothing but its own folder, the standard library and, under include/velto, the forward header and
the enumerations of the contract.

Usage: public_header_test.py COMPILER ROOT     checks the headers of the project at ROOT
       public_header_test.py --self-test       checks this script on made-up output
"""

import glob
import os
import re
import subprocess
import sys
import unittest

FOLDERS = ["include/velto", "data_access"]
ALLOWED_MACRO = re.compile(r"VELTO_EXPORT|VELTO_[A-Z0-9_]+_H")
ALLOWED_FILES = {
    "include/velto": ["include/velto/", "data_access/fwd.h", "data_access/OrvTypes.h"],
    "data_access": ["data_access/"],
}

LINE_MARKER = re.compile(r'# \d+ "([^"]*)"')
MACRO = re.compile(r"#(define|undef) (\w+)")


def preprocess(compiler, root, header):
    command = [compiler, "-std=c++17", "-E", "-dD", "-x", "c++", "-I", root,
               "-I", os.path.join(root, "include"), os.path.join(root, header)]
    return subprocess.run(command, check=True, capture_output=True, text=True).stdout


def judge(output, root, header):
    """What is wrong with a header, given its preprocessed text with macros and line markers."""
    found = []
    folder = os.path.dirname(header)
    inside = None
    for line in output.splitlines():
        marker = LINE_MARKER.match(line)
        if marker:
            path = os.path.normpath(marker.group(1))
            inside = None
            if path.startswith(root + os.sep):
                inside = os.path.relpath(path, root)
                if not inside.startswith(tuple(ALLOWED_FILES[folder])):
                    found.append(f"{header}: brings in {inside}")
            continue
        macro = MACRO.match(line)
        if macro and inside is not None and not ALLOWED_MACRO.fullmatch(macro.group(2)):
            word = "defines" if macro.group(1) == "define" else "undefines"
            found.append(f"{header}: {inside} {word} {macro.group(2)}")
    return list(dict.fromkeys(found))


class PublicHeaders(unittest.TestCase):
    def test_guards_the_export_macro_and_macros_of_others_pass(self):
        output = ('# 1 "/p/include/velto/A.h"\n#define VELTO_A_H\n'
                  '# 1 "/p/include/velto/export.h" 1\n#define VELTO_EXPORT\n'
                  '# 1 "/p/data_access/fwd.h" 1\n#define VELTO_DATA_ACCESS_FWD_H\n'
                  '# 1 "/usr/include/string" 1 3\n#define _STRING 1\n#undef near\n')
        self.assertEqual(judge(output, "/p", "include/velto/A.h"), [])

    def test_other_macros_are_refused(self):
        output = '# 1 "/p/data_access/A.h"\n#define MAX_IDS 3\n#undef near\n'
        self.assertEqual(
            judge(output, "/p", "data_access/A.h"),
            ["data_access/A.h: data_access/A.h defines MAX_IDS",
             "data_access/A.h: data_access/A.h undefines near"])

    def test_a_public_header_that_brings_in_the_contract_is_refused(self):
        output = '# 1 "/p/include/velto/A.h"\n# 1 "/p/data_access/OrvBase.h" 1\n'
        self.assertEqual(
            judge(output, "/p", "include/velto/A.h"),
            ["include/velto/A.h: brings in data_access/OrvBase.h"])


def main():
    if sys.argv[1:] == ["--self-test"]:
        unittest.main(argv=sys.argv[:1])
    if len(sys.argv) != 3:
        sys.exit(__doc__)
    compiler, root = sys.argv[1], os.path.abspath(sys.argv[2])
    headers = [os.path.relpath(path, root)
               for folder in FOLDERS
               for path in sorted(glob.glob(os.path.join(root, folder, "*.h")))]
    if not headers:
        sys.exit("no public headers found")
    found = [line for header in headers
             for line in judge(preprocess(compiler, root, header), root, header)]
    for line in found:
        print(line)
    sys.exit(1 if found else 0)


if __name__ == "__main__":
    main()
