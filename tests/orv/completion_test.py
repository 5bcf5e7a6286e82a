#!/usr/bin/env python3
# SPDX-License-Identifier: Apache-2.0
"""What orv tells shells and man of its own command line: completion in bash, zsh and fish, orv(1).

Usage: completion_test.py ORV
"""

import json
import os
import pathlib
import pty
import re
import select
import shlex
import shutil
import subprocess
import sys
import tempfile
import time
import unittest

from program import ORV, ProgramTest


def orv(*arguments, **environment):
    """The standard output of a run that succeeds and says nothing else."""
    done = subprocess.run([ORV, *arguments], capture_output=True, check=False,
                          env={**os.environ, **environment})
    if done.returncode != 0 or done.stderr:
        raise AssertionError(f"orv {arguments}: {done.returncode}, {done.stderr.decode()}")
    return done.stdout.decode()


def listed_commands():
    """The subcommands that the help lists."""
    listed = orv("--help").partition("Subcommands:\n")[2].partition("\n\n")[0]
    return re.findall(r"^  (\S+)", listed, re.MULTILINE)


COMMANDS = listed_commands()


def options(*command):
    """All names of options in the help of a command."""
    lines = re.findall(r"^  (-\S+)", orv(*command, "--help"), re.MULTILINE)
    return [name for line in lines for name in line.split(",")]


def defects():
    return [row["name"] for row in json.loads(orv("sample", "--list", "--json"))["defects"]]


def need(tool):
    """The path of a program; skips the test where it is not installed."""
    path = shutil.which(tool)
    if path is None:
        raise unittest.SkipTest(f"{tool} is not installed")
    return path


class InFolder(ProgramTest):
    """Works in a folder with the three scripts and a file with a blank in its name."""

    @classmethod
    def setUpClass(cls):
        super().setUpClass()
        for shell, name in (("bash", "orv"), ("zsh", "_orv"), ("fish", "orv.fish")):
            pathlib.Path(cls.folder.name, name).write_text(orv("completion", shell),
                                                           encoding="utf-8")
        pathlib.Path(cls.folder.name, "my case.orv").touch()

    def environment(self):
        """Nothing by which a user could have changed a shell."""
        return {"HOME": self.folder.name, "TERM": "dumb",
                "PATH": os.environ.get("PATH", os.defpath)}

    def run_shell(self, *command):
        """The standard output of a shell that has nothing to complain of."""
        done = subprocess.run(command, cwd=self.folder.name, capture_output=True, check=False,
                              env=self.environment())
        self.assertEqual((done.returncode, done.stderr.decode()), (0, ""))
        return done.stdout.decode()

    def typed(self, command, setup, line):
        """What `orv` is given by an interactive shell when a line with tabs is typed."""
        try:
            child, terminal = pty.fork()
        except OSError as error:
            self.skipTest(f"no terminal can be made here: {error}")
        if child == 0:
            os.chdir(self.folder.name)
            os.execve(command[0], command, self.environment())
        try:
            # Marks are written in two halves, so that the echo of what is typed has none.
            os.write(terminal, (setup + "; PS1=''; orv() { printf '<%s>' \"$@\"; "
                                "printf '#%s\\n' end; }; printf '#%s\\n' ready\n").encode())
            self.read_until(terminal, "#ready")
            os.write(terminal, (line + "\n").encode())
            shown = self.read_until(terminal, "#end")
            return re.findall(r"<.*>(?=#end)", shown)[-1]
        finally:
            os.close(terminal)
            os.waitpid(child, 0)

    def read_until(self, terminal, mark):
        shown, end = "", time.monotonic() + 60
        while mark not in shown:
            ready, _, _ = select.select([terminal], [], [], max(0, end - time.monotonic()))
            self.assertTrue(ready, f"no {mark} within a minute, only: {shown!r}")
            shown += os.read(terminal, 65536).decode(errors="replace")
        return shown


class Bash(InFolder):
    def complete(self, line):
        """The candidates for the last word of a line, "FILES" where bash itself puts files."""
        words = re.findall(r"=|[^\s=]+|(?<=[\s])$", line)
        script = ("fallback=FILES; compopt() { fallback=; }; source ./orv; "
                  f"COMP_WORDS=({' '.join(map(shlex.quote, words))}); COMP_CWORD={len(words) - 1}; "
                  "_orv; printf '%s\\n' \"${COMPREPLY[@]}\" $fallback")
        return self.run_shell(need("bash"), "--norc", "-c", script).split()

    def typed_line(self, line):
        return self.typed([need("bash"), "--norc", "--noprofile", "-i"],
                          "bind 'set enable-bracketed-paste off'; source ./orv", line)

    def test_names_the_subcommands(self):
        self.assertEqual(self.complete("orv "), COMMANDS)
        self.assertEqual(self.complete("orv ch"), ["check"])
        self.assertEqual(self.complete("orv --v"), ["--version"])

    def test_names_the_options_of_each_subcommand(self):
        self.assertEqual(self.complete("orv -"), options())
        for command in COMMANDS:
            self.assertEqual(self.complete(f"orv {command} -"), options(command))
        self.assertEqual(self.complete("orv check case.orv --no"), ["--no-location-model"])
        self.assertEqual(self.complete("orv nothing -"), [])

    def test_names_values(self):
        self.assertEqual(self.complete("orv check --target "), ["restart", "post", "ppost"])
        self.assertEqual(self.complete("orv check --target=po"), ["post"])
        self.assertEqual(self.complete("orv check -t="), ["restart", "post", "ppost"])
        self.assertEqual(self.complete("orv check -l "), ["0", "1", "2"])
        self.assertEqual(self.complete("orv copy a b --to "), ["openfoam", "store", "vtu"])
        self.assertEqual(self.complete("orv completion "), ["bash", "zsh", "fish"])
        self.assertEqual(self.complete("orv check --mesh "), [])
        self.assertEqual(self.complete("orv copy --solver-format "), [])

    def test_names_samples_and_defects(self):
        self.assertEqual(self.complete("orv sample --force bo"), ["box", "box-cells"])
        self.assertEqual(self.complete("orv sample --defect "), defects())
        self.assertEqual(self.complete("orv sample -d overl"), ["overlap"])

    def test_leaves_files_to_bash(self):
        for line in ("orv check ", "orv check a b -l 2 ", "orv copy a ", "orv copy --results ",
                     "orv copy --results=a", "orv sample box ", "orv sample --defect overlap ",
                     "orv check --quiet -- -"):
            with self.subTest(line):
                self.assertEqual(self.complete(line), ["FILES"])
        self.assertEqual(self.complete("orv regions case.orv "), [])
        self.assertEqual(self.complete("orv formats "), [])

    def test_is_not_upset_by_separators(self):
        script = ("IFS=:; source ./orv; COMP_WORDS=(orv check --target ''); COMP_CWORD=3; "
                  "_orv; echo \"${#COMPREPLY[@]}\"")
        self.assertEqual(self.run_shell(need("bash"), "--norc", "-c", script), "3\n")

    def test_completes_what_is_typed(self):
        for line, given in (("orv ch\tmy\t", "<check><my case.orv>"),
                            ("orv check 'my\t", "<check><my case.orv>"),
                            ("orv copy --results=my\t--to=st\t", "<copy><--results=my case.orv>"
                             "<--to=store>"),
                            ("orv sample --de\toverl\tmy\t",
                             "<sample><--defect><overlap><my case.orv>")):
            with self.subTest(line):
                self.assertEqual(self.typed_line(line), given)


class Zsh(InFolder):
    def test_has_no_errors_of_syntax(self):
        self.run_shell(need("zsh"), "-n", "_orv")

    def test_completes_what_is_typed(self):
        zsh = need("zsh")
        setup = ("unsetopt zle_bracketed_paste; fpath=($PWD $fpath); autoload -Uz compinit; "
                 "compinit -u -D")
        for line, given in (("orv ch\tmy\t", "<check><my case.orv>"),
                            ("orv check --tar\tppo\tmy\t", "<check><--target=ppost><my case.orv>"),
                            ("orv copy --results my\t--to st\t",
                             "<copy><--results><my case.orv><--to><store>"),
                            ("orv sample --def\toverl\tmy\t",
                             "<sample><--defect=overlap><my case.orv>"),
                            ("orv sample period\tmy\t", "<sample><periodic><my case.orv>")):
            with self.subTest(line):
                self.assertEqual(self.typed([zsh, "-f", "-i"], setup, line), given)


class Fish(InFolder):
    def complete(self, line):
        """The candidates for the last word of a line."""
        shown = self.run_shell(need("fish"), "--no-config", "-c",
                               f"source orv.fish; complete -C {shlex.quote(line)}")
        return [row.partition("\t")[0] for row in shown.splitlines()]

    def test_has_no_errors_of_syntax(self):
        self.run_shell(need("fish"), "-n", "orv.fish")

    def test_names_subcommands_options_and_values(self):
        self.assertEqual(self.complete("orv "), sorted(COMMANDS))
        for command in COMMANDS:
            self.assertEqual(sorted(self.complete(f"orv {command} -")), sorted(options(command)))
        self.assertEqual(self.complete("orv check --target "), ["post", "ppost", "restart"])
        self.assertEqual(self.complete("orv copy a b --to=st"), ["--to=store"])
        self.assertEqual(sorted(self.complete("orv sample -d ")), sorted(defects()))
        self.assertEqual(self.complete("orv regions case.orv "), [])

    def test_names_files(self):
        for line in ("orv check my", "orv check -l 2 a my", "orv copy --results my",
                     "orv sample box my", "orv sample --defect overlap my", "orv sample --defect=overlap my"):
            with self.subTest(line):
                self.assertEqual(self.complete(line), ["my case.orv"])
        self.assertEqual(self.complete("orv sample perio"), ["periodic"])


def shown(roff):
    """Roff without fonts and escapes."""
    plain = re.sub(r"\\f[BIP]|\\&", "", roff)
    return plain.replace("\\-", "-").replace("\\e", "\\").replace("\\(aq", "'")


class Manual(unittest.TestCase):
    maxDiff = None

    def test_has_its_sections(self):
        self.assertEqual(re.findall(r"^\.SH (.*)$", orv("manual"), re.MULTILINE), [
            "NAME", "SYNOPSIS", "DESCRIPTION", "OPTIONS", "COMMANDS", "EXIT STATUS", "FILES",
            "EXAMPLES", "SEE ALSO"])
        self.assertEqual(re.findall(r"^\.SS (.*)$", orv("manual"), re.MULTILINE),
                         [f"orv {command}" for command in COMMANDS])

    def test_has_the_date_that_is_asked_for(self):
        self.assertEqual(orv("manual", SOURCE_DATE_EPOCH="86400").split("\n")[0],
                         '.TH ORV 1 1970-01-02 "orv 0.1.0"')

    def test_has_no_line_that_is_taken_for_a_macro(self):
        for line in orv("manual").splitlines():
            self.assertRegex(line, r"^(\.(TH|SH|SS|TP|PP)\b|[^.'])")
            self.assertNotRegex(line, r"(?<!\\)-(?!\d\d(\b|-))", "a hyphen that man may replace")

    def test_has_the_words_of_the_help(self):
        page = " ".join(shown(orv("manual")).split())
        for command in COMMANDS:
            text = orv(command, "--help").replace("`", "")
            footer = text[text.rindex("\n  -"):].partition("\n\n")[2].partition("Example")[0]
            self.assertIn(" ".join(footer.replace('"', "\\(dq").split()), page)

    def test_is_clean(self):
        with tempfile.TemporaryDirectory() as folder:
            page = pathlib.Path(folder, "orv.1")
            page.write_text(orv("manual"), encoding="utf-8")
            done = subprocess.run([need("mandoc"), "-T", "lint", page], capture_output=True,
                                  check=False)
            self.assertEqual((done.returncode, done.stdout.decode()), (0, ""))


class EveryOption(unittest.TestCase):
    """Whoever adds an option needs not think of any of this."""

    def test_the_help_lists_all_commands_but_manual(self):
        self.assertEqual([name for name in ("check", "completion", "manual") if name in COMMANDS],
                         ["check", "completion"])

    def test_stands_in_the_manual_page(self):
        page = shown(orv("manual"))
        sections = {"": page.partition(".SH OPTIONS")[2].partition(".SH ")[0]}
        for command in COMMANDS:
            sections[command] = re.split(r"\n\.S[HS] ", page.partition(f".SS orv {command}\n")[2])[0]
        for command, section in sections.items():
            tags = re.findall(r"^\.TP\n(-.*)$", section, re.MULTILINE)
            names = [re.split("[ ,]", part)[0] for tag in tags for part in tag.split(", ")]
            self.assertEqual(names, options(*command.split()))

    def test_stands_in_the_script_for_zsh(self):
        script = orv("completion", "zsh")
        for command in COMMANDS:
            lines = script.partition(f"\n_orv_{command}() {{\n")[2].partition("\n}\n")[0]
            names = re.findall(r"^    (?:'\([^)]*\)'\{)?(-[^'}]*)", lines, re.MULTILINE)
            self.assertEqual([name.rstrip("=+") for line in names for name in line.split(",")],
                             options(command))

    def test_stands_in_the_script_for_fish(self):
        script = orv("completion", "fish")
        for command in COMMANDS:
            lines = re.findall(rf"^complete -c orv -n '__orv_at {command}' (.*?) -d '", script,
                               re.MULTILINE)
            names = ["-" + name if kind == "s" else "--" + name for line in lines
                     for kind, name in re.findall(r"-([sl]) (\S+)", line)]
            self.assertEqual(names, options(command))


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
