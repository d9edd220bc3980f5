"""Nothing grows out of hand: hard limits on the lines of a file and of a function."""

import re

from project import ROOT, finish, sources

MAX_SOURCE = 1000
MAX_HEADER = 400
MAX_FUNCTION = 100
MAX_COLUMNS = 100


TYPE = re.compile(r"\s*(template\b.*|class|struct|union|enum)\b")


def function_lengths(lines):
    """(first line, length) of each function's body, in a class or out of one, tests included.

    A body opens with a brace of its own line and ends with one as far to the right; a type opens
    likewise, a namespace and a statement on the line before. A test's table of cases is data.
    """
    open_bodies = []
    for number, line in enumerate(lines, 1):
        column = len(line) - len(line.lstrip())
        if line.strip() == "{":
            head = number - 2
            while head > 0 and lines[head].startswith(" " * (column + 1)):
                head -= 1  # the lines of a head that was broken
            is_free = TYPE.match(lines[head]) or "_data()" in lines[head]
            open_bodies.append((number, column, bool(is_free)))
        elif open_bodies and line.strip().startswith("}") and column == open_bodies[-1][1]:
            start, _, is_free = open_bodies.pop()
            if not is_free:
                yield start, number - start


def main():
    problems = []
    for folder in ("libs", "apps", "tests", "bench", "fuzz", "examples"):
        for source in sources(ROOT / folder, "*.h", "*.cpp"):
            name = source.relative_to(ROOT)
            lines = source.read_text(encoding="utf-8").splitlines()
            limit = MAX_HEADER if source.suffix == ".h" else MAX_SOURCE
            if len(lines) > limit:
                problems.append(f"{name}: {len(lines)} lines, at most {limit}")
            for start, length in function_lengths(lines):
                if length > MAX_FUNCTION:
                    problems.append(f"{name}:{start}: a function of {length} lines")
            for number, line in enumerate(lines, 1):
                if len(line) > MAX_COLUMNS:
                    problems.append(f"{name}:{number}: {len(line)} columns")
    finish(problems, "sizes")


main()
