"""Nothing grows out of hand: hard limits on the lines of a file and of a function."""

import re

from project import ROOT, finish, sources

MAX_SOURCE = 1000
MAX_HEADER = 400
MAX_FUNCTION = 100
MAX_COLUMNS = 100


def function_lengths(lines):
    """(first line, length) of each block that opens with a brace in column 0."""
    start = None
    for number, line in enumerate(lines, 1):
        if line == "{":
            start = number
        elif line.startswith("}") and start is not None:
            yield start, number - start
            start = None


def main():
    problems = []
    for folder in ("libs", "apps", "tests", "bench", "fuzz", "examples"):
        for source in sources(ROOT / folder, "*.h", "*.cpp"):
            name = source.relative_to(ROOT)
            lines = source.read_text(encoding="utf-8").splitlines()
            limit = MAX_HEADER if source.suffix == ".h" else MAX_SOURCE
            if len(lines) > limit:
                problems.append(f"{name}: {len(lines)} lines, at most {limit}")
            if folder in ("libs", "apps"):
                for start, length in function_lengths(lines):
                    is_class = re.match(r"\s*(class|struct)\b", lines[start - 2])
                    if length > MAX_FUNCTION and not is_class:
                        problems.append(f"{name}:{start}: a function of {length} lines")
            for number, line in enumerate(lines, 1):
                if len(line) > MAX_COLUMNS:
                    problems.append(f"{name}:{number}: {len(line)} columns")
    finish(problems, "sizes")


main()
