#!/usr/bin/env python3
"""Line coverage of the engine by its own tests, as ci/sanitizers.sh counted it: 90% of the library,
95% of shx/, shapes/ and model/."""

import json
import subprocess
import sys
from pathlib import Path

ROOT = Path(__file__).resolve().parents[1]
BUILD = ROOT / "build/asan-ubsan"
LIBRARY = ROOT / "libs/ZTDrawEngineLib"
LEAST = {"": 90.0, "shx": 95.0, "shapes": 95.0, "model": 95.0}


def counted_lines():
    """Source -> (lines, lines that were reached)."""
    raw = sorted((BUILD / "coverage").glob("*.profraw"))
    if not raw:
        sys.exit("ci/coverage.py: nothing was counted; run ci/sanitizers.sh first")
    merged = BUILD / "coverage/merged.profdata"
    subprocess.run(["llvm-profdata-14", "merge", "-sparse", "-o", merged, *raw], check=True)
    told = subprocess.run(
        ["llvm-cov-14", "export", "-summary-only", f"-instr-profile={merged}",
         BUILD / "lib/libZTDrawEngineLib.so"], check=True, stdout=subprocess.PIPE).stdout
    lines = {}
    for file in json.loads(told)["data"][0]["files"]:
        source = Path(file["filename"]).resolve()
        if LIBRARY in source.parents:
            summary = file["summary"]["lines"]
            lines[source.relative_to(LIBRARY)] = (summary["count"], summary["covered"])
    return lines


def main():
    lines = counted_lines()
    is_enough = True
    for folder, least in LEAST.items():
        inside = [count for source, count in lines.items()
                  if not folder or source.parts[0] == folder]
        of, reached = (sum(column) for column in zip(*inside))
        share = 100.0 * reached / of
        is_enough = is_enough and share >= least
        print(f"{share:6.2f}% of {of} lines, at least {least:.0f}%: libs/ZTDrawEngineLib/{folder}")
    if "--files" in sys.argv:
        for source, (of, reached) in sorted(lines.items()):
            if reached < of:
                print(f"{100.0 * reached / of:6.2f}% {of - reached} not reached: {source}")
    sys.exit(0 if is_enough else 1)


main()
