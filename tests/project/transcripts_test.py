#!/usr/bin/env python3
# SPDX-License-Identifier: Apache-2.0
"""Runs the transcripts in the documents and compares what is printed with what stands there.

Usage: transcripts_test.py ROOT PROGRAM...            checks README.md, docs/guide and examples
       transcripts_test.py --update ROOT PROGRAM...   writes what is printed into these pages
       transcripts_test.py --self-test                checks this script on made-up pages

A transcript is a fenced block without a language that has lines which begin with "$ ":

    $ orv check case.orv
    case.orv: sound (0 errors, 0 warnings)

Such a line is a command for bash, which a backslash at its end continues on the next line. What
stands between it and the next command is what it prints, on both streams. There "..." alone on a
line stands for any number of lines, and within a line for anything on it. Blanks at the end of a
line and blank lines at the end of an output do not count. Any exit status will do; what counts
can be shown by "$ echo $?".

The transcripts of a page run one after the other in one empty folder, each in a shell of its own,
with the programs on the PATH. An HTML comment sets apart the transcript that comes next:

    <!-- transcript: skip, needs a window -->            it is not run; the reason is for readers
    <!-- transcript: setup: orv sample box case.orv -->  runs before it, unseen; may take many lines

--update keeps "..." where it stands for something still.
"""

import contextlib
import dataclasses
import difflib
import io
import os
import pathlib
import re
import subprocess
import sys
import tempfile
import unittest

PAGES = ("README.md", "docs/guide/*.md", "examples/**/*.md")
SECONDS = 600  # for one transcript

FENCE = re.compile(r"( *)(`{3,})(.*)")
REMARK = re.compile(r"<!-- transcript: *(skip, |setup:)(.*?)-->", re.DOTALL)
END_OF_OUTPUT = "\x1eend of output\x1e"

# What a command sees of the environment of the test, besides the settings of sanitizers.
KEPT_VARIABLES = ("PATH", "LD_LIBRARY_PATH", "LLVM_PROFILE_FILE", "GCOV_PREFIX")


class PageError(Exception):
    """A page that is not written as it should be; the text is "line: reason"."""


@dataclasses.dataclass
class Step:
    """A command, and the lines that stand behind it."""
    command: str
    first: int  # index of the first of these lines in the page
    indent: str  # before each line in the page
    lines: list


@dataclasses.dataclass
class Transcript:
    line: int  # of the fence, from 1
    steps: list
    setup: str = ""
    skipped: bool = False


def read_steps(lines, first, indent):
    """The steps in the lines of a block; `first` is the index of the first of them."""
    steps = []
    continued = False
    for index, line in enumerate(lines, first):
        line = line.removeprefix(indent).rstrip()
        if continued:
            steps[-1].command += "\n" + line
        elif line.startswith("$ "):
            steps.append(Step(line[2:], index + 1, indent, []))
        elif not steps:
            raise PageError(f"{index + 1}: stands before the first command")
        else:
            steps[-1].lines.append(line)
            continue
        continued = line.endswith("\\")
        steps[-1].first = index + 1
    for step in steps:
        while step.lines and not step.lines[-1]:
            step.lines.pop()
    return steps


def read_remark(lines, index):
    """The remark that begins in a line, setup or None for skip, and the index behind it."""
    text = ""
    for end in range(index, len(lines)):
        text += lines[end] + "\n"
        if "-->" in lines[end]:
            break
    match = REMARK.fullmatch(text.strip())
    if not match or not match[2].strip():
        raise PageError(f"{index + 1}: neither `skip, REASON` nor `setup: COMMANDS`")
    return (None if match[1] == "skip, " else match[2].strip()), end + 1


def read_transcripts(text):
    """The transcripts of a page."""
    lines = text.splitlines()
    found = []
    remark = None  # its line, and what it says
    index = 0
    while index < len(lines):
        if lines[index].startswith("<!-- transcript"):
            if remark:
                raise PageError(f"{remark[0]}: no transcript comes before the next remark")
            line = index + 1
            setup, index = read_remark(lines, index)
            remark = (line, setup)
            continue
        fence = FENCE.fullmatch(lines[index])
        index += 1
        if not fence:
            continue
        first = index
        while index < len(lines) and lines[index].strip() != fence[2]:
            index += 1
        if index == len(lines):
            raise PageError(f"{first}: the block has no end")
        block = lines[first:index]
        index += 1
        if fence[3] or not any(line.lstrip().startswith("$ ") for line in block):
            continue
        transcript = Transcript(first, read_steps(block, first, fence[1]))
        if remark:
            transcript.setup = remark[1] or ""
            transcript.skipped = remark[1] is None
            remark = None
        found.append(transcript)
    if remark:
        raise PageError(f"{remark[0]}: no transcript comes behind it")
    return found


def is_gap(line):
    return line.strip() == "..."


def fits(expected, line):
    pieces = [re.escape(piece) for piece in expected.split("...")]
    return re.fullmatch(".*".join(pieces), line) is not None


def count_edits(expected, printed):
    """How many lines have to change from expected[i:] to printed[j:], for every i and j."""
    edits = [[0] * (len(printed) + 1) for _ in range(len(expected) + 1)]
    for i in range(len(expected), -1, -1):
        for j in range(len(printed), -1, -1):
            ways = []
            if i < len(expected) and is_gap(expected[i]):
                ways.append(edits[i + 1][j])
                if j < len(printed):
                    ways.append(edits[i][j + 1])
            elif i < len(expected):
                ways.append(1 + edits[i + 1][j])
                if j < len(printed):
                    ways.append(edits[i + 1][j + 1] + (not fits(expected[i], printed[j])))
            if j < len(printed):
                ways.append(1 + edits[i][j + 1])
            edits[i][j] = min(ways, default=0)
    return edits


def merge(expected, printed):
    """What should stand in place of `expected`: `expected` itself where it fits what is printed."""
    edits = count_edits(expected, printed)
    merged = []
    i = j = 0
    while i < len(expected) or j < len(printed):
        left = edits[i][j]
        if i < len(expected) and is_gap(expected[i]):
            if edits[i + 1][j] == left:
                merged.append(expected[i])
                i += 1
            else:
                j += 1
            continue
        if i < len(expected) and j < len(printed):
            wrong = not fits(expected[i], printed[j])
            if edits[i + 1][j + 1] + wrong == left:
                merged.append(printed[j] if wrong else expected[i])
                i += 1
                j += 1
                continue
        if j < len(printed) and 1 + edits[i][j + 1] == left:
            merged.append(printed[j])
            j += 1
        else:
            i += 1
    return merged


def environment(folder, programs):
    kept = {name: value for name, value in os.environ.items()
            if name in KEPT_VARIABLES or name.endswith("SAN_OPTIONS")}
    folders = [os.path.dirname(os.path.abspath(program)) for program in programs]
    path = os.pathsep.join([*folders, kept.get("PATH") or os.defpath])
    return {**kept, "PATH": path, "HOME": str(folder), "TMPDIR": str(folder),
            "LC_ALL": "C.UTF-8"}


def run_shell(script, folder, variables):
    """What a script prints on both streams, and its exit status."""
    try:
        result = subprocess.run(
            ["bash", "--noprofile", "--norc", "-c", "exec 2>&1\n" + script], cwd=folder,
            env=variables, stdin=subprocess.DEVNULL, stdout=subprocess.PIPE, timeout=SECONDS,
            check=False)
    except FileNotFoundError:
        sys.exit("transcripts_test.py: there is no bash here")
    return result.stdout.decode("utf-8", "replace"), result.returncode


def run_transcript(transcript, folder, variables):
    """What each step prints, as lists of lines."""
    if transcript.setup:
        printed, status = run_shell("set -e\n" + transcript.setup, folder, variables)
        if status:
            raise PageError(f"{transcript.line}: its setup fails ({status}): {printed.strip()}")
    script = ["end_of_output() { local status=$?; printf %s \"$1\"; return \"$status\"; }"]
    for step in transcript.steps:
        script += [step.command, f"end_of_output '{END_OF_OUTPUT}'"]
    printed, _ = run_shell("\n".join(script), folder, variables)
    outputs = printed.split(END_OF_OUTPUT)
    if len(outputs) != len(transcript.steps) + 1:
        raise PageError(f"{transcript.line}: the shell stops in it: {outputs[-1].strip()}")
    return [[line.rstrip() for line in output.rstrip().splitlines()] for output in outputs[:-1]]


def judge_page(name, text, programs):
    """Complaints about a page, its text as it should be, and how many transcripts were run."""
    complaints = []
    lines = text.splitlines()
    edits = []  # steps, and what should stand behind them
    count = 0
    try:
        with tempfile.TemporaryDirectory() as folder:
            variables = environment(folder, programs)
            for transcript in read_transcripts(text):
                if transcript.skipped:
                    continue
                outputs = run_transcript(transcript, folder, variables)
                count += 1
                for step, printed in zip(transcript.steps, outputs):
                    merged = merge(step.lines, printed)
                    if merged == step.lines:
                        continue
                    diff = difflib.unified_diff(
                        step.lines, merged, "in the page", "printed", lineterm="", n=2)
                    complaints.append("\n".join(
                        [f"{name}:{step.first}: $ {step.command}", *diff]))
                    edits.append((step, merged))
    except PageError as error:
        complaints.append(f"{name}:{error}")
    except subprocess.TimeoutExpired:
        complaints.append(f"{name}:{transcript.line}: it takes more than {SECONDS} s")
    for step, merged in reversed(edits):
        lines[step.first:step.first + len(step.lines)] = [
            (step.indent + line).rstrip() for line in merged]
    return complaints, "\n".join(lines) + "\n", count


def judge(root, programs, update=False):
    """Prints all complaints about the pages of the project at `root`; whether there are none."""
    complaints = []
    count = 0
    for page in sorted({page for pattern in PAGES for page in pathlib.Path(root).glob(pattern)}):
        name = str(page.relative_to(root))
        text = page.read_text(encoding="utf-8")
        found, updated, run = judge_page(name, text, programs)
        complaints += found
        count += run
        if update and updated != text:
            page.write_text(updated, encoding="utf-8")
            print(f"{name}: rewritten, look at its diff")
    for complaint in complaints:
        print(complaint)
    if not count:
        print(f"{root}: no transcript was run")
    print(f"{count} transcripts were run")
    return bool(count) and not complaints


class Merging(unittest.TestCase):
    def check(self, expected, printed, merged=None):
        self.assertEqual(merge(expected, printed), expected if merged is None else merged)

    def test_equal_lines(self):
        self.check([], [])
        self.check(["a", "b"], ["a", "b"])

    def test_a_changed_line_is_replaced(self):
        self.check(["a", "b", "c"], ["a", "x", "c"], ["a", "x", "c"])

    def test_a_line_more_and_a_line_less(self):
        self.check(["a", "c"], ["a", "b", "c"], ["a", "b", "c"])
        self.check(["a", "b", "c"], ["a", "c"], ["a", "c"])
        self.check([], ["a"], ["a"])
        self.check(["a"], [], [])

    def test_dots_stand_for_any_number_of_lines(self):
        for printed in (["a", "z"], ["a", "b", "z"], ["a", "b", "c", "z"]):
            self.check(["a", "  ...", "z"], printed)
        self.check(["..."], [])
        self.check(["...", "m", "..."], ["a", "m", "z"])

    def test_dots_within_a_line_stand_for_what_is_on_it(self):
        self.check(["took ... s (...)"], ["took 1.5 s ()"])
        self.check(["took ... s"], ["took 1.5 h"], ["took 1.5 h"])

    def test_other_signs_stand_for_themselves(self):
        self.check(["a.c [*]"], ["abc [*]"], ["abc [*]"])

    def test_dots_stay_where_lines_beside_them_change(self):
        self.check(["a", "...", "z"], ["A", "b", "c", "z"], ["A", "...", "z"])
        self.check(["a", "...", "y", "z"], ["a", "b", "z"], ["a", "...", "b", "z"])


class Pages(unittest.TestCase):
    """Each test runs a page on programs of every system."""

    def judge(self, *lines):
        complaints, text, _ = judge_page("page", "\n".join(lines) + "\n", [])
        return complaints, text.splitlines()

    def check(self, *lines):
        """The page is as it should be."""
        self.assertEqual(self.judge(*lines), ([], list(lines)))

    def complain(self, complaint, *lines):
        self.assertEqual(self.judge(*lines), ([complaint], list(lines)))

    def test_commands_and_their_output(self):
        self.check("text", "```", "$ echo a; echo; echo b", "a", "", "b", "", "$ true", "$ echo c",
                   "c", "", "```", "more")

    def test_both_streams_are_one(self):
        self.check("```", "$ echo a; echo b >&2; echo c", "a", "b", "c", "```")

    def test_an_output_without_an_end_of_line(self):
        self.check("```", "$ printf a", "a", "$ printf b", "b", "```")

    def test_a_command_over_two_lines(self):
        self.check("```", "$ echo a \\", "    b   # said", "a b", "```")

    def test_an_exit_status_counts_where_it_is_asked_for(self):
        self.check("```", "$ false", "$ echo $?", "1", "$ true", "$ echo $?", "0", "```")

    def test_blocks_share_a_folder_and_pages_do_not(self):
        self.check("```", "$ echo a > file", "```", "```", "$ cat file; x=1", "a", "```",
                   "```", "$ echo [$x]", "[]", "```")
        self.check("```", "$ ls", "```")

    def test_an_indented_block(self):
        self.check("- a", "  ```", "  $ echo a; echo; echo ' b'", "  a", "", "   b", "  ```")
        complaints, text = self.judge("  ```", "  $ seq 2", "  1", "  3", "  ```")
        self.assertEqual(len(complaints), 1)
        self.assertEqual(text, ["  ```", "  $ seq 2", "  1", "  2", "  ```"])

    def test_other_blocks_are_left_alone(self):
        self.check("```sh", "$ false", "x", "```", "```", "no command", "```",
                   "````", "```", "````")

    def test_a_setup_is_run_unseen(self):
        self.check("<!-- transcript: setup: echo a > file -->", "```", "$ cat file", "a", "```")
        self.check("<!-- transcript: setup:", "echo a > file", "echo b >> file", "-->", "",
                   "```", "$ cat file", "a", "b", "```")

    def test_a_skipped_block_is_not_run(self):
        self.check("<!-- transcript: skip, needs time -->", "```", "$ sleep 1000", "x", "```")

    def test_what_is_wrong_is_told_and_mended(self):
        complaints, text = self.judge(
            "# Page", "```", "$ seq 3", "1", "4", "...", "$ echo a", "$ echo b", "b", "```")
        self.assertEqual(complaints, [
            "page:3: $ seq 3\n--- in the page\n+++ printed\n@@ -1,3 +1,3 @@\n 1\n-4\n+2\n ...",
            "page:7: $ echo a\n--- in the page\n+++ printed\n@@ -0,0 +1 @@\n+a"])
        self.assertEqual(text, ["# Page", "```", "$ seq 3", "1", "2", "...", "$ echo a", "a",
                                "$ echo b", "b", "```"])

    def test_a_setup_that_fails(self):
        self.complain("page:2: its setup fails (1): a", "<!-- transcript: setup: echo a; false -->",
                      "```", "$ true", "```")

    def test_a_shell_that_stops(self):
        self.complain("page:1: the shell stops in it: a", "```", "$ echo a; exit", "$ true", "```")

    def test_remarks_that_are_wrong(self):
        wrong = "page:1: neither `skip, REASON` nor `setup: COMMANDS`"
        self.complain(wrong, "<!-- transcript: skip -->", "```", "$ true", "```")
        self.complain(wrong, "<!-- transcript: setup: -->", "```", "$ true", "```")
        self.complain(wrong, "<!-- transcript: setup: true", "```", "$ true", "```")
        self.complain("page:1: no transcript comes behind it", "<!-- transcript: setup: true -->")
        self.complain("page:1: no transcript comes before the next remark",
                      *["<!-- transcript: setup: true -->"] * 2)

    def test_blocks_that_are_wrong(self):
        self.complain("page:1: the block has no end", "```", "$ true")
        self.complain("page:2: stands before the first command", "```", "x", "$ true", "```")


class Projects(unittest.TestCase):
    def test_pages_are_found_and_updated(self):
        with tempfile.TemporaryDirectory() as root:
            guide = pathlib.Path(root) / "docs/guide"
            guide.mkdir(parents=True)
            page = guide / "page.md"
            with contextlib.redirect_stdout(io.StringIO()) as printed:
                self.assertFalse(judge(root, []))
                page.write_text("```\n$ echo a\nb\n```\n", encoding="utf-8")
                self.assertFalse(judge(root, []))
                self.assertFalse(judge(root, [], update=True))
                self.assertTrue(judge(root, []))
            self.assertEqual(page.read_text(encoding="utf-8"), "```\n$ echo a\na\n```\n")
            self.assertIn("docs/guide/page.md:2: $ echo a\n", printed.getvalue())


def main():
    arguments = sys.argv[1:]
    if arguments == ["--self-test"]:
        unittest.main(argv=sys.argv[:1])
    update = arguments[:1] == ["--update"]
    arguments = arguments[update:]
    if len(arguments) < 2 or arguments[0].startswith("-"):
        sys.exit(__doc__)
    sys.exit(0 if judge(arguments[0], arguments[1:], update) else 1)


if __name__ == "__main__":
    main()
