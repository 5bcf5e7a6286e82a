# SPDX-License-Identifier: Apache-2.0
"""What compare and growth share: commands timed in alternating rounds, and tables of the medians.

Before each timed command what is still to be written goes to the disk, and the files that it reads
are read once, so that they are in the page cache. Then a child of its own touches and frees memory,
half as much again as the hungriest command of the group takes, with what it writes: a virtual
machine gets memory from its host when it is first touched, and gives freed memory back after a
while, and whichever command comes next would pay for that.
"""

import argparse
import dataclasses
import json
import mmap
import os
import pathlib
import platform
import resource
import shutil
import statistics
import subprocess
import time
import typing

MIB = 1 << 20
PAGE = 4096


@dataclasses.dataclass
class Row:
    """A command to time. Without one, its files are read, and nothing else."""

    name: str
    command: typing.Optional[list]
    reads: list  # the files that it reads
    writes: typing.Optional[pathlib.Path] = None  # removed before and after
    prepare: typing.Optional[list] = None  # a command to run before, untimed
    says: str = ""  # what its output has to contain


def in_child(function):
    """What `function` returns in a child of this process, which starts at once."""
    reader, writer = os.pipe()
    child = os.fork()
    if child == 0:
        status = 1
        try:
            os.write(writer, json.dumps(function()).encode())
            status = 0
        finally:
            os._exit(status)
    os.close(writer)
    with os.fdopen(reader, "rb") as pipe:
        result = pipe.read()
    _, status = os.waitpid(child, 0)
    if status != 0:
        raise SystemExit("a child process failed; is there enough memory?")
    return json.loads(result)


def memory_of_machine(entry):
    """MB of an entry of /proc/meminfo, such as MemAvailable."""
    with open("/proc/meminfo", encoding="ascii") as lines:
        return next(int(line.split()[1]) / 1024 for line in lines if line.startswith(entry + ":"))


def touch(megabytes, cached):
    """Has each page of so much memory written to, and frees it; no more than there is beside files
    of so many MB in the page cache."""
    size = int(min(megabytes, memory_of_machine("MemAvailable") - cached - 512)) * MIB
    if size <= 0:
        return

    def write_pages():
        # Private, since shared memory gets no huge pages, which come from places of their own.
        with mmap.mmap(-1, size, flags=mmap.MAP_PRIVATE | mmap.MAP_ANONYMOUS) as memory:
            memory.madvise(mmap.MADV_HUGEPAGE)
            memory[::PAGE] = bytes(size // PAGE)

    in_child(write_pages)


def read_raw(files):
    """Seconds, seconds of processor time and peak MB of reading files into one used buffer."""

    def read_all():
        used = resource.getrusage(resource.RUSAGE_SELF).ru_maxrss
        buffer = bytearray(MIB)
        buffer[::PAGE] = b"\1" * (MIB // PAGE)
        before = resource.getrusage(resource.RUSAGE_SELF)
        begin = time.perf_counter()
        for file in files:
            descriptor = os.open(file, os.O_RDONLY)
            while os.readv(descriptor, [buffer]) > 0:
                pass
            os.close(descriptor)
        wall = time.perf_counter() - begin
        after = resource.getrusage(resource.RUSAGE_SELF)
        cpu = after.ru_utime + after.ru_stime - before.ru_utime - before.ru_stime
        return wall, cpu, (after.ru_maxrss - used) / 1024

    return in_child(read_all)


def run(command, says="", folder=None):
    """Seconds, seconds of processor time and peak MB of a command, which has to succeed."""
    keeps = subprocess.PIPE if says else subprocess.DEVNULL
    begin = time.perf_counter()
    with subprocess.Popen(command, stdin=subprocess.DEVNULL, stdout=keeps,
                          stderr=subprocess.DEVNULL, cwd=folder) as process:
        output = process.stdout.read().decode(errors="replace") if says else ""
        _, status, usage = os.wait4(process.pid, 0)
        process.returncode = os.waitstatus_to_exitcode(status)
    wall = time.perf_counter() - begin
    if process.returncode != 0:
        raise SystemExit(f"{' '.join(map(str, command))}: exit status {process.returncode}")
    if says not in output:
        raise SystemExit(f"{' '.join(map(str, command))}: does not say '{says}'")
    return wall, usage.ru_utime + usage.ru_stime, usage.ru_maxrss / 1024


def program(name):
    """The whole name of a program, for argparse."""
    found = shutil.which(os.path.abspath(name))
    if not found:
        raise argparse.ArgumentTypeError(f"'{name}' is no program")
    return found


def files_in(path):
    path = pathlib.Path(path)
    return sorted(file for file in path.rglob("*") if file.is_file()) if path.is_dir() else [path]


def megabytes_of(path):
    return sum(file.stat().st_size for file in files_in(path)) / 1e6


def remove(path):
    if path is None:
        return
    if path.is_dir():
        shutil.rmtree(path)
    else:
        path.unlink(missing_ok=True)


def once(row, megabytes, says=""):
    """Times one run of a row; the last figure is the MB that it wrote, or None."""
    remove(row.writes)
    if row.prepare:
        run(row.prepare)
    os.sync()
    read_raw(row.reads)
    touch(megabytes, sum(map(megabytes_of, row.reads)))  # last: the host takes it back soon
    figures = run(row.command, says) if row.command else read_raw(row.reads)
    written = megabytes_of(row.writes) if row.writes else None
    remove(row.writes)
    return (*figures, written)


def smallest_peak():
    """The peak MB that a program has which needs none: it starts as a copy of this one."""
    return run(["true"])[2]


def measure(rows, rounds):
    """Runs all rows once to see that they work and what they need, then in rounds. Returns name,
    medians and runs of each row."""
    first = [once(row, 0, row.says) for row in rows]
    needed = 1.5 * max([peak + (written or 0) for _, _, peak, written in first], default=0) + 64
    runs = [[] for _ in rows]
    for _ in range(rounds):
        for row, taken in zip(rows, runs):
            taken.append(once(row, needed))
    floor = smallest_peak() + 0.5
    results = []
    for row, taken in zip(rows, runs):
        wall, cpu, peak = (statistics.median(values) for values in list(zip(*taken))[:3])
        results.append({"name": row.name, "wall_s": wall, "cpu_s": cpu, "peak_MB": peak,
                        "peak_is_start_up": row.command is not None and peak <= floor,
                        "written_MB": taken[-1][3],
                        "runs": [{"wall_s": run[0], "cpu_s": run[1], "peak_MB": run[2]}
                                 for run in taken]})
    return results


def table(header, rows, markdown):
    """A table as text; all columns but the first stand at the right."""
    if markdown:
        rule = "|---|" + "---:|" * (len(header) - 1)
        lines = [f"| {' | '.join(cells)} |" for cells in [header] + rows]
        return "\n".join([lines[0], rule] + lines[1:])
    widths = [max(map(len, column)) for column in zip(header, *rows)]
    return "\n".join("  ".join([cells[0].ljust(widths[0])] +
                               [cell.rjust(width) for cell, width in zip(cells[1:], widths[1:])])
                     for cells in [header] + rows)


def machine():
    """Processor, cores, memory and system in one line."""
    with open("/proc/cpuinfo", encoding="utf-8") as lines:
        models = [line.split(":", 1)[1].strip() for line in lines if line.startswith("model name")]
    processor = models[0] if models else platform.machine()
    return (f"{processor}, {os.cpu_count()} cores, {memory_of_machine('MemTotal') / 1024:.0f} GB, "
            f"Linux {platform.release()}")


def write_json(path, document):
    if path:
        pathlib.Path(path).write_text(json.dumps(document, indent=1) + "\n", encoding="utf-8")
