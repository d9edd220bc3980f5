"""ci/bench_compare.py tells a loss from noise: programs with figures of our own stand for two
builds.
"""

import json
import subprocess
import sys
import tempfile
from pathlib import Path

from project import ROOT, finish

COMPARE = ROOT / "ci" / "bench_compare.py"

# Answers its first call with the first of its figures, and so on; the last ones for ever.
PROGRAM = """#!{python}
import json, pathlib, re, sys
options = dict(word.split("=", 1) for word in sys.argv[1:])
turns = {turns}
count = pathlib.Path(__file__ + ".count")
turn = int(count.read_text()) if count.exists() else 0
count.write_text(str(turn + 1))
wanted = re.compile(options.get("--benchmark_filter", ""))
rows = [dict(row, name=name, run_type="iteration", time_unit="us")
        for name, row in turns[min(turn, len(turns) - 1)].items() if wanted.search(name)]
rows.append(dict(name="BM_a_BigO", run_type="aggregate", cpu_coefficient=1.0))
pathlib.Path(options["--benchmark_out"]).write_text(json.dumps({{"benchmarks": rows}}))
"""


def row(cpu, real=1.0):
    return {"cpu_time": cpu, "real_time": real}


def write(folder, name, turns):
    folder.mkdir(exist_ok=True)
    program = folder / f"bench_{name}"
    program.write_text(PROGRAM.format(python=sys.executable, turns=repr(turns)), encoding="utf-8")
    program.chmod(0o755)


def compared(before, after, *names):
    """What comparing two sets of programs ends with, and what it prints."""
    with tempfile.TemporaryDirectory() as temporary:
        folders = []
        for which, builds in (("before", before), ("after", after)):
            folder = Path(temporary) / which
            folder.mkdir()
            for name, turns in builds.items():
                write(folder, name, turns)
            folders.append(str(folder))
        done = subprocess.run([sys.executable, "-B", str(COMPARE), *folders, *names], text=True,
                              stdout=subprocess.PIPE, stderr=subprocess.STDOUT, check=False)
        return done.returncode, done.stdout


def error_row():
    return {"BM_a": {"error_occurred": True, "error_message": "no data"}}


CASES = [
    # what, before, after, names, ends with, says
    ("equal", {"x": [{"BM_a": row(10)}]}, {"x": [{"BM_a": row(12)}]}, [], 0, "x 1.20"),
    ("a loss", {"x": [{"BM_a": row(10)}]}, {"x": [{"BM_a": row(12.1)}]}, [], 1,
     "FAILED: bench_x: BM_a"),
    ("a gain", {"x": [{"BM_a": row(10)}]}, {"x": [{"BM_a": row(1)}]}, [], 0, "x 0.10"),
    ("slow only twice", {"x": [{"BM_a": row(10)}]},
     {"x": [{"BM_a": row(30)}, {"BM_a": row(30)}, {"BM_a": row(10)}]}, [], 0, "x 1.00"),
    ("a row that asks for the clock", {"x": [{"BM_a/real_time": row(10, 10)}]},
     {"x": [{"BM_a/real_time": row(10, 13)}]}, [], 1, "x 1.30"),
    ("a new row and one that went", {"x": [{"BM_a": row(1), "BM_gone": row(1)}]},
     {"x": [{"BM_a": row(1), "BM_new": row(9)}]}, [], 0, "BM_gone"),
    ("a new program", {}, {"y": [{"BM_a": row(9)}]}, [], 0, "bench_y (new)"),
    ("a program that went", {"y": [{"BM_a": row(9)}]}, {}, [], 0, "bench_y (gone)"),
    ("a loss elsewhere", {"x": [{"BM_a": row(1)}], "y": [{"BM_a": row(1)}]},
     {"x": [{"BM_a": row(1)}], "y": [{"BM_a": row(2)}]}, ["x"], 0, "x 1.00"),
    ("an unknown name", {"x": [{"BM_a": row(1)}]}, {"x": [{"BM_a": row(1)}]}, ["z"], 1,
     "No such benchmark: z"),
    ("one that cannot do its work", {"x": [{"BM_a": row(1)}]}, {"x": [error_row()]}, [], 1,
     "no data"),
]


def main():
    problems = []
    for what, before, after, names, ends_with, says in CASES:
        code, text = compared(before, after, *names)
        if code != ends_with or says not in text:
            problems.append(f"{what}: ended with {code}, not {ends_with}, or not with "
                            f"{json.dumps(says)}:\n{text}")
    finish(problems, "bench_compare")


if __name__ == "__main__":
    main()
