#!/usr/bin/env python3
"""The readers of foreign drawings beside other programs, on the same files in one run.

yardsticks.py ZTMARK: makes a plotter file of 1,000,000 points, an SVG and a DXF of 100,000 paths, lets
`ztmark` turn each into outlines as SVG, hp2xx the plotter file into DXF, rsvg-convert the SVG into PDF, and
python3-ezdxf flatten the DXF; prints the processor time of each in seconds, the least of three runs.
"""

import math
import os
import random
import resource
import subprocess
import sys
import tempfile

POINTS = 1_000_000
PATHS = 100_000
RUNS = 3

FLATTEN = """
import sys, ezdxf
points = 0
for entity in ezdxf.readfile(sys.argv[1]).modelspace():
    kind = entity.dxftype()
    if kind in ("ARC", "CIRCLE"):
        points += sum(1 for _ in entity.flattening(0.005))
    elif kind == "LINE":
        points += 2
    else:
        points += sum(1 for _ in ezdxf.path.make_path(entity).flattening(0.005))
print(points)
"""


def plotter_file(path):
    rng = random.Random(1)
    with open(path, "w") as out:
        out.write("IN;SP1;\n")
        for i in range(POINTS):
            out.write(f"{'PU' if i % 20 == 0 else 'PD'}{rng.randrange(40000)},{rng.randrange(40000)};\n")


def svg_file(path):
    rng = random.Random(1)
    with open(path, "w") as out:
        out.write('<svg xmlns="http://www.w3.org/2000/svg" width="400mm" height="400mm" '
                  'viewBox="0 0 400 400" fill="none" stroke="black">\n')
        for _ in range(PATHS):
            x, y = rng.uniform(0, 390), rng.uniform(0, 390)
            out.write(f'<path d="M{x:.3f} {y:.3f}c0 3 2 5 5 5l3 1z"/>\n')
        out.write("</svg>\n")


def dxf_file(path):
    rng = random.Random(1)
    with open(path, "w") as out:
        out.write("0\nSECTION\n2\nENTITIES\n")
        for i in range(PATHS):
            x, y = rng.uniform(0, 390), rng.uniform(0, 390)
            if i % 2 == 0:
                out.write(f"0\nLINE\n8\n0\n10\n{x:.6f}\n20\n{y:.6f}\n11\n{x + 5:.6f}\n21\n{y + 3:.6f}\n")
            else:
                out.write(f"0\nARC\n8\n0\n10\n{x:.6f}\n20\n{y:.6f}\n40\n3.0\n50\n10.0\n51\n200.0\n")
        out.write("0\nENDSEC\n0\nEOF\n")


def seconds(command):
    """Processor time of a program; not a number where it fails or is not there."""
    least = math.nan
    for _ in range(RUNS):
        before = resource.getrusage(resource.RUSAGE_CHILDREN)
        try:
            run = subprocess.run(command, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        except FileNotFoundError:
            return math.nan
        after = resource.getrusage(resource.RUSAGE_CHILDREN)
        if run.returncode != 0:
            return math.nan
        spent = after.ru_utime + after.ru_stime - before.ru_utime - before.ru_stime
        least = spent if math.isnan(least) else min(least, spent)
    return least


def main():
    ztmark = os.path.abspath(sys.argv[1])
    os.environ.setdefault("QT_QPA_PLATFORM", "offscreen")
    with tempfile.TemporaryDirectory() as folder:
        os.chdir(folder)
        plotter_file("film.plt")
        svg_file("plate.svg")
        dxf_file("plate.dxf")

        def own(name):
            return seconds([ztmark, "mark", name, "--outside", "-q", "--marks-only", "-o", "out.svg"])

        rows = [
            ("plotter file", "film.plt", "hp2xx", ["hp2xx", "-q", "-m", "dxf", "-f", "out.dxf", "film.plt"]),
            ("SVG", "plate.svg", "rsvg-convert",
             ["rsvg-convert", "-f", "pdf", "--unlimited", "-o", "out.pdf", "plate.svg"]),
            ("DXF", "plate.dxf", "ezdxf", ["/usr/bin/python3", "-c", FLATTEN, "plate.dxf"]),
        ]
        for kind, name, other, command in rows:
            print(f"{kind}: ztmark {own(name):.2f} s, {other} {seconds(command):.2f} s, "
                  f"{os.path.getsize(name) / 1e6:.1f} MB")


if __name__ == "__main__":
    main()
