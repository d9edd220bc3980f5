"""What the structural checks share: the tree, its files, and how a check ends."""

import re
import sys
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]
LIBS = ROOT / "libs"
ENGINE = LIBS / "ZTDrawEngineLib"
LIBRARIES = ("QtPropertyBrowser", "ZTMarkDataManager", "ZTDrawEngineLib")


def sources(folder, *patterns):
    """The files below a folder that match, sorted."""
    return sorted(path for pattern in patterns for path in folder.rglob(pattern))


def public_headers():
    """Headers that are installed."""
    headers = []
    for library in LIBRARIES:
        headers += [h for h in sources(LIBS / library, "*.h") if not h.name.endswith("_p.h")]
    return headers


def includes(path):
    """(line number, text between the brackets or quotes) of each include."""
    for number, line in enumerate(path.read_text(encoding="utf-8").splitlines(), 1):
        found = re.match(r'\s*#\s*include\s*[<"]([^>"]+)[>"]', line)
        if found:
            yield number, found.group(1)


def finish(problems, what):
    """Prints the problems and ends the check."""
    for problem in problems:
        print(problem)
    print(f"{what}: {len(problems)} problem(s)")
    sys.exit(1 if problems else 0)
