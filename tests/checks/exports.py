"""The library exports its own names and nothing else: exports.py NM LIBRARY."""

import re
import subprocess
import sys

from project import finish

# Own classes and operators, weak template instances of Qt and the standard library aside.
OWN = re.compile(
    r"^(vtable for |typeinfo (name )?for |non-virtual thunk to |virtual thunk to |guard variable for )?"
    r"(ZT\w+|PltReader|PltCheck|PltReport|PltProblem|Factory|ShapeType2String|operator|zt\w+::|Qt\w+|"
    r"qt_static_metacall|std::operator|bool operator)"
)

# What the linker adds to every library.
LINKER = {"__bss_start", "_edata", "_end"}


def main():
    nm, library = sys.argv[1:3]
    listing = subprocess.run(
        [nm, "--dynamic", "--defined-only", "--demangle", library],
        check=True, capture_output=True, text=True,
    ).stdout
    problems = []
    seen = 0
    for line in listing.splitlines():
        kind, name = line.split(" ", 2)[1:]
        if name in LINKER or (kind in "VWu" and not name.startswith("ZT")):
            continue
        seen += 1
        if not OWN.match(name):
            problems.append(f"exported: {kind} {name}")
    if seen == 0:
        problems.append("no exported symbol found: wrong library?")
    finish(problems, "exports")


main()
