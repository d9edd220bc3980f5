#!/usr/bin/env python3
"""Benchmarks of two builds in one run: ci/bench_compare.py BEFORE AFTER [NAME...]

BEFORE and AFTER are folders with the programs bench_NAME; without names all are run. Before and
after take turns, so that whatever else the machine does meets both; of each row the least time
counts, which is what the work takes when nothing disturbs it. A row that seems to have lost is
measured again before it is called a loss.

Ends with 1 when a row takes more than 20 % longer than before, or a program fails.
"""
import json
import pathlib
import re
import subprocess
import sys
import tempfile

MOST = 1.2         # times as long as before
FIRST_TURNS = 2    # of every row
FURTHER_TURNS = 4  # of a row that seems to have lost
SECONDS = 0.1      # at least, for a row in one turn
UNITS = {"ns": 1e-6, "us": 1e-3, "ms": 1.0, "s": 1e3}  # in milliseconds


class Failure(Exception):
    """A program that did not do its work."""


def measure(program, rows=None):
    """Milliseconds of each row: of the processor, or of the clock where the row asks for it."""
    with tempfile.NamedTemporaryFile(suffix=".json") as out:
        command = [str(program), f"--benchmark_out={out.name}", "--benchmark_out_format=json",
                   f"--benchmark_min_time={SECONDS}"]
        if rows is not None:
            command.append("--benchmark_filter=^(" + "|".join(map(re.escape, rows)) + ")$")
        done = subprocess.run(command, text=True, stdout=subprocess.PIPE,
                              stderr=subprocess.STDOUT, check=False)
        text = pathlib.Path(out.name).read_text(encoding="utf-8")
        if done.returncode or not text:
            raise Failure(f"{program.name} ended with {done.returncode}\n{done.stdout[-2000:]}")
    times = {}
    for row in json.loads(text)["benchmarks"]:
        if row.get("error_occurred"):
            raise Failure(f"{program.name}: {row['name']}: {row['error_message']}")
        if row.get("run_type", "iteration") != "iteration":
            continue  # a fitted complexity
        which = "real_time" if "/real_time" in row["name"] else "cpu_time"
        times[row["name"]] = row[which] * UNITS[row["time_unit"]]
    return times


def keep_least(least, times):
    for name, time in times.items():
        least[name] = min(time, least.get(name, time))


def lost(before, after):
    return [name for name in after if name in before and after[name] > MOST * before[name]]


def compare(before_program, after_program):
    """The least times of both, by row."""
    before, after = {}, {}
    pairs = [(before, before_program), (after, after_program)]
    for turn in range(FIRST_TURNS + FURTHER_TURNS):
        rows = None
        if turn >= FIRST_TURNS:
            rows = lost(before, after)
            if not rows:
                break
        # Who comes first changes: the second may find a warmer machine.
        for least, program in pairs if turn % 2 == 0 else reversed(pairs):
            keep_least(least, measure(program, rows))
    return before, after


def line_of(name, before, after):
    cells = [f"{times[name]:12.4g}" if name in times else f"{'-':>12}"
             for times in (before, after)]
    if name not in before or name not in after:
        return f"  {name:52} {cells[0]} {cells[1]}"
    return f"  {name:52} {cells[0]} {cells[1]}   x {after[name] / before[name]:.2f}"


def report(title, before, after):
    """Prints the table of a program; returns the rows that lost."""
    print(title, flush=True)
    names = list(after) + [name for name in before if name not in after]
    losses = set(lost(before, after))
    for name in names:
        print(line_of(name, before, after) + ("   LOSS" if name in losses else ""), flush=True)
    return [f"{title}: {name}" for name in names if name in losses]


def programs(folder, names):
    found = {path.name: path for path in sorted(folder.glob("bench_*"))}
    wanted = [f"bench_{name}" for name in names] or list(found)
    return {name: found[name] for name in wanted if name in found}


def main(arguments):
    if len(arguments) < 2:
        sys.exit(__doc__)
    for folder in arguments[:2]:
        if not pathlib.Path(folder).is_dir():
            sys.exit(f"No such folder: {folder}")
    before = programs(pathlib.Path(arguments[0]), arguments[2:])
    after = programs(pathlib.Path(arguments[1]), arguments[2:])
    unknown = [name for name in arguments[2:]
               if f"bench_{name}" not in before and f"bench_{name}" not in after]
    if unknown:
        sys.exit("No such benchmark: " + " ".join(unknown))
    print(f"  {'least milliseconds':52} {'before':>12} {'after':>12}", flush=True)
    problems = []
    for name in after:
        try:
            if name in before:
                problems += report(name, *compare(before[name], after[name]))
            else:
                report(name + " (new)", {}, measure(after[name]))
        except Failure as failure:
            problems.append(str(failure))
    for name in before.keys() - after.keys():
        print(f"{name} (gone)")
    for problem in problems:
        print("FAILED:", problem)
    return 1 if problems else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
